# Shared by ./run, ./test and .ci/run: where things are, what they need, how they say what they do.
# Everything is said on standard error; a program's standard output stays its own.

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

build_packages="g++ cmake ninja-build ccache lld pkg-config libicu-dev libcurl4-openssl-dev libexpat1-dev"
build_packages+=" libgtest-dev"
test_packages="qt6-base-dev openssl python3 libplist-utils xvfb openbox weston qt6-wayland"
test_packages+=" at-spi2-core dbus-daemon xdotool poppler-utils"
check_packages="clang clang-format clang-tidy libclang-rt-14-dev"

say() { printf '== %s\n' "$*" >&2; }
fail() { printf '== %s\n' "$*" >&2; exit 1; }

# Installs those of the named Debian packages that are missing, and leaves build/installed, newer than what was
# configured without them.
need() {
  local missing=() package
  for package in "$@"; do
    [ "$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null)" = installed ] || missing+=("$package")
  done
  [ ${#missing[@]} -eq 0 ] && return 0
  say "Installing: ${missing[*]}"
  local as_root=()
  [ "$(id -u)" -eq 0 ] || as_root=(sudo)
  { "${as_root[@]}" apt-get update -q && "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get install -q -y --no-install-recommends "${missing[@]}"; } >&2 || fail "Installing packages failed"
  mkdir -p "$root/build" && touch "$root/build/installed"
}

# Configures a preset when it was not, or not since packages came; builds the named targets (all without names).
build() {
  local preset=$1
  shift
  [ "$root/build/$preset/build.ninja" -nt "$root/build/installed" ] || {
    say "Configuring ($preset)"
    (cd "$root" && cmake --preset "$preset") >&2 || fail "Configuring $preset failed"
  }
  (cd "$root" && cmake --build "build/$preset" ${1:+--target "$@"}) >&2 || fail "Building $preset failed"
}
