#include "shell/logtext.h"

#include <QLoggingCategory>

namespace {

QtMessageHandler usualHandler = nullptr;

void writeEscaped(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    usualHandler(type, context, escapedForLog(text));
}

bool isHarmless(uint character)
{
    switch (QChar::category(character)) {
    case QChar::Other_Control:
    case QChar::Other_Format:
    case QChar::Other_Surrogate:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return false;
    default:
        return true;
    }
}

QString escaped(uint character)
{
    switch (character) {
    case '\n':
        return QStringLiteral("\\n");
    case '\r':
        return QStringLiteral("\\r");
    case '\t':
        return QStringLiteral("\\t");
    default:
        break;
    }
    const bool wide = character > 0xffff;
    return QStringLiteral("\\%1%2")
        .arg(QLatin1Char(wide ? 'U' : 'u'))
        .arg(character, wide ? 8 : 4, 16, QLatin1Char('0'));
}

} // namespace

QString escapedForLog(const QString &text)
{
    QString line;
    line.reserve(text.size());
    for (int i = 0; i < text.size(); ++i) {
        const bool pair =
            text.at(i).isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate();
        const uint character =
            pair ? QChar::surrogateToUcs4(text.at(i), text.at(i + 1)) : uint{text.at(i).unicode()};
        if (isHarmless(character))
            line += text.mid(i, pair ? 2 : 1);
        else
            line += escaped(character);
        if (pair)
            ++i;
    }
    return line;
}

void escapeLogLines()
{
    const QtMessageHandler before = qInstallMessageHandler(writeEscaped);
    if (before != writeEscaped) // called again, it would become its own usual handler
        usualHandler = before;
}
