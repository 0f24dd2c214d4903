#include "control/maincontrol.h"
#include "control/pollpause.h"

#include <QDebug>

// ---- Angle ------------------------------------------------------------------------------------------------

void mainControl::tellCKAngle()
{
    emit refreshCKAngle(qkv720Obj->ckAngleL, qkv720Obj->ckAngleR);
}

void mainControl::getCKAngle()
{
    operate(
        [](qkv720 &unit, uint method) {
            uint l = 0;
            uint r = 0;
            unit.getCKAngle(method, &l, &r);
            qDebug() << "GetAngle: " << unit.ckAngleL << unit.ckAngleR; // the stored ones after a failed read
        },
        &mainControl::tellCKAngle, AfterRestart);
}

void mainControl::setCKAngle(uint l, uint r)
{
    forward([l, r](qkv720 &unit, uint method) {
        qDebug() << "SetAngle: " << l << r;
        unit.setCKAngle(method, l, r);
    });
}

void mainControl::resetCKAngle()
{
    operate(&qkv720::resetCKAngle, &mainControl::tellCKAngle, AfterRestart);
}

// ---- Black and white level --------------------------------------------------------------------------------

void mainControl::tellCKBWLevel()
{
    emit refreshCKBWLevel(qkv720Obj->ckBlackLevel, qkv720Obj->ckWhiteLevel, qkv720Obj->matteEnable);
}

void mainControl::getCKBWLevel()
{
    operate(
        [](qkv720 &unit, uint method) {
            uint black = 0;
            uint white = 0;
            bool matte = false;
            unit.getCKBWLevel(method, &black, &white, &matte);
            qDebug() << "GetBWLevel: " << unit.ckBlackLevel << unit.ckWhiteLevel << unit.matteEnable;
        },
        &mainControl::tellCKBWLevel, AfterRestart);
}

void mainControl::setCKBWLevel(uint black, uint white, bool matteOn)
{
    forward([=](qkv720 &unit, uint method) {
        qDebug() << "SetBWLevel: " << black << white << matteOn;
        unit.setCKBWLevel(method, black, white, matteOn);
    });
}

void mainControl::resetCKBWLevel()
{
    operate(&qkv720::resetCKBWLevel, &mainControl::tellCKBWLevel, BeforeRestart);
}

// ---- Dark, bright, shadow ---------------------------------------------------------------------------------

void mainControl::tellCKDark()
{
    const qkv720_enhancement &dark = qkv720Obj->ckDark;
    emit refreshCKDark(dark.enable, dark.level, dark.density, dark.balance);
}

void mainControl::getCKDark()
{
    operate(
        [](qkv720 &unit, uint method) {
            bool enable = false;
            uint level = 0;
            uint density = 0;
            uint balance = 0;
            unit.getCKDark(method, &enable, &level, &density, &balance);
            const qkv720_enhancement &dark = unit.ckDark;
            qDebug() << "Get Dark: " << dark.enable << dark.level << dark.density
                     << static_cast<uint>(int{dark.balance}); // a negative one shows as a very large number
        },
        &mainControl::tellCKDark, AfterRestart);
}

void mainControl::setCKDark(bool enable, uint level, uint density, uint balance)
{
    forward(&qkv720::setCKDark, enable, level, density, balance);
}

void mainControl::resetCKDark()
{
    operate(&qkv720::resetCKDark, &mainControl::tellCKDark, AfterRestart);
}

void mainControl::tellCKBright()
{
    const qkv720_enhancement &bright = qkv720Obj->ckBright;
    emit refreshCKBright(bright.enable, bright.level, bright.density, bright.balance);
}

void mainControl::getCKBright()
{
    operate(&qkv720::getCKBright, &mainControl::tellCKBright, AfterRestart);
}

void mainControl::setCKBright(bool enable, uint level, uint density, uint balance)
{
    forward(&qkv720::setCKBright, enable, level, density, balance);
}

void mainControl::resetCKBright()
{
    operate(&qkv720::resetCKBright, &mainControl::tellCKBright, AfterRestart);
}

void mainControl::tellCKShadow()
{
    emit refreshCKShadow(qkv720Obj->ckShadow.enable, qkv720Obj->ckShadow.level);
}

void mainControl::getCKShadow()
{
    operate(
        [](qkv720 &unit, uint method) {
            unit.getCKShadow(method);
            qDebug() << "Shadow Enagle:" << unit.ckShadow.enable << unit.ckShadow.level;
        },
        &mainControl::tellCKShadow, AfterRestart);
}

