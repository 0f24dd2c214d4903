#include "operations.h"
#include "tests/support/checked.h"

#include <cmath>

// Where the keyboard goes, and that it is seen there.

namespace {

constexpr double kContrast = 3.0;
// The ring of a menu entry crosses the bright bar of the selected one beside it.
constexpr int kBarDots = 4;

double linear(int channel)
{
    const double part = channel / 255.0;
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

double luminance(const QColor &color)
{
    return 0.2126 * linear(color.red()) + 0.7152 * linear(color.green()) + 0.0722 * linear(color.blue());
}

double contrast(const QColor &a, const QColor &b)
{
    const double one = luminance(a) + 0.05;
    const double other = luminance(b) + 0.05;
    return qMax(one, other) / qMin(one, other);
}

QRect placeOf(const QQuickItem *item)
{
    return item->mapRectToScene(QRectF(0, 0, item->width(), item->height())).toRect();
}

// The dots of a line of one dot along the rim.
QVector<QPoint> rimOf(const QRect &place)
{
    QVector<QPoint> dots;
    for (int x = place.left(); x <= place.right(); ++x)
        dots << QPoint(x, place.top()) << QPoint(x, place.bottom());
    for (int y = place.top() + 1; y < place.bottom(); ++y)
        dots << QPoint(place.left(), y) << QPoint(place.right(), y);
    return dots;
}

} // namespace

class TestFocus : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void readsFromLeftToRightAndDown_data() { listPlaces(); }
    void readsFromLeftToRightAndDown();
    void staysAboveMaskAndPopups_data() { listPlaces(); }
    void staysAboveMaskAndPopups();
    void skipsWhatIsFoldedOffOrLocked();
    void everyStopIsSeen_data() { listPlaces(); }
    void everyStopIsSeen();
    void ringIsDrawnOnEachKind_data();
    void ringIsDrawnOnEachKind();
    void mouseTakesTheRingAway();
    void ringComesBackWithTheFocus();
    void ringGoesWithItsControl();
    void enterOpensConnectUnderTheMask();
    void functionKeysOpenThePanels();
    void numbersBringPages();
    void shortcutsRestUnderMaskAndPopups();
    void hiddenControlHearsNoKey();
    void heldKeyIsOnePress();
    void leavingWhileHeldIsNoClick();
    void sliderKeys();
    void hoverShowsWhatCanBePressed();
    void hoverRestsUnderPopupsAndWhileHeld();

private:
    void enter(const char *name);
    QQuickItem *item(const char *id) const { return w->panel.item(QString::fromLatin1(id)); }
    void point(QQuickItem *target);
    QImage grab(const char *name) { return w->panel.grab(QString::fromLatin1(name)); }

    std::unique_ptr<Workplace> w;
};

void TestFocus::init()
{
    w = std::make_unique<Workplace>();
}

void TestFocus::cleanup()
{
    QCOMPARE(Messages::warnings(), QStringList());
    w.reset();
}

void TestFocus::enter(const char *name)
{
    for (const Place &place : places()) {
        if (qstrcmp(place.name, name) == 0)
            return w->enter(place);
    }
    qFatal("no place %s", name);
}

void TestFocus::readsFromLeftToRightAndDown()
{
    QFETCH(int, index);
    w->enter(places().at(index));
    const QVector<QQuickItem *> stops = w->stops();
    QQuickItem *before = stops.constLast();
    QStringList back;
    for (QQuickItem *stop : stops) {
        // In the content of a page, so that scrolling moves nothing.
        const auto layer = [](QQuickItem *below) {
            while (below->parentItem() && !below->parentItem()->inherits("QQuickFlickable"))
                below = below->parentItem();
            return below;
        };
        if (layer(before) == layer(stop)) {
            const QRectF last = before->mapRectToItem(layer(stop), before->boundingRect());
            const QRectF next = stop->mapRectToItem(layer(stop), stop->boundingRect());
            if (next.top() < last.center().y() && next.left() < last.right())
                back << Workplace::nameOf(before) + QStringLiteral(" -> ") + Workplace::nameOf(stop);
        }
        before = stop;
    }
    // From the last to the first again.
    QVERIFY2(back.size() <= 1, qPrintable(back.join(QStringLiteral(", "))));
}

