#include "standin/networksettings.h"

#include <QRegularExpression>
#include <QStringList>

#include <array>

namespace standin {

QByteArray NetworkSettings::macFromText(const QString &text)
{
    static const QRegularExpression form(QStringLiteral("^([0-9A-Fa-f]{2}:){5}[0-9A-Fa-f]{2}$"));
    if (!form.match(text).hasMatch())
        return {};
    return QByteArray::fromHex(QString(text).remove(QLatin1Char(':')).toLatin1());
}

QHostAddress NetworkSettings::addressFromText(const QString &text)
{
    // The toolkit's own reader also takes "127.1", "10" and names of IPv6.
    static const QRegularExpression form(QStringLiteral("^([0-9]{1,3}\\.){3}[0-9]{1,3}$"));
    if (!form.match(text).hasMatch())
        return {};
    quint32 number = 0;
    for (const QString &part : text.split(QLatin1Char('.'))) {
        if (part.toInt() > 255)
            return {};
        number = (number << 8U) | part.toUInt();
    }
    return QHostAddress(number);
}

QHostAddress NetworkSettings::maskFromText(const QString &text)
{
    const QHostAddress mask = addressFromText(text);
    const quint32 zeros = ~mask.toIPv4Address();
    return (zeros & (zeros + 1U)) == 0 ? mask : QHostAddress();
}

QJsonObject NetworkSettings::toJson() const
{
    return {
        {QStringLiteral("dhcp"), dhcp},
        {QStringLiteral("name"), name},
        {QStringLiteral("mac"), QString::fromLatin1(mac.toHex(':').toUpper())},
        {QStringLiteral("address"), address.toString()},
        {QStringLiteral("nextAddress"), nextAddress.toString()},
        {QStringLiteral("mask"), mask.toString()},
        {QStringLiteral("gateway"), gateway.toString()},
        {QStringLiteral("primaryDns"), primaryDns.toString()},
        {QStringLiteral("secondaryDns"), secondaryDns.toString()},
    };
}

QString NetworkSettings::fromJson(const QJsonObject &json)
{
    NetworkSettings read = *this;
    const std::array<std::pair<const char *, QHostAddress *>, 6> addresses = {{
        {"address", &read.address},
        {"nextAddress", &read.nextAddress},
        {"mask", &read.mask},
        {"gateway", &read.gateway},
        {"primaryDns", &read.primaryDns},
        {"secondaryDns", &read.secondaryDns},
    }};
    for (const auto &[key, place] : addresses) {
        const QJsonValue value = json.value(QLatin1String(key));
        const QString text = value.toString();
        if (value.isUndefined() || (value.isString() && text.isEmpty()))
            continue; // an address that is not set is written as nothing
        *place = addressFromText(text);
        if (place->isNull())
            return QStringLiteral("network.%1 wants an address such as 192.168.1.10").arg(QLatin1String(key));
    }
    const QJsonValue flag = json.value(QStringLiteral("dhcp"));
    if (!flag.isUndefined() && !flag.isBool())
        return QStringLiteral("network.dhcp wants true or false");
    read.dhcp = flag.toBool(dhcp);
    const QJsonValue called = json.value(QStringLiteral("name"));
    if (!called.isUndefined() && !called.isString())
        return QStringLiteral("network.name wants a text");
    read.name = called.toString(name);
    const QJsonValue hardware = json.value(QStringLiteral("mac"));
    if (!hardware.isUndefined())
        read.mac = macFromText(hardware.toString());
    if (read.mac.isEmpty())
        return QStringLiteral("network.mac wants an address such as 00:50:C2:72:00:01");
    *this = read;
    return {};
}

} // namespace standin
