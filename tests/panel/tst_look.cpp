#include "panelfacade.h"
#include "panelharness.h"

// Each state of the window in each language: it draws, it warns of nothing, and its parts stand where the
// pictures expect them. With PICTURES_TO set the pictures are kept for a look by eye.
class TestLook : public QObject
{
    Q_OBJECT

private slots:
    void startsWithMask();
    void standsWhereThePicturesExpect();
    void keepsAGroundWhileItsPopupIsSeen();
    void drawsEveryState_data();
    void drawsEveryState();
    void movesOnlyTheWords();
    void twoGrabsOfAStillScreenAreEqual();
};

void TestLook::startsWithMask()
{
    PanelFacade facade;
    PanelHarness h(&facade);
    QVERIFY(h.show());
    QVERIFY(h.standsOpen("popupMask"));
    QVERIFY(h.flag("maskbusy.visible"));
    QTRY_VERIFY(!h.flag("maskbusy.visible"));
    QVERIFY(!h.grab("start").isNull());
    h.click("comboMainLanguage");
    QVERIFY(h.standsOpen("comboMainLanguage.popup"));
    // As high as its three rows, over the mask.
    QCOMPARE(h.number("comboMainLanguage.popup.height"), 122);
    QVERIFY(!h.grab("start-languages").isNull());
    QCOMPARE(Messages::warnings(), QStringList());
}

void TestLook::standsWhereThePicturesExpect()
{
    PanelFacade facade;
    PanelHarness h(&facade);
    QVERIFY(h.show());
    QVERIFY(h.standsOpen("popupMask"));
    QCOMPARE(h.corner("btnConnect"), QPoint(1187, 6));
    QCOMPARE(h.corner("btnSetup"), QPoint(1227, 6));
    QCOMPARE(h.corner("comboMainLanguage"), QPoint(1273, 6));
    QCOMPARE(h.corner("comboPgmSdiOutput"), QPoint(186, 100));
    QCOMPARE(h.corner("checkboxPGMHDMI"), QPoint(571, 100));
    QCOMPARE(h.corner("btnLockPVW"), QPoint(936, 100));
    QCOMPARE(h.corner("outputMemoryLoad"), QPoint(1131, 100));
    QCOMPARE(h.corner("outputMemoryLock"), QPoint(1271, 100));
    QCOMPARE(h.corner("menuAuxLumakey"), QPoint(10, 448));
    // Half scale: the tip of the arrow stands under the middle of Connect.
    QCOMPARE(h.item("guideArrow")->mapToScene(QPointF(30, 0)).toPoint(), QPoint(1207, 48));
    h.click("btnConnect");
    QVERIFY(h.standsOpen("popupConnect"));
    QCOMPARE(h.corner("connectForm"), QPoint(353, 24));
    h.eval("popupConnect.close()");
    QVERIFY(h.standsClosed("popupConnect"));
    h.eval("popupSetup.open()");
    QVERIFY(h.standsOpen("popupSetup"));
    QCOMPARE(h.corner("setupForm"), QPoint(433, 159));
    QCOMPARE(h.corner("comboSetupVOutOutputFormat"), QPoint(673, 335));
    h.eval("popupSetupSaveFinished.open()");
    QVERIFY(h.standsOpen("popupSetupSaveFinished"));
    QCOMPARE(h.corner("btnSetupSaveFinished"), QPoint(628, 446));
}

// The grounds are large, and most popups stay closed for a whole run. A popup has its size before its ground comes.
void TestLook::keepsAGroundWhileItsPopupIsSeen()
{
    PanelFacade facade;
    PanelHarness h(&facade);
    QVERIFY(h.show());
    // Each before the one in it, which opens in it.
    const QStringList popups{
        "popupWarning",        "popupConnect",           "popupDisConnect",       "popupSetup",
        "popupFactoryDefault", "popupSetupSaveFinished", "popupSetupFactoryReset"};
    for (const QString &popup : popups) {
        const QString ground = popup + QStringLiteral(".contentItem");
        QCOMPARE(h.text(ground + QStringLiteral(".source")), QString());
        const QSize closed(h.number(popup + QStringLiteral(".width")),
                           h.number(popup + QStringLiteral(".height")));
        h.eval(popup + QStringLiteral(".open()"));
        QVERIFY2(h.standsOpen(popup), qPrintable(popup));
        QCOMPARE(QSize(h.number(ground + QStringLiteral(".implicitWidth")),
                       h.number(ground + QStringLiteral(".implicitHeight"))),
                 closed);
    }
    for (const QString &popup : popups) {
        h.eval(popup + QStringLiteral(".close()"));
        QVERIFY2(h.standsClosed(popup), qPrintable(popup));
        QCOMPARE(h.text(popup + QStringLiteral(".contentItem.source")), QString());
    }
}

void TestLook::drawsEveryState_data()
{
    QTest::addColumn<QString>("language");
    for (const char *language : {"en_US", "zh_TW", "zh_CN"})
        QTest::newRow(language) << language;
}

