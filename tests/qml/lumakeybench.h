#pragma once

#include "pageharness.h"
#include "tests/support/checked.h"

// The luma key page over a recorded facade.
class LumakeyBench : public QObject
{
protected:
    void init()
    {
        h = std::make_unique<PageHarness>("PageAuxLumakey { id: page; anchors.fill: parent }");
        QVERIFY(h->show());
    }

    void cleanup()
    {
        QCOMPARE(Messages::warnings(), QStringList());
        h.reset();
        QLocale::setDefault(QLocale::c());
    }

    // As the unit tells on connect; moves no slider, so nothing is sent back.
    void turnOn()
    {
        emit h->facade.refreshLumaKey(true, 0, 0, 0, 0, 0, 0);
        QVERIFY(h->flag("auxLumakeyOn"));
        QCOMPARE(h->facade.calls, QStringList());
    }

    std::unique_ptr<PageHarness> h;
};
