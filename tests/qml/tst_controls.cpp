#include "pageharness.h"
#include "tests/support/checked.h"

// The shared controls: a row of a page, the spinner, the hue bar.
class TestControls : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();
    void rowStartValues();
    void rowStandsInItsColumns();
    void startValueOutsideTheDefaultRangeHolds();
    void plusActsOnReleaseByOne();
    void minusActsOnReleaseByOne();
    void stepIsOneWhateverTheSliderStep_data();
    void stepIsOneWhateverTheSliderStep();
    void plusStopsAtTheEnd();
    void minusStopsAtTheEnd();
    void leavingTheButtonIsItsRelease();
    void dragMovesTheValue();
    void wholeHandleAnswersTheMouse();
    void wheelIsIgnored();
    void returnReportsTheFieldAndMovesNothing();
    void focusLossReportsNothing();
    void unconfirmedTextIsOverwritten();
    void fieldTakesNoNumberOutsideTheRange();
    void fieldHoldsSixCharacters();
    void disabledRowIsGreyAndItsSliderDead();
    void enabledAgainIsAsBefore();
    void smallTextsStandUnderTheEnds();
    void spinnerHasEightDotsAndTurns();
    void spinnerRestsWhenNotRunning();
    void hueBarSpansTheColours();
    void nothingIsLeftLight();

private:
    void makeRow(const QByteArray &more = {});

    std::unique_ptr<PageHarness> h;
};

void TestControls::cleanup()
{
    QCOMPARE(Messages::warnings(), QStringList());
    h.reset();
}

void TestControls::makeRow(const QByteArray &more)
{
    h = std::make_unique<PageHarness>(
        "MyControlItem { id: page; x: 30; y: 10; title: 'Dark Level:'; sliderMax: 1000; sliderValue: 500; "
        + more + " }");
    QVERIFY(h->show());
}

void TestControls::rowStartValues()
{
    CHECKED(makeRow());
    QCOMPARE(h->face("control.source"), QStringLiteral("img_bg_input_line"));
    QCOMPARE(h->face("control.sliderGrooveImgSource"), QStringLiteral("img_slider_01_chromakey"));
    QCOMPARE(h->face("control.sliderHandleImgSource"), QStringLiteral("btn_n_slider_chromakey"));
    QCOMPARE(h->text("control.sliderCurrentLevelColor"), QStringLiteral("#8DC6E8"));
    QCOMPARE(h->text("control.sliderTextLeftText"), QString());
    QCOMPARE(h->text("control.title"), QStringLiteral("Dark Level:"));
    QCOMPARE(h->color("control.titleColor"), QStringLiteral("#D8D8D8"));
    QCOMPARE(h->text("control.textValue"), QStringLiteral("500"));
    QCOMPARE(h->number("control.textValueMaxlength"), 6);
    QCOMPARE(h->number("control.itemSliderStepSize"), 1);
    QCOMPARE(h->face("control.itemButtonDecreaseImage.source"), QStringLiteral("btn_n_reduce_s_chromakey"));
    QCOMPARE(h->face("control.itemButtonIncreaseImage.source"), QStringLiteral("btn_n_increase_s_chromakey"));
    QCOMPARE(h->number("txtTitle.width"), 100);
    QCOMPARE(h->number("txtTitle.font.pixelSize"), 22);
    QCOMPARE(h->number("dummyPlaceHolder.width"), 10);
    QCOMPARE(h->number("row01.spacing"), 40);
    QVERIFY(!h->flag("slider.wheelEnabled"));
    QVERIFY(h->flag("txtValue.selectByMouse"));
    QCOMPARE(h->number("txtValue.font.pixelSize"), 22);
}

