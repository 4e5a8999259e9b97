#!/usr/bin/env bash
# A typed command goes from the command line into the catalog and comes back.
# shellcheck source=Tests/EndToEnd/support.sh
source "$(dirname "$0")/support.sh"

start_lightroom

answers=$("$kelvalr" \
    --prompt "set exposure to +0.5" --prompt "increase contrast by 10" --prompt "rate it 4 stars in lightroom" \
    --prompt "flag as pick in lightroom" --prompt "what photo is selected in lightroom" \
    --prompt "apply preset soft matte in lightroom" --prompt "next photo in lightroom" | grep -v '^>')
expect "answers" "Lightroom Classic: Adjusted Exposure on 1 photo to 0.5
Lightroom Classic: Adjusted Contrast on 1 photo to 10
Lightroom Classic: Set rating to 4 on 1 photo
Lightroom Classic: Set pickStatus to 1 on 1 photo
Lightroom Classic: $(basename "${photos[0]}") selected. Exposure 0.50 EV, rating 4.
Lightroom Classic: Applied preset Soft Matte to 1 photo
Lightroom Classic: Moved to photo 2" "$answers"
expect "rating" 4 "$(xmp "$first" Xmp.xmp.Rating)"
for setting in Exposure2012 Contrast2012; do
    [ -n "$(xmp "$first" Xmp.crs.$setting)" ] || expect "$setting in the sidecar" "a value" ""
done

# Exactly the imported photos are rated.
mkdir "$work/more"
cp "${photos[0]}" "$work/more/one.jpg"
cp "${photos[0]}" "$work/more/two.JPG"
echo "no photo" >"$work/more/notes.txt"
sums() { find "$work/photos" -name '*.xmp' -exec md5sum {} + | sort; }
untouched=$(sums)
answers=$("$kelvalr" --json --prompt "import photos from folder $work/more" \
    --prompt "rate all imported photos 3 stars" | grep '"message"' |
    grep -c -e 'Imported 2 photos from folder"' -e 'Set rating to 3 on 2 photos"')
expect "answers about imported photos" 2 "$answers"
expect "rating of the first" 3 "$(xmp "$work/more/one.xmp" Xmp.xmp.Rating)"
expect "rating of the second" 3 "$(xmp "$work/more/two.xmp" Xmp.xmp.Rating)"
expect "the other sidecars" "$untouched" "$(sums)"

# A session without a terminal reads lines; blank ones are skipped.
answers=$(printf 'test lightroom connection\n\nquit\nset exposure to 1\n' | "$kelvalr" --terminal)
expect "session without a terminal" "> test lightroom connection
Connected to Lightroom Classic plugin." "$answers"

answer=$("$kelvalr" --prompt "tell me a story" | tail -n 1)
# shellcheck disable=SC2016
expect "chat without a key" \
    'OpenAI is not configured. Add `KELVALR_OPENAI_API_KEY` to `.env.local` for local development.' "$answer"
expect "reply files left" "" "$(find /tmp -maxdepth 1 -name 'kelvalr-lightroom-*' -newer "$work/standin.out")"
finish
