import QtQuick 2.12
import "."

// One row of the open angle: sign, slider with the bar of its hues below, step buttons, number field.
//
// Properties: sign; value (of the slider); hue, hueSpan, saturation, lightness (the bar runs from hue to
//             hue + hueSpan, in degrees); live (false greys the row out and stops it); maskColor,
//             handleSource (the slider's). Items: slider, field, decreaseButton, increaseButton.
// Steps and typed numbers move the slider and end in onValueChanged, like a drag.
InputLine {
    id: openAngleRow

    property string sign
    property alias value: angleSlider.value
    property alias slider: angleSlider
    property alias field: angleField
    property alias decreaseButton: angleDecrease
    property alias increaseButton: angleIncrease
    property alias maskColor: angleSlider.levelColor
    property alias handleSource: angleSlider.handleSource
    property alias hue: hueBar.hue
    property alias hueSpan: hueBar.span
    property alias saturation: hueBar.saturation
    property alias lightness: hueBar.lightness
    property bool live: true

    // A face that no other text has: it is looked for when the row is seen for the first time.
    Loader {
        x: 190
        width: 40
        height: parent.height
        active: angleSlider.seen
        sourceComponent: Text {
            text: openAngleRow.sign
            horizontalAlignment: Text.AlignHCenter
            verticalAlignment: Text.AlignVCenter
            font.pixelSize: 40
            font.bold: true
            font.family: "Courier New"
            color: Look.faint
        }
    }

    DarkSlider {
        id: angleSlider
        x: 238
        y: 34
        enabled: openAngleRow.live
        minimumValue: 0
        maximumValue: 90
        value: 45
    }

    HueBar {
        id: hueBar
        x: 238
        y: 52
        enabled: openAngleRow.live
    }

    StepButton {
        id: angleDecrease
        x: 624
        y: 17
        face: "reduce_s_chromakey"
        live: openAngleRow.live
        enabled: openAngleRow.live
        onPressedChanged: {
            if (!pressed && angleSlider.value > 0)
                angleSlider.value -= 1
        }
    }

    StepButton {
        id: angleIncrease
        x: 666
        y: 17
        face: "increase_s_chromakey"
        live: openAngleRow.live
        enabled: openAngleRow.live
        onPressedChanged: {
            // The bound is the largest byte; the slider itself holds at its own end.
            if (!pressed && angleSlider.value < 255)
                angleSlider.value += 1
        }
    }

    NumberField {
        id: angleField
        x: 746
        y: 17
        enabled: openAngleRow.live
        color: Look.text(openAngleRow.live)
        text: angleSlider.value
        maximumLength: 4
        lowest: angleSlider.minimumValue
        highest: angleSlider.maximumValue
        // Each keystroke moves the slider. An emptied field or a lone sign is a number not yet typed: it
        // moves nothing, and when the operator leaves it the field shows the slider again.
        onTextChanged: {
            var typed = number()
            if (!isNaN(typed))
                angleSlider.value = typed
        }
        onActiveFocusChanged: {
            if (!activeFocus)
                text = Qt.binding(function() { return angleSlider.value })
        }
    }
}
