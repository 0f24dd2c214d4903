#include "panelfacade.h"
#include "panelharness.h"

// The output band, the language switch and the menu, worked by mouse over a recorded facade.
class TestBand : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void sendsNothingWhileLoading();
    void eachRoutingControlSendsTwelveArguments();
    void lockDisablesItsGroupAndSends_data();
    void lockDisablesItsGroupAndSends();
    void refreshShowsAndSendsNothing_data();
    void refreshShowsAndSendsNothing();
    void refreshOfTheSameSourceSwallowsNoAction();
    void pvwHdmiRefreshChangesNothing();
    void memoryIsLockedAtStart();
    void memoryStatusIsThereBeforeTheCall_data();
    void memoryStatusIsThereBeforeTheCall();
    void releaseOutsideLoadsNothing();
    void refreshUserMemory_data();
    void refreshUserMemory();
    void languageSwitchKeepsEntriesAndSendsNothing();
    void languageSwitchFollowsItsOrder();
    void refreshLanguage_data();
    void refreshLanguage();
    void menuShowsPages_data();
    void menuShowsPages();

private:
    std::unique_ptr<PanelFacade> facade;
    std::unique_ptr<PanelHarness> h;
};

// With a unit connected, so that the mask is out of the way.
void TestBand::init()
{
    facade = std::make_unique<PanelFacade>();
    h = std::make_unique<PanelHarness>(facade.get());
    QVERIFY(h->show());
    QVERIFY(h->standsOpen("popupMask"));
    const QString test = QString::fromLatin1(QTest::currentTestFunction());
    if (test == QLatin1String("sendsNothingWhileLoading"))
        return;
    emit facade->autoConnectResult("OK");
    QVERIFY(h->standsClosed("popupMask"));
    facade->forget();
}

void TestBand::cleanup()
{
    QCOMPARE(Messages::warnings(), QStringList());
    h.reset();
    facade.reset();
}

void TestBand::sendsNothingWhileLoading()
{
    QCOMPARE(facade->calls, QStringList());
    QCOMPARE(h->number("comboPgmSdiOutput.currentIndex"), 0);
    QCOMPARE(h->number("comboUserMem.currentIndex"), 0);
    QCOMPARE(h->text("comboUserMem.displayText"), QStringLiteral("User 1"));
    QVERIFY(!h->flag("hlnpNetDHCPModeChned"));
    QVERIFY(Messages::logs().join('\n').contains("Language Path:"));
}

void TestBand::eachRoutingControlSendsTwelveArguments()
{
    h->choose("comboPgmSdiOutput", 5);
    h->click("checkboxPGMSDI");
    h->choose("comboPgmHdmiOutput", 3);
    h->click("checkboxPGMHDMI");
    h->choose("comboPvwOutput", 4);
    h->click("checkboxPVW");
    const QStringList expected = {
        "setOutSelect(6, false, false, 1, false, false, 1, false, false, 1, false, false)",
        "setOutSelect(6, false, true, 1, false, false, 1, false, false, 1, false, false)",
        "setOutSelect(6, false, true, 1, false, false, 4, false, false, 1, false, false)",
        "setOutSelect(6, false, true, 1, false, false, 4, false, true, 1, false, false)",
        "setOutSelect(6, false, true, 5, false, false, 4, false, true, 5, false, false)",
        "setOutSelect(6, false, true, 5, false, true, 4, false, true, 5, false, true)"};
    QCOMPARE(facade->calls, expected);
    QVERIFY(Messages::logs().contains("pgmsdi index changed. ignorethisRefresh= false"));
    QVERIFY(Messages::logs().contains("pgmhdmi index changed"));
    QVERIFY(Messages::logs().contains("pvw index changed"));
}

