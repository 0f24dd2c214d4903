#include "device/qkv720.h"
#include "tests/ctl/ctlrun.h"

using standin::Fault;
using support::CtlBench;
using support::CtlRun;
using support::golden;
using support::linkRows;

// What the commands print, what they make of the unit, and what becomes of a link that goes wrong.
class CommandsTest : public QObject
{
    Q_OBJECT

private slots:
    void printedTables();
    void statusIsOfTheSameNames();
    void aSetKeepsOtherFields_data() { linkRows(); }
    void aSetKeepsOtherFields();
    void aColourStartsNoAutomaticKey();
    void memories_data() { linkRows(); }
    void memories();
    void aRecallWaitsAsThePanelDoes();
    void automaticKey_data() { linkRows(); }
    void automaticKey();
    void pickedColour();
    void faults_data();
    void faults();
    void aValueThatDoesNotTake();
    void besideAPanel();
};

void CommandsTest::printedTables()
{
    const CtlBench bench;
    CtlRun run = bench.run("get");
    QCOMPARE(run.output, golden("get.txt"));
    QCOMPARE(run.messages, QString());
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(bench.run("get --json").output, golden("get.json"));
    QCOMPARE(bench.run("status").output, golden("status.txt"));
    QCOMPARE(bench.run("get angle DARK").output.section('\n', 0, 1),
             QStringLiteral("ANGLE  left     45 degrees\nANGLE  right    45 degrees"));
    run = bench.run("info");
    QCOMPARE(run.output.replace(bench.host.address(), "ADDRESS"), golden("info.txt"));
}

void CommandsTest::statusIsOfTheSameNames()
{
    const CtlBench bench;
    const QJsonObject status = bench.run("status --json").json();
    const QJsonObject all = bench.run("get --json").json();
    QCOMPARE(status.size(), 4);
    for (const QString &name : status.keys())
        QCOMPARE(status.value(name), all.value(name));
}

void CommandsTest::aSetKeepsOtherFields()
{
    QFETCH(uint, method);
    const CtlBench bench(method);
    bench.host.withUnit([](standin::Unit &unit) { unit.setValue(standin::Dark, "density", 77); });
    const CtlRun run = bench.run("set dark Level=300 enable=OFF");
    QCOMPARE(run.messages, QString());
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(bench.value(standin::Dark, "level"), 300);
    QCOMPARE(bench.value(standin::Dark, "enable"), 0);
    QCOMPARE(bench.value(standin::Dark, "density"), 77);
    QCOMPARE(bench.value(standin::Dark, "balance"), 100);
    QCOMPARE(bench.host.count(standin::Dark + standin::SetBit), 1);
}

// After an automatic key the unit says how it found its colour; sending that back would start the search anew.
void CommandsTest::aColourStartsNoAutomaticKey()
{
    const CtlBench bench;
    bench.host.withUnit([](standin::Unit &unit) { unit.setValue(standin::BackColour, "auto", 1); });
    QCOMPARE(bench.run("set BACK_COLOUR red=333").exitCode, 0);
    QCOMPARE(bench.host.frames().filter(QRegularExpression("^d0")), QStringList{"d0 4d 01 b4 00 f8 02 00"});
    bench.host.clearRecord();
    QCOMPARE(bench.run("set BACK_COLOUR auto=AutoBack").exitCode, 0);
    QCOMPARE(bench.host.frames().filter(QRegularExpression("^d0")), QStringList{"d0 4d 01 b4 00 f8 02 02"});
}

void CommandsTest::memories()
{
    QFETCH(uint, method);
    const CtlBench bench(method);
    QCOMPARE(bench.run("set SHADOW level=321").exitCode, 0);
    QCOMPARE(bench.run("memory save 8").exitCode, 0);
    QCOMPARE(bench.run("memory load 0").exitCode, 0);
    QCOMPARE(bench.value(standin::Shadow, "level"), 250);
    QCOMPARE(bench.run("memory load 8").exitCode, 0);
    QCOMPARE(bench.value(standin::Shadow, "level"), 321);

    bench.host.setFault(standin::Memory, Fault::refuse());
    const CtlRun run = bench.run("memory load 1");
    QCOMPARE(run.messages, QStringLiteral("qkv720ctl: the unit refuses the memory\n"));
    QCOMPARE(run.exitCode, 1);
    bench.host.setFault(standin::Memory + standin::SetBit, Fault::refuse());
    QCOMPARE(bench.run("memory save 1").exitCode, 1);
}

void CommandsTest::aRecallWaitsAsThePanelDoes()
{
    const CtlBench bench;
    QElapsedTimer clock;
    clock.start();
    QCOMPARE(bench.run("memory load 1").exitCode, 0);
    QVERIFY(clock.elapsed() >= 6 * 50 + 50 + 4 * 50 + 2600);
}

