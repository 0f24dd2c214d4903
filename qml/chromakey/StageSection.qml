import QtQuick 2.12
import "../blocks"

// The stage that lifts the key in the dark or the bright parts of the picture. Density and balance show no
// row, but travel with the level in every command.
//
// Properties: level, density, balance (rows, whose words come from the page).
// Functions:  report(enable, level, density, balance) shows what the unit reports.
GroupSection {
    id: stage

    property alias level: level
    property alias density: density
    property alias balance: balance

    function report(enable, levelValue, densityValue, balanceValue) {
        level.sliderValue = levelValue
        density.sliderValue = densityValue
        balance.sliderValue = balanceValue
        show(enable)
    }

    height: density.visible ? 296 : 150
    rows: [level, density, balance]

    GroupRow {
        id: level
        section: stage
    }

    GroupRow {
        id: density
        section: stage
        visible: false
    }

    GroupRow {
        id: balance
        section: stage
        visible: false
        sliderMax: 100
        sliderTextRightText: qsTranslate("PageChromakey", "Middle") + qmlTranslator.e_str
    }
}
