// The stand-in's reader of frames: whatever a client sends, in whatever pieces, no byte is lost or made up.

#include <cstdint>
#include <cstdlib>

#include "standin/framing.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size < 2)
        return 0;
    const auto link = (data[0] & 1U) != 0 ? standin::LinkKind::Network : standin::LinkKind::Serial;
    const int piece = 1 + data[1] % 16;
    const QByteArray stream(reinterpret_cast<const char *>(data + 2), static_cast<int>(size - 2));
    standin::StreamSplitter splitter(link);
    QByteArray seen;
    for (int at = 0; at < stream.size(); at += piece) {
        const auto frames = splitter.take(stream.mid(at, piece));
        for (const standin::Frame &frame : frames)
            seen += frame.raw;
    }
    if (splitter.hasRemains())
        seen += splitter.giveUp().raw;
    if (seen != stream)
        std::abort();
    return 0;
}
