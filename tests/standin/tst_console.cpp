// The words on standard input: what each answers, what it changes, what it refuses.

#include "standin/console.h"
#include "standin/discoverycodes.h"
#include "standin/faulttext.h"
#include "tests/support/loopback.h"
#include "tests/support/rawlink.h"

#include <QElapsedTimer>
#include <QFile>
#include <QJsonDocument>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

using standin::Appliance;
using standin::Console;

class TestConsole : public QObject
{
    Q_OBJECT

private slots:
    void answers_data();
    void answers();
    void valuesStayWithinTheirFields();
    void aValueThatIsSetIsSaved();
    void inputsFollowWhatIsSet();
    void linesInPieces();
    void endlessLine();
    void nothingAfterQuit();
    void chosenUnit();
    void restart();
    void helpNamesEverything();
    void everyNameOfAFrameIsACode();
    void faultOfAResetAlone();
    void faultLimits_data();
    void faultLimits();
};

namespace {

QString hex(const QByteArray &data)
{
    return QString::fromLatin1(data.toHex(' '));
}

QByteArray ask(standin::Unit &unit, int code, const QByteArray &payload, int ext = 0)
{
    const QByteArray body = support::requestBody(code, payload, ext);
    return unit.handle(standin::LinkKind::Serial, standin::parseFrame(standin::LinkKind::Serial, body))
        .bytes();
}

} // namespace

void TestConsole::answers_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("answer");
    const auto row = [](const char *line, const char *answer) {
        QTest::newRow(line) << QString::fromLatin1(line) << QString::fromLatin1(answer);
    };
    row("", "");
    row("   ", "");
    row("dance", "no such command: dance (try help)");
    row("fault", "it is written: fault CODE KIND [TIMES]");
    row("fault D2 melt", "no such fault: melt");
    row("fault 1F0 silent", "no such code: 1F0");
    row("fault RESET_VERSION silent", "no such code: RESET_VERSION");
    row("fault SET_DARK silent 3", "ok");
    row("FAULT reset_dark Late 20", "ok");
    row("clear", "ok");
    row("clear ETH_REQ", "ok");
    row("clear XY", "no such code: XY");
    row("clear 50 51", "it is written: clear [CODE]");
    row("record", "0 frames");
    row("record 5", "it is written: record");
    row("forget", "ok");
    row("set dark level 7", "ok");
    row("set DARK colour 7", "no such field: colour of DARK");
    row("set LIGHT level 7", "no such function: LIGHT");
    row("set DARK level", "it is written: set FUNCTION FIELD VALUE");
    row("set DARK level seven", "level takes a number from 0 to 65535");
    row("set DARK balance 256", "balance takes a number from 0 to 255");
    row("set INPUT_SELECTION h 32768", "h takes a number from -32768 to 32767");
    row("recall 0", "ok");
    row("recall 9", "memories are 1 to 8; recall 0 is the factory's");
    row("save 8", "ok");
    row("save 0", "memories are 1 to 8; recall 0 is the factory's");
    row("save", "it is written: save N");
    row("connector 4 32", "ok");
    row("connector 5 0", "connectors are 0 to 4, standards 0 (nothing) to 32");
    row("connector 0 33", "connectors are 0 to 4, standards 0 (nothing) to 32");
    row("drop", "ok");
    row("unit 1", "ok");
    row("unit 2", "units are 1 to 1");
    row("units", "1 QKV720  (chosen)");
    row("quit", "ok");
}

void TestConsole::answers()
{
    QFETCH(QString, line);
    QFETCH(QString, answer);
    Appliance appliance;
    Console console({&appliance});
    QCOMPARE(console.execute(line), answer);
    QCOMPARE(console.wantsQuit(), line == QLatin1String("quit"));
}

void TestConsole::valuesStayWithinTheirFields()
{
    Appliance appliance;
    Console console({&appliance});
    for (const standin::Function &function : standin::functions()) {
        for (const standin::Field &field : function.fields) {
            const auto set = [&](int value) {
                return console.execute(QStringLiteral("set %1 %2 %3")
                                           .arg(QLatin1String(function.name), QLatin1String(field.name))
                                           .arg(value));
            };
            const int low = field.isSigned ? -32768 : 0;
            const int high = field.isSigned ? 32767 : field.width == 1 ? 255 : 65535;
            const QString name = QLatin1String(field.name);
            for (int value : {high, low}) {
                QCOMPARE(set(value), QStringLiteral("ok"));
                if (function.code != standin::InputStandard) // it follows the inputs
                    QCOMPARE(appliance.unit.value(function.code, name), value);
            }
            for (int value : {low - 1, high + 1})
                QVERIFY(set(value).startsWith(name + QStringLiteral(" takes a number from ")));
            QVERIFY(!appliance.unit.setValue(function.code, name, high + 1));
        }
    }
}

