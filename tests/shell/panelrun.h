#pragma once

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QSettings>

#include <csignal>
#include <functional>
#include <memory>

constexpr int kStartMs = 20000;

// What the start-up timer logs on a first run: by then the document stands and the loop runs.
inline const QString kStarted = QStringLiteral("ini is empty");

using Environment = std::function<void(QProcessEnvironment &)>;

// A run of the program in the folder of the test, ended by the destructor.
class Run
{
public:
    explicit Run(const QString &program, const QString &folder = QDir::currentPath(),
                 const QString &locale = QStringLiteral("C.UTF-8"), const Environment &change = {},
                 std::unique_ptr<QProcess> process = std::make_unique<QProcess>(),
                 const QStringList &arguments = {})
        : m_running(std::move(process))
        , m_process(*m_running)
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("QT_MESSAGE_PATTERN"), QStringLiteral("%{type}|%{message}"));
        environment.insert(QStringLiteral("QT_LOGGING_TO_CONSOLE"), QStringLiteral("1"));
        environment.insert(QStringLiteral("LC_ALL"), locale);
        environment.insert(QStringLiteral("LANG"), locale);
        if (change)
            change(environment);
        m_process.setProcessEnvironment(environment);
        m_process.setWorkingDirectory(folder);
        m_process.setProcessChannelMode(QProcess::MergedChannels);
        m_process.start(program, arguments);
    }

    ~Run()
    {
        m_process.kill();
        m_process.waitForFinished(5000);
    }

    Run(const Run &) = delete;
    Run &operator=(const Run &) = delete;

    // Collects what the program prints until TEXT has come, now or since forget(); false when it ends or the time is
    // over first.
    bool printed(const QString &text, int withinMs = kStartMs)
    {
        QElapsedTimer timer;
        timer.start();
        while (m_output.indexOf(text, m_forgotten) < 0 && timer.elapsed() < withinMs) {
            m_process.waitForReadyRead(100);
            m_output += QString::fromUtf8(m_process.readAll());
            if (m_process.state() == QProcess::NotRunning)
                break;
        }
        return m_output.indexOf(text, m_forgotten) >= 0;
    }
    // What came up to now is not looked at by printed() any more.
    void forget()
    {
        readOn(0);
        m_forgotten = m_output.size();
    }

    void readOn(int ms)
    {
        QElapsedTimer timer;
        timer.start();
        do {
            m_process.waitForReadyRead(qBound(0, ms - static_cast<int>(timer.elapsed()), 100));
            m_output += QString::fromUtf8(m_process.readAll());
        } while (timer.elapsed() < ms);
    }

    bool ended(int withinMs = kStartMs)
    {
        const bool over = m_process.waitForFinished(withinMs);
        m_output += QString::fromUtf8(m_process.readAll());
        return over;
    }

    // Waits until the program has stopped itself, as it does under the observer.
    bool stopped()
    {
        QElapsedTimer timer;
        timer.start();
        while (timer.elapsed() < kStartMs) {
            m_process.waitForReadyRead(20);
            m_output += QString::fromUtf8(m_process.readAll());
            QFile file(QStringLiteral("/proc/%1/stat").arg(m_process.processId()));
            if (!file.open(QIODevice::ReadOnly))
                return false;
            const QByteArray stat = file.readAll();
            if (stat.mid(stat.lastIndexOf(')') + 2, 1) == "T")
                return true;
        }
        return false;
    }
    void goOn() const { signal(SIGCONT); }

    qint64 processId() const { return m_process.processId(); }
    // A program that has ended has the number 0, and that would be everybody who runs beside this test.
    void signal(int number) const
    {
        if (const auto process = static_cast<pid_t>(m_process.processId()); process > 0)
            ::kill(process, number);
    }
    bool isRunning() const { return m_process.state() == QProcess::Running; }
    int exitCode() const { return m_process.exitCode(); }
    bool crashed() const { return m_process.exitStatus() == QProcess::CrashExit; }
    QString output() const { return m_output; }

private:
    std::unique_ptr<QProcess> m_running;
    QProcess &m_process;
    QString m_output;
    int m_forgotten = 0;
};

inline QString settingsPath(const QString &folder = QDir::currentPath())
{
    return QDir(folder).absoluteFilePath(QStringLiteral("../../halvorine/qkv720/qkv720.ini"));
}

inline QString storedLanguage(const QString &path)
{
    return QSettings(path, QSettings::IniFormat).value(QStringLiteral("setting/language")).toString();
}

inline void storeLanguage(const QString &language)
{
    QDir().mkpath(QFileInfo(settingsPath()).absolutePath());
    QSettings settings(settingsPath(), QSettings::IniFormat);
    settings.setValue(QStringLiteral("setting/language"), language);
}
