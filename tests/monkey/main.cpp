// panel_monkey SECONDS LANGUAGE [SEED]: random gestures over the real document and the real facade, against a stand-in
// unit whose answers go wrong at random, on a network of the test's own. It connects itself now and then, as else the
// mask would stand over everything. Every line that the panel prints has to begin as one of told.txt does, and none may
// be a warning. The same seed makes the same gestures. Ends with 1 when something else was printed.

#include "tests/control/facadebench.h"
#include "tests/panel/panelharness.h"
#include "tests/support/testnetwork.h"

#include <QApplication>

#include <cstdio>
#include <random>

namespace {

constexpr int kEnough = 20; // untold lines that end a run
const QString kUnitAddress = QStringLiteral("192.168.72.10");

// What stands so often on the screen that chance should find it more often.
const char *const kBeloved[] = {
    "menuInput",         "menuChromakey",       "menuPostProcessor", "menuGarbageMask",
    "menuHoldoutWindow", "menuAuxLumakey",      "btnConnect",        "btnSetup",
    "comboMainLanguage", "outputMemoryLock",    "outputMemoryLoad",  "outputMemorySave",
    "comboUserMem",      "comboPgmSdiOutput",   "checkboxPVW",       "btnSetupSave",
    "btnConnectSave",    "btnConnectConnect",   "comboAddrmode",     "btnWarningReconnect",
    "comboIPSelect",     "btnConnectDisconnect"};

const Qt::Key kKeys[] = {Qt::Key_Tab,    Qt::Key_Backtab, Qt::Key_Return, Qt::Key_Enter,    Qt::Key_Space,
                         Qt::Key_Escape, Qt::Key_Up,      Qt::Key_Down,   Qt::Key_Left,     Qt::Key_Right,
                         Qt::Key_Home,   Qt::Key_End,     Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Backspace,
                         Qt::Key_Delete, Qt::Key_F4,      Qt::Key_A,      Qt::Key_Z,        Qt::Key_0,
                         Qt::Key_1,      Qt::Key_9,       Qt::Key_Minus,  Qt::Key_Plus,     Qt::Key_Period,
                         Qt::Key_Comma,  Qt::Key_Percent};

QStringList toldLines()
{
    QFile file(QStringLiteral(TOLD_FILE));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QStringList lines;
    for (const QString &line :
         QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts)) {
        if (!line.startsWith(QLatin1Char('#')))
            lines.append(line);
    }
    return lines;
}

class Monkey
{
public:
    Monkey(unsigned seed, support::UnitHost &playmate, PanelHarness &screen, mainControl &facade)
        : m_random(seed)
        , m_unit(playmate)
        , m_screen(screen)
        , m_facade(facade)
    {
    }

    void play();

    int gestures = 0;
    int faults = 0;
    int connects = 0;

private:
    int upTo(int last) { return std::uniform_int_distribution<int>(0, last)(m_random); }
    QPoint anywhere() { return {upTo(1365), upTo(767)}; }
    void click();
    void drag();
    void wheel();
    void key();
    void spoil();
    void connect();

    std::mt19937 m_random;
    support::UnitHost &m_unit;
    PanelHarness &m_screen;
    mainControl &m_facade;
};

void Monkey::play()
{
    // All numbers of a step are drawn whatever it does, so that a seed makes the same steps on any machine.
    const int what = upTo(99);
    const int rest = upTo(3);
    ++gestures;
    if (what < 35)
        click();
    else if (what < 50)
        drag();
    else if (what < 57)
        wheel();
    else if (what < 84)
        key();
    else if (what < 92)
        spoil();
    else
        connect();
    QTest::qWait(rest == 0 ? 60 : 1);
}

void Monkey::click()
{
    const bool twice = upTo(9) == 0;
    const auto button = upTo(9) == 0 ? Qt::RightButton : Qt::LeftButton;
    const QString name = QLatin1String(kBeloved[upTo(std::size(kBeloved) - 1)]);
    QPoint place = anywhere();
    if (upTo(2) == 0)
        place = m_screen.middle(m_screen.item(name));
    QTest::mouseMove(m_screen.window, place);
    QTest::mouseClick(m_screen.window, button, {}, place);
    if (twice)
        QTest::mouseDClick(m_screen.window, button, {}, place);
}

void Monkey::drag()
{
    const QPoint from = anywhere();
    const QPoint to = upTo(1) == 0 ? anywhere() : QPoint(upTo(1365), from.y());
    constexpr int kSteps = 5;
    m_screen.press(from);
    for (int step = 1; step <= kSteps; ++step) {
        m_screen.move(from + (to - from) * step / kSteps);
        QTest::qWait(1);
    }
    m_screen.release(to);
}

