#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

namespace support {

// Ethernet of the test's own: network namespaces as hosts, bridges as switches, nothing of it in touch with the
// machine's own adapters. Everything is removed again at the end. Needs the right to make namespaces; a test
// calls TestNetwork::obtainRights() first thing in its main, and complains() tells in a plain sentence why not.
//
//   TestNetwork net;
//   const QString panel = net.addHost();
//   const QString units = net.addHost();
//   const QString cable = net.addSwitch();
//   net.plug(panel, "eth0", cable, {"192.168.72.1/24"});
//   net.plug(units, "eth0", cable, {"192.168.72.10/24", "192.168.72.11/24"});
//   QVERIFY2(net.isGood(), qPrintable(net.complaint()));
//   support::UnitHost::Options options;  options.address = "192.168.72.10";  options.netNamespace = units;
//   options.discovery = options.broadcasts = true;
//   support::UnitHost unit(options);
//   QVERIFY(net.enter(panel));   // from here on the test's own thread opens its sockets on the panel's host
class TestNetwork
{
public:
    TestNetwork();
    ~TestNetwork();
    TestNetwork(const TestNetwork &) = delete;
    TestNetwork &operator=(const TestNetwork &) = delete;

    // For main, before any thread and any application object: without the rights of root, runs the program anew
    // in a user namespace where it has them for namespaces of its own.
    static void obtainRights(char **argv);

    bool isGood() const { return trouble.isEmpty(); }
    QString complaint() const { return trouble; }

    QString addHost(); // a namespace, its name
    QString addSwitch(); // a bridge in a namespace of its own, its name
    // Gives a host an adapter with these addresses ("192.168.72.1/24") on a switch. The host's first adapter gets
    // the default route, so that 255.255.255.255 has a way out.
    bool plug(const QString &host, const QString &adapter, const QString &ethernetSwitch,
              const QStringList &addresses);
    // The cable: the adapter keeps its addresses but carries nothing (on the switch's side).
    bool setCable(const QString &host, const QString &adapter, bool plugged);
    // Removes the adapter with its addresses, as a pulled USB adapter goes.
    bool removeAdapter(const QString &host, const QString &adapter);
    // Any `ip` command inside a host, e.g. {"addr", "add", ...}.
    bool ip(const QString &host, const QStringList &arguments);

    // Moves the calling thread into a host for good; sockets it opens from now on are that host's.
    static bool enter(const QString &host);
    // A process that will start inside a host; who takes it sets it up, starts it and ends it.
    static std::unique_ptr<QProcess> processIn(const QString &host);
    // Starts a program inside a host; it ends with this object at the latest.
    QProcess *start(const QString &host, const QString &program, const QStringList &arguments);

private:
    struct Port
    {
        QString host;
        QString adapter;
        QString ethernetSwitch;
        QString switchPort;
    };

    QString addNamespace(const char *kind);
    bool run(const QStringList &arguments);
    bool waitForLink(const QString &host, const QString &adapter);
    const Port *portOf(const QString &host, const QString &adapter) const;

    QStringList namespaces;
    std::vector<Port> ports;
    std::vector<std::unique_ptr<QProcess>> processes;
    QString trouble;
};

} // namespace support

// The main of a test that makes such a network.
#define NETWORK_TEST_MAIN(TestClass)                                                                         \
    int main(int argc, char **argv)                                                                          \
    {                                                                                                        \
        support::TestNetwork::obtainRights(argv);                                                            \
        QCoreApplication application(argc, argv);                                                            \
        TestClass test;                                                                                      \
        return QTest::qExec(&test, argc, argv);                                                              \
    }
