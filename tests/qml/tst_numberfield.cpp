#include "pageharness.h"

// Number fields, alone and in a row of the open angle: which number a typed text is.
class TestNumberField : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();
    void fieldGivesTheNumberItShows_data();
    void fieldGivesTheNumberItShows();
    void angleTakesEachNumber();
    void angleWaitsForANumber_data();
    void angleWaitsForANumber();

private:
    std::unique_ptr<PageHarness> h;
};

void TestNumberField::cleanup()
{
    QCOMPARE(Messages::warnings(), QStringList());
    h.reset();
    QLocale::setDefault(QLocale::c());
}

void TestNumberField::fieldGivesTheNumberItShows_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("number");
    for (const QString locale : {"C", "en_US", "zh_TW", "zh_CN"}) {
        const auto row = [&](const QString &typed, const QString &number) {
            QTest::newRow(qPrintable(locale + QLatin1Char(' ') + typed)) << locale << typed << number;
        };
        row("1,000", "1000");
        row("-1,000", "-1000");
        row("+17", "17");
        row("007", "7");
        row("-", "NaN");
        row("+", "NaN");
        row("", "NaN");
    }
}

void TestNumberField::fieldGivesTheNumberItShows()
{
    QFETCH(QString, locale);
    QFETCH(QString, typed);
    QLocale::setDefault(QLocale(locale));
    h = std::make_unique<PageHarness>("NumberField { id: page; lowest: -1000; highest: 1000; text: '1' }");
    QVERIFY(h->show());
    h->click(h->page);
    h->page->setProperty("text", QString());
    for (const QChar c : typed)
        QTest::keyClick(h->window, c.toLatin1());
    QCOMPARE(h->page->property("text").toString(), typed);
    QVariant number;
    QVERIFY(QMetaObject::invokeMethod(h->page, "number", Q_RETURN_ARG(QVariant, number)));
    QTEST(number.toString() == "nan" ? QStringLiteral("NaN") : number.toString(), "number");
}

void TestNumberField::angleTakesEachNumber()
{
    h = std::make_unique<PageHarness>("OpenAngleRow { id: page; x: 30; y: 10; sign: '+' }");
    QVERIFY(h->show());
    QCOMPARE(h->text("field.text"), QStringLiteral("45"));
    QCOMPARE(h->number("field.maximumLength"), 4);
    h->typeInto(h->item("field"), "9", Qt::Key_unknown);
    QCOMPARE(h->number("value"), 9);
    QTest::keyClick(h->window, '0');
    QCOMPARE(h->number("value"), 90);
    // Out of the range nothing more is taken.
    QTest::keyClick(h->window, '1');
    QCOMPARE(h->number("value"), 90);
}

void TestNumberField::angleWaitsForANumber_data()
{
    QTest::addColumn<QString>("typed");
    QTest::newRow("a lone plus") << "+";
    QTest::newRow("nothing") << "";
}

void TestNumberField::angleWaitsForANumber()
{
    QFETCH(QString, typed);
    h = std::make_unique<PageHarness>("OpenAngleRow { id: page; x: 30; y: 10; sign: '+' }");
    QVERIFY(h->show());
    QSignalSpy moved(h->page, SIGNAL(valueChanged()));
    h->typeInto(h->item("field"), typed, typed.isEmpty() ? Qt::Key_Delete : Qt::Key_unknown);
    QCOMPARE(h->text("field.text"), typed);
    QCOMPARE(h->number("value"), 45);
    QCOMPARE(moved.count(), 0);
    // Who leaves the field finds the slider's number in it, and it follows the slider again.
    h->item("slider")->forceActiveFocus();
    QCOMPARE(h->text("field.text"), QStringLiteral("45"));
    h->page->setProperty("value", 12);
    QCOMPARE(h->text("field.text"), QStringLiteral("12"));
}

QTEST_MAIN(TestNumberField)
#include "tst_numberfield.moc"
