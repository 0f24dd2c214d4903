import QtQuick 2.12

// A step button, 40 x 40. The user of the block acts on onPressedChanged.
//
// Properties: face (the picture's name after its state letter), live (false shows the disabled picture).
FaceButton {
    id: stepButton

    property string face
    property bool live: true

    width: 40
    height: 40
    source: "qrc:/img/pc/" + (!live ? "btn_d_" : pressed ? "btn_p_" : "btn_n_") + face + ".png"
}
