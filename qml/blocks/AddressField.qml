import QtQuick 2.12

// A dotted quad of a unit's network settings: grey and fixed while DHCP rules, open to the operator otherwise.
//
// Properties: editable (the address may be typed), staticMode (it may be selected by mouse).
NetworkField {
    property bool editable: false
    property bool staticMode: false

    color: "#909090"
    readOnly: !editable
    selectByMouse: staticMode
    validator: RegExpValidator {
        regExp: /^(([01]?[0-9]?[0-9]|2([0-4][0-9]|5[0-5]))\.){3}([01]?[0-9]?[0-9]|2([0-4][0-9]|5[0-5]))$/
    }
}
