#pragma once

#include "standin/unit.h"
#include "tests/fuzz/world.h"

#include <QString>

// The other end of both control links: real sockets and a real pseudo-terminal, and behind them a stand-in unit
// whose answers the input bends. It lives inside the panel's sleeps and waits (see world.h).
class UnitPeer
{
public:
    // Which end of the link it is, and where the bends come from; a script at its end leaves the answers alone.
    UnitPeer(standin::LinkKind kind, Script &bends);
    ~UnitPeer();
    UnitPeer(const UnitPeer &) = delete;
    UnitPeer &operator=(const UnitPeer &) = delete;

    QString target() const; // what a panel connects to
    void look(); // takes what has come; for world::begin()
    // Whether the script bends the answers from here on; at first it does not.
    void bendAnswers(bool on) { isBending = on; }
    // Healthy from here on; what was planned is dropped, and a terminal forgets what lies in it, as a port that is
    // closed does.
    void calmDown();

    // Frames that came, and how many of them no unit could read: the panel sends none such.
    int frames() const { return frameCount; }
    int badFrames() const { return badCount; }

    standin::Unit unit;

private:
    // One bent answer; the values stand in the seeds too.
    enum Bend { Healthy, AlsoHealthy, Own, Silent, Late, Changed, Cut, Split, Hangup, Long, BendCount };

    void answer(const standin::Frame &frame);
    void bend(const QByteArray &healthy);
    void put(const QByteArray &bytes);
    void hangUp(bool atOnce);

    const standin::LinkKind link;
    Script &script;
    standin::StreamSplitter splitter;
    int end = -1; // of the accepted connection, or the terminal's master
    bool isBending = false;
    int frameCount = 0;
    int badCount = 0;
};
