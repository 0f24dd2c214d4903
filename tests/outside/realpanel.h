#pragma once

#include "tests/outside/screenclient.h"
#include "tests/shell/panelrun.h"
#include "tests/support/testnetwork.h"
#include "tests/support/unithost.h"
#include "tests/support/virtualdisplay.h"

#include <QMap>

// The program as it ships, as a process on a display of its own: worked by events of mouse and keyboard, judged by
// its log, its screen and what the system says of the process. Controls go by the names of main.qml, see controls.txt.
class RealPanel
{
public:
    struct Place
    {
        QString host{}; // a host of the test's network; empty: the network of the test itself
        QString folder = QDir::currentPath(); // working folder: the settings lie two folders above
        Environment environment{}; // changes to it
        QStringList through{}; // a program with its arguments that starts the panel
    };

    explicit RealPanel(const Place &place);

    // Empty while all is well: the display, the window, the names. A case checks it once after the start.
    QString complaint() const;
    bool windowComes();
    bool stands(); // the window is there, and the document complete

    Run &run() { return *m_run; }
    ScreenClient &screen() { return m_screen; }

    static QRect place(const QString &control);
    void click(const QString &control);
    void drag(const QString &control, int fromPercent, int toPercent);
    // Opens a drop-down and takes a row near its top; false when it does not open.
    [[nodiscard]] bool choose(const QString &control, int row);
    QImage look(const QString &control) const { return m_screen.look(place(control)); }
    // What is there when it moves no more.
    QImage atRest(const QString &control) const { return atRest(place(control)); }
    // Waits until a control looks other than it did.
    bool changes(const QString &control, const QImage &from, int withinMs = kStartMs) const;
    bool shows(const QString &control, const QImage &picture, int withinMs = kStartMs) const;

    // Closes the window and waits for the end: the exit status, or -1 for a crash or none.
    int close(int withinMs = kStartMs);

    struct Figures
    {
        int rssKb = 0;
        int descriptors = 0;
        int threads = 0;
    };
    Figures figures() const;
    // How long it was ready to run and not let, in ms: the machine's affair, not the panel's.
    qint64 keptWaiting() const;

    // The lines of its standard error that are no plain log lines.
    QStringList strangeLines() const;

private:
    QImage atRest(const QRect &area) const;

    support::VirtualDisplay m_display;
    std::unique_ptr<Run> m_run;
    ScreenClient m_screen;
};

// An Ethernet with one host for the panel and one for a unit at 192.168.72.10, named STUDIO-1.
class Studio
{
public:
    Studio();

    QString complaint() const { return net.complaint(); }
    RealPanel::Place panelPlace() const { return {panelHost, QDir::currentPath(), {}, {}}; }

    // The settings of a panel that was connected to the unit; `changes` replace single keys of [connection].
    void saveSettings(const QMap<QString, QString> &changes = {}) const;
    // Starts with those settings: the panel finds the unit and connects by itself.
    std::unique_ptr<RealPanel> connectedPanel();
    // Waits until nothing but the poll comes, and begins the record anew.
    bool isIdle(RealPanel &panel) const;
    bool sees(int code, int withinMs = 10000) const; // a frame reaches the unit
    bool isConnected(int withinMs = 20000) const;

    support::TestNetwork net;
    QString panelHost;
    QString unitHost;
    std::unique_ptr<support::UnitHost> unit;
};

// The whole of a case's rows and rounds, as `./check outside` runs them; else a sample.
bool wholeSet();

inline int tested(int sample, int whole)
{
    return wholeSet() ? whole : sample;
}
