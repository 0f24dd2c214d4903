#include "panelfacade.h"
#include "panelharness.h"

// Host names as units on a network may bear them: what the form shows, and what a save makes of them.
class TestHostName : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void oddNamesAreShownAndKept_data();
    void oddNamesAreShownAndKept();
    void savedNameIsShownAndKept();
    void typedNameIsSaved();
    void emptiedFieldIsSavedEmpty();

private:
    void show(const QString &name);
    QString savedName();

    std::unique_ptr<PanelFacade> facade;
    std::unique_ptr<PanelHarness> h;
};

void TestHostName::init()
{
    facade = std::make_unique<PanelFacade>();
    h = std::make_unique<PanelHarness>(facade.get());
    QVERIFY(h->show());
    QVERIFY(h->standsOpen("popupMask"));
    h->click("btnConnect");
    QVERIFY(h->standsOpen("popupConnect"));
    h->click("imgConnectScan");
}

void TestHostName::cleanup()
{
    h.reset();
    facade.reset();
}

void TestHostName::show(const QString &name)
{
    emit facade->refreshConnectionData(999, "na", false, name, "192.168.72.128", "00:1E:C0:5A:07:20",
                                       "192.168.72.254", "255.255.255.0", "192.168.72.1", "8.8.8.8");
}

// The name that a press on Save hands to the facade.
QString TestHostName::savedName()
{
    facade->forget();
    h->click("btnConnectSave");
    const QStringList saves = facade->calls.filter("hlnpSave(");
    return saves.size() == 1 ? saves.first().section(", ", 4, 4) : QString::number(saves.size());
}

void TestHostName::oddNamesAreShownAndKept_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("shown");
    QTest::newRow("plain") << "STUDIO_1"
                           << "STUDIO_1";
    QTest::newRow("16 bytes") << "ABCDEFGHIJKLMNOP"
                              << "ABCDEFGHIJKLMNO";
    QTest::newRow("direction turned") << QStringLiteral("\u202e1_OIDUTS") << QStringLiteral("\ufffd1_OIDUTS");
    QTest::newRow("isolates and marks")
        << QStringLiteral("\u2066A\u2069\u200f\u061cB") << QStringLiteral("\ufffdA\ufffd\ufffd\ufffdB");
    QTest::newRow("control characters")
        << QStringLiteral("A\nB\x1b\u009bC") << QStringLiteral("A\ufffdB\ufffd\ufffdC");
    QTest::newRow("other script") << QStringLiteral("鍵控器") << QStringLiteral("鍵控器");
}

void TestHostName::oddNamesAreShownAndKept()
{
    QFETCH(QString, name);
    QFETCH(QString, shown);
    show(name);
    QCOMPARE(h->text("txtHostname.text"), shown);
    QCOMPARE(savedName(), name);
    QCOMPARE(h->text("msgConnect.text"), QStringLiteral("Please reboot this device: \n") + shown);
}

void TestHostName::savedNameIsShownAndKept()
{
    const QString name = QStringLiteral("ABCDEFGHIJKLMN\u202eP");
    emit facade->refreshConnection(1, "", "[192.168.72.10] enp3s0", false, "192.168.72.128", name,
                                   "00:1E:C0:5A:07:20", "192.168.72.254", "255.255.255.0", "192.168.72.1",
                                   "8.8.8.8");
    QCOMPARE(h->text("txtHostname.text"), QStringLiteral("ABCDEFGHIJKLMN\ufffd"));
    QCOMPARE(savedName(), name);
}

void TestHostName::typedNameIsSaved()
{
    show(QStringLiteral("ABCDEFGHIJKLMNOP"));
    h->type("txtHostname", "STUDIO_2");
    QCOMPARE(savedName(), QStringLiteral("STUDIO_2"));
}

void TestHostName::emptiedFieldIsSavedEmpty()
{
    show(QStringLiteral("ABCDEFGHIJKLMNOP"));
    h->eval("txtHostname.clear()");
    QCOMPARE(savedName(), QString());
}

QTEST_MAIN(TestHostName)
#include "tst_hostname.moc"
