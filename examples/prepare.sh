# Sourced by the run scripts of the examples, which set `here` to their own folder.
#
# Sets `root`, the checkout, and `photo`, the first argument of the run script or the sample.
# `library PRESET` builds the library and sets `build`, where it lies, and `out`, a folder for what
# the example builds and writes.  Missing Debian packages are installed first.  With QMX_BUILD that
# build folder is taken as it stands, and what misses a package ends with 77: so the tests run it.

root=$(cd "$here/../.." && pwd)
. "$root/cmake/prepare.sh"
photo=$root/tools/sample/sample.jpg
[ $# -eq 0 ] || photo=$(realpath -- "$1")
wine=$root/cmake/run-under-wine.sh

# Names a Debian package that the example needs, by a command of it.
require() {
    missing=
    need "$1" "$2"
    if [ -n "$missing" ] && [ -n "${QMX_BUILD:-}" ]; then
        echo "skipped: needs$missing"
        exit 77
    fi
    install_missing
}

library() {
    build=${QMX_BUILD:-$root/build/$1}
    if [ -z "${QMX_BUILD:-}" ]; then
        case $1 in
            win-*) prepare_product ;;
            *)
                missing=
                for tool in cmake ninja ccache g++; do need "$tool" "${tool/ninja/ninja-build}"; done
                install_missing
                ;;
        esac
        build "$1" -- --target qmxexif
    fi
    out=$build/examples/$(basename "$here")
    mkdir -p "$out"
}

# Builds the project in the example's folder for Windows, into $out/build.
build_windows_program() {
    quietly cmake -S "$here" -B "$out/build" -G Ninja -DCMAKE_BUILD_TYPE=Release \
        -DCMAKE_TOOLCHAIN_FILE="$root/cmake/mingw-w64-x86_64.cmake" \
        -DCMAKE_PREFIX_PATH="$build"
    quietly cmake --build "$out/build"
}
