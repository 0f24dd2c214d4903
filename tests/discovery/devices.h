#pragma once

#include "tests/support/testnetwork.h"

#include <QByteArray>
#include <QElapsedTimer>
#include <QMutex>
#include <QString>
#include <QStringList>
#include <QVector>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstring>
#include <functional>
#include <future>
#include <thread>

// The devices of one host of the test's network, in a thread of their own, one for each address: each request is
// recorded, and the case answers it as it likes, well or badly.
class Devices
{
public:
    struct Request
    {
        QByteArray bytes;
        QString to; // the device's address, or "broadcast"
        QString from;
        quint16 fromPort = 0;
        qint64 at = 0; // ms since the devices were switched on
    };
    using Answer = std::function<void(Devices &, const Request &)>;

    Devices(QString hostName, const QStringList &addresses, Answer answerWith)
        : host(std::move(hostName))
        , answer(std::move(answerWith))
    {
        clock.start();
        std::promise<bool> listening;
        std::future<bool> isListening = listening.get_future();
        worker = std::thread([this, addresses, &listening] {
            good = support::TestNetwork::enter(host);
            // A socket bound to an address hears no broadcast; the one bound to none hears all of them.
            for (const QString &address : QStringList{QString()} + addresses) {
                sockets.append({address, open(address, 5002)});
                good = good && sockets.last().descriptor >= 0;
            }
            listening.set_value(good);
            work();
        });
        isListening.wait();
    }

    ~Devices()
    {
        stopping = true;
        worker.join();
        for (const Socket &socket : qAsConst(sockets))
            ::close(socket.descriptor);
    }
    Devices(const Devices &) = delete;
    Devices &operator=(const Devices &) = delete;

    bool isGood() const { return good; }

    // Sends to the one who asked. For the answering function; from elsewhere see sendUnasked().
    static void send(const Request &request, const QString &from, const QByteArray &bytes,
                     quint16 fromPort = 5002)
    {
        const int descriptor = open(from, fromPort);
        sockaddr_in target = addressOf(request.from, request.fromPort);
        if (::sendto(descriptor, bytes.constData(), static_cast<size_t>(bytes.size()), 0,
                     reinterpret_cast<sockaddr *>(&target), sizeof target)
            != bytes.size())
            qWarning("a device could not answer: %s", std::strerror(errno));
        ::close(descriptor);
    }

    // The same from the test's own thread, which lives on another host.
    void sendUnasked(const Request &request, const QString &from, const QByteArray &bytes) const
    {
        std::thread([this, &request, &from, &bytes] {
            support::TestNetwork::enter(host);
            send(request, from, bytes);
        }).join();
    }

    QVector<Request> requests() const
    {
        const QMutexLocker locker(&mutex);
        return received;
    }

    QVector<Request> requests(int code) const
    {
        QVector<Request> some;
        for (const Request &request : requests()) {
            if (codeOf(request) == code)
                some.append(request);
        }
        return some;
    }

    static int codeOf(const Request &request)
    {
        return request.bytes.size() > 3 ? static_cast<unsigned char>(request.bytes.at(3)) : -1;
    }

private:
    struct Socket
    {
        QString address;
        int descriptor;
    };

    static sockaddr_in addressOf(const QString &address, quint16 port)
    {
        sockaddr_in result{};
        result.sin_family = AF_INET;
        result.sin_port = htons(port);
        result.sin_addr.s_addr = address.isEmpty() ? INADDR_ANY : inet_addr(qPrintable(address));
        return result;
    }

    static int open(const QString &address, quint16 port)
    {
        const int descriptor = ::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
        const int yes = 1;
        ::setsockopt(descriptor, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
        sockaddr_in own = addressOf(address, port);
        if (::bind(descriptor, reinterpret_cast<sockaddr *>(&own), sizeof own) == 0)
            return descriptor;
        qWarning("no socket for %s:%d: %s", qPrintable(address), port, std::strerror(errno));
        ::close(descriptor);
        return -1;
    }

    void work()
    {
        QVector<pollfd> polled;
        for (const Socket &socket : qAsConst(sockets))
            polled.append({socket.descriptor, POLLIN, 0});
        while (!stopping) {
            if (::poll(polled.data(), static_cast<nfds_t>(polled.size()), 20) <= 0)
                continue;
            for (int i = 0; i < polled.size(); ++i) {
                if (polled.at(i).revents & POLLIN)
                    receive(sockets.at(i));
            }
        }
    }

    void receive(const Socket &socket)
    {
        char bytes[2000];
        sockaddr_in sender{};
        socklen_t length = sizeof sender;
        const ssize_t size = ::recvfrom(socket.descriptor, bytes, sizeof bytes, 0,
                                        reinterpret_cast<sockaddr *>(&sender), &length);
        if (size < 0)
            return;
        Request request;
        request.bytes = QByteArray(bytes, static_cast<int>(size));
        request.to = socket.address.isEmpty() ? QStringLiteral("broadcast") : socket.address;
        request.from = QString::fromLatin1(inet_ntoa(sender.sin_addr));
        request.fromPort = ntohs(sender.sin_port);
        request.at = clock.elapsed();
        {
            const QMutexLocker locker(&mutex);
            received.append(request);
        }
        if (answer)
            answer(*this, request);
    }

    QString host;
    Answer answer;
    QElapsedTimer clock;
    QVector<Socket> sockets;
    mutable QMutex mutex;
    QVector<Request> received;
    bool good = false;
    std::atomic<bool> stopping{false};
    std::thread worker;
};
