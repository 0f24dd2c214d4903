#include "device/functions.h"
#include "standin/functions.h"
#include "tests/device/devicebench.h"

// The table of functions, walked over the stand-in: every field read, set, read back and reset on both links.
class FunctionsTest : public QObject
{
    Q_OBJECT

private slots:
    void namesAreTheStandIns();
    void rangesHoldWords();
    void everyFieldHasItsOwnBytes();
    // Four cases, so that they run side by side.
    void walkKeyOnNetwork_data() { rows(0, kKeyFunctions); }
    void walkKeyOnNetwork() { walk(kNetworkLink); }
    void walkRestOnNetwork_data() { rows(kKeyFunctions, functions::all().size()); }
    void walkRestOnNetwork() { walk(kNetworkLink); }
    void walkKeyOnSerial_data() { rows(0, kKeyFunctions); }
    void walkKeyOnSerial() { walk(kSerialLink); }
    void walkRestOnSerial_data() { rows(kKeyFunctions, functions::all().size()); }
    void walkRestOnSerial() { walk(kSerialLink); }
    void theLastAnswer_data();
    void theLastAnswer();
    void theColourOf999();

private:
    static constexpr int kKeyFunctions = 10;
    static void rows(int first, int end);
    static void walk(uint method);
};

namespace {

using Values = QVector<qint64>;

Values valuesOf(const UnitFunction &function, const qkv720 &device)
{
    Values values;
    for (const UnitField &field : function.fields)
        values.append(field.read(device));
    return values;
}

void setAll(const UnitFunction &function, qkv720 &device, const Values &values)
{
    int i = 0;
    for (const UnitField &field : function.fields)
        field.write(device, values.at(i++));
}

bool isBit(const UnitField &field)
{
    return field.kind >= FieldKind::Bit0;
}

// The three bytes of flags have one name in the stand-in, where the panel has a field for each flag.
QString standInName(const UnitField &field)
{
    const QString name = QLatin1String(field.name);
    for (const char *shared : {"freeze", "lock", "mirror"}) {
        if (isBit(field) && name.startsWith(QLatin1String(shared)))
            return QLatin1String(shared);
    }
    return name;
}

// Values that differ from field to field and lie in its range: the least, the most, or one between.
enum Choice { Least, Most, Between };

Values chosen(const UnitFunction &function, Choice choice)
{
    Values values;
    int step = 3;
    for (const UnitField &field : function.fields) {
        qint64 value = choice == Least ? field.least : field.most;
        if (choice == Between)
            value = field.least + step++ % (field.most - field.least + 1);
        // Any other mode starts a search of some seconds, whose reply is a chain.
        if (&function == &functions::backColour && qstrcmp(field.name, "auto") == 0)
            value = 0;
        values.append(value);
    }
    return values;
}

QByteArray unitData(const support::UnitHost &host, int code)
{
    QByteArray data;
    const auto record = host.record();
    for (const standin::FrameRecord &frame : record) {
        if (frame.code == code)
            data = frame.payload;
    }
    return data;
}

} // namespace

void FunctionsTest::namesAreTheStandIns()
{
    QStringList missing;
    for (const standin::Function &theirs : standin::functions())
        missing.append(QLatin1String(theirs.name));
    for (const UnitFunction *function : functions::all()) {
        const standin::Function *theirs = standin::functionOf(function->getCode);
        QVERIFY2(theirs, function->name);
        QCOMPARE(QLatin1String(function->name), QLatin1String(theirs->name));
        missing.removeAll(QLatin1String(function->name));
        for (const UnitField &field : function->fields) {
            const QByteArray place = QByteArray(function->name) + ' ' + field.name;
            const QString name = standInName(field);
            QVERIFY2(standin::fieldOffset(*theirs, name) == field.at, place);
            const bool wide = field.kind == FieldKind::Word || field.kind == FieldKind::SignedWord;
            QVERIFY2(standin::fieldOf(*theirs, name)->width == (wide ? 2 : 1), place);
            QCOMPARE(function->field(field.name), &field); // so no name stands twice
        }
        QCOMPARE(function->dataBytes, standin::factoryRecord(*theirs).size());
    }
    // What carries no settings: it is recalled, or read once at the connect.
    QCOMPARE(missing, (QStringList{"MEMORY", "VERSION", "DEVICE_TYPE"}));
}

void FunctionsTest::rangesHoldWords()
{
    for (const UnitFunction *function : functions::all()) {
        for (const UnitField &field : function->fields) {
            const QByteArray place = QByteArray(function->name) + ' ' + field.name;
            QVERIFY2(field.least < field.most, place);
            for (int i = 0; field.words && i <= field.most - field.least; ++i)
                QVERIFY2(qstrlen(field.words[i]) > 0, place);
            QVERIFY2(field.words || field.most > 1, place); // whatever is on or off says so in words
        }
    }
}

void FunctionsTest::everyFieldHasItsOwnBytes()
{
    DeviceBench bench(kNetworkLink);
    qkv720 &device = *bench.device;
    for (const UnitFunction *function : functions::all()) {
        if (!function->set)
            continue;
        for (const UnitField &field : function->fields) {
            const QByteArray place = QByteArray(function->name) + ' ' + field.name;
            setAll(*function, device, Values(function->fields.count, 0));
            const QByteArray zeros = function->payload(device).bytes();
            QCOMPARE(zeros, QByteArray(function->dataBytes, '\0'));
            field.write(device, isBit(field) ? 1 : field.most);
            const QByteArray changed = function->payload(device).bytes();
            QCOMPARE(changed.size(), function->dataBytes);
            const bool wide = field.kind == FieldKind::Word || field.kind == FieldKind::SignedWord;
            for (int i = 0; i < changed.size(); ++i) {
                const bool own = i == field.at || (wide && i == field.at + 1);
                QVERIFY2(own || changed.at(i) == 0, place);
            }
            QVERIFY2(changed != zeros, place);
            // And no other field changed with it.
            const Values after = valuesOf(*function, device);
            QCOMPARE(after.count(0), function->fields.count - 1);
        }
    }
}

