#pragma once

#include <QElapsedTimer>
#include <QProcess>
#include <QString>
#include <QStringList>

namespace support {

// The program qkv720-unit with its streams, both of them in `output`.
class Program
{
public:
    explicit Program(const QStringList &arguments)
    {
        process.setProcessChannelMode(QProcess::MergedChannels);
        process.start(QStringLiteral(UNIT_PROGRAM), arguments);
    }
    ~Program() { stop(); }
    Program(const Program &) = delete;
    Program &operator=(const Program &) = delete;

    bool isReady() { return waitFor(QStringLiteral("ready on")); }
    bool waitFor(const QString &text, int ms = 5000)
    {
        QElapsedTimer clock;
        clock.start();
        while (!output.contains(text) && clock.elapsed() < ms) {
            process.waitForReadyRead(100);
            output += QString::fromUtf8(process.readAll());
        }
        return output.contains(text);
    }
    // Sends one line, and gives what is printed until it is answered.
    QString tell(const QString &line, const QString &until)
    {
        waitFor(QStringLiteral("\n"));
        process.waitForReadyRead(20);
        process.readAll();
        output.clear();
        process.write(line.toUtf8() + '\n');
        waitFor(until);
        return output;
    }
    void stop()
    {
        if (process.state() == QProcess::NotRunning)
            return;
        process.terminate();
        process.waitForFinished(5000);
        output += QString::fromUtf8(process.readAll());
    }
    // For a program that ends by itself: all that it printed.
    QString lastWords()
    {
        process.waitForFinished(5000);
        output += QString::fromUtf8(process.readAll());
        return output;
    }

    QProcess process;
    QString output;
};

} // namespace support
