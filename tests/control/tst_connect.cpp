#include "facadebench.h"
#include "tests/support/stopwatch.h"

#include <QColor>
#include <QElapsedTimer>

// Making, watching and losing the link: the whole order of signals, the frames, the poll and what is stored.

class TestConnect : public QObject
{
    Q_OBJECT

private slots:
    void init() { QFile::remove(settingsPath()); }
    void wholeConnect_data();
    void wholeConnect();
    void connectTwice();
    void storedAfterAScan();
    void typedAddressAfterAScan();
    void failedConnectStoresNothing();
    void statusFailureLeavesThePollStopped();
    void linkThatDiesBeforeTheFirstStatus_data();
    void linkThatDiesBeforeTheFirstStatus();
    void linkThatDiesAt_data();
    void linkThatDiesAt();
    void disconnect();
    void pageChoosesThePeriod();
    void tick();
    void tickWithoutInputResolutions();
    void deadUnitAtATick();
    void silentSerialUnitAtATick();
    void tickWithoutALink();
    void pollWaitsForAWholePeriodAfterAnAction();

private:
    static QStringList connectSignals();
};

namespace {

const QStringList &readOrder()
{
    static const QStringList order{QStringLiteral("50"), QStringLiteral("51"), QStringLiteral("52"),
                                   QStringLiteral("53"), QStringLiteral("54"), QStringLiteral("57"),
                                   QStringLiteral("55"), QStringLiteral("56"), QStringLiteral("58"),
                                   QStringLiteral("59"), QStringLiteral("5b"), QStringLiteral("5a"),
                                   QStringLiteral("5c"), QStringLiteral("5f")};
    return order;
}

QStringList warnings(int count)
{
    QStringList list;
    for (int i = 0; i < count; ++i)
        list += QStringLiteral("warning(Disconnected)");
    return list;
}

void prepare(standin::Unit &unit)
{
    unit.setData(standin::OutputRouting, QByteArray::fromHex("060501040506"));
    unit.setData(standin::OutputStandard, QByteArray::fromHex("180100"));
    unit.setData(standin::InputSelection,
                 QByteArray::fromHex("00020306"
                                     "01feff0300"));
}

} // namespace

// What a connect to a unit prepared as above tells, colour apart.
QStringList TestConnect::connectSignals()
{
    const QColor drawn(30, 45, 193);
    return {QStringLiteral("showVersion(1.05, 2.23, 10.2a)"),
            QStringLiteral("showVout(24, 1, 0)"),
            QStringLiteral("refreshOutputSourcePGM(6, true, false)"),
            QStringLiteral("refreshOutputSourcePGMHDMI(1, true, true)"),
            QStringLiteral("refreshOutputSourcePVW(5, false, true)"),
            QStringLiteral("refreshOutputSourcePVWHDMI(4, false, false)"),
            QStringLiteral("refreshInputResolution(15, 15, 15, 15, 0)"),
            QStringLiteral("refreshInputSource(0, 2, 3)"),
            QStringLiteral("refreshInputFreeze(false, true, true)"),
            QStringLiteral("refreshGenlock(1, -2, 3)"),
            QStringLiteral("refreshBKColorAdjust(#1e2dc1, 120, 180, 760, %1, %2, %3)")
                .arg(drawn.hslHue())
                .arg(QVariant(drawn.hslSaturationF()).toString(), QVariant(drawn.lightnessF()).toString()),
            QStringLiteral("refreshCKAngle(45, 45)"),
            QStringLiteral("refreshCKBWLevel(100, 900, false)"),
            QStringLiteral("refreshCKDark(true, 200, 1000, 100)"),
            QStringLiteral("refreshCKBright(false, 300, 500, 50)"),
            QStringLiteral("refreshEdgeFix(false, 2, 2, 10)"),
            QStringLiteral("refreshCKShadow(false, 250)"),
            QStringLiteral("refreshCKSpill(500, 0, 500, 400, false, 1, false, false)"),
            QStringLiteral("refreshPPFGPostAmp(false, 500, 500, 500, 0)"),
            QStringLiteral("refreshPPFGRGBCorrector(false, 500, 500, 500, 500, 500, 500)"),
            QStringLiteral("refreshPPBGBlur(false, 20, 5)"),
            QStringLiteral("refreshWindow(false, 0, 0, 1000, 0, 1000, 0)"),
            QStringLiteral("refreshLumaKey(false, 0, 100, 200, 0, 5, 1000)"),
            QStringLiteral("refreshHoldoutWindow(false, 0, 0, 3840, 0, 2160, 0)"),
            QStringLiteral("refreshUserMemory(1)")};
}

