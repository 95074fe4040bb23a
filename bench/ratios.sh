#!/usr/bin/env bash
# Runs each tessik_bench benchmark at one and two million records, each size in a process of
# its own (so one run's heap does not slow the next), best of two, and prints the 2M/1M ratio.
#
#   bench/ratios.sh [BUILD_DIR] [FILTER]    (default: build/default, every benchmark)
set -euo pipefail
cd "$(dirname "$0")/.."
bench=${1:-build/default}/bench/tessik_bench
filter=${2:-.}
[ -x "$bench" ] || { echo "build first: cmake --workflow --preset test" >&2; exit 1; }
export TZ=UTC

best() { # best time in ms of two runs of benchmark $1 at size $2
  local best=
  for _ in 1 2; do
    local t
    t=$("$bench" --benchmark_filter="^$1/$2(/|\$)" --benchmark_format=csv 2>/dev/null |
        awk -F, 'NR > 1 { print $3 }' | head -n 1)
    if [ -z "$best" ] || awk -v a="$t" -v b="$best" 'BEGIN { exit !(a < b) }'; then best=$t; fi
  done
  echo "$best"
}

"$bench" --benchmark_list_tests=true | sed -E 's#/.*##' | sort -u | grep -E "$filter" |
while read -r name; do
  one=$(best "$name" 1000000)
  two=$(best "$name" 2000000)
  awk -v n="$name" -v a="$one" -v b="$two" \
    'BEGIN { printf "%-34s 1M %10.1f ms   2M %10.1f ms   ratio %.2f\n", n, a, b, b / a }'
done
