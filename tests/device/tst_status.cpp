#include "tests/device/devicebench.h"
#include "tests/support/stopwatch.h"

namespace {
const QString kOk = QStringLiteral("OK");
const QString kDisconnected = QStringLiteral("Device disconnected.");
const QString kVinFailed = QStringLiteral("Get Vin Resolution failed. \nDevice may be disconnected.");
} // namespace

// First status and polling: the steps, their uneven ladders, and the words when one fails.
class StatusTest : public QObject
{
    Q_OBJECT

private slots:
    void healthy_data();
    void healthy();
    void unknownMethod();
    void networkStepFails_data();
    void networkStepFails();
    void networkLadderIsShort();
    void networkShortReadMadeGood();
    void networkNotConnected();
    void serialFirstReply_data();
    void serialFirstReply();
    void serialFirstWriteFails();
    void serialSilence_data();
    void serialSilence();
    void serialChecksum_data();
    void serialChecksum();
    void videoInResNetworkLadder();
    void videoOutLadder_data();
    void videoOutLadder();
    void videoOutFailureClearsTheFlag();
    void lockBitsAboveTheFourAreIgnored();
    void earlierStepsStayUpdated();
};

void StatusTest::healthy_data()
{
    QTest::addColumn<uint>("method");
    QTest::addColumn<int>("leastMs");
    QTest::newRow("network") << uint(kNetworkLink) << 200;
    QTest::newRow("serial") << uint(kSerialLink) << 600;
}

void StatusTest::healthy()
{
    QFETCH(uint, method);
    QFETCH(int, leastMs);
    DeviceBench bench(method);
    QVERIFY(bench.connectUnit());
    bench.host.withUnit([](standin::Unit &unit) {
        unit.setData(standin::OutputRouting, QByteArray::fromHex("01020306FAF5"));
        unit.setData(standin::OutputStandard, QByteArray::fromHex("210201"));
        unit.setData(standin::InputSelection, QByteArray::fromHex("04030205 80 FFFF 0080"));
        unit.setData(standin::InputStandard, QByteArray::fromHex("01 20 21 FF 83"));
    });
    support::Stopwatch timer;
    QCOMPARE(bench.device->refreshStatus(method), kOk);
    VERIFY_TOOK(timer, leastMs, leastMs + 1000);
    QCOMPARE(bench.host.codes(), (QVector<int>{0x63, 0x60, 0x61, 0x62}));

    const qkv720 &device = *bench.device;
    QCOMPARE(device.getOutSource(1), 1U);
    QCOMPARE(device.getOutSource(4), 6U);
    QVERIFY(!device.PGM.lock && device.PVW.lock && !device.PGM_HDMI.lock && device.PVW_HDMI.lock);
    QVERIFY(device.PGM.mirror && !device.PVW.mirror && device.PGM_HDMI.mirror && !device.PVW_HDMI.mirror);
    QCOMPARE(device.getVideoOutRes(), 0x21U); // no standard, and kept as it stands
    QCOMPARE(device.getInputSource(1), 4U);
    QCOMPARE(device.inputFG.freeze, 1);
    QCOMPARE(device.inputBG.freeze, 0);
    QCOMPARE(device.inputAUX.freeze, 1);
    QCOMPARE(device.genlockSrc, -128);
    QCOMPARE(device.getInputGenlock_H(), -1);
    QCOMPARE(device.getInputGenlock_V(), -32768);
    QCOMPARE(device.getInputRes(2), 32U);
    QCOMPARE(device.getInputRes(4), 0xFFFFFFFFU);
    QCOMPARE(device.getInputGenlockStatus(), -125);
    QCOMPARE(int(device.inputSYNC.source), 0); // sync has neither a source nor a freeze flag
    QCOMPARE(device.inputSYNC.freeze, 0);
}

void StatusTest::unknownMethod()
{
    DeviceBench bench(kNetworkLink);
    QVERIFY(bench.connectUnit());
    QCOMPARE(bench.device->refreshStatus(3), QStringLiteral("NOT OK"));
    QCOMPARE(bench.device->refreshVideoInRes(3), QString());
    bench.device->getVideoOut(3);
    QVERIFY(bench.device->isConnected);
    QCOMPARE(bench.host.record().size(), 0);
}

void StatusTest::networkStepFails_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<int>("framesBefore");
    QTest::newRow("routing") << 0x63 << 0;
    QTest::newRow("output standard") << 0x60 << 1;
    QTest::newRow("input selection") << 0x61 << 2;
    QTest::newRow("input standards") << 0x62 << 3;
}

void StatusTest::networkStepFails()
{
    QFETCH(int, code);
    QFETCH(int, framesBefore);
    DeviceBench bench(kNetworkLink);
    QVERIFY(bench.connectUnit());
    bench.host.setFault(code, standin::Fault::shortened(3));
    QCOMPARE(bench.device->refreshStatus(kNetworkLink), kDisconnected);
    QVERIFY(!bench.device->isConnected);
    QCOMPARE(bench.host.record().size(), framesBefore + 3); // three attempts in every step
    QCOMPARE(bench.broken.count(), 3);
}

