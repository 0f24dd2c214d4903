import QtQuick 2.12

// A label of a form row, 32 high. Properties: all of Text.
PanelText {
    width: 150
    height: 32
    font.pixelSize: 18
}
