// What the unit does by itself when it keys, how long it takes for it, and how the record tells what came.

#include "tests/support/rawlink.h"
#include "tests/support/unithost.h"

#include <QElapsedTimer>
#include <QJsonObject>
#include <QtTest>

using standin::FrameRecord;
using standin::LinkKind;
using standin::Response;
using standin::Unit;
using support::requestBody;

class TestKeying : public QObject
{
    Q_OBJECT

private slots:
    void plainColourMovesAngleAndLevels_data();
    void plainColourMovesAngleAndLevels();
    void plainColourLeavesTheRest();
    void anyColourStaysInRange();
    void bareUnitAnswersAtOnce();
    void automaticKeyTakesItsTime();
    void onlyAChangeOfFormatTakesTime();
    void lateComesOnTopOfTheUnitsOwnTime();
    void lengths_data();
    void lengths();
    void lengthsOfDatagrams_data();
    void lengthsOfDatagrams();
    void resetsTellWhatTheyRestored_data();
    void resetsTellWhatTheyRestored();
    void refusalsAreTold();
    void closeIsSilenceInDiscovery();
};

namespace {

QByteArray bytes(const char *hex)
{
    return QByteArray::fromHex(hex);
}

Response ask(Unit &unit, int code, const QByteArray &payload = {}, int ext = 0)
{
    return unit.handle(LinkKind::Serial,
                       standin::parseFrame(LinkKind::Serial, requestBody(code, payload, ext)));
}

int delayOf(const Response &response)
{
    return response.chunks.isEmpty() ? -1 : response.chunks.first().delayMs;
}

QByteArray colour(int red, int green, int blue, int mode = 0)
{
    QByteArray payload;
    for (int part : {red, green, blue}) {
        payload.append(static_cast<char>(part & 0xFF));
        payload.append(static_cast<char>(part >> 8));
    }
    payload.append(static_cast<char>(mode));
    return payload;
}

// "left right black white"
QString shape(const Unit &unit)
{
    return QStringLiteral("%1 %2 %3 %4")
        .arg(unit.value(standin::Angle, QStringLiteral("left")))
        .arg(unit.value(standin::Angle, QStringLiteral("right")))
        .arg(unit.value(standin::Levels, QStringLiteral("black")))
        .arg(unit.value(standin::Levels, QStringLiteral("white")));
}

} // namespace

void TestKeying::plainColourMovesAngleAndLevels_data()
{
    QTest::addColumn<QByteArray>("payload");
    QTest::addColumn<QString>("expected");
    QTest::newRow("the factory's blue") << colour(120, 180, 760) << "45 45 100 900";
    QTest::newRow("pure green") << colour(0, 1000, 0) << "63 63 0 1000";
    QTest::newRow("green with blue in it") << colour(0, 800, 400) << "48 58 55 945";
    QTest::newRow("a pale one") << colour(500, 600, 550) << "13 23 250 750";
    QTest::newRow("grey") << colour(500, 500, 500) << "45 45 100 900";
    QTest::newRow("mode 3 is no automatic key") << colour(0, 1000, 0, 3) << "63 63 0 1000";
}

void TestKeying::plainColourMovesAngleAndLevels()
{
    QFETCH(QByteArray, payload);
    QFETCH(QString, expected);
    Unit unit;
    unit.setValue(standin::Angle, QStringLiteral("left"), 1);
    unit.setValue(standin::Levels, QStringLiteral("white"), 2);
    ask(unit, 0xD0, payload);
    QCOMPARE(shape(unit), expected);
}

void TestKeying::plainColourLeavesTheRest()
{
    Unit unit;
    unit.setValue(standin::Levels, QStringLiteral("matte"), 1);
    unit.setValue(standin::Dark, QStringLiteral("level"), 7);
    const QByteArray spill = unit.data(standin::Spill);
    ask(unit, 0xD0, colour(0, 1000, 0));
    QCOMPARE(unit.value(standin::Levels, QStringLiteral("matte")), 1);
    QCOMPARE(unit.value(standin::Dark, QStringLiteral("level")), 7);
    QCOMPARE(unit.data(standin::Spill), spill);
    // A reset brings the colour back and nothing else: each function has a reset of its own.
    ask(unit, 0xD0, QByteArray(7, '\0'), 0x80);
    QCOMPARE(shape(unit), QStringLiteral("63 63 0 1000"));
}

