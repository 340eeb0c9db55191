#!/usr/bin/env bash
# Builds the libFuzzer targets (fuzz/fuzz_*.cpp) in build-fuzz with clang, AddressSanitizer and
# UndefinedBehaviorSanitizer, and runs each for a bounded time or number of runs.
#
#   scripts/fuzz.sh            each target for 60 seconds
#   scripts/fuzz.sh 300        each target for 300 seconds
#   scripts/fuzz.sh runs=50000 each target for 50,000 inputs
#   scripts/fuzz.sh 120 fuzz_decode   only the named targets
#
# Each target keeps its corpus in build-fuzz/corpus/<target>; crashes land in build-fuzz/crashes.
set -euo pipefail
cd "$(dirname "$0")/.."

limit="${1:-60}"
shift || true
case "$limit" in
  runs=*) bound="-runs=${limit#runs=}" ;;
  -runs=*) bound="$limit" ;;
  *[!0-9]*|"") echo "usage: $0 [seconds | runs=N] [target...]" >&2; exit 2 ;;
  *) bound="-max_total_time=$limit" ;;
esac

build=build-fuzz
CC=clang CXX=clang++ cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
  -DHELIX_FUZZ=ON -DHELIX_BENCH=OFF >/dev/null
ninja -C "$build" -j"${JOBS:-2}" fuzz_all

