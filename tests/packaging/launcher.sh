#!/bin/bash
# The launcher with a panel that only tells how it was started.
#   launcher.sh BUILD CASE     runs one case; BUILD is the folder of a build
#   launcher.sh BUILD          runs all of them
set -u
build=$(readlink -f "$1")
t=$(mktemp -d "${TMPDIR:-/tmp}/qkv720-launcher.XXXXXX")
started=()
end() {
    for id in "${started[@]}"; do kill "$id" 2>/dev/null; done
    wait 2>/dev/null
    rm -rf "$t"
}
trap end EXIT

# A tree as the build's own: the launcher, its scripts and the door are real, panel and notice are not.
mkdir -p "$t/tree/packaging" "$t/home" "$t/bin"
cp -r "$build/packaging/qkv720-panel" "$build/packaging/scripts" "$t/tree/packaging/"
cp "$build/qkv720-door" "$t/tree/"
cat >"$t/tree/qkv720-panel" <<TEXT
#!/bin/sh
{ pwd -P; echo "arguments: \$*"; echo "factor: \${QT_SCALE_FACTOR:-none} \${QT_SCREEN_SCALE_FACTORS:-none}"
    echo "backend: \${QT_QUICK_BACKEND-not asked for}"; } >>"$t/started"
[ -r "$t/behaviour" ] && . "$t/behaviour"
exit 0
TEXT
cat >"$t/tree/qkv720-notice" <<TEXT
#!/bin/sh
echo "\$2" >>"$t/noticed"
TEXT
chmod +x "$t/tree/qkv720-panel" "$t/tree/qkv720-notice"
launcher=$t/tree/packaging/qkv720-panel
config=$t/home/.config
logs=$t/home/.local/state/qkv720-panel

case_failed() { printf '%s: %s\n' "$case" "$*" >&2; [ -s "$t/err" ] && tail -n 5 "$t/err" | cut -c1-200 | sed 's/^/  stderr: /' >&2; exit 1; }

# launch STATUS WORD...: starts the launcher in an environment of its own and expects this status.
launch() {
    local expected=$1 status
    shift
    env -i PATH="$t/bin:$PATH" HOME="$t/home" "${environment[@]}" "$launcher" "$@" >"$t/out" 2>"$t/err" </dev/null
    status=$?
    [ "$status" = "$expected" ] || case_failed "status $status of \"$*\", expected $expected"
}
environment=(QT_QPA_PLATFORM=offscreen)
says() { grep -qF -- "$2" "$t/$1" || case_failed "$1 does not say \"$2\" but: $(cat "$t/$1" 2>/dev/null)"; }
says_not() { ! grep -qF -- "$2" "$t/$1" 2>/dev/null || case_failed "$1 says \"$2\""; }
never_started() { [ ! -e "$t/started" ] || case_failed "the panel was started"; }
within() { # seconds, command...
    local tries=$(($1 * 20)) i
    shift
    for ((i = 0; i < tries; i++)); do "$@" && return; sleep 0.05; done
    case_failed "this did not happen: $*"
}

words() {
    launch 0 --version
    says out "qkv720-panel "
    launch 0 --help
    for word in --profile --list-profiles --scale --log --report --rehearsal --version --help; do says out "$word"; done
    local refused=("--unknown" "word" "-x" "--profile" "--scale" "--scale abc" "--scale 0.2" "--scale 5" "--scale 1.2.3"
        "--version --help" "--rehearsal --profile a" "--list-profiles --scale 2" "--report --log")
    for word in "${refused[@]}"; do
        # shellcheck disable=SC2086  # several words
        launch 64 $word
        says err "usage: qkv720-panel"
    done
    for name in .a -a a/b "a b" "" $'a\tb' "$(printf 'x%.0s' {1..61})"; do launch 64 --profile "$name"; done
    never_started
}

