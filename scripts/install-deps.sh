#!/usr/bin/env bash
# Installs what Bellwick needs to build, run and test on Debian/Ubuntu; does nothing when all is there.
set -euo pipefail
packages=(
    build-essential cmake pkg-config git dpkg-dev desktop-file-utils
    qt6-base-dev qt6-svg-dev libqt6svg6 qt6-qpa-plugins libgl1-mesa-dev libxcb-shape0-dev
    libsdl2-mixer-dev libfluidsynth-dev timgm6mb-soundfont libical-dev python3-icalendar
    fonts-liberation man-db
    libgtest-dev
    xvfb openbox trayer xdotool x11-utils imagemagick pulseaudio pulseaudio-utils sox
    weston xwayland qt6-wayland
    dbus-daemon dbus-bin dbus-x11 libglib2.0-bin haskell-status-notifier-item-utils haskell-gtk-sni-tray-utils
    libcap2-bin python3-pyatspi at-spi2-core
)
missing=()
for p in "${packages[@]}"; do
    dpkg -s "$p" >/dev/null 2>&1 || missing+=("$p")
done
[ ${#missing[@]} -eq 0 ] && exit 0
sudo=""
[ "$(id -u)" -ne 0 ] && sudo="sudo"
echo "Installing: ${missing[*]}"
$sudo apt-get update -qq
DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq --no-install-recommends "${missing[@]}"
