#!/bin/bash
# Walks through the sample database in a real window: fichas.sh FICHAS TESELA-SAMPLE.
. "$(dirname "$0")/../support/checks.sh"
. "$(dirname "$0")/../support/x_server.sh"
need Xvfb xdotool xprop import identify convert compare sqlite3 setxkbmap
. "$(dirname "$0")/sample_walk.sh"
start_x_server
setxkbmap es # ñ has a key of its own
export TESELA_DISPLAY=desktop

# open_records FILE TITLE: the program on a file, in `program`, and its window with the focus, in `window`.
open_records() {
  "$fichas" "$1" &
  program=$!
  children+=("$program")
  window=$(wait_for_window "^$2")
  [ -n "$window" ] || give_up "the window of $2 opens"
  xdotool windowfocus --sync "$window"
}

open_records "$sample" clientes
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
xdotool key Next
shows "clientes — 2 de $count" "PageDown goes on"
looks_like "${pictures[1]}" "and so does the second"
xdotool key Return
looks_like "${pictures[2]}" "Return goes to the next field"
xdotool key Prior Prior
shows "clientes — 1 de $count" "PageUp goes back and stops at the first"
xdotool key ctrl+End
shows "clientes — $count de $count" "Ctrl+End goes to the last"
xdotool key Prior ctrl+Home Next
shows "clientes — 2 de $count" "Ctrl+Home goes to the first"
xdotool key ctrl+Next
shows "articulos — 1 de $(title_of "$window" | sed 's/.* //')" "Ctrl+PageDown goes to the next table"
looks_like "${pictures[4]}" "and that looks as it does in memory"
xdotool key ctrl+Prior
shows "clientes — 1 de $count" "Ctrl+PageUp goes back to it"

# What is typed gets into the file when the record is left, and not before.
name() { sqlite3 "$sample" "SELECT nombre || '|' || fecha_alta FROM clientes WHERE id = $1"; }
signed_up=$(name 1 | cut -d'|' -f2)
xdotool type --delay 20 "Año Nuevo"
xdotool key Return
equal "a name that is being typed is not in the file" "$(name 1 | grep -c Nuevo)" 0
xdotool key Next
shows "clientes — 2 de $count" "a record is left with PageDown"
equal "the name is in the file" "$(name 1)" "Año Nuevo|$signed_up"
xdotool key F3
xdotool type --delay 20 "Año N"
shows "clientes — 1 de $count" "F3 and letters go to a name"
xdotool key Return
for _ in 1 2 3 4 5 6 7 8; do xdotool key Down; done
xdotool type --delay 20 "3102"
xdotool key Next
xdotool key Return
shows "clientes — 1 de $count" "a day that there isn't keeps its record"
equal "and its file" "$(name 1)" "Año Nuevo|$signed_up"
xdotool key alt+F4
sleep 0.2 # in which it would have closed
holds "and its window" kill -0 "$program"
xdotool key Home
xdotool type --delay 20 "2802"
xdotool key alt+F4
gone() { ! kill -0 "$program" 2>/dev/null; }
holds "the window closes" until_true gone
wait "$program"
equal "the program ended well" $? 0
equal "the day that there is has been written" "$(name 1)" "Año Nuevo|${signed_up%%-*}-02-28"

# A CSV file is written as it is, but for what was typed.
csv=$work/datos.csv
printf 'id;nombre;saldo\r\n1;"Ana";1,50\r\n2;Eva;\r\n' >"$csv"
open_records "$csv" datos.csv
xdotool key Tab
xdotool type --delay 20 "Begoña"
xdotool key Return Return
shows "datos.csv — 2 de 2" "Return behind the last field goes to the next record"
equal "the name is in the file" "$(cat "$csv")" "$(printf 'id;nombre;saldo\r\n1;"Begoña";1,50\r\n2;Eva;\r\n')"
chmod 0444 "$csv"
xdotool key Tab Tab
xdotool type --delay 20 "7"
xdotool key Prior
xdotool key alt+F4
sleep 0.2 # in which it would have closed
holds "a file that may not be written keeps its window" kill -0 "$program"
shows "datos.csv — 2 de 2" "and its record"
chmod 0644 "$csv"
xdotool key alt+F4
holds "the next attempt closes it" until_true gone
wait "$program"
equal "the program ended well, with the amount in the file" "$? $(tail -n 1 "$csv")" "0 $(printf '2;Eva;7,00\r')"

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