void TestFocus::staysAboveMaskAndPopups()
{
    QFETCH(int, index);
    const Place place = places().at(index);
    w->enter(place);
    const bool window = place.page > 0 && !*place.popup;
    QQuickItem *root = window ? item("recHeader.parent") : w->root(place);
    for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Backtab}) {
        for (int i = 0; i < 40; ++i) {
            w->key(key);
            QVERIFY2(w->focused() == root || root->isAncestorOf(w->focused()),
                     qPrintable(Workplace::nameOf(w->focused())));
            QVERIFY2(w->focused()->isVisible() && w->focused()->isEnabled(),
                     qPrintable(Workplace::nameOf(w->focused())));
        }
    }
}

void TestFocus::skipsWhatIsFoldedOffOrLocked()
{
    enter("chromakey");
    QVERIFY(w->stops().contains(item("pageCK.darkLevel.itemText")));
    item("recHeader.parent")->forceActiveFocus();
    w->panel.eval("pageCK.sections[1].foldButton.clicked()");
    QVERIFY(!w->stops().contains(item("pageCK.darkLevel.itemText")));
    emit w->facade.refreshCKBWLevel(100, 900, false);
    const QVector<QQuickItem *> off = w->stops();
    for (const char *dead :
         {"pageCK.txtBGR", "pageCK.sliderOPPlus", "pageCK.btnOAIncrease", "pageCK.btnMGReset"})
        QVERIFY2(!off.contains(item(dead)), dead);
    QVERIFY(off.contains(item("outputMemoryLoad")));
    w->panel.eval("memoryLock = true");
    QVERIFY(!w->stops().contains(item("outputMemoryLoad")));
}

// A grab of each part of a page without the ring tells the ground, and the ring's place the dots that it covers.
void TestFocus::everyStopIsSeen()
{
    QFETCH(int, index);
    const Place place = places().at(index);
    w->enter(place);
    const QColor color("#AEB8C6");
    QHash<int, QImage> grounds;
    QVector<QQuickItem *> seen;
    for (w->key(Qt::Key_Tab); !seen.contains(w->focused()); w->key(Qt::Key_Tab)) {
        QQuickItem *stop = w->focused();
        seen << stop;
        const QByteArray name = Workplace::nameOf(stop).toUtf8();
        // The window around the pages is a place of its own.
        if (place.page > 1 && !*place.popup && !w->root(place)->isAncestorOf(stop))
            continue;
        QTRY_VERIFY2(w->ring(), name.constData());
        const QRect ring = placeOf(w->ring());
        QVERIFY2(placeOf(w->panel.window->contentItem()).contains(ring), name.constData());
        QQuickItem *view = stop;
        while (view && !view->inherits("QQuickFlickable"))
            view = view->parentItem();
        QVERIFY2(!view || placeOf(view).contains(ring), name.constData());
        QImage &ground = grounds[view ? view->property("contentY").toInt() : -1];
        if (ground.isNull()) {
            w->ring()->setOpacity(0);
            ground = grab("ground");
            w->panel.window->update();
        }
        QStringList lost;
        for (const QPoint &dot : rimOf(ring)) {
            const QColor under = ground.pixelColor(dot);
            if (contrast(color, under) < kContrast)
                lost << QStringLiteral("%1 at %2,%3").arg(under.name()).arg(dot.x()).arg(dot.y());
        }
        QVERIFY2(lost.size() <= kBarDots,
                 (name + ": " + lost.join(QStringLiteral(", ")).toUtf8()).constData());
    }
    QVERIFY(!grounds.isEmpty());
}

void TestFocus::ringIsDrawnOnEachKind_data()
{
    QTest::addColumn<QByteArray>("place");
    QTest::addColumn<QByteArray>("control");
    const auto row = [](const char *place, const char *control) {
        QTest::newRow(control) << QByteArray(place) << QByteArray(control);
    };
    row("start", "btnConnect");
    row("window", "comboMainLanguage");
    row("window", "comboPgmSdiOutput");
    row("window", "checkboxPGMSDI");
    row("window", "btnLockPGMSDI");
    row("window", "outputMemoryLoad");
    row("window", "menuChromakey");
    row("window", "pageIN.imgFGFreeze");
    row("window", "pageIN.btnGenlockReset");
    row("chromakey", "pageCK.sliderOPPlus");
    row("chromakey", "pageCK.txtBGR");
    row("chromakey", "pageCK.edgeBrightness.itemButtonIncrease");
    row("aux lumakey", "pageAL.btnAuxLumakeyKeymodeBlackImage.parent");
    row("connect", "txtIPAddr");
    row("connect", "imgConnectScan");
    row("setup", "imgSetupAutoOutRes");
    row("factory default", "btnFactoryReset");
    row("warning", "btnWarningReconnect");
    row("picker", "pageCK.colorPickerMouseAreaItem");
    row("picker", "pageCK.txtColorPickerX");
}

