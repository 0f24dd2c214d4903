# Completion of the panel's launcher for bash.
# shellcheck shell=bash

_qkv720_panel() {
    local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]} words=
    case $before in
        # Behind the name of a profile stands its unit; the one without a name is not asked for by a name.
        --profile) words=$(qkv720-panel --list-profiles 2>/dev/null | tail -n +2 | cut -f1) ;;
        --scale) words='0.75 1 1.25 1.5 2 3' ;;
        *) words='--profile --list-profiles --scale --log --report --rehearsal --version --help' ;;
    esac
    mapfile -t COMPREPLY < <(compgen -W "$words" -- "$word")
}

complete -F _qkv720_panel qkv720-panel
