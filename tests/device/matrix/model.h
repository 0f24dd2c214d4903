#pragma once

#include "tests/device/matrix/faults.h"
#include "tests/device/unitfields.h"

#include <functional>
#include <optional>

namespace matrix {

// What a panel does on a link, worked out from the wire format and the tables of waits in a time of its own, without
// the panel: frames, sleeps, signals, the flag, the words, every field. It also plays the unit, so that it knows what
// arrives and when.
class PanelModel
{
public:
    // `before`: the fields as they stand when the operation begins; the link is up, or not yet opened. What a unit
    // sends later than at once comes later still by `latenessMs`.
    PanelModel(uint link, const Form &form, int faultedCode, const Snapshot &before, bool isOpen,
               int latenessMs);

    // What became of it.
    Snapshot fields;
    QStringList frames; // bodies in hexadecimal, as far as they reached the unit
    QVector<int> sleeps;
    int signalCount = 0;
    double elapsedMs() const { return now; }

    // Steps of which operations are made. A command is its code, payload and ext.
    struct Step
    {
        int code;
        QByteArray payload{};
        int ext = 0;
    };
    using Ladder = QVector<int>;
    static const Ladder standardLadder;

    bool mayAsk(); // the guard of the network link; always true on the serial link
    // The reply's body under a ladder; nothing when the attempts ran out.
    std::optional<QByteArray> ladder(const Step &step, const Ladder &between = standardLadder);
    // The same with the length test that the serial link's operations make.
    std::optional<QByteArray> ladderAndLength(const Step &step, const Ladder &between = standardLadder);
    // Guard, ladder, length test.
    std::optional<QByteArray> exchange(const Step &step, const Ladder &between = standardLadder);
    // One attempt: its result, and what was read.
    struct Attempt
    {
        int result;
        QByteArray received;
    };
    Attempt attempt(const Step &step);
    // The serial link's own way for the first status and the automatic key: one write, that sleep, one read.
    QByteArray askSerial(const Step &step, int sleepMs);

    void take(const QVector<FieldRow> &rows, const QByteArray &body, int shift = 0);
    void setFlag(bool up);

    // Operations of several exchanges, and those that differ from the common shapes.
    QString connect();
    QString refreshStatus();
    QString refreshInputs();
    void setCursor(const QByteArray &payload, int x, int y, QString *result);
    void getCursor();
    void setKeyColour(const QByteArray &payload);
    void saveSetup();

    const uint method;

private:
    enum class Socket { Up, Fallen, Down }; // Fallen: the other end is gone, and the panel hasn't seen it

    struct Arrival
    {
        double at;
        QByteArray bytes;
    };

    void sleep(int ms);
    void lose();
    bool pull(); // what has arrived goes to where it is read from; whether anything had
    void send(const QByteArray &body);
    QByteArray read();
    Attempt networkAttempt(const QByteArray &body);
    Attempt serialAttempt(const QByteArray &body);
    QString networkStatus();
    QString serialStatus();
    int sleepFor(const QByteArray &body) const;

    Form form;
    int faultedCode;
    int lateness;
    int faultedFrames = 0;
    double now = 0;
    bool connected;
    Socket socket;
    QVector<Arrival> arrivals;
    QByteArray waiting;
};

// Rows of the function with this code, from the tests' table; `name` when several functions share the code.
QVector<FieldRow> rowsOf(int getCode, const char *name = nullptr);
// All of them, chain and copies of the key colour included, of an automatic key's answer.
QVector<QPair<QVector<FieldRow>, int>> rowsOfChain();

} // namespace matrix
