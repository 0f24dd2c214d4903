#pragma once

#include <string>

// The log of one run: each line with the time at which it came. A run that goes on for weeks, or one that a flood of
// names from the network makes talkative, keeps its last two pieces: FILE, and FILE.1 before it.
class RunLog
{
public:
    // A path that can't be written is no reason to keep the panel from running: the lines are dropped then.
    explicit RunLog(const std::string &path);
    ~RunLog();
    RunLog(const RunLog &) = delete;
    RunLog &operator=(const RunLog &) = delete;

    // Returns the line as it stands in the log, with its time.
    std::string add(const std::string &line);

private:
    void open(int flags);

    std::string path_;
    int file_ = -1;
    long long size_ = 0;
};

// Runs a program, whose standard error goes into the log and, as it comes or (timed) as it stands there, to this
// process's own. Signals that ask to end are passed on. Returns the program's exit status, or 128 and the number of the
// signal that ended it.
int runLogged(RunLog &log, bool timed, char *const *program);
