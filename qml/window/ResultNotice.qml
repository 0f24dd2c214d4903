import QtQuick 2.12
import "../blocks"

// Says that something is done, until OK is pressed.
//
// Properties: message; heading of the shell. Items: button.
NoticeShell {
    id: resultNotice

    property alias message: messageText.text
    property alias button: okButton

    sign: "qrc:/img/pc/img_notify_success.png"

    NoticeText { id: messageText }

    FaceButton {
        id: okButton
        anchors { top: messageText.bottom; topMargin: 50; horizontalCenter: parent.horizontalCenter }
        focus: true
        source: sourcePath + (pressed ? "btn_p_ok_adjust_color.png" : "btn_n_ok_adjust_color.png")
        onClicked: resultNotice.close()
    }
}
