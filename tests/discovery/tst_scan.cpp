#include "discovery/hlnpstate.h"
#include "scanbench.h"
#include "tests/support/logcapture.h"
#include "tests/support/stopwatch.h"

#include <QElapsedTimer>

using support::LogCapture;

// The scan itself: what it asks, how long it waits, which adapter it is bound to.

class TestScan : public ScanBench
{
    Q_OBJECT

private slots:
    void init() { QVERIFY2(raise(), qPrintable(net->complaint())); }
    void cleanup() { net.reset(); }

    void unitsAreFoundAndSorted();
    void requestsOnTheWire();
    void nobodyAnswers();
    void twelveAtOnceStallTheScanAndAreAllFound();
    void aLateReplyLeavesTheScanUndone();
    void theLastOfTwoMatchingAdaptersIsBound_data();
    void theLastOfTwoMatchingAdaptersIsBound();
    void theOnlyAdapterIsMeantWhateverItsAddress();
    void aRebindDropsWhatWasQueued();
    void theNextScanForgetsTheLast();
    void anAdapterThatIsGone();
};

void TestScan::unitsAreFoundAndSorted()
{
    const auto high = unitAt(200);
    const auto low = unitAt(7);
    const auto middle = unitAt(30);
    // No address here is the beginning of another: replies are matched to rows by substring.
    const auto foreign = unitAt(40, 0x1502);
    QVERIFY2(net->isGood(), qPrintable(net->complaint()));
    qkv720 panel;
    QCOMPARE(panel.getHLNPNetcardList(), QStringList{QStringLiteral("[192.168.72.1] eth0")});

    support::Stopwatch clock;
    QCOMPARE(scan(panel), 1U);
    // The answers to the scan, and 100 ms more for each collection that found but one: 0.5 + 0.7 + 0.1 + 0.5 s
    // and 1.1 s a device.
    VERIFY_TOOK(clock, 1800 + 4 * 1100 - 100, 1800 + 4 * 1100 + 10000);

    const QStringList expected = {address(7), address(30), address(200)};
    QCOMPARE(panel.getHLNPDeviceList(), expected);
    QCOMPARE(panel.hlnpObj->deviceCount, 4);
    QCOMPARE(panel.hlnpObj->thisNetwork, address(1));
    QCOMPARE(udpsocketBindAddress, QHostAddress(address(1)));
    QCOMPARE(sameNetwork, QStringLiteral("192.168.72."));
    const hlnp_network_info &last = panel.hlnpObj->qkvDevice[2].zcm.hlnpnetwork;
    QCOMPARE(last.name, QStringLiteral("UNIT-200"));
    QCOMPARE(last.macadd, QStringLiteral("02:5C:A7:10:00:C8"));
    QCOMPARE(last.isdhcp, true);
    QCOMPARE(last.maskadd, QStringLiteral("255.255.255.0"));
    QCOMPARE(last.vid + last.pid, QStringLiteral("05881501"));
    QCOMPARE(panel.hlnpObj->qkvDevice[0].zcm.hlnpnetwork.isdhcp, false);
    QVERIFY(panel.hlnpObj->qkvDevice[3].zcm.hlnpnetwork.ipadd.isEmpty());
}

void TestScan::requestsOnTheWire()
{
    const auto devices = switchOn(numbered({10, 11}));
    QVERIFY(devices->isGood());
    qkv720 panel;
    support::Stopwatch clock;
    QCOMPARE(scan(panel), 1U);
    clock.stop();
    const auto requests = devices->requests();
    QCOMPARE(requests.size(), 3);
    QCOMPARE(requests.at(0).bytes,
             QByteArray::fromHex("000b8000"
                                 "4554485f524551"));
    QCOMPARE(requests.at(1).bytes, QByteArray::fromHex("00138040025ca710000a") + "GET_MODEL");
    QCOMPARE(requests.at(2).bytes, QByteArray::fromHex("00138040025ca710000b") + "GET_MODEL");
    for (const Devices::Request &request : requests) {
        QCOMPARE(request.to, QStringLiteral("broadcast"));
        QCOMPARE(request.from, address(1));
        QCOMPARE(request.fromPort, socketOf(panel)->localPort());
        QVERIFY(request.fromPort != 5002);
    }
    // 0.5 s and nine empty reads, 0.1 s, 0.5 s; then ten empty reads and 0.1 s between one model and the next. The
    // device may have noted a request too late, and the next one then seems early.
    const qint64 lateMs = clock.stalled() + 2;
    QVERIFY(requests.at(1).at - requests.at(0).at >= 500 + 900 + 100 + 500 - lateMs);
    QVERIFY(requests.at(2).at - requests.at(1).at >= 1000 + 100 - lateMs);
}

void TestScan::nobodyAnswers()
{
    const auto devices = switchOn(numbered({10}), [](Devices &, const Devices::Request &) {});
    qkv720 panel;
    support::Stopwatch clock;
    QCOMPARE(scan(panel), 1U);
    VERIFY_TOOK(clock, 2200, 10000);
    QCOMPARE(devices->requests().size(), 1);
    QCOMPARE(panel.hlnpObj->deviceCount, 0);
    QVERIFY(panel.getHLNPDeviceList().isEmpty());
}

