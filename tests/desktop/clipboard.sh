#!/bin/bash
# What is left of the clipboard when its program ends: clipboard.sh PROBE MANAGER. Exits with 77 when the tools
# for it are missing.
set -u
. "$(dirname "$0")/support.sh"
need_tools
export TESELA_DISPLAY=x11
start_server 24
"$2" >"$work/manager" &
children+=($!)
expect_seen "a clipboard manager runs" waits head -n 1 "$work/manager"

start_probe "$1"
expect "a window is painted" "painted"
xdotool windowfocus --sync "$(wait_for_window '^Sonda')"
xdotool key ntilde ctrl+c
expect "something is copied" "copied"
xdotool key alt+F4
expect_end "the program ends"
expect_seen "the manager has kept what it copied" "kept ñ" sed -n 2p "$work/manager"
finish_checks
