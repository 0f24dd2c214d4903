import QtQuick 2.12
import "."

// Text of the panel: the family follows the language, the text stands optically centred in a height that the
// user of the block gives. Never let the height of the line place anything: the two families differ by 10 px.
//
// Properties: all of Text; defaults are 22 px, the normal colour, plain text, vertically centred, 34 high.
Text {
    height: 34
    color: Look.normal
    font.family: Look.family(hlFontEnRegular)
    font.pixelSize: 22
    textFormat: Text.PlainText
    verticalAlignment: Text.AlignVCenter
    topPadding: Look.textTop
    bottomPadding: Look.textBottom
}