void TestControls::rowStandsInItsColumns()
{
    CHECKED(makeRow());
    const QPoint row = h->at(h->page, 0, 0);
    QCOMPARE(h->page->width(), 1110.0);
    QCOMPARE(h->page->height(), 74.0);
    QCOMPARE(h->at(h->item("txtTitle"), 0, 0).x() - row.x(), 48);
    QCOMPARE(h->at(h->item("slider"), 0, 0) - row, QPoint(238, 34));
    QCOMPARE(h->number("slider.width"), 346);
    QCOMPARE(h->number("slider.height"), 6);
    QCOMPARE(h->at(h->item("btnDecrease"), 0, 0) - row, QPoint(624, 17));
    QCOMPARE(h->at(h->item("btnIncrease"), 0, 0) - row, QPoint(666, 17));
    QCOMPARE(h->at(h->item("txtValue"), 0, 0) - row, QPoint(746, 17));
    QCOMPARE(h->number("txtValue.width"), 106);
}

void TestControls::startValueOutsideTheDefaultRangeHolds()
{
    CHECKED(makeRow("sliderMin: -180"));
    QCOMPARE(h->number("control.sliderValue"), 500);
    QCOMPARE(h->number("control.sliderMin"), -180);
}

void TestControls::plusActsOnReleaseByOne()
{
    CHECKED(makeRow());
    QSignalSpy spy(h->page, SIGNAL(buttonIncreaseClicked()));
    const QPoint plus = h->middle(h->item("btnIncrease"));
    h->press(plus);
    QCOMPARE(h->number("control.sliderValue"), 500);
    QCOMPARE(h->face("control.itemButtonIncreaseImage.source"), QStringLiteral("btn_p_increase_s_chromakey"));
    QCOMPARE(spy.count(), 0);
    h->release(plus);
    QCOMPARE(h->number("control.sliderValue"), 501);
    QCOMPARE(h->text("control.textValue"), QStringLiteral("501"));
    QCOMPARE(h->face("control.itemButtonIncreaseImage.source"), QStringLiteral("btn_n_increase_s_chromakey"));
    QCOMPARE(spy.count(), 1);
    QCOMPARE(Messages::logs(), (QStringList{"Item Increased: 500 500", "Item Increased: 501 501"}));
}

void TestControls::minusActsOnReleaseByOne()
{
    CHECKED(makeRow());
    QSignalSpy spy(h->page, SIGNAL(buttonDecreaseClicked()));
    const QPoint minus = h->middle(h->item("btnDecrease"));
    h->press(minus);
    QCOMPARE(h->face("control.itemButtonDecreaseImage.source"), QStringLiteral("btn_p_reduce_s_chromakey"));
    QCOMPARE(h->number("control.sliderValue"), 500);
    h->release(minus);
    QCOMPARE(h->number("control.sliderValue"), 499);
    QCOMPARE(h->face("control.itemButtonDecreaseImage.source"), QStringLiteral("btn_n_reduce_s_chromakey"));
    QCOMPARE(spy.count(), 1);
    QCOMPARE(Messages::logs(), (QStringList{"Item Decreased: 500 500", "Item Decreased: 499 499"}));
}

void TestControls::stepIsOneWhateverTheSliderStep_data()
{
    QTest::addColumn<QByteArray>("step");
    QTest::addColumn<int>("up");
    QTest::addColumn<int>("down");
    for (const char *step : {"0", "0.5", "1"})
        QTest::newRow(step) << QByteArray(step) << 501 << 499;
    // A slider of coarse steps rounds the one away again; the button never makes ten of it.
    QTest::newRow("10") << QByteArray("10") << 500 << 500;
}

void TestControls::stepIsOneWhateverTheSliderStep()
{
    QFETCH(QByteArray, step);
    QFETCH(int, down);
    CHECKED(makeRow("itemSliderStepSize: " + step));
    h->click("btnIncrease");
    QTEST(h->number("control.sliderValue"), "up");
    h->eval("control.sliderValue = 500");
    h->click("btnDecrease");
    QCOMPARE(h->number("control.sliderValue"), down);
}

