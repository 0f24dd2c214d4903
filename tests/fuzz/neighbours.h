#pragma once

#include "standin/discoverylink.h"
#include "tests/fuzz/world.h"

// Units of the same cable; what they answer may be changed by the input on its way.
class Neighbours
{
public:
    // The last part of the address of unit `index`, any number.
    static int lastPart(int index) { return 10 + 7 * (index % kUnits); }

    explicit Neighbours(Script &source)
        : script(source)
    {
        for (int i = 0; i < kUnits; ++i) {
            units[i].link.settings.address = QHostAddress(QStringLiteral("192.168.72.%1").arg(lastPart(i)));
            units[i].link.settings.mac[5] = static_cast<char>(i);
        }
        world::takeDatagrams([this](const QByteArray &bytes) { take(bytes); });
    }
    int sent() const { return count; }

private:
    static constexpr int kUnits = 3;

    struct OneUnit
    {
        standin::Unit unit;
        standin::DiscoveryLink link{unit};
    };

    void take(const QByteArray &request)
    {
        ++count;
        // A host name outside ASCII makes the datagram longer than it says; nothing makes it shorter.
        require(request.size() >= 11
                && static_cast<uchar>(request.at(0)) * 256 + static_cast<uchar>(request.at(1))
                    <= request.size());
        for (OneUnit &unit : units)
            send(unit.link.settings.address, unit.link.answer(request).bytes());
        for (uint extra = script.byte() % 8; extra > 0; --extra)
            send(sender(), script.bytes(script.byte() % 64));
    }

    QHostAddress sender() { return QHostAddress(0xC0A84800U + script.byte()); }

    void send(const QHostAddress &from, QByteArray bytes)
    {
        if (bytes.isEmpty())
            return;
        world::Datagram datagram{bytes, from};
        const uint bend = script.byte();
        if ((bend & 1U) != 0)
            datagram.from = sender();
        if ((bend & 2U) != 0) {
            const int at = static_cast<int>(script.byte()) % bytes.size();
            datagram.bytes[at] = static_cast<char>(script.byte());
        }
        if ((bend & 4U) != 0)
            datagram.bytes.truncate(static_cast<int>(script.byte()));
        if ((bend & 8U) != 0)
            datagram.port = static_cast<quint16>(script.word());
        constexpr qint64 kStepMs = 50;
        if ((bend & 16U) != 0)
            world::plan(script.byte() * kStepMs, [datagram] { world::receive(datagram); });
        else if ((bend & 32U) == 0)
            world::receive(datagram);
    }

    Script &script;
    OneUnit units[kUnits];
    int count = 0;
};
