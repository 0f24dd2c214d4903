#include "lumakeybench.h"

// The four rows of the luma key page, by slider, button and number.
class TestLumakeyRows : public LumakeyBench
{
    Q_OBJECT

private slots:
    void init() { LumakeyBench::init(); }
    void cleanup() { LumakeyBench::cleanup(); }
    void rowTitlesAndRanges_data();
    void rowTitlesAndRanges();
    void loadingSendsNothing();
    void everyRowGoesThroughTheThrottle_data();
    void everyRowGoesThroughTheThrottle();
    void typedNumberGoesTheDirectWay_data();
    void typedNumberGoesTheDirectWay();
    void groupSignsShowTheirNumber_data() { listLocales(); }
    void groupSignsShowTheirNumber();
    void dragEndsOnTheLastValue();
};

void TestLumakeyRows::rowTitlesAndRanges_data()
{
    QTest::addColumn<QString>("id");
    QTest::addColumn<QString>("title");
    QTest::addColumn<int>("high");
    QTest::newRow("cut off") << "auxLumakeyCutoff"
                             << "Cut Off:" << 1000;
    QTest::newRow("softness") << "auxLumakeySoftness"
                              << "Softness:" << 1000;
    QTest::newRow("opacity") << "auxLumakeyOpacity"
                             << "Opacity:" << 1000;
    QTest::newRow("swap time") << "auxLumakeySwaptime"
                               << "Swap Time:" << 20;
}

void TestLumakeyRows::rowTitlesAndRanges()
{
    QFETCH(QString, id);
    QFETCH(QString, title);
    QFETCH(int, high);
    QCOMPARE(h->text(id + ".title"), title);
    QCOMPARE(h->number(id + ".sliderMin"), 0);
    QCOMPARE(h->number(id + ".sliderMax"), high);
    QCOMPARE(h->number(id + ".sliderValue"), 0);
}

void TestLumakeyRows::loadingSendsNothing()
{
    QTest::qWait(150);
    QCOMPARE(h->facade.calls, QStringList());
}

void TestLumakeyRows::everyRowGoesThroughTheThrottle_data()
{
    QTest::addColumn<QString>("id");
    QTest::addColumn<QString>("sent");
    QTest::newRow("cut off") << "auxLumakeyCutoff"
                             << "setLumaKey(true, 0, 1, 0, 0, 0, 0)";
    QTest::newRow("softness") << "auxLumakeySoftness"
                              << "setLumaKey(true, 0, 0, 1, 0, 0, 0)";
    QTest::newRow("swap time") << "auxLumakeySwaptime"
                               << "setLumaKey(true, 0, 0, 0, 0, 1, 0)";
    QTest::newRow("opacity") << "auxLumakeyOpacity"
                             << "setLumaKey(true, 0, 0, 0, 0, 0, 1)";
}

void TestLumakeyRows::everyRowGoesThroughTheThrottle()
{
    QFETCH(QString, id);
    QFETCH(QString, sent);
    CHECKED(turnOn());
    const qint64 start = h->facade.now();
    h->click(id + ".itemButtonIncrease");
    QCOMPARE(h->facade.calls, QStringList());
    QTRY_COMPARE(h->facade.calls, QStringList{sent});
    QVERIFY(h->facade.times.first() - start >= 49);
}

void TestLumakeyRows::typedNumberGoesTheDirectWay_data()
{
    QTest::addColumn<QString>("id");
    QTest::addColumn<QString>("sent");
    QTest::addColumn<QString>("told");
    QTest::newRow("cut off") << "auxLumakeyCutoff"
                             << "setLumaKey(false, 0, 9, 0, 0, 0, 0)"
                             << "onTExtFieldChanged";
    QTest::newRow("softness") << "auxLumakeySoftness"
                              << "setLumaKey(false, 0, 0, 9, 0, 0, 0)"
                              << "";
    QTest::newRow("swap time") << "auxLumakeySwaptime"
                               << "setLumaKey(false, 0, 0, 0, 0, 9, 0)"
                               << "";
    QTest::newRow("opacity") << "auxLumakeyOpacity"
                             << "setLumaKey(false, 0, 0, 0, 0, 0, 9)"
                             << "on Aux Opacity TExtFieldChanged";
}

void TestLumakeyRows::typedNumberGoesTheDirectWay()
{
    QFETCH(QString, id);
    QFETCH(QString, sent);
    QFETCH(QString, told);
    h->typeInto(id + ".itemText", "9");
    QCOMPARE(h->facade.calls, (QStringList{sent, "msecSleep(100)", "getLumaKey()"}));
    QCOMPARE(h->number(id + ".sliderValue"), 0);
    QCOMPARE(Messages::logs().filter("TExtFieldChanged"), told.isEmpty() ? QStringList() : QStringList{told});
}

// A number goes out as it is shown, group signs or not.
void TestLumakeyRows::groupSignsShowTheirNumber()
{
    QFETCH(QString, locale);
    QLocale::setDefault(QLocale(locale));
    h.reset();
    init();
    const QStringList rows{"auxLumakeyCutoff", "auxLumakeySoftness", "auxLumakeyOpacity"};
    const QStringList sent{"1000, 0, 0, 0, 0", "0, 1000, 0, 0, 0", "0, 0, 0, 0, 1000"};
    for (int i = 0; i < rows.size(); ++i) {
        h->facade.forget();
        h->typeInto(rows.at(i) + ".itemText", "1,000");
        QCOMPARE(h->facade.calls.value(0), "setLumaKey(false, 0, " + sent.at(i) + ")");
    }
}

void TestLumakeyRows::dragEndsOnTheLastValue()
{
    CHECKED(turnOn());
    h->facade.slowMs = 120;
    const QPoint from = h->handleAt("auxLumakeySoftness", 0);
    h->press(from);
    for (int i = 1; i <= 80; ++i) {
        h->move(from + QPoint(3 * i, 0));
        QTest::qWait(5);
    }
    h->release(from + QPoint(240, 0));
    const int before = h->facade.calls.size();
    QTest::qWait(400);
    QTRY_COMPARE(h->facade.calls.last(),
                 QStringLiteral("setLumaKey(true, 0, 0, %1, 0, 0, 0)")
                     .arg(h->number("auxLumakeySoftness.sliderValue")));
    QVERIFY(h->facade.calls.size() >= 3);
    QVERIFY(h->facade.calls.size() <= before + 1);
}

QTEST_MAIN(TestLumakeyRows)
#include "tst_lumakeyrows.moc"
