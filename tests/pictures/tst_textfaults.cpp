// What the pictures' tests say of texts and pictures, each sentence on a screen that has just that fault, and none on
// the same screen without it.

#include "textfaults.h"

#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QtTest>

namespace {

constexpr QSize kWindow(300, 100);

void add(const char *name, const char *document, const QString &fault = {})
{
    QTest::newRow(name) << QByteArray(document) << fault;
}

} // namespace

class TestTextFaults : public QObject
{
    Q_OBJECT

private slots:
    void aFaultIsSeen_data();
    void aFaultIsSeen();
};

void TestTextFaults::aFaultIsSeen_data()
{
    QTest::addColumn<QByteArray>("document");
    QTest::addColumn<QString>("fault");

    add("two texts", "Text { text: 'one' } Text { x: 100; text: 'two' }");
    add("one text over another", "Text { text: 'one' } Text { x: 5; text: 'two' }", "'one' lies over 'two'");
    add("an unseen text over another", "Text { text: 'one' } Text { x: 5; text: 'two'; visible: false }");

    add("a text with room", "Text { text: 'Output'; width: 100; elide: Text.ElideRight }");
    add("a text cut short", "Text { text: 'Output'; width: 20; elide: Text.ElideRight }",
        "'Output' is cut short");

    add("a text on its ground", "Rectangle { width: 100; height: 50; Text { y: 10; text: 'Output' } }");
    add("a text across the edge of its ground",
        "Rectangle { width: 20; height: 50; Text { y: 10; text: 'Output' } }",
        "'Output' at .* crosses the edge of");
    add("a text across an edge that is not painted",
        "Rectangle { width: 20; height: 50; color: 'transparent'; Text { y: 10; text: 'Output' } }");
    add("a text across the edge of a picture",
        "Image { source: 'qrc:/img/pc/btn_n_checkbox_output.png'; Text { x: 10; text: 'Output' } }",
        "'Output' at .* crosses the edge of QQuickImage");

    add("a text in its clip", "Item { width: 100; height: 50; clip: true; Text { text: 'Output' } }");
    add("a text cut off by its clip", "Item { width: 20; height: 50; clip: true; Text { text: 'Output' } }",
        "'Output' is cut off");
    add("a text half scrolled away", "Item { width: 100; height: 8; clip: true; Text { text: 'Output' } }");

    add("a field with room", "TextInput { width: 200; text: '192.168.72.128' }");
    add("a field too small", "TextInput { width: 40; text: '192.168.72.128' }",
        "'192.168.72.128' is longer than its field");

    add("a picture in its size", "Image { source: 'qrc:/img/pc/btn_n_checkbox_output.png' }");
    add("a picture made larger",
        "Image { width: 40; height: 40; source: 'qrc:/img/pc/btn_n_checkbox_output.png' }",
        "btn_n_checkbox_output.png has 20 dots for 40");
    add("a picture on a larger item",
        "Item { scale: 2; Image { source: 'qrc:/img/pc/btn_n_checkbox_output.png' } }",
        "btn_n_checkbox_output.png has 20 dots for 40");
    add("an unseen picture made larger",
        "Image { width: 40; opacity: 0; source: 'qrc:/img/pc/btn_n_checkbox_output.png' }");
}

void TestTextFaults::aFaultIsSeen()
{
    QFETCH(QByteArray, document);
    QFETCH(QString, fault);
    QQuickWindow window;
    window.resize(kWindow);
    QQmlEngine engine;
    QQmlComponent component(&engine);
    component.setData("import QtQuick 2.12\nItem { width: 300; height: 100\n" + document + "\n}", {});
    QScopedPointer<QObject> made(component.create());
    QVERIFY2(made, qPrintable(component.errorString()));
    qobject_cast<QQuickItem *>(made.data())->setParentItem(window.contentItem());

    const QStringList found = textFaults(window) + softPictures(window);
    const QString all = found.join(QLatin1Char('\n'));
    QVERIFY2(found.size() == (fault.isEmpty() ? 0 : 1), qPrintable(all));
    QVERIFY2(fault.isEmpty() || all.contains(QRegularExpression(fault)), qPrintable(all));
}

QTEST_MAIN(TestTextFaults)
#include "tst_textfaults.moc"
