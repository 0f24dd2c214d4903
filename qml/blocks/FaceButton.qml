import QtQuick 2.12
import QtQuick.Templates 2.5 as T

// A button whose whole look is one picture; the user of the block changes the picture with the state.
//
// Properties: source (the picture); all of Button (onClicked, onPressedChanged, enabled).
// A page that names the picture itself gives its own background instead:
//     FaceButton { id: btnReset; background: Image { id: btnResetImage; source: ... } }
T.Button {
    id: faceButton

    property url source

    implicitWidth: implicitBackgroundWidth
    implicitHeight: implicitBackgroundHeight
    // Said here, or each button asks all that stands around it.
    hoverEnabled: false
    background: Image { source: faceButton.source }
}
