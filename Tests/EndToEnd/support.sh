# Sourced by the end-to-end tests: a home of their own, the stand-in, and checks that say what differs.
# shellcheck shell=bash
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
# shellcheck source=Tests/expect.sh
source "$here/../expect.sh"
kelvalr=$1
standin=$2
work=$(mktemp -d)
export HOME=$work/home LC_ALL=C.UTF-8
unset XDG_DATA_HOME KELVALR_OPENAI_API_KEY OPENAI_API_KEY OPENAI_BASE_URL
mkdir -p "$HOME"
standin_pid=
programs=() # that run beside the test and end with it

cleanup() {
    kill "${programs[@]}" 2>/dev/null || true
    for pid in "${programs[@]}"; do timeout 10 tail --pid="$pid" -f /dev/null || true; done
    stop_standin
    rm -rf "$work"
}
trap cleanup EXIT

# within SECONDS COMMAND...: tries until it succeeds; false when it has not within the time
within() {
    local deadline=$((SECONDS + $1))
    until "${@:2}"; do
        [ "$SECONDS" -lt "$deadline" ] || return 1
        sleep 0.1
    done
}

# sample_photos: their paths are in $photos, the sidecars of two of them are $first and $second
# shellcheck disable=SC2034
sample_photos() {
    "$standin" --sample-photos "$work/photos" >/dev/null
    mapfile -t photos < <(find "$work/photos" -name '*.jpg' | sort)
    first=${photos[0]%.jpg}.xmp
    second=${photos[1]%.jpg}.xmp
}

# start_lightroom: with the plug-in and the sample photos
start_lightroom() {
    "$kelvalr" --install-plugin >/dev/null
    sample_photos
    start_standin --photos "$work/photos"
}

start_standin() { run_standin ready --headless "$@"; }

# open_standin ARG...: with its window
open_standin() { run_standin window "$@"; }

# run_standin LINE ARG...: until it says the line
run_standin() {
    local line=$1
    shift
    "$standin" "$@" >"$work/standin.out" 2>"$work/standin.err" &
    standin_pid=$!
    for _ in $(seq 200); do
        grep -qx "$line" "$work/standin.out" && return 0
        kill -0 "$standin_pid" 2>/dev/null || break
        sleep 0.05
    done
    echo "the stand-in did not get ready:"
    cat "$work/standin.err"
    exit 1
}

stop_standin() {
    [ -n "$standin_pid" ] || return 0
    kill "$standin_pid" 2>/dev/null || true
    wait "$standin_pid" || { echo "the stand-in did not end cleanly"; failures=$((failures + 1)); }
    standin_pid=
}

# xmp SIDECAR KEY: the value of one key, empty when it is not there
xmp() { exiv2 -Pv -K "$2" "$1" 2>/dev/null || true; }

# start_chat_server: that answers with the content of $work/reply, at OPENAI_BASE_URL; $work/requests is what it was sent
start_chat_server() {
    "$here/chat-server.py" "$work/reply" >"$work/port" 2>"$work/requests" &
    programs+=($!)
    within 5 test -s "$work/port" || { echo "the chat service did not get ready"; exit 1; }
    OPENAI_BASE_URL=http://127.0.0.1:$(cat "$work/port")/v1
    export OPENAI_BASE_URL
}

# open_window: of kelvalr, in front. It is $window, its process $window_pid, its standard error in $work/kelvalr.err.
open_window() {
    QT_QUICK_BACKEND=software "$kelvalr" 2>"$work/kelvalr.err" &
    window_pid=$!
    programs+=("$window_pid")
    window=$(timeout 20 xdotool search --sync --onlyvisible --pid "$window_pid" --name '^KelvaLR$')
    to_front
}

to_front() { timeout 20 xdotool windowactivate --sync "$window"; }

# element [--gone] NAME: where that window shows it, as "X Y", or nothing once it does not show it any more; ends the test
# when that does not come within the deadline
element() { "$here/window-element.py" "$@" || { cat "$work/kelvalr.err" >&2; exit 1; }; }

shows() { element "$1" >/dev/null; }

hides() { element --gone "$1"; }

# click NAME [KEY]: with the left button, while the key is held
click() {
    local found place
    found=$(element "$1")
    read -ra place <<<"$found"
    xdotool mousemove "${place[@]}" ${2:+keydown "$2"} click 1 ${2:+keyup "$2"}
}

# request TEXT ANSWER: types it into the composer and waits until the window shows the answer
request() {
    to_front
    click "Ask KelvaLR"
    xdotool type --delay 5 "$1"
    xdotool key Return
    shows "$2"
}

# quit_window: by its key; it ends well and without a warning
quit_window() {
    xdotool key ctrl+q
    timeout 20 tail --pid="$window_pid" -f /dev/null
    wait "$window_pid" || expect "status of the window" 0 $?
    expect "warnings" "" "$(cat "$work/kelvalr.err")"
}

# record_speaker: from now on into $work/speaker
record_speaker() {
    parec --device=speaker.monitor --format=s16le --rate=24000 --channels=1 --latency-msec=20 --raw >"$work/speaker" &
    programs+=($!)
}

# recorded: how many bytes
recorded() { stat --format=%s "$work/speaker"; }

# seconds_of_sound BYTE: how long the speaker has been louder than a whisper since that place of the recording
seconds_of_sound() {
    python3 - "$work/speaker" "$1" <<'END'
import array, sys
samples = array.array("h")
with open(sys.argv[1], "rb") as recording:
    recording.seek(int(sys.argv[2]) // 2 * 2)
    data = recording.read()
samples.frombytes(data[: len(data) // 2 * 2])
loud = [place for place, sample in enumerate(samples) if abs(sample) > 600]
print((loud[-1] - loud[0]) // 24000 if loud else 0)
END
}

has_heard() { [ "$(seconds_of_sound "$2")" -ge "$1" ]; }

# hears SECONDS [BYTE]: waits until the speaker has been heard for so long since that place of the recording
hears() { within 20 has_heard "$1" "${2:-0}" || expect "seconds of sound" "$1 or more" "$(seconds_of_sound "${2:-0}")"; }

# finish: ends the test
finish() {
    stop_standin
    report
}
