#!/usr/bin/env bash
# Installs the Debian 12 packages Quorvel needs to build, run and test.
# Does nothing when everything is there already.
set -euo pipefail

PACKAGES=(
    build-essential cmake ninja-build pkg-config git clang-format
    qt6-base-dev qt6-qpa-plugins qt6-wayland libgl-dev libopengl-dev libglx-dev
    libvlc-dev libvlc-bin vlc-plugin-base vlc-plugin-video-output
    ffmpeg mpgtx libavformat-dev libavcodec-dev libswscale-dev libavutil-dev
    libgtest-dev googletest
    xvfb xauth xdotool imagemagick fonts-dejavu-core dvdauthor
    dbus xdg-utils shared-mime-info desktop-file-utils
    appstream dpkg-dev file # checks of the installed files, the Debian package
)

# libVLC's plugin cache: without it every start loads all plugins one by one
# (about 400 ms). libvlc-bin's package triggers write it; it is checked here
# in case the plugins came without the triggers running.
VLC_PLUGINS=/usr/lib/x86_64-linux-gnu/vlc/plugins
VLC_CACHE_GEN=/usr/lib/x86_64-linux-gnu/vlc/vlc-cache-gen

missing=()
for p in "${PACKAGES[@]}"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done

SUDO=""
[ "$(id -u)" -ne 0 ] && SUDO="sudo"
if [ ${#missing[@]} -gt 0 ]; then
    echo "Installing: ${missing[*]}"
    $SUDO apt-get update -qq
    DEBIAN_FRONTEND=noninteractive $SUDO apt-get install -y -qq --no-install-recommends "${missing[@]}"
fi

if [ ! -s "$VLC_PLUGINS/plugins.dat" ]; then
    echo "Writing libVLC's plugin cache"
    $SUDO "$VLC_CACHE_GEN" "$VLC_PLUGINS"
fi
