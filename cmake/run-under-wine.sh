#!/bin/sh
# Runs a Windows program under Wine in the project's own prefix, which the first use makes.
#
# Whichever program runs first starts Wine's background processes, and they inherit its
# standard error: a caller reading that pipe would wait seconds for them to end.  So
# standard error goes through a file, and the lock's descriptor is not handed down.
set -u
export WINEPREFIX="${QMX_WINEPREFIX:-${XDG_CACHE_HOME:-$HOME/.cache}/qmxexif/wine}"
export WINEDEBUG="${WINEDEBUG:--all}"
export WINEDLLOVERRIDES="mscoree,mshtml,winemenubuilder.exe="
# Arguments and file names beyond ASCII need a locale with UTF-8.
export LC_ALL="${QMX_TEST_LOCALE:-C.UTF-8}"
unset DISPLAY WAYLAND_DISPLAY
if ! [ -f "$WINEPREFIX/.ready" ]; then
    mkdir -p "$WINEPREFIX"
    (
        flock 9
        [ -f "$WINEPREFIX/.ready" ] || { wine wineboot --init && touch "$WINEPREFIX/.ready"; } 9>&-
    ) 9>"$WINEPREFIX.lock" </dev/null >/dev/null 2>&1
fi
# On a terminal nobody waits for a pipe to close, and programs may draw on it.
[ -t 2 ] && exec wine "$@"
err=$(mktemp)
trap 'rm -f "$err"' EXIT
wine "$@" 2>"$err"
status=$?
cat "$err" >&2
exit $status
