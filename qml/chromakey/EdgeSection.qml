import QtQuick 2.12
import "../blocks"
import "Command.js" as Command

// Edge fix: how far the key's edges draw in on both sides, and how soft they are.
GroupSection {
    id: edgeSection

    property alias shrinkLeft: shrinkLeft
    property alias shrinkRight: shrinkRight
    property alias softEdge: softEdge

    height: 296
    openHeight: 296
    command: Command.edge
    title: qsTranslate("PageChromakey", "Edge Fix (HD only)") + qmlTranslator.e_str
    rows: [shrinkLeft, shrinkRight, softEdge]
    onSend: {
        mainObject.setEdgeFix(switchedOn, shrinkLeft.value(typedRow), shrinkRight.value(typedRow),
                              softEdge.value(typedRow))
    }
    onRead: mainObject.getEdgeFix()
    onReset: mainObject.resetEdgeFix()
    onSwitched: {
        mainObject.msecSleep(200)
        mainObject.getEdgeFix()
    }

    Connections {
        target: mainObject

        onRefreshEdgeFix: {
            console.log("RefreshEdgeFix: ", enable, left, right, edge)
            shrinkLeft.sliderValue = left
            shrinkRight.sliderValue = right
            softEdge.sliderValue = edge
            show(enable)
        }
    }

    GroupRow {
        id: shrinkLeft
        section: edgeSection
        textValueMaxlength: 2
        title: qsTranslate("PageChromakey", "Shrink Left") + qmlTranslator.e_str
        sliderMax: 50
        // This row alone stops the poll with the first move already.
        onSliderValueChanged: {
            if (!settling)
                mainObject.setRefreshTimer(false)
        }
    }

    GroupRow {
        id: shrinkRight
        section: edgeSection
        textValueMaxlength: 2
        title: qsTranslate("PageChromakey", "Shrink Right") + qmlTranslator.e_str
        sliderMax: 50
    }

    GroupRow {
        id: softEdge
        section: edgeSection
        title: qsTranslate("PageChromakey", "Soft Edge") + qmlTranslator.e_str
        sliderMax: 100
    }
}
