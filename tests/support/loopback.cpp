#include "tests/support/loopback.h"

#include <unistd.h>

namespace support {

QString ownLoopback(int last)
{
    // Never 127.0.y.z: the machine's own services listen there.
    constexpr int kSecondParts = 255;
    constexpr int kThirdParts = 256;
    const int pid = ::getpid();
    return QStringLiteral("127.%1.%2.%3")
        .arg(1 + pid / kThirdParts % kSecondParts)
        .arg(pid % kThirdParts)
        .arg(last);
}

} // namespace support
