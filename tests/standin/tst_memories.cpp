// Memories, the automatic key's chain, and what a state file keeps.

#include "tests/support/rawlink.h"
#include "tests/support/unithost.h"

#include <QtTest>

using support::RawNetwork;
using support::RawSerial;
using support::requestBody;
using support::UnitHost;

class TestMemories : public QObject
{
    Q_OBJECT

private slots:
    void eightMemories();
    void factory();
    void saveToFactoryChangesNothing();
    void noSuchMemory();
    void recallWithoutNumber();
    void recallBringsRoutingBack();
    void automaticKeyChain_data();
    void automaticKeyChain();
    void chainOverSerial();
    void plainColourHasNoChain();
    void stateAsJson();
};

namespace {

QString hex(const QByteArray &data)
{
    return QString::fromLatin1(data.toHex(' '));
}

QByteArray angle(int number)
{
    return QByteArray(1, static_cast<char>(number)) + QByteArray(1, static_cast<char>(100 + number));
}

QByteArray index(int number)
{
    return QByteArray(1, static_cast<char>(number));
}

} // namespace

void TestMemories::eightMemories()
{
    UnitHost host;
    RawNetwork link(host.address());
    for (int i = 1; i <= 8; ++i) {
        link.exchange(requestBody(0xD1, angle(i)));
        QCOMPARE(hex(link.exchange(requestBody(0xE4, index(i)))), hex(requestBody(0xE4, index(i))));
    }
    for (int i = 8; i >= 1; --i) {
        QCOMPARE(hex(link.exchange(requestBody(0x64, index(i)))), hex(requestBody(0x64, index(i))));
        QCOMPARE(hex(link.exchange(requestBody(0x51))), hex(requestBody(0x51, angle(i))));
    }
}

void TestMemories::factory()
{
    UnitHost host;
    RawNetwork link(host.address());
    link.exchange(requestBody(0xD1, angle(3)));
    link.exchange(requestBody(0xE4, index(3)));
    link.exchange(requestBody(0x64, index(0)));
    QCOMPARE(hex(link.exchange(requestBody(0x51))), QStringLiteral("05 00 51 2d 2d b0"));
    link.exchange(requestBody(0x64, index(3))); // the memories outlive a factory recall
    QCOMPARE(hex(link.exchange(requestBody(0x51))), hex(requestBody(0x51, angle(3))));
}

void TestMemories::saveToFactoryChangesNothing()
{
    UnitHost host;
    RawNetwork link(host.address());
    link.exchange(requestBody(0xD1, angle(3)));
    link.exchange(requestBody(0xE4, index(0)));
    link.exchange(requestBody(0x64, index(0)));
    QCOMPARE(hex(link.exchange(requestBody(0x51))), QStringLiteral("05 00 51 2d 2d b0"));
}

void TestMemories::noSuchMemory()
{
    UnitHost host;
    RawNetwork link(host.address());
    link.exchange(requestBody(0xD1, angle(3)));
    for (int number : {9, 255}) {
        link.exchange(requestBody(0xE4, index(number)));
        link.exchange(requestBody(0x64, index(number)));
        QCOMPARE(hex(link.exchange(requestBody(0x51))), hex(requestBody(0x51, angle(3))));
    }
}

void TestMemories::recallWithoutNumber()
{
    UnitHost host;
    RawNetwork link(host.address());
    link.exchange(requestBody(0xD1, angle(3)));
    QCOMPARE(hex(link.exchange(requestBody(0x64))), QStringLiteral("03 00 64 67"));
    QCOMPARE(hex(link.exchange(requestBody(0x51))), hex(requestBody(0x51, angle(3))));
}

void TestMemories::recallBringsRoutingBack()
{
    UnitHost host;
    RawNetwork link(host.address());
    const QByteArray routing = QByteArray::fromHex("010203040f09");
    const QByteArray inputs = QByteArray::fromHex("01020305010a00f6ff");
    const QByteArray standard = QByteArray::fromHex("030201");
    link.exchange(requestBody(0xE3, routing));
    link.exchange(requestBody(0xE1, inputs));
    link.exchange(requestBody(0xE0, standard));
    link.exchange(requestBody(0xE4, index(5)));
    link.exchange(requestBody(0x64, index(0)));
    QVERIFY(link.exchange(requestBody(0x63)).mid(3, 6) != routing);
    link.exchange(requestBody(0x64, index(5)));
    QCOMPARE(hex(link.exchange(requestBody(0x63)).mid(3, 6)), hex(routing));
    QCOMPARE(hex(link.exchange(requestBody(0x61)).mid(3, 9)), hex(inputs));
    QCOMPARE(hex(link.exchange(requestBody(0x60)).mid(3, 3)), hex(standard));
    QCOMPARE(int(link.exchange(requestBody(0x62)).at(7)), 1); // genlock locks again
}

