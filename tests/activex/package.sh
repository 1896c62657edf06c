#!/usr/bin/env bash
# package.sh BITS: does what the read-me of the package tells its users, step by step, with nothing but the package
# and in a Windows that has never seen it: registering, the script, the whole job, a C++ program, taking it out.
set -uo pipefail
bits=$1
project=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
. "$project/tests/support/checks.sh"
compiler=$([ "$bits" = 64 ] && echo x86_64-w64-mingw32-g++-posix || echo i686-w64-mingw32-g++-posix)
need "$compiler"
package=$work/package
"$project/scripts/package-windows" "$package" "$bits" || give_up "the package is made"

# The runner keeps its Wine below the project that it lies in: a copy has one of its own.
mkdir -p "$work/runner/scripts"
cp "$project/scripts/run-windows" "$work/runner/scripts/"
windows() { "$work/runner/scripts/run-windows" "$bits" "$@"; }
windows --prepare
prepared=$?
[ $prepared = 77 ] && exit 77
at_exit() {
  cd "$project" || exit 1
  windows --end
  at_end
}
trap at_exit EXIT

ansi() { iconv -f WINDOWS-1252 -t UTF-8 | tr -d '\r'; }
console() { iconv -f CP850 -t UTF-8 | tr -d '\r'; }
# example LANGUAGE: the first example of the read-me in it.
example() { tr -d '\r' <"$package/README.txt" | awk -v fence="\`\`\`$1" '$0 == fence { on = 1; next } /^```/ && on { exit } on'; }
# classes ROOT: how often the library is named among its classes.
classes() { windows reg query "$1\\Software\\Classes" /s 2>/dev/null | grep -ci 'TeselaC'; }

cd "$package/$bits" || give_up "there is a folder for the width"
equal "at first there is none of it for the machine" "$(classes HKLM)" 0
run windows regsvr32 /s TeselaCtl.ocx
exits "it is registered for the machine" 0
equal "nothing of that is the user's" "$(classes HKCU)" 0

example vb | iconv -f UTF-8 -t WINDOWS-1252 >"$work/tabla.vbs"
cd "$work" || exit 1
equal "the script says what the read-me says" "$(windows cscript //nologo tabla.vbs | console)" "Álvarez 19,5"

cd "$package/scripts" || give_up "there are scripts"
run windows cscript //nologo totales.vbs ventas.csv totales.csv
exits "the whole job runs" 0
equal "it writes what it should" "$(ansi <totales.csv)" "$(cat "$project/tests/activex/scripts/totales.expected")"

example cpp >"$work/fecha.cpp"
cd "$work" || exit 1
run "$compiler" -static fecha.cpp -o fecha.exe -lole32 -loleaut32 -luuid
exits "the C++ program is built" 0
equal "it finds the date" "$(windows fecha.exe | console)" 45351

cd "$package/$bits" || exit 1
run windows regsvr32 /s /u TeselaCtl.ocx
exits "it is taken out" 0
equal "nothing of it is left" "$(classes HKLM)" 0
cd "$work" || exit 1
equal "the C++ program says so" "$(windows fecha.exe | console)" \
  "TeselaControls_basicos.cFecha is not registered for programs of this width"

# For the user alone. Wine keeps that apart from what it looks for classes in, so that they are not created there.
cd "$package/$bits" || exit 1
run windows regsvr32 /s /n /i:user TeselaCtl.ocx
exits "it is registered for the user" 0
equal "nothing of that is the machine's" "$(classes HKLM)" 0
[ "$(classes HKCU)" -gt 50 ] || failed "the user has its classes"
run windows regsvr32 /s /u /n /i:user TeselaCtl.ocx
exits "it is taken out for the user" 0
equal "nothing of it is left to the user" "$(classes HKCU)" 0
finish_checks
