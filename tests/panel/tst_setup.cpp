#include "panelfacade.h"
#include "panelharness.h"

// The setup panel and its notices, worked by mouse over a recorded facade.
class TestSetup : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void opensAndCloses();
    void autoResolutionSwitch();
    void choicesHoldThePoll();
    void saveSendsTheChoice();
    void autoSaveSendsTheDisabledChoice();
    void showVout_data();
    void showVout();
    void showVersion();
    void factoryReset();
    void lists();
    void entriesOfTheBoxes_data();
    void entriesOfTheBoxes();
    void wordsStandLeftOfTheirControls_data();
    void wordsStandLeftOfTheirControls();

private:
    std::unique_ptr<PanelFacade> facade;
    std::unique_ptr<PanelHarness> h;
};

void TestSetup::init()
{
    facade = std::make_unique<PanelFacade>();
    h = std::make_unique<PanelHarness>(facade.get());
    QVERIFY(h->show());
    QVERIFY(h->standsOpen("popupMask"));
    emit facade->autoConnectResult("OK");
    QVERIFY(h->standsClosed("popupMask"));
    h->click("btnSetup");
    QVERIFY(h->standsOpen("popupSetup"));
    facade->forget();
}

void TestSetup::cleanup()
{
    QCOMPARE(Messages::warnings(), QStringList());
    h.reset();
    facade.reset();
}

void TestSetup::opensAndCloses()
{
    QVERIFY(h->flag("btnSetupClicked"));
    QCOMPARE(h->face("btnSetup"), QStringLiteral("btn_p_setup_dashboard"));
    h->clickAt(QPoint(433 + 466, 159 + 27));
    QVERIFY(h->standsClosed("popupSetup"));
    QVERIFY(!h->flag("btnSetupClicked"));
    QCOMPARE(h->face("btnSetup"), QStringLiteral("btn_n_setup_dashboard"));
    QCOMPARE(facade->calls, QStringList("setRefreshTimer(true)"));
    QVERIFY(Messages::logs().contains("Popup Setup Closed!"));
}

void TestSetup::autoResolutionSwitch()
{
    QCOMPARE(h->face("imgSetupAutoOutRes"), QStringLiteral("btn_switch_off_dashboard"));
    h->click("imgSetupAutoOutRes");
    QCOMPARE(facade->calls, QStringList("setRefreshTimer(false)"));
    QVERIFY(h->flag("autoOutputRes"));
    QVERIFY(!h->flag("comboSetupVOutRes.enabled"));
    QCOMPARE(h->face("imgSetupAutoOutRes"), QStringLiteral("btn_switch_on_dashboard"));
    QVERIFY(Messages::logs().contains("AutoOutRes: true"));
    emit facade->refreshLanguage("zh_CN");
    QCOMPARE(h->face("imgSetupAutoOutRes"), QStringLiteral("CN/btn_switch_on_dashboard"));
    h->click("imgSetupAutoOutRes");
    QVERIFY(h->flag("comboSetupVOutRes.enabled"));
}

void TestSetup::choicesHoldThePoll()
{
    h->choose("comboSetupVOutRes", 3);
    h->choose("comboSetupVOutOutputFormat", 2);
    QCOMPARE(facade->calls, QStringList({"setRefreshTimer(false)", "setRefreshTimer(false)"}));
    QCOMPARE(h->text("comboSetupVOutRes.displayText"), QStringLiteral("1080p23.98"));
    QCOMPARE(h->text("comboSetupVOutOutputFormat.displayText"), QStringLiteral("YUV422"));
}

void TestSetup::saveSendsTheChoice()
{
    h->choose("comboSetupVOutRes", 2);
    h->choose("comboSetupVOutOutputFormat", 1);
    facade->forget();
    h->click("btnSetupSave");
    QCOMPARE(facade->calls, QStringList({"setVOut(8, 1, 0)", "saveSetup()", "setRefreshTimer(true)"}));
    QVERIFY(h->flag("btnSetupSave.enabled"));
    QVERIFY(h->standsOpen("popupSetupSaveFinished"));
    h->click("btnSetupSaveFinished");
    QVERIFY(h->standsClosed("popupSetupSaveFinished"));
    QVERIFY(h->flag("popupSetup.opened"));
}

