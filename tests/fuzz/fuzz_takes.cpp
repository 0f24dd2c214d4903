// Every reading of a reply: whatever bytes lie in it and wherever its record begins, the fields are what the wire
// format says of these bytes, no other field is touched, and what was read goes out again as it came.

#include "device/functions.h"
#include "tests/device/functiontable.h"
#include "tests/fuzz/world.h"

#include <QCoreApplication>

namespace {

// The tests' own table, by the function that fills it; written from the wire format.
QVector<FieldRow> rowsOf(const UnitFunction &function)
{
    const bool isAuxMode = &function == &functions::auxMode;
    for (const FunctionRow &row : allFunctions()) {
        if (row.getCode != function.getCode
            || (QLatin1String(row.name) == QLatin1String("aux mode")) != isAuxMode)
            continue;
        QVector<FieldRow> rows = row.fields;
        // The read of the key colour copies it to where the last sample is kept; that is the operation's doing.
        if (&function == &functions::backColour)
            rows.resize(4);
        return rows;
    }
    std::abort();
}

const QVector<QVector<FieldRow>> &rowsOfAll()
{
    static const QVector<QVector<FieldRow>> rows = [] {
        QVector<QVector<FieldRow>> made;
        for (const UnitFunction *function : functions::all())
            made.append(rowsOf(*function));
        return made;
    }();
    return rows;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static int argc = 1;
    static char name[] = "fuzz";
    static char *argv[] = {name, nullptr};
    static const QCoreApplication application(argc, argv);
    static qkv720 device;

    Script script(data, size);
    const auto &all = functions::all();
    const int index = static_cast<int>(script.byte()) % all.size();
    const UnitFunction &function = *all.at(index);
    constexpr int kBehindTheChain = 80;
    const int at = static_cast<int>(script.byte()) % kBehindTheChain;
    scramble(device, static_cast<int>(script.byte()));
    const QByteArray body = script.rest();

    Snapshot expected = snapshotOf(device);
    overlay(expected, rowsOfAll().at(index), body, at - kReplyData);
    function.take(device, ReplyBody(body), at);
    require(snapshotOf(device) == expected);

    // What a set would send of it is read back as the same, by the same function.
    if (function.set == nullptr)
        return 0;
    const QByteArray sent = function.payload(device).bytes();
    require(sent.size() == function.dataBytes);
    const Snapshot before = snapshotOf(device);
    function.take(device, ReplyBody(sent), 0);
    require(function.payload(device).bytes() == sent);
    require(snapshotOf(device) == before);
    return 0;
}
