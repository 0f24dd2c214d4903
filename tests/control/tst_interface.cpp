#include "facadebench.h"

#include <QMetaMethod>
#include <QMetaProperty>

// What the facade offers by name: the documents of the screen read properties, call slots and hear signals by it.

class TestInterface : public QObject
{
    Q_OBJECT

private slots:
    void init() { QFile::remove(settingsPath()); }
    void properties();
    void signalsInTheirOrder();
    void portsAreListedAnewAtEachRead();
    void newDeviceObject();
};

namespace {

const char *const kSignals[] = {
    "refreshConnection(int method, QString serialport, QString netcard, bool dhcpMode, QString ipaddr, "
    "QString "
    "hostname, QString macaddr, QString gateway, QString mask, QString primDns, QString secDns)",
    "refreshConnectionData(int test, QString test1, bool test0, QString test2, QString test3, QString test4, "
    "QString test5, QString test6, QString test7, QString test8)",
    "vOutChanged()",
    "vOutResolutionChanged()",
    "vOutColorSpaceChanged()",
    "vOutStdChanged()",
    "showVersion(QString fwversion, QString fpgaversion, QString blversion)",
    "showVout(uint res, uint colorformat, uint std)",
    "refreshOutputSourcePGM(uint source, bool lock, bool mirror)",
    "refreshOutputSourcePVW(uint source, bool lock, bool mirror)",
    "refreshOutputSourcePGMHDMI(uint source, bool lock, bool mirror)",
    "refreshOutputSourcePVWHDMI(uint source, bool lock, bool mirror)",
    "refreshSerialPortNames(QStringList portNameList)",
    "refreshInputResolution(uint fg, uint bg, uint aux, uint sync, int genStatus)",
    "refreshInputSource(uint fg, uint bg, uint aux)",
    "refreshBKColorAdjust(QString colorString, int r, int g, int b, int h, double s, double l)",
    "refreshBKColorPicker(QString colorString, int r, int g, int b, int h, double s, double l)",
    "refreshCKAngle(uint minus, uint plus)",
    "refreshCKBWLevel(uint black, uint white, bool matte)",
    "refreshCKDark(bool enable, int level, int density, int balance)",
    "refreshCKBright(bool enable, int level, int density, int balance)",
    "refreshEdgeFix(bool enable, uint left, uint right, uint edge)",
    "refreshCKShadow(bool enable, int shadowValue)",
    "refreshCKSpill(uint spillSuppressionValue, uint spillEnhanceValue, uint spillBalanceValue, uint "
    "edgeBrightnessValue, bool vividValue, uint spillDefButton, bool spillVividDefault, bool "
    "spillSupEnhanceValue)",
    "refreshPPFGPostAmp(bool enable, uint bright, uint contrast, uint sat, uint hue)",
    "refreshPPFGRGBCorrector(bool enable, uint rWhite, uint rBlack, uint gWhite, uint gBlack, uint bWhite, "
    "uint "
    "bBlack)",
    "refreshWindow(bool enable, uint invert, uint left, uint right, uint top, uint bottom, uint border)",
    "refreshHoldoutWindow(bool enable, uint invert, uint left, uint right, uint top, uint bottom, uint "
    "border)",
    "refreshAuxMode(uint auxFunc, uint auxPolar)",
    "refreshLumaKey(bool enable, uint keymode, ushort cutoff, ushort softness, uint layer, uint swaptime, "
    "ushort opa)",
    "refreshNetcardList(QStringList netList)",
    "refreshIPSelectList(QStringList ipList)",
    "currentPageChanged()",
    "refreshLanguage(QString lan)",
    "refreshMainImage()",
    "refreshChromaImage()",
    "warning(QString msg)",
    "refreshUserMemory(int index)",
    "markHLNPDataRed(int index)",
    "autoConnectResult(QString msg)",
    "refreshPPBGBlur(bool enable, uint blurvalue, uint blurtime)",
    "refreshGenlock(int gen, short gen_h, short gen_v)",
    "refreshInputFreeze(bool fgFreeze, bool bgFreeze, bool auxFreeze)",
};

QString declared(const QMetaMethod &method)
{
    QStringList arguments;
    for (int i = 0; i < method.parameterCount(); ++i)
        arguments += QString::fromLatin1(QMetaType::typeName(method.parameterType(i))) + QLatin1Char(' ')
            + QString::fromLatin1(method.parameterNames().at(i));
    return QString::fromLatin1(method.name()) + QLatin1Char('(') + arguments.join(QStringLiteral(", "))
        + QLatin1Char(')');
}

} // namespace