void TestScan::twelveAtOnceStallTheScanAndAreAllFound()
{
    QVector<Device> twelve = numbered({21, 22, 23, 24, 25, 26, 27, 28, 29, 30, 31, 32});
    twelve[0].identifiers = "05881502";
    twelve[6].identifiers = "05871501";
    twelve[11].identifiers = "01010101";
    // The unit's hosts are as busy as the panel's: their answers count as "at once" when all of them are there before
    // the panel's first look. What came later is another case, and the scan is tried again.
    constexpr int kTries = 3;
    std::atomic<int> answered{0};
    const Devices::Answer ordinary = wellBehaved(twelve);
    const auto devices = switchOn(twelve, [&](Devices &all, const Devices::Request &request) {
        ordinary(all, request);
        ++answered;
    });
    qkv720 panel;
    bool atOnce = false;
    for (int i = 0; i < kTries && !atOnce; ++i) {
        answered = 0;
        int answeredBeforeTheFirstLook = -1;
        const LogCapture log;
        LogCapture::onLine() = [&](const QString &line) {
            if (answeredBeforeTheFirstLook < 0 && line.startsWith(QLatin1String("processDatagrams Begin: ")))
                answeredBeforeTheFirstLook = answered;
        };
        support::Stopwatch clock;
        const uint result = panel.HLNPScan(QStringLiteral("scan"), 0);
        atOnce = answeredBeforeTheFirstLook == 1;
        if (!atOnce)
            continue;
        QCOMPARE(result, 0U);
        VERIFY_TOOK(clock, 500 + 100 + 50000, 75000);
        QCOMPARE(panel.hlnpObj->deviceCount, 11);
    }
    QVERIFY(atOnce);
    panel.HLNPGetModel();
    panel.HLNPDoScanDone();
    QCOMPARE(panel.hlnpObj->deviceCount, 12);
    QCOMPARE(devices->requests(kGetModel).size(), 12);
    const QStringList expected = {address(22), address(23), address(24), address(25), address(26),
                                  address(28), address(29), address(30), address(31)};
    QCOMPARE(panel.getHLNPDeviceList(), expected);
    QCOMPARE(panel.hlnpObj->scanDone, true); // that of the last collection
}

void TestScan::aLateReplyLeavesTheScanUndone()
{
    const auto devices = switchOn(numbered({10}), [](Devices &, const Devices::Request &) {});
    // The answer goes out when the eleventh read has just found nothing.
    const LogCapture log;
    int reads = 0;
    LogCapture::onLine() = [&devices, &reads](const QString &line) {
        if (!line.startsWith(QLatin1String("processDatagrams() Read length :")) || ++reads != 11)
            return;
        devices->sendUnasked(devices->requests().constFirst(), address(10),
                             numberedRecord(10, address(10)).datagram());
    };
    HLNP hlnp;
    hlnp.hLNPpreScanProcess();
    hlnp.scanSlot(QStringLiteral("scan"), 0);
    QCOMPARE(hlnp.scanDone, false);
    QCOMPARE(hlnp.deviceCount, 0);
    hlnp.processDatagrams();
    QCOMPARE(hlnp.deviceCount, 1);
    QCOMPARE(hlnp.scanDone, true);
}

void TestScan::theLastOfTwoMatchingAdaptersIsBound_data()
{
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("second");
    QTest::addColumn<int>("chosen");
    QTest::addColumn<int>("bound");
    QTest::newRow("short first, long chosen") << 2 << 20 << 20 << 20;
    QTest::newRow("short first, short chosen") << 2 << 20 << 2 << 2;
    QTest::newRow("long first, long chosen") << 20 << 2 << 20 << 2;
    QTest::newRow("long first, short chosen") << 20 << 2 << 2 << 2;
}

