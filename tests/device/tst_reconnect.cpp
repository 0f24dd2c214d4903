#include "tests/device/devicebench.h"
#include "tests/support/logcapture.h"
#include "tests/support/loopback.h"
#include "tests/support/stopwatch.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <vector>

namespace {
const QString kVersionFailed = QStringLiteral("Get Version failed. \nDevice may be disconnected.");

// Somebody whose queue of callers is full: the kernel swallows each further call, as a host behind a filter does.
class Swallower
{
public:
    explicit Swallower(const QString &address)
    {
        own.sin_family = AF_INET;
        own.sin_port = htons(5002);
        own.sin_addr.s_addr = ::inet_addr(qPrintable(address));
        listener = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
        if (::bind(listener, reinterpret_cast<sockaddr *>(&own), sizeof own) != 0
            || ::listen(listener, 0) != 0)
            return;
        constexpr int kCallers = 20;
        while (callers.size() < kCallers && !full)
            full = !call();
    }
    ~Swallower()
    {
        for (const int caller : callers)
            ::close(caller);
        ::close(listener);
    }
    Swallower(const Swallower &) = delete;
    Swallower &operator=(const Swallower &) = delete;

    bool isFull() const { return full; }

private:
    bool call()
    {
        const int caller = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
        callers.push_back(caller);
        ::connect(caller, reinterpret_cast<sockaddr *>(&own), sizeof own);
        constexpr int kPatienceMs = 300;
        pollfd wait{caller, POLLOUT, 0};
        return ::poll(&wait, 1, kPatienceMs) > 0;
    }

    sockaddr_in own{};
    int listener = -1;
    std::vector<int> callers;
    bool full = false;
};
} // namespace

// Where a reconnect goes, what it waits for and what it never does.
class ReconnectTest : public QObject
{
    Q_OBJECT

private slots:
    void failedConnectKeepsTheNewAddress();
    void nobodyAnswersTheCall();
    void ladderDoesNotConnectAgain();
    void reconnectThatFailsAtOnce();
};

void ReconnectTest::failedConnectKeepsTheNewAddress()
{
    DeviceBench bench(kNetworkLink);
    QVERIFY(bench.connectUnit());
    bench.device->disconnectDevice(kNetworkLink);
    support::UnitHost other;
    other.setFault(standin::Version, standin::Fault::shortened(4));
    QCOMPARE(bench.device->connectDevice(kNetworkLink, other.address()), kVersionFailed);
    QVERIFY(!bench.device->isConnected);
    other.clearFaults();
    other.clearRecord();

    // With the flag up and the socket down, the next frame goes where the failed connect went.
    other.drop();
    QTRY_COMPARE(bench.socket()->state(), QTcpSocket::UnconnectedState);
    bench.device->isConnected = true;
    bench.device->getCKShadow(kNetworkLink);
    QCOMPARE(other.codes(), QVector<int>{standin::Shadow});
    QCOMPARE(bench.host.record().size(), 0);
    QVERIFY(bench.device->isConnected);
}

void ReconnectTest::nobodyAnswersTheCall()
{
    const QString silent = support::ownLoopback(7);
    const Swallower swallower(silent);
    QVERIFY(swallower.isFull());
    DeviceBench bench(kNetworkLink);
    support::Stopwatch timer;
    QCOMPARE(bench.device->connectDevice(kNetworkLink, silent), kVersionFailed);
    // The first attempt waits a second for its bytes to leave; then the socket has given up, and what is left are
    // the sleeps of the ladder.
    VERIFY_TOOK(timer, 1000 + 50 + 1800 - 5, 1000 + 50 + 1800 + 2500);
    QCOMPARE(bench.broken.count(), 4);
    QVERIFY(!bench.device->isConnected);
    QCOMPARE(bench.host.record().size(), 0);
}

void ReconnectTest::ladderDoesNotConnectAgain()
{
    DeviceBench bench(kNetworkLink);
    bench.host.stopListening();
    bool listening = false;
    // After the first attempt the unit is there, and three more would find it.
    connect(bench.device.get(), &qkv720::connectionBroken, this, [&bench, &listening] {
        if (!listening)
            listening = bench.host.listenAgain();
    });
    QCOMPARE(bench.device->connectDevice(kNetworkLink, bench.target()), kVersionFailed);
    QVERIFY(listening);
    QCOMPARE(bench.broken.count(), 4);
    QCOMPARE(bench.host.record().size(), 0);
    QCOMPARE(bench.host.clientCount(), 0);
    QCOMPARE(bench.socket()->state(), QTcpSocket::UnconnectedState);
    QVERIFY(bench.connectUnit()); // a fresh connect finds it
}

void ReconnectTest::reconnectThatFailsAtOnce()
{
    // A stream can't go to all hosts: the socket is down again before the call for it returns.
    DeviceBench bench(kNetworkLink);
    QCOMPARE(bench.device->connectDevice(kNetworkLink, QStringLiteral("255.255.255.255")), kVersionFailed);
    QCOMPARE(bench.broken.count(), 4);
    bench.broken.clear();
    bench.device->isConnected = true;
    bench.device->ckShadow.level = 77;
    const support::LogCapture log;
    support::Stopwatch timer;
    bench.device->getCKShadow(kNetworkLink);
    VERIFY_TOOK(timer, 0, 300); // no frame, so no ladder
    QCOMPARE(bench.broken.count(), 1);
    QVERIFY(!bench.device->isConnected);
    QCOMPARE(int(bench.device->ckShadow.level), 77);
    QCOMPARE(support::LogCapture::logs(),
             QStringList{QStringLiteral("(checkConnection)Socket State: QAbstractSocket::UnconnectedState")});
    // Once the flag has fallen, nothing is tried and nothing is told.
    bench.device->getCKShadow(kNetworkLink);
    QCOMPARE(bench.broken.count(), 1);
    QCOMPARE(support::LogCapture::logs().size(), 1);
}

QTEST_GUILESS_MAIN(ReconnectTest)
#include "tst_reconnect.moc"
