#pragma once

#include "device/linkevent.h"
#include "device/qkv720commands.h"
#include "device/qkv720state.h"
#include "device/replybody.h"
#include "device/serialport.h"
#include "device/timing.h"

#include <QObject>
#include <QPoint>
#include <QString>
#include <QStringList>

#include <optional>
#include <utility>

class HLNP;
class QTimer;
struct UnitFunction;

// A version at `at` of the reply: major in hexadecimal without a leading zero, minor in two digits. 02 23 is
// 2.23, 10 2A is 10.2a.
QString versionText(const ReplyBody &reply, int at);

// The panel's mirror of the unit, and every operation that the unit offers.
//
// The public fields are the state: each holds what was last read from the unit or last sent to it, whichever
// was later. They outlive every connection.
//
// `method` is the link: 1 network, 2 serial. Every operation with a `method` blocks the thread until its
// exchange has ended, sleeps and retries included. functions.h lays out what each function carries. Three
// shapes occur:
//  - get    sends a GET code and takes the reply into the fields. On failure the fields keep their values; a
//           returned record is then all zero and output arguments are left alone.
//  - set    writes its arguments into the fields first, whether or not the unit hears of it, then sends them.
//           The reply is not read and nothing is rolled back on failure.
//  - reset  sends the SET code with ext 0x80; the unit restores its defaults and answers with them. The fields
//           take the reply and keep their values on failure.
// Failures show in `isConnected` and `connectionBroken()`; only a few operations return words.
class qkv720 : public QObject
{
    Q_OBJECT

public:
    // Creates the serial and the discovery object and lists the adapters. Opens nothing.
    explicit qkv720(QObject *parent = nullptr);

    // ---- Links -------------------------------------------------------------------------------------------------

    serialPort *serialObj;
    HLNP *hlnpObj; // owns swiTcpSocket, the network link

    // Opens link `method` to `select` (an IP address, or a serial port name), reads the versions, asks for
    // the device type and fetches the first status. "OK", or words for the operator: "Get Version failed.
    // ...", the port's error text, or those of refreshStatus. "NOT OK" for any other method. Closes an open
    // serial port first; closes nothing on failure.
    QString connectDevice(uint method, QString select);

    // Closes the link, whether it is open or not, and clears isConnected. No signal. Always 0.
    uint disconnectDevice(uint method);

    // What became of the exchange that ended last: nothing came, the unit refused, something came that is no
    // whole answer to the command (and was taken all the same), or a reply was taken. For callers of
    // operations that return nothing.
    enum class Answer { None, Refused, Garbled, Reply };
    Answer lastAnswer() const { return answer; }
    // How many exchanges ended in a refusal: for operations of several.
    int refusals() const { return refused; }

    // Has `seen` called with each frame written and each reply read, on either link.
    void observeLink(LinkObserver seen) { observer = std::move(seen); }

    // Reads one function alone, under the standard ladder, where its own get may read more. Whether the unit
    // answered; lastAnswer() tells with what.
    bool readFunction(uint method, const UnitFunction &function);

    // One exchange on the network link: up to three writes, the command's sleep, one read. The bytes written;
    // 0 or less for a failed attempt (three failed writes, or a reply of 3 bytes or fewer: -1). Each of these
    // clears isConnected and raises connectionBroken.
    int hlnpIO(QByteArray *writebuff, QByteArray *readbuff);

    // One exchange on the serial link: up to four writes with sleeps between, the command's sleep, one read.
    // The bytes written; 0 or less for a failed attempt. Only failed writes clear isConnected and raise
    // connectionBroken. A wrong checksum gives -24; a reply of 3 bytes or fewer passes unchecked.
    int serialIO(QByteArray *writebuff, QByteArray *readbuff);

    // Runs a discovery scan and waits until it is done, at most 50 s. 1 when done, else 0.
    uint HLNPScan(QString cmd, int netcardIndex);
    // Asks each device found by the last scan for its model, 100 ms apart. Always 0.
    int HLNPGetModel();
    // Has the discovery sort what was found and pick out the units. Always 0.
    int HLNPDoScanDone();

    QStringList getHLNPNetcardList();
    QStringList getHLNPDeviceList();
    QStringList getSerialInfoList();

    QString getFWVersion() const { return FWVersion; }
    QString getFPGAVersion() const { return FPGAVersion; }
    QString getBLVersion() const { return BLVersion; }

    // ---- Accessors: no exchange, never fail --------------------------------------------------------------------
    // Inputs are 1 FG, 2 BG, 3 AUX, 4 SYNC; outputs are 1 PGM, 2 PVW, 3 PGM_HDMI, 4 PVW_HDMI. Any other
    // number gives 0 or false.

