#include "control/maincontrol.h"
#include "control/pollpause.h"

#include <QDebug>
#include <QThread>

namespace {

constexpr int kPgm = 1;
constexpr int kPvw = 2;
constexpr int kPgmHdmi = 3;
constexpr int kPvwHdmi = 4;

constexpr unsigned long kAfterGenlockResetMs = 500;
constexpr unsigned long kBeforePollMs = 200;

void asksNothing(qkv720 & /*unit*/, uint /*method*/) { }

output routed(uint source, bool lock, bool mirror)
{
    return {static_cast<output_source>(source), lock, mirror};
}

} // namespace

// ---- Emitting what the device object holds ----------------------------------------------------------------

void mainControl::tellVOut()
{
    emit showVout(qkv720Obj->getVideoOutRes(), qkv720Obj->getVideoOutColorFormat(),
                  qkv720Obj->getVideoOutStd());
}

void mainControl::tellOutputs()
{
    // PGM HDMI before PVW (docs/oddities.md).
    emit refreshOutputSourcePGM(qkv720Obj->getOutSource(kPgm), qkv720Obj->getOutLock(kPgm),
                                getOutputMirror(kPgm));
    emit refreshOutputSourcePGMHDMI(qkv720Obj->getOutSource(kPgmHdmi), qkv720Obj->getOutLock(kPgmHdmi),
                                    getOutputMirror(kPgmHdmi));
    emit refreshOutputSourcePVW(qkv720Obj->getOutSource(kPvw), qkv720Obj->getOutLock(kPvw),
                                getOutputMirror(kPvw));
    emit refreshOutputSourcePVWHDMI(qkv720Obj->getOutSource(kPvwHdmi), qkv720Obj->getOutLock(kPvwHdmi),
                                    getOutputMirror(kPvwHdmi));
}

void mainControl::tellInputResolution()
{
    emit refreshInputResolution(qkv720Obj->getInputRes(1), qkv720Obj->getInputRes(2),
                                qkv720Obj->getInputRes(3), qkv720Obj->getInputRes(4),
                                qkv720Obj->genlockStatus);
}

void mainControl::tellInputSource()
{
    emit refreshInputSource(qkv720Obj->getInputSource(1), qkv720Obj->getInputSource(2),
                            qkv720Obj->getInputSource(3));
}

void mainControl::tellInputFreeze()
{
    emit refreshInputFreeze(qkv720Obj->getInputFreeze(1) != 0, qkv720Obj->getInputFreeze(2) != 0,
                            qkv720Obj->getInputFreeze(3) != 0);
}

void mainControl::tellGenlock()
{
    emit refreshGenlock(qkv720Obj->genlockSrc, qkv720Obj->genlock_H, qkv720Obj->genlock_V);
}

void mainControl::tellVideo()
{
    tellVOut();
    tellOutputs();
    tellInputResolution();
    tellInputSource();
    tellInputFreeze();
    tellGenlock();
}

// ---- Output standard and routing --------------------------------------------------------------------------

video_out mainControl::getVOut()
{
    // Without a look at the link first: this is the one place where a failed read turns into the ERROR mark.
    timerRefreshStatus->stop();
    qkv720Obj->getVideoOut(currentConnectMethod);
    video_out vOut = qkv720Obj->videoOut; // a failed read returns no data, the stored standard stands
    if (!qkv720Obj->isConnected) {
        vOut.std = std_auto::ERROR;
        return vOut;
    }
    timerRefreshStatus->start();
    return vOut;
}

int mainControl::getVideoOutRes()
{
    const PollPause pause(*this);
    if (!pause)
        return 0;
    qkv720Obj->getVideoOut(currentConnectMethod);
    return static_cast<int>(qkv720Obj->getVideoOutRes());
}

