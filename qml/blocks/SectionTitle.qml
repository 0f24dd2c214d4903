import QtQuick 2.12
import "."

// The title of a section header. Its widest text is a little wider than its 200 and runs on uncut.
PanelText {
    x: 48
    anchors.verticalCenter: parent.verticalCenter
    width: 200
    color: Look.title
    font.bold: true
}
