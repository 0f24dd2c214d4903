// The operator's manual held against the catalogues and against itself, as it is delivered: every page is well-formed,
// its links and pictures exist, its chapters are those of the other languages, and no message of the screen is without
// its cause and its cure.

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QHash>
#include <QRegularExpression>
#include <QSet>
#include <QXmlStreamReader>
#include <QtTest>

#include <algorithm>
#include <numeric>

#include "device/timing.h"
#include "tests/support/manualpage.h"

using support::contentOf;
using support::Page;
using support::readPage;
using support::Row;

namespace {

const QString kManual = QStringLiteral(QT_TESTCASE_SOURCEDIR "/../docs/manual");
// Folder of the manual, code of the catalogue.
const QHash<QString, QString> kLanguages{
    {QStringLiteral("en"), QStringLiteral("en_US")},
    {QStringLiteral("zh_TW"), QStringLiteral("zh_TW")},
    {QStringLiteral("zh_CN"), QStringLiteral("zh_CN")},
};
// The pages and windows of the screen, by the entry of the catalogue that names them, and their chapter.
const QVector<QPair<QString, QString>> kPlaces{
    {QStringLiteral("Input"), QStringLiteral("input")},
    {QStringLiteral("Chromakey"), QStringLiteral("chromakey")},
    {QStringLiteral("Post-Processor"), QStringLiteral("post")},
    {QStringLiteral("Garbage Mask"), QStringLiteral("masks")},
    {QStringLiteral("Holdout Mask"), QStringLiteral("masks")},
    {QStringLiteral("Aux Lumakey"), QStringLiteral("lumakey")},
    {QStringLiteral("Pick Backing Color"), QStringLiteral("chromakey")},
    {QStringLiteral("CONNECT"), QStringLiteral("connect")},
    {QStringLiteral("WARNING"), QStringLiteral("connect")},
    {QStringLiteral("SETUP"), QStringLiteral("setup")},
    {QStringLiteral("Factory Default"), QStringLiteral("setup")},
    {QStringLiteral("User Memory:"), QStringLiteral("band")},
};
// What the panel says without a catalogue.
const QStringList kUntranslated{
    QStringLiteral("-24"),
    QStringLiteral("NACK"),
    QStringLiteral("Get status failed. Please try again."),
    QStringLiteral("The settings of the panel are locked by ..."),
    QStringLiteral("The settings of the panel cannot be read: ..."),
    QStringLiteral("The panel cannot draw its window: ..."),
    QStringLiteral("The panel finds no display: ..."),
};

struct Message
{
    QString context;
    QString source;
    QString shown;
};

QVector<Message> catalogue(const QString &code)
{
    QXmlStreamReader xml(
        contentOf(QStringLiteral(QT_TESTCASE_SOURCEDIR "/../resources/app_%1.ts").arg(code)));
    QVector<Message> all;
    QString context;
    QString source;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (xml.name() == QLatin1String("name"))
            context = xml.readElementText();
        else if (xml.name() == QLatin1String("source"))
            source = xml.readElementText();
        else if (xml.name() == QLatin1String("translation") && !source.isEmpty()) {
            const QString translation = xml.readElementText();
            all.append({context, source, translation.isEmpty() ? source : translation});
        }
    }
    return all;
}

// What tells something, where the rest names something.
bool isMessage(const Message &message)
{
    static const QSet<QString> classes{"mainControl", "qkv720", "HLNP"};
    static const QSet<QString> spoken{"Connected",          "Disconnected",      "Disconnecting",
                                      "Reset Successfully", "Save Successfully", "Network "};
    static const QRegularExpression sentence(QStringLiteral("[.!?]$|\n"));
    return classes.contains(message.context) || spoken.contains(message.source)
        || sentence.match(message.source).hasMatch();
}

// As a name stands in running text: on one line, without the colon of its row.
QString bare(const QString &shown)
{
    QString text = shown.simplified();
    while (text.endsWith(QLatin1Char(':')))
        text.chop(1);
    return text.trimmed();
}

QStringList chapters(const QString &language)
{
    return QDir(kManual + QLatin1Char('/') + language).entryList({QStringLiteral("*.html")}, QDir::Files);
}

Page chapter(const QString &language, const QString &name)
{
    return readPage(QStringLiteral("%1/%2/%3.html").arg(kManual, language, name));
}

// The sentences that stand in the launcher's scripts, as they are written there. What is put together from a question's
// answer has no words of its own.
QStringList launcherSentences()
{
    static const QRegularExpression spoken(
        QStringLiteral("(?:fail \\S+|printf '%s\\\\n') \"([A-Z](?:[^\"\\\\]|\\\\.)*)\""));
    QStringList sentences;
    for (const char *script :
         {"packaging/qkv720-panel.in", "packaging/report.sh", "scripts/privatenetwork.sh"}) {
        const QString text =
            QString::fromUtf8(contentOf(QStringLiteral(QT_TESTCASE_SOURCEDIR "/../") + script));
        for (auto found = spoken.globalMatch(text); found.hasNext();) {
            QString sentence = found.next().captured(1).simplified();
            sentence.replace(QLatin1String("$unwritable"), QLatin1String("can't be written, ..."));
            sentences.append(sentence);
        }
    }
    return sentences;
}

} // namespace

