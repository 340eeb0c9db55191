#!/bin/bash
# Renews the pictures of the help file (help/helpimages/) from the running program: the main
# window's tabs with the sample genome, a few editors and dialogs, and the About box. Run it
# from the top of the repository after a build; it builds helix_shots if needed. With python3
# at hand the pictures are then packed smaller, pixel for pixel the same (squeeze-png.py).
#
#   bash scripts/help-pictures.sh [BUILD_DIR]
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:-build}
[ -f "$build/build.ninja" ] || [ -f "$build/Makefile" ] || cmake -S . -B "$build" >/dev/null
cmake --build "$build" -j2 --target helix_shots
pictures=(tab0 tab1 tab2 tab3 tab4 tab5 tab6 frmBrainLobe frmReceptor frmInstinct frmOrgan frmOptions NewGeneForm
          AboutForm)
out=$PWD/help/helpimages   # absolute: the program works in its own folder
mkdir -p "$out"
rm -f "$out"/*.png
QT_QPA_PLATFORM=offscreen "$build/out/helix_shots" "$out" "${pictures[@]}"
for p in "${pictures[@]}"; do
  [ -s "$out/$p.png" ] || { echo "picture $p was not taken" >&2; exit 1; }
done
if command -v python3 >/dev/null; then
  python3 scripts/squeeze-png.py "$out"/*.png
else
  echo "python3 not found: the pictures are left as the program saved them" >&2
fi
echo "renewed: ${pictures[*]}"
