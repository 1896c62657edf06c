# How the checks that are scripts run programs, count and tell. A script sources it, makes its checks and ends
# with `finish_checks`. `work` is a folder of the script's own, gone at its end.

work=$(mktemp -d)
failures=0
children=()
at_end() {
    local pid
    for pid in "${children[@]}"; do kill "$pid" 2>/dev/null; done
    wait 2>/dev/null
    chmod -R u+rwX "$work"
    rm -rf "$work"
}
trap at_end EXIT
trap 'exit 1' INT TERM

# need TOOL...: exits with 77, which CTest counts as skipped, when one is missing.
need() {
    local tool
    for tool in "$@"; do
        command -v "$tool" >/dev/null || { echo "skipped: $tool is not installed"; exit 77; }
    done
}

passed() { echo "ok: $1"; }

# failed WHAT [WHY]
failed() {
    echo "FAILED: $1${2:+: $2}"
    failures=$((failures + 1))
}

# give_up WHAT [WHY]: the same, where nothing behind it makes sense.
give_up() {
    failed "$@"
    exit 1
}

# holds WHAT COMMAND...: the command succeeds.
holds() {
    local what=$1
    shift
    if "$@"; then passed "$what"; else failed "$what" "$*"; fi
}

# equal WHAT SEEN EXPECTED
equal() {
    if [ "$2" = "$3" ]; then passed "$1"; else failed "$1" "\"$2\" instead of \"$3\""; fi
}

# run COMMAND...: leaves its exit status in `status` and what it said in the files `out` and `err`.
out=$work/out err=$work/err
run() {
    "$@" >"$out" 2>"$err"
    status=$?
}

# exits WHAT STATUS: how the last `run` ended; STATUS `failing` is any but 0.
exits() {
    case $2 in
        "$status") passed "$1" ;;
        failing) [ "$status" -ne 0 ] && passed "$1" || failed "$1" "it ended well" ;;
        *)
            failed "$1" "it ended with $status instead of $2"
            tail -n 20 "$out" "$err"
            ;;
    esac
}

# prints WHAT TEXT, complains WHAT TEXT: the last `run` has TEXT in its output or among its errors.
prints() {
    if grep -qF -- "$2" "$out"; then passed "$1"; else failed "$1" "no \"$2\" in: $(tail -n 20 "$out")"; fi
}
complains() {
    if grep -qF -- "$2" "$err"; then passed "$1"; else failed "$1" "no \"$2\" in: $(tail -n 20 "$err")"; fi
}

# is_png FILE: it begins and ends as a PNG does.
is_png() {
    [ "$(head -c 8 "$1" | od -An -tx1 | tr -d ' \n')" = 89504e470d0a1a0a ] &&
        [ "$(tail -c 8 "$1" | od -An -tx1 | tr -d ' \n')" = 49454e44ae426082 ]
}

finish_checks() {
    echo "$failures failures"
    [ "$failures" -eq 0 ]
}
