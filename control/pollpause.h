#pragma once

#include "control/maincontrol.h"
#include "device/qkv720.h"

#include <functional>

// Holds the status poll off while an operation talks to the unit. False when no link is up: then nothing was
// stopped and nothing is started. The poll restarts at end(), or where the pause goes out of scope, if the
// link still stands.
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

template <typename Call>
void mainControl::operate(Call call, Tell tell, Order order)
{
    PollPause pause(*this);
    if (!pause)
        return;
    std::invoke(call, *qkv720Obj, currentConnectMethod);
    if (order == AfterRestart)
        pause.end();
    (this->*tell)();
}

template <typename Call, typename... Arguments>
void mainControl::forward(Call call, Arguments... arguments)
{
    const PollPause pause(*this);
    if (pause)
        std::invoke(call, *qkv720Obj, currentConnectMethod, arguments...);
}
