"""The colours of the console and the words on its faces: one place for each."""

INK = "#04070C"
GROUND = "#060A12"
CHROME = "#070C16"
BAND = "#060B14"
PANEL = "#090F1B"
ROW = "#0C1628"
ROW_LINE = "#182742"
HAIR = "#1B2A44"
HAIR2 = "#131E32"

POPUP = "#0C1424"
TITLE_BAND = "#111C30"
POPUP_LINE = "#31425F"
POPUP_UPPER = "#4A5D7C"
DIVIDER = "#444444"

TEXT = "#D8D8D8"
WHITE = "#FFFFFF"
QUIET = "#AEB8C6"
TITLE = "#788194"
LABEL = "#949494"
LANGUAGE = "#999999"
LIVE = "#8DC6E8"
ATTENTION = "#F4AE23"

OFF_LETTERS = "#7C828B"
OFF_SYMBOL = "#6A7079"

# A face: fill, its top pixel row (None: no edge light), border, letters, symbol, how far the letters sink.
FACES = {
    "n": ("#1B2A42", "#3A4D6B", INK, TEXT, TEXT, 0),
    "p": ("#0F1828", "#080E19", INK, WHITE, WHITE, 1),
    "d": ("#15181E", "#22262D", INK, OFF_LETTERS, OFF_SYMBOL, 0),
    "held": ("#102A3E", None, LIVE, LIVE, LIVE, 1),
}

# A switch: border, fill, knob, the knob's top row, letters.
SWITCHES = {
    "on": (LIVE, "#14344A", LIVE, "#B9DDF2", LIVE),
    "off": ("#2C3A50", "#090E16", "#43526A", "#5A6A83", "#98A4B5"),
    "d_on": ("#3C4047", "#1B1E23", "#5E5E5E", "#6C6C6C", "#82868D"),
    "d_off": ("#2B2E34", "#101318", "#3A3E44", "#474B52", "#757A82"),
}

FOLDERS = ("", "CN", "TW")

# A family per folder: the two Chinese scripts share code points but not the forms of the glyphs.
FAMILIES = {"": "Carlito", "CN": "Noto Sans CJK SC", "TW": "Noto Sans CJK TC"}

# Button: its states, width and height, size of the Latin letters, then a word for each folder.
WORDS = {
    "connect_connect": ("np", 110, 36, 16, "Connect", "连接", "連接"),
    "disconnect_connect": ("np", 110, 36, 16, "Disconnect", "断开", "斷開"),
    "scan_connect": ("np", 110, 36, 16, "Scan", "搜寻", "搜尋"),
    "save_connect": ("npd", 110, 36, 16, "Save", "储存", "儲存"),
    # 14, not 16: at 16 the words would touch the edge of the face.
    "default_setup": ("np", 110, 36, 14, "Factory Default", "默认值", "預設值"),
    "ok_adjust_color": ("np", 110, 36, 16, "OK", "确定", "確定"),
    "cancel_adjust_color": ("np", 110, 36, 16, "Cancel", "取消", "取消"),
    "auto_pick_color": ("np", 110, 36, 16, "Auto", "自动", "自動"),
    "auto_bg_chromakey": ("npd", 110, 36, 16, "Auto", "自动", "自動"),
    "reset_dashboard": ("npd", 90, 36, 16, "Reset", "重设", "重設"),
    "spill_low_chromakey": ("np", 90, 36, 16, "Low", "低", "低"),
    "spill_mid_chromakey": ("np", 90, 36, 16, "Mid", "中", "中"),
    "spill_high_chromakey": ("np", 90, 36, 16, "High", "高", "高"),
    "load_usermemory": ("np", 60, 30, 15, "Load", "载入", "載入"),
    "save_usermemory": ("np", 60, 30, 15, "Save", "储存", "儲存"),
}

SWITCH_WORDS = {"on": ("ON", "开", "開"), "off": ("OFF", "关", "關")}

# One face shows "chosen" where the others show "pressed".
HELD = ("spill_low_chromakey", "spill_mid_chromakey", "spill_high_chromakey")

# Size of the Chinese letters by the height of the face.
CHINESE_SIZE = {36: 15, 30: 14}
