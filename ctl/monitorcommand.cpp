#include "ctl/commands.h"
#include "ctl/fieldtext.h"
#include "ctl/interruption.h"
#include "ctl/options.h"
#include "ctl/output.h"
#include "device/framereading.h"

#include <QDateTime>
#include <QVariant>

#include <memory>

// Each frame and each reply, by name and with its values, as they pass: for a fault on site.

namespace ctl {

namespace {

using Kind = LinkEvent::Kind;
using Verdict = FrameReading::Verdict;

QString hex(const QByteArray &bytes)
{
    return QString::fromLatin1(bytes.toHex(' '));
}

// What is wrong with it, or out of the ordinary; empty for most.
QString remark(const LinkEvent &event, const FrameReading &reading)
{
    if (event.kind == Kind::NotSent)
        return QStringLiteral("could not be written");
    if (event.kind == Kind::Sent)
        return event.attempt > 1 ? QStringLiteral("attempt %1").arg(event.attempt) : QString();
    switch (reading.verdict) {
    case Verdict::Nothing:
        return QStringLiteral("no reply");
    case Verdict::Refused:
        return QStringLiteral("refused %1").arg(reading.status, 2, 16, QLatin1Char('0'));
    case Verdict::Garbled:
        return QStringLiteral("no whole reply");
    case Verdict::Whole:
        break;
    }
    return reading.behind.isEmpty() ? QString() : QStringLiteral("%1 bytes more").arg(reading.behind.size());
}

// The pairs of a frame, as "level=200".
QStringList pairsOf(const FrameReading &reading)
{
    QStringList pairs;
    for (const auto &word : reading.words)
        pairs.append(word.first + QLatin1Char('=') + word.second);
    for (int i = 0; i < reading.values.size(); ++i) {
        const UnitField &field = *(reading.function->fields.begin() + i);
        pairs.append(QLatin1String(field.name) + QLatin1Char('=')
                     + valueJson(field, reading.values.at(i)).toVariant().toString());
    }
    if (!reading.rest.isEmpty())
        pairs.append(QStringLiteral("data=") + hex(reading.rest));
    return pairs;
}

QJsonObject valuesJson(const FrameReading &reading)
{
    QJsonObject values;
    for (const auto &word : reading.words)
        values.insert(word.first, word.second);
    for (int i = 0; i < reading.values.size(); ++i) {
        const UnitField &field = *(reading.function->fields.begin() + i);
        values.insert(QLatin1String(field.name), valueJson(field, reading.values.at(i)));
    }
    if (!reading.rest.isEmpty())
        values.insert(QStringLiteral("data"), hex(reading.rest));
    return values;
}

// Prints what it hears.
class Monitor
{
public:
    explicit Monitor(bool asJson)
        : json(asJson)
    {
    }

    void hear(const LinkEvent &event)
    {
        const QDateTime now = QDateTime::currentDateTime();
        const bool isReply = event.kind == Kind::Received;
        if (!isReply)
            sinceFrame.start();
        const FrameReading reading = reader.read(event);
        const QString said = remark(event, reading);
        if (json) {
            QJsonObject line{{"time", now.toString(Qt::ISODateWithMs)},
                             {"direction", isReply ? "received" : "sent"},
                             {"name", reading.name},
                             {"values", valuesJson(reading)},
                             {"remark", said},
                             {"bytes", hex(event.bytes)}};
            if (isReply)
                line.insert(QStringLiteral("ms"), sinceFrame.elapsed());
            printJsonLine(line);
            return;
        }
        QStringList words{now.toString(QStringLiteral("HH:mm:ss.zzz")),
                          isReply ? QStringLiteral("<-") : QStringLiteral("->"), reading.name};
        words += pairsOf(reading);
        if (!said.isEmpty())
            words.append(QLatin1Char('(') + said + QLatin1Char(')'));
        if (isReply)
            words.append(QStringLiteral("after %1 ms").arg(sinceFrame.elapsed()));
        if (!event.bytes.isEmpty())
            words.append(QLatin1Char('[') + hex(event.bytes) + QLatin1Char(']'));
        words.removeAll(QString());
        print(words.join(QLatin1Char(' ')));
    }

private:
    const bool json;
    FrameReader reader;
    QElapsedTimer sinceFrame;
};

// What the panel asks again and again, until it is interrupted. A link that is lost is opened anew at the next turn.
ExitCode poll(Session &session)
{
    endOnSignal();
    const QVector<const UnitFunction *> polled = {&functions::outputStandard, &functions::inputStandard};
    ExitCode code = session.connect();
    if (code != Done)
        return code;
    QElapsedTimer clock;
    clock.start();
    for (qint64 turn = 1; !isInterrupted(); ++turn) {
        code = code == NoLink ? session.connect() : Done;
        if (code == Done)
            code = session.report(session.link().read(polled));
        if (session.link().isOutOfTime())
            return code;
        waitForTurn(clock, turn * session.request().intervalMs);
    }
    return Done;
}

} // namespace

ExitCode monitor(Session &session)
{
    const auto printer = std::make_shared<Monitor>(session.request().json);
    session.observe([printer](const LinkEvent &event) { printer->hear(event); });
    if (session.request().arguments.isEmpty())
        return poll(session);

    QStringList words = session.request().arguments;
    const Command *command = nullptr;
    const QString trouble = findCommand(words, command);
    if (!trouble.isEmpty())
        return usage(trouble);
    if (command->run == monitor)
        return usage(QStringLiteral("a monitor takes another command"));
    // The frames are what was asked for; what the command itself would print is in them.
    keepResultsAway();
    session.setArguments(words);
    return command->run(session);
}

} // namespace ctl
