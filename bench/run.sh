#!/usr/bin/env bash
# Builds the benchmarks and runs them under Wine in a virtual display; prints their figures.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
source "$root/scripts/env.sh"
bash "$root/scripts/install-deps.sh"
cmake -S "$root" -B "$KSTR_BUILD/win" -DCMAKE_BUILD_TYPE=RelWithDebInfo \
  -DCMAKE_TOOLCHAIN_FILE="$root/cmake/mingw-w64-x86_64.cmake" >/dev/null
cmake --build "$KSTR_BUILD/win" -j "$(nproc)" --target mouse_dialog_bench click_test_input_bench \
  click_test_paint_bench touchpad_packet_bench trackpoint_repaint_bench startup_bench pointer_quality_bench \
  pointer_quality_flood_bench touchpad_quality_bench touchpad_quality_flood_bench hybrid_touchpad_bench \
  live_touchpad_bench kstrvhid kstrmouse_soak kstrmouse kstrprobe \
  bare_screen_change
source "$root/scripts/wine-session.sh"
unset DISPLAY
kstr_start_display
kstr_prepare_prefix
trap kstr_stop_session EXIT
cd "$KSTR_BUILD/win/bin"
wine "$KSTR_BUILD/win/bench/mouse_dialog_bench.exe"
wine "$KSTR_BUILD/win/bench/click_test_input_bench.exe"
wine "$KSTR_BUILD/win/bench/click_test_paint_bench.exe"
wine "$KSTR_BUILD/win/bench/touchpad_packet_bench.exe"
wine "$KSTR_BUILD/win/bench/trackpoint_repaint_bench.exe"
wine "$KSTR_BUILD/win/bench/startup_bench.exe"
wine "$KSTR_BUILD/win/bench/pointer_quality_bench.exe"
wine "$KSTR_BUILD/win/bench/pointer_quality_flood_bench.exe"
wine "$KSTR_BUILD/win/bench/touchpad_quality_bench.exe"
wine "$KSTR_BUILD/win/bench/touchpad_quality_flood_bench.exe"
wine "$KSTR_BUILD/win/bench/hybrid_touchpad_bench.exe"
# The live touchpad: the virtual touchpad of the tests installed with a shipping pad's collection.
vhid="$KSTR_BUILD/win/vhid/kstrvhid.exe"
wine "$vhid" remove --all >/dev/null
wine "$vhid" install "$root/tests/data/hid-descriptors/synaptics_06cb_ce08.rdesc" --id 06CB:CE08 | head -1
wine "$KSTR_BUILD/win/bench/live_touchpad_bench.exe" 06CB:CE08 synaptics_06cb_ce08.rdesc
wine "$vhid" remove --all >/dev/null
# The soak: its figures and its verdict, without the host's line per run.
wine "$KSTR_BUILD/win/tests/win/soak/kstrmouse_soak.exe" | grep -v -e ': PASS; no events' -e '^\[ RUN'
# Latency to the screen: real input through the X server, the pixels read back (last: it ends the
# Wine session it shares).
KSTR_BUILD="$KSTR_BUILD" python3 "$root/bench/screen_latency.py"
