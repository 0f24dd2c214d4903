#include "chromapanel.h"

#include <limits>

// The colour picker: opening, pad, endings.
class TestPicker : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void opening_data();
    void opening();
    void fadesIn();
    void keepsItsPlaceBetweenOpenings();
    void standsWhereItIsDrawn_data();
    void standsWhereItIsDrawn();
    void clickOnThePad_data();
    void clickOnThePad();
    void dragSendsOneCommandPer200Ms();
    void leavingThePadTakesTheCursorAway();
    void returningStartsTheCommandsAgain();
    void hoverStopsTheTimer();
    void releaseInsideIsAlsoAClick();
    void sampleIsShown();
    void ok();
    void cancel_data();
    void cancel();
    void automatic();
    void escapeLeavesTheCursor();
    void escapeInADragSendsNoMore();
    void outsideDoesNotClose();
    void cancelBringsTheHueBack();
    void colourDialogSendsItsText();
    void facesFollowTheLanguage_data();
    void facesFollowTheLanguage();

private:
    bool open(int videoOutRes = 16) { return h->openPicker(videoOutRes); }
    QPoint pad(int x, int y) const { return h->at(h->item("colorPickerMouseArea"), x, y); }
    bool isOpen() const { return h->flag("popupColorPicker.visible"); }

    std::unique_ptr<ChromaPanel> h;
};

void TestPicker::init()
{
    h = std::make_unique<ChromaPanel>();
    QVERIFY(h->show());
    h->fill();
}

void TestPicker::cleanup()
{
    QCOMPARE(Messages::warnings(), QStringList());
    h.reset();
}

void TestPicker::opening_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("limits");
    QTest::newRow("none") << 0 << "1918,1078";
    QTest::newRow("first") << 1 << "1278,718";
    QTest::newRow("720p60") << 5 << "1278,718";
    QTest::newRow("1080i50") << 6 << "1918,1078";
    QTest::newRow("1080p60") << 16 << "1918,1078";
    QTest::newRow("2160p23") << 17 << "3838,2158";
    QTest::newRow("2160wp60") << 32 << "3838,2158";
}

void TestPicker::opening()
{
    QFETCH(int, code);
    QFETCH(QString, limits);
    h->facade.videoOutRes = code;
    h->click("imgColorPen");
    QCOMPARE(h->facade.calls, QStringList({"getVideoOutRes()", "setCursorData(3, 0, 0)"}));
    QCOMPARE(h->number("videoOutRes"), code);
    QCOMPARE(h->text("[xMax, yMax].join()"), limits);
    QCOMPARE(h->number("colorTempH"), 140);
    QVERIFY(isOpen());
}

void TestPicker::fadesIn()
{
    QVector<qreal> seen;
    auto *popup = h->eval("popupColorPicker").value<QObject *>();
    const auto look = [&] { seen << popup->property("opacity").toReal(); };
    h->click("imgColorPen");
    QElapsedTimer clock;
    clock.start();
    look();
    while (!popup->property("opened").toBool() && clock.elapsed() < 5000) {
        QTest::qWait(5);
        look();
    }
    QVERIFY(seen.constFirst() < 0.5);
    QVERIFY(std::is_sorted(seen.cbegin(), seen.cend()));
    QVERIFY(std::any_of(seen.cbegin(), seen.cend(), [](qreal it) { return it > 0 && it < 1; }));
    QCOMPARE(seen.constLast(), 1.0);
    QVERIFY2(clock.elapsed() >= 200, qPrintable(QString::number(clock.elapsed())));
}

void TestPicker::keepsItsPlaceBetweenOpenings()
{
    QVERIFY(open());
    QTest::mouseClick(h->window, Qt::LeftButton, {}, pad(240, 135));
    h->click("btnColorPickerCancel");
    QTRY_VERIFY(!isOpen());
    h->facade.forget();
    h->click("imgColorPen");
    QCOMPARE(h->facade.calls.last(), QStringLiteral("setCursorData(3, 960, 540)"));
}

void TestPicker::standsWhereItIsDrawn_data()
{
    QTest::addColumn<QString>("language");
    for (const char *language : {"en_US", "zh_TW", "zh_CN"})
        QTest::newRow(language) << language;
}

