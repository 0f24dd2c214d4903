// Frames, refusals and streams through a raw link, byte for byte.

#include "tests/support/rawlink.h"
#include "tests/support/unithost.h"

#include <QRandomGenerator>
#include <QtTest>

using support::RawNetwork;
using support::RawSerial;
using support::requestBody;
using support::UnitHost;

class TestWire : public QObject
{
    Q_OBJECT

private slots:
    void versionOverNetwork();
    void workedFrames_data();
    void workedFrames();
    void refusals_data();
    void refusals();
    void refusalsOverSerial();
    void refusedFrameChangesNothing();
    void framesInOneWrite();
    void frameInParts();
    void impossibleLength();
    void bodyLengthThatDisagrees();
    void incompleteFrameIsGivenUp();
    void randomBytes();
    void longestFrame();
    void auxModeIsTheBlurRecord();
    void cursorTellsTheColour();
    void cursorTakenAway();
    void inputsFollowTheirSources();
    void genlockLocksOnSync();
    void spillPresets_data();
    void spillPresets();
    void saveSetupIsEmpty();
    void secondClient();
    void recordHoldsFramesInOrder();
    void listening();
};

namespace {

QByteArray bytes(const char *hex)
{
    return QByteArray::fromHex(hex);
}

QString hex(const QByteArray &data)
{
    return QString::fromLatin1(data.toHex(' '));
}

// Copies of what the unit holds, which lives on a thread of its own.
QByteArray dataOf(UnitHost &host, int code)
{
    QByteArray copy;
    host.withUnit([&copy, code](standin::Unit &unit) { copy = unit.data(code); });
    return copy;
}

QJsonObject stateOf(UnitHost &host)
{
    QJsonObject copy;
    host.withUnit([&copy](standin::Unit &unit) { copy = unit.toJson(); });
    return copy;
}

} // namespace

void TestWire::versionOverNetwork()
{
    UnitHost host;
    RawNetwork link(host.address());
    link.send(bytes("00 06 03 00 6c 6f"));
    QCOMPARE(hex(link.receive()), QStringLiteral("00 0c 09 00 6c 01 05 02 23 10 2a da"));
    QCOMPARE(host.count(0x6c), 1);
}

void TestWire::workedFrames_data()
{
    QTest::addColumn<QByteArray>("out");
    QTest::addColumn<QByteArray>("in");
    QTest::newRow("device type") << bytes("00 06 03 00 6f 72") << bytes("00 08 05 00 6f 40 00 b4");
    QTest::newRow("set angle") << bytes("00 08 05 00 d1 37 41 4e") << bytes("00 08 05 00 d1 37 41 4e");
    QTest::newRow("reset angle") << bytes("00 08 05 80 d1 00 00 56") << bytes("00 08 05 00 d1 2d 2d 30");
    QTest::newRow("recall 3") << bytes("00 07 04 00 64 03 6b") << bytes("00 07 04 00 64 03 6b");
    QTest::newRow("save 3") << bytes("00 07 04 00 e4 03 eb") << bytes("00 07 04 00 e4 03 eb");
    QTest::newRow("save setup") << bytes("00 06 03 00 e5 e8") << bytes("00 06 03 00 e5 e8");
    QTest::newRow("sum 0") << bytes("00 09 06 00 e0 18 01 01 00") << bytes("00 09 06 00 e0 18 01 01 00");
}

void TestWire::workedFrames()
{
    QFETCH(QByteArray, out);
    QFETCH(QByteArray, in);
    UnitHost host;
    RawNetwork link(host.address());
    link.send(out);
    QCOMPARE(hex(link.receive()), hex(in));
}

