#pragma once

#include "standin/unit.h"

#include <QHostAddress>
#include <QObject>
#include <QTcpServer>

QT_BEGIN_NAMESPACE
class QTcpSocket;
QT_END_NAMESPACE

namespace standin {

// The port of the control link and of discovery.
constexpr quint16 UnitPort = 5002;

// The unit's end of the network link: answers any number of clients on port 5002.
class NetworkLink : public QObject
{
    Q_OBJECT

public:
    explicit NetworkLink(Unit &unit, QObject *parent = nullptr);

    bool listen(const QHostAddress &address, quint16 port = UnitPort);
    // Takes no new clients; those that are there stay.
    void stopListening();
    bool isListening() const { return server.isListening(); }
    QString errorString() const { return server.errorString(); }
    // Cuts every client off at once, as a pulled cable or a restart does.
    void drop();
    int clientCount() const;

signals:
    void clientConnected(const QString &peer);
    void clientGone(const QString &peer);

private:
    void letIn();
    void welcome();
    void serve(QTcpSocket *socket);

    Unit &unit;
    QTcpServer server;
};

} // namespace standin
