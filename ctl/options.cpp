#include "ctl/options.h"

namespace ctl {

namespace {

constexpr int kAny = 1000;

QString line(const Command &command)
{
    return QStringLiteral("%1 %2")
        .arg(QLatin1String(command.words), QLatin1String(command.arguments))
        .trimmed();
}

} // namespace

const QVector<Command> &commands()
{
    static const QVector<Command> list = {
        {"discover", "", "The units that a scan of this machine's networks finds.", 0, 0, discover},
        {"info", "", "Where the unit is and what runs on it.", 0, 0, showInfo},
        {"status", "", "Inputs, genlock, output format and routing.", 0, 0, showStatus},
        {"functions", "", "All functions with their fields and ranges; needs no unit.", 0, 0, listFunctions},
        {"get", "[FUNCTION...]", "The values of these functions, or of all.", 0, kAny, getFunctions},
        {"set", "FUNCTION FIELD=VALUE...", "Changes these fields; all others keep their values.", 2, kAny,
         setFunction},
        {"reset", "FUNCTION", "Restores the unit's defaults of one function.", 1, 1, resetFunction},
        {"memory load", "N", "Recalls memory 1 to 8; 0 is the factory's state.", 1, 1, loadMemory},
        {"memory save", "N", "Keeps the present state in memory 1 to 8.", 1, 1, saveMemory},
        {"key auto", "[AutoDef|AutoBack]", "Has the unit find the key by itself.", 0, 1, automaticKey},
        {"key pick", "X Y", "Keys on the colour at this place of the output picture.", 2, 2, pickKey},
        {"show save", "FILE", "Writes the whole look of the unit into a file.", 1, 1, saveShow},
        {"show load", "FILE", "Sends what differs; FILE.before keeps the look from before.", 1, 1,
         loadShowFile},
        {"show diff", "FILE [FILE]", "What two looks hold differently: file and unit, or two files.", 1, 2,
         compareShows},
        {"show schema", "", "The schema of these files; needs no unit.", 0, 0, printSchema},
        {"watch", "", "One line for each field that changes, until it is interrupted.", 0, 0, watch},
        {"monitor", "[COMMAND...]",
         "Each frame and reply of a command, or of the panel's poll until interrupted.", 0, kAny, monitor},
    };
    return list;
}

Options::Options()
{
    const auto text = [](const char *words) { return QString::fromLatin1(words); };
    m_parser.addOptions({
        {text("host"), text("The unit at this address."), text("address")},
        {text("serial"), text("The unit on this serial port."), text("port")},
        {text("profile"),
         text("Settings file of the panel, whose last unit is taken where none is named; usually the "
              "panel's own."),
         text("file")},
        {text("json"), text("Print JSON instead of tables.")},
        {text("only"), text("Of a show, only these functions; apart by commas."), text("functions")},
        {text("dry-run"), text("Of show load: tell what would be sent, and send nothing.")},
        {text("adapter"), text("Of discover: scan on this adapter alone."), text("name or address")},
        {text("interval"), text("Of watch and monitor: look so often [1000]."), text("ms"), text("1000")},
        {text("all"), text("Of watch: every function, not only inputs, genlock and output format.")},
        {text("timeout"), text("Give up after so long."), text("seconds")},
        {text("verbose"), text("Show the log of the link on standard error.")},
        {{text("h"), text("help")}, text("Print this and end.")},
        {{text("v"), text("version")}, text("Print the version and end.")},
    });
}

QString Options::help() const
{
    QString text = QStringLiteral("Usage: qkv720ctl [options] command ...\n"
                                  "Reads and sets a QKV-720 chroma keyer.\n\nCommands:\n");
    int width = 0;
    for (const Command &command : commands())
        width = qMax(width, line(command).size());
    for (const Command &command : commands())
        text +=
            QStringLiteral("  %1  %2\n").arg(line(command).leftJustified(width), QLatin1String(command.text));
    const QString options = m_parser.helpText();
    text += QLatin1Char('\n') + options.mid(options.indexOf(QLatin1String("Options:")));
    text +=
        QStringLiteral("\nExit status: 0 done, 1 refused by the unit, 2 usage, 3 no link, 4 partly done.\n");
    return text;
}

QString Options::read(const QStringList &arguments)
{
    if (!m_parser.parse(arguments)) {
        const QString text = m_parser.errorText();
        return text.left(1).toLower() + text.mid(1);
    }
    if (wantsHelp() || wantsVersion())
        return {};
    const QString error = readValues();
    return error.isEmpty() ? readCommand(m_parser.positionalArguments()) : error;
}

QString Options::readValues()
{
    m_request.host = m_parser.value(QStringLiteral("host"));
    m_request.serial = m_parser.value(QStringLiteral("serial"));
    m_request.profile = m_parser.value(QStringLiteral("profile"));
    m_request.json = m_parser.isSet(QStringLiteral("json"));
    m_request.adapter = m_parser.value(QStringLiteral("adapter"));
    m_request.all = m_parser.isSet(QStringLiteral("all"));
    m_request.dryRun = m_parser.isSet(QStringLiteral("dry-run"));
    m_request.only = m_parser.value(QStringLiteral("only")).split(QLatin1Char(','), Qt::SkipEmptyParts);
    int places = 0;
    for (const char *name : {"host", "serial", "profile"}) {
        const QString option = QLatin1String(name);
        places += m_parser.isSet(option) ? 1 : 0;
        if (m_parser.isSet(option) && m_parser.value(option).isEmpty())
            return QStringLiteral("--%1 wants a name behind it").arg(option);
    }
    if (places > 1)
        return QStringLiteral("--host, --serial and --profile name one unit each; give one of them");
    return readTimes();
}

QString Options::readTimes()
{
    constexpr int kShortestMs = 100;
    constexpr int kLongestMs = 3600000;
    bool isNumber = false;
    m_request.intervalMs = m_parser.value(QStringLiteral("interval")).toInt(&isNumber);
    if (!isNumber || m_request.intervalMs < kShortestMs || m_request.intervalMs > kLongestMs)
        return QStringLiteral("--interval takes milliseconds, from %1 to %2")
            .arg(kShortestMs)
            .arg(kLongestMs);
    if (!m_parser.isSet(QStringLiteral("timeout")))
        return {};
    constexpr double kLongest = 86400;
    constexpr int kMsPerSecond = 1000;
    const double seconds = m_parser.value(QStringLiteral("timeout")).toDouble(&isNumber);
    if (!isNumber || !(seconds >= 0.001 && seconds <= kLongest))
        return QStringLiteral("--timeout takes seconds, up to a day");
    m_request.timeoutMs = static_cast<int>(seconds * kMsPerSecond);
    return {};
}

QString Options::readCommand(const QStringList &words)
{
    m_request.arguments = words;
    return findCommand(m_request.arguments, m_command);
}

QString findCommand(QStringList &words, const Command *&command)
{
    if (words.isEmpty())
        return QStringLiteral("a command is missing; --help lists them");
    for (const Command &one : commands()) {
        const QStringList name = QString::fromLatin1(one.words).split(QLatin1Char(' '));
        if (words.mid(0, name.size()) != name)
            continue;
        command = &one;
        words = words.mid(name.size());
        if (words.size() < one.least || words.size() > one.most)
            return QStringLiteral("usage: qkv720ctl ") + line(one);
        return {};
    }
    return QStringLiteral("%1: no such command; --help lists them")
        .arg(words.mid(0, 2).join(QLatin1Char(' ')));
}

} // namespace ctl
