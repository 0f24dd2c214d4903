#include "datagrambench.h"
#include "tests/support/logcapture.h"

using support::LogCapture;
using support::ownLoopback;

// What a single datagram of a device does: a record, an acknowledgement, a model.
class TestDatagrams : public DatagramBench
{
    Q_OBJECT

private slots:
    void init() { DatagramBench::init(); }
    void cleanup() { DatagramBench::cleanup(); }
    void aRecordFillsARow();
    void aHostNameOfSixteenBytesIsReadWhole();
    void anyNonzeroFlagMeansDhcp();
    void aDuplicateLeavesTheFirstRowAndItsRemainsBehindIt();
    void aKnownMacAtAnotherAddressIsDropped();
    void fiveBytesWithTheirLengthAndCodeZeroAreARecord();
    void fiveBytesAreAnAcknowledgementWhateverTheirCode();
    void aRefusalIsLoggedByItsLabel();
    void aRefusalFromElsewhereIsNotLogged();
    void identifiersAreFiledByThePartOfAnAddress();
    void aModelReplyOfWrongLengthIsDropped();
    void aModelNameEndsAtItsTerminator();
    void anUnterminatedModelNameRunsOnIntoTheBuffer();
};

void TestDatagrams::aRecordFillsARow()
{
    QSignalSpy debugMessage(hlnp, &HLNP::setDebugMessage);
    DeviceRecord record;
    record.mac = QByteArray::fromHex("0a5ca7ff0010");
    record.ip = QStringLiteral("10.20.130.240");
    send(record.datagram());
    hlnp->processDatagrams();

    QCOMPARE(hlnp->deviceCount, 1);
    QCOMPARE(network(0).macadd, QStringLiteral("0A:5C:A7:FF:00:10"));
    QCOMPARE(network(0).ipadd, QStringLiteral("10.20.130.240"));
    QCOMPARE(int(hlnp->allHlnpDevice[0].series), 240);
    QCOMPARE(network(0).name, QStringLiteral("QKV720"));
    QCOMPARE(network(0).isdhcp, false);
    QCOMPARE(network(0).maskadd, QStringLiteral("255.255.255.0"));
    QCOMPARE(network(0).gatewayadd, QStringLiteral("192.168.72.254"));
    QCOMPARE(network(0).primdnsadd, QStringLiteral("8.8.4.4"));
    QCOMPARE(network(0).secdnsadd, QStringLiteral("1.0.0.1"));
    QVERIFY(network(0).vid.isEmpty() && network(0).pid.isEmpty() && network(0).modelname.isEmpty());
    QVERIFY(hlnp->scanDone);
    QCOMPARE(debugMessage.size(), 1);
    QCOMPARE(debugMessage.first().first().toString(), QStringLiteral("1"));
}

void TestDatagrams::aHostNameOfSixteenBytesIsReadWhole()
{
    DeviceRecord record = numberedRecord(1, QStringLiteral("10.0.0.1"));
    record.name = "ABCDEFGHIJKLMNOP";
    send(record.datagram());
    record = numberedRecord(2, QStringLiteral("10.0.0.2"));
    record.name = QByteArray("AB\0CD", 5);
    send(record.datagram());
    hlnp->processDatagrams();
    QCOMPARE(network(0).name, QStringLiteral("ABCDEFGHIJKLMNOP"));
    QCOMPARE(network(1).name, QStringLiteral("AB"));
}

void TestDatagrams::anyNonzeroFlagMeansDhcp()
{
    const QByteArray flags("\x00\x01\x80\xFF", 4);
    for (int i = 0; i < flags.size(); ++i) {
        DeviceRecord record = numberedRecord(i, QStringLiteral("10.0.0.%1").arg(i + 1));
        record.dhcp = flags.at(i);
        send(record.datagram());
    }
    hlnp->processDatagrams();
    QCOMPARE(hlnp->deviceCount, 4);
    for (int i = 0; i < flags.size(); ++i)
        QCOMPARE(network(i).isdhcp, i > 0);
}

