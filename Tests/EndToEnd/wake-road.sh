#!/usr/bin/env bash
# A photographer who speaks: "Hey Kelva" and a command into the microphone, the change in the sidecar, the answer out of
# the speaker, and listening again. Runs on Scripts/desktop-session and Scripts/audio-session, whose microphone hears
# what is played.
# shellcheck source=Tests/EndToEnd/support.sh
source "$(dirname "$0")/support.sh"
export KELVALR_PRESET_FOLDERS=$here/../../Sources/LightroomStandIn/Presets

# say WORDS ANSWER: behind the phrase, once the program listens; until the answer is shown and has been heard
say() {
    local spoken
    shows 'Say "Hey Kelva" or type a prompt.'
    sleep 0.5 # the microphone has been heard to be quiet
    flite -voice rms -t "Hey Kelva, $1" -o "$work/request.wav"
    paplay "$work/request.wav"
    spoken=$(recorded)
    shows "$2"
    hears 1 "$spoken"
}

start_lightroom
record_speaker
# A microphone that delivers nothing at all counts as muted.
python3 -c 'import array, random, sys
array.array("h", (random.randint(-40, 40) for _ in range(2 ** 19))).tofile(sys.stdout.buffer)' >"$work/hiss"
while cat "$work/hiss"; do :; done 2>/dev/null | pacat --format=s16le --rate=16000 --channels=1 &
programs+=($!)
open_window

say "set exposure to plus one." "Lightroom Classic: Adjusted Exposure on 1 photo to 1"
expect "exposure" "+1.00" "$(xmp "$first" Xmp.crs.Exposure2012)"
say "flag as pick in lightroom." "Lightroom Classic: Set pickStatus to 1 on 1 photo"
say "rate this four stars in lightroom." "Lightroom Classic: Set rating to 4 on 1 photo"
expect "rating" "4" "$(xmp "$first" Xmp.xmp.Rating)"
say "next photo in lightroom." "Lightroom Classic: Moved to photo 2"
say "apply preset soft matte in lightroom." "Lightroom Classic: Applied preset Soft Matte to 1 photo"
[ -n "$(xmp "$second" Xmp.crs.Contrast2012)" ] || expect "the preset's contrast on the second photo" "some" "none"
shows 'Say "Hey Kelva" or type a prompt.'

quit_window
finish
