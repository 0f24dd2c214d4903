#include "bench/barelink.h"

#include <QByteArray>

#include <arpa/inet.h>
#include <array>
#include <ctime>
#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <termios.h>
#include <unistd.h>

namespace bench {

namespace {

constexpr int kControlPort = 5002;
constexpr int kReplyWaitMs = 1000;
// The dark stage: its request and the length of its reply, without the two bytes of the network form.
constexpr std::array<char, 6> kRequest{0x00, 0x06, 0x03, 0x00, 0x53, 0x56};
constexpr size_t kLengthBytes = 2;
constexpr ssize_t kReplyBytes = 10;

} // namespace

BareLink::BareLink(int opened, bool leadingBytes)
    : descriptor(opened)
    , withLength(leadingBytes)
{
}

BareLink::BareLink(BareLink &&other) noexcept
    : descriptor(other.descriptor)
    , withLength(other.withLength)
{
    other.descriptor = -1;
}

BareLink::~BareLink()
{
    if (descriptor >= 0)
        close(descriptor);
}

BareLink BareLink::network(const QString &address)
{
    const int opened = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in target{};
    target.sin_family = AF_INET;
    target.sin_port = htons(kControlPort);
    inet_pton(AF_INET, address.toLatin1().constData(), &target.sin_addr);
    if (connect(opened, reinterpret_cast<const sockaddr *>(&target), sizeof target) == 0)
        return {opened, true};
    close(opened);
    return {-1, true};
}

BareLink BareLink::serial(const QString &terminal)
{
    const int opened = open(terminal.toLocal8Bit().constData(), O_RDWR | O_NOCTTY);
    termios settings{};
    if (opened >= 0 && tcgetattr(opened, &settings) == 0) {
        cfmakeraw(&settings);
        cfsetspeed(&settings, B19200);
        tcsetattr(opened, TCSANOW, &settings);
    }
    return {opened, false};
}

bool BareLink::exchange(int sleepMs) const
{
    const size_t skipped = withLength ? 0 : kLengthBytes;
    const size_t length = kRequest.size() - skipped;
    if (write(descriptor, kRequest.data() + skipped, length) != static_cast<ssize_t>(length))
        return false;
    const timespec wait{sleepMs / 1000, (sleepMs % 1000) * 1000000L};
    nanosleep(&wait, nullptr);
    pollfd ready{descriptor, POLLIN, 0};
    std::array<char, 256> reply{};
    const ssize_t expected = kReplyBytes + static_cast<ssize_t>(kLengthBytes - skipped);
    return poll(&ready, 1, kReplyWaitMs) == 1 && read(descriptor, reply.data(), reply.size()) == expected;
}

} // namespace bench
