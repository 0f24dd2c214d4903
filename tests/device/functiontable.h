#pragma once

#include "tests/device/unitfields.h"

#include <QByteArray>
#include <QVector>

#include <functional>

// Every function of the unit as the tests see it, written from the wire and not from the device class: where each
// field lies in the reply body and how its bytes are read, which frame each set and reset sends, and
// what a set leaves in the fields.

struct SetRow
{
    const char *name;
    std::function<void(qkv720 &, uint)> call;
    const char *frame; // the serial link's frame in hexadecimal
    QVector<qint64> state; // the fields afterwards, in the order of the field rows
};

struct ResetRow
{
    const char *name;
    std::function<void(qkv720 &, uint)> call;
    const char *frame;
};

struct FunctionRow
{
    const char *name;
    int getCode;
    int dataLength;
    std::function<void(qkv720 &, uint)> get;
    QVector<FieldRow> fields;
    QVector<SetRow> sets;
    QVector<ResetRow> resets;
    QVector<int> readsToo{}; // other codes that the same get asks for
};

// The member is named in full, so that a field that is gone doesn't compile.
#define FIELD(position, kind, member)                                                                        \
    FieldRow                                                                                                 \
    {                                                                                                        \
        sizeof(std::declval<qkv720>().member) > 0 ? #member : nullptr, position, Kind::kind                  \
    }
#define CALL(...) [](qkv720 &d, uint method) { (void)d.__VA_ARGS__; }

