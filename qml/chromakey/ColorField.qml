import QtQuick 2.12
import "../blocks"

// One part of the key colour, as the unit counts it, with its label to the left.
DarkTextField {
    property alias label: labelText

    y: 17
    width: 106
    height: 40
    rightPadding: 10
    enabled: switchedOn
    color: textColor
    font.pixelSize: 22
    horizontalAlignment: TextInput.AlignRight
    validator: IntValidator {
        bottom: 0
        top: 1000
    }
    onAccepted: sendColor()

    PanelText {
        id: labelText
        x: -8 - width
        y: 3
        color: "#757575"
    }
}
