#pragma once

#include "device/qkv720commands.h"
#include "tests/support/unithost.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QtTest>

namespace support {

// One run of qkv720ctl to its end.
struct CtlRun
{
    int exitCode = -1;
    QString output;
    QString messages;

    QJsonObject json() const { return QJsonDocument::fromJson(output.toUtf8()).object(); }
};

inline CtlRun runCtl(const QStringList &arguments)
{
    constexpr int kLongestMs = 60000;
    QProcess process;
    process.start(QStringLiteral(CTL_PROGRAM), arguments);
    CtlRun run;
    if (!process.waitForFinished(kLongestMs) || process.exitStatus() != QProcess::NormalExit)
        return run;
    run.exitCode = process.exitCode();
    run.output = QString::fromUtf8(process.readAllStandardOutput());
    run.messages = QString::fromUtf8(process.readAllStandardError());
    return run;
}

// Words of a command line, apart by spaces.
inline QStringList words(const QString &line)
{
    return line.split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

// A stand-in unit and the program over one of its links.
class CtlBench
{
public:
    explicit CtlBench(uint method = kNetworkLink)
        : link(method)
        , host(options(method))
    {
    }

    QStringList place() const
    {
        return link == kNetworkLink ? QStringList{QStringLiteral("--host"), host.address()}
                                    : QStringList{QStringLiteral("--serial"), host.serialPortName()};
    }
    CtlRun run(const QStringList &arguments) const { return runCtl(place() + arguments); }
    CtlRun run(const char *line) const { return run(words(QLatin1String(line))); }
    int value(int code, const char *field) const
    {
        int held = 0;
        host.withUnit([&](standin::Unit &unit) { held = unit.value(code, QLatin1String(field)); });
        return held;
    }

    const uint link;
    mutable UnitHost host;

private:
    static UnitHost::Options options(uint method)
    {
        UnitHost::Options options;
        options.network = method == kNetworkLink;
        options.serial = !options.network;
        return options;
    }
};

inline void linkRows()
{
    QTest::addColumn<uint>("method");
    QTest::newRow("network") << uint(kNetworkLink);
    QTest::newRow("serial link") << uint(kSerialLink);
}

// A file beside the tests with what is to be printed.
inline QString golden(const char *name)
{
    QFile file(QStringLiteral(QT_TESTCASE_SOURCEDIR "/ctl/golden/") + QLatin1String(name));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

} // namespace support
