#include "standin/networklink.h"

#include <QPointer>
#include <QTcpSocket>
#include <QTimer>

#include <memory>

namespace standin {

namespace {

// A frame that stays incomplete for so long is given up, so that stray bytes don't spoil what follows.
constexpr int kIncompleteMs = 300;

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
    auto splitter = std::make_shared<StreamSplitter>(LinkKind::Network);
    auto *patience = new QTimer(socket);
    patience->setSingleShot(true);
    patience->setInterval(kIncompleteMs);
    connect(patience, &QTimer::timeout, socket, [this, socket, splitter] {
        if (splitter->hasRemains())
            send(socket, unit.handle(LinkKind::Network, splitter->giveUp()));
    });
    const auto take = [this, socket, splitter, patience] {
        for (const Frame &frame : splitter->take(socket->readAll()))
            send(socket, unit.handle(LinkKind::Network, frame));
        splitter->hasRemains() ? patience->start() : patience->stop();
    };
    connect(socket, &QTcpSocket::readyRead, socket, take);
    if (socket->bytesAvailable() > 0)
        take();
}

void NetworkLink::send(QTcpSocket *socket, const Response &response)
{
    if (response.closeLink) {
        socket->abort();
        return;
    }
    for (const Response::Chunk &chunk : response.chunks) {
        const auto write = [socket, bytes = chunk.bytes] {
            if (socket->state() != QAbstractSocket::ConnectedState)
                return;
            socket->write(bytes);
            socket->flush();
        };
        chunk.delayMs > 0 ? QTimer::singleShot(chunk.delayMs, Qt::PreciseTimer, socket, write) : write();
    }
}

} // namespace standin
