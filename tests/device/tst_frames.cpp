#include "device/qkv720commands.h"
#include "device/replybody.h"

#include <QtTest>

#include <limits>
#include <memory>

// The frame builder and the reply reader, without a unit.
class FramesTest : public QObject
{
    Q_OBJECT

private slots:
    void workedFrames_data();
    void workedFrames();
    void setIsGetPlus80();
    void unknownMethodGivesEmptyFrame();
    void onlyCountedBytesAreCopied();
    void commandAndExtAreCut();
    void frameLengthIsBigEndian();
    void checksumWrapsToZero();
    void payloadCutsToItsWidths();
    void replyReadsZeroPastTheEnd();
    void replyFlagTests_data();
    void replyFlagTests();
    void replyWords();
    void replyChecksum();

private:
    static QByteArray build(int command, int ext, int method, QByteArray payload)
    {
        const std::unique_ptr<QByteArray> frame(
            qkv720_DeviceControl(command, ext, method, payload.size(), &payload));
        return frame->toHex(' ').toUpper();
    }
};

void FramesTest::workedFrames_data()
{
    QTest::addColumn<int>("command");
    QTest::addColumn<int>("ext");
    QTest::addColumn<QByteArray>("payload");
    QTest::addColumn<QByteArray>("network");
    QTest::addColumn<QByteArray>("serial");

    QTest::newRow("version") << 0x6C << 0 << QByteArray() << QByteArray("00 06 03 00 6C 6F")
                             << QByteArray("03 00 6C 6F");
    QTest::newRow("device type") << 0x6F << 0 << QByteArray() << QByteArray("00 06 03 00 6F 72")
                                 << QByteArray("03 00 6F 72");
    QTest::newRow("routing") << 0x63 << 0 << QByteArray() << QByteArray("00 06 03 00 63 66")
                             << QByteArray("03 00 63 66");
    QTest::newRow("colour") << 0x50 << 0 << QByteArray() << QByteArray("00 06 03 00 50 53")
                            << QByteArray("03 00 50 53");
    QTest::newRow("angle") << 0xD1 << 0 << QByteArray::fromHex("3741")
                           << QByteArray("00 08 05 00 D1 37 41 4E") << QByteArray("05 00 D1 37 41 4E");
    QTest::newRow("angle reset") << 0xD1 << 0x80 << QByteArray::fromHex("0000")
                                 << QByteArray("00 08 05 80 D1 00 00 56") << QByteArray("05 80 D1 00 00 56");
    QTest::newRow("angle zero, no reset")
        << 0xD1 << 0 << QByteArray::fromHex("0000") << QByteArray("00 08 05 00 D1 00 00 D6")
        << QByteArray("05 00 D1 00 00 D6");
    QTest::newRow("recall") << 0x64 << 0 << QByteArray::fromHex("03") << QByteArray("00 07 04 00 64 03 6B")
                            << QByteArray("04 00 64 03 6B");
    QTest::newRow("setup") << 0xE5 << 0 << QByteArray() << QByteArray("00 06 03 00 E5 E8")
                           << QByteArray("03 00 E5 E8");
}

void FramesTest::workedFrames()
{
    QFETCH(int, command);
    QFETCH(int, ext);
    QFETCH(QByteArray, payload);
    QTEST(build(command, ext, 1, payload), "network");
    QTEST(build(command, ext, 2, payload), "serial");
}