void TestBand::lockDisablesItsGroupAndSends_data()
{
    QTest::addColumn<QString>("lock");
    QTest::addColumn<QString>("combo");
    QTest::addColumn<QString>("box");
    QTest::addColumn<QString>("locked");
    QTest::newRow("PGM SDI")
        << "btnLockPGMSDI"
        << "comboPgmSdiOutput"
        << "checkboxPGMSDI"
        << "setOutSelect(1, true, false, 1, false, false, 1, false, false, 1, false, false)";
    QTest::newRow("PGM HDMI")
        << "btnLockPGMHDMI"
        << "comboPgmHdmiOutput"
        << "checkboxPGMHDMI"
        << "setOutSelect(1, false, false, 1, false, false, 1, true, false, 1, false, false)";
    QTest::newRow("PVW") << "btnLockPVW"
                         << "comboPvwOutput"
                         << "checkboxPVW"
                         << "setOutSelect(1, false, false, 1, true, false, 1, false, false, 1, true, false)";
}

void TestBand::lockDisablesItsGroupAndSends()
{
    QFETCH(QString, lock);
    QFETCH(QString, combo);
    QFETCH(QString, box);
    QFETCH(QString, locked);
    QCOMPARE(h->face(lock), QStringLiteral("icon_unlock_output"));
    h->click(lock);
    QCOMPARE(facade->calls, QStringList(locked));
    QVERIFY(!h->flag(combo + ".enabled"));
    QVERIFY(!h->flag(box + ".enabled"));
    QCOMPARE(h->face(lock), QStringLiteral("icon_lock_output"));
    facade->forget();
    h->click(box);
    QCOMPARE(facade->calls, QStringList());
    h->click(lock);
    QVERIFY(h->flag(combo + ".enabled"));
    QVERIFY(h->flag(box + ".enabled"));
    QCOMPARE(facade->calls,
             QStringList("setOutSelect(1, false, false, 1, false, false, 1, false, false, 1, false, false)"));
}

void TestBand::refreshShowsAndSendsNothing_data()
{
    QTest::addColumn<QString>("signal");
    QTest::addColumn<QString>("group");
    QTest::newRow("PGM SDI") << "refreshOutputSourcePGM"
                             << "comboPgmSdiOutput checkboxPGMSDI btnLockPGMSDI";
    QTest::newRow("PGM HDMI") << "refreshOutputSourcePGMHDMI"
                              << "comboPgmHdmiOutput checkboxPGMHDMI btnLockPGMHDMI";
    QTest::newRow("PVW") << "refreshOutputSourcePVW"
                         << "comboPvwOutput checkboxPVW btnLockPVW";
}

void TestBand::refreshShowsAndSendsNothing()
{
    QFETCH(QString, signal);
    QFETCH(QString, group);
    const QStringList ids = group.split(' ');
    for (const bool lock : {true, false}) {
        QVERIFY(QMetaObject::invokeMethod(facade.get(), signal.toLatin1().constData(),
                                          Q_ARG(uint, lock ? 4 : 2), Q_ARG(bool, lock), Q_ARG(bool, lock)));
        QCOMPARE(h->number(ids.at(0) + ".currentIndex"), lock ? 3 : 1);
        QCOMPARE(h->flag(ids.at(1) + ".checked"), lock);
        QCOMPARE(h->flag(ids.at(2) + ".checked"), lock);
        QCOMPARE(h->flag(ids.at(0) + ".enabled"), !lock);
        QCOMPARE(h->flag(ids.at(1) + ".enabled"), !lock);
        QVERIFY(!h->flag("ignoreThisRefresh"));
    }
    QCOMPARE(facade->calls, QStringList());
}

void TestBand::refreshOfTheSameSourceSwallowsNoAction()
{
    emit facade->refreshOutputSourcePGM(1, false, false);
    QVERIFY(!h->flag("ignoreThisRefresh"));
    h->click("checkboxPGMSDI");
    QCOMPARE(facade->callsOf("setOutSelect").size(), 1);
}

void TestBand::pvwHdmiRefreshChangesNothing()
{
    emit facade->refreshOutputSourcePVWHDMI(5, true, true);
    QCOMPARE(h->number("comboPvwOutput.currentIndex"), 0);
    QVERIFY(!h->flag("checkboxPVW.checked"));
    QVERIFY(h->flag("comboPvwOutput.enabled"));
    QCOMPARE(facade->calls, QStringList());
}

