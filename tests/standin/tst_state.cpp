// What a state file may hold, and that whatever else lies at its path is left alone.

#include "tests/standin/program.h"

#include "standin/appliance.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTemporaryDir>
#include <QtTest>

#include <sys/stat.h>

using standin::Appliance;
using standin::Unit;

class TestState : public QObject
{
    Q_OBJECT

private slots:
    void everythingComesBack();
    void refusedValues_data();
    void refusedValues();
    void refusedNetwork_data();
    void refusedNetwork();
    void foreignFilesStayAsTheyAre_data();
    void foreignFilesStayAsTheyAre();
    void noOrdinaryFile();
    void folderThatIsNotThere();
    void failedStartWritesNothing();
    void lostFolderIsToldOnce();

private:
    QTemporaryDir folder;
};

namespace {

QJsonObject object(const char *text)
{
    return QJsonDocument::fromJson(text).object();
}

QByteArray contents(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no file)");
}

Appliance::Setup withoutLinks(const QString &stateFile)
{
    Appliance::Setup setup;
    setup.network = false;
    setup.discovery = false;
    setup.stateFile = stateFile;
    return setup;
}

} // namespace

void TestState::everythingComesBack()
{
    const QString path = folder.filePath(QStringLiteral("whole.json"));
    QString error;
    {
        Appliance first;
        QVERIFY(first.start(withoutLinks(path), &error));
        first.unit.setValue(standin::InputSelection, QStringLiteral("h"), -32768);
        first.unit.setValue(standin::Dark, QStringLiteral("density"), 65535);
        first.unit.saveMemory(8);
        first.unit.setConnector(3, 22);
        first.discovery.settings.name = QStringLiteral("A \"B\" \u4e2d");
        first.discovery.settings.nextAddress = QHostAddress(QStringLiteral("10.0.0.7"));
    }
    Appliance second;
    QVERIFY2(second.loadState(path, &error), qPrintable(error));
    QCOMPARE(second.unit.value(standin::InputSelection, QStringLiteral("h")), -32768);
    QCOMPARE(second.unit.value(standin::Dark, QStringLiteral("density")), 65535);
    QCOMPARE(second.unit.value(standin::InputStandard, QStringLiteral("aux")), 22);
    QCOMPARE(second.unit.memoryData(8, standin::Dark), second.unit.data(standin::Dark));
    QCOMPARE(second.discovery.settings.name, QStringLiteral("A \"B\" \u4e2d"));
    QCOMPARE(second.discovery.settings.nextAddress.toString(), QStringLiteral("10.0.0.7"));
}

void TestState::refusedValues_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("reason");
    QTest::newRow("no object") << R"({"present": 5})"
                               << "present is no object";
    QTest::newRow("no function") << R"({"present": {"LIGHT": {}}})"
                                 << "present.LIGHT is no function that this unit keeps";
    QTest::newRow("not kept") << R"({"present": {"VERSION": {}}})"
                              << "present.VERSION is no function that this unit keeps";
    QTest::newRow("no record") << R"({"present": {"DARK": [1]}})"
                               << "present.DARK is no object";
    QTest::newRow("no field") << R"({"present": {"DARK": {"colour": 1}}})"
                              << "present.DARK.colour is no value of this unit";
    QTest::newRow("text") << R"({"present": {"DARK": {"level": "7"}}})"
                          << "present.DARK.level wants a whole number from 0 to 65535";
    QTest::newRow("fraction") << R"({"present": {"DARK": {"level": 7.5}}})"
                              << "present.DARK.level wants a whole number from 0 to 65535";
    QTest::newRow("too wide") << R"({"present": {"DARK": {"balance": 256}}})"
                              << "present.DARK.balance wants a whole number from 0 to 255";
    QTest::newRow("too low") << R"({"present": {"INPUT_SELECTION": {"h": -32769}}})"
                             << "present.INPUT_SELECTION.h wants a whole number from -32768 to 32767";
    QTest::newRow("huge") << R"({"present": {"DARK": {"level": 1e300}}})"
                          << "present.DARK.level wants a whole number from 0 to 65535";
    QTest::newRow("memories") << R"({"memories": {}})"
                              << "memories is no list of 8 or fewer";
    QTest::newRow("nine memories") << R"({"memories": [{},{},{},{},{},{},{},{},{}]})"
                                   << "memories is no list of 8 or fewer";
    QTest::newRow("memory") << R"({"memories": [{}, {"DARK": {"level": -1}}]})"
                            << "memories[1].DARK.level wants a whole number from 0 to 65535";
    QTest::newRow("no memory") << R"({"memories": [7]})"
                               << "memories[0] is no object";
    QTest::newRow("connectors") << R"({"connectors": [0, 33]})"
                                << "connectors[1] wants a whole number from 0 to 32";
}

void TestState::refusedValues()
{
    QFETCH(QString, text);
    QFETCH(QString, reason);
    Unit unit;
    const QJsonObject before = unit.toJson();
    QJsonObject json = object(qPrintable(text));
    QVERIFY(!json.isEmpty());
    QCOMPARE(unit.fromJson(json), reason);
    // What is good beside it is not taken either.
    if (!json.contains(QStringLiteral("present"))) {
        json.insert(QStringLiteral("present"), object(R"({"DARK": {"level": 1}})"));
        QCOMPARE(unit.fromJson(json), reason);
    }
    QCOMPARE(unit.toJson(), before);
}

