#include "tests/device/devicebench.h"
#include "tests/support/stopwatch.h"

namespace {
const QString kVersionFailed = QStringLiteral("Get Version failed. \nDevice may be disconnected.");
}

// Connecting, losing and regaining a link, and what isConnected and connectionBroken say of it.
class LinkTest : public QObject
{
    Q_OBJECT

private slots:
    void startsDisconnected();
    void connectOnNetwork();
    void connectOnSerial();
    void versionTexts_data();
    void versionTexts();
    void networkVersionLengths_data();
    void networkVersionLengths();
    void anyDeviceTypeConnects();
    void silentDeviceTypeOnNetworkFails();
    void connectToNobody();
    void connectToClosedPort();
    void connectOnUnknownMethod();
    void failedFirstStatusLeavesTheFlagUp();
    void disconnectSendsNothingMore();
    void reconnectAfterDisconnect();
    void droppedSocketReconnectsSilently();
    void reconnectToARefusingUnit();
    void checkConnectionWithoutAddress();
    void shortReplyEndsTheConnection_data();
    void shortReplyEndsTheConnection();
    void fourBytesAreEnough();
    void oneShortReadIsMadeGoodButEndsTheLink();
    void silentNetworkUnitBreaksFourTimes();
    void wrongNetworkChecksumPasses();
    void lateNetworkReplyIsTakenByTheNext();
    void accessors();
};

void LinkTest::startsDisconnected()
{
    DeviceBench bench(kNetworkLink);
    QVERIFY(!bench.device->isConnected);
    QVERIFY(!bench.device->checkConnection());
    QCOMPARE(bench.broken.count(), 0);
    QVERIFY(bench.device->getFWVersion().isEmpty());
    QVERIFY(bench.device->deviceTypeRevision.isEmpty());
    QCOMPARE(bench.device->findChildren<QTimer *>().size(), 1);
    QVERIFY(!bench.device->findChild<QTimer *>()->isActive());
    QCOMPARE(bench.device->getHLNPNetcardList(), bench.device->hlnpObj->netcardlist);
    QVERIFY(bench.device->getHLNPDeviceList().isEmpty());
}

void LinkTest::connectOnNetwork()
{
    DeviceBench bench(kNetworkLink);
    support::Stopwatch timer;
    QCOMPARE(bench.device->connectDevice(kNetworkLink, bench.target()), QStringLiteral("OK"));
    QVERIFY(bench.device->isConnected);
    QCOMPARE(bench.frames(),
             QStringLiteral("00 06 03 00 6C 6F, 00 06 03 00 6F 72, 00 06 03 00 63 66, 00 06 03 00 60 63, "
                            "00 06 03 00 61 64, 00 06 03 00 62 65"));
    // One at a time: each frame left after the wait for the reply before.
    VERIFY_TOOK(timer, 300, 1800);
    QCOMPARE(bench.device->getFWVersion(), QStringLiteral("1.05"));
    QCOMPARE(bench.device->getFPGAVersion(), QStringLiteral("2.23"));
    QCOMPARE(bench.device->getBLVersion(), QStringLiteral("10.2a"));
    QVERIFY(bench.device->deviceTypeRevision.isEmpty());
    QCOMPARE(bench.broken.count(), 0);
}

void LinkTest::connectOnSerial()
{
    DeviceBench bench(kSerialLink);
    support::Stopwatch timer;
    QCOMPARE(bench.device->connectDevice(kSerialLink, bench.target()), QStringLiteral("OK"));
    QVERIFY(bench.device->isConnected);
    QCOMPARE(bench.frames(),
             QStringLiteral("03 00 6C 6F, 03 00 6F 72, 03 00 63 66, 03 00 60 63, 03 00 61 64, "
                            "03 00 62 65"));
    VERIFY_TOOK(timer, 900, 2400);
    QCOMPARE(bench.device->getBLVersion(), QStringLiteral("10.2a"));
    QCOMPARE(bench.broken.count(), 0);
}

void LinkTest::versionTexts_data()
{
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<QString>("texts");
    QTest::newRow("plain") << QByteArray::fromHex("01050223102A") << "1.05 2.23 10.2a";
    QTest::newRow("zeros") << QByteArray::fromHex("000000000000") << "0.00 0.00 0.00";
    QTest::newRow("high bytes") << QByteArray::fromHex("FFFF800F0F10") << "ff.ff 80.0f f.10";
}

void LinkTest::versionTexts()
{
    QFETCH(QByteArray, data);
    DeviceBench bench(kNetworkLink);
    bench.host.withUnit([&data](standin::Unit &unit) { unit.setData(standin::Version, data); });
    QVERIFY(bench.connectUnit());
    const QStringList texts = {bench.device->getFWVersion(), bench.device->getFPGAVersion(),
                               bench.device->getBLVersion()};
    QTEST(texts.join(QLatin1Char(' ')), "texts");
}

