#include "ctl/commands.h"
#include "ctl/fieldtext.h"
#include "tests/ctl/ctlrun.h"

#include <QFileInfo>

using support::runCtl;
using support::words;

// The manual page, the operator's manual and the completion know the commands, options and functions that the program has.
class ManualTest : public QObject
{
    Q_OBJECT

private slots:
    void pageNamesEverything();
    void operatorsReadOfEveryCommand();
    void completionOfCommands();
    void completionOfOptions();
    void completionOfFunctions();
};

namespace {

QString packaged(const char *name)
{
    return QStringLiteral(QT_TESTCASE_SOURCEDIR "/../packaging/") + QLatin1String(name);
}

QStringList options()
{
    QStringList list;
    const QStringList lines = runCtl(words("--help")).output.split('\n');
    const QRegularExpression option("--[a-z-]+");
    for (const QString &line : lines.mid(lines.indexOf("Options:"))) {
        if (line.trimmed().startsWith('-'))
            list.append(option.match(line).captured());
    }
    return list;
}

// What bash offers behind these words; the last one is being typed.
QStringList completion(const QString &line)
{
    QProcess bash;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("PATH",
                       QFileInfo(QStringLiteral(CTL_PROGRAM)).path() + ':' + environment.value("PATH"));
    bash.setProcessEnvironment(environment);
    bash.start("bash",
               {"-c",
                "compopt() { :; }; source \"$1\"; IFS='|' read -ra COMP_WORDS <<<\"$2|\"; "
                "COMP_CWORD=$3; _qkv720ctl; printf '%s\\n' \"${COMPREPLY[@]}\"",
                "bash", packaged("qkv720ctl.bash"), line, QString::number(line.count('|'))});
    bash.waitForFinished();
    QStringList list = QString::fromUtf8(bash.readAllStandardOutput()).split('\n', Qt::SkipEmptyParts);
    list.sort();
    return list;
}

QStringList sorted(QStringList list)
{
    list.removeDuplicates();
    list.sort();
    return list;
}

} // namespace

void ManualTest::pageNamesEverything()
{
    QFile file(packaged("qkv720ctl.1"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QString page = QString::fromUtf8(file.readAll()).remove('"').replace("\\-", "-");
    for (const ctl::Command &command : ctl::commands()) {
        const QRegularExpression heading(QStringLiteral("^\\.BR? %1( |$)").arg(QLatin1String(command.words)),
                                         QRegularExpression::MultilineOption);
        QVERIFY2(page.contains(heading), command.words);
    }
    QVERIFY(options().size() >= 13);
    for (const QString &option : options())
        QVERIFY2(page.contains(option), qPrintable(option));
}

void ManualTest::operatorsReadOfEveryCommand()
{
    for (const char *language : {"en", "zh_TW", "zh_CN"}) {
        QFile file(QStringLiteral(QT_TESTCASE_SOURCEDIR "/../docs/manual/%1/scripts.html")
                       .arg(QLatin1String(language)));
        QVERIFY2(file.open(QIODevice::ReadOnly), language);
        const QString page = QString::fromUtf8(file.readAll());
        for (const ctl::Command &command : ctl::commands()) {
            const QRegularExpression named(QStringLiteral("<code>%1[ <]").arg(QLatin1String(command.words)));
            QVERIFY2(page.contains(named), command.words);
        }
    }
}

void ManualTest::completionOfCommands()
{
    QStringList first;
    for (const ctl::Command &command : ctl::commands()) {
        const QStringList parts = words(command.words);
        first.append(parts.first());
        if (parts.size() > 1)
            QVERIFY2(completion("qkv720ctl|" + parts.first() + '|').contains(parts.last()), command.words);
    }
    QCOMPARE(completion("qkv720ctl|"), sorted(first));
    QCOMPARE(completion("qkv720ctl|--host|10.0.0.1|--json|mem"), QStringList{"memory"});
}

void ManualTest::completionOfOptions()
{
    QCOMPARE(completion("qkv720ctl|--"), sorted(options()));
}

void ManualTest::completionOfFunctions()
{
    QStringList readable;
    QStringList settable;
    QStringList resettable;
    for (const UnitFunction *function : ctl::everyFunction()) {
        const QString name = QLatin1String(function->name);
        readable.append(name);
        if (function->set)
            settable.append(name);
        if (function->reset)
            resettable.append(name);
    }
    QCOMPARE(completion("qkv720ctl|get|"), sorted(readable));
    QCOMPARE(completion("qkv720ctl|set|"), sorted(settable));
    QCOMPARE(completion("qkv720ctl|reset|"), sorted(resettable));
    QCOMPARE(completion("qkv720ctl|set|angle|"), (QStringList{"left=", "right="}));
}

QTEST_GUILESS_MAIN(ManualTest)
#include "tst_manual.moc"
