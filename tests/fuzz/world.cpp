#include "tests/fuzz/world.h"

#include <QThread>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <deque>
#include <dlfcn.h>
#include <map>
#include <netinet/in.h>
#include <poll.h>
#include <sched.h>
#include <sys/socket.h>
#include <unistd.h>
#include <utility>

namespace world {

namespace {

struct State
{
    qint64 now = 0;
    std::multimap<qint64, std::function<void()>> plans;
    std::function<void()> look;
    std::function<void(const QByteArray &)> taken;
    std::deque<Datagram> datagrams;
    bool isLooking = false;
    bool wasWritten = false;
};

State &state()
{
    static State it;
    return it;
}

void look()
{
    State &it = state();
    if (!it.look || it.isLooking)
        return;
    it.isLooking = true;
    it.look();
    it.isLooking = false;
}

// Carries out what is planned up to then, one moment at a time; true when something happened.
bool passToNext(qint64 end)
{
    State &it = state();
    if (it.plans.empty() || it.plans.begin()->first > end) {
        it.now = end;
        return false;
    }
    it.now = qMax(it.now, it.plans.begin()->first);
    while (!it.plans.empty() && it.plans.begin()->first <= it.now) {
        const auto act = it.plans.begin()->second;
        it.plans.erase(it.plans.begin());
        act();
    }
    return true;
}

} // namespace

void isolate()
{
    const bool isRoot = ::geteuid() == 0;
    const char *const steps = "ip link set lo up && ip link add fuzz0 type veth peer name fuzz1"
                              " && ip addr add 192.168.72.1/24 dev fuzz0 && ip link set fuzz1 up"
                              " && ip link set fuzz0 up && ip route add default dev fuzz0";
    if (::unshare(isRoot ? CLONE_NEWNET : CLONE_NEWUSER | CLONE_NEWNET) == 0 && std::system(steps) == 0)
        return;
    std::fputs("This program needs a network namespace of its own, and that is refused here.\n", stderr);
    std::exit(1);
}

void begin(const std::function<void()> &look)
{
    state() = State();
    state().look = look;
}

qint64 nowMs()
{
    return state().now;
}

void plan(qint64 inMs, const std::function<void()> &act)
{
    state().plans.emplace(state().now + inMs, act);
}

void pass(qint64 ms)
{
    const qint64 end = state().now + ms;
    look();
    while (passToNext(end))
        look();
}

namespace {
int lastStream = -1;
}

int connectedStream()
{
    return lastStream;
}

bool wasWritten()
{
    return std::exchange(state().wasWritten, false);
}

void takeDatagrams(const std::function<void(const QByteArray &)> &taken)
{
    state().taken = taken;
}

void receive(const Datagram &datagram)
{
    state().datagrams.push_back(datagram);
}

int waitingDatagrams()
{
    return static_cast<int>(state().datagrams.size());
}

} // namespace world

// ---- What stands in the place of the libraries' own ------------------------------------------------------------

void QThread::msleep(unsigned long ms)
{
    world::pass(static_cast<qint64>(ms));
}

namespace {

bool isSocketOf(int handle, int wantedType)
{
    int type = 0;
    int domain = 0;
    socklen_t length = sizeof type;
    if (::getsockopt(handle, SOL_SOCKET, SO_TYPE, &type, &length) != 0 || type != wantedType)
        return false;
    length = sizeof domain;
    return ::getsockopt(handle, SOL_SOCKET, SO_DOMAIN, &domain, &length) == 0
        && (domain == AF_INET || domain == AF_INET6);
}

bool isDatagramSocket(int handle)
{
    return world::state().taken && isSocketOf(handle, SOCK_DGRAM);
}

void noteWrite(int handle)
{
    if (isSocketOf(handle, SOCK_STREAM) || ::isatty(handle) == 1)
        world::state().wasWritten = true;
}

template <typename Call>
Call original(const char *name)
{
    return reinterpret_cast<Call>(::dlsym(RTLD_NEXT, name));
}

int readyNow(pollfd *handles, nfds_t count)
{
    using Poll = int (*)(pollfd *, nfds_t, const timespec *, const sigset_t *);
    static const Poll poll = original<Poll>("ppoll");
    const timespec none = {};
    const timespec moment = {0, world::kMomentMs * 1000000L};
    int ready = poll(handles, count, &none, nullptr);
    // What can't be written at once is a connection on its way.
    if (ready == 0 && std::any_of(handles, handles + count, [](const pollfd &one) {
            return (one.events & POLLOUT) != 0;
        }))
        ready = poll(handles, count, &moment, nullptr);
    if (ready != 0 || world::waitingDatagrams() == 0)
        return ready;
    int datagrams = 0;
    for (nfds_t i = 0; i < count; ++i) {
        if ((handles[i].events & POLLIN) == 0 || !isDatagramSocket(handles[i].fd))
            continue;
        handles[i].revents = POLLIN;
        ++datagrams;
    }
    return datagrams;
}

} // namespace

