// The readers of discovery datagrams, at every position of whatever came over the network.

#include <cstdint>
#include <cstdlib>

#include "discovery/hlnpwire.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray buffer(reinterpret_cast<const char *>(data), static_cast<int>(size));
    static_cast<void>(HlnpWire::lengthField(buffer));
    for (int at = 0; at <= HlnpWire::UDPBUFFERSIZE; ++at) {
        if (HlnpWire::macText(buffer, at).count(QLatin1Char(':')) != 5)
            std::abort();
        if (HlnpWire::addressText(buffer, at).count(QLatin1Char('.')) != 3)
            std::abort();
        if (HlnpWire::identifierText(buffer, at).size() != 4)
            std::abort();
        if (HlnpWire::textUpToZero(buffer, at, HlnpWire::kHostNameBytes).size() > HlnpWire::kHostNameBytes)
            std::abort();
    }
    const QString text = QString::fromUtf8(buffer);
    if (HlnpWire::isMac(text) && HlnpWire::macBytes(text).size() != 6)
        std::abort();
    if (HlnpWire::isAddress(text) && HlnpWire::addressBytes(text).size() != 4)
        std::abort();
    static_cast<void>(HlnpWire::nameField(text));
    return 0;
}
