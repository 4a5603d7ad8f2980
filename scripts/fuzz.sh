#!/usr/bin/env bash
# Fuzzes the record decoder and the product list's text form with clang's libFuzzer (and
# AddressSanitizer + UBSan) for SECONDS each (default 60), starting from the seed corpora. New
# interesting inputs go to build/fuzz/corpus/<target>; a crash leaves its input in build/fuzz and
# fails the script.
set -euo pipefail
cd "$(dirname "$0")/.."
seconds=${1:-60}
./scripts/install-deps.sh
if ! command -v clang++ >/dev/null; then
  SUDO=""
  [ "$(id -u)" -ne 0 ] && SUDO="sudo"
  $SUDO apt-get update -qq
  DEBIAN_FRONTEND=noninteractive $SUDO apt-get install -y -qq clang
fi
build=build/fuzz
CXX=clang++ cmake -S . -B "${build}" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
  -DPELK_LIBFUZZER=ON -DPELK_SANITIZE=ON -DPELK_BUILD_DESKTOP=OFF -DPELK_BUILD_BENCH=OFF >/dev/null
cmake --build "${build}" --target record_decoder_fuzz product_text_fuzz -j "$(nproc)"
cd "${build}"
mkdir -p corpus/record corpus/products
./tests/fuzz/record_decoder_fuzz -max_total_time="${seconds}" -max_len=70000 \
  corpus/record ../../tests/fuzz/corpus/record
./tests/fuzz/product_text_fuzz -max_total_time="${seconds}" -max_len=70000 \
  corpus/products ../../tests/fuzz/corpus/products
