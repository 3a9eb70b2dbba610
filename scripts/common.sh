# Shared by ./run, ./test and .ci/run: where things are, what they need, how they say what they do.
# Everything is said on standard error; a program's standard output stays its own.

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

build_packages="g++ cmake ninja-build ccache lld pkg-config libicu-dev libcurl4-openssl-dev libexpat1-dev"
test_packages="libgtest-dev qt6-base-dev openssl python3 libplist-utils xvfb openbox weston qt6-wayland"
test_packages+=" at-spi2-core dbus-daemon xdotool poppler-utils"
check_packages="clang clang-format clang-tidy libclang-rt-14-dev"

say() { printf '== %s\n' "$*" >&2; }
fail() { printf '== %s\n' "$*" >&2; exit 1; }

has() { [ "$(dpkg-query -W -f='${db:Status-Status}' "$1" 2>/dev/null)" = installed ]; }

# Installs those of the named Debian packages that are missing.
need() {
  local missing=() package
  for package in "$@"; do
    has "$package" || missing+=("$package")
  done
  [ ${#missing[@]} -eq 0 ] && return 0
  say "Installing: ${missing[*]}"
  local as_root=()
  [ "$(id -u)" -eq 0 ] || as_root=(sudo)
  { "${as_root[@]}" apt-get update -q && "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get install -q -y --no-install-recommends "${missing[@]}"; } >&2 || fail "Installing packages failed"
}

# Whether a preset was configured, with all that could be built now: windows need Qt, tests GoogleTest.
configured() {
  local cache=$root/build/$1/CMakeCache.txt
  [ -f "$root/build/$1/build.ninja" ] || return 1
  ! { grep -q '^Qt6_DIR:PATH=.*-NOTFOUND' "$cache" && has qt6-base-dev; } || return 1
  ! { grep -q '^GTest_DIR:PATH=.*-NOTFOUND' "$cache" && has libgtest-dev; }
}

# Configures a preset when it has to be, and builds the named targets (all without names).
build() {
  local preset=$1
  shift
  configured "$preset" || {
    say "Configuring ($preset)"
    (cd "$root" && cmake --preset "$preset") >&2 || fail "Configuring $preset failed"
  }
  (cd "$root" && cmake --build "build/$preset" ${1:+--target "$@"}) >&2 || fail "Building $preset failed"
}