void TestWire::refusals_data()
{
    QTest::addColumn<QByteArray>("out");
    QTest::addColumn<QByteArray>("in");
    const QByteArray unknown = bytes("00 05 02 81 83");
    const QByteArray badSum = bytes("00 05 02 82 84");
    for (int code : {0x5E, 0x65, 0x6B, 0x6D, 0x6E, 0xDE, 0xE6, 0xEB, 0xED, 0xEE, 0x00, 0x10, 0xFF})
        QTest::newRow(qPrintable(QString::number(code, 16)))
            << QByteArray(bytes("00 06") + requestBody(code)) << unknown;
    // What the unit only tells can't be set.
    for (int code : {0xE2, 0xEC, 0xEF})
        QTest::newRow(qPrintable(QString::number(code, 16)))
            << QByteArray(bytes("00 06") + requestBody(code)) << unknown;
    QTest::newRow("bad sum") << bytes("00 06 03 00 6c 70") << badSum;
    QTest::newRow("bad sum of an unknown code") << bytes("00 06 03 00 65 00") << badSum;
}

void TestWire::refusals()
{
    QFETCH(QByteArray, out);
    QFETCH(QByteArray, in);
    UnitHost host;
    RawNetwork link(host.address());
    link.send(out);
    QCOMPARE(hex(link.receive()), hex(in));
    link.send(bytes("00 06 03 00 6c 6f"));
    QCOMPARE(link.receive().size(), 12);
}

void TestWire::refusalsOverSerial()
{
    UnitHost::Options options;
    options.serial = true;
    UnitHost host(options);
    RawSerial link(host.serialPortName());
    QCOMPARE(hex(link.exchange(requestBody(0x65))), QStringLiteral("02 81 83"));
    QCOMPARE(hex(link.exchange(bytes("03 00 6c 00"))), QStringLiteral("02 82 84"));
    QCOMPARE(hex(link.exchange(bytes("03 00 6c 6f"))), QStringLiteral("09 00 6c 01 05 02 23 10 2a da"));
}

void TestWire::refusedFrameChangesNothing()
{
    UnitHost host;
    RawNetwork link(host.address());
    QByteArray body = requestBody(0xD1, bytes("0102"));
    body[body.size() - 1] = static_cast<char>(body.back() + 1);
    QCOMPARE(hex(link.exchange(body)), QStringLiteral("02 82 84"));
    QCOMPARE(dataOf(host, standin::Angle), bytes("2d 2d"));
    QVERIFY(!host.record().first().checksumGood);
}

void TestWire::framesInOneWrite()
{
    UnitHost host;
    RawNetwork link(host.address());
    link.send(bytes("00 06 03 00 6c 6f 00 06 03 00 6f 72"));
    QByteArray replies = link.receive();
    if (replies.size() == 12) // the second one on its own, on a busy machine
        replies += link.receive();
    QCOMPARE(hex(replies), QStringLiteral("00 0c 09 00 6c 01 05 02 23 10 2a da 00 08 05 00 6f 40 00 b4"));
    QCOMPARE(host.codes(), QVector<int>({0x6c, 0x6f}));
}

void TestWire::frameInParts()
{
    UnitHost host;
    RawNetwork link(host.address());
    for (const char *part : {"00", "06 03", "00 6c"}) {
        link.send(bytes(part));
        QTest::qWait(30);
    }
    QVERIFY(host.record().isEmpty());
    link.send(bytes("6f"));
    QCOMPARE(link.receive().size(), 12);
}

void TestWire::impossibleLength()
{
    UnitHost host;
    RawNetwork link(host.address());
    link.send(bytes("ff ff 03 00 6c 6f"));
    QCOMPARE(hex(link.receive()), QStringLiteral("00 05 02 82 84"));
    link.send(bytes("00 06 03 00 6c 6f"));
    QCOMPARE(link.receive().size(), 12);
}

void TestWire::bodyLengthThatDisagrees()
{
    UnitHost host;
    RawNetwork link(host.address());
    link.send(bytes("00 06 04 00 6c 70"));
    QCOMPARE(hex(link.receive()), QStringLiteral("00 05 02 82 84"));
    QVERIFY(!host.record().first().wellFormed);
}

void TestWire::incompleteFrameIsGivenUp()
{
    UnitHost host;
    RawNetwork link(host.address());
    link.send(bytes("00 08 05 00 d1"));
    QCOMPARE(hex(link.receive()), QStringLiteral("00 05 02 82 84"));
    link.send(bytes("00 06 03 00 6c 6f"));
    QCOMPARE(link.receive().size(), 12);
}

