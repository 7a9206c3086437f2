#!/usr/bin/env bash
# Plays a scenario on a fresh copy of a company and compares what it prints with the .out file beside it.
#
#   run_scenario.sh SCENARIO.zs COMPANY WORK COMMAND...
#
# COMPANY: an application's folder, copied. WORK: a folder for the copy and for what was printed, emptied first.
# COMMAND gets the script and --dir. A run that fails is a scenario too: its error line and status end the transcript.
set -euo pipefail

scenario=$1 company=$2 work=$3
shift 3
expected=${scenario%.zs}.out
name=$(basename "$scenario" .zs)

rm -rf "$work"
mkdir -p "$work"
cp -r "$company" "$work/company"

status=0
# From the scenario's folder, so that error lines name the script alone.
(cd "$(dirname "$scenario")" && "$@" "$name.zs" --dir "$work/company") >"$work/$name.out" 2>"$work/$name.err" || status=$?
if ((status != 0)); then
  sed 's/^zendara[a-z-]*: //' "$work/$name.err" >>"$work/$name.out"
  echo "status $status" >>"$work/$name.out"
fi

if [[ ! -f $expected ]]; then
  echo "$expected is missing; this was printed:"
  cat "$work/$name.out"
  exit 1
fi
if ! diff -U 3 --label "expected: $expected" --label "printed: $work/$name.out" "$expected" "$work/$name.out"; then
  ((status == 0)) && cat "$work/$name.err"
  exit 1
fi
