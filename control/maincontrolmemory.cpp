#include "control/maincontrol.h"
#include "control/pollpause.h"
#include "control/settingsfile.h"

#include <QDebug>
#include <QThread>

namespace {

constexpr unsigned long kAfterRecallMs = 500;

struct RecallStep
{
    void (mainControl::*get)();
    unsigned long sleepMs;
};

// What a recall reads back, with the pause after each read. The holdout window comes before the luma key here; a
// connect reads them the other way round (docs/oddities.md). The aux mode is not read.
constexpr RecallStep kRecallSteps[] = {
    {&mainControl::getBKColor, 100},       {&mainControl::getCKAngle, 100},
    {&mainControl::getCKBWLevel, 100},     {&mainControl::getCKDark, 100},
    {&mainControl::getCKBright, 100},      {&mainControl::getEdgeFix, 100},
    {&mainControl::getCKShadow, 100},      {&mainControl::getCKSpillBright, 100},
    {&mainControl::getPPFGPostAmp, 500},   {&mainControl::getPPFGRGBCorrect, 100},
    {&mainControl::getBGBlur, 100},        {&mainControl::getWindow, 200},
    {&mainControl::getHoldoutWindow, 200}, {&mainControl::getLumaKey, 200},
};

constexpr unsigned long recallPausesMs()
{
    unsigned long sum = kAfterRecallMs;
    for (const RecallStep &step : kRecallSteps)
        sum += step.sleepMs;
    return sum;
}
static_assert(recallPausesMs() == kRecallPausesMs);

} // namespace

void mainControl::storeLastMemory(uint index)
{
    lastMemory = index;
    SettingsGroup group(*initSettings, QStringLiteral("last_info"));
    group.set("memory", lastMemory);
}

void mainControl::loadMemory(uint index)
{
    const PollPause pause(*this);
    if (!pause)
        return;
    qkv720Obj->loadMemory(currentConnectMethod, index);
    QThread::msleep(kAfterRecallMs);
    const video_out vv = getVOut();
    qDebug() << "ShowVout (loadMemory)" << vv.res << vv.colorspace << vv.std;
    tellVideo();

    // A link that breaks on the way silences the rest, but the pauses run and the memory is stored.
    for (const RecallStep &step : kRecallSteps) {
        (this->*step.get)();
        QThread::msleep(step.sleepMs);
    }

    qDebug() << "Load memory. Set last = " << index;
    // The factory reset has no entry of its own and is stored as memory 1.
    storeLastMemory(index == 0 ? 1 : index);
    setPollInterval();
}

void mainControl::saveMemory(uint index)
{
    const PollPause pause(*this);
    if (!pause)
        return;
    qDebug() << "Save memory. Set last = " << index;
    // Stored before the command goes out, and so also when it then fails.
    storeLastMemory(index);
    qkv720Obj->saveMemory(currentConnectMethod, index);
}

void mainControl::saveSetup()
{
    const PollPause pause(*this);
    if (!pause)
        return;
    qkv720Obj->saveSetup(currentConnectMethod);
    const video_out vv = getVOut();
    qDebug() << "ShowVout(saveSetup)" << vv.res << vv.colorspace << vv.std;
    tellVOut();
}
