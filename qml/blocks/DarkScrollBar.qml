import QtQuick 2.12
import QtQuick.Templates 2.5 as T
import "."

// The scroll bar of a page, 12 wide: the handle is 8 wide and turns blue while it is dragged.
T.ScrollBar {
    id: darkScrollBar

    implicitWidth: 12
    padding: 2
    policy: T.ScrollBar.AlwaysOn
    minimumSize: 0.05

    background: Rectangle { color: "#060A12" }
    contentItem: Rectangle {
        implicitWidth: 8
        radius: 4
        color: darkScrollBar.pressed ? Look.level : "#384A64"
    }
}
