#!/bin/sh
# Reads a captured rehearsal (a scan, a connect, a drag, a recall) through tools/qkv720.lua: each frame must say what
# stands in rehearsal.txt, and none may be left unnamed, malformed or with a broken sum. With "write", makes that file.
set -eu
here=$(dirname "$(readlink -f "$0")")
read_capture() { tshark -X "lua_script:$here/../../tools/qkv720.lua" -r "$here/rehearsal.pcap" "$@" 2>/dev/null; }
tell() { read_capture -Y "qkv720 || qkv720_discovery" -T fields -e _ws.col.Info; }

command -v tshark >/dev/null || { echo "tshark is missing: install it to test the dissector" >&2; exit 1; }
if [ "${1:-}" = write ]; then
    tell >"$here/rehearsal.txt"
    exit 0
fi
tell | diff -u "$here/rehearsal.txt" - || { echo "the frames read otherwise than rehearsal.txt says" >&2; exit 1; }
unnamed=$(read_capture -Y "(tcp.port == 5002 && tcp.len > 0 && !qkv720) || (udp.port == 5002 && !qkv720_discovery) \
    || _ws.malformed || _ws.lua.error || qkv720.code.unknown || qkv720.length.bad || qkv720.checksum.bad \
    || qkv720_discovery.length.bad")
[ -z "$unnamed" ] || { printf 'left unnamed or broken:\n%s\n' "$unnamed" >&2; exit 1; }