    uint getInputRes(uint target) const;
    uint getInputSource(uint target) const; // 4 gives 0: sync has no source
    int getInputFreeze(uint target) const;
    uint getOutSource(uint target) const;
    bool getOutLock(uint target) const;
    bool getOutMirror(uint target) const;
    uint getVideoOutRes() const { return static_cast<uint>(videoOut.res); }
    uint getVideoOutColorFormat() const { return static_cast<uint>(videoOut.colorspace); }
    uint getVideoOutStd() const { return static_cast<uint>(videoOut.std); }
    int getInputGenlock() const { return genlockSrc; }
    int getInputGenlockStatus() const { return genlockStatus; }
    int getInputGenlock_H() const { return genlock_H; }
    int getInputGenlock_V() const { return genlock_V; }
    // These three write the field only; nothing is sent. The offsets are cut to 16 bits.
    void setInputGenlock(int gen) { genlockSrc = gen; }
    void setInputGenlock_H(int gen_h) { genlock_H = static_cast<qint16>(gen_h); }
    void setInputGenlock_V(int gen_v) { genlock_V = static_cast<qint16>(gen_v); }

    // ---- Status ------------------------------------------------------------------------------------------------

    // Reads routing, output standard, input selection and input resolutions: four commands. "OK" or failure
    // words; a step that fails leaves the earlier steps' fields updated. "NOT OK" for an unknown method.
    QString refreshStatus(uint method);

    // Reads the standards detected on the inputs and the genlock status. "OK" or failure words; an empty text
    // when the network link is down.
    QString refreshVideoInRes(uint method);

    // Reads the output standard (get). On failure it also clears isConnected, without a signal: this is how a
    // silent serial unit comes to light.
    video_out getVideoOut(uint method);

    // ---- Video output and routing ------------------------------------------------------------------------------

    // Output standard (set). The panel waits 2 s for the reply, as long as a unit takes to change over.
    void setVideoOut(uint method, resolution res, hdmiout_format colorSpace, std_auto std);

    // What each of the four outputs shows, with its lock and mirror flags (set).
    void setOutputSelection(uint method, output pgmPara, output pvwPara, output pgm_HDMIPara,
                            output pvw_HDMIPara);

    // What feeds each layer, the freeze flags (not 0: frozen; the fields keep the number as it came) and the
    // genlock with its signed offsets (set).
    void setVideoInputSource(uint method, uint fgSource, uint bgSource, uint auxSource, int fgfreeze,
                             int bgfreeze, int auxfreeze, int genlock, qint16 gen_h, qint16 gen_v);

    // Genlock defaults (reset, no payload). Sources and freeze flags are overwritten from the reply too.
    void resetVideoInputGenlock(uint method);

    // ---- Key colour; colours count from 0 to 1000 --------------------------------------------------------------

    // Places the cursor (cursor_control 3) at x, y of the output picture and reads the colour under it into
    // tempR, tempG, tempB; 0 takes it away. The record returned is all zero, but for `xy` when the reply
    // hasn't its exact length; callers read the three fields.
    qkv720_cursor setCursor(uint method, uint cursor_control, uint x, uint y);

    // Reads the colour under the cursor into tempR, tempG, tempB (get). The record is always zero.
    qkv720_cursor getCursor(uint method);

    // Background colour (get); the colour goes to tempR, tempG, tempB too.
    qkv720_color getBackColor(uint method);

    // Background colour (set), or, with autoCK 1 or 2, the automatic key: the unit scans the picture for
    // seconds and answers with new values of colour, angle, levels, dark, bright, shadow and spill, all of
    // which are taken. 999, 999, 999 stands for the colour last seen under the cursor. ckBackColor.autoCk
    // comes from replies only.
    void setBackColor(uint method, quint16 r, quint16 g, quint16 b, uint autoCK);
    void resetBackColor(uint method);

    // ---- Key shaping -------------------------------------------------------------------------------------------

    // Key angle, 0 to 120 each, one byte on the wire.
    void getCKAngle(uint method, uint *l, uint *r);
    void setCKAngle(uint method, uint l, uint r);
    void resetCKAngle(uint method);

    // Black and white level, 0 to 1000, and the matte flag.
    void getCKBWLevel(uint method, uint *b, uint *w, bool *m);
    void setCKBWLevel(uint method, uint black, uint white, bool matteOn);
    void resetCKBWLevel(uint method);

    // Dark stage: level and density 0 to 1000, balance 0 to 100 (kept as a signed byte).
    void getCKDark(uint method, bool *enable, uint *level, uint *density, uint *balance);
    void setCKDark(uint method, bool enable, uint level, uint density, uint balance);
    void resetCKDark(uint method);

