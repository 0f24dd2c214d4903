#include "pageharness.h"

// The input and output page: table, source, freezes, genlock.
class TestInput : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void startValues();
    void loadingSendsNothing();
    void resolutionCodesBecomeTexts();
    void codeOutsideTheTableLeavesTheText();
    void genlockStatusFollowsTheUnitAndTheLanguage();
    void firstTwoSourceChangesAreSwallowed();
    void refreshOfTheSourceIsSentBack();
    void operatorChoosesTheSource();
    void freezesTakeEffectAtOnce_data();
    void freezesTakeEffectAtOnce();
    void freezeRefreshSetsFlagsAndFaces();
    void genlockSwitchGoesOffAndOn();
    void genlockRefreshGreysTheSection();
    void genlockIsOnWhenNotZero();
    void resetAnswersOnRelease();
    void firstWriteToEachSliderIsNotSentBack();
    void laterRefreshIsSentBackOnce();
    void throttleSendsTheLatestPosition();
    void longDragSendsOneCommandPerWindow();
    void slowUnitIsNeverMoreThanOneCommandBehind();
    void buttonsStepByOne();
    void typedNumberMovesTheSlider();
    void groupSignsShowTheirNumber_data();
    void groupSignsShowTheirNumber();
    void foldTakesItsTime();
    void sourceListHoldsBothSources();
    void nothingMovesWithTheLanguage();
    void numberOutOfRangeIsNotAccepted();
    void foldHidesTheOffsets();
    void refreshWhileFoldedWritesTheSliders();
    void languageChangesThePictures();
    void standsWhereTheOtherPagesStand();

private:
    // Uses up the guards of the sliders, as the first refresh does.
    void firstRefresh();
    // Uses up what is left of the guards of the source combo.
    void firstSource();

    std::unique_ptr<PageHarness> h;
};

void TestInput::init()
{
    h = std::make_unique<PageHarness>("PageInput { id: page; anchors.fill: parent }");
    QVERIFY(h->show());
}

void TestInput::cleanup()
{
    QCOMPARE(Messages::warnings(), QStringList());
    h.reset();
    QLocale::setDefault(QLocale::c());
}

void TestInput::firstRefresh()
{
    emit h->facade.refreshGenlock(1, 10, 20);
    QCOMPARE(h->number("horizontalOffset.sliderValue"), 10);
    QCOMPARE(h->number("verticalOffset.sliderValue"), 20);
    QTest::qWait(100);
    h->facade.forget();
    Messages::logs().clear();
}

void TestInput::firstSource()
{
    emit h->facade.refreshInputSource(1, 0, 0);
    QVERIFY(!h->flag("ignoreGenVRefresh"));
    h->facade.forget();
}

void TestInput::startValues()
{
    for (const char *id : {"txtFGRes", "txtBGRes", "txtAuxRes", "txtSyncRes"})
        QCOMPARE(h->text(QString(id) + ".text"), QStringLiteral("1080p59"));
    QCOMPARE(h->text("txtGenlockStatus.text"), QStringLiteral("Unlocked"));
    QCOMPARE(h->text("genlockTitle.text"), QStringLiteral("Genlock"));
    QCOMPARE(h->text("horizontalOffset.title"), QStringLiteral("Horizontal Offset:"));
    QCOMPARE(h->text("verticalOffset.title"), QStringLiteral("Vertical Offset:"));
    QCOMPARE(h->number("horizontalOffset.sliderMin"), -5500);
    QCOMPARE(h->number("horizontalOffset.sliderMax"), 5500);
    QCOMPARE(h->number("horizontalOffset.sliderValue"), 0);
    QCOMPARE(h->number("verticalOffset.sliderMin"), -500);
    QCOMPARE(h->number("verticalOffset.sliderMax"), 500);
    QCOMPARE(h->number("verticalOffset.sliderValue"), 0);
    QCOMPARE(h->text("comboFGSource.currentText"), QStringLiteral("SDI"));
    QCOMPARE(h->number("comboFGSource.count"), 2);
    QCOMPARE(h->number("comboFGSource.width"), 150);
    QCOMPARE(h->number("comboFGSource.height"), 32);
    for (const char *id : {"freezeFG", "freezeBG", "freezeAUX", "genlockFolded"})
        QVERIFY(!h->flag(id));
    QVERIFY(h->flag("genlockOn"));
    QCOMPARE(h->number("commandIndex"), 0);
    QCOMPARE(h->face("imgFGFreeze.source"), QStringLiteral("btn_switch_off_dashboard"));
    QCOMPARE(h->face("btnGenlockSwitch.source"), QStringLiteral("btn_switch_on_dashboard"));
    QCOMPARE(h->face("btnGenlockReset.source"), QStringLiteral("btn_n_reset_dashboard"));
    QCOMPARE(h->number("pageInput_ContentGenlock.height"), 225);
    QCOMPARE(h->number("input_timerSliderCommand.interval"), 50);
    QVERIFY(!h->flag("input_timerSliderCommand.repeat"));
}

