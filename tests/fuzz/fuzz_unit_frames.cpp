// The stand-in under whatever a client sends, on either link and under every fault: it answers in frames, keeps
// its records whole, and can tell and save what it holds.

#include <cstdint>
#include <cstdlib>

#include "standin/unit.h"

namespace {

void require(bool holds)
{
    if (!holds)
        std::abort();
}

standin::Fault faultOf(uint8_t kind, uint8_t value)
{
    using standin::Fault;
    switch (kind % 9) {
    case 0:
        return Fault::late(value);
    case 1:
        return Fault::silent(value);
    case 2:
        return Fault::shortened(value);
    case 3:
        return Fault::split(value, 10);
    case 4:
        return Fault::wrongChecksum();
    case 5:
        return Fault::refuse(value);
    case 6:
        return Fault::closeLink();
    case 7:
        return Fault::answer(QByteArray(value, 'x'));
    default:
        return Fault::late(0, 0); // none
    }
}

// Every answer of a healthy unit is one frame or a chain of them, each with its own good sum.
void requireFrames(standin::LinkKind link, const QByteArray &answer)
{
    const bool isNetwork = link == standin::LinkKind::Network;
    if (isNetwork)
        require(static_cast<quint8>(answer.at(0)) * 256 + static_cast<quint8>(answer.at(1)) == answer.size());
    int at = isNetwork ? 2 : 0;
    while (at < answer.size()) {
        const int length = static_cast<quint8>(answer.at(at)) + 1;
        const QByteArray body = answer.mid(at, length);
        require(body.size() == length && length >= 3);
        require(standin::sumOf(body.left(length - 1)) == static_cast<quint8>(body.back()));
        at += length;
    }
}

void requireWhole(const standin::Unit &unit)
{
    for (const standin::Function &function : standin::functions())
        require(unit.data(function.code).size() == standin::factoryRecord(function).size());
    standin::Unit other;
    require(other.fromJson(unit.toJson()).isEmpty());
    require(other.toJson() == unit.toJson());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size < 4)
        return 0;
    const auto link = (data[0] & 1U) != 0 ? standin::LinkKind::Network : standin::LinkKind::Serial;
    const int piece = 1 + data[0] / 2 % 32;
    standin::Unit unit;
    const standin::Fault fault = faultOf(data[1], data[2]);
    if ((data[3] & 1U) != 0)
        unit.setFault(standin::AnyCode, fault);
    else
        unit.setFault(data[3], fault);
    const bool isHealthy = fault.times == 0;

    const QByteArray stream(reinterpret_cast<const char *>(data + 4), static_cast<int>(size - 4));
    standin::StreamSplitter splitter(link);
    QVector<standin::Frame> frames;
    for (int at = 0; at < stream.size(); at += piece)
        frames += splitter.take(stream.mid(at, piece));
    if (splitter.hasRemains())
        frames += splitter.giveUp();
    for (const standin::Frame &frame : frames) {
        const QByteArray answer = unit.handle(link, frame).bytes();
        require(!isHealthy || !answer.isEmpty());
        if (isHealthy)
            requireFrames(link, answer);
        require(!unit.record().last().describe().isEmpty());
        require(unit.record().last().toJson().value(QStringLiteral("raw")).isString());
    }
    require(unit.record().size() == frames.size());
    requireWhole(unit);
    return 0;
}
