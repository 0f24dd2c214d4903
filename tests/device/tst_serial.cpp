#include "tests/device/devicebench.h"
#include "tests/support/stopwatch.h"

namespace {
const QString kVersionFailed = QStringLiteral("Get Version failed. \nDevice may be disconnected.");
}

// The serial link and its port: lengths, checksums, silence.
class SerialTest : public QObject
{
    Q_OBJECT

private slots:
    void serialVersionLengths_data();
    void serialVersionLengths();
    void silentDeviceTypeOnSerialConnects();
    void wrongChecksumsEndTheConnect_data();
    void wrongChecksumsEndTheConnect();
    void connectToMissingSerialPort();
    void connectClosesTheSerialPort();
    void silentSerialUnitRaisesNothing();
    void wrongSerialChecksumIsRetried();
    void serialTransportResults();
    void serialTransportOnClosedPort();
    void splitSerialReplySpoilsTheNext();
    void serialPortClass();
};

void SerialTest::serialVersionLengths_data()
{
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<bool>("accepted");
    QTest::addColumn<QString>("loader");
    QTest::newRow("nothing") << QByteArray() << false << QString();
    QTest::newRow("3 bytes") << QByteArray::fromHex("03006C") << false << QString();
    QTest::newRow("4 bytes") << QByteArray::fromHex("03006C6F") << true << "0.00";
    QTest::newRow("8 bytes") << withChecksum(QByteArray::fromHex("09006C01050223")) << true << "a0.00";
}

void SerialTest::serialVersionLengths()
{
    QFETCH(QByteArray, body);
    QFETCH(bool, accepted);
    DeviceBench bench(kSerialLink);
    bench.host.setFault(standin::Version, standin::Fault::answer(body));
    const QString result = bench.device->connectDevice(kSerialLink, bench.target());
    QCOMPARE(result, accepted ? QStringLiteral("OK") : kVersionFailed);
    QCOMPARE(bench.device->isConnected, accepted);
    QTEST(bench.device->getBLVersion(), "loader");
    QCOMPARE(bench.host.count(standin::Version), 1);
}

void SerialTest::silentDeviceTypeOnSerialConnects()
{
    DeviceBench bench(kSerialLink);
    bench.host.setFault(standin::DeviceType, standin::Fault::silent());
    QCOMPARE(bench.device->connectDevice(kSerialLink, bench.target()), QStringLiteral("OK"));
    QVERIFY(bench.device->isConnected);
    QCOMPARE(bench.host.count(standin::DeviceType), 1);
}

void SerialTest::wrongChecksumsEndTheConnect_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<QVector<int>>("codes");
    QTest::newRow("version") << int(standin::Version) << QVector<int>{0x6C, 0x6C, 0x6C, 0x6C};
    QTest::newRow("device type") << int(standin::DeviceType) << QVector<int>{0x6C, 0x6F, 0x6F, 0x6F, 0x6F};
}

// Both greetings are asked four times, as an ordinary command is; the port stays open.
void SerialTest::wrongChecksumsEndTheConnect()
{
    QFETCH(int, code);
    QFETCH(QVector<int>, codes);
    DeviceBench bench(kSerialLink);
    bench.host.setFault(code, standin::Fault::wrongChecksum());
    QString result;
    QVERIFY(bench.framesComeApart({450, 650, 1150}, [&bench, &result] {
        bench.device->isConnected = false;
        result = bench.device->connectDevice(kSerialLink, bench.target());
    }));
    QCOMPARE(result, kVersionFailed);
    QCOMPARE(bench.host.codes(), codes);
    QVERIFY(!bench.device->isConnected);
    QCOMPARE(bench.broken.count(), 0);

    // Three of them are made good by the fourth attempt.
    bench.host.setFault(code, standin::Fault::wrongChecksum(3));
    QCOMPARE(bench.device->connectDevice(kSerialLink, bench.target()), QStringLiteral("OK"));
}

