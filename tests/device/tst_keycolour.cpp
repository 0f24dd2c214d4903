#include "tests/device/devicebench.h"
#include "tests/device/unitfields.h"

// Cursor and background colour.
class KeyColourTest : public QObject
{
    Q_OBJECT

private slots:
    void cursorReadsTheColour_data() { bothLinks(); }
    void cursorReadsTheColour();
    void cursorReplyOfAnotherLength_data();
    void cursorReplyOfAnotherLength();
    void cursorGivesUp();
    void cursorCoordinatesAreCut();
    void getCursorLengths_data();
    void getCursorLengths();
    void plainColour_data() { bothLinks(); }
    void plainColour();
    void colourUnderTheCursor();
    void colourOnDeadLink();
    void plainColourLadderFalls();
    void resetLadderRises();
    void wrongChecksumOnSerialIsRetried_data();
    void wrongChecksumOnSerialIsRetried();

private:
    static void bothLinks()
    {
        QTest::addColumn<uint>("method");
        QTest::newRow("network") << uint(kNetworkLink);
        QTest::newRow("serial") << uint(kSerialLink);
    }
};

void KeyColourTest::cursorReadsTheColour()
{
    QFETCH(uint, method);
    DeviceBench bench(method);
    QVERIFY(bench.connectUnit());
    bench.host.withUnit([](standin::Unit &unit) { unit.setCursorColour(1000, 258, 7); });
    const qkv720_cursor cursor = bench.device->setCursor(method, 3, 1919, 1079);
    QCOMPARE(bench.frames(), frameOn(method, withChecksum(QByteArray::fromHex("0800DD037F073704")).toHex()));
    QCOMPARE(int(bench.device->tempR), 1000);
    QCOMPARE(int(bench.device->tempG), 258);
    QCOMPARE(int(bench.device->tempB), 7);
    // What is returned holds nothing, not even the position.
    QVERIFY(cursor.xy.isNull());
    QCOMPARE(int(cursor.r), 0);

    bench.host.withUnit([](standin::Unit &unit) { unit.setCursorColour(1, 2, 3); });
    bench.device->setCursor(method, 3, 0, 0);
    bench.device->tempR = bench.device->tempG = bench.device->tempB = 0;
    const qkv720_cursor read = bench.device->getCursor(method);
    QCOMPARE(int(bench.device->tempR), 1);
    QCOMPARE(int(bench.device->tempG), 2);
    QCOMPARE(int(bench.device->tempB), 3);
    QVERIFY(read.xy.isNull());
    QCOMPARE(int(read.b), 0);
}

void KeyColourTest::cursorReplyOfAnotherLength_data()
{
    QTest::addColumn<uint>("method");
    QTest::addColumn<int>("length");
    QTest::addColumn<bool>("position");
    QTest::newRow("network, 2 bytes") << uint(kNetworkLink) << 2 << true;
    QTest::newRow("network, 14 bytes") << uint(kNetworkLink) << 14 << true;
    QTest::newRow("network, 16 bytes") << uint(kNetworkLink) << 16 << true;
    QTest::newRow("serial, silence") << uint(kSerialLink) << 0 << false;
    QTest::newRow("serial, 1 byte") << uint(kSerialLink) << 1 << true;
    QTest::newRow("serial, 2 bytes") << uint(kSerialLink) << 2 << true;
    QTest::newRow("serial, 14 bytes") << uint(kSerialLink) << 14 << true;
    QTest::newRow("serial, 16 bytes") << uint(kSerialLink) << 16 << true;
}

void KeyColourTest::cursorReplyOfAnotherLength()
{
    QFETCH(uint, method);
    QFETCH(int, length);
    QFETCH(bool, position);
    DeviceBench bench(method);
    QVERIFY(bench.connectUnit());
    const QByteArray body = length == 0 ? QByteArray() : withChecksum(QByteArray(length - 1, '\x21'));
    bench.host.setFault(0xDD, standin::Fault::answer(body));
    bench.device->tempR = 71;
    bench.device->tempG = 72;
    bench.device->tempB = 73;
    if (position)
        QTest::ignoreMessage(QtDebugMsg, "SET Cursor Command Return length wrong!");
    const qkv720_cursor cursor = bench.device->setCursor(method, 3, 640, 360);
    QCOMPARE(cursor.xy, position ? QPoint(640, 360) : QPoint());
    QCOMPARE(int(cursor.r), 0);
    QCOMPARE(int(bench.device->tempR), 71);
    QCOMPARE(int(bench.device->tempG), 72);
    QCOMPARE(int(bench.device->tempB), 73);
    QCOMPARE(bench.host.count(0xDD), 1);
    QVERIFY(bench.device->isConnected);
}

