#include "operations.h"
#include "tests/support/checked.h"

// The keys that are no plain press of a control, and what the pointer shows.
class TestKeys : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void enterOpensConnectUnderTheMask();
    void functionKeysOpenThePanels();
    void numbersBringPages();
    void shortcutsRestUnderMaskAndPopups();
    void maskKeepsTheKeyboard_data();
    void maskKeepsTheKeyboard();
    void hiddenControlHearsNoKey();
    void deadChoiceHearsNoKey();
    void heldKeyIsOnePress();
    void heldEnterCommitsOnce();
    void heldShortcutIsOne();
    void leavingWhileHeldIsNoClick();
    void sliderKeys();
    void padKeys();
    void heldArrowIsPacedLikeADrag();
    void heldArrowEndsWithTheFocus();
    void padEnterIsOkAndEscapeLeavesTheCursor();
    void hoverShowsWhatCanBePressed();
    void hoverRestsUnderPopupsAndWhileHeld();

private:
    QQuickItem *item(const char *id) const { return w->panel.item(QString::fromLatin1(id)); }
    void point(QQuickItem *target);

    std::unique_ptr<Workplace> w;
};

void TestKeys::init()
{
    w = std::make_unique<Workplace>();
}

void TestKeys::cleanup()
{
    QCOMPARE(Messages::warnings(), QStringList());
    w.reset();
}

void TestKeys::enterOpensConnectUnderTheMask()
{
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_F2}) {
        w->enter("start");
        QVERIFY(w->panel.flag("popupMask.opened"));
        w->facade.forget();
        w->key(key);
        QVERIFY(w->panel.standsOpen("popupConnect"));
        QCOMPARE(w->facade.calls, QStringList("connectPopup(0, 0)"));
        QCOMPARE(w->panel.face("btnConnect"), QStringLiteral("btn_p_connect_dashboard"));
    }
}

void TestKeys::functionKeysOpenThePanels()
{
    w->enter("start");
    w->key(Qt::Key_F3);
    QTest::qWait(50);
    QVERIFY(!w->panel.flag("popupSetup.visible"));
    w->enter("window");
    w->key(Qt::Key_F3);
    QVERIFY(w->panel.standsOpen("popupSetup"));
    QVERIFY(w->panel.flag("btnSetupClicked"));
    // The panel is modal: the header is not to be had under it.
    w->key(Qt::Key_F2);
    QTest::qWait(50);
    QVERIFY(!w->panel.flag("popupConnect.visible"));
    w->key(Qt::Key_Escape);
    QVERIFY(w->panel.standsClosed("popupSetup"));
    w->key(Qt::Key_F2);
    QVERIFY(w->panel.standsOpen("popupConnect"));
}

void TestKeys::numbersBringPages()
{
    w->enter("window");
    const QStringList pages{"pageIN", "pageCK", "pagePP", "pageGM", "pageHW", "pageAL"};
    for (const int page : {2, 3, 4, 5, 6, 1}) {
        w->facade.forget();
        w->key(Qt::Key(Qt::Key_0 + page), Qt::ControlModifier);
        QCOMPARE(w->facade.calls, QStringList(QStringLiteral("setCurrentPage(%1)").arg(page)));
        QVERIFY(w->panel.flag(pages.at(page - 1) + ".visible"));
        // The keyboard is at the page's first control, and is seen there.
        QTRY_VERIFY(w->ring());
        QVERIFY2(w->panel.item(pages.at(page - 1))->isAncestorOf(w->focused()),
                 qPrintable(Workplace::nameOf(w->focused())));
    }
}

void TestKeys::shortcutsRestUnderMaskAndPopups()
{
    for (const char *place : {"start", "connect", "setup", "warning", "picker"}) {
        w->enter(place);
        const int page = w->panel.number("tabPageID");
        w->key(page == 4 ? Qt::Key_5 : Qt::Key_4, Qt::ControlModifier);
        w->key(Qt::Key_F3);
        QTest::qWait(30);
        QCOMPARE(w->panel.number("tabPageID"), page);
        QCOMPARE(w->facade.calls, QStringList());
    }
}

void TestKeys::maskKeepsTheKeyboard_data()
{
    QTest::addColumn<QString>("opening");
    QTest::addColumn<QString>("notice");
    QTest::newRow("disconnected by hand")
        << "popupConnect.open(); popupMask.open(); popupDisConnect.open(); popupConnect.close()"
        << "popupDisConnect";
    QTest::newRow("lost while connecting")
        << "popupMask.open(); popupConnect.open(); popupConnect.close(); popupWarning.open()"
        << "popupWarning";
}

