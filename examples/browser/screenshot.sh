#!/usr/bin/env bash
# Takes docs/browser.png again, on Debian: paints sample photos into a folder with a Japanese path,
# shows it in the browser under Wine on a screen in memory, and takes its picture.
#
#     ./screenshot.sh [PNG]
set -u -o pipefail
root=$(cd "$(dirname "$0")/../.." && pwd)
. "$root/cmake/prepare.sh"
picture=$(realpath -m -- "${1:-$root/docs/browser.png}")

prepare_product
missing=
need Xvfb xvfb
need import imagemagick
need xdotool xdotool
need /usr/share/fonts/opentype/noto/NotoSansCJK-Regular.ttc fonts-noto-cjk
need /usr/share/doc/python3-pil python3-pil
install_missing
build win-release -- --target browser

# A prefix of its own, with a font in place of the one that Windows has for Japanese.
work=$root/build/win-release/screenshot
export WINEPREFIX=$work/wine WINEDEBUG=-all LC_ALL=C.UTF-8
export WINEDLLOVERRIDES="mscoree,mshtml,winemenubuilder.exe="
unset DISPLAY WAYLAND_DISPLAY
rm -rf "$work"
mkdir -p "$work"
say "Making a prefix of Wine"
quietly wine wineboot --init
wine reg add 'HKCU\Software\Wine\Fonts\Replacements' /v 'Yu Gothic UI' /d 'Noto Sans CJK JP' /f \
    >/dev/null 2>&1 </dev/null
wineserver -w

folder=写真/2013年10月\ 富士五湖
quietly /usr/bin/python3 "$root/tools/sample/make_sample.py" --set "$WINEPREFIX/drive_c/$folder"

say "Taking the picture"
Xvfb -displayfd 4 -screen 0 1280x840x24 -nolisten tcp 4>"$work/display" >/dev/null 2>&1 &
server=$!
trap 'kill $server 2>/dev/null' EXIT
for _ in $(seq 50); do
    [ -s "$work/display" ] && break
    sleep 0.2
done
DISPLAY=:$(cat "$work/display")
export DISPLAY
windows_path="C:\\${folder//\//\\}\\夕暮れの湖.jpg"
wine "$root/build/win-release/browser.exe" "$windows_path" </dev/null >/dev/null 2>&1 &
sleep 12
window=$(xdotool search --onlyvisible --name 写真ブラウザー | tail -n 1)
if [ -z "$window" ]; then
    say "the browser's window did not come up"
    exit 1
fi
import -window "$window" "$work/window.png"
xdotool windowkill "$window"
wineserver -k
convert "$work/window.png" -strip -colors 256 "PNG8:$picture"
say "$picture: $(($(stat -c %s "$picture") / 1000)) kB"
