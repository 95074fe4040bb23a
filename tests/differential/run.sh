#!/usr/bin/env bash
# Searches one generated tree with the Linux tessik-find and with the Windows one under Wine, and
# compares the records: path, size, attributes and the three dates, in the host's order (by path,
# directories first). They must be the same but for the differences allowed below, which it
# prints. Then each host reads the listing the other saved (one stored form on both systems), and
# the Windows host tells a missing directory. (tests/host/smoke.sh tests each host on its own.)
#
# usage: tests/differential/run.sh LINUX_TESSIK_FIND WINDOWS_TESSIK_FIND_EXE
set -euo pipefail
linux=$(realpath "$1")
windows=$(realpath "$2")
export TZ=UTC WINEDEBUG=-all

root=$(mktemp -d /tmp/tessik-differential-XXXXXX)
trap 'chmod -R u+w "$root"; rm -rf "$root"' EXIT
cd "$root"
mkdir -p t/nested/deeper/deepest "t/with blank" "t/café ünïcode"
printf 'one\n' >t/nested/deeper/deepest/leaf.txt
printf 'two words\n' >"t/with blank/a file with blanks.txt"
printf 'accents\n' >"t/café ünïcode/naïve €.txt"
printf 'read only\n' >t/readonly.txt
printf 'dot\n' >t/.dotfile
truncate -s 5G t/sparse-over-4GiB.bin
printf 'raw\n' >'t/back\slash'
ln -s nested t/link-to-dir
ln -s readonly.txt t/link-to-file
# Fixed dates (written and accessed; created is the file system's own), then read-only.
find t -depth -not -type l -exec touch -d '2021-03-04 05:06:07' {} +
touch -a -d '2022-01-02 03:04:05' t/readonly.txt
chmod a-w t/readonly.txt

# Fields: path, size, attributes, created, written, accessed.
fields=(--fields path,size,attributes,created,written,accessed)
# The Windows host under Wine, its lines without the CR of Windows text output.
windows_find() {
    wine "$windows" "$@" | tr -d '\r'
    return "${PIPESTATUS[0]}"
}
"$linux" t >/dev/null # reading the directories sets their access dates once
"$linux" "${fields[@]}" t >linux.txt
cp linux.txt linux-search.txt
# Saved before Wine reads the links, which sets their access dates.
"$linux" --save linux.tsk t
windows_find "${fields[@]}" t >windows.txt 2>wine-stderr.txt || {
    cat wine-stderr.txt >&2
    exit 1
}
cp windows.txt windows-search.txt

# The creation date is compared apart: Wine gives the last write date, not the birth date.
created=$(diff <(cut -f4 linux.txt) <(cut -f4 windows.txt) | grep -c '^<' || true)
cut -f1-3,5,6 linux.txt >linux.cut && mv linux.cut linux.txt
cut -f1-3,5,6 windows.txt >windows.cut && mv windows.cut windows.txt

# The differences allowed, as patterns of the paths concerned, each with its reason.
allowed=(
    '\\link-to-(dir|file)'
    'Wine follows symbolic links (the posix backend lists a link as an entry of its own, 0x400, size 0)'
    '\\back(\\|'$'\xef\x81\x9c'')slash'
    'a POSIX \ in a name: the posix backend maps it to U+F05C, Wine'"'"'s A names give the raw byte'
)
pattern=$(printf '%s|' $(for ((i = 0; i < ${#allowed[@]}; i += 2)); do echo "${allowed[i]}"; done))
pattern=${pattern%|}

status=0
echo "records: $(wc -l <linux.txt) on Linux, $(wc -l <windows.txt) on Windows (Wine);" \
    "fields: path, size, attributes, created, written, accessed"
echo "differences allowed:"
echo "  the creation date: the posix backend gives the birth date (statx), Wine the last write"
echo "    date: $created records differ in it, which is left out of the comparison"
for ((i = 0; i < ${#allowed[@]}; i += 2)); do
    echo "  ${allowed[i + 1]}:"
    diff <(grep -aE "${allowed[i]}" linux.txt) <(grep -aE "${allowed[i]}" windows.txt) |
        sed -n 's/^</    linux  /p; s/^>/    wine   /p' || true
done
if ! diff -u <(grep -avE "$pattern" linux.txt) <(grep -avE "$pattern" windows.txt); then
    echo "FAILED: the records differ beyond the differences allowed" >&2
    status=1
fi
[ $status -eq 0 ] && echo "the other $(grep -cavE "$pattern" linux.txt) records are the same"

# Each check is a command that succeeds when the check holds.
check() {
    local what=$1
    shift
    if "$@"; then
        echo "  ok: $what"
    else
        echo "  FAILED: $what" >&2
        status=1
    fi
}
read_on_windows() {
    windows_find "${fields[@]}" --load linux.tsk | diff - linux-search.txt
}
read_on_linux() {
    windows_find --save windows.tsk t && "$linux" "${fields[@]}" --load windows.tsk |
        diff - windows-search.txt
}
missing_told() {
    local code=0
    windows_find gone >/dev/null 2>missing.txt || code=$?
    [ $code -eq 1 ] && grep -q "^tessik-find: 'gone': ." missing.txt
}
echo "saved listings, and the Windows host on its own:"
check "the Windows host --loads the listing the Linux host --saved: the Linux records" \
    read_on_windows
check "the Linux host --loads the listing the Windows host --saved: the Windows records" \
    read_on_linux
check "a missing directory: exit status 1, and on stderr" missing_told
echo "      $(tr -d '\r' <missing.txt)"
exit $status
