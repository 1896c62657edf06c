# How the script speaks: a line a step, the log only when a step fails.

say() {
  if [ -t 2 ]; then printf '\033[1m== %s\033[0m\n' "$*" >&2; else printf '== %s\n' "$*" >&2; fi
}
fail() { printf '\n!! %s\n' "$*" >&2; }
die() {
  fail "$*"
  exit 1
}

jobs_at_once() { echo "${TESELA_JOBS:-$(nproc 2>/dev/null || echo 2)}"; }

# step TITLE COMMAND...: runs quietly; on failure prints the end of what the command said and stops.
step() {
  local title=$1 log
  shift
  mkdir -p build/log
  log=build/log/$(printf '%s' "$title" | tr -c 'A-Za-z0-9' '-' | cut -c1-60).log
  say "$title"
  if ! "$@" >"$log" 2>&1; then
    grep -nE 'error:|Error|FAILED' "$log" | head -20 >&2 || true
    tail -n 30 "$log" >&2
    die "Failed: $title. The whole of what it said is in $log. Mend that and run the same command again."
  fi
}
