// The program itself, started as an operator starts it: what it makes of the settings file, what it logs, how it ends.

#include "displayrun.h"

#include <QSerialPortInfo>
#include <QSysInfo>
#include <QtTest>

#include <sys/stat.h>

namespace {

QString lockPath()
{
    return settingsPath() + QStringLiteral(".lock");
}

void write(const QString &path, const QByteArray &bytes)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("can't write %s", qPrintable(path));
}

// A lock as the toolkit writes it: process, program, host.
void writeLock(const QString &host)
{
    write(lockPath(), "4194303\nqkv720-panel\n" + host.toUtf8() + "\n");
}

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

    // The saved port is compared with each of the machine's, which nobody has asked for yet when the panel comes up.
    void aSavedSerialLinkKnowsThePorts()
    {
        write(settingsPath(), "[connection]\ninterface=2\nipaddress=192.168.72.5\nserialport=no such port\n");
        Run panel(QStringLiteral(PANEL_PROGRAM));
        QVERIFY2(panel.printed(QStringLiteral("ini exists and com check OK")), qPrintable(panel.output()));
        QCOMPARE(panel.output().count(QStringLiteral("com vs serialList")),
                 QSerialPortInfo::availablePorts().size());
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

    void needsNoGraphicsDriver()
    {
        Run panel(QStringLiteral(PANEL_PROGRAM), QDir::currentPath(), QStringLiteral("C.UTF-8"),
                  withoutGraphics);
        QVERIFY2(panel.printed(kStarted), qPrintable(panel.output()));
        panel.readOn(500);
        QVERIFY2(panel.isRunning(), qPrintable(panel.output()));
    }

    // Neither the splash nor the window loads a driver, which would cost 50 MB and more.
    void loadsNoGraphicsDriver()
    {
        const support::VirtualDisplay display;
        QVERIFY2(display.isGood(), "Xvfb cannot be started");
        Run panel(QStringLiteral(PANEL_PROGRAM), QDir::currentPath(), QStringLiteral("C.UTF-8"), on(display));
        QVERIFY2(panel.printed(kStarted), qPrintable(panel.output()));
        QFile maps(QStringLiteral("/proc/%1/maps").arg(panel.processId()));
        QVERIFY(maps.open(QIODevice::ReadOnly));
        const QByteArray libraries = maps.readAll();
        QVERIFY(libraries.contains("libQt5Quick"));
        for (const char *driver : {"libGLX_", "libEGL_", "_dri.so", "libgallium", "libLLVM"})
            QVERIFY2(!libraries.contains(driver), driver);
    }

    // The operator asks for GL, and there is none.
    void aWindowThatCannotBeDrawnIsASentence()
    {
        Run panel(QStringLiteral(PANEL_PROGRAM), QDir::currentPath(), QStringLiteral("C.UTF-8"),
                  [](QProcessEnvironment &environment) {
                      withoutGraphics(environment);
                      environment.insert(QStringLiteral("QT_QUICK_BACKEND"), QString());
                  });
        QVERIFY2(panel.ended(), qPrintable(panel.output()));
        QVERIFY2(!panel.crashed(), qPrintable(panel.output()));
        QCOMPARE(panel.exitCode(), 3);
        QVERIFY2(panel.output().contains(QLatin1String("critical|The panel cannot draw its window:")),
                 qPrintable(panel.output()));
    }

    // A host name comes from the network and is logged by QML and C++: it stays within its line.
    void aNameForgesNoLogLine()
    {
        const QString name = QStringLiteral("\x1b[2Jold\r\nini forged\t\u202egnp\u2066\u009b1m");
        QDir().mkpath(QFileInfo(settingsPath()).absolutePath());
        {
            QSettings settings(settingsPath(), QSettings::IniFormat);
            settings.setValue(QStringLiteral("connection/hostname"), name);
        }
        Run panel(QStringLiteral(PANEL_PROGRAM));
        QVERIFY2(panel.printed(kStarted), qPrintable(panel.output()));
        const QString shown = QStringLiteral("\\u001b[2Jold\\r\\nini forged\\t\\u202egnp\\u2066\\u009b1m");
        const QStringList lines = panel.output().split(QLatin1Char('\n'), Qt::SkipEmptyParts);
        QCOMPARE(lines.filter(QStringLiteral("onRefreshConnection 1:")).filter(shown).size(), 1);
        for (const QString &line : lines) {
            QVERIFY2(line.startsWith(QLatin1String("debug|")), qPrintable(line));
            for (const QChar character : line)
                QVERIFY2(character.category() != QChar::Other_Control
                             && character.category() != QChar::Other_Format,
                         qPrintable(line));
        }
    }

    void anObstacleBesideTheSettingsIsASentence_data()
    {
        QTest::addColumn<QString>("obstacle");
        QTest::newRow("lock of another host") << "host";
        QTest::newRow("folder of the lock's name") << "folder";
        QTest::newRow("pipe of the lock's name") << "pipe";
        QTest::newRow("pipe in the place of the file") << "file";
    }

    void anObstacleBesideTheSettingsIsASentence()
    {
        QFETCH(QString, obstacle);
        const QString path = obstacle == QLatin1String("file") ? settingsPath() : lockPath();
        QDir folder(QFileInfo(path).absolutePath());
        QVERIFY(folder.removeRecursively() && folder.mkpath(QStringLiteral(".")));
        if (obstacle == QLatin1String("host"))
            writeLock(QStringLiteral("another-host"));
        else if (obstacle == QLatin1String("folder"))
            QVERIFY(QDir().mkpath(path));
        else
            QCOMPARE(mkfifo(qPrintable(path), 0600), 0);

        Run panel(QStringLiteral(PANEL_PROGRAM));
        QVERIFY2(panel.ended(5000), qPrintable(panel.output()));
        QVERIFY(!panel.crashed());
        QCOMPARE(panel.exitCode(), 2);
        QVERIFY2(panel.output().contains(QLatin1String("critical|The settings of the panel")),
                 qPrintable(panel.output()));
        QVERIFY2(panel.output().contains(QDir::cleanPath(path)), qPrintable(panel.output()));
        if (obstacle == QLatin1String("host"))
            QVERIFY2(panel.output().contains(QLatin1String("on another-host")), qPrintable(panel.output()));
        QVERIFY2(!panel.output().contains(QLatin1String("MainControl init")), qPrintable(panel.output()));
    }

    // Where there is a screen, a window asks and the panel waits for the answer.
    void anObstacleIsAskedAbout()
    {
        const support::VirtualDisplay display;
        QVERIFY2(display.isGood(), "Xvfb cannot be started");
        QVERIFY(QDir().mkpath(lockPath()));
        Run panel(QStringLiteral(PANEL_PROGRAM), QDir::currentPath(), QStringLiteral("C.UTF-8"), on(display));
        QVERIFY2(panel.printed(QStringLiteral("critical|The settings of the panel")),
                 qPrintable(panel.output()));
        panel.readOn(1000);
        QVERIFY(panel.isRunning());
        QVERIFY2(!panel.output().contains(QLatin1String("MainControl init")), qPrintable(panel.output()));
    }

    void theLockOfAKilledPanelIsNoObstacle()
    {
        storeLanguage(QStringLiteral("zh_TW"));
        writeLock(QSysInfo::machineHostName());
        Run panel(QStringLiteral(PANEL_PROGRAM));
        QVERIFY2(panel.printed(kStarted), qPrintable(panel.output()));
        QCOMPARE(storedLanguage(settingsPath()), QStringLiteral("zh_TW"));
        QVERIFY(!QFile::exists(lockPath()));
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
