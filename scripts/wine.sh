#!/bin/sh
# Runs a Windows program in a Wine prefix in the build folder, made on first use; never in the user's own.
set -eu
root=$(cd "$(dirname "$0")/.." && pwd)
export WINEPREFIX="$root/build/wine-template" WINEARCH="${WINEARCH:-win64}" WINEDEBUG="${WINEDEBUG:--all}" LC_ALL="${LC_ALL:-C.UTF-8}"
export WINEDLLOVERRIDES="mscoree,mshtml=;winemenubuilder.exe=d"
make_template() {
  # A home that does not exist keeps the prefix's Documents and the like inside the prefix.
  export HOME=/nonexistent
  mkdir -p "$(dirname "$WINEPREFIX")"
  DISPLAY='' wine wineboot -i > /dev/null 2>&1
  ln -sf /usr/share/wine/fonts/*.ttf "$WINEPREFIX/drive_c/windows/Fonts/"
  wine reg add 'HKCU\Software\Wine\WineDbg' /v ShowCrashDialog /t REG_DWORD /d 0 /f > /dev/null 2>&1
  wine reg add 'HKCU\Control Panel\Desktop' /v FontSmoothing /d 2 /f > /dev/null 2>&1
  wine reg add 'HKCU\Control Panel\Desktop' /v FontSmoothingType /t REG_DWORD /d 1 /f > /dev/null 2>&1
  wineserver -k > /dev/null 2>&1 || true
  wineserver -w
  touch "$WINEPREFIX/.ready"
}
[ -e "$WINEPREFIX/.ready" ] || (make_template)
[ $# = 0 ] || exec wine "$@"
