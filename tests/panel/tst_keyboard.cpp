#include "operations.h"
#include "tests/support/checked.h"

// The keyboard does what the mouse does: the same controls are reached, and the same calls go out.
class TestKeyboard : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void everyControlIsAStop_data() { listPlaces(); }
    void everyControlIsAStop();
    void everyKeyDoesWhatTheMouseDoes_data() { listPlaces(); }
    void everyKeyDoesWhatTheMouseDoes();

private:

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

void TestKeyboard::everyKeyDoesWhatTheMouseDoes()
{
}

QTEST_MAIN(TestKeyboard)
#include "tst_keyboard.moc"
