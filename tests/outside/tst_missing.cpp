// Starts in surroundings where something is missing or in the way: each ends in a window that works or in a sentence
// and a status, within five seconds of the machine's own time, never in a core.

#include "tests/outside/realpanel.h"

#include <QtTest>

namespace {

constexpr quint32 kTab = 0xff09;
constexpr quint32 kSpace = 0x20;
constexpr int kNoDisplay = 4;
constexpr int kNoDocument = 255; // -1, as the system hands it on
constexpr int kWindow = -1;

struct Lack
{
    const char *name;
    int ends; // with this status, or kWindow
    const char *says; // on standard error; what else it says there is the toolkit's own
    bool inSample;
    void (*take)(RealPanel::Place &place);
};

void set(RealPanel::Place &place, const char *variable, const char *value)
{
    const Environment before = place.environment;
    place.environment = [=](QProcessEnvironment &environment) {
        if (before)
            before(environment);
        if (value)
            environment.insert(QLatin1String(variable), QLatin1String(value));
        else
            environment.remove(QLatin1String(variable));
    };
}

// Starts the panel where a folder of the system is empty.
void hide(RealPanel::Place &place, const QString &folder)
{
    place.through = QStringList{QStringLiteral("unshare"),
                                QStringLiteral("-m"),
                                QStringLiteral("sh"),
                                QStringLiteral("-c"),
                                QStringLiteral("mount -t tmpfs none \"$0\" && exec \"$@\""),
                                folder};
}

QString qmlFolder(const char *module)
{
    return QLibraryInfo::location(QLibraryInfo::Qml2ImportsPath) + QLatin1Char('/') + QLatin1String(module);
}

const QVector<Lack> kLacks{
    {"any display", kNoDisplay, "The panel finds no display: neither DISPLAY nor WAYLAND_DISPLAY is set",
     true,
     [](RealPanel::Place &place) {
         set(place, "DISPLAY", nullptr);
         set(place, "WAYLAND_DISPLAY", nullptr);
         set(place, "QT_QPA_PLATFORM", nullptr);
     }},
    {"the display that is named", kNoDisplay,
     "The panel finds no display: nothing can be shown on DISPLAY=:47119", true,
     [](RealPanel::Place &place) { set(place, "DISPLAY", ":47119"); }},
    {"the toolkit's plugin", kNoDisplay, "The panel finds no display", false,
     [](RealPanel::Place &place) { set(place, "QT_QPA_PLATFORM", "nothing-of-that-name"); }},
    {"the module of the controls", kNoDocument, "QtQuick.Controls", false,
     [](RealPanel::Place &place) { hide(place, qmlFolder("QtQuick/Controls")); }},
    {"the module of the dialogs", kNoDocument, "module \"QtQuick.Dialogs\"", false,
     [](RealPanel::Place &place) { hide(place, qmlFolder("QtQuick/Dialogs")); }},
    {"all fonts of the system", kWindow, "", false,
     [](RealPanel::Place &place) { hide(place, QStringLiteral("/usr/share/fonts")); }},
    {"the settings of the fonts", kWindow, "", false,
     [](RealPanel::Place &place) { set(place, "FONTCONFIG_FILE", "/nowhere/fonts.conf"); }},
    {"a home and a folder of the session", kWindow, "", false,
     [](RealPanel::Place &place) {
         set(place, "HOME", nullptr);
         set(place, "XDG_RUNTIME_DIR", nullptr);
     }},
    {"a folder for temporary files", kWindow, "", false,
     [](RealPanel::Place &place) { set(place, "TMPDIR", "/nowhere"); }},
    {"the locale", kWindow, "", false,
     [](RealPanel::Place &place) {
         set(place, "LC_ALL", "xx_YY.UTF-8");
         set(place, "LANG", "xx_YY.UTF-8");
     }},
    {"the bus of the session", kWindow, "", false,
     [](RealPanel::Place &place) { set(place, "DBUS_SESSION_BUS_ADDRESS", "unix:path=/nowhere"); }},
    {"a place for the settings", kWindow, "", false,
     [](RealPanel::Place &place) { place.folder = QStringLiteral("/proc/sys/kernel"); }},
    {"standard streams", kWindow, nullptr, true,
     [](RealPanel::Place &place) {
         place.through = QStringList{QStringLiteral("sh"), QStringLiteral("-c"),
                                     QStringLiteral("exec \"$0\" 2>&- >&- <&-")};
     }},
};

} // namespace

