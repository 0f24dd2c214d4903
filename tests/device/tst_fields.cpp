#include "tests/device/devicebench.h"
#include "tests/device/functiontable.h"

// What the operations hand out beside the fields, and which fields they share.
class FieldsTest : public QObject
{
    Q_OBJECT

private slots:
    void unknownMethodSendsNothing();
    void outputArguments_data();
    void outputArguments();
    void returnedRecords();
    void blurAndAuxModeKeepTheirOwnFields();
    void refusalReadsAsZeros_data();
    void refusalReadsAsZeros();
};

void FieldsTest::unknownMethodSendsNothing()
{
    DeviceBench bench(kNetworkLink);
    QVERIFY(bench.connectUnit());
    qkv720 &device = *bench.device;
    scramble(device, 0);
    Snapshot expected = snapshotOf(device);
    for (const FunctionRow &function : allFunctions()) {
        function.get(device, 3);
        for (const ResetRow &row : function.resets)
            row.call(device, 0);
        for (const SetRow &row : function.sets) {
            row.call(device, 3);
            expected = afterSet(expected, function, row);
            QCOMPARE(differences(snapshotOf(device), expected), QString());
        }
    }
    device.setCursor(3, 3, 1, 1);
    device.loadMemory(3, 1);
    device.saveMemory(3, 1);
    device.saveSetup(3);
    QCOMPARE(differences(snapshotOf(device), expected), QString());
    device.setBackColor(3, 1, 2, 3, 1);
    overlay(expected,
            {{"ckBackColor.r", 0, Kind::Word},
             {"ckBackColor.g", 2, Kind::Word},
             {"ckBackColor.b", 4, Kind::Word}},
            QByteArray::fromHex("010002000300"));
    QCOMPARE(differences(snapshotOf(device), expected), QString());
    QCOMPARE(bench.host.record().size(), 0);
    QCOMPARE(bench.broken.count(), 0);
}

void FieldsTest::outputArguments_data()
{
    QTest::addColumn<uint>("method");
    QTest::newRow("network") << uint(kNetworkLink);
    QTest::newRow("serial") << uint(kSerialLink);
}

void FieldsTest::outputArguments()
{
    QFETCH(uint, method);
    DeviceBench bench(method);
    QVERIFY(bench.connectUnit());
    bench.host.withUnit([](standin::Unit &unit) {
        unit.setData(standin::Angle, QByteArray::fromHex("78FE"));
        unit.setData(standin::Levels, QByteArray::fromHex("6400E80301"));
        unit.setData(standin::Dark, QByteArray::fromHex("01C800E803C8"));
    });
    uint l = 1;
    uint r = 1;
    bench.device->getCKAngle(method, &l, &r);
    QCOMPARE(l, 120U);
    QCOMPARE(r, 0xFFFFFFFEU);
    uint black = 1;
    uint white = 1;
    bool matte = false;
    bench.device->getCKBWLevel(method, &black, &white, &matte);
    QCOMPARE(black, 100U);
    QCOMPARE(white, 1000U);
    QVERIFY(matte);
    bool enable = false;
    uint level = 1;
    uint density = 1;
    uint balance = 1;
    bench.device->getCKDark(method, &enable, &level, &density, &balance);
    QVERIFY(enable);
    QCOMPARE(level, 200U);
    QCOMPARE(density, 1000U);
    QCOMPARE(balance, static_cast<uint>(-56));

    bench.device->disconnectDevice(method);
    if (method == kSerialLink)
        return; // four attempts of four writes each, seen elsewhere
    bench.device->getCKAngle(method, &l, &r);
    bench.device->getCKBWLevel(method, &black, &white, &matte);
    bench.device->getCKDark(method, &enable, &level, &density, &balance);
    QCOMPARE(l, 120U);
    QCOMPARE(white, 1000U);
    QCOMPARE(density, 1000U);
    QVERIFY(matte && enable);
}

