// The unit against vectors that were written apart from it, on both links.

#include "tests/support/rawlink.h"
#include "tests/support/unithost.h"
#include "tests/support/vectors.h"

#include <QtTest>

using support::UnitHost;

class TestVectors : public QObject
{
    Q_OBJECT

private slots:
    void everyFunctionHasItsVectors();
    void network_data();
    void network();
    void serial_data();
    void serial();
};

namespace {

int codeOf(const QString &name)
{
    for (const standin::Function &function : standin::functions()) {
        if (name == QLatin1String(function.name))
            return function.code;
    }
    return -1;
}

QString hex(const QByteArray &bytes)
{
    return QString::fromLatin1(bytes.toHex(' '));
}

void fillRows()
{
    QTest::addColumn<support::Vector>("vector");
    for (const support::Vector &vector : support::readVectors())
        QTest::newRow(qPrintable(vector.title())) << vector;
}

// The values that the unit holds, or is to hold, of those that a vector names; the unit lives in a thread of its own.
QMap<QString, int> heldValues(UnitHost &host, const support::Vector &vector, int code)
{
    QMap<QString, int> held;
    host.withUnit([&](standin::Unit &unit) {
        for (auto it = vector.values.cbegin(); it != vector.values.cend(); ++it)
            held.insert(it.key(), unit.value(code, it.key()));
    });
    return held;
}

// Returns the names that the function doesn't have.
QStringList holdValues(UnitHost &host, const support::Vector &vector, int code)
{
    QStringList unknown;
    host.withUnit([&](standin::Unit &unit) {
        for (auto it = vector.values.cbegin(); it != vector.values.cend(); ++it) {
            if (!unit.setValue(code, it.key(), it.value()))
                unknown.append(it.key());
        }
    });
    return unknown;
}

template <typename Link>
void runVector(UnitHost &host, Link &link, const support::Vector &vector)
{
    const int code = codeOf(vector.function);
    QVERIFY2(code > 0, qPrintable(vector.function));
    if (vector.verb == QLatin1String("get"))
        QCOMPARE(holdValues(host, vector, code), QStringList());
    const QByteArray reply = link.exchange(vector.out);
    if (vector.verb == QLatin1String("reset")) {
        // The defaults come back in the layout of the read, under the code that was sent.
        QByteArray held;
        host.withUnit([&](standin::Unit &unit) { held = unit.data(code); });
        QCOMPARE(hex(reply), hex(support::requestBody(code | 0x80, held)));
    } else {
        QCOMPARE(hex(reply), hex(vector.in));
    }
    QCOMPARE(heldValues(host, vector, code), vector.values);
    QCOMPARE(host.record().size(), 1);
    const standin::FrameRecord frame = host.record().first();
    QCOMPARE(frame.isExtended(), vector.verb == QLatin1String("reset"));
    QVERIFY(frame.wellFormed && frame.checksumGood);
}

} // namespace

Q_DECLARE_METATYPE(support::Vector)

void TestVectors::everyFunctionHasItsVectors()
{
    QStringList titles;
    for (const support::Vector &vector : support::readVectors())
        titles.append(vector.title());
    for (const standin::Function &function : standin::functions()) {
        const QString name = QLatin1String(function.name);
        if (function.code == standin::Memory)
            continue; // a recall has cases of its own
        QVERIFY2(titles.contains(QStringLiteral("get ") + name), qPrintable(name));
        if (function.use == standin::Function::Setting)
            QVERIFY2(titles.contains(QStringLiteral("set ") + name), qPrintable(name));
    }
}

void TestVectors::network_data()
{
    fillRows();
}

void TestVectors::network()
{
    QFETCH(support::Vector, vector);
    UnitHost host;
    support::RawNetwork link(host.address());
    QVERIFY(link.isUp());
    runVector(host, link, vector);
}

void TestVectors::serial_data()
{
    fillRows();
}

void TestVectors::serial()
{
    QFETCH(support::Vector, vector);
    UnitHost::Options options;
    options.network = false;
    options.serial = true;
    UnitHost host(options);
    support::RawSerial link(host.serialPortName());
    QVERIFY(link.isUp());
    runVector(host, link, vector);
}

QTEST_GUILESS_MAIN(TestVectors)
#include "tst_vectors.moc"
