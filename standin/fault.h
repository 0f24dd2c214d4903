#pragma once

#include <QByteArray>
#include <QString>

namespace standin {

// What goes wrong with the answer to one command code. Lateness, silence, a cut, a gap, a wrong sum and an
// answer of one's own disturb the reply only: the unit has carried the command out. A refusal and a closed link
// leave the unit's state alone.
struct Fault
{
    enum class Kind { Late, Silent, Short, Split, WrongChecksum, Refuse, CloseLink, Answer };

    Kind kind = Kind::Silent;
    int milliseconds = 0; // Late: the delay. Split: the gap between the two parts.
    int bytes =
        0; // Short: what is left of the reply as it lies on the link. Split: length of the first part.
    int status = 0; // Refuse: 0x81 or 0x82; in discovery any status stands for a NACK.
    QByteArray body; // Answer: the reply body, checksum and all; the network link's length is put before it.
    int times = -1; // only the first n times, -1: until cleared

    static Fault late(int ms, int times = -1) { return make(Kind::Late, ms, 0, 0, times); }
    static Fault silent(int times = -1) { return make(Kind::Silent, 0, 0, 0, times); }
    static Fault shortened(int bytes, int times = -1) { return make(Kind::Short, 0, bytes, 0, times); }
    static Fault split(int firstBytes, int gapMs, int times = -1)
    {
        return make(Kind::Split, gapMs, firstBytes, 0, times);
    }
    static Fault wrongChecksum(int times = -1) { return make(Kind::WrongChecksum, 0, 0, 0, times); }
    static Fault refuse(int status = 0x81, int times = -1) { return make(Kind::Refuse, 0, 0, status, times); }
    static Fault closeLink(int times = -1) { return make(Kind::CloseLink, 0, 0, 0, times); }
    static Fault answer(const QByteArray &body, int times = -1)
    {
        Fault fault = make(Kind::Answer, 0, 0, 0, times);
        fault.body = body;
        return fault;
    }

private:
    static Fault make(Kind kind, int ms, int bytes, int status, int times)
    {
        Fault fault;
        fault.kind = kind;
        fault.milliseconds = ms;
        fault.bytes = bytes;
        fault.status = status;
        fault.times = times;
        return fault;
    }
};

// The key of a fault that meets every command code; a fault of the code itself goes first.
constexpr int AnyCode = -1;

// A reset travels under the code of its SET; a fault of the reset alone goes before one of the code.
constexpr int resetCode(int code)
{
    return 0x200 + code;
}

// Discovery has codes of its own that overlap those of the control link: faults and counters know them by this.
constexpr int discoveryCode(int code)
{
    return 0x100 + code;
}

} // namespace standin
