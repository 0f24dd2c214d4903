#pragma once

#include <QString>

namespace bench {

// What an exchange costs with nothing but the system's own calls: write a frame, sleep the mandated wait, wait for
// the reply, read it. The panel's own exchange is held against it.
class BareLink
{
public:
    static BareLink network(const QString &address); // port 5002
    static BareLink serial(const QString &terminal);
    ~BareLink();
    BareLink(BareLink &&other) noexcept;
    BareLink(const BareLink &) = delete;
    BareLink &operator=(const BareLink &) = delete;
    BareLink &operator=(BareLink &&) = delete;

    bool isOpen() const { return descriptor >= 0; }
    bool exchange(int sleepMs) const;

private:
    BareLink(int opened, bool leadingBytes);

    int descriptor;
    bool withLength; // the network form of a frame
};

} // namespace bench
