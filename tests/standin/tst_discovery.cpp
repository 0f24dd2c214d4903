// Discovery and remote configuration as raw datagrams, directed on the loopback.

#include "discoveryrequests.h"
#include "tests/support/unithost.h"
#include "tests/support/vectors.h"

#include <QElapsedTimer>
#include <QUdpSocket>
#include <QtTest>

#include <memory>

using standin::discoveryCode;
using standin::Fault;
using support::UnitHost;

class TestDiscovery : public QObject
{
    Q_OBJECT

private slots:
    void vectors_data();
    void vectors();
    void networkRecord();
    void namesOfEveryLength();
    void identifiers();
    void modelName();
    void firmwareVersion();
    void settings_data();
    void settings();
    void addressWaitsForTheRestart();
    void restartDropsTheLink();
    void anotherUnitsMac();
    void badDatagrams_data();
    void badDatagrams();
    void nameBeyondAscii();
    void faults_data();
    void faults();
};

namespace {

// A unit on the loopback and a socket that talks to it.
struct Pair
{
    std::unique_ptr<UnitHost> host;
    QUdpSocket socket;

    Pair()
    {
        UnitHost::Options options;
        options.discovery = true;
        host = std::make_unique<UnitHost>(options);
        socket.bind(QHostAddress(QHostAddress::LocalHost), 0);
    }
    void send(const QByteArray &datagram)
    {
        socket.writeDatagram(datagram, QHostAddress(host->address()), kPort);
    }
    QByteArray receive(int ms = 10000)
    {
        if (!socket.hasPendingDatagrams() && !socket.waitForReadyRead(ms))
            return {};
        QByteArray datagram(200, '\0');
        QHostAddress sender;
        quint16 port = 0;
        datagram.truncate(
            static_cast<int>(socket.readDatagram(datagram.data(), datagram.size(), &sender, &port)));
        if (sender.toString() != host->address() || port != kPort)
            return QByteArrayLiteral("from elsewhere");
        return datagram;
    }
    QByteArray ask(const QByteArray &datagram, int ms = 10000)
    {
        send(datagram);
        return receive(ms);
    }
    QByteArray networkRecord() { return ask(request(0x80, 0x00, "ETH_REQ")); }
};

QString ack(int type, int command)
{
    return hex(request(type, command, QByteArray(1, 0x06)));
}

} // namespace

void TestDiscovery::vectors_data()
{
    QTest::addColumn<QByteArray>("out");
    QTest::addColumn<QByteArray>("in");
    const QVector<support::Datagram> datagrams = support::readDatagrams();
    QCOMPARE(datagrams.size(), 14);
    for (const support::Datagram &datagram : datagrams)
        QTest::newRow(qPrintable(datagram.request)) << datagram.out << datagram.in;
}

void TestDiscovery::vectors()
{
    QFETCH(QByteArray, out);
    QFETCH(QByteArray, in);
    Pair pair;
    pair.host->withNetwork([](standin::NetworkSettings &settings) {
        settings.address = QHostAddress(QStringLiteral("192.168.72.10")); // as the record tells it
        settings.gateway = QHostAddress(QStringLiteral("192.168.72.1"));
        settings.primaryDns = QHostAddress(QStringLiteral("8.8.4.4"));
        settings.secondaryDns = QHostAddress(QStringLiteral("9.9.9.9"));
    });
    QCOMPARE(hex(pair.ask(out)), hex(in));
}

void TestDiscovery::networkRecord()
{
    Pair pair;
    pair.host->withNetwork([](standin::NetworkSettings &settings) {
        settings.dhcp = true;
        settings.name = QStringLiteral("KEYER-1");
        settings.gateway = QHostAddress(QStringLiteral("10.1.2.3"));
        settings.primaryDns = QHostAddress(QStringLiteral("1.2.3.4"));
        settings.secondaryDns = QHostAddress(QStringLiteral("5.6.7.8"));
    });
    const quint32 address = QHostAddress(pair.host->address()).toIPv4Address();
    QByteArray own;
    for (int shift = 24; shift >= 0; shift -= 8)
        own.append(static_cast<char>((address >> shift) & 0xFFU));
    const QByteArray reply = pair.ask(bytes("00 0b 80 00 45 54 48 5f 52 45 51"));
    QCOMPARE(reply.size(), 47);
    QCOMPARE(hex(reply),
             hex(bytes("00 2f 80 00 01 4b 45 59 45 52 2d 31 00 00 00 00 00 00 00 00 00 00 50 c2 72 00 01")
                 + own + bytes("ff ff ff 00 0a 01 02 03 01 02 03 04 05 06 07 08")));
}

