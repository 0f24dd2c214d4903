#include "facadebench.h"
#include "tests/support/testnetwork.h"

#include <QElapsedTimer>

// Scanning, the automatic connection and the units' network settings, on an Ethernet of the test's own.

class TestNetworkFlows : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void scanFindsUnits();
    void scanWithoutUnits();
    void scanWithoutAnAdapter();
    void automaticConnection();
    void unitMoved();
    void otherUnitOnly();
    void lastMatchingAdapterWins();
    void saveUnchanged();
    void saveFixedAddressOnADhcpUnit();
    void saveEverything();
    void saveUnderDhcp();
    void saveBadFormUnderDhcp();
    void saveBadFormFixed();
    void saveRefused();
    void saveLaterSuccessHidesAnEarlierRefusal();
    void saveRowOutsideTheTable();
    void singleSettings();
    void badSingleSettings();
    void reboot();
    void configForwarded();

private:
    std::unique_ptr<support::UnitHost> makeUnit(const char *address, const char *name, const char *mac);
    void scan();
    QStringList requests(const support::UnitHost &host) const;
    QString save(int mode, const QString &ip, const QString &mask, const QString &gateway,
                 const QString &name);

    std::unique_ptr<support::TestNetwork> net;
    QString unitsHost;
    std::unique_ptr<support::UnitHost> unit;
    std::unique_ptr<mainControl> control;
    std::unique_ptr<SignalRecorder> recorder;
};

namespace {

const char kPanel[] = "192.168.72.1";
const char kUnit[] = "192.168.72.10";
const char kMac[] = "00:50:C2:72:00:01";
const char kCard[] = "[192.168.72.1] eth0";

QString text(const char *latin)
{
    return QString::fromLatin1(latin);
}

} // namespace

void TestNetworkFlows::initTestCase()
{
    net = std::make_unique<support::TestNetwork>();
    const QString panel = net->addHost();
    unitsHost = net->addHost();
    const QString cable = net->addSwitch();
    net->plug(panel, QStringLiteral("eth0"), cable, {QStringLiteral("192.168.72.1/24")});
    net->plug(unitsHost, QStringLiteral("eth0"), cable,
              {QStringLiteral("192.168.72.10/24"), QStringLiteral("192.168.72.7/24")});
    QVERIFY2(net->isGood(), qPrintable(net->complaint()));
    QVERIFY(support::TestNetwork::enter(panel));
}

std::unique_ptr<support::UnitHost> TestNetworkFlows::makeUnit(const char *address, const char *name,
                                                              const char *mac)
{
    support::UnitHost::Options options;
    options.address = text(address);
    options.netNamespace = unitsHost;
    options.discovery = options.broadcasts = true;
    auto made = std::make_unique<support::UnitHost>(options);
    made->withNetwork([=](standin::NetworkSettings &settings) {
        settings.name = text(name);
        settings.mac = QByteArray::fromHex(QByteArray(mac).replace(':', ""));
        settings.gateway = QHostAddress(QStringLiteral("192.168.72.254"));
        settings.primaryDns = QHostAddress(QStringLiteral("8.8.8.8"));
        settings.secondaryDns = QHostAddress(QStringLiteral("8.8.4.4"));
    });
    return made;
}

void TestNetworkFlows::init()
{
    QFile::remove(settingsPath());
    unit = makeUnit(kUnit, "STUDIO-1", kMac);
}

void TestNetworkFlows::cleanup()
{
    recorder.reset();
    discard(control);
    unit.reset();
}

// A run of the panel on the settings as they stand.
void TestNetworkFlows::scan()
{
    control = std::make_unique<mainControl>();
    control->timerStartUp->stop();
    control->getNetcardList();
    recorder = std::make_unique<SignalRecorder>(*control);
    control->hlnpScan(QStringLiteral("scan"), 0);
    unit->clearRecord();
    recorder->take();
}

// The names of the datagrams that the unit received.
QStringList TestNetworkFlows::requests(const support::UnitHost &host) const
{
    QStringList list;
    for (const standin::FrameRecord &frame : host.record()) {
        if (frame.link == standin::LinkKind::Discovery)
            list += frame.name();
    }
    return list;
}

