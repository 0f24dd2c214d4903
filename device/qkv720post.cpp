#include "device/qkv720.h"

#include <QDebug>

// Post-processing, windows and aux. Records, with payload positions from 0 and reply positions from 3 in the same
// order:
//
//   post amplifier    on when 1, brightness (2), contrast (2), saturation (2), hue (2)
//   RGB corrector     on when 1, red white (2), red black (2), green white, green black, blue white, blue black
//   blur              on when not 0, level, time
//   window            on when 1, invert, left (2), right (2), top (2), bottom (2), border
//   aux mode          function, polarity (the first two bytes of the blur record)
//   luma key          on when not 0, mode, cut-off (2), softness (2), layer swap, swap time, opacity (2)

namespace {
Payload windowPayload(bool enable, uint invert, uint left, uint right, uint top, uint bottom, uint border)
{
    return Payload().flag(enable).byte(invert).le16(left).le16(right).le16(top).le16(bottom).byte(border);
}
} // namespace

// ---- Post amplifier --------------------------------------------------------------------------------------------

void qkv720::takePPFGPostAmp(const ReplyBody &reply, int at)
{
    ppPostAmp.enable = reply.flagIsOne(at);
    ppPostAmp.bright = reply.le16(at + 1);
    ppPostAmp.contrast = reply.le16(at + 3);
    ppPostAmp.sat = reply.le16(at + 5);
    // Without a sign, although a negative hue is sent as 16 bits of two's complement: -10 comes back as 65526.
    ppPostAmp.hue = reply.le16(at + 7);
}

qkv720_ppfgpostamp qkv720::getPPFGPostAmp(uint method)
{
    const auto reply = exchange(method, QKV720_GET_FG_POSTAMP);
    if (!reply)
        return {};
    takePPFGPostAmp(*reply, 3);
    return ppPostAmp;
}

void qkv720::setPPFGPostAmp(uint method, bool enable, uint bright, uint contrast, uint sat, uint hue)
{
    ppPostAmp = {enable, bright, contrast, sat, hue};
    exchange(method, QKV720_SET_FG_POSTAMP,
             Payload().flag(enable).le16(bright).le16(contrast).le16(sat).le16(hue));
}

void qkv720::resetPPFGPostAmp(uint method)
{
    if (const auto reply = exchange(method, QKV720_SET_FG_POSTAMP, Payload().zeros(9), kRestoreDefaults))
        takePPFGPostAmp(*reply, 3);
}

// ---- RGB corrector ---------------------------------------------------------------------------------------------

void qkv720::takePPFGRGBCorrect(const ReplyBody &reply, int at)
{
    rgbCorrect.enable = reply.flagIsOne(at);
    rgbCorrect.rWhite = reply.le16(at + 1);
    rgbCorrect.rBlack = reply.le16(at + 3);
    rgbCorrect.gWhite = reply.le16(at + 5);
    rgbCorrect.gBlack = reply.le16(at + 7);
    rgbCorrect.bWhite = reply.le16(at + 9);
    rgbCorrect.bBlack = reply.le16(at + 11);
}

qkv720_fg_rgb_corrector qkv720::getPPFGRGBCorrect(uint method)
{
    qDebug() << "getPPFGRGBCorrect";
    const auto reply = exchange(method, QKV720_GET_FG_RGB_CORRECTOR);
    if (!reply)
        return {};
    takePPFGRGBCorrect(*reply, 3);
    return rgbCorrect;
}

void qkv720::setPPFGRGBCorrect(uint method, bool enable, uint r_white, uint r_black, uint g_white,
                               uint g_black, uint b_white, uint b_black)
{
    qDebug() << "setPPFGRGBCorrect" << enable << r_white << r_black << g_white << g_black << b_white
             << b_black;
    rgbCorrect = {enable, r_white, r_black, g_white, g_black, b_white, b_black};
    exchange(
        method, QKV720_SET_FG_RGB_CORRECTOR,
        Payload().flag(enable).le16(r_white).le16(r_black).le16(g_white).le16(g_black).le16(b_white).le16(
            b_black));
}

void qkv720::resetPPFGRGBCorrect(uint method)
{
    qDebug() << "resetPPFGRGBCorrect";
    if (const auto reply =
            exchange(method, QKV720_SET_FG_RGB_CORRECTOR, Payload().zeros(13), kRestoreDefaults))
        takePPFGRGBCorrect(*reply, 3);
}

// ---- Background blur -------------------------------------------------------------------------------------------

void qkv720::takeBGBlur(const ReplyBody &reply, int at)
{
    bgBlur.enable = reply.flagIsSet(at);
    bgBlur.bg_blur = reply.widenedAt(at + 1);
    bgBlur.blurTime = reply.widenedAt(at + 2);
}

qkv720_bgblur qkv720::getBGBlur(uint method)
{
    qDebug() << "getBGBlur";
    const auto reply = exchange(method, QKV720_GET_BG_BLUR);
    if (!reply)
        return {};
    takeBGBlur(*reply, 3);
    return bgBlur;
}

void qkv720::setBGBlur(uint method, bool enable, uint bgblur, uint blurtime)
{
    qDebug() << "setBGBlur" << enable << bgblur << blurtime;
    bgBlur = {enable, bgblur, blurtime};
    exchange(method, QKV720_SET_BG_BLUR, Payload().flag(enable).byte(bgblur).byte(blurtime));
}

