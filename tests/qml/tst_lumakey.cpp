#include "lumakeybench.h"

// The luma key page: switches, polarity radios, and what a report shows.
class TestLumakey : public LumakeyBench
{
    Q_OBJECT

private slots:
    void init() { LumakeyBench::init(); }
    void cleanup() { LumakeyBench::cleanup(); }
    void startsOffButDrawnAsEnabled();
    void mainSwitchAppliesTheSets();
    void radioChoosesOnRelease_data();
    void radioChoosesOnRelease();
    void chosenRadioIsSentAgain();
    void radiosAreDeadWhileOff_data();
    void radiosAreDeadWhileOff();
    void layerSwitchSendsWaitsAndReads();
    void layerSwitchIsDeadWhileOff();
    void layerMessageFollows();
    void resetAnswersAlsoWhileOff();
    void refreshWritesEverything();
    void refreshOffShowsTheDisabledSet();
    void languageLeavesDisabledFaces();
    void nothingMovesWithTheLanguage();

private:
    void checkOnSet();
    void checkOffSet();
};

void TestLumakey::checkOnSet()
{
    QCOMPARE(h->face("btnAuxLumakeySwitchImage.source"), QStringLiteral("btn_switch_on_dashboard"));
    QCOMPARE(h->face("btnAuxLumakeyResetImage.source"), QStringLiteral("btn_n_reset_dashboard"));
    for (const char *id :
         {"auxLumakeyCutoff", "auxLumakeySoftness", "auxLumakeyOpacity", "auxLumakeySwaptime"}) {
        QVERIFY(h->flag(QString(id) + ".itemSlider.enabled"));
        QVERIFY(h->flag(QString(id) + ".itemButtonDecrease.enabled"));
        QCOMPARE(h->color(QString(id) + ".titleColor"), QStringLiteral("#D8D8D8"));
    }
    for (const char *id :
         {"auxLumakeyKeymode", "auxLumakeyLayer", "txtAuxLumakeyKeymodeBlack", "txtAuxLumakeyKeymodeWhite"})
        QCOMPARE(h->color(QString(id) + ".color"), QStringLiteral("#D8D8D8"));
    for (const char *id :
         {"btnAuxLumakeyLayerSwitch", "btnAuxLumakeyKeymodeBlackImage", "btnAuxLumakeyKeymodeWhiteImage",
          "txtAuxLumakeyKeymodeBlack", "txtAuxLumakeyKeymodeWhite"})
        QVERIFY2(h->flag(QString(id) + ".enabled"), id);
}

void TestLumakey::checkOffSet()
{
    QCOMPARE(h->face("btnAuxLumakeySwitchImage.source"), QStringLiteral("btn_switch_off_dashboard"));
    QCOMPARE(h->face("btnAuxLumakeyResetImage.source"), QStringLiteral("btn_d_reset_dashboard"));
    for (const char *id :
         {"auxLumakeyCutoff", "auxLumakeySoftness", "auxLumakeyOpacity", "auxLumakeySwaptime"}) {
        QVERIFY(!h->flag(QString(id) + ".itemSlider.enabled"));
        QVERIFY(!h->flag(QString(id) + ".itemButtonIncrease.enabled"));
        QCOMPARE(h->color(QString(id) + ".titleColor"), QStringLiteral("#333333"));
    }
    for (const char *id :
         {"auxLumakeyKeymode", "auxLumakeyLayer", "txtAuxLumakeyKeymodeBlack", "txtAuxLumakeyKeymodeWhite"})
        QCOMPARE(h->color(QString(id) + ".color"), QStringLiteral("#333333"));
    for (const char *id :
         {"btnAuxLumakeyLayerSwitch", "btnAuxLumakeyKeymodeBlackImage", "btnAuxLumakeyKeymodeWhiteImage",
          "txtAuxLumakeyKeymodeBlack", "txtAuxLumakeyKeymodeWhite"})
        QVERIFY2(!h->flag(QString(id) + ".enabled"), id);
    QCOMPARE(h->face("btnAuxLumakeyKeymodeBlackImage.source"), QStringLiteral("btn_d_radio_lumakey"));
    QCOMPARE(h->face("btnAuxLumakeyKeymodeWhiteImage.source"), QStringLiteral("btn_d_radio_lumakey"));
}

