# Sourced by the scripts: where builds, the Wine prefix and the display live.
KSTR_ROOT=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
KSTR_BUILD=${KSTR_BUILD:-$KSTR_ROOT/build}
export WINEPREFIX=${WINEPREFIX:-$KSTR_BUILD/wineprefix}
export WINEDEBUG=${WINEDEBUG:--all}
export WINEDLLOVERRIDES=${WINEDLLOVERRIDES:-mscoree,mshtml=}
export WINEARCH=win64
KSTR_DISPLAY_NUM=${KSTR_DISPLAY_NUM:-99}
