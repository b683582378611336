#!/usr/bin/env bash
# Static checks of a Windows build of quelcnv.dll, read with the cross objdump:
# - the export table holds exactly the 60 names of the table, undecorated,
#   and the functions the public API's header declares;
# - the DLL imports from Windows' own DLLs only (the C++ runtime is inside);
# - with "stdcall" (the 32-bit DLL): every exported name leads to the code of
#   the standard-call function MyDll_name@bytes, and every return in that code
#   is "ret bytes", bytes being 4 per argument, so the callee pops its arguments
#   and a caller using the standard calling convention keeps its stack balanced.
#   check_windows_dll.sh OBJDUMP DLL TABLE [stdcall]
set -euo pipefail
objdump=$1 dll=$2 table=$3 mode=${4:-}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
status=0

# name (with MyDll_) and argument count of every entry point of the table
awk -F' [|] ' '!/^#/ && NF == 6 { print "MyDll_" $1, split($3, a, " ") }' "$table" | sort >"$work/table"
"$objdump" -p "$dll" >"$work/headers"

# index and name of every export, then index and address
awk '/^\[Ordinal\/Name Pointer\] Table/ { on = 1; next } on && /^$/ { on = 0 }
     on { gsub(/[][]/, " "); print $1, $2 }' "$work/headers" >"$work/export_names"
awk '/^Export Address Table -- / { on = 1; next } on && /^$/ { on = 0 }
     on { gsub(/[][]/, " "); print $1, $4 }' "$work/headers" >"$work/export_addresses"
image_base=$(awk '$1 == "ImageBase" { print $2 }' "$work/headers")

# the public API's functions, as its header declares them
header=$(dirname "$table")/../include/quelcnv_api.h
tr '\n' ' ' <"$header" | grep -oE 'QUELCNV_PUBLIC [^;(#]*\(' |
    grep -oE 'quelcnv_[a-z0-9_]+ *\($' | tr -d ' (' >"$work/api"
if ! diff <(cut -d' ' -f1 "$work/table"; sort "$work/api") \
        <(cut -d' ' -f2 "$work/export_names" | sort); then
    echo "the export table differs from the table of entry points and the API (< expected, > DLL)" >&2
    status=1
fi

imports=$(awk '/DLL Name:/ { print $3 }' "$work/headers")
for name in $imports; do
    case "${name,,}" in
        kernel32.dll | msvcrt.dll | user32.dll | advapi32.dll | ole32.dll | oleaut32.dll) ;;
        *) echo "imports $name, which Windows does not have" >&2; status=1 ;;
    esac
done

if [ "$mode" = stdcall ]; then
    "$objdump" -d --no-show-raw-insn "$dll" >"$work/code"
    while read -r name count; do
        bytes=$((4 * count))
        index=$(awk -v n="$name" '$2 == n { print $1 }' "$work/export_names")
        rva=$(awk -v i="$index" '$1 == i { print $2 }' "$work/export_addresses")
        address=$(printf '%08x' $((0x$image_base + 0x${rva:-0})))
        # the function's label and its return instructions, up to the next label
        awk -v label="<_${name}@${bytes}>:" -v address="$address" '
            /^[0-9a-f]+ <.*>:$/ { inside = ($2 == label); if (inside) print "label", $1; next }
            inside { i = 2; while ($i ~ /^(rep|repz|bnd)$/) i++ }
            inside && $i ~ /^retl?$/ { print "ret", (NF > i ? $(i + 1) : "none") }' "$work/code" >"$work/function"
        if [ "$(awk '$1 == "label" { print $2 }' "$work/function")" != "$address" ]; then
            echo "$name: the export does not lead to _${name}@${bytes}" >&2
            status=1
            continue
        fi
        returns=$(awk '$1 == "ret"' "$work/function" | sort -u)
        if [ "$returns" != "ret \$0x$(printf '%x' "$bytes")" ]; then
            echo "$name: returns with [${returns//$'\n'/, }] instead of ret \$0x$(printf '%x' "$bytes")" >&2
            status=1
        fi
    done <"$work/table"
fi

[ "$status" -eq 0 ] && echo "$(wc -l <"$work/table") exports checked in $dll"
exit "$status"