void TestConnect::wholeConnect_data()
{
    QTest::addColumn<uint>("link");
    QTest::newRow("network") << 1u;
    QTest::newRow("serial") << 2u;
}

void TestConnect::wholeConnect()
{
    QFETCH(uint, link);
    FacadeBench bench(link);
    bench.host.withUnit(prepare);
    QElapsedTimer clock;
    clock.start();
    QCOMPARE(bench.control->deviceConnect(link, bench.target(), 0), QStringLiteral("OK"));
    // 200 ms after the disconnect and 21 exchanges of 50 or 150 ms.
    QVERIFY(clock.elapsed() >= 200 + 21 * (link == 1 ? 50 : 150));

    QCOMPARE(bench.recorder->told, connectSignals());
    QCOMPARE(
        bench.frames(),
        QStringList({QStringLiteral("6c"), QStringLiteral("6f"), QStringLiteral("63"), QStringLiteral("60"),
                     QStringLiteral("61"), QStringLiteral("62"), QStringLiteral("60")})
            + readOrder());
    QVERIFY(bench.control->isConnected());
    QCOMPARE(bench.control->currentConnectMethod, link);
    QVERIFY(bench.control->timerRefreshStatus->isActive());
    QCOMPARE(bench.control->timerRefreshStatus->interval(), 1500);

    // No adapter list was read here, so the saved adapter is left alone.
    const QString key = link == 1 ? QStringLiteral("ipaddress=") : QStringLiteral("serialport=");
    const QStringList stored{QStringLiteral("interface=%1").arg(link), key + bench.target()};
    QCOMPARE(storedKeys(QStringLiteral("connection")), stored);
    QCOMPARE(bench.control->initInterface, static_cast<int>(link));
    QCOMPARE(link == 1 ? bench.control->initIpaddr : bench.control->initSerialPort, bench.target());
}

void TestConnect::connectTwice()
{
    FacadeBench bench;
    QVERIFY(bench.connectUnit());
    QVERIFY(bench.connectUnit());
    QVERIFY(bench.control->isConnected());
}

void TestConnect::storedAfterAScan()
{
    FacadeBench bench;
    bench.control->netcardList =
        QStringList{QStringLiteral("[192.168.1.2] eth0"), QStringLiteral("[192.168.1.20] eth1")};
    bench.control->ipSelectList = QStringList{QStringLiteral("192.168.1.9"), bench.target()};
    didScan = true;
    hlnp_network_info &unit = bench.device->hlnpObj->qkvDevice[1].zcm.hlnpnetwork;
    unit.isdhcp = true;
    unit.ipadd = bench.target();
    unit.name = QStringLiteral("STUDIO-1");
    unit.macadd = QStringLiteral("00:50:C2:72:00:01");
    unit.gatewayadd = QStringLiteral("192.168.1.254");
    unit.maskadd = QStringLiteral("255.255.255.0");
    unit.primdnsadd = QStringLiteral("8.8.8.8");
    unit.secdnsadd = QStringLiteral("8.8.4.4");
    QCOMPARE(bench.control->deviceConnect(1, bench.target(), 1), QStringLiteral("OK"));
    QCOMPARE(
        storedKeys(QStringLiteral("connection")),
        QStringList({QStringLiteral("dhcpmode=true"), QStringLiteral("gateway=192.168.1.254"),
                     QStringLiteral("hostname=STUDIO-1"), QStringLiteral("interface=1"),
                     QStringLiteral("ipaddress=") + bench.target(), QStringLiteral("mac=00:50:C2:72:00:01"),
                     QStringLiteral("mask=255.255.255.0"), QStringLiteral("netcard=[192.168.1.20] eth1"),
                     QStringLiteral("primarydns=8.8.8.8"), QStringLiteral("seconddns=8.8.4.4")}));
    // The start-up copy is not kept in step here.
    QCOMPARE(bench.control->initIpaddr, QString());
    QCOMPARE(bench.control->initNetcard, QString());
}

