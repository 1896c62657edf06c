#!/bin/bash
# `./tesela package`: programs are built with the package alone, by CMake and by pkg-config, and run.
. "$(dirname "$0")/../support/checks.sh"
need Xvfb xdotool xprop pkg-config
here=$(cd "$(dirname "$0")" && pwd)
project=$(cd "$here/../.." && pwd)
. "$here/../support/x_server.sh"
package=$work/elsewhere

run "$project/tesela" package
exits "the package is made" 0
prints "it says where" "build/package"
# Anywhere else it is as good.
cp -r "$project/build/package" "$package"
libraries=$(dirname "$(find "$package" -name libTeselaCtl.so)")
export LD_LIBRARY_PATH=$libraries PKG_CONFIG_PATH=$libraries/pkgconfig
equal "pkg-config knows it" "$(pkg-config --modversion tesela)" "$(sed -n 's/^project(Tesela VERSION \([0-9.]*\).*/\1/p' "$project/CMakeLists.txt")"
equal "nothing in it names this project's folder" "$(grep -rlI "$project" "$package")" ""

# says_hello WHAT PROGRAM: it opens its window, which the user closes.
says_hello() {
    local window
    TESELA_DISPLAY=desktop "$2" &
    children+=($!)
    window=$(wait_for_window '^Saludo$')
    [ -n "$window" ] || give_up "$1: its window opens"
    xdotool windowfocus --sync "$window"
    xdotool key alt+F4
    wait $!
    equal "$1: it ends when its window is closed" $? 0
}

mkdir "$work/first"
cp "$project"/apps/first/* "$work/first/"
run cmake -S "$work/first" -B "$work/with-cmake" -DCMAKE_PREFIX_PATH="$package"
exits "CMake finds the package" 0
run cmake --build "$work/with-cmake"
exits "a program is built with its CMake package" 0
run c++ "$work/first/main.cpp" $(pkg-config --cflags --libs tesela) -o "$work/with-pkg-config"
exits "a program is built with its pkg-config file" 0
start_x_server
says_hello "the program built with CMake" "$work/with-cmake/first"
says_hello "the program built with pkg-config" "$work/with-pkg-config"

run "$project/build/native/apps/sample/tesela-sample" "$work/muestra.sqlite"
run c++ "$here/records.cpp" $(pkg-config --cflags --libs tesela) -o "$work/records"
exits "a program that reads a database is built" 0
run "$work/records" "$work/muestra.sqlite"
exits "it runs" 0
prints "it reads the first customer" "clientes 1"

# Each header stands alone.
for header in $(cd "$package" && find . -name '*.h' | sed 's,.*/include/tesela/,,' | sort); do
    echo "#include \"$header\"" >"$work/header.cpp"
    run c++ -fsyntax-only $(pkg-config --cflags tesela) "$work/header.cpp"
    exits "$header is whole" 0
done

finish_checks
