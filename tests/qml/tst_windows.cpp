#include "pageharness.h"
#include "tests/support/checked.h"

// The garbage mask and the holdout window: two pages of one build, told apart by a table.
class TestWindows : public QObject
{
    Q_OBJECT

private slots:
    void startValues_data() { pages(); }
    void startValues();
    void loadingSendsNothing_data() { pages(); }
    void loadingSendsNothing();
    void everyRowGoesThroughTheThrottle_data() { pages(); }
    void everyRowGoesThroughTheThrottle();
    void typedNumberGoesTheDirectWay_data() { pages(); }
    void typedNumberGoesTheDirectWay();
    void switchGoesOffAndOnAtOnce_data() { pages(); }
    void switchGoesOffAndOnAtOnce();
    void invertGoesThroughTheThrottle_data() { pages(); }
    void invertGoesThroughTheThrottle();
    void invertIsDeadWhileOff_data() { pages(); }
    void invertIsDeadWhileOff();
    void resetAnswersAlsoWhileOff_data() { pages(); }
    void resetAnswersAlsoWhileOff();
    void refreshWritesEverything_data() { pages(); }
    void refreshWritesEverything();
    void onlyOneCountsAsInverted_data() { pages(); }
    void onlyOneCountsAsInverted();
    void longDragEndsOnTheLastValue_data() { pages(); }
    void longDragEndsOnTheLastValue();
    void foldMarkDoesNothing_data() { pages(); }
    void foldMarkDoesNothing();
    void languageChangesThePictures_data() { pages(); }
    void languageChangesThePictures();
    void invertOutlivesTheLanguage_data() { pages(); }
    void invertOutlivesTheLanguage();
    void nothingMovesWithTheLanguage_data() { pages(); }
    void nothingMovesWithTheLanguage();

private:
    void pages();
    void open();
    void close();
    // A call of this page's setter.
    QString sent(const QString &arguments) const { return QStringLiteral("set%1(%2)").arg(call, arguments); }
    QString row(int index) const { return prefix + edges[index]; }
    void refresh(bool enable, uint invert, uint left, uint right, uint top, uint bottom, uint border);

    const QStringList edges{"Left", "Right", "Top", "Bottom", "Border"};
    bool garbage = true;
    QString prefix, call, timer, on, inverted, invertTitle, invertButton;
    std::unique_ptr<PageHarness> h;
};

void TestWindows::pages()
{
    QTest::addColumn<bool>("isGarbage");
    QTest::newRow("garbage") << true;
    QTest::newRow("holdout") << false;
}

void TestWindows::open()
{
    QFETCH(bool, isGarbage);
    garbage = isGarbage;
    prefix = garbage ? "window" : "holdoutWindow";
    call = garbage ? "Window" : "HoldoutWindow";
    timer = garbage ? "timerGMSliderCommand" : "timerHWSliderCommand";
    on = garbage ? "windowOn" : "holdoutWindowOn";
    inverted = garbage ? "invertOn" : "holdoutInvertOn";
    invertTitle = garbage ? "invertTitle" : "holdoutWindowInvertTitle";
    invertButton = garbage ? "btnInvertSwitch" : "btnHoldoutWindowInvertSwitch";
    h = std::make_unique<PageHarness>(garbage ? "PageGarbageMask { id: page; anchors.fill: parent }"
                                              : "PageHoldoutWindow { id: page; anchors.fill: parent }");
    QVERIFY(h->show());
}

void TestWindows::close()
{
    QCOMPARE(Messages::warnings(), QStringList());
    h.reset();
}

void TestWindows::refresh(bool enable, uint invert, uint left, uint right, uint top, uint bottom, uint border)
{
    if (garbage)
        emit h->facade.refreshWindow(enable, invert, left, right, top, bottom, border);
    else
        emit h->facade.refreshHoldoutWindow(enable, invert, left, right, top, bottom, border);
}

