#pragma once

#include "recordedfacade.h"
#include "shell/qmltranslator.h"

#include <QLoggingCategory>
#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQmlExpression>
#include <QQuickItem>
#include <QQuickItemGrabResult>
#include <QQuickWindow>
#include <QSharedPointer>
#include <QtTest>

#include <memory>

// What the program printed since the last forget(), warnings apart.
struct Messages
{
    static QStringList &logs()
    {
        static QStringList list;
        return list;
    }
    static QStringList &warnings()
    {
        static QStringList list;
        return list;
    }
    static void take(QtMsgType type, const QMessageLogContext &context, const QString &text)
    {
        if (type == QtWarningMsg || type == QtCriticalMsg || type == QtFatalMsg) {
            warnings() << text;
            fprintf(stderr, "warning: %s (%s)\n", qPrintable(text), context.file ? context.file : "");
        } else {
            logs() << text;
        }
    }
};

// One document in a window of the panel's size, which offers what the pages read from the main document:
// mainObject (recorded), qmlTranslator (the real one), hlFontEnRegular and listResolution.
class PageHarness
{
public:
    RecordedFacade facade;
    QmlTranslator translator;

    // content: what stands in the content area; the item with id "page" is the one under test.
    // mainObject: the facade to use in the place of the recorded one.
    explicit PageHarness(const QByteArray &content, QObject *mainObject = nullptr)
    {
        Messages::logs().clear();
        Messages::warnings().clear();
        qInstallMessageHandler(&Messages::take);
        QLoggingCategory::setFilterRules(QStringLiteral("qt.qml.connections=false"));
        QFont::insertSubstitution(QStringLiteral("Noto Sans CJK TC Regular"),
                                  QStringLiteral("Noto Sans CJK TC"));
        m_engine.rootContext()->setContextProperty(QStringLiteral("mainObject"),
                                                   mainObject ? mainObject : &facade);
        m_engine.rootContext()->setContextProperty(QStringLiteral("qmlTranslator"), &translator);
        QQmlComponent component(&m_engine);
        component.setData(document(content), QUrl(QStringLiteral("qrc:/PageHarness.qml")));
        m_root.reset(component.create());
        if (!m_root)
            qFatal("%s", qPrintable(component.errorString()));
        window = qobject_cast<QQuickWindow *>(m_root.get());
        page = m_root->property("pageItem").value<QQuickItem *>();
    }

    ~PageHarness()
    {
        m_root.reset();
        qInstallMessageHandler(nullptr);
    }

    QQuickWindow *window = nullptr;
    QQuickItem *page = nullptr;

    bool show()
    {
        window->show();
        return QTest::qWaitForWindowExposed(window);
    }

    // Evaluated where the page's own ids are known.
    QVariant eval(const QString &expression) const
    {
        QQuickItem *inside = page->childItems().isEmpty() ? page : page->childItems().constFirst();
        QQmlExpression run(QQmlEngine::contextForObject(inside), inside, expression);
        bool undefined = false;
        const QVariant value = run.evaluate(&undefined);
        if (run.hasError())
            qFatal("%s", qPrintable(run.error().toString()));
        return value;
    }

    // The same in a document nested in the page, such as a row: object names an item declared in it.
    QQuickItem *item(const QString &id) const { return eval(id).value<QQuickItem *>(); }
    int number(const QString &expression) const { return eval(expression).toInt(); }
    bool flag(const QString &expression) const { return eval(expression).toBool(); }
    QString text(const QString &expression) const { return eval(expression).toString(); }
    // The file name of a picture, with its language folder if any.
    QString face(const QString &expression) const
    {
        return text(expression).remove(QStringLiteral("qrc:/img/pc/")).remove(QStringLiteral(".png"));
    }
    QString color(const QString &expression) const
    {
        return eval(expression).value<QColor>().name().toUpper();
    }

    QPoint at(QQuickItem *target, qreal x, qreal y) const
    {
        return target->mapToScene(QPointF(x, y)).toPoint();
    }
    QPoint middle(QQuickItem *target) const { return at(target, target->width() / 2, target->height() / 2); }