    // Bright stage, as dark. The get has no output arguments: callers read ckBright.
    void getCKBright(uint method);
    void setCKBright(uint method, bool enable, uint level, uint density, uint balance);
    void resetCKBright(uint method);

    // Shadow stage: level alone, 0 to 1000.
    void getCKShadow(uint method);
    void setCKShadow(uint method, bool enable, uint level);
    void resetCKShadow(uint method);

    // ---- Edge fix and spill ------------------------------------------------------------------------------------

    // Edge fix: shrink left and right and soft edge, one byte each on the wire.
    void getEdgeFix(uint method);
    void setEdgeFix(uint method, bool enable, uint left, uint right, uint edge);
    void resetEdgeFix(uint method);

    // Spill. `defaultValue` packs the preset (bits 0 to 2: 0 low, 1 mid, 2 high), the enhance option (0x08)
    // and the vivid option (0x10).
    void getCKSpillBright(uint method);
    void setCKSpillBright(uint method, uint suppression, uint enhance, uint balance, uint brightness,
                          uint vivid, uint defaultValue);
    // Restores the values of preset 0, 1 or 2, with or without the enhance option (reset with a value). Any
    // other preset asks for 0 without the option.
    void resetCKSpillBright(uint method, uint spillDefault, bool spiSupEnhance);

    // ---- Post-processing ---------------------------------------------------------------------------------------

    // Post amplifier of the foreground: 0 to 1000; hue -180 to 180, sent as 16 bits of two's complement and
    // read back without a sign.
    qkv720_ppfgpostamp getPPFGPostAmp(uint method);
    void setPPFGPostAmp(uint method, bool enable, uint bright, uint contrast, uint sat, uint hue);
    void resetPPFGPostAmp(uint method);

    // RGB corrector of the foreground, 0 to 1000 each.
    qkv720_fg_rgb_corrector getPPFGRGBCorrect(uint method);
    void setPPFGRGBCorrect(uint method, bool enable, uint r_white, uint r_black, uint g_white, uint g_black,
                           uint b_white, uint b_black);
    void resetPPFGRGBCorrect(uint method);

    // Background blur: level 0 to 100, time 0 to 20.
    qkv720_bgblur getBGBlur(uint method);
    void setBGBlur(uint method, bool enable, uint bgblur, uint blurtime);
    void resetBGBlur(uint method);

    // ---- Windows -----------------------------------------------------------------------------------------------

    // Garbage mask window: edges 0 to 1000, border 0 to 100.
    qkv720_gmwindow getWindow(uint method);
    void setWindow(uint method, bool enable, uint invert, uint left, uint right, uint top, uint bottom,
                   uint border);
    void resetWindow(uint method);

    // Holdout window: left and right 0 to 3840, top and bottom 0 to 2160, border 0 to 100.
    qkv720_gmwindow getHoldoutWindow(uint method);
    void setHoldoutWindow(uint method, bool enable, uint invert, uint left, uint right, uint top, uint bottom,
                          uint border);
    void resetHoldoutWindow(uint method);

    // ---- Aux ---------------------------------------------------------------------------------------------------

    // Aux mode. It shares the command codes and the data bytes of the background blur, under fields of its
    // own.
    void getAuxMode(uint method);
    void setAuxMode(uint method, uint auxFunc, uint polarity);
    void resetAuxMode(uint method);

    // Aux luma key: cut-off, softness and opacity 0 to 1000, swap time 0 to 20.
    void getLumaKey(uint method);
    void setLumaKey(uint method, bool enable, uint keymode, quint16 cutOff, quint16 softness, uint layer,
                    uint swaptime, quint16 opacity);
    void resetLumaKey(uint method);

    // ---- Memory and setup --------------------------------------------------------------------------------------

    // Recalls user memory `index` (1 to 8; 0 is the factory reset), then runs refreshStatus. Nothing is
    // refreshed when the recall fails.
    void loadMemory(uint method, uint index);
    // Stores the unit's present values in user memory `index`.
    void saveMemory(uint method, uint index);
    // Asks the unit to store its setup, then runs refreshStatus. Never reconnects a fallen network link.
    void saveSetup(uint method);

    // ---- State -------------------------------------------------------------------------------------------------

