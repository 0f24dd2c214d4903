import QtQuick 2.12
import "blocks"
import "blocks/Pictures.js" as Pictures

// The rectangular garbage window: four edges in thousandths of the picture, border, invert.
Item {
    id: pageGarbageMaskItem

    property string sourcePath: Pictures.folder(qmlTranslator.currentLanguage())

    // Names that other documents and tests use.
    property alias windowOn: form.switchedOn
    property alias invertOn: form.invertOn
    property alias pageGM_ContentArea01: form
    property alias pageGM_ContentHeaderWindow: form.header
    property alias btnWindowFolder: form.foldButton
    property alias windowTitle: form.titleItem
    property alias btnWindowSwitch: form.switchButton
    property alias btnWindowSwitchImage: form.switchButton
    property alias btnWindowReset: form.resetButton
    property alias btnWindowResetImage: form.resetButton
    property alias windowLeft: form.leftRow
    property alias windowRight: form.rightRow
    property alias windowTop: form.topRow
    property alias windowBottom: form.bottomRow
    property alias windowBorder: form.borderRow
    property alias invertTitle: form.invertTitle
    property alias btnInvertSwitch: form.invertSwitch
    property alias btnInvertSwitchImage: form.invertSwitch
    property alias timerGMSliderCommand: form.throttle

    anchors.topMargin: 10
    anchors.leftMargin: 30
    width: 1160
    height: 610

    WindowForm {
        id: form
        title: qsTr("Garbage Window") + qmlTranslator.e_str
        leftRow.title: qsTr("Left:") + qmlTranslator.e_str
        rightRow.title: qsTr("Right:") + qmlTranslator.e_str
        topRow.title: qsTr("Top:") + qmlTranslator.e_str
        bottomRow.title: qsTr("Bottom:") + qmlTranslator.e_str
        borderRow.title: qsTr("Border:") + qmlTranslator.e_str
        invertTitle.text: qsTr("Invert:") + qmlTranslator.e_str
        onSend: {
            mainObject.setWindow(windowOn, invertOn, windowLeft.value(typedRow),
                                 windowRight.value(typedRow), windowTop.value(typedRow),
                                 windowBottom.value(typedRow), windowBorder.value(typedRow))
        }
        onRead: mainObject.getWindow()
        onReset: mainObject.resetWindow()
    }

    Connections {
        target: mainObject

        onRefreshWindow: form.report(enable, invert, left, right, top, bottom, border)
    }

    Connections {
        target: qmlTranslator

        onLanguageChanged: {
            sourcePath = Pictures.folder(qmlTranslator.currentLanguage())
            form.retranslate()
            console.log("onLanguageChanged(Garbage)")
        }
    }
}
