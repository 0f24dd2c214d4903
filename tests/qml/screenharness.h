#pragma once

#include "shell/qmltranslator.h"
#include "tests/support/logcapture.h"

#include <QImage>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQmlExpression>
#include <QQuickItem>
#include <QQuickItemGrabResult>
#include <QQuickWindow>
#include <QtTest>

// What the program printed: Messages::logs(), Messages::warnings().
using Messages = support::LogCapture;

// A window of the panel with the real translator, worked by mouse and keyboard; what stands in it, a page alone or
// the whole document, is the affair of the harnesses below. Items are found by the ids of the document, never by
// places copied by hand. A helper that can't do its work ends the process with a plain sentence: there is no
// going on behind it.
class ScreenHarness
{
public:
    QmlTranslator translator;
    QQuickWindow *window = nullptr;

    ScreenHarness(const ScreenHarness &) = delete;
    ScreenHarness &operator=(const ScreenHarness &) = delete;

    bool show();

    // ---- Looking ----------------------------------------------------------------------------------------

    // Evaluated where the document's own ids are known.
    QVariant eval(const QString &expression) const;
    QQuickItem *item(const QString &id) const { return eval(id).value<QQuickItem *>(); }
    int number(const QString &expression) const { return eval(expression).toInt(); }
    bool flag(const QString &expression) const { return eval(expression).toBool(); }
    QString text(const QString &expression) const { return eval(expression).toString(); }
    QString color(const QString &expression) const;

    QPoint at(QQuickItem *target, qreal x, qreal y) const;
    QPoint middle(QQuickItem *target) const { return at(target, target->width() / 2, target->height() / 2); }
    QPoint corner(const QString &id) const { return at(item(id), 0, 0); }

    // Whether nothing is drawn for so long. What has begun to move may come to its end before, which takes a busy machine
    // its time; what goes on moving never rests.
    bool rests(int ms) const;
    // A popup takes the pointer as soon as it shows, but stands still only once it is opened.
    bool standsOpen(const QString &popup) const;
    bool standsClosed(const QString &popup) const;

    // ---- Mouse ------------------------------------------------------------------------------------------

    void press(const QPoint &place);
    void press(const QString &id) { press(middle(item(id))); }
    void pressAt(const QPoint &place) { press(place); }
    // With the button held.
    void move(const QPoint &place);
    void release(const QPoint &place);
    void release(const QString &id) { release(middle(item(id))); }
    void clickAt(const QPoint &place);
    void click(QQuickItem *target) { clickAt(middle(target)); }
    void click(const QString &id) { click(item(id)); }

    // Opens a drop-down and picks a row, scrolled to if need be.
    void choose(const QString &combo, int row);

    // ---- Keyboard ---------------------------------------------------------------------------------------

    // Puts the text in the place of what the field holds, and leaves the cursor there.
    void type(const QString &field, const QString &typed) { typeInto(item(field), typed, Qt::Key_unknown); }
    // The same and then a key, as the operator ends a number.
    void typeInto(QQuickItem *field, const QString &typed, Qt::Key end = Qt::Key_Return);
    void typeInto(const QString &id, const QString &typed, Qt::Key end = Qt::Key_Return)
    {
        typeInto(item(id), typed, end);
    }
    // Into the field that has the keyboard.
    void typeOver(const QString &typed, Qt::Key end);

protected:
    ScreenHarness();
    virtual ~ScreenHarness() = default;

    // Gives the document what main gives it: the facade and the translator.
    void publish(QQmlEngine &engine, QObject *facade);
    // Any item of the document under test.
    virtual QQuickItem *itemOfDocument() const = 0;
    // The name of a picture's file, with its language folder if any.
    static QString pictureName(QString source);
    // Draws the item; kept under PICTURES_TO, if that is set, for a look by eye.
    static QImage drawn(QQuickItem *target, const QString &name);

private:
    void send(QEvent::Type type, const QPoint &place, Qt::MouseButton button, Qt::MouseButtons held);

    Messages m_messages;
};
