import QtQuick 2.12

// A checkable lock; its state shows in the form of the symbol.
FaceButton {
    checkable: true
    source: checked ? "qrc:/img/pc/icon_lock_output.png" : "qrc:/img/pc/icon_unlock_output.png"
}
