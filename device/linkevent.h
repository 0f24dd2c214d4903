#pragma once

#include <QByteArray>

#include <functional>

// What passes over the link, for whoever looks on: each frame when it is written, each reply when it is read. Nothing
// depends on it; without an observer nothing is done.
struct LinkEvent
{
    enum class Kind {
        Sent,
        NotSent, // all writes failed: the link is gone
        Received, // without bytes: nothing came in the time that the command is given
    };
    Kind kind;
    uint method; // kNetworkLink or kSerialLink
    int attempt; // of the command that it belongs to; the first is 1
    QByteArray bytes; // as they lay on the link
};
using LinkObserver = std::function<void(const LinkEvent &)>;