inline QVector<FunctionRow> shapingFunctions()
{
    return {
        {"angle",
         0x51,
         2,
         [](qkv720 &d, uint method) {
             uint l = 7;
             uint r = 7;
             d.getCKAngle(method, &l, &r);
         },
         {FIELD(3, WideByte, ckAngleL), FIELD(4, WideByte, ckAngleR)},
         {{"angle", CALL(setCKAngle(method, 0x37, 0x41)), "05 00 D1 37 41 4E", {0x37, 0x41}},
          {"angle cut on the wire", CALL(setCKAngle(method, 300, 120)), "05 00 D1 2C 78 7A", {300, 120}}},
         {{"angle", CALL(resetCKAngle(method)), "05 80 D1 00 00 56"}}},
        {"levels",
         0x52,
         5,
         [](qkv720 &d, uint method) {
             uint b = 7;
             uint w = 7;
             bool m = false;
             d.getCKBWLevel(method, &b, &w, &m);
         },
         {FIELD(3, Word, ckBlackLevel), FIELD(5, Word, ckWhiteLevel), FIELD(7, IsPositive, matteEnable)},
         {{"levels",
           CALL(setCKBWLevel(method, 100, 1000, true)),
           "08 00 D2 64 00 E8 03 01 2A",
           {100, 1000, 1}},
          {"levels cut on the wire",
           CALL(setCKBWLevel(method, 65536 + 5, 0xFFFF, false)),
           "08 00 D2 05 00 FF FF 00 DD",
           {65541, 65535, 0}}},
         {{"levels", CALL(resetCKBWLevel(method)), "07 80 D2 00 00 00 00 59"}}},
        {"dark",
         0x53,
         6,
         [](qkv720 &d, uint method) {
             bool enable = false;
             uint level = 0;
             uint density = 0;
             uint balance = 0;
             d.getCKDark(method, &enable, &level, &density, &balance);
         },
         {FIELD(3, IsOne, ckDark.enable), FIELD(4, Word, ckDark.level), FIELD(6, Word, ckDark.density),
          FIELD(8, SignedByte, ckDark.balance)},
         {{"dark",
           CALL(setCKDark(method, true, 200, 1000, 100)),
           "09 00 D3 01 C8 00 E8 03 64 F4",
           {1, 200, 1000, 100}},
          {"dark with a balance past the sign",
           CALL(setCKDark(method, false, 65536 + 1, 65535, 200)),
           "09 00 D3 00 01 00 FF FF C8 A3",
           {0, 1, 65535, -56}}},
         {{"dark", CALL(resetCKDark(method)), "09 80 D3 00 00 00 00 00 00 5C"}}},
        {"bright",
         0x54,
         6,
         CALL(getCKBright(method)),
         {FIELD(3, IsOne, ckBright.enable), FIELD(4, Word, ckBright.level), FIELD(6, Word, ckBright.density),
          FIELD(8, SignedByte, ckBright.balance)},
         {{"bright",
           CALL(setCKBright(method, true, 200, 1000, 100)),
           "09 00 D4 01 C8 00 E8 03 64 F5",
           {1, 200, 1000, 100}}},
         {{"bright", CALL(resetCKBright(method)), "09 80 D4 00 00 00 00 00 00 5D"}}},
        {"shadow",
         0x55,
         3,
         CALL(getCKShadow(method)),
         {FIELD(3, IsOne, ckShadow.enable), FIELD(4, Word, ckShadow.level)},
         {{"shadow", CALL(setCKShadow(method, true, 750)), "06 00 D5 01 EE 02 CC", {1, 750}}},
         {{"shadow", CALL(resetCKShadow(method)), "06 80 D5 00 00 00 5B"}}},
        {"edge fix",
         0x57,
         4,
         CALL(getEdgeFix(method)),
         {FIELD(3, IsOne, edgeFixEnable), FIELD(4, WideByte, edge_ShrinkLeft),
          FIELD(5, WideByte, edge_ShrinkRight), FIELD(6, WideByte, edge_SoftEdge)},
         {{"edge fix", CALL(setEdgeFix(method, true, 1, 2, 3)), "07 00 D7 01 01 02 03 E5", {1, 1, 2, 3}},
          {"edge fix cut on the wire",
           CALL(setEdgeFix(method, false, 257, 255, 512)),
           "07 00 D7 00 01 FF 00 DE",
           {0, 257, 255, 512}}},
         {{"edge fix", CALL(resetEdgeFix(method)), "07 80 D7 00 00 00 00 5E"}}},
        {"spill",
         0x56,
         10,
         CALL(getCKSpillBright(method)),
         {FIELD(3, Word, spillSuppression), FIELD(5, Word, spillEnhance), FIELD(7, Word, spillBalance),
          FIELD(9, Word, spillBrightness), FIELD(11, IsSet, spillVivid),
          FIELD(12, WideByte, spillDefaultValue)},
         {{"spill",
           CALL(setCKSpillBright(method, 600, 0, 650, 373, 0, 2)),
           "0D 00 D6 58 02 00 00 8A 02 75 01 00 02 41",
           {600, 0, 650, 373, 0, 2}},
          {"spill with a vivid past its byte",
           CALL(setCKSpillBright(method, 65536, 1, 2, 3, 256, 0x112)),
           "0D 00 D6 00 00 01 00 02 00 03 00 00 12 FB",
           {65536, 1, 2, 3, 1, 0x112}}},
         {{"spill low", CALL(resetCKSpillBright(method, 0, false)),
           "0D 80 D6 00 00 00 00 00 00 00 00 00 00 63"},
          {"spill mid", CALL(resetCKSpillBright(method, 1, false)),
           "0D 80 D6 00 00 00 00 00 00 00 00 00 01 64"},
          {"spill high", CALL(resetCKSpillBright(method, 2, false)),
           "0D 80 D6 00 00 00 00 00 00 00 00 00 02 65"},
          {"spill low, enhanced", CALL(resetCKSpillBright(method, 0, true)),
           "0D 80 D6 00 00 00 00 00 00 00 00 00 08 6B"},
          {"spill mid, enhanced", CALL(resetCKSpillBright(method, 1, true)),
           "0D 80 D6 00 00 00 00 00 00 00 00 00 09 6C"},
          {"spill high, enhanced", CALL(resetCKSpillBright(method, 2, true)),
           "0D 80 D6 00 00 00 00 00 00 00 00 00 0A 6D"},
          {"spill, no such preset", CALL(resetCKSpillBright(method, 7, false)),
           "0D 80 D6 00 00 00 00 00 00 00 00 00 00 63"},
          {"spill, no such preset, enhanced", CALL(resetCKSpillBright(method, 3, true)),
           "0D 80 D6 00 00 00 00 00 00 00 00 00 00 63"}}},
        {"back colour",
         0x50,
         7,
         CALL(getBackColor(method)),
         {FIELD(3, Word, ckBackColor.r), FIELD(5, Word, ckBackColor.g), FIELD(7, Word, ckBackColor.b),
          FIELD(9, WideByte, ckBackColor.autoCk), FIELD(3, Word, tempR), FIELD(5, Word, tempG),
          FIELD(7, Word, tempB)},
         {}, // see the tests of the key colour
         {{"back colour", CALL(resetBackColor(method)), "0A 80 D0 00 00 00 00 00 00 00 5A"}}},
    };
}

