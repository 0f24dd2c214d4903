#include "datagrams.h"
#include "devices.h"
#include "discovery/hlnp.h"
#include "discovery/hlnpstate.h"
#include "tests/support/logcapture.h"
#include "tests/support/testnetwork.h"

#include <QFile>
#include <QSignalSpy>
#include <QtTest>

using support::LogCapture;

// Which adapters a panel lists and which it binds, on a host of the test's own.

namespace {
const QString kPanel = QStringLiteral("192.168.72.1");
const QString kUnit = QStringLiteral("192.168.72.10");
const QString kFirst = QStringLiteral("[192.168.72.1] eth0");
} // namespace

class TestAdapters : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void addressesAndAdaptersInTheirOrder();
    void twoEnumerations();
    void linkLocalAndLoopbackAreNoAdapters();
    void linkLocalAndLoopbackAreNeverBound();
    void aFailedBindIsPassedOver();

private:
    bool plug(const QString &adapter, const QStringList &addresses);

    std::unique_ptr<support::TestNetwork> net;
    QString panelHost;
    QString farHost;
    QString cable;
};

void TestAdapters::init()
{
    net = std::make_unique<support::TestNetwork>();
    panelHost = net->addHost();
    farHost = net->addHost();
    cable = net->addSwitch();
    net->plug(farHost, QStringLiteral("eth0"), cable, {kUnit + QStringLiteral("/24")});
}

void TestAdapters::cleanup()
{
    net.reset();
}

bool TestAdapters::plug(const QString &adapter, const QStringList &addresses)
{
    net->plug(panelHost, adapter, cable, addresses);
    if (!net->isGood())
        qWarning() << net->complaint();
    return net->isGood() && support::TestNetwork::enter(panelHost);
}

void TestAdapters::addressesAndAdaptersInTheirOrder()
{
    QVERIFY(plug(QStringLiteral("eth0"), {QStringLiteral("192.168.72.1/24"), QStringLiteral("10.3.2.1/16")}));
    QVERIFY(plug(QStringLiteral("eth1"), {QStringLiteral("192.168.99.4/24")}));
    QVERIFY(plug(QStringLiteral("eth2"), {QStringLiteral("192.168.98.4/24")}));
    QVERIFY(net->setCable(panelHost, QStringLiteral("eth2"), false)); // it doesn't run
    HLNP hlnp;
    QSignalSpy cleared(&hlnp, &HLNP::clearComboNetcard);
    QSignalSpy told(&hlnp, &HLNP::setComboNetcard);
    QVERIFY(hlnp.hLNPpreScanProcess());
    const QStringList expected = {kFirst, QStringLiteral("[10.3.2.1] eth0"),
                                  QStringLiteral("[192.168.99.4] eth1")};
    QCOMPARE(hlnp.netcardModels(), expected);
    QCOMPARE(hlnp.property("netcardModels").toStringList(), expected);
    QCOMPARE(hlnp.netcardIP,
             (QStringList{kPanel, QStringLiteral("10.3.2.1"), QStringLiteral("192.168.99.4")}));
    QCOMPARE(hlnp.netcardName,
             (QStringList{QStringLiteral("eth0"), QStringLiteral("eth0"), QStringLiteral("eth1")}));
    QCOMPARE(netCount, 3);
    QCOMPARE(cleared.size(), 1);
    QCOMPARE(cleared.first().first().toString(), QStringLiteral("clear"));
    QCOMPARE(told.size(), 3);
    for (int i = 0; i < 3; ++i)
        QCOMPARE(told.at(i).first().toString(), expected.at(i));

    // Each of them is chosen by its index, the second address of the first adapter too.
    const QStringList addresses = hlnp.netcardIP;
    for (int i = 0; i < 3; ++i) {
        hlnp.scanSlot(QStringLiteral("scan"), i);
        QCOMPARE(hlnp.thisNetwork, addresses.at(i));
        QCOMPARE(hlnp.findChild<QUdpSocket *>()->localAddress(), QHostAddress(addresses.at(i)));
    }
}

void TestAdapters::twoEnumerations()
{
    QVERIFY(plug(QStringLiteral("eth0"), {QStringLiteral("192.168.72.1/24"), QStringLiteral("10.3.2.1/16")}));
    HLNP hlnp;
    hlnp.hLNPpreScanProcess();
    const QStringList once = {kFirst, QStringLiteral("[10.3.2.1] eth0")};
    QCOMPARE(hlnp.netcardlist, once);
    hlnp.hLNPpreScanProcess();
    QCOMPARE(hlnp.netcardlist, once + once);
    QCOMPARE(hlnp.netcardIP, (QStringList{kPanel, QStringLiteral("10.3.2.1")}));
    QCOMPARE(hlnp.netcardName, (QStringList{QStringLiteral("eth0"), QStringLiteral("eth0")}));
    QCOMPARE(netCount, 2);
    // The entries of both rounds are valid by index.
    for (const int index : {3, 0}) {
        hlnp.scanSlot(QStringLiteral("scan"), index);
        QCOMPARE(hlnp.thisNetwork, hlnp.netcardIP.at(index % 2));
    }
}

