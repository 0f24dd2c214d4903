#include "tests/device/matrix/model.h"

#include "tests/device/functiontable.h"

#include <algorithm>

namespace matrix {

namespace {

constexpr int kReadWaitMs = 1000;
constexpr int kWrongSum = -24;
constexpr int kFrameLead = 2;

int byteOf(const QByteArray &bytes, int at)
{
    return wireByte(bytes, at);
}

bool sumMatches(const QByteArray &bytes)
{
    int sum = 0;
    for (int i = 0; i + 1 < bytes.size(); ++i)
        sum += byteOf(bytes, i);
    return sum % 256 == byteOf(bytes, bytes.size() - 1);
}

} // namespace

const PanelModel::Ladder PanelModel::standardLadder = {300, 500, 1000};

QVector<FieldRow> rowsOf(int getCode, const char *name)
{
    for (const FunctionRow &row : allFunctions()) {
        if (row.getCode == getCode && (name == nullptr || qstrcmp(row.name, name) == 0))
            return row.fields;
    }
    qFatal("no function has the code %d", getCode);
}

QVector<QPair<QVector<FieldRow>, int>> rowsOfChain()
{
    // Where the record of each part begins, from the drawing of the chain.
    return {{rowsOf(0x50), 14}, {rowsOf(0x51), 25}, {rowsOf(0x52), 31}, {rowsOf(0x53), 40},
            {rowsOf(0x54), 50}, {rowsOf(0x55), 60}, {rowsOf(0x56), 67}};
}

PanelModel::PanelModel(uint link, const Form &wanted, int code, const Snapshot &before, bool isOpen,
                       int latenessMs)
    : fields(before)
    , method(link)
    , form(wanted)
    , faultedCode(code)
    , lateness(latenessMs)
    , connected(isOpen)
    , socket(Socket::Up)
{
    if (form.fault == Fault::FallenUnseen)
        socket = Socket::Fallen;
    else if (form.fault == Fault::FallenSeen)
        socket = method == kNetwork ? Socket::Down : Socket::Fallen;
    if (form.fault == Fault::StaleInFront && !form.always)
        arrivals.append({0, staleReply(method)});
}

void PanelModel::setFlag(bool up)
{
    connected = up;
    fields.insert(QStringLiteral("isConnected"), QString::number(int(up)));
}

void PanelModel::lose()
{
    setFlag(false);
    ++signalCount;
}

void PanelModel::sleep(int ms)
{
    sleeps.append(ms);
    now += ms;
}

bool PanelModel::pull()
{
    bool any = false;
    while (!arrivals.isEmpty() && arrivals.first().at <= now) {
        waiting += arrivals.takeFirst().bytes;
        any = true;
    }
    return any;
}

bool PanelModel::mayAsk()
{
    if (method == kSerial)
        return true;
    if (!connected)
        return false;
    if (socket == Socket::Down) // the silent reconnect; the unit still listens
        socket = Socket::Up;
    return true;
}

void PanelModel::send(const QByteArray &body)
{
    frames += QString::fromLatin1(body.toHex(' '));
    const bool suffers = byteOf(body, 2) == faultedCode;
    const Answer answer = suffers ? faultyAnswer(form, method, body, faultedFrames++)
                                  : Answer{{{0, healthyAnswer(method, body)}}};
    for (const Chunk &chunk : answer.chunks)
        arrivals.append({now + chunk.delayMs + (chunk.delayMs > 0 ? lateness : 0), chunk.bytes});
    std::stable_sort(arrivals.begin(), arrivals.end(),
                     [](const Arrival &left, const Arrival &right) { return left.at < right.at; });
    if (answer.ending == Ending::None)
        return;
    socket = Socket::Fallen;
    if (method == kSerial)
        arrivals.clear(); // a terminal that hangs up forgets what lay on it
}

// Waits for something new, and reads all that is there by then. What came before the frame was sent lies with the
// reader already and ends no wait.
QByteArray PanelModel::read()
{
    if (!pull()) {
        if (socket == Socket::Fallen) {
            if (method == kNetwork)
                socket = Socket::Down;
        } else if (!arrivals.isEmpty() && arrivals.first().at <= now + kReadWaitMs) {
            now = arrivals.first().at;
            pull();
        } else {
            now += kReadWaitMs;
        }
    }
    const QByteArray received = waiting;
    waiting.clear();
    return received;
}

int PanelModel::sleepFor(const QByteArray &body) const
{
    const bool network = method == kNetwork;
    const int usual = network ? 50 : 150;
    const int sum = byteOf(body, body.size() - 1);
    switch (byteOf(body, 2)) {
    case 0xD0:
        return byteOf(body, body.size() - 2) != 0 ? 2000 : usual;
    case 0xE0:
        return sum != 0 ? 2000 : usual;
    case 0xE1:
        return sum != 0 ? 100 : usual;
    case 0xDD:
        return sum != 0 ? (network ? 50 : 100) : usual;
    default:
        return usual;
    }
}

PanelModel::Attempt PanelModel::networkAttempt(const QByteArray &body)
{
    if (socket == Socket::Down) {
        lose();
        return {-1, {}};
    }
    pull();
    if (socket == Socket::Up)
        send(body);
    else
        socket = Socket::Down; // the write finds the other end gone
    sleep(sleepFor(body));
    const QByteArray received = socket == Socket::Down ? QByteArray() : read();
    if (received.size() > 3)
        return {body.size() + kFrameLead, received};
    lose();
    return {-1, received};
}

PanelModel::Attempt PanelModel::serialAttempt(const QByteArray &body)
{
    pull();
    if (socket == Socket::Up)
        send(body);
    sleep(sleepFor(body));
    const QByteArray received = read();
    if (received.size() > 3 && !sumMatches(received))
        return {kWrongSum, received};
    return {body.size(), received};
}

PanelModel::Attempt PanelModel::attempt(const Step &step)
{
    const QByteArray body = bodyOf(step.code, step.payload, step.ext);
    return method == kNetwork ? networkAttempt(body) : serialAttempt(body);
}

QByteArray PanelModel::askSerial(const Step &step, int sleepMs)
{
    pull();
    if (socket == Socket::Up)
        send(bodyOf(step.code, step.payload, step.ext));
    sleep(sleepMs);
    return read();
}

std::optional<QByteArray> PanelModel::ladder(const Step &step, const Ladder &between)
{
    for (int tries = 0;; ++tries) {
        const Attempt last = attempt(step);
        if (last.result > 0)
            return method == kNetwork ? last.received.mid(kFrameLead) : last.received;
        if (tries == between.size())
            return std::nullopt;
        sleep(between.at(tries));
    }
}

std::optional<QByteArray> PanelModel::ladderAndLength(const Step &step, const Ladder &between)
{
    const auto reply = ladder(step, between);
    if (reply && method == kSerial && reply->size() <= 2)
        return std::nullopt;
    return reply;
}

std::optional<QByteArray> PanelModel::exchange(const Step &step, const Ladder &between)
{
    return mayAsk() ? ladderAndLength(step, between) : std::nullopt;
}

void PanelModel::take(const QVector<FieldRow> &rows, const QByteArray &body, int shift)
{
    overlay(fields, rows, body, shift);
}

// ---- Status ----------------------------------------------------------------------------------------------------

QString PanelModel::refreshStatus()
{
    const QString words = method == kNetwork ? networkStatus() : serialStatus();
    return words == QLatin1String("OK") ? refreshInputs() : words;
}

QString PanelModel::networkStatus()
{
    if (!mayAsk())
        return QStringLiteral("Ethernet not Connected!");
    for (const int code : {0x63, 0x60, 0x61}) {
        const auto reply = ladder({code}, {300, 300});
        if (!reply)
            return QStringLiteral("Device disconnected.");
        take(rowsOf(code), *reply);
    }
    return QStringLiteral("OK");
}

QString PanelModel::serialStatus()
{
    const QByteArray first = askSerial({0x63}, 150);
    if (first.size() <= 3)
        return QStringLiteral("Get status failed. Please try again.");
    if (!sumMatches(first))
        return QStringLiteral("-24");
    take(rowsOf(0x63), first);

    const QPair<int, const char *> steps[] = {
        {0x60, "Get Video Out failed. \nDevice may be disconnected."},
        {0x61, "Get Input Source failed. \nDevice may be disconnected."},
    };
    for (const auto &step : steps) {
        const auto reply = ladderAndLength({step.first}, {300, 500});
        if (!reply)
            return QString::fromLatin1(step.second);
        take(rowsOf(step.first), *reply);
    }
    return QStringLiteral("OK");
}

QString PanelModel::refreshInputs()
{
    if (!mayAsk())
        return QString();
    const auto reply = ladderAndLength({0x62}, {300, 500});
    if (!reply) {
        return method == kNetwork
            ? QStringLiteral("Device disconnected.")
            : QStringLiteral("Get Vin Resolution failed. \nDevice may be disconnected.");
    }
    take(rowsOf(0x62), *reply);
    return QStringLiteral("OK");
}

QString PanelModel::connect()
{
    const QString failed = QStringLiteral("Get Version failed. \nDevice may be disconnected.");
    const auto version = ladder({0x6C});
    if (!version || version->size() < (method == kNetwork ? 10 : 4))
        return failed;
    const auto text = [&version](int at) {
        return QStringLiteral("%1.%2")
            .arg(byteOf(*version, at), 0, 16)
            .arg(byteOf(*version, at + 1), 2, 16, QLatin1Char('0'));
    };
    fields.insert(QStringLiteral("FWVersion"), text(3));
    fields.insert(QStringLiteral("FPGAVersion"), text(5));
    fields.insert(QStringLiteral("BLVersion"), text(7));
    if (!ladder({0x6F}))
        return failed;
    setFlag(true);
    return refreshStatus();
}

// ---- Key colour ------------------------------------------------------------------------------------------------

void PanelModel::setCursor(const QByteArray &payload, int x, int y, QString *result)
{
    constexpr int kWhole = 15;
    *result = QStringLiteral("0 0");
    if (!mayAsk())
        return;
    const auto reply = ladder({0xDD, payload}, method == kNetwork ? Ladder{200, 200} : standardLadder);
    if (!reply || reply->isEmpty())
        return;
    if (reply->size() == kWhole)
        take(rowsOf(0x5D), *reply);
    else
        *result = QStringLiteral("%1 %2").arg(x).arg(y);
}

void PanelModel::getCursor()
{
    constexpr int kTooShort = 8;
    const auto reply = exchange({0x5D});
    if (reply && reply->size() > kTooShort)
        take(rowsOf(0x5D), *reply);
}

void PanelModel::setKeyColour(const QByteArray &payload)
{
    const bool isAutomatic = payload.back() == '\1' || payload.back() == '\2';
    const Step step = {0xD0, payload};
    std::optional<QByteArray> reply;
    if (method == kNetwork)
        reply = mayAsk() ? ladder(step, {3000, 1000, 500}) : std::nullopt;
    else if (isAutomatic)
        reply = askSerial(step, 3000);
    else
        reply = exchange(step);
    if (!reply || !isAutomatic)
        return;
    for (const auto &part : rowsOfChain())
        take(part.first, *reply, part.second - 3);
}

void PanelModel::saveSetup()
{
    if (method == kNetwork && socket == Socket::Down)
        return;
    if (ladderAndLength({0xE5}))
        refreshStatus();
}

} // namespace matrix
