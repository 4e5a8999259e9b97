#!/usr/bin/env bash
# A photographer who listens: the window opens in voice mode and reads aloud what was done. Runs on
# Scripts/desktop-session and Scripts/audio-session.
here=$(cd "$(dirname "$0")" && pwd)
# shellcheck source=Tests/EndToEnd/support.sh
source "$here/support.sh"
export QT_QUICK_BACKEND=software
window_pid=
recorder_pid=

end_programs() {
    for pid in $window_pid $recorder_pid; do
        kill "$pid" 2>/dev/null || true
    done
}
trap 'end_programs; cleanup' EXIT

"$kelvalr" --install-plugin >/dev/null
"$standin" --sample-photos "$work/photos" >/dev/null
start_standin --photos "$work/photos"
settings=${XDG_CONFIG_HOME:-$HOME/.config}/KelvaLR/KelvaLR.ini
mkdir -p "$(dirname "$settings")"
printf '[General]\nstartInQuietMode=false\nreadResponsesAloud=true\n' >"$settings"
record_speaker

"$kelvalr" --prompt "set contrast to 1" >/dev/null
expect "sound of a command line" 0 "$(seconds_of_sound)"

"$kelvalr" 2>"$work/kelvalr.err" &
window_pid=$!
window=$(timeout 20 xdotool search --sync --onlyvisible --pid "$window_pid" --name '^KelvaLR$')
timeout 20 xdotool windowactivate --sync "$window"

# Without a key a session cannot begin, which only the voice mode tries.
shows "I'm having trouble connecting to my service right now. I've logged the issue for my administrator to look into. Please try again in a few moments."

read -ra place <<<"$("$here/window-element.py" "Ask KelvaLR")"
xdotool mousemove "${place[@]}" click 1
xdotool type --delay 5 "set exposure to +0.5"
xdotool key Return
shows "Lightroom Classic: Adjusted Exposure on 1 photo to 0.5"
deadline=$((SECONDS + 20))
until [ "$(seconds_of_sound)" -ge 3 ] || [ "$SECONDS" -ge "$deadline" ]; do sleep 0.1; done
[ "$(seconds_of_sound)" -ge 3 ] || expect "seconds of sound" "3 or more" "$(seconds_of_sound)"

quit_window
finish