void TestWire::randomBytes()
{
    UnitHost host;
    RawNetwork link(host.address());
    QRandomGenerator random(720);
    for (int burst = 0; burst < 300; ++burst) {
        QByteArray noise(1 + random.bounded(40), '\0');
        for (char &byte : noise)
            byte = static_cast<char>(random.bounded(256));
        link.send(noise);
    }
    link.receive(1500, 400); // past the time after which remains are given up
    link.send(bytes("00 06 03 00 6c 6f"));
    QCOMPARE(hex(link.receive()), QStringLiteral("00 0c 09 00 6c 01 05 02 23 10 2a da"));
    QVERIFY(host.record().size() > 1);
}

void TestWire::longestFrame()
{
    UnitHost host;
    RawNetwork link(host.address());
    const QByteArray payload(252, '\1');
    const QByteArray reply = link.exchange(requestBody(0xD1, payload));
    QCOMPARE(hex(reply), hex(requestBody(0xD1, payload)));
    QCOMPARE(dataOf(host, standin::Angle), bytes("01 01"));
}

void TestWire::auxModeIsTheBlurRecord()
{
    UnitHost host;
    RawNetwork link(host.address());
    link.exchange(requestBody(0xDB, bytes("01 32 09")));
    QCOMPARE(hex(link.exchange(requestBody(0xDB, bytes("01 07")))), QStringLiteral("05 00 db 01 07 e8"));
    QCOMPARE(hex(link.exchange(requestBody(0x5B))), QStringLiteral("06 00 5b 01 07 09 72"));
}

void TestWire::cursorTellsTheColour()
{
    UnitHost host;
    RawNetwork link(host.address());
    host.withUnit([](standin::Unit &unit) { unit.setCursorColour(183, 226, 711); });
    QCOMPARE(hex(link.exchange(requestBody(0xDD, bytes("03 80 02 68 01")))),
             QStringLiteral("0e 00 dd 03 80 02 68 01 b7 00 e2 00 c7 02 3b"));
    QCOMPARE(hex(link.exchange(requestBody(0x5D))),
             QStringLiteral("0e 00 5d 03 80 02 68 01 b7 00 e2 00 c7 02 bb"));
}

void TestWire::cursorTakenAway()
{
    UnitHost host;
    RawNetwork link(host.address());
    link.exchange(requestBody(0xDD, bytes("03 0a 00 05 00")));
    const QByteArray placed = link.exchange(requestBody(0x5D)).mid(8, 6);
    const QByteArray away = link.exchange(requestBody(0xDD, bytes("00 00 00 00 00")));
    QCOMPARE(away.size(), 15);
    QCOMPARE(hex(away.mid(8, 6)), hex(placed)); // the sample stays
    link.exchange(requestBody(0xDD, bytes("03 14 00 05 00")));
    QVERIFY(link.exchange(requestBody(0x5D)).mid(8, 6) != placed); // another place, another colour
}

void TestWire::inputsFollowTheirSources()
{
    UnitHost host;
    RawNetwork link(host.address());
    host.withUnit([](standin::Unit &unit) {
        for (int connector = 0; connector < standin::Unit::ConnectorCount; ++connector)
            unit.setConnector(connector, 10 + connector);
    });
    QCOMPARE(hex(link.exchange(requestBody(0x62)).mid(3, 5)), QStringLiteral("0a 0c 0d 0e 00"));
    link.exchange(requestBody(0xE1, bytes("01 00 02 00 00 00 00 00 00")));
    QCOMPARE(hex(link.exchange(requestBody(0x62)).mid(3, 5)), QStringLiteral("0b 0a 0c 0e 00"));
}