void FramesTest::setIsGetPlus80()
{
    const QVector<QPair<int, int>> pairs = {
        {QKV720_GET_CK_BACKCOLOR_AUTOCK, QKV720_SET_CK_BACKCOLOR_AUTOCK},
        {QKV720_GET_CK_ANGLE_LR, QKV720_SET_CK_ANGLE_LR},
        {QKV720_GET_CK_BLACKLWHITELEVEL, QKV720_SET_CK_BLACKLWHITELEVEL},
        {QKV720_GET_DARK, QKV720_SET_DARK},
        {QKV720_GET_BRIGHT, QKV720_SET_BRIGHT},
        {QKV720_GET_SHADOW, QKV720_SET_SHADOW},
        {QKV720_GET_SPILL_BRIGHTNESS, QKV720_SET_SPILL_BRIGHTNESS},
        {QKV720_GET_EDGEFIX, QKV720_SET_EDGEFIX},
        {QKV720_GET_FG_POSTAMP, QKV720_SET_FG_POSTAMP},
        {QKV720_GET_FG_RGB_CORRECTOR, QKV720_SET_FG_RGB_CORRECTOR},
        {QKV720_GET_WINDOW, QKV720_SET_WINDOW},
        {QKV720_GET_BG_BLUR, QKV720_SET_BG_BLUR},
        {QKV720_GET_LUMAKEY, QKV720_SET_LUMAKEY},
        {QKV720_GET_CURSORPOSITION, QKV720_SET_CURSORPOSITION},
        {QKV720_GET_RESERVED01, QKV720_SET_RESERVED01},
        {QKV720_GET_HOLDOUTWINDOW, QKV720_SET_HOLDOUTWINDOW},
        {QKV720_GET_VIDEOOUT_RESOLUTION, QKV720_SET_VIDEOOUT_RESOLUTION},
        {QKV720_GET_FGBGAUX_INPUTSOURCE, QKV720_SET_FGBGAUX_INPUTSOURCE},
        {QKV720_GET_VIDEOIN_RESOLUTION, QKV720_SET_VIDEOIN_RESOLUTION},
        {QKV720_GET_PGMPVW_OUTPUT, QKV720_SET_PGMPVW_OUTPUT},
        {QKV720_GET_MEMORY, QKV720_SET_MEMORY},
    };
    // The first twenty-one codes run on without a gap from 0x50.
    int code = 0x50;
    for (const auto &pair : pairs) {
        QCOMPARE(pair.first, code++);
        QCOMPARE(pair.second, pair.first + 0x80);
    }
    QCOMPARE(int(QKV720_SAVESETUP), 0xE5);
    QCOMPARE(int(QKV720_GET_VERSION), 0x6C);
    QCOMPARE(int(QKV720_SET_VERSION), 0xEC);
    QCOMPARE(int(QKV720_GET_RESERVED03), 0x6D);
    QCOMPARE(int(QKV720_SET_RESERVED03), 0xED);
    QCOMPARE(int(QKV720_GET_RESERVED04), 0x6E);
    QCOMPARE(int(QKV720_SET_RESERVED04), 0xEE);
    QCOMPARE(int(QKV720_GET_DEVICETYPE), 0x6F);
    QCOMPARE(int(QKV720_SET_DEVICETYPE), 0xEF);
}

void FramesTest::unknownMethodGivesEmptyFrame()
{
    for (const int method : {0, 3, -1, 257})
        QCOMPARE(build(0x6C, 0, method, QByteArray::fromHex("010203")), QByteArray());
}

void FramesTest::onlyCountedBytesAreCopied()
{
    QByteArray buffer = QByteArray::fromHex("3741FFFF");
    const std::unique_ptr<QByteArray> two(qkv720_DeviceControl(0xD1, 0, 2, 2, &buffer));
    QCOMPARE(two->toHex(), QByteArray("0500d137414e"));
    const std::unique_ptr<QByteArray> none(qkv720_DeviceControl(0x6C, 0, 2, 0, &buffer));
    QCOMPARE(none->toHex(), QByteArray("03006c6f"));
    const std::unique_ptr<QByteArray> null(qkv720_DeviceControl(0x6C, 0, 1, 0, nullptr));
    QCOMPARE(null->toHex(), QByteArray("000603006c6f"));
    QCOMPARE(buffer.toHex(), QByteArray("3741ffff"));
}

void FramesTest::commandAndExtAreCut()
{
    QCOMPARE(build(0x16C, 0x100, 2, QByteArray()), QByteArray("03 00 6C 6F"));
    QCOMPARE(build(0xFFD1, 0x180, 2, QByteArray::fromHex("0000")), QByteArray("05 80 D1 00 00 56"));
}

void FramesTest::frameLengthIsBigEndian()
{
    QByteArray payload(252, '\1');
    const std::unique_ptr<QByteArray> frame(qkv720_DeviceControl(0xD0, 0, 1, payload.size(), &payload));
    QCOMPARE(frame->size(), 258);
    QCOMPARE(frame->left(5).toHex(' '), QByteArray("01 02 ff 00 d0"));
    QCOMPARE(int(uchar(frame->back())), (0xFF + 0xD0 + 252) % 256);
}

