#include "chromapanel.h"
#include "tests/support/checked.h"

// The chromakey page: switches, resets, spill defaults, what the unit reports.
class TestChromaSections : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void matteSwitch();
    void matteReport_data();
    void matteReport();
    void matteOffLeavesStepsAndFieldOfTheLevels();
    void sectionSwitch_data();
    void sectionSwitch();
    void sectionReport_data();
    void sectionReport();
    void edgeFixSwitchReadsBack();
    void resetAnswersOnRelease_data();
    void resetAnswersOnRelease();
    void spillDefaultIsAReset();
    void spillReportSetsTheFaces();
    void enhanceBoxResets();
    void enhanceFlippedByReportResets();
    void vividBoxIsSentSoon();
    void crossedOptionsOfSpill();
    void echoGoesOutOnce_data();
    void echoGoesOutOnce();
    void echoOfTheLastGroupAlone();
    void reportOfTheColour();

private:
    void checkMatte(bool on);

    std::unique_ptr<ChromaPanel> h;
};

namespace {

const QString kLive = QStringLiteral("#D8D8D8");
const QString kDead = QStringLiteral("#333333");

} // namespace

void TestChromaSections::init()
{
    h = std::make_unique<ChromaPanel>();
    QVERIFY(h->show());
    h->fill();
}

void TestChromaSections::cleanup()
{
    QCOMPARE(Messages::warnings(), QStringList());
    h.reset();
}

void TestChromaSections::checkMatte(bool on)
{
    const QString state = on ? "btn_n_" : "btn_d_";
    QCOMPARE(h->face("pageCK_ContentHeader01.switchSource"),
             on ? QStringLiteral("btn_switch_on_dashboard") : QStringLiteral("btn_switch_off_dashboard"));
    for (const char *id : {"txtBackingColor", "txtOpenAngle", "txtBGR", "txtBGG", "txtBGB", "txtChromaOAPlus",
                           "txtChromaOAMinus"})
        QCOMPARE(h->color(QLatin1String(id) + ".color"), on ? kLive : kDead);
    for (const char *id :
         {"btnMGReset", "recColorAdjust", "imgColorPen", "btnCkBKColorAuto", "txtBGR", "txtBGG", "txtBGB",
          "sliderOPPlus", "sliderOPMinus", "txtChromaOAPlus", "txtChromaOAMinus", "btnOADecrease",
          "btnOAIncrease", "btnOADecrease2", "btnOAIncrease2"})
        QVERIFY2(h->flag(QLatin1String(id) + ".enabled") == on, id);
    QCOMPARE(h->face("btnMatteGenResetImage.source"), state + "reset_dashboard");
    QCOMPARE(h->face("btnCkBKColorAuto.source"), state + "auto_bg_chromakey");
    QCOMPARE(h->face("imgColorPen.source"), state + "pickcolor_chromakey");
    for (const char *id : {"btnOADecrease", "btnOADecrease2"})
        QCOMPARE(h->face(QLatin1String(id) + ".source"), state + "reduce_s_chromakey");
    for (const char *id : {"btnOAIncrease", "btnOAIncrease2"})
        QCOMPARE(h->face(QLatin1String(id) + ".source"), state + "increase_s_chromakey");
    QCOMPARE(h->color("chromaItem01.sliderOPMaskColor"), QLatin1String(on ? "#8DC6E8" : "#5E5E5E"));
    QCOMPARE(h->face("chromaItem01.sliderHandlerSource"), state + "slider_chromakey");
    QCOMPARE(h->face("sliderOPPlus.handleSource"), state + "slider_chromakey");
    QCOMPARE(h->flag("blackLevel.itemSlider.enabled"), on);
    QCOMPARE(h->flag("whiteLevel.itemSlider.enabled"), on);
    QCOMPARE(h->flag("matteOn"), on);
}

void TestChromaSections::matteSwitch()
{
    CHECKED(checkMatte(true));
    h->click("pageCK_ContentHeader01.switchButton");
    QCOMPARE(h->facade.calls, QStringList("setCKBWLevel(100, 900, false)"));
    CHECKED(checkMatte(false));
    h->facade.forget();
    h->click("imgColorPen");
    h->click("btnCkBKColorAuto");
    h->click("btnMGReset");
    h->click("btnOAIncrease");
    QTest::qWait(80);
    QCOMPARE(h->facade.calls, QStringList());
    QVERIFY(!h->flag("popupColorPicker.visible"));
    h->click("pageCK_ContentHeader01.switchButton");
    QCOMPARE(h->facade.calls, QStringList("setCKBWLevel(100, 900, true)"));
    CHECKED(checkMatte(true));
}

