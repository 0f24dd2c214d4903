import QtQuick 2.12
import "../blocks"
import "../blocks/Pictures.js" as Pictures

// A section of the chromakey page: header, and below it the rows of one group, which travel together.
//
// Properties: command (the group's number), switchedOn, rows (greyed out by the switch), alive (whether the
//             content answers), openHeight (after unfolding), title, hasSwitch.
// Functions:  show(on) takes and draws the switch's state, showReset(state) draws the reset.
// Signals:    what the section answers with its group's calls: send(typedRow), with the row whose number was
//             just typed or null, read(), reset(); shown(on); switched(), after the new state went out.
FoldingSection {
    id: keySection

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
        folded: keySection.folded
        switchSource: sourcePath + Pictures.switchFace(switchedOn)
        resetSource: sourcePath + "btn_n_reset_dashboard.png"
        onFoldClicked: {
            keySection.foldTo(keySection.folded ? openHeight : height)
            keySection.folded = !keySection.folded
        }
        onSwitchClicked: {
            keySection.show(!switchedOn)
            keySection.send(null)
            keySection.switched()
        }
        onResetPressedDown: showReset("p")
        onResetReleased: {
            showReset("n")
            keySection.reset()
        }
    }

    Item {
        y: sectionHeader.height
        width: parent.width
        enabled: alive

        Column { id: column }
    }
}