void TestWindows::startValues()
{
    CHECKED(open());
    QCOMPARE(h->page->position(), QPointF(30, 10));
    QCOMPARE(h->page->width(), 1160.0);
    QCOMPARE(h->page->height(), 610.0);
    QVERIFY(h->flag(on));
    QVERIFY(!h->flag(inverted));
    QCOMPARE(h->text("windowTitle.text"), garbage ? QString("Garbage Window") : QString("Holdout Window"));
    QCOMPARE(h->number("pageGM_ContentArea01.implicitHeight"), 74 * 6);
    QCOMPARE(h->number("pageGM_ContentHeaderWindow.height"), 74);
    QCOMPARE(h->face("btnWindowSwitchImage.source"), QStringLiteral("btn_switch_on_dashboard"));
    QCOMPARE(h->face("btnWindowResetImage.source"), QStringLiteral("btn_n_reset_dashboard"));
    QCOMPARE(h->face(invertButton + "Image.source"), QStringLiteral("btn_switch_off_dashboard"));
    QCOMPARE(h->text(invertTitle + ".text"), QStringLiteral("Invert:"));
    const int across = garbage ? 1000 : 3840;
    const int down = garbage ? 1000 : 2160;
    const QVector<int> ends{across, across, down, down, 100};
    for (int i = 0; i < 5; ++i) {
        QCOMPARE(h->text(row(i) + ".title"), edges.at(i) + ":");
        QCOMPARE(h->number(row(i) + ".sliderMin"), 0);
        QCOMPARE(h->number(row(i) + ".sliderMax"), ends.at(i));
        QCOMPARE(h->number(row(i) + ".sliderValue"), 0);
        QCOMPARE(h->face(row(i) + ".bgImageSource"), QStringLiteral("img_bg_input_line"));
    }
    QCOMPARE(h->number(timer + ".interval"), 50);
    QVERIFY(!h->flag(timer + ".repeat"));
    CHECKED(close());
}

void TestWindows::loadingSendsNothing()
{
    CHECKED(open());
    QTest::qWait(150);
    QCOMPARE(h->facade.calls, QStringList());
    CHECKED(close());
}

void TestWindows::everyRowGoesThroughTheThrottle()
{
    CHECKED(open());
    QStringList values{"0", "0", "0", "0", "0"};
    for (int i = 0; i < 5; ++i) {
        h->facade.forget();
        values[i] = "1";
        const qint64 start = h->facade.now();
        h->click(row(i) + ".itemButtonIncrease");
        QCOMPARE(h->facade.calls, QStringList());
        QTRY_COMPARE(h->facade.calls, QStringList{sent("true, 0, " + values.join(", "))});
        QVERIFY(h->facade.times.first() - start >= 49);
    }
    CHECKED(close());
}

void TestWindows::typedNumberGoesTheDirectWay()
{
    CHECKED(open());
    for (int i = 0; i < 5; ++i) {
        h->facade.forget();
        Messages::logs().clear();
        QStringList values{"0", "0", "0", "0", "0"};
        values[i] = "64";
        h->typeInto(row(i) + ".itemText", "64");
        QCOMPARE(h->facade.calls,
                 (QStringList{sent("true, 0, " + values.join(", ")), "msecSleep(100)", "get" + call + "()"}));
        QCOMPARE(h->number(row(i) + ".sliderValue"), 0);
        const QStringList told = Messages::logs().filter("on Left TExtFieldChanged");
        if (i == 0 && !garbage)
            QCOMPARE(told, QStringList{"on Left TExtFieldChanged 64 Left:"});
        else
            QCOMPARE(told, QStringList());
    }
    // The whole frame of the largest picture, or the whole thousandths, can be typed.
    h->facade.forget();
    h->typeInto(row(1) + ".itemText", garbage ? "1,000" : "3,840");
    QCOMPARE(h->facade.calls.first(),
             sent(garbage ? "true, 0, 0, 1000, 0, 0, 0" : "true, 0, 0, 3840, 0, 0, 0"));
    CHECKED(close());
}