void Monkey::wheel()
{
    const QPoint place = anywhere();
    const QPoint turn(0, upTo(1) == 0 ? 120 : -120);
    QWheelEvent event(place, m_screen.window->mapToGlobal(place), {}, turn, Qt::NoButton, {},
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(m_screen.window, &event);
}

void Monkey::key()
{
    const Qt::Key which = kKeys[upTo(std::size(kKeys) - 1)];
    const int held = upTo(9);
    QTest::keyClick(m_screen.window, which,
                    held == 0       ? Qt::ControlModifier
                        : held == 1 ? Qt::ShiftModifier
                                    : Qt::NoModifier);
}

void Monkey::spoil()
{
    const int kind = upTo(9);
    const int code = upTo(3) == 0 ? standin::AnyCode : 0x50 + upTo(0x1F) + (upTo(1) == 0 ? 0x80 : 0);
    const int times = 1 + upTo(2);
    const int size = upTo(9);
    ++faults;
    switch (kind) {
    case 0:
        m_unit.setFault(code, standin::Fault::silent(times));
        break;
    case 1:
        m_unit.setFault(code, standin::Fault::late(20 + size * 60, times));
        break;
    case 2:
        m_unit.setFault(code, standin::Fault::shortened(size, times));
        break;
    case 3:
        m_unit.setFault(code, standin::Fault::split(size, 10 + size * 40, times));
        break;
    case 4:
        m_unit.setFault(code, standin::Fault::wrongChecksum(times));
        break;
    case 5:
        m_unit.setFault(code, standin::Fault::refuse(0x81 + size % 2, times));
        break;
    case 6:
        m_unit.setFault(code, standin::Fault::closeLink(times));
        break;
    case 7:
        m_unit.setFault(code, standin::Fault::answer(QByteArray(size * 20, static_cast<char>(code)), times));
        break;
    case 8:
        m_unit.drop();
        break;
    default:
        m_unit.clearFaults();
        break;
    }
}

void Monkey::connect()
{
    if (m_facade.isConnected())
        return;
    ++connects;
    m_unit.clearFaults();
    m_screen.eval(QStringLiteral("txtIPAddr.text = '%1'; comboConnectInterface.currentIndex = 0; "
                                 "popupConnect.runConnect(true)")
                      .arg(kUnitAddress));
}

// The lines since the last look that nobody told of.
QStringList untold(const QStringList &told)
{
    QStringList strange = Messages::warnings();
    for (const QString &line : qAsConst(Messages::logs())) {
        const bool known = std::any_of(told.cbegin(), told.cend(),
                                       [&line](const QString &start) { return line.startsWith(start); });
        if (!known)
            strange.append(line);
    }
    Messages::logs().clear();
    Messages::warnings().clear();
    return strange;
}

int play(int seconds, const QString &language, unsigned seed)
{
    support::TestNetwork net;
    const QString panelHost = net.addHost();
    const QString unitHost = net.addHost();
    const QString cable = net.addSwitch();
    net.plug(panelHost, QStringLiteral("eth0"), cable, {QStringLiteral("192.168.72.1/24")});
    net.plug(unitHost, QStringLiteral("eth0"), cable, {kUnitAddress + QStringLiteral("/24")});
    if (!net.isGood()) {
        std::fprintf(stderr, "%s\n", qPrintable(net.complaint()));
        return 1;
    }
    support::UnitHost::Options options;
    options.address = kUnitAddress;
    options.netNamespace = unitHost;
    options.discovery = options.broadcasts = true;
    support::UnitHost unit(options);
    const QStringList told = toldLines();
    if (told.isEmpty() || !support::TestNetwork::enter(panelHost))
        return 1;

    std::printf("panel_monkey %d %s %u\n", seconds, qPrintable(language), seed);
    std::fflush(stdout);
    QStringList strange;
    int lines = 0;
    auto facade = std::make_unique<mainControl>();
    {
        PanelHarness screen(facade.get());
        if (!screen.show())
            return 1;
        screen.eval(
            QStringLiteral("comboMainLanguage.currentIndex = %1")
                .arg(QStringList{QStringLiteral("en_US"), QStringLiteral("zh_TW"), QStringLiteral("zh_CN")}
                         .indexOf(language)));
        Monkey monkey(seed, unit, screen, *facade);
        QElapsedTimer clock;
        clock.start();
        while (clock.elapsed() < qint64{seconds} * 1000 && strange.size() < kEnough) {
            monkey.play();
            lines += Messages::logs().size();
            for (const QString &line : untold(told))
                strange.append(QStringLiteral("after gesture %1: %2").arg(monkey.gestures).arg(line));
        }
        std::printf("%s: %d s, seed %u: %d gestures, %d faults, %d connects of its own, %d frames at the "
                    "unit, %d lines "
                    "on standard error, %d of them untold\n",
                    qPrintable(language), seconds, seed, monkey.gestures, monkey.faults, monkey.connects,
                    unit.record().size(), lines, strange.size());
    }
    for (const QString &line : qAsConst(strange))
        std::printf("  %s\n", qPrintable(line));
    discard(facade);
    return strange.isEmpty() ? 0 : 1;
}

} // namespace

int main(int argc, char **argv)
{
    support::TestNetwork::obtainRights(argv);
    QApplication application(argc, argv);
    const QStringList words = QCoreApplication::arguments();
    const int seconds = words.value(1).toInt();
    const QString language = words.value(2, QStringLiteral("en_US"));
    if (seconds < 1) {
        std::fprintf(stderr, "panel_monkey SECONDS LANGUAGE [SEED]\n");
        return 2;
    }
    return play(seconds, language, words.size() > 3 ? words.at(3).toUInt() : std::random_device{}());
}
