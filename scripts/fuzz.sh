#!/usr/bin/env bash
# Fuzzes every member of the library for a while:
#   scripts/fuzz.sh [seconds]      (default 1800)
# Builds the fuzz target with clang, AddressSanitizer and
# UndefinedBehaviorSanitizer in build-fuzz.  The seed corpus in
# tests/fuzz/corpus is read, never written: inputs that reach new code
# collect in build-fuzz/corpus, and an input that breaks a promise is
# left in build-fuzz/ as crash-* with the fuzzer's report.
set -euo pipefail
cd "$(dirname "$0")/.."
seconds=${1:-1800}
bash scripts/setup.sh
CC=clang CXX=clang++ cmake -S . -B build-fuzz -DCMAKE_BUILD_TYPE=Release -DCMAKE_CXX_FLAGS_RELEASE="-O1 -g" \
  -DKELM_SANITIZE=address,undefined -DKELM_FUZZ=ON -DKELM_BUILD_BENCH=OFF -DKELM_BUILD_DEMO=OFF >/dev/null
cmake --build build-fuzz -j"$(nproc)" --target kelm_fuzz
mkdir -p build-fuzz/corpus
cd build-fuzz
ASAN_OPTIONS=detect_leaks=0 ./tests/kelm_fuzz -max_total_time="$seconds" -timeout=60 -print_final_stats=1 \
  corpus ../tests/fuzz/corpus
