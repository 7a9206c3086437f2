#!/bin/sh
# Pictures of every screen, a folder for each script of capturas/: take_pictures.sh ZENDARA ZENDARA-DESK OUT
# Twice as fine as on a screen, so that they can be read on paper.
set -eu
zendara=$(realpath "$1") desk=$(realpath "$2") out=$3
scripts=$(realpath "$(dirname "$0")")/capturas

rm -rf "$out"
mkdir -p "$out"
cd "$out"
"$zendara" demo company >log
cat >screen.json <<'JSON'
{"screens": [{"name": "paper", "x": 0, "y": 0, "width": 2732, "height": 1536, "logicalDpi": 96, "logicalBaseDpi": 96,
              "dpr": 1}]}
JSON
export QT_QPA_PLATFORM="offscreen:configfile=screen.json" QT_SCALE_FACTOR=2
for script in "$scripts"/*.zs; do
  name=$(basename "$script" .zs)
  # The first window shows the name of the folder, and the one that it would make in the home folder.
  cp -r company nominas
  [ "$name" != sin_empresas ] || rm -r nominas/DATOS
  HOME=/home/usuario "$desk" --dir nominas --colours light --run "$script" --screenshots "$name" >>log
  rm -r nominas
done
rm -r company drafts
touch taken
