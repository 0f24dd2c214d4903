#include "discovery/hlnp.h"

#include "discovery/hlnpstate.h"
#include "discovery/hlnpwire.h"

#include <QDebug>

#include <algorithm>

namespace {

bool holds(const QString &text, const char *part)
{
    return text.contains(QLatin1String(part), Qt::CaseInsensitive);
}

bool isQkv720(const hlnp_network_info &network)
{
    return network.vid == QLatin1String("0588") && holds(network.pid, "1501");
}

} // namespace

bool seriesCompare(hlnp_device_info lhs, hlnp_device_info rhs)
{
    const bool result = lhs.series < rhs.series;
    qDebug() << "IP Compare:" << QString::number(lhs.series) << QString::number(rhs.series) << result;
    return result;
}

bool findTMX500(QString hostname)
{
    const bool found = holds(hostname, "tmx") && holds(hostname, "500");
    qDebug() << "Is it TMX500:" << hostname << ": " << (found ? "YES" : "NO");
    return found;
}

bool findSwitcher(QString hostname)
{
    // The last test takes in the others.
    return holds(hostname, "RV-2410") || holds(hostname, "RV-130") || holds(hostname, "RV-150")
        || holds(hostname, "RV-6410") || holds(hostname, "RV");
}

bool findCamera(QString hostname, QString macaddr)
{
    if (holds(macaddr, "02:7E:31:"))
        return true;
    qDebug() << "Is it PTZ:" << hostname;
    const bool isOther = holds(hostname, "RV-2410") || (holds(hostname, "tmx") && holds(hostname, "500"))
        || holds(hostname, "mu");
    return !isOther;
}

bool findQKV(QString hostname, QString macaddr)
{
    qDebug() << "Is it QKV720:" << hostname << macaddr;
    return holds(hostname, "qkv720") || (holds(hostname, "qkv") && holds(hostname, "720"));
}

QString HLNP::checkMachineModelNameInfo(QByteArray buffer)
{
    const QString mac = HlnpWire::macText(buffer, HlnpWire::MacAt);
    QString model = QStringLiteral("2410");
    if (mac.contains(QLatin1String("02:5C:A7:08")))
        model = QStringLiteral("130");
    else if (mac.contains(QLatin1String("02:5C:A7:07"))
             && HlnpWire::byteAt(buffer, HlnpWire::MacAt + 4) >= 0x80)
        model = QStringLiteral("150");
    qDebug() << "ModelMacAddress=" << mac;
    qDebug() << "Model : " << model;
    return model;
}

QHostAddress HLNP::getDeviceIP(int index)
{
    if (index < 0 || index >= kAllDeviceRows)
        return QHostAddress();
    return QHostAddress(allHlnpDevice[index].zcm.hlnpnetwork.ipadd);
}

QStringList HLNP::qkvDeviceList() const
{
    return qkvList;
}

void HLNP::forgetNetwork(hlnp_network_info &network)
{
    const QString fwver = network.fwver;
    network = hlnp_network_info();
    network.fwver = fwver;
}

void HLNP::emptyTables()
{
    const auto emptyRow = [](hlnp_device_info &row) {
        forgetNetwork(row.zcm.hlnpnetwork);
        row.series = 0;
        row.zcm.cameraModel.clear();
        row.zcm.exist = false;
    };
    qkvindex = 0;
    allHlnpindex = 0;
    deviceCount = 0;
    qkvList.clear();
    for (hlnp_device_info &row : allHlnpDevice)
        emptyRow(row);
    for (hlnp_device_info &row : qkvDevice)
        emptyRow(row);
}

void HLNP::onZcmScanDone()
{
    qDebug() << "Sorting Beginning numbers:" << deviceCount;
    std::sort(allHlnpDevice, allHlnpDevice + deviceCount, seriesCompare);
    for (int i = 0; i < deviceCount && !allHlnpDevice[i].zcm.hlnpnetwork.ipadd.isEmpty(); ++i) {
        const hlnp_network_info &network = allHlnpDevice[i].zcm.hlnpnetwork;
        if (!isQkv720(network))
            continue;
        qDebug() << "This is QKV720";
        if (qkvindex >= kQkvDeviceRows)
            continue; // no row is left: the unit stays out of the list too, whose indexes are rows
        qkvDevice[qkvindex] = allHlnpDevice[i];
        qkvList.append(network.ipadd);
        ++qkvindex;
    }
    qDebug() << "onZCMScanDone total: " << qkvList.size();
}
