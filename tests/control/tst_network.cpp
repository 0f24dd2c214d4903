#include "networkbench.h"
#include "tests/discovery/devices.h"

#include <QElapsedTimer>

// Scanning and the automatic connection, on an Ethernet of the test's own.

class TestNetwork : public NetworkBench
{
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY2(raise(), qPrintable(net->complaint())); }
    void init() { open(); }
    void cleanup() { close(); }

    void scanFindsUnits();
    void scanWithoutUnits();
    void scanWithoutAnAdapter();
    void automaticConnection();
    void unitMoved();
    void otherUnitOnly();
    void lastMatchingAdapterWins();
    void emptySavedAdapterTakesTheLast();
    void stalledScanIsNoScan();
    void stalledScanAtTheStartIsOne();

private:
    std::unique_ptr<Devices> chatter();
};

void TestNetwork::scanFindsUnits()
{
    const auto second = makeUnit("192.168.72.7", "STUDIO-2", "00:50:C2:72:00:02");
    control = std::make_unique<mainControl>();
    control->timerStartUp->stop();
    QCOMPARE(control->getNetcardList(), QStringList{text(kCard)});
    recorder = std::make_unique<SignalRecorder>(*control);
    QElapsedTimer clock;
    clock.start();
    QCOMPARE(control->hlnpScan(QStringLiteral("scan"), 0), 1u);
    // 0.5 s, nine empty reads, 0.1 s, 0.5 s and 1.1 s for each unit, less one read that found its reply.
    QVERIFY2(clock.elapsed() >= 500 + 900 + 100 + 500 + 2 * 1100,
             qPrintable(QString::number(clock.elapsed())));
    QCOMPARE(control->ipSelectList, QStringList({QStringLiteral("192.168.72.7"), text(kUnit)}));
    QCOMPARE(recorder->told, QStringList{QStringLiteral("refreshIPSelectList(192.168.72.7|192.168.72.10)")});
    QVERIFY(didScan);
    QCOMPARE(control->getIPSelectList(), control->ipSelectList);

    recorder->take();
    control->getHLNPDeviceInfo(0);
    QCOMPARE(
        recorder->take(),
        QStringList{QStringLiteral("refreshConnectionData(999, na, false, STUDIO-2, 192.168.72.7, "
                                   "00:50:C2:72:00:02, 192.168.72.254, 255.255.255.0, 8.8.8.8, 8.8.4.4)")});
    // With a scan behind it a connect stores the whole record of the unit that was chosen.
    QCOMPARE(control->deviceConnect(1, text(kUnit), 0), QStringLiteral("OK"));
    QCOMPARE(storedKeys(QStringLiteral("connection")),
             QStringList({QStringLiteral("dhcpmode=false"), QStringLiteral("gateway=192.168.72.254"),
                          QStringLiteral("hostname=STUDIO-1"), QStringLiteral("interface=1"),
                          QStringLiteral("ipaddress=192.168.72.10"), QStringLiteral("mac=00:50:C2:72:00:01"),
                          QStringLiteral("mask=255.255.255.0"), QStringLiteral("netcard=[192.168.72.1] eth0"),
                          QStringLiteral("primarydns=8.8.8.8"), QStringLiteral("seconddns=8.8.4.4")}));
}

void TestNetwork::scanWithoutUnits()
{
    unit.reset();
    control = std::make_unique<mainControl>();
    control->timerStartUp->stop();
    control->getNetcardList();
    recorder = std::make_unique<SignalRecorder>(*control);
    QElapsedTimer clock;
    clock.start();
    QCOMPARE(control->hlnpScan(QStringLiteral("scan"), 0), 1u);
    QVERIFY(clock.elapsed() >= 2200);
    QCOMPARE(recorder->told, QStringList{QStringLiteral("refreshIPSelectList()")});
    control->getHLNPDeviceInfo(0);
    QCOMPARE(recorder->told.size(), 1);
}

void TestNetwork::scanWithoutAnAdapter()
{
    control = std::make_unique<mainControl>();
    control->timerStartUp->stop();
    recorder = std::make_unique<SignalRecorder>(*control);
    control->hlnpScan(QStringLiteral("scan"), 3);
    QCOMPARE(recorder->told, QStringList{QStringLiteral("refreshIPSelectList()")});
    QCOMPARE(unit->requests(), QStringList());
    QCOMPARE(control->selectedNetcard, 3);
}