class TestManual : public QObject
{
    Q_OBJECT

private slots:
    void everyPageIsWellFormed()
    {
        for (const QString &language : kLanguages.keys()) {
            QVERIFY(chapters(language).size() > 15);
            for (const QString &file : chapters(language)) {
                const Page &page = readPage(kManual + '/' + language + '/' + file);
                QVERIFY2(page.error.isEmpty(), qPrintable(language + '/' + file + ": " + page.error));
                QVERIFY2(!page.heading.isEmpty(), qPrintable(language + '/' + file));
            }
        }
    }

    void chaptersAndSectionsAreTheSameInEachLanguage()
    {
        for (const QString &language : kLanguages.keys()) {
            QCOMPARE(chapters(language), chapters(QStringLiteral("en")));
            for (const QString &file : chapters(language)) {
                const QStringList ids = readPage(kManual + '/' + language + '/' + file).ids;
                QCOMPARE(ids, readPage(kManual + "/en/" + file).ids);
                QCOMPARE(QSet<QString>(ids.begin(), ids.end()).size(), ids.size());
            }
        }
    }

    void noLinkAndNoPictureIsDead()
    {
        int local = 0;
        for (const QString &language : kLanguages.keys()) {
            for (const QString &file : chapters(language)) {
                const QDir folder(kManual + QLatin1Char('/') + language);
                for (const QString &target : readPage(folder.filePath(file)).targets) {
                    const QString path = target.section(QLatin1Char('#'), 0, 0);
                    const QString id = target.section(QLatin1Char('#'), 1);
                    const QString found = folder.filePath(path.isEmpty() ? file : path);
                    const QString told = language + '/' + file + " points at " + target;
                    QVERIFY2(!target.contains(QLatin1Char(':')) && !target.startsWith(QLatin1Char('/')),
                             qPrintable(told));
                    QVERIFY2(QFile::exists(found), qPrintable(told));
                    QVERIFY2(id.isEmpty() || readPage(found).ids.contains(id), qPrintable(told));
                    ++local;
                }
            }
        }
        QVERIFY(local > 1000);
    }

    void everyMessageHasItsCauseAndItsCure_data() { languages(); }

    void everyMessageHasItsCauseAndItsCure()
    {
        QFETCH(QString, language);
        QSet<QString> explained;
        for (const Row &row : chapter(language, QStringLiteral("messages")).rows) {
            QCOMPARE(row.cells.size(), 3);
            for (const QString &message : row.messages) {
                QVERIFY2(row.cells.at(1).size() > 3 && row.cells.at(2).size() > 2, qPrintable(message));
                explained.insert(message);
            }
        }
        int messages = 0;
        for (const Message &message : catalogue(kLanguages.value(language))) {
            if (!isMessage(message))
                continue;
            ++messages;
            QVERIFY2(explained.contains(message.shown.simplified()),
                     qPrintable(message.context + ": " + message.shown.simplified()));
        }
        QCOMPARE(messages, 49);
        for (const QString &message : kUntranslated)
            QVERIFY2(explained.contains(message), qPrintable(message));
    }

    // What the launcher says of a start that fails, and the rehearsal of a machine that cannot have one.
    void everySentenceOfTheLauncherIsExplained_data() { languages(); }

    void everySentenceOfTheLauncherIsExplained()
    {
        QFETCH(QString, language);
        QVector<QRegularExpression> explained;
        for (const Row &row : chapter(language, QStringLiteral("messages")).rows) {
            for (const QString &message : row.messages) {
                QString pattern = QRegularExpression::escape(message);
                for (const char *gap : {" ...", "..."})
                    pattern.replace(QRegularExpression::escape(gap), QStringLiteral(".*"));
                explained.append(QRegularExpression(QLatin1Char('^') + pattern + QLatin1Char('$')));
            }
        }
        const QStringList sentences = launcherSentences();
        QVERIFY(sentences.size() >= 15);
        for (const QString &sentence : sentences) {
            QVERIFY2(std::any_of(explained.begin(), explained.end(),
                                 [&](const auto &known) { return known.match(sentence).hasMatch(); }),
                     qPrintable(sentence));
        }
    }

    void everyOptionAndStatusOfTheLauncherIsTold_data() { languages(); }

