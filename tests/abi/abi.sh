#!/usr/bin/env bash
# The binary contract in C of a library, compared with the one that was given out under its major number, or written:
# check|write LIBRARY HEADERS. Needs debugging information in the library (77 if there is none).
#
# Further functions are compatible, and further members at the end of a structure that begins with its size or of a table
# of an object; everything else needs another major number.
set -euo pipefail
act=$1 library=$2 headers=$3
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
baseline=$here/$(objdump -p "$library" | awk '/SONAME/ { print $2 }').abi
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

abidw --headers-dir "$headers" --suppressions "$here/functions.supp" --drop-private-types --exported-interfaces-only \
  --no-corpus-path --no-comp-dir-path --no-show-locs --no-elf-needed --out-file "$folder/found" "$library"
grep -q '<function-decl .*elf-symbol-id=' "$folder/found" ||
  { echo "abi: $library has no debugging information"; exit 77; }

compatible() {
  python3 "$here/without_appended.py" "$baseline" "$folder/found" >"$folder/known"
  abidiff --no-added-syms "$baseline" "$folder/known"
}

case $act in
  check)
    [[ -e $baseline ]] || { echo "abi: there is no $baseline: ./dev abi writes it" >&2; exit 1; }
    compatible || { echo "abi: hosts of today would break: another major number, or another way" >&2; exit 1; }
    ;;
  write)
    [[ ! -e $baseline ]] || compatible || { echo "abi: $baseline stays: another major number" >&2; exit 1; }
    sed "s|path='[^']*/|path='|" "$folder/found" >"$baseline"  # of sources: the name, not where they were compiled
    ;;
esac
