#include "pageharness.h"
#include "tests/support/stopwatch.h"

#include <algorithm>

// The post-processor page: three sections of one build.
class TestPostProcessor : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void rowTitlesAndRanges_data();
    void rowTitlesAndRanges();
    void sectionTitlesAndHeights();
    void loadingSendsNothing();
    void foldTakesItsTime();
    void scrollContentStandsInItsPlace();
    void nothingMovesWithTheLanguage();
    void switchTurnsTheSectionOffAndOn_data();
    void switchTurnsTheSectionOffAndOn();
    void resetAnswersAlsoWhileOff_data();
    void resetAnswersAlsoWhileOff();
    void refreshOfPostAmp();
    void refreshOfCorrector();
    void refreshOfBlur();
    void sectionsFold_data();
    void sectionsFold();
    void languageChangesThePictures();
    void scrollsToTheEnd();
    void stillPageDrawsNothing();

private:
    QString header(int section) const { return QStringLiteral("pagePP_ContentHeader0%1").arg(section); }

    std::unique_ptr<PageHarness> h;
};

void TestPostProcessor::init()
{
    h = std::make_unique<PageHarness>("PagePostProcessor { id: page; anchors.fill: parent }");
    QVERIFY(h->show());
}

void TestPostProcessor::cleanup()
{
    QCOMPARE(Messages::warnings(), QStringList());
    h.reset();
}

namespace {

struct RowFacts
{
    const char *id;
    const char *title;
    int low;
    int high;
    int start;
    int section;
};

const RowFacts rows[] = {
    {"ppfgHue", "Hue:", -180, 180, 0, 1},
    {"ppfgSaturation", "Saturation:", 0, 1000, 500, 1},
    {"ppfgContrast", "Contrast:", 0, 1000, 500, 1},
    {"ppfgBrightness", "Brightness:", 0, 1000, 500, 1},
    {"ppfgRWhiteLevel", "R White Level:", 0, 1000, 0, 2},
    {"ppfgRBlackLevel", "R Black Level:", 0, 1000, 0, 2},
    {"ppfgGWhiteLevel", "G White Level:", 0, 1000, 0, 2},
    {"ppfgGBlackLevel", "G Black Level:", 0, 1000, 0, 2},
    {"ppfgBWhiteLevel", "B White Level:", 0, 1000, 0, 2},
    {"ppfgBBlackLevel", "B Black Level:", 0, 1000, 0, 2},
    {"ppbgBlurValue", "Blur Level:", 0, 100, 0, 3},
    {"ppbgBlurTime", "Blur Time:", 0, 20, 0, 3},
};

} // namespace

void TestPostProcessor::rowTitlesAndRanges_data()
{
    QTest::addColumn<int>("index");
    for (int i = 0; i < 12; ++i)
        QTest::newRow(rows[i].id) << i;
}

void TestPostProcessor::rowTitlesAndRanges()
{
    QFETCH(int, index);
    const RowFacts &row = rows[index];
    const QString id = row.id;
    QCOMPARE(h->text(id + ".title"), QString(row.title));
    QCOMPARE(h->number(id + ".sliderMin"), row.low);
    QCOMPARE(h->number(id + ".sliderMax"), row.high);
    QCOMPARE(h->number(id + ".sliderValue"), row.start);
    QCOMPARE(h->text(id + ".textValue"), QString::number(row.start));
}

void TestPostProcessor::sectionTitlesAndHeights()
{
    QCOMPARE(h->text(header(1) + ".title"), QStringLiteral("FG PostAmp"));
    QCOMPARE(h->text(header(2) + ".title"), QStringLiteral("FG Corrector"));
    QCOMPARE(h->text(header(3) + ".title"), QStringLiteral("BG Blur"));
    QCOMPARE(h->number("pagePP_ContentArea01.height"), 74 * 5);
    QCOMPARE(h->number("pagePP_ContentArea02.height"), 74 * 7);
    QCOMPARE(h->number("pagePP_ContentArea03.height"), 74 * 5);
    QCOMPARE(h->number("pagePP_ContentArea02.y"), 74 * 5 + 20);
    QCOMPARE(h->number("pagePP_ContentArea03.y"), 74 * 12 + 40);
    QCOMPARE(h->number("scrollContent.x"), 30);
    QCOMPARE(h->number("scrollContent.y"), 10);
    QCOMPARE(h->number("scrollContent.width"), 1160);
    QCOMPARE(h->number("scrollContent.height"), 610);
    for (const char *name : {"fgPostAmpOn", "fgCorrectOn", "bgBlurOn"})
        QVERIFY(h->flag(name));
    for (const char *name : {"area01Folded", "area02Folded", "area03Folded"})
        QVERIFY(!h->flag(name));
    QCOMPARE(h->number("timerPPSliderCommand.interval"), 50);
}

