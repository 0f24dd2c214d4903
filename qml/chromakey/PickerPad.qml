import QtQuick 2.12

// The pad as the keyboard works it: arrows one pixel, with Shift ten; Enter takes the colour. A key that is held is
// paced like a drag, and settles when it is let go.
//
// Signals: placed() when the position is to be told, accepted().
Item {
    id: pickerPad

    property Item across
    property Item down
    property Timer pace
    // An arrow key is held.
    property bool steering: false

    signal placed()
    signal accepted()

    function steer(axis, by, held) {
        var from = axis.position
        axis.moveTo(from + by)
        if (axis.position === from)
            return
        if (!held) {
            placed()
            return
        }
        steering = true
        pace.start()
    }

    function settle() {
        if (!steering)
            return
        stopMoving()
        placed()
    }

    function stopMoving() {
        pace.stop()
        steering = false
    }

    activeFocusOnTab: true
    focus: true

    Keys.onPressed: {
        var by = event.modifiers & Qt.ShiftModifier ? 10 : 1
        if (event.key === Qt.Key_Left || event.key === Qt.Key_Right)
            steer(across, event.key === Qt.Key_Left ? -by : by, event.isAutoRepeat)
        else if (event.key === Qt.Key_Up || event.key === Qt.Key_Down)
            steer(down, event.key === Qt.Key_Up ? -by : by, event.isAutoRepeat)
        else if ((event.key === Qt.Key_Return || event.key === Qt.Key_Enter) && !event.isAutoRepeat)
            accepted()
    }
    Keys.onReleased: {
        if (!event.isAutoRepeat)
            settle()
    }
    // The release of a key that is held will be heard elsewhere.
    onActiveFocusChanged: {
        if (!activeFocus && steering)
            stopMoving()
    }
}
