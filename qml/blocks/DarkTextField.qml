import QtQuick 2.12
import QtQuick.Controls 2.5

// A dark text field. Text stands flush left, 6 from the edge; a number field sets
// horizontalAlignment: TextInput.AlignRight and rightPadding: 10.
//
// Properties: all of TextField; defaults are 18 px, "#D8D8D8", selectByMouse.
TextField {
    id: darkTextField

    readonly property bool latin: qmlTranslator.currentLanguage() + qmlTranslator.e_str === "en_US"

    implicitHeight: 32
    leftPadding: 6
    rightPadding: 6
    topPadding: latin ? 2 : 0
    bottomPadding: latin ? 0 : 2
    color: "#D8D8D8"
    font.family: latin ? hlFontEnRegular.name : "Noto Sans CJK TC Regular"
    font.pixelSize: 18
    selectByMouse: true
    selectionColor: "#8DC6E8"
    selectedTextColor: "black"
    verticalAlignment: TextInput.AlignVCenter

    background: Rectangle {
        color: "#1F1F1F"
        border.color: "#000000"
        radius: 2
    }
}
