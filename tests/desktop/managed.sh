#!/bin/bash
# Plays a user under a window manager: managed.sh PROBE. Exits with 77 when the tools for it are missing.
set -u
. "$(dirname "$0")/support.sh"
need_tools openbox xset
export TESELA_DISPLAY=x11
start_server 24
openbox --startup "touch $work/managed" >/dev/null 2>&1 &
children+=($!)
expect_seen "the window manager runs" "$work/managed" ls "$work/managed"
start_probe "$1"

state() { xprop -id "$window" -notype _NET_WM_STATE | cut -d= -f2 | tr -d ' '; }
light() { xset q | grep -oE "$1: +(on|off)" | grep -oE 'on|off'; }

expect "a new window has the keyboard" "focus"
expect "it is painted" "painted"
window=$(xdotool search --name "^Sonda" | head -n 1)
expect_pixel "the client area is at its place" 215 165 '#C81E1E'
xdotool key a
expect "keys arrive" "char 97"

xdotool key F9
expect "the program gives it another size" "size 492 373"
expect_pixel "and another place" 119 158 '#C81E1E'

xdotool key F3
expect "the program maximises it" "state 2"
expect_seen "the desktop shows it so" _NET_WM_STATE_MAXIMIZED_VERT,_NET_WM_STATE_MAXIMIZED_HORZ state
expect "the size is the desktop's" "size 1024 749"
xdotool key F3
expect "the program restores it" "state 0"
expect_seen "and so does the desktop" "" state
expect_pixel "it is back at its place" 119 158 '#C81E1E'

xdotool key F2
expect "the program minimises it" "state 1"
expect "the keyboard is gone" "unfocus"
expect_seen "the desktop hides it" _NET_WM_STATE_HIDDEN state
xdotool windowactivate --sync "$window"
expect "the user brings it back" "state 0"
expect "with the keyboard" "focus"
xdotool windowminimize "$window"
expect "the user minimises it" "state 1"
xdotool windowactivate --sync "$window"
expect "and brings it back" "focus"
expect_pixel "it is painted again" 119 158 '#C81E1E'

xdotool key F4
expect_seen "the program keeps it in front of others" _NET_WM_STATE_ABOVE state
xdotool key F4
expect_seen "and no longer" "" state

icon() { xprop -id "$window" -len 4096 -notype 32c _NET_WM_ICON | grep -oE '[0-9]+' | sed -n "$1"; }
xdotool key F1
expect_seen "the window gets an icon of its size" 16 icon 1p
expect_seen "in the icon's colours" 4294901760 icon 3p
expect_seen "and nothing where there is nothing" 0 icon 258p

xdotool windowmove --sync "$window" 50 60
expect_pixel "the user moves it" 65 75 '#C81E1E'
xdotool mousemove 60 80 click 1
expect "clicks follow it" "press 10 20"
xdotool windowsize "$window" 300 200
expect "the user sizes it" "size 300 200"

xdotool key F6
expect "a dialog takes the keyboard" "unfocus"
dialog=$(xdotool search --name "^Pregunta" | head -n 1)
expect_seen "it stays before its owner" "$window" \
    sh -c "printf '%d' \$(xprop -id $dialog WM_TRANSIENT_FOR | grep -oE '0x[0-9a-f]+')"
expect_seen "the desktop says so too" "$dialog" xdotool getactivewindow
xdotool windowactivate "$window"
xdotool mousemove 60 80 click 1
expect_seen "its owner does not get the keyboard" "$dialog" xdotool getwindowfocus
xdotool key z
expect "the dialog has the keys" "dialog char 122"
xdotool key alt+F4
expect "it closes" "dialog closed"
expect_seen "its owner is active again" "$window" xdotool getactivewindow
xdotool key c
expect "and has the keys" "char 99"

xdotool key F7
expect "a list drops down" "key 118"
expect_pixel "the list is painted" 700 440 '#FFFFFF'
xdotool mousemove 620 410 click 1
expect "it is pressed" "list press 19 9"
xdotool key d
expect "the keyboard stays with its window" "char 100"

xdotool key Scroll_Lock
expect "Scroll Lock is pressed" "scroll 1"
expect_seen "its light is on" on light "Scroll Lock"
xdotool key F11
expect "it is played" "scroll 0"
expect_seen "its light is off" off light "Scroll Lock"

xdotool key alt+F4 # which is the window manager's here
expect "the user closes it" "closed"
expect_end "and with it the program"
finish_checks