void TestConsole::aValueThatIsSetIsSaved()
{
    QTemporaryDir folder;
    Appliance appliance;
    Appliance::Setup setup;
    setup.network = false;
    setup.discovery = false;
    setup.stateFile = folder.filePath(QStringLiteral("unit.json"));
    QString error;
    QVERIFY2(appliance.start(setup, &error), qPrintable(error));
    Console console({&appliance});
    const auto saved = [&setup](const char *function, const char *field) {
        QFile file(setup.stateFile);
        file.open(QIODevice::ReadOnly);
        const QJsonObject present =
            QJsonDocument::fromJson(file.readAll()).object().value(QStringLiteral("present")).toObject();
        return present.value(QLatin1String(function)).toObject().value(QLatin1String(field)).toInt();
    };
    QCOMPARE(saved("DARK", "level"), 200);
    console.execute(QStringLiteral("set DARK level 321"));
    QTRY_COMPARE(saved("DARK", "level"), 321);
    console.execute(QStringLiteral("recall 0"));
    QTRY_COMPARE(saved("DARK", "level"), 200);
}

void TestConsole::inputsFollowWhatIsSet()
{
    Appliance appliance;
    Console console({&appliance});
    console.execute(QStringLiteral("connector 3 22"));
    console.execute(QStringLiteral("set INPUT_SELECTION fg 3"));
    QCOMPARE(appliance.unit.value(standin::InputStandard, QStringLiteral("fg")), 22);
}

void TestConsole::linesInPieces()
{
    Appliance appliance;
    Console console({&appliance});
    QCOMPARE(console.take("set DARK le"), QStringList());
    QCOMPARE(console.take("vel 5\n\nset DARK level 6\nsav"), QStringList({"ok", "ok"}));
    QCOMPARE(console.take("e 1\n"), QStringList("ok"));
    QCOMPARE(appliance.unit.memoryData(1, standin::Dark), appliance.unit.data(standin::Dark));
    QCOMPARE(appliance.unit.value(standin::Dark, QStringLiteral("level")), 6);
}

void TestConsole::endlessLine()
{
    Appliance appliance;
    Console console({&appliance});
    QStringList answers;
    for (int i = 0; i < 20; ++i)
        answers += console.take(QByteArray(4096, 'x'));
    QCOMPARE(answers, QStringList("a line of more than 65536 bytes is dropped"));
    console.take("\n");
    QCOMPARE(console.take("forget\n"), QStringList("ok"));
}

void TestConsole::nothingAfterQuit()
{
    Appliance appliance;
    Console console({&appliance});
    QCOMPARE(console.take("quit\nset DARK level 1\n"), QStringList("ok"));
    QCOMPARE(appliance.unit.value(standin::Dark, QStringLiteral("level")), 200);
}

void TestConsole::chosenUnit()
{
    Appliance first;
    Appliance second;
    first.discovery.settings.address = QHostAddress(QStringLiteral("10.0.0.1"));
    second.discovery.settings.address = QHostAddress(QStringLiteral("10.0.0.2"));
    second.discovery.settings.name = QStringLiteral("OTHER");
    Console console({&first, &second});
    QCOMPARE(console.execute(QStringLiteral("unit 3")), QStringLiteral("units are 1 to 2"));
    QCOMPARE(console.execute(QStringLiteral("unit 2")), QStringLiteral("ok"));
    console.execute(QStringLiteral("set DARK level 7"));
    console.execute(QStringLiteral("fault any silent"));
    QCOMPARE(first.unit.value(standin::Dark, QStringLiteral("level")), 200);
    QCOMPARE(second.unit.value(standin::Dark, QStringLiteral("level")), 7);
    QVERIFY(!ask(first.unit, 0x53, {}).isEmpty());
    QVERIFY(ask(second.unit, 0x53, {}).isEmpty());
    QCOMPARE(console.execute(QStringLiteral("units")),
             QStringLiteral("1 QKV720 10.0.0.1\n2 OTHER 10.0.0.2 (chosen)"));
}

void TestConsole::restart()
{
    Appliance other;
    Appliance appliance;
    Appliance::Setup setup;
    setup.restartMs = 300;
    setup.discovery = false;
    appliance.discovery.settings.address = QHostAddress(support::ownLoopback(1));
    QString error;
    QVERIFY2(appliance.start(setup, &error), qPrintable(error));
    QSignalSpy told(&appliance, &Appliance::told);
    QSignalSpy toldByTheOther(&other, &Appliance::told);
    support::RawNetwork link(support::ownLoopback(1));
    QTRY_COMPARE(told.count(), 1); // a client came
    told.clear();

    Console console({&other, &appliance});
    console.execute(QStringLiteral("unit 2"));
    QElapsedTimer clock;
    clock.start();
    QCOMPARE(console.execute(QStringLiteral("restart")), QStringLiteral("ok"));
    QCOMPARE(told.value(0).value(0).toString(), QStringLiteral("restarting"));
    QVERIFY(link.waitForEnd());
    QVERIFY(!support::RawNetwork(support::ownLoopback(1)).isUp());
    QTRY_COMPARE(told.last().value(0).toString(), appliance.whereabouts());
    QVERIFY(clock.elapsed() >= setup.restartMs);
    QVERIFY(support::RawNetwork(support::ownLoopback(1)).isUp());
    QCOMPARE(toldByTheOther.count(), 0);
}

