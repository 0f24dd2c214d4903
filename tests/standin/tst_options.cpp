// The command line: what each option may hold, and the one plain sentence for everything that it may not. A crowd
// of units in one process, on the loopback and on a network of the test's own.

#include "tests/standin/program.h"
#include "tests/support/loopback.h"
#include "tests/support/rawlink.h"
#include "tests/support/testnetwork.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QUdpSocket>
#include <QtTest>

#include <csignal>
#include <limits>
#include <sys/stat.h>

using support::Program;
using support::RawNetwork;
using support::requestBody;
using support::TestNetwork;

class TestOptions : public QObject
{
    Q_OBJECT

private slots:
    void help();
    void version();
    void refused_data();
    void refused();
    void serialLinkLeavesWhatIsThere_data();
    void serialLinkLeavesWhatIsThere();
    void serialLinkOfAKilledRun();
    void serialLinkThatAnotherTook();
    void logsThatNobodyReads();
    void timesOfTheProgram();
    void crowdOnTheLoopback();
    void crowdKeepsItsStatesApart();
    void crowdIsFoundByBroadcast();

private:
    QTemporaryDir folder;
};

namespace {

const QStringList kSerialOnly = {QStringLiteral("--no-network"), QStringLiteral("--no-discovery"),
                                 QStringLiteral("--serial"), QStringLiteral("pty")};

QStringList words(const char *text)
{
    return QString::fromUtf8(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

} // namespace

void TestOptions::help()
{
    for (const char *word : {"--help", "-h"}) {
        Program program(words(word));
        const QString said = program.lastWords();
        QCOMPARE(program.process.exitCode(), 0);
        for (const char *text : {"no real unit", "--restart-time <ms>", "--units <number>", "[10.2a]",
                                 "RESET_BACK_COLOUR", "split BYTES MS", "connector N STANDARD", "ETH_REQ"})
            QVERIFY2(said.contains(QLatin1String(text)), text);
    }
}

void TestOptions::version()
{
    Program program(words("--version"));
    QCOMPARE(program.lastWords(), QStringLiteral("qkv720-unit " PROJECT_VERSION "\n"));
    QCOMPARE(program.process.exitCode(), 0);
}

void TestOptions::refused_data()
{
    QTest::addColumn<QString>("sentence");
    const auto row = [](const char *arguments, const char *sentence) {
        QTest::newRow(arguments) << QString::fromUtf8(sentence);
    };
    row("--address nowhere", "--address nowhere: not understood; an address is written as 192.168.1.10");
    row("--address 127.1", "--address 127.1: not understood; an address is written as 192.168.1.10");
    row("--gateway ::1", "--gateway ::1: not understood; an address is written as 192.168.1.10");
    row("--primary-dns 1.2.3.256",
        "--primary-dns 1.2.3.256: not understood; an address is written as 192.168.1.10");
    row("--secondary-dns 1", "--secondary-dns 1: not understood; an address is written as 192.168.1.10");
    row("--address 0.0.0.0", "--address 0.0.0.0: not understood; a unit has an address of its own");
    row("--address 255.255.255.255",
        "--address 255.255.255.255: not understood; a unit has an address of its own");
    row("--address 224.0.0.1", "--address 224.0.0.1: not understood; a unit has an address of its own");
    row("--mask 255.0.255.0", "--mask 255.0.255.0: not understood; a netmask is written as 255.255.255.0");
    row("--mac 00:11", "--mac 00:11: not understood; a MAC address is written as 00:50:C2:72:00:01");
    row("--mac 0050C2720001",
        "--mac 0050C2720001: not understood; a MAC address is written as 00:50:C2:72:00:01");
    row("--name SEVENTEEN-LETTERS", "--name SEVENTEEN-LETTERS: a host name has at most 16 bytes");
    row("--name \u4e2d\u4e2d\u4e2d\u4e2d\u4e2d\u4e2d",
        "--name \u4e2d\u4e2d\u4e2d\u4e2d\u4e2d\u4e2d: a host name has at most 16 bytes");
    row("--units 12 --name FOURTEEN-BYTES", "--name FOURTEEN-BYTES-12: a host name has at most 16 bytes");
    row("--vendor 12345", "--vendor 12345: not understood; it is hexadecimal, from 0 to FFFF");
    row("--product xy", "--product xy: not understood; it is hexadecimal, from 0 to FFFF");
    row("--type 100", "--type 100: not understood; it is hexadecimal, from 0 to FF");
    row("--revision A", "--revision A: not understood; it is a number from 0 to 255");
    row("--model \u03a9", "--model \u03a9: a model name has at most 45 Latin letters");
    for (const char *name : {"firmware", "fpga", "loader"}) {
        for (const char *value : {"new", "1", "1.100", "1.2.3", "1."}) {
            const QString given = QStringLiteral("--%1 %2").arg(QLatin1String(name), QLatin1String(value));
            QTest::newRow(qPrintable(given))
                << given
                    + QStringLiteral(
                        ": not understood; a version is written as 1.05, each part from 0 to FF");
        }
    }
    for (const char *name : {"key-time", "format-time", "restart-time"}) {
        for (const char *value : {"soon", "-1", "600001"}) {
            const QString given = QStringLiteral("--%1 %2").arg(QLatin1String(name), QLatin1String(value));
            QTest::newRow(qPrintable(given))
                << given + QStringLiteral(": not understood; a time is from 0 to 600000 milliseconds");
        }
    }
    row("--fault D2", "--fault: no such code: D2--");
    row("--units 0", "--units 0: not understood; a process holds from 1 to 200 units");
    row("--units 2 --serial pty", "--serial goes with one unit only, not with --units 2");
    row("--units 2 --adapter lo", "--adapter goes with one unit only, not with --units 2");
    row("--address 127.0.0.250 --units 6",
        "--units 6: so many addresses do not follow 127.0.0.250; the last may end in .254");
    row("--serial-link here", "--serial-link goes with --serial pty");
    row("--serial-link here --serial /dev/ttyS9", "--serial-link goes with --serial pty");
    row("--adapter none0", "--adapter none0: this machine has no such adapter");
    row("--no-network --no-discovery",
        "--no-network and --no-discovery leave no link; --serial would be one");
    row("--serial /nowhere", "/nowhere: No such file or directory");
    row("--serial /dev/null", "/dev/null: Inappropriate ioctl for device");
    row("--log /nowhere/log", "/nowhere/log can't be written: No such file or directory");
    row("--state /nowhere/unit.json", "/nowhere/unit.json can't be written: No such file or directory");
    row("--state=", "--state wants a name behind it");
    row("--dhcp=1", "unexpected value after '--dhcp'.");
    row("--nonsense", "unknown option 'nonsense'.");
    row("--name", "missing value after '--name'.");
    row("--name A --name B", "--name is given twice");
    row("--quiet now", "now: no such option; options begin with --, and --help lists them");
}

void TestOptions::refused()
{
    QFETCH(QString, sentence);
    QStringList arguments = words(QTest::currentDataTag());
    if (sentence == QLatin1String("--fault: no such code: D2--")) {
        arguments = QStringList{QStringLiteral("--fault"), QStringLiteral("D2-- silent")};
    } else if (!arguments.contains(QStringLiteral("--address"))) {
        arguments = QStringList{QStringLiteral("--address"), support::ownLoopback(1)} + arguments;
    }
    Program program(arguments);
    QCOMPARE(program.lastWords(), QStringLiteral("qkv720-unit: %1\n").arg(sentence));
    QCOMPARE(program.process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(program.process.exitCode(), 1);
}

void TestOptions::serialLinkLeavesWhatIsThere_data()
{
    QTest::addColumn<QString>("kind");
    for (const char *kind : {"file", "folder", "link to a file", "link to nowhere", "link to a terminal"})
        QTest::newRow(kind) << QString::fromLatin1(kind);
}

void TestOptions::serialLinkLeavesWhatIsThere()
{
    QFETCH(QString, kind);
    const QString path = folder.filePath(QStringLiteral("taken"));
    const QString target = folder.filePath(QStringLiteral("target"));
    QFile::remove(path);
    std::unique_ptr<Program> another;
    if (kind == QLatin1String("file")) {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write("precious") == 8);
    } else if (kind == QLatin1String("folder")) {
        QVERIFY(QDir().mkdir(path));
    } else if (kind == QLatin1String("link to a terminal")) {
        another = std::make_unique<Program>(kSerialOnly + QStringList{QStringLiteral("--serial-link"), path});
        QVERIFY(another->isReady());
    } else {
        if (kind == QLatin1String("link to a file")) {
            QFile file(target);
            QVERIFY(file.open(QIODevice::WriteOnly));
        }
        QVERIFY(QFile::link(target, path));
    }
    const QString leadsTo = QFileInfo(path).symLinkTarget();
    Program program(kSerialOnly + QStringList{QStringLiteral("--serial-link"), path});
    const QString said = program.lastWords();
    QCOMPARE(said,
             QStringLiteral("qkv720-unit: %1 can't be made a link to the pseudo-terminal: File exists\n")
                 .arg(path));
    QCOMPARE(program.process.exitCode(), 1);
    QCOMPARE(QFileInfo(path).symLinkTarget(), leadsTo);
    if (kind == QLatin1String("file")) {
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), QByteArray("precious"));
    }
    QCOMPARE(QFileInfo(path).isDir(), kind == QLatin1String("folder"));
    if (kind == QLatin1String("folder"))
        QVERIFY(QDir().rmdir(path));
}

