#include "tests/device/devicebench.h"
#include "tests/device/ownmemory.h"
#include "tests/support/stopwatch.h"

#include <QFile>

#include <arpa/inet.h>
#include <atomic>
#include <fcntl.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>

// What a peer may do to the link beside answering: send without being asked, hang up, go away.
class HostileLinkTest : public QObject
{
    Q_OBJECT

private slots:
    void aFloodFillsNoMemory();
    void aLostLinkIsSilentOnStandardError_data();
    void aLostLinkIsSilentOnStandardError();
    void whatArrivedBeforeTheLinkFellIsRead();
    void aTerminalThatHangsUpShowsInThePollAlone();
};

namespace {

// Answers each frame that it gets; between two frames it can be told to send for as long as the peer takes
// it.
class FloodingUnit
{
public:
    FloodingUnit()
    {
        sockaddr_in address = {};
        address.sin_family = AF_INET;
        address.sin_port = htons(5002);
        // One address for each process, out of the range that other hosts of this machine's tests choose
        // from.
        const auto process = static_cast<quint32>(getpid());
        address.sin_addr.s_addr = htonl(0x7F500000U | (process & 0xFFFFFU));
        m_address = QHostAddress(ntohl(address.sin_addr.s_addr)).toString();
        m_listener = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
        const int yes = 1;
        setsockopt(m_listener, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
        m_listens = bind(m_listener, reinterpret_cast<const sockaddr *>(&address), sizeof address) == 0
            && listen(m_listener, 1) == 0;
        m_thread = std::thread([this] { serve(); });
    }
    ~FloodingUnit()
    {
        m_end = true;
        shutdown(m_listener, SHUT_RDWR);
        m_thread.join();
        close(m_listener);
    }
    FloodingUnit(const FloodingUnit &) = delete;
    FloodingUnit &operator=(const FloodingUnit &) = delete;

    bool listens() const { return m_listens; }
    QString address() const { return m_address; }
    void flood(bool on) { m_flood = on; }
    qint64 pushed() const { return m_pushed; }

    // The shadow stage, on, at that level.
    static QByteArray reply(int code, int level)
    {
        QByteArray body = replyBody(code,
                                    QByteArray(1, '\1')
                                        .append(static_cast<char>(level & 0xFF))
                                        .append(static_cast<char>(level >> 8))
                                        .append(QByteArray(7, '\0')));
        return QByteArray(1, '\0').append(static_cast<char>(body.size() + 2)).append(body);
    }

private:
    void serve()
    {
        const int link = accept4(m_listener, nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK);
        QByteArray block;
        while (block.size() < 60000)
            block.append(reply(0x55, 750));
        int sentOfBlock = 0;
        while (link >= 0 && !m_end) {
            pollfd wait = {link, short(m_flood ? POLLIN | POLLOUT : POLLIN), 0};
            poll(&wait, 1, 20);
            char frame[64];
            const auto size = recv(link, frame, sizeof frame, 0);
            if (size == 0)
                break;
            if (size > 4) {
                const QByteArray answer = reply(static_cast<uchar>(frame[4]), 123);
                send(link, answer.constData(), static_cast<size_t>(answer.size()), MSG_NOSIGNAL);
            }
            if (m_flood && (wait.revents & POLLOUT) && m_pushed < kMostBytes) {
                const auto sent = send(link, block.constData() + sentOfBlock,
                                       static_cast<size_t>(block.size() - sentOfBlock), MSG_NOSIGNAL);
                if (sent > 0) {
                    m_pushed += sent;
                    sentOfBlock = static_cast<int>((sentOfBlock + sent) % block.size());
                }
            }
        }
        if (link >= 0)
            close(link);
    }

    static constexpr qint64 kMostBytes = 200'000'000;
    int m_listener = -1;
    bool m_listens = false;
    QString m_address;
    std::atomic<bool> m_flood{false};
    std::atomic<bool> m_end{false};
    std::atomic<qint64> m_pushed{0};
    std::thread m_thread;
};

qint64 residentBytes()
{
    QFile file(QStringLiteral("/proc/self/statm"));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    return file.readAll().split(' ').value(1).toLongLong() * sysconf(_SC_PAGESIZE);
}

QStringList warnings;

void keepWarning(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    if (type != QtDebugMsg)
        warnings.append(text);
}

} // namespace

void HostileLinkTest::aFloodFillsNoMemory()
{
    FloodingUnit unit;
    QVERIFY(unit.listens());
    qkv720 device;
    const std::unique_ptr<HLNP> discovery(device.hlnpObj);
    const std::unique_ptr<serialPort> serial(device.serialObj);
    QSignalSpy broken(&device, &qkv720::connectionBroken);
    QCOMPARE(device.connectDevice(kNetworkLink, unit.address()), QStringLiteral("OK"));
    device.getCKShadow(kNetworkLink);
    QCOMPARE(int(device.ckShadow.level), 123);

    // Idle: the event loop alone reads. The peer sends until nothing is taken any more, or 200 MB.
    const qint64 before = residentBytes();
    unit.flood(true);
    qint64 pushed = -1;
    while (pushed != unit.pushed()) {
        pushed = unit.pushed();
        QTest::qWait(700);
    }
    unit.flood(false);
    const qint64 grown = residentBytes() - before;
    qInfo() << "pushed" << pushed << "grown by" << grown;
    QVERIFY(pushed > 64 * 1024);
    VERIFY_BETWEEN(grown, -100'000'000LL, kMayGrow);

    // The next exchange takes what was pushed for its reply, as any late reply is taken, and the one after it
    // meets its own.
    support::Stopwatch timer;
    device.getCKShadow(kNetworkLink);
    VERIFY_TOOK(timer, 50, 3000);
    QCOMPARE(int(device.ckShadow.level), 750);
    for (int i = 0; i < 5 && device.ckShadow.level != 123; ++i)
        device.getCKShadow(kNetworkLink);
    QCOMPARE(int(device.ckShadow.level), 123);
    QVERIFY(device.isConnected);
    QVERIFY(broken.isEmpty());
    VERIFY_BETWEEN(residentBytes() - before, -100'000'000LL, kMayGrow);
    device.disconnectDevice(kNetworkLink);
}

void HostileLinkTest::aLostLinkIsSilentOnStandardError_data()
{
    QTest::addColumn<bool>("eventLoopSeesIt");
    QTest::addColumn<bool>("listensStill");
    QTest::newRow("found by the exchange") << false << true;
    QTest::newRow("found by the exchange, nobody listens") << false << false;
    QTest::newRow("found by the event loop") << true << true;
    QTest::newRow("found by the event loop, nobody listens") << true << false;
}

void HostileLinkTest::aLostLinkIsSilentOnStandardError()
{
    QFETCH(bool, eventLoopSeesIt);
    QFETCH(bool, listensStill);
    DeviceBench bench(kNetworkLink);
    QVERIFY(bench.connectUnit());
    warnings.clear();
    const QtMessageHandler before = qInstallMessageHandler(keepWarning);
    if (!listensStill)
        bench.host.stopListening();
    bench.host.drop();
    if (eventLoopSeesIt)
        QTest::qWait(100);
    support::Stopwatch timer;
    bench.device->getCKShadow(kNetworkLink);
    timer.stop();
    QTest::qWait(100); // the toolkit's own words come with the event loop
    qInstallMessageHandler(before);
    QVERIFY2(warnings.isEmpty(), qPrintable(warnings.join(QLatin1Char('\n'))));
    // A peer that went unseen costs the whole ladder; one that was seen is connected again before the frame.
    const bool heals = eventLoopSeesIt && listensStill;
    QCOMPARE(bench.device->isConnected, heals);
    QCOMPARE(bench.broken.isEmpty(), heals);
    VERIFY_TOOK(timer, heals ? 50 : 1800, heals ? 1500 : 6000);
}

// A late reply lies in the socket when the unit goes away: the exchange that finds the link down takes it for its own,
// as it would with the link up, and the next one finds the loss.
void HostileLinkTest::whatArrivedBeforeTheLinkFellIsRead()
{
    DeviceBench bench(kNetworkLink);
    QVERIFY(bench.connectUnit());
    bench.host.withUnit(
        [](standin::Unit &unit) { unit.setData(standin::Angle, QByteArray::fromHex("0102")); });
    QByteArray ask = QByteArray::fromHex("000603005154");
    QByteArray reply;
    bench.host.setFault(standin::Angle, standin::Fault::late(1200, 1));
    QCOMPARE(bench.device->hlnpIO(&ask, &reply), -1);
    QVERIFY(QTest::qWaitFor([&bench] { return bench.socket()->bytesAvailable() > 0; }));
    bench.device->isConnected = true;
    bench.broken.clear();
    bench.host.drop();
    QTest::qSleep(100); // the event loop does not see it

    bench.device->getEdgeFix(kNetworkLink);
    QCOMPARE(bench.device->edge_ShrinkLeft, 2U);
    QVERIFY(bench.device->isConnected);
    QVERIFY(bench.broken.isEmpty());
}

void HostileLinkTest::aTerminalThatHangsUpShowsInThePollAlone()
{
    int master = posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
    QVERIFY(master >= 0 && grantpt(master) == 0 && unlockpt(master) == 0);
    qkv720 device;
    const std::unique_ptr<HLNP> discovery(device.hlnpObj);
    const std::unique_ptr<serialPort> serial(device.serialObj);
    QSignalSpy broken(&device, &qkv720::connectionBroken);
    QCOMPARE(serial->openSerialPort(QString::fromLocal8Bit(ptsname(master))), QStringLiteral("OK"));
    device.isConnected = true;
    close(master);

    device.setCKShadow(kSerialLink, true, 5);
    device.getCKShadow(kSerialLink);
    QVERIFY(broken.isEmpty());
    QVERIFY(device.isConnected);
    // The read of the output standard, which the poll sends, takes the flag down.
    device.getVideoOut(kSerialLink);
    QVERIFY(!device.isConnected);
    QVERIFY(broken.isEmpty());
    device.disconnectDevice(kSerialLink);
}

QTEST_GUILESS_MAIN(HostileLinkTest)
#include "tst_hostilelink.moc"