void TestKeying::anyColourStaysInRange()
{
    Unit unit;
    const QVector<int> parts = {0, 1, 20, 333, 999, 1000, 1001, 32768, 65535};
    for (int red : parts) {
        for (int green : parts) {
            for (int blue : parts) {
                ask(unit, 0xD0, colour(red, green, blue));
                const QStringList values = shape(unit).split(QLatin1Char(' '));
                const bool good = values.at(0).toInt() <= 120 && values.at(1).toInt() <= 120
                    && values.at(2).toInt() < values.at(3).toInt() && values.at(3).toInt() <= 1000;
                QVERIFY2(good, qPrintable(shape(unit)));
            }
        }
    }
}

void TestKeying::bareUnitAnswersAtOnce()
{
    Unit unit;
    QCOMPARE(delayOf(ask(unit, 0xD0, colour(0, 0, 0, 2))), 0);
    QCOMPARE(delayOf(ask(unit, 0xE0, bytes("030201"))), 0);
}

void TestKeying::automaticKeyTakesItsTime()
{
    support::UnitHost host;
    host.withUnit([](Unit &unit) { unit.pace.automaticKeyMs = 300; });
    support::RawNetwork link(host.address());
    QElapsedTimer clock;
    clock.start();
    QCOMPARE(link.exchange(requestBody(0xD0, colour(0, 0, 0, 2))).size(), 108);
    QVERIFY2(clock.elapsed() >= 300, qPrintable(QString::number(clock.elapsed())));
    Unit unit;
    unit.pace.automaticKeyMs = 300;
    QCOMPARE(delayOf(ask(unit, 0xD0, colour(0, 0, 0, 1))), 300);
    QCOMPARE(delayOf(ask(unit, 0xD0, colour(0, 0, 0, 0))), 0);
    QCOMPARE(delayOf(ask(unit, 0x51)), 0);
}

void TestKeying::onlyAChangeOfFormatTakesTime()
{
    Unit unit;
    unit.pace.formatMs = 250;
    QCOMPARE(delayOf(ask(unit, 0xE0, bytes("030201"))), 250);
    QCOMPARE(delayOf(ask(unit, 0xE0, bytes("030201"))), 0); // as it is already
    QCOMPARE(delayOf(ask(unit, 0xE0, bytes("030200"))), 250);
    QCOMPARE(delayOf(ask(unit, 0x60)), 0);
    QCOMPARE(delayOf(ask(unit, 0xE1, bytes("010203000000000000"))), 0);
}

void TestKeying::lateComesOnTopOfTheUnitsOwnTime()
{
    Unit unit;
    unit.pace.formatMs = 250;
    unit.setFault(0xE0, standin::Fault::late(100, 1));
    QCOMPARE(delayOf(ask(unit, 0xE0, bytes("030201"))), 350);
    unit.setFault(0xE0, standin::Fault::split(2, 100, 1));
    const Response split = ask(unit, 0xE0, bytes("030202"));
    QCOMPARE(split.chunks.size(), 2);
    QCOMPARE(split.chunks.at(0).delayMs, 250);
    QCOMPARE(split.chunks.at(1).delayMs, 350);
    unit.setFault(0xE0, standin::Fault::refuse(0x81, 1)); // nothing is carried out, so nothing takes time
    QCOMPARE(delayOf(ask(unit, 0xE0, bytes("030203"))), 0);
}

