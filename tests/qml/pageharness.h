#pragma once

#include "recordedfacade.h"
#include "screenharness.h"

#include <QQmlEngine>
#include <QSharedPointer>

#include <memory>

// One document in a window of the panel's size, which offers what the pages read from the main document:
// mainObject (recorded), qmlTranslator (the real one), hlFontEnRegular and listResolution.
class PageHarness : public ScreenHarness
{
public:
    // content: what stands in the content area; the item with id "page" is the one under test.
    // mainObject: the facade to use in the place of the recorded one.
    explicit PageHarness(const QByteArray &content, QObject *mainObject = nullptr);
    ~PageHarness() override;

    RecordedFacade facade;
    QQuickItem *page = nullptr;

    QString face(const QString &source) const { return pictureName(text(source)); }
    // Where the handle of a row's slider stands for a value.
    QPoint handleAt(const QString &row, int value) const;
    QImage grab(QQuickItem *target, const QString &name) { return drawn(target, name); }

private:
    QQuickItem *itemOfDocument() const override;

    QQmlEngine m_engine;
    std::unique_ptr<QObject> m_root;
};

// Locales whose number fields take a group sign, and the one of a machine that names none: QFETCH(QString, locale).
inline void listLocales()
{
    QTest::addColumn<QString>("locale");
    for (const char *locale : {"C", "en_US", "zh_TW", "zh_CN"})
        QTest::newRow(locale) << locale;
}
