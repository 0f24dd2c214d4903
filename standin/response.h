#pragma once

#include "standin/fault.h"

#include <QByteArray>
#include <QVector>

#include <functional>
#include <optional>

QT_BEGIN_NAMESPACE
class QObject;
QT_END_NAMESPACE

namespace standin {

// What a link has to send for one request, in order; a delay counts from the receipt.
struct Response
{
    struct Chunk
    {
        int delayMs;
        QByteArray bytes;
    };
    QVector<Chunk> chunks;
    bool closeLink = false;

    QByteArray bytes() const; // all that goes on the link
    void delayBy(int ms);
};

// How a link speaks, as far as a fault has to know it. All bytes are as they lie on the link.
struct Speech
{
    std::function<QByteArray()> carryOut; // does what is asked, and gives the answer
    std::function<QByteArray(int status)> refusal;
    std::function<QByteArray(const QByteArray &body)> ownAnswer; // puts a fault's own body on the link
    std::function<int(const QByteArray &answer)> sumAt; // the byte that a wrong sum spoils
};

// The one place where faults meet answers.
Response respond(const std::optional<Fault> &fault, const Speech &speech);

// The one place where answers leave: chunk by chunk through `write`, each at its time. What waits is dropped when
// `context` goes.
void deliver(const Response &response, QObject *context,
             const std::function<void(const QByteArray &bytes)> &write);

} // namespace standin
