#pragma once

#include "standin/fault.h"
#include "standin/framing.h"
#include "standin/functions.h"
#include "standin/response.h"

#include <QHash>
#include <QJsonObject>
#include <QMap>
#include <QVector>

#include <array>
#include <functional>
#include <initializer_list>
#include <optional>

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
    QString oddLength; // a payload whose length the wire format doesn't know, in words; empty when it does
    QByteArray restored; // the record that a reset brought back; empty when nothing was carried out
    QByteArray reply; // what was put on the link, after any fault; empty for silence

    bool isExtended() const { return (ext & 0x80) != 0; } // a reset
    QString name() const; // "SET_LEVELS", "RESET_LEVELS", "ETH_REQ"
    QString describe() const; // name and values on one line
    QJsonObject toJson() const;

private:
    QString values() const; // what was asked for, or what a reset restored
    int refusal() const; // the status of a refusing reply; 0 when it is none
};

// Nanoseconds of the monotonic clock that the records carry.
qint64 monotonicNs();

// How long the unit works on a request before it answers. A bare unit answers at once; the program takes times of
// the hardware's order (see its options).
struct Pace
{
    int automaticKeyMs = 0; // it scans the picture
    int formatMs = 0; // its outputs start anew in another format
};

// The unit itself, apart from its links: every function's present record, eight memories, the colours before the
// key cursor and the standards on its connectors.
class Unit
{
public:
    static constexpr int MemoryCount = 8;
    static constexpr int HighestStandard = 32;
    static constexpr int ConnectorCount = 5; // SDI 1, HDMI 1, HDMI 2, HDMI 3, external sync

    Unit();

    // One frame from a link: checks it, carries it out, records it, and gives the answer.
    Response handle(LinkKind link, const Frame &frame);

    // The present values; `code` is a read code such as standin::Dark, `field` a name of the function table.
    QByteArray data(int code) const { return records.value(code); }
    void setData(int code, const QByteArray &record) { records.insert(code, record); }
    int value(int code, const QString &field) const;
    // As if it had been set on the unit itself: inputs and the state file follow. False for a field that the
    // function doesn't have, and for a value that the field can't hold.
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

    Pace pace;

    void setFault(int code, const Fault &fault);
    void clearFault(int code) { faultOf.remove(code); }
    void clearFaults() { faultOf.clear(); }
    // The first of these keys that has a fault now, counted down; any code's own comes last.
    std::optional<Fault> takeFault(std::initializer_list<int> keys);

    const QVector<FrameRecord> &record() const { return frames; }
    void addRecord(const FrameRecord &frame);
    void clearRecord();
    int count(int code) const { return counters.value(code); }
    // Called for each frame when its answer is settled.
    std::function<void(const FrameRecord &)> onFrame;
    // Called when something changed that a state file keeps.
    std::function<void()> onStateChanged;

    QJsonObject toJson() const;
    // Takes what the file holds and leaves the rest. Whatever is no value of this unit is refused whole: the
    // result says what, and nothing has changed. Empty is success.
    QString fromJson(const QJsonObject &json);

private:
    using Records = QMap<int, QByteArray>; // by read code

    QByteArray execute(const Frame &frame);
    QByteArray executeSet(const Function &function, const Frame &frame);
    QByteArray reset(const Function &function, const Frame &frame);
    QByteArray automaticKey(int mode);
    void shapeToColour();
    QByteArray placeCursor(const Frame &frame);
    void applyPayload(const Function &function, const QByteArray &payload);
    void applySpillPreset(int choice);
    void restore(std::initializer_list<int> codes);
    void detectInputs();
    QByteArray getReply(int code) const;
    std::array<int, 3> colourAt(int x, int y) const;
    void put(int code, const char *field, int value);
    void changed() const;

    Records records;
    std::array<Records, MemoryCount> memories;
    std::array<int, ConnectorCount> connectors{15, 15, 15, 15, 15};
    std::array<int, 3> backdrop{183, 226, 711};
    std::array<int, 3> fixedCursorColour{-1, -1, -1};

    int busyMs = 0; // of the request that is carried out now
    QHash<int, Fault> faultOf;
    QVector<FrameRecord> frames;
    QHash<int, int> counters;
};

} // namespace standin
