#pragma once

#include "device/qkv720.h"

// The operations of class qkv720 as the table of functions calls them: with the fields as they stand.

namespace functions {

// Calls an operation that takes nothing but the link.
template <auto Operation>
void call(qkv720 &unit, uint method)
{
    (unit.*Operation)(method);
}

inline void readAngle(qkv720 &unit, uint method)
{
    unit.getCKAngle(method, &unit.ckAngleL, &unit.ckAngleR);
}

inline void readLevels(qkv720 &unit, uint method)
{
    unit.getCKBWLevel(method, &unit.ckBlackLevel, &unit.ckWhiteLevel, &unit.matteEnable);
}

inline void readDark(qkv720 &unit, uint method)
{
    bool enable = false;
    uint level = 0;
    uint density = 0;
    uint balance = 0;
    unit.getCKDark(method, &enable, &level, &density, &balance);
}

// The sets, each with the fields as they stand.

inline void sendBackColour(qkv720 &unit, uint method)
{
    const qkv720_color colour = unit.ckBackColor;
    // Three times 999 stands for the colour seen last; as a colour of its own it is made just that.
    if (colour.r == kColorUnderCursor && colour.g == kColorUnderCursor && colour.b == kColorUnderCursor)
        unit.tempR = unit.tempG = unit.tempB = kColorUnderCursor;
    unit.setBackColor(method, colour.r, colour.g, colour.b, colour.autoCk);
}

inline void sendAngle(qkv720 &unit, uint method)
{
    unit.setCKAngle(method, unit.ckAngleL, unit.ckAngleR);
}

inline void sendLevels(qkv720 &unit, uint method)
{
    unit.setCKBWLevel(method, unit.ckBlackLevel, unit.ckWhiteLevel, unit.matteEnable);
}

// The dark and the bright stage.
template <auto Operation, auto Stage>
void sendStage(qkv720 &unit, uint method)
{
    const qkv720_enhancement stage = unit.*Stage;
    (unit.*Operation)(method, stage.enable, stage.level, stage.density, static_cast<uint>(stage.balance));
}

inline void sendShadow(qkv720 &unit, uint method)
{
    unit.setCKShadow(method, unit.ckShadow.enable, unit.ckShadow.level);
}

inline void sendSpill(qkv720 &unit, uint method)
{
    unit.setCKSpillBright(method, unit.spillSuppression, unit.spillEnhance, unit.spillBalance,
                          unit.spillBrightness, unit.spillVivid ? 1 : 0, unit.spillDefaultValue);
}

inline void restoreSpill(qkv720 &unit, uint method)
{
    const uint preset = unit.spillDefaultValue;
    unit.resetCKSpillBright(method, preset & kSpillPresetMask, (preset & kSpillEnhanceBit) != 0);
}

inline void sendEdgeFix(qkv720 &unit, uint method)
{
    unit.setEdgeFix(method, unit.edgeFixEnable, unit.edge_ShrinkLeft, unit.edge_ShrinkRight,
                    unit.edge_SoftEdge);
}

inline void sendPostAmplifier(qkv720 &unit, uint method)
{
    const qkv720_ppfgpostamp amp = unit.ppPostAmp;
    unit.setPPFGPostAmp(method, amp.enable, amp.bright, amp.contrast, amp.sat, amp.hue);
}

inline void sendRgbCorrector(qkv720 &unit, uint method)
{
    const qkv720_fg_rgb_corrector rgb = unit.rgbCorrect;
    unit.setPPFGRGBCorrect(method, rgb.enable, rgb.rWhite, rgb.rBlack, rgb.gWhite, rgb.gBlack, rgb.bWhite,
                           rgb.bBlack);
}

// The garbage mask and the holdout window.
template <auto Operation, auto Window>
void sendWindow(qkv720 &unit, uint method)
{
    const qkv720_gmwindow window = unit.*Window;
    (unit.*Operation)(method, window.enable, window.invert, window.left, window.right, window.top,
                      window.bottom, window.border);
}

inline void sendBackgroundBlur(qkv720 &unit, uint method)
{
    unit.setBGBlur(method, unit.bgBlur.enable, unit.bgBlur.bg_blur, unit.bgBlur.blurTime);
}

inline void sendAuxMode(qkv720 &unit, uint method)
{
    unit.setAuxMode(method, unit.auxFunction, unit.auxPolarity);
}

inline void sendLumaKey(qkv720 &unit, uint method)
{
    const qkv720_auxlumakey key = unit.auxLumakey;
    unit.setLumaKey(method, key.enable, key.keymode, key.cutOff, key.softness, key.layerSwap, key.swapTime,
                    key.opacity);
}

inline void sendOutputStandard(qkv720 &unit, uint method)
{
    unit.setVideoOut(method, unit.videoOut.res, unit.videoOut.colorspace, unit.videoOut.std);
}

inline void sendInputSelection(qkv720 &unit, uint method)
{
    unit.setVideoInputSource(method, uint(unit.inputFG.source), uint(unit.inputBG.source),
                             uint(unit.inputAUX.source), unit.inputFG.freeze, unit.inputBG.freeze,
                             unit.inputAUX.freeze, unit.genlockSrc, unit.genlock_H, unit.genlock_V);
}

inline void sendOutputRouting(qkv720 &unit, uint method)
{
    unit.setOutputSelection(method, unit.PGM, unit.PVW, unit.PGM_HDMI, unit.PVW_HDMI);
}

} // namespace functions
