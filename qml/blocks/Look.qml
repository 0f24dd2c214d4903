pragma Singleton
import QtQuick 2.12

// The font rule and the colours of the whole screen. Texts and not colours: what shows one can also be read
// as text.
QtObject {
    readonly property bool latin: qmlTranslator.currentLanguage() + qmlTranslator.e_str === "en_US"

    // The Latin family sits one pixel high in its line, the Chinese one a pixel low.
    readonly property int textTop: latin ? 2 : 0
    readonly property int textBottom: latin ? 0 : 2

    readonly property string normal: "#D8D8D8"
    readonly property string dead: "#333333"
    readonly property string title: "#788194"
    readonly property string level: "#8DC6E8"
    readonly property string deadLevel: "#5E5E5E"
    readonly property string entry: "#949494"
    readonly property string faint: "#757575"
    readonly property string noticeTitle: "#BFBFBF"
    readonly property string fieldGround: "#1F1F1F"
    readonly property string fieldBorder: "#000000"
    readonly property string focusRing: "#AEB8C6"
    readonly property string hoverEdge: "#33425C"

    // Stands for what a slider is drawn with while no slider is seen.
    readonly property Item unseenPanel: Item {
        property int handleWidth: 22
        property int handleHeight: 22
    }

    // The Chinese family is the system's; the Latin one comes with the panel, by the loader that is passed.
    function family(latinLoader) {
        return latin ? latinLoader.name : "Noto Sans CJK TC Regular"
    }

    function text(live) {
        return live ? normal : dead
    }
}
