#include "panelfacade.h"
#include "panelharness.h"
#include "tests/support/checked.h"

// The connection panel, the mask and the notices, worked by mouse and keys over a recorded facade.
class TestConnection : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void headerButtonOpensThePanel();
    void maskKeepsTheOperatorOut();
    void scanWritesOnPressAndWorksOnRelease();
    void scanOnReleaseOutside();
    void choosingAUnitAsksForItsData();
    void interfaceChangesLabelAndList();
    void addressFieldsFollowTheMode();
    void fieldsRefuseWhatIsNoAddress();
    void hostNameTakesFifteenCharacters();
    void connectByNetwork();
    void connectOutsideTheSubnet();
    void subnetTestIsASubstringTest();
    void connectWithoutAdapterDoesNothing();
    void connectBySerial();
    void connectResults_data();
    void connectResults();
    void foundUnitFillsTheForm();
    void savedConnectionFillsTheForm_data();
    void savedConnectionFillsTheForm();
    void redMarks_data();
    void redMarks();
    void redMarksSurviveARefresh();
    void save();
    void saveRefusals();
    void disconnectCountsSixTicks();
    void disconnectWithoutLinkDoesNothing();
    void hiddenResetKeepsItsBehaviour();
    void warningOpensOnlyForALostLink();
    void reconnect();
    void reconnectRefused();
    void configOpensThePanelOverTheWarning();
    void textFromTheWireIsPlain();

private:
    void openPanel();
    void showUnit(bool dhcp = false, const QString &address = "192.168.72.128");

    std::unique_ptr<PanelFacade> facade;
    std::unique_ptr<PanelHarness> h;
};

void TestConnection::init()
{
    facade = std::make_unique<PanelFacade>();
    h = std::make_unique<PanelHarness>(facade.get());
    QVERIFY(h->show());
    QVERIFY(h->standsOpen("popupMask"));
    facade->forget();
}

void TestConnection::cleanup()
{
    QCOMPARE(Messages::warnings(), QStringList());
    h.reset();
    facade.reset();
}

void TestConnection::openPanel()
{
    h->click("btnConnect");
    QVERIFY(h->standsOpen("popupConnect"));
    facade->forget();
}

void TestConnection::showUnit(bool dhcp, const QString &address)
{
    emit facade->refreshConnectionData(999, "na", dhcp, "QKV_A", address, "00:1E:C0:5A:07:20",
                                       "192.168.72.254", "255.255.255.0", "192.168.72.1", "8.8.8.8");
}

void TestConnection::headerButtonOpensThePanel()
{
    QVERIFY(!h->flag("btnSetup.enabled"));
    QCOMPARE(h->face("btnSetup"), QStringLiteral("btn_d_setup_dashboard"));
    h->eval("comboConnectComPort.currentIndex = 1");
    h->click("btnConnect");
    QCOMPARE(facade->calls, QStringList("connectPopup(0, 1)"));
    QVERIFY(h->standsOpen("popupConnect"));
    QVERIFY(h->flag("btnConnectClicked"));
    QCOMPARE(h->face("btnConnect"), QStringLiteral("btn_p_connect_dashboard"));
    QTest::keyClick(h->window, Qt::Key_Escape);
    QVERIFY(h->standsClosed("popupConnect"));
    QVERIFY(!h->flag("btnConnectClicked"));
    QCOMPARE(h->face("btnConnect"), QStringLiteral("btn_n_connect_dashboard"));
    CHECKED(openPanel());
    h->clickAt(QPoint(100, 600));
    QVERIFY(h->standsClosed("popupConnect"));
    CHECKED(openPanel());
    h->clickAt(QPoint(353 + 626, 24 + 27));
    QVERIFY(h->standsClosed("popupConnect"));
    QVERIFY(h->flag("popupMask.opened"));
}

void TestConnection::maskKeepsTheOperatorOut()
{
    h->click("checkboxPGMSDI");
    h->click("menuChromakey");
    h->click("btnSetup");
    QTest::keyClick(h->window, Qt::Key_Escape);
    QCOMPARE(facade->calls, QStringList());
    QCOMPARE(h->number("tabPageID"), 1);
    QVERIFY(h->flag("popupMask.opened"));
    QVERIFY(!h->flag("popupSetup.visible"));
}

