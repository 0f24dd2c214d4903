import QtQuick 2.12
import "."

// The shell of all notices: title, sign, and whatever stands in the notice (a NoticeText, buttons).
//
// Properties: heading, sign (picture); all of PopupFrame. It dims less than a panel, as it opens over one.
PopupFrame {
    property alias heading: headingText.text
    property url sign

    source: "qrc:/img/pc/img_bg_notify.png"
    width: 520
    height: 300
    closable: false
    dimness: 0.40

    PanelText {
        id: headingText
        anchors.horizontalCenter: parent.horizontalCenter
        y: 5
        height: 30
        color: Look.noticeTitle
    }

    Image {
        id: signImage
        anchors.horizontalCenter: parent.horizontalCenter
        y: 48
        width: 64
        height: 64
        source: seen ? sign : ""
    }
}
