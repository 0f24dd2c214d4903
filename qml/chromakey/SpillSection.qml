import QtQuick 2.12
import QtQuick.Templates 2.5 as T
import "../blocks"
import "Command.js" as Command

// Spill suppression: three defaults of the unit, and the values that it or the operator starts from there.
// The enhance row and both check boxes show nowhere, but travel in every command.
GroupSection {
    id: spillSection

    property var spillDefault: 0
    property alias txtDefaultBrightLevel: txtDefaultBrightLevel
    property alias btnSpillLowImage: btnSpillLowImage
    property alias btnSpillMidImage: btnSpillMidImage
    property alias btnSpillHighImage: btnSpillHighImage
    property alias checkboxSpillSup: checkboxSpillSup
    property alias spillSuppression: spillSuppression
    property alias spillEnhance: spillEnhance
    property alias checkboxVivid: checkboxVivid
    property alias spillBalance: spillBalance
    property alias edgeBrightness: edgeBrightness

    function restore() {
        mainObject.resetCKSpillBright(spillDefault, checkboxSpillSup.checked)
    }

    function face(value, name) {
        return sourcePath + (spillDefault === value ? "btn_p_" : "btn_n_") + name + "_chromakey.png"
    }

    function choose(value) {
        if (spillDefault === value)
            return
        commandIndex = Command.spill
        spillDefault = value
        restore()
    }

    height: spillEnhance.visible ? 470 : 370
    // The section gains 50 with its first unfolding.
    openHeight: spillEnhance.visible ? 520 : 420
    command: Command.spill
    title: qsTranslate("PageChromakey", "Spill Suppression") + qmlTranslator.e_str
    hasSwitch: false
    onSend: {
        var values = [spillSuppression, spillEnhance, spillBalance, edgeBrightness].map(function (row) {
            return row.value(typedRow)
        })
        if (typedRow)
            console.log("onTExtFieldChanged", values[0], values[1], values[2], values[3])
        mainObject.setCKSpillBright(values[0], values[1], values[2], values[3], checkboxVivid.checked ? 1 : 0,
                                    spillDefault, checkboxSpillSup.checked, checkboxVivid.checked)
    }
    onRead: mainObject.getCKSpillBright()
    onReset: restore()

    Connections {
        target: mainObject

        onRefreshCKSpill: {
            spillDefault = spillDefButton
            spillSuppression.sliderValue = spillSuppressionValue
            spillEnhance.sliderValue = spillEnhanceValue
            spillBalance.sliderValue = spillBalanceValue
            edgeBrightness.sliderValue = edgeBrightnessValue
            checkboxSpillSup.checked = Boolean(spillSupEnhanceValue)
            checkboxVivid.checked = Boolean(vividValue)
        }
    }

    InputLine {
        PanelText {
            id: txtDefaultBrightLevel
            x: 48
            y: 20
            text: qsTranslate("PageChromakey", "Default:") + qmlTranslator.e_str
        }

        ClickImage {
            id: btnSpillLowImage
            x: 238
            y: 19
            source: face(0, "spill_low")
            onClicked: choose(0)
        }

        ClickImage {
            id: btnSpillMidImage
            x: 340
            y: 19
            source: face(1, "spill_mid")
            onClicked: choose(1)
        }

        ClickImage {
            id: btnSpillHighImage
            x: 442
            y: 19
            source: face(2, "spill_high")
            onClicked: choose(2)
        }

        T.CheckBox {
            id: checkboxSpillSup
            x: 572
            visible: false
            text: qsTranslate("PageChromakey", "Enhance") + qmlTranslator.e_str
            onCheckedChanged: {
                commandIndex = Command.spill
                restore()
            }
        }
    }

    GroupRow {
        id: spillSuppression
        section: spillSection
        title: qsTranslate("PageChromakey", "Spill Suppression:") + qmlTranslator.e_str
    }

    GroupRow {
        id: spillEnhance
        section: spillSection
        visible: false
        title: qsTranslate("PageChromakey", "Spill Enhance:") + qmlTranslator.e_str

        T.CheckBox {
            id: checkboxVivid
            x: 880
            visible: false
            text: qsTranslate("PageChromakey", "Vivid") + qmlTranslator.e_str
            onCheckedChanged: sendSoon(Command.spill)
        }
    }

    GroupRow {
        id: spillBalance
        section: spillSection
        sliderTextLeftText: qsTranslate("PageChromakey", "Cool") + qmlTranslator.e_str
        sliderTextRightText: qsTranslate("PageChromakey", "Warm") + qmlTranslator.e_str
        title: qsTranslate("PageChromakey", "Spill Balance:") + qmlTranslator.e_str
    }

    GroupRow {
        id: edgeBrightness
        section: spillSection
        title: qsTranslate("PageChromakey", "Edge Brightness:") + qmlTranslator.e_str
    }
}
