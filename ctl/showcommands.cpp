#include "ctl/commands.h"
#include "ctl/functionlist.h"
#include "ctl/output.h"
#include "ctl/show.h"

// The whole look as a file: saved, loaded, compared.

namespace ctl {

namespace {

// Reads what makes up a look.
ExitCode readLook(Session &session, Show &look, bool complains)
{
    const ExitCode code = session.report(session.link().read(Show::functions()));
    if (code != Done)
        return code;
    QStringList odd;
    look = Show::of(session.link(), &odd);
    for (const QString &sentence : qAsConst(odd)) {
        if (complains)
            complain(sentence);
    }
    return odd.isEmpty() || !complains ? Done : Partly;
}

// The show of a file, cut down to what --only names. False with a complaint.
bool loadShow(const Session &session, const QString &file, Show &show)
{
    QVector<const UnitFunction *> wanted;
    if (!functionsNamed(session.request().only, wanted))
        return false;
    const QString trouble = show.load(file);
    if (!trouble.isEmpty()) {
        complain(trouble);
        return false;
    }
    for (const UnitFunction *function : qAsConst(wanted)) {
        if (!show.has(*function)) {
            complain(QStringLiteral("%1 does not hold %2").arg(file, QLatin1String(function->name)));
            return false;
        }
    }
    if (!wanted.isEmpty())
        show.keep(wanted);
    return true;
}

void printDifferences(const Session &session, const QVector<Difference> &all, const char *left,
                      const char *right)
{
    QVector<QStringList> rows;
    QJsonObject json;
    for (const Difference &one : all) {
        const QString function = QLatin1String(one.function->name);
        const QString field = QLatin1String(one.field->name);
        rows.append({function, field, valueText(*one.field, one.left), QStringLiteral("->"),
                     valueText(*one.field, one.right)});
        QJsonObject fields = json.value(function).toObject();
        fields.insert(field,
                      QJsonObject{{QLatin1String(left), valueJson(*one.field, one.left)},
                                  {QLatin1String(right), valueJson(*one.field, one.right)}});
        json.insert(function, fields);
    }
    if (session.request().json)
        printJson(json);
    else
        printTable(rows);
}

// One load: what differs is sent function by function, each read back.
class Loading
{
public:
    Loading(Session &session, const Show &show)
        : m_session(session)
        , m_show(show)
    {
    }

    ExitCode run();

private:
    ExitCode load(const UnitFunction &function);
    bool overlay(const UnitFunction &function, Values &values) const;
    void verify(const UnitFunction &function, const Values &before);
    ExitCode broken(int at) const;

    Session &m_session;
    const Show &m_show;
    QVector<Difference> m_set; // from the value before to the new one
    int m_failed = 0;
};

// Puts the file's values over those of the unit. Whether anything differs.
bool Loading::overlay(const UnitFunction &function, Values &values) const
{
    bool differs = false;
    int i = 0;
    for (const UnitField &field : function.fields) {
        qint64 &value = values[i++];
        const qint64 wanted = m_show.value(field).value_or(value);
        if (wanted != value && Show::isSetting(function, field)) {
            value = wanted;
            differs = true;
        }
    }
    return differs;
}

void Loading::verify(const UnitFunction &function, const Values &before)
{
    int i = 0;
    for (const UnitField &field : function.fields) {
        const qint64 old = before.at(i++);
        const qint64 held = field.read(m_session.link().unit());
        const qint64 wanted = m_show.value(field).value_or(old);
        if (!Show::isSetting(function, field) || (wanted == old && held == old))
            continue;
        if (held == wanted) {
            m_set.append({&function, &field, old, held});
            continue;
        }
        ++m_failed;
        complain(QStringLiteral("%1 did not take %2; the unit holds %3")
                     .arg(placeText(function, field), valueText(field, wanted), valueText(field, held)));
    }
}

ExitCode Loading::load(const UnitFunction &function)
{
    UnitLink &link = m_session.link();
    // A new colour moves these two.
    const bool hasMoved = &function == &functions::angle || &function == &functions::levels;
    if (hasMoved) {
        const ExitCode code = m_session.report(link.read(function));
        if (code != Done)
            return code;
    }
    const Values before = link.values(function);
    Values values = before;
    if (!overlay(function, values))
        return Done;
    ExitCode code = link.send(function, values);
    if (code == Refused)
        complain(QStringLiteral("%1: %2").arg(QLatin1String(function.name), link.reason()));
    else if (code != Done)
        return m_session.report(code);
    code = m_session.report(link.read(function));
    if (code == Done)
        verify(function, before);
    return code;
}

// Tells what a link that was lost at this place of the order has left undone.
ExitCode Loading::broken(int at) const
{
    QStringList left;
    for (const UnitFunction *function : Show::sendingOrder().mid(at)) {
        if (m_show.has(*function))
            left.append(QLatin1String(function->name));
    }
    complain(QStringLiteral("not set, or not known to be: %1").arg(left.join(QStringLiteral(", "))));
    return m_set.isEmpty() ? NoLink : Partly;
}

ExitCode Loading::run()
{
    const QVector<const UnitFunction *> order = Show::sendingOrder();
    Progress progress(QStringLiteral("loading"), order.size());
    for (int i = 0; i < order.size(); ++i) {
        const ExitCode code = m_show.has(*order.at(i)) ? load(*order.at(i)) : Done;
        if (code == NoLink) {
            const ExitCode result = broken(i);
            printDifferences(m_session, m_set, "before", "now");
            return result;
        }
        if (code != Done)
            ++m_failed;
        progress.step();
    }
    printDifferences(m_session, m_set, "before", "now");
    if (m_failed == 0)
        return Done;
    return m_set.isEmpty() ? Refused : Partly;
}

} // namespace

ExitCode saveShow(Session &session)
{
    ExitCode code = session.connect();
    if (code != Done)
        return code;
    Show look;
    code = readLook(session, look, true);
    if (code != Done && code != Partly)
        return code;
    const QString trouble = look.save(session.request().arguments.first());
    return trouble.isEmpty() ? code : usage(trouble);
}

ExitCode loadShowFile(Session &session)
{
    const QString file = session.request().arguments.first();
    Show show;
    if (!loadShow(session, file, show))
        return Usage;
    ExitCode code = session.connect();
    if (code != Done)
        return code;
    Show before;
    code = readLook(session, before, false);
    if (code != Done)
        return code;
    const QVector<Difference> all = differences(before, show);
    if (session.request().dryRun) {
        printDifferences(session, all, "unit", "file");
        return Done;
    }
    if (!all.isEmpty()) {
        const QString trouble = before.save(file + QStringLiteral(".before"));
        if (!trouble.isEmpty())
            return usage(trouble + QStringLiteral("; nothing was sent"));
    }
    return Loading(session, show).run();
}

ExitCode compareShows(Session &session)
{
    const QStringList &files = session.request().arguments;
    Show left;
    if (!loadShow(session, files.first(), left))
        return Usage;
    Show right;
    if (files.size() > 1) {
        if (!loadShow(session, files.at(1), right))
            return Usage;
        printDifferences(session, differences(left, right), "first", "second");
        return Done;
    }
    ExitCode code = session.connect();
    if (code == Done)
        code = readLook(session, right, false);
    if (code == Done)
        printDifferences(session, differences(left, right), "file", "unit");
    return code;
}

ExitCode printSchema(Session & /*session*/)
{
    printJson(Show::schema());
    return Done;
}

} // namespace ctl