extern "C" {

int ppoll(pollfd *handles, nfds_t count, const timespec *timeout, const sigset_t *)
{
    const qint64 ms = timeout ? timeout->tv_sec * 1000 + timeout->tv_nsec / 1000000 : 0;
    const qint64 end = world::nowMs() + ms;
    world::look();
    int ready = readyNow(handles, count);
    while (ready == 0 && world::passToNext(end)) {
        world::look();
        ready = readyNow(handles, count);
    }
    return ready;
}

int connect(int handle, const sockaddr *address, socklen_t size)
{
    using Connect = int (*)(int, const sockaddr *, socklen_t);
    static const Connect connect = original<Connect>("connect");
    if (isSocketOf(handle, SOCK_STREAM))
        world::lastStream = handle;
    return connect(handle, address, size);
}

ssize_t write(int handle, const void *bytes, size_t size)
{
    using Write = ssize_t (*)(int, const void *, size_t);
    static const Write write = original<Write>("write");
    noteWrite(handle);
    return write(handle, bytes, size);
}

ssize_t send(int handle, const void *bytes, size_t size, int flags)
{
    using Send = ssize_t (*)(int, const void *, size_t, int);
    static const Send send = original<Send>("send");
    noteWrite(handle);
    return send(handle, bytes, size, flags);
}

ssize_t sendmsg(int handle, const msghdr *message, int flags)
{
    using Send = ssize_t (*)(int, const msghdr *, int);
    static const Send send = original<Send>("sendmsg");
    if (!isDatagramSocket(handle))
        return send(handle, message, flags);
    QByteArray bytes;
    for (size_t i = 0; i < message->msg_iovlen; ++i)
        bytes.append(static_cast<const char *>(message->msg_iov[i].iov_base),
                     static_cast<int>(message->msg_iov[i].iov_len));
    world::state().taken(bytes);
    return bytes.size();
}

ssize_t recvmsg(int handle, msghdr *message, int flags)
{
    using Receive = ssize_t (*)(int, msghdr *, int);
    static const Receive receive = original<Receive>("recvmsg");
    if (!isDatagramSocket(handle))
        return receive(handle, message, flags);
    auto &waiting = world::state().datagrams;
    if (waiting.empty()) {
        errno = EAGAIN;
        return -1;
    }
    const world::Datagram first = waiting.front();
    if ((flags & MSG_PEEK) == 0)
        waiting.pop_front();
    size_t copied = 0;
    for (size_t i = 0; i < message->msg_iovlen && copied < size_t(first.bytes.size()); ++i) {
        const size_t part = qMin(message->msg_iov[i].iov_len, size_t(first.bytes.size()) - copied);
        std::memcpy(message->msg_iov[i].iov_base, first.bytes.constData() + copied, part);
        copied += part;
    }
    message->msg_flags = copied < size_t(first.bytes.size()) ? MSG_TRUNC : 0;
    message->msg_controllen = 0;
    if (message->msg_name && message->msg_namelen >= sizeof(sockaddr_in)) {
        sockaddr_in from = {};
        from.sin_family = AF_INET;
        from.sin_port = htons(first.port);
        from.sin_addr.s_addr = htonl(first.from.toIPv4Address());
        std::memcpy(message->msg_name, &from, sizeof from);
        message->msg_namelen = sizeof from;
    }
    return static_cast<ssize_t>(copied);
}

ssize_t recv(int handle, void *buffer, size_t size, int flags)
{
    using Receive = ssize_t (*)(int, void *, size_t, int);
    static const Receive receive = original<Receive>("recv");
    if (!isDatagramSocket(handle))
        return receive(handle, buffer, size, flags);
    iovec part = {buffer, size};
    msghdr message = {};
    message.msg_iov = &part;
    message.msg_iovlen = 1;
    const qint64 whole = world::waitingDatagrams() > 0 ? world::state().datagrams.front().bytes.size() : -1;
    const ssize_t got = recvmsg(handle, &message, flags);
    return got >= 0 && (flags & MSG_TRUNC) != 0 ? static_cast<ssize_t>(whole) : got;
}

} // extern "C"