void TestConnection::scanWritesOnPressAndWorksOnRelease()
{
    CHECKED(openPanel());
    showUnit(false, "192.168.99.1");
    QVERIFY(h->flag("ipAddrError"));
    h->press("imgConnectScan");
    QCOMPARE(h->face("imgConnectScan"), QStringLiteral("btn_p_scan_connect"));
    QCOMPARE(h->text("msgConnect.text"), QStringLiteral("Scanning..."));
    for (const QString &id : QStringList{"txtHostname", "txtMacaddr", "txtIPAddr", "txtNetmask", "txtGateway",
                                         "txtPrimdns", "txtSecdns"})
        QCOMPARE(h->text(id + ".text"), QString());
    QVERIFY(!h->flag("ipAddrError"));
    QCOMPARE(h->text("comboIPSelect.currentText"), QString());
    QCOMPARE(facade->calls, QStringList());
    h->release("imgConnectScan");
    QCOMPARE(facade->callsOf("hlnpScan"), QStringList("hlnpScan(scan, 0)"));
    QCOMPARE(facade->calls.first(), QStringLiteral("hlnpScan(scan, 0)"));
    QCOMPARE(facade->calls.last(), QStringLiteral("getHLNPDeviceInfo(0)"));
    QCOMPARE(h->face("imgConnectScan"), QStringLiteral("btn_n_scan_connect"));
    QCOMPARE(h->text("msgConnect.text"), QString());
    QCOMPARE(h->number("comboIPSelect.count"), 2);
    QCOMPARE(h->text("comboIPSelect.currentText"), QStringLiteral("192.168.72.128"));
}

void TestConnection::scanOnReleaseOutside()
{
    CHECKED(openPanel());
    h->press("imgConnectScan");
    QTest::mouseMove(h->window, QPoint(500, 600));
    QTest::mouseRelease(h->window, Qt::LeftButton, {}, QPoint(500, 600));
    QCOMPARE(facade->callsOf("hlnpScan").size(), 1);
}

void TestConnection::choosingAUnitAsksForItsData()
{
    CHECKED(openPanel());
    h->click("imgConnectScan");
    facade->forget();
    h->choose("comboIPSelect", 1);
    QCOMPARE(facade->calls, QStringList("getHLNPDeviceInfo(1)"));
}

void TestConnection::interfaceChangesLabelAndList()
{
    CHECKED(openPanel());
    h->eval("msgConnect.text = 'x'");
    QCOMPARE(h->text("labelConnectComPort.text"), QStringLiteral("EtherNetCard"));
    QCOMPARE(h->text("comboConnectComPort.currentText"), QStringLiteral("[192.168.72.10] enp3s0"));
    h->choose("comboConnectInterface", 1);
    QCOMPARE(h->text("msgConnect.text"), QString());
    QCOMPARE(h->text("labelConnectComPort.text"), QStringLiteral("Comport"));
    QCOMPARE(h->text("comboConnectComPort.currentText"), QStringLiteral("ttyS0"));
    for (const QString &id : QStringList{"imgConnectScan", "comboIPSelect", "txtHostname", "txtMacaddr",
                                         "comboAddrmode", "txtIPAddr", "txtSecdns", "btnConnectSave"})
        QVERIFY2(!h->flag(id + ".visible"), qPrintable(id));
    emit facade->refreshLanguage("zh_TW");
    QCOMPARE(h->text("labelConnectComPort.text"), QStringLiteral("串列埠"));
    h->choose("comboConnectInterface", 0);
    QCOMPARE(h->text("labelConnectComPort.text"), QStringLiteral("網路卡"));
    QCOMPARE(h->number("comboConnectComPort.count"), 2);
    QVERIFY(h->flag("txtHostname.visible"));
    QVERIFY(!h->flag("labelHint.visible"));
    QVERIFY(!h->flag("btnConnectReset.visible"));
}

