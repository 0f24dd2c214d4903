import QtQuick 2.12
import QtQuick.Controls 2.5
import "blocks"
import "blocks/Pictures.js" as Pictures

// The rectangular holdout window: four edges in picture pixels up to 3840 x 2160, whatever the output
// format, border, invert.
Item {
    id: pageHoldoutWindowItem

    property bool holdoutWindowOn: true
    property bool holdoutInvertOn: false
    property string sourcePath: Pictures.folder(qmlTranslator.currentLanguage())
    // Start values that the sliders take while the document loads are no changes.
    property bool started: false

    // The value of a row: its slider, or the typed text where this row's field was just accepted.
    function valueFor(row, typedRow) {
        return row === typedRow ? row.textValue : row.sliderValue
    }

    function sendWindow(typedRow) {
        mainObject.setHoldoutWindow(holdoutWindowOn, holdoutInvertOn,
                                    valueFor(holdoutWindowLeft, typedRow),
                                    valueFor(holdoutWindowRight, typedRow),
                                    valueFor(holdoutWindowTop, typedRow),
                                    valueFor(holdoutWindowBottom, typedRow),
                                    valueFor(holdoutWindowBorder, typedRow))
    }

    function sendSoon() {
        if (started)
            timerHWSliderCommand.start()
    }

    function windowTyped(row) {
        sendWindow(row)
        mainObject.msecSleep(100)
        mainObject.getHoldoutWindow()
    }

    function enableRows(on) {
        holdoutWindowLeft.enableItem(on)
        holdoutWindowRight.enableItem(on)
        holdoutWindowTop.enableItem(on)
        holdoutWindowBottom.enableItem(on)
        holdoutWindowBorder.enableItem(on)
    }

    function showWindowOn() {
        btnWindowSwitchImage.source = sourcePath + Pictures.switchFace(true)
        btnWindowResetImage.source = sourcePath + Pictures.resetFace(true)
        enableRows(true)
        holdoutWindowInvertTitle.color = "#D8D8D8"
        btnHoldoutWindowInvertSwitchImage.source = sourcePath + Pictures.switchFace(holdoutInvertOn)
        btnHoldoutWindowInvertSwitch.enabled = true
    }

    function showWindowOff() {
        btnWindowSwitchImage.source = sourcePath + Pictures.switchFace(false)
        btnWindowResetImage.source = sourcePath + Pictures.resetFace(false)
        enableRows(false)
        holdoutWindowInvertTitle.color = "#333333"
        btnHoldoutWindowInvertSwitchImage.source = sourcePath + Pictures.deadSwitchFace(holdoutInvertOn)
        btnHoldoutWindowInvertSwitch.enabled = false
    }

    anchors.topMargin: 10
    anchors.leftMargin: 30
    width: 1160
    height: 610
    Component.onCompleted: started = true

    Item {
        id: pageGM_ContentArea01
        implicitHeight: 74 * 6
        width: 1110

        InputLine {
            id: pageGM_ContentHeaderWindow

            // This section does not fold: the mark only stands where the other pages have it.
            Image {
                id: btnWindowFolder
                x: 12
                anchors.verticalCenter: parent.verticalCenter
                source: "qrc:/img/pc/btn_n_show_dashboard.png"
            }

            SectionTitle {
                id: windowTitle
                text: qsTr("Holdout Window") + qmlTranslator.e_str
            }

            FaceButton {
                id: btnWindowSwitch
                anchors.left: windowTitle.right
                anchors.leftMargin: 50
                anchors.verticalCenter: parent.verticalCenter
                background: Image {
                    id: btnWindowSwitchImage
                    source: sourcePath + "btn_switch_on_dashboard.png"
                }
                onClicked: {
                    if (holdoutWindowOn)
                        showWindowOff()
                    else
                        showWindowOn()
                    holdoutWindowOn = !holdoutWindowOn
                    sendWindow(null)
                }
            }

            FaceButton {
                id: btnWindowReset
                anchors.right: parent.right
                anchors.rightMargin: 20
                anchors.verticalCenter: parent.verticalCenter
                background: Image {
                    id: btnWindowResetImage
                    source: sourcePath + "btn_n_reset_dashboard.png"
                }
                onPressedChanged: {
                    if (pressed) {
                        btnWindowResetImage.source = sourcePath + "btn_p_reset_dashboard.png"
                        return
                    }
                    btnWindowResetImage.source = sourcePath + "btn_n_reset_dashboard.png"
                    mainObject.resetHoldoutWindow()
                }
            }
        }

        Column {
            anchors.top: pageGM_ContentHeaderWindow.bottom

            MyControlItem {
                id: holdoutWindowLeft
                title: qsTr("Left:") + qmlTranslator.e_str
                bgImageSource: "qrc:/img/pc/img_bg_input_line.png"
                sliderMax: 3840
                itemButtonDecrease.enabled: holdoutWindowOn
                itemButtonIncrease.enabled: holdoutWindowOn
                onSliderValueChanged: sendSoon()
                onTextFieldChanged: {
                    console.log("on Left TExtFieldChanged", textValue, title)
                    windowTyped(holdoutWindowLeft)
                }
            }
            MyControlItem {
                id: holdoutWindowRight
                title: qsTr("Right:") + qmlTranslator.e_str
                bgImageSource: "qrc:/img/pc/img_bg_input_line.png"
                sliderMax: 3840
                itemButtonDecrease.enabled: holdoutWindowOn
                itemButtonIncrease.enabled: holdoutWindowOn
                onSliderValueChanged: sendSoon()
                onTextFieldChanged: windowTyped(holdoutWindowRight)
            }
            MyControlItem {
                id: holdoutWindowTop
                title: qsTr("Top:") + qmlTranslator.e_str
                bgImageSource: "qrc:/img/pc/img_bg_input_line.png"
                sliderMax: 2160
                itemButtonDecrease.enabled: holdoutWindowOn
                itemButtonIncrease.enabled: holdoutWindowOn
                onSliderValueChanged: sendSoon()
                onTextFieldChanged: windowTyped(holdoutWindowTop)
            }
            MyControlItem {
                id: holdoutWindowBottom
                title: qsTr("Bottom:") + qmlTranslator.e_str
                bgImageSource: "qrc:/img/pc/img_bg_input_line.png"
                sliderMax: 2160
                itemButtonDecrease.enabled: holdoutWindowOn
                itemButtonIncrease.enabled: holdoutWindowOn
                onSliderValueChanged: sendSoon()
                onTextFieldChanged: windowTyped(holdoutWindowBottom)
            }
            MyControlItem {
                id: holdoutWindowBorder
                title: qsTr("Border:") + qmlTranslator.e_str
                bgImageSource: "qrc:/img/pc/img_bg_input_line.png"
                sliderMax: 100
                itemButtonDecrease.enabled: holdoutWindowOn
                itemButtonIncrease.enabled: holdoutWindowOn
                onSliderValueChanged: sendSoon()
                onTextFieldChanged: windowTyped(holdoutWindowBorder)
            }

            InputLine {
                PanelText {
                    id: holdoutWindowInvertTitle
                    x: 48
                    anchors.verticalCenter: parent.verticalCenter
                    width: 200
                    text: qsTr("Invert:") + qmlTranslator.e_str
                }

                FaceButton {
                    id: btnHoldoutWindowInvertSwitch
                    anchors.left: holdoutWindowInvertTitle.right
                    anchors.leftMargin: 50
                    anchors.verticalCenter: parent.verticalCenter
                    background: Image {
                        id: btnHoldoutWindowInvertSwitchImage
                        source: sourcePath + "btn_switch_off_dashboard.png"
                    }
                    onClicked: {
                        btnHoldoutWindowInvertSwitchImage.source =
                                sourcePath + Pictures.switchFace(!holdoutInvertOn)
                        holdoutInvertOn = !holdoutInvertOn
                        // Not at once: the invert goes the way of the sliders.
                        timerHWSliderCommand.start()
                    }
                }
            }
        }
    }

    Connections {
        target: mainObject

        onRefreshHoldoutWindow: {
            holdoutWindowOn = enable
            holdoutInvertOn = invert === 1
            if (holdoutWindowOn)
                showWindowOn()
            else
                showWindowOff()
            holdoutWindowLeft.sliderValue = left
            holdoutWindowRight.sliderValue = right
            holdoutWindowTop.sliderValue = top
            holdoutWindowBottom.sliderValue = bottom
            holdoutWindowBorder.sliderValue = border
        }
    }

    Connections {
        target: qmlTranslator

        onLanguageChanged: {
            sourcePath = Pictures.folder(qmlTranslator.currentLanguage())
            btnWindowSwitchImage.source = sourcePath + Pictures.switchFace(holdoutWindowOn)
            btnWindowResetImage.source = sourcePath + "btn_n_reset_dashboard.png"
            // Off whatever the state is: accepted until the next refresh or click puts it right.
            btnHoldoutWindowInvertSwitchImage.source = sourcePath + "btn_switch_off_dashboard.png"
            console.log("onLanguageChanged(Holdout)")
        }
    }

    // Started and never restarted: a long drag sends the latest positions every 50 ms.
    Timer {
        id: timerHWSliderCommand
        interval: 50
        onTriggered: sendWindow(null)
    }
}
