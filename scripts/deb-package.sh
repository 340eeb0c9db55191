#!/bin/bash
# Makes the Debian package with CPack and checks it: the files in their places and the Qt 6
# runtime declared. With --install it also installs the package with apt, starts the
# installed program for a few seconds (under xvfb-run, or offscreen without it) and removes
# the package again.
#
#   bash scripts/deb-package.sh [--install] [BUILD_DIR]
#
# BUILD_DIR (default build-deb) is configured so that packaging builds only what the package
# holds (the program and the stand-in), not the tests and benchmarks. In a build folder where
# everything is built already, `cpack -G DEB` alone does the same.
set -euo pipefail
cd "$(dirname "$0")/.."
install=no
if [ "${1:-}" = "--install" ]; then install=yes; shift; fi
build=${1:-build-deb}

[ -f /work/ccache-env.sh ] && source /work/ccache-env.sh
if [ ! -f "$build/CMakeCache.txt" ]; then
  launcher=()
  command -v ccache >/dev/null && launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
  cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DHELIX_BENCH=OFF \
        -DCMAKE_SKIP_INSTALL_ALL_DEPENDENCY=ON "${launcher[@]}" >/dev/null
fi
cmake --build "$build" -j2 --target helixbench habitat-standin
rm -f "$build"/helixbench_*.deb
(cd "$build" && cpack -G DEB >/dev/null)
deb=$(ls "$build"/helixbench_*.deb)
echo "package: $deb ($(stat -c %s "$deb") bytes)"

fail=0
check() { if eval "$2"; then echo "ok   $1"; else echo "FAIL $1"; fail=1; fi; }
contents=$(dpkg -c "$deb")
info=$(dpkg -I "$deb")
depends=$(dpkg-deb -f "$deb" Depends)
has() { grep -qE "$1" <<<"$contents"; }

for f in /usr/lib/helixbench/helixbench /usr/lib/helixbench/habitat-standin /usr/lib/helixbench/Helixbench.hlp \
         /usr/lib/helixbench/chemicals.txt /usr/lib/helixbench/chemicals.def /usr/lib/helixbench/posename.txt \
         /usr/lib/helixbench/posename.def /usr/lib/helixbench/scriptnames.txt /usr/lib/helixbench/mutations.txt \
         /usr/lib/helixbench/Melk.GNO /usr/lib/helixbench/samples/Sample.gen /usr/lib/helixbench/samples/Sample.gno \
         /usr/lib/helixbench/helpimages/tab0.png \
         /usr/share/applications/helixbench.desktop /usr/share/metainfo/helixbench.metainfo.xml \
         /usr/share/icons/hicolor/scalable/apps/helixbench.svg; do
  check "holds $f" "has ' \.$f\$'"
done
check "the program is executable" "grep -qE '^-rwxr-xr-x .* \./usr/lib/helixbench/helixbench\$' <<<\"\$contents\""
check "/usr/bin/helixbench links to the program" "has ' \./usr/bin/helixbench -> \.\./lib/helixbench/helixbench\$'"
check "every help picture the help shows is packed" \
      "[ \$(grep -c '/usr/lib/helixbench/helpimages/.*\.png\$' <<<\"\$contents\") -eq \$(ls help/helpimages/*.png | wc -l) ]"
check "nothing outside /usr" "! grep -vE ' \./(usr(/.*)?)?\$| \./usr/bin/helixbench -> ' <<<\"\$contents\" | grep -q ."
for lib in libqt6core6 libqt6gui6 libqt6widgets6 libqt6dbus6 libc6 libstdc\\+\\+6; do
  check "depends on $lib" "grep -qE '(^|, )$lib( |,|\$)' <<<\"\$depends\""
done
check "package name and architecture" "grep -qE '^ Package: helixbench\$' <<<\"\$info\" && grep -qE '^ Architecture: amd64|arm64|i386' <<<\"\$info\""
check "the launcher runs helixbench from the menu" \
      "dpkg-deb --fsys-tarfile \"$deb\" | tar -xO ./usr/share/applications/helixbench.desktop | grep -qx 'Exec=helixbench'"
echo "Depends: $depends"

if [ "$install" = yes ]; then
  echo "--- installing"
  apt-get install -y "./$deb" </dev/null >/tmp/helixbench-apt.log 2>&1 || { tail -20 /tmp/helixbench-apt.log; exit 1; }
  check "installed: dpkg knows it" "dpkg -s helixbench | grep -q '^Status: install ok installed'"
  check "installed: helixbench on the PATH" "[ \"\$(command -v helixbench)\" = /usr/bin/helixbench ]"
  if command -v desktop-file-validate >/dev/null; then
    check "installed: the desktop file is valid" "desktop-file-validate /usr/share/applications/helixbench.desktop"
  else
    echo "skip the desktop file's validation (no desktop-file-validate; Debian package desktop-file-utils)"
  fi
  home=$(mktemp -d)
  # The installed program is started from the PATH as the menu's launcher starts it, left
  # running for 5 s and then ended by its own process id. Under xvfb-run the windows it put
  # on the screen are listed too.
  cat >"$home/start.sh" <<'INNER'
helixbench >"$HOME/out.log" 2>&1 &
pid=$!
sleep 5
if kill -0 "$pid" 2>/dev/null; then echo running; else echo "ended early"; fi
command -v xwininfo >/dev/null && [ -n "${DISPLAY:-}" ] && xwininfo -root -tree | grep -o '"Helixbench[^"]*"' | sort -u | sed 's/^/window /'
kill "$pid" 2>/dev/null
wait "$pid" 2>/dev/null
exit 0
INNER
  if command -v xvfb-run >/dev/null; then
    HOME=$home XDG_CONFIG_HOME=$home/.config xvfb-run -a sh "$home/start.sh" >"$home/report" 2>&1
  else
    HOME=$home XDG_CONFIG_HOME=$home/.config QT_QPA_PLATFORM=offscreen sh "$home/start.sh" >"$home/report" 2>&1
  fi
  sed 's/^/    /' "$home/report"
  check "installed: the program started and is running after 5 s" "grep -qx running '$home/report'"
  if command -v xvfb-run >/dev/null && command -v xwininfo >/dev/null; then
    check "installed: it shows a window titled Helixbench" "grep -q '^window \"Helixbench' '$home/report'"
  fi
  sed 's/^/    program: /' "$home/out.log" | head -10
  rm -rf "$home"
  apt-get remove -y helixbench </dev/null >/dev/null 2>&1
  check "removed again" "! dpkg -s helixbench >/dev/null 2>&1 || dpkg -s helixbench | grep -q 'deinstall'"
fi
exit $fail
