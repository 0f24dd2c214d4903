#include "tests/device/devicebench.h"
#include "tests/device/ownmemory.h"
#include "tests/support/loopback.h"
#include "tests/support/stopwatch.h"

#include <QFile>

#include <arpa/inet.h>
#include <atomic>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

// What answers on the unit's port is no unit, or one that has gone wrong: the panel says so in its own time, holds no
// more than before, and connects to the next one.
class HostileUnitsTest : public QObject
{
    Q_OBJECT

private slots:
    void aReplyOfFiftyMegabytes();
    void aByteNowAndThen();
    void acceptedAndClosed();
};

namespace {

// Serves each link on a thread of its own as the case says; a link is closed when its server returns.
class Impostor
{
public:
    using Serve = std::function<void(int link, const std::atomic<bool> &over)>;

    Impostor(QString where, Serve serve)
        : m_address(std::move(where))
    {
        sockaddr_in own = {};
        own.sin_family = AF_INET;
        own.sin_port = htons(5002);
        own.sin_addr.s_addr = inet_addr(qPrintable(m_address));
        m_listener = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
        const int yes = 1;
        setsockopt(m_listener, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
        m_listens = bind(m_listener, reinterpret_cast<const sockaddr *>(&own), sizeof own) == 0
            && listen(m_listener, 50) == 0;
        m_thread = std::thread([this, serve = std::move(serve)] {
            while (!m_over) {
                pollfd wait = {m_listener, POLLIN, 0};
                if (poll(&wait, 1, 20) <= 0)
                    continue;
                const int link = accept4(m_listener, nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK);
                ++m_links;
                serve(link, m_over);
                close(link);
            }
        });
    }
    ~Impostor()
    {
        m_over = true;
        m_thread.join();
        close(m_listener);
    }
    Impostor(const Impostor &) = delete;
    Impostor &operator=(const Impostor &) = delete;

    bool listens() const { return m_listens; }
    QString address() const { return m_address; }
    int links() const { return m_links; }

private:
    QString m_address;
    int m_listener = -1;
    bool m_listens = false;
    std::atomic<bool> m_over{false};
    std::atomic<int> m_links{0};
    std::thread m_thread;
};

// Whether a frame came within 20 ms; `gone` is set when the peer hung up.
bool frameCame(int link, bool &gone)
{
    pollfd wait = {link, POLLIN, 0};
    char frame[256];
    if (poll(&wait, 1, 20) <= 0)
        return false;
    const auto size = recv(link, frame, sizeof frame, 0);
    gone = size == 0;
    return size > 0;
}

qint64 residentBytes()
{
    QFile file(QStringLiteral("/proc/self/statm"));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    return file.readAll().split(' ').value(1).toLongLong() * sysconf(_SC_PAGESIZE);
}

int openDescriptors()
{
    return QDir(QStringLiteral("/proc/self/fd")).entryList(QDir::Files | QDir::System).size();
}

struct Panel
{
    qkv720 device;
    const std::unique_ptr<HLNP> discovery{device.hlnpObj};
    const std::unique_ptr<serialPort> serial{device.serialObj};

