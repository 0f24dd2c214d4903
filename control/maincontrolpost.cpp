#include "control/maincontrol.h"
#include "control/pollpause.h"

#include <QDebug>

// A signal told after pause.end() leaves after the poll's restart, one told before it leaves before. The gets
// tell the device object's fields: a failed read returns a record without data and leaves the fields as they
// were.

// ---- Telling what the device object holds -----------------------------------------------------------------

void mainControl::tellPPFGPostAmp()
{
    const qkv720_ppfgpostamp &pa = qkv720Obj->ppPostAmp;
    emit refreshPPFGPostAmp(pa.enable, pa.bright, pa.contrast, pa.sat, pa.hue);
}

void mainControl::tellPPFGRGBCorrector()
{
    const qkv720_fg_rgb_corrector &rc = qkv720Obj->rgbCorrect;
    emit refreshPPFGRGBCorrector(rc.enable, rc.rWhite, rc.rBlack, rc.gWhite, rc.gBlack, rc.bWhite, rc.bBlack);
}

void mainControl::tellWindow()
{
    const qkv720_gmwindow &win = qkv720Obj->garbageMaskWindow;
    emit refreshWindow(win.enable, win.invert, win.left, win.right, win.top, win.bottom, win.border);
}

void mainControl::tellHoldoutWindow()
{
    const qkv720_gmwindow &win = qkv720Obj->holdoutWindow;
    emit refreshHoldoutWindow(win.enable, win.invert, win.left, win.right, win.top, win.bottom, win.border);
}

void mainControl::tellAuxMode()
{
    emit refreshAuxMode(qkv720Obj->auxFunction, qkv720Obj->auxPolarity);
}

void mainControl::tellBGBlur()
{
    const qkv720_bgblur &blur = qkv720Obj->bgBlur;
    emit refreshPPBGBlur(blur.enable, blur.bg_blur, blur.blurTime);
}

void mainControl::tellLumaKey()
{
    const qkv720_auxlumakey &key = qkv720Obj->auxLumakey;
    emit refreshLumaKey(key.enable, key.keymode, key.cutOff, key.softness, key.layerSwap, key.swapTime,
                        key.opacity);
}

// ---- Foreground: post amplifier and RGB corrector ---------------------------------------------------------

void mainControl::getPPFGPostAmp()
{
    PollPause pause(*this);
    if (!pause)
        return;
    qkv720Obj->getPPFGPostAmp(currentConnectMethod);
    const qkv720_ppfgpostamp &pa = qkv720Obj->ppPostAmp;
    qDebug() << "getPPFGPostAmp:" << pa.enable << pa.bright << pa.contrast << pa.sat << pa.hue;
    tellPPFGPostAmp();
}

void mainControl::setPPFGPostAmp(bool enable, uint bright, uint contrast, uint sat, uint hue)
{
    PollPause pause(*this);
    if (!pause)
        return;
    qkv720Obj->setPPFGPostAmp(currentConnectMethod, enable, bright, contrast, sat, hue);
}

void mainControl::resetPPFGPostAmp()
{
    PollPause pause(*this);
    if (!pause)
        return;
    qkv720Obj->resetPPFGPostAmp(currentConnectMethod);
    tellPPFGPostAmp();
}

void mainControl::getPPFGRGBCorrect()
{
    PollPause pause(*this);
    if (!pause)
        return;
    qkv720Obj->getPPFGRGBCorrect(currentConnectMethod);
    tellPPFGRGBCorrector();
}

void mainControl::setPPFGRGBCorrect(bool enable, uint r_white, uint r_black, uint g_white, uint g_black,
                                    uint b_white, uint b_black)
{
    PollPause pause(*this);
    if (!pause)
        return;
    qkv720Obj->setPPFGRGBCorrect(currentConnectMethod, enable, r_white, r_black, g_white, g_black, b_white,
                                 b_black);
}

