# Sourced by the other scripts: finds the source tree and installs what a script needs. Writes to standard error only.

root=$(cd "$(dirname "$0")/.." && pwd)
jobs=$(nproc)

# What a build needs, the tests included: one configured tree serves scripts/run, scripts/test and a developer.
build_packages="g++ cmake ninja-build libcli11-dev libpugixml-dev nlohmann-json3-dev libgtest-dev"

# What the desktop program needs besides, a font and the reader of its icon included.
desktop_packages="qt6-base-dev libqt6svg6 fonts-dejavu-core"

say() {
    printf '%s\n' "$*" >&2
}

as_root() {
    if [ "$(id -u)" -eq 0 ]; then "$@"; else sudo "$@"; fi
}

# install_missing PACKAGE...: installs those of the Debian packages that are not there yet.
install_missing() {
    if ! command -v dpkg-query >/dev/null; then
        say "No Debian system: make sure that these are installed: $*"
        return
    fi
    missing=
    for package in "$@"; do
        state=$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null) || state=none
        [ "$state" = installed ] || missing="$missing $package"
    done
    [ -n "$missing" ] || return 0
    say "Installing:$missing"
    as_root apt-get update -qq >&2
    # The package names are separate words on purpose.
    as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends $missing >&2
}

# build PRESET [TARGET...]: configures and builds build/PRESET.
build() {
    preset=$1
    shift
    say "Building build/$preset"
    (cd "$root" && cmake --preset "$preset" >&2 && cmake --build --preset "$preset" -j "$jobs" ${1:+--target "$@"} >&2)
}
