#pragma once

#include "standin/unit.h"

#include <QObject>
#include <QTimer>

#include <functional>

namespace standin {

// The unit's ear on one stream of bytes: cuts it into frames and has the unit answer each. A frame that stays
// incomplete for 300 ms is given up, so that stray bytes don't spoil what follows; at 19200 baud the longest frame
// takes 135 ms.
class FrameReader : public QObject
{
public:
    using Send = std::function<void(const Response &)>;

    FrameReader(Unit &unit, LinkKind link, Send send, QObject *parent = nullptr);

    void take(const QByteArray &bytes);

private:
    Unit &unit;
    LinkKind link;
    Send send;
    StreamSplitter splitter;
    QTimer patience;
};

} // namespace standin
