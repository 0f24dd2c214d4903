#include "panelfacade.h"
#include "panelharness.h"
#include "tests/support/checked.h"

// What the window shows at the moment of a call, in which order it closes things, and what its lists and rows hold.

namespace {

// Remembers what the screen said while a call that blocks was under way.
class WatchedFacade : public PanelFacade
{
    Q_OBJECT

public:
    PanelHarness *panel = nullptr;
    QString watched; // read at each of the calls below
    QStringList seen;

    Q_INVOKABLE void remember(const QString &text) { seen << text; }
    Q_INVOKABLE uint hlnpScan(QString cmd, int netcardIndex)
    {
        look("scan");
        return PanelFacade::hlnpScan(cmd, netcardIndex);
    }

public slots:
    void loadMemory(uint) { look("load"); }
    void saveMemory(uint) { look("save"); }
    void saveSetup() { look("setup"); }
    // Between the save and the answer; the real pause would only make the test slow.
    void msecSleep(uint) { }
    QString hlnpSave(QString, QString, int, QString, QString, int, QString, QString, QString, QString,
                     QString)
    {
        look("network");
        return QStringLiteral("OK");
    }

private:
    void look(const char *call)
    {
        seen << QString::fromLatin1(call) + QStringLiteral(": ") + panel->text(watched);
    }
};

} // namespace

class TestWindow : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void statusStandsAtTheCall();
    void saveIsDisabledAtTheCall();
    void closesInTheOrderOfTheWay_data();
    void closesInTheOrderOfTheWay();
    void pressOnConnectClosesItsPanel();
    void titleIsFixed();
    void escapeClosesTheWarningAlone_data();
    void escapeClosesTheWarningAlone();
    void otherNotifierDoesNothing();
    void outsideResolutionShowsTheFirstRow();
    void manualFormatSwitchesAutomaticOff();
    void resolutionLists();
    void languageEntries();
    void rowsOfTheForm_data();
    void rowsOfTheForm();
    void panelLogsItsReports();
    void panelLogsConnectAndSave();
    void spinnerTurns();

private:
    void connectUnit();

    std::unique_ptr<WatchedFacade> facade;
    std::unique_ptr<PanelHarness> h;
};

void TestWindow::init()
{
    facade = std::make_unique<WatchedFacade>();
    h = std::make_unique<PanelHarness>(facade.get());
    facade->panel = h.get();
    QVERIFY(h->show());
    QVERIFY(h->standsOpen("popupMask"));
    facade->forget();
}

void TestWindow::cleanup()
{
    QCOMPARE(Messages::warnings(), QStringList());
    h.reset();
    facade.reset();
}

void TestWindow::connectUnit()
{
    emit facade->autoConnectResult("OK");
    QVERIFY(h->standsClosed("popupMask"));
}

void TestWindow::statusStandsAtTheCall()
{
    h->click("btnConnect");
    QVERIFY(h->standsOpen("popupConnect"));
    facade->watched = "msgConnect.text";
    h->click("imgConnectScan");
    h->eval("txtMacaddr.text = '00:1E:C0:5A:07:20'");
    h->click("btnConnectSave");
    QCOMPARE(facade->seen, QStringList({"scan: Scanning...", "network: Saving..."}));
    h->eval("popupConnect.close()");
    QVERIFY(h->standsClosed("popupConnect"));
    CHECKED(connectUnit());
    facade->seen.clear();
    facade->watched = "outputTitleUserMemOp.text";
    h->click("outputMemoryLock");
    h->click("outputMemoryLoad");
    h->click("outputMemorySave");
    QCOMPARE(facade->seen, QStringList({"load: Setting completed.", "save: Setting completed."}));
}

void TestWindow::saveIsDisabledAtTheCall()
{
    h->click("btnConnect");
    QVERIFY(h->standsOpen("popupConnect"));
    h->eval("txtMacaddr.text = '00:1E:C0:5A:07:20'");
    facade->watched = "btnConnectSave.enabled";
    h->click("btnConnectSave");
    QVERIFY(h->flag("btnConnectSave.enabled"));
    h->eval("popupConnect.close()");
    QVERIFY(h->standsClosed("popupConnect"));
    CHECKED(connectUnit());
    h->click("btnSetup");
    QVERIFY(h->standsOpen("popupSetup"));
    facade->watched = "btnSetupSave.enabled";
    h->click("btnSetupSave");
    QVERIFY(h->flag("btnSetupSave.enabled"));
    QCOMPARE(facade->seen, QStringList({"network: false", "setup: false"}));
}

