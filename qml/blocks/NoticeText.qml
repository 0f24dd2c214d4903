import QtQuick 2.12

// The message of a notice, centred in it. Each line is 24 high in every family, so that what hangs below the
// message stands where it should.
PanelText {
    anchors.centerIn: parent
    height: lineCount * 24
    horizontalAlignment: Text.AlignHCenter
    lineHeight: 24
    lineHeightMode: Text.FixedHeight
    font.pixelSize: 18
}
