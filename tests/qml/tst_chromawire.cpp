#include "chromapanel.h"

#include "control/maincontrol.h"
#include "tests/support/stopwatch.h"
#include "tests/support/unithost.h"

// The chromakey page with the real facade and a stand-in unit: from the mouse to the byte, and back.
class TestChromaWire : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void connectFillsThePage();
    void blackLevelFromTheMouseToTheByte();
    void oneGesturePerGroup_data();
    void oneGesturePerGroup();
    void typedLevelFollowsTheUnit();
    void spillDefaultTakesTheUnitsValues();
    void pickedColourBecomesTheKey();
    void cancelAfterASampleLeavesTheKey();
    void dragOnThePadReachesTheUnit();

private:
    // The frames since the last look, from the command byte on: "d1 03 04".
    QStringList frames() const;
    void forget();

    std::unique_ptr<support::UnitHost> unit;
    std::unique_ptr<mainControl> control;
    std::unique_ptr<ChromaPanel> h;
};

void TestChromaWire::init()
{
    unit = std::make_unique<support::UnitHost>();
    unit->withUnit([](standin::Unit &it) {
        it.setValue(standin::Levels, "black", 123);
        it.setValue(standin::Levels, "white", 876);
        it.setValue(standin::Levels, "matte", 1);
    });
    control = std::make_unique<mainControl>();
    control->timerStartUp->stop();
    h = std::make_unique<ChromaPanel>(control.get());
    QVERIFY(h->show());
    QCOMPARE(control->deviceConnect(1, unit->address(), 0), QStringLiteral("OK"));
    control->setCurrentPage(2);
    forget();
}

void TestChromaWire::cleanup()
{
    QCOMPARE(Messages::warnings(), QStringList());
    h.reset();
    control.reset();
    unit.reset();
}

QStringList TestChromaWire::frames() const
{
    // The poll's own reads have nothing to do with a gesture.
    return unit->frames({0x60, 0x62});
}

void TestChromaWire::forget()
{
    QTest::qWait(300);
    h->waitForThrottle(); // echoes of what was told last
    unit->clearRecord();
}

void TestChromaWire::connectFillsThePage()
{
    QCOMPARE(h->number("blackLevel.sliderValue"), 123);
    QCOMPARE(h->number("whiteLevel.sliderValue"), 876);
    QVERIFY(h->flag("matteOn"));
    int dark = -1;
    int minus = -1;
    unit->withUnit([&](standin::Unit &it) {
        dark = it.value(standin::Dark, "level");
        minus = it.value(standin::Angle, "left");
    });
    QCOMPARE(h->number("darkLevel.sliderValue"), dark);
    QCOMPARE(h->number("sliderOPMinus.value"), minus);
}

void TestChromaWire::blackLevelFromTheMouseToTheByte()
{
    QSignalSpy told(control.get(), &mainControl::refreshCKBWLevel);
    const qint64 start = standin::monotonicNs();
    const support::Stopwatch clock;
    h->drag("blackLevel.itemSlider", 500);
    const int black = h->number("blackLevel.sliderValue");
    QVERIFY(qAbs(black - 500) < 20);
    QCOMPARE(frames(), QStringList());
    QTRY_COMPARE(frames().size(), 1);
    // The throttle stands between the move and the frame.
    const standin::FrameRecord frame = unit->record().constFirst();
    const qint64 afterMs = (frame.ns - start) / 1000000;
    QVERIFY2(afterMs >= 30, qPrintable(QString::number(afterMs)));
    VERIFY_TOOK(clock, 30, 1000);
    const QByteArray payload =
        QByteArray().append(char(black & 0xff)).append(char(black >> 8)).append("\x6c\x03\x01", 3);
    QCOMPARE(frame.code, 0xd2);
    QCOMPARE(frame.payload.toHex(), payload.toHex());
    QVERIFY(frame.wellFormed && frame.checksumGood);
    int held = 0;
    unit->withUnit([&held](standin::Unit &it) { held = it.value(standin::Levels, "black"); });
    QCOMPARE(held, black);
    QTest::qWait(300);
    // The slider already shows the value: no signal comes back, and nothing more goes out.
    QCOMPARE(told.count(), 0);
    QCOMPARE(frames().size(), 1);
    QVERIFY(control->timerRefreshStatus->isActive());
}