void StatusTest::networkLadderIsShort()
{
    for (const int code : {0x63, 0x60, 0x61}) {
        DeviceBench bench(kNetworkLink);
        QVERIFY(bench.connectUnit());
        bench.host.setFault(code, standin::Fault::shortened(3));
        QString result;
        QVERIFY(bench.framesComeApart(
            {350, 350}, [&bench, &result] { result = bench.device->refreshStatus(kNetworkLink); }));
        QCOMPARE(result, kDisconnected);
        QCOMPARE(bench.host.count(code), 3);
    }
}

// A step that a retry made good goes on, but the last step finds the flag down and ends without words.
void StatusTest::networkShortReadMadeGood()
{
    for (const int code : {0x63, 0x60, 0x61}) {
        DeviceBench bench(kNetworkLink);
        QVERIFY(bench.connectUnit());
        bench.host.setFault(code, standin::Fault::shortened(3, 1));
        QCOMPARE(bench.device->refreshStatus(kNetworkLink), QString());
        QCOMPARE(bench.host.record().size(),
                 4); // three steps, one of them twice; none for the input standards
        QCOMPARE(bench.host.count(0x62), 0);
        QCOMPARE(bench.broken.count(), 1);
        QVERIFY(!bench.device->isConnected);
    }
}

void StatusTest::networkNotConnected()
{
    DeviceBench bench(kNetworkLink);
    QCOMPARE(bench.device->refreshStatus(kNetworkLink), QStringLiteral("Ethernet not Connected!"));
    QCOMPARE(bench.device->refreshVideoInRes(kNetworkLink), QString());
    QCOMPARE(bench.broken.count(), 0);
}

void StatusTest::serialFirstReply_data()
{
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<QString>("words");
    const QString tooShort = QStringLiteral("Get status failed. Please try again.");
    QTest::newRow("silence") << QByteArray() << tooShort;
    QTest::newRow("3 bytes") << QByteArray::fromHex("028183") << tooShort;
    QTest::newRow("4 bytes, wrong sum") << QByteArray::fromHex("03006300") << "-24";
    QTest::newRow("whole, wrong sum") << QByteArray::fromHex("09006301020304000077") << "-24";
    QTest::newRow("4 bytes, right sum") << QByteArray::fromHex("03006366") << kOk;
}

void StatusTest::serialFirstReply()
{
    QFETCH(QByteArray, body);
    QFETCH(QString, words);
    DeviceBench bench(kSerialLink);
    QVERIFY(bench.connectUnit());
    bench.host.setFault(0x63, standin::Fault::answer(body));
    bench.device->PGM = {COMP, true, true};
    QCOMPARE(bench.device->refreshStatus(kSerialLink), words);
    QCOMPARE(bench.host.count(0x63), 1); // no second try
    QCOMPARE(bench.host.record().size(), words == kOk ? 4 : 1);
    QCOMPARE(bench.device->PGM.lock, words != kOk);
    QVERIFY(bench.device->isConnected);
    QCOMPARE(bench.broken.count(), 0);
}

void StatusTest::serialFirstWriteFails()
{
    DeviceBench bench(kSerialLink); // never opened
    bench.device->isConnected = true;
    support::Stopwatch timer;
    QCOMPARE(bench.device->refreshStatus(kSerialLink), QStringLiteral("-1"));
    VERIFY_TOOK(timer, 900, 1800);
    QVERIFY(!bench.device->isConnected);
    QCOMPARE(bench.broken.count(), 1);
}

void StatusTest::serialSilence_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("words");
    QTest::newRow("output standard") << 0x60 << "Get Video Out failed. \nDevice may be disconnected.";
    QTest::newRow("input selection") << 0x61 << "Get Input Source failed. \nDevice may be disconnected.";
    QTest::newRow("input standards") << 0x62 << kVinFailed;
}

// Silence passes the serial transport, so no ladder retries it.
void StatusTest::serialSilence()
{
    QFETCH(int, code);
    QFETCH(QString, words);
    DeviceBench bench(kSerialLink);
    QVERIFY(bench.connectUnit());
    bench.host.setFault(code, standin::Fault::silent());
    QCOMPARE(bench.device->refreshStatus(kSerialLink), words);
    QCOMPARE(bench.host.count(code), 1);
    QVERIFY(bench.device->isConnected);
    QCOMPARE(bench.broken.count(), 0);
}

void StatusTest::serialChecksum_data()
{
    serialSilence_data();
}

