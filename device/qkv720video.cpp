#include "device/qkv720.h"

#include "device/functions.h"

#include <QDebug>

// Output standard, routing and input selection.

void qkv720::setVideoOut(uint method, resolution res, hdmiout_format colorSpace, std_auto std)
{
    videoOut.res = res;
    videoOut.colorspace = colorSpace;
    videoOut.std = std;
    sendFunction(method, functions::outputStandard);
}

void qkv720::setOutputSelection(uint method, output pgmPara, output pvwPara, output pgm_HDMIPara,
                                output pvw_HDMIPara)
{
    PGM = pgmPara;
    PVW = pvwPara;
    PGM_HDMI = pgm_HDMIPara;
    PVW_HDMI = pvw_HDMIPara;
    sendFunction(method, functions::outputRouting);
}

void qkv720::setVideoInputSource(uint method, uint fgSource, uint bgSource, uint auxSource, int fgfreeze,
                                 int bgfreeze, int auxfreeze, int genlock, qint16 gen_h, qint16 gen_v)
{
    qDebug() << "setVideoInputSource:" << method << fgSource << bgSource << auxSource << fgfreeze << bgfreeze
             << auxfreeze << genlock << gen_h << gen_v;
    inputFG.source = input_source(fgSource);
    inputBG.source = input_source(bgSource);
    inputAUX.source = input_source(auxSource);
    inputFG.freeze = fgfreeze; // as it comes: the next read turns it into 1 or 0
    inputBG.freeze = bgfreeze;
    inputAUX.freeze = auxfreeze;
    genlockSrc = genlock;
    genlock_H = gen_h;
    genlock_V = gen_v;
    sendFunction(method, functions::inputSelection);
}

void qkv720::resetVideoInputGenlock(uint method)
{
    if (!restoreFunction(method, functions::inputSelection))
        return;
    qDebug() << "Reset Genlock:" << inputFG.source << inputBG.source << inputAUX.source << inputFG.freeze
             << inputBG.freeze << inputAUX.freeze << genlockSrc << genlock_H << genlock_V;
}
