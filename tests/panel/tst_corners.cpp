#include "panelfacade.h"
#include "panelharness.h"
#include "tests/support/checked.h"

// Corners of the window that an operator gets to: blank combos, emptied fields, the keyboard under the mask, and
// reports that nobody sees.
class TestCorners : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void blankRoutingStaysBlankOverALanguageSwitch();
    void pressOfScanAsksForNoUnit();
    void markGoesWithTheText();
    void tabStaysOutsideTheMask_data();
    void tabStaysOutsideTheMask();
    void tabIsFreeWithoutTheMask();
    void reportUnseenLetsThePollGoOn();
    void reportUnderTheOpenPanelHoldsThePoll();
    void reportWithoutLinkStartsNoPoll();

private:
    void connectUnit();
    bool focusIn(const char *id) const;

    std::unique_ptr<PanelFacade> facade;
    std::unique_ptr<PanelHarness> h;
};

void TestCorners::init()
{
    facade = std::make_unique<PanelFacade>();
    h = std::make_unique<PanelHarness>(facade.get());
    QVERIFY(h->show());
    QVERIFY(h->standsOpen("popupMask"));
    facade->forget();
}

void TestCorners::cleanup()
{
    QCOMPARE(Messages::warnings(), QStringList());
    h.reset();
    facade.reset();
}

void TestCorners::connectUnit()
{
    facade->connected = true;
    emit facade->autoConnectResult("OK");
    QVERIFY(h->standsClosed("popupMask"));
    facade->forget();
}

bool TestCorners::focusIn(const char *id) const
{
    const QQuickItem *outer = h->item(id);
    for (const QQuickItem *item = h->window->activeFocusItem(); item; item = item->parentItem()) {
        if (item == outer)
            return true;
    }
    return false;
}

void TestCorners::blankRoutingStaysBlankOverALanguageSwitch()
{
    CHECKED(connectUnit());
    emit facade->refreshOutputSourcePGM(0, false, false);
    emit facade->refreshOutputSourcePVW(4, false, false);
    for (const char *language : {"zh_TW", "zh_CN", "en_US"}) {
        emit facade->refreshLanguage(language);
        QCOMPARE(h->number("comboPgmSdiOutput.currentIndex"), -1);
        QCOMPARE(h->text("comboPgmSdiOutput.displayText"), QString());
        QCOMPARE(h->number("comboPvwOutput.currentIndex"), 3);
    }
    facade->forget();
    h->click("checkboxPVW");
    QCOMPARE(facade->calls,
             QStringList("setOutSelect(0, false, false, 4, false, true, 1, false, false, 4, "
                         "false, true)"));
}

void TestCorners::pressOfScanAsksForNoUnit()
{
    h->click("btnConnect");
    QVERIFY(h->standsOpen("popupConnect"));
    facade->units = facade->unitsAfterScan;
    emit facade->refreshIPSelectList(facade->units);
    h->choose("comboIPSelect", 1);
    QCOMPARE(facade->callsOf("getHLNPDeviceInfo").constLast(), QStringLiteral("getHLNPDeviceInfo(1)"));
    facade->forget();
    h->press("imgConnectScan");
    QCOMPARE(h->text("comboIPSelect.currentText"), QString());
    QCOMPARE(facade->calls, QStringList());
    h->release("imgConnectScan");
    QCOMPARE(facade->calls, QStringList({"hlnpScan(scan, 0)", "getHLNPDeviceInfo(0)"}));
}

void TestCorners::markGoesWithTheText()
{
    h->click("btnConnect");
    QVERIFY(h->standsOpen("popupConnect"));
    emit facade->refreshConnectionData(999, "na", false, "QKV_720_A", "192.168.73.128", "00:1E:C0:5A:07:20",
                                       "192.168.72.254", "255.255.255.0", "192.168.72.1", "8.8.8.8");
    emit facade->markHLNPDataRed(3);
    for (const QString &field : QStringList{"txtGateway", "txtIPAddr"}) {
        QVERIFY(h->flag(field + ".marked"));
        h->click(field);
        QTest::keySequence(h->window, QKeySequence::SelectAll);
        QTest::keyClick(h->window, Qt::Key_Delete);
        QCOMPARE(h->text(field + ".text"), QString());
        QVERIFY(!h->flag(field + ".marked"));
        QTest::keyClick(h->window, Qt::Key_1);
        QVERIFY(h->flag(field + ".marked"));
    }
}

void TestCorners::tabStaysOutsideTheMask_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("forwards") << int(Qt::Key_Tab);
    QTest::newRow("backwards") << int(Qt::Key_Backtab);
}

void TestCorners::tabStaysOutsideTheMask()
{
    QFETCH(int, key);
    h->choose("comboMainLanguage", 1);
    bool reachedConnect = false;
    for (int i = 0; i < 40; ++i) {
        QTest::keyClick(h->window, Qt::Key(key));
        QVERIFY2(focusIn("recHeader"), qPrintable(QStringLiteral("after %1 steps").arg(i + 1)));
        reachedConnect = reachedConnect || focusIn("btnConnect");
    }
    QVERIFY(reachedConnect);
}

void TestCorners::tabIsFreeWithoutTheMask()
{
    CHECKED(connectUnit());
    h->choose("comboMainLanguage", 1);
    bool left = false;
    for (int i = 0; i < 5; ++i) {
        QTest::keyClick(h->window, Qt::Key_Tab);
        left = left || !focusIn("recHeader");
    }
    QVERIFY(left);
}

void TestCorners::reportUnseenLetsThePollGoOn()
{
    CHECKED(connectUnit());
    emit facade->showVout(20, 2, 0);
    QCOMPARE(h->number("comboSetupVOutRes.currentIndex"), 14);
    QCOMPARE(facade->callsOf("setRefreshTimer").constLast(), QStringLiteral("setRefreshTimer(true)"));
    facade->forget();
    // Nothing moved, so nothing was held.
    emit facade->showVout(20, 2, 0);
    QCOMPARE(facade->callsOf("setRefreshTimer"), QStringList());
}

void TestCorners::reportUnderTheOpenPanelHoldsThePoll()
{
    CHECKED(connectUnit());
    h->click("btnSetup");
    QVERIFY(h->standsOpen("popupSetup"));
    facade->forget();
    emit facade->showVout(20, 2, 0);
    QCOMPARE(facade->callsOf("setRefreshTimer"),
             QStringList({"setRefreshTimer(false)", "setRefreshTimer(false)"}));
}

void TestCorners::reportWithoutLinkStartsNoPoll()
{
    CHECKED(connectUnit());
    facade->connected = false;
    emit facade->showVout(20, 0, 0);
    QCOMPARE(facade->callsOf("setRefreshTimer"), QStringList("setRefreshTimer(false)"));
}

QTEST_MAIN(TestCorners)
#include "tst_corners.moc"
