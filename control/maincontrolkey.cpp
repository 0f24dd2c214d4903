#include "control/maincontrol.h"
#include "control/pollpause.h"

#include <QDebug>

// A signal told after pause.end() leaves after the poll's restart, one told before it leaves before.

namespace {

constexpr uint kSpillPresetMask = 0x07;
constexpr uint kSpillEnhanceBit = 0x08;
constexpr uint kSpillVividBit = 0x10;

} // namespace

// ---- Telling what the device object holds -----------------------------------------------------------------

void mainControl::tellCKAngle()
{
    emit refreshCKAngle(qkv720Obj->ckAngleL, qkv720Obj->ckAngleR);
}

void mainControl::tellCKBWLevel()
{
    emit refreshCKBWLevel(qkv720Obj->ckBlackLevel, qkv720Obj->ckWhiteLevel, qkv720Obj->matteEnable);
}

void mainControl::tellCKDark()
{
    const qkv720_enhancement &dark = qkv720Obj->ckDark;
    emit refreshCKDark(dark.enable, dark.level, dark.density, dark.balance);
}

void mainControl::tellCKBright()
{
    const qkv720_enhancement &bright = qkv720Obj->ckBright;
    emit refreshCKBright(bright.enable, bright.level, bright.density, bright.balance);
}

void mainControl::tellCKShadow()
{
    emit refreshCKShadow(qkv720Obj->ckShadow.enable, qkv720Obj->ckShadow.level);
}

void mainControl::tellEdgeFix()
{
    emit refreshEdgeFix(qkv720Obj->edgeFixEnable, qkv720Obj->edge_ShrinkLeft, qkv720Obj->edge_ShrinkRight,
                        qkv720Obj->edge_SoftEdge);
}

void mainControl::tellCKSpill()
{
    emit refreshCKSpill(qkv720Obj->spillSuppression, qkv720Obj->spillEnhance, qkv720Obj->spillBalance,
                        qkv720Obj->spillBrightness, qkv720Obj->spillVivid,
                        qkv720Obj->spillDefaultValue & kSpillPresetMask, qkv720Obj->spillVividDefault,
                        qkv720Obj->spillEnhanceDefault);
}

// ---- Angle ------------------------------------------------------------------------------------------------

void mainControl::getCKAngle()
{
    PollPause pause(*this);
    if (!pause)
        return;
    // After a failed read the stored values are told.
    uint l = qkv720Obj->ckAngleL;
    uint r = qkv720Obj->ckAngleR;
    qkv720Obj->getCKAngle(currentConnectMethod, &l, &r);
    qDebug() << "GetAngle: " << l << r;
    pause.end();
    emit refreshCKAngle(l, r);
}

void mainControl::setCKAngle(uint l, uint r)
{
    PollPause pause(*this);
    if (!pause)
        return;
    qDebug() << "SetAngle: " << l << r;
    qkv720Obj->setCKAngle(currentConnectMethod, l, r);
}

void mainControl::resetCKAngle()
{
    PollPause pause(*this);
    if (!pause)
        return;
    qkv720Obj->resetCKAngle(currentConnectMethod);
    pause.end();
    tellCKAngle();
}

// ---- Black and white level --------------------------------------------------------------------------------

void mainControl::getCKBWLevel()
{
    PollPause pause(*this);
    if (!pause)
        return;
    uint b = qkv720Obj->ckBlackLevel;
    uint w = qkv720Obj->ckWhiteLevel;
    bool m = qkv720Obj->matteEnable;
    qkv720Obj->getCKBWLevel(currentConnectMethod, &b, &w, &m);
    qDebug() << "GetBWLevel: " << b << w << m;
    pause.end();
    emit refreshCKBWLevel(b, w, m);
}

void mainControl::setCKBWLevel(uint black, uint white, bool matteOn)
{
    PollPause pause(*this);
    if (!pause)
        return;
    qDebug() << "SetBWLevel: " << black << white << matteOn;
    qkv720Obj->setCKBWLevel(currentConnectMethod, black, white, matteOn);
}

void mainControl::resetCKBWLevel()
{
    PollPause pause(*this);
    if (!pause)
        return;
    qkv720Obj->resetCKBWLevel(currentConnectMethod);
    tellCKBWLevel();
}

// ---- Dark, bright, shadow ---------------------------------------------------------------------------------

void mainControl::getCKDark()
{
    PollPause pause(*this);
    if (!pause)
        return;
    bool enable = qkv720Obj->ckDark.enable;
    uint level = qkv720Obj->ckDark.level;
    uint density = qkv720Obj->ckDark.density;
    auto balance = static_cast<uint>(int{qkv720Obj->ckDark.balance});
    qkv720Obj->getCKDark(currentConnectMethod, &enable, &level, &density, &balance);
    qDebug() << "Get Dark: " << enable << level << density << balance;
    pause.end();
    emit refreshCKDark(enable, static_cast<int>(level), static_cast<int>(density), static_cast<int>(balance));
}

void mainControl::setCKDark(bool enable, uint level, uint density, uint balance)
{
    PollPause pause(*this);
    if (!pause)
        return;
    qkv720Obj->setCKDark(currentConnectMethod, enable, level, density, balance);
}

