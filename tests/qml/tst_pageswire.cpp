#include "pageharness.h"

#include "control/maincontrol.h"
#include "tests/support/checked.h"
#include "tests/support/unithost.h"

// The pages with the real facade and a stand-in unit: one gesture per group, from the mouse to the byte.
class TestPagesWire : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();
    void connectFillsThePage_data();
    void connectFillsThePage();
    void gestureReachesTheUnit_data();
    void gestureReachesTheUnit();
    void typedNumberComesBackFromTheUnit();
    void negativeHueLeavesInTwosComplement();
    void resetTakesTheUnitsValues();
    void freezeReachesTheUnit();
    void pollBringsTheUnitsGenlock();
    void layerSwitchIsReadBack();

private:
    void open(const QByteArray &pageType);
    // The frames since the last look without what the poll reads: "da 01 00".
    QStringList frames() const;

    std::unique_ptr<support::UnitHost> unit;
    std::unique_ptr<mainControl> control;
    std::unique_ptr<PageHarness> h;
};

void TestPagesWire::open(const QByteArray &pageType)
{
    unit = std::make_unique<support::UnitHost>();
    // Every record with values of its own, so that none can stand in the place of another.
    unit->withUnit([](standin::Unit &it) {
        it.setData(standin::PostAmplifier, QByteArray::fromHex("010b010c010d010e00"));
        it.setData(standin::RgbCorrector, QByteArray::fromHex("01010002000300040005000600"));
        it.setData(standin::BackgroundBlur, QByteArray::fromHex("012807"));
        it.setData(standin::GarbageMask, QByteArray::fromHex("010064008403c800580214"));
        it.setData(standin::HoldoutWindow, QByteArray::fromHex("01016400000fc800700814"));
        it.setData(standin::LumaKey, QByteArray::fromHex("0101b40040010108e803"));
        it.setData(standin::InputSelection, QByteArray::fromHex("00000002010a00f6ff"));
    });
    control = std::make_unique<mainControl>();
    control->timerStartUp->stop();
    h = std::make_unique<PageHarness>(pageType + " { id: page; anchors.fill: parent }", control.get());
    QVERIFY(h->show());
    QCOMPARE(control->deviceConnect(1, unit->address(), 0), QStringLiteral("OK"));
    control->setCurrentPage(2);
    QTest::qWait(400); // echoes of what was told last
    unit->clearRecord();
}

void TestPagesWire::cleanup()
{
    QCOMPARE(Messages::warnings(), QStringList());
    h.reset();
    control.reset();
    unit.reset();
}

QStringList TestPagesWire::frames() const
{
    // The poll's own reads have nothing to do with a gesture.
    return unit->frames({standin::OutputStandard, standin::InputStandard});
}

void TestPagesWire::connectFillsThePage_data()
{
    QTest::addColumn<QByteArray>("page");
    QTest::addColumn<QStringList>("shown");
    QTest::newRow("post-processor") << QByteArray(
        "PagePostProcessor") << QStringList{"ppfgBrightness.sliderValue 267", "ppfgContrast.sliderValue 268",
                                            "ppfgSaturation.sliderValue 269", "ppfgHue.sliderValue 14",
                                            "ppfgRWhiteLevel.sliderValue 1",  "ppfgRBlackLevel.sliderValue 2",
                                            "ppfgGWhiteLevel.sliderValue 3",  "ppfgGBlackLevel.sliderValue 4",
                                            "ppfgBWhiteLevel.sliderValue 5",  "ppfgBBlackLevel.sliderValue 6",
                                            "ppbgBlurValue.sliderValue 40",   "ppbgBlurTime.sliderValue 7"};
    QTest::newRow("garbage") << QByteArray("PageGarbageMask")
                             << QStringList{"windowLeft.sliderValue 100",  "windowRight.sliderValue 900",
                                            "windowTop.sliderValue 200",   "windowBottom.sliderValue 600",
                                            "windowBorder.sliderValue 20", "invertOn 0"};
    QTest::newRow("holdout") << QByteArray("PageHoldoutWindow")
                             << QStringList{"holdoutWindowLeft.sliderValue 100",
                                            "holdoutWindowRight.sliderValue 3840",
                                            "holdoutWindowTop.sliderValue 200",
                                            "holdoutWindowBottom.sliderValue 2160",
                                            "holdoutWindowBorder.sliderValue 20",
                                            "holdoutInvertOn 1"};
    QTest::newRow("lumakey") << QByteArray("PageAuxLumakey")
                             << QStringList{"auxLumakeyCutoff.sliderValue 180",
                                            "auxLumakeySoftness.sliderValue 320",
                                            "auxLumakeySwaptime.sliderValue 8",
                                            "auxLumakeyOpacity.sliderValue 1000",
                                            "keyMode 1",
                                            "layerSwapOn 1"};
    QTest::newRow("input") << QByteArray("PageInput")
                           << QStringList{"horizontalOffset.sliderValue 10", "verticalOffset.sliderValue -10",
                                          "freezeBG 1", "freezeFG 0", "genlockOn 1"};
}

