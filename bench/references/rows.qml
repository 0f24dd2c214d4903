import QtQuick 2.12
import QtQuick.Controls 2.5

// As many rows as the panel has, each a label, a slider and a field, in the toolkit's own look.
ApplicationWindow {
    visible: true
    width: 1366
    height: 768

    Flow {
        anchors.fill: parent
        Repeater {
            model: 72
            Row {
                spacing: 10
                Label { text: "Row " + index; width: 60 }
                Slider { id: slider; from: 0; to: 1000; stepSize: 1; width: 160 }
                TextField { text: slider.value; width: 60 }
            }
        }
    }
}
