#include "ctl/show.h"

#include "ctl/fieldtext.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QSaveFile>

#include <cmath>

namespace ctl {

namespace {

const QLatin1String kFormat("qkv720-show");

QByteArray quoted(const QString &text)
{
    const QByteArray list = QJsonDocument(QJsonArray{text}).toJson(QJsonDocument::Compact);
    return list.mid(1, list.size() - 2);
}

// As it stands in the file: a number with a unit is a text.
QByteArray written(const UnitField &field, qint64 value)
{
    return field.words || *field.unit ? quoted(valueText(field, value)) : QByteArray::number(value);
}

// The text that parseValue takes; empty for what is neither a text nor a whole number.
QString textOf(const QJsonValue &value)
{
    const double number = value.toDouble();
    if (value.isDouble() && std::floor(number) == number)
        return QString::number(number, 'f', 0);
    return value.toString();
}

QString noShow(const QString &file, const QString &why)
{
    return QStringLiteral("%1: %2").arg(file, why);
}

QJsonObject fieldSchema(const UnitField &field)
{
    if (!field.words && !*field.unit)
        return {{"type", "integer"}, {"minimum", field.least}, {"maximum", field.most}};
    if (!field.words)
        return {{"type", "string"},
                {"description", rangeText(field)},
                {"pattern", QStringLiteral("^-?[0-9]+ %1$").arg(QLatin1String(field.unit))}};
    QJsonArray words;
    for (int value = field.least; value <= field.most; ++value)
        words.append(valueText(field, value));
    return {{"enum", words}};
}

QJsonObject objectSchema(const QJsonObject &properties, const QJsonArray &required = {})
{
    QJsonObject schema = {{"type", "object"}, {"properties", properties}, {"additionalProperties", false}};
    if (!required.isEmpty())
        schema.insert("required", required);
    return schema;
}

} // namespace

QVector<const UnitFunction *> Show::functions()
{
    QVector<const UnitFunction *> list;
    for (const UnitFunction *function : functions::all()) {
        if (function->set)
            list.append(function);
    }
    return list;
}

QVector<const UnitFunction *> Show::sendingOrder()
{
    QVector<const UnitFunction *> list = functions();
    for (const UnitFunction *first : {&functions::outputStandard, &functions::inputSelection}) {
        list.removeOne(first);
        list.prepend(first);
    }
    list.removeOne(&functions::outputRouting);
    list.append(&functions::outputRouting);
    return list;
}

bool Show::isSetting(const UnitFunction &function, const UnitField &field)
{
    return &function != &functions::backColour || &field != function.field("auto");
}

Show Show::of(const UnitLink &link, QStringList *odd)
{
    Show show;
    const qkv720 &unit = link.unit();
    show.m_unit = {{QStringLiteral("address"), link.place().where},
                   {QStringLiteral("firmware"), unit.getFWVersion()},
                   {QStringLiteral("fpga"), unit.getFPGAVersion()},
                   {QStringLiteral("bootLoader"), unit.getBLVersion()}};
    show.m_saved = QDateTime::currentDateTimeUtc();
    for (const UnitFunction *function : functions()) {
        for (const UnitField &field : function->fields) {
            const qint64 value = field.read(unit);
            if (value >= field.least && value <= field.most)
                show.m_values.insert(&field, value);
            else
                odd->append(QStringLiteral("%1 holds %2, outside of %3; it is left out")
                                .arg(placeText(*function, field))
                                .arg(value)
                                .arg(rangeText(field)));
        }
    }
    return show;
}

QByteArray Show::text() const
{
    QByteArray text = "{\n    \"format\": " + quoted(kFormat)
        + ",\n    \"version\": " + QByteArray::number(kVersion) + ",\n    \"unit\": {";
    const char *between = "\n";
    for (const auto &fact : m_unit) {
        text += between + QByteArray("        ") + quoted(fact.first) + ": " + quoted(fact.second);
        between = ",\n";
    }
    text += "\n    },\n    \"saved\": " + quoted(m_saved.toString(Qt::ISODate)) + ",\n    \"functions\": {";
    between = "\n";
    for (const UnitFunction *function : functions()) {
        if (!has(*function))
            continue;
        text += between + QByteArray("        ") + quoted(QLatin1String(function->name)) + ": {";
        between = "\n";
        for (const UnitField &field : function->fields) {
            if (!m_values.contains(&field))
                continue;
            text += between + QByteArray("            ") + quoted(QLatin1String(field.name)) + ": "
                + written(field, m_values.value(&field));
            between = ",\n";
        }
        text += "\n        }";
        between = ",\n";
    }
    return text + "\n    }\n}\n";
}

QString Show::save(const QString &file) const
{
    QSaveFile out(file);
    const QByteArray content = text();
    if (!out.open(QIODevice::WriteOnly) || out.write(content) != content.size() || !out.commit())
        return noShow(file, out.errorString());
    return {};
}

QString Show::load(const QString &file)
{
    constexpr qint64 kLargest = 0x100000; // 1 MiB
    QFile in(file);
    if (!in.open(QIODevice::ReadOnly))
        return noShow(file, in.errorString());
    QJsonParseError error{};
    const QJsonDocument document = QJsonDocument::fromJson(in.read(kLargest), &error);
    if (error.error != QJsonParseError::NoError)
        return noShow(file,
                      QStringLiteral("no JSON, at byte %1: %2").arg(error.offset).arg(error.errorString()));
    const QString trouble = take(document.object());
    return trouble.isEmpty() ? trouble : noShow(file, trouble);
}

QString Show::take(const QJsonObject &root)
{
    if (root.value("format").toString() != kFormat)
        return QStringLiteral("no show file");
    if (root.value("version") != QJsonValue(kVersion))
        return QStringLiteral("a show file of version %1, and this program reads version %2")
            .arg(textOf(root.value("version")))
            .arg(kVersion);
    for (const QString &key : root.keys()) {
        if (!QStringList{"format", "version", "unit", "saved", "functions"}.contains(key))
            return QStringLiteral("%1 is no part of a show file").arg(key);
    }
    if (!root.value("functions").isObject())
        return QStringLiteral("it holds no functions");
    const QJsonObject all = root.value("functions").toObject();
    for (const QString &name : all.keys()) {
        const UnitFunction *function = functionNamed(name);
        if (!function || !functions().contains(function))
            return QStringLiteral("%1 is no function of a show").arg(name);
        if (!all.value(name).isObject())
            return QStringLiteral("%1 holds no fields").arg(name);
        QString trouble = takeFields(*function, all.value(name).toObject());
        if (!trouble.isEmpty())
            return trouble;
    }
    return {};
}

QString Show::takeFields(const UnitFunction &function, const QJsonObject &fields)
{
    for (const QString &name : fields.keys()) {
        const UnitField *field = fieldNamed(function, name);
        if (!field)
            return QStringLiteral("%1 has no field %2").arg(QLatin1String(function.name), name);
        qint64 value = 0;
        if (!parseValue(*field, textOf(fields.value(name)), value))
            return QStringLiteral("%1 takes %2").arg(placeText(function, *field), rangeText(*field));
        m_values.insert(field, value);
    }
    return {};
}

bool Show::has(const UnitFunction &function) const
{
    for (const UnitField &field : function.fields) {
        if (m_values.contains(&field))
            return true;
    }
    return false;
}

std::optional<qint64> Show::value(const UnitField &field) const
{
    const auto found = m_values.constFind(&field);
    return found == m_values.constEnd() ? std::nullopt : std::optional<qint64>(*found);
}

void Show::keep(const QVector<const UnitFunction *> &wanted)
{
    for (const UnitFunction *function : functions()) {
        for (const UnitField &field : function->fields) {
            if (!wanted.contains(function))
                m_values.remove(&field);
        }
    }
}

QVector<Difference> differences(const Show &left, const Show &right)
{
    QVector<Difference> list;
    for (const UnitFunction *function : Show::functions()) {
        for (const UnitField &field : function->fields) {
            const std::optional<qint64> one = left.value(field);
            const std::optional<qint64> other = right.value(field);
            if (one && other && *one != *other && Show::isSetting(*function, field))
                list.append({function, &field, *one, *other});
        }
    }
    return list;
}

QJsonObject Show::schema()
{
    QJsonObject all;
    for (const UnitFunction *function : functions()) {
        QJsonObject fields;
        for (const UnitField &field : function->fields)
            fields.insert(QLatin1String(field.name), fieldSchema(field));
        all.insert(QLatin1String(function->name), objectSchema(fields));
    }
    const QJsonObject text = {{"type", "string"}};
    QJsonObject root = objectSchema(
        {{"format", QJsonObject{{"const", QString(kFormat)}}},
         {"version", QJsonObject{{"const", kVersion}}},
         {"unit",
          objectSchema({{"address", text}, {"firmware", text}, {"fpga", text}, {"bootLoader", text}})},
         {"saved", QJsonObject{{"type", "string"}, {"format", "date-time"}}},
         {"functions", objectSchema(all)}},
        {"format", "version", "functions"});
    root.insert("$schema", "https://json-schema.org/draft/2020-12/schema");
    root.insert("title", "The look of a QKV-720, as qkv720ctl saves it");
    return root;
}

} // namespace ctl
