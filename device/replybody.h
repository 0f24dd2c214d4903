#pragma once

#include <QByteArray>

// A reply without the two leading length bytes that the network link puts in front, so that one layout serves
// both links:
//
//   0  body length     1  ext or status     2  command, echoed     3...  data     last  checksum
//
// A refusal of three bytes and a reply cut short by the link both reach the parsers. Every position past the
// end therefore reads as 0, and nothing outside the buffer is ever touched.
class ReplyBody
{
public:
    explicit ReplyBody(const QByteArray &bytes = QByteArray())
        : m_bytes(bytes)
    {
    }

    int size() const { return m_bytes.size(); }

    // The unit's single bytes are signed: 0x80 and above reach a field as a negative number.
    int byteAt(int position) const { return static_cast<signed char>(rawAt(position)); }

    // The same byte where the field is unsigned: the sign is widened with it, so 0x80 becomes a very large
    // number.
    uint widenedAt(int position) const { return static_cast<uint>(byteAt(position)); }

    uint unsignedAt(int position) const { return rawAt(position); }
    quint16 le16(int position) const
    {
        return static_cast<quint16>(unsignedAt(position) | (unsignedAt(position + 1) << 8U));
    }
    bool bitAt(int position, int bit) const { return ((unsignedAt(position) >> bit) & 1U) != 0; }

    // Three tests for a flag, which are not interchangeable: each record says which one it uses.
    bool flagIsOne(int position) const { return byteAt(position) == 1; }
    bool flagIsSet(int position) const { return byteAt(position) != 0; }
    bool flagIsPositive(int position) const { return byteAt(position) > 0; }

    // Whether the unit refused the frame: three bytes, the second of which says that it doesn't know the
    // command (0x81) or that the frame's sum was wrong (0x82). No operation looks: see docs/oddities.md.
    bool isRefusal() const
    {
        constexpr int kRefusalSize = 3;
        return size() == kRefusalSize && (unsignedAt(1) == 0x81 || unsignedAt(1) == 0x82);
    }

    // Whether the last byte is the sum of all before it, modulo 256.
    bool checksumMatches() const { return sumStandsAt(m_bytes.size() - 1); }

    // Whether it begins with a whole answer to `command`: its length, its sum and the code in it agree. What
    // follows, such as the chain of an automatic key, is not looked at.
    bool answers(int command) const
    {
        const int sumAt = static_cast<int>(unsignedAt(0));
        return sumAt >= 3 && sumAt < size() && sumStandsAt(sumAt)
            && unsignedAt(2) == static_cast<uint>(command);
    }

private:
    bool sumStandsAt(int end) const
    {
        uint sum = 0;
        for (int i = 0; i < end; ++i)
            sum += rawAt(i);
        return (sum & 0xFFU) == rawAt(end);
    }
    uchar rawAt(int position) const
    {
        if (position < 0 || position >= m_bytes.size())
            return 0;
        return static_cast<uchar>(m_bytes.at(position));
    }

    QByteArray m_bytes;
};
