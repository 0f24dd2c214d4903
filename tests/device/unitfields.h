#pragma once

#include "device/qkv720.h"

#include <QByteArray>
#include <QMap>
#include <QString>

#include <type_traits>
#include <utility>

// The whole public state of the device class under the names of its fields, so that a case can tell what an
// operation changed and, above all, what it left alone.

namespace fieldwalk {

template <typename Input, typename Visit>
void visitInput(const QString &name, Input &in, const Visit &visit)
{
    auto &[source, res, freeze] = in;
    visit(name + QLatin1String(".source"), source);
    visit(name + QLatin1String(".res"), res);
    visit(name + QLatin1String(".freeze"), freeze);
}

template <typename Output, typename Visit>
void visitOutput(const QString &name, Output &out, const Visit &visit)
{
    auto &[source, lock, mirror] = out;
    visit(name + QLatin1String(".source"), source);
    visit(name + QLatin1String(".lock"), lock);
    visit(name + QLatin1String(".mirror"), mirror);
}

template <typename Stage, typename Visit>
void visitStage(const QString &name, Stage &stage, const Visit &visit)
{
    auto &[enable, level, density, balance] = stage;
    visit(name + QLatin1String(".enable"), enable);
    visit(name + QLatin1String(".level"), level);
    visit(name + QLatin1String(".density"), density);
    visit(name + QLatin1String(".balance"), balance);
}

template <typename Window, typename Visit>
void visitWindow(const QString &name, Window &window, const Visit &visit)
{
    auto &[enable, invert, left, right, top, bottom, border] = window;
    visit(name + QLatin1String(".enable"), enable);
    visit(name + QLatin1String(".invert"), invert);
    visit(name + QLatin1String(".left"), left);
    visit(name + QLatin1String(".right"), right);
    visit(name + QLatin1String(".top"), top);
    visit(name + QLatin1String(".bottom"), bottom);
    visit(name + QLatin1String(".border"), border);
}

#define VISIT(member) visit(QStringLiteral(#member), d.member)

template <typename Device, typename Visit>
void visitVideo(Device &d, const Visit &visit)
{
    visitInput(QStringLiteral("inputFG"), d.inputFG, visit);
    visitInput(QStringLiteral("inputBG"), d.inputBG, visit);
    visitInput(QStringLiteral("inputAUX"), d.inputAUX, visit);
    visitInput(QStringLiteral("inputSYNC"), d.inputSYNC, visit);
    visitInput(QStringLiteral("inputMatte"), d.inputMatte, visit);
    visitInput(QStringLiteral("inputPFG"), d.inputPFG, visit);
    visitInput(QStringLiteral("inputComp"), d.inputComp, visit);
    visitOutput(QStringLiteral("PGM"), d.PGM, visit);
    visitOutput(QStringLiteral("PVW"), d.PVW, visit);
    visitOutput(QStringLiteral("PGM_HDMI"), d.PGM_HDMI, visit);
    visitOutput(QStringLiteral("PVW_HDMI"), d.PVW_HDMI, visit);
    VISIT(videoOut.res);
    VISIT(videoOut.colorspace);
    VISIT(videoOut.std);
    VISIT(FWVersion);
    VISIT(FPGAVersion);
    VISIT(BLVersion);
    VISIT(deviceTypeRevision);
    VISIT(genlockStatus);
    VISIT(genlockSrc);
    VISIT(genlock_H);
    VISIT(genlock_V);
}

template <typename Device, typename Visit>
void visitKey(Device &d, const Visit &visit)
{
    VISIT(ckCursor.rx());
    VISIT(ckCursor.ry());
    VISIT(ckBackColor.r);
    VISIT(ckBackColor.g);
    VISIT(ckBackColor.b);
    VISIT(ckBackColor.autoCk);
    visitStage(QStringLiteral("ckDark"), d.ckDark, visit);
    visitStage(QStringLiteral("ckBright"), d.ckBright, visit);
    visitStage(QStringLiteral("ckShadow"), d.ckShadow, visit);
    VISIT(edgeFixEnable);
    VISIT(edge_ShrinkLeft);
    VISIT(edge_ShrinkRight);
    VISIT(edge_SoftEdge);
    VISIT(ckAngleL);
    VISIT(ckAngleR);
    VISIT(ckBlackLevel);
    VISIT(ckWhiteLevel);
    VISIT(matteEnable);
    VISIT(spillSuppression);
    VISIT(spillEnhance);
    VISIT(spillBalance);
    VISIT(spillBrightness);
    VISIT(spillVivid);
    VISIT(spillDefaultValue);
    VISIT(spillVividDefault);
    VISIT(spillEnhanceDefault);
    VISIT(spillLow);
    VISIT(spillMid);
    VISIT(spillHigh);
    VISIT(tempR);
    VISIT(tempG);
    VISIT(tempB);
}

template <typename Device, typename Visit>
void visitPost(Device &d, const Visit &visit)
{
    VISIT(auxFunction);
    VISIT(auxPolarity);
    VISIT(rgbCorrect.enable);
    VISIT(rgbCorrect.rWhite);
    VISIT(rgbCorrect.rBlack);
    VISIT(rgbCorrect.gWhite);
    VISIT(rgbCorrect.gBlack);
    VISIT(rgbCorrect.bWhite);
    VISIT(rgbCorrect.bBlack);
    VISIT(ppPostAmp.enable);
    VISIT(ppPostAmp.bright);
    VISIT(ppPostAmp.contrast);
    VISIT(ppPostAmp.sat);
    VISIT(ppPostAmp.hue);
    visitWindow(QStringLiteral("garbageMaskWindow"), d.garbageMaskWindow, visit);
    visitWindow(QStringLiteral("holdoutWindow"), d.holdoutWindow, visit);
    VISIT(auxLumakey.enable);
    VISIT(auxLumakey.keymode);
    VISIT(auxLumakey.cutOff);
    VISIT(auxLumakey.softness);
    VISIT(auxLumakey.layerSwap);
    VISIT(auxLumakey.swapTime);
    VISIT(auxLumakey.opacity);
    VISIT(bgBlur.enable);
    VISIT(bgBlur.bg_blur);
    VISIT(bgBlur.blurTime);
}

#undef VISIT

template <typename Visit>
void visitFields(qkv720 &d, const Visit &visit)
{
    visitVideo(d, visit);
    visitKey(d, visit);
    visitPost(d, visit);
}

} // namespace fieldwalk

