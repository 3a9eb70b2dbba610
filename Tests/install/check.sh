#!/usr/bin/env bash
# Installs the build into a folder of its own, builds the outside project against it by CMake and by pkg-config, and
# compares what the programs print.
set -euo pipefail
build=$1
source=$2
prefix=$(mktemp -d)
trap 'rm -rf "$prefix"' EXIT

cmake --install "$build" --prefix "$prefix/root" >/dev/null
cmake -S "$source" -B "$prefix/outside" -DCMAKE_PREFIX_PATH="$prefix/root" >/dev/null
cmake --build "$prefix/outside" >/dev/null
by_cmake=$("$prefix/outside/hello")

pc=$(find "$prefix/root" -name VELTRuntime.pc)
sed -i "s|^prefix=.*|prefix=$prefix/root|" "$pc"
export PKG_CONFIG_PATH=${pc%/*}
lib=$(pkg-config --variable=libdir VELTRuntime)
# shellcheck disable=SC2046
c++ -std=c++20 "$source/hello.cpp" -o "$prefix/hello" $(pkg-config --cflags --libs VELTRuntime) -Wl,-rpath,"$lib"
by_pkg_config=$("$prefix/hello")

expected="Hello, 7 words"
for output in "$by_cmake" "$by_pkg_config"; do
  if [ "$output" != "$expected" ]; then
    printf 'expected: %s\nprinted:  %s\n' "$expected" "$output" >&2
    exit 1
  fi
done
