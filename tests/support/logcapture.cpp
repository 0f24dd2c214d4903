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
        return;
    }
    warnings().append(text);
    std::fprintf(stderr, "warning: %s (%s)\n", qPrintable(text), context.file ? context.file : "");
}

} // namespace support
