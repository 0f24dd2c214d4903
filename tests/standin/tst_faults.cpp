// Every fault: normal, inject, disturbed, recovered, on both links where they differ.

#include "standin/faulttext.h"
#include "tests/support/rawlink.h"
#include "tests/support/stopwatch.h"
#include "tests/support/unithost.h"

#include <QElapsedTimer>
#include <QtTest>

#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

using standin::Fault;
using support::RawNetwork;
using support::RawSerial;
using support::requestBody;
using support::UnitHost;

class TestFaults : public QObject
{
    Q_OBJECT

private slots:
    void late();
    void silent();
    void shortened();
    void shortenedOverSerial();
    void split();
    void wrongChecksum();
    void refused();
    void closedLink();
    void nothingBehindAClosedLink();
    void clientThatNeverReads();
    void answerOfOnesOwn();
    void onlyTheFirstTimes();
    void anyCode();
    void disturbedReplyStillCarriesOut();
    void serialFallsSilentAndSpeaksAgain();
    void asText_data();
    void asText();
    void badText_data();
    void badText();
};

namespace {

constexpr int kAngle = 0x51;
const char *const kAngleReply = "05 00 51 2d 2d b0";

QString hex(const QByteArray &data)
{
    return QString::fromLatin1(data.toHex(' '));
}

} // namespace

void TestFaults::late()
{
    UnitHost host;
    RawNetwork link(host.address());
    host.setFault(kAngle, Fault::late(300));
    support::Stopwatch clock;
    QCOMPARE(hex(link.exchange(requestBody(kAngle))), QLatin1String(kAngleReply));
    QVERIFY2(clock.elapsed() >= 300, qPrintable(QString::number(clock.elapsed())));
    host.clearFaults();
    clock.restart();
    QCOMPARE(hex(link.exchange(requestBody(kAngle))), QLatin1String(kAngleReply));
    VERIFY_TOOK(clock, 0, 250);
}

void TestFaults::silent()
{
    UnitHost host;
    RawNetwork link(host.address());
    host.setFault(kAngle, Fault::silent());
    QVERIFY(link.exchange(requestBody(kAngle), 200).isEmpty());
    QVERIFY(!link.exchange(requestBody(0x52), 2000).isEmpty()); // only this code
    host.clearFaults();
    QCOMPARE(hex(link.exchange(requestBody(kAngle))), QLatin1String(kAngleReply));
    QCOMPARE(host.count(kAngle), 2);
    QVERIFY(host.record().first().reply.isEmpty());
}

void TestFaults::shortened()
{
    UnitHost host;
    RawNetwork link(host.address());
    host.setFault(kAngle, Fault::shortened(3));
    link.send(QByteArray::fromHex("0006") + requestBody(kAngle));
    QCOMPARE(hex(link.receive()), QStringLiteral("00 08 05")); // the length bytes count
}

void TestFaults::shortenedOverSerial()
{
    UnitHost::Options options;
    options.serial = true;
    UnitHost host(options);
    RawSerial link(host.serialPortName());
    host.setFault(kAngle, Fault::shortened(4));
    QCOMPARE(hex(link.exchange(requestBody(kAngle))), QStringLiteral("05 00 51 2d"));
    host.clearFaults();
    QCOMPARE(hex(link.exchange(requestBody(kAngle))), QLatin1String(kAngleReply));
}

void TestFaults::split()
{
    UnitHost host;
    RawNetwork link(host.address());
    host.setFault(kAngle, Fault::split(5, 250));
    const support::Stopwatch clock;
    link.send(QByteArray::fromHex("0006") + requestBody(kAngle));
    QCOMPARE(hex(link.receive()), QStringLiteral("00 08 05 00 51"));
    QCOMPARE(hex(link.receive()), QStringLiteral("2d 2d b0"));
    QVERIFY(clock.elapsed() >= 250);
}

void TestFaults::wrongChecksum()
{
    UnitHost host;
    RawNetwork link(host.address());
    host.setFault(kAngle, Fault::wrongChecksum());
    const QByteArray reply = link.exchange(requestBody(kAngle));
    QCOMPARE(reply.size(), 6);
    QCOMPARE(hex(reply.left(5)), QStringLiteral("05 00 51 2d 2d"));
    QVERIFY(static_cast<quint8>(reply.back()) != 0xb0);
}

