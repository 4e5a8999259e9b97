# Sourced by the tests of sessions, which are scripts that run a command in surroundings of their own: what leaves nothing,
# however it ends.
# shellcheck shell=bash
set -euo pipefail
# shellcheck source=Tests/expect.sh
source "$(dirname "${BASH_SOURCE[0]}")/../expect.sh"
session=$1
work=$(mktemp -d)
trap 'jobs -p | xargs -r kill; rm -rf "$work"' EXIT
export TMPDIR=$work/tmp
mkdir "$TMPDIR"

# await COMMAND...: until it succeeds, for twenty seconds at most
await() {
    local deadline=$((SECONDS + 20))
    until "$@"; do
        [ "$SECONDS" -lt "$deadline" ] || { echo "waited in vain for: $*"; exit 1; }
        sleep 0.05
    done
}

remaining=. # which processes count, by their command lines

# remains: the processes and files of any session of this test
remains() {
    grep -lzF "=$TMPDIR/${session##*/}." /proc/[0-9]*/environ 2>/dev/null |
        while IFS=/ read -r _ _ pid _; do { tr '\0' ' ' <"/proc/$pid/cmdline" && echo; } 2>/dev/null || true; done |
        grep "$remaining"
    ls -A "$TMPDIR"
}

nothing_remains() { [ -z "$(remains)" ]; }

# leaves_nothing_when_killed SCRIPT: run in a session, it touches the file that is its $0 and does not end by itself
leaves_nothing_when_killed() {
    local signal
    for signal in TERM KILL; do
        "$session" bash -c "$1" "$work/$signal" &
        await test -e "$work/$signal"
        kill -s "$signal" $!
        wait $! 2>/dev/null || true
        [ "$signal" = TERM ] || await nothing_remains # nobody is left to wait for the clearing up
        expect "remains after SIG$signal" "" "$(remains)"
    done
}

# says_what_is_wrong MISSING SENTENCE PROGRAM...: in one sentence, where a program is missing, and where it fails; the other
# programs are there
says_what_is_wrong() {
    local missing=$1 sentence=$2 program said status=0
    mkdir "$work/bin"
    for program in bash env mktemp setpriv "${@:3}"; do
        ln -s "$(command -v "$program")" "$work/bin/"
    done
    expect "without $missing" "${session##*/}: $missing is missing; Scripts/install-packages installs it." \
        "$(PATH=$work/bin "$session" true 2>&1)"
    printf '#!/bin/sh\necho "no memory" >&2\nexit 1\n' >"$work/bin/$missing"
    chmod +x "$work/bin/$missing"
    said=$(PATH=$work/bin:$PATH "$session" true 2>&1) || status=$?
    expect "with one that fails" "125 ${session##*/}: $sentence no memory" "$status $said"
    expect "remains after a failure" "" "$(remains)"
}
