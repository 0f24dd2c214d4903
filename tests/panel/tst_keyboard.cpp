#include "operations.h"
#include "tests/support/checked.h"

// The keyboard does what the mouse does: the same controls are reached, and the same calls go out.

namespace {

// A text that the field takes and that is not what it holds.
QString otherTextFor(const QQuickItem *field)
{
    if (!field->property("lowest").isValid())
        return field->property("text").toString().contains(QLatin1Char('.')) ? QStringLiteral("10.0.5.9")
                                                                             : QStringLiteral("STUDIO_4");
    const int low = field->property("lowest").toInt();
    return QString::number(field->property("text").toInt() == low + 1 ? low + 2 : low + 1);
}

} // namespace

class TestKeyboard : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void everyControlIsAStop_data() { listPlaces(); }
    void everyControlIsAStop();
    // Every key does what the mouse does...
    void aroundThePages_data() { listPlaces(0, 2); }
    void aroundThePages() { workEachControl(); }
    void onChromakey_data() { listPlaces(2, 3); }
    void onChromakey() { workEachControl(); }
    void onPostProcessor_data() { listPlaces(3, 4); }
    void onPostProcessor() { workEachControl(); }
    void onTheMasks_data() { listPlaces(4, 6); }
    void onTheMasks() { workEachControl(); }
    void onLumakey_data() { listPlaces(6, 7); }
    void onLumakey() { workEachControl(); }
    void inPopups_data() { listPlaces(7, places().size()); }
    void inPopups() { workEachControl(); }

private:
    void workEachControl();
    void bringIntoSight(QQuickItem *control);
    void workByMouse(QQuickItem *control, const QString &typed);
    void workByKey(QQuickItem *stop, Qt::Key press, const QString &typed);

    std::unique_ptr<Workplace> w;
};

void TestKeyboard::init()
{
    w = std::make_unique<Workplace>();
}

void TestKeyboard::cleanup()
{
    QCOMPARE(Messages::warnings(), QStringList());
    w.reset();
}

void TestKeyboard::everyControlIsAStop()
{
    QFETCH(int, index);
    const Place place = places().at(index);
    w->enter(place);
    const QVector<QQuickItem *> controls = w->controls(place);
    QVERIFY(!controls.isEmpty());
    const QVector<QQuickItem *> stops = w->stops();
    for (QQuickItem *control : controls) {
        QQuickItem *stop = Workplace::stopOf(control);
        QVERIFY2(stop, qPrintable(Workplace::nameOf(control) + " has no stop"));
        QVERIFY2(stops.contains(stop), qPrintable(Workplace::nameOf(stop) + " is not reached"));
    }
}

void TestKeyboard::bringIntoSight(QQuickItem *control)
{
    for (QQuickItem *view = control->parentItem(); view; view = view->parentItem()) {
        if (!view->inherits("QQuickFlickable"))
            continue;
        const qreal y =
            control->mapToItem(view->property("contentItem").value<QQuickItem *>(), QPointF()).y();
        const qreal last = view->property("contentHeight").toReal() - view->height();
        view->setProperty("contentY", qBound(0.0, y - 200, qMax(0.0, last)));
    }
}

void TestKeyboard::workByMouse(QQuickItem *control, const QString &typed)
{
    PanelHarness &panel = w->panel;
    bringIntoSight(control);
    const QPoint middle = panel.middle(control);
    if (isField(control)) {
        panel.typeInto(control, typed);
    } else if (isSlider(control)) {
        const qreal low = control->property("minimumValue").toReal();
        const qreal part =
            (control->property("value").toReal() - low) / (control->property("maximumValue").toReal() - low);
        const QPoint handle = panel.at(control, 11 + (control->width() - 22) * part, control->height() / 2);
        panel.press(handle);
        panel.move(handle + QPoint(500, 0));
        panel.release(handle + QPoint(500, 0));
    } else if (isList(control)) {
        panel.clickAt(middle);
        auto *popup = control->property("popup").value<QObject *>();
        if (!QTest::qWaitFor([&] { return popup->property("opened").toBool(); }))
            qFatal("%s does not open", qPrintable(Workplace::nameOf(control)));
        QTest::qWait(50);
        auto *list = popup->property("contentItem").value<QQuickItem *>();
        const int next = (control->property("currentIndex").toInt() + 1) % control->property("count").toInt();
        QMetaObject::invokeMethod(list, "positionViewAtIndex", Q_ARG(int, next), Q_ARG(int, 4));
        const qreal top = list->property("contentY").toReal();
        panel.clickAt(panel.at(list, list->width() / 2, (next + 0.5) * control->height() - top));
    } else {
        panel.clickAt(middle);
    }
}

void TestKeyboard::workByKey(QQuickItem *stop, Qt::Key press, const QString &typed)
{
    w->focus(stop);
    if (isField(stop)) {
        w->panel.typeOver(typed, press == Qt::Key_Space ? Qt::Key_Return : press);
    } else if (isSlider(stop)) {
        w->key(Qt::Key_End);
    } else if (isList(stop)) {
        const bool last = stop->property("currentIndex").toInt() + 1 == stop->property("count").toInt();
        w->key(press);
        w->key(last ? Qt::Key_Home : Qt::Key_Down);
        w->key(press);
    } else {
        w->key(press);
    }
}

// Each control once by mouse, once by Space and once by Enter, from the same state each time.
void TestKeyboard::workEachControl()
{
    QFETCH(int, index);
    const Place place = places().at(index);
    w->enter(place);
    int calling = 0;
    for (QQuickItem *control : w->controls(place)) {
        // A pad is steered, not pressed; see the tests of the picker.
        QQuickItem *stop = Workplace::stopOf(control);
        if (control->cursor().shape() == Qt::CrossCursor)
            continue;
        const QByteArray name = Workplace::nameOf(control).toUtf8();
        w->enter(place);
        QVERIFY2(control->isEnabled() && control->isVisible(), name.constData());
        const QString typed = isField(control) ? otherTextFor(control) : QString();
        workByMouse(control, typed);
        const QStringList expected = w->calls();
        calling += expected.isEmpty() ? 0 : 1;
        for (const Qt::Key press : {Qt::Key_Space, Qt::Key_Enter}) {
            w->enter(place);
            workByKey(stop, press, typed);
            QVERIFY2(w->calls() == expected,
                     (name + "\n  by mouse: " + expected.join(' ').toUtf8()
                      + "\n  by key:   " + w->calls().join(' ').toUtf8())
                         .constData());
        }
    }
    qInfo("%d controls call the facade", calling);
}

QTEST_MAIN(TestKeyboard)
#include "tst_keyboard.moc"
