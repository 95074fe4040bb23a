#!/usr/bin/env bash
# Times tessik against find and grep on the same trees, in one run, and prints the ratios.
#
#   bench/compare.sh [BUILD_DIR]     (default: build/default)
#
# Makes two trees under $TMPDIR (or /tmp) unless they exist: 160,000 entries of small files for
# the walk, and about 120 MB of text for the content search. Each command runs five times after
# a warm-up; the best wall time counts.
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:-build/default}
walk="$build/bench/tessik_walk"
[ -x "$walk" ] || { echo "build first: cmake --workflow --preset test" >&2; exit 1; }
base=${TMPDIR:-/tmp}/tessik-bench
entries=$base/entries
text=$base/text

if [ ! -d "$entries" ]; then
  echo "making $entries (160,000 entries)"
  python3 - "$entries" <<'PY'
import os, sys
root = sys.argv[1]
for a in range(40):
    for b in range(40):
        d = os.path.join(root, f"dir{a:02}", f"sub{b:02}")
        os.makedirs(d)
        for f in range(98):
            with open(os.path.join(d, f"file{f:03}.txt"), "w") as out:
                out.write("x" * (f % 7))
PY
fi
if [ ! -d "$text" ]; then
  echo "making $text (about 120 MB)"
  python3 - "$text" <<'PY'
import os, random, sys
root = sys.argv[1]
random.seed(7)
words = [''.join(random.choice('abcdefghijklmnopqrstuvwxyz') for _ in range(random.randint(2, 9)))
         for _ in range(5000)]
for d in range(30):
    os.makedirs(os.path.join(root, f"d{d:02}"))
    for f in range(100):
        line = ' '.join(random.choice(words) for _ in range(12)) + '\n'
        with open(os.path.join(root, f"d{d:02}", f"f{f:03}.txt"), "w") as out:
            out.write(line * (40000 // len(line) * random.randint(1, 2)))
PY
fi

best() { # best wall time in seconds of five runs of "$@", output thrown away
  "$@" > /dev/null
  local best=999999
  for _ in 1 2 3 4 5; do
    local start end
    start=$(date +%s.%N)
    "$@" > /dev/null
    end=$(date +%s.%N)
    best=$(echo "$end - $start" | bc -l | awk -v b="$best" '{ print ($1 < b) ? $1 : b }')
  done
  echo "$best"
}

count=$(find "$entries" | wc -l)
du_text=$(du -sm "$text" | cut -f1)
t_find=$(best find "$entries" -printf '%s %T@ %p\n')
t_walk=$(best "$walk" list "$entries")
t_count=$(best "$walk" count "$entries")
t_grep=$(best grep -rlF zzzqqqzzz "$text")
t_tgrep=$(best "$walk" grep zzzqqqzzz "$text")
rss() { /usr/bin/time -f %M "$@" 2>&1 > /dev/null | tail -n 1; }
rss_list=$(rss "$walk" list "$entries")
rss_count=$(rss "$walk" count "$entries")

printf 'walk of %s entries:   find %.3f s   tessik %.3f s   ratio %.2f\n' \
  "$count" "$t_find" "$t_walk" "$(echo "$t_walk / $t_find" | bc -l)"
printf 'the same walk, counting only:   find %.3f s   tessik %.3f s   ratio %.2f\n' \
  "$t_find" "$t_count" "$(echo "$t_count / $t_find" | bc -l)"
printf 'content search, %s MB: grep %.3f s   tessik %.3f s   ratio %.2f\n' \
  "$du_text" "$t_grep" "$t_tgrep" "$(echo "$t_tgrep / $t_grep" | bc -l)"
printf 'peak memory: %s KiB storing, %s KiB counting: %.0f bytes a stored record\n' \
  "$rss_list" "$rss_count" "$(echo "($rss_list - $rss_count) * 1024 / $count" | bc -l)"
