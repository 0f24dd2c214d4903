#pragma once

#include "facadebench.h"
#include "tests/support/testnetwork.h"

// A facade on one host of an Ethernet of the test's own and a stand-in unit on another, so that broadcasts go their
// way and stay there.
class NetworkBench : public QObject
{
protected:
    static QString text(const char *latin) { return QString::fromLatin1(latin); }

    static constexpr char kPanel[] = "192.168.72.1";
    static constexpr char kUnit[] = "192.168.72.10";
    static constexpr char kMac[] = "00:50:C2:72:00:01";
    static constexpr char kCard[] = "[192.168.72.1] eth0";

    // Once for all cases. False where network namespaces are refused: net->complaint() says so.
    bool raise()
    {
        net = std::make_unique<support::TestNetwork>();
        panelHost = net->addHost();
        unitsHost = net->addHost();
        const QString cable = net->addSwitch();
        net->plug(panelHost, text("eth0"), cable, {text("192.168.72.1/24")});
        net->plug(unitsHost, text("eth0"), cable, {text("192.168.72.10/24"), text("192.168.72.7/24")});
        return net->isGood() && support::TestNetwork::enter(panelHost);
    }

    void open()
    {
        QFile::remove(settingsPath());
        unit = makeUnit(kUnit, "STUDIO-1", kMac);
    }

    void close()
    {
        recorder.reset();
        discard(control);
        unit.reset();
    }

    std::unique_ptr<support::UnitHost> makeUnit(const char *address, const char *name, const char *mac)
    {
        support::UnitHost::Options options;
        options.address = text(address);
        options.netNamespace = unitsHost;
        options.discovery = options.broadcasts = true;
        auto made = std::make_unique<support::UnitHost>(options);
        made->withNetwork([=](standin::NetworkSettings &settings) {
            settings.name = text(name);
            settings.mac = QByteArray::fromHex(QByteArray(mac).replace(':', ""));
            settings.gateway = QHostAddress(text("192.168.72.254"));
            settings.primaryDns = QHostAddress(text("8.8.8.8"));
            settings.secondaryDns = QHostAddress(text("8.8.4.4"));
        });
        return made;
    }

    // A run of the panel on the settings as they stand, with a scan behind it.
    void scan()
    {
        control = std::make_unique<mainControl>();
        control->timerStartUp->stop();
        control->getNetcardList();
        recorder = std::make_unique<SignalRecorder>(*control);
        control->hlnpScan(text("scan"), 0);
        unit->clearRecord();
        recorder->take();
    }

    // The unit's network settings as they stand now.
    standin::NetworkSettings networkSettings() const
    {
        standin::NetworkSettings copy;
        unit->withNetwork([&copy](const standin::NetworkSettings &settings) { copy = settings; });
        return copy;
    }

    std::unique_ptr<support::TestNetwork> net;
    QString panelHost;
    QString unitsHost;
    std::unique_ptr<support::UnitHost> unit;
    std::unique_ptr<mainControl> control;
    std::unique_ptr<SignalRecorder> recorder;
};
