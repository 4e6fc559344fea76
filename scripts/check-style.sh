#!/bin/sh
# Formatting and static checks of all our C++ sources. Both build folders must have been configured.
set -eu
cd "$(dirname "$0")/.."
find src practice tests benchmarks -name '*.cpp' -o -name '*.h' | xargs clang-format --dry-run --Werror

tidy() { # build folder, folders of sources, options
  build=$1 folders=$2
  shift 2
  # clang-tidy counts what it suppressed in other people's headers; only real findings are shown. It is clang, and does
  # not know every warning of GCC.
  find $folders -name '*.cpp' | xargs -P "$(nproc)" -n 4 \
    clang-tidy -p "$build" --quiet --extra-arg=-Wno-unknown-warning-option "$@" 2> /dev/null
}
portable=$(find src -mindepth 1 -maxdepth 1 -type d ! -name win32)
tidy build/native "$portable"
# clang reads the compile commands of the cross compiler but has to be told where its C++ headers are.
headers=$(x86_64-w64-mingw32-g++-posix -print-file-name=include/c++)
tidy build/windows "src/win32 practice" --extra-arg="-isystem$headers" --extra-arg="-isystem$headers/x86_64-w64-mingw32"