void TestConnection::addressFieldsFollowTheMode()
{
    CHECKED(openPanel());
    const QStringList fields = {"txtIPAddr", "txtNetmask", "txtGateway", "txtPrimdns", "txtSecdns"};
    for (const QString &id : fields) {
        QVERIFY(h->flag(id + ".readOnly"));
        QVERIFY(!h->flag(id + ".selectByMouse"));
        QCOMPARE(h->color(id + ".color"), QStringLiteral("#909090"));
    }
    h->choose("comboAddrmode", 1);
    QVERIFY(h->flag("hlnpNetDHCPModeChned && hlnpNetIPAddrChned"));
    for (const QString &id : fields) {
        QVERIFY(!h->flag(id + ".readOnly"));
        QVERIFY(h->flag(id + ".selectByMouse"));
        QCOMPARE(h->color(id + ".color"), QStringLiteral("#D8D8D8"));
    }
    const QStringList marks = {"hlnpNetMaskChned", "hlnpNetGatewayChned", "hlnpNetPrimdnsChned",
                               "hlnpNetSecdnsChned"};
    for (int i = 0; i < marks.size(); ++i) {
        QVERIFY(!h->flag(marks.at(i)));
        h->type(fields.at(i + 1), "10.1.2.3");
        QVERIFY(h->flag(marks.at(i)));
        QCOMPARE(h->text(fields.at(i + 1) + ".text"), QStringLiteral("10.1.2.3"));
    }
    h->type("txtHostname", "A");
    QVERIFY(h->flag("hlnpNetHostnameChned"));
    h->choose("comboAddrmode", 0);
    QCOMPARE(h->color("txtGateway.color"), QStringLiteral("#909090"));
    QCOMPARE(h->color("txtHostname.color"), QStringLiteral("#D8D8D8"));
}

void TestConnection::fieldsRefuseWhatIsNoAddress()
{
    CHECKED(openPanel());
    h->choose("comboAddrmode", 1);
    h->type("txtGateway", "10.1.2.299x");
    QCOMPARE(h->text("txtGateway.text"), QStringLiteral("10.1.2.29"));
}

void TestConnection::hostNameTakesFifteenCharacters()
{
    CHECKED(openPanel());
    h->type("txtHostname", "AbC_ 6789.-012345678");
    QCOMPARE(h->text("txtHostname.text"), QStringLiteral("AbC_ 6789012345"));
    QVERIFY(h->flag("txtHostname.acceptableInput"));
}

void TestConnection::connectByNetwork()
{
    CHECKED(openPanel());
    showUnit();
    h->eval("msgConnect.text = 'x'");
    h->press("btnConnectConnect");
    QCOMPARE(h->text("msgConnect.text"), QString());
    QCOMPARE(h->face("btnConnectConnect"), QStringLiteral("btn_p_connect_connect"));
    QCOMPARE(facade->calls, QStringList());
    h->release("btnConnectConnect");
    QCOMPARE(facade->calls, QStringList("deviceConnect(1, 192.168.72.128, 0)"));
    QVERIFY(h->flag("btnSetup.enabled"));
    QCOMPARE(h->face("btnSetup"), QStringLiteral("btn_n_setup_dashboard"));
    QCOMPARE(h->text("msgConnect.text"), QStringLiteral("Connected"));
    QVERIFY(h->standsClosed("popupConnect"));
    QVERIFY(h->standsClosed("popupMask"));
    QVERIFY(Messages::logs().contains("device connect: OK"));
}

void TestConnection::connectOutsideTheSubnet()
{
    CHECKED(openPanel());
    showUnit(false, "192.168.73.128");
    QCOMPARE(h->color("txtIPAddr.color"), QStringLiteral("#990000"));
    QVERIFY(h->flag("labelIPAddrError.visible"));
    h->click("btnConnectConnect");
    QCOMPARE(facade->calls, QStringList());
    QCOMPARE(h->text("msgConnect.text"), QStringLiteral("IP Address is not \nin the same network."));
    QVERIFY(Messages::logs().contains("ip vs card= 192.168.72. 192.168.73.128"));
    QVERIFY(h->flag("popupConnect.opened"));
}

void TestConnection::subnetTestIsASubstringTest()
{
    CHECKED(openPanel());
    h->choose("comboConnectComPort", 1);
    showUnit(false, "110.0.5.9");
    QVERIFY(!h->flag("ipAddrError"));
    h->click("btnConnectConnect");
    QCOMPARE(facade->calls, QStringList("deviceConnect(1, 110.0.5.9, 1)"));
}

