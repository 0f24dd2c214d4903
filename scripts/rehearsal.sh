#!/bin/bash
# Runs inside a private network namespace of its own (see ./run): makes a second one for the stand-in unit, joins
# the two by a cable, and starts the panel with a prepared settings file, so that it finds the unit and connects by
# itself. Without a display it works the screen with a virtual mouse and tells what the unit saw.
#   rehearsal.sh display|virtual FOLDER-OF-THE-PANEL [console|""] [PROGRAM-OF-THE-UNIT]
set -u
mode=$1
programs=$2
console=${3:-}
unit=${4:-$programs/qkv720-unit}
work=$(mktemp -d "${TMPDIR:-/tmp}/qkv720-rehearsal.XXXXXX")
started=()

# shellcheck disable=SC2317  # called by the trap
end_started() {
    for ((i = ${#started[@]} - 1; i >= 0; i--)); do
        kill "${started[i]}" 2>/dev/null
    done
    wait 2>/dev/null
    rm -rf "$work"
}
trap end_started EXIT

stop() { printf 'Rehearsal failed: %s\n' "$*" >&2; exit 1; }

# The panel's side is 192.168.72.2, the unit's 192.168.72.10. The default route is what makes a broadcast leave.
unshare -n sleep infinity &
holder=$!
started+=("$holder")
for _ in $(seq 50); do
    [ "$(readlink "/proc/$holder/ns/net")" != "$(readlink /proc/self/ns/net)" ] && break
    sleep 0.1
done
in_unit() { nsenter -t "$holder" -n -- "$@"; }
# shellcheck disable=SC2015  # any of them that fails ends the rehearsal
ip link set lo up &&
    ip link add panel0 type veth peer name unit0 &&
    ip link set unit0 netns "$holder" &&
    ip address add 192.168.72.2/24 dev panel0 && ip link set panel0 up && ip route add default dev panel0 &&
    in_unit ip link set lo up && in_unit ip address add 192.168.72.10/24 dev unit0 && in_unit ip link set unit0 up &&
    in_unit ip route add default dev unit0 || stop "the private network could not be made"

# REHEARSAL_CAPTURE=FILE keeps what crosses the cable, for tools/qkv720.lua (needs dumpcap, of tshark).
if [ -n "${REHEARSAL_CAPTURE:-}" ]; then
    dumpcap -q -i panel0 -f "port 5002" -w "$REHEARSAL_CAPTURE" 2>/dev/null &
    started+=($!)
    sleep 1
fi

unit_log=$work/unit.log
: >"$unit_log"
if [ "$console" = console ]; then
    exec 3<&0 4> >(exec tee "$unit_log")
else
    exec 3</dev/null 4>"$unit_log"
fi
# Started without the helper function, so that the process number is the unit's own and it ends with the rehearsal.
nsenter -t "$holder" -n -- "$unit" --address 192.168.72.10 --name REHEARSAL --mac 02:51:4B:56:07:20 \
    --mask 255.255.255.0 --gateway 192.168.72.1 --primary-dns 192.168.72.1 --secondary-dns 192.168.72.1 \
    --state "$work/unit.json" <&3 >&4 2>&1 &
started+=($!)
exec 3<&- 4>&-
sleep 0.5

mkdir -p "$work/panel/run/here" "$work/panel/halvorine/qkv720"
cat >"$work/panel/halvorine/qkv720/qkv720.ini" <<INI
[setting]
language=en_US

[connection]
interface=1
netcard=[192.168.72.2] panel0
dhcpmode=false
ipaddress=192.168.72.10
hostname=REHEARSAL
mac=02:51:4B:56:07:20
gateway=192.168.72.1
mask=255.255.255.0
primarydns=192.168.72.1
seconddns=192.168.72.1
INI

start_panel() {
    # Marked where its window is listed too. Both words are the toolkit's own; the panel reads none.
    (cd "$work/panel/run/here" && exec "$programs/qkv720-panel" -name qkv720-rehearsal \
        -title "QKV-720 rehearsal: no real unit") 2>"$work/panel.log" &
    panel=$!
    started+=("$panel")
}

if [ "$mode" = display ]; then
    echo "Rehearsal: this is no real unit, and nothing leaves this machine."
    if [ "$console" = console ]; then
        echo "This terminal is the unit's console: type help to see what it takes."
    else
        echo "The frames that the stand-in unit sees, while this runs: $unit_log"
    fi
    start_panel
    wait "$panel"
    exit $?
fi

# No display: a virtual one, in the panel's own size. The pictures stay, the rest goes with the rehearsal.
pictures=$programs/rehearsal
mkdir -p "$pictures"
Xvfb -displayfd 3 -screen 0 1366x768x24 -nolisten tcp 3>"$work/display" 2>"$work/xvfb.log" &
started+=($!)
for _ in $(seq 100); do [ -s "$work/display" ] && break; sleep 0.1; done
[ -s "$work/display" ] || stop "the virtual display did not start"
DISPLAY=:$(cat "$work/display")
export DISPLAY
start_panel

saw() { grep -q "$1" "$unit_log"; }
wait_for() { # text, seconds, what it means
    for _ in $(seq $(($2 * 10))); do
        saw "$1" && return 0
        kill -0 "$panel" 2>/dev/null || stop "the panel ended by itself: $(tail -n 3 "$work/panel.log")"
        sleep 0.1
    done
    stop "$3 did not reach the unit within $2 s"
}
shot() { import -window root "$pictures/$1.png" || stop "no screenshot"; echo "screenshot: $pictures/$1.png"; }

# The items of the screen by the names that main.qml gives them.
names=(menuChromakey pageCK.pageCK_ContentHeader01.switchButton pageCK.blackLevel.itemSlider outputMemoryLock
    outputMemoryLoad)
declare -A places
mapfile -t found < <("$programs/qkv720-where" "${names[@]}")
[ ${#found[@]} = ${#names[@]} ] || stop "not every control of the screen was found"
for i in "${!names[@]}"; do places[${names[i]}]=${found[i]}; done
# point NAME PERCENT: the point so far from the left of an item, at half its height.
point() {
    local left top width height
    read -r left top width height <<<"${places[$1]}"
    echo $((left + width * $2 / 100)) $((top + height / 2))
}
# shellcheck disable=SC2046
move() { xdotool mousemove $(point "$1" "$2"); sleep 0.2; }
click() { move "$1" 50; xdotool click 1; sleep 0.4; }

sleep 1.2
shot 1-start
wait_for "GET_HOLDOUT_WINDOW" 30 "the first read of the unit"
sleep 2
shot 2-connected

# Chromakey: the matte on, then the black level by a drag.
click menuChromakey
click pageCK.pageCK_ContentHeader01.switchButton
wait_for "SET_LEVELS.*matte=1" 5 "the matte switch"
move pageCK.blackLevel.itemSlider 10
xdotool mousedown 1
for percent in 15 20 25 30 35 40 45 50; do move pageCK.blackLevel.itemSlider $percent; done
xdotool mouseup 1
wait_for "SET_LEVELS black=[45]" 5 "the black level"
shot 3-black-level

# User memory: unlock, then load.
click outputMemoryLock
click outputMemoryLoad
wait_for "GET_MEMORY" 10 "the memory recall"
sleep 4
shot 4-memory-recalled

echo "The frames that the unit saw:"
cat "$unit_log"
echo "Rehearsal complete: connected, black level set, memory recalled. Nothing left this machine."
exit 0
