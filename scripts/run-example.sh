#!/usr/bin/env bash
# Builds zorvo (Release, in build/) and solves the example project, writing its result
# tables as CSV files into build/example-results/.
set -euo pipefail
cd "$(dirname "$0")/.."

bash scripts/install-deps.sh
cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=Release -DZORVO_WERROR=OFF
cmake --build build --target zorvo --parallel "$(nproc)"

build/zorvo check examples/street-of-buildings.json
build/zorvo solve examples/street-of-buildings.json --csv build/example-results
echo "Result tables in build/example-results/:"
ls build/example-results
