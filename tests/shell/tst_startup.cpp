// The program itself, started as an operator starts it: what it makes of the settings file, what it logs, how it ends.

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QSettings>
#include <QtTest>

namespace {

constexpr int kStartMs = 20000;

// A run of the program in the folder of the test, ended by the destructor.
class Run
{
public:
    explicit Run(const QString &program, const QString &folder = QDir::currentPath(),
                 const QString &locale = QStringLiteral("C.UTF-8"))
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("QT_MESSAGE_PATTERN"), QStringLiteral("%{type}|%{message}"));
        environment.insert(QStringLiteral("QT_LOGGING_TO_CONSOLE"), QStringLiteral("1"));
        environment.insert(QStringLiteral("LC_ALL"), locale);
        environment.insert(QStringLiteral("LANG"), locale);
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

    bool ended() { return m_process.waitForFinished(kStartMs); }
    int exitCode() const { return m_process.exitCode(); }
    bool crashed() const { return m_process.exitStatus() == QProcess::CrashExit; }
    QString output() const { return m_output; }

private:
    QProcess m_process;
    QString m_output;
};

QString settingsPath(const QString &folder = QDir::currentPath())
{
    return QDir(folder).absoluteFilePath(QStringLiteral("../../halvorine/qkv720/qkv720.ini"));
}

QString storedLanguage(const QString &path)
{
    return QSettings(path, QSettings::IniFormat).value(QStringLiteral("setting/language")).toString();
}

void storeLanguage(const QString &language)
{
    QDir().mkpath(QFileInfo(settingsPath()).absolutePath());
    QSettings settings(settingsPath(), QSettings::IniFormat);
    settings.setValue(QStringLiteral("setting/language"), language);
}

// What the start-up timer logs on a first run: by then the document stands and the loop runs.
const QString kStarted = QStringLiteral("ini is empty");

} // namespace

class TestStartup : public QObject
{
    Q_OBJECT

private slots:
    void aFirstRunComesUpInEnglish()
    {
        Run panel(QStringLiteral(PANEL_PROGRAM));
        QVERIFY2(panel.printed(kStarted), qPrintable(panel.output()));
        QCOMPARE(storedLanguage(settingsPath()), QStringLiteral("en_US"));
        QStringList groups = QSettings(settingsPath(), QSettings::IniFormat).childGroups();
        QCOMPARE(groups, QStringList(QStringLiteral("setting")));
    }

    void aSavedLanguageComesBack_data()
    {
        QTest::addColumn<QString>("stored");
        QTest::addColumn<QString>("after");
        QTest::newRow("traditional Chinese") << "zh_TW"
                                             << "zh_TW";
        QTest::newRow("simplified Chinese") << "zh_CN"
                                            << "zh_CN";
        QTest::newRow("English") << "en_US"
                                 << "en_US";
        QTest::newRow("one without an entry is lost") << "de_DE"
                                                      << "en_US";
    }

    void aSavedLanguageComesBack()
    {
        QFETCH(QString, stored);
        QFETCH(QString, after);
        storeLanguage(stored);
        Run panel(QStringLiteral(PANEL_PROGRAM));
        QVERIFY2(panel.printed(kStarted), qPrintable(panel.output()));
        QCOMPARE(storedLanguage(settingsPath()), after);
    }

    void theWorkingFolderDecidesWhichFileIsUsed()
    {
        storeLanguage(QStringLiteral("zh_TW"));
        const QString other = QDir::currentPath() + QStringLiteral("/other/place/run");
        QVERIFY(QDir().mkpath(other));
        Run panel(QStringLiteral(PANEL_PROGRAM), other);
        QVERIFY2(panel.printed(kStarted), qPrintable(panel.output()));
        QCOMPARE(storedLanguage(settingsPath(other)), QStringLiteral("en_US"));
        QCOMPARE(storedLanguage(settingsPath()), QStringLiteral("zh_TW"));
    }

    void aGarbledFileStartsAFirstRun()
    {
        QDir().mkpath(QFileInfo(settingsPath()).absolutePath());
        QFile file(settingsPath());
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(QByteArray("\x00\xff[[]]=\n%zz\x80", 12).repeated(200));
        file.close();
        Run panel(QStringLiteral(PANEL_PROGRAM));
        QVERIFY2(panel.printed(kStarted), qPrintable(panel.output()));
        QCOMPARE(storedLanguage(settingsPath()), QStringLiteral("en_US"));
    }

    // The facade before the language, the language before the document, the saved one back after it.
    void theOrderOfTheStart()
    {
        storeLanguage(QStringLiteral("zh_TW"));
        Run panel(QStringLiteral(PANEL_PROGRAM));
        QVERIFY2(panel.printed(kStarted), qPrintable(panel.output()));
        const QStringList order{QStringLiteral("MainControl init (Language):"),
                                QStringLiteral("Translator loaded: true"),
                                QStringLiteral("Language Select AAA:"),
                                QStringLiteral("Language Path:"),
                                QStringLiteral("onRefreshLanguage"),
                                kStarted};
        int at = -1;
        for (const QString &line : order) {
            const int next = panel.output().indexOf(line, at + 1);
            QVERIFY2(next > at, qPrintable(line + QStringLiteral(" is out of order in\n") + panel.output()));
            at = next;
        }
    }

    void nothingIsComplainedOf()
    {
        Run panel(QStringLiteral(PANEL_PROGRAM));
        QVERIFY2(panel.printed(kStarted), qPrintable(panel.output()));
        panel.readOn(1500);
        const QStringList lines = panel.output().split(QLatin1Char('\n'), Qt::SkipEmptyParts);
        QVERIFY(!lines.isEmpty());
        for (const QString &line : lines)
            QVERIFY2(line.startsWith(QLatin1String("debug|")), qPrintable(line));
    }

    void withoutADocumentTheProgramEnds()
    {
        Run panel(QStringLiteral(PANEL_WITHOUT_DOCUMENT));
        QVERIFY(panel.ended());
        QVERIFY(!panel.crashed());
        QCOMPARE(panel.exitCode(), 255); // -1, as the system hands it on
    }
};

QTEST_GUILESS_MAIN(TestStartup)
#include "tst_startup.moc"