void TestPagesWire::connectFillsThePage()
{
    QFETCH(QByteArray, page);
    QFETCH(QStringList, shown);
    CHECKED(open(page));
    for (const QString &told : shown) {
        const QString name = told.section(' ', 0, 0);
        QVERIFY2(h->number(name) == told.section(' ', 1).toInt(),
                 qPrintable(QStringLiteral("%1 is %2").arg(told).arg(h->number(name))));
    }
}

void TestPagesWire::gestureReachesTheUnit_data()
{
    QTest::addColumn<QByteArray>("page");
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("frame");
    const auto row = [](const char *name, const char *page, const char *button, const char *frame) {
        QTest::newRow(name) << QByteArray(page) << button << frame;
    };
    row("post amp", "PagePostProcessor", "ppfgContrast.itemButtonIncrease", "d8 01 0b 01 0d 01 0d 01 0e 00");
    row("corrector", "PagePostProcessor", "ppfgRWhiteLevel.itemButtonIncrease",
        "d9 01 02 00 02 00 03 00 04 00 05 00 06 00");
    row("blur", "PagePostProcessor", "pagePP_ContentHeader03.switchButton", "db 00 28 07");
    row("garbage edge", "PageGarbageMask", "windowTop.itemButtonDecrease",
        "da 01 00 64 00 84 03 c7 00 58 02 14");
    row("garbage invert", "PageGarbageMask", "btnInvertSwitch", "da 01 01 64 00 84 03 c8 00 58 02 14");
    row("garbage off", "PageGarbageMask", "btnWindowSwitch", "da 00 00 64 00 84 03 c8 00 58 02 14");
    row("holdout edge", "PageHoldoutWindow", "holdoutWindowLeft.itemButtonIncrease",
        "df 01 01 65 00 00 0f c8 00 70 08 14");
    row("cut off", "PageAuxLumakey", "auxLumakeyCutoff.itemButtonIncrease",
        "dc 01 01 b5 00 40 01 01 08 e8 03");
    row("swap time", "PageAuxLumakey", "auxLumakeySwaptime.itemButtonDecrease",
        "dc 01 01 b4 00 40 01 01 07 e8 03");
    row("black", "PageAuxLumakey", "txtAuxLumakeyKeymodeBlack", "dc 01 00 b4 00 40 01 01 08 e8 03");
    row("genlock offset", "PageInput", "verticalOffset.itemButtonDecrease", "e1 00 00 00 02 01 0a 00 f5 ff");
    row("genlock off", "PageInput", "btnGenlockSwitch", "e1 00 00 00 02 00 0a 00 f6 ff");
}

