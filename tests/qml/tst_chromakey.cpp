#include "chromapanel.h"

// The chromakey page: its rows, and the commands that sliders, fields and buttons send.
class TestChromakey : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void loadingIsNoChange();
    void rowsStandAsTold_data();
    void rowsStandAsTold();
    void smallTextsUnderTheGrooves();
    void sliderSendsItsGroup_data();
    void sliderSendsItsGroup();
    void typedNumberGoesOutAtOnce_data();
    void typedNumberGoesOutAtOnce();
    void typedNumberOutsideTheRangeIsNotAccepted();
    void buttonsStepByOne();
    void firstMoveOpensTheWindow();
    void longDragSendsOneCommandPerWindow();
    void slowUnitIsNeverMoreThanOneCommandBehind_data();
    void slowUnitIsNeverMoreThanOneCommandBehind();
    void onlyTheLaterGroupOfAWindowIsSent();
    void openAngleSendsMinusFirst();
    void openAngleFieldMovesTheSliderByKeystroke();
    void openAngleFieldHoldsFourCharacters();
    void openAngleButtonsStopAtTheEnds();
    void colourFieldsSendAllThree_data();
    void colourFieldsSendAllThree();
    void colourFieldHoldsTheUnitsRange();
    void automaticColour();
    void automaticColourShowsItsPress();
    void swatchDoesNothing();
    void hueBarsShowTheSpan();
    void hueBarsWrap_data();
    void hueBarsWrap();
    void contentScrolls();

private:
    std::unique_ptr<ChromaPanel> h;
};

void TestChromakey::init()
{
    h = std::make_unique<ChromaPanel>();
    QVERIFY(h->show());
}

void TestChromakey::cleanup()
{
    QCOMPARE(Messages::warnings(), QStringList());
    h.reset();
}

void TestChromakey::loadingIsNoChange()
{
    h->waitForThrottle();
    QCOMPARE(h->facade.calls, QStringList());
    QCOMPARE(h->number("commandIndex"), 0);
    QCOMPARE(h->number("sliderOPPlus.value"), 45);
    QCOMPARE(h->number("sliderOPMinus.value"), 45);
    QVERIFY(h->flag("matteOn && darkEnhanceOn && brightEnhanceOn && shadowEnhanceOn && edgeFix"));
    QCOMPARE(h->text("[ckColorR, ckColorG, ckColorB].join()"), QStringLiteral("0,255,0"));
    QCOMPARE(h->text("[colorBKH, colorBKS, colorBKL].join()"), QStringLiteral("0.3,0.5,0.5"));
    QCOMPARE(h->text("[videoOutRes, xMax, yMax, colorTempH].join()"), QStringLiteral("16,478,268,0.3"));
    QCOMPARE(h->color("recColorAdjust.color"), QStringLiteral("#00FF00"));
    QCOMPARE(h->text("colorDialog.title"), QStringLiteral("Choose a color"));
    h->grab(h->window->contentItem(), QStringLiteral("chroma-start"));
}

void TestChromakey::rowsStandAsTold_data()
{
    listChromaRows();
}

void TestChromakey::rowsStandAsTold()
{
    QFETCH(int, index);
    const ChromaRow row = chromaRows().at(index);
    const QString id = QLatin1String(row.id);
    QCOMPARE(h->text(id + ".title"), QLatin1String(row.title));
    QCOMPARE(h->number(id + ".sliderMin"), 0);
    QCOMPARE(h->number(id + ".sliderMax"), row.high);
    QCOMPARE(h->number(id + ".sliderValue"), 0);
    QCOMPARE(h->flag(id + ".visible"), row.shown);
    QCOMPARE(h->number(id + ".textValueMaxlength"), id.startsWith("shrink") ? 2 : 6);
}

void TestChromakey::smallTextsUnderTheGrooves()
{
    const QStringList texts = {"dark",   "Dark",  "Middle", "bright", "Bright",
                               "Middle", "spill", "Cool",   "Warm"};
    for (int i = 0; i < texts.size(); i += 3) {
        const QString row = texts.at(i) + "Balance";
        QCOMPARE(h->text(row + ".sliderTextLeftText"), texts.at(i + 1));
        QCOMPARE(h->text(row + ".sliderTextRightText"), texts.at(i + 2));
    }
}

