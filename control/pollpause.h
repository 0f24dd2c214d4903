#pragma once

#include "control/maincontrol.h"
#include "device/qkv720.h"

// Holds the status poll off while an operation talks to the unit. False when no link is up: then nothing was
// stopped and nothing is started. The poll restarts at end(), or where the pause goes out of scope, if the
// link still stands. Operations that tell the interface after the restart call end() first.
class mainControl::PollPause
{
public:
    explicit PollPause(mainControl &facade)
        : control(facade)
        , holding(facade.qkv720Obj->isConnected)
    {
        if (holding)
            control.timerRefreshStatus->stop();
    }
    ~PollPause() { end(); }
    PollPause(const PollPause &) = delete;
    PollPause &operator=(const PollPause &) = delete;

    explicit operator bool() const { return holding; }

    void end()
    {
        if (!holding)
            return;
        holding = false;
        control.startPollIfConnected();
    }

private:
    mainControl &control;
    bool holding;
};
