#!/bin/bash
# `./tesela bench` and `./tesela fuzz`: what they list, and names that there are not.
. "$(dirname "$0")/../support/checks.sh"
project=$(cd "$(dirname "$0")/../.." && pwd)
tesela=$project/tesela
benchmarks=$(sed -nE 's/^add_executable\(bench_([a-z_]+) .*/\1/p' "$project/bench/CMakeLists.txt" | sort | paste -sd' ')
targets=$(sed -nE 's/^add_fuzz\(([a-z_]+) .*/\1/p' "$project/fuzz/CMakeLists.txt" | sort | paste -sd' ')

run "$tesela" bench frobnicate
exits "an unknown benchmark" failing
complains "an unknown benchmark: it says which there are" "There is no benchmark 'frobnicate'. There are: $benchmarks"

run "$tesela" fuzz
exits "fuzz alone" 0
equal "fuzz alone lists its targets" "$(paste -sd' ' "$out")" "$targets"
run "$tesela" fuzz frobnicate
exits "an unknown target" failing
complains "an unknown target: it says which there are" "There is no fuzz target 'frobnicate'. There are: $targets"
run "$tesela" fuzz numbers 1
exits "a target runs" 0
complains "for as long as it is told" "Done "

finish_checks
