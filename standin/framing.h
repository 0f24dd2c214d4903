#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

namespace standin {

// Frame on the network link     [length hi][length lo][body length][ext][code][payload ...][sum]
// Frame on the serial link                            [body length][ext][code][payload ...][sum]
// The length counts the whole frame, the body length what follows it; the sum runs from the body length on.
// Replies have the same form; the unit's refusal is the three bytes 02 81 83 (code unknown) or 02 82 84 (bad sum).

enum class LinkKind { Network, Serial, Discovery };

QString linkName(LinkKind link);

struct Frame
{
    QByteArray raw; // as received, with the length bytes on the network link
    bool wellFormed = false; // lengths agree
    bool checksumGood = false;
    int ext = 0;
    int code = 0;
    QByteArray payload;
};

// Sum of all bytes modulo 256.
quint8 sumOf(const QByteArray &bytes);
// A whole reply body: length, status, code, data and sum.
QByteArray makeBody(int ext, int code, const QByteArray &data);
// The three-byte refusal.
QByteArray makeRefusal(int status);
// Puts a body, or a chain of them, on a link.
QByteArray onLink(LinkKind link, const QByteArray &body);
// Takes one frame apart; the raw bytes are kept whatever they are.
Frame parseFrame(LinkKind link, const QByteArray &raw);

// Cuts a stream of bytes into frames. Bytes that can start no frame come out as one malformed frame.
class StreamSplitter
{
public:
    explicit StreamSplitter(LinkKind kind)
        : link(kind)
    {
    }

    QVector<Frame> take(const QByteArray &bytes);
    bool hasRemains() const { return !buffer.isEmpty(); }
    // What lies there too long to become a frame.
    Frame giveUp();

private:
    int frameLength() const; // 0: not known yet, -1: no frame can start so

    LinkKind link;
    QByteArray buffer;
};

} // namespace standin
