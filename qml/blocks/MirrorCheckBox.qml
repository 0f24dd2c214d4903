import QtQuick 2.12
import QtQuick.Templates 2.5 as T
import "."

// A check box of the output band, as wide in every language.
T.CheckBox {
    id: mirrorCheckBox

    width: 75
    height: 30
    hoverEnabled: false
    indicator: Image {
        y: (mirrorCheckBox.height - height) / 2
        source: mirrorCheckBox.checked ? "qrc:/img/pc/btn_p_checkbox_output.png"
                                       : "qrc:/img/pc/btn_n_checkbox_output.png"
        opacity: mirrorCheckBox.enabled ? 1.0 : 0.6
    }
    contentItem: PanelText {
        leftPadding: 26
        text: mirrorCheckBox.text
        color: mirrorCheckBox.enabled ? Look.entry : "#6B7380"
        font.pixelSize: 18
    }
}
