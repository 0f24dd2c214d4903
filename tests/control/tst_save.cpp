#include "networkbench.h"
#include "tests/discovery/devices.h"
#include "tests/support/logcapture.h"

#include <QElapsedTimer>

// The units' network settings: the whole form.

class TestSave : public NetworkBench
{
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY2(raise(), qPrintable(net->complaint())); }
    void init() { open(); }
    void cleanup() { close(); }

    void saveUnchanged();
    void saveFixedAddressOnADhcpUnit();
    void saveEverything();
    void saveUnderDhcp();
    void saveBadFormUnderDhcp();
    void saveBadFormFixed();
    void saveRefused();
    void saveLaterSuccessHidesAnEarlierRefusal();
    void saveRowOutsideTheTable();
    void filledFormOverAnEmptyRow();
    void refusedDhcpModeMarksNothing_data();
    void refusedDhcpModeMarksNothing();
    void otherModesAreDhcp_data();
    void otherModesAreDhcp();
    void formIsOnDiskBeforeTheFirstCommand();

private:
    QString save(int mode, const QString &ip, const QString &mask, const QString &gateway,
                 const QString &name);
};

QString TestSave::save(int mode, const QString &ip, const QString &mask, const QString &gateway,
                       const QString &name)
{
    return control->hlnpSave(text(kPanel), text(kCard), 0, text(kMac), name, mode, ip, mask, gateway,
                             QStringLiteral("8.8.8.8"), QStringLiteral("8.8.4.4"));
}

void TestSave::saveUnchanged()
{
    scan();
    control->timerRefreshStatus->start();
    QCOMPARE(save(1, text(kUnit), QStringLiteral("255.255.255.0"), QStringLiteral("192.168.72.254"),
                  QStringLiteral("STUDIO-1")),
             QStringLiteral("OK"));
    QCOMPARE(unit->requests(), QStringList());
    QCOMPARE(recorder->told, QStringList());
    QVERIFY(!control->timerRefreshStatus->isActive());
    QCOMPARE(storedKeys(QStringLiteral("connection")),
             QStringList({QStringLiteral("dhcpmode=false"), QStringLiteral("gateway=192.168.72.254"),
                          QStringLiteral("hostname=STUDIO-1"), QStringLiteral("ipaddress=192.168.72.10"),
                          QStringLiteral("mac=00:50:C2:72:00:01"), QStringLiteral("mask=255.255.255.0"),
                          QStringLiteral("netcard=[192.168.72.1] eth0"), QStringLiteral("primarydns=8.8.8.8"),
                          QStringLiteral("seconddns=8.8.4.4")}));
}

void TestSave::saveFixedAddressOnADhcpUnit()
{
    unit->withNetwork([](standin::NetworkSettings &settings) { settings.dhcp = true; });
    scan();
    QElapsedTimer clock;
    clock.start();
    QCOMPARE(save(1, text(kUnit), QStringLiteral("255.255.255.0"), QStringLiteral("192.168.72.254"),
                  QStringLiteral("STUDIO-1")),
             QStringLiteral("OK"));
    QVERIFY(clock.elapsed() >= 500);
    QCOMPARE(unit->requests(), QStringList{QStringLiteral("SET_DHCPMODE")});
    QVERIFY(!networkSettings().dhcp);
}

void TestSave::saveEverything()
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
    QCOMPARE(unit->requests(),
             QStringList({QStringLiteral("SET_DHCPMODE"), QStringLiteral("SET_IPADR"),
                          QStringLiteral("SET_DHCPNAME"), QStringLiteral("SET_GATEWAY"),
                          QStringLiteral("SET_NETMASK"), QStringLiteral("SET_PRIDNS"),
                          QStringLiteral("SET_SECDNS")}));
    const standin::NetworkSettings settings = networkSettings();
    QCOMPARE(settings.name, QStringLiteral("NEW"));
    QCOMPARE(settings.mask, QHostAddress(QStringLiteral("255.255.0.0")));
    QCOMPARE(settings.gateway, QHostAddress(QStringLiteral("192.168.72.2")));
    QCOMPARE(settings.secondaryDns, QHostAddress(QStringLiteral("2.2.2.2")));
    QCOMPARE(settings.nextAddress, QHostAddress(QStringLiteral("192.168.72.50")));
    QCOMPARE(recorder->told, QStringList());
    // The table shows what the last scan saw.
    control->getHLNPDeviceInfo(0);
    QVERIFY(recorder->told.value(0).contains(QLatin1String("STUDIO-1, 192.168.72.10")));
}

