#!/usr/bin/env bash
# Start-up to the first page on generated installs, each run beside a bare Qt
# window, interleaved so that both meet the same load on a shared machine.
#   bench/first_page.sh BUILD_BIN [RUNS]
# Prints the medians of each over RUNS rounds (default 15): the time from
# main to the first page, the whole process's wall time and the peak memory.
set -euo pipefail
bin=${1:?usage: first_page.sh BUILD_BIN [RUNS]}
runs=${2:-15}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export QT_QPA_PLATFORM=offscreen

names=(demo bots618 bots10000)
declare -A installs=(
  [demo]="0 0 14"
  [bots618]="618 300 12500"
  [bots10000]="10000 300 12500"
)
for name in "${names[@]}"; do
  "$bin/first_page" --make "$work/$name" ${installs[$name]} >/dev/null
done

median() { sort -n | awk '{a[NR]=$1} END {print (NR%2 ? a[(NR+1)/2] : (a[NR/2]+a[NR/2+1])/2)}'; }

# One line a run: what the program prints, then the whole process's wall
# time in ms, from before exec to after exit.
timed() {
  local out=$1; shift
  local start=$EPOCHREALTIME
  local line
  line=$("$@")
  local end=$EPOCHREALTIME
  echo "$line wall-ms $(echo "($end - $start) * 1000" | bc -l)" >>"$out"
}

for ((i = 0; i < runs; i++)); do
  timed "$work/bare.txt" "$bin/bare_window"
  for name in "${names[@]}"; do
    timed "$work/$name.txt" "$bin/first_page" "$work/$name"
  done
done

printf '%-10s %16s %16s %10s\n' run first-page-ms whole-process-ms peak-MiB
for name in bare "${names[@]}"; do
  ms=$(awk '{print $2}' "$work/$name.txt" | median)
  wall=$(awk '{print $NF}' "$work/$name.txt" | median)
  kib=$(awk '{print $4}' "$work/$name.txt" | median)
  printf '%-10s %16s %16.1f %10.1f\n' "$name" "$ms" "$wall" "$(echo "$kib / 1024" | bc -l)"
done
# A run that met an error box would load less than asked: show what each loaded.
for name in "${names[@]}"; do
  echo "$name: $(awk '{print "bots", $6, "maps", $8}' "$work/$name.txt" | sort -u | tr '\n' ' ')"
done