void TestInput::loadingSendsNothing()
{
    QTest::qWait(150);
    QCOMPARE(h->facade.calls, QStringList());
    // The combo's own step to its first entry was the first of the two swallowed changes.
    QVERIFY(!h->flag("ignoreGenHRefresh"));
    QVERIFY(h->flag("ignoreGenVRefresh"));
    QVERIFY(h->flag("ignoreGenHInit"));
    QVERIFY(h->flag("ignoreGenVInit"));
}

void TestInput::resolutionCodesBecomeTexts()
{
    emit h->facade.refreshInputResolution(0, 6, 32, 15, 0);
    QCOMPARE(h->text("txtFGRes.text"), QStringLiteral("None"));
    QCOMPARE(h->text("txtBGRes.text"), QStringLiteral("1080i50"));
    QCOMPARE(h->text("txtAuxRes.text"), QStringLiteral("2160wp60"));
    QCOMPARE(h->text("txtSyncRes.text"), QStringLiteral("1080p59.94"));
    QCOMPARE(h->facade.calls, QStringList());
}

void TestInput::codeOutsideTheTableLeavesTheText()
{
    emit h->facade.refreshInputResolution(3, 4, 5, 6, 0);
    emit h->facade.refreshInputResolution(33, 255, unsigned(-1), 999, 0);
    QCOMPARE(h->text("txtFGRes.text"), QStringLiteral("720p50"));
    QCOMPARE(h->text("txtBGRes.text"), QStringLiteral("720p59.94"));
    QCOMPARE(h->text("txtAuxRes.text"), QStringLiteral("720p60"));
    QCOMPARE(h->text("txtSyncRes.text"), QStringLiteral("1080i50"));
}

void TestInput::genlockStatusFollowsTheUnitAndTheLanguage()
{
    emit h->facade.refreshInputResolution(3, 3, 3, 3, 1);
    QCOMPARE(h->text("txtGenlockStatus.text"), QStringLiteral("Locked"));
    emit h->facade.refreshInputResolution(3, 3, 3, 3, 0);
    QCOMPARE(h->text("txtGenlockStatus.text"), QStringLiteral("Unlocked"));
    emit h->facade.refreshInputResolution(3, 3, 3, 3, -1);
    QCOMPARE(h->text("txtGenlockStatus.text"), QStringLiteral("Locked"));
    h->translator.setTranslation("zh_TW");
    QCOMPARE(h->text("txtGenlockStatus.text"), QStringLiteral("鎖定"));
    h->translator.setTranslation("zh_CN");
    QCOMPARE(h->text("txtGenlockStatus.text"), QStringLiteral("锁定"));
    emit h->facade.refreshInputResolution(3, 3, 3, 3, 0);
    QCOMPARE(h->text("txtGenlockStatus.text"), QStringLiteral("未锁定"));
    h->translator.setTranslation("en_US");
    QCOMPARE(h->text("txtGenlockStatus.text"), QStringLiteral("Unlocked"));
}

