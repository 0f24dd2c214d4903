#pragma once

#include "panelfacade.h"
#include "panelharness.h"
#include "tests/support/checked.h"

// The connection panel, the mask and the notices, worked by mouse and keys over a recorded facade.
class ConnectionBench : public QObject
{
protected:
    void init()
    {
        facade = std::make_unique<PanelFacade>();
        h = std::make_unique<PanelHarness>(facade.get());
        QVERIFY(h->show());
        QVERIFY(h->standsOpen("popupMask"));
        facade->forget();
    }

    void cleanup()
    {
        QCOMPARE(Messages::warnings(), QStringList());
        h.reset();
        facade.reset();
    }

    void openPanel()
    {
        h->click("btnConnect");
        QVERIFY(h->standsOpen("popupConnect"));
        facade->forget();
    }

    void showUnit(bool dhcp = false, const QString &address = "192.168.72.128")
    {
        emit facade->refreshConnectionData(999, "na", dhcp, "QKV_A", address, "00:1E:C0:5A:07:20",
                                           "192.168.72.254", "255.255.255.0", "192.168.72.1", "8.8.8.8");
    }

    std::unique_ptr<PanelFacade> facade;
    std::unique_ptr<PanelHarness> h;
};
