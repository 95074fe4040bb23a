#!/usr/bin/env bash
# Times tessik-find's live view: the same search with its output into a pipe (no view), with
# only the view on a terminal (stdout piped, stderr on a pseudo-terminal made by `script`), and
# with everything on that terminal. Five rounds after a warm-up, in turns; the best CPU time
# (user + system) of tessik-find alone counts, and the ratios are to the piped run.
#
#   bench/live.sh [TREE] [BUILD_DIR]     (default: /usr, build/default)
set -euo pipefail
cd "$(dirname "$0")/.."
tree=${1:-/usr}
host=$(realpath "${2:-build/default}/examples/tessik-find")
[ -x "$host" ] || { echo "build first: cmake --workflow --preset test" >&2; exit 1; }
command -v script >/dev/null || { echo "needs script (util-linux)" >&2; exit 1; }

# The CPU seconds of one run; $1 is how: pipe, view or terminal.
once() {
  local timed="TIMEFORMAT='%3U %3S'; time '$host' '$tree'"
  case $1 in
  pipe) bash -c "$timed" 2>&1 > /dev/null | cat ;;
  view) script -qfec "bash -c \"$timed | cat > /dev/null\"" /dev/null ;;
  terminal) script -qfec "bash -c \"$timed\"" /dev/null ;;
  esac | tr -d '\r' | tail -n 1 | sed 's/.*\x1b\[J//' | awk '{ print $1 + $2 }'
}

declare -A best
for ((round = 0; round <= 5; round++)); do
  for how in pipe view terminal; do
    t=$(once "$how")
    ((round == 0)) || best[$how]=$(awk -v a="$t" -v b="${best[$how]:-1e9}" 'BEGIN { print (a < b) ? a : b }')
  done
done
echo "tessik-find $tree, best CPU of five"
for how in pipe view terminal; do
  awk -v l="$how" -v c="${best[$how]}" -v r="${best[pipe]}" \
    'BEGIN { printf "  %-9s cpu %6.3f s   ratio %.2f\n", l, c, c / r }'
done
