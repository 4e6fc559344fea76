#!/bin/sh
# Installs the Debian packages needed to build, run and test Quillon, and those given, unless they are there.
set -eu
packages="cmake ninja-build g++ googletest g++-mingw-w64-x86-64-posix binutils-mingw-w64-x86-64
  python3 wine wine64 fonts-wine fonts-liberation xvfb xauth openbox imagemagick
  pulseaudio pulseaudio-utils icecast2 ffmpeg espeak-ng openssl gstreamer1.0-plugins-base gstreamer1.0-libav weather-util-data
  cups-daemon cups-client ghostscript poppler-utils trayer xdotool x11-utils $*"
missing=
for package in $packages; do
  dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || missing="$missing $package"
done
[ -n "$missing" ] || exit 0
root=
[ "$(id -u)" = 0 ] || root=sudo
echo "Installing:$missing"
$root apt-get update -qq
$root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends $missing > /dev/null
