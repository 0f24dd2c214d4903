#include "datagrams.h"
#include "devices.h"
#include "discovery/hlnp.h"
#include "discovery/hlnpstate.h"
#include "tests/support/logcapture.h"
#include "tests/support/stopwatch.h"
#include "tests/support/testnetwork.h"
#include "tests/support/unithost.h"

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QtTest>

using support::LogCapture;

// The configuration commands in a network of the test's own: the three that are broadcast, and all nine as a
// unit sees them.

namespace {

const QString kPanel = QStringLiteral("192.168.72.1");
const QString kUnit = QStringLiteral("192.168.72.10");
const QString kStranger = QStringLiteral("192.168.72.100");
const QString kMac = QStringLiteral("02:5C:A7:10:00:0A");
const QByteArray kMacBytes = QByteArray::fromHex("025ca710000a");

// Calls one of the three by its code.
QString call(HLNP &hlnp, int code, const QString &mac = kMac)
{
    switch (code) {
    case 0x02:
        return hlnp.setDhcpMode(mac, kPanel, kUnit, 1);
    case 0x03:
        return hlnp.setIpAdr(mac, kPanel, kUnit, QStringLiteral("10.1.2.3"), QStringLiteral("10.1.2.300"));
    default:
        return hlnp.reset(mac, kPanel, kUnit);
    }
}

// A copy of what the unit, which lives in a thread of its own, now shows and keeps.
standin::NetworkSettings settingsOf(support::UnitHost &unit)
{
    standin::NetworkSettings copy;
    unit.withNetwork([&copy](standin::NetworkSettings &settings) { copy = settings; });
    return copy;
}

} // namespace

class TestBroadcastCommands : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void answered_data();
    void answered();
    void badTextsSendNothing();
    void modesGoOutUnchanged();
    void anAnswerFromElsewhereIsIgnored();
    void silenceAfterReset();
    void silenceAfterSetDhcpMode();
    void silenceAfterSetIpAdr();
    void aFailedBroadcastIsNotDetected();
    void allSettingsReachTheUnit();
    void anotherUnitIsLeftAlone();

private:
    void switchOn(Devices::Answer answer);

    std::unique_ptr<support::TestNetwork> net;
    QString panelHost;
    QString farHost;
    QString cable;
    std::unique_ptr<Devices> devices;
    std::unique_ptr<HLNP> hlnp;
};

void TestBroadcastCommands::init()
{
    net = std::make_unique<support::TestNetwork>();
    panelHost = net->addHost();
    farHost = net->addHost();
    cable = net->addSwitch();
    net->plug(panelHost, QStringLiteral("eth0"), cable, {kPanel + QStringLiteral("/24")});
    net->plug(farHost, QStringLiteral("eth0"), cable,
              {kUnit + QStringLiteral("/24"), kStranger + QStringLiteral("/24")});
    QVERIFY2(net->isGood(), qPrintable(net->complaint()));
    QVERIFY(support::TestNetwork::enter(panelHost));
    hlnp = std::make_unique<HLNP>();
    hlnp->initHLNPConfig(0, QString(), kPanel, QString(), QString(), QString(), QString(), QString(),
                         QString());
}

void TestBroadcastCommands::cleanup()
{
    hlnp.reset();
    devices.reset();
    net.reset();
}

void TestBroadcastCommands::switchOn(Devices::Answer answer)
{
    devices = std::make_unique<Devices>(farHost, QStringList{kUnit, kStranger}, std::move(answer));
    if (!devices->isGood())
        qFatal("The units of the case have no sockets");
}

void TestBroadcastCommands::answered_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<QByteArray>("request");
    QTest::addColumn<QStringList>("log");
    QTest::newRow("mode") << 0x02 << QByteArray::fromHex("00178002") + kMacBytes + "SET_DHCPMODE\x01"
                          << QStringList{QStringLiteral("setDhcpMode:"), QStringLiteral("set DHCP mode:")};
    QTest::newRow("address") << 0x03
                             << QByteArray::fromHex("001b8003") + kMacBytes + "SET_IPADR"
            + QByteArray::fromHex("0a0102030a01022c")
                             << QStringList{QStringLiteral("setIpAdr: "), QStringLiteral("set IP Address:")};
    QTest::newRow("reset") << 0x04 << QByteArray::fromHex("000f8004") + kMacBytes + "RESET"
                           << QStringList{QStringLiteral("Reset:")};
}

