import QtQuick 2.12
import "blocks"
import "blocks/Pictures.js" as Pictures

// The rectangular holdout window: four edges in picture pixels up to 3840 x 2160, whatever the output
// format, border, invert.
Item {
    id: pageHoldoutWindowItem

    property string sourcePath: Pictures.folder(qmlTranslator.currentLanguage())

    // Names that other documents and tests use.
    property alias holdoutWindowOn: form.switchedOn
    property alias holdoutInvertOn: form.invertOn
    property alias pageGM_ContentArea01: form
    property alias pageGM_ContentHeaderWindow: form.header
    property alias btnWindowFolder: form.foldButton
    property alias windowTitle: form.titleItem
    property alias btnWindowSwitch: form.switchButton
    property alias btnWindowSwitchImage: form.switchButton
    property alias btnWindowReset: form.resetButton
    property alias btnWindowResetImage: form.resetButton
    property alias holdoutWindowLeft: form.leftRow
    property alias holdoutWindowRight: form.rightRow
    property alias holdoutWindowTop: form.topRow
    property alias holdoutWindowBottom: form.bottomRow
    property alias holdoutWindowBorder: form.borderRow
    property alias holdoutWindowInvertTitle: form.invertTitle
    property alias btnHoldoutWindowInvertSwitch: form.invertSwitch
    property alias btnHoldoutWindowInvertSwitchImage: form.invertSwitch
    property alias timerHWSliderCommand: form.throttle

    anchors.topMargin: 10
    anchors.leftMargin: 30
    width: 1160
    height: 610

    WindowForm {
        id: form
        lastX: 3840
        lastY: 2160
        title: qsTr("Holdout Window") + qmlTranslator.e_str
        leftRow.title: qsTr("Left:") + qmlTranslator.e_str
        rightRow.title: qsTr("Right:") + qmlTranslator.e_str
        topRow.title: qsTr("Top:") + qmlTranslator.e_str
        bottomRow.title: qsTr("Bottom:") + qmlTranslator.e_str
        borderRow.title: qsTr("Border:") + qmlTranslator.e_str
        invertTitle.text: qsTr("Invert:") + qmlTranslator.e_str
        onSend: {
            if (typedRow === holdoutWindowLeft)
                console.log("on Left TExtFieldChanged", typedRow.textValue, typedRow.title)
            mainObject.setHoldoutWindow(holdoutWindowOn, holdoutInvertOn,
                                        holdoutWindowLeft.value(typedRow),
                                        holdoutWindowRight.value(typedRow),
                                        holdoutWindowTop.value(typedRow),
                                        holdoutWindowBottom.value(typedRow),
                                        holdoutWindowBorder.value(typedRow))
        }
        onRead: mainObject.getHoldoutWindow()
        onReset: mainObject.resetHoldoutWindow()
    }

    Connections {
        target: mainObject

        onRefreshHoldoutWindow: form.report(enable, invert, left, right, top, bottom, border)
    }

    Connections {
        target: qmlTranslator

        onLanguageChanged: {
            sourcePath = Pictures.folder(qmlTranslator.currentLanguage())
            form.retranslate()
            console.log("onLanguageChanged(Holdout)")
        }
    }
}
