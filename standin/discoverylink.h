#pragma once

#include "standin/discoverycodes.h"
#include "standin/networksettings.h"
#include "standin/unit.h"

#include <QHostAddress>
#include <QObject>
#include <QUdpSocket>

#include <memory>

namespace standin {

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
    // Carries one datagram out and records it; nothing to send for one that is meant for others.
    Response answer(const QByteArray &datagram);

signals:
    void settingsChanged();
    void restartRequested();

private:
    void take(QUdpSocket *socket);
    void handle(const QByteArray &datagram, const QHostAddress &sender, quint16 port);
    bool isForUs(const DiscoveryFunction &function, const QByteArray &datagram) const;
    QByteArray execute(const DiscoveryFunction &function, const QByteArray &datagram);
    bool configure(const DiscoveryFunction &function, const QByteArray &datagram);
    QHostAddress *addressSetBy(int command);
    QByteArray networkRecord(quint8 type) const;
    void reply(const QByteArray &bytes, const QHostAddress &to, quint16 port);

    Unit &unit;
    std::unique_ptr<QUdpSocket> directed;
    std::unique_ptr<QUdpSocket> broadcast;
    bool away = false;
    bool restartAsked = false; // by the datagram that is answered now
    QString error;
};

} // namespace standin
