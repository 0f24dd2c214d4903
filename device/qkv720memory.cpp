#include "device/qkv720.h"

#include "discovery/hlnp.h"

#include <QDebug>
#include <QTcpSocket>

// User memories and setup store. No reply is read: what a recall changed is fetched afterwards.

void qkv720::loadMemory(uint method, uint index)
{
    if (!exchange(method, {QKV720_GET_MEMORY, Payload().byte(index)}))
        return;
    qDebug() << "After LOAD MEM:" << refreshStatus(method);
}

void qkv720::saveMemory(uint method, uint index)
{
    qDebug() << "Save Memory:" << index;
    exchange(method, {QKV720_SET_MEMORY, Payload().byte(index)});
}

void qkv720::saveSetup(uint method)
{
    // The socket is looked at and no more: this operation doesn't reconnect.
    if (method == kNetworkLink && hlnpObj->swiTcpSocket->state() == QTcpSocket::UnconnectedState)
        return;
    if (!exchangeWithoutCheck(method, {QKV720_SAVESETUP}))
        return;
    refreshStatus(method);
}
