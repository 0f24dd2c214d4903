#include "panelfacade.h"

#include "control/maincontrol.h"

#include <QMetaMethod>
#include <QMetaProperty>
#include <QtTest>

// The recorded facades stand in the place of the real one, so they must be callable by the same names with the same
// types, and tell the same signals with the same argument names: the documents read those by name.
class TestFacade : public QObject
{
    Q_OBJECT

private slots:
    void everyMethodIsOneOfTheRealFacade();
    void everyPropertyIsOneOfTheRealFacade();
    void everySignalThatTheDocumentsHearIsThere();

private:
    // What a recorded facade declares itself, its base apart.
    static QVector<QMetaMethod> recordedMethods();
};

namespace {

// "void setCKAngle(uint l,uint r)", with the kind in front.
QString declared(const QMetaMethod &method)
{
    QStringList arguments;
    const QList<QByteArray> types = method.parameterTypes();
    const QList<QByteArray> names = method.parameterNames();
    for (int i = 0; i < types.size(); ++i)
        arguments += QString::fromLatin1(types.at(i) + ' ' + names.at(i));
    // The document calls a slot and an invokable method alike.
    return (method.methodType() == QMetaMethod::Signal ? QStringLiteral("signal ") : QString())
        + QString::fromLatin1(method.typeName()) + QLatin1Char(' ') + QString::fromLatin1(method.name())
        + QLatin1Char('(') + arguments.join(QLatin1Char(',')) + QLatin1Char(')');
}

} // namespace

QVector<QMetaMethod> TestFacade::recordedMethods()
{
    const QMetaObject &meta = PanelFacade::staticMetaObject;
    QVector<QMetaMethod> methods;
    for (int i = QObject::staticMetaObject.methodCount(); i < meta.methodCount(); ++i)
        methods.append(meta.method(i));
    return methods;
}

void TestFacade::everyMethodIsOneOfTheRealFacade()
{
    const QMetaObject &real = mainControl::staticMetaObject;
    const QVector<QMetaMethod> methods = recordedMethods();
    QVERIFY(methods.size() > 80); // both facades' own, not QObject's
    for (const QMetaMethod &method : methods) {
        const int index = real.indexOfMethod(method.methodSignature());
        QVERIFY2(index >= 0, qPrintable(declared(method) + QStringLiteral(" is none of the facade's")));
        QCOMPARE(declared(method), declared(real.method(index)));
    }
}

void TestFacade::everyPropertyIsOneOfTheRealFacade()
{
    const QMetaObject &real = mainControl::staticMetaObject;
    const QMetaObject &meta = PanelFacade::staticMetaObject;
    QVERIFY(meta.propertyCount() > QObject::staticMetaObject.propertyCount());
    for (int i = QObject::staticMetaObject.propertyCount(); i < meta.propertyCount(); ++i) {
        const QMetaProperty property = meta.property(i);
        const int index = real.indexOfProperty(property.name());
        QVERIFY2(index >= 0, property.name());
        const QMetaProperty other = real.property(index);
        QCOMPARE(property.typeName(), other.typeName());
        QCOMPARE(property.isWritable(), other.isWritable());
        QCOMPARE(property.notifySignal().methodSignature(), other.notifySignal().methodSignature());
    }
}

// A document that listens to a signal which its facade doesn't have hears nothing, and no test would tell.
void TestFacade::everySignalThatTheDocumentsHearIsThere()
{
    // Nothing on the screen listens to these.
    const QStringList unheard{"vOutChanged", "vOutResolutionChanged", "vOutColorSpaceChanged",
                              "vOutStdChanged", "currentPageChanged"};
    QStringList recorded;
    for (const QMetaMethod &method : recordedMethods()) {
        if (method.methodType() == QMetaMethod::Signal)
            recorded += QString::fromLatin1(method.name());
    }
    const QMetaObject &real = mainControl::staticMetaObject;
    for (int i = real.methodOffset(); i < real.methodCount(); ++i) {
        const QString name = QString::fromLatin1(real.method(i).name());
        if (real.method(i).methodType() == QMetaMethod::Signal && !unheard.contains(name))
            QVERIFY2(recorded.contains(name), qPrintable(name));
    }
}

QTEST_GUILESS_MAIN(TestFacade)
#include "tst_facade.moc"
