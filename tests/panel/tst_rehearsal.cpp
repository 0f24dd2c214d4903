#include "panelharness.h"
#include "tests/control/facadebench.h"
#include "tests/support/testnetwork.h"

#include <QApplication>

// The real document over the real facade, against a stand-in unit on an Ethernet of the test's own.
class TestRehearsal : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void operatorWorksAUnit();
    void networkSettingsAreSaved();
    void lostLinkWarnsAndReconnects();
    void savedUnitIsConnectedAtStart();
    void adapterGoneIsTold();
    void stillScreenDrawsNothing();

private:
    void start();
    void stop();
    void scanAndConnect();

    std::unique_ptr<support::TestNetwork> net;
    QString unitsHost;
    std::unique_ptr<support::UnitHost> unit;
    std::unique_ptr<mainControl> control;
    std::unique_ptr<PanelHarness> h;
};

void TestRehearsal::initTestCase()
{
    net = std::make_unique<support::TestNetwork>();
    const QString panel = net->addHost();
    unitsHost = net->addHost();
    const QString cable = net->addSwitch();
    net->plug(panel, "eth0", cable, {"192.168.72.1/24"});
    net->plug(unitsHost, "eth0", cable, {"192.168.72.10/24"});
    QVERIFY2(net->isGood(), qPrintable(net->complaint()));
    QVERIFY(support::TestNetwork::enter(panel));
}

void TestRehearsal::init()
{
    QFile::remove(settingsPath());
    support::UnitHost::Options options;
    options.address = "192.168.72.10";
    options.netNamespace = unitsHost;
    options.discovery = options.broadcasts = true;
    unit = std::make_unique<support::UnitHost>(options);
    unit->withNetwork([](standin::NetworkSettings &settings) { settings.name = "STUDIO_1"; });
}

void TestRehearsal::cleanup()
{
    stop();
    unit.reset();
}

void TestRehearsal::start()
{
    control = std::make_unique<mainControl>();
    h = std::make_unique<PanelHarness>(control.get());
    QVERIFY(h->show());
    QVERIFY(h->standsOpen("popupMask"));
}

void TestRehearsal::stop()
{
    h.reset();
    discard(control);
    didScan = false;
}

void TestRehearsal::scanAndConnect()
{
    h->click("btnConnect");
    QVERIFY(h->standsOpen("popupConnect"));
    QCOMPARE(h->text("comboConnectComPort.currentText"), QStringLiteral("[192.168.72.1] eth0"));
    h->click("imgConnectScan");
    QCOMPARE(h->text("comboIPSelect.currentText"), QStringLiteral("192.168.72.10"));
    QCOMPARE(h->text("txtHostname.text"), QStringLiteral("STUDIO_1"));
    QCOMPARE(h->text("txtIPAddr.text"), QStringLiteral("192.168.72.10"));
    h->click("btnConnectConnect");
    QCOMPARE(h->text("msgConnect.text"), QStringLiteral("Connected"));
    QVERIFY(h->standsClosed("popupConnect"));
    QVERIFY(h->standsClosed("popupMask"));
    QVERIFY(control->isConnected());
}

