#pragma once

namespace ctl {

// Exit statuses. Scripts depend on the numbers.
enum ExitCode : int {
    Done = 0,
    Refused = 1, // by the unit
    Usage = 2, // the command line, or a file that it names
    NoLink = 3,
    Partly = 4,
};

} // namespace ctl
