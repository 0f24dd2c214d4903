# Sourced by the launcher for --report: one archive with what support asks for, and a list of what is in it. Nothing is
# sent anywhere. Knows of the launcher: fail, folders_of, describe, config, state, version, door, panel, window.
# shellcheck shell=sh disable=SC2154

name=qkv720-report-$(date +%Y-%m-%d_%H-%M-%S)
place=$PWD
[ -w "$place" ] || place=${HOME:-/tmp}
collected=$(mktemp -d "${TMPDIR:-/tmp}/qkv720-report.XXXXXX") || fail "$status_no_folder" "No temporary folder can be made for the report."
trap 'rm -rf "$collected"' EXIT
mkdir "$collected/$name"

# part FILE WHAT: what follows goes into FILE, and the list says what it is.
contents=
part() {
    file=$collected/$name/$1
    mkdir -p "$(dirname "$file")"
    contents="$contents
  $1: $2"
}
# asked COMMAND...: the command and what it says, or that this machine does not have it.
asked() {
    {
        printf '\n$ %s\n' "$*"
        if command -v "$1" >/dev/null 2>&1; then "$@" </dev/null 2>&1; else echo "(not on this machine)"; fi
    } >>"$file"
}

part versions.txt "panel, system, and the packages that the panel stands on"
echo "qkv720-panel $version" >"$file"
asked uname -srmo
asked cat /etc/os-release
# shellcheck disable=SC2016  # the fields are dpkg-query's
asked dpkg-query -W -f '${Package} ${Version} ${db:Status-Status}\n' 'qkv720*' 'libqt5*' 'qml-module-*' 'qtwayland5' \
    'fonts-noto-cjk*' 'fonts-crosextra-carlito'
if [ -x "$panel" ]; then asked sh -c "ldd '$panel' | grep 'not found' || echo 'no library is missing'"; fi

part adapters.txt "network adapters, addresses and routes"
asked ip -br link
asked ip -br address
asked ip route
asked sh -c 'grep . /sys/class/net/*/operstate'

part serial.txt "serial ports, who may use them, who does"
asked sh -c 'ls -l /dev/ttyS* /dev/ttyUSB* /dev/ttyACM* 2>/dev/null || echo "no serial port"'
asked id
asked sh -c 'ls -l /dev/serial/by-id 2>/dev/null || echo "no adapter tells a name"'
asked sh -c 'fuser -v /dev/ttyS* /dev/ttyUSB* /dev/ttyACM* 2>/dev/null || echo "nobody holds one, as far as this user may see"'

part display.txt "desktop, screen and the toolkit's settings"
env | grep -E '^(DISPLAY|WAYLAND_DISPLAY|XDG_SESSION_TYPE|XDG_CURRENT_DESKTOP|LANG|LC_[A-Z]*|QT_[A-Z_]*|QML[A-Z_]*|GDK_SCALE)=' |
    sort >"$file"
# shellcheck disable=SC2086  # width and height
asked "$door" factor $window
asked xrandr --current

part fonts.txt "which fonts stand behind the names that the screen uses"
asked fc-match "Noto Sans CJK TC"
asked fc-match "Noto Sans CJK SC"
asked sh -c 'fc-list | grep -iE "carlito|cjk" | sort'

part profiles.txt "the profiles and their last units"
describe '' >"$file"
pack_profile() {
    folders_of "$1"
    kind=${1:+profiles/$1/}
    if [ -f "$settings" ]; then
        part "${kind}qkv720.ini" "settings${1:+ of $1}: adapter, addresses, host name and MAC of the unit, language"
        cat "$settings" >"$file"
    fi
    ls -ld "$base" "$work" "$(dirname "$settings")" "$settings"* "$logs" >>"$collected/$name/folders.txt" 2>&1
    for kept in "$logs"/*.log "$logs"/*.log.1; do
        [ -f "$kept" ] || continue
        part "${kind}log/$(basename "$kept")" "log of a run${1:+ of $1}, $(wc -l <"$kept") lines"
        cat "$kept" >"$file"
    done
}
pack_profile ''
for folder in "$config"/qkv720-panel/profiles/*/; do
    [ -d "$folder" ] || continue
    described=$(basename "$folder")
    describe "$described" >>"$collected/$name/profiles.txt"
    pack_profile "$described"
done
part folders.txt "the panel's folders and whose they are"

tar -C "$collected" -czf "$place/$name.tar.gz" "$name" 2>/dev/null ||
    fail "$status_no_folder" "The report can't be written into $place."
echo "$place/$name.tar.gz holds:$contents"
echo "Nothing was sent anywhere. Give the file to whoever helps you; it names the addresses of this machine and of the unit."