void TestWindows::switchGoesOffAndOnAtOnce()
{
    CHECKED(open());
    h->click("btnWindowSwitch");
    QCOMPARE(h->facade.calls, QStringList{sent("false, 0, 0, 0, 0, 0, 0")});
    QVERIFY(!h->flag(on));
    QCOMPARE(h->face("btnWindowSwitchImage.source"), QStringLiteral("btn_switch_off_dashboard"));
    QCOMPARE(h->face("btnWindowResetImage.source"), QStringLiteral("btn_d_reset_dashboard"));
    QCOMPARE(h->color(invertTitle + ".color"), QStringLiteral("#333333"));
    QCOMPARE(h->face(invertButton + "Image.source"), QStringLiteral("btn_switch_d_off_dashboard"));
    QVERIFY(!h->flag(invertButton + ".enabled"));
    for (int i = 0; i < 5; ++i) {
        QCOMPARE(h->color(row(i) + ".titleColor"), QStringLiteral("#333333"));
        QVERIFY(!h->flag(row(i) + ".itemSlider.enabled"));
        QVERIFY(!h->flag(row(i) + ".itemButtonDecrease.enabled"));
        QVERIFY(!h->flag(row(i) + ".itemButtonIncrease.enabled"));
    }
    h->click("btnWindowSwitch");
    QCOMPARE(h->facade.calls.last(), sent("true, 0, 0, 0, 0, 0, 0"));
    QVERIFY(h->flag(on));
    QCOMPARE(h->face("btnWindowSwitchImage.source"), QStringLiteral("btn_switch_on_dashboard"));
    QCOMPARE(h->face("btnWindowResetImage.source"), QStringLiteral("btn_n_reset_dashboard"));
    QCOMPARE(h->color(invertTitle + ".color"), QStringLiteral("#D8D8D8"));
    QCOMPARE(h->face(invertButton + "Image.source"), QStringLiteral("btn_switch_off_dashboard"));
    QVERIFY(h->flag(invertButton + ".enabled"));
    for (int i = 0; i < 5; ++i)
        QCOMPARE(h->color(row(i) + ".titleColor"), QStringLiteral("#D8D8D8"));
    CHECKED(close());
}

void TestWindows::invertGoesThroughTheThrottle()
{
    CHECKED(open());
    const qint64 start = h->facade.now();
    h->click(invertButton);
    QVERIFY(h->flag(inverted));
    QCOMPARE(h->face(invertButton + "Image.source"), QStringLiteral("btn_switch_on_dashboard"));
    QCOMPARE(h->facade.calls, QStringList());
    QTRY_COMPARE(h->facade.calls, QStringList{sent("true, 1, 0, 0, 0, 0, 0")});
    QVERIFY(h->facade.times.first() - start >= 49);
    h->click(invertButton);
    QCOMPARE(h->face(invertButton + "Image.source"), QStringLiteral("btn_switch_off_dashboard"));
    QTRY_COMPARE(h->facade.calls.size(), 2);
    QCOMPARE(h->facade.calls.last(), sent("true, 0, 0, 0, 0, 0, 0"));
    CHECKED(close());
}

void TestWindows::invertIsDeadWhileOff()
{
    CHECKED(open());
    refresh(false, 1, 0, 0, 0, 0, 0);
    QCOMPARE(h->face(invertButton + "Image.source"), QStringLiteral("btn_switch_d_on_dashboard"));
    QVERIFY(!h->flag(invertButton + ".enabled"));
    h->click(invertButton);
    QTest::qWait(120);
    QVERIFY(h->flag(inverted));
    QCOMPARE(h->facade.calls, QStringList());
    // Switched on again by the operator, it shows its live state.
    h->click("btnWindowSwitch");
    QCOMPARE(h->face(invertButton + "Image.source"), QStringLiteral("btn_switch_on_dashboard"));
    QCOMPARE(h->facade.calls, QStringList{sent("true, 1, 0, 0, 0, 0, 0")});
    CHECKED(close());
}

