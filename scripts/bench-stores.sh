#!/usr/bin/env bash
# Runs the open, load and save benchmarks at 1,000 and 100,000 IBOs on both backends: a SQLite file, and a throwaway local
# PostgreSQL server (Unix socket) started for the run and removed after it.
# Usage: scripts/bench-stores.sh [BUILD_DIR] [benchmark options...]
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:-build/default}
shift || true
cluster=$(mktemp -d /tmp/pelkor-bench-pg.XXXXXX)
trap 'scripts/pg-cluster.sh stop "${cluster}"' EXIT
PELKOR_PG_FSYNC=on scripts/pg-cluster.sh start "${cluster}"
# One database per size the benchmarks fill (1,000 and 100,000 IBOs and contacts).
for size in 1000 100000; do scripts/pg-cluster.sh createdb "${cluster}" "store_bench_${size}"; done
PELKOR_BENCH_PG="postgresql:///store_bench?host=${cluster}&user=pelkor" \
  "${build}/bench/store_bench" "$@"
