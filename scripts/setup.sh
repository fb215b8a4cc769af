#!/usr/bin/env bash
# Installs what building, testing and benchmarking kelm needs, when it is
# missing.  Safe to run again.
set -euo pipefail
need=()
have() { dpkg -s "$1" >/dev/null 2>&1; }
# The Python package is built and tested with Debian's interpreter and its
# numpy, pytest, dask and matplotlib (bench plot); glm is a bench peer;
# clang with its sanitizer runtimes, libFuzzer and LLVM's OpenMP builds the
# sanitizer and fuzz stages.
for p in build-essential cmake python3 libgtest-dev libbenchmark-dev libeigen3-dev libglm-dev liblapack-dev pkg-config \
         python3-dev python3-numpy python3-pytest python3-dask python3-distributed python3-matplotlib \
         clang libclang-rt-dev libomp-dev; do
  have "$p" || need+=("$p")
done
command -v nm >/dev/null || need+=(binutils)
if ((${#need[@]})); then
  echo "setup: installing ${need[*]}"
  SUDO=""
  [ "$(id -u)" -eq 0 ] || SUDO="sudo"
  export DEBIAN_FRONTEND=noninteractive
  $SUDO apt-get update -qq
  $SUDO apt-get install -y -qq --no-install-recommends "${need[@]}" >/dev/null
fi
