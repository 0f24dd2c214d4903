#include "standin/options.h"

#include "standin/console.h"
#include "standin/faulttext.h"

#include <QNetworkInterface>

#include <array>

namespace standin {

namespace {

constexpr int kLongestModel = 45; // what is left of the 50 bytes that a panel reads of a datagram
constexpr int kLongestMs = 600000;

QCommandLineOption option(const char *name, const char *text, const char *value = "",
                          const char *standard = "")
{
    const QString usual = QLatin1String(standard);
    const QString what = QLatin1String(text);
    return {QLatin1String(name), usual.isEmpty() ? what : QStringLiteral("%1 [%2]").arg(what, usual),
            QLatin1String(value), usual};
}

// "--mask 255.0.255.0: not understood; a netmask is written as 255.255.255.0"
QString wrong(const char *name, const QString &given, const QString &form)
{
    return QStringLiteral("--%1 %2: not understood; %3").arg(QLatin1String(name), given, form);
}

// Counts on in the last three bytes; the maker's own stay.
QByteArray macOfNumber(const QByteArray &first, int number)
{
    QByteArray mac = first;
    for (int at = mac.size() - 1; at >= 3 && number > 0; --at) {
        number += static_cast<quint8>(mac.at(at));
        mac[at] = static_cast<char>(number & 0xFF);
        number >>= 8;
    }
    return mac;
}

bool isHostAddress(const QHostAddress &address)
{
    return !address.isNull() && address != QHostAddress(QHostAddress::AnyIPv4) && !address.isMulticast()
        && !address.isBroadcast();
}

} // namespace

Options::Options()
{
    parser.setApplicationDescription(QStringLiteral(
        "A stand-in for the QKV-720 chroma keyer, for rehearsals without the hardware. It is no real unit."));
    parser.addOptions({
        {{QStringLiteral("h"), QStringLiteral("help")}, QStringLiteral("Print this and end.")},
        {{QStringLiteral("v"), QStringLiteral("version")}, QStringLiteral("Print the version and end.")},
        option("address", "Answer here, TCP and UDP port 5002 [127.0.0.1].", "IP"),
        option("units", "So many units in this process, at this address and those that follow it.", "number",
               "1"),
        option("name", "Host name, at most 16 bytes; several units get -1, -2 ... behind it [QKV720].",
               "name"),
        option("mac", "MAC address; several units count on from it [00:50:C2:72:00:01].", "MAC"),
        option("dhcp", "The network record says that DHCP is on."),
        option("mask", "Netmask [255.255.255.0].", "IP"),
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
        option("no-network", "No TCP link."),
        option("no-discovery", "No discovery over UDP."),
        option("state", "Keep memories, values and network settings in this file; a second unit's is FILE.2.",
               "file"),
        option("fault", "A fault from the start, such as \"SET_DARK silent 3\"; may be given again.",
               "fault"),
        option("log", "Append one JSON object per frame to this file.", "file"),
        option("quiet", "No line per frame on standard output."),
        option("key-time", "How long an automatic key takes.", "ms", "1200"),
        option("format-time", "How long a change of the output format takes.", "ms", "500"),
        option("restart-time", "How long a restart takes.", "ms", "1500"),
        option("adapter", "Give this adapter the new address after a restart.", "device"),
    });
}

QString Options::help() const
{
    return parser.helpText() + QStringLiteral("\nIn brackets what holds where nothing is given.\n")
        + QStringLiteral("While it runs it takes these words on standard input:\n") + Console::help();
}

QString Options::read(const QStringList &arguments)
{
    if (!parser.parse(arguments)) {
        const QString text = parser.errorText();
        return text.left(1).toLower() + text.mid(1);
    }
    if (wantsHelp() || wantsVersion())
        return {};
    if (!parser.positionalArguments().isEmpty())
        return QStringLiteral("%1: no such option; options begin with --, and --help lists them")
            .arg(parser.positionalArguments().first());
    QStringList seen;
    for (const QString &name : parser.optionNames()) {
        if (seen.contains(name) && name != QLatin1String("fault"))
            return QStringLiteral("--%1 is given twice").arg(name);
        seen.append(name);
    }
    using Reader = QString (Options::*)();
    for (Reader reader :
         {&Options::readUnits, &Options::readNetwork, &Options::readIdentifiers, &Options::readVersions,
          &Options::readTimes, &Options::readFiles, &Options::readFaults}) {
        QString error = (this->*reader)();
        if (!error.isEmpty())
            return error;
    }
    return {};
}

QString Options::readUnits()
{
    if (!numberFromText(value("units"), 1, MostUnits, units))
        return wrong("units", value("units"),
                     QStringLiteral("a process holds from 1 to %1 units").arg(MostUnits));
    for (const char *name : {"serial", "serial-link", "adapter"}) {
        if (units > 1 && isSet(name))
            return QStringLiteral("--%1 goes with one unit only, not with --units %2")
                .arg(QLatin1String(name))
                .arg(units);
    }
    return {};
}

QString Options::readNetwork()
{
    const std::array<std::pair<const char *, std::optional<QHostAddress> *>, 5> places = {{
        {"address", &address},
        {"mask", &mask},
        {"gateway", &gateway},
        {"primary-dns", &primaryDns},
        {"secondary-dns", &secondaryDns},
    }};
    for (const auto &[name, place] : places) {
        if (!isSet(name))
            continue;
        *place = NetworkSettings::addressFromText(value(name));
        if ((*place)->isNull())
            return wrong(name, value(name), QStringLiteral("an address is written as 192.168.1.10"));
    }
    if (address && !isHostAddress(*address))
        return wrong("address", value("address"), QStringLiteral("a unit has an address of its own"));
    if (mask && NetworkSettings::maskFromText(value("mask")).isNull())
        return wrong("mask", value("mask"), QStringLiteral("a netmask is written as 255.255.255.0"));
    const int last = (address ? *address : QHostAddress(QHostAddress::LocalHost)).toIPv4Address() & 0xFFU;
    if (last + units - 1 > 254)
        return QStringLiteral("--units %1: so many addresses do not follow %2; the last may end in .254")
            .arg(units)
            .arg(address ? address->toString() : QStringLiteral("127.0.0.1"));

    const QString name = isSet("name") ? value("name") : NetworkSettings().name;
    const QString longest = units > 1 ? QStringLiteral("%1-%2").arg(name).arg(units) : name;
    if (longest.toUtf8().size() > NetworkSettings::NameBytes)
        return QStringLiteral("--name %1: a host name has at most %2 bytes")
            .arg(longest)
            .arg(NetworkSettings::NameBytes);
    mac = NetworkSettings::macFromText(value("mac"));
    if (isSet("mac") && mac.isEmpty())
        return wrong("mac", value("mac"), QStringLiteral("a MAC address is written as 00:50:C2:72:00:01"));
    return {};
}

QString Options::readIdentifiers()
{
    const std::array<std::pair<const char *, int *>, 2> places = {
        {{"vendor", &vendor}, {"product", &product}}};
    for (const auto &[name, place] : places) {
        if (!hexFromText(value(name), 0xFFFF, *place))
            return wrong(name, value(name), QStringLiteral("it is hexadecimal, from 0 to FFFF"));
    }
    const QString model = value("model");
    if (model.size() > kLongestModel || QString::fromLatin1(model.toLatin1()) != model)
        return QStringLiteral("--model %1: a model name has at most %2 Latin letters")
            .arg(model)
            .arg(kLongestModel);
    int type = 0;
    int revision = 0;
    if (!hexFromText(value("type"), 0xFF, type))
        return wrong("type", value("type"), QStringLiteral("it is hexadecimal, from 0 to FF"));
    if (!numberFromText(value("revision"), 0, 255, revision))
        return wrong("revision", value("revision"), QStringLiteral("it is a number from 0 to 255"));
    deviceType = QByteArray(1, static_cast<char>(type)) + static_cast<char>(revision);
    return {};
}

QString Options::readVersions()
{
    for (const char *name : {"firmware", "fpga", "loader"}) {
        const QStringList parts = value(name).split(QLatin1Char('.'));
        int major = 0;
        int minor = 0;
        // The digits of a version are those of its bytes in hexadecimal.
        if (parts.size() != 2 || !hexFromText(parts.at(0), 0xFF, major)
            || !hexFromText(parts.at(1), 0xFF, minor))
            return wrong(name, value(name),
                         QStringLiteral("a version is written as 1.05, each part from 0 to FF"));
        versions.append(static_cast<char>(major));
        versions.append(static_cast<char>(minor));
    }
    return {};
}

QString Options::readTimes()
{
    const std::array<std::pair<const char *, int *>, 3> places = {{
        {"key-time", &setup.pace.automaticKeyMs},
        {"format-time", &setup.pace.formatMs},
        {"restart-time", &setup.restartMs},
    }};
    for (const auto &[name, place] : places) {
        if (!numberFromText(value(name), 0, kLongestMs, *place))
            return wrong(name, value(name),
                         QStringLiteral("a time is from 0 to %1 milliseconds").arg(kLongestMs));
    }
    return {};
}

QString Options::readFiles()
{
    const std::array<std::pair<const char *, QString *>, 5> places = {{
        {"serial", &setup.serial},
        {"serial-link", &setup.serialLink},
        {"state", &setup.stateFile},
        {"log", &setup.logFile},
        {"adapter", &setup.adapter},
    }};
    for (const auto &[name, place] : places) {
        *place = value(name);
        if (isSet(name) && place->isEmpty())
            return QStringLiteral("--%1 wants a name behind it").arg(QLatin1String(name));
    }
    if (isSet("serial-link") && setup.serial != QLatin1String("pty"))
        return QStringLiteral("--serial-link goes with --serial pty");
    if (isSet("adapter") && !QNetworkInterface::interfaceFromName(setup.adapter).isValid())
        return QStringLiteral("--adapter %1: this machine has no such adapter").arg(setup.adapter);
    setup.network = !isSet("no-network");
    setup.discovery = !isSet("no-discovery");
    if (!setup.network && !setup.discovery && setup.serial.isEmpty())
        return QStringLiteral("--no-network and --no-discovery leave no link; --serial would be one");
    return {};
}

QString Options::readFaults()
{
    for (const QString &text : parser.values(QStringLiteral("fault"))) {
        int code = 0;
        Fault fault;
        const QString error = parseFault(text, code, fault);
        if (!error.isEmpty())
            return QStringLiteral("--fault: ") + error;
        faults.append({code, fault});
    }
    return {};
}

void Options::applyNetwork(NetworkSettings &settings, int number) const
{
    const auto take = [](const std::optional<QHostAddress> &given, QHostAddress &place) {
        if (given)
            place = *given;
    };
    take(mask, settings.mask);
    take(gateway, settings.gateway);
    take(primaryDns, settings.primaryDns);
    take(secondaryDns, settings.secondaryDns);
    settings.dhcp = settings.dhcp || isSet("dhcp");
    settings.vendor = vendor;
    settings.product = product;
    settings.modelName = value("model");
    if (!mac.isEmpty())
        settings.mac = mac;
    if (isSet("name"))
        settings.name = value("name");
    take(address, settings.address);
    if (settings.address.isNull())
        settings.address = QHostAddress(QHostAddress::LocalHost);
    if (units == 1)
        return;
    // In a crowd each has its place by its number, whatever its state file says.
    const NetworkSettings standard;
    const QHostAddress first = address ? *address : QHostAddress(QHostAddress::LocalHost);
    settings.address = QHostAddress(first.toIPv4Address() + static_cast<quint32>(number));
    settings.mac = macOfNumber(mac.isEmpty() ? standard.mac : mac, number);
    settings.name =
        QStringLiteral("%1-%2").arg(isSet("name") ? value("name") : standard.name).arg(number + 1);
}

QString Options::start(Appliance &appliance, int number) const
{
    Appliance::Setup own = setup;
    if (number > 0 && !own.stateFile.isEmpty())
        own.stateFile += QStringLiteral(".%1").arg(number + 1);
    QString error;
    if (!own.stateFile.isEmpty() && !appliance.loadState(own.stateFile, &error))
        return error;
    applyNetwork(appliance.discovery.settings, number);
    own.prefixLength = static_cast<int>(qPopulationCount(appliance.discovery.settings.mask.toIPv4Address()));
    appliance.unit.setData(Version, versions);
    appliance.unit.setData(DeviceType, deviceType);
    for (const auto &[code, fault] : faults)
        appliance.unit.setFault(code, fault);
    appliance.start(own, &error);
    return error;
}

} // namespace standin