void TestConnect::typedAddressAfterAScan()
{
    writeSettings(QStringLiteral("[connection]\nnetcard=[10.0.0.1] old\nmac=AA\n"));
    FacadeBench bench;
    didScan = true;
    bench.control->netcardList = QStringList{QStringLiteral("[192.168.1.2] eth0")};
    bench.control->ipSelectList = QStringList{QStringLiteral("192.168.1.9")};
    QCOMPARE(bench.control->deviceConnect(1, bench.target(), 7), QStringLiteral("OK"));
    // No row of the table is the typed address's: stored as without a scan, and adapter 7 does not exist.
    QCOMPARE(storedKeys(QStringLiteral("connection")),
             QStringList({QStringLiteral("interface=1"), QStringLiteral("ipaddress=") + bench.target(),
                          QStringLiteral("mac=AA"), QStringLiteral("netcard=[10.0.0.1] old")}));
    QCOMPARE(bench.control->initIpaddr, bench.target());
}

void TestConnect::failedConnectStoresNothing()
{
    FacadeBench bench;
    bench.host.stopListening();
    const QString result = bench.control->deviceConnect(1, bench.target(), 0);
    QCOMPARE(result, QStringLiteral("Get Version failed. \nDevice may be disconnected."));
    // One warning for each of the four attempts, and nothing else.
    QCOMPARE(bench.recorder->told, warnings(4));
    QVERIFY(!bench.control->timerRefreshStatus->isActive());
    QVERIFY(!QFile::exists(settingsPath()));
    QCOMPARE(bench.control->deviceConnect(2, QStringLiteral("/dev/no-such-port"), 0).isEmpty(), false);
    QCOMPARE(bench.control->currentConnectMethod, 1u);
    QCOMPARE(bench.control->deviceConnect(3, QString(), 0), QStringLiteral("NOT OK"));
}

void TestConnect::statusFailureLeavesThePollStopped()
{
    FacadeBench bench(2);
    bench.host.setFault(standin::OutputRouting, standin::Fault::silent());
    QCOMPARE(bench.control->deviceConnect(2, bench.target(), 0),
             QStringLiteral("Get status failed. Please try again."));
    QCOMPARE(bench.recorder->told, QStringList());
    QVERIFY(bench.control->isConnected());
    QVERIFY(!bench.control->timerRefreshStatus->isActive());
    QVERIFY(!QFile::exists(settingsPath()));
}

void TestConnect::linkThatDiesBeforeTheFirstStatus_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("words");
    QTest::addColumn<int>("attempts");
    const QString version = QStringLiteral("Get Version failed. \nDevice may be disconnected.");
    const QString status = QStringLiteral("Device disconnected.");
    QTest::newRow("version") << int(standin::Version) << version << 4;
    QTest::newRow("device type") << int(standin::DeviceType) << version << 4;
    QTest::newRow("routing") << int(standin::OutputRouting) << status << 3;
    QTest::newRow("output standard") << int(standin::OutputStandard) << status << 3;
    QTest::newRow("input selection") << int(standin::InputSelection) << status << 3;
    QTest::newRow("input standards") << int(standin::InputStandard) << status << 3;
}

