#include "tests/outside/realpanel.h"

#include <QThread>
#include <QtTest>

#include <sys/stat.h>

namespace {

const QString kTitle = QStringLiteral("QKV-720 v");
constexpr int kRestMs = 400; // longer than anything on the screen takes between two steps of its moving
constexpr int kPresses = 3;
constexpr int kFirstFramesMs = 500;
constexpr int kHoldoutWindowRead = 0x5F; // the last read of a connect

QMap<QString, QRect> readPlaces()
{
    QFile names(QStringLiteral(CONTROLS_FILE));
    QFile numbers(QStringLiteral(PLACES_FILE));
    QMap<QString, QRect> places;
    if (!names.open(QIODevice::ReadOnly) || !numbers.open(QIODevice::ReadOnly))
        return places;
    while (!names.atEnd()) {
        const QString name = QString::fromUtf8(names.readLine()).trimmed();
        if (name.isEmpty() || name.contains(QLatin1Char('(')))
            continue;
        const QList<QByteArray> fields = numbers.readLine().trimmed().split(' ');
        if (fields.size() == 4)
            places.insert(
                name,
                {fields.at(0).toInt(), fields.at(1).toInt(), fields.at(2).toInt(), fields.at(3).toInt()});
    }
    return places;
}

Environment on(const QString &display, const Environment &more)
{
    return [display, more](QProcessEnvironment &environment) {
        for (const char *name : {"QT_QUICK_BACKEND", "QMLSCENE_DEVICE", "QT_XCB_GL_INTEGRATION"})
            environment.remove(QLatin1String(name));
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
        environment.insert(QStringLiteral("DISPLAY"), display);
        if (more)
            more(environment);
    };
}

std::unique_ptr<Run> runAt(const RealPanel::Place &place, const QString &display)
{
    QStringList words = place.through + QStringList{QStringLiteral(PANEL_PROGRAM)};
    const QString program = words.takeFirst();
    return std::make_unique<Run>(
        program, place.folder, QStringLiteral("C.UTF-8"), on(display, place.environment),
        place.host.isEmpty() ? std::make_unique<QProcess>() : support::TestNetwork::processIn(place.host),
        words);
}

// A picture of the screen costs the display more than the panel that draws it: no more than some a second.
template <typename Condition>
bool looks(const Condition &condition, int withinMs)
{
    constexpr unsigned long kBetweenLooksMs = 50;
    return QTest::qWaitFor(
        [&] {
            QThread::msleep(kBetweenLooksMs);
            return condition();
        },
        withinMs);
}

int entriesOf(const QString &folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot).size();
}

} // namespace

RealPanel::RealPanel(const Place &place)
    : m_run(runAt(place, m_display.name()))
    , m_screen(m_display.name())
{
}

QString RealPanel::complaint() const
{
    if (!m_display.isGood() || !m_screen.isGood())
        return QStringLiteral("Xvfb cannot be started, or its display not be reached.");
    return {};
}

bool RealPanel::windowComes()
{
    return QTest::qWaitFor([this] { return m_screen.hasWindow(kTitle); }, kStartMs);
}

bool RealPanel::stands()
{
    if (!m_run->printed(QStringLiteral("onRefreshLanguage")) || !windowComes())
        return false;
    // The mask comes with the first frames and takes the focus; a press that meets it is nobody's.
    m_run->readOn(kFirstFramesMs);
    return true;
}

QRect RealPanel::place(const QString &control)
{
    static const QMap<QString, QRect> places = readPlaces();
    if (!places.contains(control))
        qFatal("%s is not in controls.txt, or the screen has no such control", qPrintable(control));
    return places.value(control);
}

void RealPanel::click(const QString &control)
{
    m_screen.click(place(control).center());
}

void RealPanel::drag(const QString &control, int fromPercent, int toPercent)
{
    const QRect all = place(control);
    const auto at = [&all](int percent) {
        return QPoint(all.left() + all.width() * percent / 100, all.center().y());
    };
    constexpr int kSteps = 8;
    m_screen.move(at(fromPercent));
    m_screen.press();
    for (int step = 1; step <= kSteps; ++step)
        m_screen.move(at(fromPercent + (toPercent - fromPercent) * step / kSteps));
    m_screen.release();
}

bool RealPanel::choose(const QString &control, int row)
{
    const QRect box = place(control);
    // Not its edge, where the ring around the box reaches in.
    constexpr int kRing = 6;
    const QRect firstRow = box.translated(0, box.height()).adjusted(kRing, kRing, -kRing, -kRing);
    const QImage closed = atRest(firstRow);
    // A press that meets the start mask as it comes is nobody's.
    bool opened = false;
    for (int press = 0; press < kPresses && !opened; ++press) {
        click(control);
        opened = looks([&] { return m_screen.look(firstRow) != closed; }, kStartMs / kPresses);
    }
    if (!opened)
        return false;
    const QImage open = atRest(firstRow);
    m_screen.click(box.center() + QPoint(0, box.height() * (row + 1)));
    // What is chosen may draw the whole screen anew, in its own time.
    return looks([&] { return atRest(firstRow) != open; }, kStartMs);
}

QImage RealPanel::atRest(const QRect &area) const
{
    QImage seen = m_screen.look(area);
    looks(
        [&] {
            const QImage before = seen;
            m_run->readOn(kRestMs);
            seen = m_screen.look(area);
            return seen == before;
        },
        kStartMs);
    return seen;
}