folders() {
    launch 0
    says started "$config/qkv720-panel/run"
    says started "arguments: "
    says_not started "-name"
    rm "$t/started"
    launch 0 --profile studio-2
    says started "$config/qkv720-panel/profiles/studio-2/panel/run"
    says started "arguments: -name qkv720-panel-studio-2 -title QKV-720 v"
    local entry=$t/home/.local/share/applications/qkv720-panel-studio-2.desktop
    grep -q '^Exec=qkv720-panel --profile "studio-2"$' "$entry" || case_failed "no menu entry"
    grep -q '^StartupWMClass=qkv720-panel-studio-2$' "$entry" || case_failed "the entry is not the window's"
    # A name of any script, and one that a menu entry cannot hold.
    launch 0 --profile=攝影棚
    launch 0 "--profile" "50%"
    [ ! -e "$t/home/.local/share/applications/qkv720-panel-50%.desktop" ] || case_failed "an entry that means something else"
    environment+=(XDG_CONFIG_HOME="$t/elsewhere")
    launch 0
    says started "$t/elsewhere/qkv720-panel/run"
}

profiles() {
    launch 0 --profile b
    launch 0 --profile a
    mkdir -p "$config/qkv720-panel/profiles/a/halvorine/qkv720"
    printf '[setting]\nlanguage=en_US\n\n[connection]\ninterface=1\nipaddress=192.168.72.10\nhostname=KEYER\nmac=1\n' \
        >"$config/qkv720-panel/profiles/a/halvorine/qkv720/qkv720.ini"
    launch 0 --list-profiles
    [ "$(cut -f1 "$t/out" | tr '\n' ',')" = "(without a name),a,b," ] || case_failed "names: $(cat "$t/out")"
    says out "a	192.168.72.10 KEYER"
    says out "b	no unit yet"
    says_not out "runs"
}

second_start() {
    echo "echo \$\$ >'$t/panel'; exec sleep 60" >"$t/behaviour"
    env -i PATH="$PATH" HOME="$t/home" QT_QPA_PLATFORM=offscreen "$launcher" --profile a 2>/dev/null &
    local first=$!
    within 10 test -s "$t/panel"
    started+=("$(cat "$t/panel")")
    launch 75 --profile a
    says err "The panel of the profile a is open already"
    launch 0 --list-profiles
    says out "runs"
    # The panel holds the lock itself: what becomes of the launcher does not matter.
    kill -KILL "$first"
    wait "$first" 2>/dev/null
    launch 75 --profile a
    [ "$(grep -c arguments "$t/started")" = 1 ] || case_failed "two panels on one settings file"
    : >"$t/behaviour"
    launch 0 --profile b
    launch 0
}

keeps_logs() {
    cat >"$t/behaviour" <<'TEXT'
echo "a line" >&2
printf 'half a line' >&2
exit 3
TEXT
    for _ in 1 2 3 4 5 6 7 8 9 10 11 12; do launch 3; done
    [ "$(find "$logs/log" -name '*.log' | wc -l)" = 10 ] || case_failed "$(ls "$logs/log")"
    local newest
    newest=$(find "$logs/log" -name '*.log' | sort | tail -n 1)
    grep -Eq '^[0-9]{4}-[0-9]{2}-[0-9]{2} [0-9:]{8}\.[0-9]{3} a line$' "$newest" || case_failed "$(cat "$newest")"
    grep -Eq '\.[0-9]{3} half a line$' "$newest" || case_failed "the last line is lost"
    grep -q 'ended with status 3' "$newest" || case_failed "the end is not told"
    grep -q 'qkv720-panel [0-9.]*, profile (none), scale' "$newest" || case_failed "the start is not told"
    # What is said goes on to standard error as it is, or as it stands in the log.
    [ "$(head -n 1 "$t/err")" = "a line" ] || case_failed "not as it is"
    launch 3 --log
    grep -Eq '^[0-9-]{10} [0-9:]{8}\.[0-9]{3} a line$' "$t/err" || case_failed "no time"
    # Whoever else may read: the log names addresses.
    [ "$(stat -c %a "$newest")" = 600 ] || case_failed "anybody may read the log"
    # Without a place for logs the panel starts all the same.
    environment+=(XDG_STATE_HOME=/dev/null)
    launch 3
    says err "no log is kept"
}

