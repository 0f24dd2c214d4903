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
    void bandIsFilledBeforeThePanelCloses();
    void networkSettingsAreSaved();
    void pollOutlivesAReportThatNobodySees();
    void lostLinkWarnsAndReconnects();
    void savedUnitIsConnectedAtStart();
    void adapterGoneIsTold();
    void stillScreenDrawsNothing();

private:
    // Whether the window stands, with its mask over it.
    bool start();
    void stop();
    // Empty when the unit is found and connected; else what was there in its place.
    QString scanAndConnect();

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

bool TestRehearsal::start()
{
    control = std::make_unique<mainControl>();
    // On a busy machine the saved unit would be found and connected before the mask was looked at.
    control->timerStartUp->stop();
    h = std::make_unique<PanelHarness>(control.get());
    const bool stands = h->show() && h->standsOpen("popupMask");
    control->timerStartUp->start();
    return stands;
}

void TestRehearsal::stop()
{
    h.reset();
    discard(control);
    didScan = false;
}

QString TestRehearsal::scanAndConnect()
{
    h->click("btnConnect");
    if (!h->standsOpen("popupConnect"))
        return QStringLiteral("the connection panel does not open");
    h->click("imgConnectScan");
    const QString found = h->text("[comboConnectComPort.currentText, comboIPSelect.currentText, "
                                  "txtHostname.text, txtIPAddr.text].join()");
    if (found != QLatin1String("[192.168.72.1] eth0,192.168.72.10,STUDIO_1,192.168.72.10"))
        return found;
    h->click("btnConnectConnect");
    const QString told = h->text("msgConnect.text");
    if (told != QLatin1String("Connected"))
        return told;
    if (!h->standsClosed("popupConnect") || !h->standsClosed("popupMask"))
        return QStringLiteral("the way to the controls stays shut");
    return control->isConnected() ? QString() : QStringLiteral("no link");
}

void TestRehearsal::operatorWorksAUnit()
{
    QVERIFY(start());
    QCOMPARE(scanAndConnect(), QString());
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
    QTRY_VERIFY_WITH_TIMEOUT(!h->flag("notifyTimer.running"), 30000);
    QCOMPARE(h->text("msgConnect.text"), QStringLiteral("Disconnected"));
    QTRY_COMPARE(unit->clientCount(), 0);
    QVERIFY(!h->flag("popupWarning.visible"));
    QCOMPARE(Messages::warnings(), QStringList());
}

// The unit's reports come while the panel still waits for the end of the call: who sees the controls sees them as
// the unit has them.
void TestRehearsal::bandIsFilledBeforeThePanelCloses()
{
    writeSettings("[last_info]\nmemory=7\n");
    unit->withUnit([](standin::Unit &it) {
        it.setValue(standin::OutputRouting, "pgm", 2);
        it.setValue(standin::OutputRouting, "pgmHdmi", 3);
        it.setValue(standin::OutputRouting, "pvw", 5);
    });
    QVERIFY(start());
    const QString band = "[comboPgmSdiOutput.currentText, comboPgmHdmiOutput.currentText, "
                         "comboPvwOutput.currentText, comboUserMem.currentText, txtFWVersion.text].join()";
    const QString before = h->text(band);
    h->eval("popupConnect.aboutToHide.connect(function() { popupConnect.objectName = " + band + " })");
    QCOMPARE(scanAndConnect(), QString());
    const QString closing = h->text("popupConnect.objectName");
    QCOMPARE(closing, QStringLiteral("BG,AUX,PFG,User 7,v1.05"));
    QVERIFY(closing != before);
    QCOMPARE(h->text(band), closing);
}

void TestRehearsal::networkSettingsAreSaved()
{
    QVERIFY(start());
    QCOMPARE(scanAndConnect(), QString());
    h->click("btnConnect");
    QVERIFY(h->standsOpen("popupConnect"));
    h->type("txtHostname", "STUDIO_2");
    h->click("btnConnectSave");
    QCOMPARE(h->text("msgConnect.text"), QStringLiteral("Please reboot this device: \nSTUDIO_2"));
    QString name;
    unit->withNetwork([&](standin::NetworkSettings &settings) { name = settings.name; });
    QCOMPARE(name, QStringLiteral("STUDIO_2"));
}

// A box that changes holds the poll; with the setup panel closed nobody would let it go again, and a link that is lost
// then would never be told of.
void TestRehearsal::pollOutlivesAReportThatNobodySees()
{
    QVERIFY(start());
    QCOMPARE(scanAndConnect(), QString());
    const int before = h->number("comboSetupVOutRes.currentIndex");
    unit->withUnit([](standin::Unit &it) { it.setValue(standin::OutputStandard, "standard", 20); });
    QTRY_COMPARE_WITH_TIMEOUT(h->number("comboSetupVOutRes.currentIndex"), 14, 15000);
    QVERIFY(before != 14);
    unit->clearRecord();
    QTRY_VERIFY_WITH_TIMEOUT(unit->count(standin::OutputStandard) >= 2, 15000);

    // Under the open panel it rests, until that is closed.
    h->click("btnSetup");
    QVERIFY(h->standsOpen("popupSetup"));
    unit->withUnit([](standin::Unit &it) { it.setValue(standin::OutputStandard, "standard", 8); });
    QTRY_COMPARE_WITH_TIMEOUT(h->number("comboSetupVOutRes.currentIndex"), 2, 15000);
    QVERIFY(!control->timerRefreshStatus->isActive());
    QTest::keyClick(h->window, Qt::Key_Escape);
    QVERIFY(h->standsClosed("popupSetup"));
    QVERIFY(control->timerRefreshStatus->isActive());
}

void TestRehearsal::lostLinkWarnsAndReconnects()
{
    QVERIFY(start());
    QCOMPARE(scanAndConnect(), QString());
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
    QVERIFY(start());
    QCOMPARE(scanAndConnect(), QString());
    stop();
    QVERIFY(start());
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
    QVERIFY(start());
    QTRY_COMPARE_WITH_TIMEOUT(h->text("msgConnect.text"),
                              QStringLiteral("Previous device MAC address 00:11:22:33:44:55\nis not found."),
                              30000);
    QVERIFY(h->flag("popupMask.opened"));
    QVERIFY(!control->isConnected());
}

void TestRehearsal::stillScreenDrawsNothing()
{
    QVERIFY(start());
    QCOMPARE(scanAndConnect(), QString());
    h->click("menuChromakey");
    QTest::qWait(1500);
    QVERIFY(h->rests(10000));
}

int main(int argc, char **argv)
{
    support::TestNetwork::obtainRights(argv);
    QApplication application(argc, argv);
    TestRehearsal test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_rehearsal.moc"
