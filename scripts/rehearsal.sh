#!/bin/bash
# Runs inside a private network namespace of its own (see ./run): makes a second one for the stand-in unit, joins
# the two by a cable, and starts the panel with a prepared settings file, so that it finds the unit and connects by
# itself. Without a display it works the screen with a virtual mouse and tells what the unit saw.
set -u
mode=$1
programs=$2
work=$(mktemp -d "${TMPDIR:-/tmp}/qkv720-rehearsal.XXXXXX")
started=()

end_started() {
    for ((i = ${#started[@]} - 1; i >= 0; i--)); do
        kill "${started[i]}" 2>/dev/null
    done
    wait 2>/dev/null
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
ip link set lo up &&
    ip link add panel0 type veth peer name unit0 &&
    ip link set unit0 netns "$holder" &&
    ip address add 192.168.72.2/24 dev panel0 && ip link set panel0 up && ip route add default dev panel0 &&
    in_unit ip link set lo up && in_unit ip address add 192.168.72.10/24 dev unit0 && in_unit ip link set unit0 up &&
    in_unit ip route add default dev unit0 || stop "the private network could not be made"

unit_log=$work/unit.log
# Started without the helper function, so that the process number is the unit's own and it ends with the rehearsal.
nsenter -t "$holder" -n -- "$programs/qkv720-unit" --address 192.168.72.10 --name REHEARSAL --mac 02:51:4B:56:07:20 \
    --mask 255.255.255.0 --gateway 192.168.72.1 --primary-dns 192.168.72.1 --secondary-dns 192.168.72.1 \
    --state "$work/unit.json" >"$unit_log" 2>&1 </dev/null &
started+=($!)
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
    (cd "$work/panel/run/here" && exec "$programs/qkv720-panel") 2>"$work/panel.log" &
    panel=$!
    started+=("$panel")
}

if [ "$mode" = display ]; then
    echo "Rehearsal: this is no real unit, and nothing leaves this machine."
    echo "The frames that the stand-in unit sees: $unit_log"
    start_panel
    wait "$panel"
    exit $?
fi

# No display: a virtual one, in the panel's own size.
exec {display_fd}<>"$work/display"
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
shot() { import -window root "$work/$1.png" || stop "no screenshot"; echo "screenshot: $work/$1.png"; }
click() { xdotool mousemove "$1" "$2"; sleep 0.2; xdotool click 1; sleep 0.4; }

sleep 1.2
shot 1-start
wait_for "GET_HOLDOUT_WINDOW" 30 "the first read of the unit"
sleep 2
shot 2-connected

# Chromakey: the matte on, then the black level by a drag of its handle.
click 90 245
click 536 195
wait_for "SET_LEVELS.*matte=1" 5 "the matte switch"
xdotool mousemove 483 491 mousedown 1; sleep 0.1
for x in 500 530 560 590 617; do xdotool mousemove "$x" 491; sleep 0.15; done
xdotool mouseup 1
wait_for "SET_LEVELS black=[2-9]" 5 "the black level"
shot 3-black-level

# User memory: unlock, then load.
click 1286 115
click 1161 115
wait_for "GET_MEMORY" 10 "the memory recall"
sleep 4
shot 4-memory-recalled

echo "The frames that the unit saw:"
cat "$unit_log"
echo "Rehearsal complete: connected, black level set, memory recalled. Nothing left this machine."
exit 0
