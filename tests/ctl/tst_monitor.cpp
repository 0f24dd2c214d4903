#include "device/functions.h"
#include "tests/ctl/ctlrun.h"

using standin::Fault;
using support::CtlBench;
using support::CtlRun;
using support::golden;
using support::linkRows;

// What a monitor prints of the frames and replies that pass.
class MonitorTest : public QObject
{
    Q_OBJECT

private slots:
    void framesOfACommand_data() { linkRows(); }
    void framesOfACommand();
    void everyCommandHasItsName();
    void faults_data();
    void faults();
    void timesOfReplies();
    void json();
    void pollGoesOnOverALostLink();
    void commandsThatCannotBe();
};

namespace {

// Without what differs from run to run: the time of day and the time of the reply.
QString withoutTimes(QString text)
{
    static const QRegularExpression clock("^[0-9]{2}:[0-9]{2}:[0-9]{2}\\.[0-9]{3} ",
                                          QRegularExpression::MultilineOption);
    static const QRegularExpression after(" after [0-9]+ ms");
    return text.remove(clock).remove(after);
}

// The lines behind those of the connect.
QStringList framesAfterConnect(const CtlRun &run)
{
    constexpr int kConnectLines = 12;
    return withoutTimes(run.output).split('\n', Qt::SkipEmptyParts).mid(kConnectLines);
}

} // namespace

void MonitorTest::framesOfACommand()
{
    QFETCH(uint, method);
    const CtlBench bench(method);
    const CtlRun run = bench.run("monitor set DARK level=300");
    QCOMPARE(run.messages, QString());
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(withoutTimes(run.output),
             golden(method == kNetworkLink ? "monitor-network.txt" : "monitor-serial.txt"));
    QCOMPARE(bench.value(standin::Dark, "level"), 300);
    // Nothing else went over the link.
    QCOMPARE(run.output.count(" -> "), bench.host.record().size());
    QCOMPARE(run.output.count(" <- "), bench.host.record().size());
}

void MonitorTest::everyCommandHasItsName()
{
    const CtlBench bench;
    QStringList names;
    for (const char *line : {"monitor get", "monitor memory save 3", "monitor memory load 3",
                             "monitor key pick 5 600", "monitor reset SPILL", "monitor reset DARK",
                             "monitor set AUX_MODE function=3", "monitor set BACKGROUND_BLUR time=3"}) {
        const CtlRun run = bench.run(line);
        QCOMPARE(run.exitCode, 0);
        for (const QString &frame : framesAfterConnect(run)) {
            if (frame.startsWith("-> "))
                names.append(frame.section(' ', 1).section('[', 0, 0).trimmed());
        }
    }
    for (const UnitFunction *function : functions::all())
        QVERIFY2(names.contains(QStringLiteral("GET_") + QLatin1String(function->name)), function->name);
    for (const char *line :
         {"SET_MEMORY memory=3", "GET_MEMORY memory=3", "SET_CURSOR control=3 x=5 y=600",
          "SET_CURSOR control=0 x=0 y=0", "RESET_SPILL data=00 00 00 00 00 00 00 00 00 01", "RESET_DARK"})
        QVERIFY2(names.contains(QLatin1String(line)), line);
    QCOMPARE(names.filter(QRegularExpression("^SET_AUX_MODE function=3 polarity=[0-9]+$")).size(), 1);
    QCOMPARE(names.filter(QRegularExpression("^SET_BACKGROUND_BLUR .* time=3$")).size(), 1);
    // A name that the table does not hold would stand as a number.
    QCOMPARE(names.filter("0x"), QStringList());
}

void MonitorTest::faults_data()
{
    QTest::addColumn<uint>("method");
    QTest::addColumn<QByteArray>("fault");
    QTest::addColumn<QStringList>("marks");
    QTest::addColumn<int>("exitCode");
    const auto row = [](const char *name, uint method, const char *fault, const QStringList &marks,
                        int exitCode) {
        QTest::newRow(name) << method << QByteArray(fault) << marks << exitCode;
    };
    const QString silence = QStringLiteral("<- (no reply)");
    const QString sent = QStringLiteral("-> GET_DARK");
    row("silent once, network", kNetworkLink, "silent",
        {sent, silence, "-> GET_DARK (attempt 2)", "<- GET_DARK"}, 0);
    row("silent, serial", kSerialLink, "silent", {sent, silence}, 3);
    row("refused, network", kNetworkLink, "refuse", {sent, "<- GET_DARK (refused 81)"}, 1);
    row("refused, serial", kSerialLink, "refuse", {sent, "<- GET_DARK (refused 81)"}, 1);
    row("wrong sum once, network", kNetworkLink, "sum", {sent, "<- (no whole reply)", sent, "<- GET_DARK"},
        0);
    row("wrong sum once, serial", kSerialLink, "sum",
        {sent, "<- (no whole reply)", "-> GET_DARK (attempt 2)", "<- GET_DARK"}, 0);
    row("two at once", kNetworkLink, "double", {sent, "<- GET_DARK (10 bytes more)"}, 0);
}

