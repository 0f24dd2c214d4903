import QtQuick 2.12

// The header row of a foldable section: fold mark, title, switch, reset.
//
// Properties: title; folded (the chevron); foldable (else the mark only stands there); hasSwitch;
//             switchSource, resetSource (pictures); resetEnabled; titleItem, foldButton, switchButton,
//             resetButton (items).
// Signals:    foldClicked(), switchClicked(), resetPressedDown(), resetReleased().
InputLine {
    id: sectionHeader

    property alias title: sectionTitle.text
    property alias folded: foldButton.folded
    property alias foldable: foldButton.enabled
    property alias hasSwitch: switchButton.visible
    property alias switchSource: switchButton.source
    property alias resetSource: resetButton.source
    property alias resetEnabled: resetButton.enabled
    property alias titleItem: sectionTitle
    property alias foldButton: foldButton
    property alias switchButton: switchButton
    property alias resetButton: resetButton

    signal foldClicked()
    signal switchClicked()
    signal resetPressedDown()
    signal resetReleased()

    FoldButton {
        id: foldButton
        onClicked: sectionHeader.foldClicked()
    }

    SectionTitle { id: sectionTitle }

    FaceButton {
        id: switchButton
        x: 298
        anchors.verticalCenter: parent.verticalCenter
        onClicked: sectionHeader.switchClicked()
    }

    FaceButton {
        id: resetButton
        anchors.right: parent.right
        anchors.rightMargin: 20
        anchors.verticalCenter: parent.verticalCenter
        onPressedChanged: {
            if (pressed)
                sectionHeader.resetPressedDown()
            else
                sectionHeader.resetReleased()
        }
    }
}
