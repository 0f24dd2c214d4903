#pragma once

#include "standin/unit.h"

#include <QHostAddress>
#include <QObject>
#include <QUdpSocket>

#include <memory>

namespace standin {

// What the unit knows of its network, as its answers to discovery show it.
struct NetworkSettings
{
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
    void fromJson(const QJsonObject &json);
    static QByteArray macFromText(const QString &text); // empty when it is none
};

// The unit's end of discovery and of its remote network configuration: UDP port 5002.
class DiscoveryLink : public QObject
{
    Q_OBJECT

public:
    explicit DiscoveryLink(Unit &unit, QObject *parent = nullptr);

    NetworkSettings settings;

    // Answers at the address, and with `broadcasts` also what is sent to all. Any number of units can share one
    // machine, each at an address of its own.
    bool listen(const QHostAddress &address, bool broadcasts, quint16 port = 5002);
    void close();
    QString errorString() const { return error; }
    // Between a restart and the unit's return nothing is answered.
    void setAway(bool gone) { away = gone; }
    // Takes the address that waits; the caller then listens there.
    void applyNextAddress();

signals:
    void settingsChanged();
    void restartRequested();

private:
    void take(QUdpSocket *socket);
    void handle(const QByteArray &datagram, const QHostAddress &sender, quint16 port);
    bool isForUs(int command, const QByteArray &datagram) const;
    QByteArray execute(int command, const QByteArray &datagram);
    bool configure(int command, const QByteArray &datagram);
    QByteArray networkRecord(quint8 type) const;
    void reply(const QByteArray &bytes, const QHostAddress &to, quint16 port);

    Unit &unit;
    std::unique_ptr<QUdpSocket> directed;
    std::unique_ptr<QUdpSocket> broadcast;
    bool away = false;
    QString error;
};

} // namespace standin
