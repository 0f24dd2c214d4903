import QtQuick 2.12
import "."

// An entry of the left menu; whoever uses it says whether it is the selected one.
//
// Properties: text, textColor, source (the picture). Signals: clicked().
Image {
    property alias text: entryText.text
    property alias textColor: entryText.color

    signal clicked()

    source: "qrc:/img/pc/btn_n_menu_dashboard.png"

    PanelText {
        id: entryText
        anchors { top: parent.top; topMargin: 15; left: parent.left; leftMargin: 24 }
        height: 28
        color: Look.entry
    }

    MouseArea {
        anchors.fill: parent
        onClicked: parent.clicked()
    }
}
