# bash completion for quelcnv: operations, orders, options, then files.
# Installed as share/bash-completion/completions/quelcnv. Every word offered
# comes from the command itself (its list of operations and its help), so
# the completion always agrees with the command it completes.

_quelcnv_ask() {
    LC_ALL=C.UTF-8 "$@" 2>/dev/null
}

_quelcnv_operations() {  # the first word of each line of quelcnv lista
    _quelcnv_ask "$1" lista | while read -r name _; do printf '%s\n' "$name"; done
}

_quelcnv_orders() {  # the names under "Órdenes:" in quelcnv --help
    _quelcnv_ask "$1" --help | awk '/rdenes:$/ { listed = 1; next } /^$/ { listed = 0 } listed { print $1 }'
}

_quelcnv_global_options() {  # the options under "Opciones" in quelcnv --help
    _quelcnv_ask "$1" --help | grep -oE '^  (-h, )?--[a-z]+' | grep -oE -- '--[a-z]+'
}

_quelcnv_order_options() {  # the options in the usage line of quelcnv ayuda ORDEN
    _quelcnv_ask "$1" ayuda "$2" | head -n 1 | grep -oE -- '(--[a-z]+|-j)' | sort -u
}

_quelcnv() {
    local cur prev command name i
    cur="${COMP_WORDS[COMP_CWORD]}"
    prev="${COMP_WORDS[COMP_CWORD-1]}"
    command="${COMP_WORDS[0]}"
    COMPREPLY=()

    case "$prev" in
        --scratch | --salida)
            mapfile -t COMPREPLY < <(compgen -d -- "$cur")
            return
            ;;
        -j)
            mapfile -t COMPREPLY < <(compgen -W "1 2 4 8" -- "$cur")
            return
            ;;
        --tipo)
            mapfile -t COMPREPLY < <(compgen -W "eje rasante peralte transversales puntos" -- "$cur")
            return
            ;;
        --con)
            mapfile -t COMPREPLY < <(compgen -W "pathAp= selec= nombreRas= transver= capa=" -- "$cur")
            compopt -o nospace 2>/dev/null
            return
            ;;
    esac

    # The first word that is not an option: the operation or the order.
    name=""
    for ((i = 1; i < COMP_CWORD; i++)); do
        case "${COMP_WORDS[i]}" in
            --scratch) ((i++)) ;;
            -*) ;;
            *) name="${COMP_WORDS[i]}"; break ;;
        esac
    done

    if [[ "$cur" == -* ]]; then
        local options
        options="$(_quelcnv_global_options "$command")"
        [ -n "$name" ] && options="$options $(_quelcnv_order_options "$command" "$name")"
        mapfile -t COMPREPLY < <(compgen -W "$options" -- "$cur")
        return
    fi
    if [ -z "$name" ]; then
        mapfile -t COMPREPLY < <(compgen -W "$(_quelcnv_orders "$command") $(_quelcnv_operations "$command")" -- "$cur")
        return
    fi
    case "$name" in
        lista) return ;;
        ayuda | lote)
            if [ "$prev" = "$name" ]; then
                local names
                names="$(_quelcnv_operations "$command")"
                [ "$name" = ayuda ] && names="$names $(_quelcnv_orders "$command")"
                mapfile -t COMPREPLY < <(compgen -W "$names" -- "$cur")
                return
            fi
            ;;
    esac
    mapfile -t COMPREPLY < <(compgen -f -- "$cur")
    compopt -o filenames 2>/dev/null
}

complete -F _quelcnv quelcnv
