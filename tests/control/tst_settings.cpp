#include "facadebench.h"

#include <QTemporaryDir>

#include "shell/qmltranslator.h"

// The settings file from run to run, and the automatic connection as far as it needs no scan.

class TestSettings : public QObject
{
    Q_OBJECT

private slots:
    void init() { QFile::remove(settingsPath()); }
    void firstRun();
    void everythingSaved();
    void secondRunAfterAConnect();
    void garbled_data();
    void garbled();
    void anotherFolderIsAFirstRun();
    void addressAloneIsEnough();
    void startUpTimer();
    void popup();
    void popupWhileConnected();
    void popupAfterAScan();
    void autoRunOnAFirstRun();
    void adapterGone();
    void adapterGoneWithoutASavedMac();
    void serialPortGone();
    void serialPortFound();
    void unknownInterface();
    void foundUnitIsTold();
};

namespace {

const char kSaved[] = "[setting]\nlanguage=zh_TW\n"
                      "[connection]\ninterface=%1\nnetcard=[192.168.9.2] eth0\nserialport=%2\ndhcpmode=true\n"
                      "ipaddress=192.168.9.10\nhostname=STUDIO-1\nmac=%3\ngateway=192.168.9.1\n"
                      "mask=255.255.255.0\nprimarydns=8.8.8.8\nseconddns=8.8.4.4\n[last_info]\nmemory=7\n";

QString saved(int interface, const QString &port = QStringLiteral("ttyS7"),
              const QString &mac = QStringLiteral("00:50:C2:72:00:01"))
{
    return QString::fromLatin1(kSaved).arg(interface).arg(port, mac);
}

const char kSavedConnection[] =
    "refreshConnection(%1, ttyS7, [192.168.9.2] eth0, true, 192.168.9.10, STUDIO-1, 00:50:C2:72:00:01, "
    "192.168.9.1, 255.255.255.0, 8.8.8.8, 8.8.4.4)";
const char kSavedUnit[] = "refreshConnectionData(999, [192.168.9.2] eth0, true, STUDIO-1, 192.168.9.10, %1, "
                          "192.168.9.1, 255.255.255.0, 8.8.8.8, 8.8.4.4)";

} // namespace

void TestSettings::firstRun()
{
    FacadeBench bench;
    QCOMPARE(bench.control->initInterface, 1);
    QCOMPARE(bench.control->initDhcpMode, false);
    QCOMPARE(bench.control->initIpaddr, QString());
    QCOMPARE(lastMemory, 1u);
    QVERIFY(!iniExist);
    QVERIFY(!didScan);
    QCOMPARE(bench.control->currentConnectMethod, 1u);
    QCOMPARE(bench.control->currentPage, 1);
    QVERIFY(bench.control->serialNameList.isEmpty());
    QVERIFY(bench.control->netcardList.isEmpty());
    QVERIFY(!bench.control->isConnected());
    // Nothing was written by looking.
    QVERIFY(!QFile::exists(settingsPath()));
}

void TestSettings::everythingSaved()
{
    writeSettings(saved(2));
    FacadeBench bench;
    const mainControl &control = *bench.control;
    QCOMPARE(control.initInterface, 2);
    QCOMPARE(control.initNetcard, QStringLiteral("[192.168.9.2] eth0"));
    QCOMPARE(control.initSerialPort, QStringLiteral("ttyS7"));
    QCOMPARE(control.initDhcpMode, true);
    QCOMPARE(control.initIpaddr, QStringLiteral("192.168.9.10"));
    QCOMPARE(control.initHostname, QStringLiteral("STUDIO-1"));
    QCOMPARE(control.initMac, QStringLiteral("00:50:C2:72:00:01"));
    QCOMPARE(control.initGateway, QStringLiteral("192.168.9.1"));
    QCOMPARE(control.initMask, QStringLiteral("255.255.255.0"));
    QCOMPARE(control.initPrimDns, QStringLiteral("8.8.8.8"));
    QCOMPARE(control.initSecDns, QStringLiteral("8.8.4.4"));
    QCOMPARE(lastMemory, 7u);
    QCOMPARE(mainCurrentLanguage, QStringLiteral("zh_TW"));
    QVERIFY(iniExist);
}

void TestSettings::secondRunAfterAConnect()
{
    FacadeBench bench;
    QVERIFY(!iniExist);
    bench.control->netcardList = QStringList{QStringLiteral("[127.0.0.1] lo, the loop")};
    QVERIFY(bench.connectUnit());
    // Worked out once, at construction.
    QVERIFY(!iniExist);
    bench.restart();
    QVERIFY(iniExist);
    QCOMPARE(bench.control->initInterface, 1);
    QCOMPARE(bench.control->initIpaddr, bench.target());
    QCOMPARE(bench.control->initNetcard, QStringLiteral("[127.0.0.1] lo, the loop"));
}