void TestLumakey::startsOffButDrawnAsEnabled()
{
    QVERIFY(!h->flag("auxLumakeyOn"));
    QVERIFY(!h->flag("layerSwapOn"));
    QCOMPARE(h->number("keyMode"), 0);
    QCOMPARE(h->text("auxLumakeyTitle.text"), QStringLiteral("Aux Lumakey"));
    QCOMPARE(h->text("auxLumakeyLayerMessage.text"), QStringLiteral("Lumakey on top"));
    QCOMPARE(h->color("auxLumakeyLayerMessage.color"), QStringLiteral("#8BC7EA"));
    QCOMPARE(h->face("btnAuxLumakeySwitchImage.source"), QStringLiteral("btn_switch_off_dashboard"));
    QCOMPARE(h->color("auxLumakeyCutoff.titleColor"), QStringLiteral("#D8D8D8"));
    QVERIFY(h->flag("auxLumakeyCutoff.itemSlider.enabled"));
    QVERIFY(!h->flag("auxLumakeyCutoff.itemButtonIncrease.enabled"));
    QCOMPARE(h->number("pageAL_ContentArea01.implicitHeight"), 74 * 6);
    QCOMPARE(h->number("timerALSliderCommand.interval"), 50);
    QCOMPARE(h->text("auxLumakeyKeymode.text"), QStringLiteral("Key Mode:"));
    QCOMPARE(h->text("txtAuxLumakeyKeymodeBlack.text"), QStringLiteral("Black"));
    QCOMPARE(h->text("txtAuxLumakeyKeymodeWhite.text"), QStringLiteral("White"));
    QCOMPARE(h->text("auxLumakeyLayer.text"), QStringLiteral("Layer Swap:"));
    QCOMPARE(h->page->position(), QPointF(30, 10));
}

void TestLumakey::mainSwitchAppliesTheSets()
{
    h->click("btnAuxLumakeySwitch");
    QVERIFY(h->flag("auxLumakeyOn"));
    QCOMPARE(h->facade.calls, QStringList{"setLumaKey(true, 0, 0, 0, 0, 0, 0)"});
    CHECKED(checkOnSet());
    QCOMPARE(h->face("btnAuxLumakeyLayerSwitchImage.source"), QStringLiteral("btn_switch_off_dashboard"));
    QCOMPARE(h->face("btnAuxLumakeyKeymodeBlackImage.source"), QStringLiteral("btn_s_radio_lumakey"));
    QCOMPARE(h->face("btnAuxLumakeyKeymodeWhiteImage.source"), QStringLiteral("btn_n_radio_lumakey"));
    h->click("btnAuxLumakeySwitch");
    QVERIFY(!h->flag("auxLumakeyOn"));
    QCOMPARE(h->facade.calls.last(), QStringLiteral("setLumaKey(false, 0, 0, 0, 0, 0, 0)"));
    CHECKED(checkOffSet());
    QCOMPARE(h->face("btnAuxLumakeyLayerSwitchImage.source"), QStringLiteral("btn_switch_d_off_dashboard"));
}

void TestLumakey::radioChoosesOnRelease_data()
{
    QTest::addColumn<QString>("white");
    QTest::addColumn<QString>("black");
    QTest::newRow("picture") << "btnAuxLumakeyKeymodeWhiteImage"
                             << "btnAuxLumakeyKeymodeBlackImage";
    QTest::newRow("text") << "txtAuxLumakeyKeymodeWhite"
                          << "txtAuxLumakeyKeymodeBlack";
}

void TestLumakey::radioChoosesOnRelease()
{
    QFETCH(QString, white);
    QFETCH(QString, black);
    CHECKED(turnOn());
    h->press(h->middle(h->item(white)));
    QCOMPARE(h->face("btnAuxLumakeyKeymodeWhiteImage.source"), QStringLiteral("btn_p_radio_lumakey"));
    QCOMPARE(h->number("keyMode"), 0);
    QCOMPARE(h->facade.calls, QStringList());
    h->release(h->middle(h->item(white)));
    QCOMPARE(h->number("keyMode"), 1);
    QCOMPARE(h->face("btnAuxLumakeyKeymodeWhiteImage.source"), QStringLiteral("btn_s_radio_lumakey"));
    QCOMPARE(h->face("btnAuxLumakeyKeymodeBlackImage.source"), QStringLiteral("btn_n_radio_lumakey"));
    QCOMPARE(h->facade.calls, QStringList{"setLumaKey(true, 1, 0, 0, 0, 0, 0)"});
    h->click(black);
    QCOMPARE(h->number("keyMode"), 0);
    QCOMPARE(h->face("btnAuxLumakeyKeymodeBlackImage.source"), QStringLiteral("btn_s_radio_lumakey"));
    QCOMPARE(h->face("btnAuxLumakeyKeymodeWhiteImage.source"), QStringLiteral("btn_n_radio_lumakey"));
    QCOMPARE(h->facade.calls.last(), QStringLiteral("setLumaKey(true, 0, 0, 0, 0, 0, 0)"));
}

