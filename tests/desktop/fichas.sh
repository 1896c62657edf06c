#!/bin/bash
# Walks through the sample database in a real window: fichas.sh FICHAS TESELA-SAMPLE.
. "$(dirname "$0")/../support/checks.sh"
. "$(dirname "$0")/../support/x_server.sh"
need Xvfb xdotool xprop import identify convert compare
. "$(dirname "$0")/sample_walk.sh"
start_x_server
export TESELA_DISPLAY=desktop

"$fichas" "$sample" &
program=$!
children+=("$program")
window=$(wait_for_window '^clientes')
[ -n "$window" ] || give_up "its window opens"
xdotool windowfocus --sync "$window"
count=$(title_of "$window" | sed 's/.* //')
holds "the title tells how many records there are" test "$count" -gt 1000

# shows TITLE WHAT: waits until the title is this.
has_title() { [ "$(title_of "$window")" = "$1" ]; }
shows() {
    if until_true has_title "$1"; then passed "$2"; else failed "$2" "the title is \"$(title_of "$window")\""; fi
}

# looks_like PICTURE WHAT: waits until what is on the screen inside of the window is what is inside of the
# picture.
looks_like() {
    local size
    size=$(xdotool getwindowgeometry --shell "$window" | sed -n 's/^WIDTH=//p;s/^HEIGHT=//p' | paste -sdx)
    inside_of "$1" "$size" "$work/expected.png"
    if until_true same_pixels; then passed "$2"; else failed "$2" "$(cat "$work/differing") pixels differ"; fi
}
same_pixels() {
    import -window "$window" "$work/seen.png" &&
        compare -metric AE "$work/seen.png" "$work/expected.png" null: 2>"$work/differing"
}

shows "clientes — 1 de $count" "the first record"
looks_like "${pictures[0]}" "looks as it does in memory"
xdotool key Down
shows "clientes — 2 de $count" "Down goes on"
looks_like "${pictures[1]}" "and so does the second"
xdotool key Next
shows "clientes — 3 de $count" "PageDown goes on"
xdotool key Right
shows "clientes — 4 de $count" "Right goes on"
xdotool key Prior
shows "clientes — 3 de $count" "PageUp goes back"
xdotool key Up
shows "clientes — 2 de $count" "Up goes back"
xdotool key Left Left
shows "clientes — 1 de $count" "Left goes back and stops at the first"
xdotool key End
shows "clientes — $count de $count" "End goes to the last"
looks_like "${pictures[3]}" "and the last looks as it does in memory"
xdotool key Next Home Down
shows "clientes — 2 de $count" "Home goes to the first"
xdotool key ctrl+Next
shows "articulos — 1 de $(title_of "$window" | sed 's/.* //')" "Ctrl+PageDown goes to the next table"
looks_like "${pictures[4]}" "and that looks as it does in memory"
xdotool key ctrl+Prior
shows "clientes — 1 de $count" "Ctrl+PageUp goes back to it"

xdotool key alt+F4
gone() { ! kill -0 "$program" 2>/dev/null; }
holds "the window closes" until_true gone
wait "$program"
equal "the program ended well" $? 0

# Whoever has no terminal is told in a window.
"$fichas" "$work/no-existe.csv" 2>"$err" &
program=$!
children+=("$program")
window=$(wait_for_window '^fichas$')
[ -n "$window" ] || give_up "a message opens"
xdotool windowfocus --sync "$window"
xdotool key Return
wait "$program"
equal "and ends the program" $? 1
complains "the terminal is told too" "$work/no-existe.csv: no existe el archivo"

finish_checks
