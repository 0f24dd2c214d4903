#pragma once

#include "ctl/session.h"

#include <QVector>

namespace ctl {

// One command of the program. Each checks all that it was given before it connects, prints what was asked for,
// says on standard error what went wrong, and returns the exit status.
struct Command
{
    const char *words; // "memory load": its name, and the first argument where that is part of it
    const char *arguments;
    const char *text;
    int least; // arguments
    int most;
    ExitCode (*run)(Session &session);
};

// In the order in which the help lists them.
const QVector<Command> &commands();

ExitCode discover(Session &session);
ExitCode showInfo(Session &session);
ExitCode showStatus(Session &session);
ExitCode listFunctions(Session &session);
ExitCode getFunctions(Session &session);
ExitCode setFunction(Session &session);
ExitCode resetFunction(Session &session);
ExitCode loadMemory(Session &session);
ExitCode saveMemory(Session &session);
ExitCode automaticKey(Session &session);
ExitCode pickKey(Session &session);
ExitCode saveShow(Session &session);
ExitCode loadShowFile(Session &session);
ExitCode compareShows(Session &session);
ExitCode printSchema(Session &session);
ExitCode watch(Session &session);
ExitCode monitor(Session &session);

} // namespace ctl
