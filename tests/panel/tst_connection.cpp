#include "connectionbench.h"

// The way to a link: the header's button, the scan, and the connect with its results.
class TestConnection : public ConnectionBench
{
    Q_OBJECT

private slots:
    void init() { ConnectionBench::init(); }
    void cleanup() { ConnectionBench::cleanup(); }
    void headerButtonOpensThePanel();
    void maskKeepsTheOperatorOut();
    void scanWritesOnPressAndWorksOnRelease();
    void scanOnReleaseOutside();
    void connectByNetwork();
    void connectOutsideTheSubnet();
    void subnetTestIsASubstringTest();
    void connectWithoutAdapterDoesNothing();
    void connectBySerial();
    void connectResults_data();
    void connectResults();
};

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

QTEST_MAIN(TestConnection)
#include "tst_connection.moc"
