#include "tests/fuzz/operations.h"

#include "device/functions.h"

namespace {

using Call = FuzzedOperation::Call;

#define RUN(...)                                                                                             \
    [](qkv720 &d, uint method, Script &s) -> QString {                                                       \
        Q_UNUSED(s)                                                                                          \
        (void)d.__VA_ARGS__;                                                                                 \
        return QString();                                                                                    \
    }
// The order in which arguments are worked out is the compiler's: each is read by a name of its own first.
#define WITH(values, ...)                                                                                    \
    [](qkv720 &d, uint method, Script &s) -> QString {                                                       \
        uint v[10];                                                                                          \
        for (int i = 0; i < (values); ++i)                                                                   \
            v[i] = s.word();                                                                                 \
        d.__VA_ARGS__;                                                                                       \
        return QString();                                                                                    \
    }

output outputFrom(uint value)
{
    output record;
    record.source = static_cast<output_source>(value & 0xFFU);
    record.lock = (value & 0x100U) != 0;
    record.mirror = (value & 0x200U) != 0;
    return record;
}

QString angle(qkv720 &d, uint method, Script &)
{
    uint l = 0;
    uint r = 0;
    d.getCKAngle(method, &l, &r);
    return QString();
}

QString levels(qkv720 &d, uint method, Script &)
{
    uint b = 0;
    uint w = 0;
    bool m = false;
    d.getCKBWLevel(method, &b, &w, &m);
    return QString();
}

QString dark(qkv720 &d, uint method, Script &)
{
    bool enable = false;
    uint level = 0;
    uint density = 0;
    uint balance = 0;
    d.getCKDark(method, &enable, &level, &density, &balance);
    return QString();
}

QString anyFunction(qkv720 &d, uint method, Script &script)
{
    const auto &all = functions::all();
    d.readFunction(method, *all.at(static_cast<int>(script.byte()) % all.size()));
    return QString();
}

QVector<FuzzedOperation> keyOperations()
{
    return {
        {"setCursor", 1, true, WITH(3, setCursor(method, v[0], v[1], v[2]))},
        {"getCursor", 1, true, RUN(getCursor(method))},
        {"getBackColor", 1, true, RUN(getBackColor(method))},
        {"setBackColor", 1, true,
         WITH(4, setBackColor(method, quint16(v[0]), quint16(v[1]), quint16(v[2]), v[3] % 4))},
        {"resetBackColor", 1, true, RUN(resetBackColor(method))},
        {"getCKAngle", 1, true, angle},
        {"setCKAngle", 1, true, WITH(2, setCKAngle(method, v[0], v[1]))},
        {"resetCKAngle", 1, true, RUN(resetCKAngle(method))},
        {"getCKBWLevel", 1, true, levels},
        {"setCKBWLevel", 1, true, WITH(3, setCKBWLevel(method, v[0], v[1], v[2] != 0))},
        {"resetCKBWLevel", 1, true, RUN(resetCKBWLevel(method))},
        {"getCKDark", 1, true, dark},
        {"setCKDark", 1, true, WITH(4, setCKDark(method, v[0] != 0, v[1], v[2], v[3]))},
        {"resetCKDark", 1, true, RUN(resetCKDark(method))},
        {"getCKBright", 1, true, RUN(getCKBright(method))},
        {"setCKBright", 1, true, WITH(4, setCKBright(method, v[0] != 0, v[1], v[2], v[3]))},
        {"resetCKBright", 1, true, RUN(resetCKBright(method))},
        {"getCKShadow", 1, true, RUN(getCKShadow(method))},
        {"setCKShadow", 1, true, WITH(2, setCKShadow(method, v[0] != 0, v[1]))},
        {"resetCKShadow", 1, true, RUN(resetCKShadow(method))},
        {"getEdgeFix", 1, true, RUN(getEdgeFix(method))},
        {"setEdgeFix", 1, true, WITH(4, setEdgeFix(method, v[0] != 0, v[1], v[2], v[3]))},
        {"resetEdgeFix", 1, true, RUN(resetEdgeFix(method))},
        {"getCKSpillBright", 1, true, RUN(getCKSpillBright(method))},
        {"setCKSpillBright", 1, true, WITH(6, setCKSpillBright(method, v[0], v[1], v[2], v[3], v[4], v[5]))},
        {"resetCKSpillBright", 1, true, WITH(2, resetCKSpillBright(method, v[0] % 4, v[1] != 0))},
    };
}

QVector<FuzzedOperation> postOperations()
{
    return {
        {"getPPFGPostAmp", 1, true, RUN(getPPFGPostAmp(method))},
        {"setPPFGPostAmp", 1, true, WITH(5, setPPFGPostAmp(method, v[0] != 0, v[1], v[2], v[3], v[4]))},
        {"resetPPFGPostAmp", 1, true, RUN(resetPPFGPostAmp(method))},
        {"getPPFGRGBCorrect", 1, true, RUN(getPPFGRGBCorrect(method))},
        {"setPPFGRGBCorrect", 1, true,
         WITH(7, setPPFGRGBCorrect(method, v[0] != 0, v[1], v[2], v[3], v[4], v[5], v[6]))},
        {"resetPPFGRGBCorrect", 1, true, RUN(resetPPFGRGBCorrect(method))},
        {"getBGBlur", 1, true, RUN(getBGBlur(method))},
        {"setBGBlur", 1, true, WITH(3, setBGBlur(method, v[0] != 0, v[1], v[2]))},
        {"resetBGBlur", 1, true, RUN(resetBGBlur(method))},
        {"getWindow", 1, true, RUN(getWindow(method))},
        {"setWindow", 1, true, WITH(7, setWindow(method, v[0] != 0, v[1], v[2], v[3], v[4], v[5], v[6]))},
        {"resetWindow", 1, true, RUN(resetWindow(method))},
        {"getHoldoutWindow", 1, true, RUN(getHoldoutWindow(method))},
        {"setHoldoutWindow", 1, true,
         WITH(7, setHoldoutWindow(method, v[0] != 0, v[1], v[2], v[3], v[4], v[5], v[6]))},
        {"resetHoldoutWindow", 1, true, RUN(resetHoldoutWindow(method))},
        {"getAuxMode", 1, true, RUN(getAuxMode(method))},
        {"setAuxMode", 1, true, WITH(2, setAuxMode(method, v[0], v[1]))},
        {"resetAuxMode", 1, true, RUN(resetAuxMode(method))},
        {"getLumaKey", 1, true, RUN(getLumaKey(method))},
        {"setLumaKey", 1, true,
         WITH(7,
              setLumaKey(method, v[0] != 0, v[1], quint16(v[2]), quint16(v[3]), v[4], v[5], quint16(v[6])))},
        {"resetLumaKey", 1, true, RUN(resetLumaKey(method))},
    };
}

QVector<FuzzedOperation> videoOperations()
{
    return {
        {"refreshStatus", 4, true, RUN(refreshStatus(method))},
        {"refreshVideoInRes", 1, true, RUN(refreshVideoInRes(method))},
        {"getVideoOut", 1, true, RUN(getVideoOut(method))},
        {"setVideoOut", 1, true,
         WITH(3, setVideoOut(method, resolution(v[0]), hdmiout_format(v[1]), std_auto(v[2] % 1024)))},
        {"setOutputSelection", 1, true,
         WITH(4,
              setOutputSelection(method, outputFrom(v[0]), outputFrom(v[1]), outputFrom(v[2]),
                                 outputFrom(v[3])))},
        {"setVideoInputSource", 1, true,
         WITH(9,
              setVideoInputSource(method, v[0], v[1], v[2], int(v[3]), int(v[4]), int(v[5]), int(v[6]),
                                  qint16(v[7]), qint16(v[8])))},
        {"resetVideoInputGenlock", 1, true, RUN(resetVideoInputGenlock(method))},
        {"loadMemory", 5, true, WITH(1, loadMemory(method, v[0]))},
        {"saveMemory", 1, true, WITH(1, saveMemory(method, v[0]))},
        {"saveSetup", 5, false, RUN(saveSetup(method))},
        {"readFunction", 1, true, anyFunction},
        {"disconnectDevice", 0, true, RUN(disconnectDevice(method))},
    };
}

#undef RUN
#undef WITH

} // namespace

const QVector<FuzzedOperation> &fuzzedOperations()
{
    static const QVector<FuzzedOperation> all = keyOperations() + postOperations() + videoOperations();
    return all;
}
