#!/usr/bin/env bash
# Installs the Debian packages that ZorvoCal needs to build, test and benchmark, as root
# on Debian 12. Installed packages are left alone; when all are there, nothing is
# fetched at all.
set -euo pipefail

packages=(cmake ninja-build g++ make libgtest-dev libbenchmark-dev rapidjson-dev
          libcli11-dev libeigen3-dev)

missing=()
for pkg in "${packages[@]}"; do
  dpkg -s "$pkg" 2>/dev/null | grep -q '^Status: install ok installed' || missing+=("$pkg")
done
[ "${#missing[@]}" -eq 0 ] && exit 0

sudo=()
if [ "$(id -u)" -ne 0 ]; then
  command -v sudo >/dev/null || { echo "install-deps: run as root to install: ${missing[*]}" >&2; exit 1; }
  sudo=(sudo)
fi
echo "install-deps: installing ${missing[*]}"
export DEBIAN_FRONTEND=noninteractive
"${sudo[@]}" apt-get update
"${sudo[@]}" apt-get install -y --no-install-recommends "${missing[@]}" </dev/null