// In every language at the same place.
void TestPicker::standsWhereItIsDrawn()
{
    QFETCH(QString, language);
    h->translator.setTranslation(language);
    QVERIFY(open());
    const QVector<QPair<const char *, QRect>> places = {
        {"colorPickerMouseAreaItem", {21, 69, 480, 270}},
        {"txtColorPickerR", {21, 359, 80, 26}},
        {"txtColorPickerG", {113, 359, 80, 26}},
        {"txtColorPickerB", {205, 359, 80, 26}},
        {"txtColorPickerH", {21, 409, 80, 26}},
        {"btnDecreaseX", {311, 352, 40, 40}},
        {"btnIncreaseX", {353, 352, 40, 40}},
        {"btnDecreaseY", {311, 402, 40, 40}},
        {"txtColorPickerX.background", {403, 361, 64, 22}},
        {"txtColorPickerY.background", {403, 411, 64, 22}},
        {"recColorPickerResult", {477, 382, 32, 32}},
        {"btnColorPickerAuto", {13, 466, 110, 36}},
        {"btnColorPickerCancel", {279, 466, 110, 36}},
        {"btnColorPickerOK", {399, 466, 110, 36}},
    };
    for (const auto &place : places) {
        QQuickItem *item = h->item(QLatin1String(place.first));
        const QRectF drawn = item->mapRectToScene(QRectF(0, 0, item->width(), item->height()));
        QCOMPARE(drawn.toRect().translated(-422, -123), place.second);
    }
    QCOMPARE(h->number("colorPickerMouseArea.cursorShape"), int(Qt::CrossCursor));
    QVERIFY(h->flag("Array.prototype.some.call(popupColorPicker.contentItem.children, function (item) {"
                    " return item.text === qsTr('Pick Backing Color') && item.y === 5 })"));
}

void TestPicker::clickOnThePad_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<QPoint>("place");
    QTest::addColumn<QString>("command");
    QTest::newRow("720") << 3 << QPoint(123, 45) << "setCursorData(3, 328, 120)";
    QTest::newRow("1080") << 16 << QPoint(123, 45) << "setCursorData(3, 492, 180)";
    QTest::newRow("2160") << 24 << QPoint(123, 45) << "setCursorData(3, 984, 360)";
    QTest::newRow("none") << 0 << QPoint(479, 269) << "setCursorData(3, 1916, 1076)";
    QTest::newRow("corner") << 16 << QPoint(0, 0) << "setCursorData(3, 0, 0)";
}

void TestPicker::clickOnThePad()
{
    QFETCH(int, code);
    QFETCH(QPoint, place);
    QFETCH(QString, command);
    QVERIFY(open(code));
    QTest::mouseClick(h->window, Qt::LeftButton, {}, pad(place.x(), place.y()));
    QTest::qWait(250);
    QCOMPARE(h->facade.calls, QStringList(command));
    QCOMPARE(h->text("colorPickerX + ', ' + colorPickerY"), h->text("tempX + ', ' + tempY"));
}

void TestPicker::dragSendsOneCommandPer200Ms()
{
    QVERIFY(open());
    const qint64 start = h->facade.now();
    h->press(pad(10, 10));
    int step = 0;
    // As long as it takes: a busy machine stretches single gaps, and shortens the ones that follow. It never makes
    // the commands come more often in all than they should, nor each of them come late.
    QVector<qint64> times;
    qint64 shortest = std::numeric_limits<qint64>::max();
    while ((times.size() < 8 || shortest > 250) && h->facade.now() - start < 60000) {
        ++step;
        h->move(pad(10 + step % 460, 10 + step % 250));
        QTest::qWait(5);
        const qint64 before = times.isEmpty() ? start : times.constLast();
        times = h->facade.timesOf("setCursorData");
        if (!times.isEmpty() && times.constLast() != before)
            shortest = qMin(shortest, times.constLast() - before);
    }
    QVERIFY2(times.size() >= 8, qPrintable(QString::number(times.size())));
    QVERIFY(times.constFirst() - start >= 170);
    const qint64 all = times.constLast() - start;
    QVERIFY2(all >= 180 * times.size(), qPrintable(QString::number(all)));
    QVERIFY2(shortest <= 250, qPrintable(QString::number(shortest)));
    for (const QString &call : h->facade.calls)
        QVERIFY(call.startsWith("setCursorData(3, "));
    h->release(pad(20, 20));
}

