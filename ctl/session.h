#pragma once

#include "ctl/unitlink.h"

#include <QString>
#include <QStringList>

#include <memory>
#include <utility>

namespace ctl {

// What the command line asks for, beside the command itself.
struct Request
{
    QStringList arguments; // behind the command
    QString host;
    QString serial;
    QString profile;
    QString adapter;
    QStringList only;
    int timeoutMs = 0;
    int intervalMs = 0;
    bool json = false;
    bool all = false;
    bool dryRun = false;
};

// One run of the program: the request, and the link once a command asks for it.
class Session
{
public:
    explicit Session(const Request &request)
        : m_request(request)
    {
    }

    const Request &request() const { return m_request; }
    // For a command that runs another one.
    void setArguments(const QStringList &arguments) { m_request.arguments = arguments; }
    // Has `observer` told of what passes over each link that is opened from here on.
    void observe(LinkObserver observer) { m_observer = std::move(observer); }

    // Finds the unit and connects. Anything but Done has been complained about.
    ExitCode connect();
    UnitLink &link() { return *m_link; }
    // Passes the code on; says why when it is not Done.
    ExitCode report(ExitCode code) const;

private:
    Request m_request;
    LinkObserver m_observer;
    std::unique_ptr<UnitLink> m_link;
};

// Says the sentence on standard error. Always Usage.
ExitCode usage(const QString &sentence);

} // namespace ctl