void KeyColourTest::cursorGivesUp()
{
    DeviceBench network(kNetworkLink);
    QVERIFY(network.connectUnit());
    network.host.setFault(0xDD, standin::Fault::shortened(3));
    network.device->tempR = 71;
    QPoint returned(1, 1);
    QVERIFY(network.framesComeApart({250, 250},
                                    [&] { returned = network.device->setCursor(kNetworkLink, 3, 1, 1).xy; }));
    QVERIFY(returned.isNull());
    QCOMPARE(network.host.count(0xDD), 3);
    QCOMPARE(network.broken.count(), 3);
    QCOMPARE(int(network.device->tempR), 71);

    DeviceBench serial(kSerialLink);
    QVERIFY(serial.connectUnit());
    serial.host.setFault(0xDD, standin::Fault::wrongChecksum());
    serial.device->tempR = 71;
    returned = QPoint(1, 1);
    QVERIFY(serial.framesComeApart({400, 600, 1100},
                                   [&] { returned = serial.device->setCursor(kSerialLink, 3, 1, 1).xy; }));
    QVERIFY(returned.isNull());
    QCOMPARE(serial.host.count(0xDD), 4);
    QCOMPARE(int(serial.device->tempR), 71);

    DeviceBench dead(kNetworkLink);
    QVERIFY(dead.device->setCursor(kNetworkLink, 3, 1, 1).xy.isNull());
    QCOMPARE(dead.host.record().size(), 0);
}

void KeyColourTest::cursorCoordinatesAreCut()
{
    DeviceBench bench(kNetworkLink);
    QVERIFY(bench.connectUnit());
    bench.device->setCursor(kNetworkLink, 256, 65536 + 3, 0xFFFF);
    QCOMPARE(bench.frames(),
             frameOn(kNetworkLink, withChecksum(QByteArray::fromHex("0800DD000300FFFF")).toHex()));
}

void KeyColourTest::getCursorLengths_data()
{
    QTest::addColumn<uint>("method");
    QTest::addColumn<int>("length");
    for (const int length : {3, 8, 9, 10, 13, 15, 16}) {
        QTest::addRow("network, %d bytes", length) << uint(kNetworkLink) << length;
        QTest::addRow("serial, %d bytes", length) << uint(kSerialLink) << length;
    }
}

void KeyColourTest::getCursorLengths()
{
    QFETCH(uint, method);
    QFETCH(int, length);
    DeviceBench bench(method);
    QVERIFY(bench.connectUnit());
    const QByteArray body =
        withChecksum(QByteArray::fromHex("0E005D0102030405060708090A0B0C").left(length - 1));
    bench.host.setFault(0x5D, standin::Fault::answer(body));
    bench.device->tempR = bench.device->tempG = bench.device->tempB = 71;
    bench.device->getCursor(method);
    const bool taken = length > 8;
    QCOMPARE(int(bench.device->tempR), taken ? int(readWire(Kind::Word, body, 8)) : 71);
    QCOMPARE(int(bench.device->tempG), taken ? int(readWire(Kind::Word, body, 10)) : 71);
    QCOMPARE(int(bench.device->tempB), taken ? int(readWire(Kind::Word, body, 12)) : 71);
}

void KeyColourTest::plainColour()
{
    QFETCH(uint, method);
    DeviceBench bench(method);
    QVERIFY(bench.connectUnit());
    scramble(*bench.device, 0);
    Snapshot expected = snapshotOf(*bench.device); // the mode too: only replies write it
    overlay(expected,
            {{"ckBackColor.r", 0, Kind::Word},
             {"ckBackColor.g", 2, Kind::Word},
             {"ckBackColor.b", 4, Kind::Word}},
            QByteArray::fromHex("120356039A03"));
    bench.device->setBackColor(method, 0x312, 0x356, 0x39A, 0);
    QCOMPARE(bench.frames(), frameOn(method, "0A 00 D0 12 03 56 03 9A 03 00 E5"));
    QCOMPARE(differences(snapshotOf(*bench.device), expected), QString());
    const qkv720_color colour = bench.device->getBackColor(method);
    QCOMPARE(int(colour.g), 0x356);
    QCOMPARE(colour.autoCk, 0U);
    QCOMPARE(int(bench.device->tempG), 0x356);
}