void TestInput::firstTwoSourceChangesAreSwallowed()
{
    emit h->facade.refreshInputSource(1, 0, 0);
    QCOMPARE(h->number("comboFGSource.currentIndex"), 1);
    QCOMPARE(h->facade.calls, QStringList());
    QVERIFY(!h->flag("ignoreGenVRefresh"));
    emit h->facade.refreshInputSource(0, 0, 0);
    QCOMPARE(h->facade.calls, QStringList{"setVInSource(0, 0, 0, false, false, false, true, 0, 0)"});
}

void TestInput::refreshOfTheSourceIsSentBack()
{
    firstSource();
    Messages::logs().clear();
    emit h->facade.refreshInputSource(0, 1, 1);
    QCOMPARE(h->facade.calls, QStringList{"setVInSource(0, 0, 0, false, false, false, true, 0, 0)"});
    QCOMPARE(Messages::logs(),
             (QStringList{"comboFGSource index changed: 0", "comboFGSource index changed BBB: 0"}));
    emit h->facade.refreshInputSource(0, 0, 0);
    QCOMPARE(h->facade.calls.size(), 1);
}

void TestInput::operatorChoosesTheSource()
{
    emit h->facade.refreshInputSource(1, 0, 0);
    h->click("comboFGSource");
    QTRY_VERIFY(h->flag("comboFGSource.popupVisible"));
    // The first row lies under the combo.
    QQuickItem *combo = h->item("comboFGSource");
    const QPoint row = h->at(combo, 40, combo->height() * 1.5);
    h->press(row);
    h->release(row);
    QTRY_COMPARE(h->number("comboFGSource.currentIndex"), 0);
    QCOMPARE(h->facade.calls, QStringList{"setVInSource(0, 0, 0, false, false, false, true, 0, 0)"});
}

void TestInput::freezesTakeEffectAtOnce_data()
{
    QTest::addColumn<QString>("id");
    QTest::addColumn<QString>("sent");
    QTest::newRow("FG") << "imgFGFreeze"
                        << "true, false, false";
    QTest::newRow("BG") << "imgBGFreeze"
                        << "false, true, false";
    QTest::newRow("AUX") << "imgAUXFreeze"
                         << "false, false, true";
}

void TestInput::freezesTakeEffectAtOnce()
{
    QFETCH(QString, id);
    QFETCH(QString, sent);
    h->click(id);
    QCOMPARE(h->facade.calls, QStringList{"setVInSource(0, 0, 0, " + sent + ", true, 0, 0)"});
    QCOMPARE(h->face(id + ".source"), QStringLiteral("btn_switch_on_dashboard"));
    h->click(id);
    QCOMPARE(h->facade.calls.last(),
             QStringLiteral("setVInSource(0, 0, 0, false, false, false, true, 0, 0)"));
    QCOMPARE(h->face(id + ".source"), QStringLiteral("btn_switch_off_dashboard"));
}

void TestInput::freezeRefreshSetsFlagsAndFaces()
{
    emit h->facade.refreshInputFreeze(true, false, true);
    QVERIFY(h->flag("freezeFG"));
    QVERIFY(!h->flag("freezeBG"));
    QVERIFY(h->flag("freezeAUX"));
    QCOMPARE(h->face("imgFGFreeze.source"), QStringLiteral("btn_switch_on_dashboard"));
    QCOMPARE(h->face("imgBGFreeze.source"), QStringLiteral("btn_switch_off_dashboard"));
    QCOMPARE(h->face("imgAUXFreeze.source"), QStringLiteral("btn_switch_on_dashboard"));
    QCOMPARE(h->facade.calls, QStringList());
}