void TestWindow::closesInTheOrderOfTheWay_data()
{
    QTest::addColumn<QString>("way");
    QTest::addColumn<QStringList>("order");
    QTest::newRow("Connect") << "btnConnectConnect" << QStringList{"connect", "warning", "mask"};
    QTest::newRow("Reconnect") << "btnWarningReconnect" << QStringList{"mask", "connect", "warning"};
    QTest::newRow("automatic") << "" << QStringList{"connect", "warning", "mask"};
}

void TestWindow::closesInTheOrderOfTheWay()
{
    QFETCH(QString, way);
    QFETCH(QStringList, order);
    // All three stand; which of them lies in front is not what is asked here.
    h->eval("txtIPAddr.text = '192.168.72.128'");
    h->eval(way == "btnWarningReconnect" ? "popupConnect.open(); popupWarning.open()"
                                         : "popupWarning.open(); popupConnect.open()");
    QVERIFY(h->standsOpen("popupWarning"));
    QVERIFY(h->standsOpen("popupConnect"));
    h->eval("popupMask.aboutToHide.connect(function() { mainObject.remember('mask') });"
            "popupConnect.aboutToHide.connect(function() { mainObject.remember('connect') });"
            "popupWarning.aboutToHide.connect(function() { mainObject.remember('warning') })");
    if (way.isEmpty())
        emit facade->autoConnectResult("OK");
    else
        h->click(way);
    QCOMPARE(facade->seen, order);
}

void TestWindow::pressOnConnectClosesItsPanel()
{
    h->click("btnConnect");
    QVERIFY(h->standsOpen("popupConnect"));
    QCOMPARE(h->face("btnConnect"), QStringLiteral("btn_p_connect_dashboard"));
    facade->forget();
    h->click("btnConnect");
    QVERIFY(h->standsClosed("popupConnect"));
    QVERIFY(!h->flag("btnConnectClicked"));
    QCOMPARE(h->face("btnConnect"), QStringLiteral("btn_n_connect_dashboard"));
    QCOMPARE(facade->callsOf("connectPopup"), QStringList());
    h->click("btnConnect");
    QVERIFY(h->standsOpen("popupConnect"));
    QCOMPARE(facade->callsOf("connectPopup"), QStringList("connectPopup(0, 0)"));
}

void TestWindow::titleIsFixed()
{
    emit facade->showVersion("9.99", "8.88", "7.77");
    QCOMPARE(h->text("txtFWVersion.text"), QStringLiteral("v9.99"));
    QCOMPARE(h->window->title(), QStringLiteral("QKV-720 v1.6.7"));
}

void TestWindow::escapeClosesTheWarningAlone_data()
{
    QTest::addColumn<bool>("masked");
    QTest::newRow("with the mask") << true;
    QTest::newRow("without the mask") << false;
}

void TestWindow::escapeClosesTheWarningAlone()
{
    QFETCH(bool, masked);
    if (!masked)
        CHECKED(connectUnit());
    emit facade->warning("Disconnected");
    QVERIFY(h->standsOpen("popupWarning"));
    // A press beside it does nothing.
    h->clickAt(QPoint(20, 700));
    QTest::qWait(400);
    QVERIFY(h->flag("popupWarning.opened"));
    QTest::keyClick(h->window, Qt::Key_Escape);
    QVERIFY(h->standsClosed("popupWarning"));
    QCOMPARE(h->flag("popupMask.opened"), masked);
    QTest::keyClick(h->window, Qt::Key_Escape);
    QTest::qWait(400);
    QCOMPARE(h->flag("popupMask.opened"), masked);
}

void TestWindow::otherNotifierDoesNothing()
{
    h->eval("notifier = 2; countDown = 0; msgConnect.text = 'as it was'; notifyTimer.interval = 20;"
            "notifyTimer.start()");
    QTest::qWait(200);
    QVERIFY(h->flag("notifyTimer.running"));
    QCOMPARE(h->text("msgConnect.text"), QStringLiteral("as it was"));
    QVERIFY(!h->flag("popupConnect.visible"));
    h->eval("notifier = 1");
    QVERIFY(h->standsOpen("popupConnect"));
    QCOMPARE(h->text("msgConnect.text"), QStringLiteral("Disconnected"));
}

