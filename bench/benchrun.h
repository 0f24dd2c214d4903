#pragma once

#include "control/maincontrol.h"

#include <QDir>
#include <QTemporaryDir>

#include <memory>

// A run of the panel's facade in a folder of its own, the start-up timer at rest and the log switched off.
class BenchRun
{
public:
    BenchRun()
    {
        qInstallMessageHandler([](QtMsgType type, const QMessageLogContext &, const QString &text) {
            if (type != QtDebugMsg)
                fprintf(stderr, "%s\n", qPrintable(text));
        });
        QDir(folder.path()).mkpath(QStringLiteral("home/run"));
        QDir::setCurrent(folder.filePath(QStringLiteral("home/run")));
        control = std::make_unique<mainControl>();
        control->timerStartUp->stop();
    }
    ~BenchRun() { QDir::setCurrent(QStringLiteral("/")); }
    BenchRun(const BenchRun &) = delete;
    BenchRun &operator=(const BenchRun &) = delete;

    mainControl &facade() { return *control; }

private:
    QTemporaryDir folder;
    std::unique_ptr<mainControl> control;
};
