#pragma once

#include <QByteArray>
#include <QString>
#include <QTcpSocket>

namespace support {

// A link to a unit without any panel: bytes out, bytes in.
class RawNetwork
{
public:
    explicit RawNetwork(const QString &address);

    bool isUp() const { return socket.state() == QAbstractSocket::ConnectedState; }
    void send(const QByteArray &bytes);
    // What arrives until the line has been quiet for `quietMs`, at most `longestMs` for the first byte.
    QByteArray receive(int longestMs = 10000, int quietMs = 30);
    // Sends a body with its two leading length bytes, and gives the reply's body without them.
    QByteArray exchange(const QByteArray &body, int longestMs = 10000);
    bool waitForEnd(int ms = 10000);

private:
    QTcpSocket socket;
};

class RawSerial
{
public:
    explicit RawSerial(const QString &port);
    ~RawSerial();
    RawSerial(const RawSerial &) = delete;
    RawSerial &operator=(const RawSerial &) = delete;

    bool isUp() const { return file >= 0; }
    void send(const QByteArray &bytes) const;
    QByteArray receive(int longestMs = 10000, int quietMs = 30) const;
    QByteArray exchange(const QByteArray &body, int longestMs = 10000) const;

private:
    int file;
};

// A request body from its ext, code and payload, with length and sum.
QByteArray requestBody(int code, const QByteArray &payload = {}, int ext = 0);

} // namespace support
