// The program as people run it: commands on standard input, log, state file, serial link, restart at a new address.

#include "tests/standin/program.h"
#include "tests/support/loopback.h"
#include "tests/support/rawlink.h"
#include "tests/support/testnetwork.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QUdpSocket>
#include <QtTest>

#include <array>
#include <cstdlib>
#include <fcntl.h>
#include <termios.h>
#include <unistd.h>

using support::Program;
using support::RawNetwork;
using support::RawSerial;
using support::requestBody;
using support::TestNetwork;

class TestProgram : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void framesByName();
    void versionsFromOptions();
    void faultFromOption();
    void faultAtRunTime();
    void recordAndForget();
    void logFile();
    void stateFileOutlivesTheProgram();
    void serialLink();
    void serialDevice();
    void addressTaken();
    void endOfInputIsNoEnd();
    void restartAtTheNewAddress();

private:
    QString address;
    QTemporaryDir folder;
};

void TestProgram::initTestCase()
{
    address = support::ownLoopback(1);
    QVERIFY(folder.isValid());
}

void TestProgram::framesByName()
{
    Program program({QStringLiteral("--address"), address});
    QVERIFY(program.isReady());
    QVERIFY(program.output.contains(address + QStringLiteral(":5002")));
    QVERIFY(program.output.contains(QStringLiteral("no real hardware")));
    RawNetwork link(address);
    link.exchange(requestBody(0xD2, QByteArray::fromHex("e803010101")));
    QVERIFY(program.waitFor(QStringLiteral("network SET_LEVELS black=1000 white=257 matte=1")));
    link.exchange(requestBody(0xD2, QByteArray(4, '\0'), 0x80));
    QVERIFY(program.waitFor(QStringLiteral("network RESET_LEVELS restored black=100 white=900 matte=0\n")));
    link.exchange(requestBody(0xD2, QByteArray(3, '\1')));
    QVERIFY(
        program.waitFor(QStringLiteral("network SET_LEVELS black=257 more=01 (payload of 3 bytes where")));
}

void TestProgram::versionsFromOptions()
{
    Program program({QStringLiteral("--address"), address, QStringLiteral("--firmware"),
                     QStringLiteral("3.10"), QStringLiteral("--fpga"), QStringLiteral("f.ff"),
                     QStringLiteral("--loader"), QStringLiteral("0.00"), QStringLiteral("--revision"),
                     QStringLiteral("1"), QStringLiteral("--quiet")});
    QVERIFY(program.isReady());
    RawNetwork link(address);
    QCOMPARE(link.exchange(requestBody(0x6C)).mid(3, 6).toHex(), QByteArray("03100fff0000"));
    QCOMPARE(link.exchange(requestBody(0x6F)).mid(3, 2).toHex(), QByteArray("4001"));
    program.stop();
    QVERIFY(!program.output.contains(QStringLiteral("GET_VERSION")));
}

void TestProgram::faultFromOption()
{
    Program program({QStringLiteral("--address"), address, QStringLiteral("--fault"),
                     QStringLiteral("6C refuse 81 1"), QStringLiteral("--fault"),
                     QStringLiteral("GET_DEVICE_TYPE short 4")});
    QVERIFY(program.isReady());
    RawNetwork link(address);
    QCOMPARE(link.exchange(requestBody(0x6C)).toHex(), QByteArray("028183"));
    QCOMPARE(link.exchange(requestBody(0x6C)).size(), 10);
    QCOMPARE(link.exchange(requestBody(0x6F)).toHex(), QByteArray("0500"));
}

void TestProgram::faultAtRunTime()
{
    Program program({QStringLiteral("--address"), address});
    QVERIFY(program.isReady());
    RawNetwork link(address);
    program.tell(QStringLiteral("fault 6C silent 1"), QStringLiteral("ok\n"));
    QVERIFY(link.exchange(requestBody(0x6C), 200).isEmpty());
    QCOMPARE(link.exchange(requestBody(0x6C)).size(), 10);
    program.tell(QStringLiteral("drop"), QStringLiteral("ok\n"));
    QVERIFY(link.waitForEnd());
}

void TestProgram::recordAndForget()
{
    Program program({QStringLiteral("--address"), address, QStringLiteral("--quiet")});
    QVERIFY(program.isReady());
    RawNetwork link(address);
    link.exchange(requestBody(0x6C));
    const QString record = program.tell(QStringLiteral("record"), QStringLiteral("1 frames"));
    QVERIFY2(record.contains(QStringLiteral("network GET_VERSION [00 06 03 00 6c 6f]")), qPrintable(record));
    program.tell(QStringLiteral("forget"), QStringLiteral("ok\n"));
    QVERIFY(program.tell(QStringLiteral("record"), QStringLiteral("frames"))
                .contains(QStringLiteral("0 frames")));
}

