#include "tests/device/devicebench.h"
#include "tests/device/functiontable.h"
#include "tests/support/checked.h"
#include "tests/support/stopwatch.h"

#include <algorithm>

// Every operation of the function table on both links, against a stand-in unit.
class OperationsTest : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void setsOnNetwork_data() { setRows(); }
    void setsOnNetwork() { set(kNetworkLink); }
    void setsOnSerial_data() { setRows(); }
    void setsOnSerial() { set(kSerialLink); }
    void getsOnNetwork_data() { getRows(); }
    void getsOnNetwork() { get(kNetworkLink); }
    void getsOnSerial_data() { getRows(); }
    void getsOnSerial() { get(kSerialLink); }
    void resetsOnNetwork_data() { resetRows(); }
    void resetsOnNetwork() { reset(kNetworkLink); }
    void resetsOnSerial_data() { resetRows(); }
    void resetsOnSerial() { reset(kSerialLink); }
    void setsOnDeadNetworkChangeTheState_data() { setRows(); }
    void setsOnDeadNetworkChangeTheState();
    void setsOnDeadSerialChangeTheState();
    void failedResetsOnNetworkKeepTheState_data() { resetRows(); }
    void failedResetsOnNetworkKeepTheState();
    void failedResetsOnSerialKeepTheState_data() { resetRows(); }
    void failedResetsOnSerialKeepTheState();
    void failedGetsOnNetworkKeepTheState_data() { getRows(); }
    void failedGetsOnNetworkKeepTheState();
    void failedGetsOnSerialKeepTheState_data() { getRows(); }
    void failedGetsOnSerialKeepTheState();

private:
    static void setRows();
    static void getRows();
    static void resetRows();
    void set(uint method);
    void get(uint method);
    void reset(uint method);
    void connectOnce(uint method);

    // One link serves all rows of a case.
    std::unique_ptr<DeviceBench> bench;
};

namespace {

// Both states of every flag, and two values of every number.
constexpr int kRounds = 2;

QByteArray unlikeBytes(int length, int first, int step)
{
    QByteArray data;
    for (int i = 0; i < length; ++i)
        data.append(static_cast<char>(first + step * i));
    return data;
}

const FunctionRow &functionOfCode(const QVector<FunctionRow> &functions, int code)
{
    return *std::find_if(functions.cbegin(), functions.cend(),
                         [code](const FunctionRow &row) { return row.getCode == code; });
}

} // namespace

Q_DECLARE_METATYPE(FunctionRow)
Q_DECLARE_METATYPE(SetRow)
Q_DECLARE_METATYPE(ResetRow)

void OperationsTest::setRows()
{
    QTest::addColumn<FunctionRow>("function");
    QTest::addColumn<SetRow>("row");
    for (const FunctionRow &function : allFunctions()) {
        for (const SetRow &set : function.sets)
            QTest::newRow(set.name) << function << set;
    }
}

void OperationsTest::getRows()
{
    QTest::addColumn<FunctionRow>("function");
    for (const FunctionRow &function : allFunctions())
        QTest::newRow(function.name) << function;
}

void OperationsTest::resetRows()
{
    QTest::addColumn<FunctionRow>("function");
    QTest::addColumn<ResetRow>("row");
    for (const FunctionRow &function : allFunctions()) {
        for (const ResetRow &reset : function.resets)
            QTest::newRow(reset.name) << function << reset;
    }
}

void OperationsTest::init()
{
    if (bench)
        bench->host.clearFaults();
}

void OperationsTest::connectOnce(uint method)
{
    if (!bench) {
        bench = std::make_unique<DeviceBench>(method);
        QVERIFY(bench->connectUnit());
    }
    bench->host.clearRecord();
    bench->broken.clear();
}

