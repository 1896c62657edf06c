#!/bin/bash
# `./tesela bench` and `./tesela fuzz`: what they list, and names that there are not.
. "$(dirname "$0")/../support/checks.sh"
tesela=$(cd "$(dirname "$0")/../.." && pwd)/tesela

run "$tesela" bench frobnicate
exits "an unknown benchmark" failing
complains "an unknown benchmark: it says which there are" "There is no benchmark 'frobnicate'. There are: start values"

run "$tesela" fuzz
exits "fuzz alone" 0
equal "fuzz alone lists its targets" "$(tr '\n' ' ' <"$out")" "criteria csv dates format formfile numbers picture "
run "$tesela" fuzz frobnicate
exits "an unknown target" failing
complains "an unknown target: it says which there are" "There is no fuzz target 'frobnicate'. There are: criteria csv"
run "$tesela" fuzz numbers 1
exits "a target runs" 0
complains "for as long as it is told" "Done "

finish_checks
