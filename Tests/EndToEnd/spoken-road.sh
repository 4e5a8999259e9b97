#!/usr/bin/env bash
# A photographer who listens: the window opens in voice mode and reads aloud what was done. Runs on
# Scripts/desktop-session and Scripts/audio-session.
# shellcheck source=Tests/EndToEnd/support.sh
source "$(dirname "$0")/support.sh"

start_lightroom
settings=${XDG_CONFIG_HOME:-$HOME/.config}/KelvaLR/KelvaLR.ini
mkdir -p "$(dirname "$settings")"
printf '[General]\nstartInQuietMode=false\nreadResponsesAloud=true\n' >"$settings"
record_speaker

"$kelvalr" --prompt "set contrast to 1" >/dev/null
expect "sound of a command line" 0 "$(seconds_of_sound 0)"

open_window

# Without a key a session cannot begin, which only the voice mode tries.
shows "I'm having trouble connecting to my service right now. I've logged the issue for my administrator to look into. Please try again in a few moments."

request "set exposure to +0.5" "Lightroom Classic: Adjusted Exposure on 1 photo to 0.5"
hears 3

quit_window
finish
