import QtQuick 2.12
import QtQuick.Controls 2.5
import "blocks"
import "blocks/Pictures.js" as Pictures

// The luma key on the auxiliary input: polarity, cut-off, softness, opacity, and which key lies on top.
Item {
    id: pageAuxLumakeyItem

    property bool auxLumakeyOn: false
    property bool layerSwapOn: false
    property int keyMode: 0
    property string sourcePath: Pictures.folder(qmlTranslator.currentLanguage())
    // Start values that the sliders take while the document loads are no changes.
    property bool started: false

    // The value of a row: its slider, or the typed text where this row's field was just accepted.
    function valueFor(row, typedRow) {
        return row === typedRow ? row.textValue : row.sliderValue
    }

    // Swap time comes before opacity, although the rows stand the other way round.
    function sendLumaKey(typedRow) {
        mainObject.setLumaKey(auxLumakeyOn, keyMode, valueFor(auxLumakeyCutoff, typedRow),
                              valueFor(auxLumakeySoftness, typedRow), layerSwapOn ? 1 : 0,
                              valueFor(auxLumakeySwaptime, typedRow), valueFor(auxLumakeyOpacity, typedRow))
    }

    function sendSoon() {
        if (started)
            timerALSliderCommand.start()
    }

    function lumaKeyTyped(row) {
        sendLumaKey(row)
        mainObject.msecSleep(100)
        mainObject.getLumaKey()
    }

    function radioFace(letter) {
        return "qrc:/img/pc/btn_" + letter + "_radio_lumakey.png"
    }

    function chooseKeyMode(mode) {
        keyMode = mode
        btnAuxLumakeyKeymodeBlackImage.source = radioFace(mode === 0 ? "s" : "n")
        btnAuxLumakeyKeymodeWhiteImage.source = radioFace(mode === 1 ? "s" : "n")
        sendLumaKey(null)
    }

    function enableParts(on) {
        var textColor = on ? "#D8D8D8" : "#333333"
        btnAuxLumakeySwitchImage.source = sourcePath + Pictures.switchFace(on)
        btnAuxLumakeyResetImage.source = sourcePath + Pictures.resetFace(on)
        auxLumakeyCutoff.enableItem(on)
        auxLumakeySoftness.enableItem(on)
        auxLumakeyOpacity.enableItem(on)
        auxLumakeySwaptime.enableItem(on)
        auxLumakeyKeymode.color = textColor
        auxLumakeyLayer.color = textColor
        btnAuxLumakeyLayerSwitch.enabled = on
        btnAuxLumakeyKeymodeBlackImage.enabled = on
        btnAuxLumakeyKeymodeWhiteImage.enabled = on
        txtAuxLumakeyKeymodeBlack.enabled = on
        txtAuxLumakeyKeymodeWhite.enabled = on
        txtAuxLumakeyKeymodeBlack.color = textColor
        txtAuxLumakeyKeymodeWhite.color = textColor
    }

    function showOn() {
        enableParts(true)
        btnAuxLumakeyLayerSwitchImage.source = sourcePath + Pictures.switchFace(layerSwapOn)
        btnAuxLumakeyKeymodeBlackImage.source = radioFace(keyMode === 0 ? "s" : "n")
        btnAuxLumakeyKeymodeWhiteImage.source = radioFace(keyMode === 1 ? "s" : "n")
    }

    function showOff() {
        enableParts(false)
        btnAuxLumakeyLayerSwitchImage.source = sourcePath + Pictures.deadSwitchFace(layerSwapOn)
        btnAuxLumakeyKeymodeBlackImage.source = radioFace("d")
        btnAuxLumakeyKeymodeWhiteImage.source = radioFace("d")
    }

    anchors.topMargin: 10
    anchors.leftMargin: 30
    width: 1160
    height: 610
    Component.onCompleted: started = true

    Item {
        id: pageAL_ContentArea01
        implicitHeight: 74 * 6
        width: 1110

        InputLine {
            id: pageAL_ContentHeaderWindow

            // This section does not fold: the mark only stands where the other pages have it.
            Image {
                id: btnAuxLumakeyFolder
                x: 12
                anchors.verticalCenter: parent.verticalCenter
                source: "qrc:/img/pc/btn_n_show_dashboard.png"
            }

            SectionTitle {
                id: auxLumakeyTitle
                text: qsTr("Aux Lumakey") + qmlTranslator.e_str
            }

            FaceButton {
                id: btnAuxLumakeySwitch
                anchors.left: auxLumakeyTitle.right
                anchors.leftMargin: 50
                anchors.verticalCenter: parent.verticalCenter
                background: Image {
                    id: btnAuxLumakeySwitchImage
                    source: sourcePath + "btn_switch_off_dashboard.png"
                }
                onClicked: {
                    if (auxLumakeyOn)
                        showOff()
                    else
                        showOn()
                    auxLumakeyOn = !auxLumakeyOn
                    sendLumaKey(null)
                }
            }

            FaceButton {
                id: btnAuxLumakeyReset
                anchors.right: parent.right
                anchors.rightMargin: 20
                anchors.verticalCenter: parent.verticalCenter
                background: Image {
                    id: btnAuxLumakeyResetImage
                    source: sourcePath + "btn_n_reset_dashboard.png"
                }
                onPressedChanged: {
                    if (pressed) {
                        btnAuxLumakeyResetImage.source = sourcePath + "btn_p_reset_dashboard.png"
                        return
                    }
                    btnAuxLumakeyResetImage.source = sourcePath + "btn_n_reset_dashboard.png"
                    mainObject.resetLumaKey()
                }
            }
        }

        Column {
            anchors.top: pageAL_ContentHeaderWindow.bottom

            // Key mode
            InputLine {
                PanelText {
                    id: auxLumakeyKeymode
                    x: 48
                    anchors.verticalCenter: parent.verticalCenter
                    width: 200
                    text: qsTr("Key Mode:") + qmlTranslator.e_str
                }

                Image {
                    id: btnAuxLumakeyKeymodeBlackImage
                    anchors.left: auxLumakeyKeymode.right
                    anchors.leftMargin: 50
                    anchors.verticalCenter: parent.verticalCenter
                    width: 26
                    height: 26
                    source: radioFace("s")

                    MouseArea {
                        anchors.fill: parent
                        onPressedChanged: {
                            if (pressed)
                                btnAuxLumakeyKeymodeBlackImage.source = radioFace("p")
                            else
                                chooseKeyMode(0)
                        }
                    }
                }

                PanelText {
                    id: txtAuxLumakeyKeymodeBlack
                    anchors.left: btnAuxLumakeyKeymodeBlackImage.right
                    anchors.leftMargin: 10
                    anchors.verticalCenter: parent.verticalCenter
                    width: 150
                    text: qsTr("Black") + qmlTranslator.e_str

                    MouseArea {
                        anchors.fill: parent
                        onPressedChanged: {
                            if (pressed)
                                btnAuxLumakeyKeymodeBlackImage.source = radioFace("p")
                            else
                                chooseKeyMode(0)
                        }
                    }
                }

                Image {
                    id: btnAuxLumakeyKeymodeWhiteImage
                    anchors.left: btnAuxLumakeyKeymodeBlackImage.right
                    anchors.leftMargin: 200
                    anchors.verticalCenter: parent.verticalCenter
                    width: 26
                    height: 26
                    source: radioFace("n")

                    MouseArea {
                        anchors.fill: parent
                        onPressedChanged: {
                            if (pressed)
                                btnAuxLumakeyKeymodeWhiteImage.source = radioFace("p")
                            else
                                chooseKeyMode(1)
                        }
                    }
                }

                PanelText {
                    id: txtAuxLumakeyKeymodeWhite
                    anchors.left: btnAuxLumakeyKeymodeWhiteImage.right
                    anchors.leftMargin: 10
                    anchors.verticalCenter: parent.verticalCenter
                    width: 150
                    text: qsTr("White") + qmlTranslator.e_str

                    MouseArea {
                        anchors.fill: parent
                        onPressedChanged: {
                            if (pressed)
                                btnAuxLumakeyKeymodeWhiteImage.source = radioFace("p")
                            else
                                chooseKeyMode(1)
                        }
                    }
                }
            }

            MyControlItem {
                id: auxLumakeyCutoff
                title: qsTr("Cut Off:") + qmlTranslator.e_str
                sliderMax: 1000
                itemButtonDecrease.enabled: auxLumakeyOn
                itemButtonIncrease.enabled: auxLumakeyOn
                onSliderValueChanged: sendSoon()
                onTextFieldChanged: {
                    console.log("onTExtFieldChanged")
                    lumaKeyTyped(auxLumakeyCutoff)
                }
            }
            MyControlItem {
                id: auxLumakeySoftness
                title: qsTr("Softness:") + qmlTranslator.e_str
                sliderMax: 1000
                itemButtonDecrease.enabled: auxLumakeyOn
                itemButtonIncrease.enabled: auxLumakeyOn
                onSliderValueChanged: sendSoon()
                onTextFieldChanged: lumaKeyTyped(auxLumakeySoftness)
            }
            MyControlItem {
                id: auxLumakeyOpacity
                title: qsTr("Opacity:") + qmlTranslator.e_str
                sliderMax: 1000
                itemButtonDecrease.enabled: auxLumakeyOn
                itemButtonIncrease.enabled: auxLumakeyOn
                onSliderValueChanged: sendSoon()
                onTextFieldChanged: {
                    console.log("on Aux Opacity TExtFieldChanged")
                    lumaKeyTyped(auxLumakeyOpacity)
                }
            }

            // Layer
            InputLine {
                PanelText {
                    id: auxLumakeyLayer
                    x: 48
                    anchors.verticalCenter: parent.verticalCenter
                    width: 200
                    text: qsTr("Layer Swap:") + qmlTranslator.e_str
                }

                FaceButton {
                    id: btnAuxLumakeyLayerSwitch
                    anchors.left: auxLumakeyLayer.right
                    anchors.leftMargin: 50
                    anchors.verticalCenter: parent.verticalCenter
                    background: Image {
                        id: btnAuxLumakeyLayerSwitchImage
                        source: sourcePath + "btn_switch_off_dashboard.png"
                    }
                    onClicked: {
                        btnAuxLumakeyLayerSwitchImage.source = sourcePath + Pictures.switchFace(!layerSwapOn)
                        layerSwapOn = !layerSwapOn
                        sendLumaKey(null)
                        mainObject.msecSleep(100)
                        mainObject.getLumaKey()
                    }
                }

                PanelText {
                    id: auxLumakeyLayerMessage
                    anchors.left: btnAuxLumakeyLayerSwitch.right
                    anchors.leftMargin: 24
                    anchors.verticalCenter: parent.verticalCenter
                    width: 200
                    color: "#8BC7EA"
                    font.pixelSize: 18
                    text: (layerSwapOn ? qsTr("Chromakey on top") : qsTr("Lumakey on top"))
                          + qmlTranslator.e_str
                }
            }

            MyControlItem {
                id: auxLumakeySwaptime
                title: qsTr("Swap Time:") + qmlTranslator.e_str
                sliderMax: 20
                itemButtonDecrease.enabled: auxLumakeyOn
                itemButtonIncrease.enabled: auxLumakeyOn
                onSliderValueChanged: sendSoon()
                onTextFieldChanged: lumaKeyTyped(auxLumakeySwaptime)
            }
        }
    }

    Connections {
        target: mainObject

        onRefreshLumaKey: {
            console.log("onRefreshLumaKey:", auxLumakeyOn, keyMode, layerSwapOn)
            auxLumakeyOn = enable
            keyMode = keymode
            layerSwapOn = layer !== 0
            if (auxLumakeyOn)
                showOn()
            else
                showOff()
            auxLumakeyCutoff.sliderValue = cutoff
            auxLumakeySoftness.sliderValue = softness
            auxLumakeyOpacity.sliderValue = opa
            auxLumakeySwaptime.sliderValue = swaptime
        }
    }

    Connections {
        target: qmlTranslator

        onLanguageChanged: {
            sourcePath = Pictures.folder(qmlTranslator.currentLanguage())
            // Disabled faces whatever the state is: they stand until the next refresh or click.
            btnAuxLumakeyResetImage.source = sourcePath + "btn_d_reset_dashboard.png"
            btnAuxLumakeyLayerSwitchImage.source = sourcePath + Pictures.deadSwitchFace(layerSwapOn)
            btnAuxLumakeySwitchImage.source = sourcePath + Pictures.switchFace(auxLumakeyOn)
            console.log("onLanguageChanged(Lumakey)")
        }
    }

    // Started and never restarted: a long drag sends the latest positions every 50 ms.
    Timer {
        id: timerALSliderCommand
        interval: 50
        onTriggered: sendLumaKey(null)
    }
}