void TestKeying::lengths_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<int>("ext");
    QTest::addColumn<QVector<int>>("known");
    const int reset = 0x80;
    using Sizes = QVector<int>;
    QTest::newRow("read") << 0x53 << 0 << Sizes{0};
    QTest::newRow("read of the cursor") << 0x5D << 0 << Sizes{0};
    QTest::newRow("recall") << 0x64 << 0 << Sizes{1};
    QTest::newRow("save") << 0xE4 << 0 << Sizes{1};
    QTest::newRow("save setup") << 0xE5 << 0 << Sizes{0};
    QTest::newRow("colour") << 0xD0 << 0 << Sizes{7};
    QTest::newRow("reset colour") << 0xD0 << reset << Sizes{7};
    QTest::newRow("angle") << 0xD1 << 0 << Sizes{2};
    QTest::newRow("levels") << 0xD2 << 0 << Sizes{5};
    QTest::newRow("reset levels") << 0xD2 << reset << Sizes{4};
    QTest::newRow("dark") << 0xD3 << 0 << Sizes{6};
    QTest::newRow("shadow") << 0xD5 << 0 << Sizes{3};
    QTest::newRow("spill") << 0xD6 << 0 << Sizes{10};
    QTest::newRow("reset spill") << 0xD6 << reset << Sizes{10};
    QTest::newRow("edge fix") << 0xD7 << 0 << Sizes{4};
    QTest::newRow("post amplifier") << 0xD8 << 0 << Sizes{9};
    QTest::newRow("corrector") << 0xD9 << 0 << Sizes{13};
    QTest::newRow("window") << 0xDA << 0 << Sizes{11};
    QTest::newRow("blur or aux mode") << 0xDB << 0 << Sizes{2, 3};
    QTest::newRow("reset blur") << 0xDB << reset << Sizes{2};
    QTest::newRow("luma key") << 0xDC << 0 << Sizes{10};
    QTest::newRow("reset luma key") << 0xDC << reset << Sizes{5};
    QTest::newRow("cursor") << 0xDD << 0 << Sizes{5};
    QTest::newRow("output standard") << 0xE0 << 0 << Sizes{3};
    QTest::newRow("inputs") << 0xE1 << 0 << Sizes{9};
    QTest::newRow("reset genlock") << 0xE1 << reset << Sizes{0};
    QTest::newRow("routing") << 0xE3 << 0 << Sizes{6};
}

void TestKeying::lengths()
{
    QFETCH(int, code);
    QFETCH(int, ext);
    QFETCH(QVector<int>, known);
    for (int size = 0; size < 20; ++size) {
        Unit unit;
        ask(unit, code, QByteArray(size, '\0'), ext);
        const FrameRecord frame = unit.record().first();
        const QString sentence = QStringLiteral("payload of %1 bytes where the wire format has ").arg(size);
        if (known.contains(size)) {
            QCOMPARE(frame.oddLength, QString());
            QVERIFY(!frame.toJson().contains(QStringLiteral("oddLength")));
        } else {
            QVERIFY2(frame.oddLength.startsWith(sentence), qPrintable(frame.oddLength));
            QVERIFY(frame.oddLength.endsWith(QString::number(known.last())));
            QVERIFY2(frame.describe().contains(QStringLiteral("(%1)").arg(frame.oddLength)),
                     qPrintable(frame.describe()));
            QCOMPARE(frame.toJson().value(QStringLiteral("oddLength")).toString(), frame.oddLength);
        }
    }
}

void TestKeying::lengthsOfDatagrams_data()
{
    QTest::addColumn<QByteArray>("datagram");
    QTest::addColumn<QString>("odd");
    const QString none;
    QTest::newRow("mask") << QByteArray(bytes("0013810b") + "SET_NETMASK" + bytes("ffffff00")) << none;
    QTest::newRow("short mask") << QByteArray(bytes("0012810b") + "SET_NETMASK" + bytes("ffffff"))
                                << "payload of 14 bytes where the wire format has 15";
    QTest::newRow("scan") << QByteArray(bytes("000b8000") + "ETH_REQ") << none;
    QTest::newRow("scan with more") << QByteArray(bytes("000c8000") + "ETH_REQ" + bytes("00"))
                                    << "payload of 8 bytes where the wire format has 7";
    QTest::newRow("restart") << QByteArray(bytes("000f80040050c2720001") + "RESET") << none;
    QTest::newRow("name") << QByteArray(bytes("00208109") + "SET_DHCPNAME" + QByteArray(16, 'x')) << none;
    // The length field of a name beyond ASCII lies, and is known to.
    QTest::newRow("long name") << QByteArray(bytes("00208109") + "SET_DHCPNAME" + QByteArray(20, 'x'))
                               << none;
}