void TestConnection::connectWithoutAdapterDoesNothing()
{
    facade->adapters.clear();
    emit facade->refreshNetcardList({});
    CHECKED(openPanel());
    showUnit();
    h->click("btnConnectConnect");
    QCOMPARE(facade->calls, QStringList());
    QCOMPARE(h->text("msgConnect.text"), QString());
    h->click("btnConnectSave");
    QCOMPARE(h->text("msgConnect.text"), QStringLiteral("Network interface is empty."));
    QCOMPARE(facade->calls, QStringList());
    QVERIFY(h->flag("btnConnectSave.enabled"));
}

void TestConnection::connectBySerial()
{
    CHECKED(openPanel());
    h->choose("comboConnectInterface", 1);
    h->choose("comboConnectComPort", 1);
    h->click("btnConnectConnect");
    QCOMPARE(facade->calls, QStringList("deviceConnect(2, ttyUSB0, 1)"));
    QVERIFY(h->standsClosed("popupMask"));
}

void TestConnection::connectResults_data()
{
    QTest::addColumn<QString>("result");
    QTest::addColumn<QString>("shown");
    QTest::newRow("HLNP") << "HLNP"
                          << "HLNP not ready.";
    QTest::newRow("other") << "Ethernet not Connected!"
                           << "Ethernet not Connected!";
}

void TestConnection::connectResults()
{
    QFETCH(QString, result);
    QFETCH(QString, shown);
    facade->connectResult = result;
    CHECKED(openPanel());
    showUnit();
    h->click("btnConnectConnect");
    QCOMPARE(h->text("msgConnect.text"), shown);
    QVERIFY(h->flag("popupConnect.opened && popupMask.opened"));
    QVERIFY(!h->flag("btnSetup.enabled"));
    emit facade->autoConnectResult(result);
    QCOMPARE(h->text("msgConnect.text"), result);
}

void TestConnection::foundUnitFillsTheForm()
{
    CHECKED(openPanel());
    showUnit(true);
    QCOMPARE(h->number("comboConnectComPort.currentIndex"), 0);
    QCOMPARE(h->number("comboAddrmode.currentIndex"), 0);
    QCOMPARE(h->text("txtHostname.text"), QStringLiteral("QKV_A"));
    QCOMPARE(h->text("txtMacaddr.text"), QStringLiteral("00:1E:C0:5A:07:20"));
    QCOMPARE(h->text("txtIPAddr.text"), QStringLiteral("192.168.72.128"));
    QCOMPARE(h->text("txtGateway.text"), QStringLiteral("192.168.72.254"));
    QCOMPARE(h->text("txtNetmask.text"), QStringLiteral("255.255.255.0"));
    QCOMPARE(h->text("txtPrimdns.text"), QStringLiteral("192.168.72.1"));
    QCOMPARE(h->text("txtSecdns.text"), QStringLiteral("8.8.8.8"));
    // The subnet has the last word on the address, in DHCP mode too.
    QCOMPARE(h->color("txtIPAddr.color"), QStringLiteral("#D8D8D8"));
    QCOMPARE(h->color("txtGateway.color"), QStringLiteral("#909090"));
    QCOMPARE(h->color("txtHostname.color"), QStringLiteral("#D8D8D8"));
    emit facade->refreshConnectionData(999, "[10.0.5.7] wlan0", false, "B", "10.0.5.9", "m", "g", "n", "p",
                                       "s");
    QCOMPARE(h->number("comboConnectComPort.currentIndex"), 1);
    QCOMPARE(h->color("txtGateway.color"), QStringLiteral("#D8D8D8"));
    QVERIFY(!h->flag("ipAddrError"));
}

void TestConnection::savedConnectionFillsTheForm_data()
{
    QTest::addColumn<int>("method");
    QTest::addColumn<QString>("serialPort");
    QTest::addColumn<QString>("adapter");
    QTest::addColumn<int>("interface");
    QTest::addColumn<QString>("chosen");
    QTest::newRow("network") << 1 << "COM3"
                             << "[10.0.5.7] wlan0" << 0 << "[10.0.5.7] wlan0";
    QTest::newRow("adapter gone") << 1 << "COM3"
                                  << "[1.2.3.4] gone" << 0 << "[192.168.72.10] enp3s0";
    QTest::newRow("serial") << 2 << "ttyUSB0"
                            << "" << 1 << "ttyUSB0";
    QTest::newRow("serial gone") << 2 << "COM3"
                                 << "" << 1 << "ttyS0";
    QTest::newRow("method 999") << 999 << "na"
                                << "[10.0.5.7] wlan0" << 0 << "[192.168.72.10] enp3s0";
    QTest::newRow("method 0") << 0 << "COM3"
                              << "" << -1 << "ttyS0";
}

