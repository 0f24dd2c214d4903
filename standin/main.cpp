// qkv720-unit: a stand-in for the hardware, for rehearsals without it and for tests. It is no real unit.
//
//   qkv720-unit --address 192.168.72.10 --name KEYER-1 --mac 00:50:C2:72:00:01 --log frames.jsonl
//
//   --address A          where it answers, TCP and UDP port 5002 (127.0.0.1); broadcasts too unless on the loopback
//   --name N  --mac M  --dhcp  --mask A  --gateway A  --primary-dns A  --secondary-dns A     its network record
//   --vendor HEX  --product HEX  --model TEXT           its identifiers (0588, 1501, QKV-720)
//   --firmware 1.05  --fpga 2.23  --loader 10.2a  --type 40  --revision 0                    its versions
//   --serial pty|DEVICE  --serial-link PATH             the serial link too; PATH becomes a link to the pty
//   --no-network  --no-discovery
//   --state FILE         keeps memories, values and network settings (JSON)
//   --fault "D2 silent 3"   a fault from the start, any number of them; the same words work on standard input
//   --log FILE           one JSON object per frame, appended      --quiet   no line per frame on standard output
//   --adapter DEV  --restart-time MS    readdresses DEV after RESET (1500 ms)
//
// On standard input: fault, clear, record, forget, state, set, recall, save, connector, drop, restart, help, quit.

#include "standin/appliance.h"
#include "standin/console.h"
#include "standin/faulttext.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QSocketNotifier>
#include <QTime>

#include <csignal>
#include <cstdio>
#include <unistd.h>

