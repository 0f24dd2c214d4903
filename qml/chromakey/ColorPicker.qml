import QtQuick 2.12
import QtQuick.Templates 2.5 as T
import "../blocks"

// Picks the key colour from the picture itself. The panel shows no picture: the pad steers the unit's cursor
// over the unit's output, and what the unit reports under the cursor fills the pad.
//
// Functions: pick() asks for the picture's size, brings the cursor up at its last place and opens.
// Reads and writes colorBKH, the hue of the page's angle bars; reads colorDialog and sourcePath of the page.
PopupFrame {
    id: colorPicker

    property var videoOutRes: 16
    property alias xMax: axisX.last
    property alias yMax: axisY.last
    property alias colorPickerX: axisX.position
    property alias colorPickerY: axisY.position
    property alias tempX: axisX.target
    property alias tempY: axisY.target
    property var colorPickerR: 0
    property var colorPickerG: 255
    property var colorPickerB: 0
    property var colorPickerH: 0.3
    property var colorPickerS: 0.5
    property var colorPickerL: 0.5
    property var colorTempH: 0.3

    // Inner items that the page offers under their own names.
    property alias timerMouseMovingCommand: timerMouseMovingCommand
    property alias imgColorPickerClose: imgColorPickerClose
    property alias colorPickerMouseAreaItem: colorPickerMouseAreaItem
    property alias colorPickerMouseArea: colorPickerMouseArea
    property alias recColorPickerMouseArea: recColorPickerMouseArea
    property alias columnColorPickerLeft: columnColorPickerLeft
    property alias txtColorPickerR: txtColorPickerR
    property alias txtColorPickerG: txtColorPickerG
    property alias txtColorPickerB: txtColorPickerB
    property alias txtColorPickerH: txtColorPickerH
    property alias txtColorPickerS: txtColorPickerS
    property alias txtColorPickerL: txtColorPickerL
    property alias columnColorPickerRight: columnColorPickerRight
    property alias btnDecreaseX: axisX.decreaseButton
    property alias btnIncreaseX: axisX.increaseButton
    property alias txtColorPickerX: axisX.field
    property alias btnDecreaseY: axisY.decreaseButton
    property alias btnIncreaseY: axisY.increaseButton
    property alias txtColorPickerY: axisY.field
    property alias recColorPickerResult: recColorPickerResult
    property alias btnColorPickerAuto: btnColorPickerAuto
    property alias btnColorPickerCancel: btnColorPickerCancel
    property alias btnColorPickerOK: btnColorPickerOK

    function pick() {
        colorTempH = colorBKH
        videoOutRes = mainObject.getVideoOutRes()
        var size = pictureSize()
        if (size.width > 0) {
            xMax = size.width - 2
            yMax = size.height - 2
        }
        placeCursor()
        open()
    }

    // By the code of the output's resolution: 0 falls to the second row, and past the last one nothing is
    // known of the picture.
    function pictureSize() {
        if (videoOutRes >= 1 && videoOutRes <= 5)
            return Qt.size(1280, 720)
        if (videoOutRes <= 16)
            return Qt.size(1920, 1080)
        return videoOutRes <= 32 ? Qt.size(3840, 2160) : Qt.size(0, 0)
    }

    function aim(padX, padY) {
        var size = pictureSize()
        if (size.width > 0) {
            axisX.aim(padX / 480, size.width)
            axisY.aim(padY / 270, size.height)
        }
    }

    function placeCursor() {
        mainObject.setCursorData(3, colorPickerX, colorPickerY)
    }

    function showPosition() {
        axisX.show()
        axisY.show()
    }

    function accept() {
        mainObject.setCursorData(0, colorPickerX, colorPickerY)
        mainObject.msecSleep(100)
        // Three times 999 asks for the sample under the cursor.
        mainObject.setBKColor(999, 999, 999, 0)
        colorBKH = colorPickerH
        colorTempH = colorPickerH
        close()
    }

    function cancel() {
        mainObject.setCursorData(0, tempX, tempY)
        colorBKH = colorTempH
        close()
    }

    function keyAutomatically() {
        btnColorPickerAuto.enabled = false
        mainObject.setCursorData(0, tempX, tempY)
        colorBKH = colorTempH
        mainObject.setBKColor(txtColorPickerR.text, txtColorPickerG.text, txtColorPickerB.text, 1)
        btnColorPickerAuto.enabled = true
        close()
    }

    parent: T.Overlay.overlay
    source: sourcePath + "img_bg_pick_color_chromakey.png"
    width: 522
    height: 522
    closable: false
    closePolicy: T.Popup.CloseOnEscape
    onClosed: colorPickerMouseAreaItem.stopMoving()

    Timer {
        id: timerMouseMovingCommand
        // Every cursor command is a blocking exchange, so a drag is paced and not sent move by move.
        interval: 200
        repeat: true
        onTriggered: mainObject.setCursorData(3, tempX, tempY)
    }

    Connections {
        target: mainObject

        onRefreshBKColorPicker: {
            recColorPickerResult.color = colorString
            recColorPickerMouseArea.color = colorString
            showPosition()
            colorPickerR = r
            colorPickerG = g
            colorPickerB = b
            colorPickerH = h
            colorPickerS = s
            colorPickerL = l
        }
    }

    PanelText {
        anchors.horizontalCenter: parent.horizontalCenter
        y: 5
        height: 30
        color: Look.noticeTitle
        text: qsTranslate("PageChromakey", "Pick Backing Color") + qmlTranslator.e_str
    }

    ClickImage {
        id: imgColorPickerClose
        anchors { top: parent.top; topMargin: 7; right: parent.right; rightMargin: 20 }
        source: "qrc:/img/pc/btn_n_close_dialog.png"
        onClicked: cancel()
    }

    PickerPad {
        id: colorPickerMouseAreaItem
        x: 21
        y: 69
        width: 480
        height: 270
        across: axisX
        down: axisY
        pace: timerMouseMovingCommand
        onPlaced: placeCursor()
        onAccepted: accept()

        MouseArea {
            id: colorPickerMouseArea
            anchors.fill: parent
            hoverEnabled: true
            cursorShape: Qt.CrossCursor

            onPositionChanged: {
                if (!pressed) {
                    timerMouseMovingCommand.stop()
                    return
                }
                if (mouseX >= 0 && mouseX < 480 && mouseY >= 0 && mouseY < 270) {
                    aim(mouseX, mouseY)
                    if (!timerMouseMovingCommand.running)
                        timerMouseMovingCommand.start()
                    return
                }
                // Off the pad the cursor is taken away, once.
                if (timerMouseMovingCommand.running) {
                    mainObject.setCursorData(0, tempX, tempY)
                    timerMouseMovingCommand.stop()
                }
                colorBKH = colorTempH
            }

            // The end of a drag inside the pad arrives here too, and settles the last position.
            onClicked: {
                timerMouseMovingCommand.stop()
                if (!pressed) {
                    aim(mouseX, mouseY)
                    mainObject.setCursorData(3, tempX, tempY)
                }
            }

            onCanceled: timerMouseMovingCommand.stop()
        }

        Rectangle {
            id: recColorPickerMouseArea
            anchors.fill: parent
            color: colorDialog.color
        }
    }

    Grid {
        id: columnColorPickerLeft
        anchors { top: colorPickerMouseAreaItem.bottom; topMargin: 20; left: colorPickerMouseAreaItem.left }
        width: colorPickerMouseAreaItem.width / 2
        height: 86
        columns: 3
        spacing: 24
        columnSpacing: 12

        PickerReadout {
            id: txtColorPickerR
            label: qsTranslate("PageChromakey", "R:") + qmlTranslator.e_str
            labelSize: seen ? 20 : 18
            text: colorPickerR
        }

        PickerReadout {
            id: txtColorPickerG
            label: qsTranslate("PageChromakey", "G:") + qmlTranslator.e_str
            labelSize: seen ? 20 : 18
            text: colorPickerG
        }

        PickerReadout {
            id: txtColorPickerB
            label: qsTranslate("PageChromakey", "B:") + qmlTranslator.e_str
            labelSize: seen ? 20 : 18
            text: colorPickerB
        }

        PickerReadout {
            id: txtColorPickerH
            label: qsTranslate("PageChromakey", "H:") + qmlTranslator.e_str
            text: colorPickerH
        }

        PickerReadout {
            id: txtColorPickerS
            label: qsTranslate("PageChromakey", "S:") + qmlTranslator.e_str
            text: colorPickerS.toFixed(2)
        }

        PickerReadout {
            id: txtColorPickerL
            label: qsTranslate("PageChromakey", "L:") + qmlTranslator.e_str
            text: colorPickerL.toFixed(2)
        }
    }

    Column {
        id: columnColorPickerRight
        anchors { top: columnColorPickerLeft.top; topMargin: -7; left: columnColorPickerLeft.right }
        width: columnColorPickerLeft.width * 0.8
        spacing: 10

        PickerAxis {
            id: axisX
            last: 478
            textSize: seen ? 20 : 22
            onStepped: placeCursor()
            onTyped: { placeCursor(); showPosition() }
        }

        PickerAxis {
            id: axisY
            last: 268
            textSize: seen ? 20 : 22
            onStepped: placeCursor()
            onTyped: { placeCursor(); showPosition() }
        }
    }

    Rectangle {
        id: recColorPickerResult
        anchors { right: parent.right; rightMargin: 13; bottom: btnColorPickerCancel.top; bottomMargin: 52 }
        width: 32
        height: 32
        color: colorDialog.color
        border.color: Look.fieldGround
    }

    ClickImage {
        id: btnColorPickerAuto
        x: 13
        y: 466
        source: sourcePath + (pressed ? "btn_p_" : "btn_n_") + "auto_pick_color.png"
        onClicked: keyAutomatically()
    }

    ClickImage {
        id: btnColorPickerCancel
        x: 279
        y: 466
        source: sourcePath + (pressed ? "btn_p_" : "btn_n_") + "cancel_adjust_color.png"
        onClicked: cancel()
    }

    ClickImage {
        id: btnColorPickerOK
        x: 399
        y: 466
        source: sourcePath + (pressed ? "btn_p_" : "btn_n_") + "ok_adjust_color.png"
        onClicked: accept()
    }
}
