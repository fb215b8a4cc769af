#!/usr/bin/env bash
# Callers on many threads and the parallel drivers under ThreadSanitizer:
# clang with LLVM's OpenMP runtime, whose Archer tool tells the sanitizer
# what the runtime synchronises.  Builds in build-tsan.
set -euo pipefail
cd "$(dirname "$0")/.."
jobs=$(nproc)
bash scripts/setup.sh
CC=clang CXX=clang++ cmake -S . -B build-tsan -DCMAKE_BUILD_TYPE=Release -DCMAKE_CXX_FLAGS_RELEASE=-O1 \
  -DKELM_SANITIZE=thread -DKELM_BUILD_BENCH=OFF -DKELM_BUILD_DEMO=OFF -DKELM_PYTHON=OFF >/dev/null
cmake --build build-tsan -j"$jobs" --target kelm_tests
# Archer tells ThreadSanitizer what the OpenMP runtime synchronises.
OMP_TOOL_LIBRARIES="$(dirname "$(readlink -f "$(command -v clang)")")/../lib/libarcher.so" TSAN_OPTIONS="halt_on_error=1 second_deadlock_stack=1 ignore_noninstrumented_modules=1" \
  OMP_WAIT_POLICY=passive ./build-tsan/tests/kelm_tests --gtest_brief=1 \
  --gtest_filter='Concurrency.*:Driver.*:All/Limits.SameResultForEveryTeamSize/*'

