import QtQuick 2.12

// A field for a whole number from lowest to highest, 106 x 40.
//
// Functions: number() is the number that the text shows, group signs or not; NaN while it shows none.
DarkTextField {
    property alias lowest: range.bottom
    property alias highest: range.top

    function number() {
        // The validator takes the group signs of the language ("1,000"), a conversion of the text would not.
        return parseInt(text.replace(/[^0-9+-]/g, ""), 10)
    }

    width: 106
    height: 40
    rightPadding: 10
    font.pixelSize: 22
    horizontalAlignment: TextInput.AlignRight
    validator: IntValidator { id: range }
}