class TestMissing : public QObject
{
    Q_OBJECT

private slots:
    void init() { QFile::remove(settingsPath()); }
    void aStartWithout_data();
    void aStartWithout();
    void aStartWithoutAnyAdapter();
    void aLockIsAnsweredInItsWindow();
};

void TestMissing::aStartWithout_data()
{
    QTest::addColumn<int>("row");
    for (int row = 0; row < kLacks.size(); ++row) {
        if (kLacks.at(row).inSample || wholeSet())
            QTest::newRow(kLacks.at(row).name) << row;
    }
}

void TestMissing::aStartWithout()
{
    QFETCH(int, row);
    const Lack &lack = kLacks.at(row);
    RealPanel::Place place;
    lack.take(place);
    RealPanel panel(place);
    QVERIFY2(panel.complaint().isEmpty(), qPrintable(panel.complaint()));
    QElapsedTimer clock;
    clock.start();
    if (lack.ends == kWindow) {
        QVERIFY2(panel.windowComes(), qPrintable(panel.run().output()));
        qInfo("without %s: a window after %lld ms", lack.name, clock.elapsed());
        if (lack.says)
            QVERIFY2(panel.run().printed(kStarted), qPrintable(panel.run().output()));
        else // the log must not run into anything that the panel has opened
            QCOMPARE(QFile::symLinkTarget(QStringLiteral("/proc/%1/fd/2").arg(panel.run().processId())),
                     QStringLiteral("/dev/null"));
        QCOMPARE(panel.close(), 0);
        return;
    }
    QVERIFY2(panel.run().ended(), qPrintable(panel.run().output()));
    qInfo("without %s: status %d after %lld ms", lack.name, panel.run().exitCode(), clock.elapsed());
    QVERIFY2(!panel.run().crashed(), qPrintable(panel.run().output()));
    QCOMPARE(panel.run().exitCode(), lack.ends);
    QVERIFY2(panel.run().output().contains(QLatin1String(lack.says)), qPrintable(panel.run().output()));
}

void TestMissing::aStartWithoutAnyAdapter()
{
    support::TestNetwork net;
    RealPanel::Place place;
    place.host = net.addHost();
    QVERIFY2(net.isGood(), qPrintable(net.complaint()));
    RealPanel panel(place);
    QVERIFY2(panel.stands() && panel.run().printed(kStarted), qPrintable(panel.run().output()));
    // Neither a scan nor a connect finds a way out, and both say so by doing nothing.
    panel.click(QStringLiteral("btnConnect"));
    panel.run().readOn(500);
    panel.click(QStringLiteral("imgConnectScan"));
    QVERIFY2(panel.run().printed(QStringLiteral("Refresh IP List: ()")), qPrintable(panel.run().output()));
    panel.click(QStringLiteral("btnConnectConnect"));
    panel.run().readOn(500);
    QVERIFY(!panel.run().output().contains(QLatin1String("Connect to")));
    QCOMPARE(panel.close(), 0);
    QCOMPARE(panel.strangeLines(), QStringList());
}

// The operator goes on without storing: the panel works, waits for nothing, and stores again when it can.
void TestMissing::aLockIsAnsweredInItsWindow()
{
    const QString lock = settingsPath() + QStringLiteral(".lock");
    QVERIFY(QDir().mkpath(lock));
    RealPanel panel(RealPanel::Place{});
    QVERIFY2(panel.run().printed(QStringLiteral("critical|The settings of the panel are locked by")),
             qPrintable(panel.run().output()));
    QTRY_VERIFY(panel.screen().hasWindow(QStringLiteral("QKV-720")));
    panel.run().readOn(300);
    QVERIFY(panel.run().isRunning());
    panel.screen().key(kTab); // from Quit to the other button
    panel.screen().key(kSpace);
    QVERIFY2(panel.stands() && panel.run().printed(kStarted), qPrintable(panel.run().output()));
    const QImage english = panel.look(QStringLiteral("menuPostProcessor"));
    QVERIFY(panel.choose(QStringLiteral("comboMainLanguage"), 1));
    QVERIFY(panel.changes(QStringLiteral("menuPostProcessor"), english));
    QVERIFY(!QFile::exists(settingsPath()));

    QVERIFY(QDir().rmdir(lock));
    QVERIFY(panel.choose(QStringLiteral("comboMainLanguage"), 2));
    QTRY_COMPARE(storedLanguage(settingsPath()), QStringLiteral("zh_CN"));
    QCOMPARE(panel.close(), 0);
}

NETWORK_TEST_MAIN(TestMissing)
#include "tst_missing.moc"