void OperationsTest::set(uint method)
{
    QFETCH(FunctionRow, function);
    QFETCH(SetRow, row);
    CHECKED(connectOnce(method));
    if (QTest::currentTestFailed())
        return;
    // An answer full of other values: a set reads none of it.
    const int code = function.getCode + 0x80;
    bench->host.setFault(code, standin::Fault::answer(replyBody(code, QByteArray(16, 'U'))));
    for (int round = 0; round < kRounds; ++round) {
        bench->host.clearRecord();
        scramble(*bench->device, round);
        const Snapshot before = snapshotOf(*bench->device);
        row.call(*bench->device, method);
        QCOMPARE(bench->frames(), frameOn(method, row.frame));
        QCOMPARE(differences(snapshotOf(*bench->device), afterSet(before, function, row)), QString());
    }
    QVERIFY(bench->device->isConnected);
    QCOMPARE(bench->broken.count(), 0);
}

void OperationsTest::get(uint method)
{
    QFETCH(FunctionRow, function);
    CHECKED(connectOnce(method));
    if (QTest::currentTestFailed())
        return;
    const QVector<FunctionRow> functions = allFunctions();
    // Every flag value and byte extreme at every position, words included, and one record of unlike bytes.
    QVector<QByteArray> datas;
    for (const int value : {0x00, 0x01, 0x02, 0x7F, 0x80, 0xFF})
        datas.append(QByteArray(function.dataLength, static_cast<char>(value)));
    datas.append(unlikeBytes(function.dataLength, 0x11, 0x17));

    for (int i = 0; i < datas.size(); ++i) {
        bench->host.clearRecord();
        scramble(*bench->device, i);
        Snapshot expected = snapshotOf(*bench->device);
        const QByteArray body = replyBody(function.getCode, datas.at(i));
        bench->host.setFault(function.getCode, standin::Fault::answer(body));
        overlay(expected, function.fields, body);
        for (const int code : function.readsToo) {
            const FunctionRow &other = functionOfCode(functions, code);
            const QByteArray otherBody = replyBody(code, unlikeBytes(other.dataLength, 0x61, 0x05));
            bench->host.setFault(code, standin::Fault::answer(otherBody));
            overlay(expected, other.fields, otherBody);
        }
        function.get(*bench->device, method);
        QCOMPARE(differences(snapshotOf(*bench->device), expected), QString());
        QCOMPARE(bench->host.count(function.getCode), 1);
        QCOMPARE(bench->host.record().size(), 1 + function.readsToo.size());
        const QString frame = frameOn(method, replyBody(function.getCode, QByteArray()).toHex());
        QVERIFY2(bench->frames().contains(frame), qPrintable(bench->frames()));
    }
    QCOMPARE(bench->broken.count(), 0);
}

void OperationsTest::reset(uint method)
{
    QFETCH(FunctionRow, function);
    QFETCH(ResetRow, row);
    CHECKED(connectOnce(method));
    if (QTest::currentTestFailed())
        return;
    const QByteArray body = replyBody(function.getCode + 0x80, unlikeBytes(function.dataLength, 0x01, 0x1D));
    bench->host.setFault(function.getCode + 0x80, standin::Fault::answer(body));
    for (int round = 0; round < kRounds; ++round) {
        bench->host.clearRecord();
        scramble(*bench->device, round);
        Snapshot expected = snapshotOf(*bench->device);
        overlay(expected, function.fields, body);
        row.call(*bench->device, method);
        QCOMPARE(bench->frames(), frameOn(method, row.frame));
        QCOMPARE(differences(snapshotOf(*bench->device), expected), QString());
    }
    QVERIFY(bench->device->isConnected);
    QCOMPARE(bench->broken.count(), 0);
}

void OperationsTest::setsOnDeadNetworkChangeTheState()
{
    QFETCH(FunctionRow, function);
    QFETCH(SetRow, row);
    DeviceBench dead(kNetworkLink); // never connected
    for (int round = 0; round < kRounds; ++round) {
        scramble(*dead.device, round);
        const Snapshot before = snapshotOf(*dead.device);
        row.call(*dead.device, kNetworkLink);
        QCOMPARE(differences(snapshotOf(*dead.device), afterSet(before, function, row)), QString());
    }
    QCOMPARE(dead.host.record().size(), 0);
    QCOMPARE(dead.broken.count(), 0);
}

