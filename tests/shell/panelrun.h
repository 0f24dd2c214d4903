#pragma once

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QSettings>

#include <csignal>
#include <functional>

constexpr int kStartMs = 20000;

// What the start-up timer logs on a first run: by then the document stands and the loop runs.
inline const QString kStarted = QStringLiteral("ini is empty");

using Environment = std::function<void(QProcessEnvironment &)>;

// A run of the program in the folder of the test, ended by the destructor.
class Run
{
public:
    explicit Run(const QString &program, const QString &folder = QDir::currentPath(),
                 const QString &locale = QStringLiteral("C.UTF-8"), const Environment &change = {})
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
        m_process.start(program, QStringList());
    }

    ~Run()
    {
        m_process.kill();
        m_process.waitForFinished(5000);
    }

    Run(const Run &) = delete;
    Run &operator=(const Run &) = delete;

    // Collects what the program prints until TEXT has come; false when it ends or the time is over first.
    bool printed(const QString &text)
    {
        QElapsedTimer timer;
        timer.start();
        while (!m_output.contains(text) && timer.elapsed() < kStartMs) {
            m_process.waitForReadyRead(100);
            m_output += QString::fromUtf8(m_process.readAll());
            if (m_process.state() == QProcess::NotRunning)
                break;
        }
        return m_output.contains(text);
    }

    void readOn(int ms)
    {
        QElapsedTimer timer;
        timer.start();
        while (timer.elapsed() < ms) {
            m_process.waitForReadyRead(100);
            m_output += QString::fromUtf8(m_process.readAll());
        }
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
    void goOn() const { ::kill(static_cast<pid_t>(m_process.processId()), SIGCONT); }

    qint64 processId() const { return m_process.processId(); }
    bool isRunning() const { return m_process.state() == QProcess::Running; }
    int exitCode() const { return m_process.exitCode(); }
    bool crashed() const { return m_process.exitStatus() == QProcess::CrashExit; }
    QString output() const { return m_output; }

private:
    QProcess m_process;
    QString m_output;
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
