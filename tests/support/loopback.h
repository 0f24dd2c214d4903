#pragma once

#include <QString>

namespace support {

// A loopback address of this process alone, so that tests may run side by side: 127.x.y.<last>, with x and y
// from the number of the process. A case names its own from 1 to 99; the units that choose theirs themselves
// count from 100 (see UnitHost).
QString ownLoopback(int last);

// Nobody answers there.
inline QString deafLoopback()
{
    return ownLoopback(99);
}

} // namespace support