void TestMemories::automaticKeyChain_data()
{
    QTest::addColumn<int>("mode");
    QTest::newRow("AutoDef") << 1;
    QTest::newRow("AutoBack") << 2;
}

void TestMemories::automaticKeyChain()
{
    QFETCH(int, mode);
    UnitHost host;
    RawNetwork link(host.address());
    link.exchange(requestBody(0xD1, angle(3)));
    const QByteArray sent = QByteArray(6, '\0') + index(mode);
    link.send(QByteArray::fromHex("000d") + requestBody(0xD0, sent));
    const QByteArray received = link.receive();
    QCOMPARE(received.size(), 110);
    QCOMPARE(hex(received.left(2)), QStringLiteral("00 6e"));
    const QByteArray chain = received.mid(2);

    const QByteArray colour = QByteArray::fromHex("b700e200c702") + index(mode);
    QByteArray expected = requestBody(0xD0, colour);
    for (int code : {0x50, 0x51, 0x52, 0x53, 0x54, 0x55, 0x56, 0x58, 0x59})
        expected += link.exchange(requestBody(code)); // each part is what a read gives now
    QCOMPARE(hex(chain), hex(expected));

    // The places where each record lies.
    QCOMPARE(hex(chain.mid(14, 7)), hex(colour));
    QCOMPARE(chain.mid(22, 3), QByteArray::fromHex("050051"));
    QCOMPARE(chain.mid(28, 3), QByteArray::fromHex("080052"));
    QCOMPARE(chain.mid(37, 3), QByteArray::fromHex("090053"));
    QCOMPARE(chain.mid(47, 3), QByteArray::fromHex("090054"));
    QCOMPARE(chain.mid(57, 3), QByteArray::fromHex("060055"));
    QCOMPARE(chain.mid(64, 3), QByteArray::fromHex("0d0056"));
    QCOMPARE(chain.mid(78, 3), QByteArray::fromHex("0c0058"));
    QCOMPARE(hex(chain.mid(25, 2)), mode == 1 ? QStringLiteral("2d 2d") : QStringLiteral("37 41"));
}

void TestMemories::chainOverSerial()
{
    UnitHost::Options options;
    options.serial = true;
    UnitHost host(options);
    RawSerial link(host.serialPortName());
    const QByteArray chain = link.exchange(requestBody(0xD0, QByteArray(6, '\0') + index(2)));
    QCOMPARE(chain.size(), 108);
    QCOMPARE(hex(chain.left(28)),
             QStringLiteral("0a 00 d0 b7 00 e2 00 c7 02 02 3e 0a 00 50 b7 00 e2 00 c7 02 02 be "
                            "05 00 51 37 41 ce"));
}

void TestMemories::plainColourHasNoChain()
{
    UnitHost host;
    RawNetwork link(host.address());
    const QByteArray colour = QByteArray::fromHex("120356039a0300");
    QCOMPARE(hex(link.exchange(requestBody(0xD0, colour))),
             QStringLiteral("0a 00 d0 12 03 56 03 9a 03 00 e5"));
    QCOMPARE(hex(link.exchange(requestBody(0x50)).mid(3, 7)), hex(colour));
    QCOMPARE(link.exchange(requestBody(0xD0, QByteArray::fromHex("12035603e70303"))).size(), 11);
}

void TestMemories::stateAsJson()
{
    standin::Unit first;
    first.setValue(standin::PostAmplifier, QStringLiteral("hue"), -10);
    first.setValue(standin::Angle, QStringLiteral("left"), 7);
    first.saveMemory(8);
    first.setValue(standin::Angle, QStringLiteral("left"), 9);

    standin::Unit second;
    second.fromJson(first.toJson());
    QCOMPARE(second.value(standin::Angle, QStringLiteral("left")), 9);
    second.recallMemory(8);
    QCOMPARE(second.value(standin::Angle, QStringLiteral("left")), 7);
    QCOMPARE(second.value(standin::PostAmplifier, QStringLiteral("hue")), -10);
    second.recallMemory(7);
    QCOMPARE(second.value(standin::Angle, QStringLiteral("left")), 45);

    second.fromJson({}); // an empty file changes nothing
    QCOMPARE(second.memoryData(8, standin::Angle), first.memoryData(8, standin::Angle));
}

QTEST_GUILESS_MAIN(TestMemories)
#include "tst_memories.moc"
