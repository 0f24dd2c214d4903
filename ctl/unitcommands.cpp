#include "ctl/commands.h"
#include "ctl/functionlist.h"
#include "ctl/output.h"

// What the unit is, its memories, and its key.

namespace ctl {

namespace {

// What an automatic key changes.
const QVector<const UnitFunction *> &keyFunctions()
{
    static const QVector<const UnitFunction *> list = {
        &functions::backColour, &functions::angle,  &functions::levels, &functions::dark,
        &functions::bright,     &functions::shadow, &functions::spill};
    return list;
}

bool parseNumber(const QString &text, int least, int most, uint &number)
{
    bool isNumber = false;
    const int value = text.toInt(&isNumber);
    number = static_cast<uint>(value);
    return isNumber && value >= least && value <= most;
}

} // namespace

ExitCode showInfo(Session &session)
{
    const ExitCode code = session.connect();
    if (code != Done)
        return code;
    const UnitPlace &place = session.link().place();
    const qkv720 &unit = session.link().unit();
    const QVector<QPair<QString, QString>> facts = {
        {QStringLiteral("link"),
         place.method == kNetworkLink ? QStringLiteral("network") : QStringLiteral("serial")},
        {QStringLiteral("address"), place.where},
        {QStringLiteral("firmware"), unit.getFWVersion()},
        {QStringLiteral("fpga"), unit.getFPGAVersion()},
        {QStringLiteral("bootLoader"), unit.getBLVersion()},
    };
    QJsonObject json;
    QVector<QStringList> rows;
    for (const auto &fact : facts) {
        json.insert(fact.first, fact.second);
        rows.append({fact.first, fact.second});
    }
    if (session.request().json)
        printJson(json);
    else
        printTable(rows);
    return Done;
}

ExitCode loadMemory(Session &session)
{
    uint index = 0;
    if (!parseNumber(session.request().arguments.first(), 0, 8, index))
        return usage(QStringLiteral("a memory is 1 to 8, and 0 is the factory's state"));
    const ExitCode code = session.connect();
    return code == Done ? session.report(session.link().loadMemory(index)) : code;
}

ExitCode saveMemory(Session &session)
{
    uint index = 0;
    if (!parseNumber(session.request().arguments.first(), 1, 8, index))
        return usage(QStringLiteral("a memory is 1 to 8"));
    const ExitCode code = session.connect();
    return code == Done ? session.report(session.link().saveMemory(index)) : code;
}

ExitCode automaticKey(Session &session)
{
    const UnitField &modeField = *functions::backColour.field("auto");
    qint64 mode = modeField.least + 1;
    const QStringList &arguments = session.request().arguments;
    if (!arguments.isEmpty() && (!parseValue(modeField, arguments.first(), mode) || mode == modeField.least))
        return usage(QStringLiteral("an automatic key is AutoDef or AutoBack"));

    ExitCode code = session.connect();
    if (code != Done)
        return code;
    UnitLink &link = session.link();
    code = session.report(link.read(functions::backColour));
    if (code != Done)
        return code;
    modeField.write(link.unit(), mode);
    code = session.report(link.send(functions::backColour, link.values(functions::backColour), true));
    // Its long answer has brought the values; a single one that is cut short would pass unseen.
    if (code == Done)
        code = session.report(link.read(keyFunctions()));
    if (code == Done)
        printFunctions(session, keyFunctions());
    return code;
}

ExitCode pickKey(Session &session)
{
    constexpr int kWidest = 3840;
    constexpr int kHighest = 2160;
    uint x = 0;
    uint y = 0;
    const QStringList &arguments = session.request().arguments;
    if (!parseNumber(arguments.at(0), 0, kWidest - 1, x) || !parseNumber(arguments.at(1), 0, kHighest - 1, y))
        return usage(QStringLiteral("a place in the picture is X from 0 to %1 and Y from 0 to %2")
                         .arg(kWidest - 1)
                         .arg(kHighest - 1));
    ExitCode code = session.connect();
    if (code != Done)
        return code;
    code = session.report(session.link().pickColour(x, y));
    const QVector<const UnitFunction *> moved = keyFunctions().mid(0, 3);
    if (code == Done)
        code = session.report(session.link().read(moved));
    if (code == Done)
        printFunctions(session, moved);
    return code;
}

} // namespace ctl
