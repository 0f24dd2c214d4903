# Sourced by ./run and ./check: what the panel needs from Debian or Ubuntu, and the installing of what is missing.
# Each line: package, then why.
# shellcheck shell=sh disable=SC2034

needs_to_run='
g++                                 the compiler
cmake                               the build
ninja-build                         the build
qtbase5-dev                         Qt: core, widgets, network
qtdeclarative5-dev                  Qt: QML and Quick
libqt5serialport5-dev               Qt: the RS-232 link
libxcb-randr0-dev                   the launcher asks for the size of the screen
qttools5-dev                        Qt: the message catalogues
qttools5-dev-tools                  Qt: lrelease and lupdate
qml-module-qtquick2                 QML: the base
qml-module-qtquick-window2          QML: windows
qml-module-qtquick-controls         QML: sliders
qml-module-qtquick-controls2        QML: combos, popups, fields
qml-module-qtquick-templates2       QML: what the controls are made of
qml-module-qtquick-layouts          QML: used by the controls
qml-module-qtquick-privatewidgets   QML: used by the dialogs
qml-module-qtquick-dialogs          QML: the colour holder
qml-module-qtgraphicaleffects       QML: effects
qml-module-qt-labs-settings         QML: used by the dialogs
qml-module-qt-labs-folderlistmodel  QML: used by the dialogs
fonts-crosextra-carlito             the font of the English screen
fonts-noto-cjk                      the font of the Chinese screens
iproute2                            private networks for the rehearsal and the tests
xvfb                                a virtual display
xauth                               a virtual display
'
needs_without_display='
xdotool                             works the mouse of the rehearsal
imagemagick                         takes its screenshots
'
needs_to_check='
qtbase5-dev-tools                   the build
qtdeclarative5-dev-tools            qmllint
clang-format                        the layout of the code
python3                             the pictures
python3-cairo                       the pictures
python3-gi                          the pictures
python3-gi-cairo                    the pictures
gir1.2-pango-1.0                    the pictures
python3-fonttools                   the face of the open angle signs
x11-utils                           font settings of a desktop, for a test
tshark                              reads captures through the dissector
libxcb1-dev                         the tests work a virtual display by its events
libxcb-xtest0-dev                   the tests work a virtual display by its events
'
needs_to_write='
python3-markdown                    the pages of the manual
python3-pil                         its pictures, cut from those of the panel
'
needs_to_lint='
clang-tidy                          the habits of the code
shellcheck                          the habits of the scripts
git                                 which files there are
'
needs_to_count='
gcovr                               how often each line ran, of all the tests
'
needs_to_package='
dpkg-dev                            finds the libraries that the package depends on
'
needs_to_try_the_package='
binutils                            looks for the hardening in the programs
lintian                             the rules of Debian for packages
desktop-file-utils                  the rules for menu entries
appstream                           the rules for the description of the program
shellcheck                          the habits of the scripts
debootstrap                         a bare Debian to install the package in
xvfb                                a virtual display
xauth                               a virtual display
imagemagick                         looks at the screen
git                                 the commit that is built
'
needs_to_fuzz='
clang                               libFuzzer
libclang-rt-14-dev                  libFuzzer
'

say() { printf '%s\n' "$*"; }
fail() { printf '%s\n' "$*" >&2; exit 1; }

# install_needs LIST...: installs what is missing of the lists, telling each package and why it is wanted.
install_needs() {
    missing=$(printf '%s\n' "$@" | while read -r package why; do
        [ -n "$package" ] || continue
        dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || printf '%s|%s\n' "$package" "$why"
    done)
    [ -n "$missing" ] || return 0
    command -v apt-get >/dev/null 2>&1 || fail "This machine has no apt-get; install these by hand: $(printf '%s' "$missing" | cut -d'|' -f1 | tr '\n' ' ')"
    packages=$(printf '%s\n' "$missing" | cut -d'|' -f1)
    say "These packages are missing and will be installed:"
    printf '%s\n' "$missing" | sed 's/|/: /; s/^/  /'
    as_root=
    if [ "$(id -u)" != 0 ]; then
        as_root=sudo
        # shellcheck disable=SC2086
        by_hand="Install them as root, then start this again:
  apt-get update && apt-get install $(printf '%s ' $packages)"
        command -v sudo >/dev/null 2>&1 || fail "Installing packages needs root, and there is no sudo here. $by_hand"
        sudo -v || fail "Installing packages needs root, and sudo was refused. $by_hand"
    fi
    log=$(mktemp)
    $as_root apt-get update >"$log" 2>&1 || { tail -n 5 "$log"; fail "The package lists could not be fetched: is the network up?"; }
    # shellcheck disable=SC2086
    if ! $as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends $packages >"$log" 2>&1; then
        for package in $packages; do
            dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || say "Could not be installed: $package"
        done
        tail -n 15 "$log"
        fail "Some packages could not be installed; the lines above tell which and why."
    fi
    rm -f "$log"
}

# use_ccache: names the compiler cache to CMake where there is one.
# It is told that headers which are read once are as good as read each time.
use_ccache() {
    if command -v ccache >/dev/null 2>&1; then
        printf '%s' '-DCMAKE_CXX_COMPILER_LAUNCHER=env;CCACHE_SLOPPINESS=pch_defines,time_macros;ccache'
    fi
}
