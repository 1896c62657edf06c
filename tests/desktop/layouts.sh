#!/bin/bash
# Types on the keyboards of other countries, by what their keys carry or by the keys' numbers: layouts.sh PROBE.
# Exits with 77 when the tools for it are missing.
set -u
. "$(dirname "$0")/support.sh"
need_tools
export TESELA_DISPLAY=x11
start_server 24
start_probe "$1"
expect "a window is painted" "painted"
xdotool windowfocus --sync "$(wait_for_window '^Sonda')"

setxkbmap us -option compose:rctrl
xdotool key Multi_key apostrophe a
expect "a compose sequence is typed" "char 225"
xdotool key Multi_key n asciitilde
expect "also with Shift" "char 241"

setxkbmap us intl
xdotool key dead_acute e
expect "a dead key stands before its letter" "char 233"
xdotool key dead_acute space
expect "before a blank it types itself" "char 39"

setxkbmap ru
xdotool key 24
expect "a letter that is not Latin has the key of its place" "key 81"
xdotool key ctrl+54
expect "so that commands work" "copied"

setxkbmap fr
xdotool key 10
expect "digits have their keys where they are typed with Shift" "key 49"
expect "without it they are signs" "char 38"
xdotool key shift+10
expect "and with it digits" "char 49"

setxkbmap es
xdotool keydown 38
expect "a key that is held types" "char 97"
expect "again and again" "char 97"
expect "and again" "char 97"
xdotool keyup 38
xdotool key Num_Lock 79
expect "the keypad has digits with its lock" "key 103"
expect "and types them" "char 55"
xdotool key Num_Lock 79
expect "and moves without" "key 36"
xdotool keydown ISO_Level3_Shift key 11 keyup ISO_Level3_Shift
expect "Alt Gr begins with Ctrl" "key 17"
expect "and Alt" "key 18"
expect "and types a third sign" "char 64"
xdotool key ctrl+space
expect "blanks are typed even with Ctrl" "char 32"
xdotool key shift+Tab
expect "Tab has one key" "key 9"

finish_checks
