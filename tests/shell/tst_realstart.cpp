// The program itself once more, with an observer loaded into it: what can't be told by its log and its file alone.

#include "panelrun.h"

#include <QSerialPortInfo>
#include <QThread>
#include <QtTest>

namespace {

// The observer stops the program or closes its window when a log line begins like this.
Environment observed(const char *variable, const QString &line = QString())
{
    return [variable, line](QProcessEnvironment &environment) {
        environment.insert(QStringLiteral("QT_PLUGIN_PATH"), QStringLiteral(OBSERVER_FOLDER));
        environment.insert(QStringLiteral("QT_QPA_GENERIC_PLUGINS"), QStringLiteral("observer"));
        if (!line.isEmpty())
            environment.insert(QLatin1String(variable), line);
    };
}

const QString kLocale = QStringLiteral("C.UTF-8");

} // namespace

class TestRealStart : public QObject
{
    Q_OBJECT

private slots:
    void init() { QFile::remove(settingsPath()); }

    void aFirstRunUnderAChineseLocale_data()
    {
        QTest::addColumn<QString>("locale");
        QTest::addColumn<QString>("language");
        QTest::newRow("traditional") << "zh_TW.UTF-8"
                                     << "zh_TW";
        QTest::newRow("simplified") << "zh_CN.UTF-8"
                                    << "zh_CN";
        QTest::newRow("one without a catalogue") << "de_DE.UTF-8"
                                                 << "de_DE";
    }

    // The system's language is installed and stored before the document loads; the language box then puts English in
    // its place, and nothing brings it back.
    void aFirstRunUnderAChineseLocale()
    {
        QFETCH(QString, locale);
        QFETCH(QString, language);
        const bool hasCatalogue = language.startsWith(QLatin1String("zh"));
        // The box's own first line, before it chooses.
        const QString chooses = QStringLiteral("Language Select AAA:");
        Run panel(QStringLiteral(PANEL_PROGRAM), QDir::currentPath(), locale,
                  observed("OBSERVER_STOP_AT", chooses));
        QVERIFY2(panel.stopped(), qPrintable(panel.output()));
        QCOMPARE(storedLanguage(settingsPath()), language);
        QVERIFY2(panel.output().contains(chooses + QLatin1Char(' ') + language), qPrintable(panel.output()));
        QCOMPARE(panel.output().contains(QStringLiteral("Translator loaded: true")), hasCatalogue);
        panel.goOn();
        QVERIFY2(panel.printed(kStarted), qPrintable(panel.output()));
        QCOMPARE(panel.output().count(QStringLiteral("Translator loaded: true")), hasCatalogue ? 2 : 1);
        QCOMPARE(storedLanguage(settingsPath()), QStringLiteral("en_US"));
    }

    void theSavedLanguageIsStoredAgain()
    {
        storeLanguage(QStringLiteral("zh_TW"));
        Run panel(QStringLiteral(PANEL_PROGRAM), QDir::currentPath(), kLocale,
                  observed("OBSERVER_STOP_AT", QStringLiteral("onRefreshLanguage")));
        QVERIFY2(panel.stopped(), qPrintable(panel.output()));
        // The document stands, and its language box has put its first entry in the place of the saved one.
        QCOMPARE(storedLanguage(settingsPath()), QStringLiteral("en_US"));
        panel.goOn();
        QVERIFY2(panel.printed(kStarted), qPrintable(panel.output()));
        QCOMPARE(storedLanguage(settingsPath()), QStringLiteral("zh_TW"));
        QCOMPARE(panel.output().count(QStringLiteral("Translator loaded: true")), 3);
    }

    // Who left the panel with the serial link finds the saved port compared with the machine's, without having opened
    // the list of ports. On a machine without ports nothing is there to be compared.
    void theSavedSerialLinkIsLookedForAmongThePorts()
    {
        const QString kCompared = QStringLiteral("ini exists and com check OK");
        storeLanguage(QStringLiteral("en_US"));
        {
            QSettings settings(settingsPath(), QSettings::IniFormat);
            settings.beginGroup(QStringLiteral("connection"));
            settings.setValue(QStringLiteral("interface"), 2);
            settings.setValue(QStringLiteral("serialport"), QStringLiteral("no such port"));
            settings.setValue(QStringLiteral("ipaddress"), QStringLiteral("192.168.72.10"));
        }
        Run panel(QStringLiteral(PANEL_PROGRAM), QDir::currentPath(), kLocale,
                  observed("OBSERVER_CLOSE_AT", kCompared));
        QVERIFY2(panel.printed(kCompared), qPrintable(panel.output()));
        QVERIFY2(panel.ended(), qPrintable(panel.output()));
        QCOMPARE(panel.exitCode(), 0);
        const auto ports = QSerialPortInfo::availablePorts();
        QCOMPARE(panel.output().count(QStringLiteral("com vs serialList")), ports.size());
        for (const QSerialPortInfo &port : ports)
            QVERIFY2(panel.output().contains(port.portName()), qPrintable(panel.output()));
    }

