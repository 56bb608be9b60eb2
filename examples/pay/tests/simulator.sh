#!/usr/bin/env bash
# The example in the simulator: a sale played headless and recorded; then the same sale typed
# into the window under a virtual X server as real key events (xdotool, the focus given without
# a window manager), and the window's screenshot at zoom 1 equal, pixel for pixel, to the
# headless picture of the same step; and a malformed script refused.
# Usage: simulator.sh PAY_SIM DATA_DIR WORK_DIR
set -euo pipefail
sim=$1 data=$2 work=$3
rm -rf "$work"
mkdir -p "$work"
fail() { echo "$1"; cat "$work"/*.log; exit 1; }

"$sim" --data "$data" --out "$work/headless" > "$work/headless.log" 2>&1 || fail "the headless run failed"
for picture in storyboard.html session.gif timeline.txt tones.wav 02_key_ENTER.png 03_tap_approved.png; do
    [ -f "$work/headless/$picture" ] || fail "no $picture"
done

# A malformed script stops the program before it starts, with one line that names it, and exit 2.
printf 'key ENTER\nkeys 12\nbattery full\n' > "$work/bad.session"
status=0
"$sim" --data "$data" --script "$work/bad.session" --out "$work/bad" > "$work/bad.log" 2>&1 || status=$?
[ "$status" = 2 ] || fail "a malformed script ended with $status, not 2"
expected='pay-sim: bad.session:3: "full" is not a number from 0 to 6; expected battery 0-6'
[ "$(cat "$work/bad.log")" = "$expected" ] || fail "a malformed script said: $(cat "$work/bad.log")"

# The window pins the clock as the headless run does; the keys come from the X server.
printf 'clock 2026-11-22 09:30\n' > "$work/pin.session"
export SDL_AUDIODRIVER=dummy ASAN_OPTIONS=detect_leaks=0
xvfb-run -a -s '-screen 0 640x480x24' bash -c '
    set -euo pipefail
    sim=$1 data=$2 work=$3
    "$sim" --data "$data" --window --zoom 1 --script "$work/pin.session" --out "$work/window" \
        > "$work/window.log" 2>&1 &
    pid=$!
    window=$(timeout 30 xdotool search --sync --name "^Pay example$" | head -1)
    xdotool windowfocus --sync "$window"
    # Typed only once the window has the keyboard: earlier keys would be lost.
    timeout 30 bash -c "until grep -q \"^keyboard focus\" \"$work/window.log\"; do sleep 0.1; done"
    xdotool type --delay 20 1250
    xdotool key Return F12
    # The window writes the screenshot once what was typed is on it, and says so.
    timeout 30 bash -c "until grep -q \"^wrote \" \"$work/window.log\"; do sleep 0.1; done"
    xdotool key q
    wait $pid
' bash "$sim" "$data" "$work" || fail "the window run failed"

cmp -s "$work/headless/02_key_ENTER.png" "$work/window/window_1.png" ||
    fail "the window's screenshot differs from the headless picture after ENTER (see $work)"
echo "headless and window agree after ENTER: $work/window/window_1.png"
