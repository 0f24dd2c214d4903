#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QStringList>
#include <QThread>
#include <QVariant>
#include <QVector>

// The facade as the pages see it, with no unit behind: the same names and argument types, and each call is
// written down as "name(argument, argument)" with the time at which it came.
class RecordedFacade : public QObject
{
    Q_OBJECT

public:
    explicit RecordedFacade(QObject *parent = nullptr)
        : QObject(parent)
    {
        m_clock.start();
    }

    QStringList calls;
    QVector<qint64> times; // ms, one per call

    // How long each setter blocks, as a slow unit would.
    ulong slowMs = 0;

    // What getVideoOutRes answers.
    int videoOutRes = 16;

    qint64 now() const { return m_clock.elapsed(); }

    void forget()
    {
        calls.clear();
        times.clear();
    }

    QStringList callsOf(const QString &name) const { return calls.filter(name + QLatin1Char('(')); }

    QVector<qint64> timesOf(const QString &name) const
    {
        QVector<qint64> found;
        for (int i = 0; i < calls.size(); ++i) {
            if (calls.at(i).startsWith(name + QLatin1Char('(')))
                found << times.at(i);
        }
        return found;
    }

public slots:
    void setVInSource(uint fgSource, uint bgSource, uint auxSource, bool fgFreeze, bool bgFreeze,
                      bool auxFreeze, bool genLock, qint16 gen_H, qint16 gen_V)
    {
        set("setVInSource",
            {fgSource, bgSource, auxSource, fgFreeze, bgFreeze, auxFreeze, genLock, int(gen_H), int(gen_V)});
    }
    void resetGenlock() { note("resetGenlock", {}); }
    void setRefreshTimer(bool start) { note("setRefreshTimer", {start}); }
    void msecSleep(uint msec)
    {
        note("msecSleep", {msec});
        QThread::msleep(msec);
    }

    void getPPFGPostAmp() { note("getPPFGPostAmp", {}); }
    void setPPFGPostAmp(bool enable, uint bright, uint contrast, uint sat, uint hue)
    {
        set("setPPFGPostAmp", {enable, bright, contrast, sat, int(hue)});
    }
    void resetPPFGPostAmp() { note("resetPPFGPostAmp", {}); }
    void getPPFGRGBCorrect() { note("getPPFGRGBCorrect", {}); }
    void setPPFGRGBCorrect(bool enable, uint r_white, uint r_black, uint g_white, uint g_black, uint b_white,
                           uint b_black)
    {
        set("setPPFGRGBCorrect", {enable, r_white, r_black, g_white, g_black, b_white, b_black});
    }
    void resetPPFGRGBCorrect() { note("resetPPFGRGBCorrect", {}); }
    void getBGBlur() { note("getBGBlur", {}); }
    void setBGBlur(bool enable, uint blurvalue, uint blurtime)
    {
        set("setBGBlur", {enable, blurvalue, blurtime});
    }
    void resetBGBlur() { note("resetBGBlur", {}); }

    void getWindow() { note("getWindow", {}); }
    void setWindow(bool enable, uint invert, uint left, uint right, uint top, uint bottom, uint border)
    {
        set("setWindow", {enable, invert, left, right, top, bottom, border});
    }
    void resetWindow() { note("resetWindow", {}); }
    void getHoldoutWindow() { note("getHoldoutWindow", {}); }
    void setHoldoutWindow(bool enable, uint invert, uint left, uint right, uint top, uint bottom, uint border)
    {
        set("setHoldoutWindow", {enable, invert, left, right, top, bottom, border});
    }
    void resetHoldoutWindow() { note("resetHoldoutWindow", {}); }

    void getLumaKey() { note("getLumaKey", {}); }
    void setLumaKey(bool enable, uint keymode, quint16 cutoff, quint16 softness, uint layer, uint swaptime,
                    quint16 opacity)
    {
        set("setLumaKey", {enable, keymode, cutoff, softness, layer, swaptime, opacity});
    }
    void resetLumaKey() { note("resetLumaKey", {}); }