void TestAdapters::linkLocalAndLoopbackAreNoAdapters()
{
    QVERIFY(plug(QStringLiteral("eth0"),
                 {QStringLiteral("192.168.72.1/24"), QStringLiteral("169.254.7.7/16"),
                  QStringLiteral("127.9.9.9/32")}));
    HLNP hlnp;
    hlnp.hLNPpreScanProcess();
    QCOMPARE(hlnp.netcardModels(), QStringList{kFirst});
    QCOMPARE(hlnp.netcardIP, QStringList{kPanel});
    QCOMPARE(netCount, 1);
}

void TestAdapters::linkLocalAndLoopbackAreNeverBound()
{
    QVERIFY(plug(QStringLiteral("eth0"),
                 {QStringLiteral("192.168.72.1/24"), QStringLiteral("169.254.7.7/16"),
                  QStringLiteral("127.9.9.9/32")}));
    HLNP hlnp;
    hlnp.hLNPpreScanProcess();
    // A single adapter is meant whatever address the walk is on, so that each that is not passed over is bound.
    QCOMPARE(netCount, 1);
    {
        const LogCapture log;
        hlnp.scanSlot(QStringLiteral("scan"), 0);
        QCOMPARE(LogCapture::count(QStringLiteral("BroadCast bind IP:")), 1);
    }
    QCOMPARE(hlnp.thisNetwork, kPanel);
    QCOMPARE(udpsocketBindAddress, QHostAddress(kPanel));

    // A text that names all three matches the usable one alone.
    hlnp.netcardlist = QStringList{kFirst, QStringLiteral("[169.254.7.7] eth0 127.9.9.9 127.0.0.1")};
    netCount = 2;
    {
        const LogCapture log;
        hlnp.scanSlot(QStringLiteral("scan"), 1);
        QCOMPARE(LogCapture::count(QStringLiteral("BroadCast bind IP:")), 0);
    }
    QCOMPARE(hlnp.thisNetwork, kPanel);
}

void TestAdapters::aFailedBindIsPassedOver()
{
    QVERIFY(plug(QStringLiteral("eth0"), {QStringLiteral("192.168.72.1/24")}));
    const Devices devices(farHost, {kUnit}, nullptr);
    QVERIFY(devices.isGood());
    // The host has one port to give, and somebody has it already.
    QFile range(QStringLiteral("/proc/sys/net/ipv4/ip_local_port_range"));
    QVERIFY2(range.open(QIODevice::WriteOnly), qPrintable(range.errorString()));
    QVERIFY(range.write("41000 41000\n") > 0);
    range.close();
    QUdpSocket holder;
    QVERIFY(holder.bind(QHostAddress(kPanel), 41000, QAbstractSocket::DontShareAddress));

    HLNP hlnp;
    hlnp.hLNPpreScanProcess();
    const QHostAddress former(QStringLiteral("10.9.9.9"));
    udpsocketBindAddress = former;
    const LogCapture log;
    hlnp.scanSlot(QStringLiteral("scan"), 0);
    // No line and no address of a bind; the rest goes its way, and the scan asks nobody and ends as done.
    QCOMPARE(LogCapture::count(QStringLiteral("BroadCast bind IP:")), 0);
    QCOMPARE(udpsocketBindAddress, former);
    QCOMPARE(hlnp.thisNetwork, kPanel);
    QCOMPARE(sameNetwork, QStringLiteral("192.168.72."));
    QCOMPARE(LogCapture::count(QStringLiteral("[NOTE] Check ZCM IPs are in the same network")), 1);
    QCOMPARE(LogCapture::count(QStringLiteral("Do Scan!")), 1);
    QCOMPARE(hlnp.scanDone, true);
    QCOMPARE(hlnp.deviceCount, 0);

    // The port is free again: the next scan binds and is heard.
    holder.close();
    hlnp.scanSlot(QStringLiteral("scan"), 0);
    QCOMPARE(LogCapture::count(QStringLiteral("BroadCast bind IP:")), 1);
    QCOMPARE(udpsocketBindAddress, QHostAddress(kPanel));
    QTRY_COMPARE(devices.requests(0x00).size(), 1);
}

int main(int argc, char **argv)
{
    support::TestNetwork::obtainRights(argv);
    QCoreApplication application(argc, argv);
    TestAdapters test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_adapters.moc"
