#pragma once

#include <QPoint>
#include <QtGlobal>

// Enumerations and records that mirror the unit. The numbers are the bytes that the unit uses. Nothing checks
// a received byte against its enumeration, so each of them can hold any 32-bit value.

// Video standard of an output or of an input.
enum resolution : int {
    None = 0,
    PAL = 1,
    NTSC = 2,
    P50_720 = 3,
    P59_720 = 4,
    P60_720 = 5,
    I50_1080 = 6,
    I59_1080 = 7,
    I60_1080 = 8,
    P23_1080 = 9,
    P24_1080 = 10,
    P25_1080 = 11,
    P29_1080 = 12,
    P30_1080 = 13,
    P50_1080 = 14,
    P59_1080 = 15,
    P60_1080 = 16,
    P23_2160 = 17,
    P24_2160 = 18,
    P25_2160 = 19,
    P29_2160 = 20,
    P30_2160 = 21,
    P50_2160 = 22,
    P59_2160 = 23,
    P60_2160 = 24,
    WP23_2160 = 25,
    WP24_2160 = 26,
    WP25_2160 = 27,
    WP29_2160 = 28,
    WP30_2160 = 29,
    WP50_2160 = 30,
    WP59_2160 = 31,
    WP60_2160 = 32,
};

enum hdmiout_format : int {
    RGB444 = 0,
    YUV444 = 1,
    YUV422 = 2,
};

// Standard mode of the output.
enum std_auto : int {
    FIXED = 0,
    AUTO = 1,
    RESERVED = 2,
    ERROR = 999, // never on the wire: marks a record whose read failed
};

// Connectors, each named by the layer that it normally feeds.
enum input_source : int {
    FG_SDI_IN = 0,
    FG_HDMI_IN1 = 1,
    BG_HDMI_IN2 = 2,
    AUX_HDMI_IN3 = 3,
    EXT_SYNC = 4,
};

// Pictures that an output can show. Counts from 1, where the inputs count from 0.
enum output_source : int {
    FG = 1,
    BG = 2,
    AUX = 3,
    MATTE = 4,
    PFG = 5,
    COMP = 6,
};

// One video input.
struct input
{
    input_source source = FG_SDI_IN; // connector that feeds this layer
    resolution res = None; // standard detected on it
    int freeze = 0; // 1 when the layer is frozen, else 0
};

// One video output.
struct output
{
    output_source source = output_source(0); // picture routed to it
    bool lock = false;
    bool mirror = false;
};

// The output standard, which the unit keeps for all outputs together.
struct video_out
{
    resolution res = None;
    hdmiout_format colorspace = RGB444;
    std_auto std = FIXED;
};

// A key cursor sample; colours count from 0 to 1000.
struct qkv720_cursor
{
    QPoint xy;
    quint16 r = 0;
    quint16 g = 0;
    quint16 b = 0;
};

// The key's background colour; colours count from 0 to 1000.
struct qkv720_color
{
    quint16 r = 0;
    quint16 g = 0;
    quint16 b = 0;
    uint autoCk = 0; // 0 none, 1 AutoDef, 2 AutoBack
};

// In all three colours of a set it stands for the colour last seen under the cursor.
constexpr quint16 kColorUnderCursor = 999;

// What the spill default byte packs.
constexpr uint kSpillPresetMask = 0x07; // 0 low, 1 mid, 2 high
constexpr uint kSpillEnhanceBit = 0x08;
constexpr uint kSpillVividBit = 0x10;

// One enhancement stage: dark, bright or shadow. Shadow uses neither density nor balance.
struct qkv720_enhancement
{
    bool enable = false;
    quint16 level = 0; // 0 to 1000
    quint16 density = 0; // 0 to 1000
    qint8 balance = 0; // 0 to 100
};

// Post amplifier of the foreground.
struct qkv720_ppfgpostamp
{
    bool enable = false;
    uint bright = 0; // 0 to 1000
    uint contrast = 0; // 0 to 1000
    uint sat = 0; // 0 to 1000
    uint hue = 0; // -180 to 180 goes out; comes back as 16 bits without a sign
};

// RGB corrector of the foreground, 0 to 1000 each.
struct qkv720_fg_rgb_corrector
{
    bool enable = false;
    uint rWhite = 0;
    uint rBlack = 0;
    uint gWhite = 0;
    uint gBlack = 0;
    uint bWhite = 0;
    uint bBlack = 0;
};

// One rectangular window: the garbage mask or the holdout window.
struct qkv720_gmwindow
{
    bool enable = false;
    uint invert = 0;
    quint16 left = 0;
    quint16 right = 0;
    quint16 top = 0;
    quint16 bottom = 0;
    uint border = 0; // 0 to 100
};

struct qkv720_auxlumakey
{
    bool enable = false;
    uint keymode = 0; // 0 black, 1 white
    quint16 cutOff = 0; // 0 to 1000
    quint16 softness = 0; // 0 to 1000
    uint layerSwap = 0;
    uint swapTime = 0; // 0 to 20
    quint16 opacity = 0; // 0 to 1000
};

struct qkv720_bgblur
{
    bool enable = false;
    uint bg_blur = 0; // 0 to 100
    uint blurTime = 0; // 0 to 20
};
