// Every message of the screen in every language, as the running translator gives it, and the catalogues held
// against the texts that stand in the code.

#include <QFile>
#include <QHash>
#include <QProcess>
#include <QSet>
#include <QTemporaryDir>
#include <QTranslator>
#include <QXmlStreamReader>
#include <QtTest>

namespace {

struct Message
{
    QString context;
    QString source;
    QStringList translations; // en_US, zh_CN, zh_TW
};

using Key = QPair<QString, QString>; // context, source

const QStringList kLanguages{QStringLiteral("en_US"), QStringLiteral("zh_CN"), QStringLiteral("zh_TW")};

QString unescaped(QString text)
{
    return text.replace(QLatin1String("\\n"), QLatin1String("\n"));
}

QVector<Message> messages()
{
    QFile file(QStringLiteral(QT_TESTCASE_SOURCEDIR "/vectors/messages.tsv"));
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return {};
    QVector<Message> all;
    const QStringList lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (const QString &line : lines) {
        const QStringList cells = line.split(QLatin1Char('\t'));
        if (line.startsWith(QLatin1Char('#')) || cells.size() != 5)
            continue;
        all.append({cells.at(0),
                    unescaped(cells.at(1)),
                    {unescaped(cells.at(2)), unescaped(cells.at(3)), unescaped(cells.at(4))}});
    }
    return all;
}

// Reads the messages of a catalogue source; empty source texts are left out.
QSet<Key> readCatalogue(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QSet<Key> keys;
    QXmlStreamReader xml(&file);
    QString context;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (xml.name() == QLatin1String("name"))
            context = xml.readElementText();
        else if (xml.name() == QLatin1String("source")) {
            const QString source = xml.readElementText();
            if (!source.isEmpty())
                keys.insert({context, source});
        }
    }
    return keys;
}

QStringList sorted(const QSet<Key> &keys)
{
    QStringList list;
    for (const Key &key : keys)
        list.append(key.first + QLatin1String(": ") + key.second);
    list.sort();
    return list;
}

} // namespace

class TestCatalogues : public QObject
{
    Q_OBJECT

private slots:
    void countsPerContext()
    {
        QHash<QString, int> expected;
        for (const Message &message : messages())
            ++expected[message.context];
        QCOMPARE(expected.size(), 10);
        for (const QString &language : kLanguages) {
            QHash<QString, int> counted;
            const QString path =
                QStringLiteral(QT_TESTCASE_SOURCEDIR "/../resources/app_%1.ts").arg(language);
            const QSet<Key> keys = readCatalogue(path);
            for (const Key &key : keys)
                ++counted[key.first];
            QCOMPARE(counted, expected);
            // Beside them it holds three entries of empty source text.
            QFile file(path);
            QVERIFY(file.open(QIODevice::ReadOnly));
            QCOMPARE(file.readAll().count("<message>"), messages().size() + 3);
        }
    }

    void eachMessageInEachLanguage_data()
    {
        QTest::addColumn<int>("language");
        for (int language = 0; language < kLanguages.size(); ++language)
            QTest::newRow(qPrintable(kLanguages.at(language))) << language;
    }

    void eachMessageInEachLanguage()
    {
        QFETCH(int, language);
        QTranslator translator;
        QVERIFY(translator.load(QStringLiteral("app_") + kLanguages.at(language), QStringLiteral(":/")));
        QVERIFY(QCoreApplication::installTranslator(&translator));
        const QVector<Message> all = messages();
        QVERIFY(!all.isEmpty());
        for (const Message &message : all) {
            const QByteArray context = message.context.toUtf8();
            const QByteArray source = message.source.toUtf8();
            QCOMPARE(QCoreApplication::translate(context.constData(), source.constData()),
                     message.translations.at(language));
        }
    }

    // Four labels of the input page have no entry and show their source.
    void someMessagesHaveNoEntry()
    {
        for (const QString &language : kLanguages) {
            QTranslator translator;
            QVERIFY(translator.load(QStringLiteral("app_") + language, QStringLiteral(":/")));
            for (const char *source : {"AUX", "BG", "EXT.SYNC", "FG"}) {
                const bool entered = !translator.translate("PageInput", source).isEmpty();
                QCOMPARE(entered, language == QLatin1String("zh_CN"));
            }
        }
    }

    // The window compares the facade's text with its own to tell a lost link from other warnings.
    void bothWordsForDisconnectedAgree()
    {
        for (const QString &language : kLanguages) {
            QTranslator translator;
            QVERIFY(translator.load(QStringLiteral("app_") + language, QStringLiteral(":/")));
            QVERIFY(!translator.translate("main", "Disconnected").isEmpty());
            QCOMPARE(translator.translate("main", "Disconnected"),
                     translator.translate("mainControl", "Disconnected"));
        }
    }

    void aTextWithoutEntryShowsItsSource()
    {
        QTranslator translator;
        QVERIFY(translator.load(QStringLiteral("app_zh_TW"), QStringLiteral(":/")));
        QVERIFY(QCoreApplication::installTranslator(&translator));
        QCOMPARE(QCoreApplication::translate("main", "No such message"), QStringLiteral("No such message"));
    }

    void codeAndCataloguesHoldTheSameTexts()
    {
        QTemporaryDir folder;
        const QString found = folder.filePath(QStringLiteral("found.ts"));
        const QString root = QStringLiteral(QT_TESTCASE_SOURCEDIR "/..");
        QProcess lupdate;
        lupdate.start(QStringLiteral("lupdate"),
                      {QStringLiteral("-silent"), root + QStringLiteral("/shell"),
                       root + QStringLiteral("/device"), root + QStringLiteral("/discovery"),
                       root + QStringLiteral("/control"), root + QStringLiteral("/qml"),
                       QStringLiteral("-ts"), found});
        QVERIFY2(lupdate.waitForFinished(60000), "lupdate did not end");
        QCOMPARE(lupdate.exitCode(), 0);

        const QSet<Key> inCode = readCatalogue(found);
        const QSet<Key> inCatalogue =
            readCatalogue(QStringLiteral(QT_TESTCASE_SOURCEDIR "/../resources/app_zh_CN.ts"));
        QVERIFY(!inCode.isEmpty());
        QCOMPARE(sorted(inCode - inCatalogue).join(QLatin1Char('\n')), QString());
        QCOMPARE(sorted(inCatalogue - inCode).join(QLatin1Char('\n')),
                 onlyInCatalogue().join(QLatin1Char('\n')));
    }

private:
    // Texts that the catalogues keep though no code shows them any more.
    static QStringList onlyInCatalogue() { return {QStringLiteral("PageChromakey: Color Adjustment")}; }
};

QTEST_MAIN(TestCatalogues)
#include "tst_catalogues.moc"
