// qkv720ctl: the unit from scripts.
//
//   qkv720ctl --host 192.168.72.10 get DARK
//   qkv720ctl --host 192.168.72.10 set DARK enable=on level=300
//
// "qkv720ctl --help" tells all commands and options.

#include "ctl/options.h"
#include "ctl/output.h"

#include <QCoreApplication>

int main(int argc, char **argv)
{
    ctl::keepLogAway(false);
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("qkv720ctl"));
    ctl::Options options;
    const QString error = options.read(QCoreApplication::arguments());
    if (!error.isEmpty())
        return ctl::usage(error);
    if (options.wantsVersion()) {
        ctl::print(QStringLiteral("qkv720ctl " CTL_VERSION));
        return ctl::Done;
    }
    if (options.wantsHelp()) {
        const QStringList lines = options.help().split(QLatin1Char('\n'));
        for (const QString &line : lines.mid(0, lines.size() - 1))
            ctl::print(line);
        return ctl::Done;
    }
    ctl::keepLogAway(options.isVerbose());
    ctl::Session session(options.request());
    return options.command().run(session);
}
