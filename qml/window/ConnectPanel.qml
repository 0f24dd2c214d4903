import QtQuick 2.12
import ".."
import "../blocks"

// The connection panel: which link, which unit, the unit's network settings, connect and disconnect.
//
// Functions: runConnect(reconnecting).
PopupFrame {
    property alias connectForm: connectForm
    property alias networkForm: networkForm
    property alias comboConnectInterface: comboConnectInterface
    property alias labelConnectComPort: rowComPort.label
    property alias comboConnectComPort: comboConnectComPort
    property alias imgConnectScan: imgConnectScan
    property alias comboIPSelect: comboIPSelect
    property alias labelHint: labelHint
    property alias labelIPAddrError: labelIPAddrError
    property alias btnConnectConnect: btnConnectConnect
    property alias btnConnectDisconnect: btnConnectDisconnect
    property alias msgConnect: msgConnect
    property alias btnConnectReset: btnConnectReset
    property alias btnConnectSave: btnConnectSave
    property alias popupDisConnect: popupDisConnect
    readonly property bool network: comboConnectInterface.currentIndex === 0

    // Asks the combo itself: in the combo's own handler what is bound to it may still be as it was. Before its first
    // entry it has no choice to ask for, and a machine takes long to tell its serial ports.
    function portNames() {
        if (settling && comboConnectInterface.currentIndex < 0)
            return []
        return comboConnectInterface.currentIndex === 0 ? mainObject.netcardList : mainObject.serialNameList
    }

    // The first three numbers of the chosen adapter's address, each with its dot: "[a.b.c.d] name".
    function adapterPrefix() {
        var address = (comboConnectComPort.currentText.split("[")[1] || "").split(".")
        return address[0] + "." + address[1] + "." + address[2] + "."
    }

    function inAdapterSubnet(address) {
        return address.includes(adapterPrefix())
    }

    // The press writes the status, the release does the work: the text is on the screen before the scan
    // blocks it.
    function prepareScan() {
        imgConnectScan.source = Qt.binding(function () { return sourcePath + "btn_p_scan_connect.png" })
        comboIPSelect.model = emptyList
        networkForm.write("", "", "", "", "", "", "")
        ipAddrError = false
        msgConnect.text = qsTranslate("main", "Scanning...") + qmlTranslator.e_str
    }

    function scan() {
        didScan = true
        imgConnectScan.source = Qt.binding(function () { return sourcePath + "btn_n_scan_connect.png" })
        mainObject.hlnpScan("scan", comboConnectComPort.currentIndex)
        mainObject.getHLNPDeviceInfo(0)
        msgConnect.text = ""
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
        if (network) {
            if (comboConnectComPort.currentText === "")
                return
            if (!inAdapterSubnet(txtIPAddr.text)) {
                tell(qsTranslate("main", "IP Address is not \nin the same network.") + qmlTranslator.e_str)
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
            showConnected(reconnecting ? [popupMask, popupConnect, popupWarning]
                                       : [popupConnect, popupWarning, popupMask])
            tell(qsTranslate("main", "Connected") + qmlTranslator.e_str)
        } else if (result === "HLNP") {
            tell(result + qsTranslate("main", " not ready.") + qmlTranslator.e_str)
        } else {
            tell(String(result))
        }
    }

    function disconnect() {
        if (!mainObject.isConnected())
            return
        countDown = 5
        notifier = 1
        notifyTimer.start()
        popupMask.open()
        // It belongs to this panel and can only open while the panel is open.
        popupDisConnect.open()
        popupConnect.close()
        recHeader.enableSetup(false)
        mainObject.deviceDisConnect(comboConnectInterface.currentIndex + 1)
    }

    function save() {
        var adapterAddress = comboConnectComPort.currentText.split("]")[0].split("[")[1]
        console.log("comboConnectComPort.currentText=", comboConnectComPort.currentText)
        btnConnectSave.enabled = false
        if (txtMacaddr.text === "") {
            msgConnect.text = qsTranslate("main", "Please scan and find devices first.") + qmlTranslator.e_str
        } else if (comboConnectComPort.currentText === "") {
            msgConnect.text = qsTranslate("main", "Network interface is empty.") + qmlTranslator.e_str
        } else {
            var result = mainObject.hlnpSave(adapterAddress, comboConnectComPort.currentText,
                                             comboIPSelect.currentIndex, txtMacaddr.text, txtHostname.name,
                                             comboAddrmode.currentIndex, txtIPAddr.text, txtNetmask.text,
                                             txtGateway.text, txtPrimdns.text, txtSecdns.text)
            console.log("Not doing reboot!")
            // The unit needs this long to take its settings; the operator restarts it by hand.
            mainObject.msecSleep(2000)
            var restartIt = qsTranslate("main", "Please reboot this device: \n") + qmlTranslator.e_str
            msgConnect.text = result === "OK" ? restartIt + txtHostname.text : result
        }
        btnConnectSave.enabled = true
    }

    function restart() {
        if (comboIPSelect.currentText === "") {
            msgConnect.text = qsTranslate("main", "Please scan and find devices first.") + qmlTranslator.e_str
            return
        }
        mainObject.hlnpReboot(txtMacaddr.text, comboConnectComPort.currentText, txtIPAddr.text)
        if (comboIPSelect.currentText !== "")
            mainObject.getHLNPDeviceInfo(comboIPSelect.currentIndex)
    }

    source: "qrc:/img/pc/img_bg_connect.png"
    width: 660
    height: 720
    title: qsTranslate("main", "CONNECT") + qmlTranslator.e_str
    onClosed: recHeader.connectClosed()

    Item {
        id: connectForm
        anchors.fill: parent

        FormRow {
            y: 60
            title: qsTranslate("main", "Interface") + qmlTranslator.e_str

            MyComboBox {
                id: comboConnectInterface
                width: 216; height: 32
                model: ["HLNP", "RS-232"]
                onCurrentIndexChanged: {
                    msgConnect.text = ""
                    comboConnectComPort.model = portNames()
                }
            }
        }

        FormRow {
            id: rowComPort
            y: 115
            title: (network ? qsTranslate("main", "EtherNetCard") : qsTranslate("main", "Comport"))
                   + qmlTranslator.e_str

            MyComboBox {
                id: comboConnectComPort
                width: 312; height: 32
                model: portNames()
            }

            // A release outside the picture scans as well.
            Image {
                id: imgConnectScan
                y: -2
                visible: network
                source: sourcePath + "btn_n_scan_connect.png"

                PressArea {
                    onPressedChanged: {
                        if (pressed)
                            prepareScan()
                        else
                            scan()
                    }
                }
            }
        }

        FormRow {
            y: 170
            visible: network
            title: qsTranslate("main", "IP Select") + qmlTranslator.e_str

            MyComboBox {
                id: comboIPSelect
                width: 312; height: 32
                model: mainObject.ipSelectList
                validator: DottedQuad {}
                onCurrentIndexChanged: {
                    // While the list is being blanked the text is still the old one.
                    if (model !== emptyList && currentText !== "")
                        mainObject.getHLNPDeviceInfo(currentIndex)
                }
            }
        }

        NetworkForm {
            id: networkForm
            visible: network
        }

        FormLabel {
            id: labelHint
            x: 20; y: 334; width: 610; height: 16
            visible: false
            text: qsTranslate("main", "To edit network config, please Scan first.") + qmlTranslator.e_str
            color: "#9E9E9E"
            font.pixelSize: 14
        }

        Image {
            x: 422; y: 408
            visible: labelIPAddrError.visible
            source: "qrc:/img/pc/ico_alert.png"
        }

        FormLabel {
            id: labelIPAddrError
            x: 456; y: 404
            visible: ipAddrError && network && txtIPAddr.text !== ""
            text: qsTranslate("main", "IP Address is not \nin the same network.") + qmlTranslator.e_str
            color: "#9E9E9E"
            lineHeight: 16
            lineHeightMode: Text.FixedHeight
            font.pixelSize: 14
        }

        FaceButton {
            id: btnConnectConnect
            x: 20; y: 664
            source: sourcePath + (pressed ? "btn_p_connect_connect.png" : "btn_n_connect_connect.png")
            onPressedChanged: {
                if (pressed)
                    msgConnect.text = ""
            }
            onClicked: runConnect(false)
        }

        FaceButton {
            id: btnConnectDisconnect
            x: 150; y: 664
            source: sourcePath + (pressed ? "btn_p_disconnect_connect.png" : "btn_n_disconnect_connect.png")
            onClicked: disconnect()
        }

        PanelText {
            id: msgConnect
            x: 280; y: 667; width: 200; height: 30
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
                if (pressed)
                    msgConnect.text = ""
                else
                    restart()
            }
        }

        FaceButton {
            id: btnConnectSave
            x: 530; y: 664
            visible: network
            enabled: didScan
            source: sourcePath + (!enabled ? "btn_d_save_connect.png"
                                           : pressed ? "btn_p_save_connect.png" : "btn_n_save_connect.png")
            onPressedChanged: {
                if (pressed)
                    msgConnect.text = qsTranslate("main", "Saving...") + qmlTranslator.e_str
                else
                    save()
            }
        }

        DisconnectNotice { id: popupDisConnect }
    }

    Connections {
        target: mainObject

        onRefreshSerialPortNames: comboConnectComPort.model = mainObject.serialNameList
        onRefreshNetcardList: comboConnectComPort.model = mainObject.netcardList
        onRefreshIPSelectList: comboIPSelect.model = mainObject.ipSelectList

        // A unit found by a scan, or the saved one as the automatic connection sees it.
        onRefreshConnectionData: {
            console.log("onRefreshConnectionData:", comboIPSelect.currentIndex, test, test1, test0, test2,
                        test3)
            if (test1 !== "na")
                comboConnectComPort.currentIndex = comboConnectComPort.find(test1)
            networkForm.show(test0, test2, test4, test3, test5, test6, test7, test8)
            // In DHCP mode too this has the last word on the address.
            if (network && comboConnectComPort.currentText !== "")
                networkForm.showSubnet(inAdapterSubnet(test3))
        }

        // The saved connection, as long as no scan stands behind the form.
        onRefreshConnection: {
            console.log("onRefreshConnection 1:", method, serialport, netcard, dhcpMode, ipaddr, hostname,
                        macaddr, gateway, mask, primDns, secDns)
            if (method < 999) {
                console.log("onRefreshConnection 2", method)
                comboConnectInterface.currentIndex = method - 1
                comboConnectComPort.model = portNames()
            }
            if (serialport !== "na" && (method === 1 || method === 2)) {
                var port = comboConnectComPort.find(method === 1 ? netcard : serialport)
                comboConnectComPort.currentIndex = Math.max(0, port)
                console.log(method === 1 ? "onRefreshConnection 3:" : "onRefreshConnection 4:",
                            comboConnectComPort.currentIndex)
                if (method === 1 && comboConnectComPort.currentText !== "")
                    networkForm.showSubnet(inAdapterSubnet(ipaddr))
            }
            networkForm.show(dhcpMode, hostname, macaddr, ipaddr, gateway, mask, primDns, secDns)
        }

        onMarkHLNPDataRed: {
            console.log("onMarkHLNPDataRed")
            networkForm.mark(index)
        }
    }
}