void FramesTest::checksumWrapsToZero()
{
    QCOMPARE(build(0xE0, 0, 1, QByteArray::fromHex("180101")), QByteArray("00 09 06 00 E0 18 01 01 00"));
    QCOMPARE(build(0xE0, 0, 2, QByteArray::fromHex("180101")), QByteArray("06 00 E0 18 01 01 00"));
}

void FramesTest::payloadCutsToItsWidths()
{
    const Payload payload =
        Payload().byte(300).le16(65536 + 0x1234).flag(true).flag(false).zeros(2).le16(static_cast<uint>(-2));
    QCOMPARE(payload.bytes().toHex(' '), QByteArray("2c 34 12 01 00 00 00 fe ff"));
}

void FramesTest::replyReadsZeroPastTheEnd()
{
    const ReplyBody reply(QByteArray::fromHex("0281"));
    for (const int position : {2, 3, 1000, -1, std::numeric_limits<int>::max() - 1}) {
        QCOMPARE(reply.byteAt(position), 0);
        QCOMPARE(reply.widenedAt(position), 0U);
        QCOMPARE(reply.unsignedAt(position), 0U);
        QVERIFY(!reply.bitAt(position, 0));
        QVERIFY(!reply.flagIsOne(position));
        QVERIFY(!reply.flagIsSet(position));
        QVERIFY(!reply.flagIsPositive(position));
    }
    QCOMPARE(reply.le16(1), quint16(0x81)); // the second byte is missing
    QCOMPARE(reply.le16(2), quint16(0));
    QCOMPARE(ReplyBody().byteAt(0), 0);
}

void FramesTest::replyFlagTests_data()
{
    QTest::addColumn<int>("value");
    QTest::addColumn<bool>("one");
    QTest::addColumn<bool>("set");
    QTest::addColumn<bool>("positive");
    QTest::addColumn<int>("widened");

    QTest::newRow("0x00") << 0x00 << false << false << false << 0;
    QTest::newRow("0x01") << 0x01 << true << true << true << 1;
    QTest::newRow("0x02") << 0x02 << false << true << true << 2;
    QTest::newRow("0x7F") << 0x7F << false << true << true << 127;
    QTest::newRow("0x80") << 0x80 << false << true << false << -128;
    QTest::newRow("0xFF") << 0xFF << false << true << false << -1;
}

void FramesTest::replyFlagTests()
{
    QFETCH(int, value);
    QFETCH(int, widened);
    const ReplyBody reply(QByteArray(1, static_cast<char>(value)));
    QTEST(reply.flagIsOne(0), "one");
    QTEST(reply.flagIsSet(0), "set");
    QTEST(reply.flagIsPositive(0), "positive");
    QCOMPARE(reply.byteAt(0), widened);
    QCOMPARE(reply.widenedAt(0), static_cast<uint>(widened));
    QCOMPARE(reply.unsignedAt(0), static_cast<uint>(value));
    for (int bit = 0; bit < 8; ++bit)
        QCOMPARE(reply.bitAt(0, bit), (value & (1 << bit)) != 0);
}

void FramesTest::replyWords()
{
    const ReplyBody reply(QByteArray::fromHex("0080FFFF7F00"));
    QCOMPARE(reply.le16(0), quint16(0x8000));
    QCOMPARE(reply.le16(1), quint16(0xFF80));
    QCOMPARE(reply.le16(2), quint16(0xFFFF));
    QCOMPARE(reply.le16(4), quint16(0x007F));
}

void FramesTest::replyChecksum()
{
    QVERIFY(ReplyBody(QByteArray::fromHex("0A00D0120356039A0300E5")).checksumMatches());
    QVERIFY(ReplyBody(QByteArray::fromHex("09005301C800E8036474")).checksumMatches());
    QVERIFY(!ReplyBody(QByteArray::fromHex("0A00D0120356039A0300E6")).checksumMatches());
    QVERIFY(!ReplyBody(QByteArray::fromHex("0A00D0120356039A0301E5")).checksumMatches());
    QVERIFY(ReplyBody(QByteArray::fromHex("80808000")).checksumMatches() == false);
    QVERIFY(ReplyBody(QByteArray::fromHex("8080000000")).checksumMatches());
}

QTEST_GUILESS_MAIN(FramesTest)
#include "tst_frames.moc"
