import QtQuick 2.12
import "blocks"
import "blocks/Pictures.js" as Pictures

// The luma key on the auxiliary input: polarity, cut-off, softness, opacity, and which key lies on top.
Item {
    id: pageAuxLumakeyItem

    property bool layerSwapOn: false
    property int keyMode: 0
    property string sourcePath: Pictures.folder(qmlTranslator.currentLanguage())
    // Start values that the sliders take while the document loads are no changes.
    property bool settling: true

    // Names that other documents and tests use.
    property alias auxLumakeyOn: pageAL_ContentArea01.switchedOn
    property alias pageAL_ContentHeaderWindow: pageAL_ContentArea01.header
    property alias btnAuxLumakeyFolder: pageAL_ContentArea01.foldButton
    property alias auxLumakeyTitle: pageAL_ContentArea01.titleItem
    property alias btnAuxLumakeySwitch: pageAL_ContentArea01.switchButton
    property alias btnAuxLumakeySwitchImage: pageAL_ContentArea01.switchButton
    property alias btnAuxLumakeyReset: pageAL_ContentArea01.resetButton
    property alias btnAuxLumakeyResetImage: pageAL_ContentArea01.resetButton
    property alias btnAuxLumakeyKeymodeBlackImage: black.mark
    property alias txtAuxLumakeyKeymodeBlack: black.word
    property alias btnAuxLumakeyKeymodeWhiteImage: white.mark
    property alias txtAuxLumakeyKeymodeWhite: white.word
    property alias btnAuxLumakeyLayerSwitchImage: btnAuxLumakeyLayerSwitch

    function sendSoon() {
        if (!settling)
            timerALSliderCommand.start()
    }

    function chooseKeyMode(mode) {
        keyMode = mode
        showKeyMode()
        pageAL_ContentArea01.send(null)
    }

    function showKeyMode() {
        black.show(keyMode === 0 ? "s" : "n")
        white.show(keyMode === 1 ? "s" : "n")
    }

    function showLayer(on) {
        btnAuxLumakeyLayerSwitch.source = sourcePath + (on ? Pictures.switchFace(layerSwapOn)
                                                           : Pictures.deadSwitchFace(layerSwapOn))
    }

    anchors.topMargin: 10
    anchors.leftMargin: 30
    width: 1160
    height: 610
    Component.onCompleted: settling = false

    GroupSection {
        id: pageAL_ContentArea01
        implicitHeight: 74 * 6
        clip: false
        foldable: false
        openWhenOff: true
        switchedOn: false
        title: qsTr("Aux Lumakey") + qmlTranslator.e_str
        rows: [auxLumakeyCutoff, auxLumakeySoftness, auxLumakeyOpacity, auxLumakeySwaptime]
        // Swap time comes before opacity, although the rows stand the other way round.
        onSend: {
            if (typedRow === auxLumakeyCutoff)
                console.log("onTExtFieldChanged")
            if (typedRow === auxLumakeyOpacity)
                console.log("on Aux Opacity TExtFieldChanged")
            mainObject.setLumaKey(auxLumakeyOn, keyMode, auxLumakeyCutoff.value(typedRow),
                                  auxLumakeySoftness.value(typedRow), layerSwapOn ? 1 : 0,
                                  auxLumakeySwaptime.value(typedRow), auxLumakeyOpacity.value(typedRow))
        }
        onRead: mainObject.getLumaKey()
        onReset: mainObject.resetLumaKey()
        // The page starts switched off, but with its parts drawn and answering as if on: they go grey with
        // the first refresh or click.
        onShown: {
            auxLumakeyKeymode.color = Look.text(on)
            auxLumakeyLayer.color = Look.text(on)
            black.live = on
            white.live = on
            btnAuxLumakeyLayerSwitch.enabled = on
            showLayer(on)
            if (on) {
                showKeyMode()
            } else {
                black.show("d")
                white.show("d")
            }
        }

        // Key mode
        InputLine {
            PanelText {
                id: auxLumakeyKeymode
                x: 48
                anchors.verticalCenter: parent.verticalCenter
                width: 200
                text: qsTr("Key Mode:") + qmlTranslator.e_str
            }

            RadioChoice {
                id: black
                x: 298
                anchors.verticalCenter: parent.verticalCenter
                word.text: qsTr("Black") + qmlTranslator.e_str
                onPicked: chooseKeyMode(0)
                Component.onCompleted: show("s")
            }

            RadioChoice {
                id: white
                x: 524
                anchors.verticalCenter: parent.verticalCenter
                word.text: qsTr("White") + qmlTranslator.e_str
                onPicked: chooseKeyMode(1)
            }
        }

        GroupRow {
            id: auxLumakeyCutoff
            section: pageAL_ContentArea01
            title: qsTr("Cut Off:") + qmlTranslator.e_str
        }

        GroupRow {
            id: auxLumakeySoftness
            section: pageAL_ContentArea01
            title: qsTr("Softness:") + qmlTranslator.e_str
        }

        GroupRow {
            id: auxLumakeyOpacity
            section: pageAL_ContentArea01
            title: qsTr("Opacity:") + qmlTranslator.e_str
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
                x: 298
                anchors.verticalCenter: parent.verticalCenter
                source: sourcePath + Pictures.switchFace(false)
                onClicked: {
                    layerSwapOn = !layerSwapOn
                    showLayer(true)
                    pageAL_ContentArea01.send(null)
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

        GroupRow {
            id: auxLumakeySwaptime
            section: pageAL_ContentArea01
            title: qsTr("Swap Time:") + qmlTranslator.e_str
            sliderMax: 20
        }
    }

    Connections {
        target: mainObject

        onRefreshLumaKey: {
            console.log("onRefreshLumaKey:", auxLumakeyOn, keyMode, layerSwapOn)
            keyMode = keymode
            layerSwapOn = layer !== 0
            pageAL_ContentArea01.show(enable)
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
            pageAL_ContentArea01.showReset("d")
            showLayer(false)
            console.log("onLanguageChanged(Lumakey)")
        }
    }

    // Started and never restarted: a long drag sends the latest positions every 50 ms.
    Timer {
        id: timerALSliderCommand
        interval: 50
        onTriggered: pageAL_ContentArea01.send(null)
    }
}