void TestSettings::garbled_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("interface");
    QTest::addColumn<uint>("memory");
    QTest::newRow("empty") << QString() << 1 << 1u;
    QTest::newRow("no numbers") << QStringLiteral("[connection]\ninterface=net\n[last_info]\nmemory=two\n")
                                << 0 << 0u;
    QTest::newRow("no settings at all") << QStringLiteral("]]]\n\x01\x02==\n[[[") << 1 << 1u;
}

void TestSettings::garbled()
{
    QFETCH(QString, text);
    QFETCH(int, interface);
    QFETCH(uint, memory);
    writeSettings(text);
    FacadeBench bench;
    QCOMPARE(bench.control->initInterface, interface);
    QCOMPARE(lastMemory, memory);
    QVERIFY(!iniExist);
}

void TestSettings::anotherFolderIsAFirstRun()
{
    writeSettings(saved(1));
    const QString here = QDir::currentPath();
    QTemporaryDir elsewhere;
    QVERIFY(QDir(elsewhere.path()).mkpath(QStringLiteral("a/b")));
    QVERIFY(QDir::setCurrent(elsewhere.filePath(QStringLiteral("a/b"))));
    {
        FacadeBench bench;
        QVERIFY(!iniExist);
        QVERIFY(bench.connectUnit());
        QVERIFY(QFile::exists(elsewhere.filePath(QStringLiteral("halvorine/qkv720/qkv720.ini"))));
    }
    QVERIFY(QDir::setCurrent(here));
    FacadeBench bench;
    QCOMPARE(bench.control->initIpaddr, QStringLiteral("192.168.9.10"));
}

void TestSettings::addressAloneIsEnough()
{
    writeSettings(QStringLiteral("[connection]\nipaddress=192.168.9.10\n"));
    FacadeBench bench;
    QVERIFY(iniExist);
    bench.control->autoRun();
    // The network branch: no adapter list was read, so none is found, and no row of the empty table agrees on
    // the address, though the empty MAC agrees with each.
    QCOMPARE(bench.recorder->told.value(0),
             QStringLiteral("autoConnectResult(Previous selected netcardis not existing.)"));
    QCOMPARE(bench.recorder->told.filter(QStringLiteral("not match")).size(), 10);
}

void TestSettings::startUpTimer()
{
    FacadeBench bench;
    QVERIFY(bench.control->timerStartUp->isSingleShot());
    QCOMPARE(bench.control->timerStartUp->interval(), 1500);
    QCOMPARE(bench.control->timerRefreshStatus->interval(), 1500);
    QVERIFY(!bench.control->timerRefreshStatus->isActive());
    const qint64 start = bench.recorder->now();
    bench.control->timerStartUp->start();
    QTRY_COMPARE_WITH_TIMEOUT(bench.recorder->told.size(), 1, 15000);
    // The toolkit may be early by a twentieth.
    QVERIFY(bench.recorder->toldAt.first() - start >= 1400);
    QTest::qWait(2000);
    QCOMPARE(bench.recorder->told,
             QStringList{QStringLiteral("refreshConnection(1, , , false, , , , , , , )")});
}

void TestSettings::popup()
{
    writeSettings(saved(1));
    FacadeBench bench;
    bench.control->connectPopup(1, 5);
    QCOMPARE(bench.recorder->told, QStringList{QString::fromLatin1(kSavedConnection).arg(1)});
    QCOMPARE(bench.control->initInterface, 1);
    QCOMPARE(bench.control->selectedNetcard, 0);
}

void TestSettings::popupWhileConnected()
{
    FacadeBench bench;
    QVERIFY(bench.connectUnit());
    const QStringList before = storedKeys(QStringLiteral("connection"));
    bench.control->connectPopup(1, 5);
    QCOMPARE(bench.control->initInterface, 2);
    QCOMPARE(bench.control->selectedNetcard, 5);
    QCOMPARE(bench.recorder->told.size(), 1);
    QVERIFY(bench.recorder->told.at(0).startsWith(QLatin1String("refreshConnection(2, ")));
    QCOMPARE(storedKeys(QStringLiteral("connection")), before);
}

void TestSettings::popupAfterAScan()
{
    FacadeBench bench;
    didScan = true;
    bench.control->connectPopup(0, 0);
    QCOMPARE(bench.recorder->told, QStringList());
}

void TestSettings::autoRunOnAFirstRun()
{
    writeSettings(QStringLiteral("[connection]\ninterface=2\nserialport=ttyS7\nmac=AA\n"));
    FacadeBench bench;
    bench.control->serialNameList = QStringList{QStringLiteral("ttyS7")};
    bench.control->autoRun();
    // No saved address: whatever else there is counts for nothing.
    QCOMPARE(bench.recorder->told,
             QStringList{QStringLiteral("refreshConnection(2, ttyS7, , false, , , AA, , , , )")});
}