void TestBroadcastCommands::answered()
{
    QFETCH(int, code);
    QFETCH(QByteArray, request);
    QFETCH(QStringList, log);
    std::atomic<int> value{0x06};
    switchOn([&value](Devices &, const Devices::Request &asked) {
        Devices::send(asked, kUnit, acknowledgement(Devices::codeOf(asked), value));
    });
    QSignalSpy busy(hlnp.get(), &HLNP::setNetConfigBusy);
    QSignalSpy resetDone(hlnp.get(), &HLNP::hlnpResetDone);
    udpsocketBindAddress = QHostAddress();

    support::Stopwatch clock;
    {
        const LogCapture capture;
        QCOMPARE(call(*hlnp, code), QStringLiteral("OK"));
        for (int i = 0; i < log.size(); ++i)
            QVERIFY2(LogCapture::logs().at(i).startsWith(log.at(i)), qPrintable(LogCapture::logs().at(i)));
    }
    value = 0x15;
    QCOMPARE(call(*hlnp, code), QStringLiteral("NACK"));
    VERIFY_TOOK(clock, 0, 10000);

    const auto requests = devices->requests();
    QCOMPARE(requests.size(), 2);
    for (const Devices::Request &asked : requests) {
        QCOMPARE(asked.bytes, request);
        QCOMPARE(asked.to, QStringLiteral("broadcast"));
        QCOMPARE(asked.from, kPanel);
    }
    // An answered reset leaves the busy signal raised.
    QCOMPARE(busy.size(), code == 0x04 ? 2 : 0);
    for (const QList<QVariant> &arguments : qAsConst(busy))
        QCOMPARE(arguments.first().toBool(), true);
    QCOMPARE(resetDone.size(), 0);
    QCOMPARE(udpsocketBindAddress, code == 0x04 ? QHostAddress(kPanel) : QHostAddress());
}

void TestBroadcastCommands::badTextsSendNothing()
{
    switchOn(nullptr);
    QSignalSpy busy(hlnp.get(), &HLNP::setNetConfigBusy);
    const QString macError = QStringLiteral("MAC address format error");
    for (const int code : {0x02, 0x03, 0x04}) {
        QCOMPARE(call(*hlnp, code, QStringLiteral("02:5C:A7:10:00")), macError);
        QCOMPARE(call(*hlnp, code, QString()), macError);
    }
    const QString bad = QStringLiteral("10.1.2");
    const QString good = QStringLiteral("10.1.2.3");
    const QString noMac = QStringLiteral("02-5C-A7-10-00-0A");
    QCOMPARE(hlnp->setIpAdr(noMac, kPanel, kUnit, bad, bad), macError);
    QCOMPARE(hlnp->setIpAdr(kMac, kPanel, kUnit, bad, bad), QStringLiteral("IP format error"));
    QCOMPARE(hlnp->setIpAdr(kMac, kPanel, kUnit, good, bad), QStringLiteral("Gateway address format error"));
    QTest::qWait(200);
    QVERIFY(devices->requests().isEmpty());
    QCOMPARE(busy.size(), 0);
}

void TestBroadcastCommands::modesGoOutUnchanged()
{
    switchOn([](Devices &, const Devices::Request &asked) {
        Devices::send(asked, kUnit, acknowledgement(Devices::codeOf(asked), 0x06));
    });
    QByteArray sent;
    for (const int mode : {0, 1, 2, 255}) {
        QCOMPARE(hlnp->setDhcpMode(kMac, kPanel, kUnit, mode), QStringLiteral("OK"));
        sent += devices->requests().constLast().bytes.at(22);
    }
    QCOMPARE(sent, QByteArray::fromHex("000102ff"));
}

void TestBroadcastCommands::anAnswerFromElsewhereIsIgnored()
{
    // The unit's address is a part of the stranger's; here only the whole text counts.
    switchOn([](Devices &, const Devices::Request &asked) {
        Devices::send(asked, kStranger, acknowledgement(Devices::codeOf(asked), 0x15));
    });
    support::Stopwatch clock;
    QCOMPARE(call(*hlnp, 0x02), QStringLiteral("OK"));
    QVERIFY(clock.elapsed() >= 10 * 1000 + 11 * 100);
}

void TestBroadcastCommands::silenceAfterReset()
{
    switchOn(nullptr);
    QStringList order;
    connect(hlnp.get(), &HLNP::setNetConfigBusy, this,
            [&order](bool on) { order.append(on ? QStringLiteral("busy") : QStringLiteral("idle")); });
    connect(hlnp.get(), &HLNP::hlnpResetDone, this, [&order] { order.append(QStringLiteral("done")); });
    const LogCapture log;
    support::Stopwatch clock;
    QCOMPARE(call(*hlnp, 0x04), QStringLiteral("OK"));
    VERIFY_TOOK(clock, 12095, 20000);
    QCOMPARE(order, (QStringList{QStringLiteral("busy"), QStringLiteral("done"), QStringLiteral("idle")}));
    QCOMPARE(devices->requests().size(), 1);
    QCOMPARE(LogCapture::count(QStringLiteral("Reset:While get datagram.")), 11);
}