void TestFaults::refused()
{
    UnitHost host;
    RawNetwork link(host.address());
    host.setFault(0xD1, Fault::refuse(0x81));
    QCOMPARE(hex(link.exchange(requestBody(0xD1, QByteArray("\x01\x02", 2)))), QStringLiteral("02 81 83"));
    host.setFault(0xD1, Fault::refuse(0x82));
    QCOMPARE(hex(link.exchange(requestBody(0xD1, QByteArray("\x01\x02", 2)))), QStringLiteral("02 82 84"));
    QCOMPARE(hex(link.exchange(requestBody(kAngle))), QLatin1String(kAngleReply)); // nothing was carried out
}

void TestFaults::closedLink()
{
    UnitHost host;
    RawNetwork link(host.address());
    host.setFault(kAngle, Fault::closeLink(1));
    link.send(QByteArray::fromHex("0006") + requestBody(kAngle));
    QVERIFY(link.waitForEnd());
    RawNetwork again(host.address());
    QCOMPARE(hex(again.exchange(requestBody(kAngle))), QLatin1String(kAngleReply));
}

void TestFaults::nothingBehindAClosedLink()
{
    UnitHost host;
    RawNetwork link(host.address());
    host.setFault(kAngle, Fault::closeLink(1));
    const QByteArray set = requestBody(0xD1, QByteArray("\x01\x02", 2));
    link.send(QByteArray::fromHex("0006") + requestBody(kAngle) + QByteArray::fromHex("0008") + set);
    QVERIFY(link.waitForEnd());
    QCOMPARE(host.codes(), QVector<int>({kAngle})); // the second frame reached nobody
    RawNetwork again(host.address());
    QCOMPARE(hex(again.exchange(requestBody(kAngle))), QLatin1String(kAngleReply));
}

void TestFaults::clientThatNeverReads()
{
    UnitHost host;
    host.setFault(kAngle, Fault::answer(QByteArray(4096, 'x')));
    const int client = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in to{};
    to.sin_family = AF_INET;
    to.sin_port = htons(5002);
    to.sin_addr.s_addr = htonl(QHostAddress(host.address()).toIPv4Address());
    QCOMPARE(::connect(client, reinterpret_cast<const sockaddr *>(&to), sizeof to), 0);
    const QByteArray request = QByteArray::fromHex("0006") + requestBody(kAngle);
    support::Stopwatch clock;
    bool isCutOff = false;
    while (!isCutOff && clock.elapsed() < 20000)
        isCutOff = ::send(client, request.constData(), static_cast<size_t>(request.size()), MSG_NOSIGNAL) < 0;
    ::close(client);
    QVERIFY(isCutOff);
    QTRY_COMPARE(host.clientCount(), 0);
}

void TestFaults::answerOfOnesOwn()
{
    UnitHost host;
    RawNetwork link(host.address());
    host.setFault(kAngle, Fault::answer(QByteArray::fromHex("0102030405060708")));
    link.send(QByteArray::fromHex("0006") + requestBody(kAngle));
    QCOMPARE(hex(link.receive()), QStringLiteral("00 0a 01 02 03 04 05 06 07 08"));
}

void TestFaults::onlyTheFirstTimes()
{
    UnitHost host;
    RawNetwork link(host.address());
    host.setFault(kAngle, Fault::silent(2));
    QVERIFY(link.exchange(requestBody(kAngle), 150).isEmpty());
    QVERIFY(link.exchange(requestBody(kAngle), 150).isEmpty());
    QCOMPARE(hex(link.exchange(requestBody(kAngle))), QLatin1String(kAngleReply));
    QCOMPARE(host.count(kAngle), 3);
}

