#pragma once

#include "control/maincontrol.h"
#include "standin/unit.h"

#include <QVector>

#include <functional>

// The forwarding slots of the facade, a row each: what it sends, what it tells, and on which side of the poll's
// restart.

using Slot = std::function<void(mainControl &)>;
Q_DECLARE_METATYPE(Slot)

struct ParameterRow
{
    const char *kind;
    const char *name;
    Slot slot;
    const char *frame; // command byte and payload
    const char *signal; // empty: tells nothing
    bool afterRestart; // the poll runs again when the signal leaves
};

// What the unit holds at the start, so that no two values of one signal are alike.
inline void prepareParameters(standin::Unit &unit)
{
    const auto record = [&unit](int code, const char *hex) { unit.setData(code, QByteArray::fromHex(hex)); };
    record(standin::Angle, "0304");
    record(standin::Levels, "6400840301");
    record(standin::Dark, "01c8002c0132");
    record(standin::Bright, "012c01f4010a");
    record(standin::Shadow, "01fa00");
    record(standin::EdgeFix, "0105060b");
    record(standin::Spill,
           "f40165002c01910101"
           "1a");
    record(standin::PostAmplifier, "01f401f501f6010a00");
    record(standin::RgbCorrector, "01010002000300040005000600");
    record(standin::GarbageMask,
           "010105000600070008"
           "0009");
    record(standin::HoldoutWindow, "0100150016001700180019");
    record(standin::BackgroundBlur, "011407");
    record(standin::LumaKey, "01016400c80001056f02");
}