void TestControls::plusStopsAtTheEnd()
{
    CHECKED(makeRow());
    h->eval("control.sliderValue = 1000");
    QSignalSpy spy(h->page, SIGNAL(buttonIncreaseClicked()));
    h->click("btnIncrease");
    QCOMPARE(h->number("control.sliderValue"), 1000);
    QCOMPARE(spy.count(), 0);
    QCOMPARE(h->face("control.itemButtonIncreaseImage.source"), QStringLiteral("btn_n_increase_s_chromakey"));
}

void TestControls::minusStopsAtTheEnd()
{
    CHECKED(makeRow());
    h->eval("control.sliderValue = 0");
    QSignalSpy spy(h->page, SIGNAL(buttonDecreaseClicked()));
    h->click("btnDecrease");
    QCOMPARE(h->number("control.sliderValue"), 0);
    QCOMPARE(spy.count(), 0);
}

void TestControls::leavingTheButtonIsItsRelease()
{
    CHECKED(makeRow());
    const QPoint plus = h->middle(h->item("btnIncrease"));
    h->press(plus);
    h->move(plus + QPoint(0, 60));
    QCOMPARE(h->number("control.sliderValue"), 501);
    QCOMPARE(h->face("control.itemButtonIncreaseImage.source"), QStringLiteral("btn_n_increase_s_chromakey"));
    h->release(plus + QPoint(0, 60));
    QCOMPARE(h->number("control.sliderValue"), 501);
}

void TestControls::dragMovesTheValue()
{
    CHECKED(makeRow());
    const QPoint from = h->handleAt("control", 500);
    h->press(from);
    QCOMPARE(h->number("control.sliderValue"), 500);
    h->move(from + QPoint(81, 0));
    QVERIFY(qAbs(h->number("control.sliderValue") - 750) <= 3);
    h->move(from + QPoint(400, 0));
    QCOMPARE(h->number("control.sliderValue"), 1000);
    h->move(from - QPoint(400, 0));
    QCOMPARE(h->number("control.sliderValue"), 0);
    h->release(from - QPoint(400, 0));
    QCOMPARE(h->text("control.textValue"), QStringLiteral("0"));
}

void TestControls::wholeHandleAnswersTheMouse()
{
    CHECKED(makeRow());
    for (const int offset : {-9, 9}) {
        h->eval("control.sliderValue = 500");
        const QPoint from = h->handleAt("control", 500) + QPoint(0, offset);
        h->press(from);
        h->move(from + QPoint(81, 0));
        h->release(from + QPoint(81, 0));
        QVERIFY2(h->number("control.sliderValue") > 700, qPrintable(QString::number(offset)));
    }
}

