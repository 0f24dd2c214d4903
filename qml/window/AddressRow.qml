import QtQuick 2.12
import "../blocks"

// A row of the network form with a dotted quad, open to the operator while the unit has a fixed address.
//
// Items: field. Signals: edited() with every keystroke.
FormRow {
    id: addressRow

    property alias field: addressField

    signal edited()

    AddressField {
        id: addressField
        editable: didScan && comboAddrmode.currentIndex !== 0
        staticMode: comboAddrmode.currentIndex === 1
        onTextEdited: addressRow.edited()
    }
}
