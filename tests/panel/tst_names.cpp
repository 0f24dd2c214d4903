#include "panelfacade.h"
#include "panelharness.h"

#include <QColor>
#include <QFile>
#include <QMetaMethod>
#include <QQmlPropertyMap>
#include <QQuickItem>

// What the documents of the screen offer to each other by name, listed in tests/vectors/names.txt: each name
// resolves from the root of its document, wherever in it (or in the parts it is made of) the thing itself
// stands, and each property can be written and bound.
class TestNames : public QObject
{
    Q_OBJECT

private slots:
    void theListIsWhole();
    void namesResolve_data() { documents(); }
    void namesResolve();
    void propertiesTakeWrites_data() { documents(); }
    void propertiesTakeWrites();
    void propertiesTakeBindings_data() { documents(); }
    void propertiesTakeBindings();

private:
    struct Row
    {
        QString document, kind, name;
    };
    static QVector<Row> rows(const QString &document = {});
    static void documents();
};

namespace {

// One document of the screen, made as the engine makes it, in the context of the window's own ids.
class Document
{
public:
    explicit Document(const QString &name)
    {
        QLoggingCategory::setFilterRules(QStringLiteral("qt.qml.connections=false"));
        QQmlContext *context = m_engine.rootContext();
        context->setContextProperty(QStringLiteral("mainObject"), &m_facade);
        context->setContextProperty(QStringLiteral("qmlTranslator"), &m_translator);
        context->setContextProperty(QStringLiteral("sources"), &m_sources);
        if (name != QLatin1String("main"))
            offerIdsOfTheWindow();
        QQmlComponent component(&m_engine, QUrl(QStringLiteral("qrc:/%1.qml").arg(name)));
        m_root.reset(component.create());
        if (!m_root)
            qFatal("%s", qPrintable(component.errorString()));
        if (auto *item = qobject_cast<QQuickItem *>(m_root.get()))
            item->setParentItem(m_window.contentItem());
    }

    QObject *root() const { return m_root.get(); }

    // As any expression of the root itself would be evaluated. An error comes back as its text.
    QVariant eval(const QString &expression, QString *error) const
    {
        QQmlExpression run(QQmlEngine::contextForObject(m_root.get()), m_root.get(), expression);
        bool undefined = false;
        const QVariant value = run.evaluate(&undefined);
        *error = run.hasError() ? run.error().description()
            : undefined         ? QStringLiteral("%1 is undefined").arg(expression)
                                : QString();
        return value;
    }

    // Where a written or bound value comes from, one place for each name; gives the expression that reads it.
    QString sourceFor(const QString &name, const QVariant &value)
    {
        const QString key = QString(name).replace(QLatin1Char('.'), QLatin1Char('_'));
        m_sources.insert(key, value);
        return QStringLiteral("sources.") + key;
    }

private:
    void offerIdsOfTheWindow()
    {
        QQmlComponent ids(&m_engine);
        ids.setData("import QtQuick 2.12\n"
                    "QtObject {\n"
                    "    property FontLoader font: FontLoader { source: 'qrc:/Carlito-Regular.ttf' }\n"
                    "    property ListModel resolutions: ListModel { ListElement { modelData: 'None' } }\n"
                    "}\n",
                    QUrl());
        m_ids.reset(ids.create());
        QQmlContext *context = m_engine.rootContext();
        context->setContextProperty(QStringLiteral("hlFontEnRegular"),
                                    m_ids->property("font").value<QObject *>());
        context->setContextProperty(QStringLiteral("listResolution"),
                                    m_ids->property("resolutions").value<QObject *>());
    }

    Messages m_messages;
    PanelFacade m_facade;
    QQmlPropertyMap m_sources;
    QmlTranslator m_translator;
    QQmlEngine m_engine;
    QQuickWindow m_window;
    std::unique_ptr<QObject> m_ids;
    std::unique_ptr<QObject> m_root;
};

// A value of the same kind that the property does not hold yet.
QVariant anotherValue(const QVariant &value)
{
    switch (int(value.type())) {
    case QMetaType::Bool:
        return !value.toBool();
    case QMetaType::Int:
    case QMetaType::Double:
    case QMetaType::Float:
        return value.toInt() + 1;
    case QMetaType::QColor:
        return QColor(0x12, 0x34, 0x56);
    case QMetaType::QUrl:
        return QUrl(QStringLiteral("qrc:/img/pc/ico_alert.png"));
    case QMetaType::QString:
        return value.toString().endsWith(QLatin1Char('/')) ? QStringLiteral("qrc:/img/pc/CN/")
                                                           : QStringLiteral("7");
    default:
        return QStringList({QStringLiteral("a"), QStringLiteral("b")});
    }
}

bool same(const QVariant &value, const QVariant &wanted)
{
    if (wanted.type() == QVariant::StringList)
        return value.toStringList() == wanted.toStringList();
    return value == wanted || value.toString() == wanted.toString();
}

} // namespace

