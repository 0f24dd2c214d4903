import QtQuick 2.12
import "../blocks"

// Stands while the unit is let go: six ticks of a second, with dots that grow fewer.
NoticeShell {
    id: disconnectNotice

    property alias txtDisconnectNotifyInfo: txtDisconnectNotifyInfo
    property alias txtDisconnectNotifyInfoCountDown: txtDisconnectNotifyInfoCountDown
    property alias notifyTimer: notifyTimer

    sign: "qrc:/img/pc/img_notify_info.png"

    NoticeText {
        id: txtDisconnectNotifyInfo
        text: qsTranslate("main", "The system has been disconnected.\nPlease reconnect.\n")
              + qmlTranslator.e_str
    }

    NoticeText {
        id: txtDisconnectNotifyInfoCountDown
        anchors.centerIn: undefined
        anchors { top: txtDisconnectNotifyInfo.bottom; topMargin: -6 }
        anchors.horizontalCenter: parent.horizontalCenter
        font.pixelSize: 14
    }

    Timer {
        id: notifyTimer
        interval: 1000
        repeat: true
        onTriggered: {
            if (notifier !== 1)
                return
            txtDisconnectNotifyInfoCountDown.text = ".....".substring(0, countDown)
            if (countDown !== 0) {
                countDown -= 1
                msgConnect.text = qsTranslate("main", "Disconnecting") + qmlTranslator.e_str
                return
            }
            btnConnectDisconnect.source = Qt.binding(function () {
                return sourcePath + (btnConnectDisconnect.pressed ? "btn_p_disconnect_connect.png"
                                                                  : "btn_n_disconnect_connect.png")
            })
            disconnectNotice.close()
            recHeader.enableSetup(false)
            popupConnect.open()
            notifyTimer.stop()
            countDown = 5
            msgConnect.text = qsTranslate("main", "Disconnected") + qmlTranslator.e_str
            outputTitleUserMemOp.text = ""
        }
    }
}
