import QtQuick 2.12
import "../blocks"

// The header: Connect (F2), Setup (F3) and the language. While the start mask is up, which leaves the header free, the
// Tab key goes round in it: what lies under the mask must not be reached.
Image {
    property alias comboMainLanguage: comboMainLanguage
    property alias btnSetup: btnSetup
    property alias btnConnect: btnConnect

    function face(state, name) {
        return "qrc:/img/pc/btn_" + state + "_" + name + "_dashboard.png"
    }

    function enableSetup(on) {
        btnSetup.enabled = on
        btnSetup.source = face(on ? "n" : "d", "setup")
    }

    function connectClosed() {
        btnConnectClicked = false
        btnConnect.source = face("n", "connect")
    }

    function setupClosed() {
        btnSetupClicked = false
        btnSetup.source = face("n", "setup")
    }

    source: "qrc:/img/pc/img_bg_header_dashboard.png"

    FaceButton {
        id: btnConnect
        anchors { top: parent.top; topMargin: 6; right: btnSetup.left }
        source: face("n", "connect")
        KeyNavigation.tab: popupMask.visible ? btnSetup : null
        KeyNavigation.backtab: popupMask.visible ? comboMainLanguage : null
        onClicked: {
            source = face(btnConnectClicked ? "n" : "p", "connect")
            if (!btnConnectClicked) {
                mainObject.connectPopup(comboConnectInterface.currentIndex, comboConnectComPort.currentIndex)
                popupConnect.open()
            }
            btnConnectClicked = !btnConnectClicked
        }
    }

    FaceButton {
        id: btnSetup
        anchors { top: parent.top; topMargin: 6; right: comboMainLanguage.left; rightMargin: 6 }
        source: face("n", "setup")
        KeyNavigation.tab: popupMask.visible ? comboMainLanguage : null
        KeyNavigation.backtab: popupMask.visible ? btnConnect : null
        onClicked: {
            source = face(btnSetupClicked ? "n" : "p", "setup")
            if (!btnSetupClicked)
                popupSetup.open()
            btnSetupClicked = !btnSetupClicked
        }
    }

    LanguageCombo {
        id: comboMainLanguage
        anchors { top: parent.top; topMargin: 6; right: parent.right }
        textRole: "modelData"
        model: listLanguage
        onCurrentIndexChanged: switchLanguage()
        KeyNavigation.tab: popupMask.visible ? btnConnect : null
        KeyNavigation.backtab: popupMask.visible ? btnSetup : null
    }

    Shortcut {
        sequence: "F2"
        autoRepeat: false
        onActivated: btnConnect.clicked()
    }

    Shortcut {
        sequence: "F3"
        autoRepeat: false
        enabled: btnSetup.enabled
        onActivated: btnSetup.clicked()
    }

    Connections {
        target: mainObject

        onRefreshLanguage: {
            console.log("onRefreshLanguage", lan)
            var index = ["en_US", "zh_TW", "zh_CN"].indexOf(lan)
            if (index >= 0)
                comboMainLanguage.currentIndex = index
        }
    }
}
