import QtQuick 2.12
import "Pictures.js" as Pictures

// A section of a page: a header that folds it, switches it and resets it, and below it the rows of one group,
// which travel together.
//
// Properties: command (the group's number), switchedOn, rows (greyed out by the switch), alive (whether the
//             content answers), openHeight (after unfolding); title, hasSwitch, header, resetButton.
// Functions:  show(on) takes and draws the switch's state, showReset(state) draws the reset.
// Signals:    what the section answers with its group's calls: send(typedRow), with the row whose number was
//             just typed or null, read(), reset(); shown(on); switched(), after the new state went out.
// The page brings sourcePath.
FoldingSection {
    id: section

    property int command
    property bool switchedOn: true
    property bool folded: false
    property bool alive: switchedOn && !folded
    property real openHeight
    property var rows: []
    property alias header: sectionHeader
    property alias resetButton: sectionHeader.resetButton
    property alias title: sectionHeader.title
    property alias hasSwitch: sectionHeader.hasSwitch
    default property alias content: column.data

    signal shown(bool on)
    signal send(var typedRow)
    signal read()
    signal switched()
    signal reset()

    function show(on) {
        switchedOn = on
        showReset(on ? "n" : "d")
        sectionHeader.resetEnabled = on
        rows.forEach(function (row) { row.enableItem(on) })
        shown(on)
    }

    function showReset(state) {
        sectionHeader.resetSource = sourcePath + "btn_" + state + "_reset_dashboard.png"
    }

    SectionHeader {
        id: sectionHeader
        folded: section.folded
        switchSource: sourcePath + Pictures.switchFace(section.switchedOn)
        resetSource: sourcePath + "btn_n_reset_dashboard.png"
        onFoldClicked: {
            section.foldTo(section.folded ? section.openHeight : height)
            section.folded = !section.folded
        }
        onSwitchClicked: {
            section.show(!section.switchedOn)
            section.send(null)
            section.switched()
        }
        onResetPressedDown: section.showReset("p")
        onResetReleased: {
            section.showReset("n")
            section.reset()
        }
    }

    Item {
        y: sectionHeader.height
        width: parent.width
        enabled: section.alive

        Column { id: column }
    }
}