void TestRehearsal::operatorWorksAUnit()
{
    start();
    scanAndConnect();
    QVERIFY(h->text("txtFWVersion.text") != QLatin1String("v0.0"));
    unit->clearRecord();
    h->click("checkboxPGMSDI");
    QCOMPARE(unit->count(0xE3), 1);
    h->click("outputMemoryLock");
    h->click("outputMemoryLoad");
    QCOMPARE(unit->count(0x64), 1);
    h->click("outputMemorySave");
    QCOMPARE(unit->count(0xE4), 1);
    QCOMPARE(unit->count(0xE3), 1);
    h->choose("comboMainLanguage", 1);
    QCOMPARE(unit->count(0xE3), 1);
    h->choose("comboMainLanguage", 0);
    h->click("btnSetup");
    QVERIFY(h->standsOpen("popupSetup"));
    // The unit comes with an automatic resolution.
    QVERIFY(h->flag("autoOutputRes"));
    h->click("imgSetupAutoOutRes");
    h->choose("comboSetupVOutRes", 5);
    h->click("btnSetupSave");
    QCOMPARE(unit->count(0xE0), 1);
    QCOMPARE(unit->count(0xE5), 1);
    QCOMPARE(h->number("comboSetupVOutRes.currentIndex"), 5);
    QVERIFY(h->standsOpen("popupSetupSaveFinished"));
    h->click("btnSetupSaveFinished");
    QVERIFY(h->standsClosed("popupSetupSaveFinished"));
    QTest::keyClick(h->window, Qt::Key_Escape);
    QVERIFY(h->standsClosed("popupSetup"));
    h->click("btnConnect");
    QVERIFY(h->standsOpen("popupConnect"));
    h->click("btnConnectDisconnect");
    QVERIFY(!control->isConnected());
    QTRY_VERIFY_WITH_TIMEOUT(!h->flag("notifyTimer.running"), 9000);
    QCOMPARE(h->text("msgConnect.text"), QStringLiteral("Disconnected"));
    QTRY_COMPARE(unit->clientCount(), 0);
    QVERIFY(!h->flag("popupWarning.visible"));
    QCOMPARE(Messages::warnings(), QStringList());
}

void TestRehearsal::networkSettingsAreSaved()
{
    start();
    scanAndConnect();
    h->click("btnConnect");
    QVERIFY(h->standsOpen("popupConnect"));
    h->type("txtHostname", "STUDIO_2");
    h->click("btnConnectSave");
    QCOMPARE(h->text("msgConnect.text"), QStringLiteral("Please reboot this device: \nSTUDIO_2"));
    QString name;
    unit->withNetwork([&](standin::NetworkSettings &settings) { name = settings.name; });
    QCOMPARE(name, QStringLiteral("STUDIO_2"));
}

void TestRehearsal::lostLinkWarnsAndReconnects()
{
    start();
    scanAndConnect();
    unit->stopListening();
    unit->drop();
    QTRY_VERIFY_WITH_TIMEOUT(h->flag("popupWarning.opened"), 20000);
    QCOMPARE(h->text("txtWarningMsg.text"), QStringLiteral("Network Disconnected"));
    h->click("btnWarningReconnect");
    QVERIFY(h->flag("popupWarning.opened"));
    QVERIFY(!control->isConnected());
    QVERIFY(unit->listenAgain());
    h->click("btnWarningReconnect");
    QCOMPARE(h->text("txtWarningMsg.text"), QStringLiteral("Connected"));
    QVERIFY(h->standsClosed("popupWarning"));
    QVERIFY(control->isConnected());
}

void TestRehearsal::savedUnitIsConnectedAtStart()
{
    start();
    scanAndConnect();
    stop();
    start();
    QVERIFY(!h->flag("btnSetup.enabled"));
    QTRY_VERIFY_WITH_TIMEOUT(control->isConnected(), 20000);
    QVERIFY(h->standsClosed("popupMask"));
    QVERIFY(h->flag("btnSetup.enabled"));
    QCOMPARE(h->text("msgConnect.text"), QStringLiteral("Connected"));
    QCOMPARE(h->text("txtHostname.text"), QStringLiteral("STUDIO_1"));
}

void TestRehearsal::adapterGoneIsTold()
{
    writeSettings("[connection]\ninterface=1\nnetcard=[10.9.8.7] "
                  "eth9\nipaddress=192.168.72.10\nmac=00:11:22:33:44:55\n");
    start();
    QTRY_COMPARE_WITH_TIMEOUT(h->text("msgConnect.text"),
                              QStringLiteral("Previous device MAC address 00:11:22:33:44:55\nis not found."),
                              10000);
    QVERIFY(h->flag("popupMask.opened"));
    QVERIFY(!control->isConnected());
}

void TestRehearsal::stillScreenDrawsNothing()
{
    start();
    scanAndConnect();
    h->click("menuChromakey");
    QTest::qWait(1500);
    QSignalSpy frames(h->window, &QQuickWindow::frameSwapped);
    QTest::qWait(10000);
    QCOMPARE(frames.size(), 0);
}

int main(int argc, char **argv)
{
    support::TestNetwork::obtainRights(argv);
    QApplication application(argc, argv);
    TestRehearsal test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_rehearsal.moc"
