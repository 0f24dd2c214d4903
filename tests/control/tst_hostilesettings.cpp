// The settings file under attack: broken in every way that a disk, an editor or a killed program can leave it; its
// writer killed, met by another writer, out of room, or without the right to write. Nothing that was stored is lost,
// nothing is half, and no call waits for long.

#include "control/settingsfile.h"
#include "shell/qmltranslator.h"
#include "tests/control/facadebench.h"
#include "tests/support/brokensettings.h"
#include "tests/support/stopwatch.h"
#include "tests/support/testnetwork.h"

#include <QtTest>

#include <poll.h>
#include <random>
#include <sched.h>
#include <sys/mount.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr int kLongestMs = 20000; // less than a lock of the toolkit lasts, and more than a busy disk takes
constexpr int kStartWaitMs = 2000; // as the start waits for a lock

const QString kFolder = QStringLiteral("../../halvorine");

// Read as a file: the process's own settings objects share their memory.
bool isInFile(const char *key, int number)
{
    QFile file(settingsPath());
    return file.open(QIODevice::ReadOnly)
        && file.readAll().contains('\n' + QByteArray(key) + '=' + QByteArray::number(number) + '\n');
}

QString valueOf(const char *key, const QString &group = QStringLiteral("connection"))
{
    const QString start = QLatin1String(key) + QLatin1Char('=');
    for (const QString &line : storedKeys(group)) {
        if (line.startsWith(start))
            return line.mid(start.size());
    }
    return {};
}

// Two keys of one write that belong together: neither comes without the other.
void storePair(QSettings &settings, int number)
{
    SettingsGroup group(settings, QStringLiteral("connection"));
    group.set("hostname", QStringLiteral("N%1").arg(number));
    group.set("seconddns", QString(number % 700, QLatin1Char('x')) + QString::number(number));
}

// A process of its own that stores pairs, from `first` on, until it is killed; it tells each number that it has
// stored.
class Writer
{
public:
    Writer(int first, int last, const std::function<void(QSettings &, int)> &store)
    {
        int ends[2];
        if (::pipe(ends) != 0)
            qFatal("no pipe");
        m_process = ::fork();
        if (m_process < 0)
            qFatal("no process"); // its number would stand for everybody
        if (m_process == 0) {
            QSettings settings(settingsFilePath(), QSettings::IniFormat);
            for (int number = first; number <= last; ++number) {
                store(settings, number);
                if (::write(ends[1], &number, sizeof number) < 0)
                    break;
            }
            ::_exit(0);
        }
        ::close(ends[1]);
        m_told = ends[0];
    }
    ~Writer() { ::close(m_told); }
    Writer(const Writer &) = delete;
    Writer &operator=(const Writer &) = delete;

    void kill() const { ::kill(m_process, SIGKILL); }
    // Until it has stored something, or is at its end.
    void awaitWord() const
    {
        pollfd words{m_told, POLLIN, 0};
        ::poll(&words, 1, kLongestMs);
    }
    // How it ended: its exit status, or less than 0 for a signal.
    int wait() const
    {
        int status = 0;
        ::waitpid(m_process, &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
    }
    // The last number that it told; `none` for none.
    int told(int none) const
    {
        int number = none;
        int each = 0;
        while (::read(m_told, &each, sizeof each) == sizeof each)
            number = each;
        return number;
    }

private:
    pid_t m_process = -1;
    int m_told = -1;
};

// A disk of a few pages in the place of the settings' folder, in a mount namespace of the test's own.
class SmallDisk
{
public:
    explicit SmallDisk(const QByteArray &size)
    {
        QDir(kFolder).removeRecursively();
        QDir().mkpath(kFolder);
        m_good = ::unshare(CLONE_NEWNS) == 0
            && ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0
            && ::mount("none", qPrintable(kFolder), "tmpfs", 0, ("size=" + size).constData()) == 0
            && QDir().mkpath(QFileInfo(settingsPath()).path());
    }
    ~SmallDisk() { ::umount2(qPrintable(kFolder), MNT_DETACH); }
    SmallDisk(const SmallDisk &) = delete;
    SmallDisk &operator=(const SmallDisk &) = delete;

