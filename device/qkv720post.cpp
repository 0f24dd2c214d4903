#include "device/qkv720.h"

#include "device/functions.h"

#include <QDebug>

// Post-processing, windows and aux.

namespace {
qkv720_gmwindow windowOf(bool enable, uint invert, uint left, uint right, uint top, uint bottom, uint border)
{
    return {enable,
            invert,
            static_cast<quint16>(left),
            static_cast<quint16>(right),
            static_cast<quint16>(top),
            static_cast<quint16>(bottom),
            border};
}
} // namespace

// ---- Post amplifier --------------------------------------------------------------------------------------------

qkv720_ppfgpostamp qkv720::getPPFGPostAmp(uint method)
{
    return readFunction(method, functions::postAmplifier) ? ppPostAmp : qkv720_ppfgpostamp();
}

void qkv720::setPPFGPostAmp(uint method, bool enable, uint bright, uint contrast, uint sat, uint hue)
{
    ppPostAmp = {enable, bright, contrast, sat, hue};
    sendFunction(method, functions::postAmplifier);
}

void qkv720::resetPPFGPostAmp(uint method)
{
    restoreFunction(method, functions::postAmplifier);
}

// ---- RGB corrector ---------------------------------------------------------------------------------------------

qkv720_fg_rgb_corrector qkv720::getPPFGRGBCorrect(uint method)
{
    qDebug() << "getPPFGRGBCorrect";
    return readFunction(method, functions::rgbCorrector) ? rgbCorrect : qkv720_fg_rgb_corrector();
}

void qkv720::setPPFGRGBCorrect(uint method, bool enable, uint r_white, uint r_black, uint g_white,
                               uint g_black, uint b_white, uint b_black)
{
    qDebug() << "setPPFGRGBCorrect" << enable << r_white << r_black << g_white << g_black << b_white
             << b_black;
    rgbCorrect = {enable, r_white, r_black, g_white, g_black, b_white, b_black};
    sendFunction(method, functions::rgbCorrector);
}

void qkv720::resetPPFGRGBCorrect(uint method)
{
    qDebug() << "resetPPFGRGBCorrect";
    restoreFunction(method, functions::rgbCorrector);
}

// ---- Background blur -------------------------------------------------------------------------------------------

qkv720_bgblur qkv720::getBGBlur(uint method)
{
    qDebug() << "getBGBlur";
    return readFunction(method, functions::backgroundBlur) ? bgBlur : qkv720_bgblur();
}

void qkv720::setBGBlur(uint method, bool enable, uint bgblur, uint blurtime)
{
    qDebug() << "setBGBlur" << enable << bgblur << blurtime;
    bgBlur = {enable, bgblur, blurtime};
    sendFunction(method, functions::backgroundBlur);
}

void qkv720::resetBGBlur(uint method)
{
    restoreFunction(method, functions::backgroundBlur);
}

// ---- Garbage mask and holdout window ---------------------------------------------------------------------------

qkv720_gmwindow qkv720::getWindow(uint method)
{
    return readFunction(method, functions::garbageMask) ? garbageMaskWindow : qkv720_gmwindow();
}

void qkv720::setWindow(uint method, bool enable, uint invert, uint left, uint right, uint top, uint bottom,
                       uint border)
{
    garbageMaskWindow = windowOf(enable, invert, left, right, top, bottom, border);
    sendFunction(method, functions::garbageMask);
}

void qkv720::resetWindow(uint method)
{
    restoreFunction(method, functions::garbageMask);
}

qkv720_gmwindow qkv720::getHoldoutWindow(uint method)
{
    return readFunction(method, functions::holdoutWindow) ? holdoutWindow : qkv720_gmwindow();
}

void qkv720::setHoldoutWindow(uint method, bool enable, uint invert, uint left, uint right, uint top,
                              uint bottom, uint border)
{
    holdoutWindow = windowOf(enable, invert, left, right, top, bottom, border);
    sendFunction(method, functions::holdoutWindow);
}

void qkv720::resetHoldoutWindow(uint method)
{
    restoreFunction(method, functions::holdoutWindow);
}

// ---- Aux mode --------------------------------------------------------------------------------------------------

// The blur's codes and its first two data bytes. Each of the two functions writes only its own fields.
void qkv720::getAuxMode(uint method)
{
    readFunction(method, functions::auxMode);
}

void qkv720::setAuxMode(uint method, uint auxFunc, uint polarity)
{
    auxFunction = auxFunc;
    auxPolarity = polarity;
    sendFunction(method, functions::auxMode);
}

void qkv720::resetAuxMode(uint method)
{
    restoreFunction(method, functions::auxMode);
}

// ---- Aux luma key ----------------------------------------------------------------------------------------------

void qkv720::getLumaKey(uint method)
{
    readFunction(method, functions::lumaKey);
}

void qkv720::setLumaKey(uint method, bool enable, uint keymode, quint16 cutOff, quint16 softness, uint layer,
                        uint swaptime, quint16 opacity)
{
    auxLumakey = {enable, keymode, cutOff, softness, layer, swaptime, opacity};
    sendFunction(method, functions::lumaKey);
}

void qkv720::resetLumaKey(uint method)
{
    restoreFunction(method, functions::lumaKey);
}
