#!/bin/bash
# Plays a user on a real window: run.sh PROBE [DISPLAY]. DISPLAY is that of TESELA_DISPLAY. Exits with 77
# when the tools for it are missing.
set -u
probe=$1
for tool in Xvfb xdotool xclip setxkbmap xprop import; do
    command -v "$tool" >/dev/null || { echo "skipped: $tool is not installed"; exit 77; }
done

work=$(mktemp -d)
log=$work/log
failures=0
pids=()
finish() {
    for pid in "${pids[@]}"; do kill "$pid" 2>/dev/null; done
    wait 2>/dev/null
    rm -rf "$work"
}
trap finish EXIT

# The server chooses a free number and writes it down.
Xvfb -displayfd 3 -screen 0 1024x768x24 -nolisten tcp 3>"$work/number" 2>/dev/null &
pids+=($!)
for _ in $(seq 200); do [ -s "$work/number" ] && break; sleep 0.05; done
export DISPLAY=:$(cat "$work/number")
export TESELA_DISPLAY=${2:-x11} LC_ALL=C.UTF-8
setxkbmap es

"$probe" >"$log" &
program=$!
pids+=("$program")

# expect WHAT LINE: waits up to five seconds for LINE behind what was expected before.
from=1
expect() {
    local at
    for _ in $(seq 100); do
        at=$(tail -n "+$from" "$log" | grep -v '^tick$' | grep -nxF -- "$2" | head -n 1 | cut -d: -f1)
        if [ -n "$at" ]; then
            from=$(($(grep -nxF -- "$2" "$log" | awk -F: -v f="$from" '$1 >= f {print $1; exit}') + 1))
            echo "ok: $1"
            return
        fi
        sleep 0.05
    done
    echo "FAILED: $1: no \"$2\" in:"
    tail -n "+$from" "$log" | grep -v '^tick$'
    failures=$((failures + 1))
}

# expect_pixel WHAT X Y COLOR: waits until the screen shows the colour there.
expect_pixel() {
    local seen
    for _ in $(seq 30); do
        seen=$(import -window root -crop "1x1+$2+$3" -depth 8 txt:- 2>/dev/null | grep -oE '#[0-9A-F]{6}' | head -n 1)
        [ "$seen" = "$4" ] && { echo "ok: $1"; return; }
        sleep 0.05
    done
    echo "FAILED: $1: $seen at $2, $3 instead of $4"
    failures=$((failures + 1))
}

expect "a window is painted" "painted"
window=$(xdotool search --name "^Sonda" | head -n 1)
title=$(xprop -id "$window" -notype _NET_WM_NAME | cut -d'"' -f2)
[ "$title" = "Sonda de año" ] && echo "ok: the title is written" || { echo "FAILED: the title is \"$title\""; failures=$((failures + 1)); }
xdotool windowfocus --sync "$window"
expect_pixel "the client area is at its place" 215 165 '#C81E1E'
expect_pixel "the background is erased" 400 300 '#FFFFFF'
expect_pixel "the caret is shown" 300 175 '#000000'
expect_pixel "the caret blinks" 300 175 '#FFFFFF'

xdotool type --delay 30 "Hola 1"
expect "plain text is typed" "char 49"
xdotool key ntilde ccedilla
expect "ñ has a key" "char 241"
expect "ç has a key" "char 231"
xdotool key dead_acute a
expect "a dead key waits for its letter" "char 225"
xdotool key dead_diaeresis u
expect "a dead key with Shift" "char 252"
xdotool key EuroSign
expect "€ is typed with Alt Gr" "char 128"
xdotool key Return
expect "the text arrived whole" "typed Hola 1ñçáü€"

xdotool key ctrl+c
expect "Ctrl+C is a character" "copied"
copied=$(timeout 5 xclip -o -selection clipboard)
[ "$copied" = "Hola 1ñçáü€" ] && echo "ok: another program pastes" || { echo "FAILED: another program pastes \"$copied\""; failures=$((failures + 1)); }
printf 'pégame ñ €' | xclip -i -selection clipboard
xdotool key ctrl+v
expect "another program's text is pasted" "pasted pégame ñ €"

xdotool mousemove 300 250 click 1
expect "a click arrives in client coordinates" "press 100 100"
xdotool mousemove 260 200 click --repeat 2 --delay 40 1
expect "a double click is told" "doubleclick"
xdotool click 4
expect "the wheel turns away from the user" "wheel 11"
xdotool key alt+x
expect "Alt makes system characters" "syschar 120"
xdotool key F5
expect "function keys" "key 116"
xdotool key KP_Home
expect "the keypad without its lock" "key 36"

xdotool key F7
expect "a list drops down" "key 118"
expect_pixel "the list is painted" 700 440 '#FFFFFF'
xdotool mousemove 620 410 click 1
expect "the list is pressed" "list press 19 9"
xdotool key q
expect "the keyboard stays with its window" "char 113"

xdotool key F6
expect "a dialog opens" "key 117"
expect_pixel "the dialog is painted" 610 230 '#FFFFFF'
dialog=$(xdotool search --name "^Pregunta" | head -n 1)
xdotool windowfocus --sync "$dialog"
xdotool key z
expect "the dialog has the keyboard" "dialog char 122"
xdotool mousemove 300 250 click 1
xdotool mousemove 613 232 click 1
expect "its owner is not pressed" "dialog press 10 10"
xdotool key alt+F4
expect "the dialog closes" "dialog closed"
xdotool windowfocus --sync "$window"
xdotool key F8
expect "a lock key is played" "capitals 1"
xdotool key r
expect "it works on what is typed" "char 82"
xdotool key F8
expect "and is played again" "capitals 0"
xdotool key r
expect "it works no more" "char 114"

xdotool windowsize "$window" 400 260
expect "a new size is told" "size 400 260"
xdotool windowmove "$window" 50 60
expect_pixel "it is painted where it was moved" 65 75 '#C81E1E'
xdotool mousemove 60 80 click 1
expect "clicks follow the window" "press 10 20"
xdotool key alt+F4
expect "Alt+F4 closes" "closed"

for _ in $(seq 100); do kill -0 "$program" 2>/dev/null || break; sleep 0.05; done
kill -0 "$program" 2>/dev/null && { echo "FAILED: the program goes on"; failures=$((failures + 1)); }
echo "$failures failures"
[ "$failures" -eq 0 ]