void TestPicker::leavingThePadTakesTheCursorAway()
{
    QVERIFY(open());
    h->press(pad(100, 100));
    h->move(pad(120, 100));
    h->move(pad(479, 100));
    QVERIFY(h->flag("timerMouseMovingCommand.running"));
    h->eval("colorBKH = 7");
    h->move(pad(480, 100));
    QCOMPARE(h->facade.calls, QStringList("setCursorData(0, 1916, 400)"));
    QCOMPARE(h->number("colorBKH"), 140);
    h->move(pad(500, 100));
    h->move(pad(100, -1));
    h->move(pad(100, 270));
    h->move(pad(-1, 100));
    QTest::qWait(450);
    QCOMPARE(h->facade.calls.size(), 1);
    h->release(pad(-1, 100));
    QTest::qWait(250);
    QCOMPARE(h->facade.calls.size(), 1);
}

void TestPicker::returningStartsTheCommandsAgain()
{
    QVERIFY(open());
    h->press(pad(100, 100));
    h->move(pad(101, 100));
    h->move(pad(500, 100));
    h->facade.forget();
    h->move(pad(50, 50));
    QTRY_VERIFY(!h->facade.calls.isEmpty());
    QCOMPARE(h->facade.calls.constFirst(), QStringLiteral("setCursorData(3, 200, 200)"));
    h->release(pad(50, 50));
}

void TestPicker::hoverStopsTheTimer()
{
    QVERIFY(open());
    h->eval("timerMouseMovingCommand.start()");
    QTest::mouseMove(h->window, pad(200, 100));
    QTest::mouseMove(h->window, pad(210, 100));
    QVERIFY(!h->flag("timerMouseMovingCommand.running"));
    QCOMPARE(h->facade.calls, QStringList());
}

void TestPicker::releaseInsideIsAlsoAClick()
{
    QVERIFY(open());
    h->press(pad(100, 100));
    h->move(pad(110, 110));
    h->release(pad(110, 110));
    QCOMPARE(h->facade.calls, QStringList("setCursorData(3, 440, 440)"));
    QTest::qWait(300);
    QCOMPARE(h->facade.calls.size(), 1);
}

void TestPicker::sampleIsShown()
{
    QVERIFY(open());
    QTest::mouseClick(h->window, Qt::LeftButton, {}, pad(240, 135));
    emit h->facade.refreshBKColorPicker("#c80a14", 785, 40, 80, 357, 0.9047, 0.4118);
    QCOMPARE(h->color("recColorPickerResult.color"), QStringLiteral("#C80A14"));
    QCOMPARE(h->color("recColorPickerMouseArea.color"), QStringLiteral("#C80A14"));
    QCOMPARE(h->color("recColorAdjust.color"), QStringLiteral("#1FA24A"));
    QCOMPARE(h->text("[txtColorPickerX.text, txtColorPickerY.text].join()"), QStringLiteral("960,540"));
    QCOMPARE(h->text("[txtColorPickerR.text, txtColorPickerG.text, txtColorPickerB.text].join()"),
             QStringLiteral("785,40,80"));
    QCOMPARE(h->text("[txtColorPickerH.text, txtColorPickerS.text, txtColorPickerL.text].join()"),
             QStringLiteral("357,0.90,0.41"));
    // The key colour's own fields and bars wait for OK.
    QCOMPARE(h->number("ckColorR"), 122);
    QCOMPARE(h->number("colorBKH"), 140);
}

void TestPicker::ok()
{
    QVERIFY(open());
    QTest::mouseClick(h->window, Qt::LeftButton, {}, pad(240, 135));
    emit h->facade.refreshBKColorPicker("#c80a14", 785, 40, 80, 357, 0.9, 0.41);
    h->facade.forget();
    h->click("btnColorPickerOK");
    QCOMPARE(h->facade.calls,
             QStringList({"setCursorData(0, 960, 540)", "msecSleep(100)", "setBKColor(999, 999, 999, 0)"}));
    QCOMPARE(h->number("colorBKH"), 357);
    QCOMPARE(h->number("colorTempH"), 357);
    QTRY_VERIFY(!isOpen());
}

