# A walk through the sample database in memory, which real windows are held to. Source it with FICHAS and
# TESELA-SAMPLE: sets `fichas`, `sample` and `pictures`.
fichas=$1
sample=$work/muestra.sqlite
export TESELA_LOCALE=es-ES LC_ALL=C.UTF-8 TMPDIR=$work
"$2" "$sample" >/dev/null || failed "the sample database is made"
run env TESELA_DISPLAY=headless "$fichas" "$sample"
exits "the walk in memory" 0
mapfile -t pictures <"$out"

# inside_of PICTURE SIZE FILE: the picture without the window's frame, as wide at the bottom as at the sides.
inside_of() {
    local frame=$((($(identify -format %w "$1") - ${2%x*}) / 2))
    local top=$(($(identify -format %h "$1") - ${2#*x} - frame))
    convert "$1" -crop "$2+$frame+$top" +repage "$3" 2>/dev/null
}
