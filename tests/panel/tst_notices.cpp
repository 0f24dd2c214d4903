#include "connectionbench.h"

// How a link ends on the screen: the count-down of a disconnect, and the warning of a lost one.
class TestNotices : public ConnectionBench
{
    Q_OBJECT

private slots:
    void init() { ConnectionBench::init(); }
    void cleanup() { ConnectionBench::cleanup(); }
    void disconnectCountsSixTicks();
    void disconnectWithoutLinkDoesNothing();
    void warningOpensOnlyForALostLink();
    void reconnect();
    void reconnectRefused();
    void configOpensThePanelOverTheWarning();
};

void TestNotices::disconnectCountsSixTicks()
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

void TestNotices::disconnectWithoutLinkDoesNothing()
{
    CHECKED(openPanel());
    h->click("btnConnectDisconnect");
    QCOMPARE(facade->calls, QStringList("isConnected()"));
    QVERIFY(!h->flag("notifyTimer.running"));
    QVERIFY(h->flag("popupConnect.opened"));
}

void TestNotices::warningOpensOnlyForALostLink()
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

void TestNotices::reconnect()
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

void TestNotices::reconnectRefused()
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

void TestNotices::configOpensThePanelOverTheWarning()
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

QTEST_MAIN(TestNotices)
#include "tst_notices.moc"
