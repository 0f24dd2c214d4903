#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

namespace standin {

// One value inside a function's record. Two-byte values lie low byte first.
struct Field
{
    const char *name;
    int width;
    int factory;
    bool isSigned = false;
};

// One function of the unit: its read code, its name, how it may be used, and its record, which is at once the
// payload of its SET and the data of its replies. The SET code is the read code + 0x80.
struct Function
{
    enum Use { ReadOnly, Setting, Cursor, Recall };

    int code;
    const char *name;
    Use use;
    QVector<Field> fields;
};

// Command codes that the unit treats in a way of their own.
enum Code {
    BackColour = 0x50,
    Angle = 0x51,
    Levels = 0x52,
    Dark = 0x53,
    Bright = 0x54,
    Shadow = 0x55,
    Spill = 0x56,
    EdgeFix = 0x57,
    PostAmplifier = 0x58,
    RgbCorrector = 0x59,
    GarbageMask = 0x5A,
    BackgroundBlur = 0x5B,
    LumaKey = 0x5C,
    CursorPosition = 0x5D,
    HoldoutWindow = 0x5F,
    OutputStandard = 0x60,
    InputSelection = 0x61,
    InputStandard = 0x62,
    OutputRouting = 0x63,
    Memory = 0x64,
    SaveSetup = 0xE5,
    Version = 0x6C,
    DeviceType = 0x6F,
    SetBit = 0x80
};

// All functions of the unit, in the order of their codes.
const QVector<Function> &functions();
// The function that a code reads or sets; nullptr for a code that the unit doesn't know.
const Function *functionOf(int code);
// The same by its name, "DARK" or "dark".
const Function *functionNamed(const QString &name);
// "GET_DARK", "SET_DARK", "SAVE_SETUP"; a number for an unknown code.
QString codeName(int code);
// "RESET_DARK", of the code that sets it.
QString resetName(int code);
// A reset has no code of its own: it is a SET with another ext byte. Not every SET has one.
bool canBeReset(int code);
// The lengths of payload that the wire format has for this request; none at all for one that is refused anyway.
QVector<int> payloadSizes(int code, bool isReset);
// "payload of 4 bytes where the wire format has 2 or 3"; empty when the size is known, or none is.
QString oddLength(const QVector<int> &known, int size);

// Where a field lies in its record; -1 for an unknown name.
int fieldOffset(const Function &function, const QString &field);
const Field *fieldOf(const Function &function, const QString &field);
int readField(const Field &field, const QByteArray &record, int at);
void writeField(const Field &field, QByteArray &record, int at, int value);
// What a field can hold: its width and its sign say it.
int lowest(const Field &field);
int highest(const Field &field);
QByteArray factoryRecord(const Function &function);
// "level=200 density=1000": as much of the record as the bytes hold.
QString describeRecord(const Function &function, const QByteArray &bytes);

} // namespace standin
