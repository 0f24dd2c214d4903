import QtQuick 2.12
import "."

// An entry of the left menu, which brings its page to the front; Ctrl and its number does as well.
//
// Properties: text, page, textColor.
Image {
    id: menuEntry

    property int page
    property alias text: entryText.text
    property alias textColor: entryText.color
    readonly property bool selected: tabPageID === page

    source: selected ? "qrc:/img/pc/btn_p_menu_dashboard.png" : "qrc:/img/pc/btn_n_menu_dashboard.png"

    PanelText {
        id: entryText
        anchors { top: parent.top; topMargin: 15; left: parent.left; leftMargin: 24 }
        height: 28
        color: menuEntry.selected ? "#8BC7EA" : Look.entry
    }

    PressArea { onClicked: selectPage(menuEntry.page) }

    Shortcut {
        sequence: "Ctrl+" + menuEntry.page
        autoRepeat: false
        enabled: !popupMask.visible
        onActivated: goToPage(menuEntry.page)
    }
}
