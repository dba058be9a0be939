#!/usr/bin/env bash
# Packs a small tree with orvpack, lists it, extracts it elsewhere and compares
# the files; then checks that bad input fails with the right exit status.
# Usage: test-orvpack.sh PATH-TO-ORVPACK
set -u

tool=$1
work=$(mktemp -d /tmp/orvpack-test-XXXXXX) || exit 1
trap 'rm -rf "$work"' EXIT
cd "$work" || exit 1

fail() {
    echo "FAIL: $*" >&2
    exit 1
}

# Runs the tool, expecting the exit status $1 and a message on stderr.
expect_status() {
    local want=$1
    shift
    "$tool" "$@" >out.txt 2>err.txt
    local got=$?
    [ "$got" -eq "$want" ] || fail "orvpack $* exited with $got, expected $want"
    if [ "$want" -ne 0 ]; then
        [ -s err.txt ] || fail "orvpack $* failed without a message"
    fi
}

mkdir -p src/sub
printf 'hello\n' >src/a.txt
printf 'nested file\n' >src/sub/b.txt
: >src/empty.txt
for i in $(seq 0 255); do printf "\\$(printf '%03o' "$i")"; done >src/sub/all.bin
[ "$(wc -c <src/sub/all.bin)" -eq 256 ] || fail "fixture all.bin is not 256 bytes"

expect_status 0 create pack.vbf src
expect_status 0 list pack.vbf
printf 'src/a.txt\t6\nsrc/empty.txt\t0\nsrc/sub/all.bin\t256\nsrc/sub/b.txt\t12\n' >want.txt
cmp -s want.txt out.txt || fail "list output differs: $(cat out.txt)"

mkdir out
(cd out && "$tool" extract ../pack.vbf) || fail "extract all"
for f in a.txt empty.txt sub/b.txt sub/all.bin; do
    cmp "src/$f" "out/src/$f" || fail "extracted $f differs"
done

# One named member only; explicit files keep their names, "./" dropped.
mkdir one
(cd one && "$tool" extract ../pack.vbf src/sub/all.bin) || fail "extract one member"
cmp src/sub/all.bin one/src/sub/all.bin || fail "extracted member differs"
[ ! -e one/src/a.txt ] || fail "extract of one member wrote others"
expect_status 0 create files.vbf ./src/sub/b.txt src/a.txt
expect_status 0 list files.vbf
printf 'src/sub/b.txt\t12\nsrc/a.txt\t6\n' | cmp -s - out.txt || fail "explicit list differs: $(cat out.txt)"

# Failures: missing input (no archive left behind), unknown member, corrupt
# archives, names outside the working directory, bad usage.
expect_status 1 create bad.vbf src/a.txt missing.txt
grep -q missing.txt err.txt || fail "missing input not named: $(cat err.txt)"
[ ! -e bad.vbf ] || fail "a failed create left an archive"
cp pack.vbf keep.vbf
expect_status 1 create pack.vbf missing.txt
cmp -s pack.vbf keep.vbf || fail "a failed create damaged the previous archive"
expect_status 1 extract pack.vbf src/nothing.txt
grep -q 'src/nothing.txt' err.txt || fail "unknown member not named"
head -c 30 pack.vbf >cut.vbf
expect_status 1 list cut.vbf
expect_status 1 extract cut.vbf
printf '\001\000\000\000\010\000\000\000\000\000\000\000\006\000\000\000../esc' >evil.vbf
expect_status 1 extract evil.vbf
[ ! -e ../esc ] || fail "extract wrote outside the working directory"
expect_status 1 list missing.vbf
expect_status 1 create abs.vbf "$work/src/a.txt"
expect_status 2 create pack.zip src/a.txt
expect_status 2 create pack.vbf
expect_status 2
expect_status 2 frobnicate pack.vbf
expect_status 0 --help
grep -q '^Usage: orvpack create' out.txt || fail "--help prints no usage"

echo "orvpack: all checks passed"