void TestControls::wheelIsIgnored()
{
    CHECKED(makeRow());
    const QPoint place = h->handleAt("control", 500);
    QWheelEvent event(place, h->window->mapToGlobal(place), {}, QPoint(0, 120), Qt::NoButton, {},
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(h->window, &event);
    QCOMPARE(h->number("control.sliderValue"), 500);
}

void TestControls::returnReportsTheFieldAndMovesNothing()
{
    CHECKED(makeRow());
    QSignalSpy spy(h->page, SIGNAL(textFieldChanged()));
    h->typeInto("txtValue", "740");
    QCOMPARE(spy.count(), 1);
    QCOMPARE(h->text("control.textValue"), QStringLiteral("740"));
    QCOMPARE(h->number("control.sliderValue"), 500);
    QCOMPARE(Messages::logs(), QStringList{"MyItem TextFieldAccepted: 500 740"});
    QTest::keyClick(h->window, Qt::Key_Enter);
    QCOMPARE(spy.count(), 2);
}

void TestControls::focusLossReportsNothing()
{
    CHECKED(makeRow());
    QSignalSpy spy(h->page, SIGNAL(textFieldChanged()));
    h->typeInto("txtValue", "740", Qt::Key_Tab);
    QVERIFY(!h->flag("txtValue.activeFocus"));
    QCOMPARE(spy.count(), 0);
    QCOMPARE(h->text("control.textValue"), QStringLiteral("740"));
}

void TestControls::unconfirmedTextIsOverwritten()
{
    CHECKED(makeRow());
    h->typeInto("txtValue", "74", Qt::Key_unknown);
    QCOMPARE(h->text("control.textValue"), QStringLiteral("74"));
    h->click("btnIncrease");
    QCOMPARE(h->text("control.textValue"), QStringLiteral("501"));
}

void TestControls::fieldTakesNoNumberOutsideTheRange()
{
    CHECKED(makeRow("sliderMin: 100"));
    QSignalSpy spy(h->page, SIGNAL(textFieldChanged()));
    h->typeInto("txtValue", "1001");
    QVERIFY(!h->flag("txtValue.acceptableInput"));
    QCOMPARE(spy.count(), 0);
    h->typeInto("txtValue", "99");
    QCOMPARE(spy.count(), 0);
    h->typeInto("txtValue", "");
    QTest::keyClick(h->window, Qt::Key_Backspace);
    QTest::keyClick(h->window, Qt::Key_Return);
    QCOMPARE(spy.count(), 0);
    h->typeInto("txtValue", "a");
    QCOMPARE(spy.count(), 0);
    h->typeInto("txtValue", "100");
    QCOMPARE(spy.count(), 1);
}

void TestControls::fieldHoldsSixCharacters()
{
    CHECKED(makeRow("sliderMin: -1000000"));
    h->typeInto("txtValue", "-9999999", Qt::Key_unknown);
    QCOMPARE(h->text("control.textValue"), QStringLiteral("-99999"));
}

void TestControls::disabledRowIsGreyAndItsSliderDead()
{
    CHECKED(makeRow());
    h->eval("control.enableItem(false)");
    QCOMPARE(h->color("txtTitle.color"), QStringLiteral("#333333"));
    QCOMPARE(h->text("control.sliderCurrentLevelColor"), QStringLiteral("#5E5E5E"));
    QCOMPARE(h->face("control.sliderHandleImgSource"), QStringLiteral("btn_d_slider_chromakey"));
    QCOMPARE(h->color("control.itemText.color"), QStringLiteral("#333333"));
    QCOMPARE(h->face("btnDecreaseImage.source"), QStringLiteral("btn_d_reduce_s_chromakey"));
    QCOMPARE(h->face("btnIncreaseImage.source"), QStringLiteral("btn_d_increase_s_chromakey"));
    QVERIFY(!h->flag("slider.enabled"));
    const QPoint from = h->handleAt("control", 500);
    h->press(from);
    h->move(from + QPoint(81, 0));
    h->release(from + QPoint(81, 0));
    QCOMPARE(h->number("control.sliderValue"), 500);
    // The buttons and the field are not the row's to disable.
    h->click("btnIncrease");
    QCOMPARE(h->number("control.sliderValue"), 501);
    QSignalSpy spy(h->page, SIGNAL(textFieldChanged()));
    h->typeInto("txtValue", "7");
    QCOMPARE(spy.count(), 1);
}

void TestControls::enabledAgainIsAsBefore()
{
    CHECKED(makeRow());
    const QImage before = h->grab(h->window->contentItem(), "row");
    h->eval("control.enableItem(false)");
    QVERIFY(h->grab(h->window->contentItem(), "row-off") != before);
    h->eval("control.enableItem(true)");
    QCOMPARE(h->grab(h->window->contentItem(), "row-on"), before);
    QVERIFY(h->flag("slider.enabled"));
    QCOMPARE(h->face("btnDecreaseImage.source"), QStringLiteral("btn_n_reduce_s_chromakey"));
}

void TestControls::smallTextsStandUnderTheEnds()
{
    makeRow("sliderTextLeftText: 'Cool'; sliderTextRightText: 'Warm'");
    const QImage picture = h->grab(h->window->contentItem(), "row-texts");
    const QPoint row = h->at(h->page, 0, 0);
    const auto marked = [&](const QRect &part) {
        for (int y = part.top(); y <= part.bottom(); ++y) {
            for (int x = part.left(); x <= part.right(); ++x) {
                if (qGray(picture.pixel(row + QPoint(x, y))) > 90)
                    return true;
            }
        }
        return false;
    };
    QVERIFY(marked(QRect(223, 52, 30, 16)));
    QVERIFY(marked(QRect(568, 52, 31, 16)));
    QVERIFY(!marked(QRect(270, 52, 280, 16)));
    QVERIFY(!marked(QRect(205, 52, 17, 16)));
    QVERIFY(!marked(QRect(600, 52, 20, 16)));
}

void TestControls::spinnerHasEightDotsAndTurns()
{
    h = std::make_unique<PageHarness>("PageBusy { id: page; x: 100; y: 100; running: true }");
    QVERIFY(h->show());
    QCOMPARE(h->number("repeater.count"), 8);
    QCOMPARE(h->number("item.width"), 64);
    QTRY_COMPARE(h->eval("item.opacity").toReal(), 1.0);
    // The turn is the renderer's: the item does not tell it.
    const QImage first = h->grab(h->window->contentItem(), "busy");
    QTRY_VERIFY(h->grab(h->window->contentItem(), "busy-later") != first);
}

void TestControls::spinnerRestsWhenNotRunning()
{
    h = std::make_unique<PageHarness>("PageBusy { id: page; x: 100; y: 100; running: false }");
    QVERIFY(h->show());
    QCOMPARE(h->eval("item.opacity").toReal(), 0.0);
    QVERIFY(h->rests(300));
    h->page->setProperty("running", true);
    QTRY_COMPARE(h->eval("item.opacity").toReal(), 1.0);
}

void TestControls::hueBarSpansTheColours()
{
    h = std::make_unique<PageHarness>(
        "HueBar { id: page; hue: 120; span: 90; saturation: 1; lightness: 0.5; x: 30; y: 10 }");
    QVERIFY(h->show());
    const QImage bar = h->grab(h->page, "huebar");
    QCOMPARE(bar.size(), QSize(346, 10));
    QVERIFY(qAbs(QColor(bar.pixel(1, 5)).hslHue() - 120) <= 2);
    QVERIFY(qAbs(QColor(bar.pixel(344, 5)).hslHue() - 210) <= 2);
    QVERIFY(qAbs(QColor(bar.pixel(173, 5)).hslHue() - 165) <= 4);
    h->page->setProperty("span", -90);
    h->page->setProperty("hue", 30);
    const QImage left = h->grab(h->page, "huebar-left");
    QVERIFY(qAbs(QColor(left.pixel(344, 5)).hslHue() - 300) <= 2);
    h->page->setEnabled(false);
    QVERIFY(h->grab(h->page, "huebar-off") != left);
}

void TestControls::nothingIsLeftLight()
{
    h = std::make_unique<PageHarness>("Item { id: page; anchors.fill: parent; Column { "
                                      "MyControlItem { sliderMax: 10 } "
                                      "MyComboBox { width: 150; height: 32; model: ['a'] } "
                                      "DarkTextField { width: 150; text: 'x' } "
                                      "SectionHeader { title: 'Title' } } "
                                      "DarkScrollBar { x: 1140; height: 600; size: 0.4 } }");
    QVERIFY(h->show());
    const QImage picture = h->grab(h->page, "controls");
    int light = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            light += qGray(picture.pixel(x, y)) > 225 ? 1 : 0;
    }
    QCOMPARE(light, 0);
}

QTEST_MAIN(TestControls)
#include "tst_controls.moc"
