#include "facadebench.h"

#include <QElapsedTimer>

// Key colour: the truncating conversion, both forms of the set, the picker and the reset.

class TestColor : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QFile::remove(settingsPath()); }
    void conversion_data();
    void conversion();
    void setPlain();
    void setPlainShapesTheKey();
    void setPicked();
    void setAutomatic();
    void setByText();
    void setByTextThatIsNoColor();
    void cursor();
    void cursorWithoutAnAnswer();
    void refreshCursorTellsNothing();
    void reset();
};

namespace {

// A reply's body from its hex, with its checksum.
QByteArray withSum(const char *hex)
{
    QByteArray body = QByteArray::fromHex(hex);
    unsigned sum = 0;
    for (const char byte : body)
        sum += static_cast<unsigned char>(byte);
    body.append(static_cast<char>(sum % 256));
    return body;
}

} // namespace

void TestColor::conversion_data()
{
    QTest::addColumn<int>("red");
    QTest::addColumn<int>("green");
    QTest::addColumn<int>("blue");
    QTest::addColumn<QString>("told");
    QTest::newRow("black") << 0 << 0 << 0 << QStringLiteral("#000000, 0, 0, 0, -1, 0, 0");
    QTest::newRow("white") << 1000 << 1000 << 1000 << QStringLiteral("#ffffff, 1000, 1000, 1000, -1, 0, 1");
    QTest::newRow("truncated") << 999 << 500 << 4 << QStringLiteral("#fe7f01, 999, 500, 4, 29,");
    QTest::newRow("three is nothing") << 3 << 3 << 3 << QStringLiteral("#000000, 3, 3, 3, -1, 0, 0");
    QTest::newRow("1003 is still white")
        << 1003 << 1003 << 1003 << QStringLiteral("#ffffff, 1003, 1003, 1003, -1, 0, 1");
    QTest::newRow("1004 is no colour") << 1004 << 0 << 0 << QStringLiteral("#000000, 1004, 0, 0, ");
}

void TestColor::conversion()
{
    QFETCH(int, red);
    QFETCH(int, green);
    QFETCH(int, blue);
    QFETCH(QString, told);
    FacadeBench bench;
    QVERIFY(bench.connectUnit());
    bench.host.withUnit([=](standin::Unit &unit) {
        unit.setValue(standin::BackColour, QStringLiteral("red"), red);
        unit.setValue(standin::BackColour, QStringLiteral("green"), green);
        unit.setValue(standin::BackColour, QStringLiteral("blue"), blue);
    });
    bench.control->getBKColor();
    QCOMPARE(bench.frames(), QStringList{QStringLiteral("50")});
    QCOMPARE(bench.recorder->told.size(), 1);
    const QString signal = bench.recorder->told.at(0);
    QVERIFY2(signal.startsWith(QStringLiteral("refreshBKColorAdjust(") + told), qPrintable(signal));
    QCOMPARE(bench.recorder->polling.at(0), true);
}

void TestColor::setPlain()
{
    FacadeBench bench;
    QVERIFY(bench.connectUnit());
    // The unit takes something else than it was asked for: the first telling shows it, the second keeps the
    // colour that was set beside the numbers that now stand.
    bench.host.setFault(0x50, standin::Fault::answer(QByteArray::fromHex("0a0050e80300000000003d")));
    // With its new colour it has moved its angle and levels too: they are told as read back, not as stored.
    bench.host.setFault(0x51, standin::Fault::answer(withSum("0500510b0c")));
    bench.host.setFault(0x52, standin::Fault::answer(withSum("0800522100430301")));
    QElapsedTimer clock;
    clock.start();
    bench.control->setBKColor(500, 500, 500, 0);
    QVERIFY(clock.elapsed() >= 4 * 50 + 200);
    QCOMPARE(bench.frames(),
             QStringList({QStringLiteral("d0 f4 01 f4 01 f4 01 00"), QStringLiteral("50"),
                          QStringLiteral("51"), QStringLiteral("52")}));
    const QStringList told = bench.recorder->told;
    QCOMPARE(told.size(), 4);
    QVERIFY2(told.at(0).startsWith(QLatin1String("refreshBKColorAdjust(#ff0000, 1000, 0, 0, 0, 1, 0.5")),
             qPrintable(told.at(0)));
    QVERIFY2(told.at(1).startsWith(QLatin1String("refreshBKColorAdjust(#7f7f7f, 1000, 0, 0, -1, 0, ")),
             qPrintable(told.at(1)));
    QCOMPARE(told.at(2), QStringLiteral("refreshCKAngle(11, 12)"));
    QCOMPARE(told.at(3), QStringLiteral("refreshCKBWLevel(33, 835, true)"));
    QVERIFY(bench.control->timerRefreshStatus->isActive());
}

