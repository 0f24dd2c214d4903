#pragma once

#include <QByteArray>
#include <QString>

// The datagrams of discovery as a panel sends them.

constexpr quint16 kPort = 5002;

inline QByteArray bytes(const char *hex)
{
    return QByteArray::fromHex(hex);
}

inline QString hex(const QByteArray &data)
{
    return QString::fromLatin1(data.toHex(' '));
}

inline QByteArray request(int type, int command, const QByteArray &rest)
{
    const int length = rest.size() + 4;
    QByteArray datagram;
    datagram.append(static_cast<char>(length / 256));
    datagram.append(static_cast<char>(length % 256));
    datagram.append(static_cast<char>(type));
    datagram.append(static_cast<char>(command));
    return datagram + rest;
}

inline const QByteArray kMac = bytes("00 50 c2 72 00 01");