void TestBand::memoryIsLockedAtStart()
{
    QVERIFY(h->flag("memoryLock"));
    for (const QString &id : QStringList{"comboUserMem", "outputMemoryLoad", "outputMemorySave"})
        QVERIFY(!h->flag(id + ".enabled"));
    QCOMPARE(h->face("outputMemoryLock"), QStringLiteral("icon_lock_output"));
    h->click("outputMemoryLoad");
    QCOMPARE(facade->calls, QStringList());
    h->eval("outputTitleUserMemOp.text = 'x'");
    h->press("outputMemoryLock");
    QCOMPARE(h->text("outputTitleUserMemOp.text"), QString());
    QVERIFY(h->flag("memoryLock"));
    h->release("outputMemoryLock");
    QVERIFY(!h->flag("memoryLock"));
    QVERIFY(h->flag("comboUserMem.enabled && outputMemoryLoad.enabled && outputMemorySave.enabled"));
    QCOMPARE(h->face("outputMemoryLock"), QStringLiteral("icon_unlock_output"));
}

void TestBand::memoryStatusIsThereBeforeTheCall_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("call");
    QTest::addColumn<QString>("picture");
    QTest::newRow("load") << "outputMemoryLoad"
                          << "loadMemory(3)"
                          << "load_usermemory";
    QTest::newRow("save") << "outputMemorySave"
                          << "saveMemory(3)"
                          << "save_usermemory";
}

void TestBand::memoryStatusIsThereBeforeTheCall()
{
    QFETCH(QString, button);
    QFETCH(QString, call);
    QFETCH(QString, picture);
    h->click("outputMemoryLock");
    h->choose("comboUserMem", 2);
    h->press(button);
    QCOMPARE(h->text("outputTitleUserMemOp.text"), QStringLiteral("Setting up..."));
    QCOMPARE(h->face(button), "btn_p_" + picture);
    QCOMPARE(facade->calls, QStringList());
    h->release(button);
    QCOMPARE(h->text("outputTitleUserMemOp.text"), QStringLiteral("Setting completed."));
    QCOMPARE(h->face(button), "btn_n_" + picture);
    QCOMPARE(facade->calls, QStringList(call));
    h->choose("comboUserMem", 4);
    QCOMPARE(h->text("outputTitleUserMemOp.text"), QString());
}

void TestBand::releaseOutsideLoadsNothing()
{
    h->click("outputMemoryLock");
    h->press("outputMemoryLoad");
    QTest::mouseMove(h->window, QPoint(700, 500));
    QTest::mouseRelease(h->window, Qt::LeftButton, {}, QPoint(700, 500));
    QCOMPARE(facade->calls, QStringList());
}

void TestBand::refreshUserMemory_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("entry");
    QTest::newRow("0") << 0 << 0;
    QTest::newRow("1") << 1 << 0;
    QTest::newRow("8") << 8 << 7;
    QTest::newRow("9") << 9 << 0;
}

void TestBand::refreshUserMemory()
{
    QFETCH(int, index);
    QFETCH(int, entry);
    h->eval("comboUserMem.currentIndex = 4");
    emit facade->refreshUserMemory(index);
    QCOMPARE(h->number("comboUserMem.currentIndex"), entry);
    QVERIFY(Messages::logs().contains(QStringLiteral("RefreshUserMemory: %1").arg(index - 1)));
}

