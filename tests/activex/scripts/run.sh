#!/usr/bin/env bash
# run.sh BITS TESELACTL.OCX TESELACTL.IDL: registers the control library for the machine as its users do, plays the
# lists of calls with cscript in both languages, and takes the library out again. A member of the type library that
# is not called right and called wrong is a failure, and so is what is left in the registry.
set -euo pipefail
bits=$1 library=$2 source=$3
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
run() { "$here/../../../scripts/run-windows" "$bits" "$@"; }
ansi() { iconv -f UTF-8 -t WINDOWS-1252 "$@"; }
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cp "$library" "$work/TeselaCtl.ocx"
cd "$work"

status=0
run regsvr32 /s TeselaCtl.ocx || {
  status=$?
  [ $status = 77 ] && exit 77
  echo "the library could not be registered: $status"
  exit 1
}
failed=0

# play LANGUAGE CLASS: a script that ends early says nothing of it, it must have come to its count.
play() {
  local script=$2.$1
  { cat "$here/suite.$1" && awk -v language="$1" -v members="$2-$1.called" -f "$here/calls.awk" "$here/calls/$2.calls"; } |
    ansi >"$script"
  echo "-- $script"
  run cscript //nologo "$script" >said || failed=1
  iconv -f CP850 -t UTF-8 said
  grep -q ' checks, 0 failed' said || failed=1
}
for list in "$here"/calls/*.calls; do
  play vbs "$(basename "$list" .calls)"
  play js "$(basename "$list" .calls)"
done

# Each member of the type library, as it is to be read or written or called.
awk '/^ *dispinterface __/ { class = "" }
  /^ *dispinterface _[^_].* \{/ { class = substr($2, 2) }
  /^ *coclass / { class = "" }
  class && /^ *\[id\(/ {
    kind = /, propput/ ? "let" : "get"
    name = $0
    gsub(/"[^"]*"/, "", name)
    sub(/^ *\[[^]]*\] /, "", name)
    sub(/^SAFEARRAY\([^)]*\)/, "", name)
    sub(/\(.*/, "", name)
    sub(/.*[ *]/, "", name)
    print "right", class, kind, name
    print "wrong", class, kind, name
  }' "$source" | sort -u >members
sort -u -- *.called >called
comm -23 members called >missing
if [ ! -s members ] || [ -s missing ]; then
  echo "calls that no list has, of $(wc -l <members):"
  cat missing
  failed=1
fi

# A script that does a whole job, as the package has it.
echo "-- totales.vbs"
for file in totales.vbs ventas.csv; do
  ansi "$here/../../../apps/scripts/$file" >$file
done
run cscript //nologo totales.vbs ventas.csv totales.csv || failed=1
iconv -f WINDOWS-1252 -t UTF-8 totales.csv | tr -d '\r' | diff - "$here/totales.expected" || failed=1
run regsvr32 /s /u TeselaCtl.ocx || {
  echo "the library could not be taken out"
  failed=1
}
for part in CLSID TypeLib Interface; do
  run reg query "HKLM\\Software\\Classes\\$part" /s 2>/dev/null || true
done | iconv -f UTF-8 -t UTF-8 -c >"$work/left"
if grep -qi 'TeselaC' "$work/left"; then
  echo "left in the registry:"
  grep -i 'TeselaC' "$work/left" | head
  failed=1
fi
exit $failed
