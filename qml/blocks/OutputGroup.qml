import QtQuick 2.12

// A group box of the output band: a title row over a row of controls.
//
// Properties: titles (items of the title row); children stand in the row of controls.
Rectangle {
    id: outputGroup

    property alias titles: titleRow.data
    default property alias controls: controlRow.data

    width: column.width
    height: column.height
    color: "#0B172F"

    Rectangle {
        width: parent.width
        height: 1
        color: "#1B2D4D"
    }

    Column {
        id: column
        spacing: 10
        padding: 10

        Row {
            id: titleRow
            height: 24
            spacing: 10
        }

        Row {
            id: controlRow
            height: 30
            spacing: 10
        }
    }
}