void TestInput::genlockSwitchGoesOffAndOn()
{
    firstRefresh();
    h->click("btnGenlockSwitch");
    QCOMPARE(h->facade.calls, QStringList{"setVInSource(0, 0, 0, false, false, false, false, 10, 20)"});
    QCOMPARE(h->face("btnGenlockSwitch.source"), QStringLiteral("btn_switch_off_dashboard"));
    QCOMPARE(h->face("btnGenlockReset.source"), QStringLiteral("btn_d_reset_dashboard"));
    QVERIFY(!h->flag("btnGenlockReset.enabled"));
    QVERIFY(!h->flag("itemOffset.enabled"));
    QCOMPARE(h->color("horizontalOffset.titleColor"), QStringLiteral("#333333"));
    QCOMPARE(h->color("verticalOffset.titleColor"), QStringLiteral("#333333"));
    h->click("btnGenlockSwitch");
    QCOMPARE(h->facade.calls.last(),
             QStringLiteral("setVInSource(0, 0, 0, false, false, false, true, 10, 20)"));
    QCOMPARE(h->face("btnGenlockSwitch.source"), QStringLiteral("btn_switch_on_dashboard"));
    QCOMPARE(h->face("btnGenlockReset.source"), QStringLiteral("btn_n_reset_dashboard"));
    QVERIFY(h->flag("btnGenlockReset.enabled"));
    QCOMPARE(h->color("horizontalOffset.titleColor"), QStringLiteral("#D8D8D8"));
}

void TestInput::genlockRefreshGreysTheSection()
{
    emit h->facade.refreshGenlock(0, 0, 0);
    QVERIFY(!h->flag("genlockOn"));
    QVERIFY(!h->flag("btnGenlockReset.enabled"));
    QCOMPARE(h->face("btnGenlockReset.source"), QStringLiteral("btn_d_reset_dashboard"));
    QCOMPARE(h->face("btnGenlockSwitch.source"), QStringLiteral("btn_switch_off_dashboard"));
    for (const char *row : {"horizontalOffset", "verticalOffset"}) {
        QCOMPARE(h->color(QString(row) + ".titleColor"), QStringLiteral("#333333"));
        QVERIFY(!h->flag(QString(row) + ".itemSlider.enabled"));
    }
    h->click("btnGenlockReset");
    QCOMPARE(h->facade.calls, QStringList());
}

void TestInput::genlockIsOnWhenNotZero()
{
    emit h->facade.refreshGenlock(0, 0, 0);
    emit h->facade.refreshGenlock(2, 0, 0);
    QVERIFY(h->flag("genlockOn"));
    emit h->facade.refreshGenlock(-1, 0, 0);
    QVERIFY(h->flag("genlockOn"));
}

void TestInput::resetAnswersOnRelease()
{
    const QPoint place = h->middle(h->item("btnGenlockReset"));
    h->press(place);
    QCOMPARE(h->face("btnGenlockReset.source"), QStringLiteral("btn_p_reset_dashboard"));
    QCOMPARE(h->facade.calls, QStringList());
    h->release(place);
    QCOMPARE(h->face("btnGenlockReset.source"), QStringLiteral("btn_n_reset_dashboard"));
    QCOMPARE(h->facade.calls, QStringList{"resetGenlock()"});
}

void TestInput::firstWriteToEachSliderIsNotSentBack()
{
    emit h->facade.refreshGenlock(1, -240, 12);
    QCOMPARE(h->number("horizontalOffset.sliderValue"), -240);
    QCOMPARE(h->number("verticalOffset.sliderValue"), 12);
    QVERIFY(!h->flag("ignoreGenHInit"));
    QVERIFY(!h->flag("ignoreGenVInit"));
    QTest::qWait(150);
    QCOMPARE(h->facade.calls, QStringList());
    QCOMPARE(Messages::logs().filter("Slider Changed").size(), 2);
}

void TestInput::laterRefreshIsSentBackOnce()
{
    firstRefresh();
    emit h->facade.refreshGenlock(1, 11, 20);
    QTest::qWait(200);
    QCOMPARE(h->facade.calls,
             (QStringList{"setRefreshTimer(false)", "setRefreshTimer(false)",
                          "setVInSource(0, 0, 0, false, false, false, true, 11, 20)"}));
    QCOMPARE(h->number("commandIndex"), 1);
    emit h->facade.refreshGenlock(1, 11, 20);
    QTest::qWait(150);
    QCOMPARE(h->facade.calls.size(), 3);
    emit h->facade.refreshGenlock(1, 11, 21);
    QTest::qWait(150);
    QCOMPARE(h->number("commandIndex"), 2);
    QCOMPARE(h->facade.calls.last(),
             QStringLiteral("setVInSource(0, 0, 0, false, false, false, true, 11, 21)"));
}

