#include "device/qkv720.h"

#include "device/functions.h"

#include <QDebug>

// The cursor, the key's background colour and the automatic key.

namespace {
constexpr int kCursorReplySize = 15;
constexpr int kReplyFrame = 4; // what a reply holds beside its data: length, ext, command, checksum

bool isAutoKey(uint autoCK)
{
    return autoCK == 1 || autoCK == 2;
}
} // namespace

// ---- Cursor ----------------------------------------------------------------------------------------------------

void qkv720::takeCursorColor(const ReplyBody &reply)
{
    functions::cursor.take(*this, reply, kReplyData);
    qDebug() << "SET Cursor assembled:" << tempR << tempG << tempB;
}

qkv720_cursor qkv720::setCursor(uint method, uint cursor_control, uint x, uint y)
{
    qkv720_cursor cursor;
    if (!linkReady(method))
        return cursor;
    const auto reply = exchangeOfAnyLength(
        method, {functions::cursor.setCode(), Payload().byte(cursor_control).le16(x).le16(y)},
        method == kNetworkLink ? kNetworkCursorLadder : kStandardLadder);
    if (!reply || reply->size() == 0)
        return cursor;
    if (reply->size() != kCursorReplySize) {
        qDebug() << "SET Cursor Command Return length wrong!";
        cursor.xy = QPoint(int(x), int(y));
        return cursor;
    }
    takeCursorColor(*reply);
    return cursor; // still zero: the sample is in tempR, tempG and tempB
}

qkv720_cursor qkv720::getCursor(uint method)
{
    constexpr int kTooShort = 8;
    const auto reply = exchange(method, {functions::cursor.getCode});
    if (!reply || reply->size() <= kTooShort)
        return {};
    qDebug() << "RH:" << reply->unsignedAt(8) << reply->unsignedAt(9);
    qDebug() << "GH:" << reply->unsignedAt(10) << reply->unsignedAt(11);
    qDebug() << "BH:" << reply->unsignedAt(12) << reply->unsignedAt(13);
    takeCursorColor(*reply);
    qDebug() << "GET Cursor" << tempR << tempG << tempB;
    return {};
}

// ---- Background colour and automatic key -----------------------------------------------------------------------

void qkv720::rememberBackColor()
{
    tempR = ckBackColor.r;
    tempG = ckBackColor.g;
    tempB = ckBackColor.b;
}

qkv720_color qkv720::getBackColor(uint method)
{
    if (!readFunction(method, functions::backColour))
        return {};
    rememberBackColor();
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
    // The mode goes out as it was asked for; the field keeps what the unit last reported.
    Payload payload = functions::backColour.payload(*this);
    payload.put(functions::backColour.field("auto")->at, autoCK);

    std::optional<ReplyBody> reply;
    if (method == kNetworkLink)
        reply = keyColorNetwork(payload);
    else if (method == kSerialLink && isAutoKey(autoCK))
        reply = autoKeySerial(payload);
    else
        reply = exchange(method, {functions::backColour.setCode(), payload});

    if (reply && isAutoKey(autoCK))
        takeAutoKeyChain(*reply);
}

std::optional<ReplyBody> qkv720::keyColorNetwork(const Payload &payload)
{
    if (!linkReady(kNetworkLink))
        return std::nullopt;
    return exchangeOfAnyLength(kNetworkLink, {functions::backColour.setCode(), payload},
                               kNetworkKeyColorLadder, "CK HLNP result");
}

// One long wait and no check of the reply: the unit answers with a chain of replies in one go, over which no
// checksum comes out, and a chain that is cut short is taken as far as it goes.
std::optional<ReplyBody> qkv720::autoKeySerial(const Payload &payload)
{
    qDebug() << "Do Auto must wait longer";
    noteAnswer(ReplyBody(), functions::backColour.setCode());
    QByteArray frame = frameOf({functions::backColour.setCode(), payload}, kSerialLink);
    QByteArray received;
    if (askSerial(frame, kSerialAutoKeyMs, received) <= 0)
        return std::nullopt;
    qDebug() << "[qkv720:: serialIO] Serial Read: " << received.size();
    const ReplyBody chain(received);
    noteAnswer(chain, functions::backColour.setCode());
    return chain;
}

// The chain holds the echo of the command and then the records of seven get replies, each behind a head of
// three bytes and before a checksum. Edge fix is not among them, and what follows the spill record is
// ignored.
void qkv720::takeAutoKeyChain(const ReplyBody &chain)
{
    const UnitFunction *const links[] = {&functions::backColour, &functions::angle,  &functions::levels,
                                         &functions::dark,       &functions::bright, &functions::shadow,
                                         &functions::spill};
    int at = functions::backColour.dataBytes + kReplyFrame + kReplyData; // behind the echo
    for (const UnitFunction *function : links) {
        function->take(*this, chain, at);
        at += function->dataBytes + kReplyFrame;
    }
    rememberBackColor();
    qDebug() << "Auto BACK COLOR" << static_cast<int>(ckBackColor.autoCk) << chain.size();
}

void qkv720::resetBackColor(uint method)
{
    if (restoreFunction(method, functions::backColour))
        rememberBackColor();
}
