#include "tests/device/matrix/trial.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QMap>

#include <cstdio>
#include <deque>
#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

// The matrix of faults: every operation of the device class under every fault on both links, against a model of the
// panel. A case is a process of its own, so that one that crashes takes no other with it; nearly all of its time
// passes in the panel's waits, and so a hundred run beside each other on one core.
//
//   device_matrix --all --jobs 100 --table matrix.tsv    every case
//   device_matrix --part 3/20                            the third of 20 parts of the fixed sample
//   device_matrix --only "set dark | silent"             the cases whose names contain this

namespace {

using namespace matrix;

// The bytes of a unit fall within milliseconds of the panel's read, so a machine that lets either wait decides what the
// panel finds. A case that differs while the machine was late is tried again and says nothing; one that differs while
// it was not says so, though it too has another try for what no count of the system shows.
constexpr int kTries = 3;
constexpr int kTriesOfALateMachine = 60;
constexpr int kMachineIsLateMs = 10;
constexpr int kLongestCaseMs = 90000;
constexpr int kLongestWaitForAFairTryMs = 200000;
constexpr int kSampleStep = 13;

struct Run
{
    int cell;
    int tries;
    int fairTries;
    qint64 begunMs; // the first of them
    pid_t process;
    int pipe;
    QByteArray words;
    QElapsedTimer timer;
};

struct Count
{
    int tried = 0;
    int fell = 0;
    int again = 0; // needed more than one try
};

[[noreturn]] void runChild(int cell, int pipe)
{
    int argc = 1;
    char name[] = "device_matrix";
    char *argv[] = {name, nullptr};
    const QCoreApplication application(argc, argv);
    const Attempt attempt = tryCase(allCases().at(cell));
    const QByteArray words = QByteArray::number(attempt.lateMs) + '\t' + attempt.words.toUtf8() + '\n';
    const ssize_t written = ::write(pipe, words.constData(), static_cast<size_t>(words.size()));
    std::fflush(nullptr);
    ::_exit(written == words.size() ? 0 : 1);
}

class Runner
{
public:
    Runner(const QVector<int> &cells, int jobs)
        : m_jobs(static_cast<size_t>(jobs))
        , m_all(cells.size())
    {
        for (const int cell : cells)
            m_waiting.push_back({cell, 0, 0, 0, 0, -1, {}, {}});
        m_timer.start();
    }

    void run()
    {
        while (!m_waiting.empty() || !m_running.empty()) {
            while (!m_waiting.empty() && m_running.size() < m_jobs)
                start();
            wait();
        }
    }
    // By fault and link.
    const QMap<QPair<int, uint>, Count> &counts() const { return m_counts; }
    const QStringList &fallen() const { return m_fallen; }

private:
    void start()
    {
        Run run = m_waiting.front();
        m_waiting.pop_front();
        int ends[2];
        if (::pipe2(ends, O_CLOEXEC) != 0)
            qFatal("no pipe");
        run.process = ::fork();
        if (run.process == 0)
            runChild(run.cell, ends[1]);
        ::close(ends[1]);
        if (run.process < 0)
            qFatal("no process");
        run.pipe = ends[0];
        run.words.clear();
        run.begunMs = run.tries == 0 ? m_timer.elapsed() : run.begunMs;
        ++run.tries;
        run.timer.start();
        m_running.push_back(run);
    }

    void wait()
    {
        std::vector<pollfd> handles;
        for (const Run &run : m_running)
            handles.push_back({run.pipe, POLLIN, 0});
        ::poll(handles.data(), handles.size(), 1000);
        std::deque<Run> left;
        for (size_t i = 0; i < handles.size(); ++i) {
            Run &run = m_running[i];
            if (run.timer.elapsed() > kLongestCaseMs)
                ::kill(run.process, SIGKILL);
            if (handles[i].revents == 0 || readOn(run))
                left.push_back(run);
            else
                finish(run);
        }
        m_running = left;
    }

    static bool readOn(Run &run)
    {
        char buffer[4096];
        const ssize_t got = ::read(run.pipe, buffer, sizeof buffer);
        if (got > 0)
            run.words.append(buffer, static_cast<int>(got));
        return got > 0;
    }

    void finish(Run &run)
    {
        ::close(run.pipe);
        int status = 0;
        ::waitpid(run.process, &status, 0);
        QString words = QString::fromUtf8(run.words).section(QLatin1Char('\t'), 1).trimmed();
        const bool late = run.words.left(run.words.indexOf('\t')).toInt() >= kMachineIsLateMs;
        run.fairTries += late ? 0 : 1;
        if (WIFSIGNALED(status)) {
            words = run.timer.elapsed() > kLongestCaseMs
                ? QStringLiteral("did not end")
                : QStringLiteral("crashed with signal %1").arg(WTERMSIG(status));
        } else if (WEXITSTATUS(status) != 0) {
            words = QStringLiteral("ended with status %1").arg(WEXITSTATUS(status));
        }
        // A crash is a crash, however often it happens.
        const bool mayBeTheMachine = !WIFSIGNALED(status) && WEXITSTATUS(status) == 0;
        if (!words.isEmpty() && mayBeTheMachine && hasAnotherTry(run)) {
            m_waiting.push_back(run);
            return;
        }
        if (!words.isEmpty() && mayBeTheMachine && run.fairTries < kTries)
            words += QStringLiteral("(the machine was late in %1 of %2 tries)")
                         .arg(run.tries - run.fairTries)
                         .arg(run.tries);
        tell(run, words);
    }