void TestSettings::adapterGone()
{
    writeSettings(saved(1));
    FacadeBench bench;
    bench.control->netcardList = QStringList{QStringLiteral("[192.168.8.2] eth0")};
    bench.control->autoRun();
    QCOMPARE(
        bench.recorder->told,
        QStringList(
            {QStringLiteral("autoConnectResult(Previous selected netcard[192.168.9.2] eth0is not existing.)"),
             QString::fromLatin1(kSavedUnit).arg(QStringLiteral("00:50:C2:72:00:01")),
             QStringLiteral(
                 "autoConnectResult(Previous device MAC address 00:50:C2:72:00:01\nis not found.)")}));
    QVERIFY(!didScan);
    QVERIFY(!autoConnect);
}

void TestSettings::adapterGoneWithoutASavedMac()
{
    writeSettings(saved(1, QStringLiteral("ttyS7"), QString()));
    FacadeBench bench;
    bench.control->autoRun();
    QStringList expected{
        QStringLiteral("autoConnectResult(Previous selected netcard[192.168.9.2] eth0is not existing.)"),
        QString::fromLatin1(kSavedUnit).arg(QString())};
    // The empty MAC agrees with each of the ten empty rows, and everything else differs.
    for (int row = 0; row < 10; ++row) {
        for (int mark = 1; mark <= 6; ++mark)
            expected += QStringLiteral("markHLNPDataRed(%1)").arg(mark);
        expected += QStringLiteral(
            "autoConnectResult(Saved device info is not match.\nPlease scan again to refresh.)");
    }
    QCOMPARE(bench.recorder->told, expected);
}

void TestSettings::serialPortGone()
{
    writeSettings(saved(2));
    FacadeBench bench;
    bench.control->serialNameList = QStringList{QStringLiteral("ttyS1")};
    bench.control->autoRun();
    QCOMPARE(bench.recorder->told, QStringList{QString::fromLatin1(kSavedConnection).arg(2)});
    QVERIFY(!bench.control->isConnected());
}

void TestSettings::serialPortFound()
{
    FacadeBench bench(2);
    writeSettings(saved(2, bench.target()));
    bench.restart();
    // The last match counts, and the case of the letters does not.
    bench.control->serialNameList = QStringList{bench.target(), QStringLiteral("ttyS1"),
                                                bench.target().toUpper(), QStringLiteral("ttyS2")};
    bench.control->autoRun();
    QCOMPARE(bench.control->selectedCom, 2);
    QVERIFY(bench.control->isConnected());
    const QStringList told = bench.recorder->told;
    QCOMPARE(told.at(told.size() - 3), QStringLiteral("refreshUserMemory(7)"));
    QCOMPARE(told.at(told.size() - 2), QStringLiteral("autoConnectResult(OK)"));
    QVERIFY(told.last().startsWith(QLatin1String("refreshConnection(2, ")));
    QCOMPARE(bench.control->selectedNetcard, 2);
}

void TestSettings::unknownInterface()
{
    writeSettings(saved(0));
    FacadeBench bench;
    bench.control->autoRun();
    QCOMPARE(bench.recorder->told, QStringList());
}

void TestSettings::foundUnitIsTold()
{
    FacadeBench bench;
    HLNP &hlnp = *bench.device->hlnpObj;
    hlnp_network_info &unit = hlnp.qkvDevice[2].zcm.hlnpnetwork;
    unit.isdhcp = true;
    unit.name = QStringLiteral("STUDIO-1");
    unit.ipadd = QStringLiteral("192.168.9.10");
    unit.macadd = QStringLiteral("AA");
    unit.gatewayadd = QStringLiteral("G");
    unit.maskadd = QStringLiteral("M");
    unit.primdnsadd = QStringLiteral("P");
    unit.secdnsadd = QStringLiteral("S");
    bench.control->getHLNPDeviceInfo(2); // no device was counted yet
    QCOMPARE(bench.recorder->take(), QStringList());
    hlnp.deviceCount = 3;
    bench.control->getHLNPDeviceInfo(2);
    QCOMPARE(bench.recorder->take(),
             QStringList{QStringLiteral(
                 "refreshConnectionData(999, na, true, STUDIO-1, 192.168.9.10, AA, G, M, P, S)")});
    bench.control->getHLNPDeviceInfo(10);
    bench.control->getHLNPDeviceInfo(4000000000u);
    QCOMPARE(bench.recorder->take(), QStringList());
}

QTEST_GUILESS_MAIN(TestSettings)
#include "tst_settings.moc"