    void press(const QPoint &place)
    {
        QTest::mouseMove(window, place);
        QTest::mousePress(window, Qt::LeftButton, {}, place);
    }
    void move(const QPoint &place)
    {
        // With the button held: a plain mouseMove of the test library tells no button.
        QMouseEvent event(QEvent::MouseMove, place, window->mapToGlobal(place), Qt::NoButton, Qt::LeftButton,
                          {});
        QCoreApplication::sendEvent(window, &event);
    }
    void release(const QPoint &place) { QTest::mouseRelease(window, Qt::LeftButton, {}, place); }
    void click(QQuickItem *target)
    {
        press(middle(target));
        release(middle(target));
    }
    void click(const QString &id) { click(item(id)); }

    // Clears the field, types and presses Return, as the operator does.
    void typeInto(QQuickItem *field, const QString &typed, Qt::Key end = Qt::Key_Return)
    {
        click(field);
        QTest::keySequence(window, QKeySequence::SelectAll);
        for (const QChar c : typed)
            QTest::keyClick(window, c.toLatin1());
        if (end != Qt::Key_unknown)
            QTest::keyClick(window, end);
    }
    void typeInto(const QString &id, const QString &typed, Qt::Key end = Qt::Key_Return)
    {
        typeInto(item(id), typed, end);
    }

    // Where the handle of a row's slider stands for a value.
    QPoint handleAt(const QString &row, int value) const
    {
        QQuickItem *slider = item(row + QStringLiteral(".itemSlider"));
        const qreal low = slider->property("minimumValue").toReal();
        const qreal high = slider->property("maximumValue").toReal();
        return at(slider, 11 + (slider->width() - 22) * (value - low) / (high - low), slider->height() / 2);
    }

    // Draws the item and keeps the picture under PICTURES_TO, if that is set, for a look by eye.
    QImage grab(QQuickItem *target, const QString &name)
    {
        const QSharedPointer<QQuickItemGrabResult> result = target->grabToImage();
        QSignalSpy ready(result.data(), &QQuickItemGrabResult::ready);
        if (!ready.wait(5000))
            return {};
        const QString folder = qEnvironmentVariable("PICTURES_TO");
        if (!folder.isEmpty())
            result->image().save(folder + QLatin1Char('/') + name + QStringLiteral(".png"));
        return result->image();
    }

private:
    static QByteArray document(const QByteArray &content)
    {
        return QByteArrayLiteral(R"(
import QtQuick 2.12
import QtQuick.Controls 2.5
import "blocks"

ApplicationWindow {
    id: mainWindow
    property Item pageItem: page
    property string sourcePath: "qrc:/img/pc/"
    width: 1366
    height: 768
    font.pixelSize: 18
    FontLoader { id: hlFontEnRegular; source: "qrc:/Carlito-Regular.ttf" }
    ListModel { id: listResolution }
    Component.onCompleted: {
        var names = ["None", "PAL", "NTSC", "720p50", "720p59.94", "720p60", "1080i50", "1080i59.94", "1080i60",
            "1080p23.98", "1080p24", "1080p25", "1080p29.97", "1080p30", "1080p50", "1080p59.94", "1080p60",
            "2160p23.98", "2160p24", "2160p25", "2160p29.97", "2160p30", "2160p50", "2160p59.94", "2160p60",
            "2160wp23.98", "2160wp24", "2160wp25", "2160wp29.97", "2160wp30", "2160wp50", "2160wp59.94", "2160wp60"]
        for (var i = 0; i < names.length; ++i)
            listResolution.append({ modelData: names[i], value: i })
    }
    Image { source: "qrc:/img/pc/img_bg_02_dashboard.png" }
    Image {
        x: 176
        y: 148
        source: "qrc:/img/pc/img_bg_content_dashbpard.png"
)") + content
            + "\n    }\n}\n";
    }

    QQmlEngine m_engine;
    std::unique_ptr<QObject> m_root;
};
