#!/usr/bin/env bash
# Installs the Debian 12 packages Quorvel needs to build, run and test.
# Does nothing when everything is there already.
set -euo pipefail

PACKAGES=(
    build-essential cmake ninja-build pkg-config git
    qt6-base-dev qt6-qpa-plugins qt6-wayland libgl-dev libopengl-dev libglx-dev
    libvlc-dev vlc-plugin-base vlc-plugin-video-output
    ffmpeg mpgtx libavformat-dev libavcodec-dev libswscale-dev libavutil-dev
    libgtest-dev googletest
    xvfb xauth xdotool imagemagick fonts-dejavu-core
    dbus xdg-utils shared-mime-info desktop-file-utils
)

missing=()
for p in "${PACKAGES[@]}"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
[ ${#missing[@]} -eq 0 ] && exit 0

SUDO=""
[ "$(id -u)" -ne 0 ] && SUDO="sudo"
echo "Installing: ${missing[*]}"
$SUDO apt-get update -qq
DEBIAN_FRONTEND=noninteractive $SUDO apt-get install -y -qq --no-install-recommends "${missing[@]}"
