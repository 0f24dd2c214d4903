#include "pageharness.h"

// The post-processor page: what each row sends, by step, drag and typed number.
class TestPostNumbers : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void everyRowSendsItsGroup_data();
    void everyRowSendsItsGroup();
    void redBlackAloneSendsNothingAtTheStart();
    void redBlackSendsTheGroupOfBefore();
    void typedNumberGoesTheDirectWay_data();
    void typedNumberGoesTheDirectWay();
    void hueGoesBelowZero();
    void hueStopsAtItsEnds_data();
    void hueStopsAtItsEnds();
    void groupSignsShowTheirNumber_data();
    void groupSignsShowTheirNumber();
    void negativeHueOfTheUnitGoesToTheEnd();
    void throttleOpensOneWindow();
    void pollingIsNotTouched();

private:
    std::unique_ptr<PageHarness> h;
};

void TestPostNumbers::init()
{
    h = std::make_unique<PageHarness>("PagePostProcessor { id: page; anchors.fill: parent }");
    QVERIFY(h->show());
}

void TestPostNumbers::cleanup()
{
    QCOMPARE(Messages::warnings(), QStringList());
    h.reset();
    QLocale::setDefault(QLocale::c());
}

void TestPostNumbers::everyRowSendsItsGroup_data()
{
    QTest::addColumn<QString>("id");
    QTest::addColumn<int>("command");
    QTest::addColumn<QString>("sent");
    QTest::newRow("hue") << "ppfgHue" << 1 << "setPPFGPostAmp(true, 500, 500, 500, 1)";
    QTest::newRow("saturation") << "ppfgSaturation" << 1 << "setPPFGPostAmp(true, 500, 500, 501, 0)";
    QTest::newRow("contrast") << "ppfgContrast" << 1 << "setPPFGPostAmp(true, 500, 501, 500, 0)";
    QTest::newRow("brightness") << "ppfgBrightness" << 1 << "setPPFGPostAmp(true, 501, 500, 500, 0)";
    QTest::newRow("red white") << "ppfgRWhiteLevel" << 2 << "setPPFGRGBCorrect(true, 1, 0, 0, 0, 0, 0)";
    QTest::newRow("green white") << "ppfgGWhiteLevel" << 2 << "setPPFGRGBCorrect(true, 0, 0, 1, 0, 0, 0)";
    QTest::newRow("green black") << "ppfgGBlackLevel" << 2 << "setPPFGRGBCorrect(true, 0, 0, 0, 1, 0, 0)";
    QTest::newRow("blue white") << "ppfgBWhiteLevel" << 2 << "setPPFGRGBCorrect(true, 0, 0, 0, 0, 1, 0)";
    QTest::newRow("blue black") << "ppfgBBlackLevel" << 2 << "setPPFGRGBCorrect(true, 0, 0, 0, 0, 0, 1)";
    QTest::newRow("blur level") << "ppbgBlurValue" << 3 << "setBGBlur(true, 1, 0)";
    QTest::newRow("blur time") << "ppbgBlurTime" << 3 << "setBGBlur(true, 0, 1)";
}

void TestPostNumbers::everyRowSendsItsGroup()
{
    QFETCH(QString, id);
    QFETCH(int, command);
    QFETCH(QString, sent);
    // Brings the row into sight.
    h->eval("scrollContent.contentItem.contentY = Math.min(" + id
            + ".mapToItem(pagePP_ContentArea01, 0, 0).y, "
              "scrollContent.contentHeight - 610)");
    const qint64 start = h->facade.now();
    h->click(h->item(id + ".itemButtonIncrease"));
    QCOMPARE(h->facade.calls, QStringList());
    QTRY_COMPARE(h->facade.calls, QStringList{sent});
    QVERIFY(h->facade.times.first() - start >= 49);
    QCOMPARE(h->number("commandIndex"), command);
    if (command == 3)
        QVERIFY(Messages::logs().filter("Command BG Blur ").size() == 1);
}

void TestPostNumbers::redBlackAloneSendsNothingAtTheStart()
{
    h->eval("scrollContent.contentItem.contentY = 300");
    h->click("ppfgRBlackLevel.itemButtonIncrease");
    QCOMPARE(h->number("ppfgRBlackLevel.sliderValue"), 1);
    QTest::qWait(150);
    QCOMPARE(h->facade.calls, QStringList());
    QCOMPARE(h->number("commandIndex"), 0);
}

