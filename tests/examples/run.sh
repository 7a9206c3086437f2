#!/usr/bin/env bash
# Builds the sample hosts as their readers would, outside of this tree and against what was installed, and runs each on
# a copy of a company: STAGE COMPANY, a folder of installation (its lib, include, share ...) and one that holds DATOS.
set -euo pipefail
stage=$(realpath "$1") company=$(realpath "$2")
examples=$(realpath "$(dirname "${BASH_SOURCE[0]}")/../../examples")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"

libraries=$(dirname "$(find "$stage/lib" -name libzendara.so)")
export LD_LIBRARY_PATH=$libraries PKG_CONFIG_PATH=$libraries/pkgconfig CMAKE_PREFIX_PATH=$stage
export PATH=/usr/lib/ccache:$PATH CCACHE_NOHASHDIR=1
export QT_QPA_PLATFORM=offscreen XDG_STATE_HOME=$work/state XDG_CONFIG_HOME=$work/config

# Class files name the library where it will be; a package that was only unpacked has it elsewhere.
mkdir classes
for file in "$stage"/share/zendara/classes/*.class; do
  library=$(sed -n 's/^Library=//p' "$file")
  [[ -e ${library} || -e ${stage%/usr}$library ]] || { echo "examples: $file names no library" >&2; exit 1; }
  sed "s|^Library=.*|Library=$libraries/${library##*/}|" "$file" >"classes/${file##*/}"
done
export ZENDARA_CLASS_PATH=$work/classes

# PROGRAM ARGUMENTS: COMPANY among them becomes a fresh copy.
try() {
  echo "== ${*##*/}"
  rm -rf copy
  cp -r "$company" copy
  "${@/#COMPANY/$work/copy}" || { echo "examples: $1 gave $?" >&2; exit 1; }
}

# With CMake.
build() {
  cmake -S "$examples/$1" -B "$1" -G Ninja >/dev/null
  cmake --build "$1" >"$1.log" || { cat "$1.log" >&2; exit 1; }
}

build host-cpp
for host in console_host own_front_end; do
  try host-cpp/$host COMPANY
done

# A class of somebody else's, and those of the library: it writes the files that were installed.
build banner
zendara=$stage/bin/zendara
(export ZENDARA_CLASS_PATH=$work/registered && "$zendara" register "$libraries/libzendara.so.1")
diff -r registered classes
"$zendara" register "$work/banner/libravelin.so"
"$zendara" classes
[[ ! -e $libraries/libzendara-windows.so ]] || try host-cpp/windows_host COMPANY --try

# With pkg-config, C++ and C.
# shellcheck disable=SC2046
c++ -std=c++20 "$examples/host-cpp/console_host.cpp" -o console_host $(pkg-config --cflags --libs zendara)
try ./console_host COMPANY
cp -r "$examples/host-c" .
# shellcheck disable=SC2046
make -s -C host-c host $([[ ! -e $libraries/libzendara-windows.so ]] || echo windows)
try host-c/host COMPANY

# In Python, with nothing but the library.
try python3 -B "$examples/host-python/host.py" COMPANY
