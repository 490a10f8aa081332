# A virtual display and what is done there: start it, wait, press, compare pictures. Sourced by the scripts and tests that
# show the program where there is no screen; each of them has a function `fail MESSAGE` that ends it. While one runs,
# $work is a folder of its own, $server the display's process and $program the one that is shown; all go with the script.
work=$(mktemp -d)
server=
program=
mkfifo "$work/never"

clean_up() {
    local pid
    for pid in $program $server; do
        kill "$pid" 2>/dev/null || true
        wait "$pid" 2>/dev/null || true
    done
    rm -rf "$work"
}
trap clean_up EXIT
trap 'exit 130' INT
trap 'exit 143' TERM

# Polls until a command succeeds: wait_for SECONDS WHAT COMMAND... The end of what must live ends the wait as well.
# $poll are the seconds from one try to the next.
wait_for() {
    local deadline=$((SECONDS + $1)) what=$2 alive=${program:-$server}
    shift 2
    until "$@"; do
        kill -0 "$alive" 2>/dev/null || "$@" || fail "it ended while waiting for $what"
        ((SECONDS < deadline)) || fail "gave up waiting for $what"
        pause "${poll-0.1}"
    done
}
pause() { read -r -t "$1" <>"$work/never" || true; }

# Starts the display, for programs of X11 alone. -noreset: between two of them it must not begin anew.
start_display() {
    : >"$work/display"
    Xvfb -displayfd 1 -screen 0 1280x900x24 -nolisten tcp -noreset >"$work/display" 2>"$work/display.log" &
    server=$!
    wait_for 30 "the virtual display" display_ready
    DISPLAY=:$(<"$work/display")
    export DISPLAY QT_QPA_PLATFORM=xcb XDG_RUNTIME_DIR=$work
    unset WAYLAND_DISPLAY
}
display_ready() { [[ $(wc -l <"$work/display") -gt 0 ]]; }

# The first window whose title matches: window_of TITLE
window_of() { xdotool search --onlyvisible --name "$1" 2>/dev/null | head -n 1; }
has_window() { [[ -n $(window_of "$1") ]]; }
has_no_window() { ! has_window "$1"; }

# Starts a program and waits for its main window: start_program COMMAND...
start_program() {
    "$@" >"$work/output" 2>&1 &
    program=$!
    wait_for 60 "the window" has_window '^Vantor V:'
}
program_ended() { ! kill -0 "$program" 2>/dev/null; }
# Waits for the end of the program, which must be a good one.
end_program() {
    local status=0
    wait_for 30 "the end of the program" program_ended
    wait "$program" || status=$?
    program=
    ((status == 0)) || fail "the exit code is $status"
}

# Presses a key in a window: press WINDOW KEY. No window manager is there to give it the focus.
press() {
    timeout 20 xdotool windowfocus --sync "$1" key --clearmodifiers "$2" || fail "could not press $2"
}

# Takes a picture of a window: picture WINDOW FILE
picture() { timeout 20 import -silent -window "$1" "$2" || fail "could not take a picture"; }

# How many pixels differ between two pictures; all of them when the size differs.
pixels_changed() {
    local count
    count=$(compare -metric AE "$1" "$2" null: 2>&1) || true
    awk -v count="$count" 'BEGIN { if (count ~ /^[0-9.]+(e[+]?[0-9]+)?$/) printf "%d", count; else print 999999999 }'
}

# Whether a window stands still, with its picture in $work/now.png. A blinking cursor is all that may change.
window_still() {
    picture "$1" "$work/earlier.png"
    pause 0.3
    picture "$1" "$work/now.png"
    (($(pixels_changed "$work/earlier.png" "$work/now.png") < 200))
}

# Whether flights have come since $work/before.png. A list that stays blank changes 2,400 pixels, by buttons and captions
# around it; the demo's flights change 40,000.
flights_show() {
    picture "$1" "$work/now.png"
    (($(pixels_changed "$work/before.png" "$work/now.png") > 15000))
}

# A native folder in the program's own form: bytes of the code page, backslashes, one at the end.
program_folder() {
    local backslash=$'\\'
    printf '%s' "${1//\//$backslash}$backslash" | iconv -f UTF-8 -t WINDOWS-1252
}
