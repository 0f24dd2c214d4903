#include "tests/fuzz/unitpeer.h"

#include "tests/support/loopback.h"

#include <QHostAddress>

#include <array>
#include <fcntl.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <termios.h>
#include <unistd.h>

namespace {

constexpr int kAddress = 1; // the last part of the peer's loopback address

// One listener and one terminal serve all inputs.
int listener()
{
    static const int handle = [] {
        const int made = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
        const int yes = 1;
        ::setsockopt(made, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
        sockaddr_in address = {};
        address.sin_family = AF_INET;
        address.sin_port = htons(5002);
        address.sin_addr.s_addr = htonl(QHostAddress(support::ownLoopback(kAddress)).toIPv4Address());
        require(::bind(made, reinterpret_cast<const sockaddr *>(&address), sizeof address) == 0);
        require(::listen(made, 16) == 0);
        return made;
    }();
    return handle;
}

struct Terminal
{
    int master = -1;
    int slave = -1;
    QString name;
};

const Terminal &terminal()
{
    static const Terminal made = [] {
        Terminal pair;
        pair.master = ::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC | O_NONBLOCK);
        require(pair.master >= 0 && ::grantpt(pair.master) == 0 && ::unlockpt(pair.master) == 0);
        std::array<char, 128> name{};
        require(::ptsname_r(pair.master, name.data(), name.size()) == 0);
        pair.slave = ::open(name.data(), O_RDWR | O_NOCTTY | O_CLOEXEC | O_NONBLOCK);
        termios settings{};
        require(pair.slave >= 0 && ::tcgetattr(pair.slave, &settings) == 0);
        ::cfmakeraw(&settings);
        require(::tcsetattr(pair.slave, TCSANOW, &settings) == 0);
        pair.name = QString::fromLocal8Bit(name.data());
        return pair;
    }();
    return made;
}

int waitingIn(int handle)
{
    int bytes = 0;
    ::ioctl(handle, FIONREAD, &bytes);
    return bytes;
}

// A connection that ends so leaves nothing behind; the machine would run out of ports otherwise.
void closeAtOnce(int handle)
{
    const linger none = {1, 0};
    ::setsockopt(handle, SOL_SOCKET, SO_LINGER, &none, sizeof none);
    ::close(handle);
}

} // namespace

UnitPeer::UnitPeer(standin::LinkKind kind, Script &bends)
    : link(kind)
    , script(bends)
    , splitter(kind)
{
    if (link == standin::LinkKind::Serial) {
        end = terminal().master;
        ::tcflush(terminal().slave, TCIOFLUSH);
    } else {
        listener();
    }
}

UnitPeer::~UnitPeer()
{
    hangUp(true);
    // Who knocked and was never let in.
    for (int handle = 0; link == standin::LinkKind::Network && handle >= 0;) {
        handle = ::accept4(listener(), nullptr, nullptr, SOCK_CLOEXEC);
        if (handle >= 0)
            closeAtOnce(handle);
    }
}

QString UnitPeer::target() const
{
    return link == standin::LinkKind::Serial ? terminal().name : support::ownLoopback(kAddress);
}

void UnitPeer::look()
{
    if (world::wasWritten()) {
        std::array<pollfd, 2> handles = {{{end, POLLIN, 0}, {-1, POLLIN, 0}}};
        if (link == standin::LinkKind::Network)
            handles[1].fd = listener();
        ::poll(handles.data(), handles.size(), end < 0 ? 0 : world::kMomentMs);
    }
    if (link == standin::LinkKind::Network) {
        const int next = ::accept4(listener(), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK);
        if (next >= 0) {
            hangUp(true);
            end = next;
            const int yes = 1;
            ::setsockopt(end, IPPROTO_TCP, TCP_NODELAY, &yes, sizeof yes);
            splitter = standin::StreamSplitter(link);
        }
    }
    std::array<char, 1024> buffer{};
    const ssize_t got = end >= 0 ? ::read(end, buffer.data(), buffer.size()) : -1;
    if (got <= 0)
        return;
    for (const standin::Frame &frame : splitter.take(QByteArray(buffer.data(), static_cast<int>(got))))
        answer(frame);
}

void UnitPeer::calmDown()
{
    isBending = false;
    world::begin([this] { look(); });
    if (link == standin::LinkKind::Serial)
        ::tcflush(terminal().slave, TCIOFLUSH);
}

void UnitPeer::answer(const standin::Frame &frame)
{
    ++frameCount;
    const QByteArray healthy = unit.handle(link, frame).bytes();
    if (!frame.wellFormed || !frame.checksumGood || !unit.record().last().oddLength.isEmpty())
        ++badCount;
    if (isBending && !script.atEnd())
        bend(healthy);
    else
        put(healthy);
}

void UnitPeer::bend(const QByteArray &healthy)
{
    QByteArray bytes = healthy;
    switch (static_cast<Bend>(script.byte() % BendCount)) {
    case Healthy:
    case AlsoHealthy:
        put(healthy);
        return;
    case Own:
        put(script.counted());
        return;
    case Silent:
        return;
    case Late: {
        constexpr int kStepMs = 16;
        world::plan(script.byte() * kStepMs, [this, healthy] { put(healthy); });
        return;
    }
    case Changed: {
        const uint at = script.byte();
        if (!bytes.isEmpty())
            bytes[static_cast<int>(at) % bytes.size()] = static_cast<char>(script.byte());
        put(bytes);
        return;
    }
    case Cut:
        put(healthy.left(static_cast<int>(script.byte())));
        return;
    case Split: {
        constexpr int kStepMs = 8;
        const int first = static_cast<int>(script.byte());
        put(healthy.left(first));
        world::plan(script.byte() * kStepMs, [this, healthy, first] { put(healthy.mid(first)); });
        return;
    }
    case Hangup: {
        const uint how = script.byte();
        if ((how & 2U) != 0)
            put(healthy);
        hangUp((how & 1U) != 0);
        return;
    }
    case Long:
    case BendCount: {
        constexpr int kStep = 16;
        put(healthy + QByteArray(static_cast<int>(script.byte()) * kStep, static_cast<char>(script.byte())));
        return;
    }
    }
}

void UnitPeer::put(const QByteArray &bytes)
{
    if (end < 0 || bytes.isEmpty())
        return;
    const bool isSerial = link == standin::LinkKind::Serial;
    const int other = isSerial ? terminal().slave : world::connectedStream();
    const int before = waitingIn(other);
    const ssize_t sent = isSerial
        ? ::write(end, bytes.constData(), static_cast<size_t>(bytes.size()))
        : ::send(end, bytes.constData(), static_cast<size_t>(bytes.size()), MSG_NOSIGNAL);
    world::wasWritten(); // these were the unit's own
    // What is put on a link lies at its other end before time goes on.
    for (int i = 0; i < world::kMomentMs * 20 && waitingIn(other) < before + sent; ++i)
        ::usleep(50);
}

// A terminal has no end that the unit could close.
void UnitPeer::hangUp(bool atOnce)
{
    if (link == standin::LinkKind::Serial || end < 0)
        return;
    if (atOnce)
        closeAtOnce(end);
    else
        ::close(end);
    end = -1;
}