void TestState::refusedNetwork_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("reason");
    const QString address = QStringLiteral("wants an address such as 192.168.1.10");
    QTest::newRow("address") << R"({"address": "127.1"})"
                             << "network.address " + address;
    QTest::newRow("number") << R"({"mask": 24})"
                            << "network.mask " + address;
    QTest::newRow("too large") << R"({"gateway": "1.2.3.256"})"
                               << "network.gateway " + address;
    QTest::newRow("next") << R"({"nextAddress": "::1"})"
                          << "network.nextAddress " + address;
    QTest::newRow("flag") << R"({"dhcp": 1})"
                          << "network.dhcp wants true or false";
    QTest::newRow("name") << R"({"name": 1})"
                          << "network.name wants a text";
    QTest::newRow("mac") << R"({"mac": "00:11"})"
                         << "network.mac wants an address such as 00:50:C2:72:00:01";
}

void TestState::refusedNetwork()
{
    QFETCH(QString, text);
    QFETCH(QString, reason);
    standin::NetworkSettings settings;
    const QJsonObject before = settings.toJson();
    QJsonObject json = object(qPrintable(text));
    QVERIFY(!json.isEmpty());
    json.insert(QStringLiteral("secondaryDns"), QStringLiteral("9.9.9.9"));
    QCOMPARE(settings.fromJson(json), reason);
    QCOMPARE(settings.toJson(), before);
}

void TestState::foreignFilesStayAsTheyAre_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("reason");
    QTest::newRow("empty") << QByteArray() << "is no state of a unit: illegal value at byte";
    QTest::newRow("words") << QByteArray("Dear Sir") << "is no state of a unit: illegal value at byte";
    QTest::newRow("cut") << QByteArray("{\"present\": {") << "is no state of a unit: unterminated object";
    QTest::newRow("list") << QByteArray("[1]") << "is no state of a unit: it holds no \"present\"";
    QTest::newRow("another's") << QByteArray("{\"name\": \"app\"}")
                               << "is no state of a unit: it holds no \"present\"";
    QTest::newRow("wrong value") << QByteArray("{\"present\": {\"DARK\": {\"level\": -1}}}")
                                 << "is no state of a unit: present.DARK.level wants";
    QTest::newRow("wrong network") << QByteArray("{\"present\": {}, \"network\": 4}")
                                   << "is no state of a unit: network is no object";
    QTest::newRow("large") << QByteArray(2 * 1024 * 1024, ' ') << "it is larger than 1 MiB";
}

void TestState::foreignFilesStayAsTheyAre()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, reason);
    const QString path = folder.filePath(QStringLiteral("foreign"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(text);
    file.close();
    support::Program program({QStringLiteral("--no-network"), QStringLiteral("--no-discovery"),
                              QStringLiteral("--serial"), QStringLiteral("pty"), QStringLiteral("--state"),
                              path});
    const QString said = program.lastWords();
    QCOMPARE(program.process.exitCode(), 1);
    QVERIFY2(said.startsWith(QStringLiteral("qkv720-unit: ") + path), qPrintable(said));
    QVERIFY2(said.contains(reason), qPrintable(said));
    QCOMPARE(said.count(QLatin1Char('\n')), 1);
    QCOMPARE(contents(path), text);
}

void TestState::noOrdinaryFile()
{
    const QString pipe = folder.filePath(QStringLiteral("pipe"));
    QCOMPARE(::mkfifo(qPrintable(pipe), 0600), 0);
    for (const QString &path : {pipe, folder.path()}) {
        Appliance appliance;
        QString error;
        QVERIFY(!appliance.loadState(path, &error));
        QCOMPARE(error, path + QStringLiteral(" can't be the state: it is no ordinary file"));
    }
    Appliance appliance;
    Appliance::Setup setup = withoutLinks({});
    setup.logFile = pipe;
    QString error;
    QVERIFY(!appliance.start(setup, &error));
    QCOMPARE(error, pipe + QStringLiteral(" can't be the log: it is no ordinary file"));
}

void TestState::folderThatIsNotThere()
{
    const QString path = folder.filePath(QStringLiteral("nowhere/unit.json"));
    Appliance appliance;
    QString error;
    QVERIFY(appliance.loadState(path, &error));
    QVERIFY(!appliance.start(withoutLinks(path), &error));
    QCOMPARE(error, path + QStringLiteral(" can't be written: No such file or directory"));
}

void TestState::failedStartWritesNothing()
{
    const QString path = folder.filePath(QStringLiteral("kept.json"));
    {
        Appliance appliance;
        Appliance::Setup setup = withoutLinks(path);
        setup.serial = QStringLiteral("/nowhere");
        QString error;
        QVERIFY(!appliance.start(setup, &error));
        QVERIFY(appliance.unit.setValue(standin::Dark, QStringLiteral("level"), 1));
    }
    QVERIFY(!QFileInfo::exists(path));
}

void TestState::lostFolderIsToldOnce()
{
    auto place = std::make_unique<QTemporaryDir>();
    const QString path = place->filePath(QStringLiteral("unit.json"));
    Appliance appliance;
    QString error;
    QVERIFY(appliance.start(withoutLinks(path), &error));
    QStringList complaints;
    connect(&appliance, &Appliance::complained,
            [&complaints](const QString &line) { complaints.append(line); });
    place.reset();
    for (int i = 0; i < 2; ++i) {
        appliance.unit.setValue(standin::Dark, QStringLiteral("level"), i);
        QTRY_VERIFY(!complaints.isEmpty());
        QTest::qWait(350);
    }
    QCOMPARE(complaints, QStringList(path + QStringLiteral(" can't be written: No such file or directory")));
    QVERIFY(!appliance.finish(&error));
    QCOMPARE(error, complaints.first());
}

QTEST_GUILESS_MAIN(TestState)
#include "tst_state.moc"
