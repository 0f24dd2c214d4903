// The stand-in under whatever comes to its discovery port, one datagram after the other: an answer says its own
// length and fits the 50 bytes that a panel reads, and what was set can be saved and read again.

#include <cstdint>
#include <cstdlib>

#include "standin/discoverylink.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray input(reinterpret_cast<const char *>(data), static_cast<int>(size));
    standin::Unit unit;
    standin::DiscoveryLink link(unit);
    for (int at = 0; at < input.size();) {
        const int length = static_cast<quint8>(input.at(at));
        const QByteArray datagram = input.mid(at + 1, length);
        at += 1 + length;
        const QByteArray answer = link.answer(datagram).bytes();
        if (answer.isEmpty())
            continue;
        const bool saysItsLength = answer.size() >= 5 && answer.at(0) == '\0'
            && static_cast<quint8>(answer.at(1)) == answer.size() && answer.at(3) == datagram.at(3);
        if (!saysItsLength || answer.size() > 50)
            std::abort();
        if (unit.record().last().describe().isEmpty())
            std::abort();
    }
    standin::NetworkSettings other;
    if (!other.fromJson(link.settings.toJson()).isEmpty() || other.toJson() != link.settings.toJson())
        std::abort();
    return 0;
}