    bool hasAnotherTry(const Run &run) const
    {
        return run.fairTries < kTries && run.tries < kTriesOfALateMachine
            && m_timer.elapsed() - run.begunMs < kLongestWaitForAFairTryMs;
    }

    void tell(const Run &run, const QString &words)
    {
        const Case &cell = allCases().at(run.cell);
        Count &count = m_counts[{static_cast<int>(cell.form.fault), cell.method}];
        ++count.tried;
        count.again += run.tries > 1 && words.isEmpty() ? 1 : 0;
        if (!words.isEmpty()) {
            ++count.fell;
            m_fallen += nameOf(cell);
            std::printf("FELL %s: %s\n", qPrintable(nameOf(cell)), qPrintable(words));
        }
        constexpr int kToldEach = 500;
        if (++m_done % kToldEach == 0)
            std::printf("%d of %d\n", m_done, m_all);
        std::fflush(stdout);
    }

    const size_t m_jobs;
    const int m_all;
    QElapsedTimer m_timer;
    int m_done = 0;
    std::deque<Run> m_waiting;
    std::deque<Run> m_running;
    QMap<QPair<int, uint>, Count> m_counts;
    QStringList m_fallen;
};

void writeTable(const QString &path, const QMap<QPair<int, uint>, Count> &counts)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Text))
        qFatal("can't write %s", qPrintable(path));
    file.write("fault\tlink\ttried\tfell\tagain\n");
    for (auto it = counts.cbegin(); it != counts.cend(); ++it) {
        file.write(
            QStringLiteral("%1\t%2\t%3\t%4\t%5\n")
                .arg(faultName(static_cast<Fault>(it.key().first)),
                     it.key().second == kNetwork ? QStringLiteral("network") : QStringLiteral("serial"))
                .arg(it->tried)
                .arg(it->fell)
                .arg(it->again)
                .toUtf8());
    }
}

// A failure that no attempt mends.
bool isHopeless(const Case &cell)
{
    return cell.form.always && cell.form.fault == (cell.method == kNetwork ? Fault::Silent : Fault::WrongSum);
}

// The sample goes through the matrix on a slant, so that it meets every operation and every form; and every operation
// fails in it on both links.
QVector<int> sample()
{
    QVector<int> cells;
    const auto &cases = allCases();
    int operation = -1;
    int place = 0;
    for (int i = 0; i < cases.size(); ++i) {
        place = cases.at(i).operation == operation ? place + 1 : 0;
        operation = cases.at(i).operation;
        constexpr int kSlant = 5;
        if ((place + kSlant * operation) % kSampleStep == 0 || isHopeless(cases.at(i)))
            cells.append(i);
    }
    return cells;
}

QVector<int> chosen(const QCommandLineParser &options)
{
    QVector<int> cells;
    if (options.isSet(QStringLiteral("part"))) {
        const QStringList part = options.value(QStringLiteral("part")).split(QLatin1Char('/'));
        const QVector<int> all = sample();
        const int parts = part.size() == 2 ? part.at(1).toInt() : 0;
        for (int i = part.at(0).toInt() - 1; parts > 0 && i >= 0 && i < all.size(); i += parts)
            cells.append(all.at(i));
        return cells;
    }
    const QString only = options.value(QStringLiteral("only"));
    for (int i = 0; i < allCases().size(); ++i) {
        if (options.isSet(QStringLiteral("all"))
            || (!only.isEmpty() && nameOf(allCases().at(i)).contains(only)))
            cells.append(i);
    }
    return cells;
}

} // namespace

int main(int argc, char **argv)
{
    QCommandLineParser options;
    options.addOptions({
        {QStringLiteral("all"), QStringLiteral("Every case.")},
        {QStringLiteral("part"), QStringLiteral("Part N of M of the fixed sample."), QStringLiteral("N/M")},
        {QStringLiteral("only"), QStringLiteral("The cases with this in their names."),
         QStringLiteral("text")},
        {QStringLiteral("jobs"), QStringLiteral("Cases at a time."), QStringLiteral("N"),
         QStringLiteral("32")},
        {QStringLiteral("table"), QStringLiteral("Write the counts there."), QStringLiteral("file")},
    });
    // No application object yet: a process that forks has no threads and no sockets of the toolkit's.
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments += QString::fromLocal8Bit(argv[i]);
    if (!options.parse(arguments)) {
        std::fprintf(stderr, "%s\n", qPrintable(options.errorText()));
        return 2;
    }
    const QVector<int> cells = chosen(options);
    if (cells.isEmpty()) {
        std::fprintf(stderr, "no case was chosen\n");
        return 2;
    }
    QElapsedTimer timer;
    timer.start();
    Runner runner(cells, qMax(1, options.value(QStringLiteral("jobs")).toInt()));
    runner.run();
    if (options.isSet(QStringLiteral("table")))
        writeTable(options.value(QStringLiteral("table")), runner.counts());
    std::printf("%d cases tried, %d fell, %lld s\n", cells.size(), runner.fallen().size(),
                timer.elapsed() / 1000);
    return runner.fallen().isEmpty() ? 0 : 1;
}
