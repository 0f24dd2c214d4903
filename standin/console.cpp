#include "standin/console.h"

#include "standin/faulttext.h"

#include <QJsonDocument>

namespace standin {

namespace {

constexpr int kLongestLine = 64 * 1024;

QString done()
{
    return QStringLiteral("ok");
}

} // namespace

const QVector<Console::Verb> &Console::verbs()
{
    static const QVector<Verb> table = {
        {"fault", &Console::fault, 2, -1, "fault CODE KIND [TIMES]",
         "goes wrong from now on, or so many times; the kinds are below"},
        {"clear", &Console::clear, 0, 1, "clear [CODE]", "all faults end, or the fault of this code"},
        {"record", &Console::record, 0, 0, "record", "the frames so far, with their times in milliseconds"},
        {"forget", &Console::forget, 0, 0, "forget", "empties the record"},
        {"state", &Console::state, 0, 0, "state", "the present values and the memories as JSON"},
        {"set", &Console::set, 3, 3, "set FUNCTION FIELD VALUE", "such as set DARK level 300; it is kept"},
        {"recall", &Console::memory, 1, 1, "recall N", "a memory from 1 to 8; 0 is the factory's"},
        {"save", &Console::memory, 1, 1, "save N", "the present values into a memory from 1 to 8"},
        {"connector", &Console::connector, 2, 2, "connector N STANDARD",
         "what lies on connector 0 to 4: 0 nothing, 1 to 32 a standard"},
        {"drop", &Console::drop, 0, 0, "drop", "cuts the network link off"},
        {"restart", &Console::restart, 0, 0, "restart", "as after RESET"},
        {"unit", &Console::choose, 1, 1, "unit N", "the words that follow are for unit N"},
        {"units", &Console::list, 0, 0, "units", "all units, and which one is chosen"},
        {"help", &Console::giveHelp, 0, 0, "help", "this"},
        {"quit", &Console::end, 0, 0, "quit", "ends the program"},
    };
    return table;
}

QString Console::help()
{
    QString text;
    for (const Verb &verb : verbs())
        text +=
            QStringLiteral("  %1  %2\n").arg(QLatin1String(verb.form), -24).arg(QLatin1String(verb.meaning));
    return text + QStringLiteral("Kinds of fault:\n") + faultHelp()
        + QStringLiteral("\nA CODE is a name as the frames are logged by, its number, or any:\n")
        + codeHelp();
}

QStringList Console::take(const QByteArray &bytes)
{
    QStringList answers;
    pending.append(bytes);
    for (int end = pending.indexOf('\n'); end >= 0 && !quit; end = pending.indexOf('\n')) {
        const QString answer = execute(QString::fromLocal8Bit(pending.left(end)));
        pending.remove(0, end + 1);
        if (!answer.isEmpty())
            answers.append(answer);
    }
    if (pending.size() > kLongestLine) {
        pending.clear();
        answers.append(QStringLiteral("a line of more than %1 bytes is dropped").arg(kLongestLine));
    }
    return answers;
}

QString Console::execute(const QString &line)
{
    QStringList words = line.simplified().split(QLatin1Char(' '));
    const QString wanted = words.first().toLower();
    if (wanted.isEmpty())
        return {};
    for (const Verb &verb : verbs()) {
        if (wanted != QLatin1String(verb.word))
            continue;
        const int behind = words.size() - 1;
        if (behind < verb.fewest || (verb.most >= 0 && behind > verb.most))
            return QStringLiteral("it is written: ") + QLatin1String(verb.form);
        return (this->*verb.action)(words);
    }
    return QStringLiteral("no such command: %1 (try help)").arg(wanted);
}

QString Console::fault(const QStringList &words)
{
    int code = 0;
    Fault read;
    QString error = parseFault(words.mid(1).join(QLatin1Char(' ')), code, read);
    if (!error.isEmpty())
        return error;
    unit().setFault(code, read);
    return done();
}

QString Console::clear(const QStringList &words)
{
    if (words.size() < 2) {
        unit().clearFaults();
        return done();
    }
    const int code = codeFromText(words.at(1));
    if (code == NoCode)
        return QStringLiteral("no such code: ") + words.at(1);
    unit().clearFault(code);
    return done();
}

QString Console::record(const QStringList &)
{
    QStringList lines;
    const QVector<FrameRecord> &frames = unit().record();
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

QString Console::forget(const QStringList &)
{
    unit().clearRecord();
    return done();
}

QString Console::state(const QStringList &)
{
    QJsonObject json = unit().toJson();
    json.insert(QStringLiteral("network"), units.at(chosen)->discovery.settings.toJson());
    return QString::fromUtf8(QJsonDocument(json).toJson(QJsonDocument::Compact));
}

QString Console::set(const QStringList &words)
{
    const Function *function = functionNamed(words.at(1));
    if (!function)
        return QStringLiteral("no such function: ") + words.at(1);
    const Field *field = fieldOf(*function, words.at(2));
    if (!field)
        return QStringLiteral("no such field: %1 of %2").arg(words.at(2), QLatin1String(function->name));
    int value = 0;
    if (!numberFromText(words.at(3), lowest(*field), highest(*field), value))
        return QStringLiteral("%1 takes a number from %2 to %3")
            .arg(QLatin1String(field->name))
            .arg(lowest(*field))
            .arg(highest(*field));
    unit().setValue(function->code, words.at(2), value);
    return done();
}

QString Console::memory(const QStringList &words)
{
    const bool recalls = words.first().toLower() == QLatin1String("recall");
    int index = 0;
    if (!numberFromText(words.at(1), recalls ? 0 : 1, Unit::MemoryCount, index))
        return QStringLiteral("memories are 1 to 8; recall 0 is the factory's");
    recalls ? unit().recallMemory(index) : unit().saveMemory(index);
    return done();
}

QString Console::connector(const QStringList &words)
{
    int number = 0;
    int standard = 0;
    if (!numberFromText(words.at(1), 0, Unit::ConnectorCount - 1, number)
        || !numberFromText(words.at(2), 0, Unit::HighestStandard, standard))
        return QStringLiteral("connectors are 0 to 4, standards 0 (nothing) to 32");
    unit().setConnector(number, standard);
    return done();
}

QString Console::drop(const QStringList &)
{
    units.at(chosen)->network.drop();
    return done();
}

QString Console::restart(const QStringList &)
{
    units.at(chosen)->restart();
    return done();
}

QString Console::choose(const QStringList &words)
{
    int number = 0;
    if (!numberFromText(words.at(1), 1, units.size(), number))
        return QStringLiteral("units are 1 to %1").arg(units.size());
    chosen = number - 1;
    return done();
}

QString Console::list(const QStringList &)
{
    QStringList lines;
    for (int i = 0; i < units.size(); ++i) {
        const NetworkSettings &settings = units.at(i)->discovery.settings;
        lines.append(QStringLiteral("%1 %2 %3%4")
                         .arg(i + 1)
                         .arg(settings.name, settings.address.toString(),
                              i == chosen ? QStringLiteral(" (chosen)") : QString()));
    }
    return lines.join(QLatin1Char('\n'));
}

QString Console::giveHelp(const QStringList &)
{
    return help();
}

QString Console::end(const QStringList &)
{
    quit = true;
    return done();
}

} // namespace standin
