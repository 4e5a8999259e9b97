#!/usr/bin/env bash
# Sound systems side by side have nothing in common, and leave nothing however they end.
set -euo pipefail
audio_session=$1
work=$(mktemp -d)
trap 'jobs -p | xargs -r kill; rm -rf "$work"' EXIT
export TMPDIR=$work/tmp
mkdir "$TMPDIR"
failures=0

# expect NAME EXPECTED ACTUAL
expect() {
    [ "$2" = "$3" ] && return 0
    printf '%s differs\n--- expected\n%s\n--- actual\n%s\n' "$1" "$2" "$3"
    failures=$((failures + 1))
}

# await COMMAND...: until it succeeds, for twenty seconds at most
await() {
    local deadline=$((SECONDS + 20))
    until "$@"; do
        [ "$SECONDS" -lt "$deadline" ] || { echo "waited in vain for: $*"; exit 1; }
        sleep 0.05
    done
}

# remains: the daemons and files of any sound system of this test
remains() {
    grep -lzF "=$TMPDIR/audio-session." /proc/[0-9]*/environ 2>/dev/null |
        while IFS=/ read -r _ _ pid _; do tr '\0' ' ' <"/proc/$pid/cmdline" 2>/dev/null || true; done | grep ^pulseaudio
    ls -A "$TMPDIR"
}

nothing_remains() { [ -z "$(remains)" ]; }

# Four at once, each of which plays a sound of its own and hears that one only; all live at the same time.
# shellcheck disable=SC2016 # expanded in the sessions
for number in 1 2 3 4; do
    "$audio_session" bash -c '
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
for signal in TERM KILL; do
    "$audio_session" bash -c "$hanging" "$work/$signal" &
    await test -e "$work/$signal"
    kill -s "$signal" $!
    wait $! 2>/dev/null || true
    [ "$signal" = TERM ] || await nothing_remains # nobody is left to wait for the clearing up
    expect "remains after SIG$signal" "" "$(remains)"
done

# What is missing or fails is said in one sentence.
mkdir "$work/bin"
for program in bash env mktemp setpriv pactl; do
    ln -s "$(command -v "$program")" "$work/bin/"
done
expect "without a daemon" "audio-session: pulseaudio is missing; Scripts/install-packages installs it." \
    "$(PATH=$work/bin "$audio_session" true 2>&1)"
printf '#!/bin/sh\necho "no memory" >&2\nexit 1\n' >"$work/bin/pulseaudio"
chmod +x "$work/bin/pulseaudio"
status=0
said=$(PATH=$work/bin:$PATH "$audio_session" true 2>&1) || status=$?
expect "with one that fails" "125 audio-session: The sound system did not come up. no memory" "$status $said"
expect "remains after a failure" "" "$(remains)"

[ "$failures" -eq 0 ] || { echo "$failures checks failed"; exit 1; }