void TestBand::languageSwitchKeepsEntriesAndSendsNothing()
{
    emit facade->refreshOutputSourcePGM(6, false, false);
    emit facade->refreshOutputSourcePGMHDMI(5, false, false);
    emit facade->refreshOutputSourcePVW(4, false, false);
    emit facade->refreshUserMemory(8);
    h->eval("comboAddrmode.currentIndex = 1");
    const QStringList words = {QStringLiteral("混合"), QStringLiteral("合成"), QStringLiteral("Comp")};
    const QStringList folders = {"qrc:/img/pc/TW/", "qrc:/img/pc/CN/", "qrc:/img/pc/"};
    const QVector<int> rows = {1, 2, 0};
    for (int i = 0; i < rows.size(); ++i) {
        h->choose("comboMainLanguage", rows.at(i));
        QCOMPARE(h->number("comboPgmSdiOutput.currentIndex"), 5);
        QCOMPARE(h->number("comboPgmHdmiOutput.currentIndex"), 4);
        QCOMPARE(h->number("comboPvwOutput.currentIndex"), 3);
        QCOMPARE(h->number("comboUserMem.currentIndex"), 7);
        QCOMPARE(h->number("comboAddrmode.currentIndex"), 1);
        QCOMPARE(h->text("comboPgmSdiOutput.displayText"), words.at(i));
        QCOMPARE(h->text("sourcePath"), folders.at(i));
        QCOMPARE(h->text("menuInput.text") == QLatin1String("Input"), i == 2);
        QCOMPARE(h->text("outputTitlePGMSDI.font.family"),
                 i == 2 ? h->text("hlFontEnRegular.name") : QStringLiteral("Noto Sans CJK TC Regular"));
    }
    QCOMPARE(facade->callsOf("setOutSelect"), QStringList());
    h->click("checkboxPGMSDI");
    QCOMPARE(facade->callsOf("setOutSelect").size(), 1);
}

void TestBand::languageSwitchFollowsItsOrder()
{
    Messages::logs().clear();
    h->choose("comboMainLanguage", 2);
    const QStringList steps =
        Messages::logs().filter("Language Select").replaceInStrings(QRegExp("(:).*"), "\\1");
    QCOMPARE(steps,
             QStringList({"Language Select AAA:", "Language Select AAA2:", "Language Select AAA3:",
                          "Language Select BBB:"}));
    QCOMPARE(h->translator.currentLanguage(), QStringLiteral("zh_CN"));
}

void TestBand::refreshLanguage_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<int>("index");
    QTest::newRow("en_US") << "en_US" << 0;
    QTest::newRow("zh_TW") << "zh_TW" << 1;
    QTest::newRow("zh_CN") << "zh_CN" << 2;
    QTest::newRow("empty") << "" << -1;
    QTest::newRow("unknown") << "fr_FR" << -1;
}

void TestBand::refreshLanguage()
{
    QFETCH(QString, language);
    QFETCH(int, index);
    for (const int before : {0, 1, 2}) {
        h->eval(QStringLiteral("comboMainLanguage.currentIndex = %1").arg(before));
        emit facade->refreshLanguage(language);
        QCOMPARE(h->number("comboMainLanguage.currentIndex"), index < 0 ? before : index);
    }
    QVERIFY(Messages::logs().join('\n').contains("onRefreshLanguage"));
}

void TestBand::menuShowsPages_data()
{
    QTest::addColumn<int>("page");
    for (int page = 1; page <= 6; ++page)
        QTest::newRow(QByteArray::number(page)) << page;
}

void TestBand::menuShowsPages()
{
    QFETCH(int, page);
    const QStringList entries = {"menuInput",       "menuChromakey",     "menuPostProcessor",
                                 "menuGarbageMask", "menuHoldoutWindow", "menuAuxLumakey"};
    const QStringList pages = {"pageIN", "pageCK", "pagePP", "pageGM", "pageHW", "pageAL"};
    QCOMPARE(h->number("tabPageID"), 1);
    QCOMPARE(h->face("menuInput"), QStringLiteral("btn_p_menu_dashboard"));
    h->click(entries.at(page - 1));
    QCOMPARE(h->number("tabPageID"), page);
    QCOMPARE(facade->calls, QStringList(QStringLiteral("setCurrentPage(%1)").arg(page)));
    for (int i = 0; i < 6; ++i) {
        const bool selected = i == page - 1;
        QCOMPARE(h->flag(pages.at(i) + ".visible"), selected);
        QCOMPARE(h->face(entries.at(i)),
                 selected ? QStringLiteral("btn_p_menu_dashboard") : QStringLiteral("btn_n_menu_dashboard"));
        QCOMPARE(h->color(entries.at(i) + ".textColor"),
                 selected ? QStringLiteral("#8BC7EA") : QStringLiteral("#949494"));
    }
}

QTEST_MAIN(TestBand)
#include "tst_band.moc"
