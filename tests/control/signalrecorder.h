#pragma once

#include "control/maincontrol.h"

#include <QElapsedTimer>
#include <QMetaMethod>
#include <QStringList>
#include <QVariant>
#include <QVector>

// Records every signal of the facade, whatever there is, in the order of emission and with its arguments:
// "refreshCKAngle(3, 4)". Beside each stands when that was, and whether
// the status poll ran at that moment.
class SignalRecorder : public QObject
{
public:
    explicit SignalRecorder(mainControl &facade)
        : control(facade)
    {
        clock.start();
        const QMetaObject &meta = mainControl::staticMetaObject;
        for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
            if (meta.method(i).methodType() != QMetaMethod::Signal)
                continue;
            QMetaObject::connect(&control, i, this, QObject::staticMetaObject.methodCount() + methods.size());
            methods.append(meta.method(i));
        }
    }

    int qt_metacall(QMetaObject::Call call, int id, void **arguments) override
    {
        id = QObject::qt_metacall(call, id, arguments);
        if (id < 0 || call != QMetaObject::InvokeMetaMethod)
            return id;
        const QMetaMethod &method = methods.at(id);
        QStringList texts;
        for (int i = 0; i < method.parameterCount(); ++i) {
            const QVariant value(method.parameterType(i), arguments[i + 1]);
            texts += value.userType() == QMetaType::QStringList ? value.toStringList().join(QLatin1Char('|'))
                : value.userType() == QMetaType::UShort || value.userType() == QMetaType::Short
                ? QString::number(value.toInt())
                : value.toString();
        }
        told += QString::fromLatin1(method.name()) + QLatin1Char('(') + texts.join(QStringLiteral(", "))
            + QLatin1Char(')');
        polling.append(control.timerRefreshStatus->isActive());
        toldAt.append(now());
        return -1;
    }

    QStringList take()
    {
        polling.clear();
        toldAt.clear();
        return std::exchange(told, {});
    }

    qint64 now() const { return clock.elapsed(); }

    QStringList told;
    QVector<bool> polling;
    QVector<qint64> toldAt; // ms

private:
    mainControl &control;
    QElapsedTimer clock;
    QVector<QMetaMethod> methods;
};
