#include "tests/support/brokensettings.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSysInfo>

#include <cstring>
#include <random>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace support {

namespace {

void write(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("can't write %s", qPrintable(path));
}

void writeLock(const QString &path, const QByteArray &bytes)
{
    write(path + QStringLiteral(".lock"), bytes);
}

QByteArray good()
{
    return "[connection]\ninterface=1\nipaddress=192.168.72.10\nhostname=STUDIO-1\n\n[last_info]\nmemory="
           "3\n\n"
           "[setting]\nlanguage=zh_TW\n";
}

QByteArray noise(int bytes)
{
    std::mt19937 random(720);
    QByteArray text;
    for (int i = 0; i < bytes; ++i)
        text.append(static_cast<char>(random() & 0xFFU));
    return text;
}

void makeSocket(const QString &path)
{
    // The name of a socket is short: by the folder's descriptor.
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    const QByteArray before = QDir::currentPath().toLocal8Bit();
    const QByteArray folder = QFileInfo(path).absolutePath().toLocal8Bit();
    std::strncpy(address.sun_path, "qkv720.ini", sizeof address.sun_path - 1);
    const int made = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (::chdir(folder.constData()) != 0
        || ::bind(made, reinterpret_cast<sockaddr *>(&address), sizeof address) != 0
        || ::chdir(before.constData()) != 0)
        qFatal("can't make a socket at %s", qPrintable(path));
    ::close(made);
}

using Path = const QString &;

} // namespace

