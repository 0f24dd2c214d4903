#include "ctl/fieldtext.h"

namespace ctl {

namespace {

bool same(const QString &left, const char *right)
{
    return left.compare(QLatin1String(right), Qt::CaseInsensitive) == 0;
}

const char *wordOf(const UnitField &field, qint64 value)
{
    const bool inRange = value >= field.least && value <= field.most;
    return field.words && inRange ? field.words[value - field.least] : nullptr;
}

} // namespace

QVector<const UnitFunction *> everyFunction()
{
    return functions::all() + QVector<const UnitFunction *>{&functions::auxMode};
}

const UnitFunction *functionNamed(const QString &name)
{
    for (const UnitFunction *function : everyFunction()) {
        if (same(name, function->name))
            return function;
    }
    return nullptr;
}

const UnitField *fieldNamed(const UnitFunction &function, const QString &name)
{
    for (const UnitField &field : function.fields) {
        if (same(name, field.name))
            return &field;
    }
    return nullptr;
}

QString valueText(const UnitField &field, qint64 value)
{
    if (const char *word = wordOf(field, value))
        return QLatin1String(word);
    const QString number = QString::number(value);
    return *field.unit ? number + QLatin1Char(' ') + QLatin1String(field.unit) : number;
}

QJsonValue valueJson(const UnitField &field, qint64 value)
{
    if (const char *word = wordOf(field, value))
        return QLatin1String(word);
    return value;
}

QString rangeText(const UnitField &field)
{
    if (!field.words)
        return QStringLiteral("%1 to %2").arg(field.least).arg(valueText(field, field.most));
    QString words;
    for (int value = field.least; value <= field.most; ++value) {
        if (value > field.least)
            words += value == field.most ? QStringLiteral(" or ") : QStringLiteral(", ");
        words += QLatin1String(wordOf(field, value));
    }
    return words;
}

bool parseValue(const UnitField &field, const QString &text, qint64 &value)
{
    for (int i = field.least; field.words && i <= field.most; ++i) {
        if (same(text, wordOf(field, i))) {
            value = i;
            return true;
        }
    }
    QString number = text;
    const QLatin1String unit(field.unit);
    if (unit.size() > 0 && number.endsWith(unit))
        number.chop(unit.size());
    bool isNumber = false;
    value = number.trimmed().toLongLong(&isNumber);
    return isNumber && value >= field.least && value <= field.most;
}

QString placeText(const UnitFunction &function, const UnitField &field)
{
    return QLatin1String(function.name) + QLatin1Char(' ') + QLatin1String(field.name);
}

} // namespace ctl