void LinkTest::networkVersionLengths_data()
{
    QTest::addColumn<int>("length");
    QTest::addColumn<bool>("accepted");
    QTest::newRow("4 bytes pass the transport and fail the version") << 4 << false;
    QTest::newRow("11 bytes") << 11 << false;
    QTest::newRow("12 bytes") << 12 << true;
}

void LinkTest::networkVersionLengths()
{
    QFETCH(int, length);
    QFETCH(bool, accepted);
    DeviceBench bench(kNetworkLink);
    bench.host.setFault(standin::Version, standin::Fault::shortened(length));
    const QString result = bench.device->connectDevice(kNetworkLink, bench.target());
    QCOMPARE(result, accepted ? QStringLiteral("OK") : kVersionFailed);
    QCOMPARE(bench.device->isConnected, accepted);
    QCOMPARE(bench.host.count(standin::Version), 1);
    QCOMPARE(bench.host.count(standin::DeviceType), accepted ? 1 : 0);
    QCOMPARE(bench.broken.count(), 0);
    if (accepted)
        QCOMPARE(bench.device->getBLVersion(), QStringLiteral("10.2a"));
}

void LinkTest::anyDeviceTypeConnects()
{
    DeviceBench bench(kNetworkLink);
    bench.host.setFault(standin::DeviceType, standin::Fault::refuse(0x81));
    QCOMPARE(bench.device->connectDevice(kNetworkLink, bench.target()), QStringLiteral("OK"));
}

void LinkTest::silentDeviceTypeOnNetworkFails()
{
    DeviceBench bench(kNetworkLink);
    bench.host.setFault(standin::DeviceType, standin::Fault::shortened(3));
    QCOMPARE(bench.device->connectDevice(kNetworkLink, bench.target()), kVersionFailed);
    QVERIFY(!bench.device->isConnected);
    QCOMPARE(bench.host.count(standin::DeviceType), 4);
    QCOMPARE(bench.broken.count(), 4);
    // The link itself was left open.
    QCOMPARE(bench.socket()->state(), QTcpSocket::ConnectedState);
}

void LinkTest::connectToNobody()
{
    DeviceBench bench(kNetworkLink);
    bench.host.setFault(standin::AnyCode, standin::Fault::silent());
    support::Stopwatch timer;
    QCOMPARE(bench.device->connectDevice(kNetworkLink, bench.target()), kVersionFailed);
    // Four times the sleep and the wait for bytes, and the sleeps of the ladder between them.
    VERIFY_TOOK(timer, 4 * 1050 + 1800 - 10, 4 * 1050 + 1800 + 1500);
    QCOMPARE(bench.broken.count(), 4);
    QVERIFY(!bench.device->isConnected);
    QCOMPARE(bench.host.codes(), (QVector<int>{0x6C, 0x6C, 0x6C, 0x6C}));
}

void LinkTest::connectToClosedPort()
{
    DeviceBench bench(kNetworkLink);
    bench.host.stopListening();
    support::Stopwatch timer;
    QCOMPARE(bench.device->connectDevice(kNetworkLink, bench.target()), kVersionFailed);
    // The ladder doesn't connect again: what is left are its own sleeps.
    VERIFY_TOOK(timer, 1800, 1800 + 1500);
    QCOMPARE(bench.broken.count(), 4);
    QVERIFY(!bench.device->isConnected);
}

void LinkTest::connectOnUnknownMethod()
{
    DeviceBench bench(kNetworkLink);
    for (const uint method : {0U, 3U, 99U})
        QCOMPARE(bench.device->connectDevice(method, bench.target()), QStringLiteral("NOT OK"));
    QVERIFY(!bench.device->isConnected);
    QCOMPARE(bench.host.record().size(), 0);
    QCOMPARE(bench.socket()->state(), QTcpSocket::UnconnectedState);
}

void LinkTest::failedFirstStatusLeavesTheFlagUp()
{
    DeviceBench bench(kSerialLink);
    bench.host.setFault(standin::OutputRouting, standin::Fault::silent());
    QCOMPARE(bench.device->connectDevice(kSerialLink, bench.target()),
             QStringLiteral("Get status failed. Please try again."));
    QVERIFY(bench.device->isConnected);
    QCOMPARE(bench.broken.count(), 0);
}

