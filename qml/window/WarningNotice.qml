import QtQuick 2.12
import QtQuick.Templates 2.5 as T
import "../blocks"

// The link is lost: connect again at once, or by way of the connection panel.
NoticeShell {
    property alias txtWarningMsg: txtWarningMsg
    property alias btnWarningReconnect: btnWarningReconnect
    property alias txtWarningReconnect: btnWarningReconnect.word
    property alias btnWarningConfig: btnWarningConfig
    property alias txtWarningConfig: btnWarningConfig.word

    heading: qsTranslate("main", "WARNING") + qmlTranslator.e_str
    sign: "qrc:/img/pc/img_notify_error.png"
    dimness: 0.55
    closePolicy: T.Popup.CloseOnEscape

    NoticeText { id: txtWarningMsg }

    WordButton {
        id: btnWarningReconnect
        anchors { top: txtWarningMsg.bottom; topMargin: 50; left: parent.left; leftMargin: 100 }
        source: sourcePath + "btn_bg_adjust_color.png"
        text: qsTranslate("main", "Reconnect") + qmlTranslator.e_str
        onPressedChanged: {
            if (pressed)
                msgConnect.text = ""
        }
        onClicked: popupConnect.runConnect(true)
    }

    WordButton {
        id: btnWarningConfig
        anchors { top: txtWarningMsg.bottom; topMargin: 50; right: parent.right; rightMargin: 100 }
        source: sourcePath + "btn_bg_adjust_color.png"
        text: qsTranslate("main", "Config") + qmlTranslator.e_str
        onClicked: {
            msgConnect.text = ""
            btnWarningReconnect.enabled = true
            txtWarningReconnect.color = Qt.binding(function () {
                return btnWarningReconnect.pressed ? "#FFFFFF" : Look.normal
            })
            popupConnect.open()
            console.log("popupConnect Open")
        }
    }
}