void TestBroadcastCommands::silenceAfterSetDhcpMode()
{
    switchOn(nullptr);
    const LogCapture log;
    support::Stopwatch clock;
    QCOMPARE(call(*hlnp, 0x02), QStringLiteral("OK"));
    VERIFY_TOOK(clock, 12095, 20000);
    QCOMPARE(devices->requests().size(), 1);
    QCOMPARE(LogCapture::count(QStringLiteral("set DHCP mode:While get datagram.")), 11);
}

void TestBroadcastCommands::silenceAfterSetIpAdr()
{
    switchOn(nullptr);
    const LogCapture log;
    support::Stopwatch clock;
    QCOMPARE(call(*hlnp, 0x03), QStringLiteral("OK"));
    VERIFY_TOOK(clock, 12095, 20000);
    QCOMPARE(devices->requests().size(), 1);
    QCOMPARE(LogCapture::count(QStringLiteral("set IP Address:While get datagram.")), 11);
}

void TestBroadcastCommands::aFailedBroadcastIsNotDetected()
{
    // The adapter is pulled: a directed write fails at once and says so, a broadcast runs its full length.
    QVERIFY(net->removeAdapter(panelHost, QStringLiteral("eth0")));
    QCOMPARE(hlnp->setNetmask(kPanel, kUnit, QStringLiteral("255.255.255.0")),
             QStringLiteral("Setting error, please check IP address:") + kUnit);
    support::Stopwatch clock;
    QCOMPARE(call(*hlnp, 0x02), QStringLiteral("OK"));
    QVERIFY(clock.elapsed() >= 12095);
}

void TestBroadcastCommands::allSettingsReachTheUnit()
{
    support::UnitHost::Options options;
    options.address = kUnit;
    options.netNamespace = farHost;
    options.network = false;
    options.discovery = true;
    options.broadcasts = true;
    support::UnitHost unit(options);
    unit.withNetwork([](standin::NetworkSettings &settings) { settings.mac = kMacBytes; });

    const QString ok = QStringLiteral("OK");
    QCOMPARE(hlnp->setDhcpName(kPanel, kUnit, QStringLiteral("STUDIO-2-LEFT-HAND")), ok);
    QCOMPARE(hlnp->setNetmask(kPanel, kUnit, QStringLiteral("255.255.254.0")), ok);
    QCOMPARE(hlnp->setGateway(kPanel, kUnit, QStringLiteral("192.168.72.253")), ok);
    QCOMPARE(hlnp->setPrimDNS(kPanel, kUnit, QStringLiteral("8.8.4.4")), ok);
    QCOMPARE(hlnp->setSecDNS(kPanel, kUnit, QStringLiteral("1.0.0.1")), ok);
    QCOMPARE(hlnp->setDhcpMode(kMac, kPanel, kUnit, 1), ok);
    standin::NetworkSettings settings = settingsOf(unit);
    QCOMPARE(settings.name, QStringLiteral("STUDIO-2-LEFT-H"));
    QCOMPARE(settings.mask.toString(), QStringLiteral("255.255.254.0"));
    QCOMPARE(settings.gateway.toString(), QStringLiteral("192.168.72.253"));
    QCOMPARE(settings.primaryDns.toString(), QStringLiteral("8.8.4.4"));
    QCOMPARE(settings.secondaryDns.toString(), QStringLiteral("1.0.0.1"));
    QCOMPARE(settings.dhcp, true);
    QCOMPARE(
        hlnp->setIpAdr(kMac, kPanel, kUnit, QStringLiteral("192.168.72.44"), QStringLiteral("192.168.72.2")),
        ok);
    settings = settingsOf(unit);
    QCOMPARE(settings.nextAddress.toString(), QStringLiteral("192.168.72.44"));
    QCOMPARE(settings.gateway.toString(), QStringLiteral("192.168.72.2"));
    const QString newMac = QStringLiteral("02:5C:A7:10:00:0B");
    QCOMPARE(hlnp->setMacAdr(kPanel, kUnit, newMac), ok);
    QCOMPARE(settingsOf(unit).mac, QByteArray::fromHex("025ca710000b"));
    QCOMPARE(unit.restarts(), 0);
    QCOMPARE(hlnp->reset(newMac, kPanel, kUnit), ok);
    QCOMPARE(unit.restarts(), 1);
}

void TestBroadcastCommands::anotherUnitIsLeftAlone()
{
    support::UnitHost::Options options;
    options.address = kUnit;
    options.netNamespace = farHost;
    options.network = false;
    options.discovery = true;
    options.broadcasts = true;
    support::UnitHost unit(options); // its MAC is another one
    QCOMPARE(hlnp->setDhcpMode(kMac, kPanel, kUnit, 1), QStringLiteral("OK")); // by silence
    QCOMPARE(settingsOf(unit).dhcp, false);
}

int main(int argc, char **argv)
{
    support::TestNetwork::obtainRights(argv);
    QCoreApplication application(argc, argv);
    TestBroadcastCommands test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_broadcastcommands.moc"
