#!/usr/bin/env bash
# Runs Vantor.exe under Wine on a desktop of its own, in a TrafficTools folder on drive C: that is filled from the demo,
# and does a user's round there by real keys and clicks: load, list, edit, save, compile, report, ask for a file, leave.
# Usage: windows_program.sh PROGRAM TOOL WATCH DEMO PICTURES, with WATCH the program of desktop_watch.cpp
# Call it through scripts/with-wine. The pictures of each step are left in the last folder, for a look at them.
set -euo pipefail
built=$1
tool=$2
watch=$3
demo=$4
pictures=$5

readonly missingTools=77 # tells ctest that the run was skipped
for tool_name in Xvfb xdotool import wine; do
    command -v "$tool_name" >/dev/null || { echo "skipped: there is no $tool_name"; exit "$missingTools"; }
done

fail() {
    echo "FAILED: $*" >&2
    import -silent -window root "$pictures/failure.png" 2>/dev/null && echo "the screen: $pictures/failure.png" >&2
    windows >&2 || true
    [[ ! -s $folder/log.txt ]] || tail -n 25 "$folder/log.txt" | tr -d '\r' >&2
    exit 1
}
source "$(dirname "${BASH_SOURCE[0]}")/../../scripts/display.sh"
poll=0.2

mkdir -p "$pictures"
home=$WINEPREFIX/drive_c/$(basename "$work")
folder=$home/TrafficTools
windows_home="C:\\$(basename "$work")"
windows_folder=$windows_home\\TrafficTools

# Wine's desktop, and whatever stands on it, ends with the display.
leave_desktop() {
    [[ -z $program ]] || vantor_ended || wine taskkill /f /im Vantor.exe >/dev/null 2>&1 || true
    clean_up
    rm -rf "$home"
}
trap leave_desktop EXIT

# ---- What is on the desktop -----------------------------------------------------------------------------------------

# One line for each window: left, top, width, height, title.
windows() { cat "$home/windows" 2>/dev/null; }
shows() { windows | cut -d ' ' -f 5- | grep -Eq "$1"; }
shows_no() { ! shows "$1"; }
front_is() { windows | head -n 1 | cut -d ' ' -f 5- | grep -Eq "$1"; }
front_is_not() { ! front_is "$1"; }
screen_still() { window_still root; }
keep() { cp "$work/now.png" "$pictures/$1.png"; }
# Waits for a window at the front, and until it is painted: shown NAME TITLE.
shown() {
    wait_for 60 "$2 at the front" front_is "$2"
    wait_for 60 "$2 to be painted" screen_still
    keep "$1"
}
key() { timeout 20 xdotool key --clearmodifiers "$@" || fail "could not press $*"; }
type_text() { timeout 20 xdotool type --clearmodifiers "$1" || fail "could not type $1"; }
# Clicks at a place of the main window: its client area's hundredths, from the left and from the top.
click_at() {
    local left top width height
    read -r left top width height _ < <(windows | grep 'Vantor V:')
    timeout 20 xdotool mousemove $((left + width * $1 / 100)) $((top + height * $2 / 100)) click 1
}
loaded() { grep -q 'Startup complete' "$folder/log.txt" 2>/dev/null; }
vantor_ended() { [[ -e $home/exit ]]; }

# ---- The round ------------------------------------------------------------------------------------------------------

start() {
    mkdir -p "$folder"
    cp "$demo"/TrafficTools/* "$folder"
    cp -r "$demo/FS2002" "$demo/FS2004" "$home"
    cp "$built" "$folder/Vantor.exe"
    cp "$tool" "$folder/TTools.exe"
    printf '%s\r\n' "FS2K2PATH,$windows_home\\FS2002\\" 'FSMODE, 2 ' >"$folder/Vantor2.ini"

    start_display
    wine explorer "/desktop=vantor-$$,1280x900" "Z:${watch//\//\\}" "$windows_folder\\Vantor.exe" "$windows_home\\windows" \
        "$windows_home\\exit" >"$work/output" 2>&1 &
    program=$!
    wait_for 90 "the main window" shows '^Vantor V:'
    # No window manager is there to give the desktop the keys.
    timeout 20 xdotool search --sync --onlyvisible --name 'Wine desktop' windowfocus --sync
    shown start '^Vantor V:'
}

load_and_list() {
    key F5
    wait_for 120 "the load" loaded
    wait_for 30 "the window behind the load" screen_still
    cp "$work/now.png" "$work/before.png"
    key ctrl+l
    wait_for 60 "the flights to show" flights_show root
    wait_for 60 "the flights to settle" screen_still
    keep list
}

edit() {
    click_at 25 25 # a row of the schedules
    wait_for 30 "the row's legs" screen_still
    keep selected
    key alt+e
    shown editor '^(Edit|Schedule|Flight)'
    key alt+c
    key ctrl+a
    type_text WINE1
    picture root "$pictures/edited.png"
    key Return
    shown after-edit '^Vantor V:'
}

save() {
    key ctrl+s
    shown overwrite '^Vantor$'
    key alt+y
    wait_for 60 "the save" grep -q ',WINE1,' "$folder/Flightplans.txt"
    shown saved '^Vantor$'
    key Return
    wait_for 30 "the box to close" front_is '^Vantor V:'
    (($(grep -c '^AC#' "$folder/Flightplans.txt") >= 800)) || fail "flights were lost in the save"
    (($(grep -c $'\r$' "$folder/Flightplans.txt") == $(wc -l <"$folder/Flightplans.txt"))) || fail "a line lacks its CR"
    [[ ! -e $folder/Flightplans.txt.~new ]] || fail "the save left its temporary file"
}

compile() {
    key alt+m
    shown compile '^Vantor$'
    key alt+y
    wait_for 60 "the tool" test -s "$folder/calls.txt"
    [[ $(tr -d '\r' <"$folder/calls.txt") == *' [/co] [/t2]' ]] || fail "the tool was called by $(<"$folder/calls.txt")"
    wait_for 30 "the window behind the tool" front_is '^Vantor V:'
}

report() {
    click_at 96 77 # Report
    shown report 'Notepad'
    [[ -s $folder/ACLOG.TXT ]] || fail "there is no report"
    key alt+F4
    wait_for 30 "Notepad to close" shows_no 'Notepad'
    wait_for 30 "the main window" front_is '^Vantor V:'
}

# The system's own dialog.
ask_for_a_file() {
    key alt+l
    wait_for 60 "the file dialog" front_is_not '^Vantor V:'
    wait_for 60 "the file dialog to be painted" screen_still
    keep file-dialog
    key Escape
    wait_for 30 "the dialog to close" front_is '^Vantor V:'
}

leave() {
    rm "$folder/Vantor2.ini"
    key alt+x
    wait_for 60 "the end of the program" vantor_ended
    [[ $(<"$home/exit") == 0 ]] || fail "the exit code is $(<"$home/exit")"
    grep -q '^FSMODE, 2 ' "$folder/Vantor2.ini" || fail "the mode is not in the settings"
    tail -n 1 "$folder/log.txt" | grep -q 'End of actions list' || fail "the log ends elsewhere"
    grep -q 'Operating System: WINNT6+' "$folder/log.txt" || fail "the log names another system"
    grep -q 'App: Vantor' "$folder/log.txt" || fail "the log names another program"
}

start
load_and_list
edit
save
compile
report
ask_for_a_file
leave
echo "passed; the pictures are in $pictures"