    void everyOptionAndStatusOfTheLauncherIsTold()
    {
        QFETCH(QString, language);
        const QString launcher = QString::fromUtf8(
            contentOf(QStringLiteral(QT_TESTCASE_SOURCEDIR "/../packaging/qkv720-panel.in")));
        const Page page = chapter(language, QStringLiteral("installed"));
        QSet<QString> statuses;
        for (const Row &row : page.rows)
            statuses.insert(row.cells.first());
        static const QRegularExpression status(QStringLiteral("^status_\\w+=(\\d+)"),
                                               QRegularExpression::MultilineOption);
        static const QRegularExpression option(QStringLiteral("^  (--[a-z-]+) "),
                                               QRegularExpression::MultilineOption);
        int told = 0;
        for (auto found = status.globalMatch(launcher); found.hasNext(); ++told) {
            const QString number = found.next().captured(1);
            QVERIFY2(statuses.contains(number), qPrintable(number));
        }
        QVERIFY(told >= 5);
        told = 0;
        for (auto found = option.globalMatch(launcher); found.hasNext(); ++told) {
            const QString name = found.next().captured(1);
            QVERIFY2(page.text.contains(name), qPrintable(name));
        }
        QVERIFY(told >= 7);
    }

    void everyShortcutIsTold_data() { languages(); }

    void everyShortcutIsTold()
    {
        QFETCH(QString, language);
        const QString text = chapter(language, QStringLiteral("keyboard")).text;
        static const QRegularExpression shortcut(QStringLiteral("sequence: \"([^\"]+)\""));
        int told = 0;
        QDirIterator documents(QStringLiteral(QT_TESTCASE_SOURCEDIR "/../qml"), {QStringLiteral("*.qml")},
                               QDir::Files, QDirIterator::Subdirectories);
        while (documents.hasNext()) {
            const QString document = QString::fromUtf8(contentOf(documents.next()));
            for (auto found = shortcut.globalMatch(document); found.hasNext(); ++told) {
                for (const QString &key :
                     found.next().captured(1).split(QLatin1Char('+'), Qt::SkipEmptyParts))
                    QVERIFY2(text.contains(key), qPrintable(key));
            }
        }
        QVERIFY(told >= 3);
    }

    void everyOtherWordHasItsPlace_data() { languages(); }

    void everyOtherWordHasItsPlace()
    {
        QFETCH(QString, language);
        QHash<QString, QString> places;
        for (const Row &row : chapter(language, QStringLiteral("words")).rows)
            places.insert(row.cells.value(0), row.cells.value(1));
        int words = 0;
        for (const Message &message : catalogue(kLanguages.value(language))) {
            if (isMessage(message))
                continue;
            ++words;
            QVERIFY2(!places.value(bare(message.shown)).isEmpty(),
                     qPrintable(message.context + ": " + message.shown));
        }
        QCOMPARE(words, 138);
    }

    void everyPageOfTheScreenHasItsChapter_data() { languages(); }

    void everyPageOfTheScreenHasItsChapter()
    {
        QFETCH(QString, language);
        QHash<QString, QString> shown;
        for (const Message &message : catalogue(kLanguages.value(language)))
            shown.insert(message.source, bare(message.shown));
        for (const auto &place : kPlaces) {
            const Page page = chapter(language, place.second);
            QVERIFY2(!shown.value(place.first).isEmpty() && page.text.contains(shown.value(place.first)),
                     qPrintable(place.first));
            QVERIFY2(!page.targets.filter(QStringLiteral("pictures/")).isEmpty(), qPrintable(place.second));
        }
    }

    // A wait that changes in the code changes in what operators are told.
    void theTimesAreThoseOfTheCode_data() { languages(); }

    void theTimesAreThoseOfTheCode()
    {
        QFETCH(QString, language);
        constexpr int recallExchanges = 20;
        const unsigned long recall = kRecallPausesMs + recallExchanges * kNetworkDefaultMs;
        const unsigned long serialRecall = kRecallPausesMs + recallExchanges * kSerialDefaultMs;
        // Each attempt waits for its reply, then for bytes.
        const unsigned long silence = attempts(kStandardLadder, kNetworkDefaultMs + kReadMs);
        const unsigned long silentKey = attempts(kNetworkKeyColorLadder, kReplyWaits[0].networkMs + kReadMs);
        const QString text = chapter(language, QStringLiteral("waits")).text;
        const QString second = language == QLatin1String("en") ? QStringLiteral("s") : QStringLiteral("秒");
        for (const unsigned long ms :
             {recall, serialRecall, silence, (silentKey + 999) / 1000 * 1000, kReplyWaits[0].networkMs,
              kSerialAutoKeyMs, kNetworkDefaultMs, kSerialDefaultMs}) {
            const QString told = QString::number(double(ms) / 1000) + QLatin1Char(' ') + second;
            QVERIFY2(text.contains(QRegularExpression("(^|[^0-9.])" + QRegularExpression::escape(told))),
                     qPrintable(told));
        }
    }

private:
    static constexpr unsigned long kReadMs = 1000;

    static unsigned long attempts(const RetryLadder &ladder, unsigned long each)
    {
        return std::accumulate(ladder.sleepsMs.begin(), ladder.sleepsMs.begin() + int(ladder.retries),
                               each * (ladder.retries + 1));
    }

    static void languages()
    {
        QTest::addColumn<QString>("language");
        for (const QString &language : kLanguages.keys())
            QTest::newRow(qPrintable(language)) << language;
    }
};

QTEST_GUILESS_MAIN(TestManual)
#include "tst_manual.moc"
