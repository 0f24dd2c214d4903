#include "device/functions.h"

#include "device/functioncalls.h"

#include <type_traits>

namespace {

// The public field at the end of `Path`: a member of the class, or a member of a record in it.
template <auto Member, auto... Path>
qint64 readMember(const qkv720 &unit)
{
    return static_cast<qint64>(((unit.*Member).*....*Path));
}

template <auto Member, auto... Path>
void writeMember(qkv720 &unit, qint64 value)
{
    auto &field = ((unit.*Member).*....*Path);
    using Type = std::remove_reference_t<decltype(field)>;
    if constexpr (std::is_same_v<Type, bool>)
        field = value != 0;
    else
        field = static_cast<Type>(value);
}

struct Range
{
    int least;
    int most;
    const char *unit = "";
};

template <auto Member, auto... Path>
constexpr UnitField field(const char *name, int at, FieldKind kind, Range range,
                          const char *const *words = nullptr)
{
    return {name,
            at,
            kind,
            range.least,
            range.most,
            range.unit,
            words,
            readMember<Member, Path...>,
            writeMember<Member, Path...>};
}

constexpr const char *kSwitch[] = {"off", "on"};

template <auto Member, auto... Path>
constexpr UnitField flag(const char *name, int at, FieldKind kind)
{
    return field<Member, Path...>(name, at, kind, {0, 1}, kSwitch);
}

// A byte without a sign. It comes back into its field as any byte does, so that 255 stands there as -1 or as a very
// large number; whoever reads it through its row gets 255 again.
template <auto Member, auto... Path>
constexpr UnitField wholeByte(const char *name, int at)
{
    UnitField row = field<Member, Path...>(name, at, FieldKind::Byte, {0, 255});
    row.read = [](const qkv720 &unit) -> qint64 {
        return static_cast<quint8>(readMember<Member, Path...>(unit));
    };
    return row;
}

constexpr Range kThousand = {0, 1000};
constexpr Range kHundred = {0, 100};

constexpr const char *kStandards[] = {
    "None",        "PAL",        "NTSC",       "720p50",      "720p59.94",   "720p60",     "1080i50",
    "1080i59.94",  "1080i60",    "1080p23.98", "1080p24",     "1080p25",     "1080p29.97", "1080p30",
    "1080p50",     "1080p59.94", "1080p60",    "2160p23.98",  "2160p24",     "2160p25",    "2160p29.97",
    "2160p30",     "2160p50",    "2160p59.94", "2160p60",     "2160wp23.98", "2160wp24",   "2160wp25",
    "2160wp29.97", "2160wp30",   "2160wp50",   "2160wp59.94", "2160wp60",
};
constexpr Range kAnyStandard = {0, 32};
constexpr const char *kColourFormats[] = {"RGB444", "YUV444", "YUV422"};
constexpr const char *kOutputModes[] = {"fixed", "automatic"};
constexpr const char *kInputSources[] = {"FG_SDI_IN", "FG_HDMI_IN1", "BG_HDMI_IN2", "AUX_HDMI_IN3"};
constexpr Range kAnyInput = {0, 3};
constexpr const char *kOutputSources[] = {"FG", "BG", "AUX", "MATTE", "PFG", "COMP"};
constexpr Range kAnyPicture = {1, 6};
constexpr const char *kGenlockSources[] = {"off", "external"};
constexpr const char *kAutomaticKeys[] = {"none", "AutoDef", "AutoBack"};
constexpr const char *kKeyModes[] = {"black", "white"};

constexpr UnitField backColourRows[] = {
    field<&qkv720::ckBackColor, &qkv720_color::r>("red", 0, FieldKind::Word, kThousand),
    field<&qkv720::ckBackColor, &qkv720_color::g>("green", 2, FieldKind::Word, kThousand),
    field<&qkv720::ckBackColor, &qkv720_color::b>("blue", 4, FieldKind::Word, kThousand),
    field<&qkv720::ckBackColor, &qkv720_color::autoCk>("auto", 6, FieldKind::Byte, {0, 2}, kAutomaticKeys),
};

constexpr UnitField angleRows[] = {
    field<&qkv720::ckAngleL>("left", 0, FieldKind::Byte, {0, 120, "degrees"}),
    field<&qkv720::ckAngleR>("right", 1, FieldKind::Byte, {0, 120, "degrees"}),
};

constexpr UnitField levelsRows[] = {
    field<&qkv720::ckBlackLevel>("black", 0, FieldKind::Word, kThousand),
    field<&qkv720::ckWhiteLevel>("white", 2, FieldKind::Word, kThousand),
    flag<&qkv720::matteEnable>("matte", 4, FieldKind::FlagIsPositive),
};

constexpr UnitField darkRows[] = {
    flag<&qkv720::ckDark, &qkv720_enhancement::enable>("enable", 0, FieldKind::FlagIsOne),
    field<&qkv720::ckDark, &qkv720_enhancement::level>("level", 1, FieldKind::Word, kThousand),
    field<&qkv720::ckDark, &qkv720_enhancement::density>("density", 3, FieldKind::Word, kThousand),
    field<&qkv720::ckDark, &qkv720_enhancement::balance>("balance", 5, FieldKind::Byte, kHundred),
};

constexpr UnitField brightRows[] = {
    flag<&qkv720::ckBright, &qkv720_enhancement::enable>("enable", 0, FieldKind::FlagIsOne),
    field<&qkv720::ckBright, &qkv720_enhancement::level>("level", 1, FieldKind::Word, kThousand),
    field<&qkv720::ckBright, &qkv720_enhancement::density>("density", 3, FieldKind::Word, kThousand),
    field<&qkv720::ckBright, &qkv720_enhancement::balance>("balance", 5, FieldKind::Byte, kHundred),
};

constexpr UnitField shadowRows[] = {
    flag<&qkv720::ckShadow, &qkv720_enhancement::enable>("enable", 0, FieldKind::FlagIsOne),
    field<&qkv720::ckShadow, &qkv720_enhancement::level>("level", 1, FieldKind::Word, kThousand),
};

constexpr UnitField spillRows[] = {
    field<&qkv720::spillSuppression>("suppression", 0, FieldKind::Word, kThousand),
    field<&qkv720::spillEnhance>("enhance", 2, FieldKind::Word, kThousand),
    field<&qkv720::spillBalance>("balance", 4, FieldKind::Word, kThousand),
    field<&qkv720::spillBrightness>("brightness", 6, FieldKind::Word, kThousand),
    flag<&qkv720::spillVivid>("vivid", 8, FieldKind::FlagIsSet),
    field<&qkv720::spillDefaultValue>("preset", 9, FieldKind::Byte, {0, 31}),
};

constexpr UnitField edgeFixRows[] = {
    flag<&qkv720::edgeFixEnable>("enable", 0, FieldKind::FlagIsOne),
    field<&qkv720::edge_ShrinkLeft>("left", 1, FieldKind::Byte, {0, 50}),
    field<&qkv720::edge_ShrinkRight>("right", 2, FieldKind::Byte, {0, 50}),
    field<&qkv720::edge_SoftEdge>("soft", 3, FieldKind::Byte, kHundred),
};

// Hue leaves with its sign, as two's complement, and comes back into a field without one: -10 stands there as
// 65526. Whoever reads it through its row gets -10 again.
qint64 readHue(const qkv720 &unit)
{
    return static_cast<qint16>(unit.ppPostAmp.hue);
}

constexpr UnitField hueRow()
{
    UnitField row = field<&qkv720::ppPostAmp, &qkv720_ppfgpostamp::hue>("hue", 7, FieldKind::Word,
                                                                        {-180, 180, "degrees"});
    row.read = readHue;
    return row;
}

constexpr UnitField postAmplifierRows[] = {
    flag<&qkv720::ppPostAmp, &qkv720_ppfgpostamp::enable>("enable", 0, FieldKind::FlagIsOne),
    field<&qkv720::ppPostAmp, &qkv720_ppfgpostamp::bright>("bright", 1, FieldKind::Word, kThousand),
    field<&qkv720::ppPostAmp, &qkv720_ppfgpostamp::contrast>("contrast", 3, FieldKind::Word, kThousand),
    field<&qkv720::ppPostAmp, &qkv720_ppfgpostamp::sat>("saturation", 5, FieldKind::Word, kThousand),
    hueRow(),
};

constexpr UnitField rgbCorrectorRows[] = {
    flag<&qkv720::rgbCorrect, &qkv720_fg_rgb_corrector::enable>("enable", 0, FieldKind::FlagIsOne),
    field<&qkv720::rgbCorrect, &qkv720_fg_rgb_corrector::rWhite>("redWhite", 1, FieldKind::Word, kThousand),
    field<&qkv720::rgbCorrect, &qkv720_fg_rgb_corrector::rBlack>("redBlack", 3, FieldKind::Word, kThousand),
    field<&qkv720::rgbCorrect, &qkv720_fg_rgb_corrector::gWhite>("greenWhite", 5, FieldKind::Word, kThousand),
    field<&qkv720::rgbCorrect, &qkv720_fg_rgb_corrector::gBlack>("greenBlack", 7, FieldKind::Word, kThousand),
    field<&qkv720::rgbCorrect, &qkv720_fg_rgb_corrector::bWhite>("blueWhite", 9, FieldKind::Word, kThousand),
    field<&qkv720::rgbCorrect, &qkv720_fg_rgb_corrector::bBlack>("blueBlack", 11, FieldKind::Word, kThousand),
};

constexpr UnitField garbageMaskRows[] = {
    flag<&qkv720::garbageMaskWindow, &qkv720_gmwindow::enable>("enable", 0, FieldKind::FlagIsOne),
    field<&qkv720::garbageMaskWindow, &qkv720_gmwindow::invert>("invert", 1, FieldKind::Byte, {0, 1},
                                                                kSwitch),
    field<&qkv720::garbageMaskWindow, &qkv720_gmwindow::left>("left", 2, FieldKind::Word, kThousand),
    field<&qkv720::garbageMaskWindow, &qkv720_gmwindow::right>("right", 4, FieldKind::Word, kThousand),
    field<&qkv720::garbageMaskWindow, &qkv720_gmwindow::top>("top", 6, FieldKind::Word, kThousand),
    field<&qkv720::garbageMaskWindow, &qkv720_gmwindow::bottom>("bottom", 8, FieldKind::Word, kThousand),
    field<&qkv720::garbageMaskWindow, &qkv720_gmwindow::border>("border", 10, FieldKind::Byte, kHundred),
};

constexpr UnitField backgroundBlurRows[] = {
    flag<&qkv720::bgBlur, &qkv720_bgblur::enable>("enable", 0, FieldKind::FlagIsSet),
    field<&qkv720::bgBlur, &qkv720_bgblur::bg_blur>("level", 1, FieldKind::Byte, kHundred),
    field<&qkv720::bgBlur, &qkv720_bgblur::blurTime>("time", 2, FieldKind::Byte, {0, 20}),
};

constexpr UnitField auxModeRows[] = {
    wholeByte<&qkv720::auxFunction>("function", 0),
    wholeByte<&qkv720::auxPolarity>("polarity", 1),
};

constexpr UnitField lumaKeyRows[] = {
    flag<&qkv720::auxLumakey, &qkv720_auxlumakey::enable>("enable", 0, FieldKind::FlagIsSet),
    field<&qkv720::auxLumakey, &qkv720_auxlumakey::keymode>("mode", 1, FieldKind::Byte, {0, 1}, kKeyModes),
    field<&qkv720::auxLumakey, &qkv720_auxlumakey::cutOff>("cutOff", 2, FieldKind::Word, kThousand),
    field<&qkv720::auxLumakey, &qkv720_auxlumakey::softness>("softness", 4, FieldKind::Word, kThousand),
    field<&qkv720::auxLumakey, &qkv720_auxlumakey::layerSwap>("layerSwap", 6, FieldKind::Byte, {0, 1},
                                                              kSwitch),
    field<&qkv720::auxLumakey, &qkv720_auxlumakey::swapTime>("swapTime", 7, FieldKind::Byte, {0, 20}),
    field<&qkv720::auxLumakey, &qkv720_auxlumakey::opacity>("opacity", 8, FieldKind::Word, kThousand),
};

// The five bytes in front repeat what was sent: control, x and y.
constexpr UnitField cursorRows[] = {
    field<&qkv720::tempR>("red", 5, FieldKind::Word, kThousand),
    field<&qkv720::tempG>("green", 7, FieldKind::Word, kThousand),
    field<&qkv720::tempB>("blue", 9, FieldKind::Word, kThousand),
};

constexpr UnitField holdoutWindowRows[] = {
    flag<&qkv720::holdoutWindow, &qkv720_gmwindow::enable>("enable", 0, FieldKind::FlagIsOne),
    field<&qkv720::holdoutWindow, &qkv720_gmwindow::invert>("invert", 1, FieldKind::Byte, {0, 1}, kSwitch),
    field<&qkv720::holdoutWindow, &qkv720_gmwindow::left>("left", 2, FieldKind::Word, {0, 3840, "pixels"}),
    field<&qkv720::holdoutWindow, &qkv720_gmwindow::right>("right", 4, FieldKind::Word, {0, 3840, "pixels"}),
    field<&qkv720::holdoutWindow, &qkv720_gmwindow::top>("top", 6, FieldKind::Word, {0, 2160, "pixels"}),
    field<&qkv720::holdoutWindow, &qkv720_gmwindow::bottom>("bottom", 8, FieldKind::Word,
                                                            {0, 2160, "pixels"}),
    field<&qkv720::holdoutWindow, &qkv720_gmwindow::border>("border", 10, FieldKind::Byte, kHundred),
};

constexpr UnitField outputStandardRows[] = {
    field<&qkv720::videoOut, &video_out::res>("standard", 0, FieldKind::Byte, kAnyStandard, kStandards),
    field<&qkv720::videoOut, &video_out::colorspace>("colour", 1, FieldKind::Byte, {0, 2}, kColourFormats),
    field<&qkv720::videoOut, &video_out::std>("mode", 2, FieldKind::Byte, {0, 1}, kOutputModes),
};

constexpr UnitField inputSelectionRows[] = {
    field<&qkv720::inputFG, &input::source>("fg", 0, FieldKind::Byte, kAnyInput, kInputSources),
    field<&qkv720::inputBG, &input::source>("bg", 1, FieldKind::Byte, kAnyInput, kInputSources),
    field<&qkv720::inputAUX, &input::source>("aux", 2, FieldKind::Byte, kAnyInput, kInputSources),
    flag<&qkv720::inputFG, &input::freeze>("freezeFg", 3, FieldKind::Bit0),
    flag<&qkv720::inputBG, &input::freeze>("freezeBg", 3, FieldKind::Bit1),
    flag<&qkv720::inputAUX, &input::freeze>("freezeAux", 3, FieldKind::Bit2),
    field<&qkv720::genlockSrc>("genlock", 4, FieldKind::Byte, {0, 1}, kGenlockSources),
    field<&qkv720::genlock_H>("h", 5, FieldKind::SignedWord, {-5500, 5500}),
    field<&qkv720::genlock_V>("v", 7, FieldKind::SignedWord, {-500, 500}),
};

constexpr UnitField inputStandardRows[] = {
    field<&qkv720::inputFG, &input::res>("fg", 0, FieldKind::Byte, kAnyStandard, kStandards),
    field<&qkv720::inputBG, &input::res>("bg", 1, FieldKind::Byte, kAnyStandard, kStandards),
    field<&qkv720::inputAUX, &input::res>("aux", 2, FieldKind::Byte, kAnyStandard, kStandards),
    field<&qkv720::inputSYNC, &input::res>("sync", 3, FieldKind::Byte, kAnyStandard, kStandards),
    wholeByte<&qkv720::genlockStatus>("genlockStatus", 4),
};

constexpr UnitField outputRoutingRows[] = {
    field<&qkv720::PGM, &output::source>("pgm", 0, FieldKind::Byte, kAnyPicture, kOutputSources),
    field<&qkv720::PVW, &output::source>("pvw", 1, FieldKind::Byte, kAnyPicture, kOutputSources),
    field<&qkv720::PGM_HDMI, &output::source>("pgmHdmi", 2, FieldKind::Byte, kAnyPicture, kOutputSources),
    field<&qkv720::PVW_HDMI, &output::source>("pvwHdmi", 3, FieldKind::Byte, kAnyPicture, kOutputSources),
    flag<&qkv720::PGM, &output::lock>("lockPgm", 4, FieldKind::Bit0),
    flag<&qkv720::PVW, &output::lock>("lockPvw", 4, FieldKind::Bit1),
    flag<&qkv720::PGM_HDMI, &output::lock>("lockPgmHdmi", 4, FieldKind::Bit2),
    flag<&qkv720::PVW_HDMI, &output::lock>("lockPvwHdmi", 4, FieldKind::Bit3),
    flag<&qkv720::PGM, &output::mirror>("mirrorPgm", 5, FieldKind::Bit0),
    flag<&qkv720::PVW, &output::mirror>("mirrorPvw", 5, FieldKind::Bit1),
    flag<&qkv720::PGM_HDMI, &output::mirror>("mirrorPgmHdmi", 5, FieldKind::Bit2),
    flag<&qkv720::PVW_HDMI, &output::mirror>("mirrorPvwHdmi", 5, FieldKind::Bit3),
};

} // namespace

