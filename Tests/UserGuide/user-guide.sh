#!/usr/bin/env bash
# user-guide.sh KELVALR USER_GUIDE GUIDE PLUGIN: what the guide says is true of the program. Its examples take the road
# that it names, and what it quotes stands in the program or in the plug-in.
set -euo pipefail
kelvalr=$1
user_guide=$2
guide=$3
plugin=$4
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
failures=0

fail() {
    echo "$guide: $*"
    failures=$((failures + 1))
}

"$user_guide" --requests "$guide" >"$work/requests"
for front in no yes; do
    options=(--explain)
    [ $front = no ] || options+=(--assume-lightroom-frontmost)
    sed -n "s/^$front\t//p" "$work/requests" >"$work/asked"
    cut -f3 "$work/asked" | "$kelvalr" "${options[@]}" >"$work/explained"
    while IFS= read -r asked && IFS= read -r explained <&3; do
        IFS=$'\t' read -r route case text <<<"${asked/$'\t\t'/$'\t-\t'}"
        case=${case#-}
        if [[ $explained != *",\"route\":\"$route\""* || -n $case && $explained != *"{\"case\":\"$case\""* ]]; then
            fail "\"$text\" is no $route $case: $explained"
        fi
    done <"$work/asked" 3<"$work/explained"
done

# Texts of two bytes a character lose every second one.
{ tr -d '\0' <"$kelvalr" && cat "$plugin"/*.lua; } >"$work/program"
"$user_guide" --quotations "$guide" >"$work/quotations"
while IFS= read -r quotation; do
    grep -aqF -- "$quotation" "$work/program" || fail "the program does not say \"$quotation\"."
done <"$work/quotations"

[ "$failures" -eq 0 ] && [ -s "$work/requests" ] && [ -s "$work/quotations" ]
