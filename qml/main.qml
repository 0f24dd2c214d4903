import QtQuick 2.12
import QtQuick.Templates 2.5 as T
import "blocks"
import "blocks/Pictures.js" as Pictures
import "window"

// The panel's window: its state, the parts that it is put together from, and what concerns several of them.
// The parts stand in window/, what has no words in blocks/. Texts of the parts keep the context "main".
T.ApplicationWindow {
    id: mainWindow

    // ---------------------------------------------------------------- state

    property int tabPageID: 1
    property int countDown: 5
    property int notifier: 1
    property bool btnConnectClicked: false
    property bool btnSetupClicked: false
    property bool ignoreThisRefresh: false
    property bool didScan: true
    property bool hlnpNetHostnameChned: false
    property bool hlnpNetDHCPModeChned: false
    property bool hlnpNetIPAddrChned: false
    property bool hlnpNetMaskChned: false
    property bool hlnpNetGatewayChned: false
    property bool hlnpNetPrimdnsChned: false
    property bool hlnpNetSecdnsChned: false
    property bool memoryLock: true
    property bool ipAddrError: false
    property bool errorColored: false
    property bool autoOutputRes: false
    property string sourcePath: Pictures.folder(qmlTranslator.currentLanguage())
    property int btnFontSize: 20

    // True while the document loads or a language switch replaces models: an index that moves then is
    // nobody's choice, and none of it may reach the unit.
    property bool settling: true

    // ---------------------------------------------------------------- names that others use

    // By other documents and by the tests. An alias reaches into a part and no deeper; what lies deeper is
    // named by the object itself.
    property alias comboMainLanguage: recHeader.comboMainLanguage
    property alias btnSetup: recHeader.btnSetup
    property alias btnConnect: recHeader.btnConnect

    readonly property Item outputTitlePGMSDI: recOutput.pgmSdi.titleText
    readonly property Item comboPgmSdiOutput: recOutput.pgmSdi.combo
    readonly property Item checkboxPGMSDI: recOutput.pgmSdi.mirror
    readonly property Item btnLockPGMSDI: recOutput.pgmSdi.lock
    readonly property Item outputTitlePGMHDMI: recOutput.pgmHdmi.titleText
    readonly property Item comboPgmHdmiOutput: recOutput.pgmHdmi.combo
    readonly property Item checkboxPGMHDMI: recOutput.pgmHdmi.mirror
    readonly property Item btnLockPGMHDMI: recOutput.pgmHdmi.lock
    readonly property Item outputTitlePVW: recOutput.pvw.titleText
    readonly property Item comboPvwOutput: recOutput.pvw.combo
    readonly property Item checkboxPVW: recOutput.pvw.mirror
    readonly property Item btnLockPVW: recOutput.pvw.lock
    property alias outputTitleUserMem: recOutput.outputTitleUserMem
    property alias outputTitleUserMemOp: recOutput.outputTitleUserMemOp
    property alias comboUserMem: recOutput.comboUserMem
    property alias outputMemoryLoad: recOutput.outputMemoryLoad
    property alias outputMemorySave: recOutput.outputMemorySave
    property alias outputMemoryLock: recOutput.outputMemoryLock

    property alias maskbusy: popupMask.maskbusy
    property alias guideArrow: popupMask.guideArrow
    property alias maskBusyTimer: popupMask.maskBusyTimer

    property alias txtWarningMsg: popupWarning.txtWarningMsg
    property alias btnWarningReconnect: popupWarning.btnWarningReconnect
    property alias txtWarningReconnect: popupWarning.txtWarningReconnect
    property alias btnWarningConfig: popupWarning.btnWarningConfig
    property alias txtWarningConfig: popupWarning.txtWarningConfig

    property alias connectForm: popupConnect.connectForm
    property alias comboConnectInterface: popupConnect.comboConnectInterface
    property alias labelConnectComPort: popupConnect.labelConnectComPort
    property alias comboConnectComPort: popupConnect.comboConnectComPort
    property alias imgConnectScan: popupConnect.imgConnectScan
    property alias comboIPSelect: popupConnect.comboIPSelect
    readonly property Item txtHostname: popupConnect.networkForm.txtHostname
    readonly property Item txtMacaddr: popupConnect.networkForm.txtMacaddr
    property alias labelHint: popupConnect.labelHint
    readonly property Item comboAddrmode: popupConnect.networkForm.comboAddrmode
    readonly property Item txtIPAddr: popupConnect.networkForm.txtIPAddr
    property alias labelIPAddrError: popupConnect.labelIPAddrError
    readonly property Item txtNetmask: popupConnect.networkForm.txtNetmask
    readonly property Item txtGateway: popupConnect.networkForm.txtGateway
    readonly property Item txtPrimdns: popupConnect.networkForm.txtPrimdns
    readonly property Item txtSecdns: popupConnect.networkForm.txtSecdns
    property alias btnConnectConnect: popupConnect.btnConnectConnect
    property alias btnConnectDisconnect: popupConnect.btnConnectDisconnect
    property alias msgConnect: popupConnect.msgConnect
    property alias btnConnectReset: popupConnect.btnConnectReset
    property alias btnConnectSave: popupConnect.btnConnectSave
    property alias popupDisConnect: popupConnect.popupDisConnect
    readonly property QtObject notifyTimer: popupConnect.popupDisConnect.notifyTimer
    readonly property Item txtDisconnectNotifyInfo: popupConnect.popupDisConnect.txtDisconnectNotifyInfo
    readonly property Item txtDisconnectNotifyInfoCountDown:
        popupConnect.popupDisConnect.txtDisconnectNotifyInfoCountDown

    property alias setupForm: popupSetup.setupForm
    property alias imgSetupAutoOutRes: popupSetup.imgSetupAutoOutRes
    property alias comboSetupVOutRes: popupSetup.comboSetupVOutRes
    property alias comboSetupVOutOutputFormat: popupSetup.comboSetupVOutOutputFormat
    property alias txtFWVersion: popupSetup.txtFWVersion
    property alias txtFPGAVersion: popupSetup.txtFPGAVersion
    property alias txtBLVersion: popupSetup.txtBLVersion
    property alias btnSetupFactoryDefault: popupSetup.btnSetupFactoryDefault
    property alias btnSetupSave: popupSetup.btnSetupSave
    property alias popupFactoryDefault: popupSetup.popupFactoryDefault
    property alias btnFactoryCancel: popupSetup.btnFactoryCancel
    property alias btnFactoryReset: popupSetup.btnFactoryReset
    property alias popupSetupSaveFinished: popupSetup.popupSetupSaveFinished
    readonly property Item btnSetupSaveFinished: popupSetup.popupSetupSaveFinished.button
    property alias popupSetupFactoryReset: popupSetup.popupSetupFactoryReset
    readonly property Item btnSetupFactoryReset: popupSetup.popupSetupFactoryReset.button

    // ---------------------------------------------------------------- what concerns more than one part

    function findListOutputResolutionIndex(res) {
        for (var i = 0; i < listOutputResolution.count; ++i) {
            if (listOutputResolution.get(i).value === res)
                return i
        }
        return 0
    }

    function selectPage(page) {
        tabPageID = page
        mainObject.setCurrentPage(tabPageID)
    }

    // By the keyboard, which goes to the first control of the page.
    function goToPage(page) {
        selectPage(page)
        var pages = [pageIN, pageCK, pagePP, pageGM, pageHW, pageAL]
        pages[page - 1].nextItemInFocusChain().forceActiveFocus(Qt.ShortcutFocusReason)
    }

    // The lists of these combos are translated: a switch replaces them and would leave each on its first
    // entry. The address mode has a translated entry as well; a unit with a fixed address stays one.
    function switchLanguage() {
        var wasSettling = settling
        settling = true
        var combos = [comboPgmSdiOutput, comboPgmHdmiOutput, comboPvwOutput, comboUserMem, comboAddrmode]
        var kept = combos.map(function (combo) { return combo.currentIndex })
        console.log("Language Select AAA:", qmlTranslator.currentLanguage(), kept[0], kept[1], kept[2],
                    kept[3])
        qmlTranslator.setTranslation(listLanguage.get(comboMainLanguage.currentIndex).code)
        console.log("Language Select AAA2:")
        sourcePath = Pictures.folder(qmlTranslator.currentLanguage())
        console.log("Language Select AAA3:")
        combos.forEach(function (combo, i) {
            // While the document loads a combo may have no entry yet. Writing that back would keep it from
            // taking its first one. Later a blank combo stays blank: the next touch must not send an entry.
            if (kept[i] >= 0 || !wasSettling)
                combo.currentIndex = kept[i]
        })
        settling = wasSettling
        console.log("Language Select BBB:", qmlTranslator.currentLanguage(), comboPgmSdiOutput.currentIndex,
                    comboPgmHdmiOutput.currentIndex, comboPvwOutput.currentIndex, comboUserMem.currentIndex)
    }

    // Each way to a connection closes what stands over the controls in an order of its own.
    function showConnected(popups) {
        recHeader.enableSetup(true)
        popups.forEach(function (popup) { popup.close() })
    }

    visible: true
    width: 1366; minimumWidth: 1366; maximumWidth: 1366
    height: 768; minimumHeight: 768; maximumHeight: 768
    title: "QKV-720 v1.6.7"
    color: "#060A12"
    font.pixelSize: 18
    font.family: Look.family(hlFontEnRegular)

    Component.onCompleted: {
        settling = false
        console.log("Language Path:", sourcePath)
        recHeader.enableSetup(false)
        popupMask.open()
    }

    FontLoader {
        id: hlFontEnRegular
        source: "qrc:/Carlito-Regular.ttf"
    }

    ResolutionList { id: listResolution }
    OutputResolutionList { id: listOutputResolution }

    ListModel {
        id: listOutputFormat
        ListElement { modelData: "RGB444" }
        ListElement { modelData: "YUV444" }
        ListElement { modelData: "YUV422" }
    }

    ListModel {
        id: listLanguage
        ListElement { modelData: "English"; code: "en_US" }
        ListElement { modelData: "繁中"; code: "zh_TW" }
        ListElement { modelData: "简中"; code: "zh_CN" }
    }

    // Blanks a combo.
    ListModel {
        id: emptyList
        ListElement { modelData: "" }
    }

    // The two signals that reach several parts; each part listens to its own.
    Connections {
        target: mainObject

        onAutoConnectResult: {
            if (msg !== "OK") {
                msgConnect.text = String(msg)
                return
            }
            showConnected([popupConnect, popupWarning, popupMask])
            msgConnect.text = qsTr("Connected") + qmlTranslator.e_str
        }

        onWarning: {
            msgConnect.text = msg
            console.log("onWarning:", msg)
            if (msg === qsTr("Disconnected") + qmlTranslator.e_str) {
                txtWarningMsg.text = qsTr("Network ") + qmlTranslator.e_str + msg
                popupConnect.close()
                popupWarning.open()
            }
        }
    }

    // ---------------------------------------------------------------- frame and pages

    // The bands below cover all of it, unless a window manager makes the window larger than it asked to be: the
    // picture is loaded when there is something of it to see.
    Image {
        anchors.fill: parent
        source: parent.width > 1366 || parent.height > 768 ? "qrc:/img/pc/img_bg_02_dashboard.png" : ""
    }

    Column {
        anchors.fill: parent

        HeaderBar { id: recHeader }
        OutputBand { id: recOutput }

        Row {
            Image {
                id: imgMenu
                source: "qrc:/img/pc/img_bg_menu_dashbpard.png"

                Column {
                    padding: 10

                    MenuEntry {
                        id: menuInput; page: 1
                        text: qsTr("Input") + qmlTranslator.e_str
                    }
                    MenuEntry {
                        id: menuChromakey; page: 2
                        text: qsTr("Chromakey") + qmlTranslator.e_str
                    }
                    MenuEntry {
                        id: menuPostProcessor; page: 3
                        text: qsTr("Post-Processor") + qmlTranslator.e_str
                    }
                    MenuEntry {
                        id: menuGarbageMask; page: 4
                        text: qsTr("Garbage Mask") + qmlTranslator.e_str
                    }
                    MenuEntry {
                        id: menuHoldoutWindow; page: 5
                        text: qsTr("Holdout Mask") + qmlTranslator.e_str
                    }
                    MenuEntry {
                        id: menuAuxLumakey; page: 6
                        text: qsTr("Aux Lumakey") + qmlTranslator.e_str
                    }
                }
            }

            // All pages stand from the start, so that each hears its refresh signals; only one is seen.
            // Their ground's columns are all equal, so a few of them are kept and drawn as wide as is needed.
            Image {
                width: 1190
                height: 620
                source: "qrc:/img/pc/img_bg_content_dashbpard.png"
                smooth: false

                PageInput { id: pageIN; anchors.fill: parent; visible: tabPageID === 1 }
                PageChromakey { id: pageCK; anchors.fill: parent; visible: tabPageID === 2 }
                PagePostProcessor { id: pagePP; anchors.fill: parent; visible: tabPageID === 3 }
                PageGarbageMask { id: pageGM; anchors.fill: parent; visible: tabPageID === 4 }
                PageHoldoutWindow { id: pageHW; anchors.fill: parent; visible: tabPageID === 5 }
                PageAuxLumakey { id: pageAL; anchors.fill: parent; visible: tabPageID === 6 }
            }
        }
    }

    PageBusy {
        id: iambusy
        anchors.centerIn: parent
        z: 999
        running: false
    }

    // ---------------------------------------------------------------- popups

    StartMask { id: popupMask }
    WarningNotice { id: popupWarning }
    ConnectPanel { id: popupConnect }
    SetupPanel { id: popupSetup }
}
