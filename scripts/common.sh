# Shared by the scripts beside it: where the project is, what it installs, how it builds.

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

say() { printf '\n== %s\n' "$*"; }

fail() {
    printf '\nFAILED: %s\n' "$*" >&2
    exit 1
}

as_root() {
    if [[ $(id -u) -eq 0 ]]; then
        "$@"
    elif command -v sudo >/dev/null; then
        sudo "$@"
    else
        fail "Installing packages needs root: run this as root, or install sudo."
    fi
}

# missing_packages [fuzz | lint | target]: of those that everything needs, of these and those for fuzzing or linting, or
# only of those that scripts/target needs.
missing_packages() {
    local wanted installed lines='1,/^# Fuzzing/p'
    case ${1:-} in
    fuzz) lines='1,/^# Targets/p' ;;
    lint) lines='1,/^# Fuzzing/p;/^# Linting/,$p' ;;
    target) lines='/^# Targets/,/^# Linting/p' ;;
    esac
    wanted=$(sed -n "$lines" "$root/scripts/packages.txt" | sed 's/#.*//' | xargs -n1 | sort -u)
    installed=$(dpkg-query -W -f='${Package} ${db:Status-Status}\n' $wanted 2>/dev/null | sed -n 's/ installed$//p' | sort -u)
    comm -23 <(printf '%s\n' "$wanted") <(printf '%s\n' "$installed")
}

install_packages() {
    local missing
    missing=$(missing_packages "$@")
    if [[ -z $missing ]]; then
        say "Packages: nothing to install"
        return
    fi
    say "Packages: installing" $missing
    as_root apt-get update -q || fail "apt-get update did not succeed; is the network there?"
    as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -q --no-install-recommends $missing \
        || fail "Not all packages of scripts/packages.txt could be installed."
}

# build <preset> [target...]: configures when needed, then builds.
build() {
    local preset=$1
    shift
    cd "$root"
    if [[ -n ${CI:-} ]]; then
        say "Configuring '$preset', warnings are errors"
        cmake --preset "$preset" -DHMI_WARNINGS_AS_ERRORS=ON || fail "CMake could not configure '$preset'."
    elif [[ ! -f build/$preset/build.ninja ]]; then
        say "Configuring '$preset'"
        cmake --preset "$preset" || fail "CMake could not configure '$preset'."
    fi
    say "Building '$preset' in build/$preset"
    cmake --build --preset "$preset" "${@/#/--target=}" || fail "The build of '$preset' did not succeed."
}
