import QtQuick 2.12

// What makes a picture a control: it takes the press of the mouse, and is a stop of the Tab key, where Space and Enter
// press it as well. Fills its picture.
MouseArea {
    anchors.fill: parent
    activeFocusOnTab: true
}
