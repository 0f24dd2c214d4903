#include "standin/networklink.h"

#include "standin/framereader.h"

#include <QTcpSocket>

namespace standin {

namespace {

// A client that asks without ever reading is cut off: its answers must not fill the machine.
constexpr qint64 kUnreadLimit = qint64(1024) * 1024;

} // namespace

NetworkLink::NetworkLink(Unit &served, QObject *parent)
    : QObject(parent)
    , unit(served)
{
    connect(&server, &QTcpServer::newConnection, this, &NetworkLink::welcome);
}

bool NetworkLink::listen(const QHostAddress &address, quint16 port)
{
    return server.listen(address, port);
}

void NetworkLink::letIn()
{
    // Who has knocked but was not welcomed yet is there too, as far as the other end can tell.
    while (server.isListening() && server.waitForNewConnection(0)) { }
}

void NetworkLink::stopListening()
{
    letIn();
    server.close();
}

int NetworkLink::clientCount() const
{
    int count = 0;
    for (const QTcpSocket *socket : server.findChildren<QTcpSocket *>())
        count += socket->state() == QAbstractSocket::ConnectedState ? 1 : 0;
    return count;
}

void NetworkLink::drop()
{
    letIn();
    for (QTcpSocket *socket : server.findChildren<QTcpSocket *>())
        socket->abort();
}

void NetworkLink::welcome()
{
    while (QTcpSocket *socket = server.nextPendingConnection()) {
        socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
        const QString peer =
            QStringLiteral("%1:%2").arg(socket->peerAddress().toString()).arg(socket->peerPort());
        connect(socket, &QTcpSocket::disconnected, this, [this, socket, peer] {
            emit clientGone(peer);
            socket->deleteLater();
        });
        serve(socket);
        emit clientConnected(peer);
    }
}

void NetworkLink::serve(QTcpSocket *socket)
{
    const auto write = [socket](const QByteArray &bytes) {
        if (socket->state() != QAbstractSocket::ConnectedState)
            return;
        socket->write(bytes);
        socket->flush();
        if (socket->bytesToWrite() > kUnreadLimit)
            socket->abort();
    };
    const auto send = [socket, write](const Response &response) {
        if (response.closeLink)
            socket->abort();
        else
            deliver(response, socket, write);
    };
    auto *reader = new FrameReader(unit, LinkKind::Network, send, socket);
    const auto take = [socket, reader] { reader->take(socket->readAll()); };
    connect(socket, &QTcpSocket::readyRead, socket, take);
    if (socket->bytesAvailable() > 0)
        take();
}

} // namespace standin
