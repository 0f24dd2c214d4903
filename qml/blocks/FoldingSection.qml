import QtQuick 2.12

// A section of a page that folds up to its header.
//
// Functions: foldTo(h) moves the height to h over 200 ms. What reaches below the height is not drawn.
Item {
    id: foldingSection

    property alias foldAnimation: foldAnimation

    function foldTo(h) {
        foldAnimation.to = h
        foldAnimation.restart()
    }

    width: 1110
    clip: true

    NumberAnimation {
        id: foldAnimation
        target: foldingSection
        property: "height"
        duration: 200
    }
}
