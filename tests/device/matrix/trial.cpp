#include "tests/device/matrix/trial.h"

#include "discovery/hlnp.h"
#include "tests/device/matrix/faultyunit.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTcpSocket>
#include <QThread>

#include <memory>

namespace {

// What the panel slept since the list was cleared, and by how much it woke too late in all. The sleeps are as long as
// ever.
QVector<int> sleepsTaken;
qint64 overslept = 0;

void sleepFor(std::chrono::milliseconds time)
{
    std::this_thread::sleep_for(time);
}

} // namespace

// In this program the toolkit's own makes room for one that also keeps count.
void QThread::msleep(unsigned long ms)
{
    sleepsTaken.append(static_cast<int>(ms));
    QElapsedTimer timer;
    timer.start();
    sleepFor(std::chrono::milliseconds(ms));
    overslept += timer.elapsed() - static_cast<qint64>(ms);
}

namespace matrix {

namespace {

constexpr std::chrono::milliseconds kSettleTime{
    40}; // for what was just put on a link to lie at its other end
// Some bytes are due at the very moment at which the panel reads; a unit that is late by this decides otherwise, and
// either will do.
constexpr int kUnitLateMs = 25;
constexpr int kMayBeEarlyMs = 15;
constexpr int kMayBeLateMs = 2500;

QStringList warnings;

void keepWarning(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    if (type != QtDebugMsg)
        warnings += text;
}

struct Bench
{
    explicit Bench(uint link)
        : method(link)
        , unit(link)
    {
        QObject::connect(&device, &qkv720::connectionBroken, [this] { ++signalCount; });
    }

    // What the operator's connect does: close, then open.
    QString connectAnew()
    {
        device.disconnectDevice(method);
        unit.heal();
        sleepFor(kSettleTime);
        return device.connectDevice(method, unit.target());
    }

    const uint method;
    FaultyUnit unit;
    qkv720 device;
    int signalCount = 0;
};

void bringAbout(Bench &bench, const Form &form)
{
    const bool falls = form.fault == Fault::FallenSeen || form.fault == Fault::FallenUnseen;
    if (falls)
        bench.unit.hangUp();
    else if (form.fault == Fault::StaleInFront && !form.always)
        bench.unit.put(staleReply(bench.method));
    else
        return;
    sleepFor(kSettleTime);
    if (form.fault == Fault::FallenSeen)
        QCoreApplication::processEvents();
}

template <typename List>
QString inWords(const List &list)
{
    QStringList words;
    for (const auto &item : list)
        words += QVariant(item).toString();
    return words.join(QStringLiteral(", "));
}

class Verdict
{
public:
    template <typename Value>
    void compare(const char *what, const Value &found, const Value &expected)
    {
        if (found != expected)
            add(what, QVariant(found).toString(), QVariant(expected).toString());
    }
    void add(const char *what, const QString &found, const QString &expected)
    {
        text += QStringLiteral("%1: [%2], expected [%3]; ").arg(QLatin1String(what), found, expected);
    }

