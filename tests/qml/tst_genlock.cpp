#include "pageharness.h"
#include "tests/support/checked.h"
#include "tests/support/stopwatch.h"

// The genlock section of the input and output page: switch, reset, offsets, fold.
class TestGenlock : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void genlockStatusFollowsTheUnitAndTheLanguage();
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
    void numberOutOfRangeIsNotAccepted();
    void foldHidesTheOffsets();
    void refreshWhileFoldedWritesTheSliders();

private:
    // Uses up the guards of the sliders, as the first refresh does.
    void firstRefresh();

    std::unique_ptr<PageHarness> h;
};

void TestGenlock::init()
{
    h = std::make_unique<PageHarness>("PageInput { id: page; anchors.fill: parent }");
    QVERIFY(h->show());
}

void TestGenlock::cleanup()
{
    QCOMPARE(Messages::warnings(), QStringList());
    h.reset();
    QLocale::setDefault(QLocale::c());
}

void TestGenlock::firstRefresh()
{
    emit h->facade.refreshGenlock(1, 10, 20);
    QCOMPARE(h->number("horizontalOffset.sliderValue"), 10);
    QCOMPARE(h->number("verticalOffset.sliderValue"), 20);
    QTest::qWait(100);
    h->facade.forget();
    Messages::logs().clear();
}

void TestGenlock::genlockStatusFollowsTheUnitAndTheLanguage()
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

