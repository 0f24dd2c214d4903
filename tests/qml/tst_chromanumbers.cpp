#include "chromapanel.h"

// The chromakey page: typed numbers, the key colour and the open angle.
class TestChromaNumbers : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void typedNumberGoesOutAtOnce_data();
    void typedNumberGoesOutAtOnce();
    void typedNumberOutsideTheRangeIsNotAccepted();
    void groupSignsChangeNoNumber_data();
    void groupSignsChangeNoNumber();
    void openAngleSendsMinusFirst();
    void openAngleFieldMovesTheSliderByKeystroke();
    void openAngleNotYetTyped_data();
    void openAngleNotYetTyped();
    void openAngleFieldHoldsFourCharacters();
    void openAngleButtonsStopAtTheEnds();
    void colourFieldsSendAllThree_data();
    void colourFieldsSendAllThree();
    void colourFieldHoldsTheUnitsRange();
    void hueBarsShowTheSpan();
    void hueBarsWrap_data();
    void hueBarsWrap();

private:
    std::unique_ptr<ChromaPanel> h;
};

void TestChromaNumbers::init()
{
    h = std::make_unique<ChromaPanel>();
    QVERIFY(h->show());
    h->fill();
}

void TestChromaNumbers::cleanup()
{
    QCOMPARE(Messages::warnings(), QStringList());
    h.reset();
}

void TestChromaNumbers::typedNumberGoesOutAtOnce_data()
{
    listChromaRows();
}

void TestChromaNumbers::typedNumberGoesOutAtOnce()
{
    QFETCH(int, index);
    const ChromaRow row = chromaRows().at(index);
    const QString id = QLatin1String(row.id);
    const int before = h->number(id + ".sliderValue");
    if (row.shown) {
        h->typeInto(h->seen(id + ".itemText"), QStringLiteral("37"));
    } else {
        h->eval(id + ".textValue = \"37\"");
        h->eval(id + ".textFieldChanged()");
    }
    const QStringList expected = {QString(row.command).arg(37), "msecSleep(100)", row.getter};
    QCOMPARE(h->facade.calls, expected);
    QCOMPARE(h->number(id + ".sliderValue"), before);
    QCOMPARE(Messages::logs().filter("onTExtFieldChanged").size(),
             QString(row.command).contains("Spill") ? 1 : 0);
    h->waitForThrottle();
    QCOMPARE(h->facade.calls, expected);
}

void TestChromaNumbers::typedNumberOutsideTheRangeIsNotAccepted()
{
    h->typeInto(h->seen("softEdge.itemText"), QStringLiteral("101"));
    QTest::qWait(80);
    QCOMPARE(h->facade.calls, QStringList());
    QCOMPARE(h->text("softEdge.itemText.text"), QStringLiteral("101"));
    // Text that was not accepted stands until the slider next changes.
    h->click(h->seen("softEdge.itemButtonIncrease"));
    QCOMPARE(h->text("softEdge.itemText.text"), QStringLiteral("14"));
}

void TestChromaNumbers::groupSignsChangeNoNumber_data()
{
    listLocales();
}

// Fields made under a locale take its group signs: "1,000" is a thousand, and no other number goes out.
void TestChromaNumbers::groupSignsChangeNoNumber()
{
    QFETCH(QString, locale);
    const QLocale before;
    h.reset();
    QLocale::setDefault(QLocale(locale));
    h = std::make_unique<ChromaPanel>();
    QLocale::setDefault(before);
    QVERIFY(h->show());
    if (locale != "C")
        h->translator.setTranslation(locale);
    h->fill();
    const QVector<QPair<const char *, const char *>> colours{{"txtBGG", "setBKColor(122, 1000, 290, 0)"},
                                                             {"txtBGR", "setBKColor(1000, 1000, 290, 0)"},
                                                             {"txtBGB", "setBKColor(1000, 1000, 1000, 0)"}};
    // The number of one field goes out with the others as well.
    for (const auto &colour : colours) {
        h->facade.forget();
        h->typeInto(QLatin1String(colour.first), QStringLiteral("1,000"));
        QCOMPARE(h->text(QLatin1String(colour.first) + ".text"), QStringLiteral("1,000"));
        QCOMPARE(h->facade.calls, QStringList(colour.second));
    }
    for (const ChromaRow &row : chromaRows()) {
        if (!row.shown || row.high < 1000)
            continue;
        h->facade.forget();
        h->typeInto(h->seen(QLatin1String(row.id) + ".itemText"), QStringLiteral("1,000"));
        QCOMPARE(h->callsButPolls().value(0), QString(row.command).arg(1000));
        emit h->facade.refreshCKBWLevel(100, 900, true);
    }
}

