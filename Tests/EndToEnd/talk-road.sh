#!/usr/bin/env bash
# A photographer who talks: a realtime session hears a request in the microphone, changes the photo, and is heard at the
# speaker. Runs on Scripts/desktop-session and Scripts/audio-session. With SCREENSHOT=FILE it leaves a picture of the
# window there.
here=$(cd "$(dirname "$0")" && pwd)
talk_server=$3
# shellcheck source=Tests/EndToEnd/support.sh
source "$here/support.sh"
export KELVALR_OPENAI_API_KEY=test-key

# told LINE: waits until the service says that it was
told() {
    for _ in $(seq 200); do
        grep -qx "$1" "$work/service" && return 0
        sleep 0.1
    done
    expect "what the service was told" "$1" "$(cat "$work/service")"
}

"$talk_server" >"$work/service" &
programs+=($!)
told "http://.*"
OPENAI_BASE_URL=$(head -n 1 "$work/service")
export OPENAI_BASE_URL

"$kelvalr" --install-plugin >/dev/null
"$standin" --sample-photos "$work/photos" >/dev/null
start_standin --photos "$work/photos"
first=$(find "$work/photos" -name '*.jpg' | sort | head -n 1)
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
expect "exposure" "+1.00" "$(xmp "${first%.jpg}.xmp" Xmp.crs.Exposure2012)"
hears 1 "$spoken"
[ -z "${SCREENSHOT:-}" ] || import -window "$window" "$SCREENSHOT"

xdotool key ctrl+shift+q
told "text session"
shows "Ready"
quit_window
told "closed with 1001"
expect "files with the key" "" "$(grep -rl test-key "$HOME" || true)"
finish