QString TestNetworkFlows::save(int mode, const QString &ip, const QString &mask, const QString &gateway,
                               const QString &name)
{
    return control->hlnpSave(text(kPanel), text(kCard), 0, text(kMac), name, mode, ip, mask, gateway,
                             QStringLiteral("8.8.8.8"), QStringLiteral("8.8.4.4"));
}

void TestNetworkFlows::scanFindsUnits()
{
    const auto second = makeUnit("192.168.72.7", "STUDIO-2", "00:50:C2:72:00:02");
    control = std::make_unique<mainControl>();
    control->timerStartUp->stop();
    QCOMPARE(control->getNetcardList(), QStringList{text(kCard)});
    recorder = std::make_unique<SignalRecorder>(*control);
    QElapsedTimer clock;
    clock.start();
    QCOMPARE(control->hlnpScan(QStringLiteral("scan"), 0), 1u);
    // 0.5 s, nine empty reads, 0.1 s, 0.5 s and 1.1 s for each unit, less one read that found its reply.
    QVERIFY2(clock.elapsed() >= 500 + 900 + 100 + 500 + 2 * 1100,
             qPrintable(QString::number(clock.elapsed())));
    QCOMPARE(control->ipSelectList, QStringList({QStringLiteral("192.168.72.7"), text(kUnit)}));
    QCOMPARE(recorder->told, QStringList{QStringLiteral("refreshIPSelectList(192.168.72.7|192.168.72.10)")});
    QVERIFY(didScan);
    QCOMPARE(control->getIPSelectList(), control->ipSelectList);

    recorder->take();
    control->getHLNPDeviceInfo(0);
    QCOMPARE(
        recorder->take(),
        QStringList{QStringLiteral("refreshConnectionData(999, na, false, STUDIO-2, 192.168.72.7, "
                                   "00:50:C2:72:00:02, 192.168.72.254, 255.255.255.0, 8.8.8.8, 8.8.4.4)")});
    // With a scan behind it a connect stores the whole record of the unit that was chosen.
    QCOMPARE(control->deviceConnect(1, text(kUnit), 0), QStringLiteral("OK"));
    QCOMPARE(storedKeys(QStringLiteral("connection")),
             QStringList({QStringLiteral("dhcpmode=false"), QStringLiteral("gateway=192.168.72.254"),
                          QStringLiteral("hostname=STUDIO-1"), QStringLiteral("interface=1"),
                          QStringLiteral("ipaddress=192.168.72.10"), QStringLiteral("mac=00:50:C2:72:00:01"),
                          QStringLiteral("mask=255.255.255.0"), QStringLiteral("netcard=[192.168.72.1] eth0"),
                          QStringLiteral("primarydns=8.8.8.8"), QStringLiteral("seconddns=8.8.4.4")}));
}

void TestNetworkFlows::scanWithoutUnits()
{
    unit.reset();
    control = std::make_unique<mainControl>();
    control->timerStartUp->stop();
    control->getNetcardList();
    recorder = std::make_unique<SignalRecorder>(*control);
    QElapsedTimer clock;
    clock.start();
    QCOMPARE(control->hlnpScan(QStringLiteral("scan"), 0), 1u);
    QVERIFY(clock.elapsed() >= 2200);
    QCOMPARE(recorder->told, QStringList{QStringLiteral("refreshIPSelectList()")});
    control->getHLNPDeviceInfo(0);
    QCOMPARE(recorder->told.size(), 1);
}

void TestNetworkFlows::scanWithoutAnAdapter()
{
    control = std::make_unique<mainControl>();
    control->timerStartUp->stop();
    recorder = std::make_unique<SignalRecorder>(*control);
    control->hlnpScan(QStringLiteral("scan"), 3);
    QCOMPARE(recorder->told, QStringList{QStringLiteral("refreshIPSelectList()")});
    QCOMPARE(requests(*unit), QStringList());
    QCOMPARE(control->selectedNetcard, 3);
}

