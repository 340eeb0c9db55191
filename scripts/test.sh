#!/usr/bin/env bash
# Sets up, builds and runs the whole test suite (offscreen, under a private session bus).
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/setup.sh
cd "${BUILD_DIR:-build}"
export QT_QPA_PLATFORM=offscreen
exec dbus-run-session -- ctest --output-on-failure -j2
