#!/bin/sh
# Runs a program in a temporary folder of its own, deep enough for the panel's relative settings path, on a
# screen that needs no display. What the program leaves behind there goes with the folder.
folder=$(mktemp -d "${TMPDIR:-/tmp}/panel-test.XXXXXX") || exit 1
trap 'rm -rf "$folder"' EXIT
mkdir -p "$folder/home/run" && cd "$folder/home/run" || exit 1
mkdir -m 700 "$folder/runtime"
export HOME="$folder/home" XDG_RUNTIME_DIR="$folder/runtime"
export QT_QPA_PLATFORM="${QT_QPA_PLATFORM:-offscreen}" QT_QUICK_BACKEND="${QT_QUICK_BACKEND:-software}"
"$@"
