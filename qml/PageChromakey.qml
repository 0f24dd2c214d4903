import QtQuick 2.12
import QtQuick.Dialogs 1.2
import "blocks"
import "blocks/Pictures.js" as Pictures
import "chromakey"
import "chromakey/Command.js" as Command

// The chromakey page: six foldable sections in one scrolling column, and the colour picker.
//
// The page is not polled. Its values arrive on connect, on memory recall, after a reset and after a
// number typed in a field. A moved slider opens a window of 50 ms, at whose end the latest values of its
// group go out; a typed number goes out at once and comes back through the refresh signal.
Item {
    id: pageChromakeyItem

    property string sourcePath: Pictures.folder(qmlTranslator.currentLanguage())
    property var commandIndex: 0
    property var ckColorR: 0
    property var ckColorG: 255
    property var ckColorB: 0
    property var colorBKH: 0.3
    property var colorBKS: 0.5
    property var colorBKL: 0.5

    // Sliders take their start values while the document loads; only later changes are the operator's
    // or the unit's.
    property bool settling: true

    readonly property var sections: [pageCK_ContentArea01, pageCK_ContentArea02, pageCK_ContentArea03,
                                     pageCK_ContentArea04, pageCK_ContentArea05, pageCK_ContentArea06]

    // Names that other documents and tests use.
    property alias matteOn: pageCK_ContentArea01.switchedOn
    property alias area01Folded: pageCK_ContentArea01.folded
    property alias pageCK_ContentHeader01: pageCK_ContentArea01.header
    property alias btnMGReset: pageCK_ContentArea01.resetButton
    property alias btnMatteGenResetImage: pageCK_ContentArea01.resetButton
    property alias chromaItem01: pageCK_ContentArea01.chromaItem01
    property alias txtBackingColor: pageCK_ContentArea01.txtBackingColor
    property alias recColorAdjust: pageCK_ContentArea01.recColorAdjust
    property alias imgColorPen: pageCK_ContentArea01.imgColorPen
    property alias btnCkBKColorAuto: pageCK_ContentArea01.btnCkBKColorAuto
    property alias lblBGR: pageCK_ContentArea01.lblBGR
    property alias lblBGG: pageCK_ContentArea01.lblBGG
    property alias lblBGB: pageCK_ContentArea01.lblBGB
    property alias txtBGR: pageCK_ContentArea01.txtBGR
    property alias txtBGG: pageCK_ContentArea01.txtBGG
    property alias txtBGB: pageCK_ContentArea01.txtBGB
    property alias txtOpenAngle: pageCK_ContentArea01.txtOpenAngle
    property alias rowOpenAnglePlus: pageCK_ContentArea01.rowOpenAnglePlus
    property alias rowOpenAngleMinus: pageCK_ContentArea01.rowOpenAngleMinus
    property alias sliderOPPlus: pageCK_ContentArea01.sliderOPPlus
    property alias sliderOPMinus: pageCK_ContentArea01.sliderOPMinus
    property alias txtChromaOAPlus: pageCK_ContentArea01.txtChromaOAPlus
    property alias txtChromaOAMinus: pageCK_ContentArea01.txtChromaOAMinus
    property alias btnOADecrease: pageCK_ContentArea01.btnOADecrease
    property alias btnOAIncrease: pageCK_ContentArea01.btnOAIncrease
    property alias btnOADecrease2: pageCK_ContentArea01.btnOADecrease2
    property alias btnOAIncrease2: pageCK_ContentArea01.btnOAIncrease2
    property alias blackLevel: pageCK_ContentArea01.blackLevel
    property alias whiteLevel: pageCK_ContentArea01.whiteLevel
    property alias darkEnhanceOn: pageCK_ContentArea02.switchedOn
    property alias area02Folded: pageCK_ContentArea02.folded
    property alias pageCK_ContentHeader02: pageCK_ContentArea02.header
    property alias btnDarkEnhanceReset: pageCK_ContentArea02.resetButton
    property alias darkLevel: pageCK_ContentArea02.level
    property alias darkDensity: pageCK_ContentArea02.density
    property alias darkBalance: pageCK_ContentArea02.balance
    property alias brightEnhanceOn: pageCK_ContentArea03.switchedOn
    property alias area03Folded: pageCK_ContentArea03.folded
    property alias pageCK_ContentHeader03: pageCK_ContentArea03.header
    property alias brightLevel: pageCK_ContentArea03.level
    property alias brightDensity: pageCK_ContentArea03.density
    property alias brightBalance: pageCK_ContentArea03.balance
    property alias shadowEnhanceOn: pageCK_ContentArea04.switchedOn
    property alias area04Folded: pageCK_ContentArea04.folded
    property alias pageCK_ContentHeader04: pageCK_ContentArea04.header
    property alias spillDefault: pageCK_ContentArea05.spillDefault
    property alias area05Folded: pageCK_ContentArea05.folded
    property alias pageCK_ContentHeader05: pageCK_ContentArea05.header
    property alias txtDefaultBrightLevel: pageCK_ContentArea05.txtDefaultBrightLevel
    property alias btnSpillLowImage: pageCK_ContentArea05.btnSpillLowImage
    property alias btnSpillMidImage: pageCK_ContentArea05.btnSpillMidImage
    property alias btnSpillHighImage: pageCK_ContentArea05.btnSpillHighImage
    property alias checkboxSpillSup: pageCK_ContentArea05.checkboxSpillSup
    property alias spillSuppression: pageCK_ContentArea05.spillSuppression
    property alias spillEnhance: pageCK_ContentArea05.spillEnhance
    property alias checkboxVivid: pageCK_ContentArea05.checkboxVivid
    property alias spillBalance: pageCK_ContentArea05.spillBalance
    property alias edgeBrightness: pageCK_ContentArea05.edgeBrightness
    property alias edgeFix: pageCK_ContentArea06.switchedOn
    property alias area06Folded: pageCK_ContentArea06.folded
    property alias pageCK_ContentHeader06: pageCK_ContentArea06.header
    property alias shrinkLeft: pageCK_ContentArea06.shrinkLeft
    property alias shrinkRight: pageCK_ContentArea06.shrinkRight
    property alias softEdge: pageCK_ContentArea06.softEdge
    property alias videoOutRes: popupColorPicker.videoOutRes
    property alias xMax: popupColorPicker.xMax
    property alias yMax: popupColorPicker.yMax
    property alias colorPickerX: popupColorPicker.colorPickerX
    property alias colorPickerY: popupColorPicker.colorPickerY
    property alias tempX: popupColorPicker.tempX
    property alias tempY: popupColorPicker.tempY
    property alias colorPickerR: popupColorPicker.colorPickerR
    property alias colorPickerG: popupColorPicker.colorPickerG
    property alias colorPickerB: popupColorPicker.colorPickerB
    property alias colorPickerH: popupColorPicker.colorPickerH
    property alias colorPickerS: popupColorPicker.colorPickerS
    property alias colorPickerL: popupColorPicker.colorPickerL
    property alias colorTempH: popupColorPicker.colorTempH
    property alias timerMouseMovingCommand: popupColorPicker.timerMouseMovingCommand
    property alias imgColorPickerClose: popupColorPicker.imgColorPickerClose
    property alias colorPickerMouseAreaItem: popupColorPicker.colorPickerMouseAreaItem
    property alias colorPickerMouseArea: popupColorPicker.colorPickerMouseArea
    property alias recColorPickerMouseArea: popupColorPicker.recColorPickerMouseArea
    property alias columnColorPickerLeft: popupColorPicker.columnColorPickerLeft
    property alias txtColorPickerR: popupColorPicker.txtColorPickerR
    property alias txtColorPickerG: popupColorPicker.txtColorPickerG
    property alias txtColorPickerB: popupColorPicker.txtColorPickerB
    property alias txtColorPickerH: popupColorPicker.txtColorPickerH
    property alias txtColorPickerS: popupColorPicker.txtColorPickerS
    property alias txtColorPickerL: popupColorPicker.txtColorPickerL
    property alias columnColorPickerRight: popupColorPicker.columnColorPickerRight
    property alias btnDecreaseX: popupColorPicker.btnDecreaseX
    property alias btnIncreaseX: popupColorPicker.btnIncreaseX
    property alias txtColorPickerX: popupColorPicker.txtColorPickerX
    property alias btnDecreaseY: popupColorPicker.btnDecreaseY
    property alias btnIncreaseY: popupColorPicker.btnIncreaseY
    property alias txtColorPickerY: popupColorPicker.txtColorPickerY
    property alias recColorPickerResult: popupColorPicker.recColorPickerResult
    property alias btnColorPickerAuto: popupColorPicker.btnColorPickerAuto
    property alias btnColorPickerCancel: popupColorPicker.btnColorPickerCancel
    property alias btnColorPickerOK: popupColorPicker.btnColorPickerOK

    // A running window is left alone: a long drag sends once per window and never falls silent.
    function sendSoon(command) {
        if (settling)
            return
        commandIndex = command
        timerSliderCommand.start()
    }

    Component.onCompleted: settling = false

    Timer {
        id: timerSliderCommand

        interval: 50
        onTriggered: {
            mainObject.setRefreshTimer(false)
            if (commandIndex === Command.angle)
                pageCK_ContentArea01.sendAngle()
            else
                sections.find(function (section) { return section.command === commandIndex }).send(null)
            mainObject.setRefreshTimer(true)
        }
    }

    Connections {
        target: mainObject

        onRefreshBKColorAdjust: {
            colorDialog.color = colorString
            ckColorR = r
            ckColorG = g
            ckColorB = b
            colorPickerR = r
            colorPickerG = g
            colorPickerB = b
            colorBKH = h
            colorBKS = s
            colorBKL = l
        }

        onRefreshCKDark: pageCK_ContentArea02.report(enable, level, density, balance)
        onRefreshCKBright: pageCK_ContentArea03.report(enable, level, density, balance)

        onRefreshCKShadow: {
            shadow.sliderValue = shadowValue
            pageCK_ContentArea04.show(enable)
        }
    }

    Connections {
        target: qmlTranslator

        // The resets and the automatic key show their normal faces whatever the switches say; the next
        // report puts them right.
        onLanguageChanged: {
            sourcePath = Pictures.folder(qmlTranslator.currentLanguage())
            sections.forEach(function (section) { section.showReset("n") })
            pageCK_ContentArea01.showAuto("n")
            console.log("onLanguageChanged(chromakey)")
        }
    }

    // Never shown: it holds the page's current colour.
    ColorDialog {
        id: colorDialog
        modality: Qt.WindowModal
        title: "Choose a color"
        color: "#00FF00"
        onAccepted: {
            mainObject.setBKColor(color, 0)
            recColorAdjust.color = color
        }
    }

    DarkScrollView {
        id: scrollContent
        x: 30
        y: 10
        width: 1140
        height: 610
        barX: pageCK_ContentArea01.width + 14
        contentWidth: 1110
        contentHeight: sections.reduce(function (sum, section) { return sum + section.height }, 0)

        Column {
            MatteSection {
                id: pageCK_ContentArea01
                onPick: popupColorPicker.pick()
            }

            StageSection {
                id: pageCK_ContentArea02
                command: Command.dark
                openHeight: darkDensity.visible ? 296 : 150
                title: qsTr("Dark Enhancement") + qmlTranslator.e_str
                level.title: qsTr("Dark Level:") + qmlTranslator.e_str
                density.title: qsTr("Dark Density:") + qmlTranslator.e_str
                balance.title: qsTr("Dark Balance:") + qmlTranslator.e_str
                balance.sliderTextLeftText: qsTr("Dark") + qmlTranslator.e_str
                onSend: {
                    mainObject.setCKDark(switchedOn, level.value(typedRow), density.value(typedRow),
                                         balance.value(typedRow))
                }
                onRead: mainObject.getCKDark()
                onReset: mainObject.resetCKDark()
            }

            StageSection {
                id: pageCK_ContentArea03
                command: Command.bright
                // The dark section's hidden row decides here, as in the shadow section.
                openHeight: darkDensity.visible ? 296 : 150
                title: qsTr("Bright Enhancement") + qmlTranslator.e_str
                level.title: qsTr("Bright Level:") + qmlTranslator.e_str
                density.title: qsTr("Bright Density:") + qmlTranslator.e_str
                balance.title: qsTr("Bright Balance:") + qmlTranslator.e_str
                balance.sliderTextLeftText: qsTr("Bright") + qmlTranslator.e_str
                onSend: {
                    mainObject.setCKBright(switchedOn, level.value(typedRow), density.value(typedRow),
                                           balance.value(typedRow))
                }
                onRead: mainObject.getCKBright()
                onReset: mainObject.resetCKBright()
            }

            GroupSection {
                id: pageCK_ContentArea04
                height: 150
                command: Command.shadow
                openHeight: darkDensity.visible ? 296 : 150
                title: qsTr("Shadow Enhancement") + qmlTranslator.e_str
                rows: [shadow]
                onSend: mainObject.setCKShadow(switchedOn, shadow.value(typedRow))
                onRead: mainObject.getCKShadow()
                onReset: mainObject.resetCKShadow()

                GroupRow {
                    id: shadow
                    section: pageCK_ContentArea04
                    title: qsTr("Shadow:") + qmlTranslator.e_str
                }
            }

            SpillSection { id: pageCK_ContentArea05 }

            EdgeSection { id: pageCK_ContentArea06 }
        }
    }

    ColorPicker { id: popupColorPicker }
}
