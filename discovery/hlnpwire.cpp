#include "discovery/hlnpwire.h"

#include <QStringList>

QString Hex_to_Char(unsigned char dt)
{
    static const char digits[] = "0123456789ABCDEF";
    return dt <= 0x0F ? QString(QLatin1Char(digits[dt])) : QString();
}

unsigned char Char_to_Hex(unsigned char *dt)
{
    const unsigned char c = *dt;
    if (c >= '0' && c <= '9')
        return static_cast<unsigned char>(c - '0');
    if (c >= 'A' && c <= 'F')
        return static_cast<unsigned char>(c - 'A' + 10);
    if (c >= 'a' && c <= 'f')
        return static_cast<unsigned char>(c - 'a' + 10);
    return 0xFF;
}

namespace HlnpWire {

namespace {

QByteArray partBytes(const QString &text, const QString &separator, int base)
{
    QByteArray bytes;
    const QStringList parts = text.split(separator);
    for (const QString &part : parts)
        bytes.append(static_cast<char>(part.toInt(nullptr, base) & 0xFF));
    return bytes;
}

QString twoDigits(unsigned char value)
{
    return Hex_to_Char(static_cast<unsigned char>(value >> 4)) + Hex_to_Char(value & 0x0F);
}

} // namespace

const Command *commandOf(unsigned char code)
{
    for (const Command &command : kCommands) {
        if (command.code == code)
            return &command;
    }
    return nullptr;
}

QByteArray request(unsigned char code, const QByteArray &mac, const QByteArray &value)
{
    const Command *command = commandOf(code);
    QByteArray datagram;
    if (!command)
        return datagram;
    datagram.append(static_cast<char>((command->length >> 8) & 0xFF));
    datagram.append(static_cast<char>(command->length & 0xFF));
    datagram.append(static_cast<char>(command->type));
    datagram.append(static_cast<char>(command->code));
    return datagram + mac + command->keyword + value;
}

int lengthField(const QByteArray &buffer)
{
    return byteAt(buffer, 0) << 8 | byteAt(buffer, 1);
}

unsigned char byteAt(const QByteArray &buffer, int at)
{
    return at < buffer.size() ? static_cast<unsigned char>(buffer.at(at)) : static_cast<unsigned char>(0);
}

bool isMac(const QString &text)
{
    return text.split(QStringLiteral(":")).size() == 6;
}

bool isAddress(const QString &text)
{
    return text.split(QStringLiteral(".")).size() == 4;
}

QByteArray macBytes(const QString &text)
{
    return partBytes(text, QStringLiteral(":"), 16);
}

QByteArray addressBytes(const QString &text)
{
    return partBytes(text, QStringLiteral("."), 10);
}

QByteArray nameField(const QString &name)
{
    const QString cut = name.left(kHostNameBytes - 1);
    return cut.toUtf8() + QByteArray(kHostNameBytes - cut.size(), '\0');
}

QString macText(const QByteArray &buffer, int at)
{
    QStringList groups;
    for (int i = 0; i < 6; ++i)
        groups.append(twoDigits(byteAt(buffer, at + i)));
    return groups.join(QStringLiteral(":"));
}

QString addressText(const QByteArray &buffer, int at)
{
    QStringList octets;
    for (int i = 0; i < 4; ++i)
        octets.append(QString::number(byteAt(buffer, at + i)));
    return octets.join(QStringLiteral("."));
}

QString identifierText(const QByteArray &buffer, int at)
{
    return twoDigits(byteAt(buffer, at)) + twoDigits(byteAt(buffer, at + 1));
}

QString textUpToZero(const QByteArray &buffer, int at, int most)
{
    const QByteArray field = buffer.mid(at, most);
    const int end = field.indexOf('\0');
    return QString::fromUtf8(end < 0 ? field : field.left(end));
}

bool isUsableAdapterAddress(const QString &text)
{
    const QStringList parts = text.split(QStringLiteral("."));
    return parts.size() == 4 && parts.first() != QLatin1String("169")
        && parts.first() != QLatin1String("127");
}

} // namespace HlnpWire