inline QVector<FunctionRow> postFunctions()
{
    return {
        {"post amplifier",
         0x58,
         9,
         CALL(getPPFGPostAmp(method)),
         {FIELD(3, IsOne, ppPostAmp.enable), FIELD(4, Word, ppPostAmp.bright),
          FIELD(6, Word, ppPostAmp.contrast), FIELD(8, Word, ppPostAmp.sat), FIELD(10, Word, ppPostAmp.hue)},
         {{"post amplifier",
           CALL(setPPFGPostAmp(method, true, 1, 256, 1000, static_cast<uint>(-10))),
           "0C 00 D8 01 01 00 00 01 E8 03 F6 FF C7",
           {1, 1, 256, 1000, 4294967286LL}},
          {"post amplifier cut on the wire",
           CALL(setPPFGPostAmp(method, false, 65537, 2, 3, 180)),
           "0C 00 D8 00 01 00 02 00 03 00 B4 00 9E",
           {0, 65537, 2, 3, 180}}},
         {{"post amplifier", CALL(resetPPFGPostAmp(method)), "0C 80 D8 00 00 00 00 00 00 00 00 00 64"}}},
        {"RGB corrector",
         0x59,
         13,
         CALL(getPPFGRGBCorrect(method)),
         {FIELD(3, IsOne, rgbCorrect.enable), FIELD(4, Word, rgbCorrect.rWhite),
          FIELD(6, Word, rgbCorrect.rBlack), FIELD(8, Word, rgbCorrect.gWhite),
          FIELD(10, Word, rgbCorrect.gBlack), FIELD(12, Word, rgbCorrect.bWhite),
          FIELD(14, Word, rgbCorrect.bBlack)},
         {{"RGB corrector",
           CALL(setPPFGRGBCorrect(method, true, 1000, 2, 3, 4, 5, 0x10203)),
           "10 00 D9 01 E8 03 02 00 03 00 04 00 05 00 03 02 E8",
           {1, 1000, 2, 3, 4, 5, 0x10203}}},
         {{"RGB corrector", CALL(resetPPFGRGBCorrect(method)),
           "10 80 D9 00 00 00 00 00 00 00 00 00 00 00 00 00 69"}}},
        {"blur",
         0x5B,
         3,
         CALL(getBGBlur(method)),
         {FIELD(3, IsSet, bgBlur.enable), FIELD(4, WideByte, bgBlur.bg_blur),
          FIELD(5, WideByte, bgBlur.blurTime)},
         {{"blur", CALL(setBGBlur(method, true, 100, 20)), "06 00 DB 01 64 14 5A", {1, 100, 20}},
          {"blur cut on the wire",
           CALL(setBGBlur(method, false, 300, 256)),
           "06 00 DB 00 2C 00 0D",
           {0, 300, 256}}},
         {{"blur", CALL(resetBGBlur(method)), "05 80 DB 00 00 60"}}},
        {"aux mode",
         0x5B,
         3,
         CALL(getAuxMode(method)),
         {FIELD(3, WideByte, auxFunction), FIELD(4, WideByte, auxPolarity)},
         {{"aux mode", CALL(setAuxMode(method, 1, 0)), "05 00 DB 01 00 E1", {1, 0}},
          {"aux mode cut on the wire", CALL(setAuxMode(method, 259, 258)), "05 00 DB 03 02 E5", {259, 258}}},
         {{"aux mode", CALL(resetAuxMode(method)), "05 80 DB 00 00 60"}}},
        {"garbage mask",
         0x5A,
         11,
         CALL(getWindow(method)),
         {FIELD(3, IsOne, garbageMaskWindow.enable), FIELD(4, WideByte, garbageMaskWindow.invert),
          FIELD(5, Word, garbageMaskWindow.left), FIELD(7, Word, garbageMaskWindow.right),
          FIELD(9, Word, garbageMaskWindow.top), FIELD(11, Word, garbageMaskWindow.bottom),
          FIELD(13, WideByte, garbageMaskWindow.border)},
         {{"garbage mask",
           CALL(setWindow(method, true, 1, 1000, 2, 3, 4, 100)),
           "0E 00 DA 01 01 E8 03 02 00 03 00 04 00 64 42",
           {1, 1, 1000, 2, 3, 4, 100}},
          {"garbage mask cut on the wire",
           CALL(setWindow(method, false, 256, 65537, 0, 0, 65535, 511)),
           "0E 00 DA 00 00 01 00 00 00 00 00 FF FF FF E6",
           {0, 256, 1, 0, 0, 65535, 511}}},
         {{"garbage mask", CALL(resetWindow(method)), "0E 80 DA 00 00 00 00 00 00 00 00 00 00 00 68"}}},
        {"holdout window",
         0x5F,
         11,
         CALL(getHoldoutWindow(method)),
         {FIELD(3, IsOne, holdoutWindow.enable), FIELD(4, WideByte, holdoutWindow.invert),
          FIELD(5, Word, holdoutWindow.left), FIELD(7, Word, holdoutWindow.right),
          FIELD(9, Word, holdoutWindow.top), FIELD(11, Word, holdoutWindow.bottom),
          FIELD(13, WideByte, holdoutWindow.border)},
         {{"holdout window",
           CALL(setHoldoutWindow(method, true, 0, 0, 3840, 0, 2160, 5)),
           "0E 00 DF 01 00 00 00 00 0F 00 00 70 08 05 7A",
           {1, 0, 0, 3840, 0, 2160, 5}}},
         {{"holdout window", CALL(resetHoldoutWindow(method)),
           "0E 80 DF 00 00 00 00 00 00 00 00 00 00 00 6D"}}},
        {"luma key",
         0x5C,
         10,
         CALL(getLumaKey(method)),
         {FIELD(3, IsSet, auxLumakey.enable), FIELD(4, WideByte, auxLumakey.keymode),
          FIELD(5, Word, auxLumakey.cutOff), FIELD(7, Word, auxLumakey.softness),
          FIELD(9, WideByte, auxLumakey.layerSwap), FIELD(10, WideByte, auxLumakey.swapTime),
          FIELD(11, Word, auxLumakey.opacity)},
         {{"luma key",
           CALL(setLumaKey(method, true, 1, 1000, 2, 1, 20, 1000)),
           "0D 00 DC 01 01 E8 03 02 00 01 14 E8 03 D8",
           {1, 1, 1000, 2, 1, 20, 1000}},
          {"luma key cut on the wire",
           CALL(setLumaKey(method, false, 257, 0, 65535, 258, 256, 0)),
           "0D 00 DC 00 01 00 00 FF FF 02 00 00 00 EA",
           {0, 257, 0, 65535, 258, 256, 0}}},
         {{"luma key", CALL(resetLumaKey(method)), "08 80 DC 00 00 00 00 00 64"}}},
    };
}

