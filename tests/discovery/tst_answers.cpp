#include "configurationbench.h"
#include "tests/support/logcapture.h"
#include "tests/support/stopwatch.h"

#include <thread>

using support::LogCapture;

// What such a command makes of the answers it finds, and of none.
class TestAnswers : public ConfigurationBench
{
    Q_OBJECT

private slots:
    void init() { ConfigurationBench::init(); }
    void cleanup() { ConfigurationBench::cleanup(); }
    void aFailedWriteLeavesTheNextExchangeItsEars();
    void anyDatagramOfTheTargetDecides();
    void anAnswerFromElsewhereIsIgnored();
    void aSecondAnswerDecidesAfterAnUnclearOne();
    void anEmptyDatagramTakesTheBufferOver();
    void anUnclearAnswerIsSuccess();
    void silenceAfterSetDhcpName();
    void silenceAfterSetMacAdr();
    void silenceAfterSetNetmask();
    void silenceAfterSetGateway();
    void silenceAfterSetPrimDns();
    void silenceAfterSetSecDns();

private:
    void silence(const Command &command, const QString &value, qint64 lowest);
};

void TestAnswers::aFailedWriteLeavesTheNextExchangeItsEars()
{
    QVERIFY(setNetmask(*hlnp, QStringLiteral("192.0.2.1"), QStringLiteral("1.2.3.4"))
            != QStringLiteral("OK"));
    const auto *socket = hlnp->findChild<QUdpSocket *>();
    const QHostAddress panel = socket->localAddress();
    const quint16 port = socket->localPort();
    support::Stopwatch clock;
    std::thread late([this, panel, port] {
        QThread::msleep(2500); // in the third try
        unit->writeDatagram(acknowledgement(0x0B, 0x15), panel, port);
    });
    const QString result = setNetmask(*hlnp, target, QStringLiteral("1.2.3.4"));
    late.join();
    QCOMPARE(result, QStringLiteral("NACK"));
    VERIFY_TOOK(clock, 2500, 4500);
    QCOMPARE(socket->localPort(), port);
}

void TestAnswers::anyDatagramOfTheTargetDecides()
{
    // Neither code nor length is compared, and what waited from before counts: here a long refusal of another
    // command, and after it the answer that the request itself would have had.
    answer(*unit, QByteArray::fromHex("99998133") + '\x15' + QByteArray(60, 'x'));
    answer(*unit, acknowledgement(0x0B, 0x06));
    QCOMPARE(setNetmask(*hlnp, target, QStringLiteral("1.2.3.4")), QStringLiteral("NACK"));
    QCOMPARE(setGateway(*hlnp, target, QStringLiteral("1.2.3.4")), QStringLiteral("OK"));
}

void TestAnswers::anAnswerFromElsewhereIsIgnored()
{
    // The target's address is a part of the stranger's: here only the whole text counts.
    QVERIFY(stranger->localAddress().toString().contains(target));
    answer(*stranger, acknowledgement(0x0B, 0x15));
    answer(*unit, acknowledgement(0x0B, 0x06));
    support::Stopwatch clock;
    QCOMPARE(setNetmask(*hlnp, target, QStringLiteral("1.2.3.4")), QStringLiteral("OK"));
    VERIFY_TOOK(clock, 100, 1000);
}

void TestAnswers::aSecondAnswerDecidesAfterAnUnclearOne()
{
    answer(*unit, acknowledgement(0x0D, 0x07));
    answer(*unit, acknowledgement(0x0D, 0x15));
    support::Stopwatch clock;
    QCOMPARE(setPrimDns(*hlnp, target, QStringLiteral("1.2.3.4")), QStringLiteral("NACK"));
    VERIFY_TOOK(clock, 200, 1200);
}

void TestAnswers::anEmptyDatagramTakesTheBufferOver()
{
    // A stranger's refusal stays in the buffer, and an empty datagram of the target makes it the target's.
    answer(*stranger, acknowledgement(0x0B, 0x15));
    answer(*unit, QByteArray());
    QCOMPARE(setNetmask(*hlnp, target, QStringLiteral("1.2.3.4")), QStringLiteral("NACK"));
}

void TestAnswers::anUnclearAnswerIsSuccess()
{
    answer(*unit, acknowledgement(0x0B, 0x07));
    const LogCapture log;
    support::Stopwatch clock;
    QCOMPARE(setNetmask(*hlnp, target, QStringLiteral("1.2.3.4")), QStringLiteral("OK"));
    QVERIFY(clock.elapsed() >= 10 * 1000 + 11 * 100); // the first try found something at once
    QCOMPARE(LogCapture::count(QStringLiteral("Set MASK:While get datagram.")), 11);
}

void TestAnswers::silence(const Command &command, const QString &value, qint64 lowest)
{
    const LogCapture log;
    support::Stopwatch clock;
    QCOMPARE(command(*hlnp, target, value), QStringLiteral("OK"));
    VERIFY_TOOK(clock, lowest - 5, lowest + 1000);
    QVERIFY(!sent().isEmpty());
    QVERIFY(sent().isEmpty()); // asked once
    const QStringList tries = LogCapture::logs().filter(QStringLiteral(":While get datagram."));
    QCOMPARE(tries.size(), 11);
    QVERIFY(tries.first().endsWith(QStringLiteral(" 0")));
    QVERIFY(tries.last().endsWith(QStringLiteral(" 10")));
}

void TestAnswers::silenceAfterSetDhcpName()
{
    silence(setDhcpName, QStringLiteral("name"), 12100);
}

void TestAnswers::silenceAfterSetMacAdr()
{
    silence(setMacAdr, QStringLiteral("1:2:3:4:5:6"), 12100);
}

void TestAnswers::silenceAfterSetNetmask()
{
    silence(setNetmask, QStringLiteral("1.2.3.4"), 12100);
}

void TestAnswers::silenceAfterSetGateway()
{
    silence(setGateway, QStringLiteral("1.2.3.4"), 12100);
}

void TestAnswers::silenceAfterSetPrimDns()
{
    silence(setPrimDns, QStringLiteral("1.2.3.4"), 13200);
}

void TestAnswers::silenceAfterSetSecDns()
{
    silence(setSecDns, QStringLiteral("1.2.3.4"), 13200);
}

QTEST_GUILESS_MAIN(TestAnswers)
#include "tst_answers.moc"