void TestChromaSections::matteReport_data()
{
    QTest::addColumn<bool>("on");
    QTest::newRow("on") << true;
    QTest::newRow("off") << false;
}

void TestChromaSections::matteReport()
{
    QFETCH(bool, on);
    emit h->facade.refreshCKBWLevel(5, 6, on);
    CHECKED(checkMatte(on));
    QCOMPARE(h->number("blackLevel.sliderValue"), 5);
    QCOMPARE(h->number("whiteLevel.sliderValue"), 6);
    QCOMPARE(Messages::logs(),
             QStringList(
                 {"black white level =  5 6", QStringLiteral("Matte On =  %1").arg(on ? "true" : "false")}));
}

void TestChromaSections::matteOffLeavesStepsAndFieldOfTheLevels()
{
    h->click("pageCK_ContentHeader01.switchButton");
    h->settle();
    h->click(h->seen("blackLevel.itemButtonIncrease"));
    h->waitForThrottle();
    QCOMPARE(h->callsButPolls(), QStringList("setCKBWLevel(101, 900, false)"));
}

void TestChromaSections::sectionSwitch_data()
{
    QTest::addColumn<int>("section");
    QTest::addColumn<QStringList>("rows");
    QTest::addColumn<QString>("command");
    QTest::newRow("dark") << 2 << QStringList({"darkLevel", "darkDensity", "darkBalance"})
                          << "setCKDark(%1, 210, 220, 30)";
    QTest::newRow("bright") << 3 << QStringList({"brightLevel", "brightDensity", "brightBalance"})
                            << "setCKBright(%1, 310, 320, 40)";
    QTest::newRow("shadow") << 4 << QStringList("shadow") << "setCKShadow(%1, 410)";
    QTest::newRow("edge") << 6 << QStringList({"shrinkLeft", "shrinkRight", "softEdge"})
                          << "setEdgeFix(%1, 11, 12, 13)";
}

void TestChromaSections::sectionSwitch()
{
    QFETCH(int, section);
    QFETCH(QStringList, rows);
    QFETCH(QString, command);
    const QString header = QStringLiteral("pageCK_ContentHeader0%1.").arg(section);
    for (const bool on : {false, true}) {
        h->facade.forget();
        h->click(h->seen(header + "switchButton"));
        QCOMPARE(h->facade.calls.value(0), command.arg(on ? "true" : "false"));
        QCOMPARE(h->face(header + "switchSource"),
                 on ? QString("btn_switch_on_dashboard") : "btn_switch_off_dashboard");
        QCOMPARE(h->face(header + "resetSource"),
                 on ? QString("btn_n_reset_dashboard") : "btn_d_reset_dashboard");
        QCOMPARE(h->flag(header + "resetButton.enabled"), on);
        for (const QString &row : rows) {
            QCOMPARE(h->color(row + ".titleColor"), on ? kLive : kDead);
            // The content as a whole is dead too, buttons and fields included.
            QCOMPARE(h->flag(row + ".itemButtonIncrease.enabled"), on);
            QCOMPARE(h->flag(row + ".itemText.enabled"), on);
        }
        h->facade.forget();
        h->click(h->seen(header + "resetButton"));
        QCOMPARE(h->facade.calls.size(), on ? 1 : 0);
    }
}

void TestChromaSections::sectionReport_data()
{
    sectionSwitch_data();
}

void TestChromaSections::sectionReport()
{
    QFETCH(int, section);
    QFETCH(QStringList, rows);
    const QString header = QStringLiteral("pageCK_ContentHeader0%1.").arg(section);
    for (const bool on : {false, true}) {
        switch (section) {
        case 2:
            emit h->facade.refreshCKDark(on, 1, 2, 3);
            break;
        case 3:
            emit h->facade.refreshCKBright(on, 1, 2, 3);
            break;
        case 4:
            emit h->facade.refreshCKShadow(on, 1);
            break;
        default:
            emit h->facade.refreshEdgeFix(on, 1, 2, 3);
        }
        for (int i = 0; i < rows.size(); ++i) {
            QCOMPARE(h->number(rows.at(i) + ".sliderValue"), i + 1);
            QCOMPARE(h->color(rows.at(i) + ".titleColor"), on ? kLive : kDead);
            QCOMPARE(h->flag(rows.at(i) + ".itemSlider.enabled"), on);
        }
        QCOMPARE(h->face(header + "switchSource"),
                 on ? QString("btn_switch_on_dashboard") : "btn_switch_off_dashboard");
        QCOMPARE(h->face(header + "resetSource"),
                 on ? QString("btn_n_reset_dashboard") : "btn_d_reset_dashboard");
        QCOMPARE(h->flag(header + "resetButton.enabled"), on);
    }
    QCOMPARE(Messages::logs().filter("RefreshEdgeFix: ").size(), section == 6 ? 2 : 0);
}

