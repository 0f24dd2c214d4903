#pragma once

#include <QFile>
#include <QImage>
#include <QProcess>
#include <QString>
#include <QTemporaryDir>
#include <QtEndian>

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
                        QStringLiteral("tcp"), QStringLiteral("-noreset"), QStringLiteral("-fbdir"),
                        m_frameFolder.path()});
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

    // What the display shows now. The server keeps it in a file: a header of words, most significant byte first, a
    // list of colours of twelve bytes each, and the rows.
    QImage picture() const
    {
        enum Word { HeaderSize = 0, Width = 4, Height = 5, BytesPerLine = 12, Colours = 19 };
        QFile file(m_frameFolder.filePath(QStringLiteral("Xvfb_screen0")));
        if (!file.open(QIODevice::ReadOnly))
            return {};
        const QByteArray bytes = file.readAll();
        const auto word = [&bytes](int place) {
            return bytes.size() < 4 * (place + 1) ? 0 : qFromBigEndian<qint32>(bytes.constData() + 4 * place);
        };
        const int start = word(HeaderSize) + 12 * word(Colours);
        if (word(Height) <= 0 || bytes.size() < start + word(BytesPerLine) * word(Height))
            return {};
        const auto *rows = reinterpret_cast<const uchar *>(bytes.constData()) + start;
        return QImage(rows, word(Width), word(Height), word(BytesPerLine), QImage::Format_RGB32).copy();
    }

private:
    static constexpr int kStartMs = 20000;
    QTemporaryDir m_frameFolder;
    QProcess m_server;
    QString m_name;
};

} // namespace support
