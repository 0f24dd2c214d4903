import QtQuick 2.12
import "../blocks"

// One coordinate of the unit's cursor: step buttons, which act on the release, and a number field.
//
// Properties: position (where the cursor stands, in picture pixels), target (the last one computed), last
//             (the largest position less 1), textSize (of the number); decreaseButton, increaseButton, field.
// Signals:    stepped(), typed(): position and target have moved.
// Functions:  aim(part, pixels) takes the place on the pad, moveTo(number) the place in the picture, as near as
//             there is one; show() writes the position into the field.
Row {
    id: pickerAxis

    property var position: 0
    property var target: 0
    property var last: 0
    property alias textSize: positionField.font.pixelSize
    property alias decreaseButton: decreaseButton
    property alias increaseButton: increaseButton
    property alias field: positionField

    signal stepped()
    signal typed()

    function aim(part, pixels) {
        target = Math.round(part * pixels)
        position = target
    }

    function step(by) {
        if (by < 0 ? position < 1 : position > last)
            return
        position += by
        target = position
        stepped()
    }

    function moveTo(number) {
        position = Math.min(Math.max(number, 0), last + 1)
        target = position
    }

    function type(number) {
        moveTo(number)
        typed()
    }

    function show() {
        positionField.text = position
    }

    leftPadding: 50
    spacing: 10

    Row {
        spacing: 2

        StepButton {
            id: decreaseButton
            face: "reduce_s_chromakey"
            onPressedChanged: {
                if (!pressed)
                    pickerAxis.step(-1)
            }
        }

        StepButton {
            id: increaseButton
            face: "increase_s_chromakey"
            onPressedChanged: {
                if (!pressed)
                    pickerAxis.step(1)
            }
        }
    }

    NumberField {
        id: positionField
        width: 64
        topInset: 9
        bottomInset: 9
        rightPadding: 5
        text: pickerAxis.position
        lowest: 0
        highest: pickerAxis.last + 1
        onAccepted: pickerAxis.type(number())
    }
}
