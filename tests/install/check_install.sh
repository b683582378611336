#!/usr/bin/env bash
# Installs a build into a temporary prefix and checks the tree: the library
# with its SONAME, the header, the command, the man page; then builds a C
# program against it through pkg-config and another through
# find_package(quelcnv), and runs both on a sample.
#   check_install.sh BUILD_DIR SOURCE_DIR
set -euo pipefail
build="$1"
source="$2"
work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT
prefix="$work/prefijo"

cmake --install "$build" --prefix "$prefix" >/dev/null
library="$(find "$prefix" -name 'libquelcnv.so.*.*.*' | head -n 1)"
test -n "$library" || { echo "no se ha instalado libquelcnv.so.X.Y.Z" >&2; exit 1; }
objdump -p "$library" | grep 'SONAME *libquelcnv\.so\.0$' >/dev/null
test -L "$(dirname "$library")/libquelcnv.so.0"
test -L "$(dirname "$library")/libquelcnv.so"
test -f "$prefix/include/quelcnv.h"
test -f "$prefix/include/quelcnv_api.h"
test -x "$prefix/bin/quelcnv"
test -f "$prefix/share/man/man1/quelcnv.1"
test -f "$prefix/share/bash-completion/completions/quelcnv"
"$prefix/bin/quelcnv" --version | grep '^quelcnv ' >/dev/null
# the man page is well-formed groff (warnings are errors)
if command -v groff >/dev/null; then
    test -z "$(groff -man -Tutf8 -ww -z "$prefix/share/man/man1/quelcnv.1" 2>&1)"
fi

sample="$source/samples/crosssection/eje.ruxo"
export PKG_CONFIG_PATH
PKG_CONFIG_PATH="$(dirname "$(find "$prefix" -name quelcnv.pc)")"
test "$(pkg-config --modversion quelcnv)" = "$(sed -n 's/^project(quelcnv VERSION \([0-9.]*\).*/\1/p' "$source/CMakeLists.txt")"
libdir="$(pkg-config --variable=libdir quelcnv)"
# shellcheck disable=SC2046
cc -Wall -Werror -o "$work/con_pkg_config" "$source/tests/install/consumer.c" \
    $(pkg-config --cflags --libs quelcnv) -Wl,-rpath,"$libdir"
"$work/con_pkg_config" "$sample" "$work/pkg-config.nev"
# the public API's example, as README shows it, built as C against the install
# shellcheck disable=SC2046
cc -std=c11 -Wall -Wextra -Werror -o "$work/convert_example" "$source/tests/api/convert_example.c" \
    $(pkg-config --cflags --libs quelcnv) -Wl,-rpath,"$libdir"
"$work/convert_example" ruxo2nevo "$sample" "$work/api.nev" | grep -- '-> .*api.nev$' >/dev/null
cmp "$work/pkg-config.nev" "$work/api.nev"

cmake -S "$source/tests/install/consumer" -B "$work/cmake" -DCMAKE_PREFIX_PATH="$prefix" >/dev/null
cmake --build "$work/cmake" >/dev/null
"$work/cmake/consumer" "$sample" "$work/cmake.nev"
cmp "$work/pkg-config.nev" "$work/cmake.nev"
test -s "$work/cmake.nev"
echo "instalacion, pkg-config y find_package: bien"
