# What ./play and ./check share: finding and installing packages, building. To be sourced.

command_name=$(basename "$0")

say() { printf '%s: %s\n' "$command_name" "$*"; }
fail() {
    say "$*" >&2
    exit 1
}

# The system we develop on: the oldest supported one, whose formatter and linter decide.
on_development_system() { grep -qs '^VERSION_CODENAME=bookworm$' /etc/os-release; }

packages_to_build=(g++ cmake ninja-build qt6-base-dev)
packages_to_play=(fonts-comic-neue fonts-dejavu-core)
packages_to_check=(libgtest-dev git)
if on_development_system; then
    packages_to_check+=(clang-format)
fi
packages_to_package=(dpkg-dev file lintian desktop-file-utils appstream shared-mime-info groff-base)

installed() { [ "$(dpkg-query -W -f='${db:Status-Status}' "$1" 2>/dev/null)" = installed ]; }

# Installs what is missing of the named packages; elsewhere than on Debian and Ubuntu it only
# names them.
need_packages() {
    if ! command -v apt-get >/dev/null || ! command -v dpkg-query >/dev/null; then
        say "this is neither Debian nor Ubuntu; what it calls $* has to be there"
        return
    fi
    local missing=() package
    for package in "$@"; do
        installed "$package" || missing+=("$package")
    done
    [ ${#missing[@]} -gt 0 ] || return 0

    local as_root=()
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null || fail "please install, as root: ${missing[*]}"
        as_root=(sudo)
    fi
    say "installing ${missing[*]}"
    local log
    log=$(mktemp)
    {
        "${as_root[@]}" apt-get update &&
            "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
                apt-get install --yes --no-install-recommends "${missing[@]}"
    } >"$log" 2>&1 || fail "could not install ${missing[*]}: $(grep -m 1 '^E:' "$log" || tail -n 1 "$log") (all of it: $log)"
    rm -f "$log"
}

# Configures a preset; further arguments go to cmake. Silent unless it fails.
configure() {
    local preset=$1 log
    shift
    log=$(mktemp)
    cmake --preset "$preset" "$@" >"$log" 2>&1 ||
        fail "could not configure '$preset': $(grep -m 1 'CMake Error' -A 1 "$log" | tr '\n' ' ') (all of it: $log)"
    rm -f "$log"
}

# Builds targets of a preset, all by default. Says little where there is little to do.
build() {
    local preset=$1
    shift
    NINJA_STATUS="[$preset %f/%t] " cmake --build "build/$preset" --parallel "$(nproc)" \
        ${1+--target "$@"} -- --quiet || fail "the $preset build failed; the compiler says why above"
}
