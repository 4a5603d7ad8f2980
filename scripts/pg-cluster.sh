#!/usr/bin/env bash
# A throwaway PostgreSQL cluster for tests and benchmarks: it listens on a Unix socket in its own
# folder (no TCP port), lets the role "pelkor" in without a password, and is removed when stopped.
#   pg-cluster.sh start DIR      a new cluster in DIR (a cluster left there is stopped first)
#   pg-cluster.sh stop DIR       stops it and removes DIR
#   pg-cluster.sh createdb DIR NAME   an empty database NAME (dropped first when it exists)
# Connect with postgresql:///NAME?host=DIR&user=pelkor.
set -euo pipefail
usage() { echo "usage: $0 start|stop DIR | createdb DIR NAME" >&2; exit 2; }
[ $# -ge 2 ] || usage
command=$1
dir=$(realpath -m "$2")
# The cluster's owner may not be allowed into the caller's folder.
cd /
bindir=$(ls -d /usr/lib/postgresql/*/bin 2>/dev/null | sort -V | tail -n 1)
if [ -z "${bindir}" ]; then
  echo "PostgreSQL's server programs are not installed; run scripts/install-deps.sh" >&2
  exit 1
fi

# The server refuses to run as root, so under root the cluster belongs to "nobody".
as_owner() {
  if [ "$(id -u)" -eq 0 ]; then
    runuser -u nobody -- "$@"
  else
    "$@"
  fi
}

stop() {
  if [ -f "${dir}/data/postmaster.pid" ]; then
    as_owner "${bindir}/pg_ctl" -D "${dir}/data" -m immediate -w stop >/dev/null || true
  fi
  rm -rf "${dir}"
}

case "${command}" in
  start)
    stop
    mkdir -p "${dir}"
    [ "$(id -u)" -eq 0 ] && chown nobody "${dir}"
    as_owner "${bindir}/initdb" -D "${dir}/data" -U pelkor --auth=trust --encoding=UTF8 \
      --locale=C --no-sync >"${dir}/initdb.log" 2>&1 ||
      { cat "${dir}/initdb.log" >&2; exit 1; }
    # A throwaway cluster for tests needs no durability: no fsync makes them faster. Benchmarks
    # set PELKOR_PG_FSYNC=on to measure a server that writes as a real one does.
    fsync=${PELKOR_PG_FSYNC:-off}
    if ! as_owner "${bindir}/pg_ctl" -D "${dir}/data" -l "${dir}/server.log" -w -s \
      -o "-c listen_addresses='' -c unix_socket_directories='${dir}' -c fsync=${fsync}" start; then
      cat "${dir}/server.log" >&2
      exit 1
    fi
    ;;
  stop)
    stop
    ;;
  createdb)
    [ $# -eq 3 ] || usage
    export PGOPTIONS="-c client_min_messages=warning"
    psql=("${bindir}/psql" -X -q -v ON_ERROR_STOP=1 -h "${dir}" -U pelkor -d postgres)
    "${psql[@]}" -c "DROP DATABASE IF EXISTS \"$3\" WITH (FORCE)"
    "${psql[@]}" -c "CREATE DATABASE \"$3\""
    ;;
  *)
    usage
    ;;
esac
