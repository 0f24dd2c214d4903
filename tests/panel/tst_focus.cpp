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

private:
    QQuickItem *item(const char *id) const { return w->panel.item(QString::fromLatin1(id)); }
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
    w->enter("chromakey");
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
        const QRect ring = Workplace::placeOf(w->ring());
        QVERIFY2(Workplace::placeOf(w->panel.window->contentItem()).contains(ring), name.constData());
        QQuickItem *view = stop;
        while (view && !view->inherits("QQuickFlickable"))
            view = view->parentItem();
        QVERIFY2(!view || Workplace::placeOf(view).contains(ring), name.constData());
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
    w->enter(place.constData());
    QQuickItem *target = item(control.constData());
    QVector<QQuickItem *> before;
    do {
        w->key(Qt::Key_Tab);
        QVERIFY(!before.contains(w->focused()));
        before << w->focused();
    } while (w->focused() != target && !target->isAncestorOf(w->focused()));
    QTRY_VERIFY(w->ring());
    QTest::qWait(50);
    const QRect ring = Workplace::placeOf(w->ring());
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
    w->enter("window");
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
    w->enter("window");
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
    w->enter("chromakey");
    w->key(Qt::Key_Tab);
    w->focus(item("pageCK.shrinkLeft.itemSlider"));
    QTRY_VERIFY(w->ring());
    const auto offset = [this] {
        return Workplace::placeOf(w->ring()).topLeft()
            - Workplace::placeOf(item("pageCK.shrinkLeft.itemSlider")).topLeft();
    };
    QCOMPARE(offset(), QPoint(-1, -9));
    const int before = Workplace::placeOf(w->ring()).top();
    w->panel.eval("pageCK.sections[4].foldButton.clicked()");
    QTRY_VERIFY(Workplace::placeOf(w->ring()).top() != before);
    QTest::qWait(300);
    QCOMPARE(offset(), QPoint(-1, -9));
    w->panel.eval("pageCK.sections[5].foldButton.clicked()");
    QTRY_VERIFY(!w->ring());
}

QTEST_MAIN(TestFocus)
#include "tst_focus.moc"