    input inputFG;
    input inputBG;
    input inputAUX;
    input inputSYNC; // only its res is ever written
    input inputMatte;
    input inputPFG;
    input inputComp;
    output PGM;
    output PVW;
    output PGM_HDMI;
    output PVW_HDMI;
    video_out videoOut;
    QString FWVersion;
    QString FPGAVersion;
    QString BLVersion;
    QString deviceTypeRevision; // never written
    QPoint ckCursor; // never written
    qkv720_color ckBackColor;
    qkv720_enhancement ckDark;
    qkv720_enhancement ckBright;
    qkv720_enhancement ckShadow;
    bool edgeFixEnable = false;
    uint edge_ShrinkLeft = 0;
    uint edge_ShrinkRight = 0;
    uint edge_SoftEdge = 0;
    uint ckAngleL = 0;
    uint ckAngleR = 0;
    uint ckBlackLevel = 0;
    uint ckWhiteLevel = 0;
    bool matteEnable = false;
    uint spillSuppression = 0;
    uint spillEnhance = 0;
    uint spillBalance = 0;
    uint spillBrightness = 0;
    bool spillVivid = false;
    uint spillDefaultValue = 0;
    // The operator's spill choice: written by the facade alone.
    bool spillVividDefault = false;
    bool spillEnhanceDefault = false;
    bool spillLow = false;
    bool spillMid = false;
    bool spillHigh = false;
    uint auxFunction = 0;
    uint auxPolarity = 0;
    int genlockStatus = 0; // as the unit reports it
    int genlockSrc = 0; // 0 off, 1 genlock to external sync
    qint16 genlock_H = 0;
    qint16 genlock_V = 0;
    qkv720_fg_rgb_corrector rgbCorrect;
    qkv720_ppfgpostamp ppPostAmp;
    qkv720_gmwindow garbageMaskWindow;
    qkv720_gmwindow holdoutWindow;
    qkv720_auxlumakey auxLumakey;
    qkv720_bgblur bgBlur;
    // The colour last seen: under the key cursor, or read from the unit.
    quint16 tempR = 0;
    quint16 tempG = 0;
    quint16 tempB = 0;
    // The panel's belief that a link is up. Only a connectDevice that reached the unit sets it.
    bool isConnected = false;

public slots:
    // The guard of every network exchange. False when isConnected is false: then nothing is tried. Starts a
    // reconnect when the socket has fallen, without waiting for it; if that cannot even start, the link is
    // lost.
    bool checkConnection();

signals:
    // A transport gave up on the link at this moment. Raised at each failed attempt, not once per operation.
    void connectionBroken();

private:
    // One command each, from the frame to the reply body. Nothing when it fails, or when `method` is no link.
    //
    // exchange: the connection check of the network link, the standard ladder, the length test of the serial
    // link.
    std::optional<ReplyBody> exchange(uint method, const Command &command);
    // Without the connection check: for the later steps of an operation that has made it, and for saveSetup.
    std::optional<ReplyBody> exchangeWithoutCheck(uint method, const Command &command,
                                                  const RetryLadder &ladder = kStandardLadder);
    // Without the length test either: an empty serial reply passes. `resultLog` begins a log line for each
    // attempt.
    std::optional<ReplyBody> exchangeOfAnyLength(uint method, const Command &command,
                                                 const RetryLadder &ladder = kStandardLadder,
                                                 const char *resultLog = nullptr);

    // Set and reset, as the head of this class describes them, for one function of functions.h. Whether the
    // unit answered.
    void sendFunction(uint method, const UnitFunction &function);
    bool restoreFunction(uint method, const UnitFunction &function);
    bool restoreFunction(uint method, const UnitFunction &function, const Payload &payload);
    // readFunction without the connection check and under a ladder of the caller's.
    bool readWithoutCheck(uint method, const UnitFunction &function, const RetryLadder &ladder);

    bool linkReady(uint method);
    void loseLink();
    void tell(LinkEvent::Kind kind, uint method, const QByteArray &bytes) const;
    void noteAnswer(const ReplyBody &reply, int command);
    // Writes a frame, up to four times with sleeps between. After the fourth failure the link is lost.
    qint64 writeSerial(QByteArray &frame);
    // writeSerial, `waitMs`, one read. What was written; nothing looks at the reply.
    qint64 askSerial(QByteArray &frame, unsigned long waitMs, QByteArray &reply);

    QString greetUnit(uint method);
    void takeVersions(const ReplyBody &reply);
    QString refreshStatusNetwork();
    QString refreshStatusSerial();
    void takeCursorColor(const ReplyBody &reply);
    void rememberBackColor();
    std::optional<ReplyBody> keyColorNetwork(const Payload &payload);
    std::optional<ReplyBody> autoKeySerial(const Payload &payload);
    void takeAutoKeyChain(const ReplyBody &chain);

    // The record of a target number; null for any other number.
    const input *inputOf(uint target) const;
    const output *outputOf(uint target) const;

    Answer answer = Answer::None;
    int refused = 0;
    LinkObserver observer;
    int attempt = 1; // of the command on its way, for the observer
    QString targetIP;
    QTimer *timerCheckConnection; // never started: the link is checked on demand only
};
