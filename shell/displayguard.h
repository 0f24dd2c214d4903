#pragma once

// Stands while the toolkit looks for a display. Where it finds none it aborts, which leaves a core and the words of a
// developer; the guard says in one sentence what is missing and ends the program with kNoDisplay.
class DisplayGuard
{
public:
    static constexpr int kNoDisplay = 4;

    DisplayGuard();
    ~DisplayGuard();
    DisplayGuard(const DisplayGuard &) = delete;
    DisplayGuard &operator=(const DisplayGuard &) = delete;
};
