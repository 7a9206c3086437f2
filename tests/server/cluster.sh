#!/usr/bin/env bash
# A database server to throw away, of Debian's packages. It listens on a socket that only its user can reach, and no
# other server of the machine is touched.
#
#   cluster.sh place DIR                 the connection text of the server that belongs to this folder
#   cluster.sh start DIR [SETTING...]    makes it with these settings (fsync=off) if there is none; starts it
#   cluster.sh stop DIR                  its data stay
#   cluster.sh remove DIR                with its data, in whatever state it was left
#
# Its files stand in /var/tmp: a build folder may have too long a path for a socket (107 bytes), or, when root builds,
# be one that the server's user cannot enter.
set -euo pipefail

action=$1
hash=$(echo "$EUID $(realpath -m "$2")" | md5sum)
server=/var/tmp/zendara-server-${hash:0:12}
settings=("${@:3}")
cd /

# The server refuses to run as root.
as_server() {
  local user=()
  ((EUID != 0)) || user=(setpriv --reuid=postgres --regid=postgres --clear-groups)
  "${user[@]}" env -u LANGUAGE LC_ALL=C "$@"
}

programs=$(printf '%s\n' /usr/lib/postgresql/*/bin | sort -V | tail -n 1)
control() { as_server "$programs/pg_ctl" --silent --wait --pgdata "$server/data" --log "$server/log" "$@"; }
answers() { "$programs/pg_isready" --quiet --host "$server"; }

make() {
  as_server mkdir -m 700 -p "$server"
  as_server test -O "$server" -a ! -L "$server" || { echo "$server is somebody else's" >&2; exit 1; }
  control init -o "-A trust -E UTF8 --no-locale --no-sync -U $(id -un)" >/dev/null
  printf '%s\n' "listen_addresses = ''" "unix_socket_directories = '$server'" "${settings[@]}" |
    as_server tee -a "$server/data/postgresql.conf" >/dev/null
}

case $action in
  place) echo "postgresql:///postgres?host=$server" ;;
  start)
    as_server test -e "$server/data/PG_VERSION" || make
    answers && echo "It runs already." && exit
    control start || { tail "$server/log" >&2; exit 1; }
    ;;
  stop) control stop --mode fast ;;
  remove)
    control stop --mode immediate --timeout 5 >/dev/null 2>&1 || true
    rm -rf "$server"
    ;;
  *) exit 2 ;;
esac
