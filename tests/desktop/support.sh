# What the desktop tests have in common: an X server of their own, the probe's output, the count of failures.

# need_tools TOOL...: those that the test needs besides the usual ones.
need_tools() {
    local tool
    for tool in Xvfb xdotool setxkbmap xprop import "$@"; do
        command -v "$tool" >/dev/null || { echo "skipped: $tool is not installed"; exit 77; }
    done
}

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
trap 'exit 1' INT TERM

# start_server DEPTH: the server chooses a free number and writes it down.
start_server() {
    Xvfb -displayfd 3 -screen 0 "1024x768x$1" -nolisten tcp -noreset 3>"$work/number" 2>/dev/null &
    pids+=($!)
    for _ in $(seq 200); do [ -s "$work/number" ] && break; sleep 0.05; done
    export DISPLAY=:$(cat "$work/number")
    export LC_ALL=C.UTF-8
    setxkbmap es
}

# start_probe PROGRAM: what it tells goes into the log.
start_probe() {
    "$1" >"$log" &
    program=$!
    pids+=("$program")
}

pass() { echo "ok: $1"; }
miss() {
    echo "FAILED: $1"
    failures=$((failures + 1))
}

# check WHAT SEEN WANTED
check() { if [ "$2" = "$3" ]; then pass "$1"; else miss "$1: \"$2\" instead of \"$3\""; fi; }

# expect WHAT LINE: waits up to five seconds for LINE behind what was expected before.
from=1
expect() {
    local at
    for _ in $(seq 100); do
        at=$(tail -n "+$from" "$log" | grep -v '^tick$' | grep -nxF -- "$2" | head -n 1 | cut -d: -f1)
        if [ -n "$at" ]; then
            from=$(($(grep -nxF -- "$2" "$log" | awk -F: -v f="$from" '$1 >= f {print $1; exit}') + 1))
            pass "$1"
            return
        fi
        sleep 0.05
    done
    miss "$1: no \"$2\" in:"
    tail -n "+$from" "$log" | grep -v '^tick$'
}

# expect_seen WHAT WANTED COMMAND...: waits until the command prints what is wanted.
expect_seen() {
    local what=$1 wanted=$2 seen
    shift 2
    for _ in $(seq 60); do
        seen=$("$@" 2>/dev/null)
        [ "$seen" = "$wanted" ] && { pass "$what"; return; }
        sleep 0.05
    done
    miss "$what: \"$seen\" instead of \"$wanted\""
}

pixel() {
    import -window root -crop "1x1+$1+$2" -depth 8 txt:- 2>/dev/null | grep -oE '#[0-9A-F]{6}' | head -n 1
}

# expect_pixel WHAT X Y COLOR: waits until the screen shows the colour there.
expect_pixel() { expect_seen "$1" "$4" pixel "$2" "$3"; }

# expect_end WHAT: the probe ends by itself.
expect_end() {
    for _ in $(seq 100); do kill -0 "$program" 2>/dev/null || break; sleep 0.05; done
    if kill -0 "$program" 2>/dev/null; then miss "$1"; else pass "$1"; fi
}

report() {
    echo "$failures failures"
    [ "$failures" -eq 0 ]
}
