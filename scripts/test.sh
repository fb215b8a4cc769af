#!/usr/bin/env bash
# Builds kelm and runs every test: the optimised build, the same tests under
# AddressSanitizer and UndefinedBehaviorSanitizer with the fuzz target,
# callers on many threads under ThreadSanitizer, a static build, and an
# install consumed through find_package(kelm) and pkg-config.
#   --quick   the optimised build's tests only
set -euo pipefail
cd "$(dirname "$0")/.."
quick=0
[ "${1:-}" = "--quick" ] && quick=1
jobs=$(nproc)
bash scripts/setup.sh

step() { printf '\n== %s\n' "$*"; }

step "optimised build and tests"
cmake -S . -B build -DCMAKE_BUILD_TYPE=Release >/dev/null
cmake --build build -j"$jobs"
# ctest runs the Python package's tests too (the test "python": pytest with
# PYTHONPATH=build/python and Debian's /usr/bin/python3).
(cd build && ctest -j"$jobs" --output-on-failure)
[ $quick = 1 ] && exit 0

step "tests under AddressSanitizer and UndefinedBehaviorSanitizer (clang), and the fuzz target"
# -O1 keeps the instrumented build quick to compile and the tests quick to run.
CC=clang CXX=clang++ cmake -S . -B build-asan -DCMAKE_BUILD_TYPE=Release -DCMAKE_CXX_FLAGS_RELEASE=-O1 \
  -DKELM_SANITIZE=address,undefined -DKELM_FUZZ=ON -DKELM_BUILD_BENCH=OFF -DKELM_BUILD_DEMO=OFF -DKELM_PYTHON=OFF >/dev/null
cmake --build build-asan -j"$jobs"
# OpenMP's runtime keeps its thread pool alive at exit: not a leak of ours.
export ASAN_OPTIONS=detect_leaks=0 UBSAN_OPTIONS=print_stacktrace=1
(cd build-asan && ctest -j"$jobs" --output-on-failure)
# Fuzzing over every member from the seed corpus: a fixed seed and number
# of runs (about two minutes), so that every run of this script tries the
# same inputs; scripts/fuzz.sh runs longer, from other seeds.
corpus=$(mktemp -d)
if ! ./build-asan/tests/kelm_fuzz -seed=1 -runs=20000 -timeout=60 -print_final_stats=1 "$corpus" tests/fuzz/corpus \
    >"$corpus/log" 2>&1; then
  tail -n 60 "$corpus/log"
  exit 1
fi
grep -E '^stat::(number_of_executed_units|new_units_added)' "$corpus/log"
rm -rf "$corpus"
unset ASAN_OPTIONS UBSAN_OPTIONS

step "callers on many threads and the parallel drivers under ThreadSanitizer"
bash scripts/tsan.sh

step "static libraries"
cmake -S . -B build-static -DCMAKE_BUILD_TYPE=Release -DKELM_STATIC=ON -DKELM_BUILD_TESTS=OFF \
  -DKELM_BUILD_BENCH=OFF >/dev/null
cmake --build build-static -j"$jobs" >/dev/null
./build-static/demo/kelm_demo >/dev/null

step "install, find_package(kelm) and pkg-config"
prefix=$(mktemp -d)
trap 'rm -rf "$prefix"' EXIT
cmake --install build --prefix "$prefix" >/dev/null
cmake -S tests/consumer -B "$prefix/consumer" -DCMAKE_PREFIX_PATH="$prefix" >/dev/null
cmake --build "$prefix/consumer" >/dev/null
LD_LIBRARY_PATH="$prefix/lib" "$prefix/consumer/consumer"
PKG_CONFIG_PATH="$prefix/lib/pkgconfig" cc -std=c99 tests/c_example.c $(PKG_CONFIG_PATH="$prefix/lib/pkgconfig" pkg-config --cflags --libs kelm) -o "$prefix/pc_example"
LD_LIBRARY_PATH="$prefix/lib" "$prefix/pc_example"
pysite=$(find "$prefix" -type d -name dist-packages | head -n1)
PYTHONPATH="$pysite" /usr/bin/python3 -c "import kelm, numpy; assert kelm.det(numpy.eye(3)) == 1.0"
echo "installed kelm works through find_package, pkg-config and Python"

# Reaching this line means every stage above passed (the script stops at
# the first failure).
echo "stages: 5 passed, 0 failed"
