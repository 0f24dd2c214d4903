// The program as it ships at work for some minutes: every page, sliders, memories, and links that are lost in every
// way, in real time. What it holds of memory, descriptors and threads is looked at once a minute, on the same page and
// with the link up. Argument: how many minutes. Ends with 1 when the program grew, or did not come through.

#include "bench/slope.h"
#include "tests/outside/realpanel.h"

#include <QtTest>

#include <cstdio>

namespace {

constexpr int kMinuteMs = 60000;
constexpr int kWarmUp = 5; // samples that are not counted: pools and caches find their size
constexpr double kMayGrowKb = 512; // over the whole run: what the script engine holds between two collections

class Soak
{
public:
    bool start();
    // One round of work, some seconds long. False when the program did not come through.
    bool work();
    bool lose();
    RealPanel::Figures figures() { return m_panel->figures(); }
    int end() { return m_panel->close(); }

    int rounds = 0;
    int losses = 0;
    QStringList strangeLines() const { return m_panel->strangeLines(); }
    QString output() const { return m_panel->run().output(); }

private:
    bool reconnect();

    Studio m_studio;
    std::unique_ptr<RealPanel> m_panel;
};

bool Soak::start()
{
    if (!m_studio.complaint().isEmpty()) {
        std::fprintf(stderr, "%s\n", qPrintable(m_studio.complaint()));
        return false;
    }
    m_panel = m_studio.connectedPanel();
    if (!m_panel->run().printed(QStringLiteral("StaticIP auto connect")))
        return false;
    m_panel->run().readOn(500);
    m_panel->click(QStringLiteral("outputMemoryLock"));
    return true;
}

bool Soak::work()
{
    RealPanel &panel = *m_panel;
    m_studio.unit->clearRecord();
    for (const char *entry :
         {"menuPostProcessor", "menuGarbageMask", "menuHoldoutWindow", "menuAuxLumakey"}) {
        panel.click(QLatin1String(entry));
        panel.run().readOn(400);
    }
    panel.click(QStringLiteral("menuChromakey"));
    panel.click(QStringLiteral("pageCK.pageCK_ContentHeader01.switchButton"));
    if (!m_studio.sees(0xD2))
        return false;
    panel.drag(QStringLiteral("pageCK.blackLevel.itemSlider"), 10, 20 + rounds % 60);
    panel.run().readOn(500);
    panel.click(QStringLiteral("checkboxPGMSDI"));
    if (!m_studio.sees(0xE3))
        return false;
    const char *memory = rounds % 2 == 0 ? "outputMemorySave" : "outputMemoryLoad";
    panel.click(QLatin1String(memory));
    if (!m_studio.sees(rounds % 2 == 0 ? 0xE4 : 0x64))
        return false;
    panel.run().readOn(4500);
    panel.click(QStringLiteral("menuInput"));
    panel.run().readOn(2500);
    ++rounds;
    return true;
}

// The link goes in one way after the other: the unit hangs up and comes back at once, is off for a while, says
// nothing, is cut from the network.
bool Soak::lose()
{
    RealPanel &panel = *m_panel;
    panel.run().forget();
    const int kind = losses++ % 4;
    if (kind == 0) {
        m_studio.unit->drop();
        panel.run().readOn(8000);
        // The panel connects by itself before its next frame, or takes the loss for what it is.
        return !panel.run().printed(QStringLiteral("onWarning:"), 0) || reconnect();
    }
    if (kind == 1) {
        m_studio.unit->stopListening();
        m_studio.unit->drop();
    } else if (kind == 2) {
        m_studio.unit->setFault(standin::AnyCode, standin::Fault::silent());
    } else {
        m_studio.net.setCable(m_studio.panelHost, QStringLiteral("eth0"), false);
    }
    const bool told = panel.run().printed(QStringLiteral("onWarning:"), kMinuteMs);
    m_studio.unit->clearFaults();
    m_studio.net.setCable(m_studio.panelHost, QStringLiteral("eth0"), true);
    if (kind == 1 && !m_studio.unit->listenAgain())
        return false;
    panel.run().readOn(3000);
    return told && reconnect();
}

bool Soak::reconnect()
{
    for (int attempt = 0; attempt < 5; ++attempt) {
        m_panel->run().forget();
        m_panel->click(QStringLiteral("btnWarningReconnect"));
        if (m_panel->run().printed(QStringLiteral("device connect: "), kMinuteMs)
            && m_panel->run().printed(QStringLiteral("device connect: OK"), 0)) {
            m_panel->run().readOn(500);
            return true;
        }
    }
    return false;
}

int run(int minutes)
{
    Soak soak;
    if (!soak.start())
        return 1;
    std::vector<double> rssKb;
    RealPanel::Figures first;
    RealPanel::Figures last;
    QElapsedTimer clock;
    clock.start();
    bool good = true;
    for (int minute = 1; minute <= minutes && good; ++minute) {
        while (good && clock.elapsed() < qint64{minute} * kMinuteMs - kMinuteMs / 4)
            good = soak.work();
        good = good && soak.lose() && soak.work();
        last = soak.figures();
        if (minute == qMin(kWarmUp, minutes / 2) || minute == 1)
            first = last;
        if (minute > kWarmUp)
            rssKb.push_back(last.rssKb);
        std::printf("minute %d: %d rounds, %d losses, RSS %d KB, descriptors %d, threads %d\n", minute,
                    soak.rounds, soak.losses, last.rssKb, last.descriptors, last.threads);
        std::fflush(stdout);
    }
    if (!good)
        std::fprintf(stderr, "The program did not come through; its last lines:\n%s\n",
                     qPrintable(soak.output().right(3000)));
    const double growth = rssKb.size() < 3 ? 0 : bench::slope(rssKb) * static_cast<double>(rssKb.size() - 1);
    const int status = good ? soak.end() : -1;
    const QStringList strange = soak.strangeLines();
    for (const QString &line : strange)
        std::printf("  %s\n", qPrintable(line));
    const bool through = good && growth <= kMayGrowKb && last.descriptors == first.descriptors
        && last.threads == first.threads && status == 0 && strange.isEmpty();
    std::printf(
        "%d minutes, %d rounds, %d losses: RSS %+.0f KB over the run after minute %d (least squares), "
        "descriptors %+d, threads %+d, ended with %d, %d strange lines: %s\n",
        minutes, soak.rounds, soak.losses, growth, kWarmUp, last.descriptors - first.descriptors,
        last.threads - first.threads, status, strange.size(), through ? "came through" : "fell");
    return through ? 0 : 1;
}

} // namespace

int main(int argc, char **argv)
{
    support::TestNetwork::obtainRights(argv);
    QCoreApplication application(argc, argv);
    const int minutes = argc > 1 ? atoi(argv[1]) : 30;
    if (minutes < 1) {
        std::fprintf(stderr, "panel_soak MINUTES\n");
        return 2;
    }
    return run(minutes);
}
