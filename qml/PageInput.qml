import QtQuick 2.12
import "blocks"
import "blocks/Pictures.js" as Pictures

// What the unit sees on its inputs, the foreground source, the freezes and the genlock.
Item {
    id: pageInputItem

    property string sourcePath: Pictures.folder(qmlTranslator.currentLanguage())
    // One-shot guards. The first two swallow the first two index changes of the source combo, whoever caused
    // them (the combo's own step to its first entry is one); the others the first value written to a slider.
    property bool ignoreGenHRefresh: true
    property bool ignoreGenVRefresh: true
    property bool ignoreGenHInit: true
    property bool ignoreGenVInit: true
    property int commandIndex: 0
    // Start values that the sliders take while the document loads are no changes.
    property bool settling: true

    // Names that other documents and tests use.
    property alias genlockOn: pageInput_ContentGenlock.switchedOn
    property alias genlockFolded: pageInput_ContentGenlock.folded
    property alias pageInput_ContentHeaderGenlock: pageInput_ContentGenlock.header
    property alias foldAnimationGenlock: pageInput_ContentGenlock.foldAnimation
    property alias btnGenlockFolder: pageInput_ContentGenlock.foldButton
    property alias genlockTitle: pageInput_ContentGenlock.titleItem
    property alias btnGenlockSwitch: pageInput_ContentGenlock.switchButton
    property alias btnGenlockReset: pageInput_ContentGenlock.resetButton
    property alias itemOffset: pageInput_ContentGenlock.body
    property alias txtFGRes: fgLine.resolution
    property alias txtBGRes: bgLine.resolution
    property alias txtAuxRes: auxLine.resolution
    property alias txtSyncRes: syncLine.resolution
    property alias imgFGFreeze: fgLine.freezeSwitch
    property alias imgBGFreeze: bgLine.freezeSwitch
    property alias imgAUXFreeze: auxLine.freezeSwitch
    property alias freezeFG: fgLine.frozen
    property alias freezeBG: bgLine.frozen
    property alias freezeAUX: auxLine.frozen

    function sendInput() {
        mainObject.setVInSource(comboFGSource.currentIndex, 0, 0, freezeFG, freezeBG, freezeAUX, genlockOn,
                                horizontalOffset.sliderValue, verticalOffset.sliderValue)
    }

    function sendSoon(command) {
        mainObject.setRefreshTimer(false)
        commandIndex = command
        input_timerSliderCommand.start()
    }

    function showResolution(field, code) {
        if (code >= 0 && code <= 32)
            field.text = listResolution.get(code).modelData
    }

    anchors.leftMargin: 30
    Component.onCompleted: settling = false

    ListModel {
        id: listInputSource
        ListElement { name: "SDI" }
        ListElement { name: "HDMI" }
    }

    Column {
        padding: 10

        InputLine {
            Row {
                x: 20
                anchors.verticalCenter: parent.verticalCenter
                spacing: 100

                ColumnTitle { text: qsTr("Type") + qmlTranslator.e_str }
                ColumnTitle {
                    width: 150
                    text: qsTr("Source") + qmlTranslator.e_str
                }
                ColumnTitle { text: qsTr("Status") + qmlTranslator.e_str }
                ColumnTitle { text: qsTr("Freeze") + qmlTranslator.e_str }
            }
        }

        SignalLine {
            id: fgLine
            name: qsTr("FG") + qmlTranslator.e_str
            onSwitched: sendInput()

            MyComboBox {
                id: comboFGSource
                width: 150
                height: 32
                anchors.verticalCenter: parent.verticalCenter
                textRole: "name"
                model: listInputSource
                onCurrentIndexChanged: {
                    console.log("comboFGSource index changed:", currentIndex)
                    if (ignoreGenHRefresh) {
                        ignoreGenHRefresh = false
                        return
                    }
                    if (ignoreGenVRefresh) {
                        ignoreGenVRefresh = false
                        return
                    }
                    sendInput()
                    console.log("comboFGSource index changed BBB:", currentIndex)
                }
            }
        }

        SignalLine {
            id: bgLine
            name: qsTr("BG") + qmlTranslator.e_str
            onSwitched: sendInput()
        }

        SignalLine {
            id: auxLine
            name: qsTr("AUX") + qmlTranslator.e_str
            onSwitched: sendInput()
        }

        SignalLine {
            id: syncLine
            freezes: false
            name: qsTr("EXT.SYNC") + qmlTranslator.e_str
        }

        GroupSection {
            id: pageInput_ContentGenlock
            height: 75 * 3
            openHeight: 75 * 3
            contentVisible: !folded
            title: qsTr("Genlock") + qmlTranslator.e_str
            rows: [horizontalOffset, verticalOffset]
            onSend: sendInput()
            onReset: mainObject.resetGenlock()

            MyControlItem {
                id: horizontalOffset
                title: qsTr("Horizontal Offset:") + qmlTranslator.e_str
                sliderMin: -5500
                sliderMax: 5500
                onSliderValueChanged: {
                    if (settling)
                        return
                    console.log("Slider Changed")
                    if (ignoreGenHInit)
                        ignoreGenHInit = false
                    else
                        sendSoon(1)
                }
                onTextFieldChanged: sliderValue = itemText.number()
            }

            MyControlItem {
                id: verticalOffset
                title: qsTr("Vertical Offset:") + qmlTranslator.e_str
                sliderMin: -500
                sliderMax: 500
                onSliderValueChanged: {
                    if (settling)
                        return
                    console.log("Slider Changed")
                    if (ignoreGenVInit)
                        ignoreGenVInit = false
                    else
                        sendSoon(2)
                }
                onTextFieldChanged: sliderValue = itemText.number()
            }

            PanelText {
                id: txtGenlockStatus
                parent: pageInput_ContentHeaderGenlock
                x: btnGenlockSwitch.x + btnGenlockSwitch.width + 108
                y: 20
                width: 200
                text: qsTr("Unlocked") + qmlTranslator.e_str
            }
        }
    }

    Connections {
        target: mainObject

        onRefreshInputResolution: {
            showResolution(txtFGRes, fg)
            showResolution(txtBGRes, bg)
            showResolution(txtAuxRes, aux)
            showResolution(txtSyncRes, sync)
            // A binding and not a text, so that the word follows the language.
            var locked = genStatus !== 0
            txtGenlockStatus.text = Qt.binding(function() {
                return (locked ? qsTr("Locked") : qsTr("Unlocked")) + qmlTranslator.e_str
            })
        }

        onRefreshInputSource: comboFGSource.currentIndex = fg

        onRefreshInputFreeze: {
            freezeFG = fgFreeze
            freezeBG = bgFreeze
            freezeAUX = auxFreeze
        }

        onRefreshGenlock: {
            pageInput_ContentGenlock.show(gen !== 0)
            horizontalOffset.sliderValue = gen_h
            verticalOffset.sliderValue = gen_v
        }
    }

    Connections {
        target: qmlTranslator

        onLanguageChanged: {
            sourcePath = Pictures.folder(qmlTranslator.currentLanguage())
            console.log("onLanguageChanged(input)")
        }
    }

    // Started and never restarted: a long drag sends the latest position every 50 ms.
    Timer {
        id: input_timerSliderCommand
        interval: 50
        onTriggered: {
            mainObject.setRefreshTimer(false)
            sendInput()
        }
    }
}