void TestPostProcessor::loadingSendsNothing()
{
    QTest::qWait(150);
    QCOMPARE(h->facade.calls, QStringList());
    QCOMPARE(h->number("commandIndex"), 0);
}

void TestPostProcessor::foldTakesItsTime()
{
    // The fold and nothing else moves the height, so the way down and the way up take the same 200 ms.
    for (const int end : {74, 370}) {
        support::Stopwatch clock;
        h->click("pagePP_ContentHeader01.foldButton");
        QTRY_COMPARE(h->number("pagePP_ContentArea01.height"), end);
        VERIFY_TOOK(clock, 170, 330);
    }
}

void TestPostProcessor::scrollContentStandsInItsPlace()
{
    QCOMPARE(h->number("scrollContent.x"), 30);
    QCOMPARE(h->number("scrollContent.y"), 10);
    QCOMPARE(h->number("scrollContent.width"), 1160);
    QCOMPARE(h->number("scrollContent.height"), 610);
    QVERIFY(h->flag("scrollContent.clip"));
    QCOMPARE(h->number("scrollContent.contentWidth"), 1110);
    QCOMPARE(h->number("scrollContent.contentHeight"), 370 + 20 + 518 + 20 + 370);
    // The bar stands beside the sections and is there also when nothing is left to scroll.
    const QString bar = QStringLiteral("scrollContent.scrollBar");
    QCOMPARE(h->number(bar + ".x"), 1124);
    QCOMPARE(h->number(bar + ".height"), 610);
    QCOMPARE(h->number(bar + ".policy"), 2); // always on
    const auto inside = h->item("scrollContent")->findChildren<QQuickItem *>();
    QCOMPARE(std::count_if(inside.begin(), inside.end(),
                           [](const QQuickItem *item) { return item->inherits("QQuickScrollBar"); }),
             1); // and none lies at the lower edge
}

void TestPostProcessor::nothingMovesWithTheLanguage()
{
    const QStringList parts{"pagePP_ContentHeader01.foldButton",  "pagePP_ContentHeader01.switchButton",
                            "pagePP_ContentHeader01.resetButton", "ppfgHue.itemSlider",
                            "ppfgHue.itemButtonDecrease",         "ppfgHue.itemText",
                            "ppfgBrightness.itemButtonIncrease",  "pagePP_ContentHeader02.switchButton",
                            "pagePP_ContentHeader03.resetButton", "ppbgBlurTime.itemText"};
    const QVector<QPoint> places{{218, 180}, {504, 180}, {1206, 177}, {444, 266},   {830, 249},
                                 {952, 249}, {872, 471}, {504, 570},  {1206, 1105}, {952, 1251}};
    for (const char *language : {"en_US", "zh_TW", "zh_CN"}) {
        h->translator.setTranslation(language);
        QTest::qWait(50); // rows and columns lay themselves out with the next frame
        for (int i = 0; i < parts.size(); ++i)
            QCOMPARE(h->at(h->item(parts.at(i)), 0, 0), places.at(i));
    }
}

void TestPostProcessor::switchTurnsTheSectionOffAndOn_data()
{
    QTest::addColumn<int>("section");
    QTest::addColumn<QString>("flag");
    QTest::addColumn<QString>("sent");
    QTest::newRow("post amp") << 1 << "fgPostAmpOn"
                              << "setPPFGPostAmp(%1, 500, 500, 500, 0)";
    QTest::newRow("corrector") << 2 << "fgCorrectOn"
                               << "setPPFGRGBCorrect(%1, 0, 0, 0, 0, 0, 0)";
    QTest::newRow("blur") << 3 << "bgBlurOn"
                          << "setBGBlur(%1, 0, 0)";
}

void TestPostProcessor::switchTurnsTheSectionOffAndOn()
{
    QFETCH(int, section);
    QFETCH(QString, flag);
    QFETCH(QString, sent);
    h->eval(QStringLiteral("scrollContent.contentItem.contentY = Math.min(pagePP_ContentArea0%1.y, 688)")
                .arg(section));
    h->click(header(section) + ".switchButton");
    QCOMPARE(h->facade.calls, QStringList{sent.arg("false")});
    QVERIFY(!h->flag(flag));
    QCOMPARE(h->face(header(section) + ".switchSource"), QStringLiteral("btn_switch_off_dashboard"));
    QCOMPARE(h->face(header(section) + ".resetSource"), QStringLiteral("btn_d_reset_dashboard"));
    QVERIFY(h->flag(header(section) + ".resetEnabled"));
    for (const RowFacts &row : rows) {
        const bool mine = row.section == section;
        const QString id = row.id;
        QCOMPARE(h->color(id + ".titleColor"), QString(mine ? "#333333" : "#D8D8D8"));
        QCOMPARE(h->flag(id + ".itemSlider.enabled"), !mine);
        QCOMPARE(h->flag(id + ".itemButtonDecrease.enabled"), !mine);
        QCOMPARE(h->flag(id + ".itemButtonIncrease.enabled"), !mine);
    }
    h->click(header(section) + ".switchButton");
    QCOMPARE(h->facade.calls.last(), sent.arg("true"));
    QVERIFY(h->flag(flag));
    QCOMPARE(h->face(header(section) + ".switchSource"), QStringLiteral("btn_switch_on_dashboard"));
    QCOMPARE(h->face(header(section) + ".resetSource"), QStringLiteral("btn_n_reset_dashboard"));
    for (const RowFacts &row : rows)
        QCOMPARE(h->color(QString(row.id) + ".titleColor"), QStringLiteral("#D8D8D8"));
}