void TestNetworkFlows::automaticConnection()
{
    scan();
    QCOMPARE(control->deviceConnect(1, text(kUnit), 0), QStringLiteral("OK"));
    recorder.reset();
    discard(control);

    control = std::make_unique<mainControl>();
    control->getNetcardList();
    recorder = std::make_unique<SignalRecorder>(*control);
    QTRY_VERIFY_WITH_TIMEOUT(control->isConnected(), 12000);
    QTRY_VERIFY(!recorder->told.isEmpty());
    const QString savedUnit =
        QStringLiteral("refreshConnectionData(999, [192.168.72.1] eth0, false, STUDIO-1, 192.168.72.10, "
                       "00:50:C2:72:00:01, 192.168.72.254, 255.255.255.0, 8.8.8.8, 8.8.4.4)");
    QCOMPARE(recorder->told.mid(0, 4),
             QStringList({QStringLiteral("refreshIPSelectList(192.168.72.10)"), savedUnit,
                          QStringLiteral("markHLNPDataRed(0)"),
                          QStringLiteral("showVersion(1.05, 2.23, 10.2a)")}));
    const int end = recorder->told.indexOf(QStringLiteral("autoConnectResult(OK)"));
    QCOMPARE(recorder->told.value(end - 1), QStringLiteral("refreshUserMemory(1)"));
    QCOMPARE(recorder->told.value(end + 1), savedUnit);
    QVERIFY(autoConnect);
    QVERIFY(didScan);
}

void TestNetworkFlows::unitMoved()
{
    writeSettings(QStringLiteral("[connection]\nnetcard=[192.168.72.1] eth9\nipaddress=192.168.72.99\n"
                                 "hostname=STUDIO-1\nmac=00:50:C2:72:00:01\ngateway=192.168.72.254\n"
                                 "mask=255.255.0.0\nprimarydns=8.8.8.8\nseconddns=8.8.4.4\n"));
    scan();
    control->autoRun();
    // Address and netmask differ; the nine empty rows behind it add nothing.
    QCOMPARE(
        recorder->told.mid(2),
        QStringList({QStringLiteral("markHLNPDataRed(1)"), QStringLiteral("markHLNPDataRed(4)"),
                     QStringLiteral("autoConnectResult(Saved device info is not match.\nPlease scan again "
                                    "to refresh.)")}));
    QVERIFY(!control->isConnected());
    QVERIFY(didScan);
}

void TestNetworkFlows::otherUnitOnly()
{
    writeSettings(
        QStringLiteral("[connection]\nnetcard=[192.168.72.1] eth0\nipaddress=192.168.72.10\nmac=AA\n"));
    scan();
    control->autoRun();
    QCOMPARE(recorder->told.mid(2),
             QStringList{QStringLiteral("autoConnectResult(Previous device MAC address AA\nis not found.)")});
    QVERIFY(!autoConnect);
}

void TestNetworkFlows::lastMatchingAdapterWins()
{
    writeSettings(QStringLiteral("[connection]\nnetcard=[192.168.72.1\nipaddress=192.168.72.10\nmac=AA\n"));
    scan();
    control->netcardList =
        QStringList{QStringLiteral("[192.168.72.1] eth0"), QStringLiteral("[192.168.72.11] eth1"),
                    QStringLiteral("[10.0.0.1] eth2")};
    control->autoRun();
    QCOMPARE(control->selectedNetcard, 1);
}

void TestNetworkFlows::saveUnchanged()
{
    scan();
    control->timerRefreshStatus->start();
    QCOMPARE(save(1, text(kUnit), QStringLiteral("255.255.255.0"), QStringLiteral("192.168.72.254"),
                  QStringLiteral("STUDIO-1")),
             QStringLiteral("OK"));
    QCOMPARE(requests(*unit), QStringList());
    QCOMPARE(recorder->told, QStringList());
    QVERIFY(!control->timerRefreshStatus->isActive());
    QCOMPARE(storedKeys(QStringLiteral("connection")),
             QStringList({QStringLiteral("dhcpmode=false"), QStringLiteral("gateway=192.168.72.254"),
                          QStringLiteral("hostname=STUDIO-1"), QStringLiteral("ipaddress=192.168.72.10"),
                          QStringLiteral("mac=00:50:C2:72:00:01"), QStringLiteral("mask=255.255.255.0"),
                          QStringLiteral("netcard=[192.168.72.1] eth0"), QStringLiteral("primarydns=8.8.8.8"),
                          QStringLiteral("seconddns=8.8.4.4")}));
}

