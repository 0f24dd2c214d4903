// qkv720-unit: a stand-in for the hardware, for rehearsals without it and for tests. It is no real unit.
//
//   qkv720-unit --address 192.168.72.10 --name KEYER-1 --mac 00:50:C2:72:00:01 --log frames.jsonl
//   qkv720-unit --address 192.168.72.10 --units 10
//
// "qkv720-unit --help" tells all options, and the words that it takes on standard input while it runs.

#include "standin/console.h"
#include "standin/options.h"

#include <QCoreApplication>
#include <QSocketNotifier>
#include <QTime>

#include <array>
#include <csignal>
#include <cstdio>
#include <memory>
#include <unistd.h>
#include <vector>

namespace {

std::array<int, 2> signalPipe{-1, -1};

void onSignal(int)
{
    const char byte = 0;
    if (::write(signalPipe[1], &byte, 1) < 0)
        ::_exit(1);
}

void print(const QString &line)
{
    std::fputs(qPrintable(line + QLatin1Char('\n')), stdout);
    std::fflush(stdout);
}

int failed(const QString &what)
{
    std::fputs(qPrintable(QStringLiteral("qkv720-unit: %1\n").arg(what)), stderr);
    return 1;
}

using Appliances = std::vector<std::unique_ptr<standin::Appliance>>;

// Makes the units one after the other; the first that fails ends it with its reason.
QString start(const standin::Options &options, Appliances &units)
{
    for (int i = 0; i < options.unitCount(); ++i) {
        units.push_back(std::make_unique<standin::Appliance>());
        QString error = options.start(*units.back(), i);
        if (!error.isEmpty())
            return error;
    }
    for (const auto &unit : units) {
        const bool isOne = units.size() == 1;
        const standin::NetworkSettings &settings = unit->discovery.settings;
        if (!options.isQuiet()) {
            QObject::connect(unit.get(), &standin::Appliance::told, [isOne, &settings](const QString &line) {
                const QString who = isOne ? QString() : settings.name + QLatin1Char(' ');
                print(QTime::currentTime().toString(QStringLiteral("HH:mm:ss.zzz ")) + who + line);
            });
        }
        QObject::connect(unit.get(), &standin::Appliance::complained, &failed);
        print(QStringLiteral("Stand-in unit, no real hardware; %1").arg(unit->whereabouts()));
    }
    return {};
}

void readCommands(standin::Console &console, QSocketNotifier &input)
{
    std::array<char, 4096> buffer{};
    const ssize_t got = ::read(STDIN_FILENO, buffer.data(), buffer.size());
    if (got <= 0) {
        input.setEnabled(false); // no more commands; the unit goes on
        return;
    }
    for (const QString &answer : console.take(QByteArray(buffer.data(), static_cast<int>(got))))
        print(answer);
    if (console.wantsQuit())
        QCoreApplication::quit();
}

int run(const standin::Options &options)
{
    // Before anything is made that an end has to take away again.
    if (::pipe(signalPipe.data()) != 0)
        return failed(QStringLiteral("the system has no pipe left for its signals"));
    QSocketNotifier signalled(signalPipe[0], QSocketNotifier::Read);
    QObject::connect(&signalled, &QSocketNotifier::activated, &QCoreApplication::quit);
    std::signal(SIGINT, onSignal);
    std::signal(SIGTERM, onSignal);
    std::signal(SIGPIPE, SIG_IGN);

    Appliances units;
    const QString error = start(options, units);
    if (!error.isEmpty())
        return failed(error);

    QVector<standin::Appliance *> served;
    for (const auto &unit : units)
        served.append(unit.get());
    standin::Console console(served);
    QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, [&] { readCommands(console, input); });

    int result = QCoreApplication::exec();
    for (const auto &unit : units) {
        QString reason;
        if (!unit->finish(&reason))
            result = failed(reason);
    }
    return result;
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("qkv720-unit"));
    QCoreApplication::setApplicationVersion(QStringLiteral(UNIT_VERSION));
    standin::Options options;
    const QString error = options.read(QCoreApplication::arguments());
    if (!error.isEmpty())
        return failed(error);
    if (options.wantsVersion()) {
        print(QStringLiteral("qkv720-unit ") + QCoreApplication::applicationVersion());
        return 0;
    }
    if (options.wantsHelp()) {
        print(options.help());
        return 0;
    }
    return run(options);
}