void FunctionsTest::rows(int first, int end)
{
    QTest::addColumn<int>("index");
    for (int i = first; i < end; ++i)
        QTest::newRow(functions::all().at(i)->name) << i;
}

void FunctionsTest::walk(uint method)
{
    QFETCH(int, index);
    const UnitFunction &function = *functions::all().at(index);
    DeviceBench bench(method);
    qkv720 &device = *bench.device;
    QVERIFY(bench.connectUnit());

    // Get: what the unit holds.
    QVERIFY(function.get);
    const standin::Function &theirs = *standin::functionOf(function.getCode);
    const QByteArray factory = standin::factoryRecord(theirs);
    setAll(function, device, Values(function.fields.count, 77));
    function.get(device, method);
    const QByteArray reply = QByteArray(kReplyData, '\0') + factory;
    qkv720 expected;
    const std::unique_ptr<HLNP> discovery(expected.hlnpObj);
    const std::unique_ptr<serialPort> serial(expected.serialObj);
    function.take(expected, ReplyBody(reply), kReplyData);
    QCOMPARE(valuesOf(function, device), valuesOf(function, expected));

    if (function.set) {
        for (const Choice choice : {Least, Most, Between}) {
            const Values wanted = chosen(function, choice);
            setAll(function, device, wanted);
            bench.host.clearRecord();
            function.set(device, method);
            QCOMPARE(unitData(bench.host, function.setCode()), function.payload(device).bytes());
            QCOMPARE(valuesOf(function, device), wanted);
            setAll(function, device, Values(function.fields.count, 77));
            function.get(device, method);
            QCOMPARE(valuesOf(function, device), wanted);
        }
    }
    if (function.reset) {
        bench.host.clearRecord();
        setAll(function, device, chosen(function, Least));
        function.reset(device, method);
        QCOMPARE(bench.host.count(function.setCode()), 1);
        const Values restored = valuesOf(function, device);
        function.get(device, method);
        QCOMPARE(restored, valuesOf(function, device));
        if (&function != &functions::spill) // its reset asks for a preset
            QCOMPARE(restored, valuesOf(function, expected));
    }
    QVERIFY(bench.broken.isEmpty());
}

void FunctionsTest::theLastAnswer_data()
{
    QTest::addColumn<uint>("method");
    QTest::newRow("network") << uint(kNetworkLink);
    QTest::newRow("serial link") << uint(kSerialLink);
}

void FunctionsTest::theLastAnswer()
{
    QFETCH(uint, method);
    DeviceBench bench(method);
    qkv720 &device = *bench.device;
    QCOMPARE(device.lastAnswer(), qkv720::Answer::None);
    QVERIFY(bench.connectUnit());
    QCOMPARE(device.lastAnswer(), qkv720::Answer::Reply);

    bench.host.setFault(standin::Shadow, standin::Fault::refuse(0x81));
    device.getCKShadow(method);
    QCOMPARE(device.lastAnswer(), qkv720::Answer::Refused);
    QCOMPARE(device.refusals(), 1);
    device.getCKBright(method);
    QCOMPARE(device.lastAnswer(), qkv720::Answer::Reply);
    QCOMPARE(device.refusals(), 1);
    // A whole frame with a right sum, but the answer to another command.
    bench.host.setFault(standin::Shadow, standin::Fault::answer(QByteArray::fromHex("0500513741ce")));
    device.getCKShadow(method);
    QCOMPARE(device.lastAnswer(), qkv720::Answer::Garbled);
    bench.host.setFault(standin::Shadow, standin::Fault::answer(QByteArray::fromHex("0600550163")));
    device.getCKShadow(method);
    QCOMPARE(device.lastAnswer(), method == kNetworkLink ? qkv720::Answer::Garbled : qkv720::Answer::None);
    bench.host.setFault(standin::Shadow, standin::Fault::silent());
    device.getCKShadow(method);
    QCOMPARE(device.lastAnswer(), qkv720::Answer::None);
    bench.host.clearFaults();
    device.isConnected = true;
    device.setBackColor(method, 1, 2, 3, 2); // the automatic key goes its own way on the serial link
    QCOMPARE(device.lastAnswer(), qkv720::Answer::Reply);
    // Without a link nothing is asked, and the last answer is no longer that of the exchange before.
    device.disconnectDevice(method);
    device.getCKShadow(method);
    QCOMPARE(device.lastAnswer(), qkv720::Answer::None);
}

// As arguments of the operation three times 999 ask for the colour seen last; as a row's values they are a colour.
void FunctionsTest::theColourOf999()
{
    DeviceBench bench(kNetworkLink);
    qkv720 &device = *bench.device;
    QVERIFY(bench.connectUnit());
    device.tempR = 5;
    device.ckBackColor.r = device.ckBackColor.g = device.ckBackColor.b = 999;
    functions::backColour.set(device, kNetworkLink);
    for (const char *name : {"red", "green", "blue"}) {
        int held = 0;
        bench.host.withUnit([&](standin::Unit &unit) { held = unit.value(standin::BackColour, name); });
        QCOMPARE(held, 999);
    }
}

QTEST_GUILESS_MAIN(FunctionsTest)
#include "tst_functions.moc"