void TestInput::throttleSendsTheLatestPosition()
{
    firstRefresh();
    const QPoint from = h->handleAt("horizontalOffset", 10);
    const qint64 start = h->facade.now();
    h->press(from);
    h->move(from + QPoint(20, 0));
    h->move(from + QPoint(60, 0));
    const int latest = h->number("horizontalOffset.sliderValue");
    QVERIFY(latest > 1500);
    QTRY_COMPARE(h->facade.callsOf("setVInSource").size(), 1);
    QVERIFY(h->facade.timesOf("setVInSource").first() - start >= 49);
    QCOMPARE(h->facade.callsOf("setVInSource").first(),
             QStringLiteral("setVInSource(0, 0, 0, false, false, false, true, %1, 20)").arg(latest));
    h->release(from + QPoint(60, 0));
    QCOMPARE(h->facade.calls.first(), QStringLiteral("setRefreshTimer(false)"));
}

void TestInput::longDragSendsOneCommandPerWindow()
{
    firstRefresh();
    const QPoint from = h->handleAt("verticalOffset", 20);
    h->press(from);
    for (int i = 1; i <= 100; ++i) {
        h->move(from + QPoint(i, 0));
        QTest::qWait(10);
    }
    h->release(from + QPoint(100, 0));
    QTest::qWait(120);
    const QVector<qint64> times = h->facade.timesOf("setVInSource");
    QVERIFY2(times.size() >= 8, qPrintable(QString::number(times.size())));
    for (int i = 1; i < times.size(); ++i)
        QVERIFY2(times.at(i) - times.at(i - 1) >= 49, "a command came before its window was over");
    QVERIFY(h->facade.callsOf("setVInSource")
                .last()
                .endsWith(QStringLiteral(", %1)").arg(h->number("verticalOffset.sliderValue"))));
}

void TestInput::slowUnitIsNeverMoreThanOneCommandBehind()
{
    firstRefresh();
    h->facade.slowMs = 150;
    const QPoint from = h->handleAt("verticalOffset", 20);
    h->press(from);
    for (int i = 1; i <= 60; ++i) {
        h->move(from + QPoint(i, 0));
        QTest::qWait(5);
    }
    h->release(from + QPoint(60, 0));
    const int before = h->facade.callsOf("setVInSource").size();
    QTest::qWait(500);
    QVERIFY(h->facade.callsOf("setVInSource").size() <= before + 1);
    QVERIFY(h->facade.callsOf("setVInSource")
                .last()
                .endsWith(QStringLiteral(", %1)").arg(h->number("verticalOffset.sliderValue"))));
}

void TestInput::buttonsStepByOne()
{
    firstRefresh();
    h->click("horizontalOffset.itemButtonIncrease");
    QCOMPARE(h->number("horizontalOffset.sliderValue"), 11);
    h->click("verticalOffset.itemButtonDecrease");
    QCOMPARE(h->number("verticalOffset.sliderValue"), 19);
    QTest::qWait(120);
    QCOMPARE(h->facade.callsOf("setVInSource"),
             QStringList{"setVInSource(0, 0, 0, false, false, false, true, 11, 19)"});
}

void TestInput::typedNumberMovesTheSlider()
{
    firstRefresh();
    h->typeInto("horizontalOffset.itemText", "-5500");
    QCOMPARE(h->number("horizontalOffset.sliderValue"), -5500);
    QTRY_COMPARE(h->facade.callsOf("setVInSource"),
                 QStringList{"setVInSource(0, 0, 0, false, false, false, true, -5500, 20)"});
    h->typeInto("verticalOffset.itemText", "500");
    QCOMPARE(h->number("verticalOffset.sliderValue"), 500);
}