void TestWindow::outsideResolutionShowsTheFirstRow()
{
    emit facade->showVout(20, 0, 0);
    QCOMPARE(h->number("comboSetupVOutRes.currentIndex"), 14);
    emit facade->showVout(3, 0, 0);
    QCOMPARE(h->number("comboSetupVOutRes.currentIndex"), 0);
    QCOMPARE(h->text("comboSetupVOutRes.displayText"), QStringLiteral("1080i50"));
}

void TestWindow::manualFormatSwitchesAutomaticOff()
{
    emit facade->showVout(20, 0, 1);
    QVERIFY(h->flag("autoOutputRes"));
    QVERIFY(!h->flag("comboSetupVOutRes.enabled"));
    emit facade->showVout(20, 0, 0);
    QVERIFY(!h->flag("autoOutputRes"));
    QVERIFY(h->flag("comboSetupVOutRes.enabled"));
    QCOMPARE(h->face("imgSetupAutoOutRes"), QStringLiteral("btn_switch_off_dashboard"));
}

void TestWindow::resolutionLists()
{
    const QString texts =
        "None PAL NTSC 720p50 720p59.94 720p60 1080i50 1080i59.94 1080i60 1080p23.98 1080p24 1080p25 "
        "1080p29.97 1080p30 1080p50 1080p59.94 1080p60 2160p23.98 2160p24 2160p25 2160p29.97 2160p30 2160p50 "
        "2160p59.94 2160p60 2160wp23.98 2160wp24 2160wp25 2160wp29.97 2160wp30 2160wp50 2160wp59.94 2160wp60";
    QStringList all = texts.split(QLatin1Char(' '));
    const QString rows = QStringLiteral("(function(list) { var rows = [];"
                                        "for (var i = 0; i < list.count; ++i)"
                                        "rows.push(list.get(i).modelData + '=' + list.get(i).value);"
                                        "return rows.join(' ') })(%1)");
    for (int i = 0; i < all.size(); ++i)
        all[i] += QStringLiteral("=%1").arg(i);
    QCOMPARE(h->text(rows.arg("listResolution")), all.join(QLatin1Char(' ')));
    QStringList outputs = all.mid(6, 19);
    outputs.last() = QStringLiteral("2160pP60=24");
    QCOMPARE(h->text(rows.arg("listOutputResolution")), outputs.join(QLatin1Char(' ')));
}

void TestWindow::languageEntries()
{
    const QStringList names{QStringLiteral("English"), QStringLiteral("繁中"), QStringLiteral("简中")};
    const QStringList codes{"en_US", "zh_TW", "zh_CN"};
    QCOMPARE(h->number("comboMainLanguage.count"), 3);
    for (int i : {1, 2, 0}) {
        h->choose("comboMainLanguage", i);
        QCOMPARE(h->text("comboMainLanguage.displayText"), names.at(i));
        QCOMPARE(h->translator.currentLanguage(), codes.at(i));
    }
}

void TestWindow::rowsOfTheForm_data()
{
    QTest::addColumn<QString>("label");
    QTest::addColumn<QString>("control");
    QTest::newRow("interface") << "Interface"
                               << "comboConnectInterface";
    QTest::newRow("port") << "EtherNetCard"
                          << "comboConnectComPort";
    QTest::newRow("unit") << "IP Select"
                          << "comboIPSelect";
    QTest::newRow("name") << "Host Name"
                          << "txtHostname";
    QTest::newRow("mac") << "Mac Address"
                         << "txtMacaddr";
    QTest::newRow("mode") << "Address Mode"
                          << "comboAddrmode";
    QTest::newRow("address") << "IP Address"
                             << "txtIPAddr";
    QTest::newRow("mask") << "Network Mask"
                          << "txtNetmask";
    QTest::newRow("gateway") << "Gateway"
                             << "txtGateway";
    QTest::newRow("first dns") << "Primary DNS"
                               << "txtPrimdns";
    QTest::newRow("second dns") << "Secondary DNS"
                                << "txtSecdns";
}

