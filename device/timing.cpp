#include "device/timing.h"

unsigned long replyWaitMs(const QByteArray &frame, uint method)
{
    const bool network = method == kNetworkLink;
    const int commandOffset = network ? 4 : 2;
    const unsigned long defaultMs = network ? kNetworkDefaultMs : kSerialDefaultMs;
    if (frame.size() <= commandOffset)
        return defaultMs;

    const int command = static_cast<uchar>(frame.at(commandOffset));
    for (const ReplyWait &wait : kReplyWaits) {
        if (wait.command != command)
            continue;
        if (frame.at(frame.size() - wait.testedFromEnd) == 0)
            return defaultMs;
        return network ? wait.networkMs : wait.serialMs;
    }
    return defaultMs;
}
