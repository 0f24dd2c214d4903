import QtQuick 2.12

// A title in the output band.
PanelText {
    height: 24
    color: "#788194"
    font.pixelSize: 18
}