log_is_bounded() {
    cat >"$t/behaviour" <<'TEXT'
head -c 9000000 /dev/zero | tr '\0' 'x' | fold -w 1000 >&2
head -c 100000 /dev/zero | tr '\0' 'y' >&2
echo "the last line" >&2
TEXT
    launch 0 --profile a
    local kept
    kept=$(du -sb "$logs/profiles/a/log" | cut -f1)
    [ "$kept" -lt 4500000 ] || case_failed "$kept bytes"
    grep -q 'the last line' "$logs"/profiles/a/log/*.log || case_failed "the last line is lost"
    [ "$(wc -l <"$t/err")" -ge 9000 ] || case_failed "lines are lost on the way"
}

signals() {
    echo "trap 'echo asked to end >>\"$t/asked\"; exit 7' TERM; echo \$\$ >'$t/panel'; while :; do sleep 0.1; done" >"$t/behaviour"
    env -i PATH="$PATH" HOME="$t/home" QT_QPA_PLATFORM=offscreen "$launcher" 2>/dev/null &
    local first=$!
    within 10 test -s "$t/panel"
    started+=("$(cat "$t/panel")" "$first")
    kill -TERM "$first"
    within 10 sh -c "! kill -0 $(cat "$t/panel") 2>/dev/null"
    wait "$first"
    local status=$?
    [ "$status" = 7 ] || case_failed "status $status"
    [ "$(wc -l <"$t/asked")" = 1 ] || case_failed "asked more than once"
    echo 'kill -SEGV $$' >"$t/behaviour"
    launch 139
    says err "ended unexpectedly"
}

report() {
    echo 'echo "a line of the log" >&2' >"$t/behaviour"
    launch 0 --profile a
    mkdir -p "$config/halvorine/qkv720"
    printf '[setting]\nlanguage=zh_TW\n' >"$config/halvorine/qkv720/qkv720.ini"
    (cd "$t/home" && launch 0 --report) || exit 1
    local archive
    archive=$(find "$t/home" -maxdepth 1 -name 'qkv720-report-*.tar.gz')
    [ -n "$archive" ] || case_failed "no archive"
    mkdir "$t/unpacked"
    tar -C "$t/unpacked" --strip-components=1 -xf "$archive" || case_failed "no archive of ours"
    # All that is in it is told, and all that is told is in it.
    (cd "$t/unpacked" && find . -type f | sed 's,^\./,,' | sort) >"$t/inside"
    sed -n 's/^  \([^ :]*\): .*/\1/p' "$t/out" | sort >"$t/told"
    diff "$t/inside" "$t/told" || case_failed "the list is not what is inside"
    for file in versions adapters serial display fonts profiles folders; do
        [ -s "$t/unpacked/$file.txt" ] || case_failed "$file.txt is empty"
    done
    grep -q 'language=zh_TW' "$t/unpacked/qkv720.ini" || case_failed "no settings"
    grep -q 'a line of the log' "$t"/unpacked/profiles/a/log/*.log || case_failed "no log"
    [ -z "$(find "${TMPDIR:-/tmp}" -maxdepth 1 -name 'qkv720-report.*' -newer "$t/told" 2>/dev/null)" ] || case_failed "left behind"
}

# expect_factor SIZE FACTOR [OPTION...]: a display of this size, started with these options and ended here.
expect_factor() {
    local size=$1 factor=$2
    shift 2
    rm -f "$t/started" "$t/display"
    Xvfb -displayfd 3 -screen 0 "${size}x24" -nolisten tcp "$@" 3>"$t/display" 2>/dev/null &
    local server=$!
    started+=("$server")
    within 30 test -s "$t/display"
    environment=(DISPLAY=":$(cat "$t/display")")
    launch 0
    kill "$server"
    wait "$server" 2>/dev/null
    says started "factor: $factor none"
}

screens() {
    expect_factor 1280x720 0.93
    # The panel's own way of drawing does not shrink.
    says started "backend: "
    says_not started "backend: not asked for"
    expect_factor 1280x720 none -extension GLX
    says started "backend: not asked for"
    expect_factor 1366x768 none
    says started "backend: not asked for"
    expect_factor 1707x959 none
    expect_factor 1920x1080 1.25
    expect_factor 2560x1440 1.5
    expect_factor 3840x2160 2
    expect_factor 5120x2880 3
}

scale() {
    # Where GL fails all the same, the panel comes up unshrunk.
    # shellcheck disable=SC2016  # the panel's own words
    echo '[ "${QT_QUICK_BACKEND-none}" = none ] || exit 3' >"$t/behaviour"
    launch 0 --scale 0.5
    [ "$(grep -c arguments "$t/started")" = 2 ] || case_failed "started $(grep -c arguments "$t/started") times"
    [ "$(tail -n 2 "$t/started" | head -n 1)" = "factor: none none" ] || case_failed "shrunk"
    rm "$t/started" "$t/behaviour"
    launch 0 --scale 1.5
    says started "factor: 1.5 none"
    environment+=(QT_SCALE_FACTOR=2)
    launch 0 --scale 1.5
    says started "factor: 2 none"
    says err "QT_SCALE_FACTOR=2 stands in the environment"
    # No display answers there: whoever asked it would fail.
    environment=(DISPLAY=:4242 QT_SCREEN_SCALE_FACTORS=2)
    launch 0
    says started "factor: none 2"
    rm "$t/started"
    launch 0 --scale=0.75
    says started "factor: 0.75 none"
}

obstacles() {
    environment=()
    launch 4
    says err "There is no display here"
    environment=(DISPLAY=:4242)
    launch 4
    says err "The display :4242 does not answer."
    environment=(QT_QPA_PLATFORM=offscreen HOME=/dev/null/home)
    launch 73
    says err "can't be written"
    environment=(QT_QPA_PLATFORM=offscreen HOME=)
    launch 73
    says err "There is no home folder"
    never_started
    environment=(QT_QPA_PLATFORM=offscreen)
    echo 'echo "/x/qkv720-panel: error while loading shared libraries: libQt5Some.so.5: cannot open" >&2; exit 127' >"$t/behaviour"
    launch 69
    says err "A library that the panel needs is missing: libQt5Some.so.5."
    echo 'echo "qrc:/main.qml:3:1: module \"QtQuick.Dialogs\" is not installed" >&2; exit 255' >"$t/behaviour"
    launch 69
    says err "A part of the toolkit is missing: QtQuick.Dialogs."
    echo 'exit 255' >"$t/behaviour"
    launch 255
    says err "could not open its screen"
    rm "$t/tree/packaging/scripts/report.sh"
    launch 69 --report
    rm "$t/tree/qkv720-panel"
    launch 69
    says err "A part of the installation is missing"
}

on_screen() {
    environment=(DISPLAY=:4242)
    launch 4
    within 10 test -s "$t/noticed"
    says noticed "The display :4242 does not answer."
    rm "$t/noticed" "$t/tree/qkv720-notice"
    # Where the toolkit itself is missing, what else this desktop has.
    printf '#!/bin/sh\nexit 1\n' >"$t/bin/zenity"
    printf '#!/bin/sh\nexit 1\n' >"$t/bin/kdialog"
    printf '#!/bin/sh\necho "$*" >>"%s"\n' "$t/noticed" >"$t/bin/xmessage"
    chmod +x "$t/bin"/*
    launch 64 --unknown
    within 10 test -s "$t/noticed"
    says noticed '"--unknown" is unknown here.'
}

rehearsal() {
    cp "$t/tree/qkv720-panel" "$t/tree/qkv720-unit"
    printf '#!/bin/sh\nexit 1\n' >"$t/bin/unshare"
    chmod +x "$t/bin/unshare"
    launch 77 --rehearsal
    says err "private network"
    printf '#!/bin/sh\nexit 0\n' >"$t/bin/unshare"
    printf '#!/bin/sh\necho "$*" >"%s"\n' "$t/terminal" >"$t/bin/x-terminal-emulator"
    chmod +x "$t/bin/x-terminal-emulator"
    environment+=(DISPLAY=:4242)
    launch 0 --rehearsal --scale 2
    says terminal "-e $launcher --rehearsal --scale 2"
    # Without a terminal to open it goes on without a console.
    rm "$t/bin/x-terminal-emulator"
    # shellcheck disable=SC2016  # the script's own words
    printf '#!/bin/sh\n[ "$2" = true ] || [ "$2" = ip ] || echo "$*" >>"%s"\n' "$t/private" >"$t/bin/unshare"
    if ! command -v x-terminal-emulator >/dev/null; then
        launch 0 --rehearsal
        says private "$t/tree/packaging/scripts/rehearsal.sh display $t/tree  $t/tree/qkv720-unit"
    fi
}

all="words folders profiles second_start keeps_logs log_is_bounded signals report screens scale obstacles on_screen rehearsal"
for case in ${2:-$all}; do
    case " $all " in *" $case "*) ;; *) echo "no case \"$case\"; there are: $all" >&2; exit 2 ;; esac
    rm -rf "$t/started" "$t/behaviour" "$t/noticed" "$t/err" "${t:?}/bin" "${t:?}/home"
    mkdir "$t/bin" "$t/home"
    "$case"
done
