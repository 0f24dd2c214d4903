#include "tests/device/matrix/operations.h"

#include "tests/device/functiontable.h"

namespace matrix {

namespace {

using Step = PanelModel::Step;

Step stepOf(const char *serialFrame)
{
    const QByteArray frame = QByteArray::fromHex(serialFrame);
    return {wireByte(frame, 2), frame.mid(3, frame.size() - 4), wireByte(frame, 1)};
}

// What the get of these three hands out: the fields, or what stood there before.
QString handedOut(PanelModel &panel, const QVector<FieldRow> &rows, bool taken)
{
    QStringList values;
    for (const FieldRow &row : rows)
        values += taken ? panel.fields.value(QString::fromLatin1(row.name)) : QStringLiteral("7");
    return values.join(QLatin1Char(' '));
}

QString callAngle(qkv720 &d, uint method)
{
    uint l = 7;
    uint r = 7;
    d.getCKAngle(method, &l, &r);
    return QStringLiteral("%1 %2").arg(l).arg(r);
}

QString callLevels(qkv720 &d, uint method)
{
    uint b = 7;
    uint w = 7;
    bool m = false;
    d.getCKBWLevel(method, &b, &w, &m);
    return QStringLiteral("%1 %2").arg(b).arg(w);
}

QString callDark(qkv720 &d, uint method)
{
    bool enable = false;
    uint level = 7;
    uint density = 7;
    uint balance = 7;
    d.getCKDark(method, &enable, &level, &density, &balance);
    return QStringLiteral("%1 %2").arg(level).arg(density);
}

void appendGet(QVector<Operation> &all, const FunctionRow &row)
{
    const QString name = QStringLiteral("get ") + QLatin1String(row.name);
    const QVector<FieldRow> rows = row.fields;
    const int code = row.getCode;
    const auto expect = [rows, code](PanelModel &panel) {
        const auto reply = panel.exchange({code});
        if (reply)
            panel.take(rows, *reply);
        return reply.has_value();
    };
    const QMap<int, QPair<QString (*)(qkv720 &, uint), QVector<FieldRow>>> handsOut = {
        {0x51, {callAngle, rows}}, {0x52, {callLevels, rows.mid(0, 2)}}, {0x53, {callDark, rows.mid(1, 2)}}};
    if (handsOut.contains(code)) {
        const auto special = handsOut.value(code);
        all.append({name, code, false, special.first, [expect, special](PanelModel &panel) {
                        const bool taken = expect(panel);
                        return handedOut(panel, special.second, taken);
                    }});
        return;
    }
    all.append({name, code, false,
                [call = row.get](qkv720 &d, uint method) {
                    call(d, method);
                    return QString();
                },
                [expect](PanelModel &panel) {
                    expect(panel);
                    return QString();
                }});
}

void appendSet(QVector<Operation> &all, const FunctionRow &row)
{
    const SetRow set = row.sets.first();
    const Step step = stepOf(set.frame);
    all.append({QStringLiteral("set ") + QLatin1String(row.name), step.code, false,
                [call = set.call](qkv720 &d, uint method) {
                    call(d, method);
                    return QString();
                },
                [row, set, step](PanelModel &panel) {
                    panel.fields = afterSet(panel.fields, row, set);
                    panel.exchange(step);
                    return QString();
                }});
}

void appendReset(QVector<Operation> &all, const FunctionRow &row)
{
    const ResetRow reset = row.resets.first();
    const Step step = stepOf(reset.frame);
    all.append({QStringLiteral("reset ") + QLatin1String(row.name), step.code, false,
                [call = reset.call](qkv720 &d, uint method) {
                    call(d, method);
                    return QString();
                },
                [fields = row.fields, step](PanelModel &panel) {
                    const auto reply = panel.exchange(step);
                    if (reply)
                        panel.take(fields, *reply);
                    return QString();
                }});
}

// Functions whose get is an operation of its own, below.
bool isReadOtherwise(int code)
{
    return code == 0x5D || (code >= 0x60 && code <= 0x63);
}

void appendFunctions(QVector<Operation> &all)
{
    for (const FunctionRow &row : allFunctions()) {
        if (!isReadOtherwise(row.getCode))
            appendGet(all, row);
        if (!row.sets.isEmpty())
            appendSet(all, row);
        if (!row.resets.isEmpty())
            appendReset(all, row);
    }
    // The set of the output standard above has a sum of 0; this one waits long.
    for (const FunctionRow &row : allFunctions()) {
        if (row.getCode != 0x60)
            continue;
        FunctionRow slow = row;
        slow.sets.removeFirst();
        slow.name = "output standard, another";
        appendSet(all, slow);
    }
}

void appendStatus(QVector<Operation> &all, const std::function<QString()> &target)
{
    for (const int code : {0x6C, 0x6F, 0x63, 0x60, 0x61, 0x62}) {
        all.append({QStringLiteral("connect, at %1").arg(code, 0, 16), code, true,
                    [target](qkv720 &d, uint method) { return d.connectDevice(method, target()); },
                    [](PanelModel &panel) { return panel.connect(); }});
    }
    for (const int code : {0x63, 0x60, 0x61, 0x62}) {
        all.append({QStringLiteral("refresh status, at %1").arg(code, 0, 16), code, false,
                    [](qkv720 &d, uint method) { return d.refreshStatus(method); },
                    [](PanelModel &panel) { return panel.refreshStatus(); }});
    }
    all.append({QStringLiteral("refresh input standards"), 0x62, false,
                [](qkv720 &d, uint method) { return d.refreshVideoInRes(method); },
                [](PanelModel &panel) { return panel.refreshInputs(); }});
    all.append({QStringLiteral("get output standard"), 0x60, false,
                [](qkv720 &d, uint method) {
                    d.getVideoOut(method);
                    return QString();
                },
                [](PanelModel &panel) {
                    if (!panel.mayAsk())
                        return QString();
                    const auto reply = panel.ladderAndLength({0x60});
                    if (reply)
                        panel.take(rowsOf(0x60), *reply);
                    else
                        panel.setFlag(false); // without a signal
                    return QString();
                }});
}

void appendKeyColour(QVector<Operation> &all)
{
    constexpr int kX = 0x1234;
    constexpr int kY = 0x0201;
    all.append({QStringLiteral("set cursor"), 0xDD, false,
                [](qkv720 &d, uint method) {
                    const qkv720_cursor cursor = d.setCursor(method, 3, kX, kY);
                    return QStringLiteral("%1 %2").arg(cursor.xy.x()).arg(cursor.xy.y());
                },
                [](PanelModel &panel) {
                    QString result;
                    panel.setCursor(QByteArray::fromHex("0334120102"), kX, kY, &result);
                    return result;
                }});
    all.append({QStringLiteral("get cursor"), 0x5D, false,
                [](qkv720 &d, uint method) {
                    d.getCursor(method);
                    return QString();
                },
                [](PanelModel &panel) {
                    panel.getCursor();
                    return QString();
                }});
    for (const char mode : {'\0', '\1', '\2', '\3'}) {
        all.append({QStringLiteral("set key colour, mode %1").arg(int(mode)), 0xD0, false,
                    [mode](qkv720 &d, uint method) {
                        d.setBackColor(method, 1, 0x0203, 1000, static_cast<uint>(mode));
                        return QString();
                    },
                    [mode](PanelModel &panel) {
                        panel.fields.insert(QStringLiteral("ckBackColor.r"), QStringLiteral("1"));
                        panel.fields.insert(QStringLiteral("ckBackColor.g"), QStringLiteral("515"));
                        panel.fields.insert(QStringLiteral("ckBackColor.b"), QStringLiteral("1000"));
                        panel.setKeyColour(QByteArray::fromHex("01000302e803") + mode);
                        return QString();
                    }});
    }
}

void appendMemory(QVector<Operation> &all)
{
    for (const int code : {0x64, 0x63, 0x62}) {
        all.append({QStringLiteral("load memory, at %1").arg(code, 0, 16), code, false,
                    [](qkv720 &d, uint method) {
                        d.loadMemory(method, 3);
                        return QString();
                    },
                    [](PanelModel &panel) {
                        if (panel.exchange({0x64, QByteArray(1, '\3')}))
                            panel.refreshStatus();
                        return QString();
                    }});
    }
    all.append({QStringLiteral("save memory"), 0xE4, false,
                [](qkv720 &d, uint method) {
                    d.saveMemory(method, 3);
                    return QString();
                },
                [](PanelModel &panel) {
                    panel.exchange({0xE4, QByteArray(1, '\3')});
                    return QString();
                }});
    for (const int code : {0xE5, 0x63}) {
        all.append({QStringLiteral("save setup, at %1").arg(code, 0, 16), code, false,
                    [](qkv720 &d, uint method) {
                        d.saveSetup(method);
                        return QString();
                    },
                    [](PanelModel &panel) {
                        panel.saveSetup();
                        return QString();
                    }});
    }
}

// The transports are public too.
void appendTransport(QVector<Operation> &all)
{
    all.append({QStringLiteral("one attempt"), 0x51, false,
                [](qkv720 &d, uint method) {
                    QByteArray frame = onLink(method, bodyOf(0x51, {}));
                    QByteArray received;
                    const int result =
                        method == kNetwork ? d.hlnpIO(&frame, &received) : d.serialIO(&frame, &received);
                    return QStringLiteral("%1 %2").arg(result).arg(QString::fromLatin1(received.toHex()));
                },
                [](PanelModel &panel) {
                    const auto attempt = panel.attempt({0x51});
                    return QStringLiteral("%1 %2")
                        .arg(attempt.result)
                        .arg(QString::fromLatin1(attempt.received.toHex()));
                }});
}

} // namespace

QVector<Operation> allOperations(const std::function<QString()> &target)
{
    QVector<Operation> all;
    appendFunctions(all);
    appendStatus(all, target);
    appendKeyColour(all);
    appendMemory(all);
    appendTransport(all);
    return all;
}

} // namespace matrix
