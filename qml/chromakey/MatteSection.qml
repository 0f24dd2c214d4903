import QtQuick 2.12
import "../blocks"
import "Command.js" as Command

// Matte generation: the key colour, the span of hues around it, and the levels of black and white.
//
// Signals: pick(), a click on the pen.
// Reads colorDialog, ckColorR, ckColorG, ckColorB, colorBKH, colorBKS and colorBKL of the page.
GroupSection {
    id: matteSection

    property alias chromaItem01: chromaItem01
    property alias txtBackingColor: txtBackingColor
    property alias recColorAdjust: recColorAdjust
    property alias imgColorPen: imgColorPen
    property alias btnCkBKColorAuto: btnCkBKColorAuto
    property alias lblBGR: txtBGR.label
    property alias txtBGR: txtBGR
    property alias lblBGG: txtBGG.label
    property alias txtBGG: txtBGG
    property alias lblBGB: txtBGB.label
    property alias txtBGB: txtBGB
    property alias txtOpenAngle: txtOpenAngle
    property alias rowOpenAnglePlus: rowOpenAnglePlus
    property alias rowOpenAngleMinus: rowOpenAngleMinus
    property alias sliderOPPlus: rowOpenAnglePlus.slider
    property alias sliderOPMinus: rowOpenAngleMinus.slider
    property alias txtChromaOAPlus: rowOpenAnglePlus.field
    property alias txtChromaOAMinus: rowOpenAngleMinus.field
    property alias btnOADecrease: rowOpenAnglePlus.decreaseButton
    property alias btnOAIncrease: rowOpenAnglePlus.increaseButton
    property alias btnOADecrease2: rowOpenAngleMinus.decreaseButton
    property alias btnOAIncrease2: rowOpenAngleMinus.increaseButton
    property alias blackLevel: blackLevel
    property alias whiteLevel: whiteLevel

    readonly property color textColor: Look.text(switchedOn)

    signal pick()

    function sendAngle() {
        mainObject.setCKAngle(rowOpenAngleMinus.value, rowOpenAnglePlus.value)
    }

    function sendColor() {
        mainObject.setBKColor(txtBGR.number(), txtBGG.number(), txtBGB.number(), 0)
    }

    function keyAutomatically() {
        console.log("Begin CK Auto")
        btnCkBKColorAuto.enabled = false
        mainObject.setBKColor(ckColorR, ckColorG, ckColorB, 2)
        btnCkBKColorAuto.enabled = true
        console.log("End CK Auto")
    }

    function showAuto(state) {
        btnCkBKColorAuto.source = sourcePath + "btn_" + state + "_auto_bg_chromakey.png"
    }

    height: 74 * 6
    openHeight: 74 * 6
    command: Command.levels
    title: qsTranslate("PageChromakey", "Matte Generation") + qmlTranslator.e_str
    rows: [blackLevel, whiteLevel]
    alive: !folded
    onShown: {
        btnCkBKColorAuto.enabled = on
        showAuto(on ? "n" : "d")
    }
    onSend: mainObject.setCKBWLevel(blackLevel.value(typedRow), whiteLevel.value(typedRow), switchedOn)
    onRead: mainObject.getCKBWLevel()
    onReset: {
        console.log("MG Group Reset")
        mainObject.resetBKColor()
    }

    Connections {
        target: mainObject

        onRefreshCKAngle: {
            rowOpenAngleMinus.value = minus
            rowOpenAnglePlus.value = plus
        }

        onRefreshCKBWLevel: {
            console.log("black white level = ", black, white)
            console.log("Matte On = ", matte)
            blackLevel.sliderValue = black
            whiteLevel.sliderValue = white
            show(matte)
        }
    }

    Column {
        id: chromaItem01

        // The look of both angle sliders.
        property color sliderOPMaskColor: matteSection.switchedOn ? Look.level : Look.deadLevel
        property string sliderHandlerSource: matteSection.switchedOn
            ? "qrc:/img/pc/btn_n_slider_chromakey.png" : "qrc:/img/pc/btn_d_slider_chromakey.png"

        InputLine {
            PanelText {
                id: txtBackingColor
                x: 48
                y: 20
                width: 169
                color: textColor
                text: qsTranslate("PageChromakey", "Backing Color:") + qmlTranslator.e_str
            }

            Rectangle {
                id: recColorAdjust
                x: 238
                y: 21
                width: 32
                height: 32
                enabled: switchedOn
                color: colorDialog.color
                border.color: Look.fieldGround
            }

            ClickImage {
                id: imgColorPen
                x: 282
                y: 19
                enabled: switchedOn
                source: switchedOn ? "qrc:/img/pc/btn_n_pickcolor_chromakey.png"
                                   : "qrc:/img/pc/btn_d_pickcolor_chromakey.png"
                onClicked: pick()
            }

            ClickImage {
                id: btnCkBKColorAuto
                x: 334
                y: 19
                source: sourcePath + "btn_n_auto_bg_chromakey.png"
                onPressedChanged: showAuto(pressed ? "p" : "n")
                onClicked: keyAutomatically()
            }

            ColorField {
                id: txtBGR
                x: 572
                label.text: qsTranslate("PageChromakey", "R:") + qmlTranslator.e_str
                text: ckColorR
            }

            ColorField {
                id: txtBGG
                x: 746
                label.text: qsTranslate("PageChromakey", "G:") + qmlTranslator.e_str
                text: ckColorG
            }

            ColorField {
                id: txtBGB
                x: 920
                label.text: qsTranslate("PageChromakey", "B:") + qmlTranslator.e_str
                text: ckColorB
            }
        }

        // The face of the signs in the two rows below.
        FontLoader { source: "qrc:/OpenAngleSigns.ttf" }

        OpenAngleRow {
            id: rowOpenAnglePlus
            sign: "+"
            hue: colorBKH
            hueSpan: 90
            saturation: colorBKS
            lightness: colorBKL
            live: switchedOn
            maskColor: chromaItem01.sliderOPMaskColor
            handleSource: chromaItem01.sliderHandlerSource
            onValueChanged: sendSoon(Command.angle)

            PanelText {
                id: txtOpenAngle
                x: 48
                y: 20
                color: textColor
                text: qsTranslate("PageChromakey", "Open Angle:") + qmlTranslator.e_str
            }
        }

        OpenAngleRow {
            id: rowOpenAngleMinus
            sign: "-"
            hue: colorBKH
            hueSpan: -90
            saturation: colorBKS
            lightness: colorBKL
            live: switchedOn
            maskColor: chromaItem01.sliderOPMaskColor
            handleSource: chromaItem01.sliderHandlerSource
            onValueChanged: sendSoon(Command.angle)
        }

        GroupRow {
            id: blackLevel
            section: matteSection
            title: qsTranslate("PageChromakey", "Black Level:") + qmlTranslator.e_str
        }

        GroupRow {
            id: whiteLevel
            section: matteSection
            visible: !folded
            title: qsTranslate("PageChromakey", "White Level:") + qmlTranslator.e_str
        }
    }
}
