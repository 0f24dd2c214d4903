#include "standin/framereader.h"

#include <utility>

namespace standin {

namespace {

constexpr int kIncompleteMs = 300;

} // namespace

FrameReader::FrameReader(Unit &served, LinkKind kind, Send answer, QObject *parent)
    : QObject(parent)
    , unit(served)
    , link(kind)
    , send(std::move(answer))
    , splitter(kind)
{
    patience.setSingleShot(true);
    patience.setInterval(kIncompleteMs);
    connect(&patience, &QTimer::timeout, this, [this] {
        if (splitter.hasRemains())
            send(unit.handle(link, splitter.giveUp()));
    });
}

void FrameReader::take(const QByteArray &bytes)
{
    for (const Frame &frame : splitter.take(bytes)) {
        const Response response = unit.handle(link, frame);
        send(response);
        // What a client sent behind the frame at which its link was cut reaches nobody.
        if (response.closeLink && link == LinkKind::Network)
            return;
    }
    splitter.hasRemains() ? patience.start() : patience.stop();
}

} // namespace standin
