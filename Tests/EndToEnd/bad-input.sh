#!/usr/bin/env bash
# What a user can get wrong on the command line ends in one sentence and a status that is not 0.
# shellcheck source=Tests/EndToEnd/support.sh
source "$(dirname "$0")/support.sh"

# refuses NAME PATTERN COMMAND...: one line on standard error that matches, and a status that is not 0
refuses() {
    local name=$1 pattern=$2 status=0 error
    shift 2
    error=$(timeout 30 "$@" 2>&1 >/dev/null </dev/null) || status=$?
    if [ "$status" -eq 0 ] || [ "$(wc -l <<<"$error")" -ne 1 ] || ! grep -q -e "$pattern" <<<"$error"; then
        printf '%s: status %s, said:\n%s\n' "$name" "$status" "$error"
        failures=$((failures + 1))
    fi
}

mkdir "$work/photos" "$work/presets"
touch "$work/file"
echo "<x:xmpmeta" >"$work/presets/Broken.xmp"

refuses "unknown option" "nonsense" "$kelvalr" --nonsense
refuses "blank prompt" "blank" "$kelvalr" --prompt "  "

rm -r "$HOME" && touch "$HOME"
refuses "plug-in folder that cannot be written" "$HOME" "$kelvalr" --install-plugin
refuses "the same while answering" "Failed to install Lightroom plugin" "$kelvalr" --prompt "tell me a story"
rm "$HOME" && mkdir "$HOME"

refuses "no plug-in" "--install-plugin" "$standin" --headless --photos "$work/photos"
"$kelvalr" --install-plugin >/dev/null
refuses "no catalog folder" "--photos" "$standin" --headless
refuses "missing catalog folder" "$work/none" "$standin" --headless --photos "$work/none"
refuses "file in the place of the catalog folder" "$work/file" "$standin" --headless --photos "$work/file"
refuses "missing preset folder" "$work/none" "$standin" --headless --photos "$work/photos" --presets "$work/none"
refuses "broken preset file" "Broken.xmp" \
    "$standin" --headless --photos "$work/photos" --presets "$work/presets"

start_standin --photos "$work/photos"
refuses "port already taken" "54321" "$standin" --headless --photos "$work/photos"

# Ten thousand lines of anything are each answered with one line of JSON.
head -c 4000000 /dev/urandom | tr -d '\n' | fold -b -w 390 >"$work/noise"
LC_ALL=C sed -n '1,10000p' "$work/noise" >"$work/lines"
expect "explained lines" 10000 "$("$kelvalr" --explain <"$work/lines" | grep -c '^{"text":.*}$')"
finish
