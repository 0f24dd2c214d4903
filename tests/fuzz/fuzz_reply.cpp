// Whatever bytes come back, a read of any position stays inside the buffer and gives 0 past its end.

#include <cstdint>
#include <cstdlib>

#include "device/replybody.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const ReplyBody reply(QByteArray(reinterpret_cast<const char *>(data), static_cast<int>(size)));
    for (int at = -2; at < 100; ++at) {
        const bool inside = at >= 0 && at < reply.size();
        if (reply.unsignedAt(at) != (inside ? data[at] : 0U))
            std::abort();
        if (!inside
            && (reply.byteAt(at) != 0 || reply.flagIsOne(at) || reply.flagIsSet(at) || reply.bitAt(at, 0)))
            std::abort();
        if (reply.le16(at) != reply.unsignedAt(at) + 256U * reply.unsignedAt(at + 1))
            std::abort();
        if (reply.flagIsPositive(at) && !reply.flagIsSet(at))
            std::abort();
    }
    static_cast<void>(reply.checksumMatches());
    return 0;
}