void TestChromaNumbers::openAngleSendsMinusFirst()
{
    h->drag("sliderOPPlus", 80);
    const int plus = h->number("sliderOPPlus.value");
    QVERIFY(plus > 70);
    h->waitForThrottle();
    QCOMPARE(h->facade.calls,
             QStringList({"setRefreshTimer(false)", QString("setCKAngle(21, %1)").arg(plus),
                          "setRefreshTimer(true)"}));
    h->facade.forget();
    h->drag("sliderOPMinus", 5);
    const int minus = h->number("sliderOPMinus.value");
    h->waitForThrottle();
    QCOMPARE(h->callsButPolls(), QStringList(QString("setCKAngle(%1, %2)").arg(minus).arg(plus)));
    QCOMPARE(h->number("commandIndex"), 1);
    QCOMPARE(h->number("sliderOPPlus.maximumValue"), 90);
    QCOMPARE(h->number("sliderOPPlus.minimumValue"), 0);
}

void TestChromaNumbers::openAngleFieldMovesTheSliderByKeystroke()
{
    h->typeInto(QStringLiteral("txtChromaOAMinus"), QStringLiteral("6"), Qt::Key_unknown);
    QCOMPARE(h->number("sliderOPMinus.value"), 6);
    QTest::keyClick(h->window, Qt::Key_3);
    QCOMPARE(h->number("sliderOPMinus.value"), 63);
    h->waitForThrottle();
    QCOMPARE(h->callsButPolls(), QStringList("setCKAngle(63, 22)"));
    // An emptied field is no number yet: the slider stays, and the next digit begins anew.
    h->facade.forget();
    QTest::keyClick(h->window, Qt::Key_Backspace);
    QTest::keyClick(h->window, Qt::Key_Backspace);
    QCOMPARE(h->text("txtChromaOAMinus.text"), QString());
    QCOMPARE(h->number("sliderOPMinus.value"), 6);
    QTest::keyClick(h->window, Qt::Key_9);
    QTest::keyClick(h->window, Qt::Key_1);
    // The slider holds at its end, and the field follows it.
    QCOMPARE(h->number("sliderOPMinus.value"), 90);
    QCOMPARE(h->text("txtChromaOAMinus.text"), QStringLiteral("90"));
}

void TestChromaNumbers::openAngleNotYetTyped_data()
{
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("typed");
    QTest::newRow("plus, sign") << "txtChromaOAPlus"
                                << "+";
    QTest::newRow("plus, minus sign") << "txtChromaOAPlus"
                                      << "-";
    QTest::newRow("plus, empty") << "txtChromaOAPlus"
                                 << "";
    QTest::newRow("minus, sign") << "txtChromaOAMinus"
                                 << "+";
    QTest::newRow("minus, minus sign") << "txtChromaOAMinus"
                                       << "-";
    QTest::newRow("minus, empty") << "txtChromaOAMinus"
                                  << "";
}

void TestChromaNumbers::openAngleNotYetTyped()
{
    QFETCH(QString, field);
    QFETCH(QString, typed);
    h->fill();
    h->click(field);
    QTest::keySequence(h->window, QKeySequence::SelectAll);
    QTest::keyClick(h->window, Qt::Key_Delete);
    for (const QChar c : typed)
        QTest::keyClick(h->window, c.toLatin1());
    QTest::qWait(150);
    QVERIFY(h->text(field + ".text").size() <= typed.size());
    QCOMPARE(h->text("[sliderOPMinus.value, sliderOPPlus.value].join()"), QStringLiteral("21,22"));
    QCOMPARE(h->facade.calls, QStringList());
    // Who leaves the field finds the slider's number in it again, and a slider that moves writes it.
    h->click(QStringLiteral("txtBGR"));
    QCOMPARE(h->text("[txtChromaOAMinus.text, txtChromaOAPlus.text].join()"), QStringLiteral("21,22"));
    QTest::qWait(80);
    QCOMPARE(h->facade.calls, QStringList());
    emit h->facade.refreshCKAngle(51, 52);
    QCOMPARE(h->text("[txtChromaOAMinus.text, txtChromaOAPlus.text].join()"), QStringLiteral("51,52"));
    h->settle();
    // After a sign the digits count as they stand.
    h->click(field);
    QTest::keySequence(h->window, QKeySequence::SelectAll);
    for (const char c : {'+', '7'})
        QTest::keyClick(h->window, c);
    h->waitForThrottle();
    QCOMPARE(h->callsButPolls(),
             QStringList(field.endsWith("Plus") ? "setCKAngle(51, 7)" : "setCKAngle(7, 52)"));
}

void TestChromaNumbers::openAngleFieldHoldsFourCharacters()
{
    for (const char *field : {"txtChromaOAPlus", "txtChromaOAMinus"}) {
        QCOMPARE(h->number(QLatin1String(field) + ".maximumLength"), 4);
        h->typeInto(QLatin1String(field), QStringLiteral("00001"), Qt::Key_unknown);
        QCOMPARE(h->text(QLatin1String(field) + ".text"), QStringLiteral("0000"));
    }
    QCOMPARE(h->number("sliderOPPlus.value"), 0);
    QCOMPARE(h->number("sliderOPMinus.value"), 0);
}

