#pragma once

#include "standin/appliance.h"

#include <QMap>
#include <QStringList>

namespace standin {

// The commands that the program takes line by line while it runs.
class Console
{
public:
    explicit Console(Appliance &appliance)
        : unit(appliance)
    {
    }

    // Carries one line out; the result is what to print, without a line break at its end.
    QString execute(const QString &line);
    bool wantsQuit() const { return quit; }
    static QString help();

private:
    QString fault(const QString &rest);
    QString clear(const QStringList &words);
    QString record() const;
    QString state() const;
    QString set(const QStringList &words);
    QString memory(const QStringList &words);
    QString connector(const QStringList &words);

    Appliance &unit;
    bool quit = false;
};

} // namespace standin
