#!/usr/bin/env bash
# The Tarnwick's recorded demo, played round after round for TURNS turns of
# the fixed step under AddressSanitizer and LeakSanitizer, on an X server of
# its own. Its resident memory is logged every 1,000 turns; after the warm-up
# (the sample at turn 2,000) no sample may exceed that one by more than 1 MB,
# and the game must end with status 0 and no sanitizer report.
#
# Usage: TarnwickSoak.sh TARNWICK_BUILD_DIR WORK_DIR TURNS
set -euo pipefail
game_dir=$(cd "$1" && pwd)
work=$2
turns=$3
baseline_turn=2000
allowance_kB=1024
support=$(cd "$(dirname "$0")/../Support" && pwd)
if [ "$turns" -le "$baseline_turn" ]; then
  echo "TarnwickSoak: $turns turns leave nothing after the warm-up of $baseline_turn" >&2
  exit 2
fi

rm -rf "$work"
mkdir -p "$work"
work=$(cd "$work" && pwd)

# The allocator gives freed memory back at once (no quarantine, which would
# hold up to 256 MB of it and grow the resident size by itself) and returns
# free pages to the system every second: the resident size follows what the
# game holds. Leak checking stays on, with the suite's suppressions, which
# need full stacks to match.
export ASAN_OPTIONS="detect_leaks=1:abort_on_error=1:quarantine_size_mb=0:thread_local_quarantine_size_kb=0:allocator_release_to_os_interval_ms=1000"
export UBSAN_OPTIONS="print_stacktrace=1:halt_on_error=1"
export LSAN_OPTIONS="suppressions=$support/lsan.supp:fast_unwind_on_malloc=0"
# softpipe: llvmpipe's shader JIT deadlocks under full-stack unwinding.
export GALLIUM_DRIVER=softpipe DRAW_USE_LLVM=0
export ALSOFT_DRIVERS=null
unset ORV_WINDOWED

# Leak checking needs the GL driver loaded for the whole run.
source "$support/mesa-preload.sh"
preload=$(orv_mesa_preload "$game_dir/Tarnwick")

# An X server of its own; it says its display
# once it accepts connections.
Xvfb -displayfd 3 -noreset -nolisten tcp -screen 0 1024x768x24 3>"$work/display" >"$work/xvfb.log" 2>&1 &
xvfb=$!
trap 'kill "$xvfb" 2>/dev/null || true' EXIT
while ! grep -qx '[0-9][0-9]*' "$work/display" 2>/dev/null; do
  if ! kill -0 "$xvfb" 2>/dev/null; then
    echo "TarnwickSoak: Xvfb did not start:" >&2
    cat "$work/xvfb.log" >&2
    exit 1
  fi
  sleep 0.2
done
export DISPLAY=":$(cat "$work/display")"

echo "TarnwickSoak: $turns turns, log and output in $work"
status=0
started=$SECONDS
(cd "$game_dir" && LD_PRELOAD="$preload" ./Tarnwick --demo --frames "$turns" --save "$work" \
  --memory-log "$work/memory.log" >"$work/output.txt" 2>&1) || status=$?
echo "TarnwickSoak: the game ran $((SECONDS - started)) s"

failed=0
fail() {
  echo "TarnwickSoak: FAILED: $*" >&2
  failed=1
}
grep -h '^Tarnwick:' "$work/output.txt" || true
[ "$status" -eq 0 ] || fail "the game ended with status $status"
if grep -qE 'ERROR: (LeakSanitizer|AddressSanitizer)|runtime error:' "$work/output.txt"; then
  fail "the sanitizers reported:"
  sed -n '/=================/,$p' "$work/output.txt" | head -80 >&2
fi
grep -q "^Tarnwick: $turns turns in" "$work/output.txt" || fail "the game did not play its $turns turns"

# Each round begun is one pass of the recording through play, the pause menu,
# the name field and the table; a demo stuck anywhere plays fewer.
rounds=$(sed -n 's:.*<Rounds>\([0-9]*\)</Rounds>.*:\1:p' "$work/DemoReport.xml" 2>/dev/null || true)
pass_turns=521
if [ -z "$rounds" ] || [ "$rounds" -lt $((turns / pass_turns)) ]; then
  fail "the demo began ${rounds:-no} rounds in $turns turns, at least $((turns / pass_turns)) expected"
fi

# The curve: one sample every 1,000 turns and one at the last turn.
echo "TarnwickSoak: turn rss_kB (growth since turn $baseline_turn)"
expected=1000
baseline=""
last=""
while read -r turn kB; do
  if [ "$turn" != "$expected" ]; then
    fail "memory sample at turn $turn, $expected expected"
    break
  fi
  [ "$turn" -eq "$baseline_turn" ] && baseline=$kB
  if [ -n "$baseline" ]; then
    echo "  $turn $kB ($((kB - baseline)))"
    if [ "$((kB - baseline))" -gt "$allowance_kB" ]; then
      fail "turn $turn holds $((kB - baseline)) kB more than turn $baseline_turn"
    fi
  else
    echo "  $turn $kB"
  fi
  last=$turn
  expected=$((turn >= turns ? -1 : turn + 1000 < turns ? turn + 1000 : turns))
done <"$work/memory.log"
[ "$last" = "$turns" ] || fail "the memory log ends at turn ${last:-none}, not $turns"
[ -n "$baseline" ] || fail "no memory sample at turn $baseline_turn"
exit "$failed"
