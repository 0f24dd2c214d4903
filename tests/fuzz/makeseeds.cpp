// Writes the seeds of the fuzz targets that have a unit at the other end: what a stand-in unit answers to every
// operation, in the form in which each target reads its input. "make_fuzz_seeds FOLDER", and FOLDER is tests/fuzz/seeds.

#include "device/functions.h"
#include "tests/fuzz/neighbours.h"
#include "tests/fuzz/operations.h"
#include "tests/fuzz/unitpeer.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

namespace {

constexpr char kOwnAnswer = 2; // the bend that is an answer of the input's own
constexpr int kOperationsPerSeed = 10;

void write(const QDir &folder, const QString &target, const QString &name, const QByteArray &bytes)
{
    folder.mkpath(target);
    QFile file(folder.filePath(target + QLatin1Char('/') + name));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("can't write %s", qPrintable(file.fileName()));
}

QByteArray counted(const QByteArray &bytes)
{
    return QByteArray(1, static_cast<char>(bytes.size())) + bytes;
}

// What the unit has answered since, as bends.
QByteArray answersOf(const standin::Unit &unit)
{
    QByteArray bends;
    for (const standin::FrameRecord &frame : unit.record())
        bends += QByteArray(1, kOwnAnswer) + counted(frame.reply);
    return bends;
}

// Every operation once, a few to a seed, each with what the unit answers.
void writeExchanges(const QDir &folder, uint method)
{
    const bool isSerial = method == kSerialLink;
    Script none(nullptr, 0);
    UnitPeer peer(isSerial ? standin::LinkKind::Serial : standin::LinkKind::Network, none);
    world::begin([&peer] { peer.look(); });
    ShortLivedDevice device;
    require(device->connectDevice(method, peer.target()) == QLatin1String("OK"));
    const QString link = isSerial ? QStringLiteral("serial") : QStringLiteral("network");
    const QByteArray head = QByteArray(1, isSerial ? '\1' : '\0');
    write(folder, QStringLiteral("fuzz_exchange"), QStringLiteral("connect-") + link,
          head + '\1' + answersOf(peer.unit));

    const auto &all = fuzzedOperations();
    const QByteArray numbers = QByteArray::fromHex("0100e8032c01020003000000ffff100005000900");
    for (int first = 0; first < all.size(); first += kOperationsPerSeed) {
        QByteArray seed = head + '\0';
        for (int i = first; i < qMin(first + kOperationsPerSeed, all.size()); ++i) {
            peer.unit.clearRecord();
            Script arguments(reinterpret_cast<const uint8_t *>(numbers.constData()), size_t(numbers.size()));
            all.at(i).call(*device, method, arguments);
            seed += static_cast<char>(i) + numbers.left(arguments.position()) + answersOf(peer.unit);
        }
        write(folder, QStringLiteral("fuzz_exchange"), QStringLiteral("%1-%2").arg(link).arg(first), seed);
    }
    // Each way of bending an answer, on one read.
    constexpr int kBends = 10;
    constexpr char kReadAngle = 5;
    QByteArray bent = head + '\0';
    for (int i = 0; i < kBends; ++i)
        bent += QByteArray(1, kReadAngle) + static_cast<char>(i) + QByteArray::fromHex("0506");
    write(folder, QStringLiteral("fuzz_exchange"), QStringLiteral("bent-") + link, bent);
    device->disconnectDevice(method);
}

void writeReplies(const QDir &folder)
{
    standin::Unit unit;
    const auto &all = functions::all();
    for (int i = 0; i < all.size(); ++i) {
        const QByteArray reply = standin::makeBody(0, all.at(i)->getCode, unit.data(all.at(i)->getCode));
        write(folder, QStringLiteral("fuzz_takes"), QLatin1String(all.at(i)->name),
              QByteArray(1, static_cast<char>(i)) + static_cast<char>(kReplyData) + '\0' + reply);
    }
}

void writeDatagrams(const QDir &folder)
{
    standin::Unit unit;
    standin::DiscoveryLink link(unit);
    link.settings.address = QHostAddress(QStringLiteral("192.168.72.40"));
    const QByteArray record = link.answer(QByteArray::fromHex("000b8000") + "ETH_REQ").bytes();
    require(record.size() == 47);
    const QByteArray scan = QByteArray::fromHex("0001");
    const QByteArray threeAnswers(3, '\0');
    write(folder, QStringLiteral("fuzz_discovery"), QStringLiteral("scan"), scan + QByteArray(40, '\0'));
    QByteArray crowd = scan + threeAnswers + '\4';
    for (char host = 40; host < 44; ++host) {
        QByteArray other = record;
        other[26] = host;
        other[30] = host;
        crowd += host + counted(other) + '\0';
    }
    write(folder, QStringLiteral("fuzz_discovery"), QStringLiteral("crowd"), crowd);
    for (char what = 0; what < 9; ++what) {
        // After a scan that found the three; the address of the first, its MAC, and a value of four parts.
        const QByteArray setting = QByteArray(1, '\6') + what + '\0' + '\1' + '\0' + '\0' + '\0' + '\0';
        write(folder, QStringLiteral("fuzz_discovery"), QStringLiteral("setting-%1").arg(int(what)),
              scan + threeAnswers + QByteArray(7, '\0') + setting);
    }
}

void writeSettings(const QDir &folder)
{
    const QByteArray whole =
        "[setting]\nlanguage=zh_TW\n\n[connection]\ninterface=1\nnetcard=[192.168.72.1] fuzz0\n"
        "serialport=ttyS0\ndhcpmode=false\nipaddress=192.168.72.10\nhostname=QKV720\n"
        "mac=00:50:C2:72:00:00\ngateway=0.0.0.0\nmask=255.255.255.0\nprimarydns=0.0.0.0\n"
        "seconddns=0.0.0.0\n\n[last_info]\nmemory=3\n";
    const QList<QPair<QString, QByteArray>> files = {
        {QStringLiteral("whole"), whole},
        {QStringLiteral("empty"), QByteArray()},
        {QStringLiteral("cut"), whole.left(whole.size() / 2)},
        {QStringLiteral("odd"),
         "[connection]\nhostname=\"a, \\x4f60\\n\", @Invalid()\nmask=@Variant(\\0\\0)\n[[\n=\n\\"},
    };
    const QByteArray form = QByteArray(1, '\1') + counted("zh_CN") + '\1' + counted("[10.0.0.1] eth0") + '\1'
        + counted("00:50:C2:72:00:00") + '\1' + counted("QKV720") + '\1' + QByteArray(5, '\0');
    for (const auto &file : files) {
        const int size = file.second.size();
        const QByteArray length =
            QByteArray(1, static_cast<char>(size % 256)) + static_cast<char>(size / 256);
        write(folder, QStringLiteral("fuzz_settings"), file.first, length + file.second + '\1' + form);
    }
}

} // namespace

int main(int argc, char **argv)
{
    world::isolate();
    const QCoreApplication application(argc, argv);
    if (argc != 2)
        qFatal("usage: make_fuzz_seeds FOLDER");
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext &, const QString &text) {
        if (type != QtDebugMsg)
            fprintf(stderr, "%s\n", qPrintable(text));
    });
    const QDir folder(QString::fromLocal8Bit(argv[1]));
    writeExchanges(folder, kNetworkLink);
    writeExchanges(folder, kSerialLink);
    writeReplies(folder);
    writeDatagrams(folder);
    writeSettings(folder);
    return 0;
}
