#!/usr/bin/env bash
# Installs what is missing, builds kstrmouse.kmx and starts it under Wine.
#   scripts/run.sh                     with a display: runs MouseTest on this machine's mouse
#   scripts/run.sh --test NAME ...     with a display: any options of kstrmouse.kmx (--help lists them)
# Without a display it runs a scripted demo in a virtual display and leaves the report,
# the log and screenshots in build/demo/.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
source "$here/env.sh"
bash "$here/install-deps.sh"
KSTR_JOBS=${KSTR_JOBS:-$(nproc)}
cmake -S "$KSTR_ROOT" -B "$KSTR_BUILD/win" -DCMAKE_BUILD_TYPE=RelWithDebInfo \
  -DCMAKE_TOOLCHAIN_FILE="$KSTR_ROOT/cmake/mingw-w64-x86_64.cmake" >/dev/null
cmake --build "$KSTR_BUILD/win" -j "$KSTR_JOBS" --target kstrmouse kstrprobe kstrvhid
source "$here/wine-session.sh"
bin="$KSTR_BUILD/win/bin"

if [ -n "${DISPLAY:-}" ] && xdpyinfo >/dev/null 2>&1; then
  kstr_prepare_prefix
  [ $# -eq 0 ] && set -- --test MouseTest
  cd "$bin" && exec wine ./kstrmouse.kmx "$@"
fi

exec python3 "$KSTR_ROOT/scripts/demo.py" "$bin" "$KSTR_BUILD/demo"
