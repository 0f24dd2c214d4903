#include "connectionbench.h"

// The form of the connection panel: what fills its fields, what they take, and what a save sends of them.
class TestConnectionForm : public ConnectionBench
{
    Q_OBJECT

private slots:
    void init() { ConnectionBench::init(); }
    void cleanup() { ConnectionBench::cleanup(); }
    void choosingAUnitAsksForItsData();
    void interfaceChangesLabelAndList();
    void addressFieldsFollowTheMode();
    void fieldsRefuseWhatIsNoAddress();
    void hostNameTakesFifteenCharacters();
    void foundUnitFillsTheForm();
    void savedConnectionFillsTheForm_data();
    void savedConnectionFillsTheForm();
    void redMarks_data();
    void redMarks();
    void redMarksSurviveARefresh();
    void save();
    void saveRefusals();
    void hiddenResetKeepsItsBehaviour();
    void textFromTheWireIsPlain();
};

void TestConnectionForm::choosingAUnitAsksForItsData()
{
    CHECKED(openPanel());
    h->click("imgConnectScan");
    facade->forget();
    h->choose("comboIPSelect", 1);
    QCOMPARE(facade->calls, QStringList("getHLNPDeviceInfo(1)"));
}

void TestConnectionForm::interfaceChangesLabelAndList()
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

void TestConnectionForm::addressFieldsFollowTheMode()
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

void TestConnectionForm::fieldsRefuseWhatIsNoAddress()
{
    CHECKED(openPanel());
    h->choose("comboAddrmode", 1);
    h->type("txtGateway", "10.1.2.299x");
    QCOMPARE(h->text("txtGateway.text"), QStringLiteral("10.1.2.29"));
}

void TestConnectionForm::hostNameTakesFifteenCharacters()
{
    CHECKED(openPanel());
    h->type("txtHostname", "AbC_ 6789.-012345678");
    QCOMPARE(h->text("txtHostname.text"), QStringLiteral("AbC_ 6789012345"));
    QVERIFY(h->flag("txtHostname.acceptableInput"));
}

void TestConnectionForm::foundUnitFillsTheForm()
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

void TestConnectionForm::savedConnectionFillsTheForm_data()
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

void TestConnectionForm::savedConnectionFillsTheForm()
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

void TestConnectionForm::redMarks_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("field");
    const QStringList fields = {"txtIPAddr",  "txtHostname", "txtGateway",
                                "txtNetmask", "txtPrimdns",  "txtSecdns"};
    for (int i = 0; i < fields.size(); ++i)
        QTest::newRow(qPrintable(fields.at(i))) << i + 1 << fields.at(i);
}

void TestConnectionForm::redMarks()
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

void TestConnectionForm::redMarksSurviveARefresh()
{
    showUnit();
    emit facade->markHLNPDataRed(3);
    emit facade->markHLNPDataRed(1);
    showUnit();
    QCOMPARE(h->color("txtGateway.color"), QStringLiteral("#AA0000"));
    QCOMPARE(h->color("txtIPAddr.color"), QStringLiteral("#D8D8D8"));
}

void TestConnectionForm::save()
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

void TestConnectionForm::saveRefusals()
{
    CHECKED(openPanel());
    h->click("btnConnectSave");
    QCOMPARE(h->text("msgConnect.text"), QStringLiteral("Please scan and find devices first."));
    QCOMPARE(facade->calls, QStringList());
    QVERIFY(h->flag("btnConnectSave.enabled"));
    h->eval("btnConnectSave.enabled = false");
    QCOMPARE(h->face("btnConnectSave"), QStringLiteral("btn_d_save_connect"));
}

void TestConnectionForm::hiddenResetKeepsItsBehaviour()
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

void TestConnectionForm::textFromTheWireIsPlain()
{
    for (const QString &id : QStringList{"txtMacaddr", "msgConnect", "txtWarningMsg", "txtFWVersion",
                                         "txtFPGAVersion", "txtBLVersion"})
        QCOMPARE(h->number(id + ".textFormat"), 0);
}

QTEST_MAIN(TestConnectionForm)
#include "tst_connectionform.moc"
