// How the unit keys: the colour, what it shapes by itself when the colour changes, the automatic key, the cursor.

#include "standin/unit.h"

#include <algorithm>

namespace standin {

namespace {

constexpr int kPresetMask = 0x07;
constexpr int kPresetEnhance = 0x08;
constexpr int kPresetVivid = 0x10;
constexpr int kFullScale = 1000; // of a colour's parts and of the levels

} // namespace

void Unit::restore(std::initializer_list<int> codes)
{
    for (int code : codes)
        records[code] = factoryRecord(*functionOf(code));
}

void Unit::applySpillPreset(int choice)
{
    struct Preset
    {
        int suppression;
        int balance;
        int brightness;
    };
    static const std::array<Preset, 3> presets = {{{300, 500, 450}, {500, 500, 400}, {600, 650, 373}}};
    const int wanted = choice & kPresetMask;
    const int index = wanted > 2 ? 0 : wanted;
    const Preset &preset = presets.at(static_cast<size_t>(index));
    put(Spill, "suppression", preset.suppression);
    put(Spill, "enhance", (choice & kPresetEnhance) != 0 ? 300 : 0);
    put(Spill, "balance", preset.balance);
    put(Spill, "brightness", preset.brightness);
    put(Spill, "vivid", (choice & kPresetVivid) != 0 ? 1 : 0);
    put(Spill, "preset", index | (choice & (kPresetEnhance | kPresetVivid)));
}

// A plain key colour moves the angle and the levels with it. The purer the colour, the wider the angle may open and
// the further apart the levels; the side of its second part gets more of the angle. A grey has no hue to open an
// angle around, and leaves both as the factory set them, which is also where the factory's own blue comes out.
void Unit::shapeToColour()
{
    std::array<int, 3> parts = {value(BackColour, QStringLiteral("red")),
                                value(BackColour, QStringLiteral("green")),
                                value(BackColour, QStringLiteral("blue"))};
    for (int &part : parts)
        part = qBound(0, part, kFullScale);
    std::sort(parts.begin(), parts.end());
    const int purity = parts[2] - parts[0];
    const int matte = value(Levels, QStringLiteral("matte"));
    restore({Angle, Levels});
    put(Levels, "matte", matte);
    if (purity == 0)
        return;
    const int angle = 13 + purity / 20;
    const int lean = 10 * (parts[1] - parts[0]) / purity;
    put(Angle, "left", angle - lean);
    put(Angle, "right", angle + lean);
    const int black = (kFullScale - purity) * 5 / 18;
    put(Levels, "black", black);
    put(Levels, "white", kFullScale - black);
}

QByteArray Unit::automaticKey(int mode)
{
    busyMs = pace.automaticKeyMs;
    put(BackColour, "red", backdrop[0]);
    put(BackColour, "green", backdrop[1]);
    put(BackColour, "blue", backdrop[2]);
    put(BackColour, "auto", mode);
    if (mode == 1) {
        // AutoDef: the colour that was found, everything else of the key as it left the factory.
        restore({Angle, Levels, Dark, Bright, Shadow, Spill});
    } else {
        // AutoBack: the scan measures the backdrop and shapes the key to it.
        put(Angle, "left", 0x37);
        put(Angle, "right", 0x41);
        put(Levels, "black", 140);
        put(Levels, "white", 860);
        put(Dark, "level", 240);
        put(Bright, "level", 330);
        put(Shadow, "level", 210);
        applySpillPreset(2);
    }
    changed();
    QByteArray chain = makeBody(0, BackColour | SetBit, records.value(BackColour));
    for (int code = BackColour; code <= Spill; ++code)
        chain += getReply(code);
    return chain + getReply(PostAmplifier) + getReply(RgbCorrector);
}

QByteArray Unit::placeCursor(const Frame &frame)
{
    applyPayload(*functionOf(CursorPosition), frame.payload.left(5));
    if (value(CursorPosition, QStringLiteral("control")) != 0) {
        const auto colour =
            colourAt(value(CursorPosition, QStringLiteral("x")), value(CursorPosition, QStringLiteral("y")));
        put(CursorPosition, "red", colour[0]);
        put(CursorPosition, "green", colour[1]);
        put(CursorPosition, "blue", colour[2]);
    }
    return makeBody(0, frame.code, records.value(CursorPosition));
}

std::array<int, 3> Unit::colourAt(int x, int y) const
{
    if (fixedCursorColour[0] >= 0)
        return fixedCursorColour;
    // A backdrop that grows a little brighter to the right and darker to the foot.
    std::array<int, 3> colour = backdrop;
    for (int &part : colour)
        part = qBound(0, part + x % 64 - y % 32, kFullScale);
    return colour;
}

} // namespace standin
