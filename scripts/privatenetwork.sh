# Sourced by ./run and by the installed launcher: how a rehearsal gets a network of its own, and what to tell where
# this machine makes none.
# shellcheck shell=sh

if [ "$(id -u)" = 0 ]; then private="unshare -n"; else private="unshare -Urn"; fi

has_private_network() { $private true 2>/dev/null && $private ip link set lo up 2>/dev/null; }

# without_private_network AS-ROOT ALONE: what can be done about it, where AS-ROOT is the command that rehearses as root
# and ALONE the one that starts the panel without a rehearsal.
without_private_network() {
    if ! command -v unshare >/dev/null 2>&1; then
        printf '%s\n' "A rehearsal makes its private network with the program unshare (package util-linux), which is missing here."
    elif $private true 2>/dev/null && ! $private sh -c 'command -v ip' >/dev/null 2>&1; then
        printf '%s\n' "A rehearsal makes its private network with the program ip (package iproute2), which is missing here."
    elif [ "$(id -u)" = 0 ]; then
        printf '%s\n' "This machine lets not even root make a private network (a container?). $2 starts the panel alone."
    else
        printf '%s\n' "This machine lets ordinary users make no private networks, which a rehearsal needs. One of these helps:
  $1    runs as root, with files in root's own folders
  sudo sysctl kernel.apparmor_restrict_unprivileged_userns=0    where AppArmor forbids it (Ubuntu 23.10 and later)
  sudo sysctl kernel.unprivileged_userns_clone=1    where the kernel forbids it (older Debian)"
    fi
}
