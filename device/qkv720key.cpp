#include "device/qkv720.h"

#include <QDebug>
#include <QThread>

#include <memory>

// Cursor, key colour, key shaping, edge fix and spill. Records, with payload positions from 0 and reply
// positions from 3 in the same order:
//
//   cursor      payload: control, x (2), y (2)       reply: 8-9 red, 10-11 green, 12-13 blue, 15 bytes in all
//   colour      red (2), green (2), blue (2), automatic mode
//   angle       left, right
//   levels      black (2), white (2), matte on when greater than 0
//   dark        on when 1, level (2), density (2), balance        bright: the same
//   shadow      on when 1, level (2)
//   edge fix    on when 1, shrink left, shrink right, soft edge
//   spill       suppression (2), enhance (2), balance (2), brightness (2), vivid on when not 0, default byte

namespace {
constexpr int kCursorReplySize = 15;
constexpr unsigned long kSerialAutoKeyMs = 3000;
constexpr quint16 kColorUnderCursor = 999;

bool isAutoKey(uint autoCK)
{
    return autoCK == 1 || autoCK == 2;
}

Payload stagePayload(bool enable, uint level, uint density, uint balance)
{
    return Payload().flag(enable).le16(level).le16(density).byte(balance);
}
} // namespace

// ---- Cursor ----------------------------------------------------------------------------------------------------

void qkv720::takeCursorColor(const ReplyBody &reply, int at)
{
    tempR = reply.le16(at);
    tempG = reply.le16(at + 2);
    tempB = reply.le16(at + 4);
    qDebug() << "SET Cursor assembled:" << tempR << tempG << tempB;
}

qkv720_cursor qkv720::setCursor(uint method, uint cursor_control, uint x, uint y)
{
    qkv720_cursor cursor;
    if (!linkReady(method))
        return cursor;
    const auto reply =
        attempt(method, QKV720_SET_CURSORPOSITION, Payload().byte(cursor_control).le16(x).le16(y), kOrdinary,
                method == kNetworkLink ? kNetworkCursorLadder : kStandardLadder);
    if (!reply || reply->size() == 0)
        return cursor;
    if (reply->size() != kCursorReplySize) {
        qDebug() << "SET Cursor Command Return length wrong!";
        cursor.xy = QPoint(int(x), int(y));
        return cursor;
    }
    takeCursorColor(*reply, 8);
    return cursor; // still zero: the sample is in tempR, tempG and tempB
}

qkv720_cursor qkv720::getCursor(uint method)
{
    constexpr int kTooShort = 8;
    const auto reply = exchange(method, QKV720_GET_CURSORPOSITION);
    if (!reply || reply->size() <= kTooShort)
        return {};
    qDebug() << "RH:" << reply->unsignedAt(8) << reply->unsignedAt(9);
    qDebug() << "GH:" << reply->unsignedAt(10) << reply->unsignedAt(11);
    qDebug() << "BH:" << reply->unsignedAt(12) << reply->unsignedAt(13);
    takeCursorColor(*reply, 8);
    qDebug() << "GET Cursor" << tempR << tempG << tempB;
    return {};
}

// ---- Background colour and automatic key -----------------------------------------------------------------------

void qkv720::takeBackColor(const ReplyBody &reply, int at)
{
    ckBackColor.r = reply.le16(at);
    ckBackColor.g = reply.le16(at + 2);
    ckBackColor.b = reply.le16(at + 4);
    ckBackColor.autoCk = reply.widenedAt(at + 6);
    tempR = ckBackColor.r;
    tempG = ckBackColor.g;
    tempB = ckBackColor.b;
}

qkv720_color qkv720::getBackColor(uint method)
{
    const auto reply = exchange(method, QKV720_GET_CK_BACKCOLOR_AUTOCK);
    if (!reply)
        return {};
    takeBackColor(*reply, 3);
    return ckBackColor;
}

