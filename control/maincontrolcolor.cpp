#include "control/maincontrol.h"
#include "control/pollpause.h"

#include <QColor>
#include <QDebug>
#include <QThread>

namespace {

constexpr unsigned long kBetweenColorStepsMs = 100;

// The unit's scale of 0 to 1000 to 8 bits, truncating and unclamped: a count of 1004 and above makes a
// colour that is invalid, and is told as such.
int toEightBits(int count)
{
    return count * 255 / 1000;
}

QColor toScreen(int r, int g, int b)
{
    return {toEightBits(r), toEightBits(g), toEightBits(b), 255};
}

} // namespace

// Hue, saturation and lightness come from the truncated 8-bit colour, the numbers beside them from the unit.
void mainControl::tellColor(ColorSignal told, const QColor &drawn, int r, int g, int b)
{
    emit(this->*told)(drawn.name(), r, g, b, drawn.hslHue(), drawn.hslSaturationF(), drawn.lightnessF());
}

void mainControl::tellPickedColor()
{
    tellColor(&mainControl::refreshBKColorPicker,
              toScreen(qkv720Obj->tempR, qkv720Obj->tempG, qkv720Obj->tempB), qkv720Obj->tempR,
              qkv720Obj->tempG, qkv720Obj->tempB);
}

void mainControl::refreshCursor(uint /*x*/, uint /*y*/, uint /*r*/, uint /*g*/, uint /*b*/, uint /*h*/,
                                uint /*s*/, uint /*i*/, uint /*autoCK*/)
{
    PollPause pause(*this);
    if (!pause)
        return;
    qkv720Obj->getCursor(currentConnectMethod);
}

void mainControl::setCursorData(uint cursor_control, uint x, uint y)
{
    PollPause pause(*this);
    if (!pause)
        return;
    qDebug() << "SetCursorData:" << x << y;
    qkv720Obj->setCursor(currentConnectMethod, cursor_control, x, y);
    qDebug() << "Refresh Pick Color:" << qkv720Obj->tempR << qkv720Obj->tempG << qkv720Obj->tempB;
    const QColor drawn = toScreen(qkv720Obj->tempR, qkv720Obj->tempG, qkv720Obj->tempB);
    qDebug() << "Refresh Pick Color String: " << drawn.name() << qkv720Obj->tempR << qkv720Obj->tempG
             << qkv720Obj->tempB << drawn.hslHue() << drawn.hslSaturationF() << drawn.lightnessF();
    pause.end();
    // Told also after a failed call, from the colour seen last.
    tellPickedColor();
}

void mainControl::getBKColor()
{
    PollPause pause(*this);
    if (!pause)
        return;
    // A failed read returns a record without data, so the stored colour is told in either case.
    qkv720Obj->getBackColor(currentConnectMethod);
    const qkv720_color color = qkv720Obj->ckBackColor;
    const QColor drawn = toScreen(color.r, color.g, color.b);
    qDebug() << "GetBKColorstring:" << drawn.name();
    pause.end();
    tellColor(&mainControl::refreshBKColorAdjust, drawn, color.r, color.g, color.b);
}

void mainControl::setBKColor(uint r, uint g, uint b, uint autock)
{
    PollPause pause(*this);
    if (!pause)
        return;
    qDebug() << "SetBKCOlor Begin: " << r << g << b;
    qkv720Obj->setBackColor(currentConnectMethod, static_cast<quint16>(r), static_cast<quint16>(g),
                            static_cast<quint16>(b), autock);
    const qkv720_color &color = qkv720Obj->ckBackColor;
    const QColor tempRGB = toScreen(color.r, color.g, color.b);

    if (autock != 0) {
        // The unit's long answer has brought all of these; nothing is read again.
        tellColor(&mainControl::refreshBKColorAdjust, tempRGB, color.r, color.g, color.b);
        tellCKAngle();
        tellCKBWLevel();
        tellCKDark();
        tellCKBright();
        tellCKShadow();
        tellCKSpill();
        return;
    }

    // The colour is told twice: as the unit holds it, then as it was set.
    getBKColor();
    qDebug() << "SetBKCOlor End: " << tempRGB.name();
    tellColor(&mainControl::refreshBKColorAdjust, tempRGB, color.r, color.g, color.b);
    QThread::msleep(kBetweenColorStepsMs);
    // A new key colour makes the unit change its angle and levels as well.
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
    // The 8-bit numbers go out unscaled, so this sets a quarter of full scale at most. The colour dialog
    // works with exactly this.
    qkv720Obj->setBackColor(currentConnectMethod, static_cast<quint16>(tempRGB.red()),
                            static_cast<quint16>(tempRGB.green()), static_cast<quint16>(tempRGB.blue()),
                            autoCK);
    pause.end();
    emit refreshBKColorAdjust(color, tempRGB.red(), tempRGB.green(), tempRGB.blue(), tempRGB.hslHue(),
                              tempRGB.hslSaturationF(), tempRGB.lightnessF());
}

void mainControl::resetBKColor()
{
    PollPause pause(*this);
    if (!pause)
        return;
    qkv720Obj->resetBackColor(currentConnectMethod);
    const QColor drawn = toScreen(qkv720Obj->tempR, qkv720Obj->tempG, qkv720Obj->tempB);
    qDebug() << "Refresh Pick Color String: " << drawn.name() << qkv720Obj->tempR << qkv720Obj->tempG
             << qkv720Obj->tempB << drawn.hslHue() << drawn.hslSaturationF() << drawn.lightnessF();
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
