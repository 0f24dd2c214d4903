import QtQuick 2.12
import QtQuick.Controls 2.5
import "blocks"
import "blocks/Pictures.js" as Pictures

// The rectangular garbage window: four edges in thousandths of the picture, border, invert.
Item {
    id: pageGarbageMaskItem

    property bool windowOn: true
    property bool invertOn: false
    property string sourcePath: Pictures.folder(qmlTranslator.currentLanguage())
    // Start values that the sliders take while the document loads are no changes.
    property bool started: false

    // The value of a row: its slider, or the typed text where this row's field was just accepted.
    function valueFor(row, typedRow) {
        return row === typedRow ? row.textValue : row.sliderValue
    }

    function sendWindow(typedRow) {
        mainObject.setWindow(windowOn, invertOn,
                             valueFor(windowLeft, typedRow),
                             valueFor(windowRight, typedRow),
                             valueFor(windowTop, typedRow),
                             valueFor(windowBottom, typedRow),
                             valueFor(windowBorder, typedRow))
    }

    function sendSoon() {
        if (started)
            timerGMSliderCommand.start()
    }

    function windowTyped(row) {
        sendWindow(row)
        mainObject.msecSleep(100)
        mainObject.getWindow()
    }

    function enableRows(on) {
        windowLeft.enableItem(on)
        windowRight.enableItem(on)
        windowTop.enableItem(on)
        windowBottom.enableItem(on)
        windowBorder.enableItem(on)
    }

    function showWindowOn() {
        btnWindowSwitchImage.source = sourcePath + Pictures.switchFace(true)
        btnWindowResetImage.source = sourcePath + Pictures.resetFace(true)
        enableRows(true)
        invertTitle.color = "#D8D8D8"
        btnInvertSwitchImage.source = sourcePath + Pictures.switchFace(invertOn)
        btnInvertSwitch.enabled = true
    }

    function showWindowOff() {
        btnWindowSwitchImage.source = sourcePath + Pictures.switchFace(false)
        btnWindowResetImage.source = sourcePath + Pictures.resetFace(false)
        enableRows(false)
        invertTitle.color = "#333333"
        btnInvertSwitchImage.source = sourcePath + Pictures.deadSwitchFace(invertOn)
        btnInvertSwitch.enabled = false
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
                text: qsTr("Garbage Window") + qmlTranslator.e_str
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
                    if (windowOn)
                        showWindowOff()
                    else
                        showWindowOn()
                    windowOn = !windowOn
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
                    mainObject.resetWindow()
                }
            }
        }

        Column {
            anchors.top: pageGM_ContentHeaderWindow.bottom

            MyControlItem {
                id: windowLeft
                title: qsTr("Left:") + qmlTranslator.e_str
                bgImageSource: "qrc:/img/pc/img_bg_input_line.png"
                sliderMax: 1000
                itemButtonDecrease.enabled: windowOn
                itemButtonIncrease.enabled: windowOn
                onSliderValueChanged: sendSoon()
                onTextFieldChanged: windowTyped(windowLeft)
            }
            MyControlItem {
                id: windowRight
                title: qsTr("Right:") + qmlTranslator.e_str
                bgImageSource: "qrc:/img/pc/img_bg_input_line.png"
                sliderMax: 1000
                itemButtonDecrease.enabled: windowOn
                itemButtonIncrease.enabled: windowOn
                onSliderValueChanged: sendSoon()
                onTextFieldChanged: windowTyped(windowRight)
            }
            MyControlItem {
                id: windowTop
                title: qsTr("Top:") + qmlTranslator.e_str
                bgImageSource: "qrc:/img/pc/img_bg_input_line.png"
                sliderMax: 1000
                itemButtonDecrease.enabled: windowOn
                itemButtonIncrease.enabled: windowOn
                onSliderValueChanged: sendSoon()
                onTextFieldChanged: windowTyped(windowTop)
            }
            MyControlItem {
                id: windowBottom
                title: qsTr("Bottom:") + qmlTranslator.e_str
                bgImageSource: "qrc:/img/pc/img_bg_input_line.png"
                sliderMax: 1000
                itemButtonDecrease.enabled: windowOn
                itemButtonIncrease.enabled: windowOn
                onSliderValueChanged: sendSoon()
                onTextFieldChanged: windowTyped(windowBottom)
            }
            MyControlItem {
                id: windowBorder
                title: qsTr("Border:") + qmlTranslator.e_str
                bgImageSource: "qrc:/img/pc/img_bg_input_line.png"
                sliderMax: 100
                itemButtonDecrease.enabled: windowOn
                itemButtonIncrease.enabled: windowOn
                onSliderValueChanged: sendSoon()
                onTextFieldChanged: windowTyped(windowBorder)
            }

            InputLine {
                PanelText {
                    id: invertTitle
                    x: 48
                    anchors.verticalCenter: parent.verticalCenter
                    width: 200
                    text: qsTr("Invert:") + qmlTranslator.e_str
                }

                FaceButton {
                    id: btnInvertSwitch
                    anchors.left: invertTitle.right
                    anchors.leftMargin: 50
                    anchors.verticalCenter: parent.verticalCenter
                    background: Image {
                        id: btnInvertSwitchImage
                        source: sourcePath + "btn_switch_off_dashboard.png"
                    }
                    onClicked: {
                        btnInvertSwitchImage.source = sourcePath + Pictures.switchFace(!invertOn)
                        invertOn = !invertOn
                        // Not at once: the invert goes the way of the sliders.
                        timerGMSliderCommand.start()
                    }
                }
            }
        }
    }

    Connections {
        target: mainObject

        onRefreshWindow: {
            windowOn = enable
            invertOn = invert === 1
            if (windowOn)
                showWindowOn()
            else
                showWindowOff()
            windowLeft.sliderValue = left
            windowRight.sliderValue = right
            windowTop.sliderValue = top
            windowBottom.sliderValue = bottom
            windowBorder.sliderValue = border
        }
    }

    Connections {
        target: qmlTranslator

        onLanguageChanged: {
            sourcePath = Pictures.folder(qmlTranslator.currentLanguage())
            btnWindowSwitchImage.source = sourcePath + Pictures.switchFace(windowOn)
            btnWindowResetImage.source = sourcePath + "btn_n_reset_dashboard.png"
            // Off whatever the state is: accepted until the next refresh or click puts it right.
            btnInvertSwitchImage.source = sourcePath + "btn_switch_off_dashboard.png"
            console.log("onLanguageChanged(Garbage)")
        }
    }

    // Started and never restarted: a long drag sends the latest positions every 50 ms.
    Timer {
        id: timerGMSliderCommand
        interval: 50
        onTriggered: sendWindow(null)
    }
}
