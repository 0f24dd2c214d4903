#pragma once

#include <QByteArray>
#include <QHostAddress>
#include <QMutex>
#include <QString>
#include <QStringList>

#include <sys/types.h>
#include <unistd.h>

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

// 127.x.y.<last>, with x and y of this process alone, so that cases may run side by side.
inline QString ownLoopback(int last)
{
    const auto pid = static_cast<int>(getpid());
    return QStringLiteral("127.%1.%2.%3").arg(64 + (pid >> 8) % 128).arg(pid % 256).arg(last);
}

// Collects the log lines of a test, and lets a case act on one of them.
class LogCapture
{
public:
    LogCapture()
    {
        lines().clear();
        previous = qInstallMessageHandler(&LogCapture::take);
    }
    ~LogCapture()
    {
        qInstallMessageHandler(previous);
        onLine() = nullptr;
    }
    LogCapture(const LogCapture &) = delete;
    LogCapture &operator=(const LogCapture &) = delete;

    static QStringList &lines()
    {
        static QStringList all;
        return all;
    }
    static void (*&onLine())(const QString &)
    {
        static void (*handler)(const QString &) = nullptr;
        return handler;
    }
    static int count(const QString &part) { return lines().filter(part).size(); }

private:
    static void take(QtMsgType, const QMessageLogContext &, const QString &text)
    {
        lines().append(text);
        if (onLine() != nullptr)
            onLine()(text);
    }

    QtMessageHandler previous;
};
