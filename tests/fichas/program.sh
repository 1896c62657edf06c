#!/bin/bash
# Runs fichas as its users do where there is no display: program.sh FICHAS TESELA-SAMPLE.
. "$(dirname "$0")/../support/checks.sh"
fichas=$1
sample=$work/muestra.sqlite
export TESELA_DISPLAY=headless TESELA_LOCALE=es-ES TMPDIR=$work/tmp
mkdir "$TMPDIR"
"$2" "$sample" >/dev/null || failed "the sample database is made"

# tour WHAT NAME...: the last run went well and printed the paths of these pictures, and nothing else.
tour() {
    local what=$1 path seen=()
    shift
    exits "$what" 0
    while read -r path; do
        seen+=("$(basename "$path")")
        holds "$what: $(basename "$path") is a picture" is_png "$path"
    done <"$out"
    equal "$what: its pictures" "${seen[*]}" "$*"
    equal "$what: nothing is wrong" "$(cat "$err")" ""
}

# refused WHAT MESSAGE: the last run ended with 1, without pictures, and said so.
refused() {
    exits "$1" 1
    complains "$1: it says why" "$2"
    equal "$1: no pictures" "$(cat "$out")" ""
}

differ() { ! cmp -s "$1" "$2"; }

walk="1-primero.png 2-siguiente.png 3-campo.png 4-ultimo.png"

run "$fichas" "$sample"
tour "a tour of the sample database" $walk 5-otra-tabla.png
first=$(head -n 1 "$out")
TESELA_SAMPLE=$sample run "$fichas"
tour "without a file it opens the sample" $walk 5-otra-tabla.png
holds "and shows the same" cmp -s "$first" "$(head -n 1 "$out")"
run "$fichas" "$sample" ARTICULOS
tour "a table by its name in any case" $walk 5-otra-tabla.png
holds "another table is another picture" differ "$first" "$(head -n 1 "$out")"

printf 'código;nombre;precio\n1;Ñandú;1,50\n2;"Dos\nlíneas";\n3;Eva;-3,25\n' >"$work/bueno.csv"
run "$fichas" "$work/bueno.csv"
tour "a CSV file in UTF-8" $walk
good=$(head -n 1 "$out")
mkdir "$work/ansi"
printf 'c\xf3digo;nombre;precio\n1;\xd1and\xfa;1,50\n2;"Dos\nl\xedneas";\n3;Eva;-3,25\n' >"$work/ansi/bueno.csv"
run "$fichas" "$work/ansi/bueno.csv"
tour "a CSV file in Windows-1252" $walk
holds "reads the same" cmp -s "$good" "$(head -n 1 "$out")"
cd "$work"
run "$fichas" bueno.csv
tour "a path from the present folder" $walk

run "$fichas" "$work/no-existe.csv"
refused "a missing file" "$work/no-existe.csv: no existe el archivo"
run "$fichas" "$work/no-existe.sqlite"
refused "a missing database" "$work/no-existe.sqlite: no existe el archivo"
run "$fichas" "$work"
refused "a folder" "$work: es una carpeta, no un archivo"
cp "$work/bueno.csv" "$work/ajeno.csv"
chmod 0 "$work/ajeno.csv"
as_user=()
# The superuser reads everything, unless the right to do so is left behind.
[ "$(id -u)" = 0 ] && as_user=(setpriv --bounding-set=-dac_override,-dac_read_search)
if "${as_user[@]}" test ! -r "$work/ajeno.csv" 2>/dev/null; then
    run "${as_user[@]}" "$fichas" "$work/ajeno.csv"
    refused "a file without permission" "$work/ajeno.csv: no se tiene permiso para leer el archivo"
else
    echo "left out: a file without permission, as this user may read any"
fi
run env TMPDIR="$work/sin-sitio" "$fichas" "$work/bueno.csv"
refused "no place for the pictures" "la variable TMPDIR no nombra una carpeta"

printf 'id;nombre\n1;Ana\n2;"Eva\n3;Luz\n' >"$work/roto.csv"
run "$fichas" "$work/roto.csv"
refused "quotes that are never closed" "roto.csv, línea 3: comillas sin cerrar"
{ printf 'id;nombre\n'; seq -f '%.0f;nombre' 200000; printf '200001;"a"b\n'; } >"$work/tarde.csv"
run "$fichas" "$work/tarde.csv"
exits "a mistake far behind" 1
complains "a mistake far behind: its line is named" "tarde.csv, línea 200002: hay texto después de las comillas de cierre"
: >"$work/vacio.csv"
run "$fichas" "$work/vacio.csv"
refused "an empty file" "vacio.csv, línea 1: el archivo está vacío"
head -c 4096 /dev/zero >"$work/ceros.csv"
run "$fichas" "$work/ceros.csv"
refused "no text at all" "ceros.csv, línea 1: hay un carácter nulo: no es un archivo de texto"

cp "$work/bueno.csv" "$work/falsa.sqlite"
run "$fichas" "$work/falsa.sqlite"
refused "a file that is no database" "$work/falsa.sqlite: no es una base de datos SQLite"
head -c 20000 "$sample" >"$work/cortada.sqlite"
run "$fichas" "$work/cortada.sqlite"
refused "a database that was cut short" "$work/cortada.sqlite: la base de datos está dañada"
run "$fichas" "$sample" facturas
refused "an unknown table" "$sample: no hay ninguna tabla \"facturas\"; hay clientes, articulos, pedidos, lineas"
run "$fichas" "$work/bueno.csv" clientes
refused "a table of a CSV file" "bueno.csv: un archivo CSV no tiene tablas y se ha pedido \"clientes\""

run "$fichas" "$sample" clientes articulos
exits "a second table name" 2
complains "a second table name: it tells its use" "Uso: fichas ARCHIVO [TABLA]"
run env -u TESELA_SAMPLE "$fichas"
exits "no file" 2
run "$fichas" --help
exits "its help" 0
prints "its help tells its use" "Uso: fichas ARCHIVO [TABLA]"

finish_checks
