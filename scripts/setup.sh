#!/usr/bin/env bash
# Installs what the build needs (Debian packages, only those missing), then configures and
# builds. Environment: BUILD_DIR (default build), SANITIZE=1 for an ASan+UBSan build.
set -euo pipefail
cd "$(dirname "$0")/.."

packages=(g++ cmake ninja-build pkg-config qt6-base-dev libgl-dev dbus xvfb xauth clang libclang-rt-14-dev libbenchmark-dev)
missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
  echo "Installing: ${missing[*]}"
  SUDO=""
  [ "$(id -u)" -eq 0 ] || SUDO=sudo
  $SUDO apt-get update -qq
  DEBIAN_FRONTEND=noninteractive $SUDO apt-get install -y -qq "${missing[@]}" >/dev/null
fi

BUILD_DIR=${BUILD_DIR:-build}
args=(-G Ninja -DCMAKE_BUILD_TYPE=${BUILD_TYPE:-RelWithDebInfo})
if [ "${SANITIZE:-0}" = 1 ]; then
  args+=(-DHELIX_SANITIZE=ON -DHELIX_BENCH=OFF)
fi
cmake -S . -B "$BUILD_DIR" "${args[@]}" >/dev/null
cmake --build "$BUILD_DIR" -j2