void TestInterface::properties()
{
    const QMetaObject &meta = mainControl::staticMetaObject;
    QStringList properties;
    for (int i = meta.propertyOffset(); i < meta.propertyCount(); ++i) {
        const QMetaProperty property = meta.property(i);
        properties += QString::fromLatin1(property.name()) + QLatin1Char(' ')
            + QString::fromLatin1(property.notifySignal().name()) + QLatin1Char(' ')
            + QString::fromLatin1(property.typeName())
            + (property.isWritable() ? QStringLiteral(" writable") : QString());
    }
    QCOMPARE(properties,
             QStringList({QStringLiteral("vOutResolution vOutResolutionChanged QString writable"),
                          QStringLiteral("vOutColorSpace vOutColorSpaceChanged QString writable"),
                          QStringLiteral("vOutStd vOutStdChanged QString writable"),
                          QStringLiteral("serialNameList refreshSerialPortNames QStringList"),
                          QStringLiteral("netcardList refreshNetcardList QStringList"),
                          QStringLiteral("ipSelectList refreshIPSelectList QStringList"),
                          QStringLiteral("currentPage currentPageChanged int writable")}));
    FacadeBench bench;
    QCOMPARE(bench.control->appVersion, QStringLiteral("1.6.7"));
}

// The handlers of the documents read the arguments by name.
void TestInterface::signalsInTheirOrder()
{
    const QMetaObject &meta = mainControl::staticMetaObject;
    QStringList told;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        if (meta.method(i).methodType() == QMetaMethod::Signal)
            told += declared(meta.method(i));
    }
    QStringList expected;
    for (const char *signal : kSignals)
        expected += QString::fromLatin1(signal);
    QCOMPARE(expected.size(), 43);
    QCOMPARE(told, expected);
}

void TestInterface::portsAreListedAnewAtEachRead()
{
    QStringList ports;
    for (const QSerialPortInfo &port : QSerialPortInfo::availablePorts())
        ports += port.portName();
    FacadeBench bench;
    // Something else stands there since the last read, as when a port was plugged in meanwhile.
    bench.control->serialNameList = QStringList{QStringLiteral("pulled out")};
    QCOMPARE(bench.control->property("serialNameList").toStringList(), ports);
    QCOMPARE(bench.control->serialNameList, ports);
    bench.control->serialNameList = QStringList{QStringLiteral("pulled out again")};
    QCOMPARE(bench.control->property("serialNameList").toStringList(), ports);
}

void TestInterface::newDeviceObject()
{
    FacadeBench bench;
    const std::unique_ptr<qkv720> former(bench.device);
    const std::unique_ptr<HLNP> formerDiscovery(former->hlnpObj);
    const std::unique_ptr<serialPort> formerSerial(former->serialObj);
    const int adapters = former->hlnpObj->netcardlist.size();
    bench.control->initObj();
    bench.device = deviceOf(*bench.control);
    QVERIFY(bench.device != former.get());

    // Listing the adapters once more adds them behind those that stand there.
    bench.control->doPreprocess();
    QCOMPARE(bench.device->hlnpObj->netcardlist.size(), 2 * adapters);

    // Without a link the read says so by its mark alone, and leaves the poll stopped.
    bench.control->timerRefreshStatus->start();
    QVERIFY(bench.control->getVOut().std == std_auto::ERROR);
    QVERIFY(!bench.control->timerRefreshStatus->isActive());
    QCOMPARE(bench.control->getVideoOutRes(), 0);
}

QTEST_GUILESS_MAIN(TestInterface)
#include "tst_interface.moc"
