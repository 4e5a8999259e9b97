#!/usr/bin/env bash
# A photographer at the window: a typed command, an import, two clicked thumbnails, a batch on exactly those two.
# Runs on Scripts/desktop-session. With SCREENSHOT=FILE it leaves a picture of the window there.
# shellcheck source=Tests/EndToEnd/support.sh
source "$(dirname "$0")/support.sh"

"$kelvalr" --install-plugin >/dev/null
"$standin" --sample-photos "$work/samples"
mapfile -t samples < <(find "$work/samples" -name '*.jpg' | sort)
mkdir "$work/photos" "$work/more"
cp "${samples[@]:0:5}" "$work/photos"
start_standin --photos "$work/photos"

cp "$here/../Data/photos/thumbnail.heic" "$work/more/coast.heic"
cp "$here/../Data/photos/orientation-6.dng" "$work/more/dune.dng"
cp "${samples[0]}" "$work/more/forest.jpg"
cp "${samples[1]}" "$work/more/lake.jpg"
cp "${samples[2]}" "$work/more/ridge.jpg"

open_window

# A desktop finds the entry of the window by its class.
expect "class of the window" "$(sed -n 's/^StartupWMClass=//p' "$here/../../Packaging/org.kelvalr.KelvaLR.desktop")" \
    "$(xprop -id "$window" WM_CLASS | sed 's/.*, "\(.*\)"$/\1/')"
xprop -id "$window" _NET_WM_ICON | grep 'Icon (' >/dev/null || expect "icon of the window" "a picture" ""

request "set exposure to +0.5" "Lightroom Classic: Adjusted Exposure on 1 photo to 0.5"
first=$work/photos/$(basename "${samples[0]}" .jpg).xmp
expect "exposure" "+0.50" "$(xmp "$first" Xmp.crs.Exposure2012)"

request "import photos from folder $work/more" "Lightroom Classic: Imported 5 photos from folder"
click dune
click lake ctrl
request "rate these 4 stars" "Lightroom Classic: Set rating to 4 on 2 photos"
for photo in coast:0 dune:4 forest:0 lake:4 ridge:0; do
    rating=$(xmp "$work/more/${photo%:*}.xmp" Xmp.xmp.Rating)
    expect "rating of ${photo%:*}" "${photo#*:}" "${rating:-0}"
done
[ -z "${SCREENSHOT:-}" ] || import -window "$window" "$SCREENSHOT"

quit_window
finish