void TestNetworkFlows::saveFixedAddressOnADhcpUnit()
{
    unit->withNetwork([](standin::NetworkSettings &settings) { settings.dhcp = true; });
    scan();
    QElapsedTimer clock;
    clock.start();
    QCOMPARE(save(1, text(kUnit), QStringLiteral("255.255.255.0"), QStringLiteral("192.168.72.254"),
                  QStringLiteral("STUDIO-1")),
             QStringLiteral("OK"));
    QVERIFY(clock.elapsed() >= 500);
    QCOMPARE(requests(*unit), QStringList{QStringLiteral("SET_DHCPMODE")});
    bool dhcp = true;
    unit->withNetwork([&dhcp](standin::NetworkSettings &settings) { dhcp = settings.dhcp; });
    QVERIFY(!dhcp);
}

void TestNetworkFlows::saveEverything()
{
    unit->withNetwork([](standin::NetworkSettings &settings) { settings.dhcp = true; });
    scan();
    QElapsedTimer clock;
    clock.start();
    QCOMPARE(control->hlnpSave(text(kPanel), text(kCard), 0, text(kMac), QStringLiteral("NEW"), 1,
                               QStringLiteral("192.168.72.50"), QStringLiteral("255.255.0.0"),
                               QStringLiteral("192.168.72.2"), QStringLiteral("1.1.1.1"),
                               QStringLiteral("2.2.2.2")),
             QStringLiteral("OK"));
    QVERIFY(clock.elapsed() >= 2000);
    QCOMPARE(requests(*unit),
             QStringList({QStringLiteral("SET_DHCPMODE"), QStringLiteral("SET_IPADR"),
                          QStringLiteral("SET_DHCPNAME"), QStringLiteral("SET_GATEWAY"),
                          QStringLiteral("SET_NETMASK"), QStringLiteral("SET_PRIDNS"),
                          QStringLiteral("SET_SECDNS")}));
    unit->withNetwork([](standin::NetworkSettings &settings) {
        QCOMPARE(settings.name, QStringLiteral("NEW"));
        QCOMPARE(settings.mask, QHostAddress(QStringLiteral("255.255.0.0")));
        QCOMPARE(settings.gateway, QHostAddress(QStringLiteral("192.168.72.2")));
        QCOMPARE(settings.secondaryDns, QHostAddress(QStringLiteral("2.2.2.2")));
        QCOMPARE(settings.nextAddress, QHostAddress(QStringLiteral("192.168.72.50")));
    });
    QCOMPARE(recorder->told, QStringList());
    // The table shows what the last scan saw.
    control->getHLNPDeviceInfo(0);
    QVERIFY(recorder->told.value(0).contains(QLatin1String("STUDIO-1, 192.168.72.10")));
}

void TestNetworkFlows::saveUnderDhcp()
{
    scan();
    QCOMPARE(save(0, QStringLiteral("192.168.72.50"), QStringLiteral("255.255.0.0"),
                  QStringLiteral("192.168.72.2"), QStringLiteral("NEW")),
             QStringLiteral("OK"));
    QCOMPARE(requests(*unit), QStringList({QStringLiteral("SET_DHCPMODE"), QStringLiteral("SET_DHCPNAME")}));
    unit->withNetwork([](standin::NetworkSettings &settings) { QVERIFY(settings.dhcp); });
    // The addresses are stored though the unit never heard of them.
    const QStringList stored = storedKeys(QStringLiteral("connection"));
    QVERIFY(stored.contains(QStringLiteral("ipaddress=192.168.72.50")));
    QVERIFY(stored.contains(QStringLiteral("dhcpmode=true")));
}

void TestNetworkFlows::saveBadFormUnderDhcp()
{
    unit->withNetwork([](standin::NetworkSettings &settings) { settings.dhcp = true; });
    scan();
    QCOMPARE(save(0, QStringLiteral("192.168.72"), QStringLiteral("m"), QStringLiteral("g"),
                  QStringLiteral("STUDIO-1")),
             QStringLiteral("OK"));
    QCOMPARE(recorder->told,
             QStringList({QStringLiteral("markHLNPDataRed(1)"), QStringLiteral("markHLNPDataRed(3)"),
                          QStringLiteral("markHLNPDataRed(4)")}));
    QCOMPARE(requests(*unit), QStringList());
    // A form that failed its tests is stored all the same.
    QVERIFY(storedKeys(QStringLiteral("connection")).contains(QStringLiteral("gateway=g")));
}