// Numbers are told in decimal, flags as 0 and 1.
using Snapshot = QMap<QString, QString>;

inline Snapshot snapshotOf(qkv720 &device)
{
    Snapshot all;
    fieldwalk::visitFields(device, [&all](const QString &name, auto &field) {
        if constexpr (std::is_same_v<std::decay_t<decltype(field)>, QString>)
            all.insert(name, field);
        else
            all.insert(name, QString::number(static_cast<qint64>(field)));
    });
    all.insert(QStringLiteral("isConnected"), QString::number(static_cast<int>(device.isConnected)));
    return all;
}

// Gives every field a value that its neighbours haven't; a second round of another number gives each another
// value and turns every flag over. The link's own flag stays.
inline void scramble(qkv720 &device, int round)
{
    int number = 0;
    fieldwalk::visitFields(device, [&number, round](const QString &name, auto &field) {
        using Field = std::decay_t<decltype(field)>;
        ++number;
        if constexpr (std::is_same_v<Field, QString>)
            field = QStringLiteral("%1 %2").arg(name).arg(round);
        else if constexpr (std::is_same_v<Field, bool>)
            field = round % 2 == 0;
        else
            field = static_cast<Field>(1 + (number + 37 * round) % 126);
    });
}

// The fields in which two snapshots differ, in one line; empty when they are equal.
inline QString differences(const Snapshot &found, const Snapshot &expected)
{
    QString text;
    for (auto it = expected.cbegin(); it != expected.cend(); ++it) {
        if (found.value(it.key(), QStringLiteral("missing")) != it.value())
            text += QStringLiteral("%1 is %2, not %3; ").arg(it.key(), found.value(it.key()), it.value());
    }
    return found.size() == expected.size() ? text : text + QStringLiteral("an unknown field is expected");
}

enum class Kind {
    Word, // two bytes, low byte first, no sign
    Signed16, // two bytes with a sign
    SignedByte, // one byte widened with its sign into a signed field
    WideByte, // one byte widened with its sign into an unsigned 32-bit field
    IsOne, // flag: equal to 1
    IsSet, // flag: not 0
    IsPositive, // flag: greater than 0 as a signed byte
    Bit0,
    Bit1,
    Bit2,
    Bit3,
};

inline int wireByte(const QByteArray &body, int position)
{
    return position < body.size() ? static_cast<uchar>(body.at(position)) : 0;
}

// What the bytes at a position mean; a position past the end counts as 0.
inline qint64 readWire(Kind kind, const QByteArray &body, int position)
{
    const int low = wireByte(body, position);
    const int word = low + 256 * wireByte(body, position + 1);
    const int asSigned = low < 128 ? low : low - 256;
    switch (kind) {
    case Kind::Word:
        return word;
    case Kind::Signed16:
        return word < 32768 ? word : word - 65536;
    case Kind::SignedByte:
        return asSigned;
    case Kind::WideByte:
        return low < 128 ? low : 0xFFFFFF00LL + low;
    case Kind::IsOne:
        return low == 1;
    case Kind::IsSet:
        return low != 0;
    case Kind::IsPositive:
        return low > 0 && low < 128;
    case Kind::Bit0:
        return low & 1;
    case Kind::Bit1:
        return (low >> 1) & 1;
    case Kind::Bit2:
        return (low >> 2) & 1;
    case Kind::Bit3:
        return (low >> 3) & 1;
    }
    return -1;
}

struct FieldRow
{
    const char *name; // as in a snapshot
    int position; // in the reply body
    Kind kind;
};

// The part of a snapshot that a reply fills, each position counted from `shift` on.
inline void overlay(Snapshot &state, const QVector<FieldRow> &fields, const QByteArray &body, int shift = 0)
{
    for (const FieldRow &field : fields)
        state.insert(QString::fromLatin1(field.name),
                     QString::number(readWire(field.kind, body, field.position + shift)));
}
