#include <QDirIterator>
#include <QFile>
#include <QHash>
#include <QRegularExpression>
#include <QtTest>

// docs/oddities.md sends its reader to names in the code. A name that was given up would send him nowhere.

namespace {

const QString kRoot = QStringLiteral(QT_TESTCASE_SOURCEDIR "/../");

QString textOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QString codeOf(const QString &folder)
{
    static QHash<QString, QString> known;
    QString &code = known[folder];
    if (code.isEmpty()) {
        const QStringList kinds{QStringLiteral("*.cpp"), QStringLiteral("*.h"), QStringLiteral("*.qml")};
        QDirIterator files(kRoot + folder, kinds, QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext())
            code += textOf(files.next()) + QLatin1Char('\n');
    }
    return code;
}

// The numbered entries of the page, line breaks folded.
QStringList entries()
{
    QStringList found;
    const QRegularExpression start(QStringLiteral("^\\d+\\. "));
    for (const QString &line : textOf(kRoot + QStringLiteral("docs/oddities.md")).split(QLatin1Char('\n'))) {
        if (start.match(line).hasMatch())
            found += line;
        else if (line.startsWith(QLatin1Char(' ')) && !found.isEmpty())
            found.last() += QLatin1Char(' ') + line.trimmed();
    }
    return found;
}

} // namespace

class TestOddities : public QObject
{
    Q_OBJECT

private slots:
    void everyEntryLeadsToTheCode()
    {
        const QRegularExpression place(QStringLiteral("`([a-z]+)/` `(\\w+)`"));
        const QStringList all = entries();
        QVERIFY2(all.size() > 60, "the page was not read");
        for (int i = 0; i < all.size(); ++i) {
            const QString &entry = all.at(i);
            QVERIFY2(entry.startsWith(QStringLiteral("%1. **").arg(i + 1)), qPrintable(entry.left(60)));
            const int arrow = entry.indexOf(QChar(0x2192));
            QVERIFY2(arrow > 0, qPrintable(entry.left(60) + QStringLiteral(": leads nowhere")));
            int places = 0;
            for (auto it = place.globalMatch(entry, arrow); it.hasNext(); ++places) {
                const QRegularExpressionMatch match = it.next();
                const QRegularExpression name(QStringLiteral("\\b%1\\b").arg(match.captured(2)));
                QVERIFY2(name.match(codeOf(match.captured(1))).hasMatch(),
                         qPrintable(QStringLiteral("entry %1: nothing in %2/ is named %3")
                                        .arg(i + 1)
                                        .arg(match.captured(1), match.captured(2))));
            }
            QVERIFY2(places > 0, qPrintable(entry.left(60) + QStringLiteral(": leads nowhere")));
        }
    }
};

QTEST_MAIN(TestOddities)
#include "tst_oddities.moc"
