#pragma once

#include "ctl/commands.h"

#include <QCommandLineParser>

namespace ctl {

// The command line, and the command that it names.
class Options
{
public:
    Options();

    // An empty result is success, any other text is the one sentence that says what is wrong.
    QString read(const QStringList &arguments);

    bool wantsHelp() const { return m_parser.isSet(QStringLiteral("help")); }
    bool wantsVersion() const { return m_parser.isSet(QStringLiteral("version")); }
    bool isVerbose() const { return m_parser.isSet(QStringLiteral("verbose")); }
    QString help() const;
    const Command &command() const { return *m_command; }
    const Request &request() const { return m_request; }

private:
    QString readCommand(const QStringList &words);
    QString readValues();
    QString readTimes();

    QCommandLineParser m_parser;
    const Command *m_command = nullptr;
    Request m_request;
};

// The command that `words` begin with; its own words are taken away. An empty result is success, any other says what
// is wrong, also with the number of arguments.
QString findCommand(QStringList &words, const Command *&command);

} // namespace ctl
