#include "tests/device/matrix/faultyunit.h"

#include "tests/support/loopback.h"

#include <QHostAddress>

#include <array>
#include <cstdlib>
#include <fcntl.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <termios.h>
#include <unistd.h>

namespace matrix {

namespace {

constexpr int kAddress = 1; // the last part of the loopback address; a process has one such unit

void need(bool holds, const char *what)
{
    if (!holds)
        qFatal("the unit of the matrix has no %s", what);
}

int listenAt(const QString &address)
{
    const int handle = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    const int yes = 1;
    ::setsockopt(handle, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
    sockaddr_in at = {};
    at.sin_family = AF_INET;
    at.sin_port = htons(5002);
    at.sin_addr.s_addr = htonl(QHostAddress(address).toIPv4Address());
    need(::bind(handle, reinterpret_cast<const sockaddr *>(&at), sizeof at) == 0, "address");
    need(::listen(handle, 4) == 0, "port");
    return handle;
}

} // namespace

FaultyUnit::FaultyUnit(uint link_)
    : method(link_)
    , bell(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK))
    , angle(dataOf(0x51, false))
{
    if (method == kSerial) {
        openTerminal();
    } else {
        name = support::ownLoopback(kAddress);
        listener = listenAt(name);
    }
    thread = std::thread([this] { serve(); });
}

FaultyUnit::~FaultyUnit()
{
    {
        const std::lock_guard<std::mutex> lock(mutex);
        ends = true;
    }
    wake();
    thread.join();
    for (const int handle : {listener, link, slave, bell}) {
        if (handle >= 0)
            ::close(handle);
    }
}

void FaultyUnit::openTerminal()
{
    link = ::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC | O_NONBLOCK);
    need(link >= 0 && ::grantpt(link) == 0 && ::unlockpt(link) == 0, "terminal");
    std::array<char, 128> path{};
    need(::ptsname_r(link, path.data(), path.size()) == 0, "name of its terminal");
    slave = ::open(path.data(), O_RDWR | O_NOCTTY | O_CLOEXEC | O_NONBLOCK);
    termios settings{};
    need(slave >= 0 && ::tcgetattr(slave, &settings) == 0, "other end of its terminal");
    ::cfmakeraw(&settings);
    need(::tcsetattr(slave, TCSANOW, &settings) == 0, "raw terminal");
    name = QString::fromLocal8Bit(path.data());
}

QString FaultyUnit::target() const
{
    const std::lock_guard<std::mutex> lock(mutex);
    return name;
}

void FaultyUnit::suffer(const Form &wanted, int code)
{
    const std::lock_guard<std::mutex> lock(mutex);
    suffers = true;
    form = wanted;
    faultedCode = code;
    faultedFrames = 0;
    record.clear();
}

void FaultyUnit::heal()
{
    const std::lock_guard<std::mutex> lock(mutex);
    suffers = false;
    due.clear();
    unread.clear();
    record.clear();
    if (method != kSerial)
        return;
    if (link < 0)
        openTerminal();
    ::tcflush(slave, TCIOFLUSH);
    wake();
}

void FaultyUnit::put(const QByteArray &bytes)
{
    const std::lock_guard<std::mutex> lock(mutex);
    sendBytes(bytes);
}

void FaultyUnit::hangUp()
{
    const std::lock_guard<std::mutex> lock(mutex);
    end(Ending::Close);
    wake();
}

void FaultyUnit::setAngle(const QByteArray &data)
{
    const std::lock_guard<std::mutex> lock(mutex);
    angle = data;
}

QStringList FaultyUnit::frames() const
{
    const std::lock_guard<std::mutex> lock(mutex);
    return record;
}

void FaultyUnit::wake() const
{
    const quint64 one = 1;
    const ssize_t rung = ::write(bell, &one, sizeof one);
    Q_UNUSED(rung)
}

int FaultyUnit::waitMs() const
{
    if (due.empty())
        return -1;
    const auto left =
        std::chrono::duration_cast<std::chrono::microseconds>(due.begin()->first - Clock::now());
    return static_cast<int>(qMax<qint64>(0, (left.count() + 999) / 1000));
}

void FaultyUnit::serve()
{
    std::unique_lock<std::mutex> lock(mutex);
    while (!ends) {
        std::array<pollfd, 3> handles = {{{bell, POLLIN, 0}, {listener, POLLIN, 0}, {link, POLLIN, 0}}};
        const int ms = waitMs();
        lock.unlock();
        ::poll(handles.data(), handles.size(), ms); // a handle below 0 is skipped
        quint64 rung = 0;
        const ssize_t got = ::read(bell, &rung, sizeof rung);
        Q_UNUSED(got)
        lock.lock();
        if (handles[1].revents != 0)
            acceptLink();
        if (link >= 0)
            take();
        sendDue();
    }
}

void FaultyUnit::acceptLink()
{
    const int next = ::accept4(listener, nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK);
    if (next < 0)
        return;
    if (link >= 0)
        ::close(link);
    link = next;
    unread.clear();
    due.clear();
    const int yes = 1;
    ::setsockopt(link, IPPROTO_TCP, TCP_NODELAY, &yes, sizeof yes);
}

void FaultyUnit::take()
{
    std::array<char, 512> buffer{};
    const ssize_t got = ::read(link, buffer.data(), buffer.size());
    if (got == 0 && method == kNetwork)
        end(Ending::Close);
    if (got <= 0)
        return;
    unread.append(buffer.data(), static_cast<int>(got));
    const int lead = method == kNetwork ? 2 : 0;
    while (unread.size() > lead) {
        const int length = lead + 1 + static_cast<unsigned char>(unread.at(lead));
        if (unread.size() < length)
            return;
        const QByteArray body = unread.mid(lead, length - lead);
        unread.remove(0, length);
        answer(body);
    }
}

void FaultyUnit::answer(const QByteArray &body)
{
    record += QString::fromLatin1(body.toHex(' '));
    const int code = static_cast<unsigned char>(body.at(2));
    Answer plan{{{0, healthyAnswer(method, body)}}};
    if (suffers && code == faultedCode)
        plan = faultyAnswer(form, method, body, faultedFrames++);
    else if (code == 0x51)
        plan = {{{0, onLink(method, bodyOf(0x51, angle))}}};
    const auto now = Clock::now();
    for (const Chunk &chunk : plan.chunks) {
        if (chunk.delayMs == 0)
            sendBytes(chunk.bytes);
        else
            due.emplace(now + std::chrono::milliseconds(chunk.delayMs), chunk.bytes);
    }
    if (plan.ending != Ending::None)
        end(plan.ending);
}

void FaultyUnit::sendDue()
{
    while (!due.empty() && due.begin()->first <= Clock::now()) {
        sendBytes(due.begin()->second);
        due.erase(due.begin());
    }
}

void FaultyUnit::sendBytes(const QByteArray &bytes) const
{
    if (link < 0)
        return;
    const auto size = static_cast<size_t>(bytes.size());
    const ssize_t sent = method == kSerial ? ::write(link, bytes.constData(), size)
                                           : ::send(link, bytes.constData(), size, MSG_NOSIGNAL);
    Q_UNUSED(sent)
}

void FaultyUnit::end(Ending ending)
{
    if (link < 0)
        return;
    if (ending == Ending::Reset && method == kNetwork) {
        const linger none = {1, 0};
        ::setsockopt(link, SOL_SOCKET, SO_LINGER, &none, sizeof none);
    }
    ::close(link);
    link = -1;
    due.clear();
    if (slave >= 0)
        ::close(slave);
    slave = -1;
}

} // namespace matrix
