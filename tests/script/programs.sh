#!/bin/bash
# `./tesela demo` and `./tesela shot` where there is no display.
. "$(dirname "$0")/../support/checks.sh"
tesela=$(cd "$(dirname "$0")/../.." && pwd)/tesela
unset DISPLAY WAYLAND_DISPLAY TESELA_DISPLAY TESELA_SAMPLE
export TESELA_LOCALE=es-ES TMPDIR=$work/tmp
mkdir "$TMPDIR"
printf 'id;nombre\n1;Ana\n2;Eva\n' >"$work/gente.csv"
cd "$work"

# pictures WHAT COUNT: the last run printed the paths of so many pictures.
pictures() {
    exits "$1" 0
    equal "$1: its pictures" "$(wc -l <"$out")" "$2"
    while read -r path; do holds "$1: $(basename "$path")" is_png "$path"; done <"$out"
}

run "$tesela" demo
pictures "demo opens the sample database" 5
run "$tesela" demo gente.csv
pictures "demo opens a file beside the user" 4
run "$tesela" demo "$work/gente.csv"
pictures "demo opens a file by its whole path" 4
run "$tesela" demo no-existe.csv
exits "demo of a missing file" 1
complains "demo of a missing file: it is named" "no-existe.csv: no existe el archivo"

run "$tesela" shot
exits "shot alone" 0
prints "shot alone lists the label" "label "
prints "shot alone lists fichas" "fichas "
for scene in $(cut -d' ' -f1 "$out"); do
    run "$tesela" shot "$scene" "$scene.png"
    exits "shot $scene" 0
    holds "shot $scene: it is beside the user" is_png "$work/$scene.png"
done
run "$tesela" shot frobnicate nada.png
exits "an unknown scene" failing
complains "an unknown scene: it says which there are" "There is no scene 'frobnicate'. There are:"
run "$tesela" shot label no/existe.png
exits "a picture that cannot be written" failing
complains "a picture that cannot be written: it is named" "no/existe.png"

finish_checks
