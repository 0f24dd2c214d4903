#include "ctl/show.h"
#include "tests/ctl/ctlrun.h"
#include "tests/support/checked.h"
#include "tests/support/loopback.h"

#include <numeric>

using standin::Fault;
using support::CtlBench;
using support::CtlRun;
using support::golden;
using support::linkRows;
using support::runCtl;
using support::words;

// The look of a unit as a file: what it holds, what a load sends, and what is left when the link dies on the way.
class ShowTest : public QObject
{
    Q_OBJECT

private slots:
    void savedFile();
    void schemaOnThePage();
    void everyFieldIsCarried();
    void saveAddsNothingToTheWaits();
    void roundTrip_data() { linkRows(); }
    void roundTrip();
    void anEqualStateSendsNothing();
    void aColourMovesAngleAndLevels();
    void onlyAndDryRun();
    void differences();
    void brokenFiles_data();
    void brokenFiles();
    void aFieldThatDoesNotTake();
    void aFunctionThatIsRefused();
    void oddValuesAreLeftOut();
    void aLinkThatDies_data();
    void aLinkThatDies();
    void beforeCannotBeWritten();
};

namespace {

QByteArray contentOf(const QString &name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void write(const QString &name, const QByteArray &content)
{
    QFile file(name);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(content), content.size());
}

QJsonObject functionsOf(const QString &name)
{
    return QJsonDocument::fromJson(contentOf(name)).object().value("functions").toObject();
}

// Other values in every byte that the unit keeps: one more than the factory's, or one less at the upper end.
void changeAll(standin::Unit &unit)
{
    for (const UnitFunction *function : ctl::Show::functions()) {
        for (const UnitField &field : function->fields) {
            if (field.kind >= FieldKind::Bit0 || !ctl::Show::isSetting(*function, field))
                continue;
            const int held = unit.value(function->getCode, field.name);
            unit.setValue(function->getCode, field.name, held < field.most ? held + 1 : held - 1);
        }
    }
    unit.setValue(standin::InputSelection, "freeze", 5);
    unit.setValue(standin::OutputRouting, "lock", 9);
    unit.setValue(standin::OutputRouting, "mirror", 6);
}

QHash<int, QByteArray> stateOf(const CtlBench &bench)
{
    QHash<int, QByteArray> state;
    bench.host.withUnit([&](standin::Unit &unit) {
        for (const UnitFunction *function : ctl::Show::functions())
            state.insert(function->getCode, unit.data(function->getCode));
    });
    return state;
}

int setsOf(const CtlBench &bench)
{
    int sets = 0;
    for (int code : bench.host.codes())
        sets += code >= standin::SetBit ? 1 : 0;
    return sets;
}

} // namespace

void ShowTest::savedFile()
{
    const CtlBench bench;
    const QDateTime before = QDateTime::currentDateTimeUtc().addSecs(-1); // the file tells whole seconds
    const CtlRun run = bench.run("show save look.json");
    QCOMPARE(run.messages, QString());
    QCOMPARE(run.exitCode, 0);
    QString text = QString::fromUtf8(contentOf("look.json"));
    text.replace(bench.host.address(), "ADDRESS");
    const QString saved = QJsonDocument::fromJson(text.toUtf8()).object().value("saved").toString();
    const QDateTime when = QDateTime::fromString(saved, Qt::ISODate);
    QVERIFY2(when >= before && when <= QDateTime::currentDateTimeUtc(), qPrintable(saved));
    text.replace(saved, "TIME");
    QCOMPARE(text, golden("show.json"));
    QCOMPARE(bench.run("show save /no/such/folder/look.json").exitCode, 2);
}

