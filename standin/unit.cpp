#include "standin/unit.h"

#include <chrono>

namespace standin {

namespace {

constexpr int kUnsupported = 0x81;
constexpr int kBadChecksum = 0x82;
constexpr int kResetBit = 0x80;
constexpr int kRecordLimit = 20000; // a day of polling must not fill the machine

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
    if (frame.wellFormed && frame.checksumGood)
        entry.oddLength = oddLength(payloadSizes(frame.code, entry.isExtended()), frame.payload.size());

    const bool isReset = entry.isExtended() && canBeReset(frame.code);
    Speech speech;
    speech.refusal = [link](int status) { return onLink(link, makeRefusal(status)); };
    speech.ownAnswer = [link](const QByteArray &body) { return onLink(link, body); };
    speech.sumAt = [](const QByteArray &answer) { return answer.size() - 1; };
    speech.carryOut = [&] {
        if (!frame.wellFormed || !frame.checksumGood)
            return speech.refusal(kBadChecksum);
        const QByteArray body = execute(frame);
        if (isReset)
            entry.restored = records.value(functionOf(frame.code)->code);
        return onLink(link, body);
    };

    busyMs = 0;
    const auto fault = isReset ? takeFault({resetCode(frame.code), frame.code}) : takeFault({frame.code});
    Response response = respond(fault, speech);
    response.delayBy(busyMs);
    entry.reply = response.bytes();
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
    const QByteArray before = records.value(function.code);
    applyPayload(function, frame.payload);
    if (function.code == BackColour) {
        const int mode = frame.payload.size() < 7 ? 0 : static_cast<quint8>(frame.payload.at(6));
        if (mode == 1 || mode == 2)
            return automaticKey(mode);
        shapeToColour();
    }
    if (function.code == OutputStandard && records.value(OutputStandard) != before)
        busyMs = pace.formatMs;
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

QByteArray Unit::getReply(int code) const
{
    return makeBody(0, code, records.value(code));
}

void Unit::detectInputs()
{
    static const std::array<const char *, 3> layers = {"fg", "bg", "aux"};
    for (const char *layer : layers) {
        const int source = value(InputSelection, QLatin1String(layer));
        put(InputStandard, layer, source < ConnectorCount ? connectors.at(static_cast<size_t>(source)) : 0);
    }
    const int sync = connectors[ConnectorCount - 1];
    put(InputStandard, "sync", sync);
    const bool locked = value(InputSelection, QStringLiteral("genlock")) != 0 && sync != 0;
    put(InputStandard, "genlockStatus", locked ? 1 : 0);
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
    if (!known || value < lowest(*known) || value > highest(*known))
        return false;
    put(code, known->name, value);
    if (function->code == InputSelection)
        detectInputs();
    changed();
    return true;
}

void Unit::put(int code, const char *field, int value)
{
    const Function *function = functionOf(code);
    const QString name = QLatin1String(field);
    writeField(*fieldOf(*function, name), records[function->code], fieldOffset(*function, name), value);
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
    changed();
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
    if (fault.times != 0)
        faultOf.insert(code, fault);
}

std::optional<Fault> Unit::takeFault(std::initializer_list<int> keys)
{
    auto it = faultOf.end();
    for (int key : keys) {
        if (it == faultOf.end())
            it = faultOf.find(key);
    }
    if (it == faultOf.end())
        it = faultOf.find(AnyCode);
    if (it == faultOf.end())
        return std::nullopt;
    const Fault fault = *it;
    if (it->times > 0)
        --it->times;
    if (it->times == 0)
        faultOf.erase(it);
    return fault;
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
