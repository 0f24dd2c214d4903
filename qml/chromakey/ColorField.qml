import QtQuick 2.12
import "../blocks"

// One part of the key colour, as the unit counts it, with its label to the left.
NumberField {
    property alias label: labelText

    y: 17
    enabled: switchedOn
    color: textColor
    lowest: 0
    highest: 1000
    onAccepted: sendColor()

    PanelText {
        id: labelText
        x: -8 - width
        y: 3
        color: Look.faint
    }
}
