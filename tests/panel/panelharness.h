#pragma once

#include "tests/qml/pageharness.h"

#include <QFont>
#include <QQmlApplicationEngine>

// The real main document with the real translator, over a facade that the test brings.
class PanelHarness
{
public:
    QmlTranslator translator;
    QQuickWindow *window = nullptr;

    explicit PanelHarness(QObject *facade)
    {
        Messages::logs().clear();
        Messages::warnings().clear();
        qInstallMessageHandler(&Messages::take);
        QLoggingCategory::setFilterRules(QStringLiteral("qt.qml.connections=false"));
        QFont::insertSubstitution(QStringLiteral("Noto Sans CJK TC Regular"),
                                  QStringLiteral("Noto Sans CJK TC"));
        m_engine.reset(new QQmlApplicationEngine);
        m_engine->rootContext()->setContextProperty(QStringLiteral("mainObject"), facade);
        m_engine->rootContext()->setContextProperty(QStringLiteral("qmlTranslator"), &translator);
        m_engine->load(QUrl(QStringLiteral("qrc:/main.qml")));
        if (m_engine->rootObjects().isEmpty())
            qFatal("the main document does not load");
        window = qobject_cast<QQuickWindow *>(m_engine->rootObjects().constFirst());
    }

    ~PanelHarness()
    {
        m_engine.reset();
        qInstallMessageHandler(nullptr);
    }

    bool show() { return QTest::qWaitForWindowExposed(window); }

    // Evaluated where the ids of the main document are known.
    QVariant eval(const QString &expression) const
    {
        QQuickItem *inside = itemOfDocument();
        QQmlExpression run(QQmlEngine::contextForObject(inside), inside, expression);
        const QVariant value = run.evaluate();
        if (run.hasError())
            qFatal("%s", qPrintable(run.error().toString()));
        return value;
    }
    QQuickItem *item(const QString &id) const { return eval(id).value<QQuickItem *>(); }
    int number(const QString &expression) const { return eval(expression).toInt(); }
    bool flag(const QString &expression) const { return eval(expression).toBool(); }
    QString text(const QString &expression) const { return eval(expression).toString(); }
    QString color(const QString &expression) const
    {
        return eval(expression).value<QColor>().name().toUpper();
    }
    QString face(const QString &id) const
    {
        return text(id + QStringLiteral(".source"))
            .remove(QStringLiteral("qrc:/img/pc/"))
            .remove(QStringLiteral(".png"));
    }

    // A popup takes the pointer as soon as it shows, but stands still only once it is opened.
    bool standsOpen(const QString &popup) const
    {
        return QTest::qWaitFor([&] { return flag(popup + QStringLiteral(".opened")); });
    }
    bool standsClosed(const QString &popup) const
    {
        return QTest::qWaitFor([&] { return !flag(popup + QStringLiteral(".visible")); });
    }

    QPoint middle(QQuickItem *target) const
    {
        return target->mapToScene(QPointF(target->width() / 2, target->height() / 2)).toPoint();
    }
    QPoint corner(const QString &id) const { return item(id)->mapToScene(QPointF(0, 0)).toPoint(); }

    void press(const QString &id) { pressAt(middle(item(id))); }
    void release(const QString &id) { QTest::mouseRelease(window, Qt::LeftButton, {}, middle(item(id))); }
    void pressAt(const QPoint &place)
    {
        QTest::mouseMove(window, place);
        QTest::mousePress(window, Qt::LeftButton, {}, place);
    }
    void clickAt(const QPoint &place)
    {
        pressAt(place);
        QTest::mouseRelease(window, Qt::LeftButton, {}, place);
    }
    void click(const QString &id) { clickAt(middle(item(id))); }

    // Opens a drop-down and picks a row, scrolled to if need be.
    void choose(const QString &combo, int row)
    {
        click(combo);
        if (!standsOpen(combo + QStringLiteral(".popup")))
            qFatal("%s does not open", qPrintable(combo));
        QQuickItem *box = item(combo);
        QQuickItem *list = item(combo + QStringLiteral(".popup.contentItem"));
        // The rows come with the first frame after the list opens.
        QTest::qWait(100);
        // What a turn of the wheel does.
        eval(combo + QStringLiteral(".popup.contentItem.positionViewAtIndex(%1, 4)").arg(row));
        const qreal top = list->property("contentY").toReal();
        clickAt(list->mapToScene(QPointF(list->width() / 2, (row + 0.5) * box->height() - top)).toPoint());
        if (!standsClosed(combo + QStringLiteral(".popup")))
            qFatal("%s does not close on row %d, is on %d", qPrintable(combo), row,
                   number(combo + ".currentIndex"));
    }

    void type(const QString &field, const QString &typed)
    {
        click(field);
        QTest::keySequence(window, QKeySequence::SelectAll);
        for (const QChar c : typed)
            QTest::keyClick(window, c.toLatin1());
    }

    // The whole window with its popups; kept under PICTURES_TO, if that is set, for a look by eye.
    QImage grab(const QString &name)
    {
        const auto result = window->contentItem()->grabToImage();
        QSignalSpy ready(result.data(), &QQuickItemGrabResult::ready);
        if (!ready.wait(5000))
            return {};
        const QString folder = qEnvironmentVariable("PICTURES_TO");
        if (!folder.isEmpty())
            result->image().save(folder + QLatin1Char('/') + name + QStringLiteral(".png"));
        return result->image();
    }

private:
    // The window's own content stands beside its overlay of popups.
    QQuickItem *itemOfDocument() const
    {
        return window->property("contentItem").value<QQuickItem *>()->childItems().constFirst();
    }

    std::unique_ptr<QQmlApplicationEngine> m_engine;
};
