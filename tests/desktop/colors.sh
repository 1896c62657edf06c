#!/bin/bash
# Looks at pixels on servers that have others than ours, or share no memory: colors.sh PROBE. Exits with 77
# when the tools for it are missing.
set -u
. "$(dirname "$0")/support.sh"
need_tools
export TESELA_DISPLAY=x11

start_server 16
start_probe "$1"
expect_pixel "colours of 16 bits are the nearest ones" 215 165 '#C51C20'
expect_pixel "white is white" 400 300 '#FFFFFF'

start_server 24 -extension MIT-SHM
start_probe "$1"
expect_pixel "without shared memory the pixels go through the connection" 215 165 '#C81E1E'
expect_pixel "all of them" 519 349 '#FFFFFF'

finish_checks