void TestWindows::resetAnswersAlsoWhileOff()
{
    CHECKED(open());
    refresh(false, 0, 0, 0, 0, 0, 0);
    QCOMPARE(h->face("btnWindowResetImage.source"), QStringLiteral("btn_d_reset_dashboard"));
    const QPoint place = h->middle(h->item("btnWindowReset"));
    h->press(place);
    QCOMPARE(h->face("btnWindowResetImage.source"), QStringLiteral("btn_p_reset_dashboard"));
    QCOMPARE(h->facade.calls, QStringList());
    h->release(place);
    QCOMPARE(h->face("btnWindowResetImage.source"), QStringLiteral("btn_n_reset_dashboard"));
    QCOMPARE(h->facade.calls, QStringList{"reset" + call + "()"});
    CHECKED(close());
}

void TestWindows::refreshWritesEverything()
{
    CHECKED(open());
    refresh(true, 1, 10, 20, 30, 40, 50);
    QVERIFY(h->flag(on));
    QVERIFY(h->flag(inverted));
    for (int i = 0; i < 5; ++i)
        QCOMPARE(h->number(row(i) + ".sliderValue"), (i + 1) * 10);
    QCOMPARE(h->face(invertButton + "Image.source"), QStringLiteral("btn_switch_on_dashboard"));
    // One echo with what the unit has just told, and none when nothing moved.
    QTRY_COMPARE(h->facade.calls, QStringList{sent("true, 1, 10, 20, 30, 40, 50")});
    refresh(true, 1, 10, 20, 30, 40, 50);
    QTest::qWait(120);
    QCOMPARE(h->facade.calls.size(), 1);
    refresh(false, 0, 10, 20, 30, 40, 50);
    QCOMPARE(h->face("btnWindowSwitchImage.source"), QStringLiteral("btn_switch_off_dashboard"));
    QCOMPARE(h->face(invertButton + "Image.source"), QStringLiteral("btn_switch_d_off_dashboard"));
    QTest::qWait(120);
    QCOMPARE(h->facade.calls.size(), 1);
    CHECKED(close());
}

void TestWindows::onlyOneCountsAsInverted()
{
    CHECKED(open());
    for (const uint other : {2U, 255U, 0U}) {
        refresh(true, 1, 0, 0, 0, 0, 0);
        QVERIFY(h->flag(inverted));
        refresh(true, other, 0, 0, 0, 0, 0);
        QVERIFY(!h->flag(inverted));
        QCOMPARE(h->face(invertButton + "Image.source"), QStringLiteral("btn_switch_off_dashboard"));
    }
    CHECKED(close());
}

void TestWindows::longDragEndsOnTheLastValue()
{
    CHECKED(open());
    h->facade.slowMs = 120;
    const QPoint from = h->handleAt(row(0), 0);
    h->press(from);
    for (int i = 1; i <= 80; ++i) {
        h->move(from + QPoint(3 * i, 0));
        QTest::qWait(5);
    }
    h->release(from + QPoint(240, 0));
    const int before = h->facade.calls.size();
    QTest::qWait(400);
    QTRY_COMPARE(h->facade.calls.last(),
                 sent(QStringLiteral("true, 0, %1, 0, 0, 0, 0").arg(h->number(row(0) + ".sliderValue"))));
    QVERIFY(h->facade.calls.size() >= 3);
    QVERIFY(h->facade.calls.size() <= before + 1);
    CHECKED(close());
}

void TestWindows::foldMarkDoesNothing()
{
    CHECKED(open());
    h->click("btnWindowFolder");
    QTest::qWait(250);
    QVERIFY(h->item(row(0))->isVisible());
    QCOMPARE(h->face("btnWindowFolder.source"), QStringLiteral("btn_n_show_dashboard"));
    QCOMPARE(h->facade.calls, QStringList());
    CHECKED(close());
}

