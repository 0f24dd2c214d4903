#include "tests/device/devicebench.h"
#include "tests/device/functiontable.h"

// Every operation of the function table on both links, against a stand-in unit.
class OperationsTest : public QObject
{
    Q_OBJECT

private slots:
    void setsOnNetwork() { sets(kNetworkLink); }
    void setsOnSerial() { sets(kSerialLink); }
    void getsOnNetwork() { gets(kNetworkLink); }
    void getsOnSerial() { gets(kSerialLink); }
    void resetsOnNetwork() { resets(kNetworkLink); }
    void resetsOnSerial() { resets(kSerialLink); }
    void setsOnDeadNetworkChangeTheState();
    void setsOnDeadSerialChangeTheState();
    void failedResetsKeepTheState();
    void failedGetsKeepTheState();
    void unknownMethodSendsNothing();
    void outputArguments_data();
    void outputArguments();
    void returnedRecords();
    void blurAndAuxModeKeepTheirOwnFields();
    void refusalReadsAsZeros_data();
    void refusalReadsAsZeros();

private:
    static void sets(uint method);
    static void gets(uint method);
    static void resets(uint method);
    static QString differences(const FunctionRow &function, const qkv720 &device, const QByteArray &body);
    static QString stateDifferences(const FunctionRow &function, const qkv720 &device,
                                    const QVector<qint64> &state);
    static QVector<qint64> stateOf(const FunctionRow &function, const qkv720 &device);
    static void scramble(qkv720 &device);
};

QString OperationsTest::differences(const FunctionRow &function, const qkv720 &device, const QByteArray &body)
{
    QString text;
    for (const FieldRow &field : function.fields) {
        const qint64 expected = expectedField(field, body);
        const qint64 found = field.read(device);
        if (found != expected)
            text += QStringLiteral("%1 is %2, not %3; ").arg(field.name).arg(found).arg(expected);
    }
    return text.isEmpty() ? text : text + function.name + QLatin1Char(' ') + body.toHex(' ');
}

QString OperationsTest::stateDifferences(const FunctionRow &function, const qkv720 &device,
                                         const QVector<qint64> &state)
{
    const QVector<qint64> found = stateOf(function, device);
    QString text;
    for (int i = 0; i < found.size(); ++i) {
        if (found.at(i) != state.value(i))
            text += QStringLiteral("%1 is %2, not %3; ")
                        .arg(function.fields.at(i).name)
                        .arg(found.at(i))
                        .arg(state.value(i));
    }
    return text;
}

QVector<qint64> OperationsTest::stateOf(const FunctionRow &function, const qkv720 &device)
{
    QVector<qint64> values;
    for (const FieldRow &field : function.fields)
        values.append(field.read(device));
    return values;
}

// Values that no test row holds, so that a field that was not written shows.
void OperationsTest::scramble(qkv720 &device)
{
    device.ckAngleL = device.ckAngleR = device.ckBlackLevel = device.ckWhiteLevel = 31;
    device.spillSuppression = device.spillEnhance = device.spillBalance = device.spillBrightness = 32;
    device.spillDefaultValue = device.edge_ShrinkLeft = device.edge_ShrinkRight = device.edge_SoftEdge = 33;
    device.ckDark = device.ckBright = device.ckShadow = {true, 34, 35, 36};
    device.ckBackColor = {37, 38, 39, 40};
    device.ppPostAmp = {true, 41, 42, 43, 44};
    device.rgbCorrect = {true, 45, 46, 47, 48, 49, 50};
    device.garbageMaskWindow = device.holdoutWindow = {true, 51, 52, 53, 54, 55, 56};
    device.auxLumakey = {true, 57, 58, 59, 60, 61, 62};
    device.bgBlur = {true, 63, 64};
    device.auxFunction = device.auxPolarity = 65;
    device.inputFG = device.inputBG = device.inputAUX =
        device.inputSYNC = {input_source(66), resolution(67), 68};
    device.PGM = device.PVW = device.PGM_HDMI = device.PVW_HDMI = {output_source(69), true, true};
    device.videoOut = {resolution(70), hdmiout_format(71), std_auto(72)};
    device.genlockStatus = device.genlockSrc = 73;
    device.genlock_H = device.genlock_V = 74;
    device.tempR = device.tempG = device.tempB = 75;
}