void TestFaults::anyCode()
{
    UnitHost host;
    RawNetwork link(host.address());
    host.setFault(standin::AnyCode, Fault::silent());
    host.setFault(kAngle, Fault::refuse(0x81)); // its own fault goes first
    QVERIFY(link.exchange(requestBody(0x6C), 150).isEmpty());
    QCOMPARE(hex(link.exchange(requestBody(kAngle))), QStringLiteral("02 81 83"));
    host.clearFaults();
    QCOMPARE(link.exchange(requestBody(0x6C)).size(), 10);
}

void TestFaults::disturbedReplyStillCarriesOut()
{
    UnitHost host;
    RawNetwork link(host.address());
    host.setFault(0xD1, Fault::silent());
    QVERIFY(link.exchange(requestBody(0xD1, QByteArray("\x01\x02", 2)), 150).isEmpty());
    QCOMPARE(hex(link.exchange(requestBody(kAngle))), QStringLiteral("05 00 51 01 02 59"));
}

void TestFaults::serialFallsSilentAndSpeaksAgain()
{
    UnitHost::Options options;
    options.serial = true;
    UnitHost host(options);
    RawSerial link(host.serialPortName());
    host.setFault(kAngle, Fault::closeLink(1)); // a serial line can't be closed: it is silence
    QVERIFY(link.exchange(requestBody(kAngle), 200).isEmpty());
    QCOMPARE(hex(link.exchange(requestBody(kAngle))), QLatin1String(kAngleReply));
}

void TestFaults::asText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("code");
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("times");
    using Kind = Fault::Kind;
    QTest::newRow("late") << "D2 late 500" << 0xD2 << int(Kind::Late) << 500 << -1;
    QTest::newRow("silent") << "0xd2 silent 3" << 0xD2 << int(Kind::Silent) << 0 << 3;
    QTest::newRow("short") << "SET_DARK short 4 1" << 0xD3 << int(Kind::Short) << 4 << 1;
    QTest::newRow("split") << "get_dark split 4 200" << 0x53 << int(Kind::Split) << 4 << -1;
    QTest::newRow("sum") << "any sum" << standin::AnyCode << int(Kind::WrongChecksum) << 0 << -1;
    QTest::newRow("refuse") << "50 refuse 82 2" << 0x50 << int(Kind::Refuse) << 0x82 << 2;
    QTest::newRow("nack") << "SET_IPADR nack" << 0x103 << int(Kind::Refuse) << 0x81 << -1;
    QTest::newRow("close") << "50 close" << 0x50 << int(Kind::CloseLink) << 0 << -1;
    QTest::newRow("answer") << "50 answer 0300ff 1" << 0x50 << int(Kind::Answer) << 3 << 1;
}

void TestFaults::asText()
{
    QFETCH(QString, text);
    QFETCH(int, code);
    QFETCH(int, kind);
    QFETCH(int, first);
    QFETCH(int, times);
    int readCode = 0;
    Fault fault;
    QCOMPARE(standin::parseFault(text, readCode, fault), QString());
    QCOMPARE(readCode, code);
    QCOMPARE(int(fault.kind), kind);
    QCOMPARE(fault.times, times);
    switch (fault.kind) {
    case Fault::Kind::Late:
        QCOMPARE(fault.milliseconds, first);
        break;
    case Fault::Kind::Split:
        QCOMPARE(fault.milliseconds, 200);
        QCOMPARE(fault.bytes, first);
        break;
    case Fault::Kind::Refuse:
        QCOMPARE(fault.status, first);
        break;
    case Fault::Kind::Answer:
        QCOMPARE(fault.body.size(), first);
        break;
    default:
        QCOMPARE(fault.bytes, first);
    }
}

void TestFaults::badText_data()
{
    QTest::addColumn<QString>("text");
    for (const char *text : {"", "D2", "XY silent", "D2 melt", "D2 late", "D2 late soon", "D2 silent x",
                             "D2 silent 1 2", "1D2 silent", "D2 answer zz"})
        QTest::newRow(text) << text;
}

void TestFaults::badText()
{
    QFETCH(QString, text);
    int code = 0;
    Fault fault;
    QVERIFY(!standin::parseFault(text, code, fault).isEmpty());
}

QTEST_GUILESS_MAIN(TestFaults)
#include "tst_faults.moc"
