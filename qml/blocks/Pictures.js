.pragma library

// The folder of the pictures that carry words, by language.
function folder(language) {
    if (language === "zh_CN")
        return "qrc:/img/pc/CN/"
    if (language === "zh_TW")
        return "qrc:/img/pc/TW/"
    return "qrc:/img/pc/"
}

function switchFace(on) {
    return on ? "btn_switch_on_dashboard.png" : "btn_switch_off_dashboard.png"
}

function deadSwitchFace(on) {
    return on ? "btn_switch_d_on_dashboard.png" : "btn_switch_d_off_dashboard.png"
}
