#!/bin/bash
# Plays the keystroke scripts of the data-entry field in real windows, with the keys of an X server:
# field.sh TESTS_FIELD. Exits with 77 when the tools for it are missing.
set -u
. "$(dirname "$0")/support.sh"
need_tools
export TESELA_DISPLAY=x11
start_server 24
if "$1" --gtest_brief=1 --gtest_filter='*FieldScripts*' >"$log" 2>&1; then
    passed "$(grep -c . "$log") lines of the scripts' play: $(tail -n 1 "$log")"
else
    failed "the scripts play" "$(grep -E "FAILED|trace|expect |Which" "$log")"
fi
finish_checks
