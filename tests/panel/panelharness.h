#pragma once

#include "tests/qml/screenharness.h"

#include <QQmlApplicationEngine>

#include <memory>

// The real main document, over a facade that the test brings.
class PanelHarness : public ScreenHarness
{
public:
    explicit PanelHarness(QObject *facade);
    ~PanelHarness() override;

    QString face(const QString &id) const { return pictureName(text(id + QStringLiteral(".source"))); }
    // The whole window with its popups.
    QImage grab(const QString &name) { return drawn(window->contentItem(), name); }

private:
    QQuickItem *itemOfDocument() const override;

    std::unique_ptr<QQmlApplicationEngine> m_engine;
};
