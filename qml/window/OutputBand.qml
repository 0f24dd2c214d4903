import QtQuick 2.12
import ".."
import "../blocks"

// The band above the pages: the routing of the outputs, and the user memories.
Image {
    id: outputBand

    property alias pgmSdi: pgmSdi
    property alias pgmHdmi: pgmHdmi
    property alias pvw: pvw
    property alias outputTitleUserMem: outputTitleUserMem
    property alias outputTitleUserMemOp: outputTitleUserMemOp
    property alias comboUserMem: comboUserMem
    property alias outputMemoryLoad: outputMemoryLoad
    property alias outputMemorySave: outputMemorySave
    property alias outputMemoryLock: outputMemoryLock
    readonly property var sources: [qsTranslate("main", "FG") + qmlTranslator.e_str,
                                    qsTranslate("main", "BG") + qmlTranslator.e_str,
                                    qsTranslate("main", "AUX") + qmlTranslator.e_str,
                                    qsTranslate("main", "Matte") + qmlTranslator.e_str,
                                    qsTranslate("main", "PFG") + qmlTranslator.e_str,
                                    qsTranslate("main", "Comp") + qmlTranslator.e_str]

    // PVW SDI and PVW HDMI are driven by one group of controls, so its three values go out twice.
    function sendRouting() {
        mainObject.setOutSelect(pgmSdi.combo.currentIndex + 1, pgmSdi.lock.checked, pgmSdi.mirror.checked,
                                pvw.combo.currentIndex + 1, pvw.lock.checked, pvw.mirror.checked,
                                pgmHdmi.combo.currentIndex + 1, pgmHdmi.lock.checked, pgmHdmi.mirror.checked,
                                pvw.combo.currentIndex + 1, pvw.lock.checked, pvw.mirror.checked)
    }

    // A control cannot tell the facade's write from the operator's hand; the flag marks the write.
    function routingChanged() {
        if (settling)
            return
        if (!ignoreThisRefresh)
            sendRouting()
        ignoreThisRefresh = false
    }

    // The command runs from the click, which comes with the same release: when the screen next draws, the
    // text is true.
    function showWork(pressed) {
        var text = pressed ? qsTranslate("main", "Setting up...") : qsTranslate("main", "Setting completed.")
        outputTitleUserMemOp.text = text + qmlTranslator.e_str
    }

    source: "qrc:/img/pc/img_bg_output_dashboard.png"

    Row {
        anchors { left: parent.left; leftMargin: imgMenu.width }
        y: 8
        spacing: 40

        RoutingGroup {
            id: pgmSdi
            title: qsTranslate("main", "PGM(SDI):") + qmlTranslator.e_str
            sources: outputBand.sources
            onChosen: console.log("pgmsdi index changed. ignorethisRefresh=", ignoreThisRefresh)
            onTouched: routingChanged()
        }

        RoutingGroup {
            id: pgmHdmi
            title: qsTranslate("main", "PGM(HDMI):") + qmlTranslator.e_str
            sources: outputBand.sources
            onChosen: console.log("pgmhdmi index changed")
            onTouched: routingChanged()
        }

        RoutingGroup {
            id: pvw
            title: qsTranslate("main", "PVW (SDI/HDMI):") + qmlTranslator.e_str
            sources: outputBand.sources
            onChosen: console.log("pvw index changed")
            onTouched: routingChanged()
        }

        OutputGroup {
            titles: [
                OutputTitle {
                    id: outputTitleUserMem
                    text: qsTranslate("main", "User Memory:") + qmlTranslator.e_str
                },
                OutputTitle { id: outputTitleUserMemOp }
            ]

            MyComboBox {
                id: comboUserMem

                readonly property string word: qsTranslate("main", "User") + qmlTranslator.e_str

                width: 95; height: 30
                enabled: !memoryLock
                model: [word + " 1", word + " 2", word + " 3", word + " 4",
                        word + " 5", word + " 6", word + " 7", word + " 8"]
                onCurrentIndexChanged: outputTitleUserMemOp.text = ""
            }

            FaceButton {
                id: outputMemoryLoad
                enabled: !memoryLock
                opacity: enabled ? 1.0 : 0.45
                source: sourcePath + (pressed ? "btn_p_load_usermemory.png" : "btn_n_load_usermemory.png")
                onPressedChanged: showWork(pressed)
                onClicked: mainObject.loadMemory(comboUserMem.currentIndex + 1)
            }

            FaceButton {
                id: outputMemorySave
                enabled: !memoryLock
                opacity: enabled ? 1.0 : 0.45
                source: sourcePath + (pressed ? "btn_p_save_usermemory.png" : "btn_n_save_usermemory.png")
                onPressedChanged: showWork(pressed)
                onClicked: mainObject.saveMemory(comboUserMem.currentIndex + 1)
            }

            Image {
                id: outputMemoryLock
                source: memoryLock ? "qrc:/img/pc/icon_lock_output.png" : "qrc:/img/pc/icon_unlock_output.png"

                PressArea {
                    onPressedChanged: {
                        if (pressed)
                            outputTitleUserMemOp.text = ""
                        else
                            memoryLock = !memoryLock
                    }
                }
            }
        }
    }

    Connections {
        target: mainObject

        onRefreshOutputSourcePGM: pgmSdi.show(source, lock, mirror)
        onRefreshOutputSourcePGMHDMI: pgmHdmi.show(source, lock, mirror)
        onRefreshOutputSourcePVW: pvw.show(source, lock, mirror)
        onRefreshOutputSourcePVWHDMI: {
            // The PVW group shows the SDI side; the HDMI side is set from the same controls.
        }

        onRefreshUserMemory: {
            console.log("RefreshUserMemory:", index - 1)
            comboUserMem.currentIndex = index === 0 || index > 8 ? 0 : index - 1
        }
    }
}