void TestOptions::serialLinkOfAKilledRun()
{
    const QString path = folder.filePath(QStringLiteral("port"));
    const QStringList arguments = kSerialOnly + QStringList{QStringLiteral("--serial-link"), path};
    {
        Program killed(arguments);
        QVERIFY(killed.isReady());
        killed.process.kill();
        QVERIFY(killed.process.waitForFinished(5000));
    }
    QVERIFY(QFileInfo(path).isSymLink());
    Program program(arguments);
    QVERIFY2(program.isReady(), qPrintable(program.output));
    support::RawSerial link(path);
    QCOMPARE(link.exchange(requestBody(0x6F)).toHex(), QByteArray("05006f4000b4"));
    program.stop();
    QVERIFY(!QFileInfo(path).isSymLink());
}

void TestOptions::serialLinkThatAnotherTook()
{
    const QString path = folder.filePath(QStringLiteral("mine"));
    Program program(kSerialOnly + QStringList{QStringLiteral("--serial-link"), path});
    QVERIFY(program.isReady());
    QVERIFY(QFile::remove(path));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    program.stop();
    QVERIFY(QFileInfo::exists(path)); // it is no link of the program's any more
}

// A named pipe would hold the program up until somebody reads it; what swallows all is good.
void TestOptions::logsThatNobodyReads()
{
    const QString pipe = folder.filePath(QStringLiteral("pipe"));
    QCOMPARE(::mkfifo(qPrintable(pipe), 0600), 0);
    const QStringList logTo = kSerialOnly + QStringList{QStringLiteral("--log")};
    Program held(logTo + QStringList{pipe});
    QCOMPARE(held.lastWords(),
             QStringLiteral("qkv720-unit: %1 can't be the log: it is no ordinary file\n").arg(pipe));
    QCOMPARE(held.process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(held.process.exitCode(), 1);
    Program swallowed(logTo + QStringList{QStringLiteral("/dev/null")});
    QVERIFY(swallowed.isReady());
}

void TestOptions::timesOfTheProgram()
{
    const QString address = support::ownLoopback(1);
    // The least of some tries, as many as it takes to come below `below`: a busy machine is late at times, a unit that
    // takes longer than it should does so each time.
    const auto duration = [&address](int code, const QByteArray &payload, qint64 below) {
        constexpr int kTries = 12;
        qint64 least = std::numeric_limits<qint64>::max();
        for (int i = 0; i < kTries && least >= below; ++i) {
            RawNetwork link(address);
            QElapsedTimer clock;
            clock.start();
            if (!link.exchange(requestBody(code, payload), 10000).isEmpty())
                least = std::min(least, clock.elapsed());
        }
        return least;
    };
    const QByteArray scan = QByteArray(6, '\0') + '\2';
    {
        // What nobody asked for ends within the 2000 ms that a panel waits at these two, and within the
        // 1000 ms of its shortest wait where a format's checksum is 0.
        Program program({QStringLiteral("--address"), address});
        QVERIFY(program.isReady());
        const qint64 key = duration(0xD0, scan, 1900);
        QVERIFY2(key >= 1200 && key < 1900, qPrintable(QString::number(key)));
        const qint64 format = duration(0xE0, QByteArray::fromHex("030201"), 950);
        QVERIFY2(format >= 500 && format < 950, qPrintable(QString::number(format)));
    }
    Program program({QStringLiteral("--address"), address, QStringLiteral("--key-time"), QStringLiteral("0"),
                     QStringLiteral("--format-time"), QStringLiteral("1000")});
    QVERIFY(program.isReady());
    QVERIFY(duration(0xD0, scan, 700) < 700);
    const qint64 slow = duration(0xE0, QByteArray::fromHex("030201"), 10000);
    QVERIFY2(slow >= 1000 && slow < 10000, qPrintable(QString::number(slow)));
}

void TestOptions::crowdOnTheLoopback()
{
    const QString first = support::ownLoopback(31);
    const QString log = folder.filePath(QStringLiteral("crowd.jsonl"));
    Program program({QStringLiteral("--address"), first, QStringLiteral("--units"), QStringLiteral("3"),
                     QStringLiteral("--name"), QStringLiteral("KEYER"), QStringLiteral("--mac"),
                     QStringLiteral("02:00:00:00:00:FF"), QStringLiteral("--log"), log});
    const QString last = first.left(first.size() - 1) + QLatin1Char('3');
    QVERIFY(program.waitFor(QStringLiteral("ready on TCP %1:5002").arg(last)));
    program.tell(QStringLiteral("unit 3"), QStringLiteral("ok\n"));
    program.tell(QStringLiteral("set ANGLE left 99"), QStringLiteral("ok\n"));
    for (int i = 0; i < 3; ++i) {
        const QString address = first.left(first.size() - 1) + QString::number(1 + i);
        RawNetwork link(address);
        QCOMPARE(int(link.exchange(requestBody(0x51)).at(3)), i == 2 ? 99 : 45);
        QUdpSocket socket;
        socket.bind(QHostAddress(QHostAddress::LocalHost), 0);
        socket.writeDatagram(QByteArray::fromHex("000b80004554485f524551"), QHostAddress(address), 5002);
        QVERIFY(socket.waitForReadyRead(2000));
        QByteArray record(100, '\0');
        record.truncate(static_cast<int>(socket.readDatagram(record.data(), record.size())));
        QCOMPARE(record.mid(5, 8), QByteArray("KEYER-" + QByteArray::number(i + 1) + '\0'));
        QCOMPARE(record.mid(21, 6).toHex(),
                 QByteArray(i == 0       ? "0200000000ff"
                                : i == 1 ? "020000000100"
                                         : "020000000101"));
    }
    QVERIFY(program.waitFor(QStringLiteral("KEYER-2 network GET_ANGLE")));
    program.stop();
    QFile file(log);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QStringList units;
    for (const QByteArray &line : file.readAll().trimmed().split('\n')) {
        const QString unit = QJsonDocument::fromJson(line).object().value(QStringLiteral("unit")).toString();
        if (!units.contains(unit))
            units.append(unit);
    }
    QCOMPARE(units.size(), 3);
}

void TestOptions::crowdKeepsItsStatesApart()
{
    const QString address = support::ownLoopback(1);
    const QString path = folder.filePath(QStringLiteral("crowd.json"));
    const QStringList arguments{QStringLiteral("--address"), address,
                                QStringLiteral("--units"),   QStringLiteral("2"),
                                QStringLiteral("--state"),   path};
    {
        Program program(arguments);
        QVERIFY(program.isReady());
        program.tell(QStringLiteral("unit 2"), QStringLiteral("ok\n"));
        program.tell(QStringLiteral("set ANGLE left 98"), QStringLiteral("ok\n"));
    }
    QVERIFY(QFileInfo::exists(path) && QFileInfo::exists(path + QStringLiteral(".2")));
    Program program(arguments);
    QVERIFY(program.isReady());
    QVERIFY(program.tell(QStringLiteral("units"), QStringLiteral("2 QKV720-2"))
                .contains(QStringLiteral("1 QKV720-1")));
    QVERIFY(program.tell(QStringLiteral("state"), QStringLiteral("network"))
                .contains(QStringLiteral("\"left\":45")));
    program.tell(QStringLiteral("unit 2"), QStringLiteral("ok\n"));
    QVERIFY(program.tell(QStringLiteral("state"), QStringLiteral("network"))
                .contains(QStringLiteral("\"left\":98")));
}

void TestOptions::crowdIsFoundByBroadcast()
{
    TestNetwork net;
    const QString panel = net.addHost();
    const QString units = net.addHost();
    const QString cable = net.addSwitch();
    net.plug(panel, QStringLiteral("eth0"), cable, {QStringLiteral("192.168.72.1/24")});
    QStringList addresses;
    for (int i = 0; i < 10; ++i)
        addresses.append(QStringLiteral("192.168.72.%1/24").arg(10 + i));
    net.plug(units, QStringLiteral("eth0"), cable, addresses);
    QVERIFY2(net.isGood(), qPrintable(net.complaint()));
    QProcess *program = net.start(units, QStringLiteral(UNIT_PROGRAM),
                                  {QStringLiteral("--address"), QStringLiteral("192.168.72.10"),
                                   QStringLiteral("--units"), QStringLiteral("10")});
    QVERIFY2(net.isGood(), qPrintable(net.complaint()));
    QByteArray output;
    while (output.count("ready on") < 10 && program->waitForReadyRead(5000))
        output += program->readAll();
    QCOMPARE(output.count("ready on"), 10);
    QVERIFY(TestNetwork::enter(panel));
    QUdpSocket socket;
    QVERIFY(socket.bind(QHostAddress(QStringLiteral("192.168.72.1")), 0));
    socket.writeDatagram(QByteArray::fromHex("000b80004554485f524551"), QHostAddress::Broadcast, 5002);
    QStringList senders;
    QStringList macs;
    while (socket.hasPendingDatagrams() || socket.waitForReadyRead(500)) {
        QHostAddress sender;
        QByteArray record(100, '\0');
        record.truncate(static_cast<int>(socket.readDatagram(record.data(), record.size(), &sender)));
        senders.append(sender.toString() + QStringLiteral("/24"));
        macs.append(QString::fromLatin1(record.mid(21, 6).toHex()));
    }
    senders.sort();
    QCOMPARE(senders, addresses);
    QCOMPARE(macs.removeDuplicates(), 0);
}

int main(int argc, char **argv)
{
    TestNetwork::obtainRights(argv);
    QCoreApplication application(argc, argv);
    TestOptions test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_options.moc"