void TestChromaNumbers::openAngleButtonsStopAtTheEnds()
{
    emit h->facade.refreshCKAngle(1, 89);
    h->settle();
    for (int i = 0; i < 3; ++i) {
        h->click("btnOAIncrease");
        h->click("btnOADecrease2");
    }
    QCOMPARE(h->number("sliderOPPlus.value"), 90);
    QCOMPARE(h->number("sliderOPMinus.value"), 0);
    h->waitForThrottle();
    QCOMPARE(h->callsButPolls().last(), QStringLiteral("setCKAngle(0, 90)"));
    h->click("btnOADecrease");
    h->click("btnOAIncrease2");
    QCOMPARE(h->number("sliderOPPlus.value"), 89);
    QCOMPARE(h->number("sliderOPMinus.value"), 1);
    // On release and not on press.
    h->press(h->middle(h->item("btnOADecrease")));
    QCOMPARE(h->face("btnOADecrease.source"), QStringLiteral("btn_p_reduce_s_chromakey"));
    QCOMPARE(h->number("sliderOPPlus.value"), 89);
    h->release(h->middle(h->item("btnOADecrease")));
    QCOMPARE(h->number("sliderOPPlus.value"), 88);
}

void TestChromaNumbers::colourFieldsSendAllThree_data()
{
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("command");
    QTest::newRow("R") << "txtBGR"
                       << "setBKColor(8, 639, 290, 0)";
    QTest::newRow("G") << "txtBGG"
                       << "setBKColor(122, 8, 290, 0)";
    QTest::newRow("B") << "txtBGB"
                       << "setBKColor(122, 639, 8, 0)";
}

void TestChromaNumbers::colourFieldsSendAllThree()
{
    QFETCH(QString, field);
    QFETCH(QString, command);
    h->fill();
    h->typeInto(field, QStringLiteral("8"));
    QCOMPARE(h->facade.calls, QStringList(command));
}

void TestChromaNumbers::colourFieldHoldsTheUnitsRange()
{
    h->typeInto(QStringLiteral("txtBGG"), QStringLiteral("1000"));
    QCOMPARE(h->facade.calls, QStringList("setBKColor(122, 1000, 290, 0)"));
    h->facade.forget();
    h->typeInto(QStringLiteral("txtBGG"), QStringLiteral("1001"));
    QCOMPARE(h->facade.calls, QStringList());
}

void TestChromaNumbers::hueBarsShowTheSpan()
{
    QCOMPARE(h->number("rowOpenAnglePlus.hue"), 140);
    QCOMPARE(h->number("rowOpenAnglePlus.hueSpan"), 90);
    QCOMPARE(h->number("rowOpenAngleMinus.hueSpan"), -90);
    const QImage drawn = h->grab(h->item("rowOpenAnglePlus"), QStringLiteral("chroma-angle"));
    const int hue = QColor(drawn.pixel(238, 57)).hslHue();
    QVERIFY2(qAbs(hue - 140) <= 2, qPrintable(QString::number(hue)));
    QVERIFY(qAbs(QColor(drawn.pixel(238 + 173, 57)).hslHue() - 185) <= 4);
    QVERIFY(qAbs(QColor(drawn.pixel(238 + 345, 57)).hslHue() - 230) <= 2);
    const QImage minus = h->grab(h->item("rowOpenAngleMinus"), QStringLiteral("chroma-angle-minus"));
    QVERIFY(qAbs(QColor(minus.pixel(238 + 345, 57)).hslHue() - 50) <= 2);
}

void TestChromaNumbers::hueBarsWrap_data()
{
    QTest::addColumn<int>("hue");
    QTest::addColumn<QString>("row");
    QTest::addColumn<int>("end");
    QTest::newRow("past 0") << 30 << "rowOpenAngleMinus" << 300;
    QTest::newRow("past 360") << 330 << "rowOpenAnglePlus" << 60;
    QTest::newRow("red up") << 0 << "rowOpenAnglePlus" << 90;
    QTest::newRow("red down") << 0 << "rowOpenAngleMinus" << 270;
    QTest::newRow("last up") << 359 << "rowOpenAnglePlus" << 89;
}

// The circle of hues has no end: a bar whose span leaves 0 to 359 goes on at the other side.
void TestChromaNumbers::hueBarsWrap()
{
    QFETCH(int, hue);
    QFETCH(QString, row);
    QFETCH(int, end);
    emit h->facade.refreshBKColorAdjust(QStringLiteral("#1fa24a"), 122, 639, 290, hue, 0.68, 0.38);
    const QImage drawn = h->grab(h->item(row), QStringLiteral("chroma-wrap"));
    const auto apart = [&](int x, int wanted) {
        const int off = qAbs(QColor(drawn.pixel(238 + x, 57)).hslHue() - wanted) % 360;
        return qMin(off, 360 - off);
    };
    QVERIFY2(apart(0, hue) <= 2, qPrintable(QString::number(apart(0, hue))));
    QVERIFY2(apart(345, end) <= 2, qPrintable(QString::number(apart(345, end))));
}

QTEST_MAIN(TestChromaNumbers)
#include "tst_chromanumbers.moc"