// A notice over the mask is closed: what lies under the mask must not be reached from nowhere.
void TestKeys::maskKeepsTheKeyboard()
{
    QFETCH(QString, opening);
    QFETCH(QString, notice);
    for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Backtab, Qt::Key_Return}) {
        w->enter("window");
        w->focus(item("outputMemoryLoad"));
        w->panel.eval(opening);
        QVERIFY(w->panel.standsOpen(notice));
        w->key(Qt::Key_Escape);
        QVERIFY(w->panel.standsClosed(notice));
        QVERIFY(w->panel.flag("popupMask.visible"));
        for (int i = 0; i < 5 && key != Qt::Key_Return; ++i) {
            w->key(key);
            QVERIFY2(item("recHeader")->isAncestorOf(w->focused()),
                     qPrintable(Workplace::nameOf(w->focused())));
        }
    }
    w->key(Qt::Key_Return);
    QVERIFY(w->panel.standsOpen("popupConnect"));
}

// The mouse changes the page and leaves the keyboard in a field that is no longer seen.
void TestKeys::hiddenControlHearsNoKey()
{
    w->enter("garbage mask");
    w->panel.click(item("pageGM.windowLeft.itemText"));
    w->panel.click(item("menuInput"));
    w->facade.forget();
    for (const Qt::Key key : {Qt::Key_1, Qt::Key_2, Qt::Key_Return})
        w->key(key);
    QCOMPARE(w->calls(), QStringList());
    QCOMPARE(w->panel.text("pageGM.windowLeft.textValue"), QStringLiteral("110"));
}

// What the unit reports may switch the key off while the keyboard stands at its choices.
void TestKeys::deadChoiceHearsNoKey()
{
    w->enter("aux lumakey");
    w->focus(item("pageAL.btnAuxLumakeyKeymodeWhiteImage.parent"));
    emit w->facade.refreshLumaKey(false, 0, 10, 20, 0, 5, 80);
    w->calls();
    w->facade.forget();
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return})
        w->key(key);
    QCOMPARE(w->calls(), QStringList());
    QCOMPARE(w->panel.face("pageAL.btnAuxLumakeyKeymodeWhiteImage"), QStringLiteral("btn_d_radio_lumakey"));
}

void TestKeys::heldKeyIsOnePress()
{
    w->enter("window");
    const auto hold = [this](const char *id, Qt::Key key) {
        w->focus(item(id));
        w->facade.forget();
        QTest::keyPress(w->panel.window, key);
        for (int i = 0; i < 5; ++i) {
            QKeyEvent up(QEvent::KeyRelease, key, Qt::NoModifier, QString(), true);
            QKeyEvent down(QEvent::KeyPress, key, Qt::NoModifier, QString(), true);
            QCoreApplication::sendEvent(w->panel.window, &up);
            QCoreApplication::sendEvent(w->panel.window, &down);
        }
        const bool pressed = item(id)->property("pressed").toBool();
        QTest::keyRelease(w->panel.window, key);
        return pressed;
    };
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return}) {
        QVERIFY(hold("pageIN.btnGenlockReset", key));
        QCOMPARE(w->facade.calls, QStringList("resetGenlock()"));
        QVERIFY(hold("outputMemoryLoad", key));
        QCOMPARE(w->facade.calls, QStringList("loadMemory(3)"));
    }
}

// Each commit of a number is an exchange with the unit that blocks the panel.
void TestKeys::heldEnterCommitsOnce()
{
    w->enter("garbage mask");
    w->focus(item("pageGM.windowLeft.itemText"));
    w->panel.eval("pageGM.windowLeft.itemText.text = '123'");
    w->key(Qt::Key_Return);
    const QStringList once = w->calls();
    QVERIFY(!once.isEmpty());
    w->panel.eval("pageGM.windowLeft.sliderValue = 110");
    w->calls();
    w->facade.forget();
    w->panel.eval("pageGM.windowLeft.itemText.text = '123'");
    for (const bool repeated : {false, true, true, true})
        QTest::simulateEvent(w->panel.window, true, Qt::Key_Return, Qt::NoModifier, QString(), repeated);
    QTest::keyRelease(w->panel.window, Qt::Key_Return);
    QCOMPARE(w->calls(), once);
}

void TestKeys::heldShortcutIsOne()
{
    w->enter("window");
    for (const bool repeated : {false, true, true, true})
        QTest::simulateEvent(w->panel.window, true, Qt::Key_4, Qt::ControlModifier, QString(), repeated);
    QTest::keyRelease(w->panel.window, Qt::Key_4, Qt::ControlModifier);
    QCOMPARE(w->facade.calls, QStringList("setCurrentPage(4)"));
}

