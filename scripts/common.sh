# What the project's scripts have in common. Sourced with the project's folder as $top.
set -euo pipefail

# Debian's names of what the project is built from.
build_packages=(g++ cmake ninja-build googletest llvm qt6-base-dev libgl-dev
    fonts-dejavu-core)
bench_packages=(libbenchmark-dev)
desktop_packages=(xvfb openbox xdotool)
# What makes the disk whose power is cut in a test.
storage_packages=(e2fsprogs)

say() { printf '== %s\n' "$*"; }

# Installs those of the named packages that are missing; says so. Does nothing when all are there.
need_packages() {
    local missing=()
    for package in "$@"; do
        dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null | grep -qx installed ||
            missing+=("$package")
    done
    ((${#missing[@]})) || return 0
    say "installing ${missing[*]}"
    local as_root=()
    if [ "$(id -u)" != 0 ]; then
        command -v sudo >/dev/null || { say "please install: ${missing[*]}"; return 1; }
        as_root=(sudo)
    fi
    # A registry that does not answer is asked again.
    local attempt
    for attempt in 1 2 3; do
        if "${as_root[@]}" apt-get -qq update &&
            DEBIAN_FRONTEND=noninteractive "${as_root[@]}" apt-get -qq install -y \
                --no-install-recommends "${missing[@]}" >/dev/null; then
            return 0
        fi
        say "attempt $attempt to install failed"
        ((attempt == 3)) || sleep $((attempt * 5))
    done
    return 1
}

# Configures and builds a preset; extra arguments are targets.
build_preset() {
    local preset=$1
    shift
    if [ ! "$top/build/$preset/build.ninja" -nt "$top/CMakePresets.json" ]; then
        say "configuring $preset"
        (cd "$top" && cmake --preset "$preset" -Wno-dev >/dev/null)
    fi
    say "building $preset"
    local targets=()
    (($#)) && targets=(--target "$@")
    (cd "$top" && cmake --build --preset "$preset" "${targets[@]}")
}

# Runs all tests of a preset, as many at once as there are processors.
test_preset() {
    say "testing $1"
    (cd "$top" && ctest --preset "$1" -j "$(nproc)" "${@:2}")
}
