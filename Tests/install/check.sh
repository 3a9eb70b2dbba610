#!/usr/bin/env bash
# check.sh BUILD SOURCE: installs the build into a folder of its own, checks that no header is missing there, builds the
# outside project against it by CMake and by pkg-config, and compares what the programs print.
# With a package (*.deb) as BUILD, the package is unpacked instead.
set -euo pipefail
build=$1
source=$2
prefix=$(mktemp -d)
trap 'rm -rf "$prefix"' EXIT
export QT_QPA_PLATFORM=offscreen

if [[ $build == *.deb ]]; then
  dpkg-deb -x "$build" "$prefix/package"
  root=$prefix/package/usr
else
  cmake --install "$build" --prefix "$prefix/root" >/dev/null
  root=$prefix/root
fi
headers() { (cd "$1" && find . -name '*.h' -o -name '*.def' | LC_ALL=C sort); }
diff <(headers "$source/../../Runtime") <(headers "$root/include")

cmake -S "$source" -B "$prefix/outside" -DCMAKE_PREFIX_PATH="$root" >/dev/null
cmake --build "$prefix/outside" >/dev/null

pc=$(find "$root" -name VELTRuntime.pc)
export PKG_CONFIG_PATH=${pc%/*}
lib=$(pkg-config --variable=libdir VELTRuntime)

check() { # program, its package, what it prints
  local output
  # shellcheck disable=SC2046
  c++ -std=c++20 "$source/$1.cpp" -o "$prefix/$1" $(pkg-config --cflags --libs "$2") -Wl,-rpath,"$lib"
  for program in "$prefix/outside/$1" "$prefix/$1"; do
    output=$("$program")
    [ "$output" = "$3" ] || { printf 'expected: %s\nprinted:  %s\n' "$3" "$output" >&2; exit 1; }
  done
}
check hello VELTRuntime "Words: 3"
[ ! -f "$lib/libVELTRuntimeUI.so" ] || check window VELTRuntimeUI "Outside"
