#include "panelfacade.h"
#include "panelharness.h"

// Where the parts of the window stand, in each language; how each state looks, the pictures themselves tell.
class TestLook : public QObject
{
    Q_OBJECT

private slots:
    void startsWithMask();
    void standsWhereThePicturesExpect();
    void keepsAGroundWhileItsPopupIsSeen();
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
    h.click("comboMainLanguage");
    QVERIFY(h.standsOpen("comboMainLanguage.popup"));
    // As high as its three rows, over the mask.
    QCOMPARE(h.number("comboMainLanguage.popup.height"), 122);
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
        QTest::qWait(50); // rows and columns lay themselves out with the next frame
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