// The label stands left of its control, on its line.
void TestWindow::rowsOfTheForm()
{
    QFETCH(QString, label);
    QFETCH(QString, control);
    h->click("btnConnect");
    QVERIFY(h->standsOpen("popupConnect"));
    const QPoint place = h->corner(control);
    QVector<QPoint> found;
    for (const QQuickItem *item : h->item("connectForm")->findChildren<QQuickItem *>()) {
        if (item->property("text").toString() == label && item->isVisible())
            found << item->mapToScene(QPointF(0, 0)).toPoint();
    }
    QCOMPARE(found.size(), 1);
    QCOMPARE(found.constFirst(), QPoint(place.x() - 170, place.y()));
}

void TestWindow::panelLogsItsReports()
{
    Messages::logs().clear();
    emit facade->refreshConnection(1, "COM3", facade->adapters.at(1), false, "10.0.5.9", "A", "M", "G", "N",
                                   "P", "S");
    emit facade->refreshConnection(2, "ttyUSB0", "none", true, "10.0.5.9", "A", "M", "G", "N", "P", "S");
    emit facade->refreshConnectionData(999, "na", false, "A", "10.0.5.9", "M", "G", "N", "P", "S");
    emit facade->markHLNPDataRed(0);
    const QStringList expected{"onRefreshConnection 1: 1 COM3 [10.0.5.7] wlan0 false 10.0.5.9 A M G N P S",
                               "onRefreshConnection 2 1",
                               "onRefreshConnection 3: 1",
                               "onRefreshConnection 1: 2 ttyUSB0 none true 10.0.5.9 A M G N P S",
                               "onRefreshConnection 2 2",
                               "onRefreshConnection 4: 1",
                               "onRefreshConnectionData: -1 999 na false A 10.0.5.9",
                               "onMarkHLNPDataRed"};
    QCOMPARE(Messages::logs(), expected);
}

void TestWindow::panelLogsConnectAndSave()
{
    h->click("btnConnect");
    QVERIFY(h->standsOpen("popupConnect"));
    emit facade->refreshConnectionData(999, "na", false, "A", "10.1.1.9", "M", "G", "N", "P", "S");
    const auto linesOf = [this](const char *button) {
        Messages::logs().clear();
        h->click(button);
        return Messages::logs();
    };
    QCOMPARE(linesOf("btnConnectConnect"), QStringList{"ip vs card= 192.168.72. 10.1.1.9"});
    emit facade->refreshConnectionData(999, "na", false, "A", "192.168.72.9", "M", "G", "N", "P", "S");
    facade->connectResult = "Ethernet not Connected!";
    QCOMPARE(linesOf("btnConnectConnect"), QStringList{"device connect: Ethernet not Connected!"});
    h->eval("didScan = true");
    const QString port = "comboConnectComPort.currentText= [192.168.72.10] enp3s0";
    QCOMPARE(linesOf("btnConnectSave"), (QStringList{port, "Not doing reboot!"}));
    // What is refused before the call has no second line, and the press none at all.
    h->eval("txtMacaddr.text = ''");
    Messages::logs().clear();
    h->press("btnConnectSave");
    QCOMPARE(Messages::logs(), QStringList());
    h->release("btnConnectSave");
    QCOMPARE(Messages::logs(), QStringList{port});
    // The serial link tells its result on the screen alone.
    h->choose("comboConnectInterface", 1);
    QCOMPARE(linesOf("btnConnectConnect"), QStringList());
    QCOMPARE(h->text("msgConnect.text"), QStringLiteral("Ethernet not Connected!"));
}

void TestWindow::spinnerTurns()
{
    h->eval("maskBusyTimer.stop(); maskbusy.visible = true; maskbusy.running = true");
    // The arrow moves as well, but stands elsewhere. The turn is the renderer's: the item does not tell it.
    const auto spinner = [this] { return h->grab("spinner").copy(633, 334, 100, 148); };
    const QImage first = spinner();
    QVERIFY(!first.isNull());
    QTRY_VERIFY(spinner() != first);
    h->eval("maskbusy.running = false");
    QTest::qWait(500);
    const QImage still = spinner();
    QTest::qWait(300);
    QCOMPARE(spinner(), still);
}

QTEST_MAIN(TestWindow)
#include "tst_window.moc"
