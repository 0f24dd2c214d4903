import QtQuick 2.12
import QtQuick.Controls 2.5
import "blocks"
import "blocks/Pictures.js" as Pictures

// What the unit sees on its inputs, the foreground source, the freezes and the genlock.
Item {
    id: pageInputItem

    property string sourcePath: Pictures.folder(qmlTranslator.currentLanguage())
    property bool freezeFG: false
    property bool freezeBG: false
    property bool freezeAUX: false
    property bool genlockOn: true
    property bool genlockFolded: false
    // One-shot guards. The first two swallow the first two index changes of the source combo, whoever caused
    // them (the combo's own step to its first entry is one); the others the first value written to a slider.
    property bool ignoreGenHRefresh: true
    property bool ignoreGenVRefresh: true
    property bool ignoreGenHInit: true
    property bool ignoreGenVInit: true
    property int commandIndex: 0
    // Start values that the sliders take while the document loads are no changes.
    property bool started: false

    function sendInput() {
        mainObject.setVInSource(comboFGSource.currentIndex, 0, 0, freezeFG, freezeBG, freezeAUX, genlockOn,
                                horizontalOffset.sliderValue, verticalOffset.sliderValue)
    }

    function sendSoon(command) {
        mainObject.setRefreshTimer(false)
        commandIndex = command
        input_timerSliderCommand.start()
    }

    function showGenlock(on) {
        horizontalOffset.enableItem(on)
        verticalOffset.enableItem(on)
        btnGenlockReset.enabled = on
    }

    function showResolution(field, code) {
        if (code >= 0 && code <= 32)
            field.text = listResolution.get(code).modelData
    }

    anchors.leftMargin: 30
    Component.onCompleted: started = true

    ListModel {
        id: listInputSource
        ListElement { name: "SDI" }
        ListElement { name: "HDMI" }
    }

    Column {
        padding: 10

        // Headers
        InputLine {
            Row {
                x: 20
                anchors.verticalCenter: parent.verticalCenter
                spacing: 100

                PanelText {
                    width: 100
                    color: "#788194"
                    font.bold: true
                    text: qsTr("Type") + qmlTranslator.e_str
                }
                PanelText {
                    width: 150
                    color: "#788194"
                    font.bold: true
                    text: qsTr("Source") + qmlTranslator.e_str
                }
                PanelText {
                    width: 100
                    color: "#788194"
                    font.bold: true
                    text: qsTr("Status") + qmlTranslator.e_str
                }
                PanelText {
                    width: 100
                    color: "#788194"
                    font.bold: true
                    text: qsTr("Freeze") + qmlTranslator.e_str
                }
            }
        }

        // Foreground
        InputLine {
            Row {
                x: 20
                anchors.verticalCenter: parent.verticalCenter
                spacing: 100

                PanelText {
                    width: 100
                    text: qsTr("FG") + qmlTranslator.e_str
                }
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
                PanelText {
                    id: txtFGRes
                    width: 100
                    text: "1080p59"
                }
                Image {
                    id: imgFGFreeze
                    anchors.verticalCenter: parent.verticalCenter
                    source: sourcePath + Pictures.switchFace(freezeFG)

                    MouseArea {
                        anchors.fill: parent
                        onClicked: {
                            freezeFG = !freezeFG
                            sendInput()
                        }
                    }
                }
            }
        }

        // Background
        InputLine {
            Row {
                x: 20
                anchors.verticalCenter: parent.verticalCenter
                spacing: 100

                PanelText {
                    width: 100
                    text: qsTr("BG") + qmlTranslator.e_str
                }
                Item {
                    width: 150
                    height: 34
                }
                PanelText {
                    id: txtBGRes
                    width: 100
                    text: "1080p59"
                }
                Image {
                    id: imgBGFreeze
                    anchors.verticalCenter: parent.verticalCenter
                    source: sourcePath + Pictures.switchFace(freezeBG)

                    MouseArea {
                        anchors.fill: parent
                        onClicked: {
                            freezeBG = !freezeBG
                            sendInput()
                        }
                    }
                }
            }
        }

        // Auxiliary
        InputLine {
            Row {
                x: 20
                anchors.verticalCenter: parent.verticalCenter
                spacing: 100

                PanelText {
                    width: 100
                    text: qsTr("AUX") + qmlTranslator.e_str
                }
                Item {
                    width: 150
                    height: 34
                }
                PanelText {
                    id: txtAuxRes
                    width: 100
                    text: "1080p59"
                }
                Image {
                    id: imgAUXFreeze
                    anchors.verticalCenter: parent.verticalCenter
                    source: sourcePath + Pictures.switchFace(freezeAUX)

                    MouseArea {
                        anchors.fill: parent
                        onClicked: {
                            freezeAUX = !freezeAUX
                            sendInput()
                        }
                    }
                }
            }
        }

        // External sync
        InputLine {
            Row {
                x: 20
                anchors.verticalCenter: parent.verticalCenter
                spacing: 100

                PanelText {
                    width: 100
                    text: qsTr("EXT.SYNC") + qmlTranslator.e_str
                }
                Item {
                    width: 150
                    height: 34
                }
                PanelText {
                    id: txtSyncRes
                    width: 100
                    text: "1080p59"
                }
            }
        }

        // Genlock
        Item {
            id: pageInput_ContentGenlock

            function foldTo(h) {
                foldAnimationGenlock.to = h
                foldAnimationGenlock.restart()
            }

            width: 1110
            height: 75 * 3
            clip: true

            NumberAnimation {
                id: foldAnimationGenlock
                target: pageInput_ContentGenlock
                property: "height"
                duration: 200
            }

            InputLine {
                id: pageInput_ContentHeaderGenlock

                FoldButton {
                    id: btnGenlockFolder
                    folded: genlockFolded
                    onClicked: {
                        pageInput_ContentGenlock.foldTo(genlockFolded ? 75 * 3
                                                                      : pageInput_ContentHeaderGenlock.height)
                        genlockFolded = !genlockFolded
                    }
                }

                SectionTitle {
                    id: genlockTitle
                    text: qsTr("Genlock") + qmlTranslator.e_str
                }

                FaceButton {
                    id: btnGenlockSwitch
                    anchors.left: genlockTitle.right
                    anchors.leftMargin: 50
                    anchors.verticalCenter: parent.verticalCenter
                    source: sourcePath + Pictures.switchFace(genlockOn)
                    onClicked: {
                        showGenlock(!genlockOn)
                        genlockOn = !genlockOn
                        sendInput()
                    }
                }

                PanelText {
                    id: txtGenlockStatus
                    anchors.left: btnGenlockSwitch.right
                    anchors.leftMargin: 108
                    anchors.verticalCenter: parent.verticalCenter
                    width: 200
                    text: qsTr("Unlocked") + qmlTranslator.e_str
                }

                FaceButton {
                    id: btnGenlockReset
                    anchors.right: parent.right
                    anchors.rightMargin: 20
                    anchors.verticalCenter: parent.verticalCenter
                    source: sourcePath + (pressed ? "btn_p_reset_dashboard.png" : Pictures.resetFace(enabled))
                    onPressedChanged: {
                        if (!pressed)
                            mainObject.resetGenlock()
                    }
                }
            }

            Item {
                id: itemOffset
                anchors.top: pageInput_ContentHeaderGenlock.bottom
                width: 1110
                height: 74 * 2
                visible: !genlockFolded
                enabled: genlockOn && !genlockFolded

                Column {
                    MyControlItem {
                        id: horizontalOffset
                        title: qsTr("Horizontal Offset:") + qmlTranslator.e_str
                        sliderMin: -5500
                        sliderMax: 5500
                        onSliderValueChanged: {
                            if (!started)
                                return
                            console.log("Slider Changed")
                            if (ignoreGenHInit)
                                ignoreGenHInit = false
                            else
                                sendSoon(1)
                        }
                        onTextFieldChanged: sliderValue = parseInt(textValue)
                    }
                    MyControlItem {
                        id: verticalOffset
                        title: qsTr("Vertical Offset:") + qmlTranslator.e_str
                        sliderMin: -500
                        sliderMax: 500
                        onSliderValueChanged: {
                            if (!started)
                                return
                            console.log("Slider Changed")
                            if (ignoreGenVInit)
                                ignoreGenVInit = false
                            else
                                sendSoon(2)
                        }
                        onTextFieldChanged: sliderValue = parseInt(textValue)
                    }
                }
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
            genlockOn = gen !== 0
            showGenlock(genlockOn)
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
