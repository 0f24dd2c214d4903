#include "tests/device/devicebench.h"
#include "tests/device/functiontable.h"

// Replies of every length, on both links: what is missing reads as 0 and nothing outside the buffer is touched.
class ShortRepliesTest : public QObject
{
    Q_OBJECT

private slots:
    void shapingOnNetwork() { everyLength(kNetworkLink, shapingFunctions()); }
    void shapingOnSerial() { everyLength(kSerialLink, shapingFunctions()); }
    void postOnNetwork() { everyLength(kNetworkLink, postFunctions()); }
    void postOnSerial() { everyLength(kSerialLink, postFunctions()); }
    void routingOnNetwork() { everyLength(kNetworkLink, routingFunctions()); }
    void routingOnSerial() { everyLength(kSerialLink, routingFunctions()); }
    void resetsOnNetwork() { everyResetLength(kNetworkLink); }
    void resetsOnSerial() { everyResetLength(kSerialLink); }

private:
    static QVector<QByteArray> cutBodies(uint method, const FunctionRow &function);
    static void everyLength(uint method, const QVector<FunctionRow> &functions);
    static void everyResetLength(uint method);
};

// All the lengths that a link lets through to the parser: from 2 bytes on the network link, where the two length
// bytes make them 4, and from 3 on the serial link. Each with a checksum that fits.
QVector<QByteArray> ShortRepliesTest::cutBodies(uint method, const FunctionRow &function)
{
    QByteArray data;
    for (int i = 0; i < function.dataLength; ++i)
        data.append(static_cast<char>(0xFF - 0x0B * i));
    const QByteArray whole = replyBody(function.getCode, data);
    QVector<QByteArray> bodies;
    for (int length = method == kNetworkLink ? 2 : 3; length < whole.size(); ++length)
        bodies.append(withChecksum(whole.left(length - 1)));
    return bodies;
}

void ShortRepliesTest::everyLength(uint method, const QVector<FunctionRow> &functions)
{
    DeviceBench bench(method);
    QVERIFY(bench.connectUnit());
    for (const FunctionRow &function : functions) {
        const QVector<QByteArray> bodies = cutBodies(method, function);
        for (const QByteArray &body : bodies) {
            // The cursor's get turns away up to 8 bytes; the first serial status read, up to 3.
            if (function.getCode == 0x5D && body.size() <= 8)
                continue;
            if (function.getCode == 0x63 && method == kSerialLink && body.size() <= 3)
                continue;
            bench.host.setFault(function.getCode, standin::Fault::answer(body));
            scramble(*bench.device, body.size());
            Snapshot expected = snapshotOf(*bench.device);
            overlay(expected, function.fields, body);
            function.get(*bench.device, method);
            const Snapshot found = snapshotOf(*bench.device);
            if (function.readsToo.isEmpty())
                QCOMPARE(differences(found, expected), QString());
            for (const FieldRow &field : function.fields)
                QCOMPARE(found.value(QLatin1String(field.name)), expected.value(QLatin1String(field.name)));
        }
        bench.host.clearFaults();
    }
    QVERIFY(bench.device->isConnected);
    QCOMPARE(bench.broken.count(), 0);
}

void ShortRepliesTest::everyResetLength(uint method)
{
    DeviceBench bench(method);
    QVERIFY(bench.connectUnit());
    for (const FunctionRow &function : allFunctions()) {
        if (function.resets.isEmpty())
            continue;
        const QVector<QByteArray> bodies = cutBodies(method, function);
        for (const QByteArray &body : bodies) {
            bench.host.setFault(function.getCode + 0x80, standin::Fault::answer(body));
            scramble(*bench.device, body.size());
            Snapshot expected = snapshotOf(*bench.device);
            overlay(expected, function.fields, body);
            function.resets.first().call(*bench.device, method);
            QCOMPARE(differences(snapshotOf(*bench.device), expected), QString());
        }
    }
    QVERIFY(bench.device->isConnected);
}

QTEST_GUILESS_MAIN(ShortRepliesTest)
#include "tst_shortreplies.moc"
