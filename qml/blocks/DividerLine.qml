import QtQuick 2.12

// A divider line of the connection panel.
Canvas {
    width: 610
    height: 1
    onPaint: {
        var context = getContext("2d")
        context.fillStyle = "#444444"
        context.fillRect(0, 0, width, height)
    }
}