QVector<TestNames::Row> TestNames::rows(const QString &document)
{
    QVector<Row> found;
    QFile file(QStringLiteral(QT_TESTCASE_SOURCEDIR "/vectors/names.txt"));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("the list of names is missing");
    const QStringList lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (const QString &line : lines) {
        const QStringList words = line.simplified().split(QLatin1Char(' '));
        if (line.startsWith(QLatin1Char('#')) || (!document.isEmpty() && words.at(0) != document))
            continue;
        for (int i = 2; i < words.size(); ++i)
            found.append({words.at(0), words.at(1), words.at(i)});
    }
    return found;
}

void TestNames::documents()
{
    QTest::addColumn<QString>("document");
    QStringList seen;
    for (const Row &row : rows()) {
        if (seen.contains(row.document))
            continue;
        seen << row.document;
        QTest::newRow(qPrintable(row.document)) << row.document;
    }
}

void TestNames::theListIsWhole()
{
    const QStringList kinds{QStringLiteral("id"), QStringLiteral("property"), QStringLiteral("function"),
                            QStringLiteral("signal")};
    QStringList documents;
    QStringList twice;
    QSet<QString> seen;
    for (const Row &row : rows()) {
        QVERIFY2(kinds.contains(row.kind), qPrintable(row.kind));
        if (!documents.contains(row.document))
            documents << row.document;
        const QString name = row.document + QLatin1Char(' ') + row.name;
        if (seen.contains(name))
            twice << name;
        seen.insert(name);
    }
    QCOMPARE(twice, QStringList());
    QCOMPARE(documents,
             QStringList({"main", "MyControlItem", "MyComboBox", "PageBusy", "PageInput", "PageChromakey",
                          "PagePostProcessor", "PageGarbageMask", "PageHoldoutWindow", "PageAuxLumakey"}));
}

void TestNames::namesResolve()
{
    QFETCH(QString, document);
    const Document h(document);
    QStringList lost;
    for (const Row &row : rows(document)) {
        QString error;
        const QVariant value = h.eval(row.name, &error);
        if (row.kind == QLatin1String("id") && error.isEmpty() && !value.value<QObject *>())
            error = row.name + QStringLiteral(" is no object");
        if (row.kind == QLatin1String("function") || row.kind == QLatin1String("signal")) {
            QString kind = h.eval(QStringLiteral("typeof ") + row.name, &error).toString();
            if (error.isEmpty() && kind != QLatin1String("function"))
                error = row.name + QStringLiteral(" is no function");
        }
        if (row.kind == QLatin1String("signal")
            && h.root()->metaObject()->indexOfSignal(qPrintable(row.name + QStringLiteral("()"))) < 0)
            error = row.name + QStringLiteral(" is no signal");
        if (!error.isEmpty())
            lost << error;
    }
    QCOMPARE(lost.join(QLatin1Char('\n')), QString());
}

void TestNames::propertiesTakeWrites()
{
    QFETCH(QString, document);
    Document h(document);
    QString error;
    // What stands in a closed popup counts as invisible whatever is written to it.
    if (document == QLatin1String("main"))
        h.eval(QStringLiteral("popupConnect.open() || popupSetup.open() || true"), &error);
    QStringList refused;
    for (const Row &row : rows(document)) {
        if (row.kind != QLatin1String("property"))
            continue;
        const QVariant wanted = anotherValue(h.eval(row.name, &error));
        const QString source = h.sourceFor(row.name, wanted);
        h.eval(QStringLiteral("(%1 = %2, true)").arg(row.name, source), &error);
        if (error.isEmpty() && !same(h.eval(row.name, &error), wanted))
            error = row.name + QStringLiteral(" keeps its value");
        if (!error.isEmpty())
            refused << error;
    }
    QCOMPARE(refused.join(QLatin1Char('\n')), QString());
}

void TestNames::propertiesTakeBindings()
{
    QFETCH(QString, document);
    Document h(document);
    QString error;
    if (document == QLatin1String("main"))
        h.eval(QStringLiteral("popupConnect.open() || popupSetup.open() || true"), &error);
    QStringList unbound;
    for (const Row &row : rows(document)) {
        if (row.kind != QLatin1String("property"))
            continue;
        const QVariant first = h.eval(row.name, &error);
        const QString source = h.sourceFor(row.name, first);
        h.eval(QStringLiteral("(%1 = Qt.binding(function() { return %2 }), true)").arg(row.name, source),
               &error);
        const QVariant wanted = anotherValue(first);
        h.sourceFor(row.name, wanted);
        if (error.isEmpty() && !same(h.eval(row.name, &error), wanted))
            error = row.name + QStringLiteral(" does not follow its binding");
        if (!error.isEmpty())
            unbound << error;
    }
    QCOMPARE(unbound.join(QLatin1Char('\n')), QString());
}

QTEST_MAIN(TestNames)
#include "tst_names.moc"
