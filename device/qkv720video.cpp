#include "device/qkv720.h"

#include <QDebug>

// Output standard, routing and input selection. Payloads, in the order of the replies (see qkv720status.cpp):
//
//   0xE0 output standard    0 standard   1 colour format   2 mode
//   0xE3 routing            0 PGM   1 PVW   2 PGM HDMI   3 PVW HDMI   4 lock bits   5 mirror bits
//   0xE1 input selection    0 FG   1 BG   2 AUX   3 freeze bits   4 genlock   5-6 offset H   7-8 offset V

namespace {
// The first flag is bit 0.
uint bits(std::initializer_list<bool> flags)
{
    uint value = 0;
    uint bit = 1;
    for (const bool flag : flags) {
        if (flag)
            value |= bit;
        bit <<= 1U;
    }
    return value;
}
} // namespace

void qkv720::setVideoOut(uint method, resolution res, hdmiout_format colorSpace, std_auto std)
{
    videoOut.res = res;
    videoOut.colorspace = colorSpace;
    videoOut.std = std;
    exchange(method, QKV720_SET_VIDEOOUT_RESOLUTION,
             Payload().byte(uint(res)).byte(uint(colorSpace)).byte(uint(std)));
}

void qkv720::setOutputSelection(uint method, output pgmPara, output pvwPara, output pgm_HDMIPara,
                                output pvw_HDMIPara)
{
    PGM = pgmPara;
    PVW = pvwPara;
    PGM_HDMI = pgm_HDMIPara;
    PVW_HDMI = pvw_HDMIPara;
    exchange(method, QKV720_SET_PGMPVW_OUTPUT,
             Payload()
                 .byte(uint(PGM.source))
                 .byte(uint(PVW.source))
                 .byte(uint(PGM_HDMI.source))
                 .byte(uint(PVW_HDMI.source))
                 .byte(bits({PGM.lock, PVW.lock, PGM_HDMI.lock, PVW_HDMI.lock}))
                 .byte(bits({PGM.mirror, PVW.mirror, PGM_HDMI.mirror, PVW_HDMI.mirror})));
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
    exchange(method, QKV720_SET_FGBGAUX_INPUTSOURCE,
             Payload()
                 .byte(fgSource)
                 .byte(bgSource)
                 .byte(auxSource)
                 .byte(bits({fgfreeze != 0, bgfreeze != 0, auxfreeze != 0}))
                 .byte(uint(genlock))
                 .le16(uint(gen_h))
                 .le16(uint(gen_v)));
}

void qkv720::resetVideoInputGenlock(uint method)
{
    // No payload at all, where every other reset sends at least some zeros.
    const auto reply = exchange(method, QKV720_SET_FGBGAUX_INPUTSOURCE, Payload(), kRestoreDefaults);
    if (!reply)
        return;
    takeInputs(*reply, 3);
    qDebug() << "Reset Genlock:" << inputFG.source << inputBG.source << inputAUX.source << inputFG.freeze
             << inputBG.freeze << inputAUX.freeze << genlockSrc << genlock_H << genlock_V;
}