void LinkTest::disconnectSendsNothingMore()
{
    DeviceBench bench(kNetworkLink);
    QVERIFY(bench.connectUnit());
    QCOMPARE(bench.device->disconnectDevice(kNetworkLink), 0U);
    QVERIFY(!bench.device->isConnected);
    QVERIFY(!bench.device->checkConnection());
    bench.device->setCKAngle(kNetworkLink, 1, 2);
    bench.device->resetCKAngle(kNetworkLink);
    QCOMPARE(bench.device->refreshVideoInRes(kNetworkLink), QString());
    QCOMPARE(bench.device->refreshStatus(kNetworkLink), QStringLiteral("Ethernet not Connected!"));
    QCOMPARE(bench.socket()->state(), QTcpSocket::UnconnectedState);
    QCOMPARE(bench.host.record().size(), 0);
    QCOMPARE(bench.broken.count(), 0);
    QCOMPARE(bench.device->disconnectDevice(7), 0U);
}

void LinkTest::reconnectAfterDisconnect()
{
    DeviceBench bench(kNetworkLink);
    QVERIFY(bench.connectUnit());
    bench.device->ckAngleL = 77;
    bench.device->disconnectDevice(kNetworkLink);
    QVERIFY(bench.connectUnit());
    QVERIFY(bench.device->isConnected);
    QCOMPARE(bench.device->ckAngleL, 77U); // the fields outlive every connection
    QTRY_COMPARE(bench.host.clientCount(), 1);
}

void LinkTest::droppedSocketReconnectsSilently()
{
    DeviceBench bench(kNetworkLink);
    QVERIFY(bench.connectUnit());
    QVERIFY(bench.letSocketFall());
    QVERIFY(bench.device->isConnected);
    bench.device->getCKShadow(kNetworkLink);
    QVERIFY(bench.device->isConnected);
    QCOMPARE(bench.frames(), QStringLiteral("00 06 03 00 55 58"));
    QCOMPARE(int(bench.device->ckShadow.level), 250);
    QCOMPARE(bench.broken.count(), 0);
}

void LinkTest::reconnectToARefusingUnit()
{
    DeviceBench bench(kNetworkLink);
    QVERIFY(bench.connectUnit());
    bench.host.stopListening();
    QVERIFY(bench.letSocketFall());
    // The reconnect is under way, so the check passes; the frame is what comes to grief.
    support::Stopwatch timer;
    bench.device->getCKShadow(kNetworkLink);
    QVERIFY(timer.elapsed() >= 1800);
    QVERIFY(!bench.device->isConnected);
    QCOMPARE(bench.broken.count(), 4);
    QCOMPARE(bench.host.record().size(), 0);

    // Only a fresh connect recovers.
    QVERIFY(bench.host.listenAgain());
    bench.device->getCKShadow(kNetworkLink);
    QCOMPARE(bench.host.record().size(), 0);
    QVERIFY(bench.connectUnit());
    bench.device->getCKShadow(kNetworkLink);
    QCOMPARE(bench.host.record().size(), 1);
}

void LinkTest::checkConnectionWithoutAddress()
{
    // A flag that is up without a link: the reconnect to no address can only fail, at once or in the exchange.
    DeviceBench bench(kNetworkLink);
    bench.device->isConnected = true;
    bench.device->getCKShadow(kNetworkLink);
    QVERIFY(!bench.device->isConnected);
    QVERIFY(bench.broken.count() >= 1);
}

void LinkTest::shortReplyEndsTheConnection_data()
{
    QTest::addColumn<int>("length");
    for (int length = 1; length <= 3; ++length)
        QTest::addRow("%d bytes", length) << length;
}

void LinkTest::shortReplyEndsTheConnection()
{
    QFETCH(int, length);
    DeviceBench bench(kNetworkLink);
    QVERIFY(bench.connectUnit());
    bench.host.setFault(standin::Angle, standin::Fault::shortened(length));
    bench.device->ckAngleL = 99;
    uint l = 5;
    uint r = 6;
    bench.device->getCKAngle(kNetworkLink, &l, &r);
    QVERIFY(!bench.device->isConnected);
    QCOMPARE(bench.broken.count(), 4);
    QCOMPARE(bench.host.count(standin::Angle), 4);
    QCOMPARE(bench.device->ckAngleL, 99U);
    QCOMPARE(l, 5U);
    QCOMPARE(r, 6U);
}

void LinkTest::fourBytesAreEnough()
{
    DeviceBench bench(kNetworkLink);
    QVERIFY(bench.connectUnit());
    bench.host.setFault(standin::Angle, standin::Fault::shortened(4));
    bench.device->ckAngleL = 99;
    uint l = 5;
    uint r = 6;
    bench.device->getCKAngle(kNetworkLink, &l, &r);
    QVERIFY(bench.device->isConnected);
    QCOMPARE(l, 0U);
    QCOMPARE(r, 0U);
}

