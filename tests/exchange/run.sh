#!/usr/bin/env bash
# run.sh PROBE: a metafile recorded here looks the same in another program, and one that this program made of a
# drawing of its own looks here as it does there. Of the 1200 squares of 10 by 10 pixels at most 12 may differ by
# more than 48 of 255 in the mean of a colour: the other program smooths edges. Exit status 77 (skipped) when the
# program, LibreOffice's drawing without windows, is not installed.
set -uo pipefail
drawing=$(cd "$(dirname "$0")" && pwd)/drawing.fodg
probe=$1
office=$(command -v soffice || command -v libreoffice || true)
if [ -z "$office" ]; then
  echo "metafiles: LibreOffice is not installed (Debian: libreoffice-draw-nogui): skipped" >&2
  exit 77
fi
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder"
export TESELA_DISPLAY=headless

# convert TYPE FILE: what the other program makes of a file, in this folder.
convert() {
  timeout 100 "$office" "-env:UserInstallation=file://$folder/profile" --headless --convert-to "$1" "$2" >convert.log 2>&1 ||
    { cat convert.log >&2; exit 1; }
}
failed=0
check() {
  local what=$1
  shift
  if "$@"; then echo "ok: $what"; else echo "FAILED: $what" >&2; failed=1; fi
}
check 'a sheet is recorded' "$probe" record ours.emf direct.png
check 'our own player paints it' "$probe" play ours.emf played.png
check 'as it was drawn' "$probe" compare direct.png played.png
convert png ours.emf
check 'the other program shows the same' "$probe" compare direct.png ours.png

# A drawing of its own, with gradients, hatches, dashes, curves, turned text and a picture.
convert emf "$drawing"
convert png "$drawing"
check 'a metafile of the other program is played' "$probe" play drawing.emf theirs.png
check 'and shows the same' "$probe" compare theirs.png drawing.png
exit $failed
