// Discovery and remote configuration as raw datagrams; broadcasts inside namespaces of the test's own.

#include "tests/support/testnetwork.h"
#include "tests/support/unithost.h"

#include <QUdpSocket>
#include <QtTest>

class TestDiscovery : public QObject
{
    Q_OBJECT

private slots:
    void broadcastFindsTwoUnits();
};

void TestDiscovery::broadcastFindsTwoUnits()
{
    support::TestNetwork net;
    const QString panel = net.addHost();
    const QString units = net.addHost();
    const QString cable = net.addSwitch();
    net.plug(panel, QStringLiteral("eth0"), cable, {QStringLiteral("192.168.72.1/24")});
    net.plug(units, QStringLiteral("eth0"), cable,
             {QStringLiteral("192.168.72.10/24"), QStringLiteral("192.168.72.11/24")});
    QVERIFY2(net.isGood(), qPrintable(net.complaint()));

    support::UnitHost::Options options;
    options.netNamespace = units;
    options.discovery = true;
    options.broadcasts = true;
    options.address = QStringLiteral("192.168.72.10");
    support::UnitHost first(options);
    options.address = QStringLiteral("192.168.72.11");
    support::UnitHost second(options);
    QVERIFY(net.enter(panel));

    QUdpSocket socket;
    QVERIFY(socket.bind(QHostAddress(QStringLiteral("192.168.72.1")), 0));
    QCOMPARE(
        socket.writeDatagram(QByteArray::fromHex("000b80004554485f524551"), QHostAddress::Broadcast, 5002),
        qint64(11));
    QStringList senders;
    while (senders.size() < 2 && (socket.hasPendingDatagrams() || socket.waitForReadyRead(2000))) {
        QByteArray reply(100, '\0');
        QHostAddress sender;
        quint16 port = 0;
        reply.truncate(int(socket.readDatagram(reply.data(), reply.size(), &sender, &port)));
        QCOMPARE(reply.size(), 47);
        QCOMPARE(port, quint16(5002));
        senders.append(sender.toString());
    }
    senders.sort();
    QCOMPARE(senders, QStringList({QStringLiteral("192.168.72.10"), QStringLiteral("192.168.72.11")}));
}

int main(int argc, char **argv)
{
    support::TestNetwork::obtainRights(argv);
    QCoreApplication application(argc, argv);
    TestDiscovery test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_discovery.moc"