void TestLumakey::chosenRadioIsSentAgain()
{
    CHECKED(turnOn());
    h->click("btnAuxLumakeyKeymodeBlackImage");
    QCOMPARE(h->facade.calls, QStringList{"setLumaKey(true, 0, 0, 0, 0, 0, 0)"});
}

void TestLumakey::radiosAreDeadWhileOff_data()
{
    QTest::addColumn<QString>("id");
    for (const char *id : {"btnAuxLumakeyKeymodeWhiteImage", "btnAuxLumakeyKeymodeBlackImage",
                           "txtAuxLumakeyKeymodeWhite", "txtAuxLumakeyKeymodeBlack"})
        QTest::newRow(id) << id;
}

void TestLumakey::radiosAreDeadWhileOff()
{
    QFETCH(QString, id);
    emit h->facade.refreshLumaKey(false, 0, 0, 0, 0, 0, 0);
    h->click(id);
    QCOMPARE(h->facade.calls, QStringList());
    QCOMPARE(h->number("keyMode"), 0);
    QCOMPARE(h->face("btnAuxLumakeyKeymodeWhiteImage.source"), QStringLiteral("btn_d_radio_lumakey"));
}

void TestLumakey::layerSwitchSendsWaitsAndReads()
{
    CHECKED(turnOn());
    h->click("btnAuxLumakeyLayerSwitch");
    QVERIFY(h->flag("layerSwapOn"));
    QCOMPARE(h->face("btnAuxLumakeyLayerSwitchImage.source"), QStringLiteral("btn_switch_on_dashboard"));
    QCOMPARE(h->facade.calls,
             (QStringList{"setLumaKey(true, 0, 0, 0, 1, 0, 0)", "msecSleep(100)", "getLumaKey()"}));
    QVERIFY(h->facade.times.at(2) - h->facade.times.at(0) >= 100);
    h->facade.forget();
    h->click("btnAuxLumakeyLayerSwitch");
    QCOMPARE(h->face("btnAuxLumakeyLayerSwitchImage.source"), QStringLiteral("btn_switch_off_dashboard"));
    QCOMPARE(h->facade.calls.first(), QStringLiteral("setLumaKey(true, 0, 0, 0, 0, 0, 0)"));
}

void TestLumakey::layerSwitchIsDeadWhileOff()
{
    emit h->facade.refreshLumaKey(false, 0, 0, 0, 1, 0, 0);
    QCOMPARE(h->face("btnAuxLumakeyLayerSwitchImage.source"), QStringLiteral("btn_switch_d_on_dashboard"));
    h->click("btnAuxLumakeyLayerSwitch");
    QCOMPARE(h->facade.calls, QStringList());
    QVERIFY(h->flag("layerSwapOn"));
}

void TestLumakey::layerMessageFollows()
{
    emit h->facade.refreshLumaKey(true, 0, 0, 0, 1, 0, 0);
    QCOMPARE(h->text("auxLumakeyLayerMessage.text"), QStringLiteral("Chromakey on top"));
    h->click("btnAuxLumakeyLayerSwitch");
    QCOMPARE(h->text("auxLumakeyLayerMessage.text"), QStringLiteral("Lumakey on top"));
}

void TestLumakey::resetAnswersAlsoWhileOff()
{
    emit h->facade.refreshLumaKey(false, 0, 0, 0, 0, 0, 0);
    const QPoint place = h->middle(h->item("btnAuxLumakeyReset"));
    h->press(place);
    QCOMPARE(h->face("btnAuxLumakeyResetImage.source"), QStringLiteral("btn_p_reset_dashboard"));
    QCOMPARE(h->facade.calls, QStringList());
    h->release(place);
    QCOMPARE(h->face("btnAuxLumakeyResetImage.source"), QStringLiteral("btn_n_reset_dashboard"));
    QCOMPARE(h->facade.calls, QStringList{"resetLumaKey()"});
}