void TestProgram::logFile()
{
    const QString path = folder.filePath(QStringLiteral("frames.jsonl"));
    Program program({QStringLiteral("--address"), address, QStringLiteral("--log"), path});
    QVERIFY(program.isReady());
    RawNetwork link(address);
    link.exchange(requestBody(0x6C));
    link.exchange(requestBody(0xD5, QByteArray::fromHex("010102")));
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QList<QByteArray> lines = file.readAll().trimmed().split('\n');
    QCOMPARE(lines.size(), 2);
    const QJsonObject frame = QJsonDocument::fromJson(lines.last()).object();
    QCOMPARE(frame.value(QStringLiteral("name")).toString(), QStringLiteral("SET_SHADOW"));
    QCOMPARE(frame.value(QStringLiteral("values")).toString(), QStringLiteral("enable=1 level=513"));
    QCOMPARE(frame.value(QStringLiteral("raw")).toString(), QStringLiteral("00 09 06 00 d5 01 01 02 df"));
    QCOMPARE(frame.value(QStringLiteral("good")).toBool(), true);
    QVERIFY(frame.value(QStringLiteral("ns")).toDouble() > 0);
    QCOMPARE(frame.value(QStringLiteral("unit")).toString(), address);
}

void TestProgram::stateFileOutlivesTheProgram()
{
    const QStringList arguments{QStringLiteral("--address"), address, QStringLiteral("--state"),
                                folder.filePath(QStringLiteral("unit.json"))};
    {
        Program program(arguments + QStringList{QStringLiteral("--name"), QStringLiteral("STUDIO")});
        QVERIFY(program.isReady());
        RawNetwork link(address);
        link.exchange(requestBody(0xD1, QByteArray::fromHex("0708")));
        link.exchange(requestBody(0xE4, QByteArray::fromHex("05")));
        link.exchange(requestBody(0xD1, QByteArray::fromHex("090a")));
    }
    Program program(arguments);
    QVERIFY(program.isReady());
    RawNetwork link(address);
    QCOMPARE(link.exchange(requestBody(0x51)).mid(3, 2).toHex(), QByteArray("090a"));
    link.exchange(requestBody(0x64, QByteArray::fromHex("05")));
    QCOMPARE(link.exchange(requestBody(0x51)).mid(3, 2).toHex(), QByteArray("0708"));
    QUdpSocket socket;
    socket.bind(QHostAddress(QHostAddress::LocalHost), 0);
    socket.writeDatagram(QByteArray::fromHex("000b80004554485f524551"), QHostAddress(address), 5002);
    QVERIFY(socket.waitForReadyRead(2000));
    QByteArray record(100, '\0');
    record.truncate(static_cast<int>(socket.readDatagram(record.data(), record.size())));
    QCOMPARE(record.mid(5, 7), QByteArray("STUDIO", 7));
}

void TestProgram::serialLink()
{
    const QString path = folder.filePath(QStringLiteral("port"));
    Program program({QStringLiteral("--no-network"), QStringLiteral("--no-discovery"),
                     QStringLiteral("--serial"), QStringLiteral("pty"), QStringLiteral("--serial-link"),
                     path});
    QVERIFY(program.isReady());
    {
        RawSerial link(path);
        QVERIFY(link.isUp());
        QCOMPARE(link.exchange(requestBody(0x6F)).toHex(), QByteArray("05006f4000b4"));
    }
    RawSerial again(path); // a panel may come back
    QCOMPARE(again.exchange(requestBody(0x6F)).toHex(), QByteArray("05006f4000b4"));
    program.stop();
    QVERIFY(!QFileInfo(path).isSymLink());
}

