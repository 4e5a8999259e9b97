#!/usr/bin/env bash
# Desktops side by side have nothing in common, and leave nothing however they end.
# shellcheck source=Tests/Scripts/session.sh
source "$(dirname "$0")/session.sh"

# Four at once: each writes down what it has, then waits until all have, so that all live at the same time.
# shellcheck disable=SC2016 # expanded on the desktops
for number in 1 2 3 4; do
    "$session" bash -c '
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
leaves_nothing_when_killed "$stubborn"

says_what_is_wrong openbox "The window manager did not come up." Xvfb xprop dbus-daemon dbus-send
report