void CommandsTest::automaticKey()
{
    QFETCH(uint, method);
    const CtlBench bench(method);
    CtlRun run = bench.run("key auto --json");
    QCOMPARE(run.exitCode, 0);
    const QJsonObject colour = run.json().value("BACK_COLOUR").toObject();
    QCOMPARE(colour.value("auto").toString(), QStringLiteral("AutoDef"));
    QCOMPARE(colour.value("red").toInt(), bench.value(standin::BackColour, "red"));
    QCOMPARE(run.json().size(), 7);
    QCOMPARE(bench.run("key auto autoback").exitCode, 0);
    QCOMPARE(bench.value(standin::BackColour, "auto"), 2);
}

void CommandsTest::pickedColour()
{
    const CtlBench bench;
    bench.host.withUnit([](standin::Unit &unit) { unit.setCursorColour(11, 22, 1000); });
    QCOMPARE(bench.run("key pick 1919 7").exitCode, 0);
    QCOMPARE(bench.value(standin::BackColour, "red"), 11);
    QCOMPARE(bench.value(standin::BackColour, "green"), 22);
    QCOMPARE(bench.value(standin::BackColour, "blue"), 1000);
    // Placed, taken as the key's colour, and the cursor gone again.
    QCOMPARE(bench.host.frames().filter(QRegularExpression("^d")),
             (QStringList{"dd 03 7f 07 07 00", "d0 0b 00 16 00 e8 03 00", "dd 00 00 00 00 00"}));
}

void CommandsTest::faults_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<QByteArray>("fault");
    QTest::addColumn<int>("exitCode");
    QTest::addColumn<QString>("sentence");
    const auto row = [](const char *name, int code, const char *fault, int exitCode, const char *sentence) {
        QTest::newRow(name) << code << QByteArray(fault) << exitCode << QString::fromLatin1(sentence);
    };
    const int set = standin::Dark + standin::SetBit;
    row("get refused", standin::Dark, "refuse", 1, "the unit refuses the command");
    row("set refused", set, "refuse", 1, "the unit refuses the command");
    row("get silent", standin::Dark, "silent", 3, "does not answer any more");
    row("set silent", set, "silent", 3, "does not answer any more");
    row("get closed", standin::Dark, "close", 3, "does not answer any more");
    row("get cut short", standin::Dark, "short", 3, "is no answer to what was asked");
    row("get cut short once", standin::Dark, "short once", 0, "");
    row("get with a wrong sum", standin::Dark, "sum", 3, "is no answer to what was asked");
    row("get with a wrong sum once", standin::Dark, "sum once", 0, "");
    row("get silent once", standin::Dark, "silent once", 0, "");
}

void CommandsTest::faults()
{
    QFETCH(int, code);
    QFETCH(QByteArray, fault);
    QFETCH(int, exitCode);
    QFETCH(QString, sentence);
    const CtlBench bench;
    const int times = fault.endsWith(" once") ? 1 : -1;
    const QHash<QByteArray, Fault> kinds = {{"refuse", Fault::refuse(0x81, times)},
                                            {"silent", Fault::silent(times)},
                                            {"close", Fault::closeLink(times)},
                                            {"short", Fault::shortened(8, times)},
                                            {"sum", Fault::wrongChecksum(times)}};
    bench.host.setFault(code, kinds.value(fault.split(' ').first()));
    const CtlRun run = bench.run("set DARK level=300");
    QCOMPARE(run.exitCode, exitCode);
    QVERIFY2(run.messages.contains(sentence), qPrintable(run.messages));
    QCOMPARE(run.messages.count('\n'), sentence.isEmpty() ? 0 : 1);
    QCOMPARE(run.output, QString());
    if (exitCode == 0)
        QCOMPARE(bench.value(standin::Dark, "level"), 300);
}

// The unit acknowledges, but reads back as before.
void CommandsTest::aValueThatDoesNotTake()
{
    const CtlBench bench;
    bench.host.setFault(standin::Dark, Fault::answer(QByteArray::fromHex("09005301c800e8036474")));
    CtlRun run = bench.run("set DARK level=300");
    QCOMPARE(run.messages, QStringLiteral("qkv720ctl: DARK level did not take 300; the unit holds 200\n"));
    QCOMPARE(run.exitCode, 1);
    run = bench.run("set DARK level=300 enable=on");
    QCOMPARE(run.exitCode, 4);
}

void CommandsTest::besideAPanel()
{
    const CtlBench bench;
    qkv720 panel;
    QCOMPARE(panel.connectDevice(kNetworkLink, bench.host.address()), QStringLiteral("OK"));
    QProcess other;
    other.start(QStringLiteral(CTL_PROGRAM), bench.place() + QStringList{"get"});
    QVERIFY(other.waitForStarted());
    while (!other.waitForFinished(1))
        panel.getVideoOut(kNetworkLink); // the poll of a panel
    QCOMPARE(QString::fromUtf8(other.readAllStandardOutput()), golden("get.txt"));
    QVERIFY(panel.isConnected);
    panel.disconnectDevice(kNetworkLink);
}

QTEST_GUILESS_MAIN(CommandsTest)
#include "tst_commands.moc"
