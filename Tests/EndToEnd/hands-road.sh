#!/usr/bin/env bash
# Requests reach Lightroom's window itself where there is no plug-in to be had, and its menu where the plug-in has
# not been started. Runs on Scripts/desktop-session. With SCREENSHOT=FILE it leaves a picture of the window there.
# shellcheck source=Tests/EndToEnd/support.sh
source "$(dirname "$0")/support.sh"

# answers REQUEST...: what KelvaLR says to each
answers() {
    local request options=()
    for request in "$@"; do options+=(--prompt "$request"); done
    "$kelvalr" "${options[@]}" | grep -v '^> '
}

mkdir "$work/no-plugin"
sample_photos
open_standin --photos "$work/photos" --modules "$work/no-plugin"

expect "answer without consent" "Accessibility Permissions required for flag hotkey simulation." \
    "$(answers "flag as pick in lightroom")"
expect "flag without consent" "" "$(xmp "$first" Xmp.xmpDM.pick)"
"$kelvalr" --allow-computer-control yes >/dev/null

expect "answers" "Flag simulated: Pressed P.
Rating simulated: Pressed 3.
Navigation simulated: Pressed Right.
Clicked Develop." "$(answers "flag as pick in lightroom" "rate it 3 stars in lightroom" \
    "next photo in lightroom" "click Develop in lightroom")"
expect "flag" 1 "$(xmp "$first" Xmp.xmpDM.pick)"
expect "rating" 3 "$(xmp "$first" Xmp.xmp.Rating)"

# A look in free words moves several sliders of the photo that is shown now.
echo '{"message": "A bright look.", "action": {"type": "lr_adjust_sliders",
       "text": "Exposure:0.5:1;Contrast:20:0;Moonlight:1:0"}}' >"$work/reply"
start_chat_server
expect "look" "A bright look.
UI Accessibility Fallback: Adjusted 2 of 3 sliders." \
    "$(KELVALR_OPENAI_API_KEY=test-key answers "make it bright")"
expect "exposure" "+0.50" "$(xmp "$second" Xmp.crs.Exposure2012)"
expect "contrast" "+20" "$(xmp "$second" Xmp.crs.Contrast2012)"
expect "typing" "Typed text into keyword." "$(answers "type sunset into the keyword field in lightroom")"
list=$(answers "inspect lightroom")
for line in '* [AXMenuItem] "Plug-in Manager..."' '* [AXGroup] "Preview of '"$(basename "${photos[1]}")"'"' \
    '* [AXTextField] "Keyword" (Click here to add keywords) = "sunset"'; do
    grep -qxF "$line" <<<"$list" || expect "listed" "$line" "$list"
done
[ -z "${SCREENSHOT:-}" ] || import -window root "$SCREENSHOT"

log=${XDG_STATE_HOME:-$HOME/.local/state}/kelvalr/app_debug.log
for line in "pressed P, and the window changed" "wrote 0.5 to the slider Exposure, which had 0 and has 0.5"; do
    grep -qF "$line" "$log" || expect "log" "$line" "$(cat "$log")"
done
stop_standin

# Lightroom runs, and has not started the plug-in: its menu item does.
"$kelvalr" --install-plugin >/dev/null
open_standin --photos "$work/photos" --without-plugin-start
expect "connection" "Connected to Lightroom Classic plugin." "$(answers "test lightroom connection")"
expect "status" "Lightroom Classic: $(basename "${photos[0]}") selected. Exposure 0.00 EV, rating 3." \
    "$(answers "what photo is selected in lightroom")"
finish
