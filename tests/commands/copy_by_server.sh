#!/usr/bin/env bash
# A company copied to a server and back to a folder: the commands print the same in all three places.
# PROGRAM SERVER FOLDER WORK
set -euo pipefail
zendara=$1 server=$2 folder=$3 work=$4
database=copied_$$
rm -rf "$work"
mkdir -p "$work"
cp -r "$folder" "$work/first"
psql -qX "$server" -c "CREATE DATABASE $database"
trap 'psql -qX "$server" -c "DROP DATABASE $database WITH (FORCE)"' EXIT
place=${server/\/postgres\?/\/$database?}
places=("$work/first" "$place" "$work/third")

copy() { "$zendara" data copy --from "$1" --to "$2" --company 1; }
copy "$work/first" "$place" >"$work/there"
copy "$place" "$work/third" >"$work/back"
diff "$work/there" "$work/back"
[[ $(wc -l <"$work/there") == 16 ]]
[[ $(copy "$work/third" "$place" 2>&1) == *"there is a company 00001 in "*" already: "* ]]

# What is printed of a place, with rows that come and go in it.
tell() {
  local words=(--store "$1" --company 1 --year 01) table
  "$zendara" data create --store "$1" --company 1 --year 03
  printf 'Campo0,Campo1\n998,"ñ "\n' >"$work/in.csv"
  "$zendara" data load "${words[@]}" Centros "$work/in.csv"
  "$zendara" data check "${words[@]}"
  "$zendara" rate "${words[@]}" --format csv
  "$zendara" list workers "${words[@]}"
  for table in TrabajadoresFijo TrabajadoresVar TincidenciasIT Historico ConTrabajadorConceptos IRPF Centros Calles; do
    "$zendara" data dump "${words[@]}" "$table"
  done
}
for place in "${places[@]}"; do
  tell "$place" >"$work/told"
  [[ -e $work/expected ]] || cp "$work/told" "$work/expected"
  diff "$work/expected" "$work/told"
done
