#!/usr/bin/env bash
# installation.sh BUILD SOURCE CMAKE: what an installation consists of is valid, whole, and works where it lies.
build=$1
tree=$2
cmake=$3
# shellcheck source=Tests/EndToEnd/support.sh
source "$tree/Tests/EndToEnd/support.sh" "" ""

prefix=$work/prefix
"$cmake" --install "$build" --prefix "$prefix" >"$work/install.log" || { cat "$work/install.log"; exit 1; }
kelvalr=$prefix/bin/kelvalr
standin=$prefix/bin/lightroom-standin
share=$prefix/share
id=org.kelvalr.KelvaLR

# Nothing is missing, and nothing of the tests is there.
expect "installed files" "bin/kelvalr
bin/lightroom-standin
share/applications/$id.desktop
share/dbus-1/services/$id.service
share/doc/kelvalr/changelog.Debian.gz
share/doc/kelvalr/changelog.gz
share/doc/kelvalr/copyright
share/icons/hicolor/128x128/apps/$id.png
share/icons/hicolor/256x256/apps/$id.png
share/icons/hicolor/48x48/apps/$id.png
share/icons/hicolor/64x64/apps/$id.png
share/icons/hicolor/scalable/apps/$id.svg
share/kelvalr/speech/commands.dict
share/kelvalr/speech/commands.lm
share/kelvalr/speech/likenesses.lm
share/lintian/overrides/kelvalr
share/man/man1/kelvalr.1.gz
share/man/man1/lightroom-standin.1.gz
share/metainfo/$id.metainfo.xml" "$(cd "$prefix" && find . -type f -printf '%P\n' | LC_ALL=C sort)"

# It can be taken anywhere: nothing looks back into the tree.
expect "texts that name the tree" "" "$(grep -rIlF -e "$tree" -e "$build" "$prefix" || true)"
expect "search paths of libraries" "" "$(readelf -d "$kelvalr" "$standin" | grep -E 'R(UN)?PATH' || true)"
expect "program that the bus starts" "Exec=$kelvalr --gapplication-service" \
    "$(grep ^Exec "$share/dbus-1/services/$id.service")"

# What desktops and software centres read.
expect "desktop entry" "" "$(desktop-file-validate "$share/applications/$id.desktop" 2>&1)"
appstreamcli validate --no-net --no-color "$share/metainfo/$id.metainfo.xml" >"$work/metainfo" ||
    expect "metainfo" "valid" "$(cat "$work/metainfo")"
for size in 48 64 128 256; do
    expect "picture of $size" "PNG image data, $size x $size" \
        "$(file -b "$share/icons/hicolor/${size}x$size/apps/$id.png" | cut -d, -f1,2)"
done

# Manual pages name exactly the options that the programs have.
long_options() { grep -oE -- '(^|[ ,])--[a-z-]+' | tr -d ' ,' | sort -u; }
for program in kelvalr lightroom-standin; do
    page=$share/man/man1/$program.1.gz
    expect "lint of $program.1" "" "$(zcat "$page" | mandoc -T lint -W warning 2>&1)"
    expect "options of $program.1" "$("$prefix/bin/$program" --help | long_options)" \
        "$(zcat "$page" | sed -n '/^\.It Fl/{s/ Fl -/ --/g;s/ , -/, --/g;p}' | long_options)"
done

# The programs work from there.
expect "version" "kelvalr $(sed -n 's/^project(KelvaLR VERSION \([0-9.]*\) .*/\1/p' "$tree/CMakeLists.txt")" \
    "$("$kelvalr" --version)"
expect "route" \
    '{"text":"next photo in lightroom","route":"command","command":{"case":"lightroomNavigate","direction":"next"}}' \
    "$(echo "next photo in lightroom" | "$kelvalr" --explain)"
"$kelvalr" --install-plugin >/dev/null
"$standin" --sample-photos "$work/photos"
start_standin --photos "$work/photos"
expect "answer" "> set exposure to 1
Lightroom Classic: Adjusted Exposure on 1 photo to 1" "$("$kelvalr" --prompt "set exposure to 1")"
expect "sidecars" 1 "$(find "$work/photos" -name '*.xmp' | wc -l)"
finish
