import QtQuick 2.12
import ".."
import "../blocks"

// The network settings of a unit, as found, saved or typed.
//
// Functions: show(), write(), mark(), showSubnet().
Item {
    property alias txtHostname: txtHostname
    property alias txtMacaddr: txtMacaddr
    property alias comboAddrmode: comboAddrmode
    property alias txtIPAddr: rowIPAddr.field
    property alias txtNetmask: rowNetmask.field
    property alias txtGateway: rowGateway.field
    property alias txtPrimdns: rowPrimdns.field
    property alias txtSecdns: rowSecdns.field

    function write(hostname, macaddr, ipaddr, gateway, mask, primDns, secDns) {
        txtHostname.show(hostname)
        txtMacaddr.text = macaddr
        txtIPAddr.text = ipaddr
        txtGateway.text = gateway
        txtNetmask.text = mask
        txtPrimdns.text = primDns
        txtSecdns.text = secDns
    }

    function colorAddresses(color) {
        var fields = [txtIPAddr, txtGateway, txtNetmask, txtPrimdns, txtSecdns]
        fields.forEach(function (field) { field.color = color })
    }

    function color(editable) {
        txtHostname.color = Look.normal
        colorAddresses(editable ? Look.normal : "#909090")
    }

    // Marks stand until they are taken back, whatever else is shown meanwhile.
    function mark(index) {
        var field = [txtIPAddr, txtHostname, txtGateway, txtNetmask, txtPrimdns, txtSecdns][index - 1]
        if (index === 0) {
            errorColored = false
            color(comboAddrmode.currentIndex === 1)
        } else if (field) {
            errorColored = true
            field.color = "#aa0000"
        }
    }

    function show(dhcp, hostname, macaddr, ipaddr, gateway, mask, primDns, secDns) {
        comboAddrmode.currentIndex = dhcp ? 0 : 1
        write(hostname, macaddr, ipaddr, gateway, mask, primDns, secDns)
        if (!errorColored)
            color(didScan && comboAddrmode.currentIndex === 1)
    }

    function showSubnet(inside) {
        ipAddrError = !inside
        txtIPAddr.color = inside ? Look.normal : "#990000"
    }

    FormRow {
        y: 225
        title: qsTranslate("main", "Host Name") + qmlTranslator.e_str

        HostNameField {
            id: txtHostname
            readOnly: !didScan
            onTextEdited: hlnpNetHostnameChned = true
        }
    }

    FormRow {
        y: 280
        title: qsTranslate("main", "Mac Address") + qmlTranslator.e_str

        FormLabel {
            id: txtMacaddr
            width: 216
            leftPadding: 6
        }
    }

    DividerLine {
        x: 25; y: 332
    }

    FormRow {
        y: 352
        title: qsTranslate("main", "Address Mode") + qmlTranslator.e_str

        MyComboBox {
            id: comboAddrmode
            width: 216; height: 32
            model: ["DHCP", qsTranslate("main", "Static IP") + qmlTranslator.e_str]
            onCurrentIndexChanged: {
                if (settling)
                    return
                hlnpNetDHCPModeChned = true
                if (currentIndex === 1) {
                    hlnpNetIPAddrChned = true
                    if (didScan)
                        color(true)
                } else {
                    colorAddresses("#909090")
                }
            }
        }
    }

    AddressRow {
        id: rowIPAddr
        y: 404
        title: qsTranslate("main", "IP Address") + qmlTranslator.e_str
        field.color: ipAddrError ? "#990000" : "#909090"
        onEdited: hlnpNetIPAddrChned = true
    }

    AddressRow {
        id: rowNetmask
        y: 456
        title: qsTranslate("main", "Network Mask") + qmlTranslator.e_str
        onEdited: hlnpNetMaskChned = true
    }

    AddressRow {
        id: rowGateway
        y: 508
        title: qsTranslate("main", "Gateway") + qmlTranslator.e_str
        onEdited: hlnpNetGatewayChned = true
    }

    AddressRow {
        id: rowPrimdns
        y: 560
        title: qsTranslate("main", "Primary DNS") + qmlTranslator.e_str
        onEdited: hlnpNetPrimdnsChned = true
    }

    AddressRow {
        id: rowSecdns
        y: 612
        title: qsTranslate("main", "Secondary DNS") + qmlTranslator.e_str
        onEdited: hlnpNetSecdnsChned = true
    }

    DividerLine {
        x: 25; y: 654
    }
}