void OperationsTest::setsOnDeadSerialChangeTheState()
{
    // Each takes four attempts of four writes: two functions stand for all of them.
    DeviceBench dead(kSerialLink); // never opened
    scramble(*dead.device, 0);
    Snapshot expected = snapshotOf(*dead.device);
    support::Stopwatch timer;
    dead.device->setCKDark(kSerialLink, true, 1, 2, 3);
    VERIFY_TOOK(timer, 4 * 900 + 1800, 4 * 900 + 1800 + 3000);
    overlay(expected,
            {{"ckDark.enable", 0, Kind::IsOne},
             {"ckDark.level", 1, Kind::Word},
             {"ckDark.density", 3, Kind::Word},
             {"ckDark.balance", 5, Kind::SignedByte}},
            QByteArray::fromHex("010100020003"));
    QCOMPARE(differences(snapshotOf(*dead.device), expected), QString());
    QCOMPARE(dead.broken.count(), 4);
    dead.device->setVideoOut(kSerialLink, P25_1080, YUV422, FIXED);
    QCOMPARE(int(dead.device->videoOut.res), int(P25_1080));
    QCOMPARE(dead.broken.count(), 8);
    QCOMPARE(dead.host.record().size(), 0);
}

void OperationsTest::failedResetsOnNetworkKeepTheState()
{
    QFETCH(ResetRow, row);
    DeviceBench dead(kNetworkLink); // never connected
    scramble(*dead.device, 0);
    const Snapshot before = snapshotOf(*dead.device);
    row.call(*dead.device, kNetworkLink);
    QCOMPARE(differences(snapshotOf(*dead.device), before), QString());
    QCOMPARE(dead.host.record().size(), 0);
}

void OperationsTest::failedResetsOnSerialKeepTheState()
{
    QFETCH(FunctionRow, function);
    QFETCH(ResetRow, row);
    CHECKED(connectOnce(kSerialLink));
    if (QTest::currentTestFailed())
        return;
    // An answer of two bytes passes the transport and fails the operation's own test.
    bench->host.setFault(function.getCode + 0x80, standin::Fault::shortened(2));
    scramble(*bench->device, 0);
    const Snapshot before = snapshotOf(*bench->device);
    row.call(*bench->device, kSerialLink);
    QCOMPARE(differences(snapshotOf(*bench->device), before), QString());
    QCOMPARE(bench->host.record().size(), 1);
    QCOMPARE(bench->broken.count(), 0);
    QVERIFY(bench->device->isConnected);
}

void OperationsTest::failedGetsOnNetworkKeepTheState()
{
    QFETCH(FunctionRow, function);
    DeviceBench dead(kNetworkLink); // never connected
    scramble(*dead.device, 0);
    const Snapshot before = snapshotOf(*dead.device);
    function.get(*dead.device, kNetworkLink);
    QCOMPARE(differences(snapshotOf(*dead.device), before), QString());
    QCOMPARE(dead.host.record().size(), 0);
}

void OperationsTest::failedGetsOnSerialKeepTheState()
{
    QFETCH(FunctionRow, function);
    CHECKED(connectOnce(kSerialLink));
    if (QTest::currentTestFailed())
        return;
    bench->host.setFault(standin::AnyCode, standin::Fault::shortened(2));
    scramble(*bench->device, 0);
    Snapshot before = snapshotOf(*bench->device);
    function.get(*bench->device, kSerialLink);
    // The read of the output standard alone lowers the flag.
    if (function.getCode == 0x60)
        before.insert(QStringLiteral("isConnected"), QStringLiteral("0"));
    QCOMPARE(differences(snapshotOf(*bench->device), before), QString());
    bench->device->isConnected = true;
}

QTEST_GUILESS_MAIN(OperationsTest)
#include "tst_operations.moc"
