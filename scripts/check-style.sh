#!/bin/sh
# Formatting of all our C++ sources.
set -eu
cd "$(dirname "$0")/.."
find src practice tests -name '*.cpp' -o -name '*.h' | xargs clang-format --dry-run --Werror
