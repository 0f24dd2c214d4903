#include "configurationbench.h"
#include "tests/support/logcapture.h"
#include "tests/support/stopwatch.h"

using support::LogCapture;
using support::ownLoopback;

// What the commands that go to one address send, and what they refuse to.
class TestConfiguration : public ConfigurationBench
{
    Q_OBJECT

private slots:
    void init() { ConfigurationBench::init(); }
    void cleanup() { ConfigurationBench::cleanup(); }
    void commands_data();
    void commands();
    void badTextsSendNothing_data();
    void badTextsSendNothing();
    void hostNames_data();
    void hostNames();
    void oddNumbers();
    void aWriteThatFails();
    void firmwareVersionGoesToRowZero();
    void theFormIsKeptForTheLog();
};

void TestConfiguration::commands_data()
{
    QTest::addColumn<Command>("command");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QByteArray>("request");
    QTest::addColumn<int>("code");
    QTest::addColumn<QStringList>("log");
    const auto row = [](const char *name, const Command &command, const char *value,
                        const QByteArray &request, const QStringList &log) {
        QTest::newRow(name) << command << QString::fromLatin1(value) << request << int(request.at(3)) << log;
    };
    row("name", setDhcpName, "Studio-2",
        QByteArray::fromHex("00208109") + "SET_DHCPNAMEStudio-2" + QByteArray(8, '\0'),
        {QStringLiteral("setDhcpName 1 \"Studio-2\"")});
    row("mac", setMacAdr, "02:5c:A7:01:0F:fe",
        QByteArray::fromHex("0014810a") + "SET_MACADR" + QByteArray::fromHex("025ca7010ffe"),
        {QStringLiteral("set Mac Address: \"02:5c:A7:01:0F:fe\"")});
    row("netmask", setNetmask, "255.255.254.0",
        QByteArray::fromHex("0013810b") + "SET_NETMASK" + QByteArray::fromHex("fffffe00"),
        {QStringLiteral("setNetmask 1"), QStringLiteral("set MASK Address: \"255.255.254.0\"")});
    row("gateway", setGateway, "10.1.2.254",
        QByteArray::fromHex("0013810c") + "SET_GATEWAY" + QByteArray::fromHex("0a0102fe"),
        {QStringLiteral("setGateway 1"), QStringLiteral("set Gateway: \"10.1.2.254\"")});
    row("primary", setPrimDns, "8.8.4.4",
        QByteArray::fromHex("0012810d") + "SET_PRIDNS" + QByteArray::fromHex("08080404"),
        {QStringLiteral("setPrimDNS 1"), QStringLiteral("set prim DNS: \"8.8.4.4\"")});
    row("secondary", setSecDns, "1.0.0.1",
        QByteArray::fromHex("0012810e") + "SET_SECDNS" + QByteArray::fromHex("01000001"),
        {QStringLiteral("setSecDNS 1"), QStringLiteral("set sec DNS: \"1.0.0.1\"")});
}

void TestConfiguration::commands()
{
    QFETCH(Command, command);
    QFETCH(QString, value);
    QFETCH(QByteArray, request);
    QFETCH(int, code);
    QFETCH(QStringList, log);
    QSignalSpy busy(hlnp, &HLNP::setNetConfigBusy);

    support::Stopwatch clock;
    {
        answer(*unit, acknowledgement(code, 0x06));
        const LogCapture capture;
        QCOMPARE(command(*hlnp, target, value), QStringLiteral("OK"));
        QCOMPARE(LogCapture::logs(), log + QStringList{QStringLiteral("ReadDatagram 06: 6")});
    }
    QCOMPARE(sent(), request);

    answer(*unit, acknowledgement(code, 0x15));
    {
        const LogCapture capture;
        QCOMPARE(command(*hlnp, target, value), QStringLiteral("NACK"));
        QCOMPARE(LogCapture::logs().last(), QStringLiteral("ReadDatagram 15: 21"));
    }
    QCOMPARE(sent(), request);
    VERIFY_TOOK(clock, 0, 2000);
    QCOMPARE(busy.size(), 0);
}