void mainControl::resetPPFGRGBCorrect()
{
    PollPause pause(*this);
    if (!pause)
        return;
    qkv720Obj->resetPPFGRGBCorrect(currentConnectMethod);
    pause.end();
    tellPPFGRGBCorrector();
}

// ---- Windows ----------------------------------------------------------------------------------------------

void mainControl::getWindow()
{
    PollPause pause(*this);
    if (!pause)
        return;
    qkv720Obj->getWindow(currentConnectMethod);
    tellWindow();
}

void mainControl::setWindow(bool enable, uint invert, uint left, uint right, uint top, uint bottom,
                            uint border)
{
    PollPause pause(*this);
    if (!pause)
        return;
    qkv720Obj->setWindow(currentConnectMethod, enable, invert, left, right, top, bottom, border);
}

void mainControl::resetWindow()
{
    PollPause pause(*this);
    if (!pause)
        return;
    qkv720Obj->resetWindow(currentConnectMethod);
    pause.end();
    tellWindow();
}

void mainControl::getHoldoutWindow()
{
    PollPause pause(*this);
    if (!pause)
        return;
    qkv720Obj->getHoldoutWindow(currentConnectMethod);
    tellHoldoutWindow();
}

void mainControl::setHoldoutWindow(bool enable, uint invert, uint left, uint right, uint top, uint bottom,
                                   uint border)
{
    PollPause pause(*this);
    if (!pause)
        return;
    qkv720Obj->setHoldoutWindow(currentConnectMethod, enable, invert, left, right, top, bottom, border);
}

void mainControl::resetHoldoutWindow()
{
    PollPause pause(*this);
    if (!pause)
        return;
    qkv720Obj->resetHoldoutWindow(currentConnectMethod);
    pause.end();
    tellHoldoutWindow();
}

// ---- Aux mode, background blur, luma key ------------------------------------------------------------------

void mainControl::getAuxMode()
{
    PollPause pause(*this);
    if (!pause)
        return;
    qkv720Obj->getAuxMode(currentConnectMethod);
    tellAuxMode();
}

void mainControl::setAuxMode(uint auxFunc, uint polarity)
{
    PollPause pause(*this);
    if (!pause)
        return;
    qkv720Obj->setAuxMode(currentConnectMethod, auxFunc, polarity);
}

void mainControl::resetAuxMode()
{
    PollPause pause(*this);
    if (!pause)
        return;
    qkv720Obj->resetAuxMode(currentConnectMethod);
    pause.end();
    tellAuxMode();
}

void mainControl::getBGBlur()
{
    PollPause pause(*this);
    if (!pause)
        return;
    qkv720Obj->getBGBlur(currentConnectMethod);
    tellBGBlur();
}

void mainControl::setBGBlur(bool enable, uint blurvalue, uint blurtime)
{
    PollPause pause(*this);
    if (!pause)
        return;
    qkv720Obj->setBGBlur(currentConnectMethod, enable, blurvalue, blurtime);
}

void mainControl::resetBGBlur()
{
    PollPause pause(*this);
    if (!pause)
        return;
    qkv720Obj->resetBGBlur(currentConnectMethod);
    pause.end();
    tellBGBlur();
}

void mainControl::getLumaKey()
{
    PollPause pause(*this);
    if (!pause)
        return;
    qkv720Obj->getLumaKey(currentConnectMethod);
    pause.end();
    tellLumaKey();
}

void mainControl::setLumaKey(bool enable, uint keymode, quint16 cutoff, quint16 softness, uint layer,
                             uint swaptime, quint16 opacity)
{
    // Logged with or without a link.
    qDebug() << "setLumaKey: " << cutoff;
    PollPause pause(*this);
    if (!pause)
        return;
    qkv720Obj->setLumaKey(currentConnectMethod, enable, keymode, cutoff, softness, layer, swaptime, opacity);
}

void mainControl::resetLumaKey()
{
    PollPause pause(*this);
    if (!pause)
        return;
    qkv720Obj->resetLumaKey(currentConnectMethod);
    pause.end();
    tellLumaKey();
}