void TestPicker::cancel_data()
{
    QTest::addColumn<QString>("button");
    QTest::newRow("Cancel") << "btnColorPickerCancel";
    QTest::newRow("close") << "imgColorPickerClose";
}

void TestPicker::cancel()
{
    QFETCH(QString, button);
    QVERIFY(open());
    QTest::mouseClick(h->window, Qt::LeftButton, {}, pad(240, 135));
    h->facade.forget();
    h->click(button);
    QCOMPARE(h->facade.calls, QStringList("setCursorData(0, 960, 540)"));
    QCOMPARE(h->number("colorBKH"), 140);
    QTRY_VERIFY(!isOpen());
}

void TestPicker::automatic()
{
    QVERIFY(open());
    QTest::mouseClick(h->window, Qt::LeftButton, {}, pad(240, 135));
    emit h->facade.refreshBKColorPicker("#c80a14", 785, 40, 80, 357, 0.9, 0.41);
    h->facade.forget();
    h->noteEnabled("btnColorPickerAuto");
    h->click("btnColorPickerAuto");
    QCOMPARE(h->facade.calls,
             QStringList({"dead", "setCursorData(0, 960, 540)", "setBKColor(785, 40, 80, 1)", "alive"}));
    QCOMPARE(h->number("colorBKH"), 140);
    QVERIFY(h->flag("btnColorPickerAuto.enabled"));
    QTRY_VERIFY(!isOpen());
}

void TestPicker::escapeLeavesTheCursor()
{
    QVERIFY(open());
    QTest::keyClick(h->window, Qt::Key_Escape);
    QTRY_VERIFY(!isOpen());
    QCOMPARE(h->facade.calls, QStringList());
}

void TestPicker::escapeInADragSendsNoMore()
{
    QVERIFY(open());
    h->press(pad(100, 100));
    h->move(pad(110, 110));
    QTest::keyClick(h->window, Qt::Key_Escape);
    QTRY_VERIFY(!isOpen());
    QTest::qWait(450);
    QCOMPARE(h->facade.calls, QStringList());
}

void TestPicker::outsideDoesNotClose()
{
    QVERIFY(open());
    QTest::mouseClick(h->window, Qt::LeftButton, {}, QPoint(1200, 700));
    QTest::qWait(300);
    QVERIFY(isOpen());
}

void TestPicker::cancelBringsTheHueBack()
{
    QVERIFY(open());
    h->eval("colorBKH = 12");
    h->click("btnColorPickerCancel");
    QCOMPARE(h->number("rowOpenAnglePlus.hue"), 140);
}

void TestPicker::colourDialogSendsItsText()
{
    h->eval("colorDialog.color = \"#102030\"");
    h->eval("colorDialog.accepted()");
    QCOMPARE(h->facade.calls, QStringList("setBKColor(#102030, 0)"));
    QCOMPARE(h->color("recColorAdjust.color"), QStringLiteral("#102030"));
    QVERIFY(!h->flag("colorDialog.visible"));
}

void TestPicker::facesFollowTheLanguage_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("folder");
    QTest::newRow("English") << "en_US"
                             << "";
    QTest::newRow("traditional") << "zh_TW"
                                 << "TW/";
    QTest::newRow("simplified") << "zh_CN"
                                << "CN/";
}

void TestPicker::facesFollowTheLanguage()
{
    QFETCH(QString, language);
    QFETCH(QString, folder);
    h->translator.setTranslation(language);
    QVERIFY(open());
    QCOMPARE(h->face("btnColorPickerAuto.source"), folder + "btn_n_auto_pick_color");
    QCOMPARE(h->face("btnColorPickerCancel.source"), folder + "btn_n_cancel_adjust_color");
    QCOMPARE(h->face("popupColorPicker.source"), folder + "img_bg_pick_color_chromakey");
    const QPoint place = h->middle(h->item("btnColorPickerOK"));
    h->press(place);
    QCOMPARE(h->face("btnColorPickerOK.source"), folder + "btn_p_ok_adjust_color");
    h->move(QPoint(700, 100));
    h->release(QPoint(700, 100));
    QVERIFY(isOpen());
}

QTEST_MAIN(TestPicker)
#include "tst_picker.moc"
