// Puts the real window into every state that an operator can see, in every language, and holds its picture against
// the one that is kept, or against those of another build.
//
//     panel_pictures keep ALBUMS       writes the kept pictures anew, an album for each language
//     panel_pictures check ALBUMS      compares with them
//     panel_pictures write FOLDER      writes a picture file for each state
//     panel_pictures compare FOLDER    compares with such files
//     panel_pictures list
//
// --state and --language take a part of the states alone, --part 2/3 every third of them from the second on; --scale 2
// draws for a screen of two dots a pixel, with the states that are kept for it. What differs goes to --differences: the
// picture expected, the one seen, and the first dimmed with the dots that differ in red.
//
// In every state the texts are looked at, too: see textfaults.h. The exit code is 0 if nothing differs, no text is at
// fault, no state fails to come to rest, no two states of a language look alike and the panel has warned of nothing.

#include "album.h"
#include "comparison.h"
#include "states.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QCryptographicHash>
#include <QDir>
#include <QTemporaryDir>

namespace {

// A dozen, with each kind of ground, text and picture among them.
const char kLargeStates[] =
    "^(start|connect-marked|setup|factory-question|warning|input-sources|chroma|picker|post-off|"
    "garbage|holdout-inverted|luma)$";

struct Task
{
    QString command;
    QDir folder;
    QDir differences;
    bool keepDifferences = false;
    int tolerance = 0;
    QString scale;

    bool isWriting() const { return command == QLatin1String("write") || command == QLatin1String("keep"); }
    bool hasAlbum() const { return command == QLatin1String("check") || command == QLatin1String("keep"); }
    QString albumOf(const QString &language) const
    {
        return scale == QLatin1String("1") ? language : QStringLiteral("%1@%2x").arg(language, scale);
    }
};

// At once, for a run of minutes is watched.
void say(const QString &line)
{
    puts(qPrintable(line));
    fflush(stdout);
}

bool inspect(const Task &task, Album *album, const State &state, const QString &name, const QImage &picture)
{
    const QString file = name + QStringLiteral(".png");
    if (task.command == QLatin1String("keep"))
        album->put(QLatin1String(state.name), picture);
    if (task.command == QLatin1String("write"))
        return picture.save(task.folder.filePath(file));
    if (task.isWriting())
        return true;
    const QImage kept =
        task.hasAlbum() ? album->picture(QLatin1String(state.name)) : QImage(task.folder.filePath(file));
    if (kept.isNull()) {
        say(name + ": no picture to compare with");
        return false;
    }
    const Comparison found = compare(kept, picture, task.tolerance);
    if (found.dots == 0)
        return true;
    const QRect where = found.where;
    say(QStringLiteral("%1: %2 dots differ, all in %3x%4 at %5,%6")
            .arg(name)
            .arg(found.dots)
            .arg(where.width())
            .arg(where.height())
            .arg(where.x())
            .arg(where.y()));
    if (task.keepDifferences) {
        const auto place = [&](const char *what) {
            return task.differences.filePath(QStringLiteral("%1-%2.png").arg(name, QLatin1String(what)));
        };
        kept.save(place("expected"));
        picture.save(place("seen"));
        found.difference.save(place("difference"));
    }
    return false;
}

// What is wrong with one state beside its picture.
QStringList complaints(const Scene &scene, const QImage &picture, const QString &name,
                       QHash<QByteArray, QString> *seen)
{
    QStringList all = scene.faults();
    for (const QString &warning : Messages::warnings())
        all << "warns: " + warning;
    const auto bits = QByteArray::fromRawData(reinterpret_cast<const char *>(picture.constBits()),
                                              int(picture.sizeInBytes()));
    const QByteArray hash = QCryptographicHash::hash(bits, QCryptographicHash::Md5);
    if (seen->contains(hash))
        all << "looks like " + seen->value(hash);
    seen->insert(hash, name);
    return all;
}

// How many states are wrong.
int draw(const Task &task, const QString &language, const QVector<State> &states)
{
    Album album(task.folder, task.albumOf(language));
    if (task.command == QLatin1String("check") && !album.read()) {
        say(task.albumOf(language) + ": no album, or none that can be read");
        return int(states.size());
    }
    int wrong = 0;
    QHash<QByteArray, QString> seen;
    for (const State &state : states) {
        const QString name = task.albumOf(language) + QLatin1Char('-') + QLatin1String(state.name);
        Scene scene(language);
        state.enter(scene);
        const QImage picture = scene.grab();
        if (picture.isNull()) {
            say(name + ": does not come to rest");
            ++wrong;
            continue;
        }
        const QStringList faults = complaints(scene, picture, name, &seen);
        for (const QString &fault : faults)
            say(name + ": " + fault);
        const bool good = inspect(task, &album, state, name, picture);
        wrong += good && faults.isEmpty() ? 0 : 1;
    }
    if (task.command == QLatin1String("keep") && !album.write()) {
        say(task.albumOf(language) + ": cannot be written");
        ++wrong;
    }
    return wrong;
}

// PART is "2/3": every third state, from the second on.
QVector<State> statesLike(const QString &pattern, const QString &part)
{
    const QRegularExpression wanted(pattern);
    const int which = part.section(QLatin1Char('/'), 0, 0).toInt();
    const int parts = part.section(QLatin1Char('/'), 1, 1).toInt();
    QVector<State> chosen;
    int number = 0;
    for (const State &state : windowStates() + pageStates() + chromakeyStates()) {
        if (!wanted.match(QLatin1String(state.name)).hasMatch())
            continue;
        if (parts <= 0 || number++ % parts + 1 == which)
            chosen << state;
    }
    return chosen;
}

// The scale is the application object's affair, which is made before any option is read.
QString scaleIn(int argc, char **argv)
{
    for (int at = 1; at + 1 < argc; ++at) {
        if (qstrcmp(argv[at], "--scale") == 0)
            return QString::fromLocal8Bit(argv[at + 1]);
    }
    return QStringLiteral("1");
}

} // namespace

int main(int argc, char **argv)
{
    const QString scale = scaleIn(argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    qputenv("QT_SCALE_FACTOR", scale.toLatin1());
    QApplication application(argc, argv);
    QCommandLineParser parser;
    parser.addPositionalArgument("command", "keep, check, write, compare or list");
    parser.addPositionalArgument("folder", "where the pictures are kept");
    parser.addOptions({{"state", "Only states whose name matches.", "pattern",
                        scale == QLatin1String("1") ? "" : kLargeStates},
                       {"language", "Only this language: en_US, zh_TW or zh_CN.", "code"},
                       {"part", "Only a part of the states, such as 2/3.", "part"},
                       {"scale", "Dots to a pixel.", "number", "1"},
                       {"differences", "Where to write what differs.", "folder"},
                       {"tolerance", "How much a channel of a dot may differ.", "number", "0"}});
    parser.addHelpOption();
    parser.process(application);

    const QStringList arguments = parser.positionalArguments();
    const QVector<State> states = statesLike(parser.value("state"), parser.value("part"));
    if (arguments == QStringList{"list"}) {
        for (const State &state : states)
            say(state.name);
        return 0;
    }
    const QStringList commands{"keep", "check", "write", "compare"};
    if (arguments.size() != 2 || !commands.contains(arguments.first()))
        parser.showHelp(2);

    Task task;
    task.command = arguments.first();
    task.folder = QDir(QDir(arguments.at(1)).absolutePath());
    task.keepDifferences = parser.isSet("differences");
    task.differences = QDir(QDir(parser.value("differences")).absolutePath());
    task.tolerance = parser.value("tolerance").toInt();
    task.scale = scale;
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