void ShowTest::schemaOnThePage()
{
    QFile file(QStringLiteral(QT_TESTCASE_SOURCEDIR "/../docs/show-file.schema.json"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(runCtl(words("show schema")).output, QString::fromUtf8(file.readAll()));
}

void ShowTest::everyFieldIsCarried()
{
    const CtlBench bench;
    QCOMPARE(bench.run("show save look.json").exitCode, 0);
    const QJsonObject functions = functionsOf("look.json");
    const QJsonObject schema = ctl::Show::schema()
                                   .value("properties")
                                   .toObject()
                                   .value("functions")
                                   .toObject()
                                   .value("properties")
                                   .toObject();
    int fields = 0;
    for (const UnitFunction *function : functions::all()) {
        const QString name = QLatin1String(function->name);
        QCOMPARE(functions.contains(name), function->set != nullptr);
        QCOMPARE(schema.contains(name), function->set != nullptr);
        for (const UnitField &field : function->fields) {
            if (!function->set)
                continue;
            QVERIFY2(functions.value(name).toObject().contains(QLatin1String(field.name)), field.name);
            ++fields;
        }
    }
    QVERIFY(fields > 80);
}

void ShowTest::saveAddsNothingToTheWaits()
{
    const CtlBench bench;
    // From each frame to the next, the least of the attempts: a busy machine stretches other ones each time.
    QVector<qint64> leastNs;
    double best = 10;
    for (int attempt = 0; attempt < 10 && best > 1.05; ++attempt) {
        bench.host.clearRecord();
        QCOMPARE(bench.run("show save look.json").exitCode, 0);
        const auto record = bench.host.record();
        leastNs.resize(record.size() - 1);
        for (int i = 0; i + 1 < record.size(); ++i) {
            const qint64 ns = record.at(i + 1).ns - record.at(i).ns;
            leastNs[i] = attempt == 0 ? ns : qMin(leastNs.at(i), ns);
        }
        const double ms = std::accumulate(leastNs.cbegin(), leastNs.cend(), 0.0) / 1e6;
        best = ms / (50.0 * leastNs.size());
    }
    QVERIFY2(best <= 1.05, qPrintable(QString::number(best)));
}

void ShowTest::roundTrip()
{
    QFETCH(uint, method);
    const CtlBench bench(method);
    const auto factory = stateOf(bench);
    QCOMPARE(bench.run("show save factory.json").exitCode, 0);
    bench.host.withUnit(changeAll);
    const auto changed = stateOf(bench);
    for (auto it = factory.begin(); it != factory.end(); ++it)
        QVERIFY2(changed.value(it.key()) != it.value(), qPrintable(standin::codeName(it.key())));
    QCOMPARE(bench.run("show save changed.json").exitCode, 0);

    const QStringList files = {"factory.json", "changed.json"};
    const QVector<QHash<int, QByteArray>> states = {factory, changed};
    for (int i = 0; i < files.size(); ++i) {
        const CtlRun run = bench.run({"show", "load", files.at(i)});
        QVERIFY2(run.exitCode == 0, qPrintable(run.messages));
        QCOMPARE(stateOf(bench), states.at(i));
        // What was there before is kept.
        QCOMPARE(functionsOf(files.at(i) + ".before"), functionsOf(files.at(1 - i)));
    }
}

void ShowTest::anEqualStateSendsNothing()
{
    const CtlBench bench;
    bench.host.withUnit(changeAll);
    bench.host.withUnit([](standin::Unit &unit) { unit.setValue(standin::BackColour, "auto", 2); });
    QCOMPARE(bench.run("show save equal.json").exitCode, 0);
    bench.host.clearRecord();
    const CtlRun run = bench.run("show load equal.json");
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.output, QString());
    QCOMPARE(setsOf(bench), 0);
    QVERIFY(!QFile::exists("equal.json.before"));
}

void ShowTest::aColourMovesAngleAndLevels()
{
    const CtlBench bench;
    // As in the file, but not what the unit makes of the file's colour.
    bench.host.withUnit([](standin::Unit &unit) {
        unit.setValue(standin::Angle, "left", 10);
        unit.setValue(standin::Levels, "black", 11);
    });
    QCOMPARE(bench.run("show save colour.json").exitCode, 0);
    bench.host.withUnit([](standin::Unit &unit) { unit.setValue(standin::BackColour, "red", 900); });
    const CtlRun run = bench.run("show load colour.json");
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(bench.value(standin::BackColour, "red"), 120);
    QCOMPARE(bench.value(standin::Angle, "left"), 10);
    QCOMPARE(bench.value(standin::Levels, "black"), 11);
}

void ShowTest::onlyAndDryRun()
{
    const CtlBench bench;
    QCOMPARE(bench.run("show save only.json").exitCode, 0);
    bench.host.withUnit([](standin::Unit &unit) {
        unit.setValue(standin::Dark, "level", 7);
        unit.setValue(standin::Angle, "left", 8);
        unit.setValue(standin::Shadow, "level", 9);
    });
    bench.host.clearRecord();
    CtlRun run = bench.run("show load only.json --dry-run --only DARK,angle");
    QCOMPARE(run.output,
             QStringLiteral("ANGLE  left   8 degrees  ->  45 degrees\n"
                            "DARK   level  7          ->  200\n"));
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(setsOf(bench), 0);
    QVERIFY(!QFile::exists("only.json.before"));

    run = bench.run("show load only.json --only DARK,angle --json");
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(setsOf(bench), 2);
    QCOMPARE(bench.value(standin::Dark, "level"), 200);
    QCOMPARE(bench.value(standin::Angle, "left"), 45);
    QCOMPARE(bench.value(standin::Shadow, "level"), 9);
    const QJsonObject level = run.json().value("DARK").toObject().value("level").toObject();
    QCOMPARE(level, (QJsonObject{{"before", 7}, {"now", 200}}));
    QCOMPARE(bench.run("show load only.json --only CURSOR").exitCode, 2);
    QCOMPARE(bench.run("show load only.json --only GREY").exitCode, 2);
}

void ShowTest::differences()
{
    const CtlBench bench;
    QCOMPARE(bench.run("show save one.json").exitCode, 0);
    QCOMPARE(bench.run("show diff one.json").output, QString());
    bench.host.withUnit([](standin::Unit &unit) { unit.setValue(standin::OutputRouting, "pgm", 2); });
    const QString line = QStringLiteral("OUTPUT_ROUTING  pgm  COMP  ->  BG\n");
    QCOMPARE(bench.run("show diff one.json").output, line);
    QCOMPARE(bench.run("show save two.json").exitCode, 0);
    bench.host.clearRecord();
    QCOMPARE(bench.run("show diff one.json two.json").output, line);
    QCOMPARE(bench.run("show diff one.json two.json --only DARK").output, QString());
    QCOMPARE(bench.host.record().size(), 0); // two files need no unit
}

void ShowTest::brokenFiles_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("sentence");
    const auto row = [](const char *name, const char *functions, const char *sentence) {
        QTest::newRow(name) << QByteArray("{\"format\": \"qkv720-show\", \"version\": 1, \"functions\": ")
                + functions
                + '}' << QString::fromLatin1(sentence);
    };
    const auto whole = [](const char *name, const char *content, const char *sentence) {
        QTest::newRow(name) << QByteArray(content) << QString::fromLatin1(sentence);
    };
    whole("empty", "", "no JSON, at byte 0: illegal value");
    whole("cut off", "{\"format\": \"qkv", "no JSON, at byte 16: unterminated string");
    whole("a list", "[1]", "no show file");
    whole("something else", "{\"format\": \"other\"}", "no show file");
    whole("later version", "{\"format\": \"qkv720-show\", \"version\": 2}",
          "a show file of version 2, and this program reads version 1");
    whole("version as text", "{\"format\": \"qkv720-show\", \"version\": \"1\"}",
          "a show file of version 1, and this program reads version 1");
    whole("no functions", "{\"format\": \"qkv720-show\", \"version\": 1}", "it holds no functions");
    whole("unknown part", "{\"format\": \"qkv720-show\", \"version\": 1, \"functions\": {}, \"more\": 1}",
          "more is no part of a show file");
    row("functions are a list", "[]", "it holds no functions");
    row("unknown function", "{\"GREY\": {}}", "GREY is no function of a show");
    row("what cannot be set", "{\"INPUT_STANDARD\": {}}", "INPUT_STANDARD is no function of a show");
    row("the blur's other name", "{\"AUX_MODE\": {}}", "AUX_MODE is no function of a show");
    row("no fields", "{\"DARK\": 1}", "DARK holds no fields");
    row("unknown field", "{\"DARK\": {\"depth\": 1}}", "DARK has no field depth");
    row("past the range", "{\"DARK\": {\"level\": 1001}}", "DARK level takes 0 to 1000");
    row("no whole number", "{\"DARK\": {\"level\": 1.5}}", "DARK level takes 0 to 1000");
    row("no number", "{\"DARK\": {\"level\": [1]}}", "DARK level takes 0 to 1000");
    row("nothing", "{\"DARK\": {\"level\": null}}", "DARK level takes 0 to 1000");
    row("unknown word", "{\"DARK\": {\"enable\": \"maybe\"}}", "DARK enable takes off or on");
    row("wrong unit", "{\"ANGLE\": {\"left\": \"4 pixels\"}}", "ANGLE left takes 0 to 120 degrees");
}

