#!/usr/bin/env bash
# run.sh BITS TESELACTL.OCX: registers the control library for the machine as its users do (Wine finds no classes
# of the user alone), runs the script suites with cscript, and takes the library out again. What is left in the
# registry afterwards is a failure.
set -euo pipefail
bits=$1 library=$2
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
run() { "$here/../../../scripts/run-windows" "$bits" "$@"; }
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

# A script that ends early says nothing of it here: it must have come to its count.
play() {
  echo "-- $1"
  run cscript //nologo "$1" >said || failed=1
  cat said
  grep -q ' checks, 0 failed' said || failed=1
}
for suite in values controls; do
  cat "$here/suite.vbs" "$here/$suite.vbs" | iconv -f UTF-8 -t WINDOWS-1252 >"$suite.vbs"
  play "$suite.vbs"
done
cp "$here/values.js" .
play values.js

# A script that does a whole job, as the package has it.
echo "-- totales.vbs"
for file in totales.vbs ventas.csv; do
  iconv -f UTF-8 -t WINDOWS-1252 "$here/../../../apps/scripts/$file" >$file
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
