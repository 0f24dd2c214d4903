// The program starts on settings that are broken or blocked: a window or a sentence within five seconds, whatever lies
// there, and what it stores then is whole.

#include "tests/outside/realpanel.h"
#include "tests/support/brokensettings.h"

#include <QtTest>

namespace {

constexpr int kBlocked = 5000; // to a window or a sentence
constexpr quint32 kReturn = 0xff0d;

bool isSample(const support::BrokenSettings &how)
{
    const QByteArray name = how.name;
    return name == "noise behind a group" || name == "an empty lock" || name == "a socket in its place";
}

} // namespace

class TestSettings : public QObject
{
    Q_OBJECT

private slots:
    void aStartOn_data();
    void aStartOn();
};

void TestSettings::aStartOn_data()
{
    QTest::addColumn<int>("row");
    for (int row = 0; row < support::brokenSettings().size(); ++row) {
        const support::BrokenSettings &how = support::brokenSettings().at(row);
        if (isSample(how) || wholeSet())
            QTest::newRow(how.name) << row;
    }
}

void TestSettings::aStartOn()
{
    QFETCH(int, row);
    const support::BrokenSettings &how = support::brokenSettings().at(row);
    support::breakSettings(settingsPath(), how);
    RealPanel panel(RealPanel::Place{});
    QVERIFY2(panel.complaint().isEmpty(), qPrintable(panel.complaint()));
    QElapsedTimer clock;
    clock.start();
    QTRY_VERIFY_WITH_TIMEOUT(panel.screen().hasWindow(QStringLiteral("QKV-720")), 20000);
    const qint64 took = clock.elapsed();
    const qint64 waited = panel.keptWaiting();
    qInfo("%s: a %s after %lld ms, for %lld of which the machine was busy", how.name,
          how.inTheWay ? "question" : "window", took, waited);
    QVERIFY2(took - waited <= kBlocked, qPrintable(QStringLiteral("%1, %2").arg(took).arg(waited)));
    if (how.inTheWay) {
        QVERIFY2(panel.run().printed(QStringLiteral("critical|The settings of the panel")),
                 qPrintable(panel.run().output()));
        panel.run().readOn(200);
        panel.screen().key(kReturn); // Quit
        QVERIFY(panel.run().ended());
        QVERIFY(!panel.run().crashed());
        QCOMPARE(panel.run().exitCode(), 2);
        return;
    }
    QVERIFY2(panel.stands(), qPrintable(panel.run().output()));
    QVERIFY(panel.choose(QStringLiteral("comboMainLanguage"), 0));
    QVERIFY(panel.choose(QStringLiteral("comboMainLanguage"), 2));
    panel.run().readOn(200);
    QCOMPARE(panel.close(), 0);
    if (QFileInfo(settingsPath()).isFile())
        QCOMPARE(storedLanguage(settingsPath()), QStringLiteral("zh_CN"));
}

NETWORK_TEST_MAIN(TestSettings)
#include "tst_settings.moc"
