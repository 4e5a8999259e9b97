# Sourced by the tests that are scripts: checks that say what differs, and go on.
# shellcheck shell=bash
failures=0

# expect NAME EXPECTED ACTUAL
expect() {
    [ "$2" = "$3" ] && return 0
    printf '%s differs\n--- expected\n%s\n--- actual\n%s\n' "$1" "$2" "$3"
    failures=$((failures + 1))
}

# report: ends the test
report() {
    [ "$failures" -eq 0 ] || { echo "$failures checks failed"; exit 1; }
}