void TestChromaWire::oneGesturePerGroup_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<int>("code");
    QTest::addColumn<int>("record");
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("shown");
    const auto row = [](const char *name, const char *button, int record, const char *field,
                        const char *shown) {
        QTest::newRow(name) << button << record + 0x80 << record << field << shown;
    };
    row("angle", "btnOADecrease", 0x51, "right", "sliderOPPlus.value");
    row("levels", "whiteLevel.itemButtonDecrease", 0x52, "white", "whiteLevel.sliderValue");
    row("dark", "darkLevel.itemButtonIncrease", 0x53, "level", "darkLevel.sliderValue");
    row("bright", "brightLevel.itemButtonIncrease", 0x54, "level", "brightLevel.sliderValue");
    row("shadow", "shadow.itemButtonIncrease", 0x55, "level", "shadow.sliderValue");
    row("spill", "spillBalance.itemButtonIncrease", 0x56, "balance", "spillBalance.sliderValue");
    row("edge", "softEdge.itemButtonIncrease", 0x57, "soft", "softEdge.sliderValue");
}

void TestChromaWire::oneGesturePerGroup()
{
    QFETCH(QString, button);
    QFETCH(int, code);
    QFETCH(int, record);
    QFETCH(QString, field);
    QFETCH(QString, shown);
    if (!h->flag(button + ".enabled")) {
        // The factory's unit has some sections off: on they go, as an operator would.
        h->click(h->seen(
            QStringLiteral("pageCK_ContentHeader0%1.switchButton").arg(code == 0xd7 ? 6 : code - 0xd1)));
        forget();
    }
    const int before = h->number(shown);
    h->click(h->seen(button));
    QVERIFY(h->number(shown) != before);
    QTRY_COMPARE(frames().size(), 1);
    QCOMPARE(unit->record().constFirst().code, code);
    int held = -1;
    unit->withUnit([&](standin::Unit &it) { held = it.value(record, field); });
    QCOMPARE(held, h->number(shown));
}

void TestChromaWire::typedLevelFollowsTheUnit()
{
    const support::Stopwatch watch; // a frame may be noted late, and the next one then seems early
    h->typeInto(h->item("blackLevel.itemText"), QStringLiteral("700"));
    QCOMPARE(h->number("blackLevel.sliderValue"), 700);
    QCOMPARE(frames().mid(0, 2), QStringList({"d2 bc 02 6c 03 01", "52"}));
    const QVector<standin::FrameRecord> record = unit->record();
    QVERIFY((record.at(1).ns - record.at(0).ns) / 1000000 + watch.stalled() >= 150);
    // The slider was moved by the report: that goes back once, with the same values.
    QTRY_COMPARE(frames().size(), 3);
    QCOMPARE(frames().at(2), QStringLiteral("d2 bc 02 6c 03 01"));
}

void TestChromaWire::spillDefaultTakesTheUnitsValues()
{
    const QString before = h->text("spillSuppression.sliderValue + ',' + edgeBrightness.sliderValue");
    const int other = h->number("spillDefault") == 2 ? 0 : 2;
    h->click(h->seen(other == 2 ? "btnSpillHighImage" : "btnSpillLowImage"));
    QVERIFY(frames().constFirst().startsWith("reset d6"));
    QCOMPARE(h->number("spillDefault"), other);
    int suppression = -1;
    unit->withUnit([&](standin::Unit &it) { suppression = it.value(standin::Spill, "suppression"); });
    QCOMPARE(h->number("spillSuppression.sliderValue"), suppression);
    QVERIFY(before != h->text("spillSuppression.sliderValue + ',' + edgeBrightness.sliderValue"));
}

