import QtQuick 2.12
import QtQuick.Templates 2.5 as T
import "."

// A button on a bare face, for words that have no picture.
//
// Properties: source (the face); all of Button. Items: word.
T.Button {
    id: wordButton

    property alias source: face.source
    property alias word: word

    implicitWidth: face.implicitWidth
    implicitHeight: face.implicitHeight
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
