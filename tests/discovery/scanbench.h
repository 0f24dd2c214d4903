#pragma once

#include "datagrams.h"
#include "device/qkv720.h"
#include "devices.h"
#include "discovery/hlnp.h"
#include "tests/support/testnetwork.h"
#include "tests/support/unithost.h"

#include <QtTest>

// Scans over real broadcasts, in a network of the test's own: the panel on one host, devices on others.

constexpr int kEthReq = 0x00;
constexpr int kGetModel = 0x40;

inline QString address(int last)
{
    return QStringLiteral("192.168.72.%1").arg(last);
}

struct Device
{
    DeviceRecord record;
    QByteArray identifiers = "05881501"; // empty: silent when asked
};

inline QStringList addressesOf(const QVector<Device> &devices)
{
    QStringList all;
    for (const Device &device : devices)
        all.append(device.record.ip);
    return all;
}

// Devices that behave.
inline Devices::Answer wellBehaved(const QVector<Device> &devices)
{
    return [devices](Devices &, const Devices::Request &request) {
        for (const Device &device : devices) {
            if (Devices::codeOf(request) == kEthReq)
                Devices::send(request, device.record.ip, device.record.datagram());
            else if (Devices::codeOf(request) == kGetModel && request.bytes.mid(4, 6) == device.record.mac
                     && !device.identifiers.isEmpty())
                Devices::send(request, device.record.ip, modelReply(device.identifiers.constData()));
        }
    };
}

inline QVector<Device> numbered(const QList<int> &lasts)
{
    QVector<Device> devices;
    for (const int last : lasts)
        devices.append({numberedRecord(last, address(last)), "05881501"});
    return devices;
}

// As the panel does it on the operator's press of the button.
inline uint scan(qkv720 &panel, int adapter = 0)
{
    const uint result = panel.HLNPScan(QStringLiteral("scan"), adapter);
    QThread::msleep(500);
    panel.HLNPGetModel();
    panel.HLNPDoScanDone();
    return result;
}

inline QUdpSocket *socketOf(const qkv720 &panel)
{
    return panel.hlnpObj->findChild<QUdpSocket *>();
}

class ScanBench : public QObject
{
protected:
    // False where network namespaces are refused: net->complaint() says so.
    bool raise()
    {
        net = std::make_unique<support::TestNetwork>();
        panelHost = net->addHost();
        farHost = net->addHost();
        cable = net->addSwitch();
        net->plug(panelHost, QStringLiteral("eth0"), cable, {address(1) + QStringLiteral("/24")});
        return net->isGood() && support::TestNetwork::enter(panelHost);
    }

    std::unique_ptr<Devices> switchOn(const QVector<Device> &devices, Devices::Answer answer = nullptr)
    {
        QStringList withMasks;
        for (const QString &own : addressesOf(devices))
            withMasks.append(own + QStringLiteral("/24"));
        withMasks.removeDuplicates();
        net->plug(farHost, QStringLiteral("eth0"), cable, withMasks);
        QStringList addresses = addressesOf(devices);
        addresses.removeDuplicates();
        return std::make_unique<Devices>(farHost, addresses,
                                         answer ? std::move(answer) : wellBehaved(devices));
    }

    std::unique_ptr<support::UnitHost> unitAt(int last, int product = 0x1501)
    {
        const QString host = net->addHost();
        net->plug(host, QStringLiteral("eth0"), cable, {address(last) + QStringLiteral("/24")});
        support::UnitHost::Options options;
        options.address = address(last);
        options.netNamespace = host;
        options.network = false;
        options.discovery = true;
        options.broadcasts = true;
        auto unit = std::make_unique<support::UnitHost>(options);
        unit->withNetwork([last, product](standin::NetworkSettings &settings) {
            settings.mac = numberedMac(last);
            settings.name = QStringLiteral("UNIT-%1").arg(last);
            settings.dhcp = last > 50;
            settings.product = product;
        });
        return unit;
    }

    std::unique_ptr<support::TestNetwork> net;
    QString panelHost;
    QString farHost;
    QString cable;
};
