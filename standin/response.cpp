#include "standin/response.h"

#include <QTimer>

namespace standin {

QByteArray Response::bytes() const
{
    QByteArray all;
    for (const Chunk &chunk : chunks)
        all += chunk.bytes;
    return all;
}

void Response::delayBy(int ms)
{
    for (Chunk &chunk : chunks)
        chunk.delayMs += ms;
}

Response respond(const std::optional<Fault> &fault, const Speech &speech)
{
    using Kind = Fault::Kind;
    Response response;
    if (!fault) {
        response.chunks = {{0, speech.carryOut()}};
        return response;
    }
    // A refusal and a closed link leave the unit as it is; every other fault disturbs only what comes back.
    if (fault->kind == Kind::CloseLink) {
        response.closeLink = true;
        return response;
    }
    if (fault->kind == Kind::Refuse) {
        response.chunks = {{0, speech.refusal(fault->status)}};
        return response;
    }

    QByteArray answer = speech.carryOut();
    switch (fault->kind) {
    case Kind::Silent:
        return response;
    case Kind::Late:
        response.chunks = {{fault->milliseconds, answer}};
        return response;
    case Kind::Split:
        response.chunks = {{0, answer.left(fault->bytes)}, {fault->milliseconds, answer.mid(fault->bytes)}};
        return response;
    case Kind::Short:
        answer.truncate(fault->bytes);
        break;
    case Kind::WrongChecksum: {
        const int at = speech.sumAt(answer);
        if (at >= 0 && at < answer.size())
            answer[at] = static_cast<char>(answer.at(at) ^ 0x55);
        break;
    }
    case Kind::Answer:
        answer = speech.ownAnswer(fault->body);
        break;
    case Kind::Refuse:
    case Kind::CloseLink:
        break; // answered above
    }
    response.chunks = {{0, answer}};
    return response;
}

void deliver(const Response &response, QObject *context,
             const std::function<void(const QByteArray &bytes)> &write)
{
    for (const Response::Chunk &chunk : response.chunks) {
        if (chunk.bytes.isEmpty())
            continue;
        if (chunk.delayMs <= 0) {
            write(chunk.bytes);
            continue;
        }
        QTimer::singleShot(chunk.delayMs, Qt::PreciseTimer, context,
                           [write, bytes = chunk.bytes] { write(bytes); });
    }
}

} // namespace standin
