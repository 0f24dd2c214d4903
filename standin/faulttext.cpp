#include "standin/faulttext.h"

#include "standin/discoverycodes.h"
#include "standin/functions.h"

#include <QRegularExpression>
#include <QStringList>

namespace standin {

namespace {

constexpr int kCodes = 0x100;
constexpr int kLongestMs = 600000;
constexpr int kMostBytes = 4096; // of a reply, or of an answer of one's own
constexpr int kMostTimes = 1000000;

struct Words
{
    QStringList list;
    int next = 0;
    bool good = true;

    bool isEnd() const { return next >= list.size(); }
    QString take() { return isEnd() ? QString() : list.at(next++); }
    int number(int least, int most)
    {
        int value = 0;
        good = numberFromText(take(), least, most, value) && good;
        return value;
    }
    int milliseconds() { return number(0, kLongestMs); }
    int bytes() { return number(0, kMostBytes); }
};

QByteArray answerFromText(const QString &text)
{
    static const QRegularExpression form(QStringLiteral("^([0-9A-Fa-f]{2})+$"));
    const bool good = form.match(text).hasMatch() && text.size() <= 2 * kMostBytes;
    return good ? QByteArray::fromHex(text.toLatin1()) : QByteArray();
}

// Everything of a fault but its code and its count; false for an unknown kind.
bool readKind(const QString &kind, Words &words, Fault &fault)
{
    if (kind == QLatin1String("late")) {
        fault = Fault::late(words.milliseconds());
    } else if (kind == QLatin1String("silent")) {
        fault = Fault::silent();
    } else if (kind == QLatin1String("short")) {
        fault = Fault::shortened(words.bytes());
    } else if (kind == QLatin1String("split")) {
        const int bytes = words.bytes();
        fault = Fault::split(bytes, words.milliseconds());
    } else if (kind == QLatin1String("sum")) {
        fault = Fault::wrongChecksum();
    } else if (kind == QLatin1String("refuse")) {
        int status = 0;
        words.good = hexFromText(words.take(), 0xFF, status);
        fault = Fault::refuse(status);
    } else if (kind == QLatin1String("nack")) {
        fault = Fault::refuse();
    } else if (kind == QLatin1String("close")) {
        fault = Fault::closeLink();
    } else if (kind == QLatin1String("answer")) {
        fault = Fault::answer(answerFromText(words.take()));
        words.good = !fault.body.isEmpty();
    } else {
        return false;
    }
    return true;
}

QString numberOfCode(int code)
{
    return QString::number(code, 16).toUpper().rightJustified(2, QLatin1Char('0'));
}

} // namespace

bool numberFromText(const QString &text, int least, int most, int &number)
{
    bool isNumber = false;
    const int read = text.toInt(&isNumber);
    if (!isNumber || read < least || read > most)
        return false;
    number = read;
    return true;
}

bool hexFromText(const QString &text, int most, int &number)
{
    static const QRegularExpression form(QStringLiteral("^(0[xX])?[0-9A-Fa-f]{1,4}$"));
    const int read = form.match(text).hasMatch() ? text.toInt(nullptr, 16) : -1;
    if (read < 0 || read > most)
        return false;
    number = read;
    return true;
}

int codeFromText(const QString &text)
{
    const QString wanted = text.toUpper();
    if (wanted == QLatin1String("ANY"))
        return AnyCode;
    for (const DiscoveryFunction &function : discoveryFunctions()) {
        if (wanted == QLatin1String(function.keyword))
            return discoveryCode(function.command);
    }
    for (int code = 0; code < kCodes; ++code) {
        if (wanted == codeName(code))
            return code;
        if (canBeReset(code) && wanted == resetName(code))
            return resetCode(code);
    }
    int code = NoCode;
    return hexFromText(text, kCodes - 1, code) ? code : NoCode;
}

QString faultHelp()
{
    return QStringLiteral(
        "  late MS           the whole reply comes MS milliseconds late\n"
        "  silent            no reply\n"
        "  short BYTES       only the first BYTES of the reply as it lies on the link\n"
        "  split BYTES MS    the first BYTES at once, the rest MS milliseconds later\n"
        "  sum               a wrong checksum; in discovery a wrong length\n"
        "  refuse 81         refused as an unknown code, nothing is carried out; in discovery a NACK\n"
        "  refuse 82         refused as a bad checksum, nothing is carried out\n"
        "  nack              the same as refuse 81\n"
        "  close             cuts the network link, nothing is carried out; elsewhere silence\n"
        "  answer HEX        these bytes for a reply, its checksum among them");
}

QString codeHelp()
{
    QStringList lines;
    for (const Function &function : functions()) {
        const int set = function.code | SetBit;
        QStringList names{numberOfCode(function.code) + QLatin1Char(' ') + codeName(function.code)};
        if (function.use != Function::ReadOnly)
            names.append(numberOfCode(set) + QLatin1Char(' ') + codeName(set));
        if (canBeReset(set))
            names.append(resetName(set));
        QStringList values;
        for (const Field &field : function.fields)
            values.append(QLatin1String(field.name));
        lines.append(QStringLiteral("  %1\n      values: %2")
                         .arg(names.join(QStringLiteral(", ")), values.join(QLatin1Char(' '))));
    }
    lines.append(QStringLiteral("  %1 %2").arg(numberOfCode(SaveSetup), codeName(SaveSetup)));
    QStringList datagrams;
    for (const DiscoveryFunction &function : discoveryFunctions())
        datagrams.append(QLatin1String(function.keyword));
    lines.append(QStringLiteral("  discovery: ") + datagrams.join(QLatin1Char(' ')));
    return lines.join(QLatin1Char('\n'));
}

QString parseFault(const QString &text, int &code, Fault &fault)
{
    Words words;
    words.list = text.simplified().split(QLatin1Char(' '));
    QString form = QStringLiteral("a fault is written CODE KIND [TIMES], such as SET_DARK late 500 3");
    if (words.list.size() < 2)
        return form;
    code = codeFromText(words.list.at(0));
    if (code == NoCode)
        return QStringLiteral("no such code: ") + words.list.at(0);
    words.next = 2;
    if (!readKind(words.list.at(1).toLower(), words, fault))
        return QStringLiteral("no such fault: ") + words.list.at(1);
    if (words.good && !words.isEnd())
        fault.times = words.number(1, kMostTimes);
    if (!words.good || !words.isEnd())
        return QStringLiteral("%1: not understood; %2").arg(text.simplified(), form);
    return {};
}

} // namespace standin
