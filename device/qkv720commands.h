#pragma once

#include <QByteArray>

// Command codes and the one place where frames are formed.
//
// A frame on the network link                    the same frame on the serial link
//   0  frame length, high byte
//   1  frame length, low byte (6 + n)
//   2  body length (3 + n)                         0  body length
//   3  ext                                         1  ext
//   4  command                                     2  command
//   5  payload, n bytes                            3  payload, n bytes
//   5 + n  checksum                                3 + n  checksum
//
// The frame length is big-endian and counts itself; every number inside a payload is little-endian. The
// checksum is the plain sum, modulo 256, of everything from the body length to the end of the payload, so
// both links carry the same one.

// SET = GET + 0x80 throughout.
enum QKV720COMMAND : int {
    QKV720_GET_CK_BACKCOLOR_AUTOCK = 0x50,
    QKV720_GET_CK_ANGLE_LR = 0x51,
    QKV720_GET_CK_BLACKLWHITELEVEL = 0x52,
    QKV720_GET_DARK = 0x53,
    QKV720_GET_BRIGHT = 0x54,
    QKV720_GET_SHADOW = 0x55,
    QKV720_GET_SPILL_BRIGHTNESS = 0x56,
    QKV720_GET_EDGEFIX = 0x57,
    QKV720_GET_FG_POSTAMP = 0x58,
    QKV720_GET_FG_RGB_CORRECTOR = 0x59,
    QKV720_GET_WINDOW = 0x5A,
    QKV720_GET_BG_BLUR = 0x5B, // serves the aux mode as well
    QKV720_GET_LUMAKEY = 0x5C,
    QKV720_GET_CURSORPOSITION = 0x5D,
    QKV720_GET_RESERVED01 = 0x5E,
    QKV720_GET_HOLDOUTWINDOW = 0x5F,
    QKV720_GET_VIDEOOUT_RESOLUTION = 0x60,
    QKV720_GET_FGBGAUX_INPUTSOURCE = 0x61,
    QKV720_GET_VIDEOIN_RESOLUTION = 0x62,
    QKV720_GET_PGMPVW_OUTPUT = 0x63,
    QKV720_GET_MEMORY = 0x64, // recalls; the only GET code with a payload
    QKV720_GET_VERSION = 0x6C,
    QKV720_GET_RESERVED03 = 0x6D,
    QKV720_GET_RESERVED04 = 0x6E,
    QKV720_GET_DEVICETYPE = 0x6F,

    QKV720_SET_CK_BACKCOLOR_AUTOCK = 0xD0,
    QKV720_SET_CK_ANGLE_LR = 0xD1,
    QKV720_SET_CK_BLACKLWHITELEVEL = 0xD2,
    QKV720_SET_DARK = 0xD3,
    QKV720_SET_BRIGHT = 0xD4,
    QKV720_SET_SHADOW = 0xD5,
    QKV720_SET_SPILL_BRIGHTNESS = 0xD6,
    QKV720_SET_EDGEFIX = 0xD7,
    QKV720_SET_FG_POSTAMP = 0xD8,
    QKV720_SET_FG_RGB_CORRECTOR = 0xD9,
    QKV720_SET_WINDOW = 0xDA,
    QKV720_SET_BG_BLUR = 0xDB,
    QKV720_SET_LUMAKEY = 0xDC,
    QKV720_SET_CURSORPOSITION = 0xDD,
    QKV720_SET_RESERVED01 = 0xDE,
    QKV720_SET_HOLDOUTWINDOW = 0xDF,
    QKV720_SET_VIDEOOUT_RESOLUTION = 0xE0,
    QKV720_SET_FGBGAUX_INPUTSOURCE = 0xE1,
    QKV720_SET_VIDEOIN_RESOLUTION = 0xE2,
    QKV720_SET_PGMPVW_OUTPUT = 0xE3,
    QKV720_SET_MEMORY = 0xE4,
    QKV720_SAVESETUP = 0xE5, // has no GET partner
    QKV720_SET_VERSION = 0xEC,
    QKV720_SET_RESERVED03 = 0xED,
    QKV720_SET_RESERVED04 = 0xEE,
    QKV720_SET_DEVICETYPE = 0xEF,
};

// The link that an operation's `method` names.
enum : uint {
    kNetworkLink = 1,
    kSerialLink = 2,
};

// What the ext byte asks for: the command as it stands, or, on a SET code, the function's defaults.
enum FrameExt : int {
    kOrdinary = 0x00,
    kRestoreDefaults = 0x80,
};

// The data bytes of one command, appended in the order in which they travel. Values wider than their place
// are cut to its width.
class Payload
{
public:
    Payload &byte(uint value)
    {
        m_bytes.append(static_cast<char>(value & 0xFFU));
        return *this;
    }
    Payload &flag(bool on) { return byte(on ? 1U : 0U); }
    Payload &le16(uint value) { return byte(value).byte(value >> 8U); }
    Payload &zeros(int count)
    {
        m_bytes.append(count, '\0');
        return *this;
    }
    // Writes one byte over that of position `at`.
    Payload &put(int at, uint value)
    {
        m_bytes[at] = static_cast<char>(value & 0xFFU);
        return *this;
    }
    uint at(int position) const { return static_cast<uchar>(m_bytes.at(position)); }
    const QByteArray &bytes() const { return m_bytes; }

private:
    QByteArray m_bytes;
};

// One request: the code, the data bytes behind it, and what the ext byte asks for.
struct Command
{
    int code;
    Payload payload = {};
    FrameExt ext = kOrdinary;
};

// Forms a frame for link `method`. `command` and `ext` are cut to one byte; the first `paraByteLength` bytes
// of `parameters` are the payload, and for 0 the array is not read at all (it may be null). Any method other
// than 1 or 2 gives an empty array. The caller owns the result.
QByteArray *qkv720_DeviceControl(int command, int ext, int method, int paraByteLength,
                                 QByteArray *parameters);
// The same as a value.
QByteArray frameOf(const Command &command, uint method);
