import QtQuick 2.12
import "Pictures.js" as Pictures

// One signal of the input page: name, what stands in the source column, resolution, freeze switch.
//
// Properties: name; frozen; freezes (whether the signal has the switch); resolution, freezeSwitch (items);
//             children stand in the source column, 150 wide. Signals: switched(), frozen has changed by hand.
// Reads sourcePath of the page.
InputLine {
    id: signalLine

    property bool frozen: false
    property alias name: nameText.text
    property alias freezes: freezeSwitch.visible
    property alias resolution: resolutionText
    property alias freezeSwitch: freezeSwitch
    default property alias sourceItems: sourceColumn.data

    signal switched()

    Row {
        x: 20
        anchors.verticalCenter: parent.verticalCenter
        spacing: 100

        PanelText {
            id: nameText
            width: 100
        }

        Item {
            id: sourceColumn
            width: 150
            height: 34
        }

        PanelText {
            id: resolutionText
            width: 100
            text: "1080p59"
        }

        ClickImage {
            id: freezeSwitch
            anchors.verticalCenter: parent.verticalCenter
            source: sourcePath + Pictures.switchFace(frozen)
            onClicked: {
                frozen = !frozen
                signalLine.switched()
            }
        }
    }
}