void SerialTest::connectToMissingSerialPort()
{
    DeviceBench bench(kSerialLink);
    QSerialPort port(QStringLiteral("/dev/no-such-port"));
    QVERIFY(!port.open(QIODevice::ReadWrite));
    QCOMPARE(bench.device->connectDevice(kSerialLink, QStringLiteral("/dev/no-such-port")),
             port.errorString());
    QVERIFY(!bench.device->isConnected);
    QCOMPARE(bench.broken.count(), 0);
}

void SerialTest::connectClosesTheSerialPort()
{
    DeviceBench serial(kSerialLink);
    QVERIFY(serial.connectUnit());
    DeviceBench network(kNetworkLink);
    QCOMPARE(serial.device->connectDevice(kNetworkLink, network.target()), QStringLiteral("OK"));
    QByteArray frame("x");
    QCOMPARE(serial.device->serialObj->writeData(frame), qint64(-1));
    // The other way round the socket stays open: only disconnectDevice closes it.
    QCOMPARE(serial.device->connectDevice(kSerialLink, serial.target()), QStringLiteral("OK"));
    QCOMPARE(serial.socket()->state(), QTcpSocket::ConnectedState);
    serial.device->disconnectDevice(kNetworkLink);
    QCOMPARE(serial.socket()->state(), QTcpSocket::UnconnectedState);
}

void SerialTest::silentSerialUnitRaisesNothing()
{
    DeviceBench bench(kSerialLink);
    QVERIFY(bench.connectUnit());
    bench.host.setFault(standin::AnyCode, standin::Fault::silent());
    support::Stopwatch timer;
    bench.device->getCKBright(kSerialLink);
    VERIFY_TOOK(timer, 1149, 2600); // one attempt, no retry
    QCOMPARE(bench.host.count(standin::Bright), 1);
    QCOMPARE(bench.broken.count(), 0);
    QVERIFY(bench.device->isConnected);

    bench.device->getVideoOut(kSerialLink);
    QCOMPARE(bench.host.count(standin::OutputStandard), 1);
    QVERIFY(!bench.device->isConnected); // the only read that says so
    QCOMPARE(bench.broken.count(), 0);
}

void SerialTest::wrongSerialChecksumIsRetried()
{
    DeviceBench bench(kSerialLink);
    QVERIFY(bench.connectUnit());
    QVERIFY(bench.framesComeApart({450, 650, 1150}, [&bench] {
        bench.host.setFault(standin::Bright, standin::Fault::wrongChecksum(3));
        bench.device->getCKBright(kSerialLink);
    }));
    QCOMPARE(bench.host.count(standin::Bright), 4);
    QCOMPARE(int(bench.device->ckBright.level), 300);

    bench.host.clearRecord();
    bench.host.setFault(standin::Bright, standin::Fault::wrongChecksum());
    bench.device->ckBright.level = 1;
    bench.device->getCKBright(kSerialLink);
    QCOMPARE(bench.host.count(standin::Bright), 4);
    QCOMPARE(int(bench.device->ckBright.level), 1);
    QVERIFY(bench.device->isConnected);
    QCOMPARE(bench.broken.count(), 0);
}

