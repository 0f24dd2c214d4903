import QtQuick 2.12
import "."

// Around the control that the mouse points at, if a press does something there.
Rectangle {
    z: 1
    color: "transparent"
    border.color: Look.hoverEdge
}