void TestProgram::serialDevice()
{
    // The far end of a pseudo-terminal stands for a real port.
    const int wire = ::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
    QVERIFY(wire >= 0 && ::grantpt(wire) == 0 && ::unlockpt(wire) == 0);
    const QString device = QString::fromLocal8Bit(::ptsname(wire));
    Program program({QStringLiteral("--no-network"), QStringLiteral("--no-discovery"),
                     QStringLiteral("--serial"), device});
    QVERIFY(program.isReady());
    QVERIFY(program.output.contains(QStringLiteral("serial ") + device));

    termios settings{};
    QCOMPARE(::tcgetattr(wire, &settings), 0);
    QCOMPARE(::cfgetospeed(&settings), speed_t(B19200));
    QCOMPARE(settings.c_cflag & CSIZE, tcflag_t(CS8));
    QCOMPARE(settings.c_cflag & (CSTOPB | PARENB | CRTSCTS), tcflag_t(0));

    const QByteArray request = requestBody(0x6F);
    QCOMPARE(::write(wire, request.constData(), static_cast<size_t>(request.size())),
             ssize_t(request.size()));
    QVERIFY(program.waitFor(QStringLiteral("serial GET_DEVICE_TYPE")));
    std::array<char, 64> reply{};
    const ssize_t got = ::read(wire, reply.data(), reply.size());
    QCOMPARE(QByteArray(reply.data(), static_cast<int>(got)).toHex(), QByteArray("05006f4000b4"));
    ::close(wire);
    QTest::qWait(100); // a port that is pulled out is no end of the program
    QCOMPARE(program.process.state(), QProcess::Running);
}

void TestProgram::addressTaken()
{
    Program first({QStringLiteral("--address"), address});
    QVERIFY(first.isReady());
    Program second({QStringLiteral("--address"), address});
    QVERIFY(second.process.waitForFinished(5000));
    QCOMPARE(second.process.exitCode(), 1);
    QVERIFY(second.waitFor(QStringLiteral("TCP ") + address));
}

void TestProgram::endOfInputIsNoEnd()
{
    Program program({QStringLiteral("--address"), address});
    QVERIFY(program.isReady());
    program.process.closeWriteChannel();
    QTest::qWait(100);
    RawNetwork link(address);
    QCOMPARE(link.exchange(requestBody(0x6C)).size(), 10);
    program.stop();
    QCOMPARE(program.process.exitStatus(), QProcess::NormalExit);
}

void TestProgram::restartAtTheNewAddress()
{
    TestNetwork net;
    const QString panel = net.addHost();
    const QString unit = net.addHost();
    const QString cable = net.addSwitch();
    net.plug(panel, QStringLiteral("eth0"), cable, {QStringLiteral("192.168.72.1/24")});
    net.plug(unit, QStringLiteral("eth0"), cable, {QStringLiteral("192.168.72.10/24")});
    QVERIFY2(net.isGood(), qPrintable(net.complaint()));
    QProcess *program =
        net.start(unit, QStringLiteral(UNIT_PROGRAM),
                  {QStringLiteral("--address"), QStringLiteral("192.168.72.10"), QStringLiteral("--adapter"),
                   QStringLiteral("eth0"), QStringLiteral("--restart-time"), QStringLiteral("1500")});
    QVERIFY2(net.isGood(), qPrintable(net.complaint()));
    QVERIFY(program->waitForReadyRead(5000));
    QVERIFY(TestNetwork::enter(panel));

    QUdpSocket socket;
    QVERIFY(socket.bind(QHostAddress(QStringLiteral("192.168.72.1")), 0));
    const QByteArray mac = QByteArray::fromHex("0050c2720001");
    socket.writeDatagram(QByteArray::fromHex("001b8003") + mac + "SET_IPADR"
                             + QByteArray::fromHex("c0a84814c0a84801"),
                         QHostAddress::Broadcast, 5002);
    QVERIFY(socket.waitForReadyRead(2000));
    QByteArray reply(100, '\0');
    reply.truncate(static_cast<int>(socket.readDatagram(reply.data(), reply.size())));
    QCOMPARE(reply.toHex(), QByteArray("0005800306"));
    socket.writeDatagram(QByteArray::fromHex("000f8004") + mac + "RESET", QHostAddress::Broadcast, 5002);
    QVERIFY(socket.waitForReadyRead(2000));
    socket.readDatagram(reply.data(), reply.size());

    // Away first, then there at the new address.
    socket.writeDatagram(QByteArray::fromHex("000b80004554485f524551"), QHostAddress::Broadcast, 5002);
    QVERIFY(!socket.waitForReadyRead(150));
    QHostAddress sender;
    QElapsedTimer clock;
    clock.start();
    while (sender.isNull() && clock.elapsed() < 10000) {
        socket.writeDatagram(QByteArray::fromHex("000b80004554485f524551"), QHostAddress::Broadcast, 5002);
        if (socket.waitForReadyRead(300))
            socket.readDatagram(reply.data(), reply.size(), &sender);
    }
    QCOMPARE(sender.toString(), QStringLiteral("192.168.72.20"));
    RawNetwork link(QStringLiteral("192.168.72.20"));
    QCOMPARE(link.exchange(requestBody(0x6F)).size(), 6);
}

int main(int argc, char **argv)
{
    TestNetwork::obtainRights(argv);
    QCoreApplication application(argc, argv);
    TestProgram test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_program.moc"
