#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

// What a unit, or what lies between it and the panel, may do to an answer, and what healthy answers look like. Both
// the unit of the matrix and the model of the panel read this; everything here is about bytes on a link.

namespace matrix {

// As the device class counts them.
constexpr uint kNetwork = 1;
constexpr uint kSerial = 2;

enum class Fault {
    Silent, // which is an answer of 0 bytes
    Late600, // within the wait of an ordinary command
    Late1300, // past it
    Bytes1,
    Bytes2,
    Bytes3,
    Bytes4,
    ShortByOne,
    LongBy200,
    Split10,
    Split80,
    Split400,
    WrongSum,
    StaleInFront,
    Refused81,
    Refused82,
    ClosedBefore, // in the place of the answer
    ClosedAfter,
    Reset,
    FallenUnseen, // before the operation, and nothing has told the panel
    FallenSeen, // before the operation, and the panel's event loop ran since
};

// A fault, and whether it meets the first answer alone or all.
struct Form
{
    Fault fault;
    bool always;

    QString name() const;
};

QVector<Form> allForms();
QString faultName(Fault fault);

// What is put on the link for one frame; a delay counts from the frame's arrival.
struct Chunk
{
    int delayMs;
    QByteArray bytes;
};
enum class Ending { None, Close, Reset };
struct Answer
{
    QVector<Chunk> chunks;
    Ending ending = Ending::None; // after the chunks
};

// The data bytes of a healthy answer; `reset` for one with ext 0x80.
QByteArray dataOf(int code, bool reset);
// Length, ext, code, data, sum.
QByteArray bodyOf(int code, const QByteArray &data, int ext = 0);
// A body, or a chain of them, as it lies on a link.
QByteArray onLink(uint method, const QByteArray &body);
// A whole reply to another command that was never asked for.
QByteArray staleReply(uint method);

// What the unit answers to the frame with this body.
QByteArray healthyAnswer(uint method, const QByteArray &frameBody);
// The same under a fault. `nth` counts the frames with the faulted code, from 0.
Answer faultyAnswer(const Form &form, uint method, const QByteArray &frameBody, int nth);

} // namespace matrix