void TestPagesWire::gestureReachesTheUnit()
{
    QFETCH(QByteArray, page);
    QFETCH(QString, button);
    QFETCH(QString, frame);
    CHECKED(open(page));
    if (page == "PagePostProcessor") {
        h->eval(QStringLiteral("scrollContent.contentItem.contentY = %1")
                    .arg(button.contains("Header03")    ? 688
                             : button.contains("ppfgR") ? 300
                                                        : 0));
    }
    h->click(button);
    QTRY_COMPARE(frames(), QStringList{frame});
    QTest::qWait(200);
    QCOMPARE(frames().size(), 1);
    QVERIFY(unit->record().constFirst().checksumGood);
    QVERIFY(control->timerRefreshStatus->isActive());
}

void TestPagesWire::typedNumberComesBackFromTheUnit()
{
    CHECKED(open("PageHoldoutWindow"));
    h->typeInto("holdoutWindowRight.itemText", "1919");
    QCOMPARE(h->number("holdoutWindowRight.sliderValue"), 1919);
    QCOMPARE(frames(), (QStringList{"df 01 01 64 00 7f 07 c8 00 70 08 14", "5f"}));
    // The report moved the slider: that goes back once.
    QTRY_COMPARE(frames().size(), 3);
    QCOMPARE(frames().last(), frames().first());
    QTest::qWait(200);
    QCOMPARE(frames().size(), 3);
}

void TestPagesWire::negativeHueLeavesInTwosComplement()
{
    CHECKED(open("PagePostProcessor"));
    h->typeInto("ppfgHue.itemText", "-10");
    QCOMPARE(frames().mid(0, 2), (QStringList{"d8 01 0b 01 0c 01 0d 01 f6 ff", "58"}));
    // It is read back without its sign, beyond the range of the row.
    QCOMPARE(h->number("ppfgHue.sliderValue"), 180);
}

void TestPagesWire::resetTakesTheUnitsValues()
{
    CHECKED(open("PageGarbageMask"));
    h->click("btnWindowReset");
    QCOMPARE(frames().first(), QStringLiteral("reset da 00 00 00 00 00 00 00 00 00 00 00"));
    int right = -1;
    unit->withUnit([&right](standin::Unit &it) { right = it.value(standin::GarbageMask, "right"); });
    QVERIFY(right != 900);
    QCOMPARE(h->number("windowRight.sliderValue"), right);
}

void TestPagesWire::freezeReachesTheUnit()
{
    CHECKED(open("PageInput"));
    h->click("imgFGFreeze");
    QCOMPARE(frames(), QStringList{"e1 00 00 00 03 01 0a 00 f6 ff"});
    h->click("imgBGFreeze");
    QCOMPARE(frames().last(), QStringLiteral("e1 00 00 00 01 01 0a 00 f6 ff"));
    h->click("imgAUXFreeze");
    QCOMPARE(frames().last(), QStringLiteral("e1 00 00 00 05 01 0a 00 f6 ff"));
}

void TestPagesWire::pollBringsTheUnitsGenlock()
{
    CHECKED(open("PageInput"));
    control->setCurrentPage(1);
    unit->withUnit([](standin::Unit &it) { it.setValue(standin::InputStandard, "genlockStatus", 1); });
    QTRY_COMPARE_WITH_TIMEOUT(h->text("txtGenlockStatus.text"), QStringLiteral("Locked"), 15000);
    unit->withUnit([](standin::Unit &it) { it.setValue(standin::InputStandard, "genlockStatus", 0); });
    QTRY_COMPARE_WITH_TIMEOUT(h->text("txtGenlockStatus.text"), QStringLiteral("Unlocked"), 15000);
}

void TestPagesWire::layerSwitchIsReadBack()
{
    CHECKED(open("PageAuxLumakey"));
    h->click("btnAuxLumakeyLayerSwitch");
    QCOMPARE(frames(), (QStringList{"dc 01 01 b4 00 40 01 00 08 e8 03", "5c"}));
    QVERIFY(!h->flag("layerSwapOn"));
    QCOMPARE(h->text("auxLumakeyLayerMessage.text"), QStringLiteral("Lumakey on top"));
}

QTEST_MAIN(TestPagesWire)
#include "tst_pageswire.moc"
