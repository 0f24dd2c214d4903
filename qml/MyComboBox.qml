import QtQuick 2.12
import QtQuick.Templates 2.5 as T
import "blocks"

// The dark drop-down. The list is 300 high however few rows it holds.
//
// Properties: popupHeight, popupVisible, txtColor; all of ComboBox.
T.ComboBox {
    id: thiscombo

    property alias popupHeight: myComboPopup.height
    property alias popupVisible: myComboPopup.visible
    property alias txtColor: contentText.color

    function clearModel() {
    }

    font.pixelSize: 18
    spacing: 6
    // Beyond what the text keeps free for the arrow: the arrow stands a little off the edge.
    rightPadding: 5

    delegate: T.ItemDelegate {
        width: thiscombo.width
        height: thiscombo.height
        text: modelData
        leftPadding: 5
        rightPadding: 6
        topPadding: Look.textTop
        bottomPadding: Look.textBottom
        highlighted: thiscombo.highlightedIndex === index
        contentItem: Text {
            text: modelData
            color: highlighted ? "Black" : Look.normal
            elide: Text.ElideRight
            font.family: Look.family(hlFontEnRegular)
            font.pixelSize: 18
            textFormat: Text.PlainText
            verticalAlignment: Text.AlignVCenter
        }
        background: Rectangle { color: highlighted ? Look.level : Look.fieldGround }
    }

    indicator: Canvas {
        id: canvas
        x: thiscombo.width - width - 8
        y: (thiscombo.height - height) / 2
        width: 12
        height: 8
        contextType: "2d"

        Connections {
            target: thiscombo
            onPressedChanged: canvas.requestPaint()
            onEnabledChanged: canvas.requestPaint()
        }

        onPaint: {
            var context = getContext("2d")
            context.reset()
            context.moveTo(0, 0)
            context.lineTo(width / 2, height)
            context.lineTo(width, 0)
            context.lineWidth = 2
            context.strokeStyle = thiscombo.enabled ? "#AFAFAF" : "#6A7079"
            context.stroke()
        }
    }

    contentItem: Text {
        id: contentText
        leftPadding: 6
        rightPadding: thiscombo.indicator.width + thiscombo.spacing
        topPadding: Look.textTop
        bottomPadding: Look.textBottom
        text: thiscombo.displayText
        color: thiscombo.enabled ? Look.normal : "#7C828B"
        elide: Text.ElideRight
        font.family: "Carlito"
        font.pixelSize: 18
        textFormat: Text.PlainText
        verticalAlignment: Text.AlignVCenter
    }

    background: Rectangle {
        color: Look.fieldGround
        border.color: thiscombo.pressed ? Look.fieldBorder : "#0C0C0C"
        border.width: thiscombo.visualFocus ? 2 : 1
        radius: 2
    }

    popup: T.Popup {
        id: myComboPopup
        y: thiscombo.height - 1
        width: thiscombo.width
        height: 300
        padding: 1

        contentItem: ListView {
            clip: true
            implicitHeight: contentHeight
            boundsBehavior: Flickable.StopAtBounds
            model: thiscombo.popup.visible ? thiscombo.delegateModel : null
            currentIndex: thiscombo.highlightedIndex
            T.ScrollIndicator.vertical: T.ScrollIndicator {
                id: scrollMark
                implicitWidth: 6
                padding: 1
                contentItem: Rectangle {
                    implicitWidth: 4
                    radius: 2
                    color: "#5A6A83"
                    visible: scrollMark.size < 1
                }
            }
        }

        background: Rectangle {
            color: Look.fieldGround
            border.color: Look.fieldBorder
            radius: 2
        }
    }
}