void TestNetworkFlows::saveBadFormFixed()
{
    scan();
    QCOMPARE(save(1, QStringLiteral("192.168.72"), QStringLiteral("255.255.255.0"),
                  QStringLiteral("192.168.72.254"), QStringLiteral("STUDIO-1")),
             QStringLiteral("IP format errorIP Address format incorrect."));
    QCOMPARE(recorder->told,
             QStringList({QStringLiteral("markHLNPDataRed(1)"), QStringLiteral("markHLNPDataRed(1)")}));
    QCOMPARE(requests(*unit), QStringList());
}

void TestNetworkFlows::saveRefused()
{
    scan();
    unit->setFault(standin::AnyCode, standin::Fault::refuse());
    QCOMPARE(save(1, text(kUnit), QStringLiteral("255.255.0.0"), QStringLiteral("192.168.72.2"),
                  QStringLiteral("NEW")),
             QStringLiteral("NACKNACKNACK"));
    QCOMPARE(recorder->told,
             QStringList({QStringLiteral("markHLNPDataRed(2)"), QStringLiteral("markHLNPDataRed(3)"),
                          QStringLiteral("markHLNPDataRed(4)")}));
}

void TestNetworkFlows::saveLaterSuccessHidesAnEarlierRefusal()
{
    scan();
    unit->setFault(standin::AnyCode, standin::Fault::refuse(0x81, 1));
    QCOMPARE(save(1, text(kUnit), QStringLiteral("255.255.0.0"), QStringLiteral("192.168.72.254"),
                  QStringLiteral("NEW")),
             QStringLiteral("OK"));
    QCOMPARE(recorder->told, QStringList{QStringLiteral("markHLNPDataRed(2)")});
}

void TestNetworkFlows::saveRowOutsideTheTable()
{
    scan();
    // An empty form agrees with the empty record that stands for such a row, its addresses apart.
    const QString result = control->hlnpSave(text(kPanel), text(kCard), 99, QString(), QString(), 1,
                                             QString(), QString(), QString(), QString(), QString());
    QCOMPARE(result, QStringLiteral("OK"));
    QCOMPARE(recorder->told.size(), 5);
    QCOMPARE(requests(*unit), QStringList());
}

void TestNetworkFlows::singleSettings()
{
    scan();
    const QString panel = text(kPanel);
    const QString target = text(kUnit);
    QCOMPARE(control->hlnpSetDhcpName(panel, target, QStringLiteral("NAME"), text(kMac), text(kCard)),
             QStringLiteral("OK"));
    // No settings existed at start, so adapter and MAC are stored as well.
    QCOMPARE(storedKeys(QStringLiteral("connection")),
             QStringList({QStringLiteral("hostname=NAME"), QStringLiteral("mac=00:50:C2:72:00:01"),
                          QStringLiteral("netcard=[192.168.72.1] eth0")}));
    iniExist = true;
    QCOMPARE(control->hlnpSetDhcpName(panel, target, QStringLiteral("NAME2"), QStringLiteral("AA"),
                                      QStringLiteral("[x] y")),
             QStringLiteral("OK"));
    QVERIFY(storedKeys(QStringLiteral("connection")).contains(QStringLiteral("mac=00:50:C2:72:00:01")));

    // 0 is stored as DHCP and goes out as it stands, which turns it off; 1 the other way about.
    unit->withNetwork([](standin::NetworkSettings &settings) { settings.dhcp = true; });
    QCOMPARE(control->hlnpSetDhcpMode(text(kMac), panel, target, 0), QStringLiteral("OK"));
    QVERIFY(storedKeys(QStringLiteral("connection")).contains(QStringLiteral("dhcpmode=true")));
    unit->withNetwork([](standin::NetworkSettings &settings) { QVERIFY(!settings.dhcp); });

    QCOMPARE(control->hlnpSetIpAdr(text(kMac), panel, target, QStringLiteral("192.168.72.60"),
                                   QStringLiteral("192.168.72.3")),
             QStringLiteral("OK"));
    QCOMPARE(control->hlnpSetGateway(panel, target, QStringLiteral("192.168.72.4")), QStringLiteral("OK"));
    QCOMPARE(control->hlnpSetNetmask(panel, target, QStringLiteral("255.0.0.0")), QStringLiteral("OK"));
    QCOMPARE(control->hlnpSetPrimDNS(panel, target, QStringLiteral("1.2.3.4")), QStringLiteral("OK"));
    QCOMPARE(control->hlnpSetSecDNS(panel, target, QStringLiteral("5.6.7.8")), QStringLiteral("OK"));
    QCOMPARE(requests(*unit),
             QStringList({QStringLiteral("SET_DHCPNAME"), QStringLiteral("SET_DHCPNAME"),
                          QStringLiteral("SET_DHCPMODE"), QStringLiteral("SET_IPADR"),
                          QStringLiteral("SET_GATEWAY"), QStringLiteral("SET_NETMASK"),
                          QStringLiteral("SET_PRIDNS"), QStringLiteral("SET_SECDNS")}));
    QCOMPARE(storedKeys(QStringLiteral("connection")),
             QStringList({QStringLiteral("dhcpmode=true"), QStringLiteral("gateway=192.168.72.4"),
                          QStringLiteral("hostname=NAME2"), QStringLiteral("ipaddress=192.168.72.60"),
                          QStringLiteral("mac=00:50:C2:72:00:01"), QStringLiteral("mask=255.0.0.0"),
                          QStringLiteral("netcard=[192.168.72.1] eth0"), QStringLiteral("primarydns=1.2.3.4"),
                          QStringLiteral("seconddns=5.6.7.8")}));
    QCOMPARE(recorder->told, QStringList());
}