void qkv720::setBackColor(uint method, quint16 r, quint16 g, quint16 b, uint autoCK)
{
    if (r == kColorUnderCursor && g == kColorUnderCursor && b == kColorUnderCursor) {
        ckBackColor.r = tempR;
        ckBackColor.g = tempG;
        ckBackColor.b = tempB;
        qDebug() << "Set RGB from SetCursor Color" << tempR << tempG << tempB;
    } else {
        ckBackColor.r = r;
        ckBackColor.g = g;
        ckBackColor.b = b;
        qDebug() << "Set RGB from string" << r << g << b;
    }
    const Payload payload =
        Payload().le16(ckBackColor.r).le16(ckBackColor.g).le16(ckBackColor.b).byte(autoCK);

    std::optional<ReplyBody> reply;
    if (method == kNetworkLink)
        reply = keyColorNetwork(payload);
    else if (method == kSerialLink && isAutoKey(autoCK))
        reply = autoKeySerial(payload);
    else
        reply = exchange(method, QKV720_SET_CK_BACKCOLOR_AUTOCK, payload);

    if (reply && isAutoKey(autoCK))
        takeAutoKeyChain(*reply);
}

std::optional<ReplyBody> qkv720::keyColorNetwork(const Payload &payload)
{
    if (!checkConnection())
        return std::nullopt;
    return attempt(kNetworkLink, QKV720_SET_CK_BACKCOLOR_AUTOCK, payload, kOrdinary, kNetworkKeyColorLadder,
                   "CK HLNP result");
}

// One long wait and no check of the reply: the unit answers with a chain of replies in one go, over which no
// checksum comes out, and a chain that is cut short is taken as far as it goes.
std::optional<ReplyBody> qkv720::autoKeySerial(const Payload &payload)
{
    qDebug() << "Do Auto must wait longer";
    QByteArray data = payload.bytes();
    const std::unique_ptr<QByteArray> frame(qkv720_DeviceControl(QKV720_SET_CK_BACKCOLOR_AUTOCK, kOrdinary,
                                                                 int(kSerialLink), data.size(), &data));
    if (writeSerial(*frame) <= 0)
        return std::nullopt;
    QThread::msleep(kSerialAutoKeyMs);
    QByteArray received;
    serialObj->readData(received);
    qDebug() << "[qkv720:: serialIO] Serial Read: " << received.size();
    return ReplyBody(received);
}

// The chain holds the echo of the command and then the records of seven get replies, each behind a head of three
// bytes and before a checksum. Edge fix is not among them, and what follows the spill record is ignored.
void qkv720::takeAutoKeyChain(const ReplyBody &chain)
{
    takeBackColor(chain, 14);
    takeCKAngle(chain, 25);
    takeCKBWLevel(chain, 31);
    takeStage(ckDark, chain, 40);
    takeStage(ckBright, chain, 50);
    takeCKShadow(chain, 60);
    takeCKSpillBright(chain, 67);
    qDebug() << "Auto BACK COLOR" << chain.byteAt(20) << chain.size();
}

void qkv720::resetBackColor(uint method)
{
    if (const auto reply =
            exchange(method, QKV720_SET_CK_BACKCOLOR_AUTOCK, Payload().zeros(7), kRestoreDefaults))
        takeBackColor(*reply, 3);
}

// ---- Key angle -------------------------------------------------------------------------------------------------

void qkv720::takeCKAngle(const ReplyBody &reply, int at)
{
    ckAngleL = reply.widenedAt(at);
    ckAngleR = reply.widenedAt(at + 1);
}

void qkv720::getCKAngle(uint method, uint *l, uint *r)
{
    const auto reply = exchange(method, QKV720_GET_CK_ANGLE_LR);
    if (!reply)
        return;
    takeCKAngle(*reply, 3);
    *l = ckAngleL;
    *r = ckAngleR;
    qDebug() << "Get CKAngle:" << ckAngleL << ckAngleR;
}

void qkv720::setCKAngle(uint method, uint l, uint r)
{
    qDebug() << "QKV720 setCKAngle:" << l << r;
    ckAngleL = l;
    ckAngleR = r;
    exchange(method, QKV720_SET_CK_ANGLE_LR, Payload().byte(l).byte(r));
}