void TestChromakey::sliderSendsItsGroup_data()
{
    listChromaRows();
}

void TestChromakey::sliderSendsItsGroup()
{
    QFETCH(int, index);
    const ChromaRow row = chromaRows().at(index);
    const QString id = QLatin1String(row.id);
    h->fill();
    if (row.shown)
        h->drag(id + ".itemSlider", row.high * 0.7);
    else
        h->eval(id + ".sliderValue = " + QString::number(row.high * 7 / 10)); // no hand can reach it
    const int value = h->number(id + ".sliderValue");
    QVERIFY(qAbs(value - row.high * 0.7) < row.high * 0.05);
    h->waitForThrottle();
    QStringList expected = {"setRefreshTimer(false)", QString(row.command).arg(value),
                            "setRefreshTimer(true)"};
    // This row alone stops the poll with the move already.
    while (id == "shrinkLeft" && expected.size() < h->facade.calls.size())
        expected.prepend("setRefreshTimer(false)");
    QCOMPARE(h->facade.calls, expected);
    QVERIFY(id != "shrinkLeft" || expected.size() > 3);
}

void TestChromakey::typedNumberGoesOutAtOnce_data()
{
    listChromaRows();
}

void TestChromakey::typedNumberGoesOutAtOnce()
{
    QFETCH(int, index);
    const ChromaRow row = chromaRows().at(index);
    const QString id = QLatin1String(row.id);
    h->fill();
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

void TestChromakey::typedNumberOutsideTheRangeIsNotAccepted()
{
    h->fill();
    h->typeInto(h->seen("softEdge.itemText"), QStringLiteral("101"));
    QTest::qWait(80);
    QCOMPARE(h->facade.calls, QStringList());
    QCOMPARE(h->text("softEdge.itemText.text"), QStringLiteral("101"));
    // Text that was not accepted stands until the slider next changes.
    h->click(h->seen("softEdge.itemButtonIncrease"));
    QCOMPARE(h->text("softEdge.itemText.text"), QStringLiteral("14"));
}

void TestChromakey::buttonsStepByOne()
{
    h->fill();
    h->click(h->seen("darkLevel.itemButtonIncrease"));
    QCOMPARE(h->number("darkLevel.sliderValue"), 211);
    h->click(h->seen("darkLevel.itemButtonDecrease"));
    h->click(h->seen("darkLevel.itemButtonDecrease"));
    QCOMPARE(h->number("darkLevel.sliderValue"), 209);
    h->waitForThrottle();
    QCOMPARE(h->callsButPolls().last(), QStringLiteral("setCKDark(true, 209, 220, 30)"));
}

void TestChromakey::firstMoveOpensTheWindow()
{
    h->fill();
    QQuickItem *slider = h->seen("blackLevel.itemSlider");
    h->press(h->handle(slider, 100));
    const qint64 start = h->facade.now();
    h->move(h->handle(slider, 300));
    // A window that the moves put off would stay open as long as they go on.
    for (int i = 1; i <= 60 && h->callsButPolls().isEmpty(); ++i) {
        h->move(h->handle(slider, 400 + 5 * i));
        QTest::qWait(8);
    }
    QCOMPARE(h->callsButPolls().size(), 1);
    // The toolkit counts the 50 ms from its last tick, so a little less may pass.
    QVERIFY(h->facade.timesOf("setCKBWLevel").constFirst() - start >= 30);
    QCOMPARE(h->number("timerSliderCommand.interval"), 50);
    QVERIFY(!h->flag("timerSliderCommand.repeat"));
    QVERIFY(h->number("blackLevel.sliderValue") > 380);
    QCOMPARE(h->callsButPolls().constFirst(),
             QStringLiteral("setCKBWLevel(%1, 900, true)").arg(h->number("blackLevel.sliderValue")));
    h->release(h->handle(slider, 700));
}

void TestChromakey::longDragSendsOneCommandPerWindow()
{
    h->fill();
    QQuickItem *slider = h->seen("whiteLevel.itemSlider");
    h->press(h->handle(slider, 900));
    const qint64 start = h->facade.now();
    int step = 0;
    while (h->facade.now() - start < 600) {
        h->move(h->handle(slider, 900 - 4 * ++step));
        QTest::qWait(5);
    }
    h->release(h->handle(slider, 900 - 4 * step));
    h->waitForThrottle();
    const QVector<qint64> times = h->facade.timesOf("setCKBWLevel");
    QVERIFY2(times.size() >= 3 && times.size() <= 13, qPrintable(QString::number(times.size())));
    for (int i = 1; i < times.size(); ++i)
        QVERIFY(times.at(i) - times.at(i - 1) >= 30);
    QCOMPARE(h->callsButPolls().last(),
             QStringLiteral("setCKBWLevel(100, %1, true)").arg(h->number("whiteLevel.sliderValue")));
}

void TestChromakey::slowUnitIsNeverMoreThanOneCommandBehind_data()
{
    QTest::addColumn<QString>("slider");
    for (const ChromaRow &row : chromaRows()) {
        if (row.shown)
            QTest::newRow(row.id) << QString(row.id) + ".itemSlider";
    }
    QTest::newRow("plus") << QStringLiteral("sliderOPPlus");
    QTest::newRow("minus") << QStringLiteral("sliderOPMinus");
}

void TestChromakey::slowUnitIsNeverMoreThanOneCommandBehind()
{
    QFETCH(QString, slider);
    h->fill();
    QQuickItem *item = h->seen(slider);
    const qreal high = item->property("maximumValue").toReal();
    h->facade.slowMs = 150;
    h->press(h->handle(item, item->property("value").toReal()));
    const qint64 start = h->facade.now();
    while (h->facade.now() - start < 900) {
        h->move(h->handle(item, high * (1 - double(h->facade.now() - start) / 1200)));
        QTest::qWait(10);
    }
    h->move(h->handle(item, high / 5));
    h->release(h->handle(item, high / 5));
    const int sent = h->callsButPolls().size();
    QTest::qWait(500);
    const QStringList calls = h->callsButPolls();
    QVERIFY(sent >= 2 && calls.size() <= sent + 1);
    const QString last = QString::number(item->property("value").toInt());
    QVERIFY2(calls.last().split(QRegularExpression("[(), ]+")).contains(last), qPrintable(calls.last()));
}

void TestChromakey::onlyTheLaterGroupOfAWindowIsSent()
{
    h->fill();
    h->click(h->seen("whiteLevel.itemButtonDecrease"));
    h->click(h->seen("darkLevel.itemButtonIncrease"));
    h->waitForThrottle();
    QCOMPARE(h->callsButPolls(), QStringList("setCKDark(true, 211, 220, 30)"));
    QCOMPARE(h->number("commandIndex"), 3);
}

void TestChromakey::openAngleSendsMinusFirst()
{
    h->fill();
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

void TestChromakey::openAngleFieldMovesTheSliderByKeystroke()
{
    h->fill();
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

void TestChromakey::openAngleFieldHoldsFourCharacters()
{
    h->fill();
    for (const char *field : {"txtChromaOAPlus", "txtChromaOAMinus"}) {
        QCOMPARE(h->number(QLatin1String(field) + ".maximumLength"), 4);
        h->typeInto(QLatin1String(field), QStringLiteral("00001"), Qt::Key_unknown);
        QCOMPARE(h->text(QLatin1String(field) + ".text"), QStringLiteral("0000"));
    }
    QCOMPARE(h->number("sliderOPPlus.value"), 0);
    QCOMPARE(h->number("sliderOPMinus.value"), 0);
}

void TestChromakey::openAngleButtonsStopAtTheEnds()
{
    h->fill();
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

void TestChromakey::colourFieldsSendAllThree_data()
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

void TestChromakey::colourFieldsSendAllThree()
{
    QFETCH(QString, field);
    QFETCH(QString, command);
    h->fill();
    h->typeInto(field, QStringLiteral("8"));
    QCOMPARE(h->facade.calls, QStringList(command));
}

void TestChromakey::colourFieldHoldsTheUnitsRange()
{
    h->fill();
    h->typeInto(QStringLiteral("txtBGG"), QStringLiteral("1000"));
    QCOMPARE(h->facade.calls, QStringList("setBKColor(122, 1000, 290, 0)"));
    h->facade.forget();
    h->typeInto(QStringLiteral("txtBGG"), QStringLiteral("1001"));
    QCOMPARE(h->facade.calls, QStringList());
}

void TestChromakey::automaticColour()
{
    h->fill();
    h->noteEnabled("btnCkBKColorAuto");
    h->click("btnCkBKColorAuto");
    QCOMPARE(h->facade.calls, QStringList({"dead", "setBKColor(122, 639, 290, 2)", "alive"}));
    QCOMPARE(Messages::logs(), QStringList({"Begin CK Auto", "End CK Auto"}));
    QVERIFY(h->flag("btnCkBKColorAuto.enabled"));
}

void TestChromakey::automaticColourShowsItsPress()
{
    h->fill();
    const QPoint place = h->middle(h->item("btnCkBKColorAuto"));
    h->press(place);
    QCOMPARE(h->face("btnCkBKColorAuto.source"), QStringLiteral("btn_p_auto_bg_chromakey"));
    h->release(place);
    QCOMPARE(h->face("btnCkBKColorAuto.source"), QStringLiteral("btn_n_auto_bg_chromakey"));
    h->translator.setTranslation(QStringLiteral("zh_CN"));
    h->press(place);
    QCOMPARE(h->face("btnCkBKColorAuto.source"), QStringLiteral("CN/btn_p_auto_bg_chromakey"));
    // A report that takes the button away under the finger leaves its dead face.
    emit h->facade.refreshCKBWLevel(100, 900, false);
    QCOMPARE(h->face("btnCkBKColorAuto.source"), QStringLiteral("CN/btn_d_auto_bg_chromakey"));
    h->facade.forget();
    h->release(place);
    QCOMPARE(h->face("btnCkBKColorAuto.source"), QStringLiteral("CN/btn_d_auto_bg_chromakey"));
    QCOMPARE(h->facade.callsOf("setBKColor"), QStringList());
}

void TestChromakey::swatchDoesNothing()
{
    h->fill();
    h->click("recColorAdjust");
    QTest::qWait(80);
    QCOMPARE(h->facade.calls, QStringList());
    QVERIFY(!h->flag("popupColorPicker.visible"));
}

void TestChromakey::hueBarsShowTheSpan()
{
    h->fill();
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

void TestChromakey::hueBarsWrap_data()
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
void TestChromakey::hueBarsWrap()
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

void TestChromakey::contentScrolls()
{
    h->fill();
    QCOMPARE(h->text("[scrollContent.x, scrollContent.y, scrollContent.width, scrollContent.height].join()"),
             QStringLiteral("30,10,1140,610"));
    QVERIFY(h->flag("scrollContent.clip"));
    QCOMPARE(h->number("scrollContent.contentHeight"), 444 + 150 + 150 + 150 + 370 + 296);
    QQuickItem *bar = h->item("scrollContent.ScrollBar.vertical");
    QCOMPARE(bar->property("policy").toInt(), 2); // always on
    QCOMPARE(bar->mapToItem(h->item("scrollContent"), QPointF()), QPointF(1110 + 14, 0));
    QCOMPARE(bar->height(), 610.0);
    // To the end of the bar, and the last row stands whole above the page's lower edge.
    h->press(h->at(bar, 6, 20));
    for (int y = 20; y <= 605; y += 45)
        h->move(h->at(bar, 6, y));
    h->release(h->at(bar, 6, 605));
    QQuickItem *last = h->item("softEdge");
    QTRY_COMPARE(last->mapToItem(h->item("scrollContent"), QPointF(0, last->height())).y(), 610.0);
}

QTEST_MAIN(TestChromakey)
#include "tst_chromakey.moc"