void TestPostProcessor::resetAnswersAlsoWhileOff_data()
{
    QTest::addColumn<int>("section");
    QTest::addColumn<QString>("sent");
    QTest::newRow("post amp") << 1 << "resetPPFGPostAmp()";
    QTest::newRow("corrector") << 2 << "resetPPFGRGBCorrect()";
    QTest::newRow("blur") << 3 << "resetBGBlur()";
}

void TestPostProcessor::resetAnswersAlsoWhileOff()
{
    QFETCH(int, section);
    QFETCH(QString, sent);
    emit h->facade.refreshPPFGPostAmp(false, 500, 500, 500, 0);
    emit h->facade.refreshPPFGRGBCorrector(false, 0, 0, 0, 0, 0, 0);
    emit h->facade.refreshPPBGBlur(false, 0, 0);
    h->eval(QStringLiteral("scrollContent.contentItem.contentY = Math.min(pagePP_ContentArea0%1.y, 688)")
                .arg(section));
    QCOMPARE(h->face(header(section) + ".resetSource"), QStringLiteral("btn_d_reset_dashboard"));
    const QPoint place = h->middle(h->item(header(section) + ".resetButton"));
    h->press(place);
    QCOMPARE(h->face(header(section) + ".resetSource"), QStringLiteral("btn_p_reset_dashboard"));
    QCOMPARE(h->facade.calls, QStringList());
    h->release(place);
    QCOMPARE(h->face(header(section) + ".resetSource"), QStringLiteral("btn_n_reset_dashboard"));
    QCOMPARE(h->facade.calls, QStringList{sent});
}

void TestPostProcessor::refreshOfPostAmp()
{
    emit h->facade.refreshPPFGPostAmp(false, 1, 2, 3, 4);
    QVERIFY(!h->flag("fgPostAmpOn"));
    QCOMPARE(h->number("ppfgBrightness.sliderValue"), 1);
    QCOMPARE(h->number("ppfgContrast.sliderValue"), 2);
    QCOMPARE(h->number("ppfgSaturation.sliderValue"), 3);
    QCOMPARE(h->number("ppfgHue.sliderValue"), 4);
    QCOMPARE(h->face(header(1) + ".switchSource"), QStringLiteral("btn_switch_off_dashboard"));
    QCOMPARE(h->color("ppfgHue.titleColor"), QStringLiteral("#333333"));
    // The one echo, 50 ms later, with what the unit has just told.
    QTRY_COMPARE(h->facade.calls, QStringList{"setPPFGPostAmp(false, 1, 2, 3, 4)"});
    emit h->facade.refreshPPFGPostAmp(false, 1, 2, 3, 4);
    QTest::qWait(120);
    QCOMPARE(h->facade.calls.size(), 1);
}

void TestPostProcessor::refreshOfCorrector()
{
    emit h->facade.refreshPPFGRGBCorrector(true, 1, 2, 3, 4, 5, 6);
    QCOMPARE(h->number("ppfgRWhiteLevel.sliderValue"), 1);
    QCOMPARE(h->number("ppfgRBlackLevel.sliderValue"), 2);
    QCOMPARE(h->number("ppfgGWhiteLevel.sliderValue"), 3);
    QCOMPARE(h->number("ppfgGBlackLevel.sliderValue"), 4);
    QCOMPARE(h->number("ppfgBWhiteLevel.sliderValue"), 5);
    QCOMPARE(h->number("ppfgBBlackLevel.sliderValue"), 6);
    QTRY_COMPARE(h->facade.calls, QStringList{"setPPFGRGBCorrect(true, 1, 2, 3, 4, 5, 6)"});
}

void TestPostProcessor::refreshOfBlur()
{
    emit h->facade.refreshPPBGBlur(true, 40, 7);
    QCOMPARE(h->number("ppbgBlurValue.sliderValue"), 40);
    QCOMPARE(h->number("ppbgBlurTime.sliderValue"), 7);
    QVERIFY(Messages::logs().contains("onRefreshPPBGBlur"));
    QTRY_COMPARE(h->facade.calls, QStringList{"setBGBlur(true, 40, 7)"});
}

