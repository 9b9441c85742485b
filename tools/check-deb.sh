#!/usr/bin/env bash
# Checks the Debian package the way a user meets it: builds it, installs it
# with apt-get, validates the installed desktop entry and metainfo, and plays
# a clip with the installed `quorvel` under a private Xvfb as an ordinary
# user. Installing needs root or passwordless sudo; without either it stops
# after checking the package's contents. The package is removed again at the
# end unless --keep is given; --no-build takes the package built last.
# Not part of the test suite (it needs root).
set -euo pipefail
root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
keep=0 build=1
for option in "$@"; do
    case "$option" in
        --keep) keep=1 ;;
        --no-build) build=0 ;;
        *) echo "usage: tools/check-deb.sh [--keep] [--no-build]" >&2; exit 2 ;;
    esac
done

[ "$build" -eq 0 ] || "$root/tools/make-deb.sh" >/dev/null
deb="$(ls "$root"/build/quorvel_*.deb)"
echo "== $deb"
dpkg-deb --field "$deb" Package Version Depends Recommends
contents="$(dpkg-deb --contents "$deb")"
for f in ./usr/bin/quorvel ./usr/lib/quorvel/quorvel ./usr/lib/quorvel/libquorvel_player.so \
    ./usr/lib/quorvel/images/About.png ./usr/lib/quorvel/help/index.html ./usr/lib/quorvel/icons/Unkowen.bmp \
    ./usr/share/applications/quorvel.desktop ./usr/share/icons/hicolor/48x48/apps/quorvel.png; do
    grep -q " $f\( ->\|$\)" <<<"$contents" || { echo "missing in the package: $f"; exit 1; }
done
grep -q " ./usr/share/metainfo/.*\.metainfo\.xml$" <<<"$contents" || { echo "no metainfo in the package"; exit 1; }

SUDO=""
if [ "$(id -u)" -ne 0 ]; then
    if sudo -n true 2>/dev/null; then
        SUDO="sudo"
    else
        echo "== not root and no passwordless sudo: the package is built, not installed"
        exit 0
    fi
fi

echo "== installing"
DEBIAN_FRONTEND=noninteractive $SUDO apt-get install -y -qq "$deb" >/dev/null
cleanup() {
    # The player closes on SIGTERM like by its close button; the display goes last.
    if [ -n "${player:-}" ] && kill "$player" 2>/dev/null; then
        wait "$player" || echo "== the player ended with status $? on SIGTERM"
    fi
    [ -n "${xvfb:-}" ] && kill "$xvfb" 2>/dev/null || true
    [ -n "${work:-}" ] && rm -rf "$work"
    if [ "$keep" -eq 0 ]; then
        DEBIAN_FRONTEND=noninteractive $SUDO apt-get remove -y -qq quorvel >/dev/null && echo "== removed again"
    fi
}
trap cleanup EXIT

[ "$(readlink -f /usr/bin/quorvel)" = /usr/lib/quorvel/quorvel ] || { echo "/usr/bin/quorvel is no link to the program"; exit 1; }
if ldd /usr/lib/quorvel/quorvel /usr/lib/quorvel/libquorvel_player.so | grep "not found"; then
    echo "libraries missing"
    exit 1
fi
desktop-file-validate /usr/share/applications/quorvel.desktop
appstreamcli validate --no-net $(dpkg -L quorvel | grep "^/usr/share/metainfo/.*\.metainfo\.xml$")
env -u DISPLAY -u WAYLAND_DISPLAY quorvel --version

echo "== playing a clip with the installed program"
work="$(mktemp -d)"
chmod 755 "$work"
ffmpeg -hide_banner -loglevel error -f lavfi -i "testsrc2=size=320x240:rate=25:duration=6" \
    -f lavfi -i "sine=frequency=440:duration=6" -c:v libx264 -pix_fmt yuv420p -c:a aac -shortest "$work/clip.mp4"
mkdir -p "$work/home" "$work/run"
chmod 700 "$work/run"
# As root the program folder would be writable and take "Config.cfg"; a user's
# start cannot write there, so the check runs as one.
as_user=()
if [ "$(id -u)" -eq 0 ]; then
    chown -R nobody:nogroup "$work/home" "$work/run"
    as_user=(setpriv --reuid=nobody --regid=nogroup --clear-groups)
fi
Xvfb -displayfd 3 -ac -nolisten tcp -screen 0 1024x768x24 3>"$work/display" 2>/dev/null &
xvfb=$!
until [ -s "$work/display" ]; do sleep 0.2; done
display=":$(head -n1 "$work/display")"
env -u WAYLAND_DISPLAY HOME="$work/home" XDG_CONFIG_HOME="$work/home/.config" XDG_DATA_HOME="$work/home/.local/share" \
    XDG_RUNTIME_DIR="$work/run" DISPLAY="$display" QT_QPA_PLATFORM=xcb QT_LOGGING_RULES="quorvel.*.debug=true" \
    "${as_user[@]}" quorvel "$work/clip.mp4" >"$work/trace.log" 2>&1 &
player=$!
for _ in $(seq 1 300); do
    grep -q "tick state=3 time=[1-9][0-9]\{3\}" "$work/trace.log" && break
    kill -0 "$player" 2>/dev/null || break
    sleep 0.2
done
mkdir -p "$root/build/test-output"
DISPLAY="$display" import -window root "$root/build/test-output/check-deb.png" || true
if ! grep -q "tick state=3 time=[1-9][0-9]\{3\}" "$work/trace.log"; then
    cat "$work/trace.log"
    echo "== FAILED: the installed program did not play the clip"
    exit 1
fi
if grep -q "skin incomplete" "$work/trace.log"; then
    grep "skin incomplete" "$work/trace.log"
    echo "== FAILED: the installed program did not find its pictures"
    exit 1
fi
echo "== OK: installed with apt-get and played (picture: build/test-output/check-deb.png)"
