#include "ctl/fieldtext.h"
#include "standin/functions.h"
#include "tests/ctl/ctlrun.h"
#include "tests/support/checked.h"

using support::CtlBench;
using support::CtlRun;
using support::runCtl;

// The whole table over the program: every field of every function read, set to both ends of its range, refused past
// them, and reset.
class WalkTest : public QObject
{
    Q_OBJECT

private slots:
    void pastTheEnds();
    // Cases of some functions each, so that they run side by side.
    void networkFirst() { walk(kNetworkLink, 0, 10); }
    void networkSecond() { walk(kNetworkLink, 10, 20); }
    void serialFirst() { walk(kSerialLink, 0, 5); }
    void serialSecond() { walk(kSerialLink, 5, 10); }
    void serialThird() { walk(kSerialLink, 10, 15); }
    void serialFourth() { walk(kSerialLink, 15, 20); }

private:
    static void walk(uint method, int first, int end);
};

namespace {

QString assignment(const UnitField &field, int value)
{
    return QLatin1String(field.name) + '=' + QString::number(value);
}

// The modes of an automatic key start a search, which changes the colour.
bool isMode(const UnitFunction &function, const UnitField &field)
{
    return &field == functions::backColour.field("auto") && &function == &functions::backColour;
}

void setEnd(const CtlBench &bench, const UnitFunction &function, bool most)
{
    QStringList arguments = {"set", QLatin1String(function.name)};
    for (const UnitField &field : function.fields) {
        if (!isMode(function, field))
            arguments.append(assignment(field, most ? field.most : field.least));
    }
    const CtlRun run = bench.run(arguments);
    QVERIFY2(run.exitCode == 0, qPrintable(run.messages));

    const QJsonObject read = bench.run({"get", QLatin1String(function.name), "--json"})
                                 .json()
                                 .value(QLatin1String(function.name))
                                 .toObject();
    for (const UnitField &field : function.fields) {
        if (!isMode(function, field))
            QCOMPARE(read.value(QLatin1String(field.name)),
                     ctl::valueJson(field, most ? field.most : field.least));
    }
}

void resetOne(const CtlBench &bench, const UnitFunction &function)
{
    const QString name = QLatin1String(function.name);
    const CtlRun run = bench.run({"reset", name, "--json"});
    QVERIFY2(run.exitCode == 0, qPrintable(run.messages));
    QCOMPARE(run.json(), bench.run({"get", name, "--json"}).json());
    QCOMPARE(bench.host.frames().filter(QRegularExpression("^reset")).size(), 1);
    bench.host.clearRecord();
}

} // namespace

void WalkTest::walk(uint method, int first, int end)
{
    const CtlBench bench(method);
    for (const UnitFunction *function : ctl::everyFunction().mid(first, end - first)) {
        const CtlRun run = bench.run({"get", QLatin1String(function->name), "--json"});
        QVERIFY2(run.exitCode == 0, qPrintable(run.messages));
        QCOMPARE(run.json().value(QLatin1String(function->name)).toObject().size(), function->fields.count);
        for (bool most : {true, false}) {
            if (function->set)
                setEnd(bench, *function, most);
            if (QTest::currentTestFailed())
                QFAIL(function->name);
        }
        if (function->reset)
            CHECKED(resetOne(bench, *function));
    }
}

void WalkTest::pastTheEnds()
{
    int fields = 0;
    for (const UnitFunction *function : ctl::everyFunction()) {
        for (const UnitField &field : function->fields) {
            for (int value : {field.least - 1, field.most + 1}) {
                if (!function->set)
                    continue;
                const CtlRun run = runCtl(
                    {"--host", "127.0.0.1", "set", QLatin1String(function->name), assignment(field, value)});
                QCOMPARE(run.messages,
                         QStringLiteral("qkv720ctl: %1: %2 is no value of it; it takes %3\n")
                             .arg(ctl::placeText(*function, field))
                             .arg(value)
                             .arg(ctl::rangeText(field)));
                QCOMPARE(run.exitCode, 2);
                ++fields;
            }
        }
    }
    QVERIFY(fields > 150);
}

QTEST_GUILESS_MAIN(WalkTest)
#include "tst_walk.moc"
