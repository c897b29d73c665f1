#!/usr/bin/env bash
# The program answers --help, --version and bad arguments, its sub-commands' too, at once, with no display, and
# touches no file or lock; its manual page formats without a warning.
# Usage: command_line_run.sh <path to bellwick> <bellwick.1>
set -uo pipefail
program="$1"
manual="$2"
home=$(mktemp -d)
trap 'rm -rf "$home"' EXIT
failures=0
fail() { echo "FAIL: $*"; failures=$((failures + 1)); }

# <expected exit> <stdout pattern> <stderr pattern> <arguments...>; an empty pattern wants nothing printed there.
check() {
    local want=$1 out_pattern=$2 err_pattern=$3
    shift 3
    env -i PATH="$PATH" HOME="$home" XDG_RUNTIME_DIR="$home/run" XDG_DATA_HOME="$home/data" \
        XDG_CONFIG_HOME="$home/config" XDG_CACHE_HOME="$home/cache" \
        timeout 10 "$program" "$@" >"$home.out" 2>"$home.err"
    local got=$?
    [ "$got" -eq "$want" ] || fail "'$*' exited $got, not $want"
    matches "$home.out" "$out_pattern" || fail "'$*' printed '$(cat "$home.out")', not /$out_pattern/"
    matches "$home.err" "$err_pattern" || fail "'$*' said '$(cat "$home.err")' on standard error, not /$err_pattern/"
    rm -f "$home.out" "$home.err"
}

matches() { if [ -z "$2" ]; then [ ! -s "$1" ]; else grep -qE "$2" "$1"; fi; }

# One answer of each kind through the real program; the texts of every case are the unit tests' (CommandLine.*).
check 0 '^Usage: bellwick' '' --help
check 0 '^bellwick [0-9]+\.[0-9]+\.[0-9]+$' '' --version
check 0 '^       bellwick add --in DELAY' '' add --help
check 2 '' "^bellwick: unknown option '--alarm'" --alarm
check 2 '' "^bellwick: add: give --time \(and --date\), or --in" add
# A message the files cannot hold is refused here, before any copy is asked or started, however long it is.
check 1 '' "^bellwick: Message longer than 626 characters$" add --in 5m --message "$(head -c 70000 /dev/zero | tr '\0' m)"
# Answering must not create the data folder, the lock or anything else.
left=$(find "$home" -mindepth 1)
[ -z "$left" ] || fail "the options left files behind: $left"

warnings=$(LC_ALL=C.UTF-8 MANWIDTH=80 man --warnings -E UTF-8 -l "$manual" 2>&1 >/dev/null)
[ -z "$warnings" ] || fail "the manual page has warnings: $warnings"
LC_ALL=C.UTF-8 MANWIDTH=80 man -l "$manual" 2>/dev/null | grep -q 'resident alarm clock' || fail "the manual page does not format"

[ "$failures" -eq 0 ] && echo "command line: all checks passed"
exit "$failures"