void TestLumakey::refreshWritesEverything()
{
    emit h->facade.refreshLumaKey(true, 1, 180, 320, 1, 8, 1000);
    QCOMPARE(Messages::logs().filter("onRefreshLumaKey:"), QStringList{"onRefreshLumaKey: false 0 false"});
    QVERIFY(h->flag("auxLumakeyOn"));
    QVERIFY(h->flag("layerSwapOn"));
    QCOMPARE(h->number("keyMode"), 1);
    QCOMPARE(h->number("auxLumakeyCutoff.sliderValue"), 180);
    QCOMPARE(h->number("auxLumakeySoftness.sliderValue"), 320);
    QCOMPARE(h->number("auxLumakeySwaptime.sliderValue"), 8);
    QCOMPARE(h->number("auxLumakeyOpacity.sliderValue"), 1000);
    CHECKED(checkOnSet());
    QCOMPARE(h->face("btnAuxLumakeyLayerSwitchImage.source"), QStringLiteral("btn_switch_on_dashboard"));
    QCOMPARE(h->face("btnAuxLumakeyKeymodeWhiteImage.source"), QStringLiteral("btn_s_radio_lumakey"));
    QTRY_COMPARE(h->facade.calls, QStringList{"setLumaKey(true, 1, 180, 320, 1, 8, 1000)"});
    emit h->facade.refreshLumaKey(true, 1, 180, 320, 1, 8, 1000);
    QTest::qWait(120);
    QCOMPARE(h->facade.calls.size(), 1);
}

void TestLumakey::refreshOffShowsTheDisabledSet()
{
    CHECKED(turnOn());
    emit h->facade.refreshLumaKey(false, 1, 0, 0, 1, 0, 0);
    CHECKED(checkOffSet());
    QCOMPARE(h->face("btnAuxLumakeyLayerSwitchImage.source"), QStringLiteral("btn_switch_d_on_dashboard"));
}

void TestLumakey::languageLeavesDisabledFaces()
{
    emit h->facade.refreshLumaKey(true, 0, 0, 0, 1, 0, 0);
    h->translator.setTranslation("zh_TW");
    QCOMPARE(h->face("btnAuxLumakeyResetImage.source"), QStringLiteral("TW/btn_d_reset_dashboard"));
    QCOMPARE(h->face("btnAuxLumakeyLayerSwitchImage.source"), QStringLiteral("TW/btn_switch_d_on_dashboard"));
    QCOMPARE(h->face("btnAuxLumakeySwitchImage.source"), QStringLiteral("TW/btn_switch_on_dashboard"));
    QVERIFY(Messages::logs().contains("onLanguageChanged(Lumakey)"));
    // The switch still answers; the next refresh puts the faces right.
    emit h->facade.refreshLumaKey(true, 0, 0, 0, 1, 0, 0);
    QCOMPARE(h->face("btnAuxLumakeyResetImage.source"), QStringLiteral("TW/btn_n_reset_dashboard"));
    QCOMPARE(h->face("btnAuxLumakeyLayerSwitchImage.source"), QStringLiteral("TW/btn_switch_on_dashboard"));
}

void TestLumakey::nothingMovesWithTheLanguage()
{
    for (const char *language : {"en_US", "zh_TW", "zh_CN"}) {
        h->translator.setTranslation(language);
        emit h->facade.refreshLumaKey(true, 0, 180, 320, 1, 8, 1000);
        QTest::qWait(50); // rows and columns lay themselves out with the next frame
        QCOMPARE(h->at(h->item("auxLumakeyCutoff.itemSlider"), 0, 0), QPoint(444, 340));
        QCOMPARE(h->at(h->item("btnAuxLumakeyKeymodeBlackImage"), 0, 0), QPoint(504, 256));
        QCOMPARE(h->at(h->item("txtAuxLumakeyKeymodeBlack"), 0, 0).x(), 540);
        QCOMPARE(h->at(h->item("btnAuxLumakeyKeymodeWhiteImage"), 0, 0), QPoint(730, 256));
        QCOMPARE(h->at(h->item("btnAuxLumakeyLayerSwitch"), 0, 0), QPoint(504, 550));
        QCOMPARE(h->at(h->item("auxLumakeyLayerMessage"), 0, 0).x(), 592);
    }
}

QTEST_MAIN(TestLumakey)
#include "tst_lumakey.moc"
