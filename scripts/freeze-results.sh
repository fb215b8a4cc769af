#!/usr/bin/env bash
# Records the digest of every member's results in tests/data/frozen-results.txt.
# Run it only when a change of results is intended; the diff of that file
# names the members whose results changed.
set -euo pipefail
cd "$(dirname "$0")/.."
cmake -S . -B build -DCMAKE_BUILD_TYPE=Release >/dev/null
cmake --build build -j"$(nproc)" --target kelm_tests
out=$(mktemp)
trap 'rm -f "$out"' EXIT
KELM_FREEZE="$out" ./build/tests/kelm_tests --gtest_brief=1 --gtest_filter='All/Reliability.FrozenResultsAtEveryThreadCount/*'
sort "$out" > tests/data/frozen-results.txt
echo "froze $(wc -l < tests/data/frozen-results.txt) members into tests/data/frozen-results.txt"
