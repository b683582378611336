#!/usr/bin/env bash
# Loads the bash completion of quelcnv and completes a few command lines
# with the command given: operations, subcommands, options and files.
#   check_completion.sh COMPLETION_SCRIPT QUELCNV
set -euo pipefail
# shellcheck source=/dev/null
source "$1"
command="$2"
complete -p quelcnv | grep -- '-F _quelcnv' >/dev/null

completes() {  # completes WORD... : the candidates for the last word
    COMP_WORDS=("$command" "$@")
    COMP_CWORD=$#
    _quelcnv
    printf '%s\n' "${COMPREPLY[@]}"
}
expect() {  # expect CANDIDATE WORD...
    local wanted="$1"
    shift
    if ! completes "$@" | grep -x -- "$wanted" >/dev/null; then
        echo "no completa '$*' con '$wanted'" >&2
        exit 1
    fi
}
expect aistram2nevo aist
expect aistram2LandXML aistram2L
expect lote lo
expect dibujo dib
expect --transversales dibujo eje.xml --tra
expect --silencio --sil
expect ruxo2nevo ayuda ruxo2n
expect ruxo2nevo lote ruxo2n
expect --salida lote ruxo2nevo --sal
expect info inf
expect --json info eje.ruxo --js
expect --tipo dibujo eje.ruxo --ti
expect peralte dibujo eje.ruxo --tipo per
expect --crlf ruxo2nevo a --cr
expect dibujo ayuda dib
if completes ruxo2nevo --tip | grep -x -- --tipo >/dev/null; then
    echo "ofrece --tipo a ruxo2nevo" >&2
    exit 1
fi
dir="$(mktemp -d)"
trap 'rm -rf "$dir"' EXIT
touch "$dir/eje.ruxo"
expect "$dir/eje.ruxo" ruxo2nevo "$dir/eje"
echo "completado de bash: bien"
