#!/usr/bin/env bash
# Installs what building, testing and benchmarking kelm needs, when it is
# missing.  Safe to run again.
set -euo pipefail
need=()
have() { dpkg -s "$1" >/dev/null 2>&1; }
for p in build-essential cmake python3 libgtest-dev libbenchmark-dev libeigen3-dev liblapack-dev libglm-dev pkg-config; do
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