    // Connects and reads from a unit that is one.
    bool worksWithAUnit()
    {
        device.disconnectDevice(kNetworkLink);
        support::UnitHost unit;
        unit.withUnit([](standin::Unit &it) { it.setData(standin::Angle, QByteArray::fromHex("0102")); });
        if (device.connectDevice(kNetworkLink, unit.address()) != QLatin1String("OK"))
            return false;
        device.getEdgeFix(kNetworkLink);
        const bool works = device.isConnected && unit.count(0x57) == 1;
        device.disconnectDevice(kNetworkLink);
        return works;
    }
};

} // namespace

// Every command is answered with 50 MB, as fast as they are taken.
void HostileUnitsTest::aReplyOfFiftyMegabytes()
{
    constexpr qint64 kReply = 50'000'000;
    std::atomic<qint64> pushed{0};
    const Impostor unit(support::ownLoopback(41), [&pushed](int link, const std::atomic<bool> &over) {
        const QByteArray block(60000, '\x55');
        qint64 left = 0;
        bool gone = false;
        while (!over && !gone) {
            if (frameCame(link, gone))
                left += kReply;
            for (; left > 0 && !over; left -= block.size()) {
                pollfd wait = {link, POLLOUT, 0};
                if (poll(&wait, 1, 20) <= 0)
                    break;
                const auto sent =
                    send(link, block.constData(), static_cast<size_t>(block.size()), MSG_NOSIGNAL);
                if (sent <= 0)
                    break;
                pushed += sent;
            }
        }
    });
    QVERIFY(unit.listens());
    Panel panel;
    const qint64 before = residentBytes();
    support::Stopwatch clock;
    const QString told = panel.device.connectDevice(kNetworkLink, unit.address());
    for (int i = 0; i < 5; ++i)
        panel.device.getCKShadow(kNetworkLink);
    QTest::qWait(500);
    const qint64 grown = residentBytes() - before;
    qInfo() << "each command answered with 50 MB: told" << told << "in" << clock.elapsed() << "ms, pushed"
            << pushed << "grown by" << grown;
    VERIFY_BETWEEN(grown, -100'000'000LL, kMayGrow);
    VERIFY_TOOK(clock, 0, 20000);
    QVERIFY(panel.worksWithAUnit());
}

void HostileUnitsTest::aByteNowAndThen()
{
    const Impostor unit(support::ownLoopback(42), [](int link, const std::atomic<bool> &over) {
        const QByteArray reply = QByteArray::fromHex("000c09006c010502231022da");
        bool gone = false;
        int at = -1;
        QElapsedTimer clock;
        while (!over && !gone) {
            if (frameCame(link, gone) && at < 0) {
                at = 0;
                clock.start();
            }
            if (at >= 0 && clock.elapsed() >= 900) {
                if (send(link, reply.constData() + at % reply.size(), 1, MSG_NOSIGNAL) < 0)
                    return;
                ++at;
                clock.start();
            }
        }
    });
    QVERIFY(unit.listens());
    Panel panel;
    support::Stopwatch clock;
    const QString told = panel.device.connectDevice(kNetworkLink, unit.address());
    qInfo() << "a byte every 900 ms: told" << told << "in" << clock.elapsed() << "ms";
    QCOMPARE(told, QStringLiteral("Get Version failed. \nDevice may be disconnected."));
    VERIFY_TOOK(clock, 1800, 12000); // the ladder's own waits, and no more
    QVERIFY(!panel.device.isConnected);
    QVERIFY(panel.worksWithAUnit());
}

// A share of the links: how many connects failed to say what they should, or left a descriptor behind.
int closedLinks(int wanted)
{
    const Impostor unit(support::ownLoopback(43), [](int, const std::atomic<bool> &) {});
    Panel panel;
    int descriptors = 0;
    int wrong = unit.listens() ? 0 : 1;
    for (int round = 0; wrong == 0 && unit.links() < wanted; ++round) {
        const QString told = panel.device.connectDevice(kNetworkLink, unit.address());
        wrong += told != QLatin1String("Get Version failed. \nDevice may be disconnected.");
        wrong += panel.device.isConnected;
        panel.device.disconnectDevice(kNetworkLink);
        QTest::qWait(1);
        if (round == 0)
            descriptors = openDescriptors();
    }
    wrong += openDescriptors() != descriptors;
    return wrong + !panel.worksWithAUnit();
}

void HostileUnitsTest::acceptedAndClosed()
{
    // Each costs the ladder's waits: the whole thousand is shared among processes.
    const bool whole = qEnvironmentVariableIsSet("OUTSIDE_WHOLE");
    const int processes = whole ? 20 : 2;
    const int each = whole ? 50 : 4;
    QVector<pid_t> started;
    for (int i = 0; i < processes; ++i) {
        const pid_t process = fork();
        if (process == 0)
            _exit(closedLinks(each));
        started.append(process);
    }
    int wrong = 0;
    for (const pid_t process : qAsConst(started)) {
        int status = -1;
        waitpid(process, &status, 0);
        wrong += status != 0;
    }
    qInfo("%d links accepted and closed, in %d processes", processes * each, processes);
    QCOMPARE(wrong, 0);
}

QTEST_GUILESS_MAIN(HostileUnitsTest)
#include "tst_hostileunits.moc"
