#include "standin/framing.h"

namespace standin {

namespace {

constexpr int kShortestBody = 4; // body length, ext, code, sum
constexpr int kLengthBytes = 2;

int byteAt(const QByteArray &bytes, int at)
{
    return static_cast<quint8>(bytes.at(at));
}

} // namespace

QString linkName(LinkKind link)
{
    switch (link) {
    case LinkKind::Network:
        return QStringLiteral("network");
    case LinkKind::Serial:
        return QStringLiteral("serial");
    case LinkKind::Discovery:
        return QStringLiteral("discovery");
    }
    return {};
}

quint8 sumOf(const QByteArray &bytes)
{
    unsigned sum = 0;
    for (char c : bytes)
        sum += static_cast<quint8>(c);
    return static_cast<quint8>(sum & 0xFFU);
}

QByteArray makeBody(int ext, int code, const QByteArray &data)
{
    QByteArray body;
    body.append(static_cast<char>(3 + data.size()));
    body.append(static_cast<char>(ext));
    body.append(static_cast<char>(code));
    body.append(data);
    body.append(static_cast<char>(sumOf(body)));
    return body;
}

QByteArray makeRefusal(int status)
{
    QByteArray body;
    body.append(char(2));
    body.append(static_cast<char>(status));
    body.append(static_cast<char>(sumOf(body)));
    return body;
}

QByteArray onLink(LinkKind link, const QByteArray &body)
{
    if (link != LinkKind::Network)
        return body;
    const int length = body.size() + kLengthBytes;
    QByteArray bytes;
    bytes.append(static_cast<char>((length >> 8) & 0xFF));
    bytes.append(static_cast<char>(length & 0xFF));
    return bytes + body;
}

Frame parseFrame(LinkKind link, const QByteArray &raw)
{
    Frame frame;
    frame.raw = raw;
    const int lead = link == LinkKind::Network ? kLengthBytes : 0;
    const QByteArray body = raw.mid(lead);
    if (body.size() < kShortestBody)
        return frame;
    frame.wellFormed = byteAt(body, 0) == body.size() - 1;
    if (lead > 0 && byteAt(raw, 0) * 256 + byteAt(raw, 1) != raw.size())
        frame.wellFormed = false;
    frame.ext = byteAt(body, 1);
    frame.code = byteAt(body, 2);
    frame.payload = body.mid(3, body.size() - kShortestBody);
    frame.checksumGood = sumOf(body.left(body.size() - 1)) == static_cast<quint8>(body.back());
    return frame;
}

int StreamSplitter::frameLength() const
{
    if (link == LinkKind::Serial) {
        if (buffer.isEmpty())
            return 0;
        const int length = byteAt(buffer, 0) + 1;
        return length < kShortestBody ? -1 : length;
    }
    if (buffer.size() < kLengthBytes)
        return 0;
    const int length = byteAt(buffer, 0) * 256 + byteAt(buffer, 1);
    const bool possible = length >= kShortestBody + kLengthBytes && length <= 256 + kLengthBytes;
    return possible ? length : -1;
}

QVector<Frame> StreamSplitter::take(const QByteArray &bytes)
{
    buffer.append(bytes);
    QVector<Frame> frames;
    while (!buffer.isEmpty()) {
        const int length = frameLength();
        if (length < 0) {
            frames.append(giveUp());
            break;
        }
        if (length == 0 || buffer.size() < length)
            break;
        frames.append(parseFrame(link, buffer.left(length)));
        buffer.remove(0, length);
    }
    return frames;
}

Frame StreamSplitter::giveUp()
{
    Frame frame = parseFrame(link, buffer);
    frame.wellFormed = false;
    buffer.clear();
    return frame;
}

} // namespace standin