void TestConsole::helpNamesEverything()
{
    const QString help = Console::help();
    QStringList wanted = {"late MS",   "silent",    "short BYTES", "split BYTES MS", "sum ",
                          "refuse 81", "refuse 82", "nack",        "close",          "answer HEX"};
    for (const char *verb : {"fault CODE", "clear", "record", "forget", "state", "set FUNCTION", "recall N",
                             "save N", "connector N", "drop", "restart", "unit N", "units", "help", "quit"})
        wanted.append(QStringLiteral("\n  ") + QLatin1String(verb));
    wanted.append({"SAVE_SETUP", "ETH_REQ", "SET_SECDNS", "GET_MODEL_NAME"});
    for (const standin::Function &function : standin::functions()) {
        wanted.append(QStringLiteral(" GET_") + QLatin1String(function.name));
        if (function.use == standin::Function::Setting)
            wanted.append({QStringLiteral(" SET_") + QLatin1String(function.name),
                           QStringLiteral(" RESET_") + QLatin1String(function.name)});
        for (const standin::Field &field : function.fields)
            wanted.append(QStringLiteral(" ") + QLatin1String(field.name));
    }
    for (const QString &word : wanted)
        QVERIFY2((QLatin1Char('\n') + help).contains(word), qPrintable(word));
    // What the help doesn't say, nobody can do.
    for (const char *word : {"SET_VERSION", "RESET_MEMORY", "SET_INPUT_STANDARD"})
        QVERIFY2(!help.contains(QLatin1String(word)), word);
}

void TestConsole::everyNameOfAFrameIsACode()
{
    for (int code = 0; code < 0x100; ++code) {
        for (int ext : {0, 0x80}) {
            Appliance appliance;
            ask(appliance.unit, code, {}, ext);
            const QString name = appliance.unit.record().first().name();
            const bool isReset = ext != 0 && standin::canBeReset(code);
            if (ext == 0 || isReset)
                QCOMPARE(standin::codeFromText(name), isReset ? standin::resetCode(code) : code);
        }
    }
    for (const standin::DiscoveryFunction &function : standin::discoveryFunctions()) {
        const QString name = standin::discoveryName(function.command);
        QCOMPARE(standin::codeFromText(name), standin::discoveryCode(function.command));
    }
}

void TestConsole::faultOfAResetAlone()
{
    Appliance appliance;
    Console console({&appliance});
    const QByteArray angle = QByteArray::fromHex("0102");
    console.execute(QStringLiteral("fault RESET_ANGLE refuse 82 1"));
    console.execute(QStringLiteral("fault SET_ANGLE refuse 81"));
    QCOMPARE(hex(ask(appliance.unit, 0xD1, angle)), QStringLiteral("02 81 83"));
    QCOMPARE(hex(ask(appliance.unit, 0xD1, QByteArray(2, '\0'), 0x80)), QStringLiteral("02 82 84"));
    QCOMPARE(hex(ask(appliance.unit, 0xD1, QByteArray(2, '\0'), 0x80)), QStringLiteral("02 81 83"));
    console.execute(QStringLiteral("clear SET_ANGLE"));
    QCOMPARE(hex(ask(appliance.unit, 0xD1, QByteArray(2, '\0'), 0x80)), QStringLiteral("05 00 d1 2d 2d 30"));
}

void TestConsole::faultLimits_data()
{
    QTest::addColumn<QString>("text");
    for (const char *text :
         {"D2 late -1",      "D2 late 600001", "D2 late 5000000000", "D2 short -1", "D2 short 4097",
          "D2 split 3",      "D2 split -3 10", "D2 split 3 -10",     "D2 silent 0", "D2 silent -1",
          "D2 refuse",       "D2 refuse 100",  "D2 refuse xy",       "D2 answer",   "D2 answer 0",
          "D2 answer 0102z", "D2 late 5 1 1",  "-2 silent",          "0x silent",   "+50 silent"})
        QTest::newRow(text) << QString::fromLatin1(text);
}

void TestConsole::faultLimits()
{
    QFETCH(QString, text);
    Appliance appliance;
    Console console({&appliance});
    const QString answer = console.execute(QStringLiteral("fault ") + text);
    QVERIFY2(answer.contains(QStringLiteral("a fault is written CODE KIND [TIMES]"))
                 || answer.startsWith(QStringLiteral("no such code: ")),
             qPrintable(answer));
    QCOMPARE(ask(appliance.unit, 0x52, {}).size(), 9);
    QCOMPARE(ask(appliance.unit, 0xD2, QByteArray(5, '\0')).size(), 9);
}

QTEST_GUILESS_MAIN(TestConsole)
#include "tst_console.moc"
