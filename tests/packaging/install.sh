#!/bin/bash
# What is built is installed to several places, must start from there, and goes again without a trace.
#   install.sh BUILD     BUILD is the folder of a build in which everything is built
set -u
build=$(readlink -f "$1")
source=$(sed -n 's/^CMAKE_HOME_DIRECTORY:INTERNAL=//p' "$build/CMakeCache.txt")
t=$(mktemp -d "${TMPDIR:-/tmp}/qkv720-install.XXXXXX")
trap 'rm -rf "$t"' EXIT
stop() { printf '%s: %s\n' "$case" "$*" >&2; exit 1; }

# configured OPTION...: a build folder with these options, which takes the programs that are built already: only where
# they are put is looked at here.
folder=$t/build
configured() {
    local program
    cmake -S "$source" -B "$folder" -G Ninja -DBUILD_TESTING=OFF "$@" >"$t/log" 2>&1 || stop "$(cat "$t/log")"
    [ -x "$folder/qkv720-panel" ] && return
    ninja -C "$folder" package_papers >"$t/log" 2>&1 || stop "$(cat "$t/log")"
    for program in qkv720-panel qkv720-unit qkv720ctl qkv720-door qkv720-notice; do
        [ -x "$build/$program" ] || stop "$program is not built"
        ln "$build/$program" "$folder/$program" 2>/dev/null || cp "$build/$program" "$folder/$program"
    done
}
install_from() { cmake --install "$@" >"$t/log" 2>&1 || stop "$(cat "$t/log")"; }
# starts LAUNCHER: it finds the panel's program, and that one comes up.
starts() {
    [ "$("$1" --version)" = "$("$build/packaging/qkv720-panel" --version)" ] || stop "$1 does not start"
    env -i PATH="$PATH" HOME="$t/home" QT_QPA_PLATFORM=offscreen unshare -Urn "$1" 2>"$t/err" &
    local launcher=$! i
    for ((i = 0; i < 300; i++)); do grep -qs "onRefreshConnection 3" "$t/err" && break; sleep 0.1; done
    kill -TERM "$launcher"
    wait "$launcher"
    grep -q "onRefreshConnection 3" "$t/err" || stop "the panel does not come up: $(cat "$t/err")"
}
finds_all() { # launcher: it names no part that is missing
    mkdir -p "$t/home"
    local said
    said=$(env -i PATH="$PATH" HOME="$t/home" "$1" --report 2>&1 >"$t/told") || stop "the report of $1: $said"
    rm -f qkv720-report-*.tar.gz
}
uninstall_from() { cmake --build "$1" --target uninstall >"$t/log" 2>&1 || stop "$(cat "$t/log")"; }
nothing_in() { [ -z "$(find "$1" -mindepth 1 2>/dev/null)" ] || stop "left behind: $(find "$1" -mindepth 1)"; }

cd "$t" || exit 1
case=prefix
configured -DCMAKE_INSTALL_PREFIX="$t/usual"
mkdir "$t/other prefix [1]"
install_from "$folder" --prefix "$t/other prefix [1]"
finds_all "$t/other prefix [1]/bin/qkv720-panel"
starts "$t/other prefix [1]/bin/qkv720-panel"
# As a whole it can be moved, and links lead to it.
mv "$t/other prefix [1]" "$t/moved"
ln -s "$t/moved/bin/qkv720-panel" "$t/link"
finds_all "$t/link"
for file in share/man/man1/qkv720-panel.1.gz share/doc/qkv720-panel/manual/zh_TW/index.html share/doc/qkv720-panel/copyright \
    share/icons/hicolor/512x512/apps/qkv720-rehearsal.png; do
    [ -f "$t/moved/$file" ] || stop "$file is missing"
done
rm -rf "$t/moved"

case=uninstall
mkdir -p "$t/usual/share/icons/hicolor" "$t/usual/bin"
find "$t/usual" | sort >"$t/before"
install_from "$folder"
install_from "$folder" # twice, as one does
touch "$t/usual/bin/of-somebody-else" "$t/usual/share/qkv720-panel/of-somebody-else"
uninstall_from "$folder"
rm "$t/usual/bin/of-somebody-else" "$t/usual/share/qkv720-panel/of-somebody-else" || stop "it took what was not its own"
rmdir "$t/usual/share/qkv720-panel"
find "$t/usual" | sort | diff "$t/before" - || stop "not as it was before"

case=destdir
export DESTDIR=$t/staged
install_from "$folder"
[ -x "$t/staged$t/usual/bin/qkv720-panel" ] || stop "not in the staging folder"
[ "$(find "$t/usual" | sort)" = "$(cat "$t/before")" ] || stop "DESTDIR was passed by"
finds_all "$t/staged$t/usual/bin/qkv720-panel"
uninstall_from "$folder"
nothing_in "$t/staged"
unset DESTDIR

case=absolute
configured -DCMAKE_INSTALL_PREFIX="$t/apart" -DCMAKE_INSTALL_BINDIR="$t/commands" \
    -DCMAKE_INSTALL_LIBEXECDIR="$t/deep/inside/programs" -DCMAKE_INSTALL_MANDIR="$t/pages"
install_from "$folder"
finds_all "$t/commands/qkv720-panel"
[ -f "$t/pages/man1/qkv720-unit.1.gz" ] || stop "no manual page"
uninstall_from "$folder"
for place in apart commands deep pages; do [ ! -e "$t/$place" ] || stop "left behind: $(find "$t/$place")"; done

case="one absolute folder, another prefix"
configured -DCMAKE_INSTALL_BINDIR=bin -DCMAKE_INSTALL_LIBEXECDIR="$t/programs" -DCMAKE_INSTALL_MANDIR=share/man
install_from "$folder" --prefix "$t/late/prefix"
finds_all "$t/late/prefix/bin/qkv720-panel"
uninstall_from "$folder"
for place in late programs; do [ ! -e "$t/$place" ] || stop "left behind: $(find "$t/$place")"; done
