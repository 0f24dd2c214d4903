#include "control/maincontrol.h"
#include "control/pollpause.h"

#include <QDebug>

// What the gets emit comes from the device object's fields: a failed read returns a record without data and
// leaves the fields as they were.

// ---- Foreground: post amplifier and RGB corrector ---------------------------------------------------------

void mainControl::tellPPFGPostAmp()
{
    const qkv720_ppfgpostamp &pa = qkv720Obj->ppPostAmp;
    emit refreshPPFGPostAmp(pa.enable, pa.bright, pa.contrast, pa.sat, pa.hue);
}

void mainControl::getPPFGPostAmp()
{
    operate(
        [](qkv720 &unit, uint method) {
            unit.getPPFGPostAmp(method);
            const qkv720_ppfgpostamp &pa = unit.ppPostAmp;
            qDebug() << "getPPFGPostAmp:" << pa.enable << pa.bright << pa.contrast << pa.sat << pa.hue;
        },
        &mainControl::tellPPFGPostAmp, BeforeRestart);
}

void mainControl::setPPFGPostAmp(bool enable, uint bright, uint contrast, uint sat, uint hue)
{
    forward(&qkv720::setPPFGPostAmp, enable, bright, contrast, sat, hue);
}

void mainControl::resetPPFGPostAmp()
{
    operate(&qkv720::resetPPFGPostAmp, &mainControl::tellPPFGPostAmp, BeforeRestart);
}

void mainControl::tellPPFGRGBCorrector()
{
    const qkv720_fg_rgb_corrector &rc = qkv720Obj->rgbCorrect;
    emit refreshPPFGRGBCorrector(rc.enable, rc.rWhite, rc.rBlack, rc.gWhite, rc.gBlack, rc.bWhite, rc.bBlack);
}

void mainControl::getPPFGRGBCorrect()
{
    operate(&qkv720::getPPFGRGBCorrect, &mainControl::tellPPFGRGBCorrector, BeforeRestart);
}

void mainControl::setPPFGRGBCorrect(bool enable, uint r_white, uint r_black, uint g_white, uint g_black,
                                    uint b_white, uint b_black)
{
    forward(&qkv720::setPPFGRGBCorrect, enable, r_white, r_black, g_white, g_black, b_white, b_black);
}

void mainControl::resetPPFGRGBCorrect()
{
    operate(&qkv720::resetPPFGRGBCorrect, &mainControl::tellPPFGRGBCorrector, AfterRestart);
}

// ---- Windows ----------------------------------------------------------------------------------------------

void mainControl::tellWindow()
{
    const qkv720_gmwindow &win = qkv720Obj->garbageMaskWindow;
    emit refreshWindow(win.enable, win.invert, win.left, win.right, win.top, win.bottom, win.border);
}

void mainControl::getWindow()
{
    operate(&qkv720::getWindow, &mainControl::tellWindow, BeforeRestart);
}

void mainControl::setWindow(bool enable, uint invert, uint left, uint right, uint top, uint bottom,
                            uint border)
{
    forward(&qkv720::setWindow, enable, invert, left, right, top, bottom, border);
}

void mainControl::resetWindow()
{
    operate(&qkv720::resetWindow, &mainControl::tellWindow, AfterRestart);
}

void mainControl::tellHoldoutWindow()
{
    const qkv720_gmwindow &win = qkv720Obj->holdoutWindow;
    emit refreshHoldoutWindow(win.enable, win.invert, win.left, win.right, win.top, win.bottom, win.border);
}

void mainControl::getHoldoutWindow()
{
    operate(&qkv720::getHoldoutWindow, &mainControl::tellHoldoutWindow, BeforeRestart);
}

void mainControl::setHoldoutWindow(bool enable, uint invert, uint left, uint right, uint top, uint bottom,
                                   uint border)
{
    forward(&qkv720::setHoldoutWindow, enable, invert, left, right, top, bottom, border);
}

void mainControl::resetHoldoutWindow()
{
    operate(&qkv720::resetHoldoutWindow, &mainControl::tellHoldoutWindow, AfterRestart);
}

// ---- Aux mode, background blur, luma key ------------------------------------------------------------------

void mainControl::tellAuxMode()
{
    emit refreshAuxMode(qkv720Obj->auxFunction, qkv720Obj->auxPolarity);
}

void mainControl::getAuxMode()
{
    operate(&qkv720::getAuxMode, &mainControl::tellAuxMode, BeforeRestart);
}

void mainControl::setAuxMode(uint auxFunc, uint polarity)
{
    forward(&qkv720::setAuxMode, auxFunc, polarity);
}

void mainControl::resetAuxMode()
{
    operate(&qkv720::resetAuxMode, &mainControl::tellAuxMode, AfterRestart);
}

void mainControl::tellBGBlur()
{
    const qkv720_bgblur &blur = qkv720Obj->bgBlur;
    emit refreshPPBGBlur(blur.enable, blur.bg_blur, blur.blurTime);
}

void mainControl::getBGBlur()
{
    operate(&qkv720::getBGBlur, &mainControl::tellBGBlur, BeforeRestart);
}

void mainControl::setBGBlur(bool enable, uint blurvalue, uint blurtime)
{
    forward(&qkv720::setBGBlur, enable, blurvalue, blurtime);
}

void mainControl::resetBGBlur()
{
    operate(&qkv720::resetBGBlur, &mainControl::tellBGBlur, AfterRestart);
}

void mainControl::tellLumaKey()
{
    const qkv720_auxlumakey &key = qkv720Obj->auxLumakey;
    emit refreshLumaKey(key.enable, key.keymode, key.cutOff, key.softness, key.layerSwap, key.swapTime,
                        key.opacity);
}

void mainControl::getLumaKey()
{
    operate(&qkv720::getLumaKey, &mainControl::tellLumaKey, AfterRestart);
}

void mainControl::setLumaKey(bool enable, uint keymode, quint16 cutoff, quint16 softness, uint layer,
                             uint swaptime, quint16 opacity)
{
    qDebug() << "setLumaKey: " << cutoff; // with or without a link, unlike the other sets
    forward(&qkv720::setLumaKey, enable, keymode, cutoff, softness, layer, swaptime, opacity);
}

void mainControl::resetLumaKey()
{
    operate(&qkv720::resetLumaKey, &mainControl::tellLumaKey, AfterRestart);
}
