#!/bin/sh
# Runs a Windows program under Wine with a registry of its own, for what must be registered first:
#
#     private-prefix.sh FOLDER PROGRAM ARGUMENTS...
#
# FOLDER becomes a Wine prefix that shares the files of the project's own prefix and has copies of
# its registry, so that nothing is registered outside.
set -u
prefix=$1
shift
wrapper=$(dirname "$0")/../cmake/run-under-wine.sh
base="${QMX_WINEPREFIX:-${XDG_CACHE_HOME:-$HOME/.cache}/qmxexif/wine}"
if ! [ -f "$prefix/.ready" ]; then
    "$wrapper" cmd /c exit </dev/null >/dev/null 2>&1
    # The server saves the registry of a new prefix some time after the prefix is made.
    tries=0
    while ! [ "$base/system.reg" -nt "$base/.ready" ] && [ $tries -lt 30 ]; do
        sleep 0.1
        tries=$((tries + 1))
    done
    mkdir -p "$prefix" && cp "$base"/*.reg "$prefix" && cp -a "$base/dosdevices" "$prefix" &&
        ln -sfn "$base/drive_c" "$prefix/drive_c" || exit 1
    [ ! -e "$base/.update-timestamp" ] || cp "$base/.update-timestamp" "$prefix"
    touch "$prefix/.ready"
fi
QMX_WINEPREFIX=$prefix exec "$wrapper" "$@"
