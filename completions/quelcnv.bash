# bash completion for quelcnv: operations, options, then files.
# Installed as share/bash-completion/completions/quelcnv.

_quelcnv_operations() {
    # The operations as the command itself lists them (the first word of each line).
    "$1" lista 2>/dev/null | while read -r name _; do printf '%s\n' "$name"; done
}

_quelcnv() {
    local cur prev command words_before i
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
        --con)
            mapfile -t COMPREPLY < <(compgen -W "pathAp= selec= nombreRas= transver= capa=" -- "$cur")
            compopt -o nospace 2>/dev/null
            return
            ;;
    esac

    # The first word that is not an option: the operation, or lista, ayuda,
    # lote, contenido, dibujo.
    words_before=""
    for ((i = 1; i < COMP_CWORD; i++)); do
        case "${COMP_WORDS[i]}" in
            --scratch) ((i++)) ;;
            -*) ;;
            *) words_before="${COMP_WORDS[i]}"; break ;;
        esac
    done

    if [ -z "$words_before" ]; then
        if [[ "$cur" == -* ]]; then
            mapfile -t COMPREPLY < <(compgen -W "--crlf --silencio --scratch --help --version" -- "$cur")
        else
            mapfile -t COMPREPLY < <(compgen -W "lista ayuda lote contenido dibujo $(_quelcnv_operations "$command")" -- "$cur")
        fi
        return
    fi
    case "$words_before" in
        lista) return ;;
        ayuda)
            [ "$prev" = ayuda ] &&
                mapfile -t COMPREPLY < <(compgen -W "$(_quelcnv_operations "$command")" -- "$cur")
            return
            ;;
        lote)
            if [ "$prev" = lote ]; then
                mapfile -t COMPREPLY < <(compgen -W "$(_quelcnv_operations "$command")" -- "$cur")
                return
            fi
            if [[ "$cur" == -* ]]; then
                mapfile -t COMPREPLY < <(compgen -W "--salida -j --con" -- "$cur")
                return
            fi
            ;;
        dibujo)
            if [[ "$cur" == -* ]]; then
                mapfile -t COMPREPLY < <(compgen -W "--eje --rasante --transversales" -- "$cur")
                return
            fi
            ;;
    esac
    mapfile -t COMPREPLY < <(compgen -f -- "$cur")
    compopt -o filenames 2>/dev/null
}

complete -F _quelcnv quelcnv
