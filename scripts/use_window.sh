#!/usr/bin/env bash
# Opens Sonavo on a virtual screen, lets it scan a folder, plays the first song of the results, and quits. Fails unless
# something was heard. Leaves a picture of the screen in window.png. Arguments: the program and the folder.
set -euo pipefail

program=$1
folder=$2

XDG_RUNTIME_DIR=$(mktemp --directory)
export XDG_RUNTIME_DIR DISPLAY=:77 PULSE_SERVER=unix:$XDG_RUNTIME_DIR/sound
trap "kill \$(jobs -p) 2>/dev/null || true" EXIT

# wait_for COMMAND... retries a command until it succeeds, for 30 seconds at most.
wait_for() {
    local tries
    for tries in {1..150}; do
        if "$@" >/dev/null 2>&1; then
            return
        fi
        sleep 0.2
    done
    echo "Timed out waiting for: $*" >&2
    return 1
}

Xvfb "$DISPLAY" -screen 0 1280x800x24 -nolisten tcp &
wait_for xdotool getdisplaygeometry
openbox &
pulseaudio -n --daemonize=no --exit-idle-time=-1 --load="module-null-sink sink_name=silent" \
    --load="module-native-protocol-unix socket=$XDG_RUNTIME_DIR/sound auth-anonymous=1" 2>/dev/null &
wait_for pactl info

dbus-run-session -- "$program" "$folder" &
window_program=$!
wait_for xdotool search --onlyvisible --name '^Sonavo$'
# Fails while the window is being decorated.
wait_for xdotool search --onlyvisible --name '^Sonavo$' windowsize --sync 1200 760 windowactivate --sync
# A scan of a few songs takes a second or two.
sleep 5

parec --device=silent.monitor --format=s16le --rate=8000 --channels=1 >"$XDG_RUNTIME_DIR/heard" &
recorder=$!
# The list of results has the keyboard. Its first row is a group, the next the original of that group.
xdotool key --delay 200 Home Down space
sleep 2
ffmpeg -nostdin -loglevel error -f x11grab -i "$DISPLAY" -frames:v 1 -y window.png
kill "$recorder"
wait "$recorder" || true
loud=$(od --address-radix=n --format=d2 --width=2 "$XDG_RUNTIME_DIR/heard" | awk '$1 > 300 || $1 < -300' | wc -l)
echo "$loud loud samples were heard"
((loud > 200))

xdotool key ctrl+q
wait "$window_program"
