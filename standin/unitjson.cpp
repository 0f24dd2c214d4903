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

// The object behind a key, empty when the key isn't there; anything else behind it is an error.
QJsonObject objectOf(const QJsonValue &value, const QString &place, QString &error)
{
    if (error.isEmpty() && !value.isUndefined() && !value.isObject())
        error = QStringLiteral("%1 is no object").arg(place);
    return value.toObject();
}

// A whole number in a range; anything else is an error.
int numberOf(const QJsonValue &value, int least, int most, const QString &place, QString &error)
{
    constexpr int kNoNumber = -99999; // below everything that a field can hold
    const int number = value.toInt(kNoNumber);
    if (error.isEmpty() && (number < least || number > most))
        error = QStringLiteral("%1 wants a whole number from %2 to %3").arg(place).arg(least).arg(most);
    return number;
}

void recordFromJson(const Function &function, const QJsonObject &values, const QString &place,
                    QByteArray &record, QString &error)
{
    for (auto it = values.begin(); it != values.end(); ++it) {
        const QString where = QStringLiteral("%1.%2").arg(place, it.key());
        const Field *field = fieldOf(function, it.key());
        if (!field) {
            error = QStringLiteral("%1 is no value of this unit").arg(where);
            return;
        }
        const int value = numberOf(it.value(), lowest(*field), highest(*field), where, error);
        writeField(*field, record, fieldOffset(function, it.key()), value);
    }
}

void recordsFromJson(const QJsonObject &json, const QString &place, QMap<int, QByteArray> &records,
                     QString &error)
{
    for (auto it = json.begin(); it != json.end() && error.isEmpty(); ++it) {
        const QString where = QStringLiteral("%1.%2").arg(place, it.key());
        const Function *function = functionNamed(it.key());
        if (!function || function->use != Function::Setting) {
            error = QStringLiteral("%1 is no function that this unit keeps").arg(where);
            return;
        }
        const QJsonObject values = objectOf(it.value(), where, error);
        recordFromJson(*function, values, where, records[function->code], error);
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

int FrameRecord::refusal() const
{
    constexpr int kNack = 0x15;
    if (link == LinkKind::Discovery)
        return reply.size() == 5 && reply.at(4) == kNack ? kNack : 0;
    const QByteArray body = link == LinkKind::Network ? reply.mid(2) : reply;
    return body.size() == 3 && body.at(0) == 2 ? static_cast<quint8>(body.at(1)) : 0;
}

QString FrameRecord::values() const
{
    const Function *function = link == LinkKind::Discovery ? nullptr : functionOf(code);
    if (!function)
        return QString::fromLatin1(payload.toHex(' '));
    // What a reset sends is filler; what it brought back is worth telling.
    if (name().startsWith(QLatin1String("RESET_")))
        return restored.isEmpty() ? QStringLiteral("restored nothing")
                                  : QStringLiteral("restored ") + describeRecord(*function, restored);
    return describeRecord(*function, payload);
}

QString FrameRecord::describe() const
{
    QStringList words{name()};
    const QString hex = QString::fromLatin1(raw.toHex(' '));
    if (!wellFormed)
        words.append(QStringLiteral("malformed ") + hex);
    else if (!checksumGood)
        words.append(QStringLiteral("bad checksum ") + hex);
    else
        words.append(values());
    words.removeAll(QString());
    if (!oddLength.isEmpty())
        words.append(QStringLiteral("(%1)").arg(oddLength));
    if (refusal() != 0)
        words.append(QStringLiteral("(refused %1)").arg(refusal(), 2, 16, QLatin1Char('0')));
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
    const bool isCommand = link != LinkKind::Discovery && functionOf(code);
    if (isCommand && wellFormed && checksumGood && !values().isEmpty())
        json.insert(QStringLiteral("values"), values());
    if (!oddLength.isEmpty())
        json.insert(QStringLiteral("oddLength"), oddLength);
    return json;
}

QJsonObject Unit::toJson() const
{
    QJsonArray saved;
    for (const auto &memory : memories)
        saved.append(recordsToJson(memory));
    QJsonArray standards;
    for (int standard : connectors)
        standards.append(standard);
    return {{QStringLiteral("present"), recordsToJson(records)},
            {QStringLiteral("memories"), saved},
            {QStringLiteral("connectors"), standards}};
}

QString Unit::fromJson(const QJsonObject &json)
{
    QString error;
    const auto listOf = [&json, &error](const char *key, int most) {
        const QJsonValue value = json.value(QLatin1String(key));
        const bool isList = value.isUndefined() || (value.isArray() && value.toArray().size() <= most);
        if (error.isEmpty() && !isList)
            error = QStringLiteral("%1 is no list of %2 or fewer").arg(QLatin1String(key)).arg(most);
        return value.toArray();
    };
    Records present = records;
    const QString presentKey = QStringLiteral("present");
    recordsFromJson(objectOf(json.value(presentKey), presentKey, error), presentKey, present, error);

    std::array<Records, MemoryCount> kept = memories;
    const QJsonArray saved = listOf("memories", MemoryCount);
    for (int i = 0; i < saved.size() && error.isEmpty(); ++i) {
        const QString place = QStringLiteral("memories[%1]").arg(i);
        recordsFromJson(objectOf(saved.at(i), place, error), place, kept.at(static_cast<size_t>(i)), error);
    }

    std::array<int, ConnectorCount> standards = connectors;
    const QJsonArray connected = listOf("connectors", ConnectorCount);
    for (int i = 0; i < connected.size() && error.isEmpty(); ++i)
        standards.at(static_cast<size_t>(i)) =
            numberOf(connected.at(i), 0, HighestStandard, QStringLiteral("connectors[%1]").arg(i), error);

    if (!error.isEmpty())
        return error;
    records = present;
    memories = kept;
    connectors = standards;
    detectInputs();
    return {};
}

} // namespace standin
