#!/usr/bin/env bash
# The commands for class files: ZENDARA LIBRARY FOLDER, the program, the component's library, a folder to write to.
set -euo pipefail
zendara=$1 library=$(realpath -s "$2") folder=$3
rm -rf "$folder"
export ZENDARA_CLASS_PATH=$folder/classes XDG_DATA_HOME=$folder/user XDG_DATA_DIRS=$folder/system

# STATUS TEXT COMMAND...: what it prints, on either stream, begins with the text or is empty for none.
expect() {
  local status=0 printed
  printed=$("${@:3}" 2>&1) || status=$?
  [[ $status == "$1" && $printed == "$2"* ]] && return
  printf '%s: status %s\n%s\n-- expected status %s\n%s\n' "${*:3}" "$status" "$printed" "$1" "$2" >&2
  exit 1
}

expect 0 'no classes are registered' "$zendara" classes
expect 0 "$library: registered" "$zendara" register "$library"
expect 0 "Zendara.ClsZendara 1.0.0 $(dirname "$library")/libzendara.so.1 $folder/classes/zendara.clszendara.class" \
  "$zendara" classes
sed -i 's|^Library=.*|Library=/none.so|' "$folder/classes/zendara.clszendara.class"
expect 1 "Zendara.ClsZendara 1.0.0 /none.so $folder/classes/zendara.clszendara.class
fault: $folder/classes/zendara.clszendara.class: /none.so: No such file or directory
Zendara.Engine" "$zendara" classes
(cd "$(dirname "$library")" && expect 0 'libzendara.so: unregistered' "$zendara" unregister libzendara.so)
expect 0 'zendara.clszendara.class' ls "$folder/classes"
expect 1 'zendara: /none.so: cannot open' "$zendara" register /none.so
expect 1 'zendara: libc.so.6: it has no DllRegisterServer' "$zendara" register libc.so.6
ZENDARA_CLASS_PATH=relative expect 1 'zendara: ' "$zendara" unregister "$library"
ZENDARA_CLASS_PATH=/proc/none expect 1 "zendara: $library: the class files were not changed: /proc/none" \
  "$zendara" register "$library"