void TestSave::saveUnderDhcp()
{
    scan();
    QCOMPARE(save(0, QStringLiteral("192.168.72.50"), QStringLiteral("255.255.0.0"),
                  QStringLiteral("192.168.72.2"), QStringLiteral("NEW")),
             QStringLiteral("OK"));
    QCOMPARE(unit->requests(), QStringList({QStringLiteral("SET_DHCPMODE"), QStringLiteral("SET_DHCPNAME")}));
    QVERIFY(networkSettings().dhcp);
    // The addresses are stored though the unit never heard of them.
    const QStringList stored = storedKeys(QStringLiteral("connection"));
    QVERIFY(stored.contains(QStringLiteral("ipaddress=192.168.72.50")));
    QVERIFY(stored.contains(QStringLiteral("dhcpmode=true")));
}

void TestSave::saveBadFormUnderDhcp()
{
    unit->withNetwork([](standin::NetworkSettings &settings) { settings.dhcp = true; });
    scan();
    QCOMPARE(save(0, QStringLiteral("192.168.72"), QStringLiteral("m"), QStringLiteral("g"),
                  QStringLiteral("STUDIO-1")),
             QStringLiteral("OK"));
    QCOMPARE(recorder->told,
             QStringList({QStringLiteral("markHLNPDataRed(1)"), QStringLiteral("markHLNPDataRed(3)"),
                          QStringLiteral("markHLNPDataRed(4)")}));
    QCOMPARE(unit->requests(), QStringList());
    // A form that failed its tests is stored all the same.
    QVERIFY(storedKeys(QStringLiteral("connection")).contains(QStringLiteral("gateway=g")));
}

void TestSave::saveBadFormFixed()
{
    scan();
    QCOMPARE(save(1, QStringLiteral("192.168.72"), QStringLiteral("255.255.255.0"),
                  QStringLiteral("192.168.72.254"), QStringLiteral("STUDIO-1")),
             QStringLiteral("IP format errorIP Address format incorrect."));
    QCOMPARE(recorder->told,
             QStringList({QStringLiteral("markHLNPDataRed(1)"), QStringLiteral("markHLNPDataRed(1)")}));
    QCOMPARE(unit->requests(), QStringList());
}

void TestSave::saveRefused()
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

void TestSave::saveLaterSuccessHidesAnEarlierRefusal()
{
    scan();
    unit->setFault(standin::AnyCode, standin::Fault::refuse(0x81, 1));
    QCOMPARE(save(1, text(kUnit), QStringLiteral("255.255.0.0"), QStringLiteral("192.168.72.254"),
                  QStringLiteral("NEW")),
             QStringLiteral("OK"));
    QCOMPARE(recorder->told, QStringList{QStringLiteral("markHLNPDataRed(2)")});
}

void TestSave::saveRowOutsideTheTable()
{
    scan();
    // An empty form agrees with the empty record that stands for such a row, its addresses apart.
    const QString result = control->hlnpSave(text(kPanel), text(kCard), 99, QString(), QString(), 1,
                                             QString(), QString(), QString(), QString(), QString());
    QCOMPARE(result, QStringLiteral("OK"));
    QCOMPARE(recorder->told.size(), 5);
    QCOMPARE(unit->requests(), QStringList());
}

// The row's address is empty: what goes to all arrives, what goes to one unit goes to nobody, and silence is success.
void TestSave::filledFormOverAnEmptyRow()
{
    scan();
    // The row has no address, and what is sent to none stays on the panel's own host. Somebody there chatters, since
    // each word that decides nothing ends one of the eleven waits for an answer.
    const Devices nobody(panelHost, {}, [](Devices &, const Devices::Request &request) {
        for (int i = 0; i < 12; ++i)
            Devices::send(request, text(kPanel), QByteArray("?"));
    });
    QVERIFY(nobody.isGood());
    QCOMPARE(control->hlnpSave(text(kPanel), text(kCard), 5, text(kMac), QStringLiteral("NEW"), 1,
                               QStringLiteral("192.168.72.50"), QStringLiteral("255.255.0.0"),
                               QStringLiteral("192.168.72.2"), QStringLiteral("1.1.1.1"),
                               QStringLiteral("2.2.2.2")),
             QStringLiteral("OK"));
    QCOMPARE(recorder->told, QStringList());
    QCOMPARE(unit->requests(), QStringList{QStringLiteral("SET_IPADR")});
    QVector<int> unaddressed;
    for (const Devices::Request &request : nobody.requests()) {
        if (request.to != QStringLiteral("broadcast") || request.from != text(kPanel))
            continue;
        unaddressed.append(Devices::codeOf(request));
    }
    QCOMPARE(unaddressed, QVector<int>({0x03, 0x09, 0x0C, 0x0B, 0x0D, 0x0E}));
    QCOMPARE(networkSettings().name, QStringLiteral("STUDIO-1"));
    QCOMPARE(storedKeys(QStringLiteral("connection")),
             QStringList({QStringLiteral("dhcpmode=false"), QStringLiteral("gateway=192.168.72.2"),
                          QStringLiteral("hostname=NEW"), QStringLiteral("ipaddress=192.168.72.50"),
                          QStringLiteral("mac=00:50:C2:72:00:01"), QStringLiteral("mask=255.255.0.0"),
                          QStringLiteral("netcard=[192.168.72.1] eth0"), QStringLiteral("primarydns=1.1.1.1"),
                          QStringLiteral("seconddns=2.2.2.2")}));
}

