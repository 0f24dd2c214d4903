import QtQuick 2.12

// A picture that answers a click. A click keeps the keyboard where it is; the Tab key stops here.
Image {
    id: clickImage

    property alias pressed: area.pressed

    signal clicked()

    PressArea {
        id: area
        onClicked: clickImage.clicked()
    }
}
