#include "standin/functions.h"

#include <QStringList>

namespace standin {

const QVector<Function> &functions()
{
    // Standards are codes from 0 to 32 (15: 1080p59.94), sources count from 0, outputs from 1.
    static const QVector<Function> table = {
        {BackColour,
         "BACK_COLOUR",
         Function::Setting,
         {{"red", 2, 120}, {"green", 2, 180}, {"blue", 2, 760}, {"auto", 1, 0}}},
        {Angle, "ANGLE", Function::Setting, {{"left", 1, 45}, {"right", 1, 45}}},
        {Levels, "LEVELS", Function::Setting, {{"black", 2, 100}, {"white", 2, 900}, {"matte", 1, 0}}},
        {Dark,
         "DARK",
         Function::Setting,
         {{"enable", 1, 1}, {"level", 2, 200}, {"density", 2, 1000}, {"balance", 1, 100}}},
        {Bright,
         "BRIGHT",
         Function::Setting,
         {{"enable", 1, 0}, {"level", 2, 300}, {"density", 2, 500}, {"balance", 1, 50}}},
        {Shadow, "SHADOW", Function::Setting, {{"enable", 1, 0}, {"level", 2, 250}}},
        {Spill,
         "SPILL",
         Function::Setting,
         {{"suppression", 2, 500},
          {"enhance", 2, 0},
          {"balance", 2, 500},
          {"brightness", 2, 400},
          {"vivid", 1, 0},
          {"preset", 1, 1}}},
        {EdgeFix,
         "EDGE_FIX",
         Function::Setting,
         {{"enable", 1, 0}, {"left", 1, 2}, {"right", 1, 2}, {"soft", 1, 10}}},
        {PostAmplifier,
         "POST_AMPLIFIER",
         Function::Setting,
         {{"enable", 1, 0},
          {"bright", 2, 500},
          {"contrast", 2, 500},
          {"saturation", 2, 500},
          {"hue", 2, 0, true}}},
        {RgbCorrector,
         "RGB_CORRECTOR",
         Function::Setting,
         {{"enable", 1, 0},
          {"redWhite", 2, 500},
          {"redBlack", 2, 500},
          {"greenWhite", 2, 500},
          {"greenBlack", 2, 500},
          {"blueWhite", 2, 500},
          {"blueBlack", 2, 500}}},
        {GarbageMask,
         "GARBAGE_MASK",
         Function::Setting,
         {{"enable", 1, 0},
          {"invert", 1, 0},
          {"left", 2, 0},
          {"right", 2, 1000},
          {"top", 2, 0},
          {"bottom", 2, 1000},
          {"border", 1, 0}}},
        // Aux mode shares this record: its function is the enable byte, its polarity the level byte.
        {BackgroundBlur,
         "BACKGROUND_BLUR",
         Function::Setting,
         {{"enable", 1, 0}, {"level", 1, 20}, {"time", 1, 5}}},
        {LumaKey,
         "LUMA_KEY",
         Function::Setting,
         {{"enable", 1, 0},
          {"mode", 1, 0},
          {"cutOff", 2, 100},
          {"softness", 2, 200},
          {"layerSwap", 1, 0},
          {"swapTime", 1, 5},
          {"opacity", 2, 1000}}},
        {CursorPosition,
         "CURSOR",
         Function::Cursor,
         {{"control", 1, 0}, {"x", 2, 0}, {"y", 2, 0}, {"red", 2, 0}, {"green", 2, 0}, {"blue", 2, 0}}},
        {HoldoutWindow,
         "HOLDOUT_WINDOW",
         Function::Setting,
         {{"enable", 1, 0},
          {"invert", 1, 0},
          {"left", 2, 0},
          {"right", 2, 3840},
          {"top", 2, 0},
          {"bottom", 2, 2160},
          {"border", 1, 0}}},
        {OutputStandard,
         "OUTPUT_STANDARD",
         Function::Setting,
         {{"standard", 1, 15}, {"colour", 1, 0}, {"mode", 1, 1}}},
        {InputSelection,
         "INPUT_SELECTION",
         Function::Setting,
         {{"fg", 1, 0},
          {"bg", 1, 2},
          {"aux", 1, 3},
          {"freeze", 1, 0},
          {"genlock", 1, 0},
          {"h", 2, 0, true},
          {"v", 2, 0, true}}},
        {InputStandard,
         "INPUT_STANDARD",
         Function::ReadOnly,
         {{"fg", 1, 15}, {"bg", 1, 15}, {"aux", 1, 15}, {"sync", 1, 15}, {"genlockStatus", 1, 0}}},
        {OutputRouting,
         "OUTPUT_ROUTING",
         Function::Setting,
         {{"pgm", 1, 6},
          {"pvw", 1, 1},
          {"pgmHdmi", 1, 6},
          {"pvwHdmi", 1, 4},
          {"lock", 1, 0},
          {"mirror", 1, 0}}},
        {Memory, "MEMORY", Function::Recall, {{"index", 1, 0}}},
        {Version,
         "VERSION",
         Function::ReadOnly,
         {{"firmwareMajor", 1, 0x01},
          {"firmwareMinor", 1, 0x05},
          {"fpgaMajor", 1, 0x02},
          {"fpgaMinor", 1, 0x23},
          {"loaderMajor", 1, 0x10},
          {"loaderMinor", 1, 0x2A}}},
        {DeviceType, "DEVICE_TYPE", Function::ReadOnly, {{"type", 1, 0x40}, {"revision", 1, 0x00}}},
    };
    return table;
}

const Function *functionOf(int code)
{
    const int read = code & 0x7F;
    for (const Function &function : functions()) {
        if (function.code == read)
            return &function;
    }
    return nullptr;
}

const Function *functionNamed(const QString &name)
{
    for (const Function &function : functions()) {
        if (name.compare(QLatin1String(function.name), Qt::CaseInsensitive) == 0)
            return &function;
    }
    return nullptr;
}

QString codeName(int code)
{
    if (code == SaveSetup)
        return QStringLiteral("SAVE_SETUP");
    const Function *function = functionOf(code);
    if (!function)
        return QStringLiteral("0x%1").arg(code, 2, 16, QLatin1Char('0'));
    return QLatin1String((code & SetBit) != 0 ? "SET_" : "GET_") + QLatin1String(function->name);
}

QString resetName(int code)
{
    return QStringLiteral("RE") + codeName(code | SetBit);
}

bool canBeReset(int code)
{
    const Function *function = (code & SetBit) != 0 ? functionOf(code) : nullptr;
    return function && (function->use == Function::Setting || function->use == Function::Cursor);
}

QVector<int> payloadSizes(int code, bool isReset)
{
    if (code == SaveSetup)
        return {0};
    const Function *function = functionOf(code);
    if (!function)
        return {};
    if (function->use == Function::Recall)
        return {1};
    if ((code & SetBit) == 0)
        return {0};
    if (function->use == Function::ReadOnly)
        return {};
    // As a rule a reset carries zeros in the place of the values that it restores; some carry fewer.
    switch (function->code) {
    case CursorPosition:
        return {5};
    case InputSelection:
        return {isReset ? 0 : 9};
    case Levels:
        return {isReset ? 4 : 5};
    case LumaKey:
        return {isReset ? 5 : 10};
    case BackgroundBlur: // two bytes are aux mode
        return isReset ? QVector<int>{2} : QVector<int>{2, 3};
    default:
        return {factoryRecord(*function).size()};
    }
}

QString oddLength(const QVector<int> &known, int size)
{
    if (known.isEmpty() || known.contains(size))
        return {};
    QStringList sizes;
    for (int each : known)
        sizes.append(QString::number(each));
    return QStringLiteral("payload of %1 bytes where the wire format has %2")
        .arg(size)
        .arg(sizes.join(QStringLiteral(" or ")));
}

int fieldOffset(const Function &function, const QString &field)
{
    int at = 0;
    for (const Field &candidate : function.fields) {
        if (field == QLatin1String(candidate.name))
            return at;
        at += candidate.width;
    }
    return -1;
}

const Field *fieldOf(const Function &function, const QString &field)
{
    for (const Field &candidate : function.fields) {
        if (field == QLatin1String(candidate.name))
            return &candidate;
    }
    return nullptr;
}

int readField(const Field &field, const QByteArray &record, int at)
{
    int value = 0;
    for (int i = 0; i < field.width && at + i < record.size(); ++i)
        value |= static_cast<quint8>(record.at(at + i)) << (8 * i);
    if (field.isSigned && field.width == 2)
        value = static_cast<qint16>(value);
    return value;
}

void writeField(const Field &field, QByteArray &record, int at, int value)
{
    for (int i = 0; i < field.width && at + i < record.size(); ++i)
        record[at + i] = static_cast<char>((value >> (8 * i)) & 0xFF);
}

int lowest(const Field &field)
{
    return field.isSigned ? -(1 << (8 * field.width - 1)) : 0;
}

int highest(const Field &field)
{
    return (1 << (8 * field.width - (field.isSigned ? 1 : 0))) - 1;
}

QByteArray factoryRecord(const Function &function)
{
    QByteArray record;
    for (const Field &field : function.fields) {
        const int at = record.size();
        record.append(field.width, '\0');
        writeField(field, record, at, field.factory);
    }
    return record;
}

QString describeRecord(const Function &function, const QByteArray &bytes)
{
    QStringList words;
    int at = 0;
    for (const Field &field : function.fields) {
        if (at + field.width > bytes.size())
            break;
        words.append(QStringLiteral("%1=%2").arg(QLatin1String(field.name)).arg(readField(field, bytes, at)));
        at += field.width;
    }
    if (at < bytes.size())
        words.append(QStringLiteral("more=") + QString::fromLatin1(bytes.mid(at).toHex(' ')));
    return words.join(QLatin1Char(' '));
}

} // namespace standin
