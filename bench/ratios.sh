#!/usr/bin/env bash
# Runs each tessik_bench benchmark at one and two million records, each size in a process of
# its own (so one run's heap does not slow the next), best of two, and prints the 2M/1M ratio
# and the benchmark's own counters (ListingWrite: its time over a plain write of as many bytes).
#
#   bench/ratios.sh [BUILD_DIR] [FILTER]    (default: build/default, every benchmark)
#   RATIO_TIME=cpu bench/ratios.sh ...      processor time instead of wall time, for a machine
#                                           that others share
#   RATIO_RUNS=4 bench/ratios.sh ...        best of four runs instead of two
set -euo pipefail
cd "$(dirname "$0")/.."
bench=${1:-build/default}/bench/tessik_bench
filter=${2:-.}
[ -x "$bench" ] || { echo "build first: cmake --workflow --preset test" >&2; exit 1; }
export TZ=UTC
column=3 # real_time
[ "${RATIO_TIME:-real}" = cpu ] && column=4

# One run of benchmark $1 at size $2: its time in ms, then its counters as name=value.
run() {
  "$bench" --benchmark_filter="^$1/$2(/|\$)" --benchmark_format=csv 2>/dev/null |
    awk -F, -v c="$column" 'NR == 1 { for (i = 11; i <= NF; i++) names[i] = $i; next }
      NR == 2 { line = $c; for (i = 11; i <= NF; i++) { gsub(/"/, "", names[i]);
                line = line " " names[i] "=" $i }; print line }'
}

best() { # the run of benchmark $1 at size $2 with the best time, of RATIO_RUNS
  local best= line
  for _ in $(seq "${RATIO_RUNS:-2}"); do
    line=$(run "$1" "$2")
    if [ -z "$best" ] || awk -v a="${line%% *}" -v b="${best%% *}" 'BEGIN { exit !(a < b) }'; then
      best=$line
    fi
  done
  echo "$best"
}

"$bench" --benchmark_list_tests=true | sed -E 's#/.*##' | sort -u | grep -E "$filter" |
while read -r name; do
  one=$(best "$name" 1000000)
  two=$(best "$name" 2000000)
  awk -v n="$name" -v a="${one%% *}" -v b="${two%% *}" \
    'BEGIN { printf "%-34s 1M %10.1f ms   2M %10.1f ms   ratio %.2f\n", n, a, b, b / a }'
  [ "$one" = "${one#* }" ] || echo "    1M: ${one#* }"
  [ "$two" = "${two#* }" ] || echo "    2M: ${two#* }"
done