void TestSave::refusedDhcpModeMarksNothing_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<int>("pauseMs");
    QTest::newRow("on") << 0 << 300;
    QTest::newRow("off") << 1 << 500;
}

// The mode has no field that could be marked; the pause behind the command runs all the same.
void TestSave::refusedDhcpModeMarksNothing()
{
    QFETCH(int, mode);
    QFETCH(int, pauseMs);
    unit->withNetwork([mode](standin::NetworkSettings &settings) { settings.dhcp = mode == 1; });
    scan();
    unit->setFault(standin::AnyCode, standin::Fault::refuse());
    QElapsedTimer clock;
    clock.start();
    QCOMPARE(save(mode, text(kUnit), QStringLiteral("255.255.255.0"), QStringLiteral("192.168.72.254"),
                  QStringLiteral("STUDIO-1")),
             QStringLiteral("NACK"));
    QVERIFY2(clock.elapsed() >= pauseMs, qPrintable(QString::number(clock.elapsed())));
    QCOMPARE(unit->requests(), QStringList{QStringLiteral("SET_DHCPMODE")});
    QCOMPARE(recorder->told, QStringList());
}

void TestSave::otherModesAreDhcp_data()
{
    QTest::addColumn<int>("mode");
    QTest::newRow("two") << 2;
    QTest::newRow("none chosen") << -1;
}

// Sent as DHCP, for it is not 1, and stored as a fixed address, for it is not 0.
void TestSave::otherModesAreDhcp()
{
    QFETCH(int, mode);
    scan();
    QCOMPARE(save(mode, QStringLiteral("192.168.72.50"), QStringLiteral("255.255.0.0"),
                  QStringLiteral("192.168.72.2"), QStringLiteral("STUDIO-1")),
             QStringLiteral("OK"));
    QCOMPARE(unit->requests(), QStringList{QStringLiteral("SET_DHCPMODE")});
    QVERIFY(networkSettings().dhcp);
    QVERIFY(storedKeys(QStringLiteral("connection")).contains(QStringLiteral("dhcpmode=false")));
}

// The command's own first line in the log is where it begins.
void TestSave::formIsOnDiskBeforeTheFirstCommand()
{
    unit->withNetwork([](standin::NetworkSettings &settings) { settings.dhcp = true; });
    scan();
    QString atCommand;
    {
        const support::LogCapture capture;
        support::LogCapture::onLine() = [&atCommand](const QString &line) {
            if (line.startsWith(QLatin1String("setDhcpMode:")))
                atCommand = storedText();
        };
        QCOMPARE(save(1, text(kUnit), QStringLiteral("255.255.255.0"), QStringLiteral("192.168.72.254"),
                      QStringLiteral("STUDIO-1")),
                 QStringLiteral("OK"));
    }
    QCOMPARE(keysOf(QStringLiteral("connection"), atCommand),
             QStringList({QStringLiteral("dhcpmode=false"), QStringLiteral("gateway=192.168.72.254"),
                          QStringLiteral("hostname=STUDIO-1"), QStringLiteral("ipaddress=192.168.72.10"),
                          QStringLiteral("mac=00:50:C2:72:00:01"), QStringLiteral("mask=255.255.255.0"),
                          QStringLiteral("netcard=[192.168.72.1] eth0"), QStringLiteral("primarydns=8.8.8.8"),
                          QStringLiteral("seconddns=8.8.4.4")}));
}

NETWORK_TEST_MAIN(TestSave)

#include "tst_save.moc"