void mainControl::resetCKDark()
{
    PollPause pause(*this);
    if (!pause)
        return;
    qkv720Obj->resetCKDark(currentConnectMethod);
    pause.end();
    tellCKDark();
}

void mainControl::getCKBright()
{
    PollPause pause(*this);
    if (!pause)
        return;
    qkv720Obj->getCKBright(currentConnectMethod);
    pause.end();
    tellCKBright();
}

void mainControl::setCKBright(bool enable, uint level, uint density, uint balance)
{
    PollPause pause(*this);
    if (!pause)
        return;
    qkv720Obj->setCKBright(currentConnectMethod, enable, level, density, balance);
}

void mainControl::resetCKBright()
{
    PollPause pause(*this);
    if (!pause)
        return;
    qkv720Obj->resetCKBright(currentConnectMethod);
    pause.end();
    tellCKBright();
}

void mainControl::getCKShadow()
{
    PollPause pause(*this);
    if (!pause)
        return;
    qkv720Obj->getCKShadow(currentConnectMethod);
    qDebug() << "Shadow Enagle:" << qkv720Obj->ckShadow.enable << qkv720Obj->ckShadow.level;
    pause.end();
    tellCKShadow();
}

void mainControl::setCKShadow(bool enable, uint level)
{
    PollPause pause(*this);
    if (!pause)
        return;
    qkv720Obj->setCKShadow(currentConnectMethod, enable, level);
}

void mainControl::resetCKShadow()
{
    PollPause pause(*this);
    if (!pause)
        return;
    qkv720Obj->resetCKShadow(currentConnectMethod);
    tellCKShadow();
}

// ---- Edge fix ---------------------------------------------------------------------------------------------

void mainControl::getEdgeFix()
{
    PollPause pause(*this);
    if (!pause)
        return;
    qkv720Obj->getEdgeFix(currentConnectMethod);
    qDebug() << "getEdgeFix: " << qkv720Obj->edgeFixEnable << qkv720Obj->edge_ShrinkLeft
             << qkv720Obj->edge_ShrinkRight << qkv720Obj->edge_SoftEdge;
    pause.end();
    tellEdgeFix();
}

void mainControl::setEdgeFix(bool enable, uint left, uint right, uint edge)
{
    PollPause pause(*this);
    if (!pause)
        return;
    qkv720Obj->setEdgeFix(currentConnectMethod, enable, left, right, edge);
}

void mainControl::resetEdgeFix()
{
    PollPause pause(*this);
    if (!pause)
        return;
    qkv720Obj->resetEdgeFix(currentConnectMethod);
    qDebug() << "resetEdgeFix: " << qkv720Obj->edgeFixEnable << qkv720Obj->edge_ShrinkLeft
             << qkv720Obj->edge_ShrinkRight << qkv720Obj->edge_SoftEdge;
    pause.end();
    tellEdgeFix();
}

// ---- Spill ------------------------------------------------------------------------------------------------

void mainControl::getCKSpillBright()
{
    PollPause pause(*this);
    if (!pause)
        return;
    qkv720Obj->getCKSpillBright(currentConnectMethod);
    // Low on every read, whatever the byte holds: nobody reads the three flags, the interface takes the
    // preset from the signal.
    qkv720Obj->spillLow = true;
    qkv720Obj->spillMid = false;
    qkv720Obj->spillHigh = false;
    qDebug() << "Spill Default Low";
    // Once seen, an option stays: nothing takes the two flags back, also when the unit has dropped it.
    if (qkv720Obj->spillDefaultValue & kSpillEnhanceBit)
        qkv720Obj->spillEnhanceDefault = true;
    if (qkv720Obj->spillDefaultValue & kSpillVividBit)
        qkv720Obj->spillVividDefault = true;
    qDebug() << "GetCKSpillBright:" << qkv720Obj->spillSuppression << qkv720Obj->spillEnhance
             << qkv720Obj->spillBalance << qkv720Obj->spillBrightness << qkv720Obj->spillVivid
             << (qkv720Obj->spillDefaultValue & kSpillPresetMask) << qkv720Obj->spillVividDefault
             << qkv720Obj->spillEnhanceDefault;
    pause.end();
    tellCKSpill();
}

void mainControl::setCKSpillBright(uint suppression, uint enhance, uint balance, uint brightness, uint vivid,
                                   uint defaultValue, bool checkVivid, bool checkEnhance)
{
    PollPause pause(*this);
    if (!pause)
        return;
    qDebug() << "SetCKSpillBright:" << suppression << enhance << balance << brightness << vivid
             << defaultValue;
    // Added, not or-ed: the interface sends a clean preset number.
    if (checkVivid)
        defaultValue += kSpillVividBit;
    if (checkEnhance)
        defaultValue += kSpillEnhanceBit;
    qkv720Obj->setCKSpillBright(currentConnectMethod, suppression, enhance, balance, brightness, vivid,
                                defaultValue);
}

void mainControl::resetCKSpillBright(uint spillDefault, bool spiSupEnhance)
{
    PollPause pause(*this);
    if (!pause)
        return;
    qDebug() << "ResetCKSpillBright:" << spillDefault << spiSupEnhance;
    qkv720Obj->resetCKSpillBright(currentConnectMethod, spillDefault, spiSupEnhance);
    tellCKSpill();
}