void TestChromaSections::edgeFixSwitchReadsBack()
{
    h->click(h->seen("pageCK_ContentHeader06.switchButton"));
    QCOMPARE(h->facade.calls,
             QStringList({"setEdgeFix(false, 11, 12, 13)", "msecSleep(200)", "getEdgeFix()"}));
    const QVector<qint64> times = h->facade.times;
    QVERIFY(times.at(2) - times.at(0) >= 200);
}

void TestChromaSections::resetAnswersOnRelease_data()
{
    QTest::addColumn<int>("section");
    QTest::addColumn<QString>("command");
    QTest::newRow("matte") << 1 << "resetBKColor()";
    QTest::newRow("dark") << 2 << "resetCKDark()";
    QTest::newRow("bright") << 3 << "resetCKBright()";
    QTest::newRow("shadow") << 4 << "resetCKShadow()";
    QTest::newRow("spill") << 5 << "resetCKSpillBright(1, false)";
    QTest::newRow("edge") << 6 << "resetEdgeFix()";
}

void TestChromaSections::resetAnswersOnRelease()
{
    QFETCH(int, section);
    QFETCH(QString, command);
    const QString header = QStringLiteral("pageCK_ContentHeader0%1.").arg(section);
    const QPoint place = h->middle(h->seen(header + "resetButton"));
    h->press(place);
    QCOMPARE(h->face(header + "resetSource"), QStringLiteral("btn_p_reset_dashboard"));
    QCOMPARE(h->facade.calls, QStringList());
    h->release(place);
    QCOMPARE(h->face(header + "resetSource"), QStringLiteral("btn_n_reset_dashboard"));
    QCOMPARE(h->facade.calls, QStringList(command));
    QCOMPARE(Messages::logs(), section == 1 ? QStringList("MG Group Reset") : QStringList());
}

void TestChromaSections::spillDefaultIsAReset()
{
    h->click(h->seen("btnSpillHighImage"));
    QCOMPARE(h->facade.calls, QStringList("resetCKSpillBright(2, false)"));
    QCOMPARE(h->number("commandIndex"), 6);
    QCOMPARE(h->face("btnSpillHighImage.source"), QStringLiteral("btn_p_spill_high_chromakey"));
    QCOMPARE(h->face("btnSpillMidImage.source"), QStringLiteral("btn_n_spill_mid_chromakey"));
    h->click("btnSpillHighImage");
    QCOMPARE(h->facade.calls.size(), 1);
    h->click("btnSpillLowImage");
    h->click("btnSpillMidImage");
    QCOMPARE(h->facade.calls.mid(1),
             QStringList({"resetCKSpillBright(0, false)", "resetCKSpillBright(1, false)"}));
}

void TestChromaSections::spillReportSetsTheFaces()
{
    for (uint value = 0; value < 4; ++value) {
        emit h->facade.refreshCKSpill(1, 2, 3, 4, true, value, false, false);
        QCOMPARE(h->number("spillDefault"), int(value));
        QCOMPARE(h->face("btnSpillLowImage.source").left(5), QLatin1String(value == 0 ? "btn_p" : "btn_n"));
        QCOMPARE(h->face("btnSpillMidImage.source").left(5), QLatin1String(value == 1 ? "btn_p" : "btn_n"));
        QCOMPARE(h->face("btnSpillHighImage.source").left(5), QLatin1String(value == 2 ? "btn_p" : "btn_n"));
    }
    QCOMPARE(h->text("[spillSuppression.sliderValue, spillEnhance.sliderValue, spillBalance.sliderValue, "
                     "edgeBrightness.sliderValue].join()"),
             QStringLiteral("1,2,3,4"));
    QVERIFY(h->flag("checkboxVivid.checked"));
    QVERIFY(!h->flag("checkboxVivid.visible || checkboxSpillSup.visible"));
}

void TestChromaSections::enhanceBoxResets()
{
    h->eval("checkboxSpillSup.checked = true");
    QCOMPARE(h->facade.calls, QStringList("resetCKSpillBright(1, true)"));
    QCOMPARE(h->number("commandIndex"), 6);
}

