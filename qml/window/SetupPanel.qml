import QtQuick 2.12
import ".."
import "../blocks"
import "../blocks/Pictures.js" as Pictures

// The setup panel: output format, versions, factory default. What is chosen here is sent by Save.
PopupFrame {
    property alias setupForm: setupForm
    property alias imgSetupAutoOutRes: imgSetupAutoOutRes
    property alias comboSetupVOutRes: comboSetupVOutRes
    property alias comboSetupVOutOutputFormat: comboSetupVOutOutputFormat
    property alias txtFWVersion: txtFWVersion
    property alias txtFPGAVersion: txtFPGAVersion
    property alias txtBLVersion: txtBLVersion
    property alias btnSetupFactoryDefault: btnSetupFactoryDefault
    property alias btnSetupSave: btnSetupSave
    property alias popupFactoryDefault: popupFactoryDefault
    property alias btnFactoryCancel: btnFactoryCancel
    property alias btnFactoryReset: btnFactoryReset
    property alias popupSetupSaveFinished: popupSetupSaveFinished
    property alias popupSetupFactoryReset: popupSetupFactoryReset

    // A choice that is being made must not be overwritten by a poll.
    function holdPoll() {
        if (!settling)
            mainObject.setRefreshTimer(false)
    }

    source: "qrc:/img/pc/img_bg_setup.png"
    width: 500
    height: 450
    title: qsTranslate("main", "SETUP") + qmlTranslator.e_str
    onClosed: {
        recHeader.setupClosed()
        mainObject.setRefreshTimer(true)
        console.log("Popup Setup Closed!")
    }

    Item {
        id: setupForm
        anchors.fill: parent

        Column {
            anchors { top: parent.top; topMargin: 72 }
            spacing: 20

            FormRow {
                title: qsTranslate("main", "Auto Output Resolution") + qmlTranslator.e_str; titleWidth: 200
                titleColor: "#F4AE23"

                Image {
                    id: imgSetupAutoOutRes
                    anchors.verticalCenter: parent.verticalCenter
                    source: sourcePath + Pictures.switchFace(autoOutputRes)

                    PressArea {
                        onClicked: {
                            mainObject.setRefreshTimer(false)
                            autoOutputRes = !autoOutputRes
                            comboSetupVOutRes.enabled = !autoOutputRes
                            console.log("AutoOutRes:", autoOutputRes)
                        }
                    }
                }
            }

            FormRow {
                title: qsTranslate("main", "Output Resolution") + qmlTranslator.e_str; titleWidth: 200
                titleColor: comboSetupVOutRes.enabled ? Look.normal : "#999999"

                MyComboBox {
                    id: comboSetupVOutRes
                    width: 216; height: 32
                    textRole: "modelData"
                    model: listOutputResolution
                    enabled: !autoOutputRes
                    onCurrentIndexChanged: holdPoll()
                }
            }

            FormRow {
                title: qsTranslate("main", "HDMI Output Format") + qmlTranslator.e_str; titleWidth: 200

                MyComboBox {
                    id: comboSetupVOutOutputFormat
                    width: 216; height: 32
                    textRole: "modelData"
                    model: listOutputFormat
                    onCurrentIndexChanged: holdPoll()
                }
            }

            FormRow {
                title: qsTranslate("main", "FW Version") + qmlTranslator.e_str; titleWidth: 200

                FormLabel { id: txtFWVersion; leftPadding: 6; text: "v0.0"; color: "#727272" }
            }

            FormRow {
                title: qsTranslate("main", "FPGA Version") + qmlTranslator.e_str; titleWidth: 200

                FormLabel { id: txtFPGAVersion; leftPadding: 6; text: "v0.0"; color: "#727272" }
            }

            FormRow {
                title: qsTranslate("main", "Bootloader Version") + qmlTranslator.e_str; titleWidth: 200

                FormLabel { id: txtBLVersion; leftPadding: 6; text: "v0.0"; color: "#727272" }
            }
        }

        // A picture has no "pressed", so the pressed face never shows. It stays so: a reset is confirmed in
        // the notice, not felt on this button.
        Image {
            id: btnSetupFactoryDefault
            x: 20; y: 394
            source: sourcePath + (btnSetupFactoryDefault.pressed ? "btn_p_default_setup.png"
                                                                 : "btn_n_default_setup.png")

            PressArea {
                onClicked: {
                    console.log("Language source path:", sourcePath)
                    popupFactoryDefault.open()
                }
            }
        }

        FaceButton {
            id: btnSetupSave
            x: 370; y: 394
            source: sourcePath + (pressed ? "btn_p_save_connect.png" : "btn_n_save_connect.png")
            onClicked: {
                enabled = false
                mainObject.setVOut(listOutputResolution.get(comboSetupVOutRes.currentIndex).value,
                                   comboSetupVOutOutputFormat.currentIndex, autoOutputRes ? 1 : 0)
                mainObject.saveSetup()
                popupSetupSaveFinished.open()
                enabled = true
                mainObject.setRefreshTimer(true)
            }
        }

        NoticeShell {
            id: popupFactoryDefault
            heading: qsTranslate("main", "Factory Default") + qmlTranslator.e_str
            sign: "qrc:/img/pc/img_notify_question.png"

            NoticeText {
                id: txtFactoryDefault
                text: qsTranslate("main", "Do you want to reset factory default?") + qmlTranslator.e_str
            }

            FaceButton {
                id: btnFactoryCancel
                anchors { top: txtFactoryDefault.bottom; topMargin: 50; left: parent.left; leftMargin: 100 }
                focus: true
                source: sourcePath + (pressed ? "btn_p_cancel_adjust_color.png"
                                              : "btn_n_cancel_adjust_color.png")
                onClicked: popupFactoryDefault.close()
            }

            FaceButton {
                id: btnFactoryReset
                anchors { top: btnFactoryCancel.top; right: parent.right; rightMargin: 100 }
                source: sourcePath + (pressed ? "btn_p_reset_dashboard.png" : "btn_n_reset_dashboard.png")
                onClicked: {
                    mainObject.loadMemory(0)
                    popupFactoryDefault.close()
                    popupSetupFactoryReset.open()
                }
            }
        }

        // The two results say so unconditionally: the facade reports none.
        ResultNotice {
            id: popupSetupSaveFinished
            heading: qsTranslate("main", "SETUP SAVE") + qmlTranslator.e_str
            message: qsTranslate("main", "Save Successfully") + qmlTranslator.e_str
        }

        ResultNotice {
            id: popupSetupFactoryReset
            heading: qsTranslate("main", "FACTORY RESET") + qmlTranslator.e_str
            message: qsTranslate("main", "Reset Successfully") + qmlTranslator.e_str
        }
    }

    Connections {
        target: mainObject

        onShowVersion: {
            txtFWVersion.text = "v" + fwversion
            txtFPGAVersion.text = "v" + fpgaversion
            txtBLVersion.text = "v" + blversion
        }

        onShowVout: {
            var resolution = comboSetupVOutRes.currentIndex
            var format = comboSetupVOutOutputFormat.currentIndex
            comboSetupVOutRes.currentIndex = findListOutputResolutionIndex(res)
            comboSetupVOutOutputFormat.currentIndex = colorformat
            autoOutputRes = std !== 0
            comboSetupVOutRes.enabled = !autoOutputRes
            // Both combos hold the poll at every change, one that the unit reports included. With the panel
            // closed nobody is choosing, and the poll is the only watch over the link: it goes on.
            var held = resolution !== comboSetupVOutRes.currentIndex
                    || format !== comboSetupVOutOutputFormat.currentIndex
            if (held && !popupSetup.visible && mainObject.isConnected())
                mainObject.setRefreshTimer(true)
        }
    }
}
