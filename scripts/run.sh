#!/usr/bin/env bash
# Sets up, builds and starts the workbench.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/setup.sh
exec "${BUILD_DIR:-build}/out/helixbench"
