import QtQuick 2.12
import QtQuick.Controls 2.5
import "blocks"

// The panel's window. Ids and translated texts live here; what has no words stands in blocks/.
// Sections, in the order of the screen: lists and state, rules shared by several controls, signals of the
// facade, header, output band, menu and pages, start-up mask, warning, connection panel, setup panel.
ApplicationWindow {
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
    property string sourcePath: pictureFolder(qmlTranslator.currentLanguage())
    property int btnFontSize: 20

    // True while the document loads or a language switch replaces models: an index that moves then is nobody's
    // choice, and none of it may reach the unit.
    property bool settling: true

    visible: true
    width: 1366
    minimumWidth: 1366
    maximumWidth: 1366
    height: 768
    minimumHeight: 768
    maximumHeight: 768
    title: "QKV-720 v1.6.7"
    color: "#060A12"
    font.pixelSize: 18
    font.family: qmlTranslator.currentLanguage() + qmlTranslator.e_str === "en_US" ? hlFontEnRegular.name
                                                                                    : "Noto Sans CJK TC Regular"

    Component.onCompleted: {
        settling = false
        console.log("Language Path:", sourcePath)
        btnSetup.enabled = false
        btnSetup.source = "qrc:/img/pc/btn_d_setup_dashboard.png"
        popupMask.open()
    }

    FontLoader {
        id: hlFontEnRegular
        source: "qrc:/Carlito-Regular.ttf"
    }

    // ---------------------------------------------------------------- lists

    // The row is the unit's code of a resolution.
    ListModel {
        id: listResolution
        ListElement { modelData: "None"; value: 0 }
        ListElement { modelData: "PAL"; value: 1 }
        ListElement { modelData: "NTSC"; value: 2 }
        ListElement { modelData: "720p50"; value: 3 }
        ListElement { modelData: "720p59.94"; value: 4 }
        ListElement { modelData: "720p60"; value: 5 }
        ListElement { modelData: "1080i50"; value: 6 }
        ListElement { modelData: "1080i59.94"; value: 7 }
        ListElement { modelData: "1080i60"; value: 8 }
        ListElement { modelData: "1080p23.98"; value: 9 }
        ListElement { modelData: "1080p24"; value: 10 }
        ListElement { modelData: "1080p25"; value: 11 }
        ListElement { modelData: "1080p29.97"; value: 12 }
        ListElement { modelData: "1080p30"; value: 13 }
        ListElement { modelData: "1080p50"; value: 14 }
        ListElement { modelData: "1080p59.94"; value: 15 }
        ListElement { modelData: "1080p60"; value: 16 }
        ListElement { modelData: "2160p23.98"; value: 17 }
        ListElement { modelData: "2160p24"; value: 18 }
        ListElement { modelData: "2160p25"; value: 19 }
        ListElement { modelData: "2160p29.97"; value: 20 }
        ListElement { modelData: "2160p30"; value: 21 }
        ListElement { modelData: "2160p50"; value: 22 }
        ListElement { modelData: "2160p59.94"; value: 23 }
        ListElement { modelData: "2160p60"; value: 24 }
        ListElement { modelData: "2160wp23.98"; value: 25 }
        ListElement { modelData: "2160wp24"; value: 26 }
        ListElement { modelData: "2160wp25"; value: 27 }
        ListElement { modelData: "2160wp29.97"; value: 28 }
        ListElement { modelData: "2160wp30"; value: 29 }
        ListElement { modelData: "2160wp50"; value: 30 }
        ListElement { modelData: "2160wp59.94"; value: 31 }
        ListElement { modelData: "2160wp60"; value: 32 }
    }

    // What the unit can put out. The text of the last row is the one that operators know.
    ListModel {
        id: listOutputResolution
        ListElement { modelData: "1080i50"; value: 6 }
        ListElement { modelData: "1080i59.94"; value: 7 }
        ListElement { modelData: "1080i60"; value: 8 }
        ListElement { modelData: "1080p23.98"; value: 9 }
        ListElement { modelData: "1080p24"; value: 10 }
        ListElement { modelData: "1080p25"; value: 11 }
        ListElement { modelData: "1080p29.97"; value: 12 }
        ListElement { modelData: "1080p30"; value: 13 }
        ListElement { modelData: "1080p50"; value: 14 }
        ListElement { modelData: "1080p59.94"; value: 15 }
        ListElement { modelData: "1080p60"; value: 16 }
        ListElement { modelData: "2160p23.98"; value: 17 }
        ListElement { modelData: "2160p24"; value: 18 }
        ListElement { modelData: "2160p25"; value: 19 }
        ListElement { modelData: "2160p29.97"; value: 20 }
        ListElement { modelData: "2160p30"; value: 21 }
        ListElement { modelData: "2160p50"; value: 22 }
        ListElement { modelData: "2160p59.94"; value: 23 }
        ListElement { modelData: "2160pP60"; value: 24 }
    }

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

    // ---------------------------------------------------------------- rules shared by several controls

    function pictureFolder(language) {
        if (language === "zh_CN")
            return "qrc:/img/pc/CN/"
        return language === "zh_TW" ? "qrc:/img/pc/TW/" : "qrc:/img/pc/"
    }

    function selectPage(entry, page) {
        var entries = [menuInput, menuChromakey, menuPostProcessor, menuGarbageMask, menuHoldoutWindow,
                       menuAuxLumakey]
        entry.source = "qrc:/img/pc/btn_p_menu_dashboard.png"
        entry.textColor = "#8BC7EA"
        for (var i = 0; i < entries.length; ++i) {
            if (entries[i] === entry)
                continue
            entries[i].source = "qrc:/img/pc/btn_n_menu_dashboard.png"
            entries[i].textColor = "#949494"
        }
        tabPageID = page
        mainObject.setCurrentPage(tabPageID)
    }

    // The lists of these combos are translated: a switch replaces them and would leave each on its first entry.
    function switchLanguage() {
        var wasSettling = settling
        settling = true
        var pgmSdi = comboPgmSdiOutput.currentIndex
        var pgmHdmi = comboPgmHdmiOutput.currentIndex
        var pvw = comboPvwOutput.currentIndex
        var userMem = comboUserMem.currentIndex
        var addressMode = comboAddrmode.currentIndex
        console.log("Language Select AAA:", qmlTranslator.currentLanguage(), pgmSdi, pgmHdmi, pvw, userMem)
        qmlTranslator.setTranslation(listLanguage.get(comboMainLanguage.currentIndex).code)
        console.log("Language Select AAA2:")
        sourcePath = pictureFolder(qmlTranslator.currentLanguage())
        console.log("Language Select AAA3:")
        restoreIndex(comboPgmSdiOutput, pgmSdi)
        restoreIndex(comboPgmHdmiOutput, pgmHdmi)
        restoreIndex(comboPvwOutput, pvw)
        restoreIndex(comboUserMem, userMem)
        // The address mode has a translated entry as well; a unit with a fixed address stays one.
        restoreIndex(comboAddrmode, addressMode)
        settling = wasSettling
        console.log("Language Select BBB:", qmlTranslator.currentLanguage(), comboPgmSdiOutput.currentIndex,
                    comboPgmHdmiOutput.currentIndex, comboPvwOutput.currentIndex, comboUserMem.currentIndex)
    }

    // While the document loads a combo may have no entry yet. Writing that back would keep it from taking its
    // first one.
    function restoreIndex(combo, index) {
        if (index >= 0)
            combo.currentIndex = index
    }

    function enableSetup(on) {
        btnSetup.enabled = on
        btnSetup.source = on ? "qrc:/img/pc/btn_n_setup_dashboard.png"
                             : "qrc:/img/pc/btn_d_setup_dashboard.png"
    }

    // PVW SDI and PVW HDMI are driven by one group of controls, so its three values go out twice.
    function sendRouting() {
        mainObject.setOutSelect(comboPgmSdiOutput.currentIndex + 1, btnLockPGMSDI.checked, checkboxPGMSDI.checked,
                                comboPvwOutput.currentIndex + 1, btnLockPVW.checked, checkboxPVW.checked,
                                comboPgmHdmiOutput.currentIndex + 1, btnLockPGMHDMI.checked,
                                checkboxPGMHDMI.checked,
                                comboPvwOutput.currentIndex + 1, btnLockPVW.checked, checkboxPVW.checked)
    }

    // A control cannot tell the facade's write from the operator's hand; the flag marks the write.
    function routingChanged() {
        if (settling)
            return
        if (!ignoreThisRefresh)
            sendRouting()
        ignoreThisRefresh = false
    }

    function lockClicked(lockButton, checkbox, combo) {
        checkbox.enabled = !lockButton.checked
        combo.enabled = !lockButton.checked
        routingChanged()
    }

    function showRouting(combo, checkbox, lockButton, source, lock, mirror) {
        ignoreThisRefresh = true
        combo.currentIndex = source - 1
        // The combo's handler has cleared the flag if the index really moved.
        ignoreThisRefresh = true
        checkbox.checked = mirror
        lockButton.checked = lock
        checkbox.enabled = !lock
        combo.enabled = !lock
        // Left standing, it would swallow the operator's next action.
        ignoreThisRefresh = false
    }

    function findListOutputResolutionIndex(res) {
        for (var i = 0; i < listOutputResolution.count; ++i) {
            if (listOutputResolution.get(i).value === res)
                return i
        }
        return 0
    }

    function holdPoll() {
        if (!settling)
            mainObject.setRefreshTimer(false)
    }

    // The first three numbers of the chosen adapter's address, each with its dot: "[a.b.c.d] name".
    function adapterPrefix() {
        var address = (comboConnectComPort.currentText.split("[")[1] || "").split(".")
        return address[0] + "." + address[1] + "." + address[2] + "."
    }

    function inAdapterSubnet(address) {
        return address.includes(adapterPrefix())
    }

    function showSubnet(address) {
        ipAddrError = !inAdapterSubnet(address)
        txtIPAddr.color = ipAddrError ? "#990000" : "#D8D8D8"
    }

    function colorAddresses(color) {
        txtIPAddr.color = color
        txtGateway.color = color
        txtNetmask.color = color
        txtPrimdns.color = color
        txtSecdns.color = color
    }

    function colorForm(editable) {
        txtHostname.color = "#D8D8D8"
        colorAddresses(editable ? "#D8D8D8" : "#909090")
    }

    function writeForm(hostname, macaddr, ipaddr, gateway, mask, primDns, secDns) {
        txtHostname.text = hostname
        txtMacaddr.text = macaddr
        txtIPAddr.text = ipaddr
        txtGateway.text = gateway
        txtNetmask.text = mask
        txtPrimdns.text = primDns
        txtSecdns.text = secDns
    }

    // Connect and Reconnect are one sequence; Reconnect also says each outcome in the warning.
    function runConnect(reconnecting) {
        function tell(text) {
            msgConnect.text = text
            if (reconnecting)
                txtWarningMsg.text = text
        }
        msgConnect.text = ""
        var result
        if (comboConnectInterface.currentIndex === 0) {
            if (comboConnectComPort.currentText === "")
                return
            if (!inAdapterSubnet(txtIPAddr.text)) {
                tell(qsTr("IP Address is not \nin the same network.") + qmlTranslator.e_str)
                console.log("ip vs card=", adapterPrefix(), txtIPAddr.text)
                return
            }
            result = mainObject.deviceConnect(1, txtIPAddr.text, comboConnectComPort.currentIndex)
            console.log("device connect:", result)
        } else {
            result = mainObject.deviceConnect(2, comboConnectComPort.currentText,
                                              comboConnectComPort.currentIndex)
        }
        if (result === "OK") {
            enableSetup(true)
            var popups = reconnecting ? [popupMask, popupConnect, popupWarning]
                                      : [popupConnect, popupWarning, popupMask]
            popups.forEach(function (popup) { popup.close() })
            tell(qsTr("Connected") + qmlTranslator.e_str)
        } else if (result === "HLNP") {
            tell(result + qsTr(" not ready.") + qmlTranslator.e_str)
        } else {
            tell(String(result))
        }
    }

    // ---------------------------------------------------------------- signals of the facade

    Connections {
        target: mainObject

        onShowVersion: {
            txtFWVersion.text = "v" + fwversion
            txtFPGAVersion.text = "v" + fpgaversion
            txtBLVersion.text = "v" + blversion
        }

        onShowVout: {
            // Both combos hold the poll at every change, one that the unit reports included: after a format that was
            // changed at the unit the poll rests until the next operation, or until the setup panel closes.
            comboSetupVOutRes.currentIndex = findListOutputResolutionIndex(res)
            comboSetupVOutOutputFormat.currentIndex = colorformat
            autoOutputRes = std !== 0
            comboSetupVOutRes.enabled = !autoOutputRes
        }

        onRefreshOutputSourcePGM: showRouting(comboPgmSdiOutput, checkboxPGMSDI, btnLockPGMSDI, source, lock,
                                              mirror)
        onRefreshOutputSourcePGMHDMI: showRouting(comboPgmHdmiOutput, checkboxPGMHDMI, btnLockPGMHDMI, source,
                                                  lock, mirror)
        onRefreshOutputSourcePVW: showRouting(comboPvwOutput, checkboxPVW, btnLockPVW, source, lock, mirror)
        onRefreshOutputSourcePVWHDMI: {
            // The PVW group shows the SDI side; the HDMI side is set from the same controls.
        }

        onRefreshUserMemory: {
            console.log("RefreshUserMemory:", index - 1)
            comboUserMem.currentIndex = index === 0 || index > 8 ? 0 : index - 1
        }

        onRefreshSerialPortNames: comboConnectComPort.model = mainObject.serialNameList
        onRefreshNetcardList: comboConnectComPort.model = mainObject.netcardList
        onRefreshIPSelectList: comboIPSelect.model = mainObject.ipSelectList

        // A unit found by a scan, or the saved one as the automatic connection sees it.
        onRefreshConnectionData: {
            console.log("onRefreshConnectionData:", comboIPSelect.currentIndex, test, test1, test0, test2, test3)
            if (test1 !== "na")
                comboConnectComPort.currentIndex = comboConnectComPort.find(test1)
            comboAddrmode.currentIndex = test0 ? 0 : 1
            writeForm(test2, test4, test3, test5, test6, test7, test8)
            if (!errorColored)
                colorForm(didScan && comboAddrmode.currentIndex === 1)
            // In DHCP mode too this has the last word on the address.
            if (comboConnectInterface.currentIndex === 0 && comboConnectComPort.currentText !== "")
                showSubnet(test3)
        }

        // The saved connection, as long as no scan stands behind the form.
        onRefreshConnection: {
            console.log("onRefreshConnection 1:", method, serialport, netcard, dhcpMode, ipaddr, hostname, macaddr,
                        gateway, mask, primDns, secDns)
            if (method < 999) {
                console.log("onRefreshConnection 2", method)
                comboConnectInterface.currentIndex = method - 1
                comboConnectComPort.model = comboConnectInterface.currentIndex === 0 ? mainObject.netcardList
                                                                                     : mainObject.serialNameList
            }
            if (serialport !== "na") {
                if (method === 1) {
                    comboConnectComPort.currentIndex = Math.max(0, comboConnectComPort.find(netcard))
                    console.log("onRefreshConnection 3:", comboConnectComPort.currentIndex)
                    if (comboConnectComPort.currentText !== "")
                        showSubnet(ipaddr)
                } else if (method === 2) {
                    comboConnectComPort.currentIndex = Math.max(0, comboConnectComPort.find(serialport))
                    console.log("onRefreshConnection 4:", comboConnectComPort.currentIndex)
                }
            }
            comboAddrmode.currentIndex = dhcpMode ? 0 : 1
            writeForm(hostname, macaddr, ipaddr, gateway, mask, primDns, secDns)
            if (!errorColored)
                colorForm(didScan && comboAddrmode.currentIndex === 1)
        }

        onMarkHLNPDataRed: {
            console.log("onMarkHLNPDataRed")
            if (index === 0) {
                errorColored = false
                colorForm(comboAddrmode.currentIndex === 1)
                return
            }
            var field = [txtIPAddr, txtHostname, txtGateway, txtNetmask, txtPrimdns, txtSecdns][index - 1]
            if (!field)
                return
            errorColored = true
            field.color = "#aa0000"
        }

        onAutoConnectResult: {
            if (msg !== "OK") {
                msgConnect.text = String(msg)
                return
            }
            enableSetup(true)
            popupConnect.close()
            popupWarning.close()
            popupMask.close()
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

        onRefreshLanguage: {
            console.log("onRefreshLanguage", lan)
            var index = ["en_US", "zh_TW", "zh_CN"].indexOf(lan)
            if (index >= 0)
                comboMainLanguage.currentIndex = index
        }
    }

    // ---------------------------------------------------------------- frame

    Image { source: "qrc:/img/pc/img_bg_02_dashboard.png" }

    Column {
        anchors.fill: parent

        // ------------------------------------------------------------ header

        Image {
            id: recHeader
            source: "qrc:/img/pc/img_bg_header_dashboard.png"

            LanguageCombo {
                id: comboMainLanguage
                anchors { top: parent.top; topMargin: 6; right: parent.right }
                textRole: "modelData"
                model: listLanguage
                onCurrentIndexChanged: switchLanguage()
            }

            FaceButton {
                id: btnSetup
                anchors { top: parent.top; topMargin: 6; right: comboMainLanguage.left; rightMargin: 6 }
                source: "qrc:/img/pc/btn_n_setup_dashboard.png"
                onClicked: {
                    if (btnSetupClicked) {
                        source = "qrc:/img/pc/btn_n_setup_dashboard.png"
                    } else {
                        source = "qrc:/img/pc/btn_p_setup_dashboard.png"
                        popupSetup.open()
                    }
                    btnSetupClicked = !btnSetupClicked
                }
            }

            FaceButton {
                id: btnConnect
                anchors { top: parent.top; topMargin: 6; right: btnSetup.left }
                source: "qrc:/img/pc/btn_n_connect_dashboard.png"
                onClicked: {
                    if (btnConnectClicked) {
                        source = "qrc:/img/pc/btn_n_connect_dashboard.png"
                    } else {
                        source = "qrc:/img/pc/btn_p_connect_dashboard.png"
                        mainObject.connectPopup(comboConnectInterface.currentIndex,
                                                comboConnectComPort.currentIndex)
                        popupConnect.open()
                    }
                    btnConnectClicked = !btnConnectClicked
                }
            }
        }

        // ------------------------------------------------------------ output band

        Image {
            id: recOutput
            source: "qrc:/img/pc/img_bg_output_dashboard.png"

            readonly property var sources: [qsTr("FG") + qmlTranslator.e_str, qsTr("BG") + qmlTranslator.e_str,
                                            qsTr("AUX") + qmlTranslator.e_str,
                                            qsTr("Matte") + qmlTranslator.e_str,
                                            qsTr("PFG") + qmlTranslator.e_str, qsTr("Comp") + qmlTranslator.e_str]

            Row {
                anchors { left: parent.left; leftMargin: imgMenu.width }
                y: 8
                spacing: 40

                OutputGroup {
                    titles: OutputTitle {
                        id: outputTitlePGMSDI
                        text: qsTr("PGM(SDI):") + qmlTranslator.e_str
                    }

                    MyComboBox {
                        id: comboPgmSdiOutput
                        width: 95
                        height: 30
                        model: recOutput.sources
                        onCurrentIndexChanged: {
                            console.log("pgmsdi index changed. ignorethisRefresh=", ignoreThisRefresh)
                            routingChanged()
                        }
                    }

                    MirrorCheckBox {
                        id: checkboxPGMSDI
                        text: qsTr("Mirror") + qmlTranslator.e_str
                        onCheckedChanged: routingChanged()
                    }

                    LockButton {
                        id: btnLockPGMSDI
                        onClicked: lockClicked(btnLockPGMSDI, checkboxPGMSDI, comboPgmSdiOutput)
                    }
                }

                OutputGroup {
                    titles: OutputTitle {
                        id: outputTitlePGMHDMI
                        text: qsTr("PGM(HDMI):") + qmlTranslator.e_str
                    }

                    MyComboBox {
                        id: comboPgmHdmiOutput
                        width: 95
                        height: 30
                        model: recOutput.sources
                        onCurrentIndexChanged: {
                            console.log("pgmhdmi index changed")
                            routingChanged()
                        }
                    }

                    MirrorCheckBox {
                        id: checkboxPGMHDMI
                        text: qsTr("Mirror") + qmlTranslator.e_str
                        onCheckedChanged: routingChanged()
                    }

                    LockButton {
                        id: btnLockPGMHDMI
                        onClicked: lockClicked(btnLockPGMHDMI, checkboxPGMHDMI, comboPgmHdmiOutput)
                    }
                }

                OutputGroup {
                    titles: OutputTitle {
                        id: outputTitlePVW
                        text: qsTr("PVW (SDI/HDMI):") + qmlTranslator.e_str
                    }

                    MyComboBox {
                        id: comboPvwOutput
                        width: 95
                        height: 30
                        model: recOutput.sources
                        onCurrentIndexChanged: {
                            console.log("pvw index changed")
                            routingChanged()
                        }
                    }

                    MirrorCheckBox {
                        id: checkboxPVW
                        text: qsTr("Mirror") + qmlTranslator.e_str
                        onCheckedChanged: routingChanged()
                    }

                    LockButton {
                        id: btnLockPVW
                        onClicked: lockClicked(btnLockPVW, checkboxPVW, comboPvwOutput)
                    }
                }

                OutputGroup {
                    titles: [
                        OutputTitle {
                            id: outputTitleUserMem
                            text: qsTr("User Memory:") + qmlTranslator.e_str
                        },
                        OutputTitle { id: outputTitleUserMemOp }
                    ]

                    MyComboBox {
                        id: comboUserMem

                        readonly property string word: qsTr("User") + qmlTranslator.e_str

                        width: 95
                        height: 30
                        enabled: !memoryLock
                        model: [word + " 1", word + " 2", word + " 3", word + " 4",
                                word + " 5", word + " 6", word + " 7", word + " 8"]
                        onCurrentIndexChanged: outputTitleUserMemOp.text = ""
                    }

                    // The command runs from the click, which follows the release: "completed" is on the screen
                    // while the unit is at work.
                    FaceButton {
                        id: outputMemoryLoad
                        enabled: !memoryLock
                        opacity: enabled ? 1.0 : 0.45
                        source: sourcePath + (pressed ? "btn_p_load_usermemory.png"
                                                      : "btn_n_load_usermemory.png")
                        onPressedChanged: outputTitleUserMemOp.text = pressed
                                          ? qsTr("Setting up...") + qmlTranslator.e_str
                                          : qsTr("Setting completed.") + qmlTranslator.e_str
                        onClicked: mainObject.loadMemory(comboUserMem.currentIndex + 1)
                    }

                    FaceButton {
                        id: outputMemorySave
                        enabled: !memoryLock
                        opacity: enabled ? 1.0 : 0.45
                        source: sourcePath + (pressed ? "btn_p_save_usermemory.png"
                                                      : "btn_n_save_usermemory.png")
                        onPressedChanged: outputTitleUserMemOp.text = pressed
                                          ? qsTr("Setting up...") + qmlTranslator.e_str
                                          : qsTr("Setting completed.") + qmlTranslator.e_str
                        onClicked: mainObject.saveMemory(comboUserMem.currentIndex + 1)
                    }

                    Image {
                        id: outputMemoryLock
                        source: memoryLock ? "qrc:/img/pc/icon_lock_output.png"
                                           : "qrc:/img/pc/icon_unlock_output.png"

                        MouseArea {
                            anchors.fill: parent
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
        }

        // ------------------------------------------------------------ menu and pages

        Row {
            Image {
                id: imgMenu
                source: "qrc:/img/pc/img_bg_menu_dashbpard.png"

                Column {
                    padding: 10

                    MenuEntry {
                        id: menuInput
                        source: "qrc:/img/pc/btn_p_menu_dashboard.png"
                        text: qsTr("Input") + qmlTranslator.e_str
                        textColor: "#8BC7EA"
                        onClicked: selectPage(menuInput, 1)
                    }

                    MenuEntry {
                        id: menuChromakey
                        text: qsTr("Chromakey") + qmlTranslator.e_str
                        onClicked: selectPage(menuChromakey, 2)
                    }

                    MenuEntry {
                        id: menuPostProcessor
                        text: qsTr("Post-Processor") + qmlTranslator.e_str
                        onClicked: selectPage(menuPostProcessor, 3)
                    }

                    MenuEntry {
                        id: menuGarbageMask
                        text: qsTr("Garbage Mask") + qmlTranslator.e_str
                        onClicked: selectPage(menuGarbageMask, 4)
                    }

                    MenuEntry {
                        id: menuHoldoutWindow
                        text: qsTr("Holdout Mask") + qmlTranslator.e_str
                        onClicked: selectPage(menuHoldoutWindow, 5)
                    }

                    MenuEntry {
                        id: menuAuxLumakey
                        text: qsTr("Aux Lumakey") + qmlTranslator.e_str
                        onClicked: selectPage(menuAuxLumakey, 6)
                    }
                }
            }

            // All pages stand from the start, so that each hears its refresh signals; only one is seen.
            Image {
                source: "qrc:/img/pc/img_bg_content_dashbpard.png"

                PageInput {
                    id: pageIN
                    anchors.fill: parent
                    visible: tabPageID === 1
                }

                PageChromakey {
                    id: pageCK
                    anchors.fill: parent
                    visible: tabPageID === 2
                }

                PagePostProcessor {
                    id: pagePP
                    anchors.fill: parent
                    visible: tabPageID === 3
                }

                PageGarbageMask {
                    id: pageGM
                    anchors.fill: parent
                    visible: tabPageID === 4
                }

                PageHoldoutWindow {
                    id: pageHW
                    anchors.fill: parent
                    visible: tabPageID === 5
                }

                PageAuxLumakey {
                    id: pageAL
                    anchors.fill: parent
                    visible: tabPageID === 6
                }
            }
        }
    }

    PageBusy {
        id: iambusy
        anchors.centerIn: parent
        z: 999
        running: false
    }

    // ---------------------------------------------------------------- start-up mask

    // Stands over everything but the header while no unit is connected. The default padding would push the
    // arrow off the Connect button.
    Popup {
        id: popupMask
        y: 48
        width: mainWindow.width
        height: mainWindow.height - 48
        padding: 0
        focus: true
        closePolicy: Popup.NoAutoClose
        font.pixelSize: Math.max(1, height * 0.03)
        background: Rectangle {
            color: "black"
            opacity: 0.75
        }

        contentItem: Item {
            MouseArea {
                anchors.fill: parent
                hoverEnabled: true
                onWheel: wheel.accepted = true
            }

            PageBusy {
                id: maskbusy
                anchors.centerIn: parent
                running: true
            }

            Image {
                id: guideArrow
                anchors { top: parent.top; topMargin: -25; right: parent.right; rightMargin: 129 }
                source: "qrc:/img/pc/img_up_arrow.png"
                scale: 0.5

                SequentialAnimation {
                    running: popupMask.visible
                    loops: Animation.Infinite
                    PropertyAnimation { target: guideArrow; property: "opacity"; to: 0.8; duration: 1200 }
                    PropertyAnimation { target: guideArrow; property: "opacity"; to: 0.1; duration: 1200 }
                }
            }
        }
    }

    Timer {
        id: maskBusyTimer
        interval: 500
        running: true
        onTriggered: {
            maskbusy.running = false
            maskbusy.visible = false
        }
    }

    // ---------------------------------------------------------------- warning

    NoticeShell {
        id: popupWarning
        heading: qsTr("WARNING") + qmlTranslator.e_str
        sign: "qrc:/img/pc/img_notify_error.png"
        dimness: 0.55
        closePolicy: Popup.CloseOnEscape

        NoticeText { id: txtWarningMsg }

        WordButton {
            id: btnWarningReconnect
            anchors { top: txtWarningMsg.bottom; topMargin: 50; left: parent.left; leftMargin: 100 }
            source: sourcePath + "btn_bg_adjust_color.png"
            contentItem: WordFace {
                id: txtWarningReconnect
                text: qsTr("Reconnect") + qmlTranslator.e_str
                color: btnWarningReconnect.pressed ? "#FFFFFF" : "#D8D8D8"
            }
            onPressedChanged: {
                if (pressed)
                    msgConnect.text = ""
            }
            onClicked: runConnect(true)
        }

        WordButton {
            id: btnWarningConfig
            anchors { top: txtWarningMsg.bottom; topMargin: 50; right: parent.right; rightMargin: 100 }
            source: sourcePath + "btn_bg_adjust_color.png"
            contentItem: WordFace {
                id: txtWarningConfig
                text: qsTr("Config") + qmlTranslator.e_str
                color: btnWarningConfig.pressed ? "#FFFFFF" : "#D8D8D8"
            }
            onClicked: {
                msgConnect.text = ""
                btnWarningReconnect.enabled = true
                txtWarningReconnect.color = Qt.binding(function () {
                    return btnWarningReconnect.pressed ? "#FFFFFF" : "#D8D8D8"
                })
                popupConnect.open()
                console.log("popupConnect Open")
            }
        }
    }

    // ---------------------------------------------------------------- connection panel

    PopupFrame {
        id: popupConnect
        source: "qrc:/img/pc/img_bg_connect.png"
        title: qsTr("CONNECT") + qmlTranslator.e_str
        onClosed: {
            btnConnectClicked = false
            btnConnect.source = "qrc:/img/pc/btn_n_connect_dashboard.png"
        }

        Item {
            id: connectForm
            anchors.fill: parent

            readonly property bool network: comboConnectInterface.currentIndex === 0

            // -------------------------------------------------------- link and unit

            FormLabel {
                x: 20
                y: 60
                text: qsTr("Interface") + qmlTranslator.e_str
            }

            MyComboBox {
                id: comboConnectInterface
                x: 190
                y: 60
                width: 216
                height: 32
                model: ["HLNP", "RS-232"]
                onCurrentIndexChanged: {
                    msgConnect.text = ""
                    // A binding, not a value: the label goes on following the language.
                    labelConnectComPort.text = Qt.binding(function () {
                        return (comboConnectInterface.currentIndex === 0 ? qsTr("EtherNetCard") : qsTr("Comport"))
                                + qmlTranslator.e_str
                    })
                    comboConnectComPort.model = currentIndex === 0 ? mainObject.netcardList
                                                                   : mainObject.serialNameList
                }
            }

            FormLabel {
                id: labelConnectComPort
                x: 20
                y: 115
                text: (connectForm.network ? qsTr("EtherNetCard") : qsTr("Comport")) + qmlTranslator.e_str
            }

            MyComboBox {
                id: comboConnectComPort
                x: 190
                y: 115
                width: 312
                height: 32
                model: connectForm.network ? mainObject.netcardList : mainObject.serialNameList
            }

            // The press writes the status, the release does the work: the text is on the screen before the
            // scan blocks it. A release outside the picture scans as well.
            Image {
                id: imgConnectScan
                x: 522
                y: 113
                visible: connectForm.network
                source: sourcePath + "btn_n_scan_connect.png"

                MouseArea {
                    anchors.fill: parent
                    onPressedChanged: {
                        if (pressed) {
                            imgConnectScan.source = Qt.binding(function () {
                                return sourcePath + "btn_p_scan_connect.png"
                            })
                            comboIPSelect.model = emptyList
                            writeForm("", "", "", "", "", "", "")
                            ipAddrError = false
                            msgConnect.text = qsTr("Scanning...") + qmlTranslator.e_str
                            return
                        }
                        didScan = true
                        imgConnectScan.source = Qt.binding(function () {
                            return sourcePath + "btn_n_scan_connect.png"
                        })
                        mainObject.hlnpScan("scan", comboConnectComPort.currentIndex)
                        mainObject.getHLNPDeviceInfo(0)
                        msgConnect.text = ""
                    }
                }
            }

            FormLabel {
                x: 20
                y: 170
                visible: connectForm.network
                text: qsTr("IP Select") + qmlTranslator.e_str
            }

            MyComboBox {
                id: comboIPSelect
                x: 190
                y: 170
                width: 312
                height: 32
                visible: connectForm.network
                model: mainObject.ipSelectList
                validator: RegExpValidator {
                    regExp: /^(([01]?[0-9]?[0-9]|2([0-4][0-9]|5[0-5]))\.){3}([01]?[0-9]?[0-9]|2([0-4][0-9]|5[0-5]))$/
                }
                onCurrentIndexChanged: {
                    if (currentText !== "")
                        mainObject.getHLNPDeviceInfo(currentIndex)
                }
            }

            FormLabel {
                x: 20
                y: 225
                visible: connectForm.network
                text: qsTr("Host Name") + qmlTranslator.e_str
            }

            NetworkField {
                id: txtHostname
                x: 190
                y: 225
                visible: connectForm.network
                maximumLength: 15
                readOnly: !didScan
                validator: RegExpValidator { regExp: /[0-9A-Za-z_ ]{1,15}/ }
                onTextEdited: hlnpNetHostnameChned = true
            }

            FormLabel {
                x: 20
                y: 280
                visible: connectForm.network
                text: qsTr("Mac Address") + qmlTranslator.e_str
            }

            FormLabel {
                id: txtMacaddr
                x: 190
                y: 280
                width: 216
                leftPadding: 6
                visible: connectForm.network
            }

            DividerLine {
                x: 25
                y: 332
                visible: connectForm.network
            }

            // -------------------------------------------------------- network settings of the unit

            FormLabel {
                id: labelHint
                x: 20
                y: 334
                width: 610
                height: 16
                visible: false
                text: qsTr("To edit network config, please Scan first.") + qmlTranslator.e_str
                color: "#9E9E9E"
                font.pixelSize: 14
            }

            FormLabel {
                x: 20
                y: 352
                visible: connectForm.network
                text: qsTr("Address Mode") + qmlTranslator.e_str
            }

            MyComboBox {
                id: comboAddrmode
                x: 190
                y: 352
                width: 216
                height: 32
                visible: connectForm.network
                model: ["DHCP", qsTr("Static IP") + qmlTranslator.e_str]
                onCurrentIndexChanged: {
                    if (settling)
                        return
                    hlnpNetDHCPModeChned = true
                    if (currentIndex === 1) {
                        hlnpNetIPAddrChned = true
                        if (didScan)
                            colorForm(true)
                    } else {
                        colorAddresses("#909090")
                    }
                }
            }

            FormLabel {
                x: 20
                y: 404
                visible: connectForm.network
                text: qsTr("IP Address") + qmlTranslator.e_str
            }

            AddressField {
                id: txtIPAddr
                x: 190
                y: 404
                visible: connectForm.network
                editable: didScan && comboAddrmode.currentIndex !== 0
                staticMode: comboAddrmode.currentIndex === 1
                color: ipAddrError ? "#990000" : "#909090"
                onTextEdited: hlnpNetIPAddrChned = true
            }

            Image {
                x: 422
                y: 408
                visible: labelIPAddrError.visible
                source: "qrc:/img/pc/ico_alert.png"
            }

            FormLabel {
                id: labelIPAddrError
                x: 456
                y: 404
                visible: ipAddrError && connectForm.network && txtIPAddr.text !== ""
                text: qsTr("IP Address is not \nin the same network.") + qmlTranslator.e_str
                color: "#9E9E9E"
                lineHeight: 16
                lineHeightMode: Text.FixedHeight
                font.pixelSize: 14
            }

            FormLabel {
                x: 20
                y: 456
                visible: connectForm.network
                text: qsTr("Network Mask") + qmlTranslator.e_str
            }

            AddressField {
                id: txtNetmask
                x: 190
                y: 456
                visible: connectForm.network
                editable: didScan && comboAddrmode.currentIndex !== 0
                staticMode: comboAddrmode.currentIndex === 1
                onTextEdited: hlnpNetMaskChned = true
            }

            FormLabel {
                x: 20
                y: 508
                visible: connectForm.network
                text: qsTr("Gateway") + qmlTranslator.e_str
            }

            AddressField {
                id: txtGateway
                x: 190
                y: 508
                visible: connectForm.network
                editable: didScan && comboAddrmode.currentIndex !== 0
                staticMode: comboAddrmode.currentIndex === 1
                onTextEdited: hlnpNetGatewayChned = true
            }

            FormLabel {
                x: 20
                y: 560
                visible: connectForm.network
                text: qsTr("Primary DNS") + qmlTranslator.e_str
            }

            AddressField {
                id: txtPrimdns
                x: 190
                y: 560
                visible: connectForm.network
                editable: didScan && comboAddrmode.currentIndex !== 0
                staticMode: comboAddrmode.currentIndex === 1
                onTextEdited: hlnpNetPrimdnsChned = true
            }

            FormLabel {
                x: 20
                y: 612
                visible: connectForm.network
                text: qsTr("Secondary DNS") + qmlTranslator.e_str
            }

            AddressField {
                id: txtSecdns
                x: 190
                y: 612
                visible: connectForm.network
                editable: didScan && comboAddrmode.currentIndex !== 0
                staticMode: comboAddrmode.currentIndex === 1
                onTextEdited: hlnpNetSecdnsChned = true
            }

            DividerLine {
                x: 25
                y: 654
                visible: connectForm.network
            }

            // -------------------------------------------------------- buttons and status

            FaceButton {
                id: btnConnectConnect
                x: 20
                y: 664
                source: sourcePath + (pressed ? "btn_p_connect_connect.png" : "btn_n_connect_connect.png")
                onPressedChanged: {
                    if (pressed)
                        msgConnect.text = ""
                }
                onClicked: runConnect(false)
            }

            FaceButton {
                id: btnConnectDisconnect
                x: 150
                y: 664
                source: sourcePath + (pressed ? "btn_p_disconnect_connect.png" : "btn_n_disconnect_connect.png")
                onClicked: {
                    if (!mainObject.isConnected())
                        return
                    countDown = 5
                    notifier = 1
                    notifyTimer.start()
                    popupMask.open()
                    // It belongs to this panel and can only open while the panel is open.
                    popupDisConnect.open()
                    popupConnect.close()
                    enableSetup(false)
                    mainObject.deviceDisConnect(comboConnectInterface.currentIndex + 1)
                }
            }

            PanelText {
                id: msgConnect
                x: 280
                y: 667
                width: 200
                height: 30
                color: "yellow"
                lineHeight: 16
                lineHeightMode: Text.FixedHeight
                wrapMode: Text.Wrap
                font.pixelSize: 14
            }

            FaceButton {
                id: btnConnectReset
                anchors { right: btnConnectSave.left; rightMargin: 20; top: btnConnectSave.top }
                visible: false
                source: sourcePath + (pressed ? "btn_p_reset_dashboard.png" : "btn_n_reset_dashboard.png")
                onPressedChanged: {
                    if (pressed) {
                        msgConnect.text = ""
                        return
                    }
                    if (comboIPSelect.currentText === "") {
                        msgConnect.text = qsTr("Please scan and find devices first.") + qmlTranslator.e_str
                        return
                    }
                    mainObject.hlnpReboot(txtMacaddr.text, comboConnectComPort.currentText, txtIPAddr.text)
                    if (comboIPSelect.currentText !== "")
                        mainObject.getHLNPDeviceInfo(comboIPSelect.currentIndex)
                }
            }

            FaceButton {
                id: btnConnectSave
                x: 530
                y: 664
                visible: connectForm.network
                enabled: didScan
                source: sourcePath + (!enabled ? "btn_d_save_connect.png"
                                               : pressed ? "btn_p_save_connect.png" : "btn_n_save_connect.png")
                onPressedChanged: {
                    var adapterAddress = comboConnectComPort.currentText.split("]")[0].split("[")[1]
                    if (pressed) {
                        msgConnect.text = qsTr("Saving...") + qmlTranslator.e_str
                        return
                    }
                    console.log("comboConnectComPort.currentText=", comboConnectComPort.currentText)
                    enabled = false
                    if (txtMacaddr.text === "") {
                        msgConnect.text = qsTr("Please scan and find devices first.") + qmlTranslator.e_str
                    } else if (comboConnectComPort.currentText === "") {
                        msgConnect.text = qsTr("Network interface is empty.") + qmlTranslator.e_str
                    } else {
                        var result = mainObject.hlnpSave(adapterAddress, comboConnectComPort.currentText,
                                                         comboIPSelect.currentIndex, txtMacaddr.text,
                                                         txtHostname.text, comboAddrmode.currentIndex,
                                                         txtIPAddr.text, txtNetmask.text, txtGateway.text,
                                                         txtPrimdns.text, txtSecdns.text)
                        console.log("Not doing reboot!")
                        // The unit needs this long to take its settings; the operator restarts it by hand.
                        mainObject.msecSleep(2000)
                        msgConnect.text = result === "OK"
                                ? qsTr("Please reboot this device: \n") + qmlTranslator.e_str + txtHostname.text
                                : result
                    }
                    enabled = true
                }
            }

            // -------------------------------------------------------- disconnect notice

            NoticeShell {
                id: popupDisConnect
                sign: "qrc:/img/pc/img_notify_info.png"

                NoticeText {
                    id: txtDisconnectNotifyInfo
                    text: qsTr("The system has been disconnected.\nPlease reconnect.\n") + qmlTranslator.e_str
                }

                NoticeText {
                    id: txtDisconnectNotifyInfoCountDown
                    anchors.centerIn: undefined
                    anchors {
                        horizontalCenter: parent.horizontalCenter
                        top: txtDisconnectNotifyInfo.bottom
                        topMargin: -6
                    }
                    font.pixelSize: 14
                }
            }
        }
    }

    Timer {
        id: notifyTimer
        interval: 1000
        repeat: true
        onTriggered: {
            if (notifier !== 1)
                return
            txtDisconnectNotifyInfoCountDown.text = ".....".substring(0, countDown)
            if (countDown !== 0) {
                countDown -= 1
                msgConnect.text = qsTr("Disconnecting") + qmlTranslator.e_str
                return
            }
            btnConnectDisconnect.source = Qt.binding(function () {
                return sourcePath + (btnConnectDisconnect.pressed ? "btn_p_disconnect_connect.png"
                                                                  : "btn_n_disconnect_connect.png")
            })
            popupDisConnect.close()
            enableSetup(false)
            popupConnect.open()
            notifyTimer.stop()
            countDown = 5
            msgConnect.text = qsTr("Disconnected") + qmlTranslator.e_str
            outputTitleUserMemOp.text = ""
        }
    }

    // ---------------------------------------------------------------- setup panel

    PopupFrame {
        id: popupSetup
        source: "qrc:/img/pc/img_bg_setup.png"
        title: qsTr("SETUP") + qmlTranslator.e_str
        onClosed: {
            btnSetupClicked = false
            btnSetup.source = "qrc:/img/pc/btn_n_setup_dashboard.png"
            mainObject.setRefreshTimer(true)
            console.log("Popup Setup Closed!")
        }

        Item {
            id: setupForm
            anchors.fill: parent

            Column {
                anchors { top: parent.top; topMargin: 72; left: parent.left; leftMargin: 20 }
                spacing: 20

                Row {
                    height: 32
                    spacing: 20

                    FormLabel {
                        width: 200
                        text: qsTr("Auto Output Resolution") + qmlTranslator.e_str
                        color: "#F4AE23"
                    }

                    Image {
                        id: imgSetupAutoOutRes
                        anchors.verticalCenter: parent.verticalCenter
                        source: sourcePath + (autoOutputRes ? "btn_switch_on_dashboard.png"
                                                            : "btn_switch_off_dashboard.png")

                        MouseArea {
                            anchors.fill: parent
                            onClicked: {
                                mainObject.setRefreshTimer(false)
                                autoOutputRes = !autoOutputRes
                                comboSetupVOutRes.enabled = !autoOutputRes
                                console.log("AutoOutRes:", autoOutputRes)
                            }
                        }
                    }
                }

                Row {
                    height: 32
                    spacing: 20

                    FormLabel {
                        width: 200
                        text: qsTr("Output Resolution") + qmlTranslator.e_str
                        color: comboSetupVOutRes.enabled ? "#D8D8D8" : "#999999"
                    }

                    // A choice that is being made must not be overwritten by a poll; Save sends it.
                    MyComboBox {
                        id: comboSetupVOutRes
                        width: 216
                        height: 32
                        textRole: "modelData"
                        model: listOutputResolution
                        enabled: !autoOutputRes
                        onCurrentIndexChanged: holdPoll()
                    }
                }

                Row {
                    height: 32
                    spacing: 20

                    FormLabel {
                        width: 200
                        text: qsTr("HDMI Output Format") + qmlTranslator.e_str
                    }

                    MyComboBox {
                        id: comboSetupVOutOutputFormat
                        width: 216
                        height: 32
                        textRole: "modelData"
                        model: listOutputFormat
                        onCurrentIndexChanged: holdPoll()
                    }
                }

                Row {
                    height: 32
                    spacing: 20

                    FormLabel {
                        width: 200
                        text: qsTr("FW Version") + qmlTranslator.e_str
                    }

                    FormLabel {
                        id: txtFWVersion
                        leftPadding: 6
                        text: "v0.0"
                        color: "#727272"
                    }
                }

                Row {
                    height: 32
                    spacing: 20

                    FormLabel {
                        width: 200
                        text: qsTr("FPGA Version") + qmlTranslator.e_str
                    }

                    FormLabel {
                        id: txtFPGAVersion
                        leftPadding: 6
                        text: "v0.0"
                        color: "#727272"
                    }
                }

                Row {
                    height: 32
                    spacing: 20

                    FormLabel {
                        width: 200
                        text: qsTr("Bootloader Version") + qmlTranslator.e_str
                    }

                    FormLabel {
                        id: txtBLVersion
                        leftPadding: 6
                        text: "v0.0"
                        color: "#727272"
                    }
                }
            }

            // A picture has no "pressed", so the pressed face never shows. It stays so: a reset is confirmed in
            // the notice, not felt on this button.
            Image {
                id: btnSetupFactoryDefault
                x: 20
                y: 394
                source: sourcePath + (btnSetupFactoryDefault.pressed ? "btn_p_default_setup.png"
                                                                     : "btn_n_default_setup.png")

                MouseArea {
                    anchors.fill: parent
                    onClicked: {
                        console.log("Language source path:", sourcePath)
                        popupFactoryDefault.open()
                    }
                }
            }

            FaceButton {
                id: btnSetupSave
                x: 370
                y: 394
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

            // -------------------------------------------------------- notices of the setup panel

            NoticeShell {
                id: popupFactoryDefault
                heading: qsTr("Factory Default") + qmlTranslator.e_str
                sign: "qrc:/img/pc/img_notify_question.png"

                NoticeText {
                    id: txtFactoryDefault
                    text: qsTr("Do you want to reset factory default?") + qmlTranslator.e_str
                }

                FaceButton {
                    id: btnFactoryCancel
                    anchors {
                        top: txtFactoryDefault.bottom
                        topMargin: 50
                        left: parent.left
                        leftMargin: 100
                    }
                    source: sourcePath + (pressed ? "btn_p_cancel_adjust_color.png"
                                                  : "btn_n_cancel_adjust_color.png")
                    onClicked: popupFactoryDefault.close()
                }

                FaceButton {
                    id: btnFactoryReset
                    anchors {
                        top: txtFactoryDefault.bottom
                        topMargin: 50
                        right: parent.right
                        rightMargin: 100
                    }
                    source: sourcePath + (pressed ? "btn_p_reset_dashboard.png" : "btn_n_reset_dashboard.png")
                    onClicked: {
                        mainObject.loadMemory(0)
                        popupFactoryDefault.close()
                        popupSetupFactoryReset.open()
                    }
                }
            }

            // The two results say so unconditionally: the facade reports none.
            NoticeShell {
                id: popupSetupSaveFinished
                heading: qsTr("SETUP SAVE") + qmlTranslator.e_str
                sign: "qrc:/img/pc/img_notify_success.png"

                NoticeText {
                    id: txtSetupSaveFinished
                    text: qsTr("Save Successfully") + qmlTranslator.e_str
                }

                FaceButton {
                    id: btnSetupSaveFinished
                    anchors {
                        top: txtSetupSaveFinished.bottom
                        topMargin: 50
                        horizontalCenter: parent.horizontalCenter
                    }
                    source: sourcePath + (pressed ? "btn_p_ok_adjust_color.png" : "btn_n_ok_adjust_color.png")
                    onClicked: popupSetupSaveFinished.close()
                }
            }

            NoticeShell {
                id: popupSetupFactoryReset
                heading: qsTr("FACTORY RESET") + qmlTranslator.e_str
                sign: "qrc:/img/pc/img_notify_success.png"

                NoticeText {
                    id: txtSetupFactoryReset
                    text: qsTr("Reset Successfully") + qmlTranslator.e_str
                }

                FaceButton {
                    id: btnSetupFactoryReset
                    anchors {
                        top: txtSetupFactoryReset.bottom
                        topMargin: 50
                        horizontalCenter: parent.horizontalCenter
                    }
                    source: sourcePath + (pressed ? "btn_p_ok_adjust_color.png" : "btn_n_ok_adjust_color.png")
                    onClicked: popupSetupFactoryReset.close()
                }
            }
        }
    }
}