void TestDiscovery::namesOfEveryLength()
{
    Pair pair;
    for (int length : {0, 1, 15, 16, 17}) {
        const QString name(length, QLatin1Char('n'));
        pair.host->withNetwork([&name](standin::NetworkSettings &settings) { settings.name = name; });
        const QByteArray reply = pair.networkRecord();
        QCOMPARE(reply.size(), 47);
        QCOMPARE(hex(reply.mid(5, 16)), hex(name.left(16).toLatin1().leftJustified(16, '\0')));
    }
}

void TestDiscovery::identifiers()
{
    Pair pair;
    const QByteArray ask = request(0x80, 0x40, kMac + "GET_MODEL");
    QCOMPARE(ask.size(), 19);
    QCOMPARE(hex(pair.ask(ask)), QStringLiteral("00 08 80 40 05 88 15 01"));
    pair.host->withNetwork([](standin::NetworkSettings &settings) { settings.product = 0x1502; });
    QCOMPARE(hex(pair.ask(ask)), QStringLiteral("00 08 80 40 05 88 15 02"));
}

void TestDiscovery::modelName()
{
    Pair pair;
    const QByteArray ask = request(0x80, 0x41, kMac + "GET_MODEL_NAME");
    QCOMPARE(ask.size(), 24);
    QCOMPARE(hex(pair.ask(ask)), hex(bytes("00 0c 80 41") + QByteArray("QKV-720", 8)));
    const QString lengthy(80, QLatin1Char('m'));
    pair.host->withNetwork([&lengthy](standin::NetworkSettings &settings) { settings.modelName = lengthy; });
    const QByteArray reply = pair.ask(ask);
    QCOMPARE(reply.size(), 50); // the panels' buffer
    QCOMPARE(reply.back(), '\0');
}

void TestDiscovery::firmwareVersion()
{
    Pair pair;
    QCOMPARE(hex(pair.ask(request(0x81, 0x01, "FWVER_REQ"))), QStringLiteral("00 06 81 01 01 05"));
}

void TestDiscovery::settings_data()
{
    QTest::addColumn<QByteArray>("datagram");
    QTest::addColumn<int>("at");
    QTest::addColumn<QByteArray>("shown");
    const QByteArray address = bytes("0a 0b 0c 0d");
    QTest::newRow("DHCP on") << request(0x80, 0x02, kMac + "SET_DHCPMODE" + bytes("01")) << 4 << bytes("01");
    QTest::newRow("DHCP off") << request(0x80, 0x02, kMac + "SET_DHCPMODE" + bytes("00")) << 4 << bytes("00");
    QTest::newRow("name") << request(0x81, 0x09,
                                     QByteArray("SET_DHCPNAME") + QByteArray("STUDIO").leftJustified(16, 0))
                          << 5 << QByteArray("STUDIO").leftJustified(16, 0);
    QTest::newRow("MAC") << request(0x81, 0x0A, "SET_MACADR" + bytes("02 7e 31 04 05 06")) << 21
                         << bytes("02 7e 31 04 05 06");
    QTest::newRow("mask") << request(0x81, 0x0B, "SET_NETMASK" + address) << 31 << address;
    QTest::newRow("gateway") << request(0x81, 0x0C, "SET_GATEWAY" + address) << 35 << address;
    QTest::newRow("primary DNS") << request(0x81, 0x0D, "SET_PRIDNS" + address) << 39 << address;
    QTest::newRow("secondary DNS") << request(0x81, 0x0E, "SET_SECDNS" + address) << 43 << address;
    QTest::newRow("gateway with the address")
        << request(0x80, 0x03, kMac + "SET_IPADR" + bytes("c0 a8 48 14") + address) << 35 << address;
}

void TestDiscovery::settings()
{
    QFETCH(QByteArray, datagram);
    QFETCH(int, at);
    QFETCH(QByteArray, shown);
    Pair pair;
    const QByteArray before = pair.networkRecord();
    QCOMPARE(hex(pair.ask(datagram)), ack(static_cast<quint8>(datagram.at(2)), datagram.at(3)));
    const QByteArray after = pair.networkRecord();
    QCOMPARE(hex(after.mid(at, shown.size())), hex(shown));
    QByteArray restored = after; // nothing else moved
    restored.replace(at, shown.size(), before.mid(at, shown.size()));
    QCOMPARE(hex(restored), hex(before));
}

void TestDiscovery::addressWaitsForTheRestart()
{
    Pair pair;
    const QByteArray before = pair.networkRecord().mid(27, 4);
    pair.ask(request(0x80, 0x03, kMac + "SET_IPADR" + bytes("7f 01 02 03 00 00 00 00")));
    QCOMPARE(hex(pair.networkRecord().mid(27, 4)), hex(before));
    QCOMPARE(hex(pair.ask(request(0x80, 0x04, kMac + "RESET"))), ack(0x80, 0x04));
    QCOMPARE(pair.host->restarts(), 1);
    QCOMPARE(hex(pair.networkRecord().mid(27, 4)), QStringLiteral("7f 01 02 03"));
}

