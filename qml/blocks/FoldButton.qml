import QtQuick 2.12

// The fold mark at the left end of a section header, 30 x 30.
//
// Properties: folded (turns the chevron). The user of the block acts on onClicked.
FaceButton {
    property bool folded: false

    x: 12
    anchors.verticalCenter: parent.verticalCenter
    width: 30
    height: 30
    source: folded ? "qrc:/img/pc/btn_n_hide_dashboard.png" : "qrc:/img/pc/btn_n_show_dashboard.png"
}