void TestKeys::leavingWhileHeldIsNoClick()
{
    w->enter("window");
    QQuickItem *area = item("pageIN.imgFGFreeze")->childItems().constFirst();
    w->focus(area);
    w->facade.forget();
    QTest::keyPress(w->panel.window, Qt::Key_Space);
    QVERIFY(w->panel.flag("pageIN.imgFGFreeze.pressed"));
    w->key(Qt::Key_Tab);
    QVERIFY(!w->panel.flag("pageIN.imgFGFreeze.pressed"));
    QTest::keyRelease(w->panel.window, Qt::Key_Space);
    QCOMPARE(w->calls(), QStringList());
}

void TestKeys::sliderKeys()
{
    w->enter("garbage mask");
    QQuickItem *slider = item("pageGM.windowLeft.itemSlider");
    w->focus(slider);
    const QVector<QPair<Qt::Key, int>> steps{
        {Qt::Key_Right, 111},    {Qt::Key_Up, 112},       {Qt::Key_Left, 111},   {Qt::Key_Down, 110},
        {Qt::Key_PageUp, 120},   {Qt::Key_PageDown, 110}, {Qt::Key_End, 1000},   {Qt::Key_Right, 1000},
        {Qt::Key_PageDown, 990}, {Qt::Key_Home, 0},       {Qt::Key_PageDown, 0}, {Qt::Key_PageUp, 10}};
    for (const auto &step : steps) {
        const bool moves = slider->property("value").toInt() != step.second;
        w->facade.forget();
        w->key(step.first);
        QCOMPARE(slider->property("value").toInt(), step.second);
        QCOMPARE(w->calls().size(), moves ? 1 : 0);
    }
    QCOMPARE(w->facade.callsOf("setWindow"), QStringList("setWindow(true, 0, 10, 890, 120, 880, 15)"));
    // Several within the throttle are one command; no turn of the event loop is between them.
    w->facade.forget();
    for (int i = 0; i < 5; ++i) {
        QKeyEvent down(QEvent::KeyPress, Qt::Key_Right, Qt::NoModifier);
        QKeyEvent up(QEvent::KeyRelease, Qt::Key_Right, Qt::NoModifier);
        QCoreApplication::sendEvent(w->panel.window, &down);
        QCoreApplication::sendEvent(w->panel.window, &up);
    }
    QCOMPARE(w->calls(), QStringList("setWindow(true, 0, 15, 890, 120, 880, 15)"));
}

void TestKeys::padKeys()
{
    w->enter("picker");
    // The picker opens with the keyboard on the pad.
    QCOMPARE(w->focused(), item("pageCK.colorPickerMouseAreaItem"));
    const QVector<QPair<QKeySequence, QString>> steps{{Qt::Key_Right, "setCursorData(3, 1, 0)"},
                                                      {Qt::SHIFT + Qt::Key_Right, "setCursorData(3, 11, 0)"},
                                                      {Qt::Key_Left, "setCursorData(3, 10, 0)"},
                                                      {Qt::Key_Down, "setCursorData(3, 10, 1)"},
                                                      {Qt::SHIFT + Qt::Key_Down, "setCursorData(3, 10, 11)"},
                                                      {Qt::SHIFT + Qt::Key_Up, "setCursorData(3, 10, 1)"},
                                                      {Qt::SHIFT + Qt::Key_Up, "setCursorData(3, 10, 0)"},
                                                      {Qt::SHIFT + Qt::Key_Left, "setCursorData(3, 0, 0)"}};
    for (const auto &step : steps) {
        w->facade.forget();
        QTest::keySequence(w->panel.window, step.first);
        QCOMPARE(w->facade.calls, QStringList(step.second));
    }
    // At the edges there is nothing to send.
    w->facade.forget();
    w->key(Qt::Key_Left);
    w->key(Qt::Key_Up);
    QCOMPARE(w->facade.calls, QStringList());
    w->panel.eval("pageCK.colorPickerX = pageCK.xMax - 3; pageCK.colorPickerY = 0");
    w->key(Qt::Key_Right, Qt::ShiftModifier);
    QCOMPARE(w->facade.calls, QStringList("setCursorData(3, 1919, 0)"));
}

void TestKeys::heldArrowIsPacedLikeADrag()
{
    w->enter("picker");
    QTest::keyPress(w->panel.window, Qt::Key_Right);
    QCOMPARE(w->facade.calls, QStringList("setCursorData(3, 1, 0)"));
    w->facade.forget();
    for (int i = 0; i < 20; ++i) {
        QKeyEvent again(QEvent::KeyPress, Qt::Key_Right, Qt::NoModifier, QString(), true);
        QCoreApplication::sendEvent(w->panel.window, &again);
    }
    QCOMPARE(w->facade.calls, QStringList());
    // A busy machine may have come to the next turn of the timer by now, which sends the same.
    QTRY_VERIFY(!w->facade.calls.isEmpty());
    for (const QString &call : qAsConst(w->facade.calls))
        QCOMPARE(call, QStringLiteral("setCursorData(3, 21, 0)"));
    w->facade.forget();
    QTest::keyRelease(w->panel.window, Qt::Key_Right);
    QCOMPARE(w->facade.calls, QStringList("setCursorData(3, 21, 0)"));
    QTest::qWait(300);
    QCOMPARE(w->facade.calls.size(), 1);
}

