#include "tests/panel/panelharness.h"

PanelHarness::PanelHarness(QObject *facade)
    : m_engine(std::make_unique<QQmlApplicationEngine>())
{
    publish(*m_engine, facade);
    m_engine->load(QUrl(QStringLiteral("qrc:/main.qml")));
    if (m_engine->rootObjects().isEmpty())
        qFatal("the main document does not load");
    window = qobject_cast<QQuickWindow *>(m_engine->rootObjects().constFirst());
}

PanelHarness::~PanelHarness() = default;

QQuickItem *PanelHarness::itemOfDocument() const
{
    // The window's own content stands beside its overlay of popups.
    return window->property("contentItem").value<QQuickItem *>()->childItems().constFirst();
}
