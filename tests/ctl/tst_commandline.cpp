#include "tests/ctl/ctlrun.h"
#include "tests/support/checked.h"
#include "tests/support/loopback.h"

#include <limits>

using support::CtlBench;
using support::CtlRun;
using support::golden;
using support::runCtl;
using support::words;

// What may stand on the command line, what is said about everything else, and which unit is meant.
class CommandLineTest : public QObject
{
    Q_OBJECT

private slots:
    void helpAndVersion();
    void functionsAreListed();
    void wrongLinesAreRefused_data();
    void wrongLinesAreRefused();
    void nothingIsSentForAWrongValue();
    void savedUnit();
    void savedPort();
    void profilesWithoutAUnit();
    void noUnitThere();
    void timeoutEndsTheWait();
};

namespace {

void writeProfile(const QString &name, const QString &content)
{
    QFile file(name);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("[connection]\n" + content.toUtf8());
}

} // namespace

void CommandLineTest::helpAndVersion()
{
    for (const char *word : {"--help", "-h"}) {
        const CtlRun run = runCtl(words(word));
        QCOMPARE(run.output, golden("help.txt"));
        QCOMPARE(run.messages, QString());
        QCOMPARE(run.exitCode, 0);
    }
    const CtlRun run = runCtl(words("--version"));
    QCOMPARE(run.output, QStringLiteral("qkv720ctl " PROJECT_VERSION "\n"));
    QCOMPARE(run.exitCode, 0);
}

void CommandLineTest::functionsAreListed()
{
    const CtlRun run = runCtl(words("functions"));
    QCOMPARE(run.output, golden("functions.txt"));
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(runCtl(words("functions --json")).json().value("ANGLE").toObject().value("left").toString(),
             QStringLiteral("0 to 120 degrees"));
}

void CommandLineTest::wrongLinesAreRefused_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("sentence");
    const auto row = [](const char *line, const char *sentence) {
        QTest::newRow(line) << QString::fromLatin1(line) << QString::fromLatin1(sentence);
    };
    row("", "a command is missing; --help lists them");
    row("look", "look: no such command; --help lists them");
    row("memory", "memory: no such command; --help lists them");
    row("memory forget 1", "memory forget: no such command; --help lists them");
    row("--loud info", "unknown option 'loud'.");
    row("info now", "usage: qkv720ctl info");
    row("set DARK", "usage: qkv720ctl set FUNCTION FIELD=VALUE...");
    row("reset", "usage: qkv720ctl reset FUNCTION");
    row("key pick 1", "usage: qkv720ctl key pick X Y");
    row("--host 127.0.0.1 --serial x info",
        "--host, --serial and --profile name one unit each; give one of them");
    row("--timeout soon info", "--timeout takes seconds, up to a day");
    row("--timeout 0 info", "--timeout takes seconds, up to a day");
    row("--timeout nan info", "--timeout takes seconds, up to a day");
    row("--interval 99 watch", "--interval takes milliseconds, from 100 to 3600000");
    row("--interval often watch", "--interval takes milliseconds, from 100 to 3600000");
    row("get DARK GREY", "GREY: no such function; \"qkv720ctl functions\" lists them all");
    row("set CURSOR red=1", "CURSOR cannot be set");
    row("set INPUT_STANDARD fg=1", "INPUT_STANDARD cannot be set");
    row("reset OUTPUT_ROUTING", "OUTPUT_ROUTING cannot be reset");
    row("set DARK level", "level: a value is written as FIELD=VALUE");
    row("set DARK =4", "=4: a value is written as FIELD=VALUE");
    row("set DARK depth=4", "DARK has no field depth; it has enable, level, density, balance");
    row("set DARK level=", "DARK level: nothing is no value of it; it takes 0 to 1000");
    row("set DARK level=1e2", "DARK level: 1e2 is no value of it; it takes 0 to 1000");
    row("set DARK level=99999999999999999999",
        "DARK level: 99999999999999999999 is no value of it; it takes 0 to 1000");
    row("set DARK level=1 LEVEL=2", "DARK level is given twice");
    row("set OUTPUT_ROUTING pgm=AUXX",
        "OUTPUT_ROUTING pgm: AUXX is no value of it; it takes FG, BG, AUX, MATTE, PFG or COMP");
    row("memory load 9", "a memory is 1 to 8, and 0 is the factory's state");
    row("memory load -1", "unknown option '1'.");
    row("memory save 0", "a memory is 1 to 8");
    row("memory save 9", "a memory is 1 to 8");
    row("key auto none", "an automatic key is AutoDef or AutoBack");
    row("key pick 3840 1", "a place in the picture is X from 0 to 3839 and Y from 0 to 2159");
    row("key pick 1 2160", "a place in the picture is X from 0 to 3839 and Y from 0 to 2159");
}