void TestPostNumbers::redBlackSendsTheGroupOfBefore()
{
    h->eval("scrollContent.contentItem.contentY = 300");
    h->eval("ppbgBlurTime.sliderValue = 3");
    QTRY_COMPARE(h->facade.calls, QStringList{"setBGBlur(true, 0, 3)"});
    h->click("ppfgRBlackLevel.itemButtonIncrease");
    QTRY_COMPARE(h->facade.calls.size(), 2);
    QCOMPARE(h->facade.calls.last(), QStringLiteral("setBGBlur(true, 0, 3)"));
    h->click("ppfgRWhiteLevel.itemButtonIncrease");
    QTRY_COMPARE(h->facade.calls.size(), 3);
    QCOMPARE(h->facade.calls.last(), QStringLiteral("setPPFGRGBCorrect(true, 1, 1, 0, 0, 0, 0)"));
}

void TestPostNumbers::typedNumberGoesTheDirectWay_data()
{
    QTest::addColumn<QString>("id");
    QTest::addColumn<QString>("sent");
    QTest::addColumn<QString>("read");
    QTest::newRow("saturation") << "ppfgSaturation"
                                << "setPPFGPostAmp(true, 500, 500, 17, 0)"
                                << "getPPFGPostAmp()";
    QTest::newRow("contrast") << "ppfgContrast"
                              << "setPPFGPostAmp(true, 500, 17, 500, 0)"
                              << "getPPFGPostAmp()";
    QTest::newRow("brightness") << "ppfgBrightness"
                                << "setPPFGPostAmp(true, 17, 500, 500, 0)"
                                << "getPPFGPostAmp()";
    const QString read = "getPPFGRGBCorrect()";
    QTest::newRow("red white") << "ppfgRWhiteLevel"
                               << "setPPFGRGBCorrect(true, 17, 0, 0, 0, 0, 0)" << read;
    QTest::newRow("red black") << "ppfgRBlackLevel"
                               << "setPPFGRGBCorrect(true, 0, 17, 0, 0, 0, 0)" << read;
    QTest::newRow("green white") << "ppfgGWhiteLevel"
                                 << "setPPFGRGBCorrect(true, 0, 0, 17, 0, 0, 0)" << read;
    QTest::newRow("green black") << "ppfgGBlackLevel"
                                 << "setPPFGRGBCorrect(true, 0, 0, 0, 17, 0, 0)" << read;
    QTest::newRow("blue white") << "ppfgBWhiteLevel"
                                << "setPPFGRGBCorrect(true, 0, 0, 0, 0, 17, 0)" << read;
    QTest::newRow("blue black") << "ppfgBBlackLevel"
                                << "setPPFGRGBCorrect(true, 0, 0, 0, 0, 0, 17)" << read;
    QTest::newRow("blur level") << "ppbgBlurValue"
                                << "setBGBlur(true, 17, 0)"
                                << "getBGBlur()";
    QTest::newRow("blur time") << "ppbgBlurTime"
                               << "setBGBlur(true, 0, 17)"
                               << "getBGBlur()";
}

void TestPostNumbers::typedNumberGoesTheDirectWay()
{
    QFETCH(QString, id);
    QFETCH(QString, sent);
    QFETCH(QString, read);
    h->eval("scrollContent.contentItem.contentY = Math.min(" + id
            + ".mapToItem(pagePP_ContentArea01, 0, 0).y, "
              "scrollContent.contentHeight - 610)");
    const int before = h->number(id + ".sliderValue");
    h->typeInto(id + ".itemText", "17");
    QCOMPARE(h->facade.calls, (QStringList{sent, "msecSleep(100)", read}));
    QVERIFY(h->facade.times.at(2) - h->facade.times.at(0) >= 100);
    // The slider follows only through the refresh.
    QCOMPARE(h->number(id + ".sliderValue"), before);
    QCOMPARE(Messages::logs().contains("onBlurTExtFieldChanged"), id == QLatin1String("ppbgBlurValue"));
}

// The validator reads a number by the language of the machine, and takes its group signs.
void TestPostNumbers::groupSignsShowTheirNumber_data()
{
    listLocales();
}

void TestPostNumbers::groupSignsShowTheirNumber()
{
    QFETCH(QString, locale);
    QLocale::setDefault(QLocale(locale));
    h.reset();
    init();
    h->typeInto("ppfgSaturation.itemText", "1,000");
    QCOMPARE(h->text("ppfgSaturation.textValue"), QStringLiteral("1,000"));
    QCOMPARE(h->facade.calls.value(0), QStringLiteral("setPPFGPostAmp(true, 500, 500, 1000, 0)"));
}

