#!/usr/bin/env bash
# Times tessik against find and grep on the same trees, in one run, and prints the ratios.
#
#   bench/compare.sh [BUILD_DIR]     (default: build/default)
#
# Makes two trees under $TMPDIR (or /tmp) unless they exist: 160,000 entries of small files for
# the walk, and about 120 MB of text for the content search; /usr and /usr/include are searched
# too where they exist. The commands on one tree run in turns, five rounds after a warm-up, so
# the load of the machine falls on all of them alike; the best wall time and the best CPU time
# (user + system) of each count, and the ratios are of CPU time. Each tree is also walked by
# tessik_floor, which makes only the system calls a search needs and builds no records: how far
# tessik is from it is what tessik itself costs.
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:-build/default}
walk="$build/bench/tessik_walk"
floor="$build/bench/tessik_floor" # the same walks from system calls alone: the floor
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

TIMEFORMAT='%3R %3U %3S' # wall, user and system seconds of `time`, to the millisecond
# Runs the commands given as "label|command" in turns and prints, for each, its best wall and
# CPU time and its CPU time over that of the first command.
compare() {
  local title=$1; shift
  local -a wall cpu
  local i round
  for ((round = 0; round <= 5; round++)); do
    i=0
    for run in "$@"; do
      local times w c
      times=$( { time bash -c "${run#*|} > /dev/null 2>&1; exit 0"; } 2>&1 | tail -n 1)
      w=$(awk '{ print $1 }' <<< "$times")
      c=$(awk '{ print $2 + $3 }' <<< "$times")
      if ((round > 0)); then # round 0 warms the caches
        wall[i]=$(awk -v a="$w" -v b="${wall[i]:-1e9}" 'BEGIN { print (a < b) ? a : b }')
        cpu[i]=$(awk -v a="$c" -v b="${cpu[i]:-1e9}" 'BEGIN { print (a < b) ? a : b }')
      fi
      i=$((i + 1))
    done
  done
  echo "$title"
  i=0
  for run in "$@"; do
    awk -v l="${run%%|*}" -v w="${wall[i]}" -v c="${cpu[i]}" -v r="${cpu[0]}" \
      'BEGIN { printf "  %-26s wall %7.3f s   cpu %7.3f s   cpu ratio %.2f\n", l, w, c, (r > 0) ? c / r : 0 }'
    i=$((i + 1))
  done
}

listing() { # the walk of a tree: find, tessik storing, tessik counting
  compare "walk of $1 ($(find "$1" 2>/dev/null | wc -l) entries)" \
    "find -printf|find '$1' -printf '%s %T@ %p\n'" \
    "tessik, storing|'$walk' list '$1'" \
    "tessik, counting|'$walk' count '$1'" \
    "floor: system calls alone|'$floor' list '$1'"
}
content() { # a search for a text that no file holds
  compare "content search of $1 ($(du -sm "$1" 2>/dev/null | cut -f1) MB)" \
    "grep -rlF|grep -rlF zzzqqqzzz '$1'" \
    "tessik|'$walk' grep zzzqqqzzz '$1'" \
    "floor: system calls alone|'$floor' grep zzzqqqzzz '$1'"
}
memory() { # bytes a stored record costs beyond its path text: peak memory storing less counting
  local stored counted count text
  stored=$(/usr/bin/time -f %M "$walk" list "$1" 2>&1 > /dev/null | tail -n 1)
  counted=$(/usr/bin/time -f %M "$walk" count "$1" 2>&1 > /dev/null | tail -n 1)
  count=$("$walk" list "$1" | wc -l)
  text=$("$walk" list "$1" | cut -d' ' -f3- | wc -c) # each path and its end, as the zero
  awk -v s="$stored" -v c="$counted" -v n="$count" -v t="$text" -v d="$1" \
    'BEGIN { printf "memory of %s: %d KiB storing, %d KiB counting: %.0f bytes a record beyond its path text\n", d, s, c, ((s - c) * 1024 - t) / n }'
}

listing "$entries"
[ -d /usr ] && listing /usr
content "$text"
[ -d /usr/include ] && content /usr/include
memory "$entries"
[ -d /usr ] && memory /usr