    bool isGood() const { return m_good; }
    static void fill()
    {
        QFile file(kFolder + QStringLiteral("/filler"));
        if (file.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) {
            while (file.write(QByteArray(1024, 'x')) == 1024) { }
        }
    }
    static bool clear() { return QFile::remove(kFolder + QStringLiteral("/filler")); }
    static bool writable(bool on)
    {
        return ::mount(nullptr, qPrintable(kFolder), nullptr,
                       MS_REMOUNT | (on ? 0UL : static_cast<unsigned long>(MS_RDONLY)), nullptr)
            == 0;
    }

private:
    bool m_good = false;
};

} // namespace

class HostileSettingsTest : public QObject
{
    Q_OBJECT

private slots:
    void aBrokenFileIsReadAndWritten_data();
    void aBrokenFileIsReadAndWritten();
    void aKilledWriterLeavesAWholeFile();
    void twoWritersTakeNothingFromEachOther();
    void aFullDiskCostsNothingThatWasStored();
    void aReadOnlyDiskCostsNothingThatWasStored();
};

void HostileSettingsTest::aBrokenFileIsReadAndWritten_data()
{
    QTest::addColumn<int>("row");
    for (int row = 0; row < support::brokenSettings().size(); ++row)
        QTest::newRow(support::brokenSettings().at(row).name) << row;
}

void HostileSettingsTest::aBrokenFileIsReadAndWritten()
{
    QFETCH(int, row);
    const support::BrokenSettings &how = support::brokenSettings().at(row);
    support::breakSettings(settingsPath(), how);
    support::Stopwatch clock;
    const SettingsObstacle obstacle = findSettingsObstacle(settingsFilePath(), kStartWaitMs);
    QCOMPARE(obstacle.kind != SettingsObstacle::Nothing, how.inTheWay);
    if (how.inTheWay) {
        QVERIFY(!obstacle.path.isEmpty() && !obstacle.holder.isEmpty());
        VERIFY_TOOK(clock, 0, kLongestMs);
        return;
    }
    // As the start does it: the facade reads, the translator stores.
    auto control = std::make_unique<mainControl>();
    control->timerStartUp->stop();
    QmlTranslator translator;
    translator.setTranslation(QStringLiteral("zh_CN"));
    storePair(*control->initSettings, 7);
    discard(control);
    VERIFY_TOOK(clock, 0, kLongestMs);
    if (!QFileInfo(settingsPath()).isFile())
        return; // what cannot be written is done without
    QCOMPARE(valueOf("hostname"), QStringLiteral("N7"));
    QCOMPARE(valueOf("language", QStringLiteral("setting")), QStringLiteral("zh_CN"));
    QVERIFY(!QFileInfo::exists(settingsPath() + QStringLiteral(".lock")));
}

void HostileSettingsTest::aKilledWriterLeavesAWholeFile()
{
    constexpr int kKills = 200;
    constexpr int kLast = 1000000;
    QDir(kFolder).removeRecursively();
    QDir().mkpath(QFileInfo(settingsPath()).path());
    std::mt19937 random(5002);
    std::uniform_int_distribution<unsigned long> delayUs(0, 30000);
    int stored = 0;
    int longestMs = 0;
    int locksLeft = 0;
    for (int round = 0; round < kKills; ++round) {
        const Writer writer(stored + 1, kLast, storePair);
        // Every second one is caught in what it writes first, or before; the others in the middle, also where the
        // machine is slow to begin with them.
        if (round % 2 != 0)
            writer.awaitWord();
        QThread::usleep(3000 + delayUs(random));
        writer.kill();
        writer.wait();
        const int told = writer.told(stored);
        locksLeft += QFileInfo::exists(settingsPath() + QStringLiteral(".lock"));
        if (told == 0 && !QFileInfo::exists(settingsPath()))
            continue;
        const int found = valueOf("hostname").mid(1).toInt();
        QVERIFY2(found >= told,
                 qPrintable(QStringLiteral("%1 was stored, %2 is there").arg(told).arg(found)));
        QCOMPARE(valueOf("seconddns"), QString(found % 700, QLatin1Char('x')) + QString::number(found));
        stored = found;
        // The lock of the dead is no obstacle, and no wait.
        support::Stopwatch clock;
        QCOMPARE(int(findSettingsObstacle(settingsFilePath(), kStartWaitMs).kind),
                 int(SettingsObstacle::Nothing));
        longestMs = qMax(longestMs, static_cast<int>(clock.undisturbed()));
    }
    qInfo("%d kills, %d of them with the lock held, %d pairs stored, none lost and none half; longest wait "
          "for a "
          "lock %d ms",
          kKills, locksLeft, stored, longestMs);
    QVERIFY(stored > 0);
    QVERIFY(longestMs < kLongestMs);
}

