import QtQuick 2.12
import QtQuick.Templates 2.5 as T
import "."

// The small drop-down of the header. It is always set in the Latin family: its entries name themselves.
//
// Properties: all of ComboBox.
T.ComboBox {
    id: languageCombo

    width: 93
    height: 40
    font.family: "Calribri"
    font.pixelSize: 14

    delegate: T.ItemDelegate {
        width: languageCombo.width
        height: languageCombo.height
        leftPadding: 8
        highlighted: languageCombo.highlightedIndex === index
        contentItem: Text {
            text: modelData
            color: highlighted ? "Black" : "#686868"
            font.family: hlFontEnRegular.name
            font.pixelSize: 14
            verticalAlignment: Text.AlignVCenter
        }
        background: Rectangle { color: highlighted ? Look.level : "black" }
    }

    indicator: Image {
        x: languageCombo.width - width - 8
        y: (languageCombo.height - height) / 2
        source: "qrc:/img/pc/icon_drop_nav.png"
    }

    contentItem: Text {
        leftPadding: 8
        text: languageCombo.displayText
        color: "#999999"
        font.family: hlFontEnRegular.name
        font.pixelSize: 14
        font.bold: true
        verticalAlignment: Text.AlignVCenter
    }

    background: Rectangle {
        color: "black"
        radius: 2
    }

    popup: T.Popup {
        y: languageCombo.height
        width: languageCombo.width
        implicitHeight: contentHeight + topPadding + bottomPadding
        padding: 1
        contentItem: ListView {
            clip: true
            implicitHeight: contentHeight
            boundsBehavior: Flickable.StopAtBounds
            model: languageCombo.popup.visible ? languageCombo.delegateModel : null
            currentIndex: languageCombo.highlightedIndex
        }
        background: Rectangle {
            color: "black"
            border.color: "#1B2A44"
            radius: 2
        }
    }
}