    // The timer of the start is long due when the process wakes, and waits for the event loop all the same.
    void aStoppedProcessConnectsAfterItsDocument()
    {
        constexpr unsigned long kStoppedMs = 2000; // the timer's 1500 ms and more
        Run panel(QStringLiteral(PANEL_PROGRAM), QDir::currentPath(), kLocale,
                  observed("OBSERVER_STOP_AT", QStringLiteral("Translator loaded:")));
        QVERIFY2(panel.stopped(), qPrintable(panel.output()));
        QVERIFY(!panel.output().contains(QStringLiteral("onRefreshLanguage")));
        QThread::msleep(kStoppedMs);
        panel.goOn();
        QVERIFY2(panel.printed(kStarted), qPrintable(panel.output()));
        const int told = panel.output().indexOf(QStringLiteral("onRefreshLanguage"));
        QVERIFY2(told >= 0 && told < panel.output().indexOf(kStarted), qPrintable(panel.output()));
    }

    // Closing the window ends the loop; then the document goes before the facade that it talks to.
    void closingTheWindowTearsDownInOrder()
    {
        Run panel(QStringLiteral(PANEL_PROGRAM), QDir::currentPath(), kLocale,
                  observed("OBSERVER_CLOSE_AT", kStarted));
        QVERIFY2(panel.ended(), qPrintable(panel.output()));
        QVERIFY2(!panel.crashed(), qPrintable(panel.output()));
        QCOMPARE(panel.exitCode(), 0);
        int at = panel.output().indexOf(kStarted);
        QVERIFY2(at >= 0, qPrintable(panel.output()));
        for (const char *line : {"observer:destroyed window", "observer:destroyed facade"}) {
            const int next = panel.output().indexOf(QLatin1String(line), at);
            QVERIFY2(next >= 0,
                     qPrintable(line + QStringLiteral(" is missing or out of order in\n") + panel.output()));
            at = next;
        }
    }

    void withoutADocumentTheFacadeIsTornDownToo()
    {
        Run panel(QStringLiteral(PANEL_WITHOUT_DOCUMENT), QDir::currentPath(), kLocale, observed(""));
        QVERIFY2(panel.ended(), qPrintable(panel.output()));
        QVERIFY2(!panel.crashed(), qPrintable(panel.output()));
        QCOMPARE(panel.exitCode(), 255); // -1, as the system hands it on
        QVERIFY2(panel.output().contains(QStringLiteral("observer:made facade")), qPrintable(panel.output()));
        QVERIFY2(panel.output().contains(QStringLiteral("observer:destroyed facade")),
                 qPrintable(panel.output()));
    }

    void theSplashIsSharpOnEveryScreen_data()
    {
        QTest::addColumn<QString>("scale");
        QTest::addColumn<QString>("splash");
        QTest::newRow("small") << "1"
                               << "splash of 640x360 on 640x360";
        QTest::newRow("large") << "2"
                               << "splash of 1280x720 on 640x360";
    }

    void theSplashIsSharpOnEveryScreen()
    {
        QFETCH(QString, scale);
        QFETCH(QString, splash);
        Run panel(QStringLiteral(PANEL_PROGRAM), QDir::currentPath(), kLocale,
                  [&](QProcessEnvironment &environment) {
                      observed("OBSERVER_CLOSE_AT", kStarted)(environment);
                      environment.insert(QStringLiteral("QT_SCALE_FACTOR"), scale);
                  });
        QVERIFY2(panel.ended(), qPrintable(panel.output()));
        QVERIFY2(panel.output().contains(QStringLiteral("observer:") + splash), qPrintable(panel.output()));
    }

    void iconAndFontAreThere()
    {
        Run panel(QStringLiteral(PANEL_PROGRAM), QDir::currentPath(), kLocale,
                  observed("OBSERVER_CLOSE_AT", kStarted));
        QVERIFY2(panel.ended(), qPrintable(panel.output()));
        QVERIFY2(panel.output().contains(QRegularExpression(QStringLiteral("observer:icon [1-9]"))),
                 qPrintable(panel.output()));
        QVERIFY2(panel.output().contains(QStringLiteral("observer:substitutes noto sans cjk tc\n")),
                 qPrintable(panel.output()));
    }

    void aChangeWaitsForNothing()
    {
        Run panel(QStringLiteral(PANEL_PROGRAM), QDir::currentPath(), kLocale,
                  observed("OBSERVER_CLOSE_AT", kStarted));
        QVERIFY2(panel.ended(), qPrintable(panel.output()));
        QVERIFY2(panel.output().contains(QStringLiteral("observer:update wait 0\n")),
                 qPrintable(panel.output()));
    }
};

QTEST_GUILESS_MAIN(TestRealStart)
#include "tst_realstart.moc"