void TestPostNumbers::hueGoesBelowZero()
{
    h->click("ppfgHue.itemButtonDecrease");
    h->click("ppfgHue.itemButtonDecrease");
    QCOMPARE(h->number("ppfgHue.sliderValue"), -2);
    QCOMPARE(h->text("ppfgHue.textValue"), QStringLiteral("-2"));
    QTRY_VERIFY(h->facade.calls.endsWith("setPPFGPostAmp(true, 500, 500, 500, -2)"));
    h->facade.forget();
    h->typeInto("ppfgHue.itemText", "-45");
    QCOMPARE(h->facade.calls.first(), QStringLiteral("setPPFGPostAmp(true, 500, 500, 500, -45)"));
}

void TestPostNumbers::hueStopsAtItsEnds_data()
{
    QTest::addColumn<int>("end");
    QTest::addColumn<QString>("beyond");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<bool>("accepted");
    QTest::addColumn<QString>("button");
    // Downwards the digit that leaves the range is not taken; upwards it stands, but Return does nothing on it.
    QTest::newRow("lowest") << -180 << "-181"
                            << "-18" << true << "ppfgHue.itemButtonDecrease";
    QTest::newRow("highest") << 180 << "181"
                             << "181" << false << "ppfgHue.itemButtonIncrease";
}

void TestPostNumbers::hueStopsAtItsEnds()
{
    QFETCH(int, end);
    QFETCH(QString, beyond);
    QFETCH(QString, shown);
    QFETCH(bool, accepted);
    QFETCH(QString, button);
    const QString command = QStringLiteral("setPPFGPostAmp(true, 500, 500, 500, %1)");
    const QString sent = command.arg(end);
    h->typeInto("ppfgHue.itemText", beyond);
    QCOMPARE(h->text("ppfgHue.textValue"), shown);
    QCOMPARE(h->facade.callsOf("setPPFGPostAmp"), accepted ? QStringList{command.arg(shown)} : QStringList());
    h->facade.forget();
    h->typeInto("ppfgHue.itemText", QString::number(end));
    QCOMPARE(h->facade.calls.value(0), sent);
    h->facade.forget();
    // Dragged past the end of the groove, the handle stands on it, and a step more moves nothing.
    const QPoint from = h->handleAt("ppfgHue", 0);
    h->press(from);
    h->move(from + QPoint(end < 0 ? -400 : 400, 0));
    h->release(from + QPoint(end < 0 ? -400 : 400, 0));
    QCOMPARE(h->number("ppfgHue.sliderValue"), end);
    QCOMPARE(h->text("ppfgHue.textValue"), QString::number(end));
    QTRY_VERIFY(!h->flag("timerPPSliderCommand.running"));
    QVERIFY(h->facade.calls.endsWith(sent));
    h->facade.forget();
    h->click(button);
    QTest::qWait(120);
    QCOMPARE(h->number("ppfgHue.sliderValue"), end);
    QCOMPARE(h->facade.calls, QStringList());
}

void TestPostNumbers::negativeHueOfTheUnitGoesToTheEnd()
{
    emit h->facade.refreshPPFGPostAmp(true, 500, 500, 500, 65526);
    QCOMPARE(h->number("ppfgHue.sliderValue"), 180);
}

void TestPostNumbers::throttleOpensOneWindow()
{
    const QPoint from = h->handleAt("ppfgSaturation", 500);
    h->press(from);
    for (int i = 1; i <= 60; ++i) {
        h->move(from + QPoint(i, 0));
        QTest::qWait(10);
    }
    h->release(from + QPoint(60, 0));
    QTRY_COMPARE(
        h->facade.calls.last(),
        QStringLiteral("setPPFGPostAmp(true, 500, 500, %1, 0)").arg(h->number("ppfgSaturation.sliderValue")));
    QVERIFY(h->facade.calls.size() >= 5);
    for (int i = 1; i < h->facade.times.size(); ++i)
        QVERIFY(h->facade.times.at(i) - h->facade.times.at(i - 1) >= 49);
}

void TestPostNumbers::pollingIsNotTouched()
{
    h->click("ppfgHue.itemButtonIncrease");
    QTRY_COMPARE(h->facade.calls.size(), 1);
    QCOMPARE(h->facade.callsOf("setRefreshTimer"), QStringList());
}

QTEST_MAIN(TestPostNumbers)
#include "tst_postnumbers.moc"