void qkv720::resetBGBlur(uint method)
{
    // Two zeros, one fewer than the set sends: the frame is that of resetAuxMode. The reply is read in full.
    if (const auto reply = exchange(method, QKV720_SET_BG_BLUR, Payload().zeros(2), kRestoreDefaults))
        takeBGBlur(*reply, 3);
}

// ---- Garbage mask and holdout window ---------------------------------------------------------------------------

void qkv720::takeWindow(qkv720_gmwindow &window, const ReplyBody &reply, int at)
{
    window.enable = reply.flagIsOne(at);
    window.invert = reply.widenedAt(at + 1);
    window.left = reply.le16(at + 2);
    window.right = reply.le16(at + 4);
    window.top = reply.le16(at + 6);
    window.bottom = reply.le16(at + 8);
    window.border = reply.widenedAt(at + 10);
}

void qkv720::storeWindow(qkv720_gmwindow &window, bool enable, uint invert, uint left, uint right, uint top,
                         uint bottom, uint border)
{
    window.enable = enable;
    window.invert = invert;
    window.left = static_cast<quint16>(left);
    window.right = static_cast<quint16>(right);
    window.top = static_cast<quint16>(top);
    window.bottom = static_cast<quint16>(bottom);
    window.border = border;
}

qkv720_gmwindow qkv720::getWindow(uint method)
{
    const auto reply = exchange(method, QKV720_GET_WINDOW);
    if (!reply)
        return {};
    takeWindow(garbageMaskWindow, *reply, 3);
    return garbageMaskWindow;
}

void qkv720::setWindow(uint method, bool enable, uint invert, uint left, uint right, uint top, uint bottom,
                       uint border)
{
    storeWindow(garbageMaskWindow, enable, invert, left, right, top, bottom, border);
    exchange(method, QKV720_SET_WINDOW, windowPayload(enable, invert, left, right, top, bottom, border));
}

void qkv720::resetWindow(uint method)
{
    if (const auto reply = exchange(method, QKV720_SET_WINDOW, Payload().zeros(11), kRestoreDefaults))
        takeWindow(garbageMaskWindow, *reply, 3);
}

qkv720_gmwindow qkv720::getHoldoutWindow(uint method)
{
    const auto reply = exchange(method, QKV720_GET_HOLDOUTWINDOW);
    if (!reply)
        return {};
    takeWindow(holdoutWindow, *reply, 3);
    return holdoutWindow;
}

void qkv720::setHoldoutWindow(uint method, bool enable, uint invert, uint left, uint right, uint top,
                              uint bottom, uint border)
{
    storeWindow(holdoutWindow, enable, invert, left, right, top, bottom, border);
    exchange(method, QKV720_SET_HOLDOUTWINDOW,
             windowPayload(enable, invert, left, right, top, bottom, border));
}

void qkv720::resetHoldoutWindow(uint method)
{
    if (const auto reply = exchange(method, QKV720_SET_HOLDOUTWINDOW, Payload().zeros(11), kRestoreDefaults))
        takeWindow(holdoutWindow, *reply, 3);
}

// ---- Aux mode --------------------------------------------------------------------------------------------------

// The blur's codes and its first two data bytes. Each of the two functions writes only its own fields.
void qkv720::takeAuxMode(const ReplyBody &reply, int at)
{
    auxFunction = reply.widenedAt(at);
    auxPolarity = reply.widenedAt(at + 1);
}

void qkv720::getAuxMode(uint method)
{
    if (const auto reply = exchange(method, QKV720_GET_BG_BLUR))
        takeAuxMode(*reply, 3);
}

void qkv720::setAuxMode(uint method, uint auxFunc, uint polarity)
{
    auxFunction = auxFunc;
    auxPolarity = polarity;
    exchange(method, QKV720_SET_BG_BLUR, Payload().byte(auxFunction).byte(auxPolarity));
}

void qkv720::resetAuxMode(uint method)
{
    if (const auto reply = exchange(method, QKV720_SET_BG_BLUR, Payload().zeros(2), kRestoreDefaults))
        takeAuxMode(*reply, 3);
}

// ---- Aux luma key ----------------------------------------------------------------------------------------------

void qkv720::takeLumaKey(const ReplyBody &reply, int at)
{
    auxLumakey.enable = reply.flagIsSet(at);
    auxLumakey.keymode = reply.widenedAt(at + 1);
    auxLumakey.cutOff = reply.le16(at + 2);
    auxLumakey.softness = reply.le16(at + 4);
    auxLumakey.layerSwap = reply.widenedAt(at + 6);
    auxLumakey.swapTime = reply.widenedAt(at + 7);
    auxLumakey.opacity = reply.le16(at + 8);
}

void qkv720::getLumaKey(uint method)
{
    if (const auto reply = exchange(method, QKV720_GET_LUMAKEY))
        takeLumaKey(*reply, 3);
}

void qkv720::setLumaKey(uint method, bool enable, uint keymode, quint16 cutOff, quint16 softness, uint layer,
                        uint swaptime, quint16 opacity)
{
    auxLumakey = {enable, keymode, cutOff, softness, layer, swaptime, opacity};
    exchange(method, QKV720_SET_LUMAKEY,
             Payload().flag(enable).byte(keymode).le16(cutOff).le16(softness).byte(layer).byte(swaptime).le16(
                 opacity));
}

void qkv720::resetLumaKey(uint method)
{
    // Five zeros, half of what the set sends, as the unit wants it. The reply is read in full.
    if (const auto reply = exchange(method, QKV720_SET_LUMAKEY, Payload().zeros(5), kRestoreDefaults))
        takeLumaKey(*reply, 3);
}