void TestConnection::savedConnectionFillsTheForm()
{
    QFETCH(int, method);
    QFETCH(QString, serialPort);
    QFETCH(QString, adapter);
    QFETCH(int, interface);
    QFETCH(QString, chosen);
    emit facade->refreshConnection(method, serialPort, adapter, false, "10.0.5.9", "H", "M", "G", "N", "P",
                                   "S");
    QCOMPARE(h->number("comboConnectInterface.currentIndex"), interface);
    QCOMPARE(h->text("comboConnectComPort.currentText"), chosen);
    QCOMPARE(h->number("comboAddrmode.currentIndex"), 1);
    QCOMPARE(h->text("[txtHostname.text, txtMacaddr.text, txtIPAddr.text, txtGateway.text, txtNetmask.text, "
                     "txtPrimdns.text, txtSecdns.text].join(' ')"),
             QStringLiteral("H M 10.0.5.9 G N P S"));
    QCOMPARE(h->color("txtGateway.color"), QStringLiteral("#D8D8D8"));
    QCOMPARE(h->flag("ipAddrError"), method == 1 && !chosen.contains("10.0.5"));
    emit facade->refreshConnection(method, serialPort, adapter, true, "10.0.5.9", "H", "M", "G", "N", "P",
                                   "S");
    QCOMPARE(h->color("txtIPAddr.color"), QStringLiteral("#909090"));
}

void TestConnection::redMarks_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("field");
    const QStringList fields = {"txtIPAddr",  "txtHostname", "txtGateway",
                                "txtNetmask", "txtPrimdns",  "txtSecdns"};
    for (int i = 0; i < fields.size(); ++i)
        QTest::newRow(qPrintable(fields.at(i))) << i + 1 << fields.at(i);
}

void TestConnection::redMarks()
{
    QFETCH(int, index);
    QFETCH(QString, field);
    showUnit();
    emit facade->markHLNPDataRed(index);
    QVERIFY(h->flag("errorColored"));
    QVERIFY(Messages::logs().contains("onMarkHLNPDataRed"));
    for (const QString &id :
         QStringList{"txtIPAddr", "txtHostname", "txtGateway", "txtNetmask", "txtPrimdns", "txtSecdns"}) {
        QCOMPARE(h->color(id + ".color"),
                 id == field ? QStringLiteral("#AA0000") : QStringLiteral("#D8D8D8"));
        QCOMPARE(h->flag(id + ".marked"), id == field);
    }
    emit facade->markHLNPDataRed(0);
    QVERIFY(!h->flag("errorColored"));
    QCOMPARE(h->color(field + ".color"), QStringLiteral("#D8D8D8"));
    showUnit(true);
    emit facade->markHLNPDataRed(0);
    QCOMPARE(h->color("txtIPAddr.color"), QStringLiteral("#909090"));
    QCOMPARE(h->color("txtHostname.color"), QStringLiteral("#D8D8D8"));
}

void TestConnection::redMarksSurviveARefresh()
{
    showUnit();
    emit facade->markHLNPDataRed(3);
    emit facade->markHLNPDataRed(1);
    showUnit();
    QCOMPARE(h->color("txtGateway.color"), QStringLiteral("#AA0000"));
    QCOMPARE(h->color("txtIPAddr.color"), QStringLiteral("#D8D8D8"));
}