// A wrong checksum is retried: three attempts, 300 and 500 ms apart.
void StatusTest::serialChecksum()
{
    QFETCH(int, code);
    QFETCH(QString, words);
    DeviceBench bench(kSerialLink);
    QVERIFY(bench.connectUnit());
    bench.host.setFault(code, standin::Fault::wrongChecksum(2));
    QCOMPARE(bench.device->refreshStatus(kSerialLink), kOk);
    QCOMPARE(bench.host.count(code), 3);

    bench.host.setFault(code, standin::Fault::wrongChecksum());
    QString result;
    QVERIFY(bench.framesComeApart({450, 650},
                                  [&bench, &result] { result = bench.device->refreshStatus(kSerialLink); }));
    QCOMPARE(result, words);
    QCOMPARE(bench.host.count(code), 3);
    QVERIFY(bench.device->isConnected);
    QCOMPARE(bench.broken.count(), 0);
}

void StatusTest::videoInResNetworkLadder()
{
    DeviceBench bench(kNetworkLink);
    QVERIFY(bench.connectUnit());
    bench.host.setFault(0x62, standin::Fault::shortened(3));
    bench.device->inputFG.res = PAL;
    QString result;
    QVERIFY(bench.framesComeApart(
        {350, 550}, [&bench, &result] { result = bench.device->refreshVideoInRes(kNetworkLink); }));
    QCOMPARE(result, kDisconnected);
    QCOMPARE(bench.host.count(0x62), 3);
    QCOMPARE(int(bench.device->inputFG.res), int(PAL));
}

void StatusTest::videoOutLadder_data()
{
    QTest::addColumn<uint>("method");
    QTest::addColumn<int>("waitMs");
    QTest::newRow("network") << uint(kNetworkLink) << 50;
    QTest::newRow("serial") << uint(kSerialLink) << 150;
}

void StatusTest::videoOutLadder()
{
    QFETCH(uint, method);
    QFETCH(int, waitMs);
    DeviceBench bench(method);
    QVERIFY(bench.connectUnit());
    bench.host.setFault(
        0x60, method == kNetworkLink ? standin::Fault::shortened(3) : standin::Fault::wrongChecksum());
    bench.device->videoOut = {PAL, YUV422, RESERVED};
    video_out result{PAL, YUV422, RESERVED};
    QVERIFY(bench.framesComeApart({waitMs + 300, waitMs + 500, waitMs + 1000},
                                  [&bench, &result, method] { result = bench.device->getVideoOut(method); }));
    QCOMPARE(int(result.res), 0);
    QCOMPARE(int(bench.device->videoOut.res), int(PAL));
    QCOMPARE(bench.host.count(0x60), 4);
    QVERIFY(!bench.device->isConnected);
    QCOMPARE(bench.broken.count(), method == kNetworkLink ? 4 : 0); // none of its own
}

void StatusTest::videoOutFailureClearsTheFlag()
{
    DeviceBench bench(kSerialLink);
    QVERIFY(bench.connectUnit());
    bench.host.setFault(0x60, standin::Fault::shortened(2));
    bench.device->getVideoOut(kSerialLink);
    QVERIFY(!bench.device->isConnected);
    QCOMPARE(bench.host.count(0x60), 1);
    QCOMPARE(bench.broken.count(), 0);

    // The serial link has no guard: the next read goes out all the same, and it doesn't raise the flag again.
    bench.host.clearFaults();
    QCOMPARE(int(bench.device->getVideoOut(kSerialLink).res), int(P59_1080));
    QVERIFY(!bench.device->isConnected);
}

void StatusTest::lockBitsAboveTheFourAreIgnored()
{
    DeviceBench bench(kNetworkLink);
    QVERIFY(bench.connectUnit());
    bench.host.withUnit([](standin::Unit &unit) {
        unit.setData(standin::OutputRouting, QByteArray::fromHex("01020306F0F0"));
        unit.setData(standin::InputSelection, QByteArray::fromHex("000203F80000000000"));
    });
    QCOMPARE(bench.device->refreshStatus(kNetworkLink), kOk);
    for (uint target = 1; target <= 4; ++target) {
        QVERIFY(!bench.device->getOutLock(target));
        QVERIFY(!bench.device->getOutMirror(target));
        QCOMPARE(bench.device->getInputFreeze(target), 0);
    }
}

void StatusTest::earlierStepsStayUpdated()
{
    DeviceBench bench(kSerialLink);
    QVERIFY(bench.connectUnit());
    bench.host.setFault(0x61, standin::Fault::silent());
    bench.device->PGM = {FG, true, true};
    bench.device->videoOut.res = PAL;
    bench.device->inputBG.source = EXT_SYNC;
    bench.device->refreshStatus(kSerialLink);
    QCOMPARE(int(bench.device->PGM.source), int(COMP));
    QCOMPARE(int(bench.device->videoOut.res), int(P59_1080));
    QCOMPARE(int(bench.device->inputBG.source), int(EXT_SYNC));
}

QTEST_GUILESS_MAIN(StatusTest)
#include "tst_status.moc"