// The validator reads a number by the language of the machine, and takes its group signs.
void TestInput::groupSignsShowTheirNumber_data()
{
    QTest::addColumn<QString>("locale");
    for (const char *locale : {"C", "en_US", "zh_TW", "zh_CN"})
        QTest::newRow(locale) << locale;
}

void TestInput::groupSignsShowTheirNumber()
{
    QFETCH(QString, locale);
    QLocale::setDefault(QLocale(locale));
    h.reset();
    init();
    firstRefresh();
    h->typeInto("horizontalOffset.itemText", "1,000");
    QCOMPARE(h->number("horizontalOffset.sliderValue"), 1000);
    h->typeInto("horizontalOffset.itemText", "-5,500");
    QCOMPARE(h->number("horizontalOffset.sliderValue"), -5500);
    QTRY_COMPARE(h->facade.callsOf("setVInSource").value(0),
                 QStringLiteral("setVInSource(0, 0, 0, false, false, false, true, -5500, 20)"));
}

void TestInput::foldTakesItsTime()
{
    for (const int end : {74, 225}) {
        QElapsedTimer clock;
        clock.start();
        h->click("btnGenlockFolder");
        QTRY_COMPARE_WITH_TIMEOUT(h->number("pageInput_ContentGenlock.height"), end, 1000);
        QVERIFY2(clock.elapsed() >= 170, qPrintable(QString::number(clock.elapsed())));
        QVERIFY2(clock.elapsed() < 700, qPrintable(QString::number(clock.elapsed())));
    }
}

void TestInput::sourceListHoldsBothSources()
{
    firstSource();
    QCOMPARE(h->number("comboFGSource.count"), 2);
    for (const int row : {0, 1}) {
        h->facade.forget();
        h->choose("comboFGSource", row);
        QCOMPARE(h->text("comboFGSource.currentText"),
                 row == 0 ? QStringLiteral("SDI") : QStringLiteral("HDMI"));
        QCOMPARE(h->facade.callsOf("setVInSource").size(), 1);
        QVERIFY(h->facade.calls.value(0).startsWith(QStringLiteral("setVInSource(%1, 0, 0,").arg(row)));
    }
}

void TestInput::nothingMovesWithTheLanguage()
{
    const QStringList parts{"comboFGSource",          "txtFGRes",        "imgFGFreeze",
                            "imgAUXFreeze",           "txtSyncRes",      "btnGenlockSwitch",
                            "txtGenlockStatus",       "btnGenlockReset", "horizontalOffset.itemSlider",
                            "verticalOffset.itemText"};
    const QVector<QPoint> places{{436, 253}, {686, 252}, {886, 254},  {886, 402}, {686, 474},
                                 {514, 550}, {686, 548}, {1216, 547}, {454, 636}, {962, 693}};
    for (const char *language : {"en_US", "zh_TW", "zh_CN"}) {
        h->translator.setTranslation(language);
        for (int i = 0; i < parts.size(); ++i)
            QCOMPARE(h->at(h->item(parts.at(i)), 0, 0), places.at(i));
    }
}

void TestInput::numberOutOfRangeIsNotAccepted()
{
    firstRefresh();
    // The digit that would leave the range is not taken.
    h->typeInto("verticalOffset.itemText", "-501", Qt::Key_unknown);
    QCOMPARE(h->text("verticalOffset.textValue"), QStringLiteral("-50"));
    // An unfinished number is no number: Return does nothing on it.
    h->typeInto("verticalOffset.itemText", "-");
    QCOMPARE(h->text("verticalOffset.textValue"), QStringLiteral("-"));
    QCOMPARE(h->number("verticalOffset.sliderValue"), 20);
    QTest::qWait(100);
    QCOMPARE(h->facade.calls, QStringList());
}

