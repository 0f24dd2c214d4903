import QtQuick 2.12
import QtQuick.Window 2.12

// The least that a Qt Quick program can show.
Window {
    visible: true
    width: 1366
    height: 768
    color: "#060A12"
}
