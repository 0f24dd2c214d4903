#include "ctl/session.h"

#include "control/panelidentity.h"
#include "control/settingsfile.h"
#include "ctl/output.h"

#include <QFileInfo>
#include <QHostAddress>
#include <QHostInfo>
#include <QSettings>
#include <QStandardPaths>

namespace ctl {

namespace {

// The panel's own settings, where its launcher keeps them.
QString usualProfile()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)
        + QStringLiteral("/" ORG_NAME "/" APP_NAME "/" APP_NAME ".ini");
}

// The unit that the panel connected to last. An empty text is success.
QString readProfile(const QString &file, UnitPlace &place)
{
    constexpr int kLockWaitMs = 500;
    const QString advice = QStringLiteral("; name the unit with --host or --serial");
    if (!QFileInfo(file).isReadable())
        return QStringLiteral("%1 cannot be read").arg(file) + advice;
    if (findSettingsObstacle(file, kLockWaitMs).kind != SettingsObstacle::Nothing)
        return QStringLiteral("%1 is locked by another program").arg(file) + advice;
    const QSettings settings(file, QSettings::IniFormat);
    const auto value = [&settings](const char *key, const char *fallback = "") {
        return settings.value(QStringLiteral("connection/") + QLatin1String(key), QLatin1String(fallback))
            .toString();
    };
    place.method = value("interface", "1").toUInt() == kSerialLink ? kSerialLink : kNetworkLink;
    place.where = value(place.method == kSerialLink ? "serialport" : "ipaddress");
    if (place.where.isEmpty())
        return QStringLiteral("%1 holds no unit").arg(file) + advice;
    return {};
}

// The device class takes addresses alone. An empty text is success.
QString resolve(UnitPlace &place)
{
    if (place.method != kNetworkLink || !QHostAddress(place.where).isNull())
        return {};
    for (const QHostAddress &address : QHostInfo::fromName(place.where).addresses()) {
        if (address.protocol() == QAbstractSocket::IPv4Protocol) {
            place.where = address.toString();
            return {};
        }
    }
    return QStringLiteral("%1 is no address and no known name").arg(place.where);
}

} // namespace

ExitCode usage(const QString &sentence)
{
    complain(sentence);
    return Usage;
}

ExitCode Session::connect()
{
    UnitPlace place;
    if (!m_request.host.isEmpty()) {
        place = {kNetworkLink, m_request.host};
    } else if (!m_request.serial.isEmpty()) {
        place = {kSerialLink, m_request.serial};
    } else {
        const QString trouble =
            readProfile(m_request.profile.isEmpty() ? usualProfile() : m_request.profile, place);
        if (!trouble.isEmpty())
            return usage(trouble);
    }
    QString trouble = resolve(place);
    if (trouble.isEmpty()) {
        if (!m_link)
            m_link = std::make_unique<UnitLink>(m_request.timeoutMs, m_observer);
        trouble = m_link->connect(place);
    }
    if (trouble.isEmpty())
        return Done;
    complain(trouble);
    return NoLink;
}

ExitCode Session::report(ExitCode code) const
{
    if (code != Done)
        complain(m_link->reason());
    return code;
}

} // namespace ctl
