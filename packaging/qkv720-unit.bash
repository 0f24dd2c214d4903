# Completion of the stand-in unit for bash. What it takes is asked of the program itself.
# shellcheck shell=bash

_qkv720_unit() {
    local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]}
    case $before in
        --serial) mapfile -t COMPREPLY < <(compgen -W pty -- "$word"; compgen -f -- "$word"); return ;;
        --serial-link | --state | --log) mapfile -t COMPREPLY < <(compgen -f -- "$word"); return ;;
    esac
    # An option whose line names a value in angles is followed by that value, which nothing can guess.
    if qkv720-unit --help 2>/dev/null | grep -q -- "^ *$before <"; then return; fi
    mapfile -t COMPREPLY < <(compgen -W "$(qkv720-unit --help 2>/dev/null | grep -o -- '^ *\(-h, \|-v, \)\?--[a-z-]*' |
        grep -o -- '--.*')" -- "$word")
}

complete -F _qkv720_unit qkv720-unit