inline QVector<ParameterRow> parameterTable()
{
    using M = mainControl;
    return {
        {"get", "angle", &M::getCKAngle, "51", "refreshCKAngle(3, 4)", true},
        {"get", "levels", &M::getCKBWLevel, "52", "refreshCKBWLevel(100, 900, true)", true},
        {"get", "dark", &M::getCKDark, "53", "refreshCKDark(true, 200, 300, 50)", true},
        {"get", "bright", &M::getCKBright, "54", "refreshCKBright(true, 300, 500, 10)", true},
        {"get", "edge fix", &M::getEdgeFix, "57", "refreshEdgeFix(true, 5, 6, 11)", true},
        {"get", "shadow", &M::getCKShadow, "55", "refreshCKShadow(true, 250)", true},
        {"get", "spill", &M::getCKSpillBright, "56",
         "refreshCKSpill(500, 101, 300, 401, true, 2, true, true)", true},
        {"get", "post amplifier", &M::getPPFGPostAmp, "58", "refreshPPFGPostAmp(true, 500, 501, 502, 10)",
         false},
        {"get", "rgb corrector", &M::getPPFGRGBCorrect, "59",
         "refreshPPFGRGBCorrector(true, 1, 2, 3, 4, 5, 6)", false},
        {"get", "window", &M::getWindow, "5a", "refreshWindow(true, 1, 5, 6, 7, 8, 9)", false},
        {"get", "holdout window", &M::getHoldoutWindow, "5f",
         "refreshHoldoutWindow(true, 0, 21, 22, 23, 24, 25)", false},
        {"get", "aux mode", &M::getAuxMode, "5b", "refreshAuxMode(1, 20)", false},
        {"get", "blur", &M::getBGBlur, "5b", "refreshPPBGBlur(true, 20, 7)", false},
        {"get", "luma key", &M::getLumaKey, "5c", "refreshLumaKey(true, 1, 100, 200, 1, 5, 623)", true},

        {"reset", "angle", &M::resetCKAngle, "reset d1 00 00", "refreshCKAngle(45, 45)", true},
        {"reset", "levels", &M::resetCKBWLevel, "reset d2 00 00 00 00", "refreshCKBWLevel(100, 900, false)",
         false},
        {"reset", "dark", &M::resetCKDark, "reset d3 00 00 00 00 00 00",
         "refreshCKDark(true, 200, 1000, 100)", true},
        {"reset", "bright", &M::resetCKBright, "reset d4 00 00 00 00 00 00",
         "refreshCKBright(false, 300, 500, 50)", true},
        {"reset", "edge fix", &M::resetEdgeFix, "reset d7 00 00 00 00", "refreshEdgeFix(false, 2, 2, 10)",
         true},
        {"reset", "shadow", &M::resetCKShadow, "reset d5 00 00 00", "refreshCKShadow(false, 250)", false},
        {"reset", "post amplifier", &M::resetPPFGPostAmp, "reset d8 00 00 00 00 00 00 00 00 00",
         "refreshPPFGPostAmp(false, 500, 500, 500, 0)", false},
        {"reset", "rgb corrector", &M::resetPPFGRGBCorrect, "reset d9 00 00 00 00 00 00 00 00 00 00 00 00 00",
         "refreshPPFGRGBCorrector(false, 500, 500, 500, 500, 500, 500)", true},
        {"reset", "window", &M::resetWindow, "reset da 00 00 00 00 00 00 00 00 00 00 00",
         "refreshWindow(false, 0, 0, 1000, 0, 1000, 0)", true},
        {"reset", "holdout window", &M::resetHoldoutWindow, "reset df 00 00 00 00 00 00 00 00 00 00 00",
         "refreshHoldoutWindow(false, 0, 0, 3840, 0, 2160, 0)", true},
        {"reset", "aux mode", &M::resetAuxMode, "reset db 00 00", "refreshAuxMode(0, 20)", true},
        {"reset", "blur", &M::resetBGBlur, "reset db 00 00", "refreshPPBGBlur(false, 20, 5)", true},
        {"reset", "luma key", &M::resetLumaKey, "reset dc 00 00 00 00 00",
         "refreshLumaKey(false, 0, 100, 200, 0, 5, 1000)", true},

        {"set", "angle", [](M &m) { m.setCKAngle(7, 120); }, "d1 07 78", "", false},
        {"set", "levels", [](M &m) { m.setCKBWLevel(260, 1000, true); }, "d2 04 01 e8 03 01", "", false},
        {"set", "dark", [](M &m) { m.setCKDark(true, 1, 258, 3); }, "d3 01 01 00 02 01 03", "", false},
        {"set", "bright", [](M &m) { m.setCKBright(false, 4, 5, 6); }, "d4 00 04 00 05 00 06", "", false},
        {"set", "edge fix", [](M &m) { m.setEdgeFix(true, 1, 2, 3); }, "d7 01 01 02 03", "", false},
        {"set", "shadow", [](M &m) { m.setCKShadow(true, 513); }, "d5 01 01 02", "", false},
        {"set", "post amplifier", [](M &m) { m.setPPFGPostAmp(true, 1, 2, 3, 4); },
         "d8 01 01 00 02 00 03 00 04 00", "", false},
        {"set", "rgb corrector", [](M &m) { m.setPPFGRGBCorrect(true, 1, 2, 3, 4, 5, 6); },
         "d9 01 01 00 02 00 03 00 04 00 05 00 06 00", "", false},
        {"set", "window", [](M &m) { m.setWindow(true, 1, 2, 3, 4, 5, 6); },
         "da 01 01 02 00 03 00 04 00 05 00 06", "", false},
        {"set", "holdout window", [](M &m) { m.setHoldoutWindow(true, 0, 2, 3840, 4, 5, 6); },
         "df 01 00 02 00 00 0f 04 00 05 00 06", "", false},
        {"set", "aux mode", [](M &m) { m.setAuxMode(1, 2); }, "db 01 02", "", false},
        {"set", "blur", [](M &m) { m.setBGBlur(true, 50, 9); }, "db 01 32 09", "", false},
        {"set", "luma key", [](M &m) { m.setLumaKey(true, 1, 2, 3, 1, 4, 5); },
         "dc 01 01 02 00 03 00 01 04 05 00", "", false},
    };
}
