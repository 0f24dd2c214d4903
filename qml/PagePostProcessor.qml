import QtQuick 2.12
import "blocks"
import "blocks/Pictures.js" as Pictures

// The picture after the key: processing amplifier and RGB corrector of the foreground, blur of the
// background.
Item {
    id: pagePostProcessorItem

    property alias fgPostAmpOn: pagePP_ContentArea01.switchedOn
    property alias fgCorrectOn: pagePP_ContentArea02.switchedOn
    property alias bgBlurOn: pagePP_ContentArea03.switchedOn
    property alias area01Folded: pagePP_ContentArea01.folded
    property alias area02Folded: pagePP_ContentArea02.folded
    property alias area03Folded: pagePP_ContentArea03.folded
    property alias pagePP_ContentHeader01: pagePP_ContentArea01.header
    property alias pagePP_ContentHeader02: pagePP_ContentArea02.header
    property alias pagePP_ContentHeader03: pagePP_ContentArea03.header
    property var commandIndex: 0
    property string sourcePath: Pictures.folder(qmlTranslator.currentLanguage())
    // Start values that the sliders take while the document loads are no changes.
    property bool settling: true

    readonly property var sections: [pagePP_ContentArea01, pagePP_ContentArea02, pagePP_ContentArea03]

    function sendSoon(command) {
        if (settling)
            return
        commandIndex = command
        timerPPSliderCommand.start()
    }

    Component.onCompleted: settling = false

    DarkScrollView {
        id: scrollContent
        x: 30
        y: 10
        width: 1160
        height: 610
        barX: pagePP_ContentArea01.width + 14
        contentWidth: 1110
        contentHeight: pagePP_ContentArea03.y + pagePP_ContentArea03.height

        Item {
            width: 1110
            height: scrollContent.contentHeight

            GroupSection {
                id: pagePP_ContentArea01
                height: 74 * 5
                openHeight: 74 * 5
                command: 1
                openWhenOff: true
                contentVisible: !folded
                title: qsTr("FG PostAmp") + qmlTranslator.e_str
                rows: [ppfgHue, ppfgSaturation, ppfgContrast, ppfgBrightness]
                onSend: {
                    mainObject.setPPFGPostAmp(fgPostAmpOn, ppfgBrightness.value(typedRow),
                                              ppfgContrast.value(typedRow),
                                              ppfgSaturation.value(typedRow), ppfgHue.value(typedRow))
                }
                onRead: mainObject.getPPFGPostAmp()
                onReset: mainObject.resetPPFGPostAmp()

                GroupRow {
                    id: ppfgHue
                    section: pagePP_ContentArea01
                    title: qsTr("Hue:") + qmlTranslator.e_str
                    sliderMin: -180
                    sliderMax: 180
                }

                GroupRow {
                    id: ppfgSaturation
                    section: pagePP_ContentArea01
                    title: qsTr("Saturation:") + qmlTranslator.e_str
                    sliderValue: 500
                }

                GroupRow {
                    id: ppfgContrast
                    section: pagePP_ContentArea01
                    title: qsTr("Contrast:") + qmlTranslator.e_str
                    sliderValue: 500
                }

                GroupRow {
                    id: ppfgBrightness
                    section: pagePP_ContentArea01
                    title: qsTr("Brightness:") + qmlTranslator.e_str
                    sliderValue: 500
                }
            }

            GroupSection {
                id: pagePP_ContentArea02
                anchors.top: pagePP_ContentArea01.bottom
                anchors.topMargin: 20
                height: 74 * 7
                openHeight: 74 * 7
                command: 2
                openWhenOff: true
                contentVisible: !folded
                title: qsTr("FG Corrector") + qmlTranslator.e_str
                rows: [ppfgRWhiteLevel, ppfgRBlackLevel, ppfgGWhiteLevel, ppfgGBlackLevel, ppfgBWhiteLevel,
                       ppfgBBlackLevel]
                onSend: {
                    mainObject.setPPFGRGBCorrect(fgCorrectOn, ppfgRWhiteLevel.value(typedRow),
                                                 ppfgRBlackLevel.value(typedRow),
                                                 ppfgGWhiteLevel.value(typedRow),
                                                 ppfgGBlackLevel.value(typedRow),
                                                 ppfgBWhiteLevel.value(typedRow),
                                                 ppfgBBlackLevel.value(typedRow))
                }
                onRead: mainObject.getPPFGRGBCorrect()
                onReset: mainObject.resetPPFGRGBCorrect()

                GroupRow {
                    id: ppfgRWhiteLevel
                    section: pagePP_ContentArea02
                    title: qsTr("R White Level:") + qmlTranslator.e_str
                }

                GroupRow {
                    id: ppfgRBlackLevel
                    section: pagePP_ContentArea02
                    title: qsTr("R Black Level:") + qmlTranslator.e_str
                    // This row names no group: a move of it sends whatever group was active last, and
                    // nothing before any was. Its value travels with every move of the other five.
                    command: commandIndex
                }

                GroupRow {
                    id: ppfgGWhiteLevel
                    section: pagePP_ContentArea02
                    title: qsTr("G White Level:") + qmlTranslator.e_str
                }

                GroupRow {
                    id: ppfgGBlackLevel
                    section: pagePP_ContentArea02
                    title: qsTr("G Black Level:") + qmlTranslator.e_str
                }

                GroupRow {
                    id: ppfgBWhiteLevel
                    section: pagePP_ContentArea02
                    title: qsTr("B White Level:") + qmlTranslator.e_str
                }

                GroupRow {
                    id: ppfgBBlackLevel
                    section: pagePP_ContentArea02
                    title: qsTr("B Black Level:") + qmlTranslator.e_str
                }
            }

            GroupSection {
                id: pagePP_ContentArea03
                anchors.top: pagePP_ContentArea02.bottom
                anchors.topMargin: 20
                height: 74 * 5
                openHeight: 74 * 5
                command: 3
                openWhenOff: true
                contentVisible: !folded
                title: qsTr("BG Blur") + qmlTranslator.e_str
                rows: [ppbgBlurValue, ppbgBlurTime]
                onSend: {
                    if (typedRow === ppbgBlurValue)
                        console.log("onBlurTExtFieldChanged")
                    mainObject.setBGBlur(bgBlurOn, ppbgBlurValue.value(typedRow),
                                         ppbgBlurTime.value(typedRow))
                }
                onRead: mainObject.getBGBlur()
                onReset: mainObject.resetBGBlur()

                GroupRow {
                    id: ppbgBlurValue
                    section: pagePP_ContentArea03
                    title: qsTr("Blur Level:") + qmlTranslator.e_str
                    sliderMax: 100
                }

                GroupRow {
                    id: ppbgBlurTime
                    section: pagePP_ContentArea03
                    title: qsTr("Blur Time:") + qmlTranslator.e_str
                    sliderMax: 20
                }
            }
        }
    }

    Connections {
        target: mainObject

        onRefreshPPFGPostAmp: {
            pagePP_ContentArea01.show(enable)
            ppfgBrightness.sliderValue = bright
            ppfgContrast.sliderValue = contrast
            ppfgSaturation.sliderValue = sat
            // The hue is told unsigned: a negative one lies beyond the range and moves the slider to its end.
            ppfgHue.sliderValue = hue
        }

        onRefreshPPFGRGBCorrector: {
            pagePP_ContentArea02.show(enable)
            ppfgRWhiteLevel.sliderValue = rWhite
            ppfgRBlackLevel.sliderValue = rBlack
            ppfgGWhiteLevel.sliderValue = gWhite
            ppfgGBlackLevel.sliderValue = gBlack
            ppfgBWhiteLevel.sliderValue = bWhite
            ppfgBBlackLevel.sliderValue = bBlack
        }

        onRefreshPPBGBlur: {
            console.log("onRefreshPPBGBlur")
            pagePP_ContentArea03.show(enable)
            ppbgBlurValue.sliderValue = blurvalue
            ppbgBlurTime.sliderValue = blurtime
        }
    }

    Connections {
        target: qmlTranslator

        onLanguageChanged: {
            sourcePath = Pictures.folder(qmlTranslator.currentLanguage())
            // The resets come back in their normal face, also where the switch is off.
            sections.forEach(function (section) { section.showReset("n") })
            console.log("onLanguageChanged(PostPro)")
        }
    }

    // Started and never restarted: a long drag sends the latest positions every 50 ms.
    Timer {
        id: timerPPSliderCommand
        interval: 50
        onTriggered: {
            if (commandIndex === 3)
                console.log("Command BG Blur ", bgBlurOn, ppbgBlurValue.sliderValue, ppbgBlurTime.sliderValue)
            if (commandIndex > 0)
                sections[commandIndex - 1].send(null)
        }
    }
}
