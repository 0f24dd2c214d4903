#pragma once

#include "ctl/outcome.h"
#include "device/functions.h"

#include <QElapsedTimer>
#include <QString>
#include <QVector>

#include <memory>

namespace ctl {

// Where a unit is reached: an address or the name of a serial port.
struct UnitPlace
{
    uint method = 0;
    QString where;
};

// The values of a function's rows, in their order.
using Values = QVector<qint64>;

// The one link to the unit, over which everything goes in turn. Every call blocks until its exchange has ended.
class UnitLink
{
public:
    // `timeoutMs` bounds the whole run; 0 is without end. Connecting is given up in the middle, an exchange
    // always ends in its own time.
    explicit UnitLink(int timeoutMs, const LinkObserver &observer = {});
    ~UnitLink();
    UnitLink(const UnitLink &) = delete;
    UnitLink &operator=(const UnitLink &) = delete;

    // Reads the versions and the first status. An empty text is success, any other says what went wrong. Opens anew
    // what was lost.
    QString connect(const UnitPlace &place);
    const UnitPlace &place() const { return m_place; }
    const qkv720 &unit() const { return *m_unit; }
    qkv720 &unit() { return *m_unit; }

    // Reads one function. An answer that is not whole is asked for again; what does not come right is no link.
    ExitCode read(const UnitFunction &function);
    ExitCode read(const QVector<const UnitFunction *> &functions);
    Values values(const UnitFunction &function) const;
    // Puts the values into the mirror and sends them. The automatic key's mode goes out only when it is among
    // `values` on purpose: it starts a search that takes seconds.
    ExitCode send(const UnitFunction &function, const Values &values, bool startsAutomaticKey = false);
    ExitCode reset(const UnitFunction &function);
    ExitCode loadMemory(uint index); // with the panel's pauses after it
    ExitCode saveMemory(uint index);
    // Places the cursor, takes the colour under it as the key's colour, and takes the cursor away.
    ExitCode pickColour(uint x, uint y);

    // Whether the bound of the run has passed.
    bool isOutOfTime() const { return m_timeoutMs != 0 && m_clock.elapsed() >= m_timeoutMs; }
    // Why the latest call did not end in Done.
    QString reason() const { return m_trouble; }

private:
    bool mayGoOn();
    ExitCode outcome();

    int m_timeoutMs;
    QElapsedTimer m_clock;
    std::unique_ptr<qkv720> m_unit;
    UnitPlace m_place;
    QString m_trouble;
};

} // namespace ctl
