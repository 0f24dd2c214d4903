#pragma once

#include "standin/appliance.h"

#include <QStringList>
#include <QVector>

namespace standin {

// The words that the program takes line by line while it runs. Of several units one is the chosen one.
class Console
{
public:
    explicit Console(const QVector<Appliance *> &served)
        : units(served)
    {
    }

    // Takes what was typed, in whatever pieces; the answers of the lines that are whole now, one each.
    QStringList take(const QByteArray &bytes);
    // Carries one line out; the result is what to print, without a line break at its end.
    QString execute(const QString &line);
    bool wantsQuit() const { return quit; }
    static QString help();

private:
    QString fault(const QStringList &words);
    QString clear(const QStringList &words);
    QString record(const QStringList &words);
    QString forget(const QStringList &words);
    QString state(const QStringList &words);
    QString set(const QStringList &words);
    QString memory(const QStringList &words);
    QString connector(const QStringList &words);
    QString drop(const QStringList &words);
    QString restart(const QStringList &words);
    QString choose(const QStringList &words);
    QString list(const QStringList &words);
    QString giveHelp(const QStringList &words);
    QString end(const QStringList &words);
    Unit &unit() const { return units.at(chosen)->unit; }

    struct Verb
    {
        const char *word;
        QString (Console::*action)(const QStringList &);
        int fewest; // words behind it
        int most; // -1: any number
        const char *form;
        const char *meaning;
    };
    static const QVector<Verb> &verbs();

    QVector<Appliance *> units;
    int chosen = 0;
    QByteArray pending; // a line that is not whole yet
    bool quit = false;
};

} // namespace standin