void qkv720::resetCKAngle(uint method)
{
    const auto reply = exchange(method, QKV720_SET_CK_ANGLE_LR, Payload().zeros(2), kRestoreDefaults);
    if (!reply)
        return;
    qDebug() << "Reset and Refresh Angle: " << ckAngleL << ckAngleR;
    takeCKAngle(*reply, 3);
}

// ---- Black and white level -------------------------------------------------------------------------------------

void qkv720::takeCKBWLevel(const ReplyBody &reply, int at)
{
    ckBlackLevel = reply.le16(at);
    ckWhiteLevel = reply.le16(at + 2);
    matteEnable = reply.flagIsPositive(at + 4);
}

void qkv720::getCKBWLevel(uint method, uint *b, uint *w, bool *m)
{
    const auto reply = exchange(method, QKV720_GET_CK_BLACKLWHITELEVEL);
    if (!reply)
        return;
    takeCKBWLevel(*reply, 3);
    *b = ckBlackLevel;
    *w = ckWhiteLevel;
    *m = matteEnable;
}

void qkv720::setCKBWLevel(uint method, uint black, uint white, bool matteOn)
{
    ckBlackLevel = black;
    ckWhiteLevel = white;
    matteEnable = matteOn;
    exchange(method, QKV720_SET_CK_BLACKLWHITELEVEL, Payload().le16(black).le16(white).flag(matteOn));
}

void qkv720::resetCKBWLevel(uint method)
{
    // Four zeros, one fewer than the set sends: the unit wants no byte for the matte flag here, yet answers
    // with it.
    if (const auto reply =
            exchange(method, QKV720_SET_CK_BLACKLWHITELEVEL, Payload().zeros(4), kRestoreDefaults))
        takeCKBWLevel(*reply, 3);
}

// ---- Dark, bright and shadow -----------------------------------------------------------------------------------

void qkv720::takeStage(qkv720_enhancement &stage, const ReplyBody &reply, int at)
{
    stage.enable = reply.flagIsOne(at);
    stage.level = reply.le16(at + 1);
    stage.density = reply.le16(at + 3);
    stage.balance = static_cast<qint8>(reply.byteAt(at + 5));
}

void qkv720::storeStage(qkv720_enhancement &stage, bool enable, uint level, uint density, uint balance)
{
    stage.enable = enable;
    stage.level = static_cast<quint16>(level);
    stage.density = static_cast<quint16>(density);
    stage.balance = static_cast<qint8>(balance);
}

void qkv720::getCKDark(uint method, bool *enable, uint *level, uint *density, uint *balance)
{
    const auto reply = exchange(method, QKV720_GET_DARK);
    if (!reply)
        return;
    takeStage(ckDark, *reply, 3);
    *enable = ckDark.enable;
    *level = ckDark.level;
    *density = ckDark.density;
    *balance = static_cast<uint>(int{ckDark.balance}); // widened with its sign
}

void qkv720::setCKDark(uint method, bool enable, uint level, uint density, uint balance)
{
    storeStage(ckDark, enable, level, density, balance);
    exchange(method, QKV720_SET_DARK, stagePayload(enable, level, density, balance));
}

void qkv720::resetCKDark(uint method)
{
    if (const auto reply = exchange(method, QKV720_SET_DARK, Payload().zeros(6), kRestoreDefaults))
        takeStage(ckDark, *reply, 3);
}

void qkv720::getCKBright(uint method)
{
    if (const auto reply = exchange(method, QKV720_GET_BRIGHT))
        takeStage(ckBright, *reply, 3);
}

void qkv720::setCKBright(uint method, bool enable, uint level, uint density, uint balance)
{
    storeStage(ckBright, enable, level, density, balance);
    exchange(method, QKV720_SET_BRIGHT, stagePayload(enable, level, density, balance));
}

void qkv720::resetCKBright(uint method)
{
    if (const auto reply = exchange(method, QKV720_SET_BRIGHT, Payload().zeros(6), kRestoreDefaults))
        takeStage(ckBright, *reply, 3);
}

void qkv720::takeCKShadow(const ReplyBody &reply, int at)
{
    ckShadow.enable = reply.flagIsOne(at);
    ckShadow.level = reply.le16(at + 1);
}

