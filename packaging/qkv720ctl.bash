# Completion of qkv720ctl for bash. What can follow is asked of the program itself, which knows all functions.
# shellcheck shell=bash

_qkv720ctl_functions() {
    qkv720ctl functions 2>/dev/null | awk -v able="$1" 'index($0, able) { print $1 }' | sort -u
}

# The fields of a function, with the sign that a value follows.
_qkv720ctl_fields() {
    qkv720ctl functions 2>/dev/null | awk -v function_="${1^^}" '$1 == function_ { print $2 "=" }'
}

_qkv720ctl() {
    local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]}
    local -a command=()
    local i
    for ((i = 1; i < COMP_CWORD; i++)); do
        case ${COMP_WORDS[i]} in
            --host | --serial | --profile | --timeout | --only | --adapter | --interval) ((i++)) ;;
            -*) ;;
            *) command+=("${COMP_WORDS[i]}") ;;
        esac
    done
    # Behind monitor stands another command.
    if [[ ${command[0]} == monitor ]]; then command=("${command[@]:1}"); fi
    local words=
    case $before in
        --serial | --profile) mapfile -t COMPREPLY < <(compgen -f -- "$word"); return ;;
        --only) words=$(_qkv720ctl_functions set) ;;
        --host | --timeout | --adapter | --interval) return ;;
        *)
            if [[ $word == -* ]]; then
                words='--host --serial --profile --json --only --dry-run --adapter --interval --all --timeout
                    --verbose --help --version'
            else
                case ${command[*]} in
                    '') words='discover info status functions get set reset memory key show watch monitor' ;;
                    memory) words='load save' ;;
                    'memory load') words='0 1 2 3 4 5 6 7 8' ;;
                    'memory save') words='1 2 3 4 5 6 7 8' ;;
                    key) words='auto pick' ;;
                    'key auto') words='AutoDef AutoBack' ;;
                    show) words='save load diff schema' ;;
                    'show '*) mapfile -t COMPREPLY < <(compgen -f -- "$word"); return ;;
                    get*) words=$(_qkv720ctl_functions get) ;;
                    reset) words=$(_qkv720ctl_functions reset) ;;
                    set) words=$(_qkv720ctl_functions set) ;;
                    'set '*)
                        words=$(_qkv720ctl_fields "${command[1]}")
                        compopt -o nospace
                        ;;
                esac
            fi
            ;;
    esac
    mapfile -t COMPREPLY < <(compgen -W "$words" -- "$word")
}

complete -F _qkv720ctl qkv720ctl