void TestWire::genlockLocksOnSync()
{
    UnitHost host;
    RawNetwork link(host.address());
    link.exchange(requestBody(0xE1, bytes("00 02 03 00 01 fe ff 05 00")));
    QCOMPARE(int(link.exchange(requestBody(0x62)).at(7)), 1);
    host.withUnit([](standin::Unit &unit) { unit.setConnector(4, 0); });
    QCOMPARE(int(link.exchange(requestBody(0x62)).at(7)), 0);
    QCOMPARE(hex(link.exchange(requestBody(0xE1, {}, 0x80))),
             QStringLiteral("0c 00 e1 00 02 03 00 00 00 00 00 00 f2"));
}

void TestWire::spillPresets_data()
{
    QTest::addColumn<int>("choice");
    QTest::addColumn<QString>("record");
    QTest::newRow("low") << 0x00 << "2c 01 00 00 f4 01 c2 01 00 00";
    QTest::newRow("mid") << 0x01 << "f4 01 00 00 f4 01 90 01 00 01";
    QTest::newRow("high") << 0x02 << "58 02 00 00 8a 02 75 01 00 02";
    QTest::newRow("high enhanced") << 0x0a << "58 02 2c 01 8a 02 75 01 00 0a";
    QTest::newRow("mid vivid") << 0x11 << "f4 01 00 00 f4 01 90 01 01 11";
}

void TestWire::spillPresets()
{
    QFETCH(int, choice);
    QFETCH(QString, record);
    UnitHost host;
    RawNetwork link(host.address());
    QByteArray payload(10, '\0');
    payload[9] = static_cast<char>(choice);
    QCOMPARE(hex(link.exchange(requestBody(0xD6, payload, 0x80)).mid(3, 10)), record);
    QCOMPARE(hex(link.exchange(requestBody(0x56)).mid(3, 10)), record);
}

void TestWire::saveSetupIsEmpty()
{
    UnitHost host;
    RawNetwork link(host.address());
    const QJsonObject before = stateOf(host);
    link.exchange(requestBody(0xE5));
    QCOMPARE(stateOf(host), before);
}

void TestWire::secondClient()
{
    UnitHost host;
    RawNetwork first(host.address());
    RawNetwork second(host.address());
    first.exchange(requestBody(0xD1, bytes("0a0b")));
    QCOMPARE(hex(second.exchange(requestBody(0x51))), QStringLiteral("05 00 51 0a 0b 6b"));
    QCOMPARE(host.clientCount(), 2);
}

void TestWire::recordHoldsFramesInOrder()
{
    UnitHost host;
    RawNetwork link(host.address());
    link.exchange(requestBody(0x51));
    const qint64 betweenNs = standin::monotonicNs(); // the first frame is answered, and so noted
    QTest::qWait(50);
    link.exchange(requestBody(0xD2, bytes("e803010101")));
    const QVector<standin::FrameRecord> frames = host.record();
    QCOMPARE(frames.size(), 2);
    QCOMPARE(hex(frames[1].raw), QStringLiteral("00 0b 08 00 d2 e8 03 01 01 01 c8"));
    QCOMPARE(frames[1].reply, frames[1].raw);
    QCOMPARE(frames[1].describe(), QStringLiteral("SET_LEVELS black=1000 white=257 matte=1"));
    QVERIFY(frames[0].ns <= betweenNs && frames[1].ns - betweenNs >= 50000000);
    link.exchange(requestBody(0xD2, bytes("00000000"), 0x80));
    QCOMPARE(host.record().last().name(), QStringLiteral("RESET_LEVELS"));
    host.clearRecord();
    QCOMPARE(host.count(0xD2), 0);
    QVERIFY(host.record().isEmpty());
}

void TestWire::listening()
{
    UnitHost host;
    RawNetwork link(host.address());
    host.drop();
    QVERIFY(link.waitForEnd());
    RawNetwork again(host.address());
    QVERIFY(again.isUp());
    host.stopListening();
    QCOMPARE(again.exchange(requestBody(0x6F)).size(), 6); // who is there stays
    RawNetwork refused(host.address());
    QVERIFY(!refused.isUp());
    QVERIFY(host.listenAgain());
    RawNetwork welcome(host.address());
    QVERIFY(welcome.isUp());
}

QTEST_GUILESS_MAIN(TestWire)
#include "tst_wire.moc"
