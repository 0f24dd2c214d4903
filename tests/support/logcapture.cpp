#include "tests/support/logcapture.h"

#include <QThread>

#include <cstdio>

namespace support {

LogCapture *LogCapture::listening = nullptr;

LogCapture::LogCapture()
    : thread(QThread::currentThread())
{
    logs().clear();
    warnings().clear();
    listening = this;
    before = qInstallMessageHandler(&LogCapture::take);
}

LogCapture::~LogCapture()
{
    qInstallMessageHandler(before);
    onLine() = nullptr;
    listening = nullptr;
}

QStringList &LogCapture::logs()
{
    static QStringList list;
    return list;
}

QStringList &LogCapture::warnings()
{
    static QStringList list;
    return list;
}

std::function<void(const QString &)> &LogCapture::onLine()
{
    static std::function<void(const QString &)> action;
    return action;
}

int LogCapture::count(const QString &part)
{
    return logs().filter(part).size();
}

void LogCapture::take(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    if (QThread::currentThread() != listening->thread) {
        if (listening->before != nullptr)
            listening->before(type, context, text);
        return;
    }
    if (type == QtDebugMsg || type == QtInfoMsg) {
        logs().append(text);
        if (onLine())
            onLine()(text);
        return;
    }
    warnings().append(text);
    std::fprintf(stderr, "warning: %s (%s)\n", qPrintable(text), context.file ? context.file : "");
}

} // namespace support
