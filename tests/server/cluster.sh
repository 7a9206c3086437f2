#!/usr/bin/env bash
# A database server to throw away, of Debian's packages. It listens on a socket that only its user can reach, and no
# other server of the machine is touched.
#
#   cluster.sh place DIR                 the connection text of the server that belongs to this folder
#   cluster.sh start DIR [SETTING...]    makes it with these settings (fsync=off) if there is none; starts it
#   cluster.sh stop DIR                  its data stay
#   cluster.sh kill DIR                  the same at once: connections are cut, the log is written out at start
#   cluster.sh standby DIR OF            makes it as a standby of another, which waits for it at commits; starts it
#   cluster.sh promote DIR
#   cluster.sh remove DIR                with its data, in whatever state it was left
#
# Its files stand in /var/tmp: a build folder may have too long a path for a socket (107 bytes), or, when root builds,
# be one that the server's user cannot enter.
set -euo pipefail

place_of() {
  local hash
  hash=$(echo "$EUID $(realpath -m "$1")" | md5sum)
  echo "/var/tmp/zendara-server-${hash:0:12}"
}
action=$1
server=$(place_of "$2")
settings=("${@:3}")
primary=${3:-}
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

make_standby() {
  local primary=$1
  as_server mkdir -m 700 -p "$server"
  as_server "$programs/pg_basebackup" --host "$primary" --username "$(id -un)" --pgdata "$server/data" \
    --write-recovery-conf --checkpoint=fast --no-sync
  echo "unix_socket_directories = '$server'" | as_server tee -a "$server/data/postgresql.conf" >/dev/null
  control start
  as_server "$programs/psql" --quiet --host "$primary" --username "$(id -un)" postgres --output /dev/null \
    --command "ALTER SYSTEM SET synchronous_standby_names = '*'" --command "SELECT pg_reload_conf()"
}

case $action in
  place) echo "postgresql:///postgres?host=$server" ;;
  start)
    as_server test -e "$server/data/PG_VERSION" || make
    answers && echo "It runs already." && exit
    control start || { tail "$server/log" >&2; exit 1; }
    ;;
  stop) control stop --mode fast ;;
  kill) control stop --mode immediate ;;
  standby) make_standby "$(place_of "$primary")" ;;
  promote) control promote ;;
  remove)
    control stop --mode immediate --timeout 5 >/dev/null 2>&1 || true
    rm -rf "$server"
    ;;
  *) exit 2 ;;
esac