void TestGenlock::genlockSwitchGoesOffAndOn()
{
    CHECKED(firstRefresh());
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

void TestGenlock::genlockRefreshGreysTheSection()
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

void TestGenlock::genlockIsOnWhenNotZero()
{
    emit h->facade.refreshGenlock(0, 0, 0);
    emit h->facade.refreshGenlock(2, 0, 0);
    QVERIFY(h->flag("genlockOn"));
    emit h->facade.refreshGenlock(-1, 0, 0);
    QVERIFY(h->flag("genlockOn"));
}

void TestGenlock::resetAnswersOnRelease()
{
    const QPoint place = h->middle(h->item("btnGenlockReset"));
    h->press(place);
    QCOMPARE(h->face("btnGenlockReset.source"), QStringLiteral("btn_p_reset_dashboard"));
    QCOMPARE(h->facade.calls, QStringList());
    h->release(place);
    QCOMPARE(h->face("btnGenlockReset.source"), QStringLiteral("btn_n_reset_dashboard"));
    QCOMPARE(h->facade.calls, QStringList{"resetGenlock()"});
}

void TestGenlock::firstWriteToEachSliderIsNotSentBack()
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

void TestGenlock::laterRefreshIsSentBackOnce()
{
    CHECKED(firstRefresh());
    emit h->facade.refreshGenlock(1, 11, 20);
    QTRY_COMPARE(h->facade.calls.size(), 3);
    QTest::qWait(200);
    QCOMPARE(h->facade.calls,
             (QStringList{"setRefreshTimer(false)", "setRefreshTimer(false)",
                          "setVInSource(0, 0, 0, false, false, false, true, 11, 20)"}));
    QCOMPARE(h->number("commandIndex"), 1);
    emit h->facade.refreshGenlock(1, 11, 20);
    QTest::qWait(150);
    QCOMPARE(h->facade.calls.size(), 3);
    emit h->facade.refreshGenlock(1, 11, 21);
    QTRY_COMPARE(h->facade.calls.last(),
                 QStringLiteral("setVInSource(0, 0, 0, false, false, false, true, 11, 21)"));
    QCOMPARE(h->number("commandIndex"), 2);
}

void TestGenlock::throttleSendsTheLatestPosition()
{
    CHECKED(firstRefresh());
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

void TestGenlock::longDragSendsOneCommandPerWindow()
{
    CHECKED(firstRefresh());
    const QPoint from = h->handleAt("verticalOffset", 20);
    h->press(from);
    for (int i = 1; i <= 100; ++i) {
        h->move(from + QPoint(i, 0));
        QTest::qWait(10);
    }
    h->release(from + QPoint(100, 0));
    const auto lastIsSent = [this] {
        return h->facade.callsOf("setVInSource")
            .last()
            .endsWith(QStringLiteral(", %1)").arg(h->number("verticalOffset.sliderValue")));
    };
    QTRY_VERIFY(lastIsSent());
    const QVector<qint64> times = h->facade.timesOf("setVInSource");
    QVERIFY2(times.size() >= 8, qPrintable(QString::number(times.size())));
    for (int i = 1; i < times.size(); ++i)
        QVERIFY2(times.at(i) - times.at(i - 1) >= 49, "a command came before its window was over");
}

void TestGenlock::slowUnitIsNeverMoreThanOneCommandBehind()
{
    CHECKED(firstRefresh());
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
    QTRY_VERIFY(h->facade.callsOf("setVInSource")
                    .last()
                    .endsWith(QStringLiteral(", %1)").arg(h->number("verticalOffset.sliderValue"))));
    QVERIFY(h->facade.callsOf("setVInSource").size() <= before + 1);
}

void TestGenlock::buttonsStepByOne()
{
    CHECKED(firstRefresh());
    h->click("horizontalOffset.itemButtonIncrease");
    QCOMPARE(h->number("horizontalOffset.sliderValue"), 11);
    h->click("verticalOffset.itemButtonDecrease");
    QCOMPARE(h->number("verticalOffset.sliderValue"), 19);
    QTest::qWait(120);
    QCOMPARE(h->facade.callsOf("setVInSource"),
             QStringList{"setVInSource(0, 0, 0, false, false, false, true, 11, 19)"});
}

void TestGenlock::typedNumberMovesTheSlider()
{
    CHECKED(firstRefresh());
    h->typeInto("horizontalOffset.itemText", "-5500");
    QCOMPARE(h->number("horizontalOffset.sliderValue"), -5500);
    QTRY_COMPARE(h->facade.callsOf("setVInSource"),
                 QStringList{"setVInSource(0, 0, 0, false, false, false, true, -5500, 20)"});
    h->typeInto("verticalOffset.itemText", "500");
    QCOMPARE(h->number("verticalOffset.sliderValue"), 500);
}

// The validator reads a number by the language of the machine, and takes its group signs.
void TestGenlock::groupSignsShowTheirNumber_data()
{
    listLocales();
}

void TestGenlock::groupSignsShowTheirNumber()
{
    QFETCH(QString, locale);
    QLocale::setDefault(QLocale(locale));
    h.reset();
    init();
    CHECKED(firstRefresh());
    h->typeInto("horizontalOffset.itemText", "1,000");
    QCOMPARE(h->number("horizontalOffset.sliderValue"), 1000);
    h->typeInto("horizontalOffset.itemText", "-5,500");
    QCOMPARE(h->number("horizontalOffset.sliderValue"), -5500);
    QTRY_COMPARE(h->facade.callsOf("setVInSource").value(0),
                 QStringLiteral("setVInSource(0, 0, 0, false, false, false, true, -5500, 20)"));
}

void TestGenlock::foldTakesItsTime()
{
    for (const int end : {74, 225}) {
        support::Stopwatch clock;
        h->click("btnGenlockFolder");
        QTRY_COMPARE(h->number("pageInput_ContentGenlock.height"), end);
        VERIFY_TOOK(clock, 170, 330);
    }
}

void TestGenlock::numberOutOfRangeIsNotAccepted()
{
    CHECKED(firstRefresh());
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

void TestGenlock::foldHidesTheOffsets()
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

void TestGenlock::refreshWhileFoldedWritesTheSliders()
{
    h->click("btnGenlockFolder");
    emit h->facade.refreshGenlock(1, 33, 44);
    QCOMPARE(h->number("horizontalOffset.sliderValue"), 33);
    QCOMPARE(h->number("verticalOffset.sliderValue"), 44);
}

QTEST_MAIN(TestGenlock)
#include "tst_genlock.moc"
