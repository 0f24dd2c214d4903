import QtQuick 2.12
import ".."

// One value of a section: a moved slider sends the section's group soon, a typed number at once, and the
// unit's answer moves the slider.
//
// Properties: section (the KeySection it stands in); the range is 0 to 1000 unless told otherwise.
// Functions:  value(typedRow), the typed number in the row where it was typed, else the slider's.
MyControlItem {
    id: keyRow

    property var section

    function value(typedRow) {
        return typedRow === keyRow ? textValue : sliderValue
    }

    sliderMin: 0
    sliderMax: 1000
    onSliderValueChanged: sendSoon(section.command)
    onTextFieldChanged: {
        section.send(keyRow)
        mainObject.msecSleep(100)
        section.read()
    }
}