void TestDatagrams::aDuplicateLeavesTheFirstRowAndItsRemainsBehindIt()
{
    QSignalSpy debugMessage(hlnp, &HLNP::setDebugMessage);
    const DeviceRecord first = numberedRecord(1, QStringLiteral("10.0.0.1"));
    DeviceRecord again = first;
    again.name = "Again";
    again.dhcp = 1;
    send(first.datagram());
    send(again.datagram());
    const LogCapture log;
    hlnp->processDatagrams();

    QCOMPARE(debugMessage.last().first().toString(), QStringLiteral("2"));
    QCOMPARE(hlnp->deviceCount, 1);
    QCOMPARE(network(0).name, QStringLiteral("QKV720"));
    QCOMPARE(network(0).isdhcp, false);
    QCOMPARE(network(1).name, QStringLiteral("Again"));
    QCOMPARE(network(1).isdhcp, true);
    QCOMPARE(network(1).macadd, QStringLiteral("02:5C:A7:10:00:01"));
    QVERIFY(network(1).ipadd.isEmpty());
    QCOMPARE(LogCapture::count(QStringLiteral("Filter[ 0 ]: ")), 1);

    send(numberedRecord(2, QStringLiteral("10.0.0.2")).datagram());
    hlnp->processDatagrams();
    QCOMPARE(hlnp->deviceCount, 2);
    QCOMPARE(network(1).name, QStringLiteral("QKV720"));
    QCOMPARE(network(1).ipadd, QStringLiteral("10.0.0.2"));
}

void TestDatagrams::aKnownMacAtAnotherAddressIsDropped()
{
    send(numberedRecord(1, QStringLiteral("10.0.0.1")).datagram());
    send(numberedRecord(1, QStringLiteral("10.0.0.9")).datagram(), 11);
    hlnp->processDatagrams();
    QCOMPARE(hlnp->deviceCount, 1);
    QCOMPARE(network(0).ipadd, QStringLiteral("10.0.0.1"));
    QVERIFY(network(1).ipadd.isEmpty());
}

void TestDatagrams::fiveBytesWithTheirLengthAndCodeZeroAreARecord()
{
    QSignalSpy debugMessage(hlnp, &HLNP::setDebugMessage);
    send(acknowledgement(0x00, 0x15));
    const LogCapture log;
    hlnp->processDatagrams();
    QCOMPARE(debugMessage.last().first().toString(), QStringLiteral("1"));
    QCOMPARE(LogCapture::count(QStringLiteral("NACK")), 0);
    QCOMPARE(network(0).isdhcp, true); // byte 4, whatever it was meant to be

    // With any other length field it is the refusal that it looks like.
    send(acknowledgement(0x00, 0x15, "0006"));
    hlnp->scanSlot(QStringLiteral("clear"), 0);
    network(0).ipadd.clear();
    hlnp->processDatagrams();
    QCOMPARE(debugMessage.last().first().toString(), QStringLiteral("1"));
    QCOMPARE(LogCapture::count(QStringLiteral("HLNP Scan ")), 1);
}

void TestDatagrams::fiveBytesAreAnAcknowledgementWhateverTheirCode()
{
    send(numberedRecord(1, ownLoopback(10)).datagram());
    hlnp->processDatagrams();
    const LogCapture log;
    send(acknowledgement(0x40, 0x15));
    send(acknowledgement(0x41, 0x15));
    send(acknowledgement(0x40, 0x15, "0008"));
    hlnp->processDatagrams();
    QVERIFY(network(0).vid.isEmpty() && network(0).modelname.isEmpty());
    QCOMPARE(LogCapture::count(QStringLiteral(" NACK.")), 3);
}

void TestDatagrams::aRefusalIsLoggedByItsLabel()
{
    const QMap<int, QString> labels = {
        {0x00, QStringLiteral("HLNP Scan ")},
        {0x01, QStringLiteral("FW Version Request ")},
        {0x02, QStringLiteral("Set DHCP Mode ")},
        {0x03, QStringLiteral("Set IP ")},
        {0x04, QStringLiteral("Reset ")},
        {0x08, QStringLiteral("Bootloader ")},
        {0x09, QStringLiteral("Set DHCP Name ")},
        {0x0A, QStringLiteral("Set MAC ")},
        {0x0B, QStringLiteral("Set NetMask ")},
        {0x0C, QStringLiteral("Set Gateway ")},
        {0x0D, QStringLiteral("Set Primary DNS ")},
        {0x0E, QStringLiteral("Set Second DNS ")},
        {0x40, QStringLiteral("Get Model VIDPID ")},
        {0x41, QStringLiteral("Get ModelName ")},
        {0x07, QString()},
    };
    for (auto it = labels.cbegin(); it != labels.cend(); ++it)
        send(acknowledgement(it.key(), 0x15, "0000")); // no row has an address: everyone is heard
    const LogCapture log;
    collect();
    const QStringList lines = LogCapture::logs().filter(QStringLiteral(" NACK."));
    QCOMPARE(lines.size(), labels.size());
    int line = 0;
    for (const QString &label : labels) {
        QVERIFY2(lines.at(line).contains(ownLoopback(10)), qPrintable(lines.at(line)));
        QVERIFY2(
            lines.at(line).contains(QStringLiteral(" return Command:  ") + label + QStringLiteral("  NACK.")),
            qPrintable(lines.at(line)));
        ++line;
    }
    QCOMPARE(hlnp->deviceCount, 0);
}

