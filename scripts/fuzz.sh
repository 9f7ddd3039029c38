#!/usr/bin/env bash
# Fuzzes the two readers of the model file with libFuzzer, each for a bounded time.
#   bash scripts/fuzz.sh [seconds per form, default 600]
# Corpora and any crashing inputs are kept under build-fuzz/.
set -euo pipefail
cd "$(dirname "$0")/.."
seconds="${1:-600}"

need=()
for pkg in clang libclang-rt-14-dev libomp-14-dev; do
  dpkg -s "$pkg" >/dev/null 2>&1 || need+=("$pkg")
done
[ -f scripts/install-deps.sh ] && bash scripts/install-deps.sh
if [ "${#need[@]}" -gt 0 ]; then
  apt-get update
  DEBIAN_FRONTEND=noninteractive apt-get install -y "${need[@]}"
fi

CC=clang CXX=clang++ cmake -S . -B build-fuzz -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
  -DZORVO_FUZZ=ON -DZORVO_BUILD_TESTS=OFF -DZORVO_BUILD_BENCH=OFF
cmake --build build-fuzz --target FuzzJsonReader FuzzBinaryReader zorvo

# Seeds: the example projects in both forms, the test projects, and the hostile files
# that the reader once mishandled.
mkdir -p build-fuzz/corpus-json build-fuzz/corpus-binary build-fuzz/findings
for f in examples/*.json tests/host/data/*.json; do
  cp "$f" build-fuzz/corpus-json/
  out="build-fuzz/seed-$(basename "$f" .json).zorvo"
  if build-fuzz/zorvo convert "$f" "$out" >/dev/null 2>&1; then
    tail -c +13 "$out" > "build-fuzz/corpus-binary/$(basename "$out")"
  fi
done
cp tests/host/hostile/*.json build-fuzz/corpus-json/
for f in tests/host/hostile/*.zorvo; do
  # The binary target supplies the 12-byte header itself.
  tail -c +13 "$f" > "build-fuzz/corpus-binary/hostile-$(basename "$f")"
done

for target in FuzzJsonReader FuzzBinaryReader; do
  corpus=build-fuzz/corpus-json
  [ "$target" = FuzzBinaryReader ] && corpus=build-fuzz/corpus-binary
  echo "== $target for $seconds s"
  build-fuzz/$target "$corpus" -max_total_time="$seconds" -rss_limit_mb=4096 \
    -artifact_prefix=build-fuzz/findings/$target- -print_final_stats=1 2>&1 |
    grep -E 'stat::number_of_executed_units|stat::peak_rss_mb|ERROR|SUMMARY|Done' || true
done
echo "== findings:"
ls build-fuzz/findings