namespace {

std::array<int, 2> signalPipe{-1, -1};

void onSignal(int)
{
    const char byte = 0;
    if (::write(signalPipe[1], &byte, 1) < 0)
        ::_exit(1);
}

void print(const QString &line)
{
    std::fputs(qPrintable(line + QLatin1Char('\n')), stdout);
    std::fflush(stdout);
}

int failed(const QString &what)
{
    std::fputs(qPrintable(QStringLiteral("qkv720-unit: %1\n").arg(what)), stderr);
    return 1;
}

QCommandLineOption option(const char *name, const char *text, const char *value, const char *standard = "")
{
    return {QLatin1String(name), QLatin1String(text), QLatin1String(value), QLatin1String(standard)};
}

void addOptions(QCommandLineParser &parser)
{
    parser.setApplicationDescription(QStringLiteral(
        "A stand-in for the QKV-720 chroma keyer, for rehearsals without the hardware. It is no real unit.\n"
        "While it runs it takes commands on standard input; \"help\" lists them."));
    parser.addHelpOption();
    parser.addOptions({
        option("address", "Answer here, TCP and UDP port 5002.", "IP"),
        option("name", "Host name.", "name"),
        option("mac", "MAC address.", "MAC"),
        {QStringLiteral("dhcp"), QStringLiteral("The record says that DHCP is on.")},
        option("mask", "Netmask.", "IP"),
        option("gateway", "Gateway.", "IP"),
        option("primary-dns", "Primary DNS server.", "IP"),
        option("secondary-dns", "Secondary DNS server.", "IP"),
        option("vendor", "Vendor identifier.", "hex", "0588"),
        option("product", "Product identifier.", "hex", "1501"),
        option("model", "Model name.", "text", "QKV-720"),
        option("firmware", "Firmware version.", "major.minor", "1.05"),
        option("fpga", "FPGA version.", "major.minor", "2.23"),
        option("loader", "Boot loader version.", "major.minor", "10.2a"),
        option("type", "Device type.", "hex", "40"),
        option("revision", "Revision: 0 is A, 1 is B.", "number", "0"),
        option("serial", "Answer on this serial device too; \"pty\" makes a pseudo-terminal.", "device"),
        option("serial-link", "Make this path a link to the pseudo-terminal.", "path"),
        {QStringLiteral("no-network"), QStringLiteral("No TCP link.")},
        {QStringLiteral("no-discovery"), QStringLiteral("No discovery over UDP.")},
        option("state", "Keep memories, values and network settings in this file.", "file"),
        option("fault", "A fault from the start; may be given again.", "fault"),
        option("log", "Append one JSON object per frame to this file.", "file"),
        {QStringLiteral("quiet"), QStringLiteral("No line per frame on standard output.")},
        option("adapter", "Give this adapter the new address after a restart.", "device"),
        option("restart-time", "How long a restart takes.", "ms", "1500"),
    });
}

QString setVersions(standin::Unit &unit, const QCommandLineParser &parser)
{
    const std::array<const char *, 3> names = {"firmware", "fpga", "loader"};
    for (const char *name : names) {
        const QStringList parts = parser.value(QLatin1String(name)).split(QLatin1Char('.'));
        bool major = false;
        bool minor = false;
        // The digits of a version are those of its bytes in hexadecimal.
        const int high = parts.first().toInt(&major, 16);
        const int low = parts.size() == 2 ? parts.at(1).toInt(&minor, 16) : 0;
        if (!major || !minor)
            return QStringLiteral("--%1 wants major.minor, such as 1.05").arg(QLatin1String(name));
        unit.setValue(standin::Version, QLatin1String(name) + QLatin1String("Major"), high);
        unit.setValue(standin::Version, QLatin1String(name) + QLatin1String("Minor"), low);
    }
    unit.setValue(standin::DeviceType, QStringLiteral("type"),
                  parser.value(QStringLiteral("type")).toInt(nullptr, 16));
    unit.setValue(standin::DeviceType, QStringLiteral("revision"),
                  parser.value(QStringLiteral("revision")).toInt());
    return {};
}

// The options go over what a state file holds, but only those that were given.
QString setNetwork(standin::NetworkSettings &settings, const QCommandLineParser &parser)
{
    const auto take = [&parser](const char *name, QHostAddress &to) {
        const QString key = QLatin1String(name);
        if (!parser.isSet(key))
            return true;
        to = QHostAddress(parser.value(key));
        return to.protocol() == QAbstractSocket::IPv4Protocol;
    };
    if (settings.address.isNull())
        settings.address = QHostAddress(QHostAddress::LocalHost);
    if (!take("address", settings.address) || !take("mask", settings.mask)
        || !take("gateway", settings.gateway) || !take("primary-dns", settings.primaryDns)
        || !take("secondary-dns", settings.secondaryDns))
        return QStringLiteral("an address is written as 192.168.1.10");
    if (parser.isSet(QStringLiteral("name")))
        settings.name = parser.value(QStringLiteral("name"));
    if (parser.isSet(QStringLiteral("dhcp")))
        settings.dhcp = true;
    if (parser.isSet(QStringLiteral("mac"))) {
        settings.mac = standin::NetworkSettings::macFromText(parser.value(QStringLiteral("mac")));
        if (settings.mac.isEmpty())
            return QStringLiteral("a MAC address is written as 00:50:C2:72:00:01");
    }
    settings.vendor = parser.value(QStringLiteral("vendor")).toInt(nullptr, 16);
    settings.product = parser.value(QStringLiteral("product")).toInt(nullptr, 16);
    settings.modelName = parser.value(QStringLiteral("model"));
    return {};
}

int prefixLengthOf(const QHostAddress &mask)
{
    int length = 0;
    for (quint32 bits = mask.toIPv4Address(); bits != 0; bits <<= 1U)
        ++length;
    return length;
}

QString prepare(standin::Appliance &appliance, const QCommandLineParser &parser)
{
    QString error;
    const QString stateFile = parser.value(QStringLiteral("state"));
    if (!stateFile.isEmpty() && !appliance.loadState(stateFile, &error))
        return error;
    error = setNetwork(appliance.discovery.settings, parser);
    if (error.isEmpty())
        error = setVersions(appliance.unit, parser);
    for (const QString &text : parser.values(QStringLiteral("fault"))) {
        int code = 0;
        standin::Fault fault;
        if (error.isEmpty())
            error = standin::parseFault(text, code, fault);
        if (error.isEmpty())
            appliance.unit.setFault(code, fault);
    }
    if (!error.isEmpty())
        return error;

    standin::Appliance::Options options;
    options.network = !parser.isSet(QStringLiteral("no-network"));
    options.discovery = !parser.isSet(QStringLiteral("no-discovery"));
    options.serial = parser.value(QStringLiteral("serial"));
    options.stateFile = stateFile;
    options.logFile = parser.value(QStringLiteral("log"));
    options.adapter = parser.value(QStringLiteral("adapter"));
    options.prefixLength = prefixLengthOf(appliance.discovery.settings.mask);
    options.restartMs = parser.value(QStringLiteral("restart-time")).toInt();
    appliance.start(options, &error);
    return error;
}

QString linkSerial(const standin::Appliance &appliance, const QString &path)
{
    if (path.isEmpty())
        return {};
    ::unlink(qPrintable(path));
    if (::symlink(qPrintable(appliance.serial.portName()), qPrintable(path)) != 0)
        return QStringLiteral("%1: the link can't be made").arg(path);
    return {};
}

void readCommands(standin::Console &console, QSocketNotifier &input)
{
    static QByteArray pending;
    std::array<char, 4096> buffer{};
    const ssize_t got = ::read(STDIN_FILENO, buffer.data(), buffer.size());
    if (got <= 0) {
        input.setEnabled(false); // no more commands; the unit goes on
        return;
    }
    pending.append(buffer.data(), static_cast<int>(got));
    for (int end = pending.indexOf('\n'); end >= 0; end = pending.indexOf('\n')) {
        const QString answer = console.execute(QString::fromLocal8Bit(pending.left(end)));
        pending.remove(0, end + 1);
        if (!answer.isEmpty())
            print(answer);
    }
    if (console.wantsQuit())
        QCoreApplication::quit();
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("qkv720-unit"));
    QCommandLineParser parser;
    addOptions(parser);
    parser.process(application);

    standin::Appliance appliance;
    QString error = prepare(appliance, parser);
    if (error.isEmpty())
        error = linkSerial(appliance, parser.value(QStringLiteral("serial-link")));
    if (!error.isEmpty())
        return failed(error);

    if (!parser.isSet(QStringLiteral("quiet"))) {
        QObject::connect(&appliance, &standin::Appliance::told, [](const QString &line) {
            print(QTime::currentTime().toString(QStringLiteral("HH:mm:ss.zzz ")) + line);
        });
    }
    print(QStringLiteral("Stand-in unit, no real hardware; %1").arg(appliance.whereabouts()));

    standin::Console console(appliance);
    QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, [&] { readCommands(console, input); });

    if (::pipe(signalPipe.data()) != 0)
        return failed(QStringLiteral("no pipe"));
    QSocketNotifier signalled(signalPipe[0], QSocketNotifier::Read);
    QObject::connect(&signalled, &QSocketNotifier::activated, &QCoreApplication::quit);
    std::signal(SIGINT, onSignal);
    std::signal(SIGTERM, onSignal);
    std::signal(SIGPIPE, SIG_IGN);

    const int result = QCoreApplication::exec();
    const QString link = parser.value(QStringLiteral("serial-link"));
    if (!link.isEmpty())
        ::unlink(qPrintable(link));
    return result;
}
