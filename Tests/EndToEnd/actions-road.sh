#!/usr/bin/env bash
# The desktop asks for the system actions: of a program that does not run, of one that does, over the session bus and
# by a second start. Runs on Scripts/desktop-session.
services=$XDG_DATA_HOME/dbus-1/services
# shellcheck source=Tests/EndToEnd/support.sh
source "$(dirname "$0")/support.sh"
export QT_QUICK_BACKEND=software

# running: the process that has the program's name on this desktop's bus
running() {
    gdbus call --session --dest org.freedesktop.DBus --object-path / \
        --method org.freedesktop.DBus.GetConnectionUnixProcessID org.kelvalr.KelvaLR 2>/dev/null |
        sed -n 's/^(uint32 \([0-9]*\),)$/\1/p'
}

# end PROCESS: and waits until it has ended
end() {
    kill "$1"
    timeout 20 tail --pid="$1" -f /dev/null
}

end_programs() {
    pkill -P $$ 2>/dev/null || true
    running | xargs -r kill 2>/dev/null || true
}
trap 'end_programs; cleanup' EXIT

# ask METHOD ARG...: of the program, by whatever it takes to start it
ask() {
    gdbus call --session --timeout 20 --dest org.kelvalr.KelvaLR --object-path /org/kelvalr/KelvaLR \
        --method "org.kelvalr.KelvaLR.Intents.$1" "${@:2}" 2>&1 || true
}

composer() { "$here/window-element.py" --text "Ask KelvaLR"; }

holds() { [ "$(composer)" = "focused $1" ]; }

# composes NAME TEXT: the composer soon holds the text and has the keyboard
composes() { within 20 holds "$2" || expect "$1" "focused $2" "$(composer)"; }

in_front() { xdotool getactivewindow getwindowname 2>/dev/null || true; }

is_in_front() { [ "$(in_front)" = KelvaLR ]; }

# windows SEARCH...: the visible ones; looks again when one of them all goes while it looks
windows() {
    local found
    until found=$(xdotool search --onlyvisible "$@" 2>"$work/x-error") || [ ! -s "$work/x-error" ]; do sleep 0.1; done
    echo "$found"
}

try_to_activate() {
    local window
    window=$(windows "$@") && [ -n "$window" ] && xdotool windowactivate --sync "$window" 2>/dev/null
}

# activate SEARCH...: the window, once it is there
activate() { within 20 try_to_activate "$@" || { echo "no window of $*"; exit 1; }; }

# comes_to_front NAME: the window soon is
comes_to_front() { within 10 is_in_front || expect "$1" KelvaLR "$(in_front)"; }

mkdir -p "$services"
printf '[D-BUS Service]\nName=org.kelvalr.KelvaLR\nExec=%s --gapplication-service\n' "$kelvalr" \
    >"$services/org.kelvalr.KelvaLR.service"
gdbus call --session --dest org.freedesktop.DBus --object-path / --method org.freedesktop.DBus.ReloadConfig >/dev/null

# What needs no window opens none.
expect "sessions" "([('chat', 'Lightroom')],)" "$(ask Sessions "['other', 'chat']")"
expect "no session" "(@a(ss) [],)" "$(ask Sessions "['other']")"
expect "artifacts" "([('lightroom-status', 'Lightroom Status', 'Markdown')],)" "$(ask SuggestedArtifacts)"
expect "shortcuts" "([('Open KelvaLR Section', ['Open KelvaLR', 'Open Chat in KelvaLR'], 'Open KelvaLR', 'message'), \
('Create KelvaLR Note', ['Create a note in KelvaLR', 'Save this to KelvaLR'], 'Create Note', 'square.and.pencil')],)" \
    "$(ask Shortcuts)"
expect "title of the section" "'section.chat': 'Lightroom'" "$(ask Titles | grep -o "'section.chat': '[^']*'")"
expect "windows" "" "$(windows --name '^KelvaLR$')"
end "$(running)"

# The bus starts the program for a note.
expect "note for a program that does not run" "('Opened KelvaLR.',)" "$(ask CreateKelvaLRNote 'Buy film')"
composes "the note" "Buy film"

# It runs; another program is in front.
"$(dirname "$kelvalr")/widget_gallery" >/dev/null &
other=$!
activate --pid "$other"
expect "empty note" "('Opened KelvaLR.',)" "$(ask CreateKelvaLRNote '')"
comes_to_front "after an empty note"
composes "after an empty note" "Buy film"
expect "section" "()" "$(ask OpenKelvaLRSection chat)"
expect "unknown section" "There is no section 'photos'; there is: chat." \
    "$(ask OpenKelvaLRSection photos | sed -n 's/.*: There/There/p')"
expect "another note" "('Opened KelvaLR.',)" "$(ask CreateKelvaLRNote ' Zwei Filme ')"
composes "another note" " Zwei Filme "

# A second start hands over.
activate --pid "$other"
expect "second start" "0" "$("$kelvalr" 2>&1; echo $?)"
comes_to_front "after a second start"
expect "second start with a note" "Opened KelvaLR.
0" "$("$kelvalr" --create-note "Three films" 2>&1; echo $?)"
composes "its note" "Three films"
expect "second start without a display" "Opened KelvaLR.
0" "$(env -u DISPLAY -u QT_QPA_PLATFORM "$kelvalr" --create-note "Three films" 2>&1; echo $?)"
expect "second start with a section" 0 "$("$kelvalr" --open-section chat 2>&1; echo $?)"
expect "programs with a window" 1 "$(windows --name '^KelvaLR$' | wc -l)"

# A note has the keyboard, also when the settings are open.
activate --name '^KelvaLR$'
xdotool key ctrl+comma
activate --name '^KelvaLR Settings$'
expect "note beside the settings" "('Opened KelvaLR.',)" "$(ask CreateKelvaLRNote 'Beside')"
composes "note beside the settings" "Beside"

# One that hangs is not waited for without end.
program=$(running)
kill -STOP "$program"
expect "hanging program" "kelvalr: KelvaLR already runs, but does not answer.
1" "$("$kelvalr" --open-section chat 2>&1; echo $?)"
kill -CONT "$program"
end "$program"

# A first start with a note.
"$kelvalr" --create-note "Four films" >"$work/said" 2>"$work/kelvalr.err" &
composes "note of a first start" "Four films"
expect "what it said" "Opened KelvaLR." "$(cat "$work/said")"
expect "standard error" "" "$(cat "$work/kelvalr.err")"
finish
