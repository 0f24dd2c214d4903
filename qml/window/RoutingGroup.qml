import QtQuick 2.12
import ".."
import "../blocks"

// One output's routing: what it shows, whether it is mirrored, and the lock over both.
//
// Properties: title, sources (what there is to choose). Items: titleText, combo, mirror, lock.
// Signals:    chosen() with every move of the source, before touched(); touched() with every change.
// Functions:  show() writes what the unit reports.
OutputGroup {
    id: routingGroup

    property alias title: titleText.text
    property alias sources: sourceCombo.model
    property alias titleText: titleText
    property alias combo: sourceCombo
    property alias mirror: mirrorBox
    property alias lock: lockButton

    signal chosen()
    signal touched()

    function open(on) {
        mirrorBox.enabled = on
        sourceCombo.enabled = on
    }

    function show(source, locked, mirrored) {
        ignoreThisRefresh = true
        sourceCombo.currentIndex = source - 1
        // The combo's handler has cleared the flag if the index really moved.
        ignoreThisRefresh = true
        mirrorBox.checked = mirrored
        lockButton.checked = locked
        open(!locked)
        // Left standing, it would swallow the operator's next action.
        ignoreThisRefresh = false
    }

    titles: OutputTitle { id: titleText }

    MyComboBox {
        id: sourceCombo
        width: 95; height: 30
        onCurrentIndexChanged: {
            routingGroup.chosen()
            routingGroup.touched()
        }
    }

    MirrorCheckBox {
        id: mirrorBox
        text: qsTranslate("main", "Mirror") + qmlTranslator.e_str
        onCheckedChanged: routingGroup.touched()
    }

    LockButton {
        id: lockButton
        onClicked: {
            open(!checked)
            routingGroup.touched()
        }
    }
}
