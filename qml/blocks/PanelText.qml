import QtQuick 2.12

// Text of the panel: the family follows the language, the text stands optically centred in a height that the
// user of the block gives. Never let the height of the line place anything: the two families differ by 10 px.
//
// Properties: all of Text; defaults are 22 px, "#D8D8D8", plain text, vertically centred, 34 high.
Text {
    readonly property bool latin: qmlTranslator.currentLanguage() + qmlTranslator.e_str === "en_US"

    height: 34
    color: "#D8D8D8"
    font.family: latin ? hlFontEnRegular.name : "Noto Sans CJK TC Regular"
    font.pixelSize: 22
    textFormat: Text.PlainText
    verticalAlignment: Text.AlignVCenter
    // The Latin family sits one pixel high in its line, the Chinese one a pixel low.
    topPadding: latin ? 2 : 0
    bottomPadding: latin ? 0 : 2
}
