#!/usr/bin/env bash
# Installs the Debian packages the build needs, when any is missing.
# Runs as root on a fresh Debian 12 machine; as another user it only reports.
set -euo pipefail

# clang and its runtime libraries build the fuzz target (libFuzzer) of make fuzz-smoke.
packages=(g++ cmake make pkg-config liblapack-dev libblas-dev libgtest-dev libbenchmark-dev libcli11-dev
          clang libclang-rt-14-dev
          nlohmann-json3-dev pybind11-dev python3-dev python3-numpy python3-pandas python3-matplotlib
          python3-pytest)

missing=()
for p in "${packages[@]}"; do
  if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed"; then
    missing+=("$p")
  fi
done

if [ ${#missing[@]} -eq 0 ]; then
  exit 0
fi

echo "Installing missing packages: ${missing[*]}"
if [ "$(id -u)" -ne 0 ]; then
  echo "Not root: install these packages by hand: ${missing[*]}" >&2
  exit 1
fi
export DEBIAN_FRONTEND=noninteractive
apt-get update -qq
apt-get install -y -qq --no-install-recommends "${missing[@]}"
