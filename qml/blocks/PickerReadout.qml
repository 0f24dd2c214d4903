import QtQuick 2.12
import "."

// One value of the colour under the cursor with its label, 80 x 26. Chinese labels are wider.
//
// Properties: label, labelSize (pixels), text (the value).
Item {
    property alias label: labelText.text
    property alias labelSize: labelText.font.pixelSize
    property alias text: valueText.text

    width: 80
    height: 26

    PanelText {
        id: labelText
        height: parent.height
        color: Look.faint
        font.pixelSize: 18
    }

    PanelText {
        id: valueText
        x: Look.latin ? 26 : 50
        height: parent.height
        color: Look.faint
        font.pixelSize: 18
    }
}
