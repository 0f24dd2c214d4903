// Puts the real window into every state that an operator can see, in every language, and writes one picture for
// each, or compares it with the one that a folder keeps.
//
//     panel_pictures write FOLDER
//     panel_pictures compare FOLDER [--differences FOLDER] [--tolerance 0]
//     panel_pictures list
//
// --state and --language take a part of the states alone. The exit code is 0 if nothing differs, no state fails to
// come to rest, no two states of a language look alike and the panel has warned of nothing.

#include "comparison.h"
#include "states.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QCryptographicHash>
#include <QDir>
#include <QTemporaryDir>

namespace {

struct Task
{
    bool write = false;
    QDir folder;
    QDir differences;
    bool keepDifferences = false;
    int tolerance = 0;
};

// At once, for a run of minutes is watched.
void say(const QString &line)
{
    puts(qPrintable(line));
    fflush(stdout);
}

bool inspect(const Task &task, const QString &name, const QImage &picture)
{
    const QString file = name + QStringLiteral(".png");
    if (task.write)
        return picture.save(task.folder.filePath(file));
    const QImage kept(task.folder.filePath(file));
    if (kept.isNull()) {
        say(name + ": no picture to compare with");
        return false;
    }
    const Comparison found = compare(kept, picture, task.tolerance);
    if (found.dots == 0)
        return true;
    say(QStringLiteral("%1: %2 dots differ").arg(name).arg(found.dots));
    if (task.keepDifferences) {
        found.difference.save(task.differences.filePath(name + QStringLiteral("-difference.png")));
        picture.save(task.differences.filePath(file));
    }
    return false;
}

// How many pictures are wrong.
int draw(const Task &task, const QString &language, const QVector<State> &states)
{
    int wrong = 0;
    QHash<QByteArray, QString> seen;
    for (const State &state : states) {
        const QString name = language + QLatin1Char('-') + QLatin1String(state.name);
        Scene scene(language);
        state.enter(scene);
        const QImage picture = scene.grab();
        if (picture.isNull()) {
            say(name + ": does not come to rest");
            ++wrong;
            continue;
        }
        const QByteArray bits(reinterpret_cast<const char *>(picture.constBits()),
                              int(picture.sizeInBytes()));
        const QByteArray hash = QCryptographicHash::hash(bits, QCryptographicHash::Sha1);
        if (seen.contains(hash)) {
            say(name + ": looks like " + seen.value(hash));
            ++wrong;
        }
        seen.insert(hash, name);
        for (const QString &warning : Messages::warnings()) {
            say(name + ": warns: " + warning);
            ++wrong;
        }
        wrong += inspect(task, name, picture) ? 0 : 1;
    }
    return wrong;
}

QVector<State> statesLike(const QString &pattern)
{
    const QRegularExpression wanted(pattern);
    QVector<State> chosen;
    for (const State &state : windowStates() + pageStates() + chromakeyStates()) {
        if (wanted.match(QLatin1String(state.name)).hasMatch())
            chosen << state;
    }
    return chosen;
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    QApplication application(argc, argv);
    QCommandLineParser parser;
    parser.addPositionalArgument("command", "write, compare or list");
    parser.addPositionalArgument("folder", "where the pictures are kept");
    parser.addOptions({{"state", "Only states whose name matches.", "pattern", ""},
                       {"language", "Only this language: en_US, zh_TW or zh_CN.", "code"},
                       {"differences", "Where to write what differs.", "folder"},
                       {"tolerance", "How much a channel of a dot may differ.", "number", "0"}});
    parser.addHelpOption();
    parser.process(application);

    const QStringList arguments = parser.positionalArguments();
    const QVector<State> states = statesLike(parser.value("state"));
    if (arguments == QStringList{"list"}) {
        for (const State &state : states)
            say(state.name);
        return 0;
    }
    if (arguments.size() != 2 || !QStringList({"write", "compare"}).contains(arguments.first()))
        parser.showHelp(2);

    Task task;
    task.write = arguments.first() == QLatin1String("write");
    task.folder = QDir(QDir(arguments.at(1)).absolutePath());
    task.keepDifferences = parser.isSet("differences");
    task.differences = QDir(QDir(parser.value("differences")).absolutePath());
    task.tolerance = parser.value("tolerance").toInt();
    for (const QDir &folder : {task.folder, task.differences})
        folder.mkpath(QStringLiteral("."));

    // The panel keeps its settings two folders above the one it runs in.
    QTemporaryDir home;
    QDir(home.path()).mkpath(QStringLiteral("one/two"));
    QDir::setCurrent(home.filePath(QStringLiteral("one/two")));

    int wrong = 0;
    int drawn = 0;
    for (const QString &language : QStringList{"en_US", "zh_TW", "zh_CN"}) {
        if (parser.isSet("language") && parser.value("language") != language)
            continue;
        wrong += draw(task, language, states);
        drawn += states.size();
    }
    QDir::setCurrent(QStringLiteral("/"));
    say(QStringLiteral("%1 pictures, %2 wrong").arg(drawn).arg(wrong));
    return wrong == 0 && drawn > 0 ? 0 : 1;
}
