#!/usr/bin/env bash
# What another project gets that has this one as a part of it: SOURCES FOLDER
set -euo pipefail
sources=$1 folder=$2

fail() {
  echo "subproject: $1" >&2
  exit 1
}

rm -rf "$folder"
cmake -S "$sources/tests/subproject" -B "$folder" -G Ninja -DZENDARA_SOURCE_DIR="$sources" >/dev/null

# All that it builds besides the host: libraries, those that hosts load among them.
programs=$(ninja -C "$folder" -t targets all | sed -n 's/: CXX_EXECUTABLE_LINKER.*//p')
[[ $programs == host ]] || fail "programs are built: $programs"
built=$(ninja -C "$folder" -t inputs all)
for library in libzendara.so libzendara-windows.so; do
  [[ $built == *"$library"* ]] || fail "$library is not built"
done
grep -E "^$sources/(tests|bench|apps)/" <<<"$built" | grep -v '/windows_host_test.cpp$' && fail "more is built"
cmake --install "$folder" --prefix "$folder/installed" >/dev/null
[[ ! -d $folder/installed ]] || fail "it is installed with the host"

# How each is compiled: the host without what the libraries are, these without what is a developer's.
own=$(grep '"command"' "$folder/compile_commands.json" | grep windows_host_test.cpp)
ours=$(grep '"command"' "$folder/compile_commands.json" | grep -v windows_host_test.cpp)
[[ $own == *"-I$sources/include "* && $own == *-Werror* ]] || fail "the host is compiled by: $own"
grep -E -- '-W[^el]|-fvisibility|-fno-gnu-unique|ccache' <<<"$own" && fail "options have come to the host"
grep -E -- '-W[a-z]|ccache' <<<"$ours" && fail "libraries are compiled with a developer's options"
exit 0
