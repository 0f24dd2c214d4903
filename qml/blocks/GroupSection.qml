import QtQuick 2.12
import "Pictures.js" as Pictures

// A section of a page: header, and below it the rows of one group of the unit's values, which travel
// together.
//
// Properties: command (the group's number), switchedOn, folded, foldable, rows (greyed out by the switch),
//             openWhenOff (reset and number fields answer also while the switch is off), alive and
//             contentVisible (of the content), openHeight (after unfolding), title, hasSwitch.
// Functions:  show(on) takes and draws the switch's state, showReset(state) draws the reset.
// Signals:    what the section answers with its group's calls: send(typedRow), with the row whose number was
//             just typed or null, read(), reset(); shown(on); switched(), after the new state went out.
// Reads sourcePath of the page.
FoldingSection {
    id: groupSection

    property int command
    property bool switchedOn: true
    property bool folded: false
    property bool openWhenOff: false
    property bool alive: (switchedOn || openWhenOff) && !folded
    property real openHeight
    property string resetState: "n"
    property var rows: []
    property alias header: sectionHeader
    property alias foldable: sectionHeader.foldable
    property alias foldButton: sectionHeader.foldButton
    property alias titleItem: sectionHeader.titleItem
    property alias switchButton: sectionHeader.switchButton
    property alias resetButton: sectionHeader.resetButton
    property alias title: sectionHeader.title
    property alias hasSwitch: sectionHeader.hasSwitch
    property alias body: body
    property alias contentVisible: body.visible
    default property alias content: column.data

    signal shown(bool on)
    signal send(var typedRow)
    signal read()
    signal switched()
    signal reset()

    function show(on) {
        switchedOn = on
        showReset(on ? "n" : "d")
        sectionHeader.resetEnabled = on || openWhenOff
        rows.forEach(function (row) { row.enableItem(on) })
        shown(on)
    }

    function showReset(state) {
        resetState = state
    }

    SectionHeader {
        id: sectionHeader
        folded: groupSection.folded
        switchSource: sourcePath + Pictures.switchFace(switchedOn)
        resetSource: sourcePath + "btn_" + resetState + "_reset_dashboard.png"
        onFoldClicked: {
            groupSection.foldTo(groupSection.folded ? openHeight : height)
            groupSection.folded = !groupSection.folded
        }
        onSwitchClicked: {
            groupSection.show(!switchedOn)
            groupSection.send(null)
            groupSection.switched()
        }
        onResetPressedDown: showReset("p")
        onResetReleased: {
            showReset("n")
            groupSection.reset()
        }
    }

    Item {
        id: body
        y: sectionHeader.height
        width: parent.width
        height: column.height
        enabled: alive

        Column { id: column }
    }
}
