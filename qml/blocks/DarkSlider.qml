import QtQuick 2.12
import QtQuick.Controls 1.4 as QQC14
import QtQuick.Controls.Styles 1.4
import "."

// The slider of the panel, 346 x 6, in whole steps, deaf to the wheel.
//
// Properties: grooveSource, handleSource (pictures), levelColor (left of the handle), leftText, rightText
//             (small texts under the ends of the groove); all of Slider (minimumValue, maximumValue, value).
//
// What a slider is drawn with is made when the slider is seen for the first time: at the start only a few are, and
// those of the other pages would take a third of it. Their values and signals do not wait for that.
QQC14.Slider {
    id: darkSlider

    property url grooveSource: "qrc:/img/pc/img_slider_01_chromakey.png"
    property url handleSource: "qrc:/img/pc/btn_n_slider_chromakey.png"
    property color levelColor: Look.level
    property string leftText: ""
    property string rightText: ""
    // How far the handle stands out above and below.
    readonly property int reach: 8

    // Follows the page, until it is true for the first time.
    property bool seen: visible

    function drawNow() {
        seen = true
        // The second child is what the control loads its drawing with.
        __panel = Qt.binding(function () { return children[1].item || Look.unseenPanel })
        // The control's own mouse area is as high as the groove, 6 px; the operator aims at the handle, 22 px.
        for (var i = 0; i < children.length; ++i) {
            if (children[i].handleHovered === undefined)
                continue
            children[i].anchors.topMargin = -reach
            children[i].anchors.bottomMargin = -reach
        }
    }

    width: 346
    height: 6
    stepSize: 1
    wheelEnabled: false
    style: seen ? drawn : null
    // As much as the control asks of its drawing: a handle as large as the one that is drawn later, so that each value
    // already has the place on the groove that it will be drawn at. One for all, since nothing of it is drawn.
    __panel: Look.unseenPanel
    onSeenChanged: {
        if (seen)
            drawNow()
    }

    Component {
        id: drawn

        SliderStyle {
            groove: Rectangle {
                implicitWidth: 346
                implicitHeight: 6
                color: "transparent"
                radius: 8

                Image {
                    anchors.fill: parent
                    source: darkSlider.grooveSource
                }

                Rectangle {
                    id: sliderCurrentLevel
                    width: styleData.handlePosition
                    height: parent.height
                    color: darkSlider.levelColor
                    radius: height / 2
                }

                PanelText {
                    id: sliderTextLeft
                    anchors.top: parent.bottom
                    anchors.topMargin: 12
                    anchors.left: parent.left
                    anchors.leftMargin: -15
                    height: 16
                    color: "#919191"
                    font.pixelSize: 14
                    text: darkSlider.leftText
                }

                PanelText {
                    id: sliderTextRight
                    anchors.top: parent.bottom
                    anchors.topMargin: 12
                    anchors.right: parent.right
                    anchors.rightMargin: -15
                    height: 16
                    color: "#919191"
                    font.pixelSize: 14
                    text: darkSlider.rightText
                }
            }
            handle: Image {
                width: 22
                height: 22
                source: darkSlider.handleSource
            }
        }
    }
}
