#pragma once

#include <QProcess>
#include <QString>

namespace support {

// A display of the test's own in the size of the panel's window, without a window manager.
class VirtualDisplay
{
public:
    VirtualDisplay()
    {
        m_server.start(QStringLiteral("Xvfb"),
                       {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-screen"),
                        QStringLiteral("0"), QStringLiteral("1366x768x24"), QStringLiteral("-nolisten"),
                        QStringLiteral("tcp")});
        while (!m_server.canReadLine() && m_server.waitForReadyRead(kStartMs)) { }
        const QString number = QString::fromLatin1(m_server.readLine()).trimmed();
        m_name = number.isEmpty() ? number : QLatin1Char(':') + number;
    }
    ~VirtualDisplay()
    {
        m_server.terminate();
        m_server.waitForFinished(5000);
    }
    VirtualDisplay(const VirtualDisplay &) = delete;
    VirtualDisplay &operator=(const VirtualDisplay &) = delete;

    bool isGood() const { return !m_name.isEmpty(); }
    QString name() const { return m_name; } // ":7", as DISPLAY has it

private:
    static constexpr int kStartMs = 20000;
    QProcess m_server;
    QString m_name;
};

} // namespace support
