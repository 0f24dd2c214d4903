#include "lettering.h"

#include <QFont>
#include <QLibrary>
#include <QQuickWindow>

namespace {

// Where the fonts are, and what stands in for a family that is not there. A machine has some fifty files more that
// say such things to its desktop, and reading them would take a twelfth of the whole start. Of these only two are
// read: the one for the machine's owner, and the one that chooses among the Chinese, Japanese and Korean faces.
constexpr char kFonts[] = R"(<?xml version="1.0"?>
<!DOCTYPE fontconfig SYSTEM "fonts.dtd">
<fontconfig>
  <dir>/usr/share/fonts</dir>
  <dir>/usr/local/share/fonts</dir>
  <dir prefix="xdg">fonts</dir>
  <dir>~/.fonts</dir>
  <cachedir>/var/cache/fontconfig</cachedir>
  <cachedir prefix="xdg">fontconfig</cachedir>
  <include ignore_missing="yes">/etc/fonts/local.conf</include>
  <match target="pattern">
    <edit name="family" mode="append_last"><string>sans-serif</string></edit>
  </match>
  <alias>
    <family>sans-serif</family>
    <prefer><family>DejaVu Sans</family></prefer>
  </alias>
  <include ignore_missing="yes">/etc/fonts/conf.d/70-fonts-noto-cjk.conf</include>
</fontconfig>
)";

// Read after all other settings, so these are the last word, also over what a desktop like GNOME tells
// through the X server: the toolkit looks there only for what fontconfig leaves open. No subpixels, which leave
// coloured fringes, and widths of letters that do not depend on who set the machine up. A face "Courier New" of the
// machine's own would draw the open angle signs in its own size and place, so it is not seen.
constexpr char kFontRules[] = R"(<?xml version="1.0"?>
<!DOCTYPE fontconfig SYSTEM "fonts.dtd">
<fontconfig>
  <match target="font">
    <edit name="antialias" mode="assign"><bool>true</bool></edit>
    <edit name="rgba" mode="assign"><const>none</const></edit>
    <edit name="hinting" mode="assign"><bool>true</bool></edit>
    <edit name="hintstyle" mode="assign"><const>hintslight</const></edit>
    <edit name="autohint" mode="assign"><bool>false</bool></edit>
    <edit name="embeddedbitmap" mode="assign"><bool>false</bool></edit>
  </match>
  <selectfont>
    <rejectfont>
      <pattern><patelt name="family"><string>Courier New</string></patelt></pattern>
    </rejectfont>
  </selectfont>
</fontconfig>
)";

// The toolkit takes its fonts from fontconfig, where there is one, and has no words for these rules itself. It uses
// the configuration that stands when it first asks. The library is the one that the toolkit loads anyway.
void giveFontRules()
{
    using LoadConfig = void *(*)();
    using ParseRules = int (*)(void *config, const unsigned char *rules, int complain);
    using BuildFonts = int (*)(void *config);
    using SetCurrent = int (*)(void *config);

    // Who names other settings in the environment means them.
    const bool named = qEnvironmentVariableIsSet("FONTCONFIG_FILE")
        || qEnvironmentVariableIsSet("FONTCONFIG_PATH") || qEnvironmentVariableIsSet("FONTCONFIG_SYSROOT");
    QLibrary fontconfig(QStringLiteral("fontconfig"), 1);
    const auto loadConfig =
        reinterpret_cast<LoadConfig>(fontconfig.resolve(named ? "FcInitLoadConfig" : "FcConfigCreate"));
    const auto parseRules =
        reinterpret_cast<ParseRules>(fontconfig.resolve("FcConfigParseAndLoadFromMemory"));
    const auto buildFonts = reinterpret_cast<BuildFonts>(fontconfig.resolve("FcConfigBuildFonts"));
    const auto setCurrent = reinterpret_cast<SetCurrent>(fontconfig.resolve("FcConfigSetCurrent"));
    if (!loadConfig || !parseRules || !buildFonts || !setCurrent)
        return;
    void *const config = loadConfig();
    if (!config)
        return;
    if (!named)
        parseRules(config, reinterpret_cast<const unsigned char *>(kFonts), 1);
    // The rules before the fonts: a face is left out while the list is made.
    parseRules(config, reinterpret_cast<const unsigned char *>(kFontRules), 1);
    if (buildFonts(config))
        setCurrent(config);
}

} // namespace

void prepareLettering()
{
    giveFontRules();
    QQuickWindow::setTextRenderType(QQuickWindow::NativeTextRendering);
    // Two families that the documents name and the toolkit does not find. Without the first line, Chinese falls to a
    // face whose digits are too wide; without the second, the open angle signs take the size and the place of
    // whatever face is found. The signs' own face comes with the panel.
    QFont::insertSubstitution(QStringLiteral("Noto Sans CJK TC Regular"), QStringLiteral("Noto Sans CJK TC"));
    QFont::insertSubstitution(QStringLiteral("Courier New"), QStringLiteral("QKV-720 Signs"));
}
