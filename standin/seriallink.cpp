#include "standin/seriallink.h"

#include <QFile>
#include <QSocketNotifier>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <termios.h>
#include <unistd.h>

namespace standin {

namespace {

// Where a symbolic link leads; empty for anything else.
QByteArray linkTarget(const QByteArray &path)
{
    std::array<char, 256> target{};
    const ssize_t length = ::readlink(path.constData(), target.data(), target.size());
    return length > 0 ? QByteArray(target.data(), static_cast<int>(length)) : QByteArray();
}

bool makeRaw(int file)
{
    termios settings{};
    if (::tcgetattr(file, &settings) != 0)
        return false;
    ::cfmakeraw(&settings);
    settings.c_cflag |= CLOCAL | CREAD | CS8;
    settings.c_cflag &= ~static_cast<tcflag_t>(CSTOPB | CRTSCTS);
    ::cfsetispeed(&settings, B19200);
    ::cfsetospeed(&settings, B19200);
    return ::tcsetattr(file, TCSANOW, &settings) == 0;
}

} // namespace

// A serial line has no end to close: a closed link is silence there, and such a response has nothing to deliver.
SerialLink::SerialLink(Unit &unit, QObject *parent)
    : QObject(parent)
    , reader(unit, LinkKind::Serial, [this](const Response &response) {
        deliver(response, this, [this](const QByteArray &bytes) { write(bytes); });
    })
{
}

SerialLink::~SerialLink()
{
    close();
}

bool SerialLink::fail(const QString &what)
{
    error = what + QLatin1String(": ") + QString::fromLocal8Bit(std::strerror(errno));
    close();
    return false;
}

bool SerialLink::openPty()
{
    close();
    file = ::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
    if (file < 0 || ::grantpt(file) != 0 || ::unlockpt(file) != 0)
        return fail(QStringLiteral("no pseudo-terminal"));
    std::array<char, 128> name{};
    if (::ptsname_r(file, name.data(), name.size()) != 0)
        return fail(QStringLiteral("no name for the pseudo-terminal"));
    slave = ::open(name.data(), O_RDWR | O_NOCTTY | O_CLOEXEC);
    if (slave < 0 || !makeRaw(slave))
        return fail(QStringLiteral("pseudo-terminal"));
    port = QString::fromLocal8Bit(name.data());
    return watch();
}

bool SerialLink::openDevice(const QString &path)
{
    close();
    file = ::open(QFile::encodeName(path).constData(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    if (file < 0 || !makeRaw(file))
        return fail(path);
    port = path;
    return watch();
}

bool SerialLink::publish(const QString &path)
{
    const QByteArray at = QFile::encodeName(path);
    const QByteArray own = QFile::encodeName(port);
    // A killed run leaves its link, to a terminal that is gone or whose number is this one's now.
    const QByteArray target = linkTarget(at);
    const bool isLeftOver =
        target.startsWith("/dev/pts/") && (target == own || ::access(target.constData(), F_OK) != 0);
    if (isLeftOver)
        ::unlink(at.constData());
    if (::symlink(own.constData(), at.constData()) != 0)
        return fail(QStringLiteral("%1 can't be made a link to the pseudo-terminal").arg(path));
    link = at;
    return true;
}

bool SerialLink::watch()
{
    const int flags = ::fcntl(file, F_GETFL);
    if (flags < 0 || ::fcntl(file, F_SETFL, flags | O_NONBLOCK) != 0)
        return fail(port);
    notifier = std::make_unique<QSocketNotifier>(file, QSocketNotifier::Read);
    connect(notifier.get(), &QSocketNotifier::activated, this, &SerialLink::take);
    return true;
}

void SerialLink::close()
{
    notifier.reset();
    if (!link.isEmpty() && linkTarget(link) == QFile::encodeName(port))
        ::unlink(link.constData());
    link.clear();
    if (slave >= 0)
        ::close(slave);
    if (file >= 0)
        ::close(file);
    slave = -1;
    file = -1;
    port.clear();
}

void SerialLink::take()
{
    std::array<char, 512> buffer{};
    const ssize_t got = ::read(file, buffer.data(), buffer.size());
    if (got < 0 && (errno == EAGAIN || errno == EINTR))
        return;
    if (got <= 0) {
        // The device is gone: without this the notifier would fire without end.
        notifier->setEnabled(false);
        return;
    }
    reader.take(QByteArray(buffer.data(), static_cast<int>(got)));
}

void SerialLink::write(const QByteArray &bytes) const
{
    int at = 0;
    while (file >= 0 && at < bytes.size()) {
        const ssize_t put = ::write(file, bytes.constData() + at, static_cast<size_t>(bytes.size() - at));
        if (put < 0 && errno == EINTR)
            continue;
        if (put <= 0)
            return; // nobody reads the other end
        at += static_cast<int>(put);
    }
}

} // namespace standin
