import QtQuick 2.12
import QtQuick.Controls 2.5
import "."

// A button on a bare face, for words that have no picture.
//
// Properties: source (the face); all of Button. Items: word.
Button {
    id: wordButton

    property alias source: face.source
    property alias word: word

    implicitWidth: face.implicitWidth
    implicitHeight: face.implicitHeight
    padding: 0
    background: Image { id: face }
    contentItem: PanelText {
        id: word
        horizontalAlignment: Text.AlignHCenter
        font.pixelSize: 16
        font.bold: true
        text: wordButton.text
        color: wordButton.pressed ? "#FFFFFF" : Look.normal
    }
}
