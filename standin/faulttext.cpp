#include "standin/faulttext.h"

#include "standin/discoverycodes.h"
#include "standin/functions.h"

#include <QStringList>

namespace standin {

namespace {

constexpr int kDiscoveryCommands = 0x42;
constexpr int kCodes = 0x100;

struct Words
{
    QStringList list;
    int next = 0;
    bool good = true;

    int number(int base = 10)
    {
        bool ok = false;
        const int value = next < list.size() ? list.at(next++).toInt(&ok, base) : 0;
        good = good && ok;
        return value;
    }
};

// Everything of a fault but its code and its count; false for an unknown kind.
bool readKind(const QString &kind, Words &words, Fault &fault)
{
    if (kind == QLatin1String("late")) {
        fault = Fault::late(words.number());
    } else if (kind == QLatin1String("silent")) {
        fault = Fault::silent();
    } else if (kind == QLatin1String("short")) {
        fault = Fault::shortened(words.number());
    } else if (kind == QLatin1String("split")) {
        const int bytes = words.number();
        fault = Fault::split(bytes, words.number());
    } else if (kind == QLatin1String("sum")) {
        fault = Fault::wrongChecksum();
    } else if (kind == QLatin1String("refuse")) {
        fault = Fault::refuse(words.number(16));
    } else if (kind == QLatin1String("nack")) {
        fault = Fault::refuse();
    } else if (kind == QLatin1String("close")) {
        fault = Fault::closeLink();
    } else if (kind == QLatin1String("answer")) {
        const QString hex = words.next < words.list.size() ? words.list.at(words.next++) : QString();
        fault = Fault::answer(QByteArray::fromHex(hex.toLatin1()));
        words.good = words.good && !fault.body.isEmpty();
    } else {
        return false;
    }
    return true;
}

} // namespace

int codeFromText(const QString &text)
{
    const QString wanted = text.toUpper();
    if (wanted == QLatin1String("ANY"))
        return AnyCode;
    for (int command = 0; command < kDiscoveryCommands; ++command) {
        if (wanted == discoveryName(command))
            return discoveryCode(command);
    }
    for (int code = 0; code < kCodes; ++code) {
        if (wanted == codeName(code))
            return code;
    }
    bool ok = false;
    const int code = wanted.toInt(&ok, 16);
    return ok && code >= 0 && code < kCodes ? code : NoCode;
}

QString faultHelp()
{
    return QStringLiteral(
        "CODE late MS | silent | short BYTES | split BYTES GAP_MS | sum | refuse 81 | refuse 82 | nack"
        " | close | answer HEX, each with an optional number of times behind it;"
        " CODE is hexadecimal, a name such as SET_LEVELS or ETH_REQ, or any");
}

QString parseFault(const QString &text, int &code, Fault &fault)
{
    Words words;
    words.list = text.simplified().split(QLatin1Char(' '));
    if (words.list.size() < 2)
        return QStringLiteral("a fault is written: ") + faultHelp();
    code = codeFromText(words.list.at(0));
    if (code == NoCode)
        return QStringLiteral("no such code: ") + words.list.at(0);
    words.next = 2;
    if (!readKind(words.list.at(1).toLower(), words, fault))
        return QStringLiteral("no such fault: ") + words.list.at(1);
    if (words.next < words.list.size())
        fault.times = words.number();
    if (!words.good || words.next != words.list.size())
        return QStringLiteral("a fault is written: ") + faultHelp();
    return {};
}

} // namespace standin
