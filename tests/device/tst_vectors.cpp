#include "tests/device/devicebench.h"
#include "tests/device/unitfields.h"
#include "tests/support/vectors.h"

#include <algorithm>

using support::Vector;
Q_DECLARE_METATYPE(Vector)

// The device class against vectors that were written apart from it: the bytes that it sends for a function's values,
// and what it makes of the bytes that the unit answers.
class VectorsTest : public QObject
{
    Q_OBJECT

private slots:
    void everyVectorHasItsOperation();
    void network_data() { rows(); }
    void network() { run(kNetworkLink); }
    void serial_data() { rows(); }
    void serial() { run(kSerialLink); }

private:
    static void rows();
    void run(uint method);

    std::unique_ptr<DeviceBench> bench;
};

namespace {

// The name of a value in a vector, and the field that mirrors it.
struct Named
{
    const char *value;
    const char *field;
    int bit = -1; // of a value that holds flags
};

struct Operations
{
    const char *function;
    std::function<void(qkv720 &, uint)> get;
    std::function<void(qkv720 &, uint, const QMap<QString, int> &)> set;
    std::function<void(qkv720 &, uint, const QMap<QString, int> &)> reset;
    QVector<Named> fields;
};

#define GET(...) [](qkv720 &d, uint m) { (void)d.__VA_ARGS__; }
#define SET(...)                                                                                             \
    [](qkv720 &d, uint m, const QMap<QString, int> &v) {                                                     \
        const auto n = [&v](const char *name) { return v.value(QLatin1String(name)); };                      \
        const auto u = [&n](const char *name) { return static_cast<uint>(n(name)); };                        \
        (void)n;                                                                                             \
        (void)u;                                                                                             \
        d.__VA_ARGS__;                                                                                       \
    }

output outputOf(const QMap<QString, int> &values, const char *name, int bit)
{
    const auto flag = [&values, bit](const char *flags) {
        return (values.value(QLatin1String(flags)) >> bit & 1) != 0;
    };
    output record;
    record.source = output_source(values.value(QLatin1String(name)));
    record.lock = flag("lock");
    record.mirror = flag("mirror");
    return record;
}

QVector<Operations> keyOperations()
{
    return {
        {"BACK_COLOUR",
         GET(getBackColor(m)),
         SET(setBackColor(m, quint16(n("red")), quint16(n("green")), quint16(n("blue")), u("auto"))),
         SET(resetBackColor(m)),
         {{"red", "ckBackColor.r"},
          {"green", "ckBackColor.g"},
          {"blue", "ckBackColor.b"},
          {"auto", "ckBackColor.autoCk"}}},
        {"ANGLE",
         [](qkv720 &d, uint m) {
             uint l = 0;
             uint r = 0;
             d.getCKAngle(m, &l, &r);
         },
         SET(setCKAngle(m, u("left"), u("right"))),
         SET(resetCKAngle(m)),
         {{"left", "ckAngleL"}, {"right", "ckAngleR"}}},
        {"LEVELS",
         [](qkv720 &d, uint m) {
             uint b = 0;
             uint w = 0;
             bool matte = false;
             d.getCKBWLevel(m, &b, &w, &matte);
         },
         SET(setCKBWLevel(m, u("black"), u("white"), n("matte") != 0)),
         SET(resetCKBWLevel(m)),
         {{"black", "ckBlackLevel"}, {"white", "ckWhiteLevel"}, {"matte", "matteEnable"}}},
        {"DARK",
         [](qkv720 &d, uint m) {
             bool enable = false;
             uint level = 0;
             uint density = 0;
             uint balance = 0;
             d.getCKDark(m, &enable, &level, &density, &balance);
         },
         SET(setCKDark(m, n("enable") != 0, u("level"), u("density"), u("balance"))),
         SET(resetCKDark(m)),
         {{"enable", "ckDark.enable"},
          {"level", "ckDark.level"},
          {"density", "ckDark.density"},
          {"balance", "ckDark.balance"}}},
        {"BRIGHT",
         GET(getCKBright(m)),
         SET(setCKBright(m, n("enable") != 0, u("level"), u("density"), u("balance"))),
         SET(resetCKBright(m)),
         {{"enable", "ckBright.enable"},
          {"level", "ckBright.level"},
          {"density", "ckBright.density"},
          {"balance", "ckBright.balance"}}},
        {"SHADOW",
         GET(getCKShadow(m)),
         SET(setCKShadow(m, n("enable") != 0, u("level"))),
         SET(resetCKShadow(m)),
         {{"enable", "ckShadow.enable"}, {"level", "ckShadow.level"}}},
        {"SPILL",
         GET(getCKSpillBright(m)),
         SET(setCKSpillBright(m, u("suppression"), u("enhance"), u("balance"), u("brightness"), u("vivid"),
                              u("preset"))),
         SET(resetCKSpillBright(m, u("preset") & 7U, (u("preset") & 8U) != 0)),
         {{"suppression", "spillSuppression"},
          {"enhance", "spillEnhance"},
          {"balance", "spillBalance"},
          {"brightness", "spillBrightness"},
          {"vivid", "spillVivid"},
          {"preset", "spillDefaultValue"}}},
        {"EDGE_FIX",
         GET(getEdgeFix(m)),
         SET(setEdgeFix(m, n("enable") != 0, u("left"), u("right"), u("soft"))),
         SET(resetEdgeFix(m)),
         {{"enable", "edgeFixEnable"},
          {"left", "edge_ShrinkLeft"},
          {"right", "edge_ShrinkRight"},
          {"soft", "edge_SoftEdge"}}},
        // Control and position are in the reply and are not read.
        {"CURSOR",
         GET(getCursor(m)),
         nullptr,
         nullptr,
         {{"red", "tempR"}, {"green", "tempG"}, {"blue", "tempB"}}},
    };
}

QVector<Operations> postOperations()
{
    return {
        {"POST_AMPLIFIER",
         GET(getPPFGPostAmp(m)),
         SET(setPPFGPostAmp(m, n("enable") != 0, u("bright"), u("contrast"), u("saturation"), u("hue"))),
         SET(resetPPFGPostAmp(m)),
         {{"enable", "ppPostAmp.enable"},
          {"bright", "ppPostAmp.bright"},
          {"contrast", "ppPostAmp.contrast"},
          {"saturation", "ppPostAmp.sat"},
          {"hue", "ppPostAmp.hue"}}},
        {"RGB_CORRECTOR",
         GET(getPPFGRGBCorrect(m)),
         SET(setPPFGRGBCorrect(m, n("enable") != 0, u("redWhite"), u("redBlack"), u("greenWhite"),
                               u("greenBlack"), u("blueWhite"), u("blueBlack"))),
         SET(resetPPFGRGBCorrect(m)),
         {{"enable", "rgbCorrect.enable"},
          {"redWhite", "rgbCorrect.rWhite"},
          {"redBlack", "rgbCorrect.rBlack"},
          {"greenWhite", "rgbCorrect.gWhite"},
          {"greenBlack", "rgbCorrect.gBlack"},
          {"blueWhite", "rgbCorrect.bWhite"},
          {"blueBlack", "rgbCorrect.bBlack"}}},
        {"GARBAGE_MASK",
         GET(getWindow(m)),
         SET(setWindow(m, n("enable") != 0, u("invert"), u("left"), u("right"), u("top"), u("bottom"),
                       u("border"))),
         SET(resetWindow(m)),
         {{"enable", "garbageMaskWindow.enable"},
          {"invert", "garbageMaskWindow.invert"},
          {"left", "garbageMaskWindow.left"},
          {"right", "garbageMaskWindow.right"},
          {"top", "garbageMaskWindow.top"},
          {"bottom", "garbageMaskWindow.bottom"},
          {"border", "garbageMaskWindow.border"}}},
        {"HOLDOUT_WINDOW",
         GET(getHoldoutWindow(m)),
         SET(setHoldoutWindow(m, n("enable") != 0, u("invert"), u("left"), u("right"), u("top"), u("bottom"),
                              u("border"))),
         SET(resetHoldoutWindow(m)),
         {{"enable", "holdoutWindow.enable"},
          {"invert", "holdoutWindow.invert"},
          {"left", "holdoutWindow.left"},
          {"right", "holdoutWindow.right"},
          {"top", "holdoutWindow.top"},
          {"bottom", "holdoutWindow.bottom"},
          {"border", "holdoutWindow.border"}}},
        {"BACKGROUND_BLUR",
         GET(getBGBlur(m)),
         SET(setBGBlur(m, n("enable") != 0, u("level"), u("time"))),
         SET(resetBGBlur(m)),
         {{"enable", "bgBlur.enable"}, {"level", "bgBlur.bg_blur"}, {"time", "bgBlur.blurTime"}}},
        {"LUMA_KEY",
         GET(getLumaKey(m)),
         SET(setLumaKey(m, n("enable") != 0, u("mode"), quint16(n("cutOff")), quint16(n("softness")),
                        u("layerSwap"), u("swapTime"), quint16(n("opacity")))),
         SET(resetLumaKey(m)),
         {{"enable", "auxLumakey.enable"},
          {"mode", "auxLumakey.keymode"},
          {"cutOff", "auxLumakey.cutOff"},
          {"softness", "auxLumakey.softness"},
          {"layerSwap", "auxLumakey.layerSwap"},
          {"swapTime", "auxLumakey.swapTime"},
          {"opacity", "auxLumakey.opacity"}}},
    };
}

QVector<Operations> statusOperations()
{
    return {
        {"OUTPUT_STANDARD",
         GET(getVideoOut(m)),
         SET(setVideoOut(m, resolution(n("standard")), hdmiout_format(n("colour")), std_auto(n("mode")))),
         nullptr,
         {{"standard", "videoOut.res"}, {"colour", "videoOut.colorspace"}, {"mode", "videoOut.std"}}},
        {"INPUT_SELECTION",
         GET(refreshStatus(m)),
         SET(setVideoInputSource(m, u("fg"), u("bg"), u("aux"), n("freeze") & 1, n("freeze") >> 1 & 1,
                                 n("freeze") >> 2 & 1, n("genlock"), qint16(n("h")), qint16(n("v")))),
         SET(resetVideoInputGenlock(m)),
         {{"fg", "inputFG.source"},
          {"bg", "inputBG.source"},
          {"aux", "inputAUX.source"},
          {"freeze", "inputFG.freeze", 0},
          {"freeze", "inputBG.freeze", 1},
          {"freeze", "inputAUX.freeze", 2},
          {"genlock", "genlockSrc"},
          {"h", "genlock_H"},
          {"v", "genlock_V"}}},
        {"OUTPUT_ROUTING",
         GET(refreshStatus(m)),
         SET(setOutputSelection(m, outputOf(v, "pgm", 0), outputOf(v, "pvw", 1), outputOf(v, "pgmHdmi", 2),
                                outputOf(v, "pvwHdmi", 3))),
         nullptr,
         {{"pgm", "PGM.source"},
          {"pvw", "PVW.source"},
          {"pgmHdmi", "PGM_HDMI.source"},
          {"pvwHdmi", "PVW_HDMI.source"},
          {"lock", "PGM.lock", 0},
          {"lock", "PVW.lock", 1},
          {"lock", "PGM_HDMI.lock", 2},
          {"lock", "PVW_HDMI.lock", 3},
          {"mirror", "PGM.mirror", 0},
          {"mirror", "PVW.mirror", 1},
          {"mirror", "PGM_HDMI.mirror", 2},
          {"mirror", "PVW_HDMI.mirror", 3}}},
        {"INPUT_STANDARD",
         GET(refreshVideoInRes(m)),
         nullptr,
         nullptr,
         {{"fg", "inputFG.res"},
          {"bg", "inputBG.res"},
          {"aux", "inputAUX.res"},
          {"sync", "inputSYNC.res"},
          {"genlockStatus", "genlockStatus"}}},
    };
}

#undef GET
#undef SET

// Version and device type are asked for by a connect alone.
bool isGreeting(const QString &function)
{
    return function == QLatin1String("VERSION") || function == QLatin1String("DEVICE_TYPE");
}

const Operations *operationsOf(const QString &function)
{
    static const QVector<Operations> all = keyOperations() + postOperations() + statusOperations();
    const auto found = std::find_if(all.cbegin(), all.cend(), [&function](const Operations &row) {
        return function == QLatin1String(row.function);
    });
    return found == all.cend() ? nullptr : &*found;
}

QString expectedValue(const Named &named, const Vector &vector)
{
    const int value = vector.values.value(QLatin1String(named.value), -999);
    // A negative hue comes back without its sign.
    if (qstrcmp(named.field, "ppPostAmp.hue") == 0 && vector.verb == QLatin1String("get"))
        return QString::number(value & 0xFFFF);
    if (qstrcmp(named.field, "ppPostAmp.hue") == 0)
        return QString::number(static_cast<uint>(value));
    return QString::number(named.bit < 0 ? value : value >> named.bit & 1);
}

// What a vector says of the state; all other fields are left out.
QString wrongFields(const Snapshot &found, const Operations &operations, const Vector &vector)
{
    QString text;
    for (const Named &named : operations.fields) {
        const bool neverStored = vector.verb == QLatin1String("set")
            && qstrcmp(named.field, "ckBackColor.autoCk") == 0; // only replies write it
        const QString field = QString::fromLatin1(named.field);
        if (!neverStored && found.value(field) != expectedValue(named, vector))
            text += QStringLiteral("%1 is %2, not %3; ")
                        .arg(field, found.value(field), expectedValue(named, vector));
    }
    return text;
}

QString versionText(const Vector &vector, const QString &part)
{
    return QStringLiteral("%1.%2")
        .arg(vector.values.value(part + QLatin1String("Major")), 0, 16)
        .arg(vector.values.value(part + QLatin1String("Minor")), 2, 16, QLatin1Char('0'));
}

} // namespace

