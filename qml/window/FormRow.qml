import QtQuick 2.12
import "../blocks"

// A row of a panel's form, 20 in and 32 high: its label, and right of it whatever stands in the row.
//
// Properties: title, titleWidth, titleColor. Items: label.
Row {
    property alias title: label.text
    property alias titleWidth: label.width
    property alias titleColor: label.color
    property alias label: label

    x: 20; height: 32
    spacing: 20

    FormLabel { id: label }
}
