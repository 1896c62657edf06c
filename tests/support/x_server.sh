# An X server of a script's own, and what is seen on it. Source it behind checks.sh.

# start_x_server [DEPTH [OPTION...]]: it chooses a free number and writes it down; sets DISPLAY. Without a DEPTH
# pixels have 24 bits.
start_x_server() {
    local depth=${1:-24}
    rm -f "$work/number" # that of a server before this one
    Xvfb -displayfd 3 -screen 0 "1024x768x$depth" -nolisten tcp -noreset "${@:2}" 3>"$work/number" 2>/dev/null &
    children+=($!)
    until_true test -s "$work/number"
    export DISPLAY=:$(cat "$work/number")
    unset WAYLAND_DISPLAY XAUTHORITY
}

# until_true COMMAND...: tries for ten seconds.
until_true() {
    local _
    for _ in $(seq 200); do
        "$@" && return 0
        sleep 0.05
    done
    return 1
}

# wait_for_window PATTERN: prints the number of the window whose title matches, once there is one.
wait_for_window() {
    until_true find_window "$1"
}
find_window() { xdotool search --onlyvisible --name "$1" 2>/dev/null | head -n 1 | grep .; }

# title_of WINDOW: whether its program writes it as UTF-8 or in the old way, as bytes.
title_of() {
    local name
    name=$(LC_ALL=C xprop -id "$1" -notype _NET_WM_NAME WM_NAME | sed -n 's/^[A-Z_]* = "\(.*\)"$/\1/p' | head -n 1)
    printf "${name//%/%%}"
}
