#!/usr/bin/env bash
# Plays the session that a page of documentation shows, its first ```zs block, and compares with the ```text block that
# follows.
#
#   run_documented.sh PAGE.md COMPANY WORK COMMAND...      as run_scenario.sh
set -euo pipefail

page=$1 company=$2 work=$3
shift 3
block() { awk -v start="^\`\`\`$1\$" '$0 ~ start && !done { on = 1; next } /^```$/ && on { on = 0; done = 1 } on' "$page"; }

rm -rf "$work.page"
mkdir -p "$work.page"
block zs >"$work.page/session.zs"
block text >"$work.page/session.out"
[[ -s $work.page/session.zs && -s $work.page/session.out ]] || { echo "$page shows no session"; exit 1; }
exec "$(dirname "$0")/run_scenario.sh" "$work.page/session.zs" "$company" "$work" "$@"
