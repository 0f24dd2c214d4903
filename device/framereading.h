#pragma once

#include "device/functions.h"
#include "device/linkevent.h"

#include <QPair>
#include <QString>
#include <QVector>

#include <memory>

// What a frame or a reply says, by the names of functions.h.
struct FrameReading
{
    enum class Verdict {
        Whole, // its length, its sum and its code agree
        Nothing, // no byte at all
        Refused, // the unit turned the command away
        Garbled, // bytes that are no whole answer to the command; class qkv720 may take them all the same
    };
    Verdict verdict = Verdict::Nothing;
    int status = 0; // of a refusal: 0x81 unknown command, 0x82 wrong sum
    QString name; // "SET_DARK"; of Nothing and Garbled empty
    const UnitFunction *function = nullptr; // whose rows `values` follow; null when there are none
    QVector<qint64> values;
    QVector<QPair<QString, QString>> words; // values that have no row, such as the number of a memory
    QByteArray rest; // data that nothing names
    QByteArray
        behind; // what came after the first whole reply: a chain of more of them, or what is left of an earlier one
};

// Puts frames and replies into words.
class FrameReader
{
public:
    FrameReader();
    FrameReader(const FrameReader &) = delete;
    FrameReader &operator=(const FrameReader &) = delete;
    ~FrameReader();

    // Sent or NotSent: the frame. Received: the reply, measured by the frame that was read before it.
    FrameReading read(const LinkEvent &event);

private:
    void readData(FrameReading &reading, int command, const QByteArray &data);

    // The rows read into a mirror of the unit, so a value comes out as the panel would have it. As every such
    // object's, its sockets live to the end of the process; they are never opened.
    std::unique_ptr<qkv720> mirror;
    int asked = 0; // the command of the frame before
};