void FieldsTest::returnedRecords()
{
    DeviceBench bench(kNetworkLink);
    QVERIFY(bench.connectUnit());
    qkv720 &device = *bench.device;
    bench.host.withUnit([](standin::Unit &unit) {
        unit.setData(standin::BackColour, QByteArray::fromHex("01000200030002"));
        unit.setData(standin::PostAmplifier, QByteArray::fromHex("010100020003000400"));
        unit.setData(standin::RgbCorrector, QByteArray::fromHex("01010002000300040005000600"));
        unit.setData(standin::BackgroundBlur, QByteArray::fromHex("020304"));
        unit.setData(standin::GarbageMask, QByteArray::fromHex("010201000200030004 0005"));
        unit.setData(standin::HoldoutWindow, QByteArray::fromHex("01030900080007000600 04"));
        unit.setData(standin::OutputStandard, QByteArray::fromHex("180102"));
    });
    QCOMPARE(int(device.getBackColor(kNetworkLink).b), 3);
    QCOMPARE(device.getPPFGPostAmp(kNetworkLink).hue, 4U);
    QCOMPARE(device.getPPFGRGBCorrect(kNetworkLink).bBlack, 6U);
    const qkv720_bgblur blur = device.getBGBlur(kNetworkLink);
    QVERIFY(blur.enable);
    QCOMPARE(blur.blurTime, 4U);
    QCOMPARE(int(device.getWindow(kNetworkLink).bottom), 4);
    QCOMPARE(device.getHoldoutWindow(kNetworkLink).border, 4U);
    QCOMPARE(int(device.getVideoOut(kNetworkLink).std), 2);

    // What an early leave returns is all zero, whatever the fields hold.
    device.disconnectDevice(kNetworkLink);
    QCOMPARE(int(device.getBackColor(kNetworkLink).b), 0);
    QCOMPARE(device.getPPFGPostAmp(kNetworkLink).hue, 0U);
    QCOMPARE(device.getPPFGRGBCorrect(kNetworkLink).bBlack, 0U);
    QVERIFY(!device.getBGBlur(kNetworkLink).enable);
    QCOMPARE(int(device.getWindow(kNetworkLink).bottom), 0);
    QCOMPARE(device.getHoldoutWindow(kNetworkLink).border, 0U);
    QCOMPARE(int(device.getVideoOut(kNetworkLink).std), 0);
    QCOMPARE(int(device.garbageMaskWindow.bottom), 4);
}

void FieldsTest::blurAndAuxModeKeepTheirOwnFields()
{
    DeviceBench bench(kNetworkLink);
    QVERIFY(bench.connectUnit());
    qkv720 &device = *bench.device;
    bench.host.withUnit(
        [](standin::Unit &unit) { unit.setData(standin::BackgroundBlur, QByteArray::fromHex("014B07")); });
    device.auxFunction = 5;
    device.auxPolarity = 6;
    device.getBGBlur(kNetworkLink);
    QCOMPARE(device.auxFunction, 5U);
    QCOMPARE(device.auxPolarity, 6U);

    device.setAuxMode(kNetworkLink, 0, 9);
    QVERIFY(device.bgBlur.enable);
    QCOMPARE(device.bgBlur.bg_blur, 0x4BU);
    // The unit keeps one record for both: the blur reads back what the aux mode set.
    device.getBGBlur(kNetworkLink);
    QVERIFY(!device.bgBlur.enable);
    QCOMPARE(device.bgBlur.bg_blur, 9U);
    QCOMPARE(device.bgBlur.blurTime, 7U);
}

void FieldsTest::refusalReadsAsZeros_data()
{
    QTest::addColumn<uint>("method");
    QTest::addColumn<int>("status");
    QTest::newRow("network, unknown code") << uint(kNetworkLink) << 0x81;
    QTest::newRow("network, bad sum") << uint(kNetworkLink) << 0x82;
    QTest::newRow("serial, unknown code") << uint(kSerialLink) << 0x81;
    QTest::newRow("serial, bad sum") << uint(kSerialLink) << 0x82;
}

// A refusal is three bytes and passes for a reply: its missing positions read as 0.
void FieldsTest::refusalReadsAsZeros()
{
    QFETCH(uint, method);
    QFETCH(int, status);
    DeviceBench bench(method);
    QVERIFY(bench.connectUnit());
    bench.host.setFault(standin::Dark, standin::Fault::refuse(status));
    scramble(*bench.device, 0);
    bool enable = true;
    uint level = 9;
    uint density = 9;
    uint balance = 9;
    bench.device->getCKDark(method, &enable, &level, &density, &balance);
    QVERIFY(!enable);
    QCOMPARE(level, 0U);
    QCOMPARE(density, 0U);
    QCOMPARE(balance, 0U);
    QCOMPARE(bench.host.count(standin::Dark), 1);
    QVERIFY(bench.device->isConnected);
}

QTEST_GUILESS_MAIN(FieldsTest)
#include "tst_fields.moc"