// A coloured key moves the unit's angle and levels with it: what it moved them to is read back and told.
void TestColor::setPlainShapesTheKey()
{
    FacadeBench bench;
    QVERIFY(bench.connectUnit());
    const qkv720 &device = *bench.device;
    const auto stored = [&device] {
        return QVector<uint>{device.ckAngleL, device.ckAngleR, device.ckBlackLevel, device.ckWhiteLevel};
    };
    const QVector<uint> before = stored();
    bench.control->setBKColor(900, 300, 100, 0);
    const QVector<uint> held{bench.held(standin::Angle, "left"), bench.held(standin::Angle, "right"),
                             bench.held(standin::Levels, "black"), bench.held(standin::Levels, "white")};
    for (int i = 0; i < held.size(); ++i)
        QVERIFY2(held.at(i) != before.at(i), qPrintable(QString::number(i)));
    QCOMPARE(stored(), held);
    const QStringList told = bench.recorder->told;
    QCOMPARE(told.size(), 4);
    for (int i = 0; i < 2; ++i) {
        QVERIFY2(told.at(i).startsWith(QLatin1String("refreshBKColorAdjust(#e54c19, 900, 300, 100, 15, ")),
                 qPrintable(told.at(i)));
    }
    QCOMPARE(told.at(2), QStringLiteral("refreshCKAngle(%1, %2)").arg(held.at(0)).arg(held.at(1)));
    QCOMPARE(told.at(3), QStringLiteral("refreshCKBWLevel(%1, %2, false)").arg(held.at(2)).arg(held.at(3)));
}

void TestColor::setPicked()
{
    FacadeBench bench;
    bench.host.withUnit([](standin::Unit &unit) { unit.setCursorColour(11, 22, 33); });
    QVERIFY(bench.connectUnit());
    bench.control->setCursorData(3, 100, 200);
    bench.control->setCursorData(0, 100, 200);
    bench.frames();
    bench.recorder->take();
    bench.control->setBKColor(999, 999, 999, 0);
    QCOMPARE(bench.frames().value(0), QStringLiteral("d0 0b 00 16 00 21 00 00"));
    QVERIFY(bench.recorder->told.value(0).startsWith(
        QLatin1String("refreshBKColorAdjust(#020508, 11, 22, 33, ")));
    // One component alone is no sign for the picked colour.
    bench.control->setBKColor(999, 0, 0, 0);
    QCOMPARE(bench.frames().value(0), QStringLiteral("d0 e7 03 00 00 00 00 00"));
}

void TestColor::setAutomatic()
{
    FacadeBench bench;
    QVERIFY(bench.connectUnit());
    bench.control->setBKColor(1, 2, 3, 2);
    QCOMPARE(bench.frames(), QStringList{QStringLiteral("d0 01 00 02 00 03 00 02")});
    const QStringList told = bench.recorder->told;
    QStringList names;
    for (const QString &signal : told)
        names += signal.section(QLatin1Char('('), 0, 0);
    QCOMPARE(names,
             QStringList({QStringLiteral("refreshBKColorAdjust"), QStringLiteral("refreshCKAngle"),
                          QStringLiteral("refreshCKBWLevel"), QStringLiteral("refreshCKDark"),
                          QStringLiteral("refreshCKBright"), QStringLiteral("refreshCKShadow"),
                          QStringLiteral("refreshCKSpill")}));
    // What the unit found: the backdrop of 183, 226, 711.
    QVERIFY2(told.at(0).startsWith(QLatin1String("refreshBKColorAdjust(#2e39b5, 183, 226, 711, ")),
             qPrintable(told.at(0)));
    QCOMPARE(bench.recorder->polling, QVector<bool>(7, false));
    QVERIFY(bench.control->timerRefreshStatus->isActive());
}

