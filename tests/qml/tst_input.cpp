#include "pageharness.h"
#include "tests/support/checked.h"

// The input and output page: table, source, freezes, languages.
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
    void firstTwoSourceChangesAreSwallowed();
    void refreshOfTheSourceIsSentBack();
    void operatorChoosesTheSource();
    void freezesTakeEffectAtOnce_data();
    void freezesTakeEffectAtOnce();
    void freezeRefreshSetsFlagsAndFaces();
    void sourceListHoldsBothSources();
    void nothingMovesWithTheLanguage();
    void languageChangesThePictures();
    void standsWhereTheOtherPagesStand();

private:
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
    CHECKED(firstSource());
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

void TestInput::sourceListHoldsBothSources()
{
    CHECKED(firstSource());
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
        QTest::qWait(50); // rows and columns lay themselves out with the next frame
        for (int i = 0; i < parts.size(); ++i)
            QCOMPARE(h->at(h->item(parts.at(i)), 0, 0), places.at(i));
    }
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
}

QTEST_MAIN(TestInput)
#include "tst_input.moc"