void HostileSettingsTest::twoWritersTakeNothingFromEachOther()
{
    constexpr int kWrites = 150;
    constexpr int kTookTooLong = 3;
    QDir(kFolder).removeRecursively();
    QDir().mkpath(QFileInfo(settingsPath()).path());
    const auto timed = [](const char *key) {
        return [key](QSettings &settings, int number) {
            support::Stopwatch clock;
            SettingsGroup(settings, QStringLiteral("connection")).set(key, number);
            if (clock.undisturbed() >= kLongestMs)
                ::_exit(kTookTooLong);
            // What found the lock taken goes with one of the next changes, and the last one is tried again.
            QThread::msleep(5);
            for (int again = 0; number == kWrites && again < 100 && !isInFile(key, number); ++again) {
                QThread::msleep(50);
                settings.sync();
            }
        };
    };
    const Writer first(1, kWrites, timed("mask"));
    const Writer second(1, kWrites, timed("gateway"));
    const int firstEnd = first.wait();
    const int secondEnd = second.wait();
    QCOMPARE(firstEnd, 0);
    QCOMPARE(secondEnd, 0);
    QCOMPARE(first.told(0), kWrites);
    QCOMPARE(second.told(0), kWrites);
    QCOMPARE(valueOf("mask"), QString::number(kWrites));
    QCOMPARE(valueOf("gateway"), QString::number(kWrites));
}

void HostileSettingsTest::aFullDiskCostsNothingThatWasStored()
{
    const SmallDisk disk("32k");
    QVERIFY2(disk.isGood(), "this machine lets the test mount no disk of its own");
    QSettings settings(settingsFilePath(), QSettings::IniFormat);
    storePair(settings, 1);
    const QString before = storedText();
    QVERIFY(before.contains(QLatin1String("hostname=N1\n")));
    SmallDisk::fill();
    support::Stopwatch clock;
    storePair(settings, 2);
    QmlTranslator().setTranslation(QStringLiteral("zh_TW"));
    VERIFY_TOOK(clock, 0, kLongestMs);
    QCOMPARE(storedText(), before);

    QVERIFY(SmallDisk::clear());
    SettingsGroup(settings, QStringLiteral("last_info")).set("memory", 4);
    QCOMPARE(valueOf("memory", QStringLiteral("last_info")), QStringLiteral("4"));
    QCOMPARE(valueOf("hostname"), QStringLiteral("N2"));
    QCOMPARE(valueOf("language", QStringLiteral("setting")), QStringLiteral("zh_TW"));
}

void HostileSettingsTest::aReadOnlyDiskCostsNothingThatWasStored()
{
    const SmallDisk disk("64k");
    QVERIFY2(disk.isGood(), "this machine lets the test mount no disk of its own");
    QSettings settings(settingsFilePath(), QSettings::IniFormat);
    storePair(settings, 1);
    const QString before = storedText();
    QVERIFY(SmallDisk::writable(false));
    support::Stopwatch clock;
    storePair(settings, 2);
    VERIFY_TOOK(clock, 0, kLongestMs);
    QCOMPARE(storedText(), before);

    QVERIFY(SmallDisk::writable(true));
    SettingsGroup(settings, QStringLiteral("last_info")).set("memory", 4);
    QCOMPARE(valueOf("hostname"), QStringLiteral("N2"));
    QCOMPARE(valueOf("memory", QStringLiteral("last_info")), QStringLiteral("4"));
}

NETWORK_TEST_MAIN(HostileSettingsTest)
#include "tst_hostilesettings.moc"