void mainControl::setVOut(uint resIndex, uint colorFormatIndex, uint std)
{
    PollPause pause(*this);
    if (!pause)
        return;
    qkv720Obj->setVideoOut(currentConnectMethod, static_cast<resolution>(resIndex),
                           static_cast<hdmiout_format>(colorFormatIndex), static_cast<std_auto>(std));
    // Read back, so that the interface shows what the unit accepted and not what was asked for.
    const video_out vv = getVOut();
    qDebug() << "ShowVout (setVOut): " << vv.res << vv.colorspace << vv.std;
    emit showVout(static_cast<uint>(vv.res), static_cast<uint>(vv.colorspace), static_cast<uint>(vv.std));
    pause.end();
    emit vOutChanged();
}

void mainControl::setOutSelect(uint pgmSource, bool pgmLock, bool pgmMirror, uint pvwSource, bool pvwLock,
                               bool pvwMirror, uint pgmhdmiSource, bool pgmhdmiLock, bool pgmhdmiMirror,
                               uint pvwhdmiSource, bool pvwhdmLiock, bool pvwhdmiMirror)
{
    PollPause pause(*this);
    if (!pause)
        return;
    qDebug() << "SetOutSelect: " << pgmSource << pvwSource << pgmhdmiSource << pvwhdmiSource;
    const output pgm = routed(pgmSource, pgmLock, pgmMirror);
    const output pvw = routed(pvwSource, pvwLock, pvwMirror);
    const output pgmhdmi = routed(pgmhdmiSource, pgmhdmiLock, pgmhdmiMirror);
    const output pvwhdmi = routed(pvwhdmiSource, pvwhdmLiock, pvwhdmiMirror);
    // Here alone the poll restarts before the call (docs/oddities.md). A link that breaks in the call stops the
    // poll again and warns at once, as anywhere else.
    pause.end();
    qkv720Obj->setOutputSelection(currentConnectMethod, pgm, pvw, pgmhdmi, pvwhdmi);
}

bool mainControl::getOutputMirror(int target)
{
    const PollPause pause(*this);
    if (!pause)
        return false;
    return qkv720Obj->getOutMirror(static_cast<uint>(target));
}

// ---- Inputs and genlock -----------------------------------------------------------------------------------

void mainControl::setVInSource(uint fgSource, uint bgSource, uint auxSource, bool fgFreeze, bool bgFreeze,
                               bool auxFreeze, bool genLock, qint16 gen_H, qint16 gen_V)
{
    timerRefreshStatus->stop();
    if (qkv720Obj->isConnected) {
        qkv720Obj->setVideoInputSource(currentConnectMethod, fgSource, bgSource, auxSource, fgFreeze ? 1 : 0,
                                       bgFreeze ? 1 : 0, auxFreeze ? 1 : 0, genLock ? 1 : 0, gen_H, gen_V);
    }
    // With or without a link: the next tick warns the operator when there is none.
    timerRefreshStatus->start();
}

void mainControl::resetGenlock()
{
    timerRefreshStatus->stop();
    if (qkv720Obj->isConnected) {
        qkv720Obj->resetVideoInputGenlock(currentConnectMethod);
        QThread::msleep(kAfterGenlockResetMs);
        tellInputResolution();
        tellInputSource();
        tellInputFreeze();
        tellGenlock();
    }
    QThread::msleep(kBeforePollMs);
    // With or without a link, as in setVInSource.
    timerRefreshStatus->start();
}

// ---- Properties -------------------------------------------------------------------------------------------

QString mainControl::vOutResolution() const
{
    return QStringLiteral("");
}

void mainControl::setVOutResolution(QString & /*value*/)
{
    operate(asksNothing, &mainControl::vOutResolutionChanged, AfterRestart);
}

QString mainControl::vOutColorSpace() const
{
    return QStringLiteral("");
}

void mainControl::setVOutColorSpace(QString & /*value*/)
{
    operate(asksNothing, &mainControl::vOutColorSpaceChanged, AfterRestart);
}

QString mainControl::vOutStd() const
{
    return QStringLiteral("");
}

void mainControl::setVOutStd(QString & /*value*/)
{
    operate(asksNothing, &mainControl::vOutStdChanged, AfterRestart);
}
