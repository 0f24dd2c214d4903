#include "panelfacade.h"
#include "panelharness.h"
#include "tests/support/checked.h"

#include <QGuiApplication>
#include <QScreen>

// Work of seconds blocks the screen. What stands on it meanwhile is the picture that was drawn last, and that shows the
// control pressed, and what is being done. The pictures are the screen's own, taken while the call is under way.

namespace {

// Takes a picture of the screen in each call that blocks for more than a second with a real unit.
class FilmedFacade : public PanelFacade
{
    Q_OBJECT

public:
    QQuickWindow *window = nullptr;
    QHash<QString, QImage> taken; // by the name of the call
    const QSignalSpy *frames = nullptr;
    int framesAtCall = -1;

    QImage screen() const
    {
        return window->screen()->grabWindow(window->winId()).toImage().convertToFormat(QImage::Format_RGB32);
    }

    Q_INVOKABLE uint hlnpScan(QString cmd, int netcardIndex)
    {
        taken[QStringLiteral("hlnpScan")] = screen();
        return PanelFacade::hlnpScan(cmd, netcardIndex);
    }

public slots:
    QString deviceConnect(uint, QString, uint)
    {
        taken[QStringLiteral("deviceConnect")] = screen();
        return QStringLiteral("Ethernet not Connected!");
    }
    void loadMemory(uint)
    {
        taken[QStringLiteral("loadMemory")] = screen();
        framesAtCall = frames ? frames->count() : -1;
    }
    void saveMemory(uint) { taken[QStringLiteral("saveMemory")] = screen(); }
    void setVOut(uint, uint, uint) { taken[QStringLiteral("setVOut")] = screen(); }
    void setBKColor(uint, uint, uint, uint) { taken[QStringLiteral("setBKColor")] = screen(); }
    void resetBKColor() { taken[QStringLiteral("resetBKColor")] = screen(); }
    void msecSleep(uint) { }
    QString hlnpSave(QString, QString, int, QString, QString, int, QString, QString, QString, QString,
                     QString)
    {
        taken[QStringLiteral("hlnpSave")] = screen();
        return QStringLiteral("OK");
    }
};

struct Work
{
    const char *name;
    const char *enter; // opens what the control stands in
    const char *control; // the item that is pressed
    const char *text; // the item whose text tells what is being done, if there is one
    const char *says;
    const char *call;
};

constexpr Work kWorks[] = {
    {"memory load", "", "outputMemoryLoad", "outputTitleUserMemOp", "Setting up...", "loadMemory"},
    {"memory save", "", "outputMemorySave", "outputTitleUserMemOp", "Setting up...", "saveMemory"},
    {"scan", "popupConnect.open()", "imgConnectScan", "msgConnect", "Scanning...", "hlnpScan"},
    {"connect", "popupConnect.open()", "btnConnectConnect", "msgConnect", "", "deviceConnect"},
    {"network save", "popupConnect.open()", "btnConnectSave", "msgConnect", "Saving...", "hlnpSave"},
    {"setup save", "popupSetup.open()", "btnSetupSave", "", "", "setVOut"},
    {"factory default", "popupSetup.open(); popupFactoryDefault.open()", "btnFactoryReset", "", "",
     "loadMemory"},
    {"reconnect", "popupWarning.open()", "btnWarningReconnect", "", "", "deviceConnect"},
    {"automatic key", "selectPage(2)", "pageCK.btnCkBKColorAuto", "", "", "setBKColor"},
    {"key reset", "selectPage(2)", "pageCK.btnMGReset", "", "", "resetBKColor"},
    {"automatic key of the picker", "selectPage(2); pageCK.imgColorPen.clicked()",
     "pageCK.btnColorPickerAuto", "", "", "setBKColor"},
};

} // namespace

class TestPressed : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void tapIsSeenBeforeItsWork_data();
    void tapIsSeenBeforeItsWork();
    void keyIsSeenBeforeItsWork_data() { tapIsSeenBeforeItsWork_data(); }
    void keyIsSeenBeforeItsWork();
    void slowPressDrawsNoMore();

private:
    void workAndLook(bool byKey);
    void send(bool byKey, bool down, const QPoint &place);
    QRect placeOf(const char *id) const;

    std::unique_ptr<FilmedFacade> facade;
    std::unique_ptr<PanelHarness> h;
};

