import QtQuick 2.12

// The span of hues under an open angle slider, 346 x 10. Four stops and not two, or the middle turns to mud.
//
// Properties: hue (degrees), span (degrees, negative to the left), saturation, lightness (0 to 1);
//             a bar with enabled false is veiled.
Rectangle {
    id: hueBar

    property real hue: 0
    property real span: 90
    property real saturation: 0.5
    property real lightness: 0.5

    function colorAt(part) {
        var degrees = hue + span * part
        return Qt.hsla((degrees % 360 + 360) % 360 / 360, saturation, lightness, 1)
    }

    width: 346
    height: 10
    gradient: Gradient {
        orientation: Gradient.Horizontal
        GradientStop { position: 0; color: hueBar.colorAt(0) }
        GradientStop { position: 1 / 3; color: hueBar.colorAt(1 / 3) }
        GradientStop { position: 2 / 3; color: hueBar.colorAt(2 / 3) }
        GradientStop { position: 1; color: hueBar.colorAt(1) }
    }

    Rectangle {
        anchors.fill: parent
        visible: !hueBar.enabled
        color: "#0C1628"
        opacity: 0.65
    }
}