void ShowTest::brokenFiles()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, sentence);
    CHECKED(write("broken.json", content));
    const CtlRun run = runCtl({"--host", support::deafLoopback(), "show", "load", "broken.json"});
    QCOMPARE(run.messages, "qkv720ctl: broken.json: " + sentence + '\n');
    QCOMPARE(run.exitCode, 2);
}

void ShowTest::aFieldThatDoesNotTake()
{
    const CtlBench bench;
    write("take.json",
          "{\"format\": \"qkv720-show\", \"version\": 1, \"functions\": "
          "{\"DARK\": {\"level\": 300, \"enable\": \"off\"}, \"SHADOW\": {\"level\": 1}}}");
    // It reads back with the level of before, but switched off.
    bench.host.setFault(standin::Dark, Fault::answer(QByteArray::fromHex("09005300c800e8036473")));
    const CtlRun run = bench.run("show load take.json");
    QCOMPARE(run.messages, QStringLiteral("qkv720ctl: DARK level did not take 300; the unit holds 200\n"));
    QCOMPARE(run.output, QStringLiteral("SHADOW  level  250  ->  1\n"));
    QCOMPARE(run.exitCode, 4);
}

void ShowTest::aFunctionThatIsRefused()
{
    const CtlBench bench;
    write("refused.json",
          "{\"format\": \"qkv720-show\", \"version\": 1, \"functions\": "
          "{\"DARK\": {\"level\": 300}, \"SHADOW\": {\"level\": 1}}}");
    bench.host.setFault(standin::Dark + standin::SetBit, Fault::refuse());
    CtlRun run = bench.run("show load refused.json");
    QCOMPARE(run.messages,
             QStringLiteral("qkv720ctl: DARK: the unit refuses the command\n"
                            "qkv720ctl: DARK level did not take 300; the unit holds 200\n"));
    QCOMPARE(run.exitCode, 4);
    QCOMPARE(bench.value(standin::Shadow, "level"), 1);
    run = bench.run("show load refused.json");
    QCOMPARE(run.exitCode, 1); // nothing else was left to set
}

