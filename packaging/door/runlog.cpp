#include "packaging/door/runlog.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <ctime>

namespace {

constexpr long long kPieceBytes = 2LL * 1024 * 1024;
constexpr std::size_t kLongestLine = 8192;
constexpr int kNotStarted = 127;
constexpr std::array<int, 4> kAskingToEnd = {SIGINT, SIGTERM, SIGHUP, SIGQUIT};

volatile std::sig_atomic_t child = 0;

void passOn(int number)
{
    if (child > 0)
        kill(static_cast<pid_t>(child), number);
}

// Short writes go on; a file that takes nothing more is no reason to stop.
void writeAll(int file, const std::string &text)
{
    for (std::size_t done = 0; done < text.size();) {
        const ssize_t now = write(file, text.data() + done, text.size() - done);
        if (now < 0 && errno == EINTR)
            continue;
        if (now <= 0)
            return;
        done += static_cast<std::size_t>(now);
    }
}

std::string now()
{
    timespec moment = {};
    clock_gettime(CLOCK_REALTIME, &moment);
    tm local = {};
    localtime_r(&moment.tv_sec, &local);
    std::array<char, 32> text = {};
    const std::size_t length = std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M:%S", &local);
    std::snprintf(text.data() + length, text.size() - length, ".%03ld", moment.tv_nsec / 1000000);
    return text.data();
}

// Reads to the end of the pipe; a line of any length is kept in pieces, so that nothing grows.
void copyLines(int pipe, RunLog &log, bool timed)
{
    std::string line;
    const auto tell = [&] {
        const std::string kept = log.add(line);
        writeAll(STDERR_FILENO, timed ? kept : line + '\n');
        line.clear();
    };
    std::array<char, 4096> buffer = {};
    for (;;) {
        const ssize_t count = read(pipe, buffer.data(), buffer.size());
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            break;
        for (ssize_t i = 0; i < count; ++i) {
            const char next = buffer[static_cast<std::size_t>(i)];
            if (next != '\n')
                line += next;
            if (next == '\n' || line.size() >= kLongestLine)
                tell();
        }
    }
    if (!line.empty())
        tell();
}

void becomeProgram(int pipe, const sigset_t &before, char *const *program)
{
    // A shell that starts this in the background has two of these ignored, and so would the panel.
    for (const int number : kAskingToEnd)
        std::signal(number, SIG_DFL);
    // Whatever becomes of the log, a line that nobody reads does not end the panel.
    std::signal(SIGPIPE, SIG_IGN);
    sigprocmask(SIG_SETMASK, &before, nullptr);
    dup2(pipe, STDERR_FILENO);
    execv(program[0], program);
    std::fprintf(stderr, "%s cannot be started: %s\n", program[0], std::strerror(errno));
    _exit(kNotStarted);
}

} // namespace

RunLog::RunLog(const std::string &path)
    : path_(path)
{
    open(O_APPEND);
}

RunLog::~RunLog()
{
    if (file_ >= 0)
        close(file_);
}

void RunLog::open(int flags)
{
    if (file_ >= 0)
        close(file_);
    file_ = ::open(path_.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC | flags, 0600);
    size_ = file_ < 0 ? 0 : static_cast<long long>(lseek(file_, 0, SEEK_END));
}

std::string RunLog::add(const std::string &line)
{
    std::string kept = now() + ' ' + line + '\n';
    if (file_ >= 0) {
        if (size_ + static_cast<long long>(kept.size()) > kPieceBytes) {
            std::rename(path_.c_str(), (path_ + ".1").c_str());
            open(O_TRUNC);
        }
        writeAll(file_, kept);
        size_ += static_cast<long long>(kept.size());
    }
    return kept;
}

int runLogged(RunLog &log, bool timed, char *const *program)
{
    std::array<int, 2> ends = {};
    if (pipe2(ends.data(), O_CLOEXEC) != 0) {
        log.add(std::string("no pipe: ") + std::strerror(errno));
        return kNotStarted;
    }
    std::signal(SIGPIPE, SIG_IGN);
    struct sigaction action = {};
    action.sa_handler = passOn;
    sigset_t asking = {};
    sigset_t before = {};
    sigemptyset(&asking);
    for (const int number : kAskingToEnd) {
        sigaction(number, &action, nullptr);
        sigaddset(&asking, number);
    }
    // Held back until it is known whom to pass them on to.
    sigprocmask(SIG_BLOCK, &asking, &before);
    const pid_t started = fork();
    if (started == 0)
        becomeProgram(ends[1], before, program);
    child = started > 0 ? started : 0;
    sigprocmask(SIG_SETMASK, &before, nullptr);
    close(ends[1]);
    if (started < 0) {
        log.add(std::string("no process: ") + std::strerror(errno));
        return kNotStarted;
    }
    copyLines(ends[0], log, timed);
    close(ends[0]);
    int status = 0;
    while (waitpid(started, &status, 0) < 0 && errno == EINTR) { }
    child = 0;
    const int result = WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
    log.add("ended with status " + std::to_string(result));
    return result;
}
