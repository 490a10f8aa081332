#!/usr/bin/env bash
# Runs the built program on a display of its own, in a temporary folder filled from the demo, and presses its keys.
# Usage: real_program.sh RUN PROGRAM DEMO, with RUN one of the functions at the end: list_and_leave, save_twice.
set -euo pipefail
run=$1
built=$2
demo=$3

readonly missingTools=77 # tells ctest that the run was skipped
for tool in Xvfb xdotool import; do
    command -v "$tool" >/dev/null || { echo "skipped: there is no $tool"; exit "$missingTools"; }
done

fail() {
    echo "FAILED: $*" >&2
    [[ ! -s $work/log.txt ]] || tail -n 25 "$work/log.txt" | tr -d '\r' >&2
    [[ ! -s $work/output ]] || tail -n 20 "$work/output" >&2
    exit 1
}
source "$(dirname "${BASH_SOURCE[0]}")/../../scripts/display.sh"

loads_complete() { (($(grep -c 'Startup complete' "$work/log.txt" || true) >= $1)); }
# The boxes bear the bare name.
box='^Vantor$'
has_other_box() { has_window "$box" && [[ $(window_of "$box") != "$1" ]]; }

start() {
    cp "$demo"/TrafficTools/* "$work"
    cp -r "$demo/FS2002" "$demo/FS2004" "$work"
    ln -s "$built" "$work/Vantor"
    printf '%s\r\n' "FS2K2PATH,$(program_folder "$work/FS2002")" 'FSMODE, 2 ' >"$work/Vantor2.ini"
    start_program "$work/Vantor"
    window=$(window_of '^Vantor V:')
    wait_for 30 "the window to be painted" window_still "$window"
}

load() {
    press "$window" F5
    wait_for 120 "load number $1" loads_complete "$1"
}

leave() {
    press "$window" alt+x
    end_program
}

# Saves the flights: Alt+Y for "Overwrite ...?", and Enter for the word that it is done.
save() {
    press "$window" ctrl+s
    wait_for 30 "the question" has_window "$box"
    local question
    question=$(window_of "$box")
    press "$question" alt+y
    wait_for 60 "the word that the plans are saved" has_other_box "$question"
    press "$(window_of "$box")" Return
    wait_for 30 "the box to close" has_no_window "$box"
}

list_and_leave() {
    load 1
    wait_for 30 "the window behind the load" window_still "$window"
    cp "$work/now.png" "$work/before.png"
    press "$window" ctrl+l
    wait_for 60 "the flights to show" flights_show "$window"
    rm "$work/Vantor2.ini"
    leave
    [[ -s $work/Vantor2.ini ]] || fail "the settings were not written"
    grep -q '^FSMODE, 2 ' "$work/Vantor2.ini" || fail "the mode is not in the settings"
    grep -q 'Listing last 40 actions: ' "$work/log.txt" || fail "the log lacks the recent actions"
    tail -n 1 "$work/log.txt" | grep -q 'End of actions list' || fail "the log ends elsewhere"
    cmp "$demo/TrafficTools/Flightplans.txt" "$work/Flightplans.txt" || fail "looking changed the flight plans"
}

save_twice() {
    load 1
    save
    cp "$work/Flightplans.txt" "$work/first.txt"
    cmp -s "$demo/TrafficTools/Flightplans.txt" "$work/first.txt" && fail "the comments were not taken out: no save"
    (($(grep -c '^AC#' "$work/first.txt") >= 800)) || fail "flights were lost in the save"
    load 2
    save
    cmp "$work/first.txt" "$work/Flightplans.txt" || fail "the second save differs from the first"
    leave # no question: nothing was changed
    for file in Aircraft.txt Airports.txt; do
        cmp "$demo/TrafficTools/$file" "$work/$file" || fail "$file changed"
    done
}

case $run in
list_and_leave | save_twice) ;;
*) fail "no such run: $run" ;;
esac
start_display
start
"$run"
echo "$run: passed"