void TestSetup::autoSaveSendsTheDisabledChoice()
{
    h->choose("comboSetupVOutRes", 1);
    h->click("imgSetupAutoOutRes");
    facade->forget();
    h->click("btnSetupSave");
    QCOMPARE(facade->calls.first(), QStringLiteral("setVOut(7, 0, 1)"));
}

void TestSetup::showVout_data()
{
    QTest::addColumn<uint>("res");
    QTest::addColumn<uint>("format");
    QTest::addColumn<uint>("std");
    QTest::addColumn<int>("row");
    QTest::newRow("1080i50, manual") << 6U << 0U << 0U << 0;
    QTest::newRow("2160p60, automatic") << 24U << 2U << 1U << 18;
    QTest::newRow("not in the list") << 3U << 1U << 0U << 0;
    QTest::newRow("failed read") << 16U << 1U << 999U << 10;
}

void TestSetup::showVout()
{
    QFETCH(uint, res);
    QFETCH(uint, format);
    QFETCH(uint, std);
    QFETCH(int, row);
    emit facade->showVout(res, format, std);
    QCOMPARE(h->number("comboSetupVOutRes.currentIndex"), row);
    QCOMPARE(h->number("comboSetupVOutOutputFormat.currentIndex"), int(format));
    QCOMPARE(h->flag("autoOutputRes"), std != 0);
    QCOMPARE(h->flag("comboSetupVOutRes.enabled"), std == 0);
    QCOMPARE(h->face("imgSetupAutoOutRes"),
             std != 0 ? QStringLiteral("btn_switch_on_dashboard")
                      : QStringLiteral("btn_switch_off_dashboard"));
    // Each combo that moved has held the poll once.
    QStringList held;
    for (const bool moved : {row != 0, format != 0}) {
        if (moved)
            held.append(QStringLiteral("setRefreshTimer(false)"));
    }
    QCOMPARE(facade->calls, held);
}

void TestSetup::showVersion()
{
    QCOMPARE(h->text("txtFWVersion.text"), QStringLiteral("v0.0"));
    emit facade->showVersion("1.2", "3.4", "5.6");
    QCOMPARE(h->text("txtFWVersion.text"), QStringLiteral("v1.2"));
    QCOMPARE(h->text("txtFPGAVersion.text"), QStringLiteral("v3.4"));
    QCOMPARE(h->text("txtBLVersion.text"), QStringLiteral("v5.6"));
}

void TestSetup::factoryReset()
{
    h->press("btnSetupFactoryDefault");
    QCOMPARE(h->face("btnSetupFactoryDefault"), QStringLiteral("btn_n_default_setup"));
    h->release("btnSetupFactoryDefault");
    QVERIFY(h->standsOpen("popupFactoryDefault"));
    QVERIFY(Messages::logs().join('\n').contains("Language source path:"));
    h->click("btnFactoryCancel");
    QVERIFY(h->standsClosed("popupFactoryDefault"));
    QCOMPARE(facade->calls, QStringList());
    h->click("btnSetupFactoryDefault");
    QVERIFY(h->standsOpen("popupFactoryDefault"));
    h->press("btnFactoryReset");
    QCOMPARE(h->face("btnFactoryReset"), QStringLiteral("btn_p_reset_dashboard"));
    h->release("btnFactoryReset");
    QCOMPARE(facade->calls, QStringList("loadMemory(0)"));
    QVERIFY(h->standsClosed("popupFactoryDefault"));
    QVERIFY(h->standsOpen("popupSetupFactoryReset"));
    h->click("btnSetupFactoryReset");
    QVERIFY(h->standsClosed("popupSetupFactoryReset"));
}