void TestKeying::lengthsOfDatagrams()
{
    QFETCH(QByteArray, datagram);
    QFETCH(QString, odd);
    Unit unit;
    standin::DiscoveryLink link(unit);
    QVERIFY(!link.answer(datagram).bytes().isEmpty());
    QCOMPARE(unit.record().size(), 1);
    QCOMPARE(unit.record().first().oddLength, odd);
    QCOMPARE(unit.record().first().describe().contains(QStringLiteral("wire format")), !odd.isEmpty());
}

void TestKeying::resetsTellWhatTheyRestored_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<QByteArray>("payload");
    QTest::addColumn<QString>("told");
    QTest::newRow("angle") << 0xD1 << QByteArray(2, '\0') << "RESET_ANGLE restored left=45 right=45";
    QTest::newRow("levels") << 0xD2 << QByteArray(4, '\0')
                            << "RESET_LEVELS restored black=100 white=900 matte=0";
    QTest::newRow("spill") << 0xD6 << QByteArray(QByteArray(9, '\0') + '\2')
                           << "RESET_SPILL restored suppression=600 enhance=0 balance=650 brightness=373 "
                              "vivid=0 preset=2";
    QTest::newRow("genlock") << 0xE1 << QByteArray()
                             << "RESET_INPUT_SELECTION restored fg=0 bg=2 aux=3 freeze=0 genlock=0 h=0 v=0";
}

void TestKeying::resetsTellWhatTheyRestored()
{
    QFETCH(int, code);
    QFETCH(QByteArray, payload);
    QFETCH(QString, told);
    Unit unit;
    ask(unit, code, payload, 0x80);
    QCOMPARE(unit.record().first().describe(), told);
    QCOMPARE(unit.record().first().toJson().value(QStringLiteral("values")).toString(),
             told.section(QLatin1Char(' '), 1));
    unit.setFault(standin::resetCode(code), standin::Fault::refuse(0x81, 1));
    ask(unit, code, payload, 0x80);
    QCOMPARE(unit.record().last().describe(),
             told.section(QLatin1Char(' '), 0, 0) + QStringLiteral(" restored nothing (refused 81)"));
}

void TestKeying::refusalsAreTold()
{
    Unit unit;
    ask(unit, 0x65);
    QCOMPARE(unit.record().last().describe(), QStringLiteral("0x65 (refused 81)"));
    unit.handle(LinkKind::Network, standin::parseFrame(LinkKind::Network, bytes("000603006c70")));
    QCOMPARE(unit.record().last().describe(),
             QStringLiteral("GET_VERSION bad checksum 00 06 03 00 6c 70 (refused 82)"));
    standin::DiscoveryLink link(unit);
    unit.setFault(standin::discoveryCode(0), standin::Fault::refuse());
    link.answer(bytes("000b8000") + "ETH_REQ");
    QVERIFY(unit.record().last().describe().endsWith(QStringLiteral("(refused 15)")));
}

void TestKeying::closeIsSilenceInDiscovery()
{
    Unit unit;
    standin::DiscoveryLink link(unit);
    unit.setFault(standin::discoveryCode(standin::SetNetmask), standin::Fault::closeLink(1));
    const QByteArray mask = bytes("0013810b") + "SET_NETMASK" + bytes("ffff0000");
    QVERIFY(link.answer(mask).bytes().isEmpty());
    QCOMPARE(link.settings.mask.toString(), QStringLiteral("255.255.255.0")); // nothing was carried out
    QCOMPARE(link.answer(mask).bytes().toHex(), QByteArray("0005810b06"));
    QCOMPARE(link.settings.mask.toString(), QStringLiteral("255.255.0.0"));
}

QTEST_GUILESS_MAIN(TestKeying)
#include "tst_keying.moc"
