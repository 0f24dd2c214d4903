#include "tests/device/matrix/faults.h"

namespace matrix {

namespace {

struct FaultRow
{
    Fault fault;
    const char *name;
    bool canRepeat; // on a link that ended there is no second answer
};

constexpr FaultRow kFaults[] = {
    {Fault::Silent, "silent (0 bytes)", true},
    {Fault::Late600, "late by 600 ms", true},
    {Fault::Late1300, "late by 1300 ms", true},
    {Fault::Bytes1, "1 byte", true},
    {Fault::Bytes2, "2 bytes", true},
    {Fault::Bytes3, "3 bytes", true},
    {Fault::Bytes4, "4 bytes", true},
    {Fault::ShortByOne, "short by one", true},
    {Fault::LongBy200, "long by 200", true},
    {Fault::Split10, "split by 10 ms", true},
    {Fault::Split80, "split by 80 ms", true},
    {Fault::Split400, "split by 400 ms", true},
    {Fault::WrongSum, "wrong checksum", true},
    {Fault::StaleInFront, "stale reply in front", true},
    {Fault::Refused81, "refused 0x81", true},
    {Fault::Refused82, "refused 0x82", true},
    {Fault::ClosedBefore, "closed before the answer", false},
    {Fault::ClosedAfter, "closed after the answer", false},
    {Fault::Reset, "reset", false},
    {Fault::FallenUnseen, "fallen before, unseen", false},
    {Fault::FallenSeen, "fallen before, seen", false},
};

constexpr int kHead = 3; // length, ext, code
constexpr int kAutoKeyChain[] = {0x50, 0x51, 0x52, 0x53, 0x54, 0x55, 0x56, 0x58};

int sizeOf(int getCode)
{
    switch (getCode) {
    case 0x50:
        return 7;
    case 0x51:
        return 2;
    case 0x52:
        return 5;
    case 0x53:
    case 0x54:
    case 0x63:
    case 0x6C:
        return 6;
    case 0x55:
    case 0x5B:
    case 0x60:
        return 3;
    case 0x56:
    case 0x5C:
        return 10;
    case 0x57:
        return 4;
    case 0x58:
    case 0x61:
        return 9;
    case 0x59:
        return 13;
    case 0x5A:
    case 0x5D:
    case 0x5F:
        return 11;
    case 0x62:
        return 5;
    case 0x64:
        return 1;
    case 0x6F:
        return 2;
    default:
        return 0;
    }
}

QByteArray cut(const QByteArray &answer, Fault fault)
{
    return answer.left(1 + static_cast<int>(fault) - static_cast<int>(Fault::Bytes1));
}

Answer splitBy(int gapMs, const QByteArray &answer)
{
    const int half = answer.size() / 2;
    return {{{0, answer.left(half)}, {gapMs, answer.mid(half)}}};
}

QByteArray refusal(uint method, int status)
{
    QByteArray body = QByteArray(1, '\2') + static_cast<char>(status);
    body.append(static_cast<char>(2 + status));
    return onLink(method, body);
}

QByteArray withWrongSum(QByteArray answer)
{
    answer[answer.size() - 1] = static_cast<char>(answer.back() + 1);
    return answer;
}

} // namespace

QString faultName(Fault fault)
{
    return QString::fromLatin1(kFaults[static_cast<int>(fault)].name);
}

QString Form::name() const
{
    const bool canRepeat = kFaults[static_cast<int>(fault)].canRepeat;
    return faultName(fault) + QLatin1String(!canRepeat ? "" : always ? ", always" : ", once");
}

QVector<Form> allForms()
{
    QVector<Form> forms;
    for (const FaultRow &row : kFaults) {
        forms.append({row.fault, false});
        if (row.canRepeat)
            forms.append({row.fault, true});
    }
    return forms;
}

QByteArray dataOf(int code, bool reset)
{
    const int getCode = code & 0x7F;
    const int first = code + (reset ? 90 : 0);
    QByteArray data;
    for (int i = 0; i < sizeOf(getCode); ++i)
        data.append(static_cast<char>((first * 29 + i * 53 + 7) & 0xFF));
    if (!data.isEmpty() && getCode != 0x6C)
        data[0] = '\1'; // which turns flags on
    return data;
}

QByteArray bodyOf(int code, const QByteArray &data, int ext)
{
    QByteArray body;
    body.append(static_cast<char>(kHead + data.size()));
    body.append(static_cast<char>(ext));
    body.append(static_cast<char>(code));
    body.append(data);
    unsigned sum = 0;
    for (const char byte : body)
        sum += static_cast<unsigned char>(byte);
    return body.append(static_cast<char>(sum & 0xFFU));
}

QByteArray onLink(uint method, const QByteArray &body)
{
    if (method == kSerial)
        return body;
    const int length = body.size() + 2;
    return QByteArray(1, static_cast<char>(length / 256)) + static_cast<char>(length % 256) + body;
}

QByteArray staleReply(uint method)
{
    return onLink(method, bodyOf(0x51, QByteArray::fromHex("3741")));
}

QByteArray healthyAnswer(uint method, const QByteArray &frameBody)
{
    const int code = static_cast<unsigned char>(frameBody.at(2));
    const bool reset = frameBody.at(1) != '\0';
    const int mode = frameBody.at(frameBody.size() - 2);
    if (code != 0xD0 || reset || mode < 1 || mode > 2)
        return onLink(method, bodyOf(code, dataOf(code, reset)));
    QByteArray chain = bodyOf(code, frameBody.mid(kHead, sizeOf(0x50)));
    for (const int part : kAutoKeyChain)
        chain += bodyOf(part, dataOf(part, false));
    return onLink(method, chain);
}

Answer faultyAnswer(const Form &form, uint method, const QByteArray &frameBody, int nth)
{
    const QByteArray healthy = healthyAnswer(method, frameBody);
    if (nth > 0 && !form.always)
        return {{{0, healthy}}};
    switch (form.fault) {
    case Fault::Silent:
        return {};
    case Fault::Late600:
        return {{{600, healthy}}};
    case Fault::Late1300:
        return {{{1300, healthy}}};
    case Fault::Bytes1:
    case Fault::Bytes2:
    case Fault::Bytes3:
    case Fault::Bytes4:
        return {{{0, cut(healthy, form.fault)}}};
    case Fault::ShortByOne:
        return {{{0, healthy.left(healthy.size() - 1)}}};
    case Fault::LongBy200:
        return {{{0, healthy + QByteArray(200, 'U')}}};
    case Fault::Split10:
        return splitBy(10, healthy);
    case Fault::Split80:
        return splitBy(80, healthy);
    case Fault::Split400:
        return splitBy(400, healthy);
    case Fault::WrongSum:
        return {{{0, withWrongSum(healthy)}}};
    case Fault::StaleInFront: // once: it lies there before the frame is sent
        return {{{0, form.always ? staleReply(method) + healthy : healthy}}};
    case Fault::Refused81:
        return {{{0, refusal(method, 0x81)}}};
    case Fault::Refused82:
        return {{{0, refusal(method, 0x82)}}};
    case Fault::ClosedBefore:
        return {{}, Ending::Close};
    case Fault::ClosedAfter:
        return {{{0, healthy}}, Ending::Close};
    case Fault::Reset:
        return {{}, Ending::Reset};
    case Fault::FallenUnseen:
    case Fault::FallenSeen:
        break;
    }
    return {{{0, healthy}}};
}

} // namespace matrix
