// What a log line makes of texts that came over the network.

#include <QtTest>

#include "shell/logtext.h"

namespace {

QString last;

void keep(QtMsgType /*type*/, const QMessageLogContext & /*context*/, const QString &text)
{
    last = text;
}

} // namespace

class TestLogText : public QObject
{
    Q_OBJECT

private slots:
    void escapes_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("line");
        QTest::newRow("plain") << QStringLiteral("STUDIO_1 \"a\\b\" 100%")
                               << QStringLiteral("STUDIO_1 \"a\\b\" 100%");
        QTest::newRow("other scripts") << QStringLiteral("前景 é 𝄞") << QStringLiteral("前景 é 𝄞");
        QTest::newRow("line ends") << QStringLiteral("a\nb\r\tc") << QStringLiteral("a\\nb\\r\\tc");
        QTest::newRow("terminal") << QStringLiteral("\x1b]0;x\x07") << QStringLiteral("\\u001b]0;x\\u0007");
        QTest::newRow("eight-bit controls")
            << QString(QChar(0x9b)) + QChar(0x7f) << QStringLiteral("\\u009b\\u007f");
        QTest::newRow("nul") << QString(QChar(0)) << QStringLiteral("\\u0000");
        QTest::newRow("directions") << QStringLiteral("\u202a\u202e\u2066\u2069\u200f\u061c")
                                    << QStringLiteral("\\u202a\\u202e\\u2066\\u2069\\u200f\\u061c");
        QTest::newRow("separators") << QStringLiteral("\u2028\u2029") << QStringLiteral("\\u2028\\u2029");
        QTest::newRow("half a pair") << QString(QChar(0xd834)) << QStringLiteral("\\ud834");
        QTest::newRow("tag beyond the first plane")
            << QString::fromUtf8("\xf3\xa0\x80\x81") << QStringLiteral("\\U000e0001");
    }

    void escapes()
    {
        QFETCH(QString, text);
        QFETCH(QString, line);
        QCOMPARE(escapedForLog(text), line);
    }

    // The usual handler gets the escaped line, whoever wrote it.
    void reachesTheUsualHandler()
    {
        const QtMessageHandler before = qInstallMessageHandler(keep);
        escapeLogLines();
        qWarning().noquote() << QStringLiteral("a\nb");
        const QString noquote = last;
        qInfo("%s", "c\x1b");
        qInstallMessageHandler(before);
        QCOMPARE(noquote, QStringLiteral("a\\nb"));
        QCOMPARE(last, QStringLiteral("c\\u001b"));
    }

    // Asked for twice, the lines still go to the usual handler, and once.
    void aSecondCallChangesNothing()
    {
        const QtMessageHandler before = qInstallMessageHandler(keep);
        escapeLogLines();
        escapeLogLines();
        qWarning("a\nb");
        qInstallMessageHandler(before);
        QCOMPARE(last, QStringLiteral("a\\nb"));
    }
};

QTEST_GUILESS_MAIN(TestLogText)
#include "tst_logtext.moc"
