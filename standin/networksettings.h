#pragma once

#include <QByteArray>
#include <QHostAddress>
#include <QJsonObject>
#include <QString>

namespace standin {

// What the unit knows of its network, as its answers to discovery show it.
struct NetworkSettings
{
    static constexpr int NameBytes = 16; // of the host name's field
    static constexpr int MacBytes = 6;

    bool dhcp = false;
    QString name = QStringLiteral("QKV720");
    QByteArray mac = QByteArray::fromHex("0050c2720001");
    QHostAddress address;
    QHostAddress mask{QStringLiteral("255.255.255.0")};
    QHostAddress gateway{QStringLiteral("0.0.0.0")};
    QHostAddress primaryDns{QStringLiteral("0.0.0.0")};
    QHostAddress secondaryDns{QStringLiteral("0.0.0.0")};
    int vendor = 0x0588;
    int product = 0x1501;
    QString modelName = QStringLiteral("QKV-720");
    // An address that was set waits here until the unit restarts; everything else shows at once. So a unit stays
    // within reach for the commands that follow, and its record always agrees with where it answers from.
    QHostAddress nextAddress;

    QJsonObject toJson() const;
    // Takes what is there and leaves the rest. On anything that can't be taken nothing changes, and the result
    // says why; empty is success.
    QString fromJson(const QJsonObject &json);

    // All three read what they give strictly; empty or null for anything else.
    static QByteArray macFromText(const QString &text); // 00:50:C2:72:00:01
    static QHostAddress addressFromText(const QString &text); // four decimal numbers
    static QHostAddress maskFromText(const QString &text); // ones first, then zeros
};

} // namespace standin