void TestNetwork::automaticConnection()
{
    scan();
    QCOMPARE(control->deviceConnect(1, text(kUnit), 0), QStringLiteral("OK"));
    recorder.reset();
    discard(control);
    // The saved flag says no: it is no part of the comparison.
    unit->withNetwork([](standin::NetworkSettings &settings) { settings.dhcp = true; });

    control = std::make_unique<mainControl>();
    control->getNetcardList();
    recorder = std::make_unique<SignalRecorder>(*control);
    QTRY_VERIFY_WITH_TIMEOUT(control->isConnected(), 30000);
    QTRY_VERIFY(!recorder->told.isEmpty());
    const QString savedUnit =
        QStringLiteral("refreshConnectionData(999, [192.168.72.1] eth0, false, STUDIO-1, 192.168.72.10, "
                       "00:50:C2:72:00:01, 192.168.72.254, 255.255.255.0, 8.8.8.8, 8.8.4.4)");
    QCOMPARE(recorder->told.mid(0, 4),
             QStringList({QStringLiteral("refreshIPSelectList(192.168.72.10)"), savedUnit,
                          QStringLiteral("markHLNPDataRed(0)"),
                          QStringLiteral("showVersion(1.05, 2.23, 10.2a)")}));
    const int end = recorder->told.indexOf(QStringLiteral("autoConnectResult(OK)"));
    QCOMPARE(recorder->told.value(end - 1), QStringLiteral("refreshUserMemory(1)"));
    QCOMPARE(recorder->told.value(end + 1), savedUnit);
    QVERIFY(autoConnect);
    QVERIFY(didScan);
}

void TestNetwork::unitMoved()
{
    writeSettings(QStringLiteral("[connection]\nnetcard=[192.168.72.1] eth9\nipaddress=192.168.72.99\n"
                                 "hostname=STUDIO-1\nmac=00:50:C2:72:00:01\ngateway=192.168.72.254\n"
                                 "mask=255.255.0.0\nprimarydns=8.8.8.8\nseconddns=8.8.4.4\n"));
    scan();
    control->autoRun();
    // Address and netmask differ; the nine empty rows behind it add nothing.
    QCOMPARE(
        recorder->told.mid(2),
        QStringList({QStringLiteral("markHLNPDataRed(1)"), QStringLiteral("markHLNPDataRed(4)"),
                     QStringLiteral("autoConnectResult(Saved device info is not match.\nPlease scan again "
                                    "to refresh.)")}));
    QVERIFY(!control->isConnected());
    QVERIFY(didScan);
}

void TestNetwork::otherUnitOnly()
{
    writeSettings(
        QStringLiteral("[connection]\nnetcard=[192.168.72.1] eth0\nipaddress=192.168.72.10\nmac=AA\n"));
    scan();
    control->autoRun();
    QCOMPARE(recorder->told.mid(2),
             QStringList{QStringLiteral("autoConnectResult(Previous device MAC address AA\nis not found.)")});
    QVERIFY(!autoConnect);
}

void TestNetwork::lastMatchingAdapterWins()
{
    writeSettings(QStringLiteral("[connection]\nnetcard=[192.168.72.1\nipaddress=192.168.72.10\nmac=AA\n"));
    scan();
    control->netcardList =
        QStringList{QStringLiteral("[192.168.72.1] eth0"), QStringLiteral("[192.168.72.11] eth1"),
                    QStringLiteral("[10.0.0.1] eth2")};
    control->autoRun();
    QCOMPARE(control->selectedNetcard, 1);
}

// The empty text stands in front of every entry.
void TestNetwork::emptySavedAdapterTakesTheLast()
{
    writeSettings(QStringLiteral("[connection]\nipaddress=192.168.72.10\nmac=AA\n"));
    scan();
    control->netcardList =
        QStringList{text(kCard), QStringLiteral("[10.0.0.1] eth1"), QStringLiteral("[10.0.1.1] eth2")};
    control->selectedNetcard = 0;
    control->autoRun();
    QCOMPARE(control->selectedNetcard, 2);
    // No complaint of a missing adapter; that one is no adapter of the machine, so its scan finds nothing.
    QCOMPARE(recorder->told.value(0), QStringLiteral("refreshIPSelectList()"));
}

// A panel whose next scan finds one datagram more than it collects: it stays in the queue, and the scan reports that it
// isn't done, after the 50 s that it waits for that.
std::unique_ptr<Devices> TestNetwork::chatter()
{
    unit.reset();
    writeSettings(
        QStringLiteral("[connection]\nnetcard=[192.168.72.1] eth0\nipaddress=192.168.72.10\nmac=AA\n"));
    control = std::make_unique<mainControl>();
    control->timerStartUp->stop();
    control->getNetcardList();
    const auto talk = [](Devices &, const Devices::Request &request) {
        for (int i = 0; i < 12; ++i)
            Devices::send(request, text("192.168.72.7"), QByteArray("?"));
    };
    return std::make_unique<Devices>(unitsHost, QStringList{text("192.168.72.7")}, talk);
}

// Asked for by the operator, the scan tells what it is worth ...
void TestNetwork::stalledScanIsNoScan()
{
    const auto devices = chatter();
    QVERIFY(devices->isGood());
    QCOMPARE(control->hlnpScan(QStringLiteral("scan"), 0), 0u);
    QVERIFY(!didScan);
}

// ... and at the start its table is what stands from then on.
void TestNetwork::stalledScanAtTheStartIsOne()
{
    const auto devices = chatter();
    QVERIFY(devices->isGood());
    control->autoRun();
    QVERIFY(!deviceOf(*control)->hlnpObj->scanDone);
    QVERIFY(didScan);
}

NETWORK_TEST_MAIN(TestNetwork)
#include "tst_network.moc"