void TestLook::drawsEveryState()
{
    QFETCH(QString, language);
    PanelFacade facade;
    PanelHarness h(&facade);
    QVERIFY(h.show());
    emit facade.refreshLanguage(language);
    QVERIFY(h.standsOpen("popupMask"));
    h.click("btnConnect");
    QVERIFY(h.standsOpen("popupConnect"));
    facade.units = facade.unitsAfterScan;
    emit facade.refreshIPSelectList(facade.units);
    emit facade.refreshConnectionData(999, "na", false, "QKV_720_A", "192.168.72.128", "00:1E:C0:5A:07:20",
                                      "192.168.72.254", "255.255.255.0", "192.168.72.1", "8.8.8.8");
    emit facade.markHLNPDataRed(3);
    emit facade.autoConnectResult("Saved device info is not match.\nPlease scan again to refresh.");
    QVERIFY(!h.grab(language + "-connect-red").isNull());
    emit facade.markHLNPDataRed(0);
    emit facade.refreshConnectionData(999, "na", true, "QKV_720_A", "192.168.73.128", "00:1E:C0:5A:07:20",
                                      "192.168.72.254", "255.255.255.0", "192.168.72.1", "8.8.8.8");
    h.press("btnConnectConnect");
    QVERIFY(!h.grab(language + "-connect-outside").isNull());
    h.release("btnConnectConnect");
    QVERIFY(!h.grab(language + "-connect-refused").isNull());
    h.click("comboConnectComPort");
    QVERIFY(h.standsOpen("comboConnectComPort.popup"));
    QVERIFY(!h.grab(language + "-connect-list").isNull());
    h.eval("comboConnectComPort.popup.close()");
    QVERIFY(h.standsClosed("comboConnectComPort.popup"));
    h.eval("comboConnectInterface.currentIndex = 1");
    QVERIFY(!h.grab(language + "-connect-serial").isNull());
    emit facade.warning(h.text("qsTr('Disconnected')"));
    QVERIFY(h.standsOpen("popupWarning"));
    QVERIFY(!h.grab(language + "-warning").isNull());
    emit facade.autoConnectResult("OK");
    QVERIFY(h.standsClosed("popupMask"));
    emit facade.refreshOutputSourcePGM(6, false, true);
    emit facade.refreshOutputSourcePGMHDMI(6, false, false);
    emit facade.refreshOutputSourcePVW(4, true, false);
    emit facade.refreshUserMemory(3);
    h.click("outputMemoryLock");
    h.press("outputMemoryLoad");
    h.release("outputMemoryLoad");
    QVERIFY(!h.grab(language + "-band").isNull());
    h.click("btnSetup");
    QVERIFY(h.standsOpen("popupSetup"));
    QVERIFY(!h.grab(language + "-setup").isNull());
    h.eval("popupFactoryDefault.open()");
    QVERIFY(h.standsOpen("popupFactoryDefault"));
    QVERIFY(!h.grab(language + "-factory").isNull());
    h.click("btnFactoryReset");
    QVERIFY(h.standsOpen("popupSetupFactoryReset"));
    QVERIFY(!h.grab(language + "-reset").isNull());
    h.click("btnSetupFactoryReset");
    h.click("btnSetupSave");
    QVERIFY(h.standsOpen("popupSetupSaveFinished"));
    QVERIFY(!h.grab(language + "-saved").isNull());
    h.click("btnSetupSaveFinished");
    h.eval("popupSetup.close()");
    QVERIFY(h.standsClosed("popupSetup"));
    facade.connected = true;
    h.click("btnConnect");
    QVERIFY(h.standsOpen("popupConnect"));
    h.click("btnConnectDisconnect");
    QTest::qWait(1500);
    QVERIFY(!h.grab(language + "-disconnected").isNull());
    QCOMPARE(Messages::warnings(), QStringList());
}

void TestLook::movesOnlyTheWords()
{
    PanelFacade facade;
    PanelHarness h(&facade);
    QVERIFY(h.show());
    const QStringList ids = {
        "comboPgmSdiOutput", "checkboxPGMSDI",   "btnLockPGMSDI",       "comboPvwOutput",    "btnLockPVW",
        "comboUserMem",      "outputMemoryLoad", "outputMemoryLock",    "menuInput",         "menuAuxLumakey",
        "txtIPAddr",         "comboAddrmode",    "btnConnectSave",      "comboSetupVOutRes", "btnSetupSave",
        "btnFactoryReset",   "btnWarningConfig", "btnSetupSaveFinished"};
    QStringList english;
    for (const QString &language : QStringList{"en_US", "zh_TW", "zh_CN"}) {
        emit facade.refreshLanguage(language);
        QStringList places;
        for (const QString &id : ids) {
            const QPoint place = h.corner(id);
            const QQuickItem *item = h.item(id);
            places << QStringLiteral("%1 %2,%3 %4x%5")
                          .arg(id)
                          .arg(place.x())
                          .arg(place.y())
                          .arg(item->width())
                          .arg(item->height());
        }
        if (english.isEmpty())
            english = places;
        QCOMPARE(places, english);
    }
}

void TestLook::twoGrabsOfAStillScreenAreEqual()
{
    PanelFacade facade;
    PanelHarness h(&facade);
    QVERIFY(h.show());
    emit facade.autoConnectResult("OK");
    QVERIFY(h.standsClosed("popupMask"));
    QTest::qWait(400);
    const QImage first = h.grab("still");
    QVERIFY(!first.isNull());
    QTest::qWait(300);
    QCOMPARE(h.grab("still"), first);
}

QTEST_MAIN(TestLook)
#include "tst_look.moc"
