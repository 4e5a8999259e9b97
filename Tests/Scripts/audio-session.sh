#!/usr/bin/env bash
# Sound systems side by side have nothing in common, and leave nothing however they end.
# shellcheck source=Tests/Scripts/session.sh
source "$(dirname "$0")/session.sh"
remaining=^pulseaudio # a recorder takes its time

# Four at once, each of which plays a sound of its own and hears that one only; all live at the same time.
# shellcheck disable=SC2016 # expanded in the sessions
for number in 1 2 3 4; do
    "$session" bash -c '
        touch "$0/up$1"
        until [ -e "$0/up1" ] && [ -e "$0/up2" ] && [ -e "$0/up3" ] && [ -e "$0/up4" ]; do sleep 0.05; done
        echo "$PULSE_SERVER $(pactl get-default-sink) $(pactl get-default-source)" >"$0/session$1"
        exec 3< <(exec parec --raw --format=u8 --rate=24000 --latency-msec=20 2>/dev/null); recorder=$!
        head -c 24000 <&3 >/dev/null # it has begun
        yes "$1" | tr -d "\n" | head -c 24000 | pacat --raw --format=u8 --rate=24000 --channels=1
        head -c 24000 <&3 | tr -d "\200" | fold -w 1 | sort -u >"$0/heard$1"
        kill "$recorder"
        exit "$1"' "$work" "$number" &
    sessions[number]=$!
done
for number in 1 2 3 4; do
    status=0
    wait "${sessions[number]}" || status=$?
    expect "status of session $number" "$number" "$status"
    expect "what session $number has heard" "$number" "$(cat "$work/heard$number")"
done
expect "different addresses" 4 "$(cut -d' ' -f1 "$work"/session? | sort -u | wc -l)"
expect "default devices" "speaker microphone" "$(cut -d' ' -f2- "$work"/session? | sort -u)"
expect "remains after the end" "" "$(remains)"

# Killed, and with a daemon that hears no signal.
# shellcheck disable=SC2016 # expanded in the session
hanging='kill -s STOP "$(cat "$PULSE_RUNTIME_PATH/pid")"; touch "$0"; exec sleep 1000'
leaves_nothing_when_killed "$hanging"

says_what_is_wrong pulseaudio "The sound system did not come up." pactl
report
