import QtQuick 2.12
import "."

// One of two choices: a round mark and the word beside it. Both answer to the mouse, as one control to the keyboard.
//
// Properties: live (else grey and deaf); mark, word, pressArea (items). Signals: picked(), at the release.
// Functions:  show(letter) draws the mark: n, p, s (chosen) or d.
Item {
    id: radioChoice

    property bool live: true
    property alias mark: mark
    property alias word: word
    property alias pressArea: markArea

    signal picked()

    function show(letter) {
        mark.source = "qrc:/img/pc/btn_" + letter + "_radio_lumakey.png"
    }

    function hold(pressed) {
        if (pressed)
            show("p")
        else
            picked()
    }

    width: 186
    height: 34
    enabled: live
    activeFocusOnTab: true

    Image {
        id: mark
        anchors.verticalCenter: parent.verticalCenter
        width: 26
        height: 26
        source: "qrc:/img/pc/btn_n_radio_lumakey.png"

        MouseArea {
            id: markArea
            anchors.fill: parent
            onPressedChanged: hold(pressed)
        }
    }

    PanelText {
        id: word
        x: 36
        width: 150
        color: Look.text(radioChoice.live)

        MouseArea {
            anchors.fill: parent
            onPressedChanged: hold(pressed)
        }
    }
}