void TestPressed::init()
{
    facade = std::make_unique<FilmedFacade>();
    h = std::make_unique<PanelHarness>(facade.get());
    facade->window = h->window;
    QVERIFY(h->show());
    QVERIFY(h->standsOpen("popupMask"));
    facade->report();
    emit facade->autoConnectResult("OK");
    QVERIFY(h->standsClosed("popupMask"));
    emit facade->refreshConnectionData(999, "na", false, "QKV_720_A", "192.168.72.128", "00:1E:C0:5A:07:20",
                                       "192.168.72.254", "255.255.255.0", "192.168.72.1", "8.8.8.8");
    h->eval("memoryLock = false");
}

void TestPressed::cleanup()
{
    QCOMPARE(Messages::warnings(), QStringList());
    h.reset();
    facade.reset();
}

void TestPressed::tapIsSeenBeforeItsWork_data()
{
    QTest::addColumn<int>("work");
    for (int i = 0; i < int(std::size(kWorks)); ++i)
        QTest::newRow(kWorks[i].name) << i;
}

QRect TestPressed::placeOf(const char *id) const
{
    const QQuickItem *item = h->item(QString::fromLatin1(id));
    return item->mapRectToScene(QRectF(0, 0, item->width(), item->height())).toRect();
}

// Straight to the window: the test library would go through the event loop after each, and so draw.
void TestPressed::send(bool byKey, bool down, const QPoint &place)
{
    QKeyEvent key(down ? QEvent::KeyPress : QEvent::KeyRelease, Qt::Key_Space, Qt::NoModifier, " ");
    QMouseEvent button(down ? QEvent::MouseButtonPress : QEvent::MouseButtonRelease, place,
                       h->window->mapToGlobal(place), Qt::LeftButton, down ? Qt::LeftButton : Qt::NoButton,
                       {});
    QCoreApplication::sendEvent(h->window, byKey ? static_cast<QEvent *>(&key) : &button);
}

void TestPressed::workAndLook(bool byKey)
{
    QFETCH(int, work);
    const Work &w = kWorks[work];
    h->eval(QString::fromLatin1(w.enter));
    QVERIFY(h->rests(350));
    QQuickItem *control = h->item(QString::fromLatin1(w.control));
    const QRect place = placeOf(w.control);
    const QImage before = facade->screen();
    QVERIFY(!before.isNull());
    // Press and release in one breath, no event in between.
    if (byKey) {
        QQuickItem *stop = control->activeFocusOnTab() ? control : control->childItems().constFirst();
        stop->forceActiveFocus(Qt::MouseFocusReason);
    } else {
        QTest::mouseMove(h->window, h->middle(control));
    }
    send(byKey, true, h->middle(control));
    const QString said = *w.text ? h->text(QString::fromLatin1(w.text) + ".text") : QString();
    QCOMPARE(said, QString::fromLatin1(w.says));
    send(byKey, false, h->middle(control));
    const QImage during = facade->taken.value(w.call);
    QVERIFY2(!during.isNull(), "not called");
    QVERIFY2(during.copy(place) != before.copy(place), "the face was not pressed on the screen");
    if (!*w.says)
        return;
    const QRect line = placeOf(w.text);
    // It stood there as it stands when it has time.
    QVERIFY2(during.copy(line) != before.copy(line), "the text was not on the screen");
    h->eval(QStringLiteral("%1.text = '%2'").arg(QLatin1String(w.text), QLatin1String(w.says)));
    QTRY_COMPARE(during.copy(line), facade->screen().copy(line));
}

void TestPressed::tapIsSeenBeforeItsWork()
{
    workAndLook(false);
}

void TestPressed::keyIsSeenBeforeItsWork()
{
    workAndLook(true);
}

// A frame that came between press and release is enough.
void TestPressed::slowPressDrawsNoMore()
{
    QSignalSpy frames(h->window, &QQuickWindow::afterAnimating);
    facade->frames = &frames;
    h->press("outputMemoryLoad");
    QTRY_VERIFY(frames.count() > 0);
    QVERIFY(h->rests(350)); // frames that the press left to be drawn are none of the release
    frames.clear();
    h->release("outputMemoryLoad");
    QCOMPARE(facade->framesAtCall, 0);
}

QTEST_MAIN(TestPressed)
#include "tst_pressed.moc"
