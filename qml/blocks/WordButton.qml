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
    // Follows the notice, until it is true for the first time.
    property bool seen: visible

    implicitWidth: face.implicitWidth
    implicitHeight: face.implicitHeight
    hoverEnabled: false
    onSeenChanged: {
        if (seen)
            seen = true
    }
    background: Image { id: face }
    contentItem: PanelText {
        id: word
        horizontalAlignment: Text.AlignHCenter
        // A size of letters that no other text has is looked for when it is needed.
        font.pixelSize: wordButton.seen ? 16 : 18
        font.bold: wordButton.seen
        text: wordButton.text
        color: wordButton.pressed ? "#FFFFFF" : Look.normal
    }
}
