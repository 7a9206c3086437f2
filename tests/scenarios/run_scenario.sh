#!/usr/bin/env bash
# Plays a scenario on a fresh copy of a company and compares what it prints with the .out file beside it.
#
#   run_scenario.sh SCENARIO.zs COMPANY WORK COMMAND...
#
# COMPANY: the place of a company, copied: an application's folder, or a database of the test server. WORK: a folder for
# what was printed, and the copy of a folder, emptied first. COMMAND gets the script and the place. A run that fails is
# a scenario too: its error line and status end the transcript.
set -euo pipefail

scenario=$1 company=$2 work=$3
shift 3
expected=${scenario%.zs}.out
name=$(basename "$scenario" .zs)

rm -rf "$work"
mkdir -p "$work"
if [[ $company == postgresql:* ]]; then
  original=${company#postgresql:///} original=${original%%\?*} copy=scenario_$$
  drop() { psql -qX "$ZENDARA_TEST_SERVER" -c "DROP DATABASE $copy WITH (FORCE)"; }
  psql -qX "$ZENDARA_TEST_SERVER" -c "CREATE DATABASE $copy TEMPLATE $original STRATEGY FILE_COPY"
  trap drop EXIT
  place=(--store "${company/$original/$copy}")
else
  cp -r "$company" "$work/company"
  place=(--dir "$work/company")
fi

status=0
# From the scenario's folder, so that error lines name the script alone.
(cd "$(dirname "$scenario")" && "$@" "$name.zs" "${place[@]}") >"$work/$name.out" 2>"$work/$name.err" || status=$?
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
