import QtQuick 2.12
import "."

// A title in the output band.
PanelText {
    height: 24
    color: Look.title
    font.pixelSize: 18
}
