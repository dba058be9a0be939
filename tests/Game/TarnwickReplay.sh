#!/usr/bin/env bash
# Replays The Tarnwick's recorded demo twice and compares, byte for byte
# (orvshot, tolerance 0): the game's own screenshots, and the frames the
# engine saved at chosen turns. Then a session cut short is refused, naming
# the file and the turn. Under the sanitizers the replays are checked for leaks.
# Usage: TarnwickReplay.sh TARNWICK_DIR ORVSHOT WORK_DIR
set -euo pipefail
game=$1 orvshot=$2 work=$3
source "$(dirname "$0")/../Support/mesa-preload.sh"
rm -rf "$work" && mkdir -p "$work/replay1" "$work/replay2"
cd "$game"
preload=$(orv_mesa_preload ./Tarnwick)
for run in replay1 replay2; do
  LD_PRELOAD="$preload" ORV_REPLAY_SHOTS=60,250,519 ORV_SHOT_DIR="$work/$run" \
    ./Tarnwick --demo --save "$work/$run" >/dev/null
done
for shot in tarnwick-play.png tarnwick-menu.png tarnwick-name.png tarnwick-scores.png \
  turn-00060.png turn-00250.png turn-00519.png; do
  "$orvshot" diff "$work/replay1/$shot" "$work/replay2/$shot"
done
# The game ends by the exception, as with its other refusals, so leaks are not
# looked for in that run.
head -c 2000 TarnwickDemo.xml > "$work/cut.xml"
if ASAN_OPTIONS="${ASAN_OPTIONS:-}:detect_leaks=0" ORV_REPLAY="$work/cut.xml" ./Tarnwick --save "$work/replay1" \
  > "$work/cut.log" 2>&1; then
  echo "a cut session was replayed" >&2
  exit 1
fi
grep -q "session file $work/cut.xml is cut short: it breaks off in turn" "$work/cut.log"
# orvshot itself: different pictures differ (status 1) unless enough pixels
# are allowed; bad usage is status 2.
status=0
"$orvshot" diff "$work/replay1/turn-00060.png" "$work/replay1/turn-00250.png" --tolerance 8 >/dev/null || status=$?
[ "$status" -eq 1 ]
"$orvshot" diff "$work/replay1/turn-00060.png" "$work/replay1/turn-00250.png" --allow 786432 >/dev/null
status=0
"$orvshot" diff "$work/replay1/turn-00060.png" 2>/dev/null || status=$?
[ "$status" -eq 2 ]
