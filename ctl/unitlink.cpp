#include "ctl/unitlink.h"

#include "ctl/output.h"
#include "ctl/watchdog.h"

#include <QThread>

namespace ctl {

namespace {

const QString kNoTimeLeft = QStringLiteral("the time of --timeout is over");

bool isMode(const UnitFunction &function, const UnitField &field)
{
    return &function == &functions::backColour && &field == function.field("auto");
}

} // namespace

UnitLink::UnitLink(int timeoutMs, const LinkObserver &observer)
    : m_timeoutMs(timeoutMs)
    , m_unit(std::make_unique<qkv720>())
{
    m_clock.start();
    m_unit->observeLink(observer);
}

UnitLink::~UnitLink()
{
    if (m_place.method != 0)
        m_unit->disconnectDevice(m_place.method);
}

QString UnitLink::connect(const UnitPlace &place)
{
    if (m_place.method != 0)
        m_unit->disconnectDevice(m_place.method);
    m_place = place;
    const int leftMs = m_timeoutMs == 0 ? 0 : qMax(1, m_timeoutMs - static_cast<int>(m_clock.elapsed()));
    const Watchdog watchdog(leftMs);
    const QString said = m_unit->connectDevice(place.method, place.where);
    if (said == QLatin1String("OK") && m_unit->isConnected)
        return {};
    return QStringLiteral("no unit answers at %1: %2")
        .arg(place.where, said.isEmpty() ? QStringLiteral("the link broke at once") : said.simplified());
}

bool UnitLink::mayGoOn()
{
    if (!isOutOfTime())
        return true;
    m_trouble = kNoTimeLeft;
    return false;
}

ExitCode UnitLink::outcome()
{
    switch (m_unit->lastAnswer()) {
    case qkv720::Answer::None:
        m_trouble = QStringLiteral("the unit at %1 does not answer any more").arg(m_place.where);
        return NoLink;
    case qkv720::Answer::Garbled:
        m_trouble = QStringLiteral("what comes from %1 is no answer to what was asked").arg(m_place.where);
        return NoLink;
    case qkv720::Answer::Refused:
        m_trouble = QStringLiteral("the unit refuses the command");
        return Refused;
    case qkv720::Answer::Reply:
        break;
    }
    // One of its attempts may have failed before, which takes the flag down although the link holds.
    m_unit->isConnected = true;
    return Done;
}

ExitCode UnitLink::read(const UnitFunction &function)
{
    constexpr int kAttempts = 3;
    ExitCode code = NoLink;
    for (int attempt = 0; attempt < kAttempts && mayGoOn(); ++attempt) {
        if (&function == &functions::auxMode)
            function.get(*m_unit, m_place.method); // its codes are the blur's, its fields its own
        else
            m_unit->readFunction(m_place.method, function);
        code = outcome();
        if (m_unit->lastAnswer() != qkv720::Answer::Garbled)
            break;
    }
    return code;
}

ExitCode UnitLink::read(const QVector<const UnitFunction *> &functions)
{
    Progress progress(QStringLiteral("reading"), functions.size());
    for (const UnitFunction *function : functions) {
        const ExitCode code = read(*function);
        if (code != Done)
            return code;
        progress.step();
    }
    return Done;
}

Values UnitLink::values(const UnitFunction &function) const
{
    Values values;
    for (const UnitField &field : function.fields)
        values.append(field.read(*m_unit));
    return values;
}

ExitCode UnitLink::send(const UnitFunction &function, const Values &values, bool startsAutomaticKey)
{
    if (!mayGoOn())
        return NoLink;
    int i = 0;
    for (const UnitField &field : function.fields) {
        const qint64 value = values.at(i++);
        field.write(*m_unit, isMode(function, field) && !startsAutomaticKey ? 0 : value);
    }
    function.set(*m_unit, m_place.method);
    // The content of a set's reply says nothing: whoever wants to know reads again.
    return m_unit->lastAnswer() == qkv720::Answer::Garbled ? Done : outcome();
}

ExitCode UnitLink::reset(const UnitFunction &function)
{
    if (!mayGoOn())
        return NoLink;
    function.reset(*m_unit, m_place.method);
    return outcome();
}

ExitCode UnitLink::loadMemory(uint index)
{
    if (!mayGoOn())
        return NoLink;
    const int refusals = m_unit->refusals();
    m_unit->loadMemory(m_place.method, index);
    const ExitCode code = outcome();
    if (m_unit->refusals() > refusals) {
        m_trouble = QStringLiteral("the unit refuses the memory");
        return Refused;
    }
    if (code == Done)
        QThread::msleep(kRecallPausesMs);
    return code;
}

ExitCode UnitLink::saveMemory(uint index)
{
    if (!mayGoOn())
        return NoLink;
    m_unit->saveMemory(m_place.method, index);
    return outcome();
}

ExitCode UnitLink::pickColour(uint x, uint y)
{
    constexpr uint kPlace = 3;
    constexpr uint kTakeAway = 0;
    constexpr quint16 kNone = 0xFFFF;
    if (!mayGoOn())
        return NoLink;
    qkv720 &unit = *m_unit;
    unit.tempR = unit.tempG = unit.tempB = kNone;
    unit.setCursor(m_place.method, kPlace, x, y);
    ExitCode code = outcome();
    if (code != Done)
        return code;
    if (unit.tempR == kNone && unit.tempG == kNone && unit.tempB == kNone) {
        m_trouble = QStringLiteral("the unit tells no colour at %1, %2").arg(x).arg(y);
        return Refused;
    }
    const Values colour = {unit.tempR, unit.tempG, unit.tempB, 0};
    code = send(functions::backColour, colour);
    unit.setCursor(m_place.method, kTakeAway, 0, 0);
    return code;
}

} // namespace ctl
