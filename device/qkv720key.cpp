#include "device/qkv720.h"

#include "device/functions.h"

#include <QDebug>

// Key shaping, edge fix and spill.

namespace {
qkv720_enhancement stageOf(bool enable, uint level, uint density, uint balance)
{
    return {enable, static_cast<quint16>(level), static_cast<quint16>(density), static_cast<qint8>(balance)};
}
} // namespace

// ---- Key angle -------------------------------------------------------------------------------------------------

void qkv720::getCKAngle(uint method, uint *l, uint *r)
{
    if (!readFunction(method, functions::angle))
        return;
    *l = ckAngleL;
    *r = ckAngleR;
    qDebug() << "Get CKAngle:" << ckAngleL << ckAngleR;
}

void qkv720::setCKAngle(uint method, uint l, uint r)
{
    qDebug() << "QKV720 setCKAngle:" << l << r;
    ckAngleL = l;
    ckAngleR = r;
    sendFunction(method, functions::angle);
}

void qkv720::resetCKAngle(uint method)
{
    // The log names the old values, and only when the unit answered.
    const uint oldL = ckAngleL;
    const uint oldR = ckAngleR;
    if (restoreFunction(method, functions::angle))
        qDebug() << "Reset and Refresh Angle: " << oldL << oldR;
}

// ---- Black and white level -------------------------------------------------------------------------------------

void qkv720::getCKBWLevel(uint method, uint *b, uint *w, bool *m)
{
    if (!readFunction(method, functions::levels))
        return;
    *b = ckBlackLevel;
    *w = ckWhiteLevel;
    *m = matteEnable;
}

void qkv720::setCKBWLevel(uint method, uint black, uint white, bool matteOn)
{
    ckBlackLevel = black;
    ckWhiteLevel = white;
    matteEnable = matteOn;
    sendFunction(method, functions::levels);
}

void qkv720::resetCKBWLevel(uint method)
{
    restoreFunction(method, functions::levels);
}

// ---- Dark, bright and shadow -----------------------------------------------------------------------------------

void qkv720::getCKDark(uint method, bool *enable, uint *level, uint *density, uint *balance)
{
    if (!readFunction(method, functions::dark))
        return;
    *enable = ckDark.enable;
    *level = ckDark.level;
    *density = ckDark.density;
    *balance = static_cast<uint>(int{ckDark.balance}); // widened with its sign
}

void qkv720::setCKDark(uint method, bool enable, uint level, uint density, uint balance)
{
    ckDark = stageOf(enable, level, density, balance);
    sendFunction(method, functions::dark);
}

void qkv720::resetCKDark(uint method)
{
    restoreFunction(method, functions::dark);
}

void qkv720::getCKBright(uint method)
{
    readFunction(method, functions::bright);
}

void qkv720::setCKBright(uint method, bool enable, uint level, uint density, uint balance)
{
    ckBright = stageOf(enable, level, density, balance);
    sendFunction(method, functions::bright);
}

void qkv720::resetCKBright(uint method)
{
    restoreFunction(method, functions::bright);
}

void qkv720::getCKShadow(uint method)
{
    readFunction(method, functions::shadow);
}

void qkv720::setCKShadow(uint method, bool enable, uint level)
{
    ckShadow.enable = enable;
    ckShadow.level = static_cast<quint16>(level);
    sendFunction(method, functions::shadow);
}

void qkv720::resetCKShadow(uint method)
{
    restoreFunction(method, functions::shadow);
}

// ---- Edge fix --------------------------------------------------------------------------------------------------

void qkv720::getEdgeFix(uint method)
{
    readFunction(method, functions::edgeFix);
}

void qkv720::setEdgeFix(uint method, bool enable, uint left, uint right, uint edge)
{
    edgeFixEnable = enable;
    edge_ShrinkLeft = left;
    edge_ShrinkRight = right;
    edge_SoftEdge = edge;
    sendFunction(method, functions::edgeFix);
}

void qkv720::resetEdgeFix(uint method)
{
    restoreFunction(method, functions::edgeFix);
}

// ---- Spill -----------------------------------------------------------------------------------------------------

void qkv720::getCKSpillBright(uint method)
{
    qDebug() << "getCKSpillBright";
    readFunction(method, functions::spill);
}

void qkv720::setCKSpillBright(uint method, uint suppression, uint enhance, uint balance, uint brightness,
                              uint vivid, uint defaultValue)
{
    qDebug() << "setCKSpillBright" << suppression << enhance << balance << brightness << vivid
             << defaultValue;
    spillSuppression = suppression;
    spillEnhance = enhance;
    spillBalance = balance;
    spillBrightness = brightness;
    spillVivid = vivid != 0;
    spillDefaultValue = defaultValue;
    // The whole byte of `vivid` goes out, also where the flag cuts it.
    Payload payload = functions::spill.payload(*this);
    payload.put(functions::spill.field("vivid")->at, vivid);
    exchange(method, {functions::spill.setCode(), payload});
}

void qkv720::resetCKSpillBright(uint method, uint spillDefault, bool spiSupEnhance)
{
    qDebug() << "resetCKSpillBright";
    constexpr uint kHighPreset = 2;
    // An unknown preset asks for the low one, and then the option is dropped as well.
    uint defaultByte = 0;
    if (spillDefault <= kHighPreset)
        defaultByte = spillDefault | (spiSupEnhance ? kSpillEnhanceBit : 0U);
    restoreFunction(method, functions::spill,
                    Payload().zeros(functions::spill.dataBytes - 1).byte(defaultByte));
}
