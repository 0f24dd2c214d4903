// The networks of a test's own do what the tests that build on them take for granted.

#include "tests/support/rawlink.h"
#include "tests/support/testnetwork.h"
#include "tests/support/unithost.h"

#include <QNetworkInterface>
#include <QUdpSocket>
#include <QtTest>

#include <unistd.h>

using support::RawNetwork;
using support::requestBody;
using support::TestNetwork;
using support::UnitHost;

class TestTestNetwork : public QObject
{
    Q_OBJECT

private slots:
    void onlyItsOwnAdapters();
    void unitInAnotherHost();
    void twoSwitchesAreApart();
    void pulledCable();
    void removedAdapter();
    void everythingIsRemoved();
    void whatADeadTestLeft();
    void refusedCommandComplains();
};

namespace {

QStringList hosts()
{
    QProcess ip;
    ip.start(QStringLiteral("ip"), {QStringLiteral("netns")});
    ip.waitForFinished(5000);
    QStringList names;
    for (const QString &line : QString::fromLocal8Bit(ip.readAll()).split(QLatin1Char('\n')))
        names.append(line.section(QLatin1Char(' '), 0, 0));
    return names;
}

// A panel's host at .1 and a host of units at .10, on one switch.
struct Lan
{
    TestNetwork net;
    QString panel = net.addHost();
    QString units = net.addHost();
    QString cable = net.addSwitch();

    Lan()
    {
        net.plug(panel, QStringLiteral("eth0"), cable, {QStringLiteral("192.168.72.1/24")});
        net.plug(units, QStringLiteral("eth0"), cable, {QStringLiteral("192.168.72.10/24")});
    }
    UnitHost::Options unitOptions() const
    {
        UnitHost::Options options;
        options.address = QStringLiteral("192.168.72.10");
        options.netNamespace = units;
        return options;
    }
};

} // namespace

void TestTestNetwork::onlyItsOwnAdapters()
{
    Lan lan;
    QVERIFY2(lan.net.isGood(), qPrintable(lan.net.complaint()));
    QVERIFY(TestNetwork::enter(lan.panel));
    QStringList names;
    QStringList addresses;
    for (const QNetworkInterface &adapter : QNetworkInterface::allInterfaces()) {
        names.append(adapter.name());
        for (const QNetworkAddressEntry &entry : adapter.addressEntries()) {
            if (entry.ip().protocol() == QAbstractSocket::IPv4Protocol)
                addresses.append(entry.ip().toString());
        }
    }
    names.sort();
    addresses.sort();
    QCOMPARE(names, QStringList({QStringLiteral("eth0"), QStringLiteral("lo")}));
    QCOMPARE(addresses, QStringList({QStringLiteral("127.0.0.1"), QStringLiteral("192.168.72.1")}));
}

void TestTestNetwork::unitInAnotherHost()
{
    Lan lan;
    UnitHost unit(lan.unitOptions());
    QVERIFY(TestNetwork::enter(lan.panel));
    RawNetwork link(QStringLiteral("192.168.72.10"));
    QCOMPARE(link.exchange(requestBody(0x6F)).size(), 6);
    QCOMPARE(unit.count(0x6F), 1);
}

void TestTestNetwork::twoSwitchesAreApart()
{
    Lan lan;
    const QString other = lan.net.addHost();
    const QString otherCable = lan.net.addSwitch();
    QVERIFY(lan.net.plug(other, QStringLiteral("eth0"), otherCable, {QStringLiteral("192.168.72.1/24")}));
    UnitHost::Options options = lan.unitOptions();
    options.discovery = true;
    options.broadcasts = true;
    UnitHost unit(options);
    QVERIFY(TestNetwork::enter(other));
    QUdpSocket socket;
    QVERIFY(socket.bind(QHostAddress(QStringLiteral("192.168.72.1")), 0));
    QCOMPARE(
        socket.writeDatagram(QByteArray::fromHex("000b80004554485f524551"), QHostAddress::Broadcast, 5002),
        11);
    QVERIFY(!socket.waitForReadyRead(300));
    QVERIFY(unit.record().isEmpty());
}

void TestTestNetwork::pulledCable()
{
    Lan lan;
    UnitHost unit(lan.unitOptions());
    QVERIFY(TestNetwork::enter(lan.panel));
    RawNetwork link(QStringLiteral("192.168.72.10"));
    QCOMPARE(link.exchange(requestBody(0x6F)).size(), 6);
    QVERIFY(lan.net.setCable(lan.units, QStringLiteral("eth0"), false));
    QVERIFY(link.exchange(requestBody(0x6F), 300).isEmpty());
    QVERIFY(link.isUp()); // a cable tells nobody
    QVERIFY(lan.net.setCable(lan.units, QStringLiteral("eth0"), true));
    QCOMPARE(link.receive(10000).size(), 8); // what was lost is sent again
}

void TestTestNetwork::removedAdapter()
{
    Lan lan;
    QVERIFY(TestNetwork::enter(lan.panel));
    QVERIFY(lan.net.removeAdapter(lan.panel, QStringLiteral("eth0")));
    for (const QNetworkInterface &adapter : QNetworkInterface::allInterfaces())
        QVERIFY(adapter.name() != QLatin1String("eth0"));
}

void TestTestNetwork::everythingIsRemoved()
{
    QString panel;
    {
        Lan lan;
        panel = lan.panel;
        QVERIFY(hosts().contains(panel));
    }
    QVERIFY(!hosts().contains(panel));
}

void TestTestNetwork::whatADeadTestLeft()
{
    QProcess dead;
    dead.start(QStringLiteral("true"), QStringList());
    QVERIFY(dead.waitForStarted(5000));
    const QString left = QStringLiteral("qt%1h0").arg(dead.processId());
    QVERIFY(dead.waitForFinished(5000));
    QCOMPARE(QProcess::execute(QStringLiteral("ip"), {QStringLiteral("netns"), QStringLiteral("add"), left}),
             0);
    TestNetwork net;
    QTRY_VERIFY(!hosts().contains(left)); // a test beside this one may be at the same work
}

void TestTestNetwork::refusedCommandComplains()
{
    TestNetwork net;
    QVERIFY(!net.ip(QStringLiteral("nowhere"), {QStringLiteral("link")}));
    QVERIFY(!net.isGood());
    QVERIFY2(net.complaint().startsWith(QStringLiteral("This test needs network namespaces")),
             qPrintable(net.complaint()));
}

int main(int argc, char **argv)
{
    TestNetwork::obtainRights(argv);
    QCoreApplication application(argc, argv);
    TestTestNetwork test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_network.moc"