inline output outputOf(int source, bool lock, bool mirror)
{
    output record;
    record.source = output_source(source);
    record.lock = lock;
    record.mirror = mirror;
    return record;
}

inline QVector<FunctionRow> routingFunctions()
{
    return {
        {"output standard",
         0x60,
         3,
         CALL(getVideoOut(method)),
         {FIELD(3, SignedByte, videoOut.res), FIELD(4, SignedByte, videoOut.colorspace),
          FIELD(5, SignedByte, videoOut.std)},
         {{"output standard with a sum of 0",
           CALL(setVideoOut(method, P60_2160, YUV444, AUTO)),
           "06 00 E0 18 01 01 00",
           {24, 1, 1}},
          {"output standard",
           CALL(setVideoOut(method, PAL, YUV422, FIXED)),
           "06 00 E0 01 02 00 E9",
           {1, 2, 0}}},
         {}},
        {"routing",
         0x63,
         6,
         CALL(refreshStatus(method)),
         {FIELD(3, SignedByte, PGM.source), FIELD(4, SignedByte, PVW.source),
          FIELD(5, SignedByte, PGM_HDMI.source), FIELD(6, SignedByte, PVW_HDMI.source),
          FIELD(7, Bit0, PGM.lock), FIELD(7, Bit1, PVW.lock), FIELD(7, Bit2, PGM_HDMI.lock),
          FIELD(7, Bit3, PVW_HDMI.lock), FIELD(8, Bit0, PGM.mirror), FIELD(8, Bit1, PVW.mirror),
          FIELD(8, Bit2, PGM_HDMI.mirror), FIELD(8, Bit3, PVW_HDMI.mirror)},
         {{"routing, all locks and mirrors",
           CALL(setOutputSelection(method, outputOf(1, true, true), outputOf(2, true, true),
                                   outputOf(3, true, true), outputOf(6, true, true))),
           "09 00 E3 01 02 03 06 0F 0F 16",
           {1, 2, 3, 6, 1, 1, 1, 1, 1, 1, 1, 1}},
          {"routing, flags one by one",
           CALL(setOutputSelection(method, outputOf(4, true, false), outputOf(5, false, true),
                                   outputOf(6, true, false), outputOf(1, false, true))),
           "09 00 E3 04 05 06 01 05 0A 0B",
           {4, 5, 6, 1, 1, 0, 1, 0, 0, 1, 0, 1}}},
         {},
         {0x60, 0x61, 0x62}},
        {"input selection",
         0x61,
         9,
         CALL(refreshStatus(method)),
         {FIELD(3, SignedByte, inputFG.source), FIELD(4, SignedByte, inputBG.source),
          FIELD(5, SignedByte, inputAUX.source), FIELD(6, Bit0, inputFG.freeze),
          FIELD(6, Bit1, inputBG.freeze), FIELD(6, Bit2, inputAUX.freeze), FIELD(7, SignedByte, genlockSrc),
          FIELD(8, Signed16, genlock_H), FIELD(10, Signed16, genlock_V)},
         {{"input selection",
           CALL(setVideoInputSource(method, 1, 2, 3, 0, 0, 0, 0, 0, 0)),
           "0C 00 E1 01 02 03 00 00 00 00 00 00 F3",
           {1, 2, 3, 0, 0, 0, 0, 0, 0}},
          {"input selection, freeze 5 and negative offsets",
           CALL(setVideoInputSource(method, 0, 1, 2, 5, -1, 1, 1, -2, -32768)),
           "0C 00 E1 00 01 02 07 01 FE FF 00 80 75",
           {0, 1, 2, 5, -1, 1, 1, -2, -32768}}},
         {{"genlock", CALL(resetVideoInputGenlock(method)), "03 80 E1 64"}},
         {0x63, 0x60, 0x62}},
        {"input standards",
         0x62,
         5,
         CALL(refreshVideoInRes(method)),
         {FIELD(3, SignedByte, inputFG.res), FIELD(4, SignedByte, inputBG.res),
          FIELD(5, SignedByte, inputAUX.res), FIELD(6, SignedByte, inputSYNC.res),
          FIELD(7, SignedByte, genlockStatus)},
         {},
         {}},
        {"cursor",
         0x5D,
         11,
         CALL(getCursor(method)),
         {FIELD(8, Word, tempR), FIELD(10, Word, tempG), FIELD(12, Word, tempB)},
         {}, // see the tests of the key colour
         {}},
    };
}

#undef CALL
#undef FIELD

inline QVector<FunctionRow> allFunctions()
{
    return shapingFunctions() + postFunctions() + routingFunctions();
}

// What the state is after a set of this row.
inline Snapshot afterSet(Snapshot before, const FunctionRow &function, const SetRow &set)
{
    for (int i = 0; i < function.fields.size(); ++i)
        before.insert(QString::fromLatin1(function.fields.at(i).name), QString::number(set.state.at(i)));
    return before;
}
