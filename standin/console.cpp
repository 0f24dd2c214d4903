#include "standin/console.h"

#include "standin/faulttext.h"

#include <QJsonDocument>

namespace standin {

QString Console::help()
{
    return QStringLiteral("fault ") + faultHelp()
        + QStringLiteral("\nclear            all faults end\n"
                         "clear CODE       the fault of this code ends\n"
                         "record           the frames so far, one a line, with their times in milliseconds\n"
                         "forget           empties the record\n"
                         "state            the present values and the memories as JSON\n"
                         "set FUNCTION FIELD VALUE    e.g. set DARK level 300\n"
                         "recall N, save N            a memory from 1 to 8; recall 0 is the factory's\n"
                         "connector N STANDARD        connectors 0 to 4, standards 0 (nothing) to 32\n"
                         "drop             cuts the network link off\n"
                         "restart          as after RESET\n"
                         "quit");
}

QString Console::execute(const QString &line)
{
    const QString text = line.simplified();
    const QStringList words = text.split(QLatin1Char(' '));
    const QString verb = words.first().toLower();
    if (verb.isEmpty())
        return {};
    if (verb == QLatin1String("fault"))
        return fault(text.mid(verb.size()));
    if (verb == QLatin1String("clear"))
        return clear(words);
    if (verb == QLatin1String("record"))
        return record();
    if (verb == QLatin1String("state"))
        return state();
    if (verb == QLatin1String("set"))
        return set(words);
    if (verb == QLatin1String("recall") || verb == QLatin1String("save"))
        return memory(words);
    if (verb == QLatin1String("connector"))
        return connector(words);
    if (verb == QLatin1String("help"))
        return help();

    if (verb == QLatin1String("forget"))
        unit.unit.clearRecord();
    else if (verb == QLatin1String("drop"))
        unit.network.drop();
    else if (verb == QLatin1String("restart"))
        unit.restart();
    else if (verb == QLatin1String("quit"))
        quit = true;
    else
        return QStringLiteral("no such command: %1 (try help)").arg(verb);
    return QStringLiteral("ok");
}

QString Console::fault(const QString &rest)
{
    int code = 0;
    Fault read;
    QString error = parseFault(rest, code, read);
    if (!error.isEmpty())
        return error;
    unit.unit.setFault(code, read);
    return QStringLiteral("ok");
}

QString Console::clear(const QStringList &words)
{
    if (words.size() < 2) {
        unit.unit.clearFaults();
        return QStringLiteral("ok");
    }
    const int code = codeFromText(words.at(1));
    if (code == NoCode)
        return QStringLiteral("no such code: ") + words.at(1);
    unit.unit.clearFault(code);
    return QStringLiteral("ok");
}

QString Console::record() const
{
    QStringList lines;
    const QVector<FrameRecord> &frames = unit.unit.record();
    for (const FrameRecord &frame : frames) {
        const double ms = static_cast<double>(frame.ns - frames.first().ns) / 1e6;
        lines.append(
            QStringLiteral("%1 %2 %3 [%4]")
                .arg(ms, 10, 'f', 1)
                .arg(linkName(frame.link), frame.describe(), QString::fromLatin1(frame.raw.toHex(' '))));
    }
    lines.append(QStringLiteral("%1 frames").arg(frames.size()));
    return lines.join(QLatin1Char('\n'));
}

QString Console::state() const
{
    QJsonObject json = unit.unit.toJson();
    json.insert(QStringLiteral("network"), unit.discovery.settings.toJson());
    return QString::fromUtf8(QJsonDocument(json).toJson(QJsonDocument::Compact));
}

QString Console::set(const QStringList &words)
{
    if (words.size() != 4)
        return QStringLiteral("set FUNCTION FIELD VALUE");
    bool number = false;
    const int value = words.at(3).toInt(&number);
    for (const Function &function : functions()) {
        if (words.at(1).compare(QLatin1String(function.name), Qt::CaseInsensitive) != 0)
            continue;
        const bool done = number && unit.unit.setValue(function.code, words.at(2), value);
        return done ? QStringLiteral("ok") : QStringLiteral("no such field or value");
    }
    return QStringLiteral("no such function: ") + words.at(1);
}

QString Console::memory(const QStringList &words)
{
    bool number = false;
    const int index = words.size() == 2 ? words.at(1).toInt(&number) : -1;
    const bool recalls = words.first().toLower() == QLatin1String("recall");
    if (!number || index < (recalls ? 0 : 1) || index > Unit::MemoryCount)
        return QStringLiteral("memories are 1 to 8; recall 0 is the factory's");
    recalls ? unit.unit.recallMemory(index) : unit.unit.saveMemory(index);
    return QStringLiteral("ok");
}

QString Console::connector(const QStringList &words)
{
    bool first = false;
    bool second = false;
    const int number = words.size() == 3 ? words.at(1).toInt(&first) : 0;
    const int standard = words.size() == 3 ? words.at(2).toInt(&second) : 0;
    if (!first || !second || number < 0 || number >= Unit::ConnectorCount || standard < 0 || standard > 255)
        return QStringLiteral("connector N STANDARD");
    unit.unit.setConnector(number, standard);
    return QStringLiteral("ok");
}

} // namespace standin