// One dot wide, closed, in its colour; beside it nothing has changed.
void TestFocus::ringIsDrawnOnEachKind()
{
    QFETCH(QByteArray, place);
    QFETCH(QByteArray, control);
    enter(place.constData());
    QQuickItem *target = item(control.constData());
    QVector<QQuickItem *> before;
    do {
        w->key(Qt::Key_Tab);
        QVERIFY(!before.contains(w->focused()));
        before << w->focused();
    } while (w->focused() != target && !target->isAncestorOf(w->focused()));
    QTRY_VERIFY(w->ring());
    QTest::qWait(50);
    const QRect ring = placeOf(w->ring());
    const QImage with = grab(("ring-" + control).constData());
    w->ring()->setOpacity(0);
    const QImage without = grab("without");
    const QRect inside = ring.adjusted(1, 1, -1, -1);
    const QRect near = ring.adjusted(-1, -1, 1, 1); // farther away the arrow of the mask moves
    for (int y = near.top(); y <= near.bottom(); ++y) {
        for (int x = near.left(); x <= near.right(); ++x) {
            if (!with.rect().contains(x, y) || inside.contains(x, y))
                continue;
            if (ring.contains(x, y))
                QCOMPARE(with.pixelColor(x, y).name(), QStringLiteral("#aeb8c6"));
            else
                QCOMPARE(with.pixel(x, y), without.pixel(x, y));
        }
    }
}

void TestFocus::mouseTakesTheRingAway()
{
    enter("window");
    w->key(Qt::Key_Tab);
    QTRY_VERIFY(w->ring());
    QVERIFY(w->panel.flag("btnConnect.visualFocus"));
    w->panel.press(QPoint(1000, 700));
    QVERIFY(!w->ring());
    QVERIFY(!w->panel.flag("btnConnect.visualFocus"));
    w->panel.release(QPoint(1000, 700));
    // A click gives the focus to some controls, and it is the mouse's.
    for (const char *id : {"btnLockPGMSDI", "outputMemoryLoad", "pageIN.btnGenlockSwitch", "menuInput"}) {
        w->panel.click(item(id));
        QTest::qWait(30);
        QVERIFY2(!w->ring(), id);
    }
    w->panel.click(item("pageIN.btnGenlockSwitch"));
    QVERIFY(item("pageIN.btnGenlockSwitch")->hasActiveFocus());
    w->key(Qt::Key_Tab);
    QTRY_VERIFY(w->ring());
    QCOMPARE(w->focused(), item("pageIN.btnGenlockReset"));
}

void TestFocus::ringComesBackWithTheFocus()
{
    enter("window");
    w->focus(item("btnSetup"));
    w->key(Qt::Key_Space);
    QVERIFY(w->panel.standsOpen("popupSetup"));
    QVERIFY(!w->ring());
    w->key(Qt::Key_Escape);
    QVERIFY(w->panel.standsClosed("popupSetup"));
    QCOMPARE(w->focused(), item("btnSetup"));
    QTRY_VERIFY(w->ring());
    QVERIFY(w->panel.flag("btnSetup.visualFocus"));
}

// A section folds under the row that has the focus; the ring stands where the row goes, and goes with it.
void TestFocus::ringGoesWithItsControl()
{
    enter("chromakey");
    w->key(Qt::Key_Tab);
    w->focus(item("pageCK.shrinkLeft.itemSlider"));
    QTRY_VERIFY(w->ring());
    const auto offset = [this] {
        return placeOf(w->ring()).topLeft() - placeOf(item("pageCK.shrinkLeft.itemSlider")).topLeft();
    };
    QCOMPARE(offset(), QPoint(-1, -9));
    const int before = placeOf(w->ring()).top();
    w->panel.eval("pageCK.sections[4].foldButton.clicked()");
    QTRY_VERIFY(placeOf(w->ring()).top() != before);
    QTest::qWait(300);
    QCOMPARE(offset(), QPoint(-1, -9));
    w->panel.eval("pageCK.sections[5].foldButton.clicked()");
    QTRY_VERIFY(!w->ring());
}

void TestFocus::enterOpensConnectUnderTheMask()
{
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_F2}) {
        enter("start");
        QVERIFY(w->panel.flag("popupMask.opened"));
        w->facade.forget();
        w->key(key);
        QVERIFY(w->panel.standsOpen("popupConnect"));
        QCOMPARE(w->facade.calls, QStringList("connectPopup(0, 0)"));
        QCOMPARE(w->panel.face("btnConnect"), QStringLiteral("btn_p_connect_dashboard"));
    }
}

