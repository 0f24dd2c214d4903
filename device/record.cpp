#include "device/functions.h"

// How the rows of a function turn into bytes and back.

namespace {

int bitOf(FieldKind kind)
{
    return static_cast<int>(kind) - static_cast<int>(FieldKind::Bit0);
}

int readValue(const ReplyBody &reply, int at, FieldKind kind)
{
    switch (kind) {
    case FieldKind::Byte:
        return reply.byteAt(at);
    case FieldKind::Word:
        return reply.le16(at);
    case FieldKind::SignedWord:
        return static_cast<qint16>(reply.le16(at));
    case FieldKind::FlagIsOne:
        return reply.flagIsOne(at) ? 1 : 0;
    case FieldKind::FlagIsSet:
        return reply.flagIsSet(at) ? 1 : 0;
    case FieldKind::FlagIsPositive:
        return reply.flagIsPositive(at) ? 1 : 0;
    case FieldKind::Bit0:
    case FieldKind::Bit1:
    case FieldKind::Bit2:
    case FieldKind::Bit3:
        return reply.bitAt(at, bitOf(kind)) ? 1 : 0;
    }
    return 0;
}

void writeValue(Payload &payload, int at, FieldKind kind, qint64 value)
{
    switch (kind) {
    case FieldKind::Byte:
        payload.put(at, static_cast<uint>(value));
        break;
    case FieldKind::Word:
    case FieldKind::SignedWord:
        payload.put(at, static_cast<uint>(value));
        payload.put(at + 1, static_cast<uint>(value) >> 8U);
        break;
    case FieldKind::FlagIsOne:
    case FieldKind::FlagIsSet:
    case FieldKind::FlagIsPositive:
        payload.put(at, value != 0 ? 1 : 0);
        break;
    case FieldKind::Bit0:
    case FieldKind::Bit1:
    case FieldKind::Bit2:
    case FieldKind::Bit3:
        if (value != 0)
            payload.put(at, payload.at(at) | 1U << static_cast<uint>(bitOf(kind)));
        break;
    }
}

} // namespace

Payload UnitFunction::payload(const qkv720 &unit) const
{
    Payload bytes = Payload().zeros(dataBytes);
    for (const UnitField &field : fields)
        writeValue(bytes, field.at, field.kind, field.read(unit));
    return bytes;
}

void UnitFunction::take(qkv720 &unit, const ReplyBody &reply, int at) const
{
    for (const UnitField &field : fields)
        field.write(unit, readValue(reply, at + field.at, field.kind));
}

const UnitField *UnitFunction::field(const char *wanted) const
{
    for (const UnitField &field : fields) {
        if (qstrcmp(field.name, wanted) == 0)
            return &field;
    }
    return nullptr;
}