// The release of the key is heard elsewhere then, and the commands must not go on without it.
void TestKeys::heldArrowEndsWithTheFocus()
{
    w->enter("picker");
    QTest::keyPress(w->panel.window, Qt::Key_Right);
    QKeyEvent again(QEvent::KeyPress, Qt::Key_Right, Qt::NoModifier, QString(), true);
    QCoreApplication::sendEvent(w->panel.window, &again);
    w->key(Qt::Key_Tab);
    QTest::keyRelease(w->panel.window, Qt::Key_Right);
    w->facade.forget();
    QTest::qWait(500);
    QCOMPARE(w->facade.calls, QStringList());
}

void TestKeys::padEnterIsOkAndEscapeLeavesTheCursor()
{
    w->enter("picker");
    w->key(Qt::Key_Right);
    w->facade.forget();
    w->key(Qt::Key_Escape);
    QTRY_VERIFY(!item("pageCK.colorPickerMouseAreaItem")->isVisible());
    QCOMPARE(w->facade.calls, QStringList());
    w->enter("picker");
    w->key(Qt::Key_Return);
    QTRY_VERIFY(!item("pageCK.colorPickerMouseAreaItem")->isVisible());
    QCOMPARE(w->facade.calls,
             QStringList({"setCursorData(0, 0, 0)", "msecSleep(100)", "setBKColor(999, 999, 999, 0)"}));
}

void TestKeys::point(QQuickItem *target)
{
    QTest::mouseMove(w->panel.window, w->panel.middle(target));
    QTest::qWait(30);
}

void TestKeys::hoverShowsWhatCanBePressed()
{
    w->enter("window");
    QTest::mouseMove(w->panel.window, QPoint(1364, 766));
    QTRY_VERIFY(!w->hoverEdge());
    const QImage still = w->panel.grab("still");
    for (const char *id : {"btnSetup", "comboPgmSdiOutput", "outputMemoryLock", "menuInput",
                           "pageIN.imgFGFreeze", "pageIN.btnGenlockReset"}) {
        point(item(id));
        QTRY_VERIFY2(w->hoverEdge(), id);
        QCOMPARE(Workplace::placeOf(w->hoverEdge()).adjusted(1, 1, -1, -1), Workplace::placeOf(item(id)));
        QTRY_COMPARE(w->panel.window->cursor().shape(), Qt::PointingHandCursor);
    }
    point(item("pageIN.genlockTitle"));
    QTRY_VERIFY(!w->hoverEdge());
    QTRY_COMPARE(w->panel.window->cursor().shape(), Qt::ArrowCursor);
    QTest::mouseMove(w->panel.window, QPoint(1364, 766));
    QCOMPARE(w->panel.grab("still again"), still);
    // A dead control is none.
    w->panel.eval("memoryLock = true");
    point(item("outputMemoryLoad"));
    QTRY_VERIFY(!w->hoverEdge());
    w->enter("garbage mask");
    point(item("pageGM.windowLeft.itemText"));
    QTRY_VERIFY(!w->hoverEdge());
    QTRY_COMPARE(w->panel.window->cursor().shape(), Qt::IBeamCursor);
    w->enter("picker");
    point(item("pageCK.colorPickerMouseAreaItem"));
    QTRY_COMPARE(w->panel.window->cursor().shape(), Qt::CrossCursor);
}

void TestKeys::hoverRestsUnderPopupsAndWhileHeld()
{
    w->enter("window");
    point(item("menuInput"));
    QTRY_VERIFY(w->hoverEdge());
    w->key(Qt::Key_F2); // nothing but the shortcut hears it
    QVERIFY(w->panel.standsOpen("popupConnect"));
    QTRY_VERIFY(!w->hoverEdge());
    w->enter("start");
    point(item("btnConnect"));
    QTRY_VERIFY(w->hoverEdge());
    point(item("comboPgmSdiOutput"));
    QTRY_VERIFY(!w->hoverEdge());
    w->enter("setup");
    point(item("menuInput"));
    QTRY_VERIFY(!w->hoverEdge());
    point(item("btnSetupSave"));
    QTRY_VERIFY(w->hoverEdge());
    w->panel.press("btnSetupFactoryDefault");
    QTRY_VERIFY(!w->hoverEdge());
}

QTEST_MAIN(TestKeys)
#include "tst_keys.moc"