void TestFocus::functionKeysOpenThePanels()
{
    enter("start");
    w->key(Qt::Key_F3);
    QTest::qWait(50);
    QVERIFY(!w->panel.flag("popupSetup.visible"));
    enter("window");
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

void TestFocus::numbersBringPages()
{
    enter("window");
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

void TestFocus::shortcutsRestUnderMaskAndPopups()
{
    for (const char *place : {"start", "connect", "setup", "warning", "picker"}) {
        enter(place);
        const int page = w->panel.number("tabPageID");
        w->key(page == 4 ? Qt::Key_5 : Qt::Key_4, Qt::ControlModifier);
        w->key(Qt::Key_F3);
        QTest::qWait(30);
        QCOMPARE(w->panel.number("tabPageID"), page);
        QCOMPARE(w->facade.calls, QStringList());
    }
}

// The mouse changes the page and leaves the keyboard in a field that is no longer seen.
void TestFocus::hiddenControlHearsNoKey()
{
    enter("garbage mask");
    w->panel.click(item("pageGM.windowLeft.itemText"));
    w->panel.click(item("menuInput"));
    w->facade.forget();
    for (const Qt::Key key : {Qt::Key_1, Qt::Key_2, Qt::Key_Return})
        w->key(key);
    QCOMPARE(w->calls(), QStringList());
    QCOMPARE(w->panel.text("pageGM.windowLeft.textValue"), QStringLiteral("110"));
}

void TestFocus::heldKeyIsOnePress()
{
    enter("window");
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

void TestFocus::leavingWhileHeldIsNoClick()
{
    enter("window");
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

void TestFocus::sliderKeys()
{
    enter("garbage mask");
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
    // Several within the throttle are one command.
    w->facade.forget();
    for (int i = 0; i < 5; ++i)
        w->key(Qt::Key_Right);
    QCOMPARE(w->calls(), QStringList("setWindow(true, 0, 15, 890, 120, 880, 15)"));
}

void TestFocus::point(QQuickItem *target)
{
    QTest::mouseMove(w->panel.window, w->panel.middle(target));
    QTest::qWait(30);
}

void TestFocus::hoverShowsWhatCanBePressed()
{
    enter("window");
    QTest::mouseMove(w->panel.window, QPoint(1364, 766));
    QVERIFY(!w->hoverEdge());
    const QImage still = grab("still");
    for (const char *id : {"btnSetup", "comboPgmSdiOutput", "outputMemoryLock", "menuInput",
                           "pageIN.imgFGFreeze", "pageIN.btnGenlockReset"}) {
        point(item(id));
        QVERIFY2(w->hoverEdge(), id);
        QCOMPARE(placeOf(w->hoverEdge()).adjusted(1, 1, -1, -1), placeOf(item(id)));
        QCOMPARE(w->panel.window->cursor().shape(), Qt::PointingHandCursor);
    }
    point(item("pageIN.genlockTitle"));
    QVERIFY(!w->hoverEdge());
    QCOMPARE(w->panel.window->cursor().shape(), Qt::ArrowCursor);
    QTest::mouseMove(w->panel.window, QPoint(1364, 766));
    QCOMPARE(grab("still again"), still);
    // A dead control is none.
    w->panel.eval("memoryLock = true");
    point(item("outputMemoryLoad"));
    QVERIFY(!w->hoverEdge());
    enter("garbage mask");
    point(item("pageGM.windowLeft.itemText"));
    QVERIFY(!w->hoverEdge());
    QCOMPARE(w->panel.window->cursor().shape(), Qt::IBeamCursor);
    enter("picker");
    point(item("pageCK.colorPickerMouseAreaItem"));
    QCOMPARE(w->panel.window->cursor().shape(), Qt::CrossCursor);
}

void TestFocus::hoverRestsUnderPopupsAndWhileHeld()
{
    enter("start");
    point(item("btnConnect"));
    QVERIFY(w->hoverEdge());
    point(item("comboPgmSdiOutput"));
    QVERIFY(!w->hoverEdge());
    enter("setup");
    point(item("menuInput"));
    QVERIFY(!w->hoverEdge());
    point(item("btnSetupSave"));
    QVERIFY(w->hoverEdge());
    w->panel.press("btnSetupFactoryDefault");
    QVERIFY(!w->hoverEdge());
}

QTEST_MAIN(TestFocus)
#include "tst_focus.moc"
