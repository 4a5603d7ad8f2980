#!/usr/bin/env bash
# Fuzzes every decoder of stored or imported text (the record, the product list, the contact
# importers, the advisor's rule file) with clang's libFuzzer and AddressSanitizer + UBSan,
# starting from the seed corpora:
#   scripts/fuzz.sh [SECONDS]     each target for SECONDS (default 60)
#   scripts/fuzz.sh --runs N      each target for N inputs, at most 30 s (what CI does)
# New interesting inputs go to build/fuzz/corpus/<target>; a crash leaves its input in
# build/fuzz and fails the script.
set -euo pipefail
cd "$(dirname "$0")/.."
limit="-max_total_time=${1:-60}"
if [ "${1:-}" = "--runs" ]; then
  limit="-runs=${2:?--runs needs a count} -max_total_time=30"
fi
./scripts/install-deps.sh
build=build/fuzz
CXX=clang++ cmake -S . -B "${build}" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
  -DPELK_LIBFUZZER=ON -DPELK_SANITIZE=ON -DPELK_BUILD_DESKTOP=OFF -DPELK_BUILD_BENCH=OFF >/dev/null
# target, seed corpus, longest input
targets=(
  "record_decoder_fuzz record 70000"
  "product_text_fuzz products 70000"
  "contact_import_fuzz contacts 20000"
  "rule_file_fuzz rules 20000"
)
names=()
for entry in "${targets[@]}"; do names+=("${entry%% *}"); done
cmake --build "${build}" --target "${names[@]}" -j "$(nproc)"
cd "${build}"
export ASAN_OPTIONS=detect_leaks=1:abort_on_error=1
export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
for entry in "${targets[@]}"; do
  read -r name corpus longest <<<"${entry}"
  mkdir -p "corpus/${corpus}"
  echo "== fuzz ${name} (${limit})"
  # shellcheck disable=SC2086 # the limit may be two options
  "./tests/fuzz/${name}" ${limit} -max_len="${longest}" -print_final_stats=0 \
    "corpus/${corpus}" "../../tests/fuzz/corpus/${corpus}" 2>&1 | tail -n 1
done
