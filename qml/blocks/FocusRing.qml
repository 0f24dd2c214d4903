import QtQuick 2.12
import "."

// Around the control that has the keyboard.
Rectangle {
    z: 2
    color: "transparent"
    border.color: Look.focusRing
}
