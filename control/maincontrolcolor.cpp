#include "control/maincontrol.h"
#include "control/pollpause.h"

#include <QColor>
#include <QDebug>
#include <QThread>

namespace {

constexpr unsigned long kBetweenColorStepsMs = 100;

// The unit's scale of 0 to 1000 to 8 bits, truncating and unclamped: a count of 1004 and above makes an
// invalid colour, and is emitted as one.
int toEightBits(int count)
{
    return count * 255 / 1000;
}

QColor toScreen(int r, int g, int b)
{
    return {toEightBits(r), toEightBits(g), toEightBits(b), 255};
}

void logPickedColor(const qkv720 &unit)
{
    const QColor drawn = toScreen(unit.tempR, unit.tempG, unit.tempB);
    qDebug() << "Refresh Pick Color String: " << drawn.name() << unit.tempR << unit.tempG << unit.tempB
             << drawn.hslHue() << drawn.hslSaturationF() << drawn.lightnessF();
}

} // namespace

// Hue, saturation and lightness come from the truncated 8-bit colour, the numbers beside them from the unit.
void mainControl::emitColor(ColorSignal signal, const QColor &drawn, int r, int g, int b)
{
    emit(this->*signal)(drawn.name(), r, g, b, drawn.hslHue(), drawn.hslSaturationF(), drawn.lightnessF());
}

void mainControl::tellKeyColor()
{
    const qkv720_color &color = qkv720Obj->ckBackColor;
    emitColor(&mainControl::refreshBKColorAdjust, toScreen(color.r, color.g, color.b), color.r, color.g,
              color.b);
}

void mainControl::tellPickedColor()
{
    emitColor(&mainControl::refreshBKColorPicker,
              toScreen(qkv720Obj->tempR, qkv720Obj->tempG, qkv720Obj->tempB), qkv720Obj->tempR,
              qkv720Obj->tempG, qkv720Obj->tempB);
}

void mainControl::refreshCursor(uint /*x*/, uint /*y*/, uint /*r*/, uint /*g*/, uint /*b*/, uint /*h*/,
                                uint /*s*/, uint /*i*/, uint /*autoCK*/)
{
    forward(&qkv720::getCursor);
}

void mainControl::setCursorData(uint cursor_control, uint x, uint y)
{
    // After a failed call the colour seen last is emitted.
    operate(
        [=](qkv720 &unit, uint method) {
            qDebug() << "SetCursorData:" << x << y;
            unit.setCursor(method, cursor_control, x, y);
            qDebug() << "Refresh Pick Color:" << unit.tempR << unit.tempG << unit.tempB;
            logPickedColor(unit);
        },
        &mainControl::tellPickedColor, AfterRestart);
}

void mainControl::getBKColor()
{
    // A failed read returns a record without data, so the stored colour is emitted in either case.
    operate(
        [](qkv720 &unit, uint method) {
            unit.getBackColor(method);
            const qkv720_color &color = unit.ckBackColor;
            qDebug() << "GetBKColorstring:" << toScreen(color.r, color.g, color.b).name();
        },
        &mainControl::tellKeyColor, AfterRestart);
}

void mainControl::setBKColor(uint r, uint g, uint b, uint autock)
{
    PollPause pause(*this);
    if (!pause)
        return;
    qDebug() << "SetBKCOlor Begin: " << r << g << b;
    qkv720Obj->setBackColor(currentConnectMethod, static_cast<quint16>(r), static_cast<quint16>(g),
                            static_cast<quint16>(b), autock);
    if (autock != 0) {
        // The unit's long reply has brought all of these; nothing is read again.
        tellKeyColor();
        tellCKAngle();
        tellCKBWLevel();
        tellCKDark();
        tellCKBright();
        tellCKShadow();
        tellCKSpill();
        return;
    }

    // The colour is emitted twice: as the unit holds it, then with the text of what was set.
    const qkv720_color &color = qkv720Obj->ckBackColor;
    const QColor tempRGB = toScreen(color.r, color.g, color.b);
    getBKColor();
    qDebug() << "SetBKCOlor End: " << tempRGB.name();
    emitColor(&mainControl::refreshBKColorAdjust, tempRGB, color.r, color.g, color.b);
    // A new key colour makes the unit change its angle and levels as well.
    QThread::msleep(kBetweenColorStepsMs);
    uint left = 0;
    uint right = 0;
    qkv720Obj->getCKAngle(currentConnectMethod, &left, &right);
    tellCKAngle();
    QThread::msleep(kBetweenColorStepsMs);
    uint black = 0;
    uint white = 0;
    bool matte = false;
    qkv720Obj->getCKBWLevel(currentConnectMethod, &black, &white, &matte);
    tellCKBWLevel();
}

// The interface calls it with a text of its own.
// NOLINTNEXTLINE(performance-unnecessary-value-param)
void mainControl::setBKColor(QString color, uint autoCK)
{
    PollPause pause(*this);
    if (!pause)
        return;
    qDebug() << "SetBKCOlor String: " << color;
    const QColor tempRGB(color);
    // The 8-bit numbers go out unscaled, so this sets a quarter of full scale at most (docs/oddities.md).
    qkv720Obj->setBackColor(currentConnectMethod, static_cast<quint16>(tempRGB.red()),
                            static_cast<quint16>(tempRGB.green()), static_cast<quint16>(tempRGB.blue()),
                            autoCK);
    pause.end();
    emit refreshBKColorAdjust(color, tempRGB.red(), tempRGB.green(), tempRGB.blue(), tempRGB.hslHue(),
                              tempRGB.hslSaturationF(), tempRGB.lightnessF());
}

void mainControl::resetBKColor()
{
    const PollPause pause(*this);
    if (!pause)
        return;
    qkv720Obj->resetBackColor(currentConnectMethod);
    logPickedColor(*qkv720Obj);
    // Through the picker's signal: the adjuster does not follow a reset by itself.
    tellPickedColor();
    QThread::msleep(kBetweenColorStepsMs);
    qkv720Obj->resetCKAngle(currentConnectMethod);
    qDebug() << "Reset and Refresh Angle: " << qkv720Obj->ckAngleL << qkv720Obj->ckAngleR;
    tellCKAngle();
    QThread::msleep(kBetweenColorStepsMs);
    qkv720Obj->resetCKBWLevel(currentConnectMethod);
    tellCKBWLevel();
}
