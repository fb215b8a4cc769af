#!/usr/bin/env bash
# Builds kelm and runs its demo on built-in data.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/setup.sh
cmake -S . -B build -DCMAKE_BUILD_TYPE=Release >/dev/null
cmake --build build -j"$(nproc)" --target kelm_demo >/dev/null
exec ./build/demo/kelm_demo