void MonitorTest::faults()
{
    QFETCH(uint, method);
    QFETCH(QByteArray, fault);
    QFETCH(QStringList, marks);
    QFETCH(int, exitCode);
    const CtlBench bench(method);
    const QByteArray whole = QByteArray::fromHex("09005301c800e8036474");
    const QHash<QByteArray, Fault> kinds = {{"silent", Fault::silent(1)},
                                            {"refuse", Fault::refuse(0x81, 1)},
                                            {"sum", Fault::wrongChecksum(1)},
                                            {"double", Fault::answer(whole + whole)}};
    bench.host.setFault(standin::Dark, kinds.value(fault));
    const CtlRun run = bench.run("monitor get DARK");
    QCOMPARE(run.exitCode, exitCode);
    // The name and the mark of each line; the values are another test's.
    QStringList seen;
    for (const QString &line : framesAfterConnect(run)) {
        const QString mark = line.contains('(')
            ? QStringLiteral(" (%1)").arg(line.section('(', 1).section(')', 0, 0))
            : QString();
        const QString name = line.section(' ', 1, 1);
        seen.append(line.left(2) + (name.startsWith('G') ? ' ' + name : QString()) + mark);
    }
    QCOMPARE(seen, marks);
}

// As long as the protocol waits, and as long as a late unit makes it wait.
void MonitorTest::timesOfReplies()
{
    const CtlBench bench;
    bench.host.setFault(standin::Dark, Fault::late(400));
    const CtlRun run = bench.run("monitor get DARK ANGLE");
    const auto afterMs = [&run](const char *name) {
        const QRegularExpression line(QStringLiteral("<- %1 .*after ([0-9]+) ms").arg(QLatin1String(name)));
        return line.match(run.output).captured(1).toInt();
    };
    QVERIFY2(afterMs("GET_DARK") >= 395, qPrintable(run.output));
    QVERIFY2(afterMs("GET_ANGLE") >= 49, qPrintable(run.output));
    QVERIFY(afterMs("GET_ANGLE") < afterMs("GET_DARK"));
}

void MonitorTest::json()
{
    const CtlBench bench;
    bench.host.setFault(standin::Dark, Fault::refuse(0x82, 1));
    const CtlRun run = bench.run("--json monitor get ANGLE DARK");
    QVector<QJsonObject> lines;
    for (const QString &line : run.output.split('\n', Qt::SkipEmptyParts))
        lines.append(QJsonDocument::fromJson(line.toUtf8()).object());
    QCOMPARE(lines.size(), 2 * bench.host.record().size());
    const QJsonObject asked = lines.at(lines.size() - 4);
    const QJsonObject told = lines.at(lines.size() - 3);
    const QJsonObject refused = lines.last();
    QCOMPARE(asked.value("direction").toString(), QStringLiteral("sent"));
    QCOMPARE(asked.value("name").toString(), QStringLiteral("GET_ANGLE"));
    QCOMPARE(asked.value("bytes").toString(), QStringLiteral("00 06 03 00 51 54"));
    QVERIFY(!asked.contains("ms"));
    QCOMPARE(told.value("direction").toString(), QStringLiteral("received"));
    QCOMPARE(told.value("values").toObject(), (QJsonObject{{"left", 45}, {"right", 45}}));
    QVERIFY(told.value("ms").toInt() >= 49);
    QVERIFY(QDateTime::fromString(told.value("time").toString(), Qt::ISODateWithMs).isValid());
    QCOMPARE(refused.value("remark").toString(), QStringLiteral("refused 82"));
}

void MonitorTest::pollGoesOnOverALostLink()
{
    const CtlBench bench;
    QProcess process;
    process.start(QStringLiteral(CTL_PROGRAM), bench.place() + QStringList{"monitor", "--interval", "100"});
    QString text;
    const auto shows = [&](const QString &wanted) {
        return QTest::qWaitFor(
            [&] {
                process.waitForReadyRead(20);
                text += QString::fromUtf8(process.readAllStandardOutput());
                return text.contains(wanted);
            },
            20000);
    };
    QVERIFY(shows("-> GET_OUTPUT_STANDARD"));
    QVERIFY(shows("<- GET_INPUT_STANDARD"));
    QVERIFY(!text.contains("no reply"));
    // Four attempts, and then a connect of its own.
    bench.host.setFault(standin::OutputStandard, Fault::silent(4));
    QVERIFY(shows("-> GET_OUTPUT_STANDARD (attempt 4)"));
    text.clear();
    QVERIFY(shows("-> GET_VERSION"));
    text.clear();
    QVERIFY(shows("<- GET_OUTPUT_STANDARD"));
    QVERIFY2(process.readAllStandardError().contains("does not answer any more"), qPrintable(text));
    process.terminate();
    QVERIFY(process.waitForFinished(5000));
    QCOMPARE(process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(process.exitCode(), 0);
}

void MonitorTest::commandsThatCannotBe()
{
    const CtlBench bench;
    const auto said = [&bench](const char *line) {
        const CtlRun run = bench.run(line);
        return run.exitCode == 2 ? run.messages : QStringLiteral("ended with %1").arg(run.exitCode);
    };
    QCOMPARE(said("monitor look"), QStringLiteral("qkv720ctl: look: no such command; --help lists them\n"));
    QCOMPARE(said("monitor reset"), QStringLiteral("qkv720ctl: usage: qkv720ctl reset FUNCTION\n"));
    QCOMPARE(said("monitor monitor"), QStringLiteral("qkv720ctl: a monitor takes another command\n"));
    QCOMPARE(bench.host.record().size(), 0);
}

QTEST_GUILESS_MAIN(MonitorTest)
#include "tst_monitor.moc"
