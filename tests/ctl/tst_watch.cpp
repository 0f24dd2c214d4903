#include "tests/ctl/ctlrun.h"

using support::CtlBench;

// What a watch prints, and when.
class WatchTest : public QObject
{
    Q_OBJECT

private slots:
    void changesWithinOneInterval();
    void everythingAsJson();
    void endsWithTheLink();
};

namespace {

// The program at work until it is told to end.
class Watching
{
public:
    Watching(const CtlBench &bench, const QStringList &options)
    {
        process.start(QStringLiteral(CTL_PROGRAM), bench.place() + QStringList{"watch"} + options);
    }
    ~Watching() { end(); }
    Watching(const Watching &) = delete;
    Watching &operator=(const Watching &) = delete;

    bool isReady()
    {
        process.setReadChannel(QProcess::StandardError);
        const bool ready =
            process.waitForReadyRead(10000) && process.readLine().startsWith("qkv720ctl: watching ");
        process.setReadChannel(QProcess::StandardOutput);
        return ready;
    }
    QString line(int ms)
    {
        return process.canReadLine() || process.waitForReadyRead(ms) ? process.readLine() : "";
    }
    void end()
    {
        process.terminate();
        process.waitForFinished(5000);
    }

    QProcess process;
};

void change(const CtlBench &bench, int code, const char *field, int value)
{
    bench.host.withUnit([&](standin::Unit &unit) { unit.setValue(code, QLatin1String(field), value); });
}

} // namespace

void WatchTest::changesWithinOneInterval()
{
    const CtlBench bench;
    Watching watching(bench, {"--interval", "600"});
    QVERIFY(watching.isReady());
    change(bench, standin::Dark, "level", 5); // not watched without --all
    const QRegularExpression time("^[0-9]{2}:[0-9]{2}:[0-9]{2}\\.[0-9]{3}  ");
    // A busy machine may be late; one that looks less often than it was told is late each time.
    const auto next = [&] { return watching.line(10000).remove(time); };
    bench.host.withUnit([](standin::Unit &unit) {
        for (int connector = 0; connector < 5; ++connector)
            unit.setConnector(connector, connector == 0 ? 3 : 15);
    });
    QCOMPARE(next(), QStringLiteral("INPUT_STANDARD fg  1080p59.94 -> 720p50\n"));
    change(bench, standin::InputSelection, "h", 7);
    QCOMPARE(next(), QStringLiteral("INPUT_SELECTION h  0 -> 7\n"));
    change(bench, standin::OutputStandard, "standard", 3);
    QCOMPARE(next(), QStringLiteral("OUTPUT_STANDARD standard  1080p59.94 -> 720p50\n"));
    int best = 10000;
    for (int attempt = 0; attempt < 12 && best > 600 + 150 + 50; ++attempt) {
        QElapsedTimer clock;
        clock.start();
        change(bench, standin::InputSelection, "v", attempt + 1);
        QVERIFY(next().startsWith("INPUT_SELECTION v"));
        best = qMin(best, int(clock.elapsed()));
    }
    QVERIFY2(best <= 600 + 150 + 50, qPrintable(QString::number(best)));
    QCOMPARE(watching.line(1300), QString()); // nothing more happened
    watching.end();
    QCOMPARE(watching.process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(watching.process.exitCode(), 0);
}

void WatchTest::everythingAsJson()
{
    const CtlBench bench;
    Watching watching(bench, {"--interval", "1200", "--all", "--json"});
    QVERIFY(watching.isReady());
    change(bench, standin::Dark, "enable", 0);
    const QJsonObject line = QJsonDocument::fromJson(watching.line(10000).toUtf8()).object();
    QCOMPARE(line.value("function").toString(), QStringLiteral("DARK"));
    QCOMPARE(line.value("field").toString(), QStringLiteral("enable"));
    QCOMPARE(line.value("before").toString(), QStringLiteral("on"));
    QCOMPARE(line.value("now").toString(), QStringLiteral("off"));
    QVERIFY(QDateTime::fromString(line.value("time").toString(), Qt::ISODateWithMs).isValid());
}

void WatchTest::endsWithTheLink()
{
    const CtlBench bench;
    Watching watching(bench, {});
    QVERIFY(watching.isReady());
    bench.host.setFault(standin::AnyCode, standin::Fault::silent());
    QVERIFY(watching.process.waitForFinished(20000));
    QCOMPARE(watching.process.exitCode(), 3);
    QCOMPARE(
        QString::fromUtf8(watching.process.readAllStandardError()),
        QStringLiteral("qkv720ctl: the unit at %1 does not answer any more\n").arg(bench.host.address()));
}

QTEST_GUILESS_MAIN(WatchTest)
#include "tst_watch.moc"