void TestConnect::linkThatDiesBeforeTheFirstStatus()
{
    QFETCH(int, code);
    QFETCH(QString, words);
    QFETCH(int, attempts);
    FacadeBench bench;
    bench.host.setFault(code, standin::Fault::closeLink());
    QCOMPARE(bench.control->deviceConnect(1, bench.target(), 0), words);
    QCOMPARE(bench.recorder->told, warnings(attempts));
    QVERIFY(!bench.control->timerRefreshStatus->isActive());
    QVERIFY(!QFile::exists(settingsPath()));
}

void TestConnect::linkThatDiesAt_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<int>("toldBefore"); // signals of a whole connect up to and with the failing read's own
    const int codes[] = {0x50, 0x51, 0x52, 0x53, 0x54, 0x57, 0x55, 0x56, 0x58, 0x59, 0x5B, 0x5A, 0x5C, 0x5F};
    int told = 11;
    for (const int code : codes)
        QTest::addRow("%02x", code) << code << told++;
}

void TestConnect::linkThatDiesAt()
{
    QFETCH(int, code);
    QFETCH(int, toldBefore);
    FacadeBench bench;
    bench.host.withUnit(prepare);
    QVERIFY(bench.connectUnit()); // the values that the failing read then repeats
    bench.host.setFault(code, standin::Fault::closeLink());
    QCOMPARE(bench.control->deviceConnect(1, bench.target(), 0), QStringLiteral("OK"));

    // The failing read warns at each of its four attempts and still tells its stored values; the reads behind
    // it say nothing, the last memory is told and the connection stored, and the poll rests.
    QStringList expected = connectSignals().mid(0, toldBefore);
    for (int i = 0; i < 4; ++i)
        expected.insert(toldBefore - 1, QStringLiteral("warning(Disconnected)"));
    expected += QStringLiteral("refreshUserMemory(1)");
    QCOMPARE(bench.recorder->told, expected);
    QVERIFY(!bench.control->isConnected());
    QVERIFY(!bench.control->timerRefreshStatus->isActive());
    QVERIFY(storedKeys(QStringLiteral("connection")).contains(QStringLiteral("ipaddress=") + bench.target()));
}

void TestConnect::disconnect()
{
    FacadeBench bench;
    QVERIFY(bench.connectUnit());
    const QStringList before = storedKeys(QStringLiteral("connection"));
    bench.control->deviceDisConnect(1);
    QVERIFY(!bench.control->isConnected());
    QVERIFY(!bench.control->timerRefreshStatus->isActive());
    QCOMPARE(bench.recorder->told, QStringList());
    QCOMPARE(storedKeys(QStringLiteral("connection")), before);
}

void TestConnect::pageChoosesThePeriod()
{
    FacadeBench bench;
    bench.control->setCurrentPage(2);
    QCOMPARE(bench.control->timerRefreshStatus->interval(), 3000);
    bench.control->setCurrentPage(1);
    QCOMPARE(bench.control->timerRefreshStatus->interval(), 1500);
    QVERIFY(!bench.control->timerRefreshStatus->isActive());
    QVERIFY(bench.control->setProperty("currentPage", 6));
    QCOMPARE(bench.control->getCurrentPage(), 6);
    QVERIFY(bench.connectUnit());
    QCOMPARE(bench.control->timerRefreshStatus->interval(), 3000);
    QVERIFY(bench.control->timerRefreshStatus->isActive());
    bench.control->setCurrentPage(1);
    QCOMPARE(bench.control->timerRefreshStatus->interval(), 1500);
    QVERIFY(bench.control->timerRefreshStatus->isActive());
    QCOMPARE(bench.recorder->told, QStringList());
}

