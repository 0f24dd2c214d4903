#include "datagrambench.h"
#include "tests/support/logcapture.h"
#include "tests/support/stopwatch.h"

using support::LogCapture;
using support::ownLoopback;

// What a collection reads and how long it takes, and where the tables and the counters end.
class TestCollections : public DatagramBench
{
    Q_OBJECT

private slots:
    void init() { DatagramBench::init(); }
    void cleanup() { DatagramBench::cleanup(); }
    void aLongDatagramIsCutAndDropped();
    void exactlyElevenReads();
    void anEmptyCollectionTakesElevenSleeps();
    void anUnboundSocketChangesNothing();
    void foreignPortsAreAcceptedSixHundredAndSixtySixTimes();
    void deviceHundredAndOneIsWrittenNowhere();
    void clearRestartsTheRowsAndKeepsTheTables();
};

void TestCollections::aLongDatagramIsCutAndDropped()
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

void TestCollections::exactlyElevenReads()
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

void TestCollections::anEmptyCollectionTakesElevenSleeps()
{
    const LogCapture log;
    support::Stopwatch clock;
    hlnp->processDatagrams();
    VERIFY_TOOK(clock, 1100, 10000);
    QCOMPARE(LogCapture::count(QStringLiteral("processDatagrams() Read length :")), 11);
}

void TestCollections::anUnboundSocketChangesNothing()
{
    HLNP unbound;
    const LogCapture log; // the toolkit complains about each read
    support::Stopwatch clock;
    unbound.processDatagrams();
    QVERIFY(clock.elapsed() >= 1100);
    QCOMPARE(unbound.deviceCount, 0);
    QCOMPARE(unbound.scanDone, true);
}

void TestCollections::foreignPortsAreAcceptedSixHundredAndSixtySixTimes()
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

void TestCollections::deviceHundredAndOneIsWrittenNowhere()
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

void TestCollections::clearRestartsTheRowsAndKeepsTheTables()
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

QTEST_GUILESS_MAIN(TestCollections)
#include "tst_collections.moc"