void LinkTest::oneShortReadIsMadeGoodButEndsTheLink()
{
    DeviceBench bench(kNetworkLink);
    QVERIFY(bench.connectUnit());
    bench.host.setFault(standin::Angle, standin::Fault::shortened(3, 1));
    uint l = 5;
    uint r = 6;
    bench.device->getCKAngle(kNetworkLink, &l, &r);
    QCOMPARE(l, 45U); // the second attempt was read
    QCOMPARE(bench.host.count(standin::Angle), 2);
    QCOMPARE(bench.broken.count(), 1);
    QVERIFY(!bench.device->isConnected); // and yet the link counts as lost
    bench.device->getCKShadow(kNetworkLink);
    QCOMPARE(bench.host.count(standin::Shadow), 0);
}

void LinkTest::silentNetworkUnitBreaksFourTimes()
{
    DeviceBench bench(kNetworkLink);
    QVERIFY(bench.connectUnit());
    bench.host.setFault(standin::Bright, standin::Fault::silent());
    QVERIFY(bench.framesComeApart({1350, 1550, 2050}, [&bench] { bench.device->getCKBright(kNetworkLink); }));
    QCOMPARE(bench.broken.count(), 4);
    QCOMPARE(bench.host.count(standin::Bright), 4);
    QVERIFY(!bench.device->isConnected);
}

void LinkTest::wrongNetworkChecksumPasses()
{
    DeviceBench bench(kNetworkLink);
    QVERIFY(bench.connectUnit());
    bench.host.setFault(standin::Bright, standin::Fault::wrongChecksum());
    bench.device->getCKBright(kNetworkLink);
    QCOMPARE(bench.host.count(standin::Bright), 1);
    QCOMPARE(int(bench.device->ckBright.level), 300);
}

void LinkTest::lateNetworkReplyIsTakenByTheNext()
{
    DeviceBench bench(kNetworkLink);
    QVERIFY(bench.connectUnit());
    bench.host.withUnit([](standin::Unit &unit) {
        unit.setData(standin::Angle, QByteArray::fromHex("0102"));
        unit.setData(standin::EdgeFix, QByteArray::fromHex("01030405"));
    });
    QByteArray ask = QByteArray::fromHex("000603005154");
    QByteArray reply;
    bench.host.setFault(standin::Angle, standin::Fault::late(1200, 1));
    QCOMPARE(bench.device->hlnpIO(&ask, &reply), -1);
    QVERIFY(!bench.device->isConnected);
    QTest::qSleep(400);
    bench.device->isConnected = true;
    bench.device->getEdgeFix(kNetworkLink);
    QVERIFY(bench.device->edgeFixEnable); // the first byte of the angle's reply is 1
    QCOMPARE(bench.device->edge_ShrinkLeft, 2U);
}

void LinkTest::accessors()
{
    DeviceBench bench(kNetworkLink);
    qkv720 &device = *bench.device;
    device.inputFG = {input_source(1), resolution(11), 21};
    device.inputBG = {input_source(2), resolution(12), 22};
    device.inputAUX = {input_source(3), resolution(13), 23};
    device.inputSYNC = {input_source(4), resolution(14), 24};
    device.PGM = {FG, true, false};
    device.PVW = {BG, false, true};
    device.PGM_HDMI = {AUX, true, false};
    device.PVW_HDMI = {COMP, false, true};
    for (uint target = 1; target <= 4; ++target) {
        QCOMPARE(device.getInputRes(target), 10 + target);
        QCOMPARE(device.getInputFreeze(target), 20 + int(target));
        QCOMPARE(device.getInputSource(target), target == 4 ? 0U : target);
        QCOMPARE(device.getOutSource(target), target == 4 ? 6U : target);
        QCOMPARE(device.getOutLock(target), target % 2 == 1);
        QCOMPARE(device.getOutMirror(target), target % 2 == 0);
    }
    for (const uint target : {0U, 5U, 0xFFFFFFFFU}) {
        QCOMPARE(device.getInputRes(target), 0U);
        QCOMPARE(device.getInputFreeze(target), 0);
        QCOMPARE(device.getInputSource(target), 0U);
        QCOMPARE(device.getOutSource(target), 0U);
        QVERIFY(!device.getOutLock(target));
        QVERIFY(!device.getOutMirror(target));
    }
    device.videoOut = {P60_2160, YUV422, ERROR};
    QCOMPARE(device.getVideoOutRes(), 24U);
    QCOMPARE(device.getVideoOutColorFormat(), 2U);
    QCOMPARE(device.getVideoOutStd(), 999U);
    device.setInputGenlock(-128);
    device.setInputGenlock_H(40000);
    device.setInputGenlock_V(-1);
    device.genlockStatus = -3;
    QCOMPARE(device.getInputGenlock(), -128);
    QCOMPARE(device.getInputGenlock_H(), -25536);
    QCOMPARE(device.getInputGenlock_V(), -1);
    QCOMPARE(device.getInputGenlockStatus(), -3);
    QCOMPARE(bench.host.record().size(), 0);
}

QTEST_GUILESS_MAIN(LinkTest)
#include "tst_link.moc"