void TestColor::setByText()
{
    FacadeBench bench;
    QVERIFY(bench.connectUnit());
    bench.control->setBKColor(QStringLiteral("#FFFFFF"), 0);
    // The 8-bit numbers as they are, in the frame and in the signal, and the text as it came.
    QCOMPARE(bench.frames(), QStringList{QStringLiteral("d0 ff 00 ff 00 ff 00 00")});
    QCOMPARE(bench.recorder->take(),
             QStringList{QStringLiteral("refreshBKColorAdjust(#FFFFFF, 255, 255, 255, -1, 0, 1)")});
    QVERIFY(QMetaObject::invokeMethod(bench.control.get(), "setBKColor",
                                      Q_ARG(QString, QStringLiteral("red")), Q_ARG(uint, 0u)));
    QVERIFY(bench.recorder->take().value(0).startsWith(
        QLatin1String("refreshBKColorAdjust(red, 255, 0, 0, 0, 1, 0.5")));
}

void TestColor::setByTextThatIsNoColor()
{
    FacadeBench bench;
    QVERIFY(bench.connectUnit());
    bench.control->setBKColor(QStringLiteral("no colour"), 0);
    QCOMPARE(bench.frames(), QStringList{QStringLiteral("d0 00 00 00 00 00 00 00")});
    QCOMPARE(bench.recorder->told.size(), 1);
    QVERIFY(
        bench.recorder->told.at(0).startsWith(QLatin1String("refreshBKColorAdjust(no colour, 0, 0, 0, ")));
}

void TestColor::cursor()
{
    FacadeBench bench;
    bench.host.withUnit([](standin::Unit &unit) { unit.setCursorColour(1000, 0, 500); });
    QVERIFY(bench.connectUnit());
    bench.control->setCursorData(3, 0x123, 0x456);
    QCOMPARE(bench.frames(), QStringList{QStringLiteral("dd 03 23 01 56 04")});
    QCOMPARE(bench.recorder->told.size(), 1);
    QVERIFY(
        bench.recorder->told.at(0).startsWith(QLatin1String("refreshBKColorPicker(#ff007f, 1000, 0, 500, ")));
    QCOMPARE(bench.recorder->polling.at(0), true);
}

void TestColor::cursorWithoutAnAnswer()
{
    FacadeBench bench(2);
    bench.host.withUnit([](standin::Unit &unit) { unit.setCursorColour(1000, 0, 500); });
    QVERIFY(bench.connectUnit());
    bench.control->setCursorData(3, 1, 1);
    const QStringList first = bench.recorder->take();
    bench.host.withUnit([](standin::Unit &unit) { unit.setCursorColour(1, 2, 3); });
    bench.host.setFault(0xDD, standin::Fault::silent());
    bench.control->setCursorData(3, 1, 1);
    QCOMPARE(bench.recorder->take(), first);
}

void TestColor::refreshCursorTellsNothing()
{
    FacadeBench bench;
    bench.host.withUnit([](standin::Unit &unit) { unit.setCursorColour(7, 8, 9); });
    QVERIFY(bench.connectUnit());
    QVERIFY(bench.startsThePoll([&] { bench.control->refreshCursor(1, 2, 3, 4, 5, 6, 7, 8, 9); }));
    QCOMPARE(bench.frames(), QStringList{QStringLiteral("5d")});
    QCOMPARE(bench.recorder->told, QStringList());
}

void TestColor::reset()
{
    FacadeBench bench;
    bench.host.withUnit([](standin::Unit &unit) {
        unit.setData(standin::Angle, QByteArray::fromHex("0102"));
        unit.setData(standin::BackColour, QByteArray::fromHex("01000200030000"));
    });
    QVERIFY(bench.connectUnit());
    QElapsedTimer clock;
    clock.start();
    bench.control->resetBKColor();
    QVERIFY(clock.elapsed() >= 3 * 50 + 200);
    QCOMPARE(bench.frames(),
             QStringList({QStringLiteral("reset d0 00 00 00 00 00 00 00"), QStringLiteral("reset d1 00 00"),
                          QStringLiteral("reset d2 00 00 00 00")}));
    const QStringList told = bench.recorder->told;
    QCOMPARE(told.size(), 3);
    QVERIFY(told.at(0).startsWith(QLatin1String("refreshBKColorPicker(#1e2dc1, 120, 180, 760, ")));
    QCOMPARE(told.at(1), QStringLiteral("refreshCKAngle(45, 45)"));
    QCOMPARE(told.at(2), QStringLiteral("refreshCKBWLevel(100, 900, false)"));
    QVERIFY(bench.control->timerRefreshStatus->isActive());
}

QTEST_GUILESS_MAIN(TestColor)
#include "tst_color.moc"
