#!/usr/bin/env bash
# A smoke test of the example host as a person runs it, output into a pipe: help, exit statuses,
# one search, one saved listing and its changes. The search itself is the library's, tested on its
# own.
#
#   tests/host/smoke.sh HOST [RUNNER...]    e.g. build/default/examples/tessik-find
#                                           or  build/windows/bin/tessik-find.exe wine
set -u
host=$(realpath "$1")
shift
runner=("$@")
tree=$(mktemp -d "${TMPDIR:-/tmp}/tessik-smoke-XXXXXX")
trap 'rm -rf "$tree"' EXIT
export TZ=UTC WINEDEBUG=-all
failures=0

# find ARGS...: runs the host in $tree/t; sets $out and $status.
find() {
  local result
  result=$(cd "$tree/t" && "${runner[@]}" "$host" "$@" 2>/dev/null; echo "/$?")
  status=${result##*/}
  out=$(printf '%s' "${result%/*}" | tr -d '\r')
}
fail() { # WHAT EXPECTED ACTUAL
  printf 'FAILED: %s\n  expected: %s\n  actual:   %s\n' "$1" "$2" "$3" >&2
  failures=$((failures + 1))
}
expect() { # WHAT EXPECTED ACTUAL
  [ "$2" = "$3" ] || fail "$@"
}
expect_beginnings() { # WHAT LINE...: each line of $out begins with the one given
  local what=$1 i=0 lines
  shift
  mapfile -t lines <<<"$out"
  [ "${#lines[@]}" -eq $# ] || fail "$what: lines" "$#" "${#lines[@]}"
  for start; do
    [[ ${lines[i]-} == "$start"* ]] || fail "$what: line $((i + 1))" "$start..." "${lines[i]-}"
    i=$((i + 1))
  done
}
windows() { # the path below the tree as the host shows it
  printf 'Z:%s' "$tree/$1" | tr / '\\'
}

mkdir -p "$tree/t/sub"
printf 'hello world' >"$tree/t/a.txt"
: >"$tree/t/old.txt"
truncate -s 5G "$tree/t/huge" # its low 32 bits say 1 GiB
head -c 2000 /dev/zero | tr '\0' x >"$tree/t/sub/b.log"
touch -d @1500000000 "$tree/t/sub/b.log" # 2017-07-14 02:40:00
for entry in a.txt old.txt huge sub .; do touch -d @1700000000 "$tree/t/$entry"; done

find --help
expect "--help status" 0 "$status"
case $out in *--changes*) ;; *) expect "--help names --changes" "--changes" "$out" ;; esac
find --size 5..2
expect "status of a bad size range" 2 "$status"
find gone
expect "status of a missing start directory" 1 "$status"
find
expect "status of a search" 0 "$status"
recent="2023-11-14 22:13:20  "
expect "listing" "-D-------           0  $recent$(windows t/sub)
--A------          11  $recent$(windows t/a.txt)
--A------  5368709120  $recent$(windows t/huge)
--A------           0  $recent$(windows t/old.txt)
--A------        2000  2017-07-14 02:40:00  $(windows t/sub/b.log)" "$out"

# Save, change the tree, --changes lists each kind with status 1 (as diff); after saving anew,
# nothing and 0.
saved=$tree/t.tsk
find --save "$saved"
expect "status of --save" 0 "$status"
find --changes "$saved"
expect "status of --changes, nothing changed" 0 "$status"
touch -d @1700000100 "$tree/t/a.txt"
: >"$tree/t/added.txt"
rm "$tree/t/old.txt"
head -c 2001 /dev/zero | tr '\0' x >"$tree/t/sub/b.log"
touch -d @1500000000 "$tree/t/sub/b.log"
find --changes "$saved" -p
expect "status of --changes" 1 "$status"
# A file system without birth times adds them to a line.
expect_beginnings "changes" "~ $tree/t/a.txt  written 2023-11-14 22:13:20 -> 2023-11-14 22:15:00" \
  "+ $tree/t/added.txt" "- $tree/t/old.txt" "~ $tree/t/sub/b.log  size 2000 -> 2001"
find --changes "$saved" --save "$saved"
expect "status of --changes --save" 1 "$status"
find --changes "$saved"
expect "status of --changes after saving anew" 0 "$status"
expect "no changes after saving anew" "" "$out"

[ "$failures" -eq 0 ] && echo "host smoke test: passed" && exit 0
echo "host smoke test: $failures failed" >&2
exit 1
