#include "device/qkv720.h"

#include "device/functions.h"
#include "discovery/hlnp.h"
#include "discovery/unitport.h"

#include <QDebug>
#include <QTcpSocket>
#include <QThread>

#include <memory>

// One command over one link: connection check, attempts, transport.

namespace {
constexpr int kShortestReply = 4;
constexpr int kBadChecksum = -24;

// Failures are AAA to DDD by their number, success is EEE.
void logAttempt(const char *text, int result, size_t tries)
{
    const char *const failures[] = {"AAA:", "BBB:", "CCC:", "DDD:"};
    qDebug() << text << (result > 0 ? "EEE:" : failures[qMin<size_t>(tries, 3)]) << result;
}

// Waits for the bytes to leave. A connection that was refused meanwhile leaves them in the socket; at the
// next turn of the event loop the toolkit would try to write them without a connection and say so on standard
// error. So they are dropped here, and the socket stays open for the attempts that are left: these fail as
// quietly as this one.
void pushOut(QTcpSocket &socket)
{
    socket.waitForBytesWritten(kSocketWaitMs);
    if (socket.state() == QTcpSocket::UnconnectedState && socket.bytesToWrite() > 0) {
        socket.abort();
        socket.open(QIODevice::ReadWrite);
    }
}

// A peer that sends without being asked leaves more in the system's buffers than the socket may hold. What
// has arrived goes with the reply that it was taken for; a peer that never stops is left to the next
// exchange.
void dropFlood(QTcpSocket &socket)
{
    constexpr int kMostReads = 256;
    for (int i = 0; i < kMostReads && socket.waitForReadyRead(0); ++i)
        socket.readAll();
}
} // namespace

void qkv720::tell(LinkEvent::Kind kind, uint method, const QByteArray &bytes) const
{
    if (observer)
        observer({kind, method, attempt, bytes});
}

bool qkv720::linkReady(uint method)
{
    answer = Answer::None;
    if (method == kNetworkLink)
        return checkConnection();
    return method == kSerialLink;
}

std::optional<ReplyBody> qkv720::exchange(uint method, const Command &command)
{
    if (!linkReady(method))
        return std::nullopt;
    return exchangeWithoutCheck(method, command);
}

std::optional<ReplyBody> qkv720::exchangeWithoutCheck(uint method, const Command &command,
                                                      const RetryLadder &ladder)
{
    auto reply = exchangeOfAnyLength(method, command, ladder);
    if (reply && method == kSerialLink && reply->size() <= 2)
        return std::nullopt;
    return reply;
}

std::optional<ReplyBody> qkv720::exchangeOfAnyLength(uint method, const Command &command,
                                                     const RetryLadder &ladder, const char *resultLog)
{
    answer = Answer::None;
    if (method != kNetworkLink && method != kSerialLink)
        return std::nullopt;

    QByteArray frame = frameOf(command, method);
    QByteArray received;
    for (size_t tries = 0;; ++tries) {
        attempt = static_cast<int>(tries) + 1;
        const int result = method == kNetworkLink ? hlnpIO(&frame, &received) : serialIO(&frame, &received);
        if (resultLog)
            logAttempt(resultLog, result, tries);
        if (result > 0)
            break;
        if (tries == ladder.retries) {
            attempt = 1;
            return std::nullopt;
        }
        QThread::msleep(ladder.sleepsMs.at(tries));
        received.clear();
    }
    attempt = 1;
    const ReplyBody reply(method == kNetworkLink ? received.mid(2) : received);
    noteAnswer(reply, command.code);
    return reply;
}

void qkv720::noteAnswer(const ReplyBody &reply, int command)
{
    if (reply.size() <= 2) {
        answer = Answer::None;
    } else if (reply.isRefusal()) {
        answer = Answer::Refused;
        ++refused;
    } else {
        answer = reply.answers(command) ? Answer::Reply : Answer::Garbled;
    }
}

// ---- Functions -------------------------------------------------------------------------------------------------

bool qkv720::readFunction(uint method, const UnitFunction &function)
{
    return linkReady(method) && readWithoutCheck(method, function, kStandardLadder);
}

bool qkv720::readWithoutCheck(uint method, const UnitFunction &function, const RetryLadder &ladder)
{
    const auto reply = exchangeWithoutCheck(method, {function.getCode}, ladder);
    if (reply)
        function.take(*this, *reply, kReplyData);
    return reply.has_value();
}

void qkv720::sendFunction(uint method, const UnitFunction &function)
{
    exchange(method, {function.setCode(), function.payload(*this)});
}

bool qkv720::restoreFunction(uint method, const UnitFunction &function)
{
    return restoreFunction(method, function, Payload().zeros(function.resetBytes));
}

bool qkv720::restoreFunction(uint method, const UnitFunction &function, const Payload &payload)
{
    const auto reply = exchange(method, {function.setCode(), payload, kRestoreDefaults});
    if (reply)
        function.take(*this, *reply, kReplyData);
    return reply.has_value();
}

// ---- Transports ------------------------------------------------------------------------------------------------

int qkv720::hlnpIO(QByteArray *writebuff, QByteArray *readbuff)
{
    QTcpSocket *socket = hlnpObj->swiTcpSocket;
    qint64 written = 0;
    for (int i = 0; i < kNetworkWrites && written <= 0; ++i)
        written = socket->write(*writebuff);
    tell(written > 0 ? LinkEvent::Kind::Sent : LinkEvent::Kind::NotSent, kNetworkLink, *writebuff);
    if (written <= 0) {
        loseLink();
        return static_cast<int>(written);
    }
    pushOut(*socket);
    QThread::msleep(replyWaitMs(*writebuff, kNetworkLink));
    socket->waitForReadyRead(kSocketWaitMs);
    // What has arrived by now is the reply: the parts of a split one are not assembled.
    *readbuff = socket->readAll();
    tell(LinkEvent::Kind::Received, kNetworkLink, *readbuff);
    if (readbuff->size() >= kSocketReadLimit)
        dropFlood(*socket);
    if (readbuff->size() < kShortestReply) {
        loseLink();
        return -1;
    }
    return static_cast<int>(written);
}

int qkv720::serialIO(QByteArray *writebuff, QByteArray *readbuff)
{
    if (writebuff->size() < kShortestReply)
        return -1;
    const qint64 written = askSerial(*writebuff, replyWaitMs(*writebuff, kSerialLink), *readbuff);
    // Silence is no failure of this transport: the length test of the exchange turns it away.
    if (written <= 0 || readbuff->size() < kShortestReply)
        return static_cast<int>(written);
    return ReplyBody(*readbuff).checksumMatches() ? static_cast<int>(written) : kBadChecksum;
}

qint64 qkv720::askSerial(QByteArray &frame, unsigned long waitMs, QByteArray &reply)
{
    const qint64 written = writeSerial(frame);
    tell(written > 0 ? LinkEvent::Kind::Sent : LinkEvent::Kind::NotSent, kSerialLink, frame);
    if (written > 0) {
        QThread::msleep(waitMs);
        serialObj->readData(reply);
        tell(LinkEvent::Kind::Received, kSerialLink, reply);
    }
    return written;
}

qint64 qkv720::writeSerial(QByteArray &frame)
{
    qint64 written = serialObj->writeData(frame);
    for (const unsigned long sleepMs : kSerialWriteSleepsMs) {
        if (written > 0)
            return written;
        QThread::msleep(sleepMs);
        written = serialObj->writeData(frame);
    }
    if (written <= 0)
        loseLink();
    return written;
}
