#include "datagrams.h"
#include "discovery/hlnp.h"
#include "discovery/hlnpstate.h"
#include "tests/support/logcapture.h"
#include "tests/support/loopback.h"
#include "tests/support/stopwatch.h"

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QtTest>

using support::LogCapture;
using support::ownLoopback;

// The datagrams of the devices arrive on loopback: the socket of discovery is bound there by the test, and each
// device is a socket on port 5002 of an address of its own.

class TestDatagrams : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

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
    void aLongDatagramIsCutAndDropped();
    void exactlyElevenReads();
    void anEmptyCollectionTakesElevenSleeps();
    void anUnboundSocketChangesNothing();
    void foreignPortsAreAcceptedSixHundredAndSixtySixTimes();
    void deviceHundredAndOneIsWrittenNowhere();
    void clearRestartsTheRowsAndKeepsTheTables();

private:
    void send(const QByteArray &datagram, int from = 10, quint16 port = 5002);
    void collect(); // until everything sent so far is read
    hlnp_network_info &network(int row) { return hlnp->allHlnpDevice[row].zcm.hlnpnetwork; }

    HLNP *hlnp = nullptr;
    QUdpSocket *socket = nullptr;
    QHash<QString, QUdpSocket *> devices;
};

void TestDatagrams::init()
{
    hlnp = new HLNP;
    hlnp->scanSlot(QStringLiteral("clear"), 0); // the counters live beside the object
    debugScanDeviceCount = 0;
    socket = hlnp->findChild<QUdpSocket *>();
    QVERIFY(socket != nullptr);
    QVERIFY(socket->bind(QHostAddress(ownLoopback(1)), 0));
}

void TestDatagrams::cleanup()
{
    qDeleteAll(devices);
    devices.clear();
    delete hlnp;
    hlnp = nullptr;
}

void TestDatagrams::send(const QByteArray &datagram, int from, quint16 port)
{
    QUdpSocket *&device = devices[QStringLiteral("%1:%2").arg(from).arg(port)];
    if (device == nullptr) {
        device = new QUdpSocket;
        if (!device->bind(QHostAddress(ownLoopback(from)), port))
            qFatal("No device at %s: %s", qPrintable(ownLoopback(from)), qPrintable(device->errorString()));
    }
    if (device->writeDatagram(datagram, socket->localAddress(), socket->localPort()) != datagram.size())
        qFatal("A device can't answer: %s", qPrintable(device->errorString()));
}

void TestDatagrams::collect()
{
    do {
        hlnp->processDatagrams();
    } while (!hlnp->scanDone);
}

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

void TestDatagrams::aLongDatagramIsCutAndDropped()
{
    send(numberedRecord(1, ownLoopback(10)).datagram());
    hlnp->processDatagrams();
    QByteArray tooLong = modelNameReply(QByteArray("long") + QByteArray(43, '\0'));
    QCOMPARE(tooLong.size(), 51);
    send(tooLong);
    hlnp->processDatagrams();
    QVERIFY(network(0).modelname.isEmpty());
    tooLong[1] = 50; // the length field happens to say what is left of it
    send(tooLong);
    hlnp->processDatagrams();
    QCOMPARE(network(0).modelname, QStringLiteral("long"));
}

void TestDatagrams::exactlyElevenReads()
{
    for (int i = 1; i <= 12; ++i)
        send(numberedRecord(i, QStringLiteral("10.0.0.%1").arg(i)).datagram());
    support::Stopwatch clock;
    hlnp->processDatagrams();
    VERIFY_TOOK(clock, 0, 1000);
    QCOMPARE(hlnp->deviceCount, 11);
    QCOMPARE(hlnp->scanDone, false);

    clock.restart();
    hlnp->processDatagrams();
    QVERIFY(clock.elapsed() >= 1000);
    QCOMPARE(hlnp->deviceCount, 12);
    QCOMPARE(hlnp->scanDone, true);
}

void TestDatagrams::anEmptyCollectionTakesElevenSleeps()
{
    const LogCapture log;
    support::Stopwatch clock;
    hlnp->processDatagrams();
    VERIFY_TOOK(clock, 1100, 10000);
    QCOMPARE(LogCapture::count(QStringLiteral("processDatagrams() Read length :")), 11);
}

void TestDatagrams::anUnboundSocketChangesNothing()
{
    HLNP unbound;
    const LogCapture log; // the toolkit complains about each read
    support::Stopwatch clock;
    unbound.processDatagrams();
    QVERIFY(clock.elapsed() >= 1100);
    QCOMPARE(unbound.deviceCount, 0);
    QCOMPARE(unbound.scanDone, true);
}

