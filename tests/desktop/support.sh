# What the desktop tests have in common: an X server with a Spanish keyboard, the probe's output.
. "$(dirname "${BASH_SOURCE[0]}")/../support/checks.sh"
. "$(dirname "${BASH_SOURCE[0]}")/../support/x_server.sh"
log=$work/log

# need_tools TOOL...: those that the test needs besides the usual ones.
need_tools() { need Xvfb xdotool setxkbmap xprop import "$@"; }

# start_server DEPTH [OPTION...]
start_server() {
    start_x_server "$@"
    export LC_ALL=C.UTF-8
    setxkbmap es
}

# start_probe PROGRAM: what it tells goes into the log.
start_probe() {
    "$1" >"$log" &
    program=$!
    children+=("$program")
}

# expect WHAT LINE: waits up to five seconds for LINE behind what was expected before.
from=1
expect() {
    local at
    for _ in $(seq 100); do
        at=$(tail -n "+$from" "$log" | grep -v '^tick$' | grep -nxF -- "$2" | head -n 1 | cut -d: -f1)
        if [ -n "$at" ]; then
            from=$(($(grep -nxF -- "$2" "$log" | awk -F: -v f="$from" '$1 >= f {print $1; exit}') + 1))
            passed "$1"
            return
        fi
        sleep 0.05
    done
    failed "$1" "no \"$2\" in:"
    tail -n "+$from" "$log" | grep -v '^tick$'
}

# expect_seen WHAT WANTED COMMAND...: waits until the command prints what is wanted.
expect_seen() {
    local what=$1 wanted=$2 seen
    shift 2
    for _ in $(seq 60); do
        seen=$("$@" 2>/dev/null)
        [ "$seen" = "$wanted" ] && { passed "$what"; return; }
        sleep 0.05
    done
    failed "$what" "\"$seen\" instead of \"$wanted\""
}

pixel() {
    import -window root -crop "1x1+$1+$2" -depth 8 txt:- 2>/dev/null | grep -oE '#[0-9A-F]{6}' | head -n 1
}

# expect_pixel WHAT X Y COLOR: waits until the screen shows the colour there.
expect_pixel() { expect_seen "$1" "$4" pixel "$2" "$3"; }

# expect_end WHAT: the probe ends by itself.
expect_end() { holds "$1" until_true has_ended; }
has_ended() { ! kill -0 "$program" 2>/dev/null; }
