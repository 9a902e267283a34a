#!/usr/bin/env bash
# Installs what the build and the tests need from Debian's archive, or the packages named as
# arguments; quiet when all is there.
set -euo pipefail

wanted=("$@")
if [ ${#wanted[@]} -eq 0 ]; then
  wanted=(cmake g++ make libgtest-dev googletest g++-mingw-w64-x86-64-posix
          binutils-mingw-w64-x86-64 wine wine64 xvfb xdotool xauth x11-utils
          imagemagick librsvg2-bin fonts-liberation fonts-dejavu-core python3 nlohmann-json3-dev)
fi
need=()
have() { dpkg-query -W -f='${Status}' "$1" 2>/dev/null | grep -q 'install ok installed'; }
for pkg in "${wanted[@]}"; do
  have "$pkg" || need+=("$pkg")
done
[ ${#need[@]} -eq 0 ] && exit 0

if [ "$(id -u)" -ne 0 ]; then
  echo "missing packages: ${need[*]} (run as root, or install them with apt-get)" >&2
  exit 1
fi
echo "installing: ${need[*]}"
export DEBIAN_FRONTEND=noninteractive
apt-get update -q >/dev/null
apt-get install -y -q --no-install-recommends "${need[@]}" >/dev/null