void TestSetup::lists()
{
    QCOMPARE(h->number("listResolution.count"), 33);
    QCOMPARE(h->text("listResolution.get(32).modelData"), QStringLiteral("2160wp60"));
    QCOMPARE(h->number("listOutputResolution.count"), 19);
    for (int i = 0; i < 19; ++i) {
        const QString row = QStringLiteral("listOutputResolution.get(%1)").arg(i);
        QCOMPARE(h->number(row + ".value"), i + 6);
        QCOMPARE(h->text(row + ".modelData"),
                 i == 18 ? QStringLiteral("2160pP60")
                         : h->text(QStringLiteral("listResolution.get(%1).modelData").arg(i + 6)));
    }
    for (int i = 0; i < 33; ++i)
        QCOMPARE(h->number(QStringLiteral("listResolution.get(%1).value").arg(i)), i);
    QCOMPARE(h->text("emptyList.get(0).modelData"), QString());
    QCOMPARE(h->number("emptyList.count"), 1);
    QCOMPARE(h->window->title(), QStringLiteral("QKV-720 v1.6.7"));
    QCOMPARE(h->window->minimumSize(), QSize(1366, 768));
    QCOMPARE(h->window->maximumSize(), QSize(1366, 768));
}

void TestSetup::entriesOfTheBoxes_data()
{
    QTest::addColumn<QString>("combo");
    QTest::addColumn<QString>("entries");
    for (const char *combo : {"comboPgmSdiOutput", "comboPgmHdmiOutput", "comboPvwOutput"})
        QTest::newRow(combo) << combo << "FG,BG,AUX,Matte,PFG,Comp";
    const auto row = [](const char *combo, const char *entries) {
        QTest::newRow(combo) << combo << QString::fromLatin1(entries);
    };
    row("comboUserMem", "User 1,User 2,User 3,User 4,User 5,User 6,User 7,User 8");
    row("comboSetupVOutOutputFormat", "RGB444,YUV444,YUV422");
    row("comboConnectInterface", "HLNP,RS-232");
    row("comboAddrmode", "DHCP,Static IP");
}

// An entry is sent by its number: each word must stand at its own.
void TestSetup::entriesOfTheBoxes()
{
    QFETCH(QString, combo);
    QFETCH(QString, entries);
    const QString all = QStringLiteral("(function(box) { var words = [];"
                                       "for (var i = 0; i < box.count; ++i) words.push(box.textAt(i));"
                                       "return words.join() })(%1)");
    QCOMPARE(h->text(all.arg(combo)), entries);
}

void TestSetup::wordsStandLeftOfTheirControls_data()
{
    QTest::addColumn<QString>("words");
    QTest::addColumn<QString>("control");
    const auto row = [](const char *words, const char *control) {
        QTest::newRow(control) << QString::fromLatin1(words) << control;
    };
    row("Auto Output Resolution", "imgSetupAutoOutRes");
    row("Output Resolution", "comboSetupVOutRes");
    row("HDMI Output Format", "comboSetupVOutOutputFormat");
    row("FW Version", "txtFWVersion");
    row("FPGA Version", "txtFPGAVersion");
    row("Bootloader Version", "txtBLVersion");
}

void TestSetup::wordsStandLeftOfTheirControls()
{
    QFETCH(QString, words);
    QFETCH(QString, control);
    const QQuickItem *target = h->item(control);
    const QPointF place = target->mapToScene(QPointF(0, target->height() / 2));
    QVector<QPointF> found;
    for (const QQuickItem *item : h->item("setupForm")->findChildren<QQuickItem *>()) {
        if (item->property("text").toString() == words && item->isVisible())
            found << item->mapToScene(QPointF(220, item->height() / 2));
    }
    QCOMPARE(found.size(), 1);
    QCOMPARE(found.constFirst().x(), place.x());
    QVERIFY(qAbs(found.constFirst().y() - place.y()) <= 1);
}

QTEST_MAIN(TestSetup)
#include "tst_setup.moc"
