import QtQuick 2.12
import QtQuick.Controls 2.5
import QtQuick.Dialogs 1.2
import "blocks"
import "blocks/Pictures.js" as Pictures

// The chromakey page: six foldable sections in one scrolling column, and the colour picker.
//
// The page is not polled. Its values arrive on connect, on memory recall, after a reset and after a
// number typed in a field. A moved slider opens a window of 50 ms, at whose end the latest values of its
// group go out; a typed number goes out at once and comes back through the refresh signal.
Item {
    id: pageChromakeyItem

    property string sourcePath: Pictures.folder(qmlTranslator.currentLanguage())

    property bool matteOn: true
    property bool darkEnhanceOn: true
    property bool brightEnhanceOn: true
    property bool shadowEnhanceOn: true
    property bool edgeFix: true

    property bool area01Folded: false
    property bool area02Folded: false
    property bool area03Folded: false
    property bool area04Folded: false
    property bool area05Folded: false
    property bool area06Folded: false

    property var commandIndex: 0
    property var spillDefault: 0

    property var ckColorR: 0
    property var ckColorG: 255
    property var ckColorB: 0
    property var colorBKH: 0.3
    property var colorBKS: 0.5
    property var colorBKL: 0.5

    property var videoOutRes: 16
    property var xMax: 478
    property var yMax: 268
    property var colorPickerX: 0
    property var colorPickerY: 0
    property var tempX: 0
    property var tempY: 0
    property var colorPickerR: 0
    property var colorPickerG: 255
    property var colorPickerB: 0
    property var colorPickerH: 0.3
    property var colorPickerS: 0.5
    property var colorPickerL: 0.5
    property var colorTempH: 0.3

    // Sliders take their start values while the document loads; only later changes are the operator's
    // or the unit's.
    property bool loaded: false

    // Inner items of the building blocks, under the names that the page's functions use.
    property alias sliderOPPlus: rowOpenAnglePlus.slider
    property alias sliderOPMinus: rowOpenAngleMinus.slider
    property alias txtChromaOAPlus: rowOpenAnglePlus.field
    property alias txtChromaOAMinus: rowOpenAngleMinus.field
    property alias btnOADecrease: rowOpenAnglePlus.decreaseButton
    property alias btnOAIncrease: rowOpenAnglePlus.increaseButton
    property alias btnOADecrease2: rowOpenAngleMinus.decreaseButton
    property alias btnOAIncrease2: rowOpenAngleMinus.increaseButton
    property alias btnMGReset: pageCK_ContentHeader01.resetButton
    property alias btnMatteGenResetImage: pageCK_ContentHeader01.resetButton
    property alias btnDarkEnhanceReset: pageCK_ContentHeader02.resetButton
    property alias btnDarkEnhanceResetImage: pageCK_ContentHeader02.resetButton
    property alias btnBrightEnhanceReset: pageCK_ContentHeader03.resetButton
    property alias btnBrightEnhanceResetImage: pageCK_ContentHeader03.resetButton
    property alias btnShadowEnhanceReset: pageCK_ContentHeader04.resetButton
    property alias btnShadowEnhanceResetImage: pageCK_ContentHeader04.resetButton
    property alias btnSpillReset: pageCK_ContentHeader05.resetButton
    property alias btnSpillResetImage: pageCK_ContentHeader05.resetButton
    property alias btnEdgeFixReset: pageCK_ContentHeader06.resetButton
    property alias btnEdgeFixResetImage: pageCK_ContentHeader06.resetButton

    // ---- Pictures ---------------------------------------------------------------------------------

    function switchFace(on) {
        return sourcePath + Pictures.switchFace(on)
    }

    function resetFace(on) {
        return sourcePath + Pictures.resetFace(on)
    }

    function spillFace(value, name) {
        var state = spillDefault === value ? "p" : "n"
        return sourcePath + "btn_" + state + "_spill_" + name + "_chromakey.png"
    }

    function showSpillDefault() {
        btnSpillLowImage.source = spillFace(0, "low")
        btnSpillMidImage.source = spillFace(1, "mid")
        btnSpillHighImage.source = spillFace(2, "high")
    }

    // Writes every face that is set by hand anew. The resets and the automatic key show their normal faces
    // whatever the switches say; the next refresh puts them right.
    function renewFaces() {
        sourcePath = Pictures.folder(qmlTranslator.currentLanguage())
        pageCK_ContentHeader01.switchSource = switchFace(matteOn)
        pageCK_ContentHeader02.switchSource = switchFace(darkEnhanceOn)
        pageCK_ContentHeader03.switchSource = switchFace(brightEnhanceOn)
        pageCK_ContentHeader04.switchSource = switchFace(shadowEnhanceOn)
        pageCK_ContentHeader06.switchSource = switchFace(edgeFix)
        btnCkBKColorAuto.source = sourcePath + "btn_n_auto_bg_chromakey.png"
        btnMatteGenResetImage.source = resetFace(true)
        btnDarkEnhanceResetImage.source = resetFace(true)
        btnBrightEnhanceResetImage.source = resetFace(true)
        btnShadowEnhanceResetImage.source = resetFace(true)
        btnSpillResetImage.source = resetFace(true)
        btnEdgeFixResetImage.source = resetFace(true)
        showSpillDefault()
    }

    // ---- Commands ---------------------------------------------------------------------------------

    // A running window is left alone: a long drag sends once per window and never falls silent.
    function sendSoon(index) {
        if (!loaded)
            return
        commandIndex = index
        timerSliderCommand.start()
    }

    function sendAngle() {
        mainObject.setCKAngle(sliderOPMinus.value, sliderOPPlus.value)
    }

    function sendBWLevel() {
        mainObject.setCKBWLevel(blackLevel.sliderValue, whiteLevel.sliderValue, matteOn)
    }

    function sendDark() {
        mainObject.setCKDark(darkEnhanceOn, darkLevel.sliderValue, darkDensity.sliderValue,
                             darkBalance.sliderValue)
    }

    function sendBright() {
        mainObject.setCKBright(brightEnhanceOn, brightLevel.sliderValue, brightDensity.sliderValue,
                               brightBalance.sliderValue)
    }

    function sendShadow() {
        mainObject.setCKShadow(shadowEnhanceOn, shadow.sliderValue)
    }

    function sendSpill() {
        sendSpillValues(spillSuppression.sliderValue, spillEnhance.sliderValue, spillBalance.sliderValue,
                        edgeBrightness.sliderValue)
    }

    function sendSpillValues(suppression, enhance, balance, brightness) {
        mainObject.setCKSpillBright(suppression, enhance, balance, brightness, checkboxVivid.checked ? 1 : 0,
                                    spillDefault, checkboxSpillSup.checked, checkboxVivid.checked)
    }

    function sendEdgeFix() {
        mainObject.setEdgeFix(edgeFix, shrinkLeft.sliderValue, shrinkRight.sliderValue, softEdge.sliderValue)
    }

    // A typed number goes out at once in the place of its row's value; the unit's answer moves the slider.

    function sendTypedBWLevel(black, white) {
        mainObject.setCKBWLevel(black, white, matteOn)
        mainObject.msecSleep(100)
        mainObject.getCKBWLevel()
    }

    function sendTypedDark(level, density, balance) {
        mainObject.setCKDark(darkEnhanceOn, level, density, balance)
        mainObject.msecSleep(100)
        mainObject.getCKDark()
    }

    function sendTypedBright(level, density, balance) {
        mainObject.setCKBright(brightEnhanceOn, level, density, balance)
        mainObject.msecSleep(100)
        mainObject.getCKBright()
    }

    function sendTypedShadow(level) {
        mainObject.setCKShadow(shadowEnhanceOn, level)
        mainObject.msecSleep(100)
        mainObject.getCKShadow()
    }

    function sendTypedSpill(suppression, enhance, balance, brightness) {
        console.log("onTExtFieldChanged", suppression, enhance, balance, brightness)
        sendSpillValues(suppression, enhance, balance, brightness)
        mainObject.msecSleep(100)
        mainObject.getCKSpillBright()
    }

    function sendTypedEdge(left, right, edge) {
        mainObject.setEdgeFix(edgeFix, left, right, edge)
        mainObject.msecSleep(100)
        mainObject.getEdgeFix()
    }

    function chooseSpillDefault(value) {
        if (spillDefault === value)
            return
        commandIndex = 6
        spillDefault = value
        showSpillDefault()
        mainObject.resetCKSpillBright(spillDefault, checkboxSpillSup.checked)
    }

    // ---- Switches ---------------------------------------------------------------------------------

    function showMatte(on) {
        var textColor = on ? "#D8D8D8" : "#333333"
        var texts = [txtBackingColor, txtOpenAngle, txtBGR, txtBGG, txtBGB, txtChromaOAPlus,
                     txtChromaOAMinus]
        texts.forEach(function (text) { text.color = textColor })

        var items = [btnMGReset, recColorAdjust, imgColorPen, btnCkBKColorAuto, txtBGR, txtBGG, txtBGB,
                     sliderOPPlus, sliderOPMinus, txtChromaOAPlus, txtChromaOAMinus,
                     btnOADecrease, btnOAIncrease, btnOADecrease2, btnOAIncrease2]
        items.forEach(function (item) { item.enabled = on })

        pageCK_ContentHeader01.switchSource = switchFace(on)
        btnMatteGenResetImage.source = resetFace(on)
        btnCkBKColorAuto.source = sourcePath + (on ? "btn_n_" : "btn_d_") + "auto_bg_chromakey.png"
        chromaItem01.sliderOPMaskColor = on ? "#8DC6E8" : "#5E5E5E"
        chromaItem01.sliderHandlerSource = "qrc:/img/pc/btn_" + (on ? "n" : "d") + "_slider_chromakey.png"
        blackLevel.enableItem(on)
        whiteLevel.enableItem(on)
    }

    function showSection(header, rows, on) {
        header.switchSource = switchFace(on)
        header.resetSource = resetFace(on)
        header.resetEnabled = on
        rows.forEach(function (row) { row.enableItem(on) })
    }

    function showDark(on) {
        showSection(pageCK_ContentHeader02, [darkLevel, darkDensity, darkBalance], on)
    }

    function showBright(on) {
        showSection(pageCK_ContentHeader03, [brightLevel, brightDensity, brightBalance], on)
    }

    function showShadow(on) {
        showSection(pageCK_ContentHeader04, [shadow], on)
    }

    function showEdgeFix(on) {
        showSection(pageCK_ContentHeader06, [shrinkLeft, shrinkRight, softEdge], on)
    }

    // ---- Picker -----------------------------------------------------------------------------------

    function openPicker() {
        colorTempH = colorBKH
        videoOutRes = mainObject.getVideoOutRes()
        // A code of 0 falls to the second row.
        if (videoOutRes >= 1 && videoOutRes <= 5)
            limitPicker(1278, 718)
        else if (videoOutRes <= 16)
            limitPicker(1918, 1078)
        else if (videoOutRes <= 32)
            limitPicker(3838, 2158)
        mainObject.setCursorData(3, colorPickerX, colorPickerY)
        popupColorPicker.open()
    }

    function limitPicker(x, y) {
        xMax = x
        yMax = y
    }

    function aimPicker(padX, padY) {
        if (videoOutRes > 0 && videoOutRes <= 5)
            scalePicker(padX, padY, 1280, 720)
        else if (videoOutRes <= 16)
            scalePicker(padX, padY, 1920, 1080)
        else if (videoOutRes <= 32)
            scalePicker(padX, padY, 3840, 2160)
        colorPickerX = tempX
        colorPickerY = tempY
    }

    function scalePicker(padX, padY, pictureWidth, pictureHeight) {
        tempX = Math.round(padX / 480 * pictureWidth)
        tempY = Math.round(padY / 270 * pictureHeight)
    }

    function stepPickerX(step) {
        if (step < 0 ? colorPickerX < 1 : colorPickerX > xMax)
            return
        colorPickerX += step
        tempX = colorPickerX
        mainObject.setCursorData(3, tempX, colorPickerY)
    }

    function stepPickerY(step) {
        if (step < 0 ? colorPickerY < 1 : colorPickerY > yMax)
            return
        colorPickerY += step
        tempY = colorPickerY
        mainObject.setCursorData(3, colorPickerX, tempY)
    }

    function typePickerX(text) {
        colorPickerX = Math.min(Math.max(parseInt(text), 0), xMax + 1)
        tempX = colorPickerX
        mainObject.setCursorData(3, colorPickerX, colorPickerY)
        showPickerPosition()
    }

    function typePickerY(text) {
        colorPickerY = Math.min(Math.max(parseInt(text), 0), yMax + 1)
        tempY = colorPickerY
        mainObject.setCursorData(3, colorPickerX, colorPickerY)
        showPickerPosition()
    }

    function showPickerPosition() {
        txtColorPickerX.text = colorPickerX
        txtColorPickerY.text = colorPickerY
    }

    function acceptPicker() {
        mainObject.setCursorData(0, colorPickerX, colorPickerY)
        mainObject.msecSleep(100)
        // Three times 999 asks for the sample under the cursor.
        mainObject.setBKColor(999, 999, 999, 0)
        colorBKH = colorPickerH
        colorTempH = colorPickerH
        popupColorPicker.close()
    }

    function cancelPicker() {
        mainObject.setCursorData(0, tempX, tempY)
        colorBKH = colorTempH
        popupColorPicker.close()
    }

    function autoPicker() {
        btnColorPickerAuto.enabled = false
        mainObject.setCursorData(0, tempX, tempY)
        colorBKH = colorTempH
        mainObject.setBKColor(txtColorPickerR.text, txtColorPickerG.text, txtColorPickerB.text, 1)
        btnColorPickerAuto.enabled = true
        popupColorPicker.close()
    }

    Component.onCompleted: loaded = true

    // ---- Timers -----------------------------------------------------------------------------------

    Timer {
        id: timerSliderCommand
        interval: 50
        onTriggered: {
            mainObject.setRefreshTimer(false)
            switch (commandIndex) {
            case 1:
                sendAngle()
                break
            case 2:
                sendBWLevel()
                break
            case 3:
                sendDark()
                break
            case 4:
                sendBright()
                break
            case 5:
                sendShadow()
                break
            case 6:
                sendSpill()
                break
            case 7:
                sendEdgeFix()
                break
            }
            mainObject.setRefreshTimer(true)
        }
    }

    // Every cursor command is a blocking exchange, so a drag on the pad is paced and not sent move by move.
    Timer {
        id: timerMouseMovingCommand
        interval: 200
        repeat: true
        onTriggered: mainObject.setCursorData(3, tempX, tempY)
    }

    // ---- What the unit reports --------------------------------------------------------------------

    Connections {
        target: mainObject

        onRefreshBKColorAdjust: {
            colorDialog.color = colorString
            ckColorR = r
            ckColorG = g
            ckColorB = b
            colorPickerR = r
            colorPickerG = g
            colorPickerB = b
            colorBKH = h
            colorBKS = s
            colorBKL = l
        }

        onRefreshBKColorPicker: {
            recColorPickerResult.color = colorString
            recColorPickerMouseArea.color = colorString
            showPickerPosition()
            colorPickerR = r
            colorPickerG = g
            colorPickerB = b
            colorPickerH = h
            colorPickerS = s
            colorPickerL = l
        }

        onRefreshCKAngle: {
            sliderOPMinus.value = minus
            sliderOPPlus.value = plus
        }

        onRefreshCKBWLevel: {
            console.log("black white level = ", black, white)
            console.log("Matte On = ", matte)
            blackLevel.sliderValue = black
            whiteLevel.sliderValue = white
            matteOn = matte
            showMatte(matte)
        }

        onRefreshCKDark: {
            darkLevel.sliderValue = level
            darkDensity.sliderValue = density
            darkBalance.sliderValue = balance
            showDark(enable)
            darkEnhanceOn = enable
        }

        onRefreshCKBright: {
            brightLevel.sliderValue = level
            brightDensity.sliderValue = density
            brightBalance.sliderValue = balance
            showBright(enable)
            brightEnhanceOn = enable
        }

        onRefreshCKShadow: {
            shadow.sliderValue = shadowValue
            showShadow(enable)
            shadowEnhanceOn = enable
        }

        onRefreshCKSpill: {
            spillDefault = spillDefButton
            showSpillDefault()
            spillSuppression.sliderValue = spillSuppressionValue
            spillEnhance.sliderValue = spillEnhanceValue
            spillBalance.sliderValue = spillBalanceValue
            edgeBrightness.sliderValue = edgeBrightnessValue
            checkboxSpillSup.checked = Boolean(spillSupEnhanceValue)
            checkboxVivid.checked = Boolean(vividValue)
        }

        onRefreshEdgeFix: {
            console.log("RefreshEdgeFix: ", enable, left, right, edge)
            shrinkLeft.sliderValue = left
            shrinkRight.sliderValue = right
            softEdge.sliderValue = edge
            showEdgeFix(enable)
            edgeFix = enable
        }
    }

    Connections {
        target: qmlTranslator

        onLanguageChanged: {
            renewFaces()
            console.log("onLanguageChanged(chromakey)")
        }
    }

    // Never shown: it holds the page's current colour.
    ColorDialog {
        id: colorDialog
        modality: Qt.WindowModal
        title: "Choose a color"
        color: "#00FF00"
        onAccepted: {
            mainObject.setBKColor(color, 0)
            recColorAdjust.color = color
        }
    }

    ScrollView {
        id: scrollContent
        x: 30
        y: 10
        width: 1140
        height: 610
        clip: true
        contentWidth: 1110
        contentHeight: pageCK_ContentArea01.height + pageCK_ContentArea02.height
                       + pageCK_ContentArea03.height + pageCK_ContentArea04.height
                       + pageCK_ContentArea05.height + pageCK_ContentArea06.height

        ScrollBar.vertical: DarkScrollBar {
            parent: scrollContent
            x: pageCK_ContentArea01.width + 14
            height: scrollContent.height
            policy: ScrollBar.AlwaysOn
        }

        Column {
            // ---- Matte Generation ---------------------------------------------------------------

            FoldingSection {
                id: pageCK_ContentArea01
                height: 74 * 6

                SectionHeader {
                    id: pageCK_ContentHeader01
                    title: qsTr("Matte Generation") + qmlTranslator.e_str
                    folded: area01Folded
                    switchSource: sourcePath + "btn_switch_on_dashboard.png"
                    resetSource: sourcePath + "btn_n_reset_dashboard.png"
                    onFoldClicked: {
                        pageCK_ContentArea01.foldTo(area01Folded ? 74 * 6 : height)
                        area01Folded = !area01Folded
                    }
                    onSwitchClicked: {
                        showMatte(!matteOn)
                        matteOn = !matteOn
                        sendBWLevel()
                    }
                    onResetPressedDown: resetSource = sourcePath + "btn_p_reset_dashboard.png"
                    onResetReleased: {
                        resetSource = sourcePath + "btn_n_reset_dashboard.png"
                        console.log("MG Group Reset")
                        mainObject.resetBKColor()
                    }
                }

                Item {
                    id: chromaItem01
                    // The look of both angle sliders.
                    property color sliderOPMaskColor: "#8DC6E8"
                    property string sliderHandlerSource: "qrc:/img/pc/btn_n_slider_chromakey.png"

                    y: pageCK_ContentHeader01.height
                    width: parent.width
                    enabled: !area01Folded

                    Column {
                        InputLine {
                            PanelText {
                                id: txtBackingColor
                                x: 48
                                y: 20
                                width: 169
                                text: qsTr("Backing Color:") + qmlTranslator.e_str
                            }

                            Rectangle {
                                id: recColorAdjust
                                x: 238
                                y: 21
                                width: 32
                                height: 32
                                color: colorDialog.color
                                border.color: "#1F1F1F"
                            }

                            Image {
                                id: imgColorPen
                                x: 282
                                y: 19
                                source: matteOn ? "qrc:/img/pc/btn_n_pickcolor_chromakey.png"
                                                : "qrc:/img/pc/btn_d_pickcolor_chromakey.png"

                                MouseArea {
                                    anchors.fill: parent
                                    onClicked: openPicker()
                                }
                            }

                            Image {
                                id: btnCkBKColorAuto
                                x: 334
                                y: 19
                                source: sourcePath + "btn_n_auto_bg_chromakey.png"

                                MouseArea {
                                    anchors.fill: parent
                                    onClicked: {
                                        console.log("Begin CK Auto")
                                        btnCkBKColorAuto.enabled = false
                                        mainObject.setBKColor(ckColorR, ckColorG, ckColorB, 2)
                                        btnCkBKColorAuto.enabled = true
                                        console.log("End CK Auto")
                                    }
                                }
                            }

                            PanelText {
                                id: lblBGR
                                x: 564 - width
                                y: 20
                                color: "#757575"
                                text: qsTr("R:") + qmlTranslator.e_str
                            }

                            DarkTextField {
                                id: txtBGR
                                x: 572
                                y: 17
                                width: 106
                                height: 40
                                rightPadding: 10
                                font.pixelSize: 22
                                horizontalAlignment: TextInput.AlignRight
                                text: ckColorR
                                validator: IntValidator {
                                    bottom: 0
                                    top: 1000
                                }
                                onAccepted: mainObject.setBKColor(txtBGR.text, txtBGG.text, txtBGB.text, 0)
                            }

                            PanelText {
                                id: lblBGG
                                x: 738 - width
                                y: 20
                                color: "#757575"
                                text: qsTr("G:") + qmlTranslator.e_str
                            }

                            DarkTextField {
                                id: txtBGG
                                x: 746
                                y: 17
                                width: 106
                                height: 40
                                rightPadding: 10
                                font.pixelSize: 22
                                horizontalAlignment: TextInput.AlignRight
                                text: ckColorG
                                validator: IntValidator {
                                    bottom: 0
                                    top: 1000
                                }
                                onAccepted: mainObject.setBKColor(txtBGR.text, txtBGG.text, txtBGB.text, 0)
                            }

                            PanelText {
                                id: lblBGB
                                x: 912 - width
                                y: 20
                                color: "#757575"
                                text: qsTr("B:") + qmlTranslator.e_str
                            }

                            DarkTextField {
                                id: txtBGB
                                x: 920
                                y: 17
                                width: 106
                                height: 40
                                rightPadding: 10
                                font.pixelSize: 22
                                horizontalAlignment: TextInput.AlignRight
                                text: ckColorB
                                validator: IntValidator {
                                    bottom: 0
                                    top: 1000
                                }
                                onAccepted: mainObject.setBKColor(txtBGR.text, txtBGG.text, txtBGB.text, 0)
                            }
                        }

                        OpenAngleRow {
                            id: rowOpenAnglePlus
                            sign: "+"
                            hue: colorBKH
                            hueSpan: 90
                            saturation: colorBKS
                            lightness: colorBKL
                            live: matteOn
                            maskColor: chromaItem01.sliderOPMaskColor
                            handleSource: chromaItem01.sliderHandlerSource
                            onValueChanged: sendSoon(1)

                            PanelText {
                                id: txtOpenAngle
                                x: 48
                                y: 20
                                text: qsTr("Open Angle:") + qmlTranslator.e_str
                            }
                        }

                        OpenAngleRow {
                            id: rowOpenAngleMinus
                            sign: "-"
                            hue: colorBKH
                            hueSpan: -90
                            saturation: colorBKS
                            lightness: colorBKL
                            live: matteOn
                            maskColor: chromaItem01.sliderOPMaskColor
                            handleSource: chromaItem01.sliderHandlerSource
                            onValueChanged: sendSoon(1)
                        }

                        MyControlItem {
                            id: blackLevel
                            title: qsTr("Black Level:") + qmlTranslator.e_str
                            sliderMin: 0
                            sliderMax: 1000
                            onSliderValueChanged: sendSoon(2)
                            onTextFieldChanged: sendTypedBWLevel(textValue, whiteLevel.sliderValue)
                        }

                        MyControlItem {
                            id: whiteLevel
                            visible: !area01Folded
                            title: qsTr("White Level:") + qmlTranslator.e_str
                            sliderMin: 0
                            sliderMax: 1000
                            onSliderValueChanged: sendSoon(2)
                            onTextFieldChanged: sendTypedBWLevel(blackLevel.sliderValue, textValue)
                        }
                    }
                }
            }

            // ---- Dark Enhancement ---------------------------------------------------------------

            FoldingSection {
                id: pageCK_ContentArea02
                height: darkDensity.visible ? 296 : 150

                SectionHeader {
                    id: pageCK_ContentHeader02
                    title: qsTr("Dark Enhancement") + qmlTranslator.e_str
                    folded: area02Folded
                    switchSource: sourcePath + "btn_switch_on_dashboard.png"
                    resetSource: sourcePath + "btn_n_reset_dashboard.png"
                    onFoldClicked: {
                        var open = darkDensity.visible ? 296 : 150
                        pageCK_ContentArea02.foldTo(area02Folded ? open : height)
                        area02Folded = !area02Folded
                    }
                    onSwitchClicked: {
                        showDark(!darkEnhanceOn)
                        darkEnhanceOn = !darkEnhanceOn
                        sendDark()
                    }
                    onResetPressedDown: resetSource = sourcePath + "btn_p_reset_dashboard.png"
                    onResetReleased: {
                        resetSource = sourcePath + "btn_n_reset_dashboard.png"
                        mainObject.resetCKDark()
                    }
                }

                Item {
                    y: pageCK_ContentHeader02.height
                    width: parent.width
                    enabled: darkEnhanceOn && !area02Folded

                    Column {
                        MyControlItem {
                            id: darkLevel
                            title: qsTr("Dark Level:") + qmlTranslator.e_str
                            sliderMin: 0
                            sliderMax: 1000
                            onSliderValueChanged: sendSoon(3)
                            onTextFieldChanged: {
                                sendTypedDark(textValue, darkDensity.sliderValue,
                                              darkBalance.sliderValue)
                            }
                        }

                        MyControlItem {
                            id: darkDensity
                            visible: false
                            title: qsTr("Dark Density:") + qmlTranslator.e_str
                            sliderMin: 0
                            sliderMax: 1000
                            onSliderValueChanged: sendSoon(3)
                            onTextFieldChanged: {
                                sendTypedDark(darkLevel.sliderValue, textValue,
                                              darkBalance.sliderValue)
                            }
                        }

                        MyControlItem {
                            id: darkBalance
                            visible: false
                            sliderTextLeftText: qsTr("Dark") + qmlTranslator.e_str
                            sliderTextRightText: qsTr("Middle") + qmlTranslator.e_str
                            title: qsTr("Dark Balance:") + qmlTranslator.e_str
                            sliderMin: 0
                            sliderMax: 100
                            onSliderValueChanged: sendSoon(3)
                            onTextFieldChanged: {
                                sendTypedDark(darkLevel.sliderValue, darkDensity.sliderValue,
                                              textValue)
                            }
                        }
                    }
                }
            }

            // ---- Bright Enhancement -------------------------------------------------------------

            FoldingSection {
                id: pageCK_ContentArea03
                height: brightDensity.visible ? 296 : 150

                SectionHeader {
                    id: pageCK_ContentHeader03
                    title: qsTr("Bright Enhancement") + qmlTranslator.e_str
                    folded: area03Folded
                    switchSource: sourcePath + "btn_switch_on_dashboard.png"
                    resetSource: sourcePath + "btn_n_reset_dashboard.png"
                    onFoldClicked: {
                        var open = darkDensity.visible ? 296 : 150
                        pageCK_ContentArea03.foldTo(area03Folded ? open : height)
                        area03Folded = !area03Folded
                    }
                    onSwitchClicked: {
                        showBright(!brightEnhanceOn)
                        brightEnhanceOn = !brightEnhanceOn
                        sendBright()
                    }
                    onResetPressedDown: resetSource = sourcePath + "btn_p_reset_dashboard.png"
                    onResetReleased: {
                        resetSource = sourcePath + "btn_n_reset_dashboard.png"
                        mainObject.resetCKBright()
                    }
                }

                Item {
                    y: pageCK_ContentHeader03.height
                    width: parent.width
                    enabled: brightEnhanceOn && !area03Folded

                    Column {
                        MyControlItem {
                            id: brightLevel
                            title: qsTr("Bright Level:") + qmlTranslator.e_str
                            sliderMin: 0
                            sliderMax: 1000
                            onSliderValueChanged: sendSoon(4)
                            onTextFieldChanged: {
                                sendTypedBright(textValue, brightDensity.sliderValue,
                                                brightBalance.sliderValue)
                            }
                        }

                        MyControlItem {
                            id: brightDensity
                            visible: false
                            title: qsTr("Bright Density:") + qmlTranslator.e_str
                            sliderMin: 0
                            sliderMax: 1000
                            onSliderValueChanged: sendSoon(4)
                            onTextFieldChanged: {
                                sendTypedBright(brightLevel.sliderValue, textValue,
                                                brightBalance.sliderValue)
                            }
                        }

                        MyControlItem {
                            id: brightBalance
                            visible: false
                            sliderTextLeftText: qsTr("Bright") + qmlTranslator.e_str
                            sliderTextRightText: qsTr("Middle") + qmlTranslator.e_str
                            title: qsTr("Bright Balance:") + qmlTranslator.e_str
                            sliderMin: 0
                            sliderMax: 100
                            onSliderValueChanged: sendSoon(4)
                            onTextFieldChanged: {
                                sendTypedBright(brightLevel.sliderValue, brightDensity.sliderValue,
                                                textValue)
                            }
                        }
                    }
                }
            }

            // ---- Shadow Enhancement -------------------------------------------------------------

            FoldingSection {
                id: pageCK_ContentArea04
                height: 150

                SectionHeader {
                    id: pageCK_ContentHeader04
                    title: qsTr("Shadow Enhancement") + qmlTranslator.e_str
                    folded: area04Folded
                    switchSource: sourcePath + "btn_switch_on_dashboard.png"
                    resetSource: sourcePath + "btn_n_reset_dashboard.png"
                    onFoldClicked: {
                        var open = darkDensity.visible ? 296 : 150
                        pageCK_ContentArea04.foldTo(area04Folded ? open : height)
                        area04Folded = !area04Folded
                    }
                    onSwitchClicked: {
                        showShadow(!shadowEnhanceOn)
                        shadowEnhanceOn = !shadowEnhanceOn
                        sendShadow()
                    }
                    onResetPressedDown: resetSource = sourcePath + "btn_p_reset_dashboard.png"
                    onResetReleased: {
                        resetSource = sourcePath + "btn_n_reset_dashboard.png"
                        mainObject.resetCKShadow()
                    }
                }

                Item {
                    y: pageCK_ContentHeader04.height
                    width: parent.width
                    enabled: shadowEnhanceOn && !area04Folded

                    Column {
                        MyControlItem {
                            id: shadow
                            title: qsTr("Shadow:") + qmlTranslator.e_str
                            sliderMin: 0
                            sliderMax: 1000
                            onSliderValueChanged: sendSoon(5)
                            onTextFieldChanged: sendTypedShadow(textValue)
                        }
                    }
                }
            }

            // ---- Spill Suppression --------------------------------------------------------------

            FoldingSection {
                id: pageCK_ContentArea05
                height: spillEnhance.visible ? 470 : 370

                SectionHeader {
                    id: pageCK_ContentHeader05
                    title: qsTr("Spill Suppression") + qmlTranslator.e_str
                    folded: area05Folded
                    hasSwitch: false
                    resetSource: sourcePath + "btn_n_reset_dashboard.png"
                    onFoldClicked: {
                        var open = spillEnhance.visible ? 520 : 420
                        pageCK_ContentArea05.foldTo(area05Folded ? open : height)
                        area05Folded = !area05Folded
                    }
                    onResetPressedDown: resetSource = sourcePath + "btn_p_reset_dashboard.png"
                    onResetReleased: {
                        resetSource = sourcePath + "btn_n_reset_dashboard.png"
                        mainObject.resetCKSpillBright(spillDefault, checkboxSpillSup.checked)
                    }
                }

                Item {
                    y: pageCK_ContentHeader05.height
                    width: parent.width
                    enabled: !area05Folded

                    Column {
                        InputLine {
                            PanelText {
                                id: txtDefaultBrightLevel
                                x: 48
                                y: 20
                                text: qsTr("Default:") + qmlTranslator.e_str
                            }

                            Image {
                                id: btnSpillLowImage
                                x: 238
                                y: 19
                                source: sourcePath + "btn_p_spill_low_chromakey.png"

                                MouseArea {
                                    anchors.fill: parent
                                    onClicked: chooseSpillDefault(0)
                                }
                            }

                            Image {
                                id: btnSpillMidImage
                                x: 340
                                y: 19
                                source: sourcePath + "btn_n_spill_mid_chromakey.png"

                                MouseArea {
                                    anchors.fill: parent
                                    onClicked: chooseSpillDefault(1)
                                }
                            }

                            Image {
                                id: btnSpillHighImage
                                x: 442
                                y: 19
                                source: sourcePath + "btn_n_spill_high_chromakey.png"

                                MouseArea {
                                    anchors.fill: parent
                                    onClicked: chooseSpillDefault(2)
                                }
                            }

                            CheckBox {
                                id: checkboxSpillSup
                                x: 572
                                visible: false
                                text: qsTr("Enhance") + qmlTranslator.e_str
                                onCheckedChanged: {
                                    commandIndex = 6
                                    mainObject.resetCKSpillBright(spillDefault, checked)
                                }
                            }
                        }

                        MyControlItem {
                            id: spillSuppression
                            title: qsTr("Spill Suppression:") + qmlTranslator.e_str
                            sliderMin: 0
                            sliderMax: 1000
                            onSliderValueChanged: sendSoon(6)
                            onTextFieldChanged: {
                                sendTypedSpill(textValue, spillEnhance.sliderValue,
                                               spillBalance.sliderValue, edgeBrightness.sliderValue)
                            }
                        }

                        MyControlItem {
                            id: spillEnhance
                            visible: false
                            title: qsTr("Spill Enhance:") + qmlTranslator.e_str
                            sliderMin: 0
                            sliderMax: 1000
                            onSliderValueChanged: sendSoon(6)
                            onTextFieldChanged: {
                                sendTypedSpill(spillSuppression.sliderValue, textValue,
                                               spillBalance.sliderValue, edgeBrightness.sliderValue)
                            }

                            CheckBox {
                                id: checkboxVivid
                                x: 880
                                visible: false
                                text: qsTr("Vivid") + qmlTranslator.e_str
                                onCheckedChanged: sendSoon(6)
                            }
                        }

                        MyControlItem {
                            id: spillBalance
                            sliderTextLeftText: qsTr("Cool") + qmlTranslator.e_str
                            sliderTextRightText: qsTr("Warm") + qmlTranslator.e_str
                            title: qsTr("Spill Balance:") + qmlTranslator.e_str
                            sliderMin: 0
                            sliderMax: 1000
                            onSliderValueChanged: sendSoon(6)
                            onTextFieldChanged: {
                                sendTypedSpill(spillSuppression.sliderValue, spillEnhance.sliderValue,
                                               textValue, edgeBrightness.sliderValue)
                            }
                        }

                        MyControlItem {
                            id: edgeBrightness
                            title: qsTr("Edge Brightness:") + qmlTranslator.e_str
                            sliderMin: 0
                            sliderMax: 1000
                            onSliderValueChanged: sendSoon(6)
                            onTextFieldChanged: {
                                sendTypedSpill(spillSuppression.sliderValue, spillEnhance.sliderValue,
                                               spillBalance.sliderValue, textValue)
                            }
                        }
                    }
                }
            }

            // ---- Edge Fix -----------------------------------------------------------------------

            FoldingSection {
                id: pageCK_ContentArea06
                height: 296

                SectionHeader {
                    id: pageCK_ContentHeader06
                    title: qsTr("Edge Fix (HD only)") + qmlTranslator.e_str
                    folded: area06Folded
                    switchSource: sourcePath + "btn_switch_on_dashboard.png"
                    resetSource: sourcePath + "btn_n_reset_dashboard.png"
                    onFoldClicked: {
                        pageCK_ContentArea06.foldTo(area06Folded ? 296 : height)
                        area06Folded = !area06Folded
                    }
                    onSwitchClicked: {
                        showEdgeFix(!edgeFix)
                        edgeFix = !edgeFix
                        sendEdgeFix()
                        mainObject.msecSleep(200)
                        mainObject.getEdgeFix()
                    }
                    onResetPressedDown: resetSource = sourcePath + "btn_p_reset_dashboard.png"
                    onResetReleased: {
                        resetSource = sourcePath + "btn_n_reset_dashboard.png"
                        mainObject.resetEdgeFix()
                    }
                }

                Item {
                    y: pageCK_ContentHeader06.height
                    width: parent.width
                    enabled: edgeFix && !area06Folded

                    Column {
                        MyControlItem {
                            id: shrinkLeft
                            textValueMaxlength: 2
                            title: qsTr("Shrink Left") + qmlTranslator.e_str
                            sliderMin: 0
                            sliderMax: 50
                            onSliderValueChanged: {
                                if (loaded)
                                    mainObject.setRefreshTimer(false)
                                sendSoon(7)
                            }
                            onTextFieldChanged: {
                                sendTypedEdge(parseInt(textValue), shrinkRight.sliderValue,
                                              softEdge.sliderValue)
                            }
                        }

                        MyControlItem {
                            id: shrinkRight
                            textValueMaxlength: 2
                            title: qsTr("Shrink Right") + qmlTranslator.e_str
                            sliderMin: 0
                            sliderMax: 50
                            onSliderValueChanged: sendSoon(7)
                            onTextFieldChanged: {
                                sendTypedEdge(shrinkLeft.sliderValue, parseInt(textValue),
                                              softEdge.sliderValue)
                            }
                        }

                        MyControlItem {
                            id: softEdge
                            title: qsTr("Soft Edge") + qmlTranslator.e_str
                            sliderMin: 0
                            sliderMax: 100
                            onSliderValueChanged: sendSoon(7)
                            onTextFieldChanged: {
                                sendTypedEdge(shrinkLeft.sliderValue, shrinkRight.sliderValue,
                                              parseInt(textValue))
                            }
                        }
                    }
                }
            }
        }
    }

    // ---- Colour picker ----------------------------------------------------------------------------

    Popup {
        id: popupColorPicker
        parent: Overlay.overlay
        x: Math.round((parent.width - width) / 2)
        y: Math.round((parent.height - height) / 2)
        width: 522
        height: 522
        padding: 0
        modal: true
        focus: true
        closePolicy: Popup.CloseOnEscape
        font.pixelSize: height * 0.03
        onClosed: timerMouseMovingCommand.stop()

        Overlay.modal: Rectangle {
            color: Qt.rgba(0, 0, 0, 0.55)
        }

        enter: Transition {
            NumberAnimation {
                property: "opacity"
                from: 0
                to: 1
            }
        }

        background: Image {
            source: sourcePath + "img_bg_pick_color_chromakey.png"
        }

        contentItem: Item {
            PanelText {
                id: txtColorPickerTitle
                anchors.horizontalCenter: parent.horizontalCenter
                anchors.top: parent.top
                anchors.topMargin: 5
                height: 30
                color: "#BFBFBF"
                text: qsTr("Pick Backing Color") + qmlTranslator.e_str
            }

            Image {
                id: imgColorPickerClose
                anchors.top: parent.top
                anchors.topMargin: 7
                anchors.right: parent.right
                anchors.rightMargin: 20
                source: "qrc:/img/pc/btn_n_close_dialog.png"

                MouseArea {
                    anchors.fill: parent
                    onClicked: cancelPicker()
                }
            }

            Item {
                id: colorPickerMouseAreaItem
                anchors.top: parent.top
                anchors.topMargin: 69
                anchors.left: parent.left
                anchors.leftMargin: 21
                width: 480
                height: 270

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
                            aimPicker(mouseX, mouseY)
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
                            aimPicker(mouseX, mouseY)
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

            Column {
                id: columnColorPickerLeft
                anchors.top: colorPickerMouseAreaItem.bottom
                anchors.topMargin: 20
                anchors.left: colorPickerMouseAreaItem.left
                width: colorPickerMouseAreaItem.width / 2
                height: 86
                spacing: 24

                Row {
                    spacing: 12

                    PickerReadout {
                        id: txtColorPickerR
                        label: qsTr("R:") + qmlTranslator.e_str
                        labelSize: 20
                        text: colorPickerR
                    }

                    PickerReadout {
                        id: txtColorPickerG
                        label: qsTr("G:") + qmlTranslator.e_str
                        labelSize: 20
                        text: colorPickerG
                    }

                    PickerReadout {
                        id: txtColorPickerB
                        label: qsTr("B:") + qmlTranslator.e_str
                        labelSize: 20
                        text: colorPickerB
                    }
                }

                Row {
                    spacing: 12

                    PickerReadout {
                        id: txtColorPickerH
                        label: qsTr("H:") + qmlTranslator.e_str
                        labelSize: 18
                        text: colorPickerH
                    }

                    PickerReadout {
                        id: txtColorPickerS
                        label: qsTr("S:") + qmlTranslator.e_str
                        labelSize: 18
                        text: colorPickerS.toFixed(2)
                    }

                    PickerReadout {
                        id: txtColorPickerL
                        label: qsTr("L:") + qmlTranslator.e_str
                        labelSize: 18
                        text: colorPickerL.toFixed(2)
                    }
                }
            }

            Column {
                id: columnColorPickerRight
                anchors.top: columnColorPickerLeft.top
                anchors.topMargin: -7
                anchors.left: columnColorPickerLeft.right
                width: columnColorPickerLeft.width * 0.8
                spacing: 10

                Row {
                    leftPadding: 50
                    spacing: 10

                    Row {
                        spacing: 2

                        StepButton {
                            id: btnDecreaseX
                            face: "reduce_s_chromakey"
                            onPressedChanged: {
                                if (!pressed)
                                    stepPickerX(-1)
                            }
                        }

                        StepButton {
                            id: btnIncreaseX
                            face: "increase_s_chromakey"
                            onPressedChanged: {
                                if (!pressed)
                                    stepPickerX(1)
                            }
                        }
                    }

                    DarkTextField {
                        id: txtColorPickerX
                        width: 64
                        height: 40
                        topInset: 9
                        bottomInset: 9
                        rightPadding: 5
                        horizontalAlignment: TextInput.AlignRight
                        font.pixelSize: 20
                        text: colorPickerX
                        validator: IntValidator {
                            bottom: 0
                            top: xMax + 1
                        }
                        onAccepted: typePickerX(text)
                    }
                }

                Row {
                    leftPadding: 50
                    spacing: 10

                    Row {
                        spacing: 2

                        StepButton {
                            id: btnDecreaseY
                            face: "reduce_s_chromakey"
                            onPressedChanged: {
                                if (!pressed)
                                    stepPickerY(-1)
                            }
                        }

                        StepButton {
                            id: btnIncreaseY
                            face: "increase_s_chromakey"
                            onPressedChanged: {
                                if (!pressed)
                                    stepPickerY(1)
                            }
                        }
                    }

                    DarkTextField {
                        id: txtColorPickerY
                        width: 64
                        height: 40
                        topInset: 9
                        bottomInset: 9
                        rightPadding: 5
                        horizontalAlignment: TextInput.AlignRight
                        font.pixelSize: 20
                        text: colorPickerY
                        validator: IntValidator {
                            bottom: 0
                            top: yMax + 1
                        }
                        onAccepted: typePickerY(text)
                    }
                }
            }

            Rectangle {
                id: recColorPickerResult
                anchors.right: parent.right
                anchors.rightMargin: 13
                anchors.bottom: btnColorPickerCancel.top
                anchors.bottomMargin: 52
                width: 32
                height: 32
                color: colorDialog.color
                border.color: "#1F1F1F"
            }

            Image {
                id: btnColorPickerAuto
                x: 13
                y: 466
                source: sourcePath + (areaAuto.pressed ? "btn_p_" : "btn_n_") + "auto_pick_color.png"

                MouseArea {
                    id: areaAuto
                    anchors.fill: parent
                    onClicked: autoPicker()
                }
            }

            Image {
                id: btnColorPickerCancel
                x: 279
                y: 466
                source: sourcePath + (areaCancel.pressed ? "btn_p_" : "btn_n_") + "cancel_adjust_color.png"

                MouseArea {
                    id: areaCancel
                    anchors.fill: parent
                    onClicked: cancelPicker()
                }
            }

            Image {
                id: btnColorPickerOK
                x: 399
                y: 466
                source: sourcePath + (areaOK.pressed ? "btn_p_" : "btn_n_") + "ok_adjust_color.png"

                MouseArea {
                    id: areaOK
                    anchors.fill: parent
                    onClicked: acceptPicker()
                }
            }
        }
    }
}
