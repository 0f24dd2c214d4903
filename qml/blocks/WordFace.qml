import QtQuick 2.12

// The word of a WordButton.
PanelText {
    horizontalAlignment: Text.AlignHCenter
    font.pixelSize: 16
    font.bold: true
}
