#include "tests/device/devicebench.h"

namespace {
QStringList messages;

void keepMessage(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    if (type == QtDebugMsg)
        messages.append(text);
}
} // namespace

// What the device class writes to the log: the texts that service looks for.
class LogTest : public QObject
{
    Q_OBJECT

private slots:
    void lines_data();
    void lines();
};

using Call = std::function<void(qkv720 &)>;
Q_DECLARE_METATYPE(Call)

void LogTest::lines_data()
{
    QTest::addColumn<Call>("call");
    QTest::addColumn<QStringList>("expected");
    const auto row = [](const char *name, const Call &call, const QStringList &expected) {
        QTest::newRow(name) << call << expected;
    };
    row("angle read",
        [](qkv720 &d) {
            uint l = 0;
            uint r = 0;
            d.getCKAngle(kNetworkLink, &l, &r);
        },
        {"Get CKAngle: 45 45"});
    row("angle set", [](qkv720 &d) { d.setCKAngle(kNetworkLink, 300, 2); }, {"QKV720 setCKAngle: 300 2"});
    row("angle reset tells the old values",
        [](qkv720 &d) {
            d.ckAngleL = 7;
            d.ckAngleR = 8;
            d.resetCKAngle(kNetworkLink);
        },
        {"Reset and Refresh Angle:  7 8"});
    row("spill read", [](qkv720 &d) { d.getCKSpillBright(kNetworkLink); }, {"getCKSpillBright"});
    row("spill set", [](qkv720 &d) { d.setCKSpillBright(kNetworkLink, 1, 2, 3, 4, 5, 6); },
        {"setCKSpillBright 1 2 3 4 5 6"});
    row("spill reset", [](qkv720 &d) { d.resetCKSpillBright(kNetworkLink, 1, false); },
        {"resetCKSpillBright"});
    row("corrector", [](qkv720 &d) { d.setPPFGRGBCorrect(kNetworkLink, true, 1, 2, 3, 4, 5, 6); },
        {"setPPFGRGBCorrect true 1 2 3 4 5 6"});
    row("corrector read", [](qkv720 &d) { d.getPPFGRGBCorrect(kNetworkLink); }, {"getPPFGRGBCorrect"});
    row("corrector reset", [](qkv720 &d) { d.resetPPFGRGBCorrect(kNetworkLink); }, {"resetPPFGRGBCorrect"});
    row("blur", [](qkv720 &d) { d.setBGBlur(kNetworkLink, true, 1, 2); }, {"setBGBlur true 1 2"});
    row("blur read", [](qkv720 &d) { d.getBGBlur(kNetworkLink); }, {"getBGBlur"});
    row("memory saved", [](qkv720 &d) { d.saveMemory(kNetworkLink, 4); }, {"Save Memory: 4"});
    row("memory recalled", [](qkv720 &d) { d.loadMemory(kNetworkLink, 4); }, {"After LOAD MEM: \"OK\""});
    row("colour", [](qkv720 &d) { d.setBackColor(kNetworkLink, 1, 2, 3, 0); },
        {"Set RGB from string 1 2 3", "CK HLNP result EEE: 13"});
    row("colour under the cursor", [](qkv720 &d) { d.setBackColor(kNetworkLink, 999, 999, 999, 0); },
        {"Set RGB from SetCursor Color 0 0 0"});
    row("cursor", [](qkv720 &d) { d.setCursor(kNetworkLink, 3, 1, 1); }, {"SET Cursor assembled: 5 6 263"});
    row("cursor read",
        [](qkv720 &d) {
            d.setCursor(kNetworkLink, 3, 1, 1);
            messages.clear();
            d.getCursor(kNetworkLink);
        },
        {"RH: 5 0", "GH: 6 0", "BH: 7 1", "SET Cursor assembled: 5 6 263", "GET Cursor 5 6 263"});
    row("inputs", [](qkv720 &d) { d.setVideoInputSource(kNetworkLink, 1, 2, 3, 0, 1, 0, 1, -5, 6); },
        {"setVideoInputSource: 1 1 2 3 0 1 0 1 -5 6"});
    row("genlock reset", [](qkv720 &d) { d.resetVideoInputGenlock(kNetworkLink); },
        {"Reset Genlock: 0 2 3 0 0 0 0 0 0"});
    row("routing", [](qkv720 &d) { d.refreshStatus(kNetworkLink); },
        {"PGM source 6 PVW source 1 PGMHDMI source 6 PVWHDMI source 4"});
    row("attempts of a colour",
        [](qkv720 &d) {
            d.hlnpObj->swiTcpSocket->close();
            d.hlnpObj->swiTcpSocket->connectToHost(QStringLiteral("127.0.0.1"), 1); // nobody listens there
            d.setBackColor(kNetworkLink, 1, 2, 3, 0);
        },
        {"CK HLNP result AAA: -1", "CK HLNP result BBB: -1", "CK HLNP result CCC: -1",
         "CK HLNP result DDD: -1"});
}

void LogTest::lines()
{
    QFETCH(Call, call);
    QFETCH(QStringList, expected);
    DeviceBench bench(kNetworkLink);
    QVERIFY(bench.connectUnit());
    bench.host.withUnit([](standin::Unit &unit) { unit.setCursorColour(5, 6, 263); });
    messages.clear();
    const QtMessageHandler before = qInstallMessageHandler(keepMessage);
    call(*bench.device);
    qInstallMessageHandler(before);
    for (const QString &line : expected)
        QVERIFY2(messages.contains(line),
                 qPrintable(line + QLatin1String(" is not in: ") + messages.join('|')));
}

QTEST_GUILESS_MAIN(LogTest)
#include "tst_log.moc"