void KeyColourTest::colourUnderTheCursor()
{
    DeviceBench bench(kNetworkLink);
    QVERIFY(bench.connectUnit());
    bench.device->tempR = 1;
    bench.device->tempG = 2;
    bench.device->tempB = 3;
    bench.device->setBackColor(kNetworkLink, 999, 999, 999, 0);
    QCOMPARE(bench.frames(), frameOn(kNetworkLink, "0A 00 D0 01 00 02 00 03 00 00 E0"));
    QCOMPARE(int(bench.device->ckBackColor.r), 1);
    bench.host.clearRecord();
    // One or two components of 999 are a colour like any other.
    bench.device->setBackColor(kNetworkLink, 999, 0, 0, 0);
    QCOMPARE(bench.frames(), frameOn(kNetworkLink, "0A 00 D0 E7 03 00 00 00 00 00 C4"));
    bench.host.clearRecord();
    bench.device->setBackColor(kNetworkLink, 999, 999, 0, 0);
    QCOMPARE(bench.frames(), frameOn(kNetworkLink, "0A 00 D0 E7 03 E7 03 00 00 00 AE"));
}

void KeyColourTest::colourOnDeadLink()
{
    DeviceBench bench(kNetworkLink);
    bench.device->setBackColor(kNetworkLink, 4, 5, 6, 2);
    QCOMPARE(int(bench.device->ckBackColor.g), 5);
    QCOMPARE(bench.device->ckAngleL, 0U);
    bench.device->resetBackColor(kNetworkLink);
    QCOMPARE(int(bench.device->ckBackColor.g), 5);
    QCOMPARE(bench.host.record().size(), 0);
}

void KeyColourTest::plainColourLadderFalls()
{
    DeviceBench bench(kNetworkLink);
    QVERIFY(bench.connectUnit());
    bench.host.setFault(0xD0, standin::Fault::shortened(3));
    QVERIFY(bench.framesComeApart({3050, 1050, 550},
                                  [&bench] { bench.device->setBackColor(kNetworkLink, 1, 2, 3, 0); }));
    QCOMPARE(bench.host.count(0xD0), 4);
    QCOMPARE(bench.broken.count(), 4);
    QCOMPARE(int(bench.device->ckBackColor.r), 1);
}

// Unlike a set of the same code it searches nothing: the unit is asked again as soon as for any other reset.
void KeyColourTest::resetLadderRises()
{
    DeviceBench bench(kNetworkLink);
    QVERIFY(bench.connectUnit());
    bench.host.setFault(0xD0, standin::Fault::shortened(3));
    QVERIFY(
        bench.framesComeApart({350, 550, 1050}, [&bench] { bench.device->resetBackColor(kNetworkLink); }));
    QCOMPARE(bench.host.count(0xD0), 4);
    QCOMPARE(bench.broken.count(), 4);
}

void KeyColourTest::wrongChecksumOnSerialIsRetried_data()
{
    QTest::addColumn<uint>("mode");
    QTest::addColumn<int>("waitMs");
    QTest::newRow("plain colour") << 0U << 150;
    QTest::newRow("unknown mode") << 3U << 2000;
}

// Any mode but those of the automatic key is an ordinary set: its ladder rises, and its reply is not read.
void KeyColourTest::wrongChecksumOnSerialIsRetried()
{
    QFETCH(uint, mode);
    QFETCH(int, waitMs);
    DeviceBench bench(kSerialLink);
    QVERIFY(bench.connectUnit());
    bench.host.setFault(0xD0, standin::Fault::wrongChecksum());
    bench.device->ckBackColor = {1, 2, 3, 77};
    bench.device->ckAngleL = 99;
    QVERIFY(bench.framesComeApart({waitMs + 300, waitMs + 500, waitMs + 1000}, [&bench, mode] {
        bench.device->setBackColor(kSerialLink, 4, 5, 6, mode);
    }));
    QCOMPARE(bench.host.count(0xD0), 4);
    QCOMPARE(int(bench.device->ckBackColor.b), 6);
    QCOMPARE(bench.device->ckBackColor.autoCk, 77U);
    QCOMPARE(bench.device->ckAngleL, 99U);
    QVERIFY(bench.device->isConnected);
    QCOMPARE(bench.broken.count(), 0);
}

QTEST_GUILESS_MAIN(KeyColourTest)
#include "tst_keycolour.moc"
