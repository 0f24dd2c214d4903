#pragma once

#include <QString>
#include <QStringList>
#include <QtGlobal>

#include <functional>

class QThread;

namespace support {

// Hears what the program prints, log lines and warnings apart, from construction to destruction; one at a time.
// What other threads print, a unit's for instance, goes where it went before.
class LogCapture
{
public:
    LogCapture();
    ~LogCapture();
    LogCapture(const LogCapture &) = delete;
    LogCapture &operator=(const LogCapture &) = delete;

    // In the order in which they came. A case clears them where it begins to listen.
    static QStringList &logs();
    // Warnings and worse. Printed as well, so that a case that fails over one shows which.
    static QStringList &warnings();
    // What is done at each log line, at the moment at which it is printed; forgotten at the end of the capture.
    static std::function<void(const QString &)> &onLine();
    // Log lines with this part.
    static int count(const QString &part);

private:
    static void take(QtMsgType type, const QMessageLogContext &context, const QString &text);

    static LogCapture *listening;
    QtMessageHandler before;
    QThread *thread;
};

} // namespace support
