// What the unit shows of itself as text: one line per frame, and the state file.

#include "standin/discoverycodes.h"
#include "standin/unit.h"

#include <QJsonArray>
#include <QStringList>

namespace standin {

namespace {

QJsonObject recordToJson(const Function &function, const QByteArray &record)
{
    QJsonObject values;
    int at = 0;
    for (const Field &field : function.fields) {
        values.insert(QLatin1String(field.name), readField(field, record, at));
        at += field.width;
    }
    return values;
}

QByteArray recordFromJson(const Function &function, const QJsonObject &values, QByteArray record)
{
    int at = 0;
    for (const Field &field : function.fields) {
        const QJsonValue value = values.value(QLatin1String(field.name));
        if (value.isDouble())
            writeField(field, record, at, value.toInt());
        at += field.width;
    }
    return record;
}

QJsonObject recordsToJson(const QMap<int, QByteArray> &records)
{
    QJsonObject json;
    for (auto it = records.cbegin(); it != records.cend(); ++it) {
        const Function *function = functionOf(it.key());
        if (function && function->use == Function::Setting)
            json.insert(QLatin1String(function->name), recordToJson(*function, it.value()));
    }
    return json;
}

void recordsFromJson(const QJsonObject &json, QMap<int, QByteArray> &records)
{
    for (const Function &function : functions()) {
        const QJsonValue values = json.value(QLatin1String(function.name));
        if (function.use == Function::Setting && values.isObject())
            records[function.code] =
                recordFromJson(function, values.toObject(), records.value(function.code));
    }
}

} // namespace

QString FrameRecord::name() const
{
    if (link == LinkKind::Discovery)
        return discoveryName(code & 0xFF);
    const QString plain = codeName(code);
    return isExtended() && plain.startsWith(QLatin1String("SET_")) ? QStringLiteral("RE") + plain : plain;
}

QString FrameRecord::describe() const
{
    QStringList words{name()};
    const QString hex = QString::fromLatin1(raw.toHex(' '));
    const Function *function = link == LinkKind::Discovery ? nullptr : functionOf(code);
    if (link != LinkKind::Discovery && !wellFormed)
        words.append(QStringLiteral("malformed ") + hex);
    else if (!checksumGood)
        words.append(QStringLiteral("bad checksum ") + hex);
    else if (function)
        words.append(describeRecord(*function, payload));
    else
        words.append(QString::fromLatin1(payload.toHex(' ')));
    words.removeAll(QString());
    if (reply.isEmpty())
        words.append(QStringLiteral("(no reply)"));
    return words.join(QLatin1Char(' '));
}

QJsonObject FrameRecord::toJson() const
{
    QJsonObject json{
        {QStringLiteral("ns"), static_cast<double>(ns)},
        {QStringLiteral("link"), linkName(link)},
        {QStringLiteral("name"), name()},
        {QStringLiteral("code"), code},
        {QStringLiteral("ext"), ext},
        {QStringLiteral("good"), wellFormed && checksumGood},
        {QStringLiteral("raw"), QString::fromLatin1(raw.toHex(' '))},
        {QStringLiteral("reply"), QString::fromLatin1(reply.toHex(' '))},
    };
    const Function *function = link == LinkKind::Discovery ? nullptr : functionOf(code);
    if (function && !payload.isEmpty())
        json.insert(QStringLiteral("values"), describeRecord(*function, payload));
    return json;
}

QJsonObject Unit::toJson() const
{
    QJsonArray saved;
    for (const auto &memory : memories)
        saved.append(recordsToJson(memory));
    return {{QStringLiteral("present"), recordsToJson(records)}, {QStringLiteral("memories"), saved}};
}

void Unit::fromJson(const QJsonObject &json)
{
    recordsFromJson(json.value(QStringLiteral("present")).toObject(), records);
    const QJsonArray saved = json.value(QStringLiteral("memories")).toArray();
    for (int i = 0; i < MemoryCount && i < saved.size(); ++i)
        recordsFromJson(saved.at(i).toObject(), memories.at(static_cast<size_t>(i)));
    detectInputs();
}

} // namespace standin
