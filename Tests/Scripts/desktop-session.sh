#!/usr/bin/env bash
# Desktops side by side have nothing in common, and leave nothing however they end.
set -euo pipefail
desktop_session=$1
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

# remains: the processes and files of any desktop of this test
remains() {
    grep -lzF "=$TMPDIR/desktop-session." /proc/[0-9]*/environ 2>/dev/null |
        while IFS=/ read -r _ _ pid _; do tr '\0' ' ' <"/proc/$pid/cmdline" 2>/dev/null || true; done
    ls -A "$TMPDIR"
}

nothing_remains() { [ -z "$(remains)" ]; }

# Four at once: each writes down what it has, then waits until all have, so that all live at the same time.
# shellcheck disable=SC2016 # expanded on the desktops
for number in 1 2 3 4; do
    "$desktop_session" bash -c '
        enabled=$(dbus-send --session --print-reply=literal --dest=org.a11y.Bus /org/a11y/bus \
            org.freedesktop.DBus.Properties.Get string:org.a11y.Status string:IsEnabled)
        windows=$(xprop -root -notype _NET_SUPPORTING_WM_CHECK)
        echo "$DISPLAY $DBUS_SESSION_BUS_ADDRESS $HOME ${enabled##* } ${windows%%#*}" >"$0/desktop$1"
        until [ -e "$0/go" ]; do sleep 0.05; done
        exit "$1"' "$work" "$number" &
    sessions[number]=$!
done
all_have_written() { [ "$(cat "$work"/desktop? 2>/dev/null | wc -l)" -eq 4 ]; }
await all_have_written
touch "$work/go"
for number in 1 2 3 4; do
    status=0
    wait "${sessions[number]}" || status=$?
    expect "status of desktop $number" "$number" "$status"
done
for column in 1 2 3; do
    expect "different values in column $column" 4 "$(cut -d' ' -f$column "$work"/desktop? | sort -u | wc -l)"
done
expect "accessibility and window manager" "true _NET_SUPPORTING_WM_CHECK: window id " \
    "$(cut -d' ' -f4- "$work"/desktop? | sort -u)"
expect "remains after the end" "" "$(remains)"

# A command that cannot be asked to end, with a child that left its process tree.
# shellcheck disable=SC2016 # expanded on the desktop
stubborn='trap "" TERM HUP; (setsid sleep 1000 &); touch "$0"; while :; do sleep 1000; done'
for signal in TERM KILL; do
    "$desktop_session" bash -c "$stubborn" "$work/$signal" &
    await test -e "$work/$signal"
    kill -s "$signal" $!
    wait $! 2>/dev/null || true
    [ "$signal" = TERM ] || await nothing_remains # nobody is left to wait for the clearing up
    expect "remains after SIG$signal" "" "$(remains)"
done

# What is missing or fails is said in one sentence.
mkdir "$work/bin"
for program in bash env mktemp setpriv Xvfb xprop dbus-daemon dbus-send; do
    ln -s "$(command -v "$program")" "$work/bin/"
done
expect "without a window manager" "desktop-session: openbox is missing; Scripts/install-packages installs it." \
    "$(PATH=$work/bin "$desktop_session" true 2>&1)"
printf '#!/bin/sh\necho "no memory" >&2\nexit 1\n' >"$work/bin/openbox"
chmod +x "$work/bin/openbox"
status=0
said=$(PATH=$work/bin:$PATH "$desktop_session" true 2>&1) || status=$?
expect "with one that fails" "125 desktop-session: The window manager did not come up. no memory" "$status $said"
expect "remains after a failure" "" "$(remains)"

[ "$failures" -eq 0 ] || { echo "$failures checks failed"; exit 1; }
