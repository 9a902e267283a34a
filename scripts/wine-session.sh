# Sourced: a virtual display and a ready Wine prefix for GUI runs and tests.
# shellcheck source=env.sh
source "$(dirname "${BASH_SOURCE[0]}")/env.sh"

kstr_start_display() {
  if [ -n "${DISPLAY:-}" ] && xdpyinfo >/dev/null 2>&1; then return 0; fi
  export DISPLAY=:$KSTR_DISPLAY_NUM
  if ! xdpyinfo >/dev/null 2>&1; then
    Xvfb "$DISPLAY" -screen 0 1280x1024x24 -nolisten tcp >/dev/null 2>&1 &
    KSTR_XVFB_PID=$!
    for _ in $(seq 50); do xdpyinfo >/dev/null 2>&1 && break; sleep 0.1; done
  fi
}

kstr_prepare_prefix() {
  if [ ! -f "$WINEPREFIX/.kstr-ready-2" ]; then
    mkdir -p "$WINEPREFIX"
    wineserver -k 2>/dev/null || true   # "wineserver -w" below must not wait on a kept-up server
    wineboot -i >/dev/null 2>&1 || true
    wineserver -w || true
    # A crashing program must fail, not wait on a crash dialog.
    wine reg add 'HKLM\Software\Microsoft\Windows NT\CurrentVersion\AeDebug' \
      /v Debugger /t REG_SZ /d false /f >/dev/null 2>&1
    # Without a window manager, hiding a managed window waits 2 s for one to answer.
    wine reg add 'HKCU\Software\Wine\X11 Driver' /v Managed /t REG_SZ /d N /f >/dev/null 2>&1
    wineserver -w || true
    touch "$WINEPREFIX/.kstr-ready-2"
  fi
  # Keep one wineserver up; the first process starts services that would
  # otherwise inherit a caller's pipes.
  wineserver -p 300 2>/dev/null || true
  wine cmd /c exit >/dev/null 2>&1 || true
}

kstr_stop_session() {
  wineserver -k >/dev/null 2>&1 || true
  if [ -n "${KSTR_XVFB_PID:-}" ]; then kill "$KSTR_XVFB_PID" 2>/dev/null || true; fi
}