void mainControl::setCKShadow(bool enable, uint level)
{
    forward(&qkv720::setCKShadow, enable, level);
}

void mainControl::resetCKShadow()
{
    operate(&qkv720::resetCKShadow, &mainControl::tellCKShadow, BeforeRestart);
}

// ---- Edge fix ---------------------------------------------------------------------------------------------

namespace {

void logEdgeFix(const char *text, const qkv720 &unit)
{
    qDebug() << text << unit.edgeFixEnable << unit.edge_ShrinkLeft << unit.edge_ShrinkRight
             << unit.edge_SoftEdge;
}

} // namespace

void mainControl::tellEdgeFix()
{
    emit refreshEdgeFix(qkv720Obj->edgeFixEnable, qkv720Obj->edge_ShrinkLeft, qkv720Obj->edge_ShrinkRight,
                        qkv720Obj->edge_SoftEdge);
}

void mainControl::getEdgeFix()
{
    operate(
        [](qkv720 &unit, uint method) {
            unit.getEdgeFix(method);
            logEdgeFix("getEdgeFix: ", unit);
        },
        &mainControl::tellEdgeFix, AfterRestart);
}

void mainControl::setEdgeFix(bool enable, uint left, uint right, uint edge)
{
    forward(&qkv720::setEdgeFix, enable, left, right, edge);
}

void mainControl::resetEdgeFix()
{
    operate(
        [](qkv720 &unit, uint method) {
            unit.resetEdgeFix(method);
            logEdgeFix("resetEdgeFix: ", unit);
        },
        &mainControl::tellEdgeFix, AfterRestart);
}

// ---- Spill ------------------------------------------------------------------------------------------------

void mainControl::tellCKSpill()
{
    emit refreshCKSpill(qkv720Obj->spillSuppression, qkv720Obj->spillEnhance, qkv720Obj->spillBalance,
                        qkv720Obj->spillBrightness, qkv720Obj->spillVivid,
                        qkv720Obj->spillDefaultValue & kSpillPresetMask, qkv720Obj->spillVividDefault,
                        qkv720Obj->spillEnhanceDefault);
}

void mainControl::getCKSpillBright()
{
    operate(
        [](qkv720 &unit, uint method) {
            unit.getCKSpillBright(method);
            // Low on every read, whatever the byte holds. Nobody reads the three flags: the interface takes
            // the preset from the signal.
            unit.spillLow = true;
            unit.spillMid = false;
            unit.spillHigh = false;
            qDebug() << "Spill Default Low";
            // Once seen, an option stays: nothing takes the two flags back, also when the unit has dropped it.
            if (unit.spillDefaultValue & kSpillEnhanceBit)
                unit.spillEnhanceDefault = true;
            if (unit.spillDefaultValue & kSpillVividBit)
                unit.spillVividDefault = true;
            qDebug() << "GetCKSpillBright:" << unit.spillSuppression << unit.spillEnhance << unit.spillBalance
                     << unit.spillBrightness << unit.spillVivid << (unit.spillDefaultValue & kSpillPresetMask)
                     << unit.spillVividDefault << unit.spillEnhanceDefault;
        },
        &mainControl::tellCKSpill, AfterRestart);
}

void mainControl::setCKSpillBright(uint suppression, uint enhance, uint balance, uint brightness, uint vivid,
                                   uint defaultValue, bool checkVivid, bool checkEnhance)
{
    forward([=](qkv720 &unit, uint method) {
        qDebug() << "SetCKSpillBright:" << suppression << enhance << balance << brightness << vivid
                 << defaultValue;
        // Added, not or-ed: the interface sends a clean preset number. It also hands in its two check boxes
        // the other way round, and units rely on the bits as they come (docs/oddities.md).
        const uint options = (checkVivid ? kSpillVividBit : 0) + (checkEnhance ? kSpillEnhanceBit : 0);
        unit.setCKSpillBright(method, suppression, enhance, balance, brightness, vivid,
                              defaultValue + options);
    });
}

void mainControl::resetCKSpillBright(uint spillDefault, bool spiSupEnhance)
{
    operate(
        [=](qkv720 &unit, uint method) {
            qDebug() << "ResetCKSpillBright:" << spillDefault << spiSupEnhance;
            unit.resetCKSpillBright(method, spillDefault, spiSupEnhance);
        },
        &mainControl::tellCKSpill, BeforeRestart);
}