targets=("$@")
if [ ${#targets[@]} -eq 0 ]; then
  for f in "$build"/fuzz/fuzz_*; do
    [ -f "$f" ] && [ -x "$f" ] && targets+=("$(basename "$f")")
  done
fi

# Seeds for the genome reader: an empty genome, one gene of every kind in the current format,
# a genome past the out-of-space mark, and (first byte odd) a lobe and an appearance in the
# older format.
seed_genomes() {
  local dir="$1"
  mkdir -p "$dir"
  local hdr='gene'
  printf '\x00dna2gend' >"$dir/seed-empty"
  {
    printf '\x00dna2'
    printf "${hdr}"'\x00\x00\x01\x00\x00\x07\x80'; printf '\x00\x00\x01\x01'; head -c 192 /dev/zero
    printf "${hdr}"'\x00\x01\x01\x00\x00\x07\x80\x80\x0a\x80\x40\x02'
    printf "${hdr}"'\x01\x00\x01\x00\x00\x07\x80\x00\x00\x00\x01\x00\x00\xff\x00'
    printf "${hdr}"'\x01\x01\x01\x00\x00\x07\x80\x00\x00\x00\x01\x00\x01\xff\x00'
    printf "${hdr}"'\x01\x02\x01\x00\x00\x07\x80\x01\x01\x01\x02\x01\x03\x01\x04\x20'
    printf "${hdr}"'\x01\x03\x01\x00\x00\x07\x80'; head -c 256 /dev/zero
    printf "${hdr}"'\x01\x04\x01\x00\x00\x07\x80\x05\x40'
    printf "${hdr}"'\x02\x00\x01\x00\x00\x07\x80\x01\x00\xff\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00'
    printf "${hdr}"'\x02\x01\x01\x00\x00\x07\x80\x00EVE_ADAM'
    printf "${hdr}"'\x02\x02\x01\x00\x00\x07\x80\x00\x00\x00'
    printf "${hdr}"'\x02\x03\x01\x00\x00\x07\x80\x00XXXXXXXXXXXXXXX'
    printf "${hdr}"'\x02\x04\x01\x00\x00\x07\x80\x00\x01\x02\x03\x04\x05\x06\x07\x08'
    printf "${hdr}"'\x02\x05\x01\x00\x00\x07\x80\x00\x01\x01\x02\x02\x03\x04\x05\x06'
    printf "${hdr}"'\x02\x06\x01\x00\x00\x07\x80\x00\x80'
    printf "${hdr}"'\x02\x07\x01\x00\x00\x07\x80\x00\x80'
    printf "${hdr}"'\x03\x00\x01\x00\x00\x07\x80\x80\x14\x80\x40\x80'
    printf 'gend'
  } >"$dir/seed-every-kind"
  # Near the end of the block: 134 half-lives genes pass the out-of-space mark.
  {
    printf '\x00dna2'
    for _ in $(seq 134); do printf "${hdr}"'\x01\x03\x01\x00\x00\x07\x80'; head -c 256 /dev/zero; done
    printf 'gend'
  } >"$dir/seed-long"
  {
    printf '\x01'
    printf "${hdr}"'\x00\x00\x01\x00\x00\x07'; printf '\x00\x00\x01\x01'; head -c 108 /dev/zero
    printf "${hdr}"'\x02\x02\x01\x00\x00\x07\x00\x00'
    printf 'gend'
  } >"$dir/seed-older"
}

# One entry of a list file: its 16-bit little-endian length, then its (ASCII) text.
list_entry() {
  local n=${#1}
  printf "\\x$(printf %02x $((n & 255)))\\x$(printf %02x $((n >> 8)))%s" "$1"
}

# A script list: 20 empty scripts and the unused 21st, then their macros, the first written.
script_list() {
  local i
  for i in $(seq 20); do list_entry '<empty>'; done; list_entry ''
  list_entry 'inst'; for i in $(seq 20); do list_entry ''; done
}

# Seeds for the list reader: (first byte 0) the chemical list's defaults with a few captions,
# high bytes among them, and (1) the script list; through the loader (odd, 0xF1 up) the script
# list whole (0xF1) and one that ends inside an entry (0xF3); and a 257-entry list cut short.
seed_lists() {
  local dir="$1" i
  mkdir -p "$dir"
  {
    printf '\x00'
    list_entry '<none>'; for i in $(seq 255); do list_entry "$i"; done; list_entry ''
    list_entry ''; printf '\x04\x00Caf\xe9'; printf '\x03\x00\x80\x81\x9d'
    for i in $(seq 254); do list_entry ''; done
  } >"$dir/seed-chemicals"
  { printf '\x01'; script_list; } >"$dir/seed-scripts"
  { printf '\xf1'; script_list; printf 'behind the list'; } >"$dir/seed-scripts-loaded"
  { printf '\xf3'; head -c 150 < <(script_list); } >"$dir/seed-scripts-short"
  { printf '\x02'; head -c 1004 "$dir/seed-chemicals" | tail -c +2; } >"$dir/seed-list-short"
}

# Seeds for the template reader: the presets (first byte 0), the presets through the loader
# with a negative last row and a tail behind (1), and a short file for the loader to mend.
template_presets() {
  local v
  for v in 27 43 59 8 26 4 104 19 8 12 0 8 12 0; do printf "\\x$(printf %02x "$v")\\x00\\x00\\x00"; done
}
seed_template() {
  local dir="$1"
  mkdir -p "$dir"
  { printf '\x00'; template_presets; head -c 108 /dev/zero; } >"$dir/seed-presets"
  { printf '\x01'; template_presets; head -c 104 /dev/zero; printf '\xf9\xff\xff\xfftail'; } >"$dir/seed-loaded"
  printf '\x01\x05\x00\x00\x00\x06\x00\x00\x00\x07\x00' >"$dir/seed-short"
}

mkdir -p "$build/crashes"
status=0
for t in "${targets[@]}"; do
  corpus="$build/corpus/$t"
  mkdir -p "$corpus"
  case "$t" in
    fuzz_decode) seed_genomes "$corpus" ;;
    fuzz_lists) seed_lists "$corpus" ;;
    fuzz_template) seed_template "$corpus" ;;
  esac
  echo "== $t ($bound)"
  "$build/fuzz/$t" "$corpus" "$bound" -max_len=36002 -timeout=10 -rss_limit_mb=2048 \
    -print_final_stats=1 -artifact_prefix="$build/crashes/$t-" || status=$?
done
exit $status
