import QtQuick 2.12

// A dotted quad of a unit's network settings: grey and fixed while DHCP rules, else open to the operator.
//
// Properties: editable (the address may be typed), staticMode (it may be selected by mouse).
NetworkField {
    property bool editable: false
    property bool staticMode: false

    color: "#909090"
    readOnly: !editable
    selectByMouse: staticMode
    validator: DottedQuad {}
}
