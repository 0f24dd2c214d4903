import QtQuick 2.12
import QtQuick.Templates 2.5 as T
import "."

// A dark text field. Text stands flush left, 6 from the edge.
//
// Properties: all of TextField; defaults are 18 px, the normal colour, selectByMouse.
T.TextField {
    implicitHeight: 32
    leftPadding: 6
    rightPadding: 6
    topPadding: Look.textTop
    bottomPadding: Look.textBottom
    color: Look.normal
    font.family: Look.family(hlFontEnRegular)
    font.pixelSize: 18
    // Said here, or each field asks all that stands around it.
    hoverEnabled: false
    selectByMouse: true
    selectionColor: Look.level
    selectedTextColor: "black"
    verticalAlignment: TextInput.AlignVCenter

    background: Rectangle {
        color: Look.fieldGround
        border.color: Look.fieldBorder
        radius: 2
    }
}
