#pragma once

#include "device/qkv720.h"

#include <QByteArray>
#include <QVector>

// The functions of the unit: what each is called, which command reaches it, and where its values lie. A
// record is laid out here and nowhere else: the same rows read a reply, the automatic key's chain and the
// answer to a reset, and form the payload of a set.

// How a value lies in its record.
enum class FieldKind {
    Byte, // signed: from 0x80 up it reaches an unsigned field as a very large number
    Word, // two bytes, low byte first, without a sign
    SignedWord, // the same with a sign
    // Sent as 1 or 0; the three are read differently, and that difference is the unit's.
    FlagIsOne, // on when 1
    FlagIsSet, // on when not 0
    FlagIsPositive, // on when greater than 0 as a signed byte
    // One bit of a byte that several fields share.
    Bit0,
    Bit1,
    Bit2,
    Bit3,
};

// One value of a function.
struct UnitField
{
    // As docs/protocol.md and the stand-in call it; a byte of flags, which has one name there, is a field for
    // each flag.
    const char *name;
    int at; // its place among the data bytes; three more in a reply
    FieldKind kind;
    int least; // what the panel's controls offer; nothing here tests it
    int most;
    const char *unit; // what the number counts; empty for a plain number
    const char *const *words; // when not null, words[i] names the value least + i
    qint64 (*read)(const qkv720 &unit);
    void (*write)(qkv720 &unit, qint64 value); // cut to the width of the public field
};

// The rows of one function, in the order in which they travel.
struct FieldRows
{
    template <int Count>
    constexpr FieldRows(const UnitField (&rows)[Count])
        : first(rows)
        , count(Count)
    {
    }
    const UnitField *begin() const { return first; }
    const UnitField *end() const { return first + count; }

    const UnitField *first;
    int count;
};

// A function of the unit. Its SET code is the GET code + 0x80.
struct UnitFunction
{
    using Operation = void (*)(qkv720 &unit, uint method);

    const char *name;
    int getCode;
    int dataBytes; // of a reply's data and of a set's payload
    int resetBytes; // the zeros that a reset sends
    FieldRows fields;
    // The operations of class qkv720: read into the fields, send the fields as they stand, restore the
    // defaults. Null where the unit has no such operation. A get may read more than this function.
    Operation get;
    Operation set;
    Operation reset;

    int setCode() const { return getCode + 0x80; }
    // The data bytes for the fields as they stand.
    Payload payload(const qkv720 &unit) const;
    // The row of that name; null when there is none.
    const UnitField *field(const char *wanted) const;
    // Takes the record that begins at `at` into the fields.
    void take(qkv720 &unit, const ReplyBody &reply, int at) const;
};

// Where a reply's data begins: behind body length, ext and command.
constexpr int kReplyData = 3;

namespace functions {

extern const UnitFunction backColour;
extern const UnitFunction angle;
extern const UnitFunction levels;
extern const UnitFunction dark;
extern const UnitFunction bright;
extern const UnitFunction shadow;
extern const UnitFunction spill;
extern const UnitFunction edgeFix;
extern const UnitFunction postAmplifier;
extern const UnitFunction rgbCorrector;
extern const UnitFunction garbageMask;
extern const UnitFunction backgroundBlur;
extern const UnitFunction auxMode;
extern const UnitFunction lumaKey;
extern const UnitFunction cursor;
extern const UnitFunction holdoutWindow;
extern const UnitFunction outputStandard;
extern const UnitFunction inputSelection;
extern const UnitFunction inputStandard;
extern const UnitFunction outputRouting;

// All of them in the order of their codes, but for the aux mode, whose two bytes are the first two of the
// blur.
const QVector<const UnitFunction *> &all();

} // namespace functions
