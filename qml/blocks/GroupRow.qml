import QtQuick 2.12
import ".."

// One value of a section: a moved slider sends the section's group soon, a typed number at once, and the
// unit's answer moves the slider.
//
// Properties: section (the GroupSection it stands in), command (what a move sends: the number of the
//             section); the range is 0 to 1000 unless told otherwise.
// Functions:  value(typedRow), the typed number in the row where it was typed, else the slider's.
// Calls sendSoon(command) of the page.
MyControlItem {
    id: groupRow

    property var section
    property int command: section ? section.command : 0
    readonly property bool stepsAnswer: !section || !section.openWhenOff || section.switchedOn

    function value(typedRow) {
        return typedRow === groupRow ? itemText.number() : sliderValue
    }

    sliderMin: 0
    sliderMax: 1000
    itemButtonDecrease.enabled: stepsAnswer
    itemButtonIncrease.enabled: stepsAnswer
    onSliderValueChanged: sendSoon(command)
    onTextFieldChanged: {
        section.send(groupRow)
        mainObject.msecSleep(100)
        section.read()
    }
}
