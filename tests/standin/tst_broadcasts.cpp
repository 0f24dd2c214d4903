// Discovery as raw datagrams to all, inside namespaces of the test's own.

#include "discoveryrequests.h"
#include "tests/support/testnetwork.h"
#include "tests/support/unithost.h"

#include <QUdpSocket>
#include <QtTest>

#include <memory>

using support::TestNetwork;
using support::UnitHost;

class TestBroadcasts : public QObject
{
    Q_OBJECT

private slots:
    void broadcastFindsTwoUnits();
    void broadcastMeansOneMac();
};

namespace {

// A panel's host and a host of two units on one cable; the test's thread sits with the panel.
struct Lan
{
    TestNetwork net;
    std::unique_ptr<UnitHost> first;
    std::unique_ptr<UnitHost> second;
    QUdpSocket socket;

    bool build()
    {
        const QString panel = net.addHost();
        const QString units = net.addHost();
        const QString cable = net.addSwitch();
        net.plug(panel, QStringLiteral("eth0"), cable, {QStringLiteral("192.168.72.1/24")});
        net.plug(units, QStringLiteral("eth0"), cable,
                 {QStringLiteral("192.168.72.10/24"), QStringLiteral("192.168.72.11/24")});
        if (!net.isGood())
            return false;
        UnitHost::Options options;
        options.netNamespace = units;
        options.discovery = true;
        options.broadcasts = true;
        options.address = QStringLiteral("192.168.72.10");
        first = std::make_unique<UnitHost>(options);
        options.address = QStringLiteral("192.168.72.11");
        second = std::make_unique<UnitHost>(options);
        second->withNetwork(
            [](standin::NetworkSettings &settings) { settings.mac = bytes("00 50 c2 72 00 02"); });
        return TestNetwork::enter(panel) && socket.bind(QHostAddress(QStringLiteral("192.168.72.1")), 0);
    }
    // As many as should answer in their own time, and those that should not in 300 ms.
    QStringList sendersOf(const QByteArray &datagram, int expected)
    {
        socket.writeDatagram(datagram, QHostAddress::Broadcast, kPort);
        QStringList senders;
        while (socket.hasPendingDatagrams()
               || socket.waitForReadyRead(senders.size() < expected ? 10000 : 300)) {
            QHostAddress sender;
            quint16 port = 0;
            QByteArray reply(100, '\0');
            socket.readDatagram(reply.data(), reply.size(), &sender, &port);
            senders.append(QStringLiteral("%1:%2").arg(sender.toString()).arg(port));
        }
        senders.sort();
        return senders;
    }
};

} // namespace

void TestBroadcasts::broadcastFindsTwoUnits()
{
    Lan lan;
    QVERIFY2(lan.build(), qPrintable(lan.net.complaint()));
    QCOMPARE(lan.sendersOf(request(0x80, 0x00, "ETH_REQ"), 2),
             QStringList({QStringLiteral("192.168.72.10:5002"), QStringLiteral("192.168.72.11:5002")}));
}

void TestBroadcasts::broadcastMeansOneMac()
{
    Lan lan;
    QVERIFY2(lan.build(), qPrintable(lan.net.complaint()));
    QCOMPARE(lan.sendersOf(request(0x80, 0x40, bytes("00 50 c2 72 00 02") + "GET_MODEL"), 1),
             QStringList({QStringLiteral("192.168.72.11:5002")}));
    QCOMPARE(lan.sendersOf(request(0x80, 0x04, kMac + "RESET"), 1),
             QStringList({QStringLiteral("192.168.72.10:5002")}));
    QCOMPARE(lan.first->restarts(), 1);
    QCOMPARE(lan.second->restarts(), 0);
}

NETWORK_TEST_MAIN(TestBroadcasts)
#include "tst_broadcasts.moc"
