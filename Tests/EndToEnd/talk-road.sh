#!/usr/bin/env bash
# A photographer who talks: a realtime session hears a request in the microphone, changes the photo, and is heard at the
# speaker. Runs on Scripts/desktop-session and Scripts/audio-session. With SCREENSHOT=FILE it leaves a picture of the
# window there.
# shellcheck source=Tests/EndToEnd/support.sh
source "$(dirname "$0")/support.sh"
export KELVALR_OPENAI_API_KEY=test-key

# told LINE: waits until the service says that it was
told() {
    within 20 grep -qx "$1" "$work/service" || expect "what the service was told" "$1" "$(cat "$work/service")"
}

"$3" >"$work/service" &
programs+=($!)
told "http://.*"
OPENAI_BASE_URL=$(head -n 1 "$work/service")
export OPENAI_BASE_URL

start_lightroom
record_speaker
open_window

xdotool key ctrl+shift+v
told "voice session"
shows "Speak naturally. KelvaLR is listening."
flite -voice rms -t "Please raise the exposure by one." -o "$work/request.wav"
paplay "$work/request.wav"
spoken=$(recorded)
shows "I raised the exposure by one."
told "Lightroom Classic: Adjusted Exposure on 1 photo to 1"
expect "exposure" "+1.00" "$(xmp "$first" Xmp.crs.Exposure2012)"
hears 1 "$spoken"
[ -z "${SCREENSHOT:-}" ] || import -window "$window" "$SCREENSHOT"

xdotool key ctrl+shift+q
told "text session"
shows "Ready"
quit_window
told "closed with 1001"
expect "files with the key" "" "$(grep -rl test-key "$HOME" || true)"
finish