void OperationsTest::sets(uint method)
{
    DeviceBench bench(method);
    QVERIFY(bench.connectUnit());
    for (const FunctionRow &function : allFunctions()) {
        for (const SetRow &set : function.sets) {
            bench.host.clearRecord();
            // An answer full of other values: a set reads none of it.
            bench.host.setFault(
                function.getCode + 0x80,
                standin::Fault::answer(replyBody(function.getCode + 0x80, QByteArray(16, 'U'))));
            scramble(*bench.device);
            set.call(*bench.device, method);
            QCOMPARE(bench.frames(), frameOn(method, set.frame));
            QCOMPARE(stateDifferences(function, *bench.device, set.state), QString());
        }
    }
    QVERIFY(bench.device->isConnected);
    QCOMPARE(bench.broken.count(), 0);
}

void OperationsTest::gets(uint method)
{
    DeviceBench bench(method);
    QVERIFY(bench.connectUnit());
    for (const FunctionRow &function : allFunctions()) {
        // Every flag value and byte extreme at every position, words included, and one record of unlike bytes.
        QVector<QByteArray> datas;
        for (const int value : {0x00, 0x01, 0x02, 0x7F, 0x80, 0xFF})
            datas.append(QByteArray(function.dataLength, static_cast<char>(value)));
        QByteArray unlike;
        for (int i = 0; i < function.dataLength; ++i)
            unlike.append(static_cast<char>(0x11 + 0x17 * i));
        datas.append(unlike);

        for (const QByteArray &data : datas) {
            bench.host.clearRecord();
            const QByteArray body = replyBody(function.getCode, data);
            bench.host.setFault(function.getCode, standin::Fault::answer(body));
            scramble(*bench.device);
            function.get(*bench.device, method);
            QCOMPARE(differences(function, *bench.device, body), QString());
            QCOMPARE(bench.host.count(function.getCode), 1);
            const QByteArray bare = replyBody(function.getCode, QByteArray());
            const QString frame = frameOn(method, bare.toHex());
            QVERIFY2(bench.frames().contains(frame), function.name);
        }
        bench.host.clearFaults();
    }
    QCOMPARE(bench.broken.count(), 0);
}

void OperationsTest::resets(uint method)
{
    DeviceBench bench(method);
    QVERIFY(bench.connectUnit());
    for (const FunctionRow &function : allFunctions()) {
        for (const ResetRow &reset : function.resets) {
            bench.host.clearRecord();
            QByteArray data;
            for (int i = 0; i < function.dataLength; ++i)
                data.append(static_cast<char>(0x01 + 0x1D * i));
            const QByteArray body = replyBody(function.getCode + 0x80, data);
            bench.host.setFault(function.getCode + 0x80, standin::Fault::answer(body));
            scramble(*bench.device);
            reset.call(*bench.device, method);
            QCOMPARE(bench.frames(), frameOn(method, reset.frame));
            QCOMPARE(differences(function, *bench.device, body), QString());
        }
    }
    QVERIFY(bench.device->isConnected);
}

void OperationsTest::setsOnDeadNetworkChangeTheState()
{
    DeviceBench bench(kNetworkLink); // never connected
    for (const FunctionRow &function : allFunctions()) {
        for (const SetRow &set : function.sets) {
            scramble(*bench.device);
            set.call(*bench.device, kNetworkLink);
            QCOMPARE(stateDifferences(function, *bench.device, set.state), QString());
        }
    }
    QCOMPARE(bench.host.record().size(), 0);
    QCOMPARE(bench.broken.count(), 0);
}

void OperationsTest::setsOnDeadSerialChangeTheState()
{
    // Each takes four attempts of four writes: two functions stand for all of them.
    DeviceBench bench(kSerialLink); // never opened
    scramble(*bench.device);
    QElapsedTimer timer;
    timer.start();
    bench.device->setCKDark(kSerialLink, true, 1, 2, 3);
    VERIFY_BETWEEN(timer.elapsed(), 4 * 900 + 1800, 4 * 900 + 1800 + 3000);
    QCOMPARE(bench.device->ckDark.enable, true);
    QCOMPARE(int(bench.device->ckDark.level), 1);
    QCOMPARE(int(bench.device->ckDark.density), 2);
    QCOMPARE(int(bench.device->ckDark.balance), 3);
    QCOMPARE(bench.broken.count(), 4);
    bench.device->setVideoOut(kSerialLink, P25_1080, YUV422, FIXED);
    QCOMPARE(int(bench.device->videoOut.res), int(P25_1080));
    QCOMPARE(bench.broken.count(), 8);
    QCOMPARE(bench.host.record().size(), 0);
}

