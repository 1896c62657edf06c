#!/bin/bash
# Pictures on the clipboard, to other programs and from them: pictures.sh PROBE. Exits with 77 when the tools
# for it are missing.
set -u
. "$(dirname "$0")/support.sh"
need_tools xclip convert identify
export TESELA_DISPLAY=x11
start_server 24
start_probe "$1"
expect "a window is painted" "painted"
xdotool windowfocus --sync "$(wait_for_window '^Sonda')"

# paste TYPE FILE: what another program gets from the clipboard.
paste() { timeout 20 xclip -o -selection clipboard -t "$1" >"$2"; }
# copy TYPE FILE: what another program puts there.
copy() { xclip -i -selection clipboard -t "$1" "$2"; }
size_of() { identify -format '%wx%h' "$1"; }
color_at() { convert "$1" -crop "1x1+$2+$3" -depth 8 txt:- | grep -oE '#[0-9A-F]{6}' | head -n 1; }

xdotool key ctrl+p
expect "at first there is none" "no picture"
xdotool key ctrl+b
expect "a picture is copied" "copied picture"
paste TARGETS "$work/types"
for type in png bmp; do
    holds "it is offered as image/$type" grep -qx "image/$type" "$work/types"
    paste "image/$type" "$work/copied.$type"
    equal "another program pastes it as $type" "$(size_of "$work/copied.$type")" 320x200
    equal "with its mark" "$(color_at "$work/copied.$type" 19 9)" '#FFA000'
    equal "and its ground" "$(color_at "$work/copied.$type" 20 9)" '#0064C8'
done

convert -size 31x17 xc:'#12AB34' PNG24:"$work/small.png"
convert -size 31x17 xc:'#12AB34' BMP3:"$work/small.bmp"
for type in png bmp; do
    copy "image/$type" "$work/small.$type"
    xdotool key ctrl+p
    expect "another program's $type is pasted" "pasted picture 31 17 #12AB34"
done
# Noise does not become small: this goes in pieces.
convert -size 800x600 xc:gray -seed 1 +noise Random -fill '#123456' -draw 'point 0,0' PNG24:"$work/large.png"
copy image/png "$work/large.png"
xdotool key ctrl+p
expect "another program's large picture is pasted" "pasted picture 800 600 #123456"
head -c 100 "$work/large.png" >"$work/short.png"
copy image/png "$work/short.png"
xdotool key ctrl+p
expect "one that is cut short is none" "no picture"

xdotool key ctrl+e
expect "a metafile is copied" "copied metafile"
paste image/x-emf "$work/copied.emf"
equal "another program pastes it as a file" "$(od -An -j40 -N4 -c "$work/copied.emf" | tr -d ' ')" "EMF"
copy image/x-emf "$work/copied.emf"
xdotool key ctrl+p
expect "and gives it back" "pasted metafile $(od -An -j52 -N4 -tu4 "$work/copied.emf" | tr -d ' ')"
xdotool key alt+F4
expect "the window closes" "closed"
expect_end "and with it the program"
finish_checks
