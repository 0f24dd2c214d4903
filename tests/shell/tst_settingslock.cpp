// The settings file behind an obstacle: what the operator is told, and that no write holds the screen.

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <QtTest>

#include <memory>
#include <thread>

#include "control/settingsfile.h"
#include "shell/settingscheck.h"
#include "tests/support/stopwatch.h"

namespace {

QString lockPath()
{
    return settingsFilePath() + QStringLiteral(".lock");
}

QByteArray fileOnDisk()
{
    QFile file(settingsFilePath());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// Stores one value; the watch tells how long it took.
support::Stopwatch store(QSettings &settings, const char *key, int value)
{
    support::Stopwatch watch;
    SettingsGroup(settings, QStringLiteral("connection")).set(key, value);
    watch.stop();
    return watch;
}

} // namespace

class TestSettingsLock : public QObject
{
    Q_OBJECT

private slots:
    void init() { QDir().mkpath(QFileInfo(settingsFilePath()).absolutePath()); }

    void cleanup()
    {
        QDir().rmdir(lockPath());
        QFile::remove(lockPath());
        QFile::remove(settingsFilePath());
    }

    void writesWhenTheGroupEnds()
    {
        QSettings settings(settingsFilePath(), QSettings::IniFormat);
        {
            SettingsGroup group(settings, QStringLiteral("connection"));
            group.set("netcard", 1);
            group.set("interface", 2);
            QCOMPARE(fileOnDisk(), QByteArray());
        }
        QCOMPARE(fileOnDisk(), QByteArray("[connection]\ninterface=2\nnetcard=1\n"));
        QCOMPARE(SettingsGroup(settings, QStringLiteral("connection")).value("interface").toInt(), 2);
    }

    // A write waits for the disk, twice. The look is at the file and not at what was read once.
    void whatTheFileSaysIsNotWrittenAgain()
    {
        QSettings settings(settingsFilePath(), QSettings::IniFormat);
        const QDateTime before = QDateTime::currentDateTime().addSecs(-3600);
        const auto lay = [&before](const QByteArray &rows) {
            QFile file(settingsFilePath());
            QVERIFY(file.open(QIODevice::ReadWrite | QIODevice::Truncate));
            file.write(rows);
            QVERIFY(file.flush() && file.setFileTime(before, QFileDevice::FileModificationTime));
        };
        lay("[connection]\ninterface=2\n");
        store(settings, "interface", 2);
        QCOMPARE(QFileInfo(settingsFilePath()).lastModified().toSecsSinceEpoch(), before.toSecsSinceEpoch());
        store(settings, "interface", 1);
        QCOMPARE(fileOnDisk(), QByteArray("[connection]\ninterface=1\n"));
        // Somebody else has changed it since.
        lay("[connection]\ninterface=12\n");
        store(settings, "interface", 1);
        QCOMPARE(fileOnDisk(), QByteArray("[connection]\ninterface=1\n"));
        QVERIFY(QFile::remove(settingsFilePath()));
        store(settings, "interface", 1);
        QCOMPARE(fileOnDisk(), QByteArray("[connection]\ninterface=1\n"));
        // A list is no empty text.
        lay("[connection]\ninterface=1\nnetcard=a, b\n");
        SettingsGroup(settings, QStringLiteral("connection")).set("netcard", QString());
        QCOMPARE(fileOnDisk(), QByteArray("[connection]\ninterface=1\nnetcard=\n"));
    }

    // A lock that another panel holds while it writes is waited for.
    void aShortLockIsWaitedFor()
    {
        QSettings settings(settingsFilePath(), QSettings::IniFormat);
        auto lock = std::make_unique<QLockFile>(lockPath());
        QVERIFY(lock->lock());
        std::thread other([&lock] {
            QThread::msleep(150);
            lock.reset();
        });
        const qint64 took = store(settings, "mask", 1).elapsed();
        other.join();
        QVERIFY2(took >= 100, qPrintable(QString::number(took)));
        QCOMPARE(fileOnDisk(), QByteArray("[connection]\nmask=1\n"));
    }

    void aLastingLockHoldsNoWrite_data()
    {
        QTest::addColumn<bool>("folder");
        QTest::newRow("folder of the lock's name") << true;
        QTest::newRow("lock of another host") << false;
    }

    void aLastingLockHoldsNoWrite()
    {
        QFETCH(bool, folder);
        QSettings settings(settingsFilePath(), QSettings::IniFormat);
        store(settings, "interface", 1);
        const QByteArray before = fileOnDisk();
        if (folder) {
            QVERIFY(QDir().mkdir(lockPath()));
        } else {
            QFile lock(lockPath());
            QVERIFY(lock.open(QIODevice::WriteOnly));
            lock.write("1\nqkv720-panel\nanother-host\n");
        }
        VERIFY_TOOK(store(settings, "mask", 2), 0, 2000);
        VERIFY_TOOK(store(settings, "gateway", 3), 0, 400); // once in vain, never again a wait
        QCoreApplication::processEvents(); // nothing is left to be written by the event loop
        QCOMPARE(fileOnDisk(), before);

        QVERIFY(folder ? QDir().rmdir(lockPath()) : QFile::remove(lockPath()));
        VERIFY_TOOK(store(settings, "netcard", 4), 0, 2000);
        QCOMPARE(fileOnDisk(), QByteArray("[connection]\ngateway=3\ninterface=1\nmask=2\nnetcard=4\n"));
    }

    void theWindowSaysWhatToDo_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<QString>("button");
        QTest::addColumn<bool>("goesOn");
        QTest::newRow("lock, go on") << int{SettingsObstacle::Lock} << "Start Without Storing" << true;
        QTest::newRow("lock, quit") << int{SettingsObstacle::Lock} << "Quit" << false;
        QTest::newRow("lock, closed") << int{SettingsObstacle::Lock} << "" << false;
        QTest::newRow("no file, quit") << int{SettingsObstacle::NoFile} << "Quit" << false;
        QTest::newRow("no file, closed") << int{SettingsObstacle::NoFile} << "" << false;
    }

    void theWindowSaysWhatToDo()
    {
        QFETCH(int, kind);
        QFETCH(QString, button);
        QFETCH(bool, goesOn);
        const SettingsObstacle obstacle{static_cast<SettingsObstacle::Kind>(kind), QStringLiteral("/a/file"),
                                        QStringLiteral("root <b>\u202e")};
        QString text;
        QStringList buttons;
        QTimer::singleShot(0, this, [&] {
            auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
            text = box->text();
            QAbstractButton *chosen = nullptr;
            for (QAbstractButton *each : box->buttons()) {
                buttons.append(each->text());
                if (each->text() == button)
                    chosen = each;
            }
            if (chosen)
                chosen->click();
            else
                box->reject();
        });
        QCOMPARE(goesOnWithout(obstacle), goesOn);
        QVERIFY2(text.contains(QLatin1String("/a/file, which belongs to root <b>\\u202e")), qPrintable(text));
        QCOMPARE(buttons.contains(QStringLiteral("Start Without Storing")), kind == SettingsObstacle::Lock);
    }
};

QTEST_MAIN(TestSettingsLock)
#include "tst_settingslock.moc"