void TestWindows::languageChangesThePictures()
{
    CHECKED(open());
    refresh(false, 1, 0, 0, 0, 0, 0);
    Messages::logs().clear();
    h->translator.setTranslation("zh_CN");
    QCOMPARE(h->text("sourcePath"), QStringLiteral("qrc:/img/pc/CN/"));
    QCOMPARE(h->face("btnWindowSwitchImage.source"), QStringLiteral("CN/btn_switch_off_dashboard"));
    QCOMPARE(h->face("btnWindowResetImage.source"), QStringLiteral("CN/btn_n_reset_dashboard"));
    // Wrong until the next refresh, and accepted.
    QCOMPARE(h->face(invertButton + "Image.source"), QStringLiteral("CN/btn_switch_off_dashboard"));
    QVERIFY(Messages::logs().contains(garbage ? "onLanguageChanged(Garbage)" : "onLanguageChanged(Holdout)"));
    refresh(true, 1, 0, 0, 0, 0, 0);
    QCOMPARE(h->face(invertButton + "Image.source"), QStringLiteral("CN/btn_switch_on_dashboard"));
    CHECKED(close());
}

// The picture of the invert goes off with each switch, its state stays; clicks read the state, not the picture.
void TestWindows::invertOutlivesTheLanguage()
{
    CHECKED(open());
    refresh(true, 1, 1, 2, 3, 4, 5);
    QTRY_COMPARE(h->facade.calls.size(), 1);
    const QVector<QStringList> languages{
        {"zh_TW", "TW/", "反相:"}, {"zh_CN", "CN/", "反相:"}, {"en_US", "", "Invert:"}};
    for (const QStringList &it : languages) {
        h->facade.forget();
        h->translator.setTranslation(it.at(0));
        QCOMPARE(h->text(invertTitle + ".text"), it.at(2));
        QCOMPARE(h->face(invertButton + "Image.source"), it.at(1) + "btn_switch_off_dashboard");
        QVERIFY(h->flag(inverted));
        QVERIFY(h->flag(invertButton + ".enabled"));
        QTest::qWait(120);
        QCOMPARE(h->facade.calls, QStringList());
        h->click(invertButton);
        QVERIFY(!h->flag(inverted));
        QCOMPARE(h->face(invertButton + "Image.source"), it.at(1) + "btn_switch_off_dashboard");
        QTRY_COMPARE(h->facade.calls, QStringList{sent("true, 0, 1, 2, 3, 4, 5")});
        h->click(invertButton);
        QVERIFY(h->flag(inverted));
        QCOMPARE(h->face(invertButton + "Image.source"), it.at(1) + "btn_switch_on_dashboard");
        QTRY_COMPARE(h->facade.calls.last(), sent("true, 1, 1, 2, 3, 4, 5"));
    }
    CHECKED(close());
}

void TestWindows::nothingMovesWithTheLanguage()
{
    CHECKED(open());
    refresh(true, 0, 120, 905, 64, 1000, 8);
    for (const char *language : {"en_US", "zh_TW", "zh_CN"}) {
        h->translator.setTranslation(language);
        QTest::qWait(50); // rows and columns lay themselves out with the next frame
        QCOMPARE(h->at(h->item("btnWindowSwitch"), 0, 0), QPoint(504, 180));
        QCOMPARE(h->at(h->item("btnWindowReset"), 0, 0), QPoint(1206, 177));
        QCOMPARE(h->at(h->item(row(0) + ".itemSlider"), 0, 0), QPoint(444, 266));
        QCOMPARE(h->at(h->item(invertButton), 0, 0), QPoint(504, 624));
    }
    CHECKED(close());
}

QTEST_MAIN(TestWindows)
#include "tst_windows.moc"
