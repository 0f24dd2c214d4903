import QtQuick 2.12
import QtQuick.Controls 2.5
import "blocks"
import "blocks/Pictures.js" as Pictures

// The picture after the key: processing amplifier and RGB corrector of the foreground, blur of the
// background.
Item {
    id: pagePostProcessorItem

    property bool fgPostAmpOn: true
    property bool fgCorrectOn: true
    property bool bgBlurOn: true
    property bool area01Folded: false
    property bool area02Folded: false
    property bool area03Folded: false
    property var commandIndex: 0
    property string sourcePath: Pictures.folder(qmlTranslator.currentLanguage())
    // Start values that the sliders take while the document loads are no changes.
    property bool started: false

    // The value of a row: its slider, or the typed text where this row's field was just accepted.
    function valueFor(row, typedRow) {
        return row === typedRow ? row.textValue : row.sliderValue
    }

    function sendPostAmp(typedRow) {
        mainObject.setPPFGPostAmp(fgPostAmpOn,
                                  valueFor(ppfgBrightness, typedRow), valueFor(ppfgContrast, typedRow),
                                  valueFor(ppfgSaturation, typedRow), valueFor(ppfgHue, typedRow))
    }

    function sendCorrector(typedRow) {
        mainObject.setPPFGRGBCorrect(fgCorrectOn,
                                     valueFor(ppfgRWhiteLevel, typedRow), valueFor(ppfgRBlackLevel, typedRow),
                                     valueFor(ppfgGWhiteLevel, typedRow), valueFor(ppfgGBlackLevel, typedRow),
                                     valueFor(ppfgBWhiteLevel, typedRow), valueFor(ppfgBBlackLevel, typedRow))
    }

    function sendBlur(typedRow) {
        mainObject.setBGBlur(bgBlurOn, valueFor(ppbgBlurValue, typedRow), valueFor(ppbgBlurTime, typedRow))
    }

    function postAmpTyped(row) {
        sendPostAmp(row)
        mainObject.msecSleep(100)
        mainObject.getPPFGPostAmp()
    }

    function correctorTyped(row) {
        sendCorrector(row)
        mainObject.msecSleep(100)
        mainObject.getPPFGRGBCorrect()
    }

    function blurTyped(row) {
        sendBlur(row)
        mainObject.msecSleep(100)
        mainObject.getBGBlur()
    }

    function sendSoon(command) {
        if (!started)
            return
        commandIndex = command
        timerPPSliderCommand.start()
    }

    // The reset keeps answering while its switch is off: only its face turns grey.
    function showSection(header, rows, on) {
        header.switchSource = sourcePath + Pictures.switchFace(on)
        header.resetSource = sourcePath + Pictures.resetFace(on)
        for (var i = 0; i < rows.length; ++i)
            rows[i].enableItem(on)
    }

    function showPostAmp(on) {
        showSection(pagePP_ContentHeader01, [ppfgHue, ppfgSaturation, ppfgContrast, ppfgBrightness], on)
    }

    function showCorrector(on) {
        showSection(pagePP_ContentHeader02, [ppfgRWhiteLevel, ppfgRBlackLevel, ppfgGWhiteLevel,
                                             ppfgGBlackLevel, ppfgBWhiteLevel, ppfgBBlackLevel], on)
    }

    function showBlur(on) {
        showSection(pagePP_ContentHeader03, [ppbgBlurValue, ppbgBlurTime], on)
    }

    Component.onCompleted: started = true

    ScrollView {
        id: scrollContent
        x: 30
        y: 10
        width: 1160
        height: 610
        clip: true
        contentWidth: 1110
        contentHeight: pagePP_ContentArea03.y + pagePP_ContentArea03.height
        ScrollBar.horizontal.policy: ScrollBar.AlwaysOff
        ScrollBar.vertical: DarkScrollBar {
            parent: scrollContent
            x: pagePP_ContentArea01.width + 14
            height: scrollContent.height
        }

        Item {
            width: 1110
            height: scrollContent.contentHeight

            // Foreground processing amplifier
            Item {
                id: pagePP_ContentArea01

                function foldTo(h) {
                    foldAnimation01.to = h
                    foldAnimation01.restart()
                }

                width: 1110
                height: 74 * 5
                clip: true

                NumberAnimation {
                    id: foldAnimation01
                    target: pagePP_ContentArea01
                    property: "height"
                    duration: 200
                }

                SectionHeader {
                    id: pagePP_ContentHeader01
                    title: qsTr("FG PostAmp") + qmlTranslator.e_str
                    folded: area01Folded
                    switchSource: sourcePath + "btn_switch_on_dashboard.png"
                    resetSource: sourcePath + "btn_n_reset_dashboard.png"
                    onFoldClicked: {
                        pagePP_ContentArea01.foldTo(area01Folded ? 74 * 5 : height)
                        area01Folded = !area01Folded
                    }
                    onSwitchClicked: {
                        showPostAmp(!fgPostAmpOn)
                        fgPostAmpOn = !fgPostAmpOn
                        sendPostAmp(null)
                    }
                    onResetPressedDown: resetSource = sourcePath + "btn_p_reset_dashboard.png"
                    onResetReleased: {
                        resetSource = sourcePath + "btn_n_reset_dashboard.png"
                        mainObject.resetPPFGPostAmp()
                    }
                }

                Column {
                    anchors.top: pagePP_ContentHeader01.bottom
                    enabled: !area01Folded
                    visible: !area01Folded

                    MyControlItem {
                        id: ppfgHue
                        title: qsTr("Hue:") + qmlTranslator.e_str
                        sliderMin: -180
                        sliderMax: 180
                        itemButtonDecrease.enabled: fgPostAmpOn
                        itemButtonIncrease.enabled: fgPostAmpOn
                        onSliderValueChanged: sendSoon(1)
                        onTextFieldChanged: postAmpTyped(ppfgHue)
                    }
                    MyControlItem {
                        id: ppfgSaturation
                        title: qsTr("Saturation:") + qmlTranslator.e_str
                        sliderMax: 1000
                        sliderValue: 500
                        itemButtonDecrease.enabled: fgPostAmpOn
                        itemButtonIncrease.enabled: fgPostAmpOn
                        onSliderValueChanged: sendSoon(1)
                        onTextFieldChanged: postAmpTyped(ppfgSaturation)
                    }
                    MyControlItem {
                        id: ppfgContrast
                        title: qsTr("Contrast:") + qmlTranslator.e_str
                        sliderMax: 1000
                        sliderValue: 500
                        itemButtonDecrease.enabled: fgPostAmpOn
                        itemButtonIncrease.enabled: fgPostAmpOn
                        onSliderValueChanged: sendSoon(1)
                        onTextFieldChanged: postAmpTyped(ppfgContrast)
                    }
                    MyControlItem {
                        id: ppfgBrightness
                        title: qsTr("Brightness:") + qmlTranslator.e_str
                        sliderMax: 1000
                        sliderValue: 500
                        itemButtonDecrease.enabled: fgPostAmpOn
                        itemButtonIncrease.enabled: fgPostAmpOn
                        onSliderValueChanged: sendSoon(1)
                        onTextFieldChanged: postAmpTyped(ppfgBrightness)
                    }
                }
            }

            // Foreground RGB corrector
            Item {
                id: pagePP_ContentArea02

                function foldTo(h) {
                    foldAnimation02.to = h
                    foldAnimation02.restart()
                }

                anchors.top: pagePP_ContentArea01.bottom
                anchors.topMargin: 20
                width: 1110
                height: 74 * 7
                clip: true

                NumberAnimation {
                    id: foldAnimation02
                    target: pagePP_ContentArea02
                    property: "height"
                    duration: 200
                }

                SectionHeader {
                    id: pagePP_ContentHeader02
                    title: qsTr("FG Corrector") + qmlTranslator.e_str
                    folded: area02Folded
                    switchSource: sourcePath + "btn_switch_on_dashboard.png"
                    resetSource: sourcePath + "btn_n_reset_dashboard.png"
                    onFoldClicked: {
                        pagePP_ContentArea02.foldTo(area02Folded ? 74 * 7 : height)
                        area02Folded = !area02Folded
                    }
                    onSwitchClicked: {
                        showCorrector(!fgCorrectOn)
                        fgCorrectOn = !fgCorrectOn
                        sendCorrector(null)
                    }
                    onResetPressedDown: resetSource = sourcePath + "btn_p_reset_dashboard.png"
                    onResetReleased: {
                        resetSource = sourcePath + "btn_n_reset_dashboard.png"
                        mainObject.resetPPFGRGBCorrect()
                    }
                }

                Column {
                    anchors.top: pagePP_ContentHeader02.bottom
                    enabled: !area02Folded
                    visible: !area02Folded

                    MyControlItem {
                        id: ppfgRWhiteLevel
                        title: qsTr("R White Level:") + qmlTranslator.e_str
                        sliderMax: 1000
                        itemButtonDecrease.enabled: fgCorrectOn
                        itemButtonIncrease.enabled: fgCorrectOn
                        onSliderValueChanged: sendSoon(2)
                        onTextFieldChanged: correctorTyped(ppfgRWhiteLevel)
                    }
                    MyControlItem {
                        id: ppfgRBlackLevel
                        title: qsTr("R Black Level:") + qmlTranslator.e_str
                        sliderMax: 1000
                        itemButtonDecrease.enabled: fgCorrectOn
                        itemButtonIncrease.enabled: fgCorrectOn
                        // This row names no group: a move of it sends whatever group was active last, and
                        // nothing before any was. Its value travels with every move of the other five.
                        onSliderValueChanged: sendSoon(commandIndex)
                        onTextFieldChanged: correctorTyped(ppfgRBlackLevel)
                    }
                    MyControlItem {
                        id: ppfgGWhiteLevel
                        title: qsTr("G White Level:") + qmlTranslator.e_str
                        sliderMax: 1000
                        itemButtonDecrease.enabled: fgCorrectOn
                        itemButtonIncrease.enabled: fgCorrectOn
                        onSliderValueChanged: sendSoon(2)
                        onTextFieldChanged: correctorTyped(ppfgGWhiteLevel)
                    }
                    MyControlItem {
                        id: ppfgGBlackLevel
                        title: qsTr("G Black Level:") + qmlTranslator.e_str
                        sliderMax: 1000
                        itemButtonDecrease.enabled: fgCorrectOn
                        itemButtonIncrease.enabled: fgCorrectOn
                        onSliderValueChanged: sendSoon(2)
                        onTextFieldChanged: correctorTyped(ppfgGBlackLevel)
                    }
                    MyControlItem {
                        id: ppfgBWhiteLevel
                        title: qsTr("B White Level:") + qmlTranslator.e_str
                        sliderMax: 1000
                        itemButtonDecrease.enabled: fgCorrectOn
                        itemButtonIncrease.enabled: fgCorrectOn
                        onSliderValueChanged: sendSoon(2)
                        onTextFieldChanged: correctorTyped(ppfgBWhiteLevel)
                    }
                    MyControlItem {
                        id: ppfgBBlackLevel
                        title: qsTr("B Black Level:") + qmlTranslator.e_str
                        sliderMax: 1000
                        itemButtonDecrease.enabled: fgCorrectOn
                        itemButtonIncrease.enabled: fgCorrectOn
                        onSliderValueChanged: sendSoon(2)
                        onTextFieldChanged: correctorTyped(ppfgBBlackLevel)
                    }
                }
            }

            // Background blur
            Item {
                id: pagePP_ContentArea03

                function foldTo(h) {
                    foldAnimation03.to = h
                    foldAnimation03.restart()
                }

                anchors.top: pagePP_ContentArea02.bottom
                anchors.topMargin: 20
                width: 1110
                height: 74 * 5
                clip: true

                NumberAnimation {
                    id: foldAnimation03
                    target: pagePP_ContentArea03
                    property: "height"
                    duration: 200
                }

                SectionHeader {
                    id: pagePP_ContentHeader03
                    title: qsTr("BG Blur") + qmlTranslator.e_str
                    folded: area03Folded
                    switchSource: sourcePath + "btn_switch_on_dashboard.png"
                    resetSource: sourcePath + "btn_n_reset_dashboard.png"
                    onFoldClicked: {
                        pagePP_ContentArea03.foldTo(area03Folded ? 74 * 5 : height)
                        area03Folded = !area03Folded
                    }
                    onSwitchClicked: {
                        showBlur(!bgBlurOn)
                        bgBlurOn = !bgBlurOn
                        sendBlur(null)
                    }
                    onResetPressedDown: resetSource = sourcePath + "btn_p_reset_dashboard.png"
                    onResetReleased: {
                        resetSource = sourcePath + "btn_n_reset_dashboard.png"
                        mainObject.resetBGBlur()
                    }
                }

                Column {
                    anchors.top: pagePP_ContentHeader03.bottom
                    enabled: !area03Folded
                    visible: !area03Folded

                    MyControlItem {
                        id: ppbgBlurValue
                        title: qsTr("Blur Level:") + qmlTranslator.e_str
                        sliderMax: 100
                        itemButtonDecrease.enabled: bgBlurOn
                        itemButtonIncrease.enabled: bgBlurOn
                        onSliderValueChanged: sendSoon(3)
                        onTextFieldChanged: {
                            console.log("onBlurTExtFieldChanged")
                            blurTyped(ppbgBlurValue)
                        }
                    }
                    MyControlItem {
                        id: ppbgBlurTime
                        title: qsTr("Blur Time:") + qmlTranslator.e_str
                        sliderMax: 20
                        itemButtonDecrease.enabled: bgBlurOn
                        itemButtonIncrease.enabled: bgBlurOn
                        onSliderValueChanged: sendSoon(3)
                        onTextFieldChanged: blurTyped(ppbgBlurTime)
                    }
                }
            }
        }
    }

    Connections {
        target: mainObject

        onRefreshPPFGPostAmp: {
            fgPostAmpOn = enable
            showPostAmp(enable)
            ppfgBrightness.sliderValue = bright
            ppfgContrast.sliderValue = contrast
            ppfgSaturation.sliderValue = sat
            // The hue is told unsigned: a negative one lies beyond the range and moves the slider to its end.
            ppfgHue.sliderValue = hue
        }

        onRefreshPPFGRGBCorrector: {
            fgCorrectOn = enable
            showCorrector(enable)
            ppfgRWhiteLevel.sliderValue = rWhite
            ppfgRBlackLevel.sliderValue = rBlack
            ppfgGWhiteLevel.sliderValue = gWhite
            ppfgGBlackLevel.sliderValue = gBlack
            ppfgBWhiteLevel.sliderValue = bWhite
            ppfgBBlackLevel.sliderValue = bBlack
        }

        onRefreshPPBGBlur: {
            console.log("onRefreshPPBGBlur")
            bgBlurOn = enable
            showBlur(enable)
            ppbgBlurValue.sliderValue = blurvalue
            ppbgBlurTime.sliderValue = blurtime
        }
    }

    Connections {
        target: qmlTranslator

        onLanguageChanged: {
            sourcePath = Pictures.folder(qmlTranslator.currentLanguage())
            pagePP_ContentHeader01.switchSource = sourcePath + Pictures.switchFace(fgPostAmpOn)
            pagePP_ContentHeader02.switchSource = sourcePath + Pictures.switchFace(fgCorrectOn)
            pagePP_ContentHeader03.switchSource = sourcePath + Pictures.switchFace(bgBlurOn)
            // The resets come back in their normal face, also where the switch is off.
            pagePP_ContentHeader01.resetSource = sourcePath + "btn_n_reset_dashboard.png"
            pagePP_ContentHeader02.resetSource = sourcePath + "btn_n_reset_dashboard.png"
            pagePP_ContentHeader03.resetSource = sourcePath + "btn_n_reset_dashboard.png"
            console.log("onLanguageChanged(PostPro)")
        }
    }

    // Started and never restarted: a long drag sends the latest positions every 50 ms.
    Timer {
        id: timerPPSliderCommand
        interval: 50
        onTriggered: {
            if (commandIndex === 1)
                sendPostAmp(null)
            else if (commandIndex === 2)
                sendCorrector(null)
            else if (commandIndex === 3) {
                console.log("Command BG Blur ", bgBlurOn, ppbgBlurValue.sliderValue, ppbgBlurTime.sliderValue)
                sendBlur(null)
            }
        }
    }
}
