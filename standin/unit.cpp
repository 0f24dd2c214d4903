#include "standin/unit.h"

#include <QJsonArray>

#include <chrono>

namespace standin {

namespace {

constexpr int kUnsupported = 0x81;
constexpr int kBadChecksum = 0x82;
constexpr int kResetBit = 0x80;
constexpr int kRecordLimit = 20000; // a day of polling must not fill the machine

constexpr int kPresetMask = 0x07;
constexpr int kPresetEnhance = 0x08;
constexpr int kPresetVivid = 0x10;

bool isKept(const Function &function)
{
    return function.use == Function::Setting;
}

} // namespace

qint64 monotonicNs()
{
    using namespace std::chrono;
    return duration_cast<nanoseconds>(steady_clock::now().time_since_epoch()).count();
}

Unit::Unit()
{
    for (const Function &function : functions())
        records.insert(function.code, factoryRecord(function));
    for (auto &memory : memories) {
        for (const Function &function : functions()) {
            if (isKept(function))
                memory.insert(function.code, factoryRecord(function));
        }
    }
    detectInputs();
}

Response Unit::handle(LinkKind link, const Frame &frame)
{
    FrameRecord entry;
    entry.link = link;
    entry.ns = monotonicNs();
    entry.raw = frame.raw;
    entry.code = frame.code;
    entry.ext = frame.ext;
    entry.payload = frame.payload;
    entry.wellFormed = frame.wellFormed;
    entry.checksumGood = frame.checksumGood;

    Response response;
    Fault fault;
    const bool faulty = takeFault(frame.code, fault);
    if (faulty && fault.kind == Fault::Kind::CloseLink) {
        response.closeLink = true;
        addRecord(entry);
        return response;
    }

    QByteArray body;
    if (faulty && fault.kind == Fault::Kind::Refuse)
        body = makeRefusal(fault.status);
    else if (!frame.wellFormed || !frame.checksumGood)
        body = makeRefusal(kBadChecksum);
    else
        body = execute(frame);

    if (faulty && fault.kind == Fault::Kind::Answer)
        body = fault.body;
    if (faulty && fault.kind == Fault::Kind::WrongChecksum && !body.isEmpty())
        body[body.size() - 1] = static_cast<char>(body.back() ^ 0x55);

    QByteArray bytes = onLink(link, body);
    if (faulty && fault.kind == Fault::Kind::Silent)
        bytes.clear();
    if (faulty && fault.kind == Fault::Kind::Short)
        bytes.truncate(fault.bytes);

    if (faulty && fault.kind == Fault::Kind::Split) {
        response.chunks.append({0, bytes.left(fault.bytes)});
        response.chunks.append({fault.milliseconds, bytes.mid(fault.bytes)});
    } else if (!bytes.isEmpty()) {
        response.chunks.append({faulty && fault.kind == Fault::Kind::Late ? fault.milliseconds : 0, bytes});
    }
    entry.reply = bytes;
    addRecord(entry);
    return response;
}

QByteArray Unit::execute(const Frame &frame)
{
    if (frame.code == SaveSetup)
        return makeBody(0, frame.code, {}); // an empty command at present
    const Function *function = functionOf(frame.code);
    if (!function)
        return makeRefusal(kUnsupported);
    const bool isSet = (frame.code & SetBit) != 0;
    if (isSet && function->use == Function::ReadOnly)
        return makeRefusal(kUnsupported);
    if (function->use == Function::Recall) {
        const int index = frame.payload.isEmpty() ? 0 : static_cast<quint8>(frame.payload.at(0));
        // Without its number a recall is no recall: it must not fall back to the factory's memory.
        if (!frame.payload.isEmpty())
            isSet ? saveMemory(index) : recallMemory(index);
        return makeBody(0, frame.code, frame.payload.left(1));
    }
    if (!isSet)
        return getReply(frame.code);
    return executeSet(*function, frame);
}

QByteArray Unit::executeSet(const Function &function, const Frame &frame)
{
    if ((frame.ext & kResetBit) != 0)
        return reset(function, frame);
    if (function.use == Function::Cursor)
        return placeCursor(frame);
    applyPayload(function, frame.payload);
    if (function.code == BackColour) {
        const int mode = frame.payload.size() < 7 ? 0 : static_cast<quint8>(frame.payload.at(6));
        if (mode == 1 || mode == 2)
            return automaticKey(mode);
    }
    if (function.code == InputSelection)
        detectInputs();
    changed();
    return makeBody(0, frame.code, frame.payload);
}

QByteArray Unit::reset(const Function &function, const Frame &frame)
{
    records[function.code] = factoryRecord(function);
    // The spill reset alone carries a value: the preset that is wanted, in its last byte.
    if (function.code == Spill)
        applySpillPreset(frame.payload.size() < 10 ? 0 : static_cast<quint8>(frame.payload.at(9)));
    if (function.code == InputSelection)
        detectInputs();
    changed();
    return makeBody(0, frame.code, records.value(function.code));
}

void Unit::applyPayload(const Function &function, const QByteArray &payload)
{
    // A payload that is shorter than the record sets what it holds; two bytes of background blur are aux mode.
    QByteArray &record = records[function.code];
    for (int i = 0; i < payload.size() && i < record.size(); ++i)
        record[i] = payload.at(i);
}

void Unit::applySpillPreset(int choice)
{
    struct Preset
    {
        int suppression;
        int balance;
        int brightness;
    };
    static const std::array<Preset, 3> presets = {{{300, 500, 450}, {500, 500, 400}, {600, 650, 373}}};
    const int wanted = choice & kPresetMask;
    const int index = wanted > 2 ? 0 : wanted;
    const Preset &preset = presets.at(static_cast<size_t>(index));
    setValue(Spill, QStringLiteral("suppression"), preset.suppression);
    setValue(Spill, QStringLiteral("enhance"), (choice & kPresetEnhance) != 0 ? 300 : 0);
    setValue(Spill, QStringLiteral("balance"), preset.balance);
    setValue(Spill, QStringLiteral("brightness"), preset.brightness);
    setValue(Spill, QStringLiteral("vivid"), (choice & kPresetVivid) != 0 ? 1 : 0);
    setValue(Spill, QStringLiteral("preset"), index | (choice & (kPresetEnhance | kPresetVivid)));
}

QByteArray Unit::automaticKey(int mode)
{
    setValue(BackColour, QStringLiteral("red"), backdrop[0]);
    setValue(BackColour, QStringLiteral("green"), backdrop[1]);
    setValue(BackColour, QStringLiteral("blue"), backdrop[2]);
    setValue(BackColour, QStringLiteral("auto"), mode);
    if (mode == 1) {
        // AutoDef: the colour that was found, everything else of the key as it left the factory.
        for (int code : {int(Angle), int(Levels), int(Dark), int(Bright), int(Shadow), int(Spill)})
            records[code] = factoryRecord(*functionOf(code));
    } else {
        // AutoBack: the scan measures the backdrop and shapes the key to it.
        setValue(Angle, QStringLiteral("left"), 0x37);
        setValue(Angle, QStringLiteral("right"), 0x41);
        setValue(Levels, QStringLiteral("black"), 140);
        setValue(Levels, QStringLiteral("white"), 860);
        setValue(Dark, QStringLiteral("level"), 240);
        setValue(Bright, QStringLiteral("level"), 330);
        setValue(Shadow, QStringLiteral("level"), 210);
        applySpillPreset(2);
    }
    changed();
    QByteArray chain = makeBody(0, BackColour | SetBit, records.value(BackColour));
    for (int code = BackColour; code <= Spill; ++code)
        chain += getReply(code);
    return chain + getReply(PostAmplifier) + getReply(RgbCorrector);
}

QByteArray Unit::placeCursor(const Frame &frame)
{
    applyPayload(*functionOf(CursorPosition), frame.payload.left(5));
    if (value(CursorPosition, QStringLiteral("control")) != 0) {
        const auto colour =
            colourAt(value(CursorPosition, QStringLiteral("x")), value(CursorPosition, QStringLiteral("y")));
        setValue(CursorPosition, QStringLiteral("red"), colour[0]);
        setValue(CursorPosition, QStringLiteral("green"), colour[1]);
        setValue(CursorPosition, QStringLiteral("blue"), colour[2]);
    }
    return makeBody(0, frame.code, records.value(CursorPosition));
}

std::array<int, 3> Unit::colourAt(int x, int y) const
{
    if (fixedCursorColour[0] >= 0)
        return fixedCursorColour;
    // A backdrop that grows a little brighter to the right and darker to the foot.
    std::array<int, 3> colour = backdrop;
    for (int &part : colour)
        part = qBound(0, part + x % 64 - y % 32, 1000);
    return colour;
}

QByteArray Unit::getReply(int code) const
{
    return makeBody(0, code, records.value(code));
}

void Unit::detectInputs()
{
    static const std::array<const char *, 3> layers = {"fg", "bg", "aux"};
    for (const char *layer : layers) {
        const int source = value(InputSelection, QLatin1String(layer));
        const int standard = source < ConnectorCount ? connectors.at(static_cast<size_t>(source)) : 0;
        setValue(InputStandard, QLatin1String(layer), standard);
    }
    const int sync = connectors[ConnectorCount - 1];
    setValue(InputStandard, QStringLiteral("sync"), sync);
    const bool locked = value(InputSelection, QStringLiteral("genlock")) != 0 && sync != 0;
    setValue(InputStandard, QStringLiteral("genlockStatus"), locked ? 1 : 0);
}

int Unit::value(int code, const QString &field) const
{
    const Function *function = functionOf(code);
    const Field *known = function ? fieldOf(*function, field) : nullptr;
    return known ? readField(*known, records.value(function->code), fieldOffset(*function, field)) : 0;
}

bool Unit::setValue(int code, const QString &field, int value)
{
    const Function *function = functionOf(code);
    const Field *known = function ? fieldOf(*function, field) : nullptr;
    if (!known)
        return false;
    writeField(*known, records[function->code], fieldOffset(*function, field), value);
    return true;
}

void Unit::recallMemory(int index)
{
    if (index == 0) {
        restoreFactory();
        return;
    }
    if (index > MemoryCount)
        return;
    const auto &memory = memories.at(static_cast<size_t>(index - 1));
    for (auto it = memory.cbegin(); it != memory.cend(); ++it)
        records.insert(it.key(), it.value());
    detectInputs();
    changed();
}

void Unit::saveMemory(int index)
{
    if (index < 1 || index > MemoryCount)
        return;
    auto &memory = memories.at(static_cast<size_t>(index - 1));
    for (const Function &function : functions()) {
        if (isKept(function))
            memory.insert(function.code, records.value(function.code));
    }
    changed();
}

void Unit::restoreFactory()
{
    for (const Function &function : functions()) {
        if (isKept(function))
            records.insert(function.code, factoryRecord(function));
    }
    detectInputs();
    changed();
}

QByteArray Unit::memoryData(int index, int code) const
{
    if (index < 1 || index > MemoryCount)
        return {};
    return memories.at(static_cast<size_t>(index - 1)).value(code);
}

void Unit::setConnector(int connector, int standard)
{
    if (connector < 0 || connector >= ConnectorCount)
        return;
    connectors.at(static_cast<size_t>(connector)) = standard;
    detectInputs();
}

void Unit::setCursorColour(int red, int green, int blue)
{
    fixedCursorColour = {red, green, blue};
}

void Unit::setBackdrop(int red, int green, int blue)
{
    backdrop = {red, green, blue};
}

void Unit::setFault(int code, const Fault &fault)
{
    faultOf.insert(code, fault);
}

bool Unit::takeFault(int code, Fault &fault)
{
    auto it = faultOf.find(code);
    if (it == faultOf.end())
        it = faultOf.find(AnyCode);
    if (it == faultOf.end())
        return false;
    if (it->times == 0) {
        faultOf.erase(it);
        return false;
    }
    fault = *it;
    if (it->times > 0 && --it->times == 0)
        faultOf.erase(it);
    return true;
}

void Unit::addRecord(const FrameRecord &frame)
{
    if (frames.size() >= kRecordLimit)
        frames.remove(0, kRecordLimit / 2);
    frames.append(frame);
    ++counters[frame.code];
    if (onFrame)
        onFrame(frame);
}

void Unit::clearRecord()
{
    frames.clear();
    counters.clear();
}

void Unit::changed() const
{
    if (onStateChanged)
        onStateChanged();
}

} // namespace standin