void ShowTest::oddValuesAreLeftOut()
{
    const CtlBench bench;
    bench.host.withUnit([](standin::Unit &unit) { unit.setValue(standin::OutputRouting, "pgm", 77); });
    const CtlRun run = bench.run("show save odd.json");
    QCOMPARE(run.messages,
             QStringLiteral("qkv720ctl: OUTPUT_ROUTING pgm holds 77, outside of FG, BG, AUX, MATTE, PFG or "
                            "COMP; it is left out\n"));
    QCOMPARE(run.exitCode, 4);
    QVERIFY(!functionsOf("odd.json").value("OUTPUT_ROUTING").toObject().contains("pgm"));
    QCOMPARE(bench.run("show diff odd.json").exitCode, 0);
}

void ShowTest::aLinkThatDies_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<int>("exitCode");
    QTest::addColumn<QString>("left");
    QTest::newRow("before the first") << int(standin::Angle) << 3 << QString();
    QTest::newRow("at the first set")
        << standin::Angle + standin::SetBit << 3 << QStringLiteral("ANGLE, DARK, SHADOW");
    QTest::newRow("at the second") << standin::Dark + standin::SetBit << 4 << QStringLiteral("DARK, SHADOW");
    QTest::newRow("at the last") << standin::Shadow + standin::SetBit << 4 << QStringLiteral("SHADOW");
}

void ShowTest::aLinkThatDies()
{
    QFETCH(int, code);
    QFETCH(int, exitCode);
    QFETCH(QString, left);
    const CtlBench bench;
    write("dies.json",
          "{\"format\": \"qkv720-show\", \"version\": 1, \"functions\": "
          "{\"DARK\": {\"level\": 300}, \"SHADOW\": {\"level\": 1}, \"ANGLE\": {\"left\": 4}}}");
    QFile::remove("dies.json.before");
    bench.host.setFault(code, Fault::closeLink());
    const CtlRun run = bench.run("show load dies.json");
    QCOMPARE(run.exitCode, exitCode);
    QVERIFY2(
        run.messages.startsWith(
            QStringLiteral("qkv720ctl: the unit at %1 does not answer any more\n").arg(bench.host.address())),
        qPrintable(run.messages));
    QCOMPARE(run.messages.section('\n', 1, 1),
             left.isEmpty() ? QString() : "qkv720ctl: not set, or not known to be: " + left);
    QCOMPARE(run.output.count('\n'), left.isEmpty() ? 0 : 3 - left.split(',').size());
    // The look from before is there as soon as anything was sent.
    QCOMPARE(functionsOf("dies.json.before").value("DARK").toObject().value("level").toInt(),
             left.isEmpty() ? 0 : 200);
}

void ShowTest::beforeCannotBeWritten()
{
    const CtlBench bench;
    write("locked.json",
          "{\"format\": \"qkv720-show\", \"version\": 1, \"functions\": {\"SHADOW\": {\"level\": 1}}}");
    QVERIFY(QDir().mkpath("locked.json.before/full"));
    const CtlRun run = bench.run("show load locked.json");
    QVERIFY2(run.messages.endsWith("; nothing was sent\n"), qPrintable(run.messages));
    QCOMPARE(run.exitCode, 2);
    QCOMPARE(setsOf(bench), 0);
}

QTEST_GUILESS_MAIN(ShowTest)
#include "tst_show.moc"
