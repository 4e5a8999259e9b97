#!/usr/bin/env bash
# A photographer whose plug-in is not connected is told why, and what to do, until it is. Runs on
# Scripts/desktop-session. With SCREENSHOT=PREFIX it leaves a picture of each case there.
# shellcheck source=Tests/EndToEnd/support.sh
source "$(dirname "$0")/support.sh"

lightroom_pid() { cat "$work/lightroom.pid" 2>/dev/null || true; }

# It may be frozen.
end_lightroom() {
    for signal in TERM CONT; do lightroom_pid | xargs -r kill -s "$signal" 2>/dev/null || true; done
}
trap 'end_lightroom; cleanup' EXIT

# hints NAME FINDING: waits until the window says so
hints() {
    shows "$2"
    [ -z "${SCREENSHOT:-}" ] || { sleep 0.5; import -window "$window" "$SCREENSHOT-$1.png"; }
}

# The Lightroom that is installed here.
cat >"$work/lightroom" <<SCRIPT
#!/bin/sh
echo \$\$ >"$work/lightroom.pid"
exec "$standin" --photos "$work/photos"
SCRIPT
chmod +x "$work/lightroom"
mkdir -p "$HOME/.local/share/applications" "$work/no-plugin"
printf '[Desktop Entry]\nType=Application\nName=Adobe Lightroom Classic\nExec=%s\n' "$work/lightroom" \
    >"$HOME/.local/share/applications/lightroom.desktop"
sample_photos
"$kelvalr" --install-plugin >/dev/null
"$kelvalr" --allow-computer-control yes >/dev/null

# Lightroom runs without the plug-in.
open_standin --photos "$work/photos" --modules "$work/no-plugin"
open_window
hints plugin-not-loaded "Lightroom is running, but the KelvaLR plug-in is not loaded."
element "Reveal Installed Plugin" >/dev/null
click "Open Lightroom Plug-in Manager"
timeout 20 xdotool search --sync --onlyvisible --name 'Plug-in Manager' >/dev/null || expect "Plug-in Manager" "a window" ""

# It is not running at all, is opened by the hint's button, and answers.
stop_standin
to_front
hints not-running "Lightroom Classic is not running."
click "Open Lightroom"
hides "Lightroom Classic is not running."
shows "Opened Adobe Lightroom Classic."
request "set exposure to +0.5" "Lightroom Classic: Adjusted Exposure on 1 photo to 0.5"
hides "Dismiss"
[ -z "${SCREENSHOT:-}" ] || { to_front; import -window "$window" "$SCREENSHOT-connected.png"; }

# It takes a command and does not answer, as with a dialog open.
kill -STOP "$(lightroom_pid)"
request "set contrast to 20" "Lightroom is running, but does not answer."
hints no-answer "Lightroom is running, but does not answer."
kill -CONT "$(lightroom_pid)"
click "Test Lightroom Connection"
hides "Lightroom is running, but does not answer."

# Another program has taken the port.
kill "$(lightroom_pid)"
timeout 20 tail --pid="$(lightroom_pid)" -f /dev/null
rm "$work/lightroom.pid"
python3 -c 'import socket
server = socket.create_server(("127.0.0.1", 54321))
clients = []
while True: clients.append(server.accept())' &
programs+=($!)
request "set contrast to 30" "Port 54321, which the KelvaLR plug-in needs, is used by python3."
hints port-taken "Quit that program, then restart Lightroom."
click "Dismiss"
hides "Port 54321, which the KelvaLR plug-in needs, is used by python3."
kill "${programs[-1]}"

to_front
quit_window
finish