void TestDatagrams::foreignPortsAreAcceptedSixHundredAndSixtySixTimes()
{
    const LogCapture log;
    const DeviceRecord known = numberedRecord(1, QStringLiteral("10.0.0.1"));
    const auto repeatKnown = [this, &known](int times) {
        for (int i = 1; i <= times; ++i) {
            send(known.datagram(), 10, 6000);
            if (i % 11 == 0)
                hlnp->processDatagrams();
        }
        collect();
    };
    send(known.datagram()); // an accepted record: the count begins again
    collect();
    repeatKnown(665);
    send(numberedRecord(2, QStringLiteral("10.0.0.2")).datagram(), 10, 6000); // the 666th
    collect();
    QCOMPARE(hlnp->deviceCount, 2);

    repeatKnown(666);
    send(numberedRecord(3, QStringLiteral("10.0.0.3")).datagram(), 10, 6000); // the 667th
    collect();
    QCOMPARE(hlnp->deviceCount, 2);
    QVERIFY(network(2).macadd != QStringLiteral("02:5C:A7:10:00:03"));
    QCOMPARE(LogCapture::logs().filter(QStringLiteral("Sender port is not 5002. ReturnCount : 667")).size(),
             1);

    send(numberedRecord(3, QStringLiteral("10.0.0.3")).datagram()); // from the right port: taken, and
    send(numberedRecord(4, QStringLiteral("10.0.0.4")).datagram(), 10, 6000); // others are again
    collect();
    QCOMPARE(hlnp->deviceCount, 4);
}

void TestDatagrams::deviceHundredAndOneIsWrittenNowhere()
{
    for (int i = 1; i <= 102; ++i) {
        DeviceRecord record = numberedRecord(i, QStringLiteral("10.0.0.%1").arg(i));
        if (i > 100)
            record.name = "One too many";
        send(record.datagram());
        if (i % 11 == 0)
            hlnp->processDatagrams();
    }
    send(numberedRecord(5, QStringLiteral("10.0.0.5")).datagram()); // a duplicate leaves no remains either
    collect();
    QCOMPARE(hlnp->deviceCount, 100);
    QCOMPARE(network(99).ipadd, QStringLiteral("10.0.0.100"));
    for (int i = 0; i < 100; ++i)
        QCOMPARE(network(i).name, QStringLiteral("QKV720"));
    for (const hlnp_device_info &row : hlnp->qkvDevice)
        QVERIFY(row.zcm.hlnpnetwork.name.isEmpty() && row.zcm.hlnpnetwork.macadd.isEmpty());
    emit hlnp->zcmScanDone();
    QVERIFY(hlnp->qkvDeviceList().isEmpty());
}

void TestDatagrams::clearRestartsTheRowsAndKeepsTheTables()
{
    send(numberedRecord(1, QStringLiteral("10.0.0.1")).datagram());
    send(numberedRecord(2, QStringLiteral("10.0.0.2")).datagram());
    hlnp->processDatagrams();
    for (int row : {0, 1}) {
        network(row).vid = QStringLiteral("0588");
        network(row).pid = QStringLiteral("1501");
    }
    emit hlnp->zcmScanDone();
    const QStringList listed = {QStringLiteral("10.0.0.1"), QStringLiteral("10.0.0.2")};
    QCOMPARE(hlnp->qkvDeviceList(), listed);
    QSignalSpy number(hlnp, &HLNP::scanHlnpNumberSignal);
    hlnp->netcardlist = QStringList{QStringLiteral("[10.9.9.9] none")};
    const quint16 port = socket->localPort();
    hlnp->scanDone = false;
    hlnp->scanSlot(QStringLiteral("clear"), 7);
    QCOMPARE(number.size(), 1);
    QCOMPARE(number.first().first().toInt(), 0);
    QCOMPARE(socket->localPort(), port);
    QCOMPARE(hlnp->scanDone, false);
    QCOMPARE(hlnp->netcardlist.size(), 1);
    QCOMPARE(hlnp->deviceCount, 2);
    // Both tables keep the last scan, whole rows of it.
    QCOMPARE(hlnp->qkvDeviceList(), listed);
    for (int row : {0, 1}) {
        for (const hlnp_device_info &kept : {hlnp->allHlnpDevice[row], hlnp->qkvDevice[row]}) {
            const hlnp_network_info &record = kept.zcm.hlnpnetwork;
            QCOMPARE(record.ipadd, listed.at(row));
            QCOMPARE(record.macadd, QStringLiteral("02:5C:A7:10:00:0%1").arg(row + 1));
            QCOMPARE(record.name, QStringLiteral("QKV720"));
            QCOMPARE(record.maskadd + record.gatewayadd, QStringLiteral("255.255.255.0192.168.72.254"));
            QCOMPARE(record.vid + record.pid, QStringLiteral("05881501"));
            QCOMPARE(int(kept.series), row + 1);
        }
    }

    // And yet the next record goes to the first row.
    send(numberedRecord(3, QStringLiteral("10.0.0.3")).datagram());
    hlnp->processDatagrams();
    QCOMPARE(network(0).ipadd, QStringLiteral("10.0.0.3"));
    QCOMPARE(hlnp->deviceCount, 1);
}

QTEST_GUILESS_MAIN(TestDatagrams)
#include "tst_datagrams.moc"
