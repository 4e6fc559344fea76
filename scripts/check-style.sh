#!/bin/sh
# Checks the style of our C++ and Python sources. The native and the windows build folder must have been configured.
set -eu
cd "$(dirname "$0")/.."

# Version 14 is that of Debian 12; other versions format differently and warn of other things.
version_14() {
  for name in "$1-14" "$1"; do
    case $("$name" --version 2> /dev/null) in
      *' version 14.'*) echo "$name" && return ;;
    esac
  done
  echo "Not checked with $1: version 14 is not installed" >&2
}

scripts/check-includes.py
find . -path ./build -prune -o -name '*.py' -print | xargs pyflakes3
format=$(version_14 clang-format)
[ -z "$format" ] ||
  find src practice tests benchmarks -name '*.cpp' -o -name '*.h' | xargs "$format" --dry-run --Werror
tidy=$(version_14 clang-tidy)
[ -z "$tidy" ] || scripts/check-tidy.py "$tidy"
