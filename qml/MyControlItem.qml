import QtQuick 2.12
import QtQuick.Templates 2.5 as T
import "blocks"

// One row of a page: title, slider, minus and plus, number field.
//
// Drag, buttons and refreshes all end in a change of sliderValue; the number field only reports by
// textFieldChanged(), and it is the page that moves the slider. enableItem() greys the row's look and stops
// the slider; a page that wants the buttons or the field dead disables them itself.
Image {
    id: control

    property var sliderGrooveImgSource: "qrc:/img/pc/img_slider_01_chromakey.png"
    property var sliderHandleImgSource: "qrc:/img/pc/btn_n_slider_chromakey.png"
    property var sliderCurrentLevelColor: Look.level
    property var sliderTextLeftText: ""
    property var sliderTextRightText: ""
    property alias bgImageSource: control.source
    property alias title: txtTitle.text
    property alias titleColor: txtTitle.color
    property alias sliderValue: slider.value
    property alias sliderMin: slider.minimumValue
    property alias sliderMax: slider.maximumValue
    property alias textValue: txtValue.text
    property alias textValueMaxlength: txtValue.maximumLength
    property alias itemSlider: slider
    property alias itemSliderStepSize: slider.stepSize
    property alias itemButtonDecrease: btnDecrease
    property alias itemButtonDecreaseImage: btnDecreaseImage
    property alias itemButtonIncrease: btnIncrease
    property alias itemButtonIncreaseImage: btnIncreaseImage
    property alias itemText: txtValue

    signal buttonDecreaseClicked()
    signal buttonIncreaseClicked()
    signal textFieldChanged()

    function step(by, name) {
        console.log(name, control.sliderValue, slider.value)
        // By one, whatever the step of the slider is.
        if (by < 0 ? slider.value > slider.minimumValue : slider.value < slider.maximumValue) {
            slider.value = slider.value + by
            if (by < 0)
                control.buttonDecreaseClicked()
            else
                control.buttonIncreaseClicked()
        }
        console.log(name, control.sliderValue, slider.value)
    }

    function enableItem(setEnable) {
        var state = setEnable ? "n" : "d"
        txtTitle.color = Look.text(setEnable)
        sliderCurrentLevelColor = setEnable ? Look.level : Look.deadLevel
        slider.enabled = setEnable
        sliderHandleImgSource = "qrc:/img/pc/btn_" + state + "_slider_chromakey.png"
        itemText.color = Look.text(setEnable)
        btnDecreaseImage.source = "qrc:/img/pc/btn_" + state + "_reduce_s_chromakey.png"
        btnIncreaseImage.source = "qrc:/img/pc/btn_" + state + "_increase_s_chromakey.png"
    }

    source: "qrc:/img/pc/img_bg_input_line.png"

    // 40 high, as its buttons and its field are; the title and the slider stand in the middle of that.
    Row {
        id: row01
        x: 48
        anchors.verticalCenter: parent.verticalCenter
        spacing: 40

        PanelText {
            id: txtTitle
            y: 3
            width: 100
        }

        T.Label {
            id: dummyPlaceHolder
            width: 10
        }

        DarkSlider {
            id: slider
            y: 17
            grooveSource: control.sliderGrooveImgSource
            handleSource: control.sliderHandleImgSource
            levelColor: control.sliderCurrentLevelColor
            leftText: control.sliderTextLeftText
            rightText: control.sliderTextRightText
        }

        Row {
            spacing: 2

            T.Button {
                id: btnDecrease
                width: 40
                height: 40
                hoverEnabled: false
                background: Image {
                    id: btnDecreaseImage
                    source: "qrc:/img/pc/btn_n_reduce_s_chromakey.png"
                }
                onPressedChanged: {
                    if (!pressed)
                        control.step(-1, "Item Decreased:")
                    btnDecreaseImage.source = "qrc:/img/pc/btn_" + (pressed ? "p" : "n")
                            + "_reduce_s_chromakey.png"
                }
            }

            T.Button {
                id: btnIncrease
                width: 40
                height: 40
                hoverEnabled: false
                background: Image {
                    id: btnIncreaseImage
                    source: "qrc:/img/pc/btn_n_increase_s_chromakey.png"
                }
                onPressedChanged: {
                    if (!pressed)
                        control.step(1, "Item Increased:")
                    btnIncreaseImage.source = "qrc:/img/pc/btn_" + (pressed ? "p" : "n")
                            + "_increase_s_chromakey.png"
                }
            }
        }

        NumberField {
            id: txtValue
            text: slider.value
            maximumLength: 6
            lowest: control.sliderMin
            highest: control.sliderMax
            onAccepted: {
                console.log("MyItem TextFieldAccepted:", slider.value, txtValue.text)
                control.textFieldChanged()
            }
        }
    }
}
