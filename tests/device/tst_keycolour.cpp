#include "tests/device/devicebench.h"

namespace {
// A chain as the unit sends it, head by head: mode 2, and values that show where each byte went.
const char *const kChain = "0A 00 D0 B7 00 E2 00 C7 02 02 3E" // echo
                           "0A 00 50 B7 00 E2 00 C7 02 02 BE" // colour
                           "05 00 51 37 41 CE" // angle
                           "08 00 52 8C 00 5C 03 01 46" // levels
                           "09 00 53 01 F0 00 E8 03 64 9C" // dark
                           "09 00 54 02 4A 01 F4 01 9C 3A" // bright
                           "06 00 55 01 D2 00 2E" // shadow
                           "0D 00 56 58 02 2C 01 8A 02 75 01 80 8A F6" // spill
                           "0C 00 58 01 02 03 04 05 06 07 08 09 8E"; // more, not taken

QByteArray chain()
{
    return QByteArray::fromHex(kChain);
}

int at(const QByteArray &body, int position)
{
    return position < body.size() ? static_cast<uchar>(body.at(position)) : 0;
}

int word(const QByteArray &body, int position)
{
    return at(body, position) + 256 * at(body, position + 1);
}

uint wide(const QByteArray &body, int position)
{
    const int byte = at(body, position);
    return static_cast<uint>(byte < 128 ? byte : byte - 256);
}
} // namespace

// Cursor, background colour and the automatic key.
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
    void automaticKeyWithAUnit_data();
    void automaticKeyWithAUnit();
    void chainFields_data() { bothLinks(); }
    void chainFields();
    void chainCutOnNetwork();
    void chainCutOnSerial_data();
    void chainCutOnSerial();
    void chainSplitOnNetwork();
    void unknownModeTakesNoChain_data() { bothLinks(); }
    void unknownModeTakesNoChain();
    void plainColourLadderFalls();
    void automaticKeyLadderFalls();
    void automaticKeyOnClosedPort();
    void automaticKeyIsNotRetriedOnSerial();

private:
    static void bothLinks()
    {
        QTest::addColumn<uint>("method");
        QTest::newRow("network") << uint(kNetworkLink);
        QTest::newRow("serial") << uint(kSerialLink);
    }
    static void compareChain(const qkv720 &device, const QByteArray &body);
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
    QVERIFY(network.framesComeApart(
        {250, 250}, [&network] { QVERIFY(network.device->setCursor(kNetworkLink, 3, 1, 1).xy.isNull()); }));
    QCOMPARE(network.host.count(0xDD), 3);
    QCOMPARE(network.broken.count(), 3);
    QCOMPARE(int(network.device->tempR), 71);

    DeviceBench serial(kSerialLink);
    QVERIFY(serial.connectUnit());
    serial.host.setFault(0xDD, standin::Fault::wrongChecksum());
    serial.device->tempR = 71;
    QVERIFY(serial.framesComeApart({400, 600, 1100}, [&serial] {
        QVERIFY(serial.device->setCursor(kSerialLink, 3, 1, 1).xy.isNull());
    }));
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
    QCOMPARE(int(bench.device->tempR), taken ? word(body, 8) : 71);
    QCOMPARE(int(bench.device->tempG), taken ? word(body, 10) : 71);
    QCOMPARE(int(bench.device->tempB), taken ? word(body, 12) : 71);
}

