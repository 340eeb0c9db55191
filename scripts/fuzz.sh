#!/usr/bin/env bash
# Builds the libFuzzer targets (fuzz/fuzz_*.cpp) in build-fuzz with clang, AddressSanitizer and
# UndefinedBehaviorSanitizer, and runs each for a bounded time or number of inputs.
#
#   scripts/fuzz.sh                     each target for 60 seconds
#   scripts/fuzz.sh 300                 each target for 300 seconds
#   scripts/fuzz.sh runs=50000          each target for 50,000 inputs
#   scripts/fuzz.sh 120 fuzz_captions   only the named targets
#   scripts/fuzz.sh --merge [target...] fold the finds back into fuzz/corpus, minimised
#
# A target starts from its corpus in the repository, fuzz/corpus/<target>/, and writes what
# it finds to build-fuzz/corpus/<target>/; crashes land in build-fuzz/crashes/, the fuzzer's
# output in build-fuzz/logs/<target>.log. After each target one line sums it up:
#   <target> <inputs> <seconds> <cov>
# Long runs belong under nice (nice -n 10 scripts/fuzz.sh ...): the machine is shared.
set -euo pipefail
cd "$(dirname "$0")/.."

build=build-fuzz
merge=0
if [ "${1:-}" = "--merge" ]; then
  merge=1
  shift
else
  limit="${1:-60}"
  shift || true
  case "$limit" in
    runs=*) bound="-runs=${limit#runs=}" ;;
    -runs=*) bound="$limit" ;;
    *[!0-9]*|"") echo "usage: $0 [seconds | runs=N] [target...] | $0 --merge [target...]" >&2; exit 2 ;;
    *) bound="-max_total_time=$limit" ;;
  esac
fi

launcher=()
command -v ccache >/dev/null && launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
CC=clang CXX=clang++ cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
  -DHELIX_FUZZ=ON -DHELIX_BENCH=OFF "${launcher[@]}" >/dev/null
ninja -C "$build" -j"${JOBS:-2}" fuzz_all

targets=("$@")
if [ ${#targets[@]} -eq 0 ]; then
  for f in "$build"/fuzz/fuzz_*; do
    [ -f "$f" ] && [ -x "$f" ] && targets+=("$(basename "$f")")
  done
fi

# The longest input worth trying. A genome input of 4,096 bytes holds from a dozen genes to a
# hundred and fifty; a whole 36,001-byte block costs as much as forty short inputs under the
# sanitizers and reaches nothing new but the block's ends (the last gene slot, writes past the
# end, the pickle question), which tests/core/test_session.cpp walks. A
# caption file of empty records is 21,616 bytes. The other files are whole at a few hundred
# bytes, and libFuzzer's default (4096, or the longest seed) serves. A note is read a character
# at a time: a kilobyte holds hundreds of groups and control words, and twice the inputs a
# second of 4 KiB ones.
max_len() {
  case "$1" in
    fuzz_genome|fuzz_genome_older) echo "-max_len=4096" ;;
    fuzz_captions) echo "-max_len=32768" ;;
    fuzz_notes) echo "-max_len=1024" ;;
  esac
}

mkdir -p "$build/crashes" "$build/logs"
status=0
for t in "${targets[@]}"; do
  bin="$build/fuzz/$t"
  [ -x "$bin" ] || { echo "no fuzz target $t in $build/fuzz" >&2; status=2; continue; }
  seeds="fuzz/corpus/$t"
  finds="$build/corpus/$t"
  mkdir -p "$seeds" "$finds"

  if [ $merge -eq 1 ]; then
    # Everything known, seeds and finds, minimised into a fresh folder that replaces the seeds.
    # Only new edges count here, not how often an edge ran, which keeps the corpus in the
    # repository to a few dozen files; the finds with every count stay in build-fuzz.
    fresh="$build/merge/$t"
    rm -rf "$fresh"
    mkdir -p "$fresh"
    "$bin" -merge=1 -use_counters=0 $(max_len "$t") -timeout=10 -rss_limit_mb=2048 "$fresh" "$seeds" "$finds" \
      >"$build/logs/$t-merge.log" 2>&1 || { echo "$t: merge failed, see $build/logs/$t-merge.log" >&2; status=1; continue; }
    rm -rf "$seeds"
    mv "$fresh" "$seeds"
    echo "$t $(ls "$seeds" | wc -l) files $(du -sk "$seeds" | cut -f1) KB"
    continue
  fi

  log="$build/logs/$t.log"
  start=$SECONDS
  rc=0
  # New finds go to the first folder; the seeds are only read.
  "$bin" "$finds" "$seeds" "$bound" $(max_len "$t") -timeout=10 -rss_limit_mb=2048 \
    -print_final_stats=1 -artifact_prefix="$build/crashes/$t-" >"$log" 2>&1 || rc=$?
  seconds=$((SECONDS - start))
  inputs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log" | tail -1)
  cov=$(grep -o 'cov: [0-9]*' "$log" | tail -1 | cut -d' ' -f2)
  echo "$t ${inputs:-?} $seconds ${cov:-?}"
  if [ $rc -ne 0 ]; then
    echo "$t failed ($rc); the end of $log:" >&2
    tail -30 "$log" >&2
    status=$rc
  fi
done
exit $status
