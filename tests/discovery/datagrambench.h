#pragma once

#include "datagrams.h"
#include "discovery/hlnp.h"
#include "discovery/hlnpstate.h"
#include "tests/support/loopback.h"

#include <QHash>
#include <QSignalSpy>
#include <QUdpSocket>
#include <QtTest>

// The datagrams of the devices arrive on loopback: the socket of discovery is bound there by the test, and each
// device is a socket on port 5002 of an address of its own.
class DatagramBench : public QObject
{
protected:
    void init()
    {
        hlnp = new HLNP;
        hlnp->scanSlot(QStringLiteral("clear"), 0); // the counters live beside the object
        debugScanDeviceCount = 0;
        socket = hlnp->findChild<QUdpSocket *>();
        QVERIFY(socket != nullptr);
        QVERIFY(socket->bind(QHostAddress(support::ownLoopback(1)), 0));
    }

    void cleanup()
    {
        qDeleteAll(devices);
        devices.clear();
        delete hlnp;
        hlnp = nullptr;
    }

    void send(const QByteArray &datagram, int from = 10, quint16 port = 5002)
    {
        QUdpSocket *&device = devices[QStringLiteral("%1:%2").arg(from).arg(port)];
        if (device == nullptr) {
            device = new QUdpSocket;
            if (!device->bind(QHostAddress(support::ownLoopback(from)), port))
                qFatal("No device at %s: %s", qPrintable(support::ownLoopback(from)),
                       qPrintable(device->errorString()));
        }
        if (device->writeDatagram(datagram, socket->localAddress(), socket->localPort()) != datagram.size())
            qFatal("A device can't answer: %s", qPrintable(device->errorString()));
    }

    // Until everything sent so far is read.
    void collect()
    {
        do {
            hlnp->processDatagrams();
        } while (!hlnp->scanDone);
    }

    hlnp_network_info &network(int row) { return hlnp->allHlnpDevice[row].zcm.hlnpnetwork; }

    HLNP *hlnp = nullptr;
    QUdpSocket *socket = nullptr;
    QHash<QString, QUdpSocket *> devices;
};
