#!/bin/bash
# What ./tesela says of itself, and what it says to words that it doesn't know.
. "$(dirname "$0")/../support/checks.sh"
tesela=$(cd "$(dirname "$0")/../.." && pwd)/tesela

run "$tesela" help
exits "help" 0
cp "$out" "$work/help"
for word in demo test bench shot fuzz golden package build; do
    prints "help tells of $word" "./tesela $word"
done
for suite in native sanitized windows desktop script conformance exchange style all; do
    prints "help tells of the suite $suite" "   $suite  "
done
for way in -h --help ""; do
    run "$tesela" $way
    exits "'./tesela $way'" 0
    holds "'./tesela $way' is the help" cmp -s "$out" "$work/help"
done
cd /
run bash "$tesela" help
exits "from another folder" 0
ln -s "$tesela" "$work/enlace"
run "$work/enlace" help
exits "through a link" 0

run "$tesela" frobnicate
exits "an unknown word" failing
complains "an unknown word: it says what there is" "'frobnicate' is not something ./tesela does. './tesela help' tells"
run "$tesela" test frobnicate
exits "an unknown suite" failing
complains "an unknown suite: it says which there are" "Suites: native sanitized windows desktop script conformance exchange style all."
run "$tesela" build frobnicate
exits "an unknown preset" failing
complains "an unknown preset: it says which there are" "Presets: native release sanitized windows-32 windows-64 bench."

finish_checks