void KeyColourTest::plainColour()
{
    QFETCH(uint, method);
    DeviceBench bench(method);
    QVERIFY(bench.connectUnit());
    bench.device->ckBackColor.autoCk = 9;
    bench.device->setBackColor(method, 0x312, 0x356, 0x39A, 0);
    QCOMPARE(bench.frames(), frameOn(method, "0A 00 D0 12 03 56 03 9A 03 00 E5"));
    QCOMPARE(int(bench.device->ckBackColor.r), 0x312);
    QCOMPARE(int(bench.device->ckBackColor.b), 0x39A);
    QCOMPARE(bench.device->ckBackColor.autoCk, 9U); // only replies write it
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

void KeyColourTest::automaticKeyWithAUnit_data()
{
    QTest::addColumn<uint>("method");
    QTest::addColumn<uint>("mode");
    QTest::newRow("network, AutoDef") << uint(kNetworkLink) << 1U;
    QTest::newRow("network, AutoBack") << uint(kNetworkLink) << 2U;
    QTest::newRow("serial, AutoDef") << uint(kSerialLink) << 1U;
    QTest::newRow("serial, AutoBack") << uint(kSerialLink) << 2U;
}

void KeyColourTest::automaticKeyWithAUnit()
{
    QFETCH(uint, method);
    QFETCH(uint, mode);
    DeviceBench bench(method);
    QVERIFY(bench.connectUnit());
    bench.host.withUnit([](standin::Unit &unit) { unit.setBackdrop(11, 222, 987); });
    qkv720 &device = *bench.device;
    device.edge_SoftEdge = 41;
    device.edgeFixEnable = true;
    device.setBackColor(method, 1, 2, 3, mode);
    QCOMPARE(bench.host.record().size(), 1);
    QCOMPARE(int(device.ckBackColor.r), 11);
    QCOMPARE(int(device.ckBackColor.g), 222);
    QCOMPARE(int(device.ckBackColor.b), 987);
    QCOMPARE(device.ckBackColor.autoCk, mode);
    QCOMPARE(int(device.tempB), 987);

    // What the chain brought is what the unit now holds.
    bench.host.withUnit([&device](standin::Unit &unit) {
        const auto value = [&unit](int code, const char *field) {
            return unit.value(code, QString::fromLatin1(field));
        };
        QCOMPARE(int(device.ckAngleL), value(standin::Angle, "left"));
        QCOMPARE(int(device.ckAngleR), value(standin::Angle, "right"));
        QCOMPARE(int(device.ckBlackLevel), value(standin::Levels, "black"));
        QCOMPARE(int(device.ckWhiteLevel), value(standin::Levels, "white"));
        QCOMPARE(int(device.ckDark.level), value(standin::Dark, "level"));
        QCOMPARE(int(device.ckDark.density), value(standin::Dark, "density"));
        QCOMPARE(int(device.ckDark.balance), value(standin::Dark, "balance"));
        QCOMPARE(int(device.ckBright.level), value(standin::Bright, "level"));
        QCOMPARE(int(device.ckShadow.level), value(standin::Shadow, "level"));
        QCOMPARE(int(device.spillSuppression), value(standin::Spill, "suppression"));
        QCOMPARE(int(device.spillBrightness), value(standin::Spill, "brightness"));
        QCOMPARE(int(device.spillDefaultValue), value(standin::Spill, "preset"));
    });
    // Edge fix is not part of it.
    QCOMPARE(device.edge_SoftEdge, 41U);
    QVERIFY(device.edgeFixEnable);
    QVERIFY(device.isConnected);
}

void KeyColourTest::compareChain(const qkv720 &device, const QByteArray &body)
{
    QCOMPARE(int(device.ckBackColor.r), word(body, 14));
    QCOMPARE(int(device.ckBackColor.g), word(body, 16));
    QCOMPARE(int(device.ckBackColor.b), word(body, 18));
    QCOMPARE(device.ckBackColor.autoCk, wide(body, 20));
    QCOMPARE(int(device.tempR), word(body, 14));
    QCOMPARE(int(device.tempG), word(body, 16));
    QCOMPARE(int(device.tempB), word(body, 18));
    QCOMPARE(device.ckAngleL, wide(body, 25));
    QCOMPARE(device.ckAngleR, wide(body, 26));
    QCOMPARE(int(device.ckBlackLevel), word(body, 31));
    QCOMPARE(int(device.ckWhiteLevel), word(body, 33));
    QCOMPARE(device.matteEnable, at(body, 35) > 0 && at(body, 35) < 128);
    QCOMPARE(device.ckDark.enable, at(body, 40) == 1);
    QCOMPARE(int(device.ckDark.level), word(body, 41));
    QCOMPARE(int(device.ckDark.density), word(body, 43));
    QCOMPARE(int(device.ckDark.balance), int(wide(body, 45)));
    QCOMPARE(device.ckBright.enable, at(body, 50) == 1);
    QCOMPARE(int(device.ckBright.level), word(body, 51));
    QCOMPARE(int(device.ckBright.density), word(body, 53));
    QCOMPARE(int(device.ckBright.balance), int(wide(body, 55)));
    QCOMPARE(device.ckShadow.enable, at(body, 60) == 1);
    QCOMPARE(int(device.ckShadow.level), word(body, 61));
    QCOMPARE(int(device.spillSuppression), word(body, 67));
    QCOMPARE(int(device.spillEnhance), word(body, 69));
    QCOMPARE(int(device.spillBalance), word(body, 71));
    QCOMPARE(int(device.spillBrightness), word(body, 73));
    QCOMPARE(device.spillVivid, at(body, 75) != 0);
    QCOMPARE(device.spillDefaultValue, wide(body, 76));
}

void KeyColourTest::chainFields()
{
    QFETCH(uint, method);
    DeviceBench bench(method);
    QVERIFY(bench.connectUnit());
    bench.host.setFault(0xD0, standin::Fault::answer(chain()));
    qkv720 &device = *bench.device;
    device.ppPostAmp.bright = 5;
    device.ckShadow.density = 6;
    device.setBackColor(method, 1, 2, 3, 2);
    compareChain(device, chain());
    // The same in plain numbers.
    QCOMPARE(int(device.ckBackColor.b), 711);
    QCOMPARE(device.ckAngleL, 0x37U);
    QCOMPARE(int(device.ckWhiteLevel), 860);
    QVERIFY(device.matteEnable);
    QVERIFY(device.ckDark.enable);
    QVERIFY(!device.ckBright.enable); // 2 is not 1
    QCOMPARE(int(device.ckBright.balance), -100);
    QCOMPARE(int(device.ckShadow.level), 210);
    QCOMPARE(int(device.spillBrightness), 373);
    QVERIFY(device.spillVivid); // 0x80 is not 0
    QCOMPARE(device.spillDefaultValue, 0xFFFFFF8AU);
    QCOMPARE(device.ppPostAmp.bright, 5U);
    QCOMPARE(int(device.ckShadow.density), 6);
    QCOMPARE(bench.host.count(0xD0), 1); // the sum over the whole doesn't come out, and nobody minds
    QVERIFY(device.isConnected);
}

// Cut at many lengths: what is missing reads as 0.
void KeyColourTest::chainCutOnNetwork()
{
    DeviceBench bench(kNetworkLink);
    QVERIFY(bench.connectUnit());
    for (const int length : {2, 3, 11, 15, 21, 26, 32, 35, 36, 42, 46, 55, 61, 68, 76, 77}) {
        bench.host.setFault(0xD0, standin::Fault::answer(chain().left(length)));
        bench.device->ckAngleL = bench.device->spillBalance = 99;
        bench.device->setBackColor(kNetworkLink, 1, 2, 3, 1);
        compareChain(*bench.device, chain().left(length));
        if (QTest::currentTestFailed())
            return;
    }
    QVERIFY(bench.device->isConnected);
}

void KeyColourTest::chainCutOnSerial_data()
{
    QTest::addColumn<int>("length");
    for (const int length : {0, 1, 2, 3, 15, 33, 44, 62, 70, 77})
        QTest::addRow("%d bytes", length) << length;
}

// Here even silence is taken: every field of the chain becomes 0.
void KeyColourTest::chainCutOnSerial()
{
    QFETCH(int, length);
    DeviceBench bench(kSerialLink);
    QVERIFY(bench.connectUnit());
    bench.host.setFault(0xD0, standin::Fault::answer(chain().left(length)));
    bench.device->ckAngleL = bench.device->spillBalance = 99;
    bench.device->matteEnable = bench.device->ckShadow.enable = true;
    bench.device->setBackColor(kSerialLink, 1, 2, 3, 1);
    compareChain(*bench.device, chain().left(length));
    QVERIFY(bench.device->isConnected);
    QCOMPARE(bench.broken.count(), 0);
}

// What comes after the wait is cut off: the parts are not put together, and the tail spoils the next read.
void KeyColourTest::chainSplitOnNetwork()
{
    DeviceBench bench(kNetworkLink);
    QVERIFY(bench.connectUnit());
    // Both parts lie there when the wait is over.
    bench.host.setFault(0xD0, standin::Fault::answer(chain()));
    bench.host.setFault(0xD0, standin::Fault::split(30, 1500));
    bench.device->setBackColor(kNetworkLink, 1, 2, 3, 2);
    QCOMPARE(bench.device->ckAngleL, 0x37U);
    QCOMPARE(int(bench.device->spillSuppression), 600);
    // The second part comes too late.
    bench.host.setFault(0xD0, standin::Fault::split(30, 2500));
    bench.device->setBackColor(kNetworkLink, 1, 2, 3, 2);
    QCOMPARE(bench.device->ckAngleL, 0x37U);
    QCOMPARE(int(bench.device->spillSuppression), 0);
    QTest::qSleep(800);
    QByteArray ask = QByteArray::fromHex("000603005154");
    QByteArray reply;
    QVERIFY(bench.device->hlnpIO(&ask, &reply) > 0);
    QVERIFY(reply.size() > 8);
}

void KeyColourTest::unknownModeTakesNoChain()
{
    QFETCH(uint, method);
    DeviceBench bench(method);
    QVERIFY(bench.connectUnit());
    bench.host.setFault(0xD0, standin::Fault::answer(withChecksum(chain())));
    bench.device->ckAngleL = 99;
    bench.device->ckBackColor.autoCk = 8;
    bench.device->setBackColor(method, 1, 2, 3, 3);
    QCOMPARE(bench.device->ckAngleL, 99U);
    QCOMPARE(bench.device->ckBackColor.autoCk, 8U);
    QCOMPARE(int(bench.device->ckBackColor.r), 1);
    QCOMPARE(bench.host.count(0xD0), 1);
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

void KeyColourTest::automaticKeyLadderFalls()
{
    DeviceBench bench(kNetworkLink);
    QVERIFY(bench.connectUnit());
    bench.host.setFault(0xD0, standin::Fault::shortened(3));
    bench.device->ckAngleL = 99;
    QVERIFY(bench.framesComeApart({5000, 3000, 2500},
                                  [&bench] { bench.device->setBackColor(kNetworkLink, 1, 2, 3, 2); }));
    QCOMPARE(bench.host.count(0xD0), 4);
    QCOMPARE(bench.device->ckAngleL, 99U); // nothing to take
    QVERIFY(!bench.device->isConnected);
}

void KeyColourTest::automaticKeyOnClosedPort()
{
    DeviceBench bench(kSerialLink); // never opened
    bench.device->isConnected = true;
    bench.device->ckAngleL = 99;
    QElapsedTimer timer;
    timer.start();
    bench.device->setBackColor(kSerialLink, 1, 2, 3, 1);
    VERIFY_BETWEEN(timer.elapsed(), 900, 1800); // one attempt of four writes, and no wait for a reply
    QCOMPARE(bench.broken.count(), 1);
    QVERIFY(!bench.device->isConnected);
    QCOMPARE(bench.device->ckAngleL, 99U);
    QCOMPARE(int(bench.device->ckBackColor.r), 1);
}

void KeyColourTest::automaticKeyIsNotRetriedOnSerial()
{
    DeviceBench bench(kSerialLink);
    QVERIFY(bench.connectUnit());
    bench.host.setFault(0xD0, standin::Fault::wrongChecksum());
    bench.device->setBackColor(kSerialLink, 1, 2, 3, 2);
    QCOMPARE(bench.host.count(0xD0), 1);
    QCOMPARE(bench.device->ckAngleL, 0x37U);
    QVERIFY(bench.device->isConnected);
}

QTEST_GUILESS_MAIN(KeyColourTest)
#include "tst_keycolour.moc"