    int getVideoOutRes()
    {
        note("getVideoOutRes", {});
        return videoOutRes;
    }
    void setCursorData(uint cursor_control, uint x, uint y) { set("setCursorData", {cursor_control, x, y}); }
    void setBKColor(uint r, uint g, uint b, uint autock) { set("setBKColor", {r, g, b, autock}); }
    void setBKColor(QString color, uint autoCK) { set("setBKColor", {color, autoCK}); }
    void resetBKColor() { note("resetBKColor", {}); }
    void setCKAngle(uint l, uint r) { set("setCKAngle", {l, r}); }
    void getCKBWLevel() { note("getCKBWLevel", {}); }
    void setCKBWLevel(uint black, uint white, bool matteOn) { set("setCKBWLevel", {black, white, matteOn}); }
    void getCKDark() { note("getCKDark", {}); }
    void setCKDark(bool enable, uint level, uint density, uint balance)
    {
        set("setCKDark", {enable, level, density, balance});
    }
    void resetCKDark() { note("resetCKDark", {}); }
    void getCKBright() { note("getCKBright", {}); }
    void setCKBright(bool enable, uint level, uint density, uint balance)
    {
        set("setCKBright", {enable, level, density, balance});
    }
    void resetCKBright() { note("resetCKBright", {}); }
    void getCKShadow() { note("getCKShadow", {}); }
    void setCKShadow(bool enable, uint level) { set("setCKShadow", {enable, level}); }
    void resetCKShadow() { note("resetCKShadow", {}); }
    void getCKSpillBright() { note("getCKSpillBright", {}); }
    void setCKSpillBright(uint suppression, uint enhance, uint balance, uint brightness, uint vivid,
                          uint defaultValue, bool checkVivid, bool checkEnhance)
    {
        set("setCKSpillBright",
            {suppression, enhance, balance, brightness, vivid, defaultValue, checkVivid, checkEnhance});
    }
    void resetCKSpillBright(uint spillDefault, bool spiSupEnhance)
    {
        note("resetCKSpillBright", {spillDefault, spiSupEnhance});
    }
    void getEdgeFix() { note("getEdgeFix", {}); }
    void setEdgeFix(bool enable, uint left, uint right, uint edge)
    {
        set("setEdgeFix", {enable, left, right, edge});
    }
    void resetEdgeFix() { note("resetEdgeFix", {}); }

signals:
    void refreshInputResolution(unsigned int fg, unsigned int bg, unsigned int aux, unsigned int sync,
                                int genStatus);
    void refreshInputSource(unsigned int fg, unsigned int bg, unsigned int aux);
    void refreshInputFreeze(bool fgFreeze, bool bgFreeze, bool auxFreeze);
    void refreshGenlock(int gen, qint16 gen_h, qint16 gen_v);
    void refreshPPFGPostAmp(bool enable, unsigned int bright, unsigned int contrast, unsigned int sat,
                            unsigned int hue);
    void refreshPPFGRGBCorrector(bool enable, unsigned int rWhite, unsigned int rBlack, unsigned int gWhite,
                                 unsigned int gBlack, unsigned int bWhite, unsigned int bBlack);
    void refreshPPBGBlur(bool enable, unsigned int blurvalue, unsigned int blurtime);
    void refreshWindow(bool enable, unsigned int invert, unsigned int left, unsigned int right,
                       unsigned int top, unsigned int bottom, unsigned int border);
    void refreshHoldoutWindow(bool enable, unsigned int invert, unsigned int left, unsigned int right,
                              unsigned int top, unsigned int bottom, unsigned int border);
    void refreshLumaKey(bool enable, unsigned int keymode, quint16 cutoff, quint16 softness,
                        unsigned int layer, unsigned int swaptime, quint16 opa);
    void refreshBKColorAdjust(QString colorString, int r, int g, int b, int h, qreal s, qreal l);
    void refreshBKColorPicker(QString colorString, int r, int g, int b, int h, qreal s, qreal l);
    void refreshCKAngle(unsigned int minus, unsigned int plus);
    void refreshCKBWLevel(unsigned int black, unsigned int white, bool matte);
    void refreshCKDark(bool enable, int level, int density, int balance);
    void refreshCKBright(bool enable, int level, int density, int balance);
    void refreshCKShadow(bool enable, int shadowValue);
    void refreshEdgeFix(bool enable, unsigned int left, unsigned int right, unsigned int edge);
    void refreshCKSpill(unsigned int spillSuppressionValue, unsigned int spillEnhanceValue,
                        unsigned int spillBalanceValue, unsigned int edgeBrightnessValue, bool vividValue,
                        unsigned int spillDefButton, bool spillVividDefault, bool spillSupEnhanceValue);

protected:
    void note(const QString &name, const QVariantList &arguments)
    {
        QStringList texts;
        for (const QVariant &argument : arguments)
            texts << argument.toString();
        calls << name + QLatin1Char('(') + texts.join(QStringLiteral(", ")) + QLatin1Char(')');
        times << m_clock.elapsed();
    }

    void set(const QString &name, const QVariantList &arguments)
    {
        note(name, arguments);
        if (slowMs > 0)
            QThread::msleep(slowMs);
    }

private:
    QElapsedTimer m_clock;
};
