# Sourced by ./test and ./run: installs what a build needs and builds presets quietly.
# The caller sets `root` to the checkout.

say() { printf '%s\n' "== $*" >&2; }

have() { command -v "$1" >/dev/null 2>&1; }

# Names a Debian package of which the command or the file given is missing.
need() {
    case $1 in
        /*) [ -e "$1" ] || missing="$missing $2" ;;
        *) have "$1" || missing="$missing $2" ;;
    esac
}

# Installs the packages in `missing`, after saying so.
install_missing() {
    [ -n "$missing" ] || return 0
    if ! have apt-get; then
        say "missing here, and no apt-get to install it:$missing"
        exit 1
    fi
    local as_root=
    [ "$(id -u)" -eq 0 ] || as_root=sudo
    if [ -n "$as_root" ] && ! have sudo; then
        say "missing here: as root, run: apt-get install$missing"
        exit 1
    fi
    say "Installing${as_root:+ with sudo}:$missing"
    quietly $as_root apt-get update
    # shellcheck disable=SC2086
    quietly $as_root env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y --no-install-recommends $missing
}

# What the product is built with, and run with here.
prepare_product() {
    missing=
    need cmake cmake
    need ninja ninja-build
    need ccache ccache
    need x86_64-w64-mingw32-g++-posix g++-mingw-w64-x86-64-posix
    need x86_64-w64-mingw32-widl mingw-w64-tools
    need /usr/include/wine/wine/windows/oaidl.idl libwine-dev
    need llvm-dlltool llvm
    need wine wine
    need /usr/lib/wine/wine64 wine64
    install_missing
}

# What the tests need besides.
prepare_tests() {
    prepare_product
    missing=
    need g++ g++
    need clang++ clang
    need lld-link lld
    need pkg-config pkg-config
    need mcs mono-mcs
    need nuget nuget
    need xbuild mono-xbuild
    need python3 python3
    need /usr/src/googletest/CMakeLists.txt googletest
    install_missing
    # Each version of clang has its own package of the sanitizers' libraries.
    local version
    version=$(clang++ -dumpversion | cut -d. -f1)
    missing=
    need "$(clang++ -print-resource-dir)/lib" "libclang-rt-$version-dev"
    install_missing
}

# Runs a command; shows what it printed only if it fails, and then ends the script.
quietly() {
    local log
    log=$(mktemp)
    if ! "$@" >"$log" 2>&1 </dev/null; then
        cat "$log" >&2
        rm -f "$log"
        say "failed: $*"
        exit 1
    fi
    rm -f "$log"
}

# build PRESET CONFIGURE_OPTIONS -- BUILD_OPTIONS
build() {
    local preset=$1 configure_options=()
    shift
    while [ $# -gt 0 ] && [ "$1" != -- ]; do
        configure_options+=("$1")
        shift
    done
    [ $# -eq 0 ] || shift
    say "Building $preset"
    cd "$root" || exit 1
    quietly cmake --preset "$preset" "${configure_options[@]}"
    quietly cmake --build --preset "$preset" "$@"
    cd "$OLDPWD" || exit 1
}
