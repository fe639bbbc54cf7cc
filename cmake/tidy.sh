#!/usr/bin/env bash
# Runs clang-tidy over the sources, or over the files given, with the switches of host-asan.
set -u
root=$(cd "$(dirname "$0")/.." && pwd)
database=$root/build/host-asan
[ -f "$database/compile_commands.json" ] || (cd "$root" && cmake --preset host-asan) || exit 1
if [ $# -eq 0 ]; then
    mapfile -t files < <(find "$root/src" "$root/tests/shim" -path "$root/src/com" -prune -o \
        -name '*.cpp' -print | sort)
    set -- "${files[@]}"
fi
# The switches of a file of the database; code of the COM server alone is not in it.
printf '%s\0' "$@" | xargs -0 -n 1 -P "$(nproc)" clang-tidy -p "$database" --quiet
