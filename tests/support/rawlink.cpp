#include "tests/support/rawlink.h"

#include <QElapsedTimer>
#include <QFile>

#include <array>
#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace support {

RawNetwork::RawNetwork(const QString &address)
{
    constexpr quint16 kPort = 5002;
    socket.connectToHost(address, kPort);
    socket.waitForConnected(10000);
}

void RawNetwork::send(const QByteArray &bytes)
{
    socket.write(bytes);
    socket.waitForBytesWritten(10000);
}

QByteArray RawNetwork::receive(int longestMs, int quietMs)
{
    if (socket.bytesAvailable() == 0)
        socket.waitForReadyRead(longestMs);
    QByteArray bytes = socket.readAll();
    while (!bytes.isEmpty() && isUp() && socket.waitForReadyRead(quietMs))
        bytes += socket.readAll();
    return bytes;
}

QByteArray RawNetwork::exchange(const QByteArray &body, int longestMs)
{
    const int length = body.size() + 2;
    QByteArray lead;
    lead.append(static_cast<char>(length / 256));
    lead.append(static_cast<char>(length % 256));
    send(lead + body);
    return receive(longestMs).mid(2);
}

bool RawNetwork::waitForEnd(int ms)
{
    return !isUp() || socket.waitForDisconnected(ms);
}

RawSerial::RawSerial(const QString &port)
    : file(::open(QFile::encodeName(port).constData(), O_RDWR | O_NOCTTY | O_CLOEXEC))
{
}

RawSerial::~RawSerial()
{
    if (file >= 0)
        ::close(file);
}

void RawSerial::send(const QByteArray &bytes) const
{
    if (::write(file, bytes.constData(), static_cast<size_t>(bytes.size())) != bytes.size())
        qWarning("the pseudo-terminal took less than it was given");
}

QByteArray RawSerial::receive(int longestMs, int quietMs) const
{
    QByteArray bytes;
    pollfd wait{file, POLLIN, 0};
    while (::poll(&wait, 1, bytes.isEmpty() ? longestMs : quietMs) > 0) {
        std::array<char, 512> buffer{};
        const ssize_t got = ::read(file, buffer.data(), buffer.size());
        if (got <= 0)
            break;
        bytes.append(buffer.data(), static_cast<int>(got));
    }
    return bytes;
}

QByteArray RawSerial::exchange(const QByteArray &body, int longestMs) const
{
    send(body);
    return receive(longestMs);
}

QByteArray requestBody(int code, const QByteArray &payload, int ext)
{
    QByteArray body;
    body.append(static_cast<char>(payload.size() + 3));
    body.append(static_cast<char>(ext));
    body.append(static_cast<char>(code));
    body.append(payload);
    unsigned sum = 0;
    for (const char byte : body)
        sum += static_cast<unsigned char>(byte);
    body.append(static_cast<char>(sum % 256));
    return body;
}

} // namespace support
