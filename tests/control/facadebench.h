#pragma once

#include "shell/universalconst.h"
#include "signalrecorder.h"
#include "tests/control/devicebehind.h"
#include "tests/support/unithost.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QtTest>

#include <functional>
#include <memory>

inline void writeSettings(const QString &text)
{
    QDir().mkpath(QFileInfo(settingsPath()).path());
    QFile file(settingsPath());
    if (!file.open(QIODevice::WriteOnly) || file.write(text.toUtf8()) < 0)
        qFatal("can't write the settings file");
}

// The settings file as it lies on disk, read as any other file: a second QSettings in this process would first
// write down what the panel's own still holds back.
inline QString storedText()
{
    QFile file(settingsPath());
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

// Every key of a group in a settings file's text: "key=value", in the order of the alphabet.
inline QStringList keysOf(const QString &group, const QString &fileText)
{
    QStringList list;
    bool inside = false;
    for (const QString &line : fileText.split(QLatin1Char('\n'))) {
        if (line.startsWith(QLatin1Char('[')))
            inside = line == QLatin1Char('[') + group + QLatin1Char(']');
        else if (inside && !line.isEmpty())
            list += line;
    }
    list.sort();
    return list;
}

inline QStringList storedKeys(const QString &group)
{
    return keysOf(group, storedText());
}

// A facade, a recorder of all its signals and a stand-in unit on one link.
class FacadeBench
{
public:
    explicit FacadeBench(uint link = 1)
        : method(link)
        , host(options(link))
    {
        start();
    }
    explicit FacadeBench(const support::UnitHost::Options &unit)
        : method(1)
        , host(unit)
    {
        start();
    }
    ~FacadeBench() { stop(); }
    FacadeBench(const FacadeBench &) = delete;
    FacadeBench &operator=(const FacadeBench &) = delete;

    void stop()
    {
        recorder.reset();
        discard(control);
    }

    // A second run of the panel on the same settings file. The start-up timer rests unless a test wants it.
    void start()
    {
        control = std::make_unique<mainControl>();
        control->timerStartUp->stop();
        device = deviceOf(*control);
        recorder = std::make_unique<SignalRecorder>(*control);
    }
    void restart()
    {
        stop();
        start();
    }

    QString target() const { return method == 1 ? host.address() : host.serialPortName(); }

    // Connects and forgets what that took.
    bool connectUnit()
    {
        const QString result = control->deviceConnect(method, target(), 0);
        recorder->take();
        host.clearRecord();
        if (result != QLatin1String("OK"))
            qWarning() << "connect:" << result;
        return result == QLatin1String("OK");
    }

    // What the unit holds in one field of a function.
    uint held(int code, const char *field)
    {
        int value = 0;
        host.withUnit([&](standin::Unit &unit) { value = unit.value(code, QLatin1String(field)); });
        return static_cast<uint>(value);
    }

    // Whether `call` starts the running poll anew. However slow the machine: a poll that was started in the call has
    // not run for longer than the call took, one that was left alone has.
    bool startsThePoll(const std::function<void()> &call)
    {
        constexpr int kRunMs = 40;
        QTimer &poll = *control->timerRefreshStatus;
        poll.setTimerType(Qt::PreciseTimer);
        poll.start();
        QTest::qSleep(kRunMs);
        QElapsedTimer clock;
        clock.start();
        call();
        const int left = poll.remainingTime();
        return poll.isActive() && left > poll.interval() - clock.elapsed() - kRunMs / 2;
    }

    // The frames since the last look.
    QStringList frames()
    {
        const QStringList list = host.frames();
        host.clearRecord();
        return list;
    }

    uint method;
    support::UnitHost host;
    std::unique_ptr<mainControl> control;
    qkv720 *device = nullptr;
    std::unique_ptr<SignalRecorder> recorder;

private:
    static support::UnitHost::Options options(uint link)
    {
        support::UnitHost::Options unit;
        unit.network = link == 1;
        unit.serial = link == 2;
        return unit;
    }
};
