import QtQuick 2.12
import QtQuick.Controls 2.5

// A button on a bare face, for words that have no picture. The word is the contentItem, a WordFace.
//
// Properties: source (the face); all of Button.
Button {
    id: wordButton

    property alias source: face.source

    implicitWidth: face.implicitWidth
    implicitHeight: face.implicitHeight
    padding: 0
    background: Image { id: face }
}
