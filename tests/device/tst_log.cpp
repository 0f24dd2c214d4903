#include "tests/device/devicebench.h"
#include "tests/support/logcapture.h"

using support::LogCapture;

using Call = std::function<void(qkv720 &, uint)>;
Q_DECLARE_METATYPE(Call)

// What the device class writes to the log: the texts that service looks for.
class LogTest : public QObject
{
    Q_OBJECT

private slots:
    void network_data() { rows(kNetworkLink); }
    void network() { lines(kNetworkLink); }
    void serial_data() { rows(kSerialLink); }
    void serial() { lines(kSerialLink); }

private:
    using Row = std::function<void(const char *, const Call &, const QStringList &)>;
    using RowOn = std::function<void(uint, const char *, const Call &, const QStringList &)>;
    static void rows(uint link);
    static void lines(uint link);
    static void keyRows(const Row &row);
    static void postRows(const Row &row);
    static void videoRows(const Row &row, const RowOn &on);
    static void colourRows(const Row &row, const RowOn &on);
};

void LogTest::rows(uint link)
{
    QTest::addColumn<Call>("call");
    QTest::addColumn<QStringList>("expected");
    const auto on = [link](uint method, const char *name, const Call &call, const QStringList &expected) {
        if (method == link)
            QTest::newRow(name) << call << expected;
    };
    const auto row = [&on](const char *name, const Call &call, const QStringList &expected) {
        on(kNetworkLink, name, call, expected);
        on(kSerialLink, name, call, expected);
    };
    keyRows(row);
    postRows(row);
    videoRows(row, on);
    colourRows(row, on);
}

void LogTest::keyRows(const Row &row)
{
    row("angle read",
        [](qkv720 &d, uint m) {
            uint l = 0;
            uint r = 0;
            d.getCKAngle(m, &l, &r);
        },
        {"Get CKAngle: 51 52"});
    row("angle set", [](qkv720 &d, uint m) { d.setCKAngle(m, 300, 2); }, {"QKV720 setCKAngle: 300 2"});
    row("angle reset tells the old values",
        [](qkv720 &d, uint m) {
            d.ckAngleL = 7;
            d.ckAngleR = 8;
            d.resetCKAngle(m);
        },
        {"Reset and Refresh Angle:  7 8"});
    row("levels and stages say nothing",
        [](qkv720 &d, uint m) {
            uint b = 0;
            uint w = 0;
            bool on = false;
            d.getCKBWLevel(m, &b, &w, &on);
            d.setCKBWLevel(m, 1, 2, true);
            d.resetCKBWLevel(m);
            d.getCKBright(m);
            d.setCKDark(m, true, 1, 2, 3);
            d.resetCKShadow(m);
            d.getEdgeFix(m);
        },
        {});
    row("spill read", [](qkv720 &d, uint m) { d.getCKSpillBright(m); }, {"getCKSpillBright"});
    row("spill set", [](qkv720 &d, uint m) { d.setCKSpillBright(m, 1, 2, 3, 4, 5, 6); },
        {"setCKSpillBright 1 2 3 4 5 6"});
    row("spill reset", [](qkv720 &d, uint m) { d.resetCKSpillBright(m, 1, false); }, {"resetCKSpillBright"});
}

void LogTest::postRows(const Row &row)
{
    row("corrector", [](qkv720 &d, uint m) { d.setPPFGRGBCorrect(m, true, 1, 2, 3, 4, 5, 6); },
        {"setPPFGRGBCorrect true 1 2 3 4 5 6"});
    row("corrector read", [](qkv720 &d, uint m) { d.getPPFGRGBCorrect(m); }, {"getPPFGRGBCorrect"});
    row("corrector reset", [](qkv720 &d, uint m) { d.resetPPFGRGBCorrect(m); }, {"resetPPFGRGBCorrect"});
    row("blur", [](qkv720 &d, uint m) { d.setBGBlur(m, true, 1, 2); }, {"setBGBlur true 1 2"});
    row("blur read", [](qkv720 &d, uint m) { d.getBGBlur(m); }, {"getBGBlur"});
    row("blur reset, amplifier, windows, aux and luma key say nothing",
        [](qkv720 &d, uint m) {
            d.resetBGBlur(m);
            d.getPPFGPostAmp(m);
            d.setWindow(m, true, 1, 2, 3, 4, 5, 6);
            d.resetHoldoutWindow(m);
            d.getAuxMode(m);
            d.setLumaKey(m, true, 1, 2, 3, 4, 5, 6);
        },
        {});
}