void TestConnect::tick()
{
    FacadeBench bench;
    bench.host.withUnit(prepare);
    QVERIFY(bench.connectUnit());
    bench.host.withUnit([](standin::Unit &unit) { unit.setConnector(2, 9); });
    const QStringList expected{
        QStringLiteral("showVout(24, 1, 0)"), QStringLiteral("refreshInputResolution(15, 9, 15, 15, 1)"),
        QStringLiteral("refreshGenlock(1, -2, 3)"), QStringLiteral("refreshInputFreeze(false, true, true)")};
    // The timer itself brings the tick, one and a half seconds after the connect.
    const support::Stopwatch clock;
    QTRY_VERIFY_WITH_TIMEOUT(!bench.recorder->told.isEmpty(), 15000);
    VERIFY_TOOK(clock, 0, 2500);
    QCOMPARE(bench.recorder->told, expected);
    QCOMPARE(bench.frames(), QStringList({QStringLiteral("60"), QStringLiteral("62")}));
    QVERIFY(bench.control->timerRefreshStatus->isActive());
}

void TestConnect::tickWithoutInputResolutions()
{
    FacadeBench bench(2);
    QVERIFY(bench.connectUnit());
    bench.host.setFault(standin::InputStandard, standin::Fault::silent());
    bench.control->refreshStatus();
    QCOMPARE(bench.recorder->told, QStringList{QStringLiteral("showVout(15, 0, 1)")});
    QVERIFY(bench.control->isConnected());
    QVERIFY(bench.control->timerRefreshStatus->isActive());
}

void TestConnect::deadUnitAtATick()
{
    FacadeBench bench;
    QVERIFY(bench.connectUnit());
    bench.host.setFault(standin::AnyCode, standin::Fault::silent());
    bench.control->refreshStatus();
    // Each failed attempt warns by itself, the tick's own warning comes last.
    QCOMPARE(bench.recorder->take(), warnings(5));
    QVERIFY(!bench.control->isConnected());
    QVERIFY(!bench.control->timerRefreshStatus->isActive());
    QTest::qWait(2000);
    QCOMPARE(bench.recorder->told, QStringList());
}

void TestConnect::silentSerialUnitAtATick()
{
    FacadeBench bench(2);
    QVERIFY(bench.connectUnit());
    bench.host.setFault(standin::AnyCode, standin::Fault::silent());
    bench.control->refreshStatus();
    QCOMPARE(bench.recorder->told, QStringList{QStringLiteral("warning(Disconnected)")});
    QCOMPARE(bench.frames(), QStringList{QStringLiteral("60")});
    QVERIFY(!bench.control->isConnected());
    QVERIFY(!bench.control->timerRefreshStatus->isActive());
}

void TestConnect::tickWithoutALink()
{
    FacadeBench bench;
    bench.control->setRefreshTimer(true);
    QVERIFY(bench.control->timerRefreshStatus->isActive());
    const support::Stopwatch clock;
    QTRY_COMPARE_WITH_TIMEOUT(bench.recorder->told, QStringList{QStringLiteral("warning(Disconnected)")},
                              15000);
    VERIFY_TOOK(clock, 1400, 2500);
    QVERIFY(!bench.control->timerRefreshStatus->isActive());
    bench.control->setRefreshTimer(true);
    bench.control->setRefreshTimer(false);
    QVERIFY(!bench.control->timerRefreshStatus->isActive());
}

void TestConnect::pollWaitsForAWholePeriodAfterAnAction()
{
    FacadeBench bench;
    QVERIFY(bench.connectUnit());
    QTest::qWait(1000);
    bench.control->setRefreshTimer(false);
    bench.control->setCKAngle(1, 2); // its own ending starts the poll that the interface had held off
    const support::Stopwatch clock;
    QTRY_VERIFY_WITH_TIMEOUT(bench.host.count(standin::OutputStandard) > 0, 15000);
    VERIFY_TOOK(clock, 1450, 3000);
}

QTEST_GUILESS_MAIN(TestConnect)
#include "tst_connect.moc"
