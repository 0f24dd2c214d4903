#pragma once

#include <QByteArray>
#include <QHostAddress>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <functional>

// The world around the panel in a fuzz program: time that passes without waiting, and a network that leads nowhere.
//
// The program brings QThread::msleep, ppoll and the datagram calls of the C library with it (world.cpp), in the place
// of those of the libraries. The panel's own code is the shipped one: it sleeps, waits and reads as ever, but a sleep
// is over at once, and what would have arrived during it has arrived.
namespace world {

// First thing in the program: a network namespace of its own with one adapter, 192.168.72.1, whose cable ends in the
// same namespace. Ends the program with a sentence where namespaces are refused.
void isolate();

// Forgets what was to come. `look` is asked whenever time begins to pass: whoever plays the other end takes what was
// sent to it, and plans what it does.
void begin(const std::function<void()> &look);

qint64 nowMs(); // since begin()
void plan(qint64 inMs, const std::function<void()> &act);
void pass(qint64 ms);

// Whether the panel has written to a stream or a terminal since this was last asked. The machine takes a moment to
// carry bytes from one end of a link to the other; whoever looks for them then has to wait for that moment in earnest.
bool wasWritten();
constexpr int kMomentMs = 20; // the longest
// The panel's end of the stream that it connected last.
int connectedStream();

// Datagrams: every IPv4 datagram that the program sends ends in `taken`, and no system call is made for it. What
// is put into the queue is what the program receives.
struct Datagram
{
    QByteArray bytes;
    QHostAddress from;
    quint16 port = 5002;
};
void takeDatagrams(const std::function<void(const QByteArray &bytes)> &taken);
void receive(const Datagram &datagram);
int waitingDatagrams();

} // namespace world

// Reads an input from its front; past the end everything is 0.
class Script
{
public:
    Script(const uint8_t *bytes, size_t length)
        : data(bytes)
        , size(length)
    {
    }
    bool atEnd() const { return at >= size; }
    int position() const { return static_cast<int>(qMin(at, size)); }
    uint byte() { return at < size ? data[at++] : 0U; }
    uint word() { return byte() + 256U * byte(); }
    bool flag() { return (byte() & 1U) != 0; }
    QByteArray bytes(uint count)
    {
        const size_t take = qMin<size_t>(count, size - qMin(at, size));
        const QByteArray piece(reinterpret_cast<const char *>(data + at), static_cast<int>(take));
        at += take;
        return piece;
    }
    // A length, then that many bytes.
    QByteArray counted() { return bytes(byte()); }
    QByteArray rest() { return bytes(static_cast<uint>(size - qMin(at, size))); }

private:
    const uint8_t *data;
    size_t size;
    size_t at = 0;
};

inline void require(bool holds, const char *file = __builtin_FILE(), int line = __builtin_LINE())
{
    if (holds)
        return;
    std::fprintf(stderr, "%s:%d: a promise was broken\n", file, line);
    std::abort();
}