void CommandLineTest::wrongLinesAreRefused()
{
    QFETCH(QString, line);
    QFETCH(QString, sentence);
    // No unit answers there: had it tried to connect, it would not end with 2.
    const QStringList place =
        line.contains("--host") ? QStringList{} : words("--host " + support::deafLoopback());
    const CtlRun run = runCtl(place + words(line));
    QCOMPARE(run.messages, QStringLiteral("qkv720ctl: ") + sentence + '\n');
    QCOMPARE(run.output, QString());
    QCOMPARE(run.exitCode, 2);
}

void CommandLineTest::nothingIsSentForAWrongValue()
{
    const CtlBench bench;
    QCOMPARE(bench.run("set DARK level=5 density=1001").exitCode, 2);
    QCOMPARE(bench.host.record().size(), 0);
}

void CommandLineTest::savedUnit()
{
    const CtlBench bench;
    CHECKED(writeProfile("unit.ini", "interface=1\nipaddress=" + bench.host.address()));
    const CtlRun run = runCtl(words("--profile unit.ini --json info"));
    QCOMPARE(run.json().value("address").toString(), bench.host.address());
    QCOMPARE(run.exitCode, 0);

    // Without an option it is the panel's own file.
    qputenv("XDG_CONFIG_HOME", QByteArray());
    QVERIFY(QDir::home().mkpath(".config/halvorine/qkv720"));
    QVERIFY(QFile::copy("unit.ini", QDir::home().filePath(".config/halvorine/qkv720/qkv720.ini")));
    QCOMPARE(runCtl(words("--json info")).json().value("address").toString(), bench.host.address());
}

void CommandLineTest::savedPort()
{
    const CtlBench bench(kSerialLink);
    CHECKED(writeProfile("port.ini",
                         "interface=2\nipaddress=127.0.0.1\nserialport=" + bench.host.serialPortName()));
    const CtlRun run = runCtl(words("--profile port.ini --json info"));
    QCOMPARE(run.json().value("link").toString(), QStringLiteral("serial"));
    QCOMPARE(run.json().value("address").toString(), bench.host.serialPortName());
}

void CommandLineTest::profilesWithoutAUnit()
{
    const QString advice = QStringLiteral("; name the unit with --host or --serial\n");
    CtlRun run = runCtl(words("--profile nowhere.ini info"));
    QCOMPARE(run.messages, "qkv720ctl: nowhere.ini cannot be read" + advice);
    QCOMPARE(run.exitCode, 2);
    CHECKED(writeProfile("empty.ini", "interface=1\n"));
    run = runCtl(words("--profile empty.ini info"));
    QCOMPARE(run.messages, "qkv720ctl: empty.ini holds no unit" + advice);
    QCOMPARE(run.exitCode, 2);
}

void CommandLineTest::noUnitThere()
{
    const QString deaf = support::deafLoopback();
    CtlRun run = runCtl({"--host", deaf, "info"});
    QCOMPARE(
        run.messages,
        QStringLiteral("qkv720ctl: no unit answers at %1: Get Version failed. Device may be disconnected.\n")
            .arg(deaf));
    QCOMPARE(run.exitCode, 3);
    run = runCtl(words("--serial /no/such/port info"));
    QVERIFY2(run.messages.startsWith("qkv720ctl: no unit answers at /no/such/port: "),
             qPrintable(run.messages));
    QCOMPARE(run.messages.count('\n'), 1);
    QCOMPARE(run.exitCode, 3);
}

void CommandLineTest::timeoutEndsTheWait()
{
    const CtlBench bench;
    bench.host.setFault(standin::AnyCode, standin::Fault::silent());
    // The start of a process is the machine's; the least of some runs stands for the program.
    qint64 least = std::numeric_limits<qint64>::max();
    CtlRun run;
    for (int i = 0; i < 8 && least >= 2000; ++i) {
        QElapsedTimer clock;
        clock.start();
        run = bench.run("--timeout 0.7 info");
        QVERIFY(clock.elapsed() >= 700);
        least = std::min(least, clock.elapsed());
        QCOMPARE(run.messages, QStringLiteral("qkv720ctl: no unit answers within the time of --timeout\n"));
        QCOMPARE(run.exitCode, 3);
    }
    QVERIFY2(least < 2000, qPrintable(QString::number(least)));

    // Later it ends between two exchanges.
    bench.host.clearFaults();
    run = bench.run("--timeout 0.7 get");
    QCOMPARE(run.messages, QStringLiteral("qkv720ctl: the time of --timeout is over\n"));
    QCOMPARE(run.output, QString());
    QCOMPARE(run.exitCode, 3);
}

QTEST_GUILESS_MAIN(CommandLineTest)
#include "tst_commandline.moc"
