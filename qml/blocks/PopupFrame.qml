import QtQuick 2.12
import QtQuick.Templates 2.5 as T
import "."

// The shell of every modal popup: one picture as its ground, centred on its parent, fading in. The ground is loaded
// while the popup is seen: most are never opened in a run. So the width and height of the picture are written down
// where its name is, and nothing moves when it comes.
//
// Properties: source, width, height (of the ground), dimness (how dark the screen behind it gets), title, closable (a close
// cross at the top right); all of Popup. Children are placed on the ground in its own pixels.
T.Popup {
    id: popupFrame

    property url source
    property alias title: titleText.text
    property alias closable: closeImage.visible
    property real dimness: 0.55
    // Becomes true when the popup first opens. What only it shows in its size of letters is set in another one until
    // then: each size costs the start a search for its face.
    property bool seen: false

    anchors.centerIn: parent
    modal: true
    focus: true
    padding: 0
    font.pixelSize: Math.max(1, height * 0.03)
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutside
    onAboutToShow: seen = true
    enter: Transition {
        NumberAnimation { property: "opacity"; from: 0.0; to: 1.0 }
    }
    contentItem: Image { source: popupFrame.visible ? popupFrame.source : "" }

    T.Overlay.modal: Rectangle { color: Qt.rgba(0, 0, 0, popupFrame.dimness) }

    PanelText {
        id: titleText
        x: 20
        y: 10
        height: 32
        visible: text !== ""
        color: Look.level
        font.pixelSize: popupFrame.seen ? 24 : 22
        font.bold: true
    }

    Image {
        id: closeImage
        anchors { top: parent.top; topMargin: 16; right: parent.right; rightMargin: 20 }
        source: "qrc:/img/pc/btn_n_close_dialog.png"

        PressArea { onClicked: popupFrame.close() }
    }
}