void SerialTest::serialTransportResults()
{
    DeviceBench bench(kSerialLink);
    QVERIFY(bench.connectUnit());
    QByteArray frame = QByteArray::fromHex("03005154");
    QByteArray reply("stale");
    QCOMPARE(bench.device->serialIO(&frame, &reply), 4);
    QCOMPARE(reply.toHex(), QByteArray("0500512d2db0"));

    bench.host.setFault(standin::Angle, standin::Fault::wrongChecksum());
    QCOMPARE(bench.device->serialIO(&frame, &reply), -24);
    QCOMPARE(reply.size(), 6); // the bytes stay

    // Three bytes are not checked, four are.
    bench.host.setFault(standin::Angle, standin::Fault::answer(QByteArray::fromHex("0299FF")));
    QCOMPARE(bench.device->serialIO(&frame, &reply), 4);
    QCOMPARE(reply.toHex(), QByteArray("0299ff"));
    bench.host.setFault(standin::Angle, standin::Fault::answer(QByteArray::fromHex("0299FF00")));
    QCOMPARE(bench.device->serialIO(&frame, &reply), -24);
    QCOMPARE(reply.toHex(), QByteArray("0299ff00"));
    bench.host.setFault(standin::Angle, standin::Fault::silent());
    QCOMPARE(bench.device->serialIO(&frame, &reply), 4);
    QVERIFY(reply.isEmpty());

    // A frame of three bytes or fewer touches nothing.
    for (const char *hex : {"", "03", "0300", "030051"}) {
        QByteArray stub = QByteArray::fromHex(hex);
        reply = "kept";
        support::Stopwatch timer;
        QCOMPARE(bench.device->serialIO(&stub, &reply), -1);
        VERIFY_TOOK(timer, 0, 140); // not even the shortest sleep
        QCOMPARE(reply, QByteArray("kept"));
    }
    QVERIFY(bench.device->isConnected);
    QCOMPARE(bench.broken.count(), 0);
}

void SerialTest::serialTransportOnClosedPort()
{
    DeviceBench bench(kSerialLink);
    bench.device->isConnected = true;
    QByteArray frame = QByteArray::fromHex("03005154");
    QByteArray reply;
    support::Stopwatch timer;
    QCOMPARE(bench.device->serialIO(&frame, &reply), -1);
    VERIFY_TOOK(timer, 900, 1800);
    QVERIFY(!bench.device->isConnected);
    QCOMPARE(bench.broken.count(), 1);
}

void SerialTest::splitSerialReplySpoilsTheNext()
{
    DeviceBench bench(kSerialLink);
    QVERIFY(bench.connectUnit());
    // The tail comes while the ladder sleeps, and the next read takes it in front of the next reply.
    bench.host.setFault(standin::Angle, standin::Fault::split(5, 300, 1));
    QByteArray frame = QByteArray::fromHex("03005154");
    QByteArray reply;
    QCOMPARE(bench.device->serialIO(&frame, &reply), -24);
    QCOMPARE(reply.size(), 5);
    QTest::qSleep(300);
    QCOMPARE(bench.device->serialIO(&frame, &reply), -24);
    QCOMPARE(reply.size(), 7);
    QCOMPARE(bench.device->serialIO(&frame, &reply), 4);
    QCOMPARE(reply.size(), 6);
}

void SerialTest::serialPortClass()
{
    DeviceBench bench(kSerialLink);
    serialPort port;
    QByteArray data("x");
    QCOMPARE(port.writeData(data), qint64(-1));
    port.readData(data);
    QVERIFY(data.isEmpty());
    QCOMPARE(port.openSerialPort(bench.target()), QStringLiteral("OK"));
    data = QByteArray::fromHex("03006C6F");
    QCOMPARE(port.writeData(data), qint64(4));
    support::Stopwatch timer;
    port.readData(data);
    VERIFY_TOOK(timer, 0, 900);
    QVERIFY(data.size() > 0);
    QTest::qSleep(100);
    timer.restart();
    data = "stale";
    bench.host.clearRecord();
    port.readData(data);
    port.readData(data);
    VERIFY_TOOK(timer, 999, 2500);
    QVERIFY(data.isEmpty());

    port.handleError(QSerialPort::TimeoutError);
    data = QByteArray::fromHex("03006C6F");
    QCOMPARE(port.writeData(data), qint64(4));
    port.handleError(QSerialPort::ResourceError);
    QCOMPARE(port.writeData(data), qint64(-1));
    port.closeSerialPort(); // closed already: nothing happens
    port.about();

    QStringList names;
    for (const QSerialPortInfo &info : QSerialPortInfo::availablePorts())
        names.append(info.portName());
    QCOMPARE(port.getSerialInfoList(), names);
    QCOMPARE(bench.device->getSerialInfoList(), names);
}

QTEST_GUILESS_MAIN(SerialTest)
#include "tst_serial.moc"
