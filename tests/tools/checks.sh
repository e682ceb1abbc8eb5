# Sourced by test scripts: check, which counts, and shows what a failing command said; and a folder
# $work that is gone at the end.
# shellcheck shell=bash
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
checks=0
failures=0

check() { # TEXT COMMAND...
  local text=$1
  shift
  checks=$((checks + 1))
  if ! "$@" >"$work/output" 2>&1; then
    failures=$((failures + 1))
    echo "FAILED: $text"
    sed 's/^/    /' "$work/output"
  fi
}

# The last command of a script.
report_checks() {
  echo "$checks checks, $failures failed"
  [ "$failures" -eq 0 ]
}
