#!/bin/bash
# Walks through the sample database on a Wayland desktop, which Weston makes in a window of an X server:
# wayland.sh FICHAS TESELA-SAMPLE. Weston hands on what is typed into its window.
. "$(dirname "$0")/../support/checks.sh"
. "$(dirname "$0")/../support/x_server.sh"
need Xvfb weston xdotool import identify convert compare
. "$(dirname "$0")/sample_walk.sh"

# A desktop of one colour, on which windows open anywhere.
start_x_server
export XDG_RUNTIME_DIR=$work/run
mkdir -m 700 "$XDG_RUNTIME_DIR"
cat >"$work/weston.ini" <<'INI'
[shell]
background-image=
background-color=0xff204060
panel-position=none
locking=false
animation=none
startup-animation=none
INI
weston --backend=x11-backend.so --use-pixman --width=800 --height=600 --idle-time=0 --socket=tesela \
    --config="$work/weston.ini" >"$work/weston.log" 2>&1 &
children+=($!)
find_desktop() { xdotool search --onlyvisible --class '^weston' 2>/dev/null | head -n 1 | grep .; }
desktop=$(until_true find_desktop)
[ -n "$desktop" ] || { echo "skipped: Weston does not start: $(tail -n 1 "$work/weston.log")"; exit 77; }
xdotool windowfocus "$desktop"
xdotool mousemove 797 597 # where the pointer is seen least

export TESELA_DISPLAY=sdl SDL_VIDEODRIVER=wayland WAYLAND_DISPLAY=tesela
"$fichas" "$sample" 2>"$err" &
program=$!
children+=("$program")

# shows PICTURE WHAT: waits until what is there, as far as a form's colour reaches, is what is inside of the
# picture.
formColor='#F5F5F5'
shows() {
    if until_true same_pixels "$1"; then passed "$2"; else failed "$2" "$(cat "$work/differing" "$err")"; fi
}
same_pixels() {
    import -window "$desktop" "$work/screen.png" || return
    local place
    place=$(convert "$work/screen.png" -fill black +opaque "$formColor" -trim -format %wx%h%O info: 2>/dev/null)
    local size=${place%%+*}
    convert "$work/screen.png" -crop "$place" +repage "$work/seen.png" 2>/dev/null || return
    inside_of "$1" "$size" "$work/expected.png" &&
        compare -metric AE "$work/seen.png" "$work/expected.png" null: 2>"$work/differing"
}

shows "${pictures[0]}" "a window opens and looks as it does in memory"
xdotool key Next
shows "${pictures[1]}" "a key goes to the next record"
xdotool key Return
shows "${pictures[2]}" "another one to the next field"
xdotool key ctrl+End
shows "${pictures[3]}" "and two together to the last record"
xdotool key alt+F4
gone() { ! kill -0 "$program" 2>/dev/null; }
holds "the window closes" until_true gone
wait "$program"
equal "the program ended well" $? 0

finish_checks
