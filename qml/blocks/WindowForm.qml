import QtQuick 2.12
import "Pictures.js" as Pictures
import "."

// A rectangular window on the picture: switch, four edges, border, invert. It does not fold.
//
// Properties: invertOn; lastX, lastY (the ends of the edges' ranges); items: leftRow, rightRow, topRow,
//             bottomRow, borderRow, invertTitle, invertSwitch (the words come from the page), throttle; all
//             of GroupSection.
// Functions:  report(...) shows what the unit reports; retranslate() puts back the faces that a switch of
//             the language leaves behind.
// Reads sourcePath of the page.
GroupSection {
    id: windowForm

    // Start values that the sliders take while the document loads are no changes.
    property bool settling: true
    property bool invertOn: false
    property real lastX: 1000
    property real lastY: 1000
    property alias leftRow: leftRow
    property alias rightRow: rightRow
    property alias topRow: topRow
    property alias bottomRow: bottomRow
    property alias borderRow: borderRow
    property alias invertTitle: invertTitle
    property alias invertSwitch: invertSwitch
    property alias throttle: throttle

    function sendSoon() {
        if (!settling)
            throttle.start()
    }

    function report(enable, invert, left, right, top, bottom, border) {
        invertOn = invert === 1
        show(enable)
        leftRow.sliderValue = left
        rightRow.sliderValue = right
        topRow.sliderValue = top
        bottomRow.sliderValue = bottom
        borderRow.sliderValue = border
    }

    function retranslate() {
        showReset("n")
        // Off whatever the state is: accepted until the next refresh or click puts it right.
        invertSwitch.source = sourcePath + Pictures.switchFace(false)
    }

    implicitHeight: 74 * 6
    clip: false
    foldable: false
    openWhenOff: true
    rows: [leftRow, rightRow, topRow, bottomRow, borderRow]
    onShown: {
        invertSwitch.source = sourcePath + (on ? Pictures.switchFace(invertOn)
                                               : Pictures.deadSwitchFace(invertOn))
    }
    Component.onCompleted: settling = false

    GroupRow {
        id: leftRow
        section: windowForm
        sliderMax: lastX
    }

    GroupRow {
        id: rightRow
        section: windowForm
        sliderMax: lastX
    }

    GroupRow {
        id: topRow
        section: windowForm
        sliderMax: lastY
    }

    GroupRow {
        id: bottomRow
        section: windowForm
        sliderMax: lastY
    }

    GroupRow {
        id: borderRow
        section: windowForm
        sliderMax: 100
    }

    InputLine {
        PanelText {
            id: invertTitle
            x: 48
            anchors.verticalCenter: parent.verticalCenter
            width: 200
            color: Look.text(switchedOn)
        }

        FaceButton {
            id: invertSwitch
            x: 298
            anchors.verticalCenter: parent.verticalCenter
            enabled: switchedOn
            source: sourcePath + Pictures.switchFace(false)
            onClicked: {
                invertOn = !invertOn
                source = sourcePath + Pictures.switchFace(invertOn)
                // Not at once: the invert goes the way of the sliders.
                throttle.start()
            }
        }
    }

    // Started and never restarted: a long drag sends the latest positions every 50 ms.
    Timer {
        id: throttle
        interval: 50
        onTriggered: windowForm.send(null)
    }
}
