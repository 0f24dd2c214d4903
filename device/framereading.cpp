#include "device/framereading.h"

namespace {

// Where a body has its parts, behind the two leading bytes of the network link.
constexpr int kLengthBytes = 2;
constexpr int kExtAt = 1;
constexpr int kCommandAt = 2;
constexpr int kSetBit = 0x80;
constexpr int kVersionBytes = 6;
constexpr int kCursorBytes = 5; // of its set: control, x, y

// The commands that belong to no function.
struct OtherCommand
{
    int code;
    const char *name;
};
constexpr OtherCommand kOtherCommands[] = {
    {QKV720_GET_VERSION, "GET_VERSION"}, {QKV720_GET_DEVICETYPE, "GET_DEVICE_TYPE"},
    {QKV720_GET_MEMORY, "GET_MEMORY"},   {QKV720_SET_MEMORY, "SET_MEMORY"},
    {QKV720_SAVESETUP, "SAVE_SETUP"},
};

QByteArray bodyOf(const LinkEvent &event)
{
    return event.method == kNetworkLink ? event.bytes.mid(kLengthBytes) : event.bytes;
}

// The blur and the aux mode share a code: `dataBytes` tells them apart in a set.
const UnitFunction *functionOf(int command, int dataBytes)
{
    const int getCode = command & ~kSetBit;
    if ((command & kSetBit) != 0 && getCode == functions::auxMode.getCode
        && dataBytes == functions::auxMode.dataBytes)
        return &functions::auxMode;
    for (const UnitFunction *function : functions::all()) {
        if (function->getCode == getCode)
            return function;
    }
    return nullptr;
}

QString nameOf(int command, int ext)
{
    for (const OtherCommand &other : kOtherCommands) {
        if (other.code == command)
            return QLatin1String(other.name);
    }
    const UnitFunction *function = functionOf(command, 0);
    if (!function)
        return QStringLiteral("0x%1").arg(command, 2, 16, QLatin1Char('0'));
    const char *verb = "GET_";
    if ((command & kSetBit) != 0)
        verb = ext == kRestoreDefaults ? "RESET_" : "SET_";
    return QLatin1String(verb) + QLatin1String(function->name);
}

} // namespace

FrameReader::FrameReader()
    : mirror(std::make_unique<qkv720>())
{
}

FrameReader::~FrameReader() = default;

FrameReading FrameReader::read(const LinkEvent &event)
{
    FrameReading reading;
    const ReplyBody body(bodyOf(event));
    const bool isReply = event.kind == LinkEvent::Kind::Received;
    const int command = isReply ? asked : static_cast<int>(body.unsignedAt(kCommandAt));
    asked = command;
    if (body.size() == 0)
        return reading;
    if (isReply && body.isRefusal()) {
        reading.verdict = FrameReading::Verdict::Refused;
        reading.status = static_cast<int>(body.unsignedAt(kExtAt));
        reading.name = nameOf(command, kOrdinary);
        return reading;
    }
    if (!body.answers(command)) {
        reading.verdict = FrameReading::Verdict::Garbled;
        return reading;
    }

    reading.verdict = FrameReading::Verdict::Whole;
    const int ext = static_cast<int>(body.unsignedAt(kExtAt));
    const int sumAt = static_cast<int>(body.unsignedAt(0));
    const QByteArray data = bodyOf(event).mid(kReplyData, sumAt - kReplyData);
    reading.behind = bodyOf(event).mid(sumAt + 1);
    reading.name = nameOf(command, isReply ? int(kOrdinary) : ext);
    // What a reset sends is filler, but for the preset in which that of the spill ends.
    if (isReply || ext != kRestoreDefaults)
        readData(reading, command, data);
    else if (data.count('\0') < data.size())
        reading.rest = data;
    return reading;
}

void FrameReader::readData(FrameReading &reading, int command, const QByteArray &data)
{
    const ReplyBody record(data);
    const auto number = [&record](int at) { return QString::number(record.unsignedAt(at)); };
    const bool isMemory = command == QKV720_GET_MEMORY || command == QKV720_SET_MEMORY;
    if (isMemory && data.size() == 1) {
        reading.words = {{QStringLiteral("memory"), number(0)}};
    } else if (command == QKV720_GET_VERSION && data.size() == kVersionBytes) {
        reading.words = {{QStringLiteral("firmware"), versionText(record, 0)},
                         {QStringLiteral("fpga"), versionText(record, 2)},
                         {QStringLiteral("bootLoader"), versionText(record, 4)}};
    } else if (command == functions::cursor.setCode() && data.size() == kCursorBytes) {
        reading.words = {{QStringLiteral("control"), number(0)},
                         {QStringLiteral("x"), QString::number(record.le16(1))},
                         {QStringLiteral("y"), QString::number(record.le16(3))}};
    } else {
        const UnitFunction *function = functionOf(command, data.size());
        if (!function || data.size() < function->dataBytes) {
            reading.rest = data;
            return;
        }
        if (function == &functions::auxMode)
            reading.name = QStringLiteral("SET_") + QLatin1String(function->name);
        reading.function = function;
        reading.rest = data.mid(function->dataBytes);
        function->take(*mirror, record, 0);
        for (const UnitField &field : function->fields)
            reading.values.append(field.read(*mirror));
    }
}
