#!/usr/bin/env bash
# Runs the same conversions through the Windows DLL (under the emulator) and
# through the Linux library, each loaded by the host program, and compares
# the results and every output file; newlines aside, they must be identical,
# and the Windows files must end every line with CR LF.
#   compare_with_linux.sh EMULATOR WINDOWS_FOLDER LINUX_FOLDER LIST WORK
set -euo pipefail
emulator=$1 windows=$2 linux=$3 list=$4 work=$5

if [ ! -x "$linux/quelcnv_host" ]; then
    echo "no Linux build in $linux: build the release preset first" >&2
    exit 1
fi
rm -rf "$work"
mkdir -p "$work/windows" "$work/linux" "$work/scratch"
# The command's drawings are no entry points: the host runs the rest.
grep -v '^dibujo ' "$list" >"$work/list.txt"
list="$work/list.txt"

QUELCNV_SCRATCH="$work/scratch" "$linux/quelcnv_host" run "$linux/libquelcnv.so" "$list" \
    "$work/linux" >"$work/linux.txt"
mkdir -p "$work/windows-scratch"
QUELCNV_SCRATCH="$work/windows-scratch" QUELCNV_MESSAGES=stderr \
    "$emulator" "$windows/quelcnv_host.exe" run quelcnv.dll "$list" "$work/windows" \
    | tr -d '\r' >"$work/windows.txt"

# A LandXML document carries the date and time it was written at, which the
# two runs cannot share: that much is set aside before comparing.
undated() { sed -E 's/ date="[0-9-]+" time="[0-9:]+"/ date="" time=""/' "$@"; }

status=0
if ! diff -u "$work/linux.txt" "$work/windows.txt"; then status=1; fi
for file in "$work/linux"/*; do
    [ -e "$file" ] || continue
    name=$(basename "$file")
    other="$work/windows/$name"
    if [ ! -f "$other" ]; then
        echo "$name: written on Linux only" >&2
        status=1
    elif ! cmp -s <(undated "$file") <(tr -d '\r' <"$other" | undated); then
        echo "$name: differs between Windows and Linux" >&2
        status=1
    elif [ "$(tr -cd '\n' <"$other" | wc -c)" != "$(grep -c $'\r$' "$other" || true)" ]; then
        echo "$name: a line of the Windows output does not end in CR LF" >&2
        status=1
    fi
done
for file in "$work/windows"/*; do
    [ -e "$file" ] || continue
    [ -e "$work/linux/$(basename "$file")" ] || { echo "$(basename "$file"): written on Windows only" >&2; status=1; }
done
[ "$status" -eq 0 ] && echo "$(wc -l <"$work/linux.txt") conversions, same results and outputs"
exit "$status"