void TestChromaSections::enhanceFlippedByReportResets()
{
    emit h->facade.refreshCKSpill(510, 520, 530, 540, false, 2, false, true);
    QCOMPARE(h->facade.calls, QStringList("resetCKSpillBright(2, true)"));
    emit h->facade.refreshCKSpill(510, 520, 530, 540, false, 2, false, true);
    h->waitForThrottle();
    QCOMPARE(h->facade.calls.size(), 1);
}

void TestChromaSections::vividBoxIsSentSoon()
{
    h->eval("checkboxVivid.checked = true");
    QCOMPARE(h->facade.calls, QStringList());
    h->waitForThrottle();
    QCOMPARE(h->facade.calls,
             QStringList({"setRefreshTimer(false)", "setCKSpillBright(510, 520, 530, 540, 1, 1, false, true)",
                          "setRefreshTimer(true)"}));
}

void TestChromaSections::crossedOptionsOfSpill()
{
    h->eval("checkboxSpillSup.checked = true");
    h->settle();
    h->click(h->seen("spillBalance.itemButtonIncrease"));
    h->waitForThrottle();
    QCOMPARE(h->callsButPolls(), QStringList("setCKSpillBright(510, 520, 531, 540, 0, 1, true, false)"));
}

void TestChromaSections::echoGoesOutOnce_data()
{
    QTest::addColumn<int>("group");
    QTest::addColumn<QString>("command");
    QTest::newRow("angle") << 1 << "setCKAngle(33, 34)";
    QTest::newRow("levels") << 2 << "setCKBWLevel(33, 34, true)";
    QTest::newRow("dark") << 3 << "setCKDark(true, 33, 34, 35)";
    QTest::newRow("bright") << 4 << "setCKBright(true, 33, 34, 35)";
    QTest::newRow("shadow") << 5 << "setCKShadow(true, 33)";
    QTest::newRow("spill") << 6 << "setCKSpillBright(33, 34, 35, 36, 0, 1, false, false)";
    QTest::newRow("edge") << 7 << "setEdgeFix(true, 33, 34, 35)";
}

void TestChromaSections::echoGoesOutOnce()
{
    QFETCH(int, group);
    QFETCH(QString, command);
    for (int again = 0; again < 2; ++again) {
        switch (group) {
        case 1:
            emit h->facade.refreshCKAngle(33, 34);
            break;
        case 2:
            emit h->facade.refreshCKBWLevel(33, 34, true);
            break;
        case 3:
            emit h->facade.refreshCKDark(true, 33, 34, 35);
            break;
        case 4:
            emit h->facade.refreshCKBright(true, 33, 34, 35);
            break;
        case 5:
            emit h->facade.refreshCKShadow(true, 33);
            break;
        case 6:
            emit h->facade.refreshCKSpill(33, 34, 35, 36, false, 1, false, false);
            break;
        default:
            emit h->facade.refreshEdgeFix(true, 33, 34, 35);
        }
        h->waitForThrottle();
        // Equal values move nothing and send nothing.
        QCOMPARE(h->callsButPolls(), again ? QStringList() : QStringList(command));
        h->facade.forget();
    }
}

void TestChromaSections::echoOfTheLastGroupAlone()
{
    emit h->facade.refreshCKAngle(1, 2);
    emit h->facade.refreshCKDark(true, 3, 4, 5);
    emit h->facade.refreshCKShadow(true, 6);
    h->waitForThrottle();
    QCOMPARE(h->callsButPolls(), QStringList("setCKShadow(true, 6)"));
}

void TestChromaSections::reportOfTheColour()
{
    emit h->facade.refreshBKColorAdjust("#0a141e", 40, 80, 120, 210, 0.5, 0.08);
    QCOMPARE(h->color("colorDialog.color"), QStringLiteral("#0A141E"));
    QCOMPARE(h->color("recColorAdjust.color"), QStringLiteral("#0A141E"));
    QCOMPARE(h->text("[txtBGR.text, txtBGG.text, txtBGB.text].join()"), QStringLiteral("40,80,120"));
    QCOMPARE(h->text("[colorPickerR, colorPickerG, colorPickerB].join()"), QStringLiteral("40,80,120"));
    QCOMPARE(h->text("[colorBKH, colorBKS, colorBKL].join()"), QStringLiteral("210,0.5,0.08"));
    h->waitForThrottle();
    QCOMPARE(h->facade.calls, QStringList());
}

QTEST_MAIN(TestChromaSections)
#include "tst_chromasections.moc"