void TestConnection::save()
{
    CHECKED(openPanel());
    h->click("imgConnectScan");
    showUnit();
    facade->forget();
    h->press("btnConnectSave");
    QCOMPARE(h->text("msgConnect.text"), QStringLiteral("Saving..."));
    QCOMPARE(h->face("btnConnectSave"), QStringLiteral("btn_p_save_connect"));
    QCOMPARE(facade->calls, QStringList());
    h->release("btnConnectSave");
    QCOMPARE(facade->calls,
             QStringList({"hlnpSave(192.168.72.10, [192.168.72.10] enp3s0, 0, 00:1E:C0:5A:07:20, QKV_A, 1, "
                          "192.168.72.128, 255.255.255.0, 192.168.72.254, 192.168.72.1, 8.8.8.8)",
                          "msecSleep(2000)"}));
    QCOMPARE(h->text("msgConnect.text"), QStringLiteral("Please reboot this device: \nQKV_A"));
    QVERIFY(h->flag("btnConnectSave.enabled"));
    QVERIFY(Messages::logs().contains("Not doing reboot!"));
    facade->saveResult = "IP Address format incorrect.";
    h->click("btnConnectSave");
    QCOMPARE(h->text("msgConnect.text"), QStringLiteral("IP Address format incorrect."));
}

void TestConnection::saveRefusals()
{
    CHECKED(openPanel());
    h->click("btnConnectSave");
    QCOMPARE(h->text("msgConnect.text"), QStringLiteral("Please scan and find devices first."));
    QCOMPARE(facade->calls, QStringList());
    QVERIFY(h->flag("btnConnectSave.enabled"));
    h->eval("btnConnectSave.enabled = false");
    QCOMPARE(h->face("btnConnectSave"), QStringLiteral("btn_d_save_connect"));
}

void TestConnection::disconnectCountsSixTicks()
{
    emit facade->autoConnectResult("OK");
    QVERIFY(h->standsClosed("popupMask"));
    facade->connected = true;
    CHECKED(openPanel());
    h->eval("outputTitleUserMemOp.text = 'x'");
    // What it shows one after the other, with the words in the panel beside it.
    h->eval("txtDisconnectNotifyInfoCountDown.textChanged.connect(function() {"
            " popupDisConnect.objectName += txtDisconnectNotifyInfoCountDown.text + ' ' })");
    QElapsedTimer clock;
    clock.start();
    h->click("btnConnectDisconnect");
    QCOMPARE(facade->calls, QStringList({"isConnected()", "deviceDisConnect(1)"}));
    QVERIFY(h->flag("popupDisConnect.visible && popupMask.visible"));
    QVERIFY(!h->flag("btnSetup.enabled"));
    QVERIFY(h->standsClosed("popupConnect"));
    QVERIFY(h->standsOpen("popupDisConnect"));
    int words = 0;
    while (h->flag("notifyTimer.running") && clock.elapsed() < 30000) {
        if (!h->text("txtDisconnectNotifyInfoCountDown.text").isEmpty()) {
            QCOMPARE(h->text("msgConnect.text"), QStringLiteral("Disconnecting"));
            ++words;
        }
        QTest::qWait(50);
    }
    QVERIFY(words > 0);
    QCOMPARE(h->text("popupDisConnect.objectName").simplified(), QStringLiteral("..... .... ... .. ."));
    QVERIFY2(clock.elapsed() > 5000 && clock.elapsed() < 30000, qPrintable(QString::number(clock.elapsed())));
    QVERIFY(h->standsClosed("popupDisConnect"));
    QVERIFY(h->standsOpen("popupConnect"));
    QVERIFY(h->flag("popupMask.opened"));
    QCOMPARE(h->number("countDown"), 5);
    QCOMPARE(h->text("msgConnect.text"), QStringLiteral("Disconnected"));
    QCOMPARE(h->text("outputTitleUserMemOp.text"), QString());
    QCOMPARE(h->face("btnConnectDisconnect"), QStringLiteral("btn_n_disconnect_connect"));
    QCOMPARE(h->face("btnSetup"), QStringLiteral("btn_d_setup_dashboard"));
    h->press("btnConnectDisconnect");
    QCOMPARE(h->face("btnConnectDisconnect"), QStringLiteral("btn_p_disconnect_connect"));
}

void TestConnection::disconnectWithoutLinkDoesNothing()
{
    CHECKED(openPanel());
    h->click("btnConnectDisconnect");
    QCOMPARE(facade->calls, QStringList("isConnected()"));
    QVERIFY(!h->flag("notifyTimer.running"));
    QVERIFY(h->flag("popupConnect.opened"));
}

