#include "ctl/commands.h"
#include "ctl/functionlist.h"
#include "ctl/output.h"

// get, set and reset, status, and the list of what there is.

namespace ctl {

namespace {

struct Assignment
{
    const UnitField *field;
    qint64 value;
};

// "level=200". An empty text is success.
QString parseAssignment(const UnitFunction &function, const QString &text, Assignment &assignment)
{
    const int equals = text.indexOf(QLatin1Char('='));
    if (equals < 1)
        return QStringLiteral("%1: a value is written as FIELD=VALUE").arg(text);
    const QString name = text.left(equals);
    assignment.field = fieldNamed(function, name);
    if (!assignment.field) {
        QStringList names;
        for (const UnitField &field : function.fields)
            names.append(QLatin1String(field.name));
        return QStringLiteral("%1 has no field %2; it has %3")
            .arg(QLatin1String(function.name), name, names.join(QStringLiteral(", ")));
    }
    const QString value = text.mid(equals + 1);
    if (!parseValue(*assignment.field, value, assignment.value))
        return QStringLiteral("%1: %2 is no value of it; it takes %3")
            .arg(placeText(function, *assignment.field), value.isEmpty() ? QStringLiteral("nothing") : value,
                 rangeText(*assignment.field));
    return {};
}

QString parseAssignments(const UnitFunction &function, const QStringList &texts, QVector<Assignment> &all)
{
    for (const QString &text : texts) {
        Assignment assignment{};
        QString trouble = parseAssignment(function, text, assignment);
        if (!trouble.isEmpty())
            return trouble;
        for (const Assignment &earlier : qAsConst(all)) {
            if (earlier.field == assignment.field)
                return QStringLiteral("%1 is given twice").arg(placeText(function, *assignment.field));
        }
        all.append(assignment);
    }
    return {};
}

// Says which of the fields did not take.
ExitCode verify(const qkv720 &unit, const UnitFunction &function, const QVector<Assignment> &all)
{
    int taken = 0;
    for (const Assignment &asked : all) {
        const qint64 held = asked.field->read(unit);
        if (held == asked.value) {
            ++taken;
            continue;
        }
        complain(QStringLiteral("%1 did not take %2; the unit holds %3")
                     .arg(placeText(function, *asked.field), valueText(*asked.field, asked.value),
                          valueText(*asked.field, held)));
    }
    if (taken == all.size())
        return Done;
    return taken == 0 ? Refused : Partly;
}

// The one function of the first argument that can do this, or null with a complaint.
const UnitFunction *functionFor(Session &session, UnitFunction::Operation UnitFunction::*operation,
                                const char *what)
{
    QVector<const UnitFunction *> functions;
    if (!functionsNamed(session.request().arguments.mid(0, 1), functions))
        return nullptr;
    if (functions.first()->*operation)
        return functions.first();
    complain(
        QStringLiteral("%1 cannot be %2").arg(QLatin1String(functions.first()->name), QLatin1String(what)));
    return nullptr;
}

ExitCode readAndPrint(Session &session, const QVector<const UnitFunction *> &wanted)
{
    ExitCode code = session.connect();
    if (code != Done)
        return code;
    code = session.report(session.link().read(wanted));
    if (code == Done)
        printFunctions(session, wanted);
    return code;
}

} // namespace

void printFunctions(Session &session, const QVector<const UnitFunction *> &functions)
{
    const qkv720 &unit = session.link().unit();
    QJsonObject json;
    QVector<QStringList> rows;
    for (const UnitFunction *function : functions) {
        QJsonObject fields;
        for (const UnitField &field : function->fields) {
            const qint64 value = field.read(unit);
            fields.insert(QLatin1String(field.name), valueJson(field, value));
            rows.append({QLatin1String(function->name), QLatin1String(field.name), valueText(field, value)});
        }
        json.insert(QLatin1String(function->name), fields);
    }
    if (session.request().json)
        printJson(json);
    else
        printTable(rows);
}

bool functionsNamed(const QStringList &names, QVector<const UnitFunction *> &functions)
{
    for (const QString &name : names) {
        const UnitFunction *function = functionNamed(name);
        if (!function) {
            complain(
                QStringLiteral("%1: no such function; \"qkv720ctl functions\" lists them all").arg(name));
            return false;
        }
        if (!functions.contains(function))
            functions.append(function);
    }
    return true;
}

ExitCode listFunctions(Session &session)
{
    QJsonObject json;
    QVector<QStringList> rows;
    for (const UnitFunction *function : everyFunction()) {
        QJsonObject fields;
        for (const UnitField &field : function->fields) {
            QString able = QStringLiteral("get");
            able += function->set ? QStringLiteral(" set") : QString();
            able += function->reset ? QStringLiteral(" reset") : QString();
            rows.append({QLatin1String(function->name), QLatin1String(field.name), able, rangeText(field)});
            fields.insert(QLatin1String(field.name), rangeText(field));
        }
        json.insert(QLatin1String(function->name), fields);
    }
    if (session.request().json)
        printJson(json);
    else
        printTable(rows);
    return Done;
}

ExitCode showStatus(Session &session)
{
    // Connecting reads these too, but takes zeros where the unit refuses.
    return readAndPrint(session,
                        {&functions::inputStandard, &functions::inputSelection, &functions::outputStandard,
                         &functions::outputRouting});
}

ExitCode getFunctions(Session &session)
{
    QVector<const UnitFunction *> wanted;
    if (!functionsNamed(session.request().arguments, wanted))
        return Usage;
    return readAndPrint(session, wanted.isEmpty() ? functions::all() : wanted);
}

ExitCode setFunction(Session &session)
{
    const UnitFunction *function = functionFor(session, &UnitFunction::set, "set");
    if (!function)
        return Usage;
    QVector<Assignment> asked;
    const QString trouble = parseAssignments(*function, session.request().arguments.mid(1), asked);
    if (!trouble.isEmpty())
        return usage(trouble);

    ExitCode code = session.connect();
    if (code != Done)
        return code;
    UnitLink &link = session.link();
    code = session.report(link.read(*function));
    if (code != Done)
        return code;
    bool startsAutomaticKey = false;
    for (const Assignment &assignment : qAsConst(asked)) {
        assignment.field->write(link.unit(), assignment.value);
        startsAutomaticKey = startsAutomaticKey || assignment.field == functions::backColour.field("auto");
    }
    code = session.report(link.send(*function, link.values(*function), startsAutomaticKey));
    if (code == Done)
        code = session.report(link.read(*function));
    return code == Done ? verify(link.unit(), *function, asked) : code;
}

ExitCode resetFunction(Session &session)
{
    const UnitFunction *function = functionFor(session, &UnitFunction::reset, "reset");
    if (!function)
        return Usage;
    ExitCode code = session.connect();
    if (code != Done)
        return code;
    // Read first: the spill restores the preset that it has.
    code = session.report(session.link().read(*function));
    if (code == Done)
        code = session.report(session.link().reset(*function));
    if (code == Done)
        printFunctions(session, {function});
    return code;
}

} // namespace ctl