void TestConfiguration::badTextsSendNothing_data()
{
    QTest::addColumn<Command>("command");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("log");
    const auto row = [](const char *name, const Command &command, const char *value, const char *text,
                        const char *log) {
        QTest::newRow(name) << command << QString::fromLatin1(value) << QString::fromLatin1(text)
                            << QString::fromLatin1(log);
    };
    row("mac of five", setMacAdr, "02:5C:A7:01:0F", "MAC address format error", "");
    row("mac of seven", setMacAdr, "02:5C:A7:01:0F:01:02", "MAC address format error", "");
    row("empty mac", setMacAdr, "", "MAC address format error", "");
    row("mask", setNetmask, "255.255.255", "Mask address format error", "Mask Address format failed");
    row("long mask", setNetmask, "255.255.255.0.0", "Mask address format error",
        "Mask Address format failed");
    row("empty mask", setNetmask, "", "Mask address format error", "Mask Address format failed");
    row("gateway", setGateway, "10.1.2", "Gate address format error", "Gate Address format failed");
    row("primary", setPrimDns, "8.8.4", "PrimDNS address format error", "PrimDNS Address format failed");
    row("secondary", setSecDns, "1.0.0.1.", "SecDNS address format error", "SecDNS Address format failed");
}

void TestConfiguration::badTextsSendNothing()
{
    QFETCH(Command, command);
    QFETCH(QString, value);
    QFETCH(QString, log);
    const LogCapture capture;
    support::Stopwatch clock;
    QTEST(command(*hlnp, target, value), "text");
    VERIFY_TOOK(clock, 0, 1000);
    QTest::qWait(50);
    QVERIFY(!unit->hasPendingDatagrams());
    if (!log.isEmpty())
        QVERIFY(LogCapture::logs().last().startsWith(log));
}

void TestConfiguration::hostNames_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("field");
    QTest::newRow("empty") << QString() << QByteArray(16, '\0');
    QTest::newRow("fifteen") << QStringLiteral("ABCDEFGHIJKLMNO") << QByteArray("ABCDEFGHIJKLMNO\0", 16);
    QTest::newRow("twenty") << QStringLiteral("ABCDEFGHIJKLMNOPQRST") << QByteArray("ABCDEFGHIJKLMNO\0", 16);
    QTest::newRow("outside ASCII") << QString::fromUtf8("Zürich")
                                   << QByteArray("Z\xC3\xBCrich") + QByteArray(10, '\0');
    QTest::newRow("fifteen outside ASCII")
        << QString(20, QChar(0x53F0)) << QByteArray("\xE5\x8F\xB0").repeated(15) + '\0';
}

void TestConfiguration::hostNames()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, field);
    answer(*unit, acknowledgement(0x09, 0x06));
    QCOMPARE(setDhcpName(*hlnp, target, name), QStringLiteral("OK"));
    QCOMPARE(sent(), QByteArray::fromHex("00208109") + "SET_DHCPNAME" + field);
}

void TestConfiguration::oddNumbers()
{
    const QVector<QPair<QString, QByteArray>> masks = {
        {QStringLiteral("255.255.255.999"), QByteArray::fromHex("ffffffe7")},
        {QStringLiteral("a.b.c.d"), QByteArray(4, '\0')},
        {QStringLiteral("300.256..7"), QByteArray::fromHex("2c000007")},
    };
    for (const auto &mask : masks) {
        answer(*unit, acknowledgement(0x0B, 0x06));
        QCOMPARE(setNetmask(*hlnp, target, mask.first), QStringLiteral("OK"));
        QCOMPARE(sent().mid(15), mask.second);
    }
    answer(*unit, acknowledgement(0x0A, 0x06));
    QCOMPARE(setMacAdr(*hlnp, target, QStringLiteral("1FF:zz::5C:a:00")), QStringLiteral("OK"));
    QCOMPARE(sent().mid(14), QByteArray::fromHex("ff00005c0a00"));
}