void TestScan::theLastOfTwoMatchingAdaptersIsBound()
{
    QFETCH(int, first);
    QFETCH(int, second);
    QFETCH(int, chosen);
    QFETCH(int, bound);
    const QString base = QStringLiteral("192.168.1.%1");
    const QString other = net->addSwitch();
    const QString otherHost = net->addHost();
    net->removeAdapter(panelHost, QStringLiteral("eth0"));
    net->plug(panelHost, QStringLiteral("lan0"), cable, {base.arg(first) + QStringLiteral("/24")});
    net->plug(panelHost, QStringLiteral("lan1"), other, {base.arg(second) + QStringLiteral("/24")});
    net->plug(farHost, QStringLiteral("eth0"), cable, {base.arg(100 + first) + QStringLiteral("/24")});
    net->plug(otherHost, QStringLiteral("eth0"), other, {base.arg(100 + second) + QStringLiteral("/24")});
    QVERIFY2(net->isGood(), qPrintable(net->complaint()));
    QVERIFY(support::TestNetwork::enter(panelHost));
    const Devices near(farHost, {base.arg(100 + first)}, nullptr);
    const Devices far(otherHost, {base.arg(100 + second)}, nullptr);
    QVERIFY(near.isGood() && far.isGood());

    HLNP hlnp;
    hlnp.hLNPpreScanProcess();
    const QStringList lines = hlnp.netcardModels();
    QCOMPARE(lines,
             (QStringList{QStringLiteral("[%1] lan0").arg(base.arg(first)),
                          QStringLiteral("[%1] lan1").arg(base.arg(second))}));
    const LogCapture log;
    hlnp.scanSlot(QStringLiteral("scan"), chosen == first ? 0 : 1);
    QCOMPARE(LogCapture::count(QStringLiteral("BroadCast bind IP:")), chosen == 20 ? 2 : 1);
    QCOMPARE(hlnp.thisNetwork, base.arg(bound));
    QCOMPARE(hlnp.findChild<QUdpSocket *>()->localAddress(), QHostAddress(base.arg(bound)));
    QCOMPARE(near.requests(kEthReq).size(), bound == first ? 1 : 0);
    QCOMPARE(far.requests(kEthReq).size(), bound == second ? 1 : 0);
}

void TestScan::theOnlyAdapterIsMeantWhateverItsAddress()
{
    const auto devices = switchOn(numbered({10}));
    qkv720 panel;
    QCOMPARE(panel.getHLNPNetcardList().size(), 1);
    net->ip(panelHost,
            {QStringLiteral("addr"), QStringLiteral("add"), QStringLiteral("192.168.72.77/24"),
             QStringLiteral("dev"), QStringLiteral("eth0")});
    QVERIFY2(net->isGood(), qPrintable(net->complaint()));
    panel.HLNPScan(QStringLiteral("scan"), 0);
    QCOMPARE(panel.hlnpObj->thisNetwork, address(77)); // the last address of the walk, not the listed one
    QCOMPARE(devices->requests(kEthReq).first().from, address(77));
}

void TestScan::aRebindDropsWhatWasQueued()
{
    const auto devices = switchOn(numbered({10, 11}), [](Devices &, const Devices::Request &request) {
        if (Devices::codeOf(request) == kEthReq)
            Devices::send(request, address(10), numberedRecord(10, address(10)).datagram());
    });
    qkv720 panel;
    panel.HLNPScan(QStringLiteral("scan"), 0);
    const Devices::Request first = devices->requests().constFirst();
    devices->sendUnasked(first, address(11), numberedRecord(11, address(11)).datagram());
    QTRY_VERIFY(socketOf(panel)->hasPendingDatagrams());
    panel.HLNPScan(QStringLiteral("scan"), 0);
    QCOMPARE(panel.hlnpObj->deviceCount, 1);
    QCOMPARE(panel.hlnpObj->allHlnpDevice[0].zcm.hlnpnetwork.ipadd, address(10));
    QVERIFY(devices->requests().constLast().fromPort != first.fromPort);
}

void TestScan::theNextScanForgetsTheLast()
{
    auto devices = switchOn(numbered({10, 11}));
    qkv720 panel;
    scan(panel);
    QCOMPARE(panel.getHLNPDeviceList().size(), 2);
    panel.hlnpObj->allHlnpDevice[1].zcm.hlnpnetwork.fwver = QStringLiteral("17");
    devices.reset();
    scan(panel);
    QVERIFY(panel.getHLNPDeviceList().isEmpty());
    QCOMPARE(panel.hlnpObj->deviceCount, 0);
    for (int i = 0; i < 2; ++i) {
        const hlnp_network_info &all = panel.hlnpObj->allHlnpDevice[i].zcm.hlnpnetwork;
        const hlnp_network_info &unit = panel.hlnpObj->qkvDevice[i].zcm.hlnpnetwork;
        for (const hlnp_network_info &network : {all, unit}) {
            QVERIFY(network.ipadd.isEmpty() && network.macadd.isEmpty() && network.name.isEmpty());
            QVERIFY(network.vid.isEmpty() && network.pid.isEmpty() && network.gatewayadd.isEmpty());
        }
    }
    QCOMPARE(panel.hlnpObj->allHlnpDevice[1].zcm.hlnpnetwork.fwver, QStringLiteral("17"));
}

void TestScan::anAdapterThatIsGone()
{
    qkv720 panel;
    QCOMPARE(panel.getHLNPNetcardList().size(), 1);
    QVERIFY(net->removeAdapter(panelHost, QStringLiteral("eth0")));
    support::Stopwatch clock;
    QCOMPARE(scan(panel), 1U); // it runs all the same, and finds nobody
    QVERIFY(clock.elapsed() >= 2200);
    QVERIFY(panel.getHLNPDeviceList().isEmpty());
    QVERIFY(panel.hlnpObj->thisNetwork.isEmpty());
}

NETWORK_TEST_MAIN(TestScan)
#include "tst_scan.moc"