void LogTest::videoRows(const Row &row, const RowOn &on)
{
    const QString routing = QStringLiteral("PGM source 5 PVW source 2 PGMHDMI source 3 PVWHDMI source 4");
    const QString genlock = QStringLiteral("genSrc, genH and genV:  1 -300 77");
    const QString recalled = QStringLiteral("After LOAD MEM: \"OK\"");
    row("memory saved", [](qkv720 &d, uint m) { d.saveMemory(m, 4); }, {"Save Memory: 4"});
    // Each link has a line of its own for the status.
    const Call status = [](qkv720 &d, uint m) { d.refreshStatus(m); };
    on(kNetworkLink, "status", status, {routing});
    on(kSerialLink, "status", status, {genlock});
    // Memory 4 was saved with the values of the case.
    const Call recall = [](qkv720 &d, uint m) { d.loadMemory(m, 4); };
    on(kNetworkLink, "memory recalled", recall, {routing, recalled});
    on(kSerialLink, "memory recalled", recall, {genlock, recalled});
    const Call setup = [](qkv720 &d, uint m) { d.saveSetup(m); };
    on(kNetworkLink, "setup saved", setup, {routing});
    on(kSerialLink, "setup saved", setup, {genlock});
    row("polling says nothing",
        [](qkv720 &d, uint m) {
            d.getVideoOut(m);
            d.refreshVideoInRes(m);
        },
        {});
    on(kNetworkLink, "inputs",
       [](qkv720 &d, uint m) { d.setVideoInputSource(m, 1, 2, 3, 4, 5, 6, 7, -5, 8); },
       {"setVideoInputSource: 1 1 2 3 4 5 6 7 -5 8"});
    on(kSerialLink, "inputs", [](qkv720 &d, uint m) { d.setVideoInputSource(m, 1, 2, 3, 4, 5, 6, 7, -5, 8); },
       {"setVideoInputSource: 2 1 2 3 4 5 6 7 -5 8"});
    row("genlock reset", [](qkv720 &d, uint m) { d.resetVideoInputGenlock(m); },
        {"Reset Genlock: 4 3 2 1 0 1 1 -2 258"});
}

void LogTest::colourRows(const Row &row, const RowOn &on)
{
    const Call colour = [](qkv720 &d, uint m) { d.setBackColor(m, 1, 2, 3, 0); };
    on(kNetworkLink, "colour", colour, {"Set RGB from string 1 2 3", "CK HLNP result EEE: 13"});
    on(kSerialLink, "colour", colour, {"Set RGB from string 1 2 3"});
    const Call sampled = [](qkv720 &d, uint m) {
        d.tempR = 11;
        d.tempG = 12;
        d.tempB = 13;
        d.setBackColor(m, 999, 999, 999, 0);
    };
    on(kNetworkLink, "colour under the cursor", sampled,
       {"Set RGB from SetCursor Color 11 12 13", "CK HLNP result EEE: 13"});
    on(kSerialLink, "colour under the cursor", sampled, {"Set RGB from SetCursor Color 11 12 13"});
    row("colour read and reset say nothing",
        [](qkv720 &d, uint m) {
            d.getBackColor(m);
            d.resetBackColor(m);
        },
        {});
    row("cursor", [](qkv720 &d, uint m) { d.setCursor(m, 3, 1, 1); }, {"SET Cursor assembled: 5 6 263"});
    row("cursor read",
        [](qkv720 &d, uint m) {
            d.setCursor(m, 3, 1, 1);
            LogCapture::logs().clear();
            d.getCursor(m);
        },
        {"RH: 5 0", "GH: 6 0", "BH: 7 1", "SET Cursor assembled: 5 6 263", "GET Cursor 5 6 263"});
    on(kNetworkLink, "attempts of a colour",
       [](qkv720 &d, uint m) {
           d.hlnpObj->swiTcpSocket->close();
           d.hlnpObj->swiTcpSocket->connectToHost(QStringLiteral("127.0.0.1"), 1); // nobody listens there
           d.setBackColor(m, 1, 2, 3, 0);
       },
       {"Set RGB from string 1 2 3", "CK HLNP result AAA: -1", "CK HLNP result BBB: -1",
        "CK HLNP result CCC: -1", "CK HLNP result DDD: -1"});
}

// Every line of the call, in order, and none more.
void LogTest::lines(uint link)
{
    QFETCH(Call, call);
    QFETCH(QStringList, expected);
    DeviceBench bench(link);
    QVERIFY(bench.connectUnit());
    // Values that differ from 0 and from one another.
    bench.host.withUnit([](standin::Unit &unit) {
        unit.setCursorColour(5, 6, 263);
        unit.setData(standin::Angle, QByteArray::fromHex("3334"));
        unit.setData(standin::OutputRouting, QByteArray::fromHex("050203040000"));
        unit.setData(standin::InputSelection, QByteArray::fromHex("0102030501D4FE4D00"));
        unit.saveMemory(4);
    });
    bench.host.setFault(0xE1,
                        standin::Fault::answer(replyBody(0xE1, QByteArray::fromHex("0403020501FEFF0201"))));
    const LogCapture log;
    call(*bench.device, link);
    QCOMPARE(LogCapture::logs(), expected);
}

QTEST_GUILESS_MAIN(LogTest)
#include "tst_log.moc"
