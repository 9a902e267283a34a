#!/usr/bin/env bash
# Builds the portable half natively (with sanitizers) and everything for Windows.
set -euo pipefail
source "$(dirname "$0")/env.sh"
jobs=${KSTR_JOBS:-$(nproc)}

cmake -S "$KSTR_ROOT" -B "$KSTR_BUILD/native" -DCMAKE_BUILD_TYPE=Debug -DKSTR_SANITIZE=ON >/dev/null
cmake --build "$KSTR_BUILD/native" -j "$jobs"

cmake -S "$KSTR_ROOT" -B "$KSTR_BUILD/win" -DCMAKE_BUILD_TYPE=RelWithDebInfo \
  -DCMAKE_TOOLCHAIN_FILE="$KSTR_ROOT/cmake/mingw-w64-x86_64.cmake" >/dev/null
cmake --build "$KSTR_BUILD/win" -j "$jobs"