void TestChromaWire::pickedColourBecomesTheKey()
{
    unit->withUnit([](standin::Unit &it) { it.setCursorColour(200, 640, 310); });
    h->click("imgColorPen");
    QTRY_VERIFY(h->flag("popupColorPicker.opened"));
    unit->clearRecord();
    QTest::mouseClick(h->window, Qt::LeftButton, {}, h->middle(h->item("colorPickerMouseArea")));
    QCOMPARE(h->text("[colorPickerR, colorPickerG, colorPickerB].join()"), QStringLiteral("200,640,310"));
    QCOMPARE(h->color("recColorPickerMouseArea.color"), QStringLiteral("#33A34F"));
    QVERIFY(frames().constFirst().startsWith("dd 03 "));
    unit->clearRecord();
    h->click("btnColorPickerOK");
    QCOMPARE(frames().mid(1, 1), QStringList("d0 c8 00 80 02 36 01 00"));
    QVERIFY(frames().constFirst().startsWith("dd 00 "));
    QCOMPARE(h->text("[txtBGR.text, txtBGG.text, txtBGB.text].join()"), QStringLiteral("200,640,310"));
    QCOMPARE(h->color("recColorAdjust.color"), QStringLiteral("#33A34F"));
}

void TestChromaWire::cancelAfterASampleLeavesTheKey()
{
    unit->withUnit([](standin::Unit &it) { it.setCursorColour(900, 40, 310); });
    const QString key = h->text("[ckColorR, ckColorG, ckColorB, colorBKH].join()");
    const QImage bar = h->grab(h->item("rowOpenAnglePlus"), QStringLiteral("chroma-bar-before"));
    h->click("imgColorPen");
    QTRY_VERIFY(h->flag("popupColorPicker.opened"));
    unit->clearRecord();
    QTest::mouseClick(h->window, Qt::LeftButton, {}, h->middle(h->item("colorPickerMouseArea")));
    QCOMPARE(h->text("[colorPickerR, colorPickerG, colorPickerB].join()"), QStringLiteral("900,40,310"));
    const QString place = h->text("[tempX, tempY].join()");
    h->click("btnColorPickerCancel");
    QTest::qWait(300);
    // The cursor comes to its place and goes from there; no colour is set.
    const QStringList sent = frames();
    QCOMPARE(sent.size(), 2);
    QVERIFY2(sent.at(0).startsWith("dd 03 "), qPrintable(sent.at(0)));
    QCOMPARE(sent.at(1), QString(sent.at(0)).replace(3, 2, QStringLiteral("00")));
    QCOMPARE(h->text("[tempX, tempY].join()"), place);
    QCOMPARE(h->text("[ckColorR, ckColorG, ckColorB, colorBKH].join()"), key);
    QVERIFY(h->grab(h->item("rowOpenAnglePlus"), QStringLiteral("chroma-bar-after")) == bar);
}

void TestChromaWire::dragOnThePadReachesTheUnit()
{
    h->click("imgColorPen");
    QTRY_VERIFY(h->flag("popupColorPicker.opened"));
    unit->clearRecord();
    QQuickItem *pad = h->item("colorPickerMouseArea");
    // However long it takes: a busy machine sends them more slowly, and never more often than every 200 ms.
    QElapsedTimer clock;
    clock.start();
    h->press(h->at(pad, 20, 20));
    int sent = 0;
    for (int step = 0; sent < 6 && clock.elapsed() < 60000; ++step) {
        h->move(h->at(pad, 20 + step % 400, 100));
        QTest::qWait(5);
        sent = frames().filter("dd 03").size();
    }
    QVERIFY2(sent >= 6 && clock.elapsed() >= 180 * sent, qPrintable(QString::number(clock.elapsed())));
    h->move(h->at(pad, 600, 100));
    QVERIFY(frames().last().startsWith("dd 00 "));
    const int total = frames().size();
    QTest::qWait(450);
    QCOMPARE(frames().size(), total);
    h->release(h->at(pad, 600, 100));
}

QTEST_MAIN(TestChromaWire)
#include "tst_chromawire.moc"
