import QtQuick 2.12
import QtQuick.Templates 2.5 as T
import "."

// A page that scrolls up and down, with a dark scroll bar at barX.
//
// The bar stands in this document and the content in the one that uses it, because the bar follows the content only
// if it is there first.
T.ScrollView {
    id: darkScrollView

    property real barX: 0
    property alias scrollBar: scrollBar

    clip: true
    activeFocusOnTab: false

    T.ScrollBar.vertical: DarkScrollBar {
        id: scrollBar
        parent: darkScrollView
        x: darkScrollView.barX
        height: darkScrollView.height
    }
}