void TestNetworkFlows::badSingleSettings()
{
    scan();
    const QString panel = text(kPanel);
    const QString target = text(kUnit);
    const QString bad = QStringLiteral("1.2.3");
    const QString good = QStringLiteral("1.2.3.4");
    control->timerRefreshStatus->start();
    QCOMPARE(control->hlnpSetIpAdr(text(kMac), panel, target, bad, good),
             QStringLiteral("IP Address format incorrect."));
    QVERIFY(!control->timerRefreshStatus->isActive());
    QCOMPARE(control->hlnpSetIpAdr(text(kMac), panel, target, good, bad),
             QStringLiteral("Gateway Address format incorrect."));
    QCOMPARE(control->hlnpSetGateway(panel, target, bad),
             QStringLiteral("Gateway Address format incorrect."));
    QCOMPARE(control->hlnpSetNetmask(panel, target, bad),
             QStringLiteral("Netmask Address format incorrect."));
    QCOMPARE(control->hlnpSetPrimDNS(panel, target, bad),
             QStringLiteral("PrimDNS Address format incorrect."));
    QCOMPARE(control->hlnpSetSecDNS(panel, target, bad), QStringLiteral("SecDNS Address format incorrect."));
    QCOMPARE(requests(*unit), QStringList());
    QVERIFY(!QFile::exists(settingsPath()));
}

void TestNetworkFlows::reboot()
{
    scan();
    control->timerRefreshStatus->start();
    QCOMPARE(control->hlnpReboot(text(kMac), text(kPanel), text(kUnit)), QStringLiteral("OK"));
    QVERIFY(!control->timerRefreshStatus->isActive());
    QCOMPARE(unit->restarts(), 1);
    QVERIFY(!QFile::exists(settingsPath()));
}

void TestNetworkFlows::configForwarded()
{
    scan();
    QCOMPARE(control->initHLNPConfig(1, QStringLiteral("mac"), text(kPanel), QStringLiteral("ip"),
                                     QStringLiteral("host"), QStringLiteral("mask"), QStringLiteral("gate"),
                                     QStringLiteral("prim"), QStringLiteral("sec")),
             1);
    const HLNP &hlnp = *deviceOf(*control)->hlnpObj;
    QCOMPARE(hlnp.beforeDhcpIndex, 1);
    QCOMPARE(hlnp.beforeMacaddr, QStringLiteral("mac"));
    QCOMPARE(hlnp.beforeSecdns, QStringLiteral("sec"));
}

int main(int argc, char **argv)
{
    support::TestNetwork::obtainRights(argv);
    QCoreApplication application(argc, argv);
    TestNetworkFlows test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_network.moc"
