import QtQuick 2.12

// A picture that answers a click and keeps the keyboard where it is.
Image {
    id: clickImage

    property alias pressed: area.pressed

    signal clicked()

    MouseArea {
        id: area
        anchors.fill: parent
        onClicked: clickImage.clicked()
    }
}
