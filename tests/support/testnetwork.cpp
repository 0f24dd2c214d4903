#include "tests/support/testnetwork.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QThread>

#include <algorithm>
#include <array>
#include <atomic>
#include <fcntl.h>
#include <filesystem>
#include <sched.h>
#include <string>
#include <unistd.h>

namespace support {

namespace {

constexpr int kCommandMs = 20000;
constexpr int kEndMs = 3000;

QString namespaceFile(const QString &name)
{
    return QStringLiteral("/run/netns/") + name;
}

// A program that starts inside a host.
class HostProcess : public QProcess
{
public:
    explicit HostProcess(const QString &host)
        : file(namespaceFile(host).toLocal8Bit())
    {
    }

protected:
    void setupChildProcess() override
    {
        // Between fork and exec: nothing but plain system calls.
        const int handle = ::open(file.constData(), O_RDONLY | O_CLOEXEC);
        if (handle < 0 || ::setns(handle, CLONE_NEWNET) != 0)
            ::_exit(127);
    }

private:
    QByteArray file;
};

} // namespace

void TestNetwork::obtainRights(char **argv)
{
    if (::geteuid() == 0 || qEnvironmentVariableIsSet("TEST_NETWORK_INSIDE"))
        return;
    qputenv("TEST_NETWORK_INSIDE", "1");
    // A /run of its own, so that `ip netns` can keep its names there. The program by its own file: the name that it
    // was started by may be relative to the folder in which that was.
    static const std::string self = std::filesystem::read_symlink("/proc/self/exe");
    std::vector<const char *> command = {
        "unshare", "-Urnm", "sh", "-c", "mount -t tmpfs tmpfs /run && exec \"$@\"", "sh", self.c_str()};
    for (char **word = argv + 1; *word; ++word)
        command.push_back(*word);
    command.push_back(nullptr);
    ::execvp("unshare", const_cast<char *const *>(command.data()));
    // Still here: the namespaces will be refused, and the test says so.
}

TestNetwork::TestNetwork()
{
    // A test that was killed left its namespaces behind; they carry the number of its process.
    static const QRegularExpression pattern(QStringLiteral("^qt(\\d+)[hs]\\d+$"));
    for (const QString &name : QDir(QStringLiteral("/run/netns")).entryList(QDir::Files | QDir::System)) {
        const QRegularExpressionMatch match = pattern.match(name);
        if (match.hasMatch() && !QFileInfo::exists(QStringLiteral("/proc/") + match.captured(1)))
            QProcess::execute(QStringLiteral("ip"), {QStringLiteral("netns"), QStringLiteral("del"), name});
    }
}

TestNetwork::~TestNetwork()
{
    for (const auto &process : processes) {
        if (process->state() == QProcess::NotRunning)
            continue;
        process->terminate();
        if (!process->waitForFinished(kEndMs))
            process->kill();
        process->waitForFinished(kEndMs);
    }
    for (const QString &name : namespaces)
        QProcess::execute(QStringLiteral("ip"), {QStringLiteral("netns"), QStringLiteral("del"), name});
}

bool TestNetwork::run(const QStringList &arguments)
{
    QProcess ip;
    ip.setProcessChannelMode(QProcess::MergedChannels);
    ip.start(QStringLiteral("ip"), arguments);
    if (ip.waitForFinished(kCommandMs) && ip.exitCode() == 0)
        return true;
    if (trouble.isEmpty()) {
        trouble = QStringLiteral("This test needs network namespaces, and they are refused here: ip %1: %2")
                      .arg(arguments.join(QLatin1Char(' ')), QString::fromLocal8Bit(ip.readAll()).trimmed());
    }
    return false;
}

QString TestNetwork::addNamespace(const char *kind)
{
    static std::atomic<int> number{0};
    QString name = QStringLiteral("qt%1%2%3").arg(::getpid()).arg(QLatin1String(kind)).arg(number++);
    if (!run({QStringLiteral("netns"), QStringLiteral("add"), name}))
        return name;
    namespaces.append(name);
    run({QStringLiteral("-n"), name, QStringLiteral("link"), QStringLiteral("set"), QStringLiteral("lo"),
         QStringLiteral("up")});
    return name;
}

QString TestNetwork::addHost()
{
    return addNamespace("h");
}

QString TestNetwork::addSwitch()
{
    QString name = addNamespace("s");
    ip(name,
       {QStringLiteral("link"), QStringLiteral("add"), QStringLiteral("br0"), QStringLiteral("type"),
        QStringLiteral("bridge")});
    ip(name, {QStringLiteral("link"), QStringLiteral("set"), QStringLiteral("br0"), QStringLiteral("up")});
    return name;
}

bool TestNetwork::ip(const QString &host, const QStringList &arguments)
{
    return run(QStringList{QStringLiteral("-n"), host} + arguments);
}

bool TestNetwork::waitForLink(const QString &host, const QString &adapter)
{
    constexpr int kLooks = 200;
    for (int look = 0; look < kLooks; ++look) {
        QProcess ip;
        ip.start(QStringLiteral("ip"),
                 {QStringLiteral("-n"), host, QStringLiteral("link"), QStringLiteral("show"),
                  QStringLiteral("dev"), adapter});
        if (ip.waitForFinished(kCommandMs) && ip.readAll().contains(" state UP "))
            return true;
        QThread::msleep(20);
    }
    if (trouble.isEmpty())
        trouble = QStringLiteral("The test's own network didn't come up: %1 in %2").arg(adapter, host);
    return false;
}

bool TestNetwork::plug(const QString &host, const QString &adapter, const QString &ethernetSwitch,
                       const QStringList &addresses)
{
    const bool first =
        std::none_of(ports.cbegin(), ports.cend(), [&host](const Port &port) { return port.host == host; });
    const QString switchPort = QStringLiteral("p%1").arg(ports.size());
    const QString link = QStringLiteral("link");
    const QString set = QStringLiteral("set");
    const QString up = QStringLiteral("up");
    const QString netns = QStringLiteral("netns");
    bool good = ip(ethernetSwitch,
                   {link, QStringLiteral("add"), switchPort, QStringLiteral("type"), QStringLiteral("veth"),
                    QStringLiteral("peer"), QStringLiteral("name"), adapter, netns, host});
    good = good
        && ip(ethernetSwitch, {link, set, switchPort, QStringLiteral("master"), QStringLiteral("br0"), up});
    for (const QString &address : addresses)
        good = good
            && ip(host,
                  {QStringLiteral("addr"), QStringLiteral("add"), address, QStringLiteral("brd"),
                   QStringLiteral("+"), QStringLiteral("dev"), adapter});
    good = good && ip(host, {link, set, adapter, up});
    if (first)
        good = good
            && ip(host,
                  {QStringLiteral("route"), QStringLiteral("add"), QStringLiteral("default"),
                   QStringLiteral("dev"), adapter});
    ports.push_back({host, adapter, ethernetSwitch, switchPort});
    // The kernel brings a link up in its own time, on a busy machine in a second; what is sent before is lost.
    return good && waitForLink(host, adapter) && waitForLink(ethernetSwitch, switchPort)
        && waitForLink(ethernetSwitch, QStringLiteral("br0"));
}

const TestNetwork::Port *TestNetwork::portOf(const QString &host, const QString &adapter) const
{
    const auto port = std::find_if(ports.cbegin(), ports.cend(), [&host, &adapter](const Port &candidate) {
        return candidate.host == host && candidate.adapter == adapter;
    });
    return port == ports.cend() ? nullptr : &*port;
}

bool TestNetwork::setCable(const QString &host, const QString &adapter, bool plugged)
{
    const Port *port = portOf(host, adapter);
    return port
        && ip(port->ethernetSwitch,
              {QStringLiteral("link"), QStringLiteral("set"), port->switchPort,
               plugged ? QStringLiteral("up") : QStringLiteral("down")});
}

bool TestNetwork::removeAdapter(const QString &host, const QString &adapter)
{
    return ip(host, {QStringLiteral("link"), QStringLiteral("del"), adapter});
}

bool TestNetwork::enter(const QString &host)
{
    const int handle = ::open(namespaceFile(host).toLocal8Bit().constData(), O_RDONLY | O_CLOEXEC);
    if (handle < 0)
        return false;
    const bool entered = ::setns(handle, CLONE_NEWNET) == 0;
    ::close(handle);
    return entered;
}

std::unique_ptr<QProcess> TestNetwork::processIn(const QString &host)
{
    return std::make_unique<HostProcess>(host);
}

QProcess *TestNetwork::start(const QString &host, const QString &program, const QStringList &arguments)
{
    processes.push_back(processIn(host));
    QProcess *process = processes.back().get();
    process->start(program, arguments);
    if (!process->waitForStarted(kCommandMs) && trouble.isEmpty())
        trouble = QStringLiteral("%1 didn't start: %2").arg(program, process->errorString());
    return process;
}

} // namespace support