void TestConnection::hiddenResetKeepsItsBehaviour()
{
    CHECKED(openPanel());
    h->eval("btnConnectReset.visible = true");
    h->press("btnConnectReset");
    QCOMPARE(h->text("msgConnect.text"), QString());
    h->release("btnConnectReset");
    QCOMPARE(h->text("msgConnect.text"), QStringLiteral("Please scan and find devices first."));
    QCOMPARE(facade->calls, QStringList());
    h->click("imgConnectScan");
    showUnit();
    facade->forget();
    h->click("btnConnectReset");
    QCOMPARE(facade->calls,
             QStringList({"hlnpReboot(00:1E:C0:5A:07:20, [192.168.72.10] enp3s0, 192.168.72.128)",
                          "getHLNPDeviceInfo(0)"}));
}

void TestConnection::warningOpensOnlyForALostLink()
{
    CHECKED(openPanel());
    emit facade->warning("Something else");
    QCOMPARE(h->text("msgConnect.text"), QStringLiteral("Something else"));
    QVERIFY(!h->flag("popupWarning.visible"));
    for (const QString &language : QStringList{"en_US", "zh_TW", "zh_CN"}) {
        emit facade->refreshLanguage(language);
        const QString text = QCoreApplication::translate("mainControl", "Disconnected");
        emit facade->warning(text);
        QVERIFY(h->standsOpen("popupWarning"));
        QVERIFY(h->standsClosed("popupConnect"));
        QVERIFY(h->text("txtWarningMsg.text").endsWith(QLatin1Char(' ') + text));
        h->clickAt(QPoint(100, 700));
        QVERIFY(h->flag("popupWarning.opened"));
        QTest::keyClick(h->window, Qt::Key_Escape);
        QVERIFY(h->standsClosed("popupWarning"));
    }
}

void TestConnection::reconnect()
{
    showUnit();
    emit facade->warning("Disconnected");
    QVERIFY(h->standsOpen("popupWarning"));
    QCOMPARE(h->text("txtWarningMsg.text"), QStringLiteral("Network Disconnected"));
    facade->forget();
    h->press("btnWarningReconnect");
    QCOMPARE(h->color("txtWarningReconnect.color"), QStringLiteral("#FFFFFF"));
    h->release("btnWarningReconnect");
    QCOMPARE(facade->calls, QStringList("deviceConnect(1, 192.168.72.128, 0)"));
    QCOMPARE(h->text("txtWarningMsg.text"), QStringLiteral("Connected"));
    QVERIFY(h->standsClosed("popupWarning"));
    QVERIFY(h->standsClosed("popupMask"));
    QVERIFY(h->flag("btnSetup.enabled"));
}

void TestConnection::reconnectRefused()
{
    facade->connectResult = "Device disconnected.";
    showUnit();
    emit facade->warning("Disconnected");
    QVERIFY(h->standsOpen("popupWarning"));
    h->click("btnWarningReconnect");
    QCOMPARE(h->text("txtWarningMsg.text"), QStringLiteral("Device disconnected."));
    QVERIFY(h->flag("popupWarning.opened"));
    showUnit(false, "1.2.3.4");
    h->click("btnWarningReconnect");
    QCOMPARE(h->text("txtWarningMsg.text"), QStringLiteral("IP Address is not \nin the same network."));
}

void TestConnection::configOpensThePanelOverTheWarning()
{
    emit facade->warning("Disconnected");
    QVERIFY(h->standsOpen("popupWarning"));
    h->click("btnWarningConfig");
    QVERIFY(h->standsOpen("popupConnect"));
    QVERIFY(h->flag("popupWarning.opened"));
    QCOMPARE(h->text("msgConnect.text"), QString());
    QVERIFY(h->flag("btnWarningReconnect.enabled"));
    QCOMPARE(h->color("txtWarningReconnect.color"), QStringLiteral("#D8D8D8"));
    QVERIFY(Messages::logs().contains("popupConnect Open"));
    QVERIFY(h->item("connectForm")->parentItem()->isVisible());
    showUnit();
    h->click("btnConnectConnect");
    QVERIFY(h->standsClosed("popupWarning"));
}

void TestConnection::textFromTheWireIsPlain()
{
    for (const QString &id : QStringList{"txtMacaddr", "msgConnect", "txtWarningMsg", "txtFWVersion",
                                         "txtFPGAVersion", "txtBLVersion"})
        QCOMPARE(h->number(id + ".textFormat"), 0);
}

QTEST_MAIN(TestConnection)
#include "tst_connection.moc"
