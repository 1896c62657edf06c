#!/bin/bash
# Plays a user on a real window: run.sh PROBE [DISPLAY]. DISPLAY is that of TESELA_DISPLAY. Exits with 77
# when the tools for it are missing.
set -u
. "$(dirname "$0")/support.sh"
need_tools xclip
export TESELA_DISPLAY=${2:-x11}
start_server 24
start_probe "$1"

expect "a window is painted" "painted"
window=$(wait_for_window '^Sonda')
equal "the title is written" "$(title_of "$window")" "Sonda de año"
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
equal "another program pastes" "$copied" "Hola 1ñçáü€"
printf 'pégame ñ €' | xclip -i -selection clipboard
xdotool key ctrl+v
expect "another program's text is pasted" "pasted pégame ñ €"
xdotool key ctrl+l
expect "a long text is copied" "copied long"
equal "another program pastes it whole" "$(timeout 20 xclip -o -selection clipboard | wc -m)" 3000000
if [ "$TESELA_DISPLAY" = x11 ]; then # SDL takes no text in pieces
    head -c 4999999 /dev/zero | tr '\0' x | cat - <(printf .) | xclip -i -selection clipboard
    xdotool key ctrl+v
    expect "another program's long text is pasted" "pasted long 5000000 46"
fi

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

if [ "$TESELA_DISPLAY" = x11 ]; then # SDL shows nothing outside of its windows
    xdotool key F12
    expect_pixel "a frame on the screen turns what it lies on" 230 200 '#37E1E1'
    expect_pixel "along all of its edges" 400 180 '#000000'
    expect_pixel "beside the window too" 900 500 '#FFFFFF'
    expect_pixel "and nothing inside" 240 200 '#C81E1E'
    xdotool mousemove 400 180 click 1
    expect "the pointer goes through it" "press 200 30"
    xdotool key Insert
    expect "it is there for whom reads the screen" "seen 0"
    expect_pixel "and seen while another context is open" 400 180 '#000000'
    xdotool key F12
    expect_pixel "it is taken away" 400 180 '#FFFFFF'
    expect_pixel "from the screen too" 900 500 '#000000'
    xdotool key Insert
    expect "a context that was only read sees it go" "seen 16777215"
    xdotool key End
    expect_pixel "a frame is seen while its program sleeps" 400 180 '#000000'
    expect "one that is left in its context goes with that" "left 16777215"
    expect_pixel "and nothing stays behind" 400 180 '#FFFFFF'
fi

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

expect_end "and with it the program"
finish_checks