void qkv720::getCKShadow(uint method)
{
    if (const auto reply = exchange(method, QKV720_GET_SHADOW))
        takeCKShadow(*reply, 3);
}

void qkv720::setCKShadow(uint method, bool enable, uint level)
{
    ckShadow.enable = enable;
    ckShadow.level = static_cast<quint16>(level);
    exchange(method, QKV720_SET_SHADOW, Payload().flag(enable).le16(level));
}

void qkv720::resetCKShadow(uint method)
{
    if (const auto reply = exchange(method, QKV720_SET_SHADOW, Payload().zeros(3), kRestoreDefaults))
        takeCKShadow(*reply, 3);
}

// ---- Edge fix --------------------------------------------------------------------------------------------------

void qkv720::takeEdgeFix(const ReplyBody &reply, int at)
{
    edgeFixEnable = reply.flagIsOne(at);
    edge_ShrinkLeft = reply.widenedAt(at + 1);
    edge_ShrinkRight = reply.widenedAt(at + 2);
    edge_SoftEdge = reply.widenedAt(at + 3);
}

void qkv720::getEdgeFix(uint method)
{
    if (const auto reply = exchange(method, QKV720_GET_EDGEFIX))
        takeEdgeFix(*reply, 3);
}

void qkv720::setEdgeFix(uint method, bool enable, uint left, uint right, uint edge)
{
    edgeFixEnable = enable;
    edge_ShrinkLeft = left;
    edge_ShrinkRight = right;
    edge_SoftEdge = edge;
    exchange(method, QKV720_SET_EDGEFIX, Payload().flag(enable).byte(left).byte(right).byte(edge));
}

void qkv720::resetEdgeFix(uint method)
{
    if (const auto reply = exchange(method, QKV720_SET_EDGEFIX, Payload().zeros(4), kRestoreDefaults))
        takeEdgeFix(*reply, 3);
}

// ---- Spill -----------------------------------------------------------------------------------------------------

void qkv720::takeCKSpillBright(const ReplyBody &reply, int at)
{
    spillSuppression = reply.le16(at);
    spillEnhance = reply.le16(at + 2);
    spillBalance = reply.le16(at + 4);
    spillBrightness = reply.le16(at + 6);
    spillVivid = reply.flagIsSet(at + 8);
    spillDefaultValue = reply.widenedAt(at + 9);
}

void qkv720::getCKSpillBright(uint method)
{
    qDebug() << "getCKSpillBright";
    if (const auto reply = exchange(method, QKV720_GET_SPILL_BRIGHTNESS))
        takeCKSpillBright(*reply, 3);
}

void qkv720::setCKSpillBright(uint method, uint suppression, uint enhance, uint balance, uint brightness,
                              uint vivid, uint defaultValue)
{
    qDebug() << "setCKSpillBright" << suppression << enhance << balance << brightness << vivid
             << defaultValue;
    spillSuppression = suppression;
    spillEnhance = enhance;
    spillBalance = balance;
    spillBrightness = brightness;
    spillVivid = vivid != 0;
    spillDefaultValue = defaultValue;
    exchange(method, QKV720_SET_SPILL_BRIGHTNESS,
             Payload()
                 .le16(suppression)
                 .le16(enhance)
                 .le16(balance)
                 .le16(brightness)
                 .byte(vivid)
                 .byte(defaultValue));
}

void qkv720::resetCKSpillBright(uint method, uint spillDefault, bool spiSupEnhance)
{
    qDebug() << "resetCKSpillBright";
    constexpr uint kHighPreset = 2;
    constexpr uint kEnhanceOption = 0x08;
    // An unknown preset asks for the low one, and then the option is dropped as well.
    uint defaultByte = 0;
    if (spillDefault <= kHighPreset)
        defaultByte = spillDefault | (spiSupEnhance ? kEnhanceOption : 0U);
    if (const auto reply = exchange(method, QKV720_SET_SPILL_BRIGHTNESS, Payload().zeros(9).byte(defaultByte),
                                    kRestoreDefaults))
        takeCKSpillBright(*reply, 3);
}