bool RealPanel::changes(const QString &control, const QImage &from, int withinMs) const
{
    return looks([&] { return look(control) != from; }, withinMs);
}

bool RealPanel::shows(const QString &control, const QImage &picture, int withinMs) const
{
    return looks([&] { return look(control) == picture; }, withinMs);
}

int RealPanel::close(int withinMs)
{
    if (!m_screen.closeWindow(kTitle) || !m_run->ended(withinMs) || m_run->crashed())
        return -1;
    return m_run->exitCode();
}

RealPanel::Figures RealPanel::figures() const
{
    const QString process = QStringLiteral("/proc/%1/").arg(m_run->processId());
    Figures figures;
    QFile file(process + QStringLiteral("statm"));
    if (file.open(QIODevice::ReadOnly)) {
        constexpr int kPageKb = 4;
        figures.rssKb = file.readAll().split(' ').value(1).toInt() * kPageKb;
    }
    figures.descriptors = entriesOf(process + QStringLiteral("fd"));
    figures.threads = entriesOf(process + QStringLiteral("task"));
    return figures;
}

qint64 RealPanel::keptWaiting() const
{
    constexpr qint64 kNsPerMs = 1'000'000;
    QFile file(QStringLiteral("/proc/%1/schedstat").arg(m_run->processId()));
    return file.open(QIODevice::ReadOnly) ? file.readAll().split(' ').value(1).toLongLong() / kNsPerMs : 0;
}

QStringList RealPanel::strangeLines() const
{
    QStringList strange;
    for (const QString &line : m_run->output().split(QLatin1Char('\n'), Qt::SkipEmptyParts)) {
        if (!line.startsWith(QLatin1String("debug|")))
            strange.append(line);
    }
    return strange;
}

Studio::Studio()
    : panelHost(net.addHost())
    , unitHost(net.addHost())
{
    const QString cable = net.addSwitch();
    net.plug(panelHost, QStringLiteral("eth0"), cable, {QStringLiteral("192.168.72.1/24")});
    net.plug(unitHost, QStringLiteral("eth0"), cable, {QStringLiteral("192.168.72.10/24")});
    if (!net.isGood())
        return;
    support::UnitHost::Options options;
    options.address = QStringLiteral("192.168.72.10");
    options.netNamespace = unitHost;
    options.discovery = options.broadcasts = true;
    unit = std::make_unique<support::UnitHost>(options);
    unit->withNetwork([](standin::NetworkSettings &settings) { settings.name = QStringLiteral("STUDIO-1"); });
}

void Studio::saveSettings(const QMap<QString, QString> &changes) const
{
    QMap<QString, QString> keys;
    unit->withNetwork([&keys](const standin::NetworkSettings &settings) {
        keys = {{QStringLiteral("interface"), QStringLiteral("1")},
                {QStringLiteral("netcard"), QStringLiteral("[192.168.72.1] eth0")},
                {QStringLiteral("ipaddress"), QStringLiteral("192.168.72.10")},
                {QStringLiteral("hostname"), settings.name},
                {QStringLiteral("mac"), QString::fromLatin1(settings.mac.toHex(':').toUpper())},
                {QStringLiteral("gateway"), settings.gateway.toString()},
                {QStringLiteral("mask"), settings.mask.toString()},
                {QStringLiteral("primarydns"), settings.primaryDns.toString()},
                {QStringLiteral("seconddns"), settings.secondaryDns.toString()}};
    });
    QString text = QStringLiteral("[connection]\n");
    for (auto it = changes.cbegin(); it != changes.cend(); ++it)
        keys.insert(it.key(), it.value());
    for (auto it = keys.cbegin(); it != keys.cend(); ++it)
        text += it.key() + QLatin1Char('=') + it.value() + QLatin1Char('\n');
    QDir().mkpath(QFileInfo(settingsPath()).path());
    QFile file(settingsPath());
    if (!file.open(QIODevice::WriteOnly) || file.write(text.toUtf8()) < 0)
        qFatal("can't write the settings file");
}

std::unique_ptr<RealPanel> Studio::connectedPanel()
{
    saveSettings();
    auto panel = std::make_unique<RealPanel>(panelPlace());
    if (!panel->stands() || !isConnected())
        qWarning("%s", qPrintable(panel->run().output()));
    return panel;
}

bool Studio::isIdle(RealPanel &panel) const
{
    // On a busy machine a connect pauses between two reads, and what it closes goes on fading after the last.
    constexpr int kIdleMs = 1000;
    const QString page = QStringLiteral("pageIN");
    return QTest::qWaitFor(
        [&] {
            unit->clearRecord();
            const QImage before = panel.look(page);
            panel.run().readOn(kIdleMs);
            return unit->frames({0x60, 0x62}).isEmpty() && panel.look(page) == before;
        },
        20000);
}

bool Studio::sees(int code, int withinMs) const
{
    return QTest::qWaitFor([&] { return unit->count(code) > 0; }, withinMs);
}

bool Studio::isConnected(int withinMs) const
{
    return sees(kHoldoutWindowRead, withinMs);
}

bool wholeSet()
{
    return qEnvironmentVariableIsSet("OUTSIDE_WHOLE");
}