void TestDatagrams::aRefusalFromElsewhereIsNotLogged()
{
    send(numberedRecord(1, ownLoopback(11)).datagram());
    hlnp->processDatagrams();
    const LogCapture log;
    send(acknowledgement(0x0B, 0x15), 10);
    send(acknowledgement(0x0B, 0x06), 11);
    hlnp->processDatagrams();
    QCOMPARE(LogCapture::count(QStringLiteral("return Command")), 0);
    send(acknowledgement(0x0B, 0x15), 11);
    hlnp->processDatagrams();
    QCOMPARE(LogCapture::count(QStringLiteral("Set NetMask ")), 1);
}

void TestDatagrams::identifiersAreFiledByThePartOfAnAddress()
{
    send(numberedRecord(1, ownLoopback(7)).datagram());
    send(numberedRecord(2, ownLoopback(70)).datagram());
    send(numberedRecord(3, ownLoopback(71)).datagram());
    hlnp->processDatagrams();
    send(modelReply("05881501"), 70);
    hlnp->processDatagrams();
    QCOMPARE(network(0).vid, QStringLiteral("0588"));
    QCOMPARE(network(0).pid, QStringLiteral("1501"));
    QCOMPARE(network(1).pid, QStringLiteral("1501"));
    QVERIFY(network(2).pid.isEmpty());

    // The shorter address is part of the longer one, not the other way round.
    send(modelReply("abcdef01"), 7);
    hlnp->processDatagrams();
    QCOMPARE(network(0).vid, QStringLiteral("ABCD"));
    QCOMPARE(network(0).pid, QStringLiteral("EF01"));
    QCOMPARE(network(1).vid, QStringLiteral("0588"));
}

void TestDatagrams::aModelReplyOfWrongLengthIsDropped()
{
    send(numberedRecord(1, ownLoopback(10)).datagram());
    hlnp->processDatagrams();
    send(modelReply() + '\0');
    send(modelReply().left(7));
    send(numberedRecord(2, ownLoopback(11)).datagram().left(46));
    send(QByteArray::fromHex("0004800b")); // a code that nobody asked for
    send(QByteArray(1, '\x05'));
    hlnp->processDatagrams();
    QVERIFY(network(0).vid.isEmpty());
    QCOMPARE(hlnp->deviceCount, 1);
    send(modelReply());
    hlnp->processDatagrams();
    QCOMPARE(network(0).vid, QStringLiteral("0588"));
}

void TestDatagrams::aModelNameEndsAtItsTerminator()
{
    send(numberedRecord(1, ownLoopback(10)).datagram());
    send(numberedRecord(2, ownLoopback(11)).datagram());
    hlnp->processDatagrams();
    send(modelNameReply(QByteArray("QKV-720\0rest", 12)), 11);
    send(modelNameReply(QByteArray(45, 'x') + '\0'), 10); // the longest that the buffer holds
    hlnp->processDatagrams();
    QCOMPARE(network(1).modelname, QStringLiteral("QKV-720"));
    QCOMPARE(network(0).modelname, QString(45, QLatin1Char('x')));
}

void TestDatagrams::anUnterminatedModelNameRunsOnIntoTheBuffer()
{
    send(numberedRecord(1, ownLoopback(10)).datagram());
    send(modelNameReply(QByteArray("ABCDEFGH\0", 9)));
    send(modelNameReply("xy"));
    hlnp->processDatagrams();
    QCOMPARE(network(0).modelname, QStringLiteral("xyCDEFGH"));

    send(modelNameReply(QByteArray(46, 'z'))); // nothing ends it but the buffer
    hlnp->processDatagrams();
    QCOMPARE(network(0).modelname, QString(46, QLatin1Char('z')));
}

QTEST_GUILESS_MAIN(TestDatagrams)
#include "tst_datagrams.moc"
