#include "device/functions.h"
#include "device/timing.h"
#include "discovery/hlnpwire.h"

#include <QFile>
#include <QtTest>

// docs/protocol.md prints the tables of codes, records, waits, ladders and datagrams. Each of its rows is
// formed here from the tables of the code and must stand on the page, and no other row of the same table may
// stand there.
class ProtocolPageTest : public QObject
{
    Q_OBJECT

private slots:
    void commands();
    void records();
    void words();
    void waits();
    void ladders();
    void datagrams();
};

namespace {

QString page()
{
    QFile file(QStringLiteral(QT_TESTCASE_SOURCEDIR "/../docs/protocol.md"));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QString row(const QStringList &cells)
{
    return QStringLiteral("| ") + cells.join(QStringLiteral(" | ")) + QStringLiteral(" |");
}

QString hex(int code)
{
    return QStringLiteral("%1").arg(code, 2, 16, QLatin1Char('0')).toUpper();
}

// Where the table with this heading differs from the rows wanted: the first row that does. Empty when it does
// not.
QString difference(const QStringList &heading, const QStringList &wanted)
{
    const QStringList lines = page().split(QLatin1Char('\n'));
    int at = lines.indexOf(row(heading));
    if (at < 0)
        return QStringLiteral("no table with the heading ") + row(heading);
    at += 2; // the heading and the line under it
    for (const QString &line : wanted) {
        if (lines.value(at) != line)
            return QStringLiteral("the page says\n%1\nand the code\n%2").arg(lines.value(at), line);
        ++at;
    }
    return lines.value(at).startsWith(QLatin1Char('|'))
        ? QStringLiteral("one row too many: ") + lines.value(at)
        : QString();
}

QString joinedMs(const RetryLadder &ladder)
{
    QStringList list;
    for (size_t i = 0; i < ladder.retries; ++i)
        list.append(QString::number(ladder.sleepsMs.at(i)));
    return list.join(QStringLiteral(", "));
}

// What stands in the wait's column: the ordinary wait, or both when a byte of the frame decides.
QString waitOf(int code, uint link)
{
    const unsigned long ordinary = link == kNetworkLink ? kNetworkDefaultMs : kSerialDefaultMs;
    for (const ReplyWait &wait : kReplyWaits) {
        const unsigned long other = link == kNetworkLink ? wait.networkMs : wait.serialMs;
        if (wait.command == code && other != ordinary)
            return QStringLiteral("%1 or %2").arg(ordinary).arg(other);
    }
    return QString::number(ordinary);
}

QString ladderOf(int code)
{
    if (code == QKV720_SET_CURSORPOSITION)
        return QStringLiteral("%1 on the network; %2")
            .arg(joinedMs(kNetworkCursorLadder), joinedMs(kStandardLadder));
    if (code == QKV720_SET_CK_BACKCOLOR_AUTOCK)
        return QStringLiteral("%1 on the network; %2")
            .arg(joinedMs(kNetworkKeyColorLadder), joinedMs(kStandardLadder));
    if (code == QKV720_GET_VIDEOIN_RESOLUTION)
        return joinedMs(kShortLadder);
    if (code == QKV720_GET_PGMPVW_OUTPUT)
        return QStringLiteral("%1 on the network; none").arg(joinedMs(kNetworkStatusLadder));
    if (code == QKV720_GET_FGBGAUX_INPUTSOURCE)
        return QStringLiteral("%1 on the network; %2")
            .arg(joinedMs(kNetworkStatusLadder), joinedMs(kShortLadder));
    if (code == QKV720_GET_VIDEOOUT_RESOLUTION)
        return joinedMs(kStandardLadder) + QStringLiteral("; in the first status as 61");
    return joinedMs(kStandardLadder);
}

QString commandRow(int code, const QString &name, const QString &payload, const QString &reply)
{
    // The reset of the key colour sends zeros, the mode among them, and is tried again as any other reset is.
    const bool ordinary = code == QKV720_SET_CK_BACKCOLOR_AUTOCK && name.startsWith(QLatin1String("reset"));
    const int like = ordinary ? int(QKV720_GET_CK_BACKCOLOR_AUTOCK) : code;
    return row({hex(code), name, payload, reply, waitOf(like, kNetworkLink), waitOf(like, kSerialLink),
                ladderOf(like)});
}

QString valuesOf(const UnitField &field)
{
    constexpr int kLongList = 10;
    if (!field.words)
        return QStringLiteral("%1 to %2 %3")
            .arg(field.least)
            .arg(field.most)
            .arg(QLatin1String(field.unit))
            .trimmed();
    const int count = field.most - field.least + 1;
    if (count > kLongList)
        return QStringLiteral("a standard");
    QStringList words;
    for (int i = 0; i < count; ++i)
        words.append(QStringLiteral("%1 %2").arg(field.least + i).arg(QLatin1String(field.words[i])));
    return words.join(QStringLiteral(", "));
}

QString kindOf(FieldKind kind)
{
    switch (kind) {
    case FieldKind::Byte:
        return QStringLiteral("byte");
    case FieldKind::Word:
        return QStringLiteral("two bytes");
    case FieldKind::SignedWord:
        return QStringLiteral("two bytes, signed");
    case FieldKind::FlagIsOne:
        return QStringLiteral("flag, on when 1");
    case FieldKind::FlagIsSet:
        return QStringLiteral("flag, on when not 0");
    case FieldKind::FlagIsPositive:
        return QStringLiteral("flag, on when 1 to 127");
    case FieldKind::Bit0:
    case FieldKind::Bit1:
    case FieldKind::Bit2:
    case FieldKind::Bit3:
        return QStringLiteral("bit %1").arg(static_cast<int>(kind) - static_cast<int>(FieldKind::Bit0));
    }
    return QString();
}

QVector<const UnitFunction *> allRecords()
{
    QVector<const UnitFunction *> list = functions::all();
    list.insert(list.indexOf(&functions::backgroundBlur) + 1, &functions::auxMode);
    return list;
}

QString bytes(int count)
{
    return count == 0 ? QStringLiteral("none") : QString::number(count);
}

} // namespace

void ProtocolPageTest::commands()
{
    QStringList wanted;
    for (const UnitFunction *function : allRecords()) {
        const QString name = QLatin1String(function->name);
        if (function != &functions::auxMode)
            wanted.append(commandRow(function->getCode, QStringLiteral("read ") + name, bytes(0),
                                     bytes(function->dataBytes)));
    }
    wanted.append(
        commandRow(QKV720_GET_MEMORY, QStringLiteral("recall MEMORY"), bytes(1), QStringLiteral("not read")));
    wanted.append(commandRow(QKV720_GET_VERSION, QStringLiteral("read VERSION"), bytes(0), bytes(6)));
    wanted.append(commandRow(QKV720_GET_DEVICETYPE, QStringLiteral("read DEVICE_TYPE"), bytes(0),
                             QStringLiteral("not read")));
    for (const UnitFunction *function : allRecords()) {
        const QString name = QLatin1String(function->name);
        if (function == &functions::cursor)
            wanted.append(
                commandRow(function->setCode(), QStringLiteral("place CURSOR"), bytes(5), bytes(11)));
        else if (function->set)
            wanted.append(
                commandRow(function->setCode(), QStringLiteral("set ") + name, bytes(function->dataBytes),
                           function == &functions::backColour ? QStringLiteral("automatic key: a chain")
                                                              : QStringLiteral("not read")));
        if (function->reset)
            wanted.append(commandRow(function->setCode(), QStringLiteral("reset ") + name,
                                     function->resetBytes == 0 ? bytes(0)
                                         : function == &functions::spill
                                         ? QStringLiteral("%1, the last a preset").arg(function->resetBytes)
                                         : QStringLiteral("%1 zeros").arg(function->resetBytes),
                                     bytes(function->dataBytes)));
    }
    wanted.append(
        commandRow(QKV720_SET_MEMORY, QStringLiteral("save MEMORY"), bytes(1), QStringLiteral("not read")));
    wanted.append(commandRow(QKV720_SAVESETUP, QStringLiteral("store the setup"), bytes(0),
                             QStringLiteral("not read")));
    const QString found = difference({"Code", "Command", "Payload", "Reply's data", "Wait, network",
                                      "Wait, serial", "Sleeps between attempts"},
                                     wanted);
    QVERIFY2(found.isEmpty(), qPrintable(found));
}

void ProtocolPageTest::records()
{
    QStringList wanted;
    for (const UnitFunction *function : allRecords()) {
        for (const UnitField &field : function->fields)
            wanted.append(
                row({QLatin1String(function->name), QLatin1String(field.name),
                     function->set ? QStringLiteral("P%1").arg(field.at) : QStringLiteral("none"),
                     QStringLiteral("R%1").arg(field.at + kReplyData), kindOf(field.kind), valuesOf(field)}));
    }
    const QString found = difference({"Record", "Field", "Payload", "Reply", "Form", "Values"}, wanted);
    QVERIFY2(found.isEmpty(), qPrintable(found));
}

void ProtocolPageTest::words()
{
    QStringList wanted;
    const UnitField *standard = functions::outputStandard.field("standard");
    QVERIFY(standard);
    for (int i = 0; i <= standard->most; ++i)
        wanted.append(row({QString::number(i), QLatin1String(standard->words[i])}));
    const QString found = difference({"Code", "Standard"}, wanted);
    QVERIFY2(found.isEmpty(), qPrintable(found));
}

void ProtocolPageTest::waits()
{
    QStringList wanted;
    for (const ReplyWait &wait : kReplyWaits) {
        wanted.append(row({hex(wait.command),
                           wait.testedFromEnd == kChecksum ? QStringLiteral("the checksum")
                                                           : QStringLiteral("the last byte of the payload"),
                           QString::number(wait.networkMs), QString::number(kNetworkDefaultMs),
                           QString::number(wait.serialMs), QString::number(kSerialDefaultMs)}));
    }
    wanted.append(
        row({"any other", "none", QString::number(kNetworkDefaultMs), QString::number(kNetworkDefaultMs),
             QString::number(kSerialDefaultMs), QString::number(kSerialDefaultMs)}));
    const QString found = difference(
        {"Code", "Decided by", "Network, not 0", "Network, 0", "Serial, not 0", "Serial, 0"}, wanted);
    QVERIFY2(found.isEmpty(), qPrintable(found));
    QVERIFY(page().contains(QStringLiteral("%1 ms, once").arg(kSerialAutoKeyMs)));
    QVERIFY(page().contains(QStringLiteral("%1 writes at once").arg(kNetworkWrites)));
    QVERIFY(page().contains(QStringLiteral("sleeps of %1, %2 and %3 ms")
                                .arg(kSerialWriteSleepsMs.at(0))
                                .arg(kSerialWriteSleepsMs.at(1))
                                .arg(kSerialWriteSleepsMs.at(2))));
}

void ProtocolPageTest::ladders()
{
    const auto ladder = [](const char *name, const RetryLadder &which) {
        return row({QLatin1String(name), QString::number(which.retries + 1), joinedMs(which)});
    };
    const QString found = difference({"Ladder", "Attempts", "Sleeps between them, ms"},
                                     {ladder("standard", kStandardLadder),
                                      ladder("first status, network", kNetworkStatusLadder),
                                      ladder("first status, serial, and input standards", kShortLadder),
                                      ladder("cursor, network", kNetworkCursorLadder),
                                      ladder("key colour, network", kNetworkKeyColorLadder)});
    QVERIFY2(found.isEmpty(), qPrintable(found));
}

void ProtocolPageTest::datagrams()
{
    QStringList wanted;
    for (const HlnpWire::Command &command : HlnpWire::kCommands) {
        const QString keyword = QLatin1String(command.keyword);
        if (keyword.isEmpty())
            continue; // never sent
        const bool toAll = command.type == HlnpWire::ToAll;
        const int mac = toAll && command.code != HlnpWire::EthReq ? 6 : 0;
        const int value = command.length - 4 - mac - keyword.size();
        wanted.append(
            row({hex(command.code), keyword, hex(command.type), QString::number(command.length),
                 mac ? QStringLiteral("4-9") : QStringLiteral("none"),
                 QStringLiteral("%1-%2").arg(4 + mac).arg(3 + mac + keyword.size()),
                 value == 0 ? QStringLiteral("none")
                     : value == 1
                     ? QString::number(command.length - 1)
                     : QStringLiteral("%1-%2").arg(command.length - value).arg(command.length - 1)}));
    }
    const QString found =
        difference({"Code", "Keyword", "Type", "Length", "MAC", "Keyword's bytes", "Value's bytes"}, wanted);
    QVERIFY2(found.isEmpty(), qPrintable(found));
}

QTEST_GUILESS_MAIN(ProtocolPageTest)
#include "tst_protocolpage.moc"
