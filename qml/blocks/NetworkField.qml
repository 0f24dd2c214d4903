import QtQuick 2.12

// A field of a unit's network settings. A red text is nearly lost on the dark ground, so a bar on the left
// edge carries the mark as well.
//
// Properties: all of TextField.
DarkTextField {
    id: networkField

    readonly property bool marked: text !== "" && (Qt.colorEqual(color, "#aa0000")
                                                   || Qt.colorEqual(color, "#990000"))

    width: 216
    height: 32

    Rectangle {
        width: 3
        height: parent.height
        color: "#E0524A"
        visible: networkField.marked
    }
}