void TestDiscovery::restartDropsTheLink()
{
    Pair pair;
    QTcpSocket link;
    link.connectToHost(pair.host->address(), kPort);
    QVERIFY(link.waitForConnected(2000));
    pair.ask(request(0x80, 0x04, kMac + "RESET"));
    QVERIFY(link.state() == QAbstractSocket::UnconnectedState || link.waitForDisconnected(2000));
}

void TestDiscovery::anotherUnitsMac()
{
    Pair pair;
    const QByteArray other = bytes("00 50 c2 72 00 02");
    QVERIFY(pair.ask(request(0x80, 0x40, other + "GET_MODEL"), 200).isEmpty());
    QVERIFY(pair.ask(request(0x80, 0x04, other + "RESET"), 200).isEmpty());
    QCOMPARE(pair.host->restarts(), 0);
    QCOMPARE(pair.host->count(discoveryCode(0x04)), 1); // heard, but not meant
}

void TestDiscovery::badDatagrams_data()
{
    QTest::addColumn<QByteArray>("datagram");
    QTest::newRow("too short for a header") << bytes("00 03 80");
    QTest::newRow("length too great") << bytes("00 0c 80 00 45 54 48 5f 52 45 51");
    QTest::newRow("length too small") << bytes("00 0a 80 00 45 54 48 5f 52 45 51");
    QTest::newRow("misspelt") << request(0x80, 0x00, "ETH_REX");
    QTest::newRow("keyword of another command") << request(0x80, 0x01, "ETH_REQ");
    QTest::newRow("unknown command") << request(0x80, 0x08, "BOOT");
    QTest::newRow("no MAC") << request(0x80, 0x04, "RESET");
}

void TestDiscovery::badDatagrams()
{
    QFETCH(QByteArray, datagram);
    Pair pair;
    QVERIFY(pair.ask(datagram, 200).isEmpty());
    QCOMPARE(pair.networkRecord().size(), 47);
}

void TestDiscovery::nameBeyondAscii()
{
    // Its letters take more bytes than the field, so the datagram is longer than its length says.
    Pair pair;
    QByteArray datagram = request(0x81, 0x09, QByteArray("SET_DHCPNAME") + QByteArray(16, '\0'));
    datagram.replace(16, 2, QStringLiteral("Ü1").toUtf8());
    QCOMPARE(datagram.size(), 33);
    QCOMPARE(hex(pair.ask(datagram)), ack(0x81, 0x09));
    QCOMPARE(hex(pair.networkRecord().mid(5, 4)), QStringLiteral("c3 9c 31 00"));
}

void TestDiscovery::faults_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("first");
    QTest::newRow("nack") << "nack"
                          << "00 05 81 0b 15";
    QTest::newRow("silent") << "silent"
                            << "";
    QTest::newRow("short") << "short"
                           << "00 05";
    QTest::newRow("length") << "length"
                            << "00 50 81 0b 06";
    QTest::newRow("answer") << "answer"
                            << "01 02 03";
    QTest::newRow("late") << "late"
                          << "00 05 81 0b 06";
    QTest::newRow("split") << "split"
                           << "00 05 81";
}

void TestDiscovery::faults()
{
    QFETCH(QString, kind);
    QFETCH(QString, first);
    const QMap<QString, Fault> faults = {
        {QStringLiteral("nack"), Fault::refuse(0x81, 1)},
        {QStringLiteral("silent"), Fault::silent(1)},
        {QStringLiteral("short"), Fault::shortened(2, 1)},
        {QStringLiteral("length"), Fault::wrongChecksum(1)},
        {QStringLiteral("answer"), Fault::answer(bytes("01 02 03"), 1)},
        {QStringLiteral("late"), Fault::late(300, 1)},
        {QStringLiteral("split"), Fault::split(3, 100, 1)},
    };
    Pair pair;
    const QByteArray mask = request(0x81, 0x0B, "SET_NETMASK" + bytes("ff ff 00 00"));
    const QByteArray before = pair.networkRecord().mid(31, 4);
    pair.host->setFault(discoveryCode(0x0B), faults.value(kind));
    QElapsedTimer clock;
    clock.start();
    QCOMPARE(hex(pair.ask(mask, first.isEmpty() ? 500 : 10000)), first);
    if (kind == QLatin1String("late"))
        QVERIFY(clock.elapsed() >= 300);
    if (kind == QLatin1String("split"))
        QCOMPARE(hex(pair.receive()), QStringLiteral("0b 06"));
    const QByteArray now = pair.networkRecord().mid(31, 4);
    QCOMPARE(hex(now), kind == QLatin1String("nack") ? hex(before) : QStringLiteral("ff ff 00 00"));
    QCOMPARE(hex(pair.ask(mask)), ack(0x81, 0x0B));
}

QTEST_GUILESS_MAIN(TestDiscovery)
#include "tst_discovery.moc"
