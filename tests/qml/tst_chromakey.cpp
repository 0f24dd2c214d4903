#include "chromapanel.h"

// The chromakey page: its rows, and the commands that sliders and buttons send.
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
    void buttonsStepByOne();
    void firstMoveOpensTheWindow();
    void longDragSendsOneCommandPerWindow();
    void slowUnitIsNeverMoreThanOneCommandBehind_data();
    void slowUnitIsNeverMoreThanOneCommandBehind();
    void onlyTheLaterGroupOfAWindowIsSent();
    void automaticColour();
    void automaticColourShowsItsPress();
    void swatchDoesNothing();

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
    while (h->facade.timesOf("setCKBWLevel").size() < 5 && h->facade.now() - start < 60000) {
        h->move(h->handle(slider, 900 - 4 * (++step % 200)));
        QTest::qWait(5);
    }
    h->release(h->handle(slider, 900 - 4 * step));
    h->waitForThrottle();
    const QVector<qint64> times = h->facade.timesOf("setCKBWLevel");
    QVERIFY2(times.size() >= 5, qPrintable(QString::number(times.size())));
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

QTEST_MAIN(TestChromakey)
#include "tst_chromakey.moc"
