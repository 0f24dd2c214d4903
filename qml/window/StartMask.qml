import QtQuick 2.12
import QtQuick.Templates 2.5 as T
import ".."

// Stands over everything but the header while no unit is connected. Any padding would push the arrow off the
// Connect button.
T.Popup {
    id: startMask

    property alias maskbusy: maskbusy
    property alias guideArrow: guideArrow
    property alias maskBusyTimer: maskBusyTimer

    y: 48
    width: mainWindow.width
    height: mainWindow.height - 48
    padding: 0
    focus: true
    closePolicy: T.Popup.NoAutoClose
    font.pixelSize: Math.max(1, height * 0.03)
    background: Rectangle {
        color: "black"
        opacity: 0.75
    }

    // A notice that closes over the mask may leave the keyboard to nobody, and from there the Tab key would find what
    // lies under the mask.
    Connections {
        target: mainWindow
        enabled: startMask.visible
        onActiveFocusItemChanged: {
            if (mainWindow.activeFocusItem === mainWindow.contentItem.parent)
                startMask.forceActiveFocus()
        }
    }

    contentItem: Item {
        // The header is free, and the keyboard goes there.
        focus: true
        Keys.onTabPressed: btnConnect.forceActiveFocus(Qt.TabFocusReason)
        Keys.onBacktabPressed: comboMainLanguage.forceActiveFocus(Qt.BacktabFocusReason)
        Keys.onReturnPressed: btnConnect.clicked()
        Keys.onEnterPressed: btnConnect.clicked()

        MouseArea {
            anchors.fill: parent
            hoverEnabled: true
            onWheel: wheel.accepted = true
        }

        PageBusy {
            id: maskbusy
            anchors.centerIn: parent
            running: true
        }

        Image {
            id: guideArrow
            anchors { top: parent.top; topMargin: -25; right: parent.right; rightMargin: 129 }
            source: "qrc:/img/pc/img_up_arrow.png"
            scale: 0.5

            SequentialAnimation {
                running: startMask.visible
                loops: Animation.Infinite
                PropertyAnimation { target: guideArrow; property: "opacity"; to: 0.8; duration: 1200 }
                PropertyAnimation { target: guideArrow; property: "opacity"; to: 0.1; duration: 1200 }
            }
        }

        Timer {
            id: maskBusyTimer
            interval: 500
            running: true
            onTriggered: {
                // Hidden first, so that it has nothing left to animate.
                maskbusy.visible = false
                maskbusy.running = false
            }
        }
    }
}
