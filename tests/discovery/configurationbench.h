#pragma once

#include "datagrams.h"
#include "discovery/hlnp.h"
#include "tests/support/loopback.h"

#include <QSignalSpy>
#include <QUdpSocket>
#include <QtTest>

#include <functional>

using Command = std::function<QString(HLNP &, const QString &target, const QString &value)>;
Q_DECLARE_METATYPE(Command)

inline QString setDhcpName(HLNP &hlnp, const QString &target, const QString &value)
{
    return hlnp.setDhcpName(QString(), target, value);
}
inline QString setMacAdr(HLNP &hlnp, const QString &target, const QString &value)
{
    return hlnp.setMacAdr(QString(), target, value);
}
inline QString setNetmask(HLNP &hlnp, const QString &target, const QString &value)
{
    return hlnp.setNetmask(QString(), target, value);
}
inline QString setGateway(HLNP &hlnp, const QString &target, const QString &value)
{
    return hlnp.setGateway(QString(), target, value);
}
inline QString setPrimDns(HLNP &hlnp, const QString &target, const QString &value)
{
    return hlnp.setPrimDNS(QString(), target, value);
}
inline QString setSecDns(HLNP &hlnp, const QString &target, const QString &value)
{
    return hlnp.setSecDNS(QString(), target, value);
}

// The commands that go to one address, on loopback: the unit is a socket whose answer waits before the request
// is sent, and whose request is read afterwards. The three broadcast commands need a network of their own.
class ConfigurationBench : public QObject
{
protected:
    void init()
    {
        hlnp = new HLNP;
        target = support::ownLoopback(7);
        unit = new QUdpSocket;
        stranger = new QUdpSocket;
        QVERIFY(hlnp->findChild<QUdpSocket *>()->bind(QHostAddress(support::ownLoopback(1)), 0));
        QVERIFY2(unit->bind(QHostAddress(target), 5002), qPrintable(unit->errorString()));
        QVERIFY2(stranger->bind(QHostAddress(support::ownLoopback(70)), 5002),
                 qPrintable(stranger->errorString()));
    }

    void cleanup()
    {
        delete hlnp;
        delete unit;
        delete stranger;
        hlnp = nullptr;
        unit = nullptr;
        stranger = nullptr;
    }

    void answer(QUdpSocket &from, const QByteArray &datagram)
    {
        const auto *socket = hlnp->findChild<QUdpSocket *>();
        if (from.writeDatagram(datagram, socket->localAddress(), socket->localPort()) != datagram.size())
            qFatal("The unit can't answer: %s", qPrintable(from.errorString()));
    }

    // The request that the unit received, empty for none.
    QByteArray sent()
    {
        if (!unit->hasPendingDatagrams())
            return QByteArray();
        QByteArray datagram(2000, '\0');
        datagram.resize(static_cast<int>(unit->readDatagram(datagram.data(), datagram.size())));
        return datagram;
    }

    HLNP *hlnp = nullptr;
    QUdpSocket *unit = nullptr;
    QUdpSocket *stranger = nullptr;
    QString target;
};
