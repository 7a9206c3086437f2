#!/bin/sh
# What the libraries give out is the list beside this script and nothing else; the windows have no copy of their own of
# anything that the component's library gives out; and nothing keeps a library in memory for good.
#
#   exports.sh libzendara.so [libzendara-windows.so]           checks
#   exports.sh --write libzendara.so [libzendara-windows.so]   writes the lists anew
set -eu
export LC_ALL=C
here=$(dirname "$0")
write=
if [ "$1" = --write ]; then write=yes; shift; fi

# Weak functions are left out: whether a build keeps them depends on what it has inlined.
exported() { nm -DC --defined-only "$1" | sed -n 's/^[0-9a-f]* [^AW] \(.*\)@@.*/\1/p' | sort -u; }
# With their linkers' names: exported, and defined in whatever way.
given_out() { nm -D --defined-only "$1" | sed -n 's/^[0-9a-f]* [^A] \(.*\)@@.*/\1/p' | sort -u; }
defined() { nm --defined-only "$1" | sed 's/^[0-9a-f]* . //; s/@@.*//' | sort -u; }

failed=0
scratch=$(mktemp -d)
trap 'rm -r "$scratch"' EXIT
for library; do
  list=$here/$(basename "$library" .so).exports
  exported "$library" > "$scratch/found"
  test -s "$scratch/found" || { echo "$library gives out nothing"; failed=1; }
  if [ "$write" ]; then cp "$scratch/found" "$list"; fi
  diff "$list" "$scratch/found" || { echo "$library gives out something else than $list"; failed=1; }
  if readelf -sW "$library" | grep UNIQUE; then echo "$library has unique symbols"; failed=1; fi
done
if [ $# = 2 ]; then
  given_out "$1" > "$scratch/given"
  defined "$2" > "$scratch/defined"
  # A library without local symbols would have nothing to compare.
  grep -q MakeWindows "$scratch/defined" || { echo "$2 has no symbols to look at"; failed=1; }
  copies=$(comm -12 "$scratch/given" "$scratch/defined" | c++filt)
  if [ "$copies" ]; then echo "$2 has copies of its own:"; echo "$copies"; failed=1; fi
fi
exit $failed
