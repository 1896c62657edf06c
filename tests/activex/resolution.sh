#!/usr/bin/env bash
# resolution.sh BITS TESTS_ACTIVEX: runs the tests of sizes on a display of 120 dots an inch.
set -euo pipefail
bits=$1 tests=$2
run() { "$(dirname "${BASH_SOURCE[0]}")/../../scripts/run-windows" "$bits" "$@"; }
readonly key='HKCU\Control Panel\Desktop'

status=0
run reg add "$key" /v LogPixels /t REG_DWORD /d 120 /f >/dev/null || {
  status=$?
  [ $status = 77 ] && exit 77
  echo "the resolution could not be set: $status"
  exit 1
}
trap 'run reg add "$key" /v LogPixels /t REG_DWORD /d 96 /f >/dev/null' EXIT
TESELA_DOTS=120 run "$tests" --gtest_brief=1 '--gtest_filter=Controls.*:Extents.*:*Saving*:SavedControls.*'
