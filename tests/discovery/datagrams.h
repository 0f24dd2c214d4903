#pragma once

#include <QByteArray>
#include <QHostAddress>
#include <QString>

// What a device puts on the wire, built by hand from the format and not by the panel's code.

struct DeviceRecord
{
    QByteArray mac = QByteArray::fromHex("025ca7010203");
    QString ip = QStringLiteral("192.168.72.10");
    QByteArray name = "QKV720";
    char dhcp = 0;
    QString mask = QStringLiteral("255.255.255.0");
    QString gateway = QStringLiteral("192.168.72.254");
    QString primaryDns = QStringLiteral("8.8.4.4");
    QString secondaryDns = QStringLiteral("1.0.0.1");

    static QByteArray four(const QString &address)
    {
        const quint32 value = QHostAddress(address).toIPv4Address();
        QByteArray bytes;
        for (int shift = 24; shift >= 0; shift -= 8)
            bytes.append(static_cast<char>((value >> shift) & 0xFF));
        return bytes;
    }

    QByteArray datagram() const
    {
        QByteArray bytes = QByteArray::fromHex("002f8000");
        bytes += dhcp;
        bytes += name + QByteArray(16 - name.size(), '\0');
        return bytes + mac + four(ip) + four(mask) + four(gateway) + four(primaryDns) + four(secondaryDns);
    }
};

inline QByteArray numberedMac(int number)
{
    return QByteArray::fromHex("025ca71000") + static_cast<char>(number);
}

inline DeviceRecord numberedRecord(int number, const QString &ip)
{
    DeviceRecord record;
    record.mac = numberedMac(number);
    record.ip = ip;
    return record;
}

inline QByteArray acknowledgement(int code, int value, const char *length = "0005")
{
    return QByteArray::fromHex(length) + '\x81' + static_cast<char>(code) + static_cast<char>(value);
}

inline QByteArray modelReply(const char *identifiers = "05881501")
{
    return QByteArray::fromHex("00088040") + QByteArray::fromHex(identifiers);
}

inline QByteArray modelNameReply(const QByteArray &name)
{
    QByteArray bytes("\0\0\x80\x41", 4);
    bytes += name;
    bytes[1] = static_cast<char>(bytes.size());
    return bytes;
}