void VectorsTest::everyVectorHasItsOperation()
{
    const QVector<Vector> vectors = support::readVectors();
    QVERIFY(vectors.size() > 50);
    for (const Vector &vector : vectors) {
        if (isGreeting(vector.function))
            continue;
        const Operations *operations = operationsOf(vector.function);
        QVERIFY2(operations != nullptr, qPrintable(vector.title()));
        const bool known = vector.verb == QLatin1String("get") ? bool(operations->get)
            : vector.verb == QLatin1String("set")              ? bool(operations->set)
                                                               : bool(operations->reset);
        QVERIFY2(known, qPrintable(vector.title()));
    }
}

void VectorsTest::rows()
{
    QTest::addColumn<Vector>("vector");
    for (const Vector &vector : support::readVectors())
        QTest::newRow(qPrintable(vector.title())) << vector;
}

void VectorsTest::run(uint method)
{
    QFETCH(Vector, vector);
    if (!bench)
        bench = std::make_unique<DeviceBench>(method);
    qkv720 &device = *bench->device;
    bench->host.clearFaults();
    if (!device.isConnected)
        QCOMPARE(device.connectDevice(method, bench->target()), QStringLiteral("OK"));
    bench->host.clearRecord();
    scramble(device, 1);
    const int code = static_cast<uchar>(vector.out.at(2));
    if (!vector.in.isEmpty())
        bench->host.setFault(code, standin::Fault::answer(vector.in));

    const Operations *operations = operationsOf(vector.function);
    if (operations == nullptr)
        QCOMPARE(device.connectDevice(method, bench->target()), QStringLiteral("OK"));
    else if (vector.verb == QLatin1String("get"))
        operations->get(device, method);
    else if (vector.verb == QLatin1String("set"))
        operations->set(device, method, vector.values);
    else
        operations->reset(device, method, vector.values);

    QStringList sent = bench->frames().split(QStringLiteral(", "));
    const QString expected = frameOn(method, vector.out.toHex());
    if (sent.size() > 1 && sent.contains(expected)) // a connect or a status asks for more than this one
        sent = QStringList{expected};
    QCOMPARE(sent.join(QStringLiteral(", ")), expected);
    if (vector.function == QLatin1String("VERSION")) {
        QCOMPARE(device.getFWVersion(), versionText(vector, QStringLiteral("firmware")));
        QCOMPARE(device.getFPGAVersion(), versionText(vector, QStringLiteral("fpga")));
        QCOMPARE(device.getBLVersion(), versionText(vector, QStringLiteral("loader")));
    }
    if (operations != nullptr && vector.verb != QLatin1String("reset"))
        QCOMPARE(wrongFields(snapshotOf(device), *operations, vector), QString());
    QCOMPARE(bench->broken.count(), 0);
}

QTEST_GUILESS_MAIN(VectorsTest)
#include "tst_vectors.moc"
