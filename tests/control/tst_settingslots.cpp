#include "networkbench.h"
#include "tests/support/logcapture.h"

#include <functional>

// The units' network settings, each for itself.

class TestSettingSlots : public NetworkBench
{
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY2(raise(), qPrintable(net->complaint())); }
    void init() { open(); }
    void cleanup() { close(); }

    void eachSettingIsOnDiskBeforeItsCommand();
    void singleSettings();
    void badSingleSettings();
    void reboot();
    void configForwarded();
};

void TestSettingSlots::eachSettingIsOnDiskBeforeItsCommand()
{
    scan();
    iniExist = true; // so that the name alone is stored with it
    const QString panel = text(kPanel);
    const QString target = text(kUnit);
    const QString address = QStringLiteral("192.168.72.99");
    const struct
    {
        const char *begins; // the command's first line in the log
        std::function<QString()> call;
        QStringList stored;
    } settings[] = {
        {"setDhcpName",
         [&] { return control->hlnpSetDhcpName(panel, target, QStringLiteral("N"), {}, {}); },
         {QStringLiteral("hostname=N")}},
        {"setDhcpMode:",
         [&] { return control->hlnpSetDhcpMode(text(kMac), panel, target, 0); },
         {QStringLiteral("dhcpmode=true")}},
        {"setIpAdr: ",
         [&] { return control->hlnpSetIpAdr(text(kMac), panel, target, address, address); },
         {QStringLiteral("gateway=192.168.72.99"), QStringLiteral("ipaddress=192.168.72.99")}},
        {"setGateway",
         [&] { return control->hlnpSetGateway(panel, target, address); },
         {QStringLiteral("gateway=192.168.72.99")}},
        {"setNetmask",
         [&] { return control->hlnpSetNetmask(panel, target, address); },
         {QStringLiteral("mask=192.168.72.99")}},
        {"setPrimDNS",
         [&] { return control->hlnpSetPrimDNS(panel, target, address); },
         {QStringLiteral("primarydns=192.168.72.99")}},
        {"setSecDNS",
         [&] { return control->hlnpSetSecDNS(panel, target, address); },
         {QStringLiteral("seconddns=192.168.72.99")}},
    };
    for (const auto &setting : settings) {
        control->initSettings->clear();
        control->initSettings->sync();
        QString atCommand;
        {
            const support::LogCapture capture;
            support::LogCapture::onLine() = [&](const QString &line) {
                if (line.startsWith(QLatin1String(setting.begins)))
                    atCommand = storedText();
            };
            QCOMPARE(setting.call(), QStringLiteral("OK"));
        }
        QCOMPARE(keysOf(QStringLiteral("connection"), atCommand), setting.stored);
    }
}

void TestSettingSlots::singleSettings()
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
    QVERIFY(!networkSettings().dhcp);

    QCOMPARE(control->hlnpSetIpAdr(text(kMac), panel, target, QStringLiteral("192.168.72.60"),
                                   QStringLiteral("192.168.72.3")),
             QStringLiteral("OK"));
    QCOMPARE(control->hlnpSetGateway(panel, target, QStringLiteral("192.168.72.4")), QStringLiteral("OK"));
    QCOMPARE(control->hlnpSetNetmask(panel, target, QStringLiteral("255.0.0.0")), QStringLiteral("OK"));
    QCOMPARE(control->hlnpSetPrimDNS(panel, target, QStringLiteral("1.2.3.4")), QStringLiteral("OK"));
    QCOMPARE(control->hlnpSetSecDNS(panel, target, QStringLiteral("5.6.7.8")), QStringLiteral("OK"));
    QCOMPARE(unit->requests(),
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

void TestSettingSlots::badSingleSettings()
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
    QCOMPARE(unit->requests(), QStringList());
    QVERIFY(!QFile::exists(settingsPath()));
}

void TestSettingSlots::reboot()
{
    scan();
    control->timerRefreshStatus->start();
    QCOMPARE(control->hlnpReboot(text(kMac), text(kPanel), text(kUnit)), QStringLiteral("OK"));
    QVERIFY(!control->timerRefreshStatus->isActive());
    QCOMPARE(unit->restarts(), 1);
    QVERIFY(!QFile::exists(settingsPath()));
}

void TestSettingSlots::configForwarded()
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

NETWORK_TEST_MAIN(TestSettingSlots)
#include "tst_settingslots.moc"