void TestConfiguration::aWriteThatFails()
{
    // The socket is bound to loopback: an address outside it cannot be reached from there.
    const QString outside = QStringLiteral("192.0.2.1");
    const QString text = QStringLiteral("Setting error, please check IP address:") + outside;
    const QString address = QStringLiteral("10.0.0.1");
    support::Stopwatch clock;
    QCOMPARE(setDhcpName(*hlnp, outside, QStringLiteral("name")), text);
    QCOMPARE(setMacAdr(*hlnp, outside, QStringLiteral("1:2:3:4:5:6")), text);
    QCOMPARE(setNetmask(*hlnp, outside, address), text);
    QCOMPARE(setGateway(*hlnp, outside, address), text);
    QCOMPARE(setPrimDns(*hlnp, outside, address), text);
    QCOMPARE(setSecDns(*hlnp, outside, address), text);
    VERIFY_TOOK(clock, 0, 2000);
}

void TestConfiguration::firmwareVersionGoesToRowZero()
{
    answer(*unit, QByteArray::fromHex("00058101") + "7");
    answer(*unit, QByteArray::fromHex("000581") + "42");
    const LogCapture log;
    support::Stopwatch clock;
    hlnp->getFWVersion(target);
    QVERIFY(clock.elapsed() >= 1100);
    QCOMPARE(hlnp->allHlnpDevice[0].zcm.hlnpnetwork.fwver, QStringLiteral("42"));
    QCOMPARE(sent(), QByteArray::fromHex("000d8101") + "FWVER_REQ");
    QCOMPARE(LogCapture::count(QStringLiteral("getFWVersion:While get datagram.")), 11);
}

void TestConfiguration::theFormIsKeptForTheLog()
{
    HLNP fresh;
    auto *socket = fresh.findChild<QUdpSocket *>();
    const auto fill = [&fresh](int dhcp, const QString &adapter) {
        return fresh.initHLNPConfig(dhcp, QStringLiteral("mac"), adapter, QStringLiteral("ip"),
                                    QStringLiteral("name"), QStringLiteral("mask"), QStringLiteral("gate"),
                                    QStringLiteral("first"), QStringLiteral("second"));
    };
    const LogCapture log;
    QCOMPARE(fill(1, ownLoopback(2)), 1);
    QCOMPARE(socket->state(), QAbstractSocket::BoundState);
    QCOMPARE(socket->localAddress(), QHostAddress(ownLoopback(2)));
    QCOMPARE(fresh.beforeDhcpIndex, 1);
    QCOMPARE(fresh.beforeMacaddr, QStringLiteral("mac"));
    QCOMPARE(fresh.beforeCurrentNetCardIP, ownLoopback(2));
    QCOMPARE(fresh.beforeIPAddr, QStringLiteral("ip"));
    QCOMPARE(fresh.beforeHostname, QStringLiteral("name"));
    QCOMPARE(fresh.beforeNetmask, QStringLiteral("mask"));
    QCOMPARE(fresh.beforeGateway, QStringLiteral("gate"));
    QCOMPARE(fresh.beforePrimdns, QStringLiteral("first"));
    QCOMPARE(fresh.beforeSecdns, QStringLiteral("second"));
    QCOMPARE(LogCapture::count(QStringLiteral("Bind to Socket:")), 1);

    QCOMPARE(fill(0, ownLoopback(3)), 1); // a bound socket stays where it is
    QCOMPARE(socket->localAddress(), QHostAddress(ownLoopback(2)));
    QCOMPARE(LogCapture::count(QStringLiteral("Bind to Socket:")), 1);
    QVERIFY(LogCapture::logs().filter(QStringLiteral("[initHLNPConfig] 1:")).last().contains(ownLoopback(2)));
    QVERIFY(LogCapture::logs().filter(QStringLiteral("[initHLNPConfig] 2:")).last().contains(ownLoopback(3)));

    HLNP failing;
    QCOMPARE(failing.initHLNPConfig(0, QString(), QStringLiteral("192.0.2.1"), QString(), QString(),
                                    QString(), QString(), QString(), QString()),
             1);
    QVERIFY(LogCapture::logs().last().contains(QStringLiteral("Failed")));
}

QTEST_GUILESS_MAIN(TestConfiguration)
#include "tst_configuration.moc"