    QString text;
};

// What can only happen to a link that was open before. A terminal can hold bytes that nobody has read.
bool isOfALinkThatStands(const Form &form, uint method)
{
    const bool liesThere = form.fault == Fault::StaleInFront && !form.always;
    return form.fault == Fault::FallenSeen || form.fault == Fault::FallenUnseen
        || (liesThere && method == kNetwork);
}

// What is seen of an operation from outside; the flag is among the fields.
struct Outcome
{
    QString result;
    QStringList frames;
    QVector<int> sleeps;
    int signalCount = 0;
    Snapshot fields;
    qint64 elapsedMs = 0;
};

QString differenceOf(const Outcome &outcome, const PanelModel &model, const QString &expected)
{
    Verdict verdict;
    verdict.compare("result", outcome.result, expected);
    verdict.compare("frames", inWords(outcome.frames), inWords(model.frames));
    verdict.compare("signals", outcome.signalCount, model.signalCount);
    verdict.compare("sleeps", inWords(outcome.sleeps), inWords(model.sleeps));
    verdict.text += differences(outcome.fields, model.fields);
    const auto due = static_cast<qint64>(model.elapsedMs());
    if (outcome.elapsedMs < due - kMayBeEarlyMs || outcome.elapsedMs > due + kMayBeLateMs)
        verdict.add("time", QString::number(outcome.elapsedMs), QString::number(due));
    return verdict.text;
}

// How long the threads of this process were ready to run and had to wait for a processor, in milliseconds; 0 where the
// system does not count it.
qint64 waitedForProcessor()
{
    qint64 waited = 0;
    for (const QString &thread :
         QDir(QStringLiteral("/proc/self/task")).entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        QFile counts(QStringLiteral("/proc/self/task/%1/schedstat").arg(thread));
        if (counts.open(QIODevice::ReadOnly))
            waited += counts.readAll().split(' ').value(1).toLongLong();
    }
    constexpr qint64 kNsPerMs = 1000000;
    return waited / kNsPerMs;
}

void requireRecovery(Bench &bench, Verdict &verdict)
{
    bench.unit.setAngle(QByteArray::fromHex("2143"));
    bench.signalCount = 0;
    verdict.compare("words of the fresh connect", bench.connectAnew(), QStringLiteral("OK"));
    uint left = 0;
    uint right = 0;
    bench.device.getCKAngle(bench.method, &left, &right);
    verdict.compare("value after the fresh connect", QStringLiteral("%1 %2").arg(left).arg(right),
                    QStringLiteral("33 67"));
    verdict.compare("frames of the fresh connect", bench.unit.frames().size(), 7);
    verdict.compare("signals of the fresh connect", bench.signalCount, 0);
    verdict.compare("link after the fresh connect", bench.device.isConnected, true);
}

} // namespace

const QVector<Case> &allCases()
{
    static const QVector<Case> cases = [] {
        const auto operations = allOperations([] { return QString(); });
        QVector<Case> made;
        for (int i = 0; i < operations.size(); ++i) {
            for (const Form &form : allForms()) {
                if (!operations.at(i).opensLink || !isOfALinkThatStands(form, kNetwork))
                    made.append({i, form, kNetwork});
                if (!operations.at(i).opensLink || !isOfALinkThatStands(form, kSerial))
                    made.append({i, form, kSerial});
            }
        }
        return made;
    }();
    return cases;
}

QString nameOf(const Case &cell)
{
    static const auto operations = allOperations([] { return QString(); });
    return QStringLiteral("%1 | %2 | %3")
        .arg(operations.at(cell.operation).name, cell.form.name(),
             cell.method == kNetwork ? QStringLiteral("network") : QStringLiteral("serial"));
}

Attempt tryCase(const Case &cell)
{
    qInstallMessageHandler(keepWarning);
    auto *const bench = new Bench(cell.method); // to the end of the process, as in the panel
    const Operation operation = allOperations([bench] { return bench->unit.target(); }).at(cell.operation);
    if (!operation.opensLink && bench->connectAnew() != QLatin1String("OK"))
        return {QStringLiteral("the first connect failed"), static_cast<int>(waitedForProcessor())};
    scramble(bench->device, cell.operation);
    bench->unit.suffer(cell.form, operation.faultedCode);
    bringAbout(*bench, cell.form);
    bench->signalCount = 0;
    sleepsTaken.clear();
    overslept = 0;
    const qint64 waitedBefore = waitedForProcessor();
    const Snapshot before = snapshotOf(bench->device);

    QElapsedTimer timer;
    timer.start();
    Outcome outcome;
    outcome.result = operation.call(bench->device, cell.method);
    outcome.elapsedMs = timer.elapsed();
    outcome.frames = bench->unit.frames();
    outcome.sleeps = sleepsTaken;
    outcome.fields = snapshotOf(bench->device);
    outcome.signalCount = bench->signalCount;
    const qint64 late = qMax(overslept, waitedForProcessor() - waitedBefore);

    Verdict verdict;
    for (const int lateness : {0, kUnitLateMs}) {
        PanelModel model(cell.method, cell.form, operation.faultedCode, before, !operation.opensLink,
                         lateness);
        const QString expected = operation.expect(model);
        verdict.text = differenceOf(outcome, model, expected);
        if (verdict.text.isEmpty())
            break;
    }
    requireRecovery(*bench, verdict);
    bench->device.disconnectDevice(cell.method); // an open port would leave its lock file behind
    verdict.compare("warnings", warnings.join(QLatin1Char('/')), QString());
    return {verdict.text, static_cast<int>(late)};
}

} // namespace matrix