const QVector<BrokenSettings> &brokenSettings()
{
    static const QVector<BrokenSettings> all{
        // The file
        {"empty", false, [](Path path) { write(path, {}); }},
        {"one line end", false, [](Path path) { write(path, "\n"); }},
        {"cut in a key", false, [](Path path) { write(path, good().left(30)); }},
        {"cut in a value", false, [](Path path) { write(path, good().left(48)); }},
        {"cut in a group", false, [](Path path) { write(path, good().left(7)); }},
        {"keys without a group", false, [](Path path) { write(path, good().mid(13)); }},
        {"groups without keys", false,
         [](Path path) { write(path, "[connection]\n[setting]\n[last_info]\n"); }},
        {"groups twice", false, [](Path path) { write(path, good() + good()); }},
        {"keys twice", false,
         [](Path path) { write(path, "[setting]\nlanguage=zh_TW\nlanguage=zh_CN\nlanguage=\n"); }},
        {"zeros", false, [](Path path) { write(path, QByteArray(5000, '\0')); }},
        {"zeros behind a good one", false, [](Path path) { write(path, good() + QByteArray(4096, '\0')); }},
        {"noise", false, [](Path path) { write(path, noise(20000)); }},
        {"noise behind a group", false, [](Path path) { write(path, "[connection]\n" + noise(20000)); }},
        {"two bytes a character", false,
         [](Path path) {
             const QString text = QChar(0xFEFF) + QString::fromLatin1(good());
             write(path, QByteArray(reinterpret_cast<const char *>(text.utf16()), text.size() * 2));
         }},
        {"a byte order mark", false, [](Path path) { write(path, "\xef\xbb\xbf" + good()); }},
        {"line ends of another system", false, [](Path path) { write(path, good().replace("\n", "\r\n")); }},
        {"line ends of an old system", false, [](Path path) { write(path, good().replace('\n', '\r')); }},
        {"a line of a million characters", false,
         [](Path path) { write(path, "[connection]\nhostname=" + QByteArray(1000000, 'x')); }},
        {"fifty thousand keys", false,
         [](Path path) {
             QByteArray text = "[connection]\n";
             for (int i = 0; i < 50000; ++i)
                 text += "key" + QByteArray::number(i) + "=1\n";
             write(path, text);
         }},
        {"escapes of no character", false,
         [](Path path) {
             write(path, "[connection]\nhostname=\\x110000\\xffffffffff\\q\\\nmac=%zz%U1\n%=1\n");
         }},
        {"an open quote", false, [](Path path) { write(path, "[connection]\nhostname=\"a\nmac=1\n"); }},
        {"an open group", false,
         [](Path path) { write(path, "[connection\ninterface=1\nipaddress=1.2.3.4\n"); }},
        {"groups in groups", false,
         [](Path path) { write(path, "[a/b/c]\nd/e/f=1\n[connection/x]\ninterface=1\n"); }},
        {"lists", false,
         [](Path path) { write(path, "[connection]\nipaddress=1, 2, 3\nhostname=a,b\ninterface=1,2\n"); }},
        {"marks of other types", false,
         [](Path path) {
             write(path,
                   "[connection]\nipaddress=@ByteArray(x)\nhostname=@Invalid()\nmac=@Rect(1 2)\n"
                   "gateway=@Variant(\\0\\0\\0\\x7f)\nmask=@DateTime(x)\ninterface=@Size(1 1)\n");
         }},
        {"numbers out of range", false,
         [](Path path) {
             write(path, "[connection]\ninterface=99999999999\nipaddress=1.2.3.4\n[last_info]\nmemory=-1\n");
         }},
        {"words for numbers", false,
         [](Path path) {
             write(
                 path,
                 "[connection]\ninterface=one\ndhcpmode=perhaps\nipaddress=here\n[last_info]\nmemory=two\n");
         }},
        {"a name that turns the line round", false,
         [](Path path) {
             write(path, "[connection]\nipaddress=1.2.3.4\nhostname=\\x202e\\x1b[2J\\n\\x9b\n");
         }},
        // In its place
        {"a folder in its place", false, [](Path path) { QDir().mkpath(path + QStringLiteral("/x")); }},
        {"a link to nothing", false, [](Path path) { QFile::link(QStringLiteral("/nowhere/at/all"), path); }},
        {"a link to itself", false, [](Path path) { QFile::link(QFileInfo(path).absoluteFilePath(), path); }},
        {"a pipe in its place", true, [](Path path) { ::mkfifo(qPrintable(path), 0600); }},
        {"a socket in its place", true, [](Path path) { makeSocket(path); }},
        {"a link to a device without end", true,
         [](Path path) { QFile::link(QStringLiteral("/dev/zero"), path); }},
        // Its folder
        {"no folder", false, [](Path path) { QDir().rmdir(QFileInfo(path).path()); }},
        {"a file for a folder", false,
         [](Path path) {
             QDir().rmdir(QFileInfo(path).path());
             write(QFileInfo(path).path(), "x");
         }},
        // Its lock
        {"the lock of a killed panel", false,
         [](Path path) {
             write(path, good());
             writeLock(path, "4194303\nqkv720-panel\n" + QSysInfo::machineHostName().toUtf8() + "\n");
         }},
        {"an empty lock", false,
         [](Path path) {
             write(path, good());
             writeLock(path, {});
         }},
        {"a lock of noise", true,
         [](Path path) {
             write(path, good());
             writeLock(path, noise(3000));
         }},
        {"the lock of another host", true,
         [](Path path) {
             write(path, good());
             writeLock(path, "1\nqkv720-panel\nanother-host\n");
         }},
        {"a folder for a lock", true,
         [](Path path) {
             write(path, good());
             QDir().mkpath(path + QStringLiteral(".lock"));
         }},
        {"a pipe for a lock", true,
         [](Path path) {
             write(path, good());
             ::mkfifo(qPrintable(path + QStringLiteral(".lock")), 0600);
         }},
        {"a link to nothing for a lock", true,
         [](Path path) {
             write(path, good());
             QFile::link(QStringLiteral("/nowhere/at/all"), path + QStringLiteral(".lock"));
         }},
        {"a pipe for the lock of a lock", true,
         [](Path path) {
             write(path, good());
             writeLock(path, "4194303\nqkv720-panel\n" + QSysInfo::machineHostName().toUtf8() + "\n");
             ::mkfifo(qPrintable(path + QStringLiteral(".lock.rmlock")), 0600);
         }},
    };
    return all;
}

void breakSettings(const QString &path, const BrokenSettings &how)
{
    const QString folder = QFileInfo(path).path();
    if (QFileInfo(folder).isFile())
        QFile::remove(folder);
    if (!QDir(folder).removeRecursively() || !QDir().mkpath(folder))
        qFatal("can't empty %s", qPrintable(folder));
    how.make(path);
}

} // namespace support