void TestInput::foldHidesTheOffsets()
{
    QCOMPARE(h->face("btnGenlockFolder.source"), QStringLiteral("btn_n_show_dashboard"));
    QCOMPARE(h->number("foldAnimationGenlock.duration"), 200);
    h->click("btnGenlockFolder");
    QVERIFY(h->flag("genlockFolded"));
    QVERIFY(!h->flag("itemOffset.visible"));
    QCOMPARE(h->face("btnGenlockFolder.source"), QStringLiteral("btn_n_hide_dashboard"));
    QVERIFY(h->number("pageInput_ContentGenlock.height") > 74);
    QTRY_COMPARE(h->number("pageInput_ContentGenlock.height"), 74);
    h->click("btnGenlockFolder");
    QVERIFY(!h->flag("genlockFolded"));
    QVERIFY(h->flag("itemOffset.visible"));
    QCOMPARE(h->face("btnGenlockFolder.source"), QStringLiteral("btn_n_show_dashboard"));
    QTRY_COMPARE(h->number("pageInput_ContentGenlock.height"), 225);

    // Two clicks inside one animation: the height goes by the last.
    h->click("btnGenlockFolder");
    h->click("btnGenlockFolder");
    QVERIFY(!h->flag("genlockFolded"));
    QTest::qWait(500);
    QCOMPARE(h->number("pageInput_ContentGenlock.height"), 225);
}

void TestInput::refreshWhileFoldedWritesTheSliders()
{
    h->click("btnGenlockFolder");
    emit h->facade.refreshGenlock(1, 33, 44);
    QCOMPARE(h->number("horizontalOffset.sliderValue"), 33);
    QCOMPARE(h->number("verticalOffset.sliderValue"), 44);
}

void TestInput::languageChangesThePictures()
{
    emit h->facade.refreshInputFreeze(true, false, false);
    Messages::logs().clear();
    h->translator.setTranslation("zh_CN");
    QCOMPARE(h->text("sourcePath"), QStringLiteral("qrc:/img/pc/CN/"));
    QCOMPARE(h->face("imgFGFreeze.source"), QStringLiteral("CN/btn_switch_on_dashboard"));
    QCOMPARE(h->face("btnGenlockReset.source"), QStringLiteral("CN/btn_n_reset_dashboard"));
    QVERIFY(Messages::logs().contains("onLanguageChanged(input)"));
    h->translator.setTranslation("zh_TW");
    QCOMPARE(h->face("btnGenlockSwitch.source"), QStringLiteral("TW/btn_switch_on_dashboard"));
    h->translator.setTranslation("en_US");
    QCOMPARE(h->text("sourcePath"), QStringLiteral("qrc:/img/pc/"));
}

void TestInput::standsWhereTheOtherPagesStand()
{
    emit h->facade.refreshInputResolution(15, 15, 7, 7, 1);
    emit h->facade.refreshInputFreeze(false, true, false);
    emit h->facade.refreshGenlock(1, -240, 12);
    QCOMPARE(h->at(h->item("comboFGSource"), 0, 0), QPoint(436, 253));
    QCOMPARE(h->at(h->item("imgBGFreeze"), 0, 0), QPoint(886, 328));
    QCOMPARE(h->at(h->item("btnGenlockSwitch"), 0, 0), QPoint(514, 550));
    QCOMPARE(h->at(h->item("btnGenlockReset"), 0, 0), QPoint(1216, 547));
    QCOMPARE(h->at(h->item("horizontalOffset.itemSlider"), 0, 0), QPoint(454, 636));
    QCOMPARE(h->at(h->item("horizontalOffset.itemText"), 0, 0), QPoint(962, 619));
    for (const char *language : {"en_US", "zh_TW", "zh_CN"}) {
        h->translator.setTranslation(language);
        QVERIFY(!h->grab(h->window->contentItem(), QStringLiteral("input-") + language).isNull());
    }
    emit h->facade.refreshGenlock(0, -240, 12);
    QVERIFY(!h->grab(h->window->contentItem(), QStringLiteral("input-off")).isNull());
}

QTEST_MAIN(TestInput)
#include "tst_input.moc"
