#include "ctl/output.h"

#include "shell/logtext.h"

#include <QDateTime>
#include <QJsonDocument>

#include <cstdio>
#include <unistd.h>

namespace ctl {

namespace {

void put(FILE *stream, const QByteArray &text)
{
    std::fwrite(text.constData(), 1, static_cast<size_t>(text.size()), stream);
    std::fflush(stream);
}

bool dropsResults = false;

void drop(QtMsgType /*type*/, const QMessageLogContext & /*context*/, const QString & /*text*/) { }

void show(QtMsgType /*type*/, const QMessageLogContext & /*context*/, const QString &text)
{
    put(stderr, escapedForLog(text).toUtf8() + '\n');
}

} // namespace

void print(const QString &line)
{
    put(stdout, escapedForLog(line).toUtf8() + '\n');
}

void keepResultsAway()
{
    dropsResults = true;
}

void printTable(const QVector<QStringList> &rows)
{
    if (dropsResults)
        return;
    QVector<int> widths;
    for (const QStringList &row : rows) {
        for (int i = 0; i < row.size(); ++i) {
            if (i == widths.size())
                widths.append(0);
            widths[i] = qMax(widths.at(i), row.at(i).size());
        }
    }
    for (const QStringList &row : rows) {
        QString line;
        for (int i = 0; i < row.size(); ++i)
            line += row.at(i).leftJustified(widths.at(i) + 2);
        while (line.endsWith(QLatin1Char(' ')))
            line.chop(1);
        print(line);
    }
}

void printJson(const QJsonObject &object)
{
    if (!dropsResults)
        put(stdout, QJsonDocument(object).toJson(QJsonDocument::Indented));
}

void printJsonLine(const QJsonObject &object)
{
    put(stdout, QJsonDocument(object).toJson(QJsonDocument::Compact) + '\n');
}

void complain(const QString &sentence)
{
    put(stderr, "qkv720ctl: " + escapedForLog(sentence).toUtf8() + '\n');
}

void keepLogAway(bool verbose)
{
    qInstallMessageHandler(verbose ? show : drop);
}

Progress::Progress(const QString &what, int steps)
    : m_what(what)
    , m_steps(steps)
    , m_startMs(QDateTime::currentMSecsSinceEpoch())
{
}

void Progress::step()
{
    constexpr qint64 kQuietMs = 1000;
    ++m_done;
    if (::isatty(STDERR_FILENO) == 0 || QDateTime::currentMSecsSinceEpoch() - m_startMs < kQuietMs)
        return;
    m_shown = true;
    put(stderr, QStringLiteral("\r%1 %2 of %3").arg(m_what).arg(m_done).arg(m_steps).toUtf8());
}

Progress::~Progress()
{
    if (m_shown)
        put(stderr, "\r\x1b[K");
}

} // namespace ctl
