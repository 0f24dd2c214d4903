#include "chromapanel.h"

// The colour picker: step buttons and number fields, to the edges of every picture.
class TestPickerPlaces : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void stepsOnRelease();
    void stepsStopAtTheEdges_data();
    void stepsStopAtTheEdges();
    void fieldsPlaceTheCursor();
    void groupSignsChangeNoPlace_data();
    void groupSignsChangeNoPlace();
    void fieldsHoldTheRange_data();
    void fieldsHoldTheRange();

private:
    bool open(int videoOutRes = 16) { return h->openPicker(videoOutRes); }
    QPoint pad(int x, int y) const { return h->at(h->item("colorPickerMouseArea"), x, y); }
    bool isOpen() const { return h->flag("popupColorPicker.visible"); }

    std::unique_ptr<ChromaPanel> h;
};

void TestPickerPlaces::init()
{
    h = std::make_unique<ChromaPanel>();
    QVERIFY(h->show());
    h->fill();
}

void TestPickerPlaces::cleanup()
{
    QCOMPARE(Messages::warnings(), QStringList());
    h.reset();
}

void TestPickerPlaces::stepsOnRelease()
{
    QVERIFY(open());
    QTest::mouseClick(h->window, Qt::LeftButton, {}, pad(240, 135));
    h->facade.forget();
    const QPoint place = h->middle(h->item("btnIncreaseX"));
    h->press(place);
    QCOMPARE(h->face("btnIncreaseX.source"), QStringLiteral("btn_p_increase_s_chromakey"));
    QCOMPARE(h->facade.calls, QStringList());
    h->release(place);
    QCOMPARE(h->face("btnIncreaseX.source"), QStringLiteral("btn_n_increase_s_chromakey"));
    h->click("btnDecreaseY");
    h->click("btnDecreaseX");
    h->click("btnDecreaseX");
    h->click("btnIncreaseY");
    QCOMPARE(
        h->facade.calls,
        QStringList({"setCursorData(3, 961, 540)", "setCursorData(3, 961, 539)", "setCursorData(3, 960, 539)",
                     "setCursorData(3, 959, 539)", "setCursorData(3, 959, 540)"}));
    QCOMPARE(h->text("[tempX, tempY].join()"), QStringLiteral("959,540"));
}

void TestPickerPlaces::stepsStopAtTheEdges_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<int>("lastX");
    QTest::addColumn<int>("lastY");
    QTest::newRow("none") << 0 << 1919 << 1079;
    QTest::newRow("720p50") << 3 << 1279 << 719;
    QTest::newRow("1080p60") << 16 << 1919 << 1079;
    QTest::newRow("2160p23") << 17 << 3839 << 2159;
    QTest::newRow("2160p60") << 24 << 3839 << 2159;
    QTest::newRow("2160wp60") << 32 << 3839 << 2159;
}

void TestPickerPlaces::stepsStopAtTheEdges()
{
    QFETCH(int, code);
    QFETCH(int, lastX);
    QFETCH(int, lastY);
    QVERIFY(open(code));
    h->click("btnDecreaseX");
    h->click("btnDecreaseY");
    QCOMPARE(h->facade.calls, QStringList());
    // The pad's last pixels are 4 or 8 of a 4K picture wide: to the very edge go the steps.
    h->eval(QStringLiteral("colorPickerX = %1").arg(lastX - 1));
    h->eval(QStringLiteral("colorPickerY = %1").arg(lastY - 1));
    for (int i = 0; i < 3; ++i) {
        h->click("btnIncreaseX");
        h->click("btnIncreaseY");
    }
    QCOMPARE(h->facade.calls,
             QStringList({QStringLiteral("setCursorData(3, %1, %2)").arg(lastX).arg(lastY - 1),
                          QStringLiteral("setCursorData(3, %1, %2)").arg(lastX).arg(lastY)}));
    for (int i = 0; i < 2; ++i)
        h->click("btnDecreaseX");
    QCOMPARE(h->number("colorPickerX"), lastX - 2);
    QCOMPARE(h->number("tempX"), lastX - 2);
}

void TestPickerPlaces::fieldsPlaceTheCursor()
{
    QVERIFY(open());
    h->typeInto(QStringLiteral("txtColorPickerX"), QStringLiteral("812"));
    h->typeInto(QStringLiteral("txtColorPickerY"), QStringLiteral("430"));
    QCOMPARE(h->facade.calls, QStringList({"setCursorData(3, 812, 0)", "setCursorData(3, 812, 430)"}));
    QCOMPARE(h->text("[colorPickerX, tempX, colorPickerY, tempY].join()"), QStringLiteral("812,812,430,430"));
    QCOMPARE(h->text("[txtColorPickerX.text, txtColorPickerY.text].join()"), QStringLiteral("812,430"));
    QVERIFY(isOpen());
}

void TestPickerPlaces::groupSignsChangeNoPlace_data()
{
    listLocales();
}

void TestPickerPlaces::groupSignsChangeNoPlace()
{
    QFETCH(QString, locale);
    const QLocale before;
    h.reset();
    QLocale::setDefault(QLocale(locale));
    h = std::make_unique<ChromaPanel>();
    QLocale::setDefault(before);
    QVERIFY(h->show());
    if (locale != "C")
        h->translator.setTranslation(locale);
    QVERIFY(open(32));
    h->typeInto(QStringLiteral("txtColorPickerX"), QStringLiteral("3,812"));
    h->typeInto(QStringLiteral("txtColorPickerY"), QStringLiteral("1,080"));
    QCOMPARE(h->facade.calls, QStringList({"setCursorData(3, 3812, 0)", "setCursorData(3, 3812, 1080)"}));
    QCOMPARE(h->text("[txtColorPickerX.text, txtColorPickerY.text].join()"), QStringLiteral("3812,1080"));
}

void TestPickerPlaces::fieldsHoldTheRange_data()
{
    stepsStopAtTheEdges_data();
}

void TestPickerPlaces::fieldsHoldTheRange()
{
    QFETCH(int, code);
    QFETCH(int, lastX);
    QFETCH(int, lastY);
    QVERIFY(open(code));
    h->typeInto(QStringLiteral("txtColorPickerX"), QString::number(lastX));
    h->typeInto(QStringLiteral("txtColorPickerY"), QString::number(lastY));
    const QString corner = QStringLiteral("setCursorData(3, %1, %2)");
    QCOMPARE(h->facade.calls, QStringList({corner.arg(lastX).arg(0), corner.arg(lastX).arg(lastY)}));
    h->facade.forget();
    h->typeInto(QStringLiteral("txtColorPickerX"), QString::number(lastX + 1));
    h->typeInto(QStringLiteral("txtColorPickerY"), QString::number(lastY + 1));
    QCOMPARE(h->facade.calls, QStringList());
    // What passes the field in another way is held all the same.
    h->eval("txtColorPickerX.text = '-5'");
    h->eval("txtColorPickerX.accepted()");
    h->eval("txtColorPickerY.text = '5000'");
    h->eval("txtColorPickerY.accepted()");
    QCOMPARE(h->facade.calls, QStringList({corner.arg(0).arg(lastY), corner.arg(0).arg(lastY)}));
    QCOMPARE(h->text("[txtColorPickerX.text, txtColorPickerY.text].join()"),
             QStringLiteral("0,%1").arg(lastY));
}

QTEST_MAIN(TestPickerPlaces)
#include "tst_pickerplaces.moc"