void TestPostProcessor::sectionsFold_data()
{
    QTest::addColumn<int>("section");
    QTest::addColumn<int>("open");
    QTest::addColumn<QString>("row");
    QTest::newRow("post amp") << 1 << 74 * 5 << "ppfgHue";
    QTest::newRow("corrector") << 2 << 74 * 7 << "ppfgRWhiteLevel";
    QTest::newRow("blur") << 3 << 74 * 5 << "ppbgBlurValue";
}

void TestPostProcessor::sectionsFold()
{
    QFETCH(int, section);
    QFETCH(int, open);
    QFETCH(QString, row);
    const QString area = QStringLiteral("pagePP_ContentArea0%1").arg(section);
    const QString folded = QStringLiteral("area0%1Folded").arg(section);
    h->eval("scrollContent.contentItem.contentY = Math.min(" + area + ".y, 688)");
    h->click(header(section) + ".foldButton");
    QVERIFY(h->flag(folded));
    QVERIFY(!h->item(row)->isVisible());
    QVERIFY(!h->item(row)->isEnabled());
    QCOMPARE(h->face(header(section) + ".foldButton.source"), QStringLiteral("btn_n_hide_dashboard"));
    QVERIFY(h->number(area + ".height") > 74);
    QTRY_COMPARE(h->number(area + ".height"), 74);
    QCOMPARE(h->number("scrollContent.contentHeight"), 1298 - open + 74);
    h->click(header(section) + ".foldButton");
    QVERIFY(h->item(row)->isVisible());
    QTRY_COMPARE(h->number(area + ".height"), open);
    QCOMPARE(h->face(header(section) + ".foldButton.source"), QStringLiteral("btn_n_show_dashboard"));

    // Two clicks inside one animation: the height goes by the last.
    h->click(header(section) + ".foldButton");
    h->click(header(section) + ".foldButton");
    QVERIFY(!h->flag(folded));
    QTest::qWait(500);
    QCOMPARE(h->number(area + ".height"), open);
}

void TestPostProcessor::languageChangesThePictures()
{
    emit h->facade.refreshPPFGPostAmp(false, 500, 500, 500, 0);
    h->translator.setTranslation("zh_TW");
    QCOMPARE(h->face(header(1) + ".switchSource"), QStringLiteral("TW/btn_switch_off_dashboard"));
    QCOMPARE(h->face(header(2) + ".switchSource"), QStringLiteral("TW/btn_switch_on_dashboard"));
    // Normal again, although the section is off.
    QCOMPARE(h->face(header(1) + ".resetSource"), QStringLiteral("TW/btn_n_reset_dashboard"));
    QCOMPARE(h->face(header(3) + ".resetSource"), QStringLiteral("TW/btn_n_reset_dashboard"));
    QVERIFY(Messages::logs().contains("onLanguageChanged(PostPro)"));
}

void TestPostProcessor::scrollsToTheEnd()
{
    emit h->facade.refreshPPFGPostAmp(true, 485, 500, 540, 0);
    h->eval("ppfgHue.sliderValue = -12");
    emit h->facade.refreshPPFGRGBCorrector(false, 1000, 0, 0, 0, 0, 0);
    QCOMPARE(h->number("scrollContent.contentHeight"), 1298);
    const QPoint bar = h->at(h->page, 30 + 1110 + 14 + 6, 100);
    h->press(bar);
    h->move(bar + QPoint(0, 500));
    h->release(bar + QPoint(0, 500));
    QCOMPARE(h->number("scrollContent.contentItem.contentY"), 688);
    // The last row stands whole in sight.
    QVERIFY(h->at(h->item("ppbgBlurTime"), 0, 74).y() <= 768);
    for (int i = 0; i < 3; ++i) {
        const QPoint place = h->at(h->page, 500, 300);
        QWheelEvent event(place, h->window->mapToGlobal(place), {}, QPoint(0, 1200), Qt::NoButton, {},
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(h->window, &event);
    }
    QTRY_COMPARE(h->number("scrollContent.contentItem.contentY"), 0);
}

void TestPostProcessor::stillPageDrawsNothing()
{
    h->click("pagePP_ContentHeader01.foldButton");
    QTRY_COMPARE(h->number("pagePP_ContentArea01.height"), 74);
    QVERIFY(h->rests(500));
    const QImage folded = h->grab(h->window->contentItem(), "postprocessor-folded");
    QCOMPARE(h->grab(h->window->contentItem(), "postprocessor-folded"), folded);
}

QTEST_MAIN(TestPostProcessor)
#include "tst_postprocessor.moc"
