#pragma once

#include "standin/fault.h"
#include "standin/framing.h"
#include "standin/functions.h"

#include <QHash>
#include <QJsonObject>
#include <QMap>
#include <QVector>

#include <array>
#include <functional>

namespace standin {

// One frame or datagram that reached the unit, and what it answered.
struct FrameRecord
{
    LinkKind link = LinkKind::Network;
    QByteArray raw; // as received
    int code = 0; // the command byte; discoveryCode(command) for a datagram
    int ext = 0;
    QByteArray payload;
    bool wellFormed = false; // the lengths agree
    bool checksumGood = false;
    qint64 ns = 0; // monotonic clock at the moment of receipt
    QByteArray reply; // what was put on the link, after any fault; empty for silence

    bool isExtended() const { return (ext & 0x80) != 0; } // a reset
    QString name() const; // "SET_LEVELS", "RESET_LEVELS", "ETH_REQ"
    QString describe() const; // name and values on one line
    QJsonObject toJson() const;
};

// Nanoseconds of the monotonic clock that the records carry.
qint64 monotonicNs();

// What a link has to send for one frame, in order; a delay counts from the receipt.
struct Response
{
    struct Chunk
    {
        int delayMs;
        QByteArray bytes;
    };
    QVector<Chunk> chunks;
    bool closeLink = false;
};

// The unit itself, apart from its links: every function's present record, eight memories, the colours before the
// key cursor and the standards on its connectors.
class Unit
{
public:
    static constexpr int MemoryCount = 8;
    static constexpr int ConnectorCount = 5; // SDI 1, HDMI 1, HDMI 2, HDMI 3, external sync

    Unit();

    // One frame from a link: checks it, carries it out, records it, and gives the answer.
    Response handle(LinkKind link, const Frame &frame);

    // The present values; `code` is a read code such as standin::Dark, `field` a name of the function table.
    QByteArray data(int code) const { return records.value(code); }
    void setData(int code, const QByteArray &record) { records.insert(code, record); }
    int value(int code, const QString &field) const;
    // Returns false for a field that the function doesn't have.
    bool setValue(int code, const QString &field, int value);

    // Memory 0 is the factory's and can't be written. A number above 8 is no memory and changes nothing.
    void recallMemory(int index);
    void saveMemory(int index);
    void restoreFactory();
    QByteArray memoryData(int index, int code) const;

    // The standard that lies on a connector, a code of 0 to 32; the layers follow their sources.
    void setConnector(int connector, int standard);
    // Fixes the colour under the key cursor, counts from 0 to 1000; before it, the picture's own colours apply.
    void setCursorColour(int red, int green, int blue);
    // The backdrop that an automatic key finds.
    void setBackdrop(int red, int green, int blue);

    void setFault(int code, const Fault &fault);
    void clearFault(int code) { faultOf.remove(code); }
    void clearFaults() { faultOf.clear(); }
    // The fault that meets this code now, counted down; false when there is none.
    bool takeFault(int code, Fault &fault);

    const QVector<FrameRecord> &record() const { return frames; }
    void addRecord(const FrameRecord &frame);
    void clearRecord();
    int count(int code) const { return counters.value(code); }
    // Called for each frame when its answer is settled.
    std::function<void(const FrameRecord &)> onFrame;
    // Called when something changed that a state file keeps.
    std::function<void()> onStateChanged;

    QJsonObject toJson() const;
    void fromJson(const QJsonObject &json);

private:
    QByteArray execute(const Frame &frame);
    QByteArray executeSet(const Function &function, const Frame &frame);
    QByteArray reset(const Function &function, const Frame &frame);
    QByteArray automaticKey(int mode);
    QByteArray placeCursor(const Frame &frame);
    void applyPayload(const Function &function, const QByteArray &payload);
    void applySpillPreset(int choice);
    void detectInputs();
    QByteArray getReply(int code) const;
    std::array<int, 3> colourAt(int x, int y) const;
    void changed() const;

    QMap<int, QByteArray> records; // by read code
    std::array<QMap<int, QByteArray>, MemoryCount> memories;
    std::array<int, ConnectorCount> connectors{15, 15, 15, 15, 15};
    std::array<int, 3> backdrop{183, 226, 711};
    std::array<int, 3> fixedCursorColour{-1, -1, -1};

    QHash<int, Fault> faultOf;
    QVector<FrameRecord> frames;
    QHash<int, int> counters;
};

} // namespace standin
