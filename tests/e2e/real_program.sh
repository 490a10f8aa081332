#!/usr/bin/env bash
# Runs the built program on a display of its own, in a temporary folder filled from the demo, and presses its keys.
# Usage: real_program.sh RUN PROGRAM DEMO, with RUN one of the functions at the end: list_and_leave, save_twice.
set -euo pipefail
run=$1
built=$2
demo=$3

readonly missingTools=77 # tells ctest that the run was skipped
for tool in Xvfb xdotool; do
    command -v "$tool" >/dev/null || { echo "skipped: there is no $tool"; exit "$missingTools"; }
done

folder=$(mktemp -d)
server=
program=

clean_up() {
    local pid
    for pid in $program $server; do
        kill "$pid" 2>/dev/null || true
        wait "$pid" 2>/dev/null || true
    done
    rm -rf "$folder"
}
trap clean_up EXIT
trap 'exit 130' INT
trap 'exit 143' TERM

fail() {
    echo "FAILED: $*" >&2
    [[ ! -s $folder/log.txt ]] || tail -n 25 "$folder/log.txt" | tr -d '\r' >&2
    [[ ! -s $folder/output ]] || tail -n 20 "$folder/output" >&2
    exit 1
}

# Polls until a command succeeds: wait_for SECONDS WHAT COMMAND... The end of what must live ends the wait as well.
wait_for() {
    local deadline=$((SECONDS + $1)) what=$2 alive=$server
    shift 2
    [[ -z $program ]] || alive=$program
    until "$@"; do
        kill -0 "$alive" 2>/dev/null || "$@" || fail "it ended while waiting for $what"
        ((SECONDS < deadline)) || fail "gave up waiting for $what"
        read -r -t 0.1 <>"$folder/never" || true
    done
}

display_ready() { [[ $(wc -l <"$folder/display") -gt 0 ]]; }
program_ended() { ! kill -0 "$program" 2>/dev/null; }
main_window() { xdotool search --onlyvisible --name '^Vantor V:' 2>/dev/null | head -n 1; }
# The boxes bear the bare name.
box_window() { xdotool search --onlyvisible --name '^Vantor$' 2>/dev/null | head -n 1; }
has_main_window() { [[ -n $(main_window) ]]; }
has_box() { [[ -n $(box_window) ]]; }
has_no_box() { [[ -z $(box_window) ]]; }
has_other_box() { local now; now=$(box_window) && [[ -n $now && $now != "$1" ]]; }
loads_complete() { (($(grep -c 'Startup complete' "$folder/log.txt" || true) >= $1)); }

# Presses a key in a window. No window manager is there to give it the focus.
press() {
    timeout 20 xdotool windowfocus --sync "$1" key --clearmodifiers "$2" || fail "could not press $2"
}

picture() { timeout 20 import -silent -window "$(main_window)" "$1"; }
colours() { identify -format '%k' "$1"; }
pixels_changed() {
    local count
    count=$(compare -metric AE "$1" "$2" null: 2>&1) || true
    awk -v count="$count" 'BEGIN { if (count ~ /^[0-9.]+(e[+]?[0-9]+)?$/) printf "%d", count; else print 999999999 }'
}
window_painted() { picture "$folder/now.png" && (($(colours "$folder/now.png") > 10)); }
flights_show() { picture "$folder/now.png" && (($(pixels_changed "$folder/before.png" "$folder/now.png") > 2000)); }

start_display() {
    mkfifo "$folder/never"
    : >"$folder/display"
    Xvfb -displayfd 1 -screen 0 1280x900x24 -nolisten tcp >"$folder/display" 2>"$folder/output" &
    server=$!
    wait_for 30 "the virtual display" display_ready
    DISPLAY=:$(<"$folder/display")
    export DISPLAY QT_QPA_PLATFORM=xcb XDG_RUNTIME_DIR=$folder
    unset WAYLAND_DISPLAY
}

# A folder in the program's own form: backslashes, one at the end.
program_folder() {
    local backslash=$'\\'
    printf '%s' "${1//\//$backslash}$backslash"
}

start_program() {
    cp "$demo"/TrafficTools/* "$folder"
    cp -r "$demo/FS2002" "$demo/FS2004" "$folder"
    ln -s "$built" "$folder/Vantor"
    printf '%s\r\n' "FS2K2PATH,$(program_folder "$folder/FS2002")" 'FSMODE, 2 ' >"$folder/Vantor2.ini"
    "$folder/Vantor" >"$folder/output" 2>&1 &
    program=$!
    wait_for 60 "the window" has_main_window
    wait_for 30 "the window to be painted" window_painted
}

load() {
    press "$(main_window)" F5
    wait_for 120 "load number $1" loads_complete "$1"
}

leave() {
    press "$(main_window)" alt+x
    wait_for 30 "the end of the program" program_ended
    local status=0
    wait "$program" || status=$?
    program=
    ((status == 0)) || fail "the exit code is $status"
}

# Saves the flights: Alt+Y for "Overwrite ...?", and Enter for the word that it is done.
save() {
    press "$(main_window)" ctrl+s
    wait_for 30 "the question" has_box
    local question
    question=$(box_window)
    press "$question" alt+y
    wait_for 60 "the word that the plans are saved" has_other_box "$question"
    press "$(box_window)" Return
    wait_for 30 "the box to close" has_no_box
}

list_and_leave() {
    load 1
    wait_for 30 "the window behind the load" window_painted
    cp "$folder/now.png" "$folder/before.png"
    press "$(main_window)" ctrl+l
    wait_for 60 "the flights to show" flights_show
    (($(colours "$folder/now.png") > 20)) || fail "the window is all but blank"
    rm "$folder/Vantor2.ini"
    leave
    [[ -s $folder/Vantor2.ini ]] || fail "the settings were not written"
    grep -q '^FSMODE, 2 ' "$folder/Vantor2.ini" || fail "the mode is not in the settings"
    grep -q 'Listing last 40 actions: ' "$folder/log.txt" || fail "the log lacks the recent actions"
    tail -n 1 "$folder/log.txt" | grep -q 'End of actions list' || fail "the log ends elsewhere"
    cmp "$demo/TrafficTools/Flightplans.txt" "$folder/Flightplans.txt" || fail "looking changed the flight plans"
}

save_twice() {
    load 1
    save
    cp "$folder/Flightplans.txt" "$folder/first.txt"
    cmp -s "$demo/TrafficTools/Flightplans.txt" "$folder/first.txt" && fail "the comments were not taken out: no save"
    (($(grep -c '^AC#' "$folder/first.txt") >= 800)) || fail "flights were lost in the save"
    load 2
    save
    cmp "$folder/first.txt" "$folder/Flightplans.txt" || fail "the second save differs from the first"
    leave # no question: nothing was changed
    for file in Aircraft.txt Airports.txt; do
        cmp "$demo/TrafficTools/$file" "$folder/$file" || fail "$file changed"
    done
}

case $run in
list_and_leave | save_twice) ;;
*) fail "no such run: $run" ;;
esac
start_display
start_program
"$run"
echo "$run: passed"