namespace functions {

// Name, code, bytes of data, zeros of its reset and rows; then how to read, set and reset it. Where a reset
// has other zeros than its set has bytes, hardware depends on it: see docs/oddities.md.
// clang-format off
constexpr UnitFunction backColour = {"BACK_COLOUR", QKV720_GET_CK_BACKCOLOR_AUTOCK, 7, 7, backColourRows,
    call<&qkv720::getBackColor>, sendBackColour, call<&qkv720::resetBackColor>};
constexpr UnitFunction angle = {"ANGLE", QKV720_GET_CK_ANGLE_LR, 2, 2, angleRows,
    readAngle, sendAngle, call<&qkv720::resetCKAngle>};
// Its reset carries no byte for the matte flag; the reply has all five.
constexpr UnitFunction levels = {"LEVELS", QKV720_GET_CK_BLACKLWHITELEVEL, 5, 4, levelsRows,
    readLevels, sendLevels, call<&qkv720::resetCKBWLevel>};
constexpr UnitFunction dark = {"DARK", QKV720_GET_DARK, 6, 6, darkRows,
    readDark, sendStage<&qkv720::setCKDark, &qkv720::ckDark>, call<&qkv720::resetCKDark>};
constexpr UnitFunction bright = {"BRIGHT", QKV720_GET_BRIGHT, 6, 6, brightRows,
    call<&qkv720::getCKBright>, sendStage<&qkv720::setCKBright, &qkv720::ckBright>,
    call<&qkv720::resetCKBright>};
constexpr UnitFunction shadow = {"SHADOW", QKV720_GET_SHADOW, 3, 3, shadowRows,
    call<&qkv720::getCKShadow>, sendShadow, call<&qkv720::resetCKShadow>};
// Its reset ends in the preset that is to be restored.
constexpr UnitFunction spill = {"SPILL", QKV720_GET_SPILL_BRIGHTNESS, 10, 10, spillRows,
    call<&qkv720::getCKSpillBright>, sendSpill, restoreSpill};
constexpr UnitFunction edgeFix = {"EDGE_FIX", QKV720_GET_EDGEFIX, 4, 4, edgeFixRows,
    call<&qkv720::getEdgeFix>, sendEdgeFix, call<&qkv720::resetEdgeFix>};
constexpr UnitFunction postAmplifier = {"POST_AMPLIFIER", QKV720_GET_FG_POSTAMP, 9, 9, postAmplifierRows,
    call<&qkv720::getPPFGPostAmp>, sendPostAmplifier, call<&qkv720::resetPPFGPostAmp>};
constexpr UnitFunction rgbCorrector = {"RGB_CORRECTOR", QKV720_GET_FG_RGB_CORRECTOR, 13, 13, rgbCorrectorRows,
    call<&qkv720::getPPFGRGBCorrect>, sendRgbCorrector, call<&qkv720::resetPPFGRGBCorrect>};
constexpr UnitFunction garbageMask = {"GARBAGE_MASK", QKV720_GET_WINDOW, 11, 11, garbageMaskRows,
    call<&qkv720::getWindow>, sendWindow<&qkv720::setWindow, &qkv720::garbageMaskWindow>,
    call<&qkv720::resetWindow>};
// Its reset is one zero short: the frame is that of the aux mode's. The reply has all three.
constexpr UnitFunction backgroundBlur = {"BACKGROUND_BLUR", QKV720_GET_BG_BLUR, 3, 2, backgroundBlurRows,
    call<&qkv720::getBGBlur>, sendBackgroundBlur, call<&qkv720::resetBGBlur>};
// The codes of the blur, and its first two bytes under other names.
constexpr UnitFunction auxMode = {"AUX_MODE", QKV720_GET_BG_BLUR, 2, 2, auxModeRows,
    call<&qkv720::getAuxMode>, sendAuxMode, call<&qkv720::resetAuxMode>};
// Its reset sends half of its zeros; the reply has all ten.
constexpr UnitFunction lumaKey = {"LUMA_KEY", QKV720_GET_LUMAKEY, 10, 5, lumaKeyRows,
    call<&qkv720::getLumaKey>, sendLumaKey, call<&qkv720::resetLumaKey>};
constexpr UnitFunction cursor = {"CURSOR", QKV720_GET_CURSORPOSITION, 11, 0, cursorRows,
    call<&qkv720::getCursor>, nullptr, nullptr};
constexpr UnitFunction holdoutWindow = {"HOLDOUT_WINDOW", QKV720_GET_HOLDOUTWINDOW, 11, 11, holdoutWindowRows,
    call<&qkv720::getHoldoutWindow>, sendWindow<&qkv720::setHoldoutWindow, &qkv720::holdoutWindow>,
    call<&qkv720::resetHoldoutWindow>};
constexpr UnitFunction outputStandard = {"OUTPUT_STANDARD", QKV720_GET_VIDEOOUT_RESOLUTION, 3, 0,
    outputStandardRows,
    call<&qkv720::getVideoOut>, sendOutputStandard, nullptr};
// Its reset sends no zeros at all; the reply has all nine.
constexpr UnitFunction inputSelection = {"INPUT_SELECTION", QKV720_GET_FGBGAUX_INPUTSOURCE, 9, 0,
    inputSelectionRows,
    call<&qkv720::refreshStatus>, sendInputSelection, call<&qkv720::resetVideoInputGenlock>};
constexpr UnitFunction inputStandard = {"INPUT_STANDARD", QKV720_GET_VIDEOIN_RESOLUTION, 5, 0,
    inputStandardRows,
    call<&qkv720::refreshVideoInRes>, nullptr, nullptr};
constexpr UnitFunction outputRouting = {"OUTPUT_ROUTING", QKV720_GET_PGMPVW_OUTPUT, 6, 0, outputRoutingRows,
    call<&qkv720::refreshStatus>, sendOutputRouting, nullptr};
// clang-format on

const QVector<const UnitFunction *> &all()
{
    static const QVector<const UnitFunction *> list = {
        &backColour,    &angle,          &levels,         &dark,          &bright,         &shadow,  &spill,
        &edgeFix,       &postAmplifier,  &rgbCorrector,   &garbageMask,   &backgroundBlur, &lumaKey, &cursor,
        &holdoutWindow, &outputStandard, &inputSelection, &inputStandard, &outputRouting};
    return list;
}

} // namespace functions