void OperationsTest::failedResetsKeepTheState()
{
    DeviceBench network(kNetworkLink); // never connected
    for (const FunctionRow &function : allFunctions()) {
        for (const ResetRow &reset : function.resets) {
            scramble(*network.device);
            const QVector<qint64> before = stateOf(function, *network.device);
            reset.call(*network.device, kNetworkLink);
            QCOMPARE(stateOf(function, *network.device), before);
        }
    }

    DeviceBench serial(kSerialLink);
    QVERIFY(serial.connectUnit());
    for (const FunctionRow &function : allFunctions()) {
        for (const ResetRow &reset : function.resets) {
            // An answer of two bytes passes the transport and fails the operation's own test.
            serial.host.setFault(function.getCode + 0x80, standin::Fault::shortened(2));
            scramble(*serial.device);
            const QVector<qint64> before = stateOf(function, *serial.device);
            reset.call(*serial.device, kSerialLink);
            QCOMPARE(stateOf(function, *serial.device), before);
        }
    }
    QCOMPARE(serial.broken.count(), 0);
    QVERIFY(serial.device->isConnected);
}

void OperationsTest::failedGetsKeepTheState()
{
    DeviceBench serial(kSerialLink);
    QVERIFY(serial.connectUnit());
    for (const FunctionRow &function : allFunctions()) {
        serial.host.setFault(function.getCode, standin::Fault::shortened(2));
        scramble(*serial.device);
        const QVector<qint64> before = stateOf(function, *serial.device);
        function.get(*serial.device, kSerialLink);
        QCOMPARE(stateOf(function, *serial.device), before);
        serial.host.clearFaults();
    }

    DeviceBench network(kNetworkLink); // never connected
    for (const FunctionRow &function : allFunctions()) {
        scramble(*network.device);
        const QVector<qint64> before = stateOf(function, *network.device);
        function.get(*network.device, kNetworkLink);
        QCOMPARE(stateOf(function, *network.device), before);
    }
    QCOMPARE(network.host.record().size(), 0);
}

void OperationsTest::unknownMethodSendsNothing()
{
    DeviceBench bench(kNetworkLink);
    QVERIFY(bench.connectUnit());
    for (const FunctionRow &function : allFunctions()) {
        function.get(*bench.device, 3);
        for (const ResetRow &reset : function.resets)
            reset.call(*bench.device, 0);
        for (const SetRow &set : function.sets) {
            set.call(*bench.device, 3);
            QCOMPARE(stateDifferences(function, *bench.device, set.state), QString());
        }
    }
    bench.device->setCursor(3, 3, 1, 1);
    bench.device->setBackColor(3, 1, 2, 3, 1);
    bench.device->loadMemory(3, 1);
    bench.device->saveMemory(3, 1);
    bench.device->saveSetup(3);
    QCOMPARE(bench.host.record().size(), 0);
    QVERIFY(bench.device->isConnected);
    QCOMPARE(bench.broken.count(), 0);
}

void OperationsTest::outputArguments_data()
{
    QTest::addColumn<uint>("method");
    QTest::newRow("network") << uint(kNetworkLink);
    QTest::newRow("serial") << uint(kSerialLink);
}

void OperationsTest::outputArguments()
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

void OperationsTest::returnedRecords()
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

void OperationsTest::blurAndAuxModeKeepTheirOwnFields()
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

void OperationsTest::refusalReadsAsZeros_data()
{
    QTest::addColumn<uint>("method");
    QTest::addColumn<int>("status");
    QTest::newRow("network, unknown code") << uint(kNetworkLink) << 0x81;
    QTest::newRow("network, bad sum") << uint(kNetworkLink) << 0x82;
    QTest::newRow("serial, unknown code") << uint(kSerialLink) << 0x81;
    QTest::newRow("serial, bad sum") << uint(kSerialLink) << 0x82;
}

// A refusal is three bytes and passes for a reply: its missing positions read as 0.
void OperationsTest::refusalReadsAsZeros()
{
    QFETCH(uint, method);
    QFETCH(int, status);
    DeviceBench bench(method);
    QVERIFY(bench.connectUnit());
    bench.host.setFault(standin::Dark, standin::Fault::refuse(status));
    scramble(*bench.device);
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

QTEST_GUILESS_MAIN(OperationsTest)
#include "tst_operations.moc"
