#include "ctl/commands.h"
#include "ctl/fieldtext.h"
#include "ctl/interruption.h"
#include "ctl/output.h"

#include <QDateTime>

// One line for each field that changes, until it is interrupted.

namespace ctl {

namespace {

void printChange(const Session &session, const UnitFunction &function, const UnitField &field, qint64 before,
                 qint64 now)
{
    const QDateTime time = QDateTime::currentDateTime();
    if (session.request().json) {
        printJsonLine({{"time", time.toString(Qt::ISODateWithMs)},
                       {"function", function.name},
                       {"field", field.name},
                       {"before", valueJson(field, before)},
                       {"now", valueJson(field, now)}});
        return;
    }
    print(QStringLiteral("%1  %2  %3 -> %4")
              .arg(time.toString(QStringLiteral("HH:mm:ss.zzz")), placeText(function, field),
                   valueText(field, before), valueText(field, now)));
}

// Reads the function anew and prints what is no longer as in `values`.
ExitCode look(Session &session, const UnitFunction &function, Values &values)
{
    const ExitCode code = session.link().read(function);
    if (code != Done)
        return code;
    const Values before = values;
    values = session.link().values(function);
    int i = 0;
    for (const UnitField &field : function.fields) {
        if (!before.isEmpty() && before.at(i) != values.at(i))
            printChange(session, function, field, before.at(i), values.at(i));
        ++i;
    }
    return Done;
}

} // namespace

ExitCode watch(Session &session)
{
    endOnSignal();
    ExitCode code = session.connect();
    if (code != Done)
        return code;
    const QVector<const UnitFunction *> watched = session.request().all
        ? functions::all()
        : QVector<const UnitFunction *>{&functions::inputStandard, &functions::inputSelection,
                                        &functions::outputStandard};
    QVector<Values> values(watched.size());
    QElapsedTimer clock;
    clock.start();
    for (qint64 turn = 1; !isInterrupted(); ++turn) {
        for (int i = 0; i < watched.size() && !isInterrupted(); ++i) {
            code = look(session, *watched.at(i), values[i]);
            if (code != Done)
                return session.report(code);
        }
        if (turn == 1)
            complain(QStringLiteral("watching %1").arg(session.link().place().where));
        waitForTurn(clock, turn * session.request().intervalMs);
    }
    return Done;
}

} // namespace ctl
