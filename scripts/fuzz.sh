#!/usr/bin/env bash
# Builds the libFuzzer targets with clang (address and undefined-behaviour
# sanitizers) in build-fuzz/ and runs each for SECONDS (default 60), seeded
# from the factory data files. Findings land in build-fuzz/findings/<target>.
#   scripts/fuzz.sh [SECONDS] [TARGET...]
set -euo pipefail
cd "$(dirname "$0")/.."
seconds="${1:-60}"
shift || true
command -v clang++ > /dev/null || { echo "clang++ is needed for the fuzz targets" >&2; exit 2; }
CXX=clang++ cmake -S . -B build-fuzz -DCMAKE_BUILD_TYPE=RelWithDebInfo -DKELVARIS_BUILD_FUZZ=ON \
  -DKELVARIS_BUILD_UI=OFF -DKELVARIS_BUILD_TESTS=OFF -DKELVARIS_BUILD_BENCH=OFF > /dev/null
targets=("$@")
if [ ${#targets[@]} -eq 0 ]; then
  targets=($(sed -n 's/^add_executable(\(fuzz_[a-z_]*\) .*/\1/p' fuzz/CMakeLists.txt))
fi
cmake --build build-fuzz -j"$(nproc)" --target "${targets[@]}"
for t in "${targets[@]}"; do
  corpus="build-fuzz/corpus/$t"
  findings="build-fuzz/findings/$t"
  mkdir -p "$corpus" "$findings"
  # Seeds: the factory files (small ones), whatever their format.
  find data -maxdepth 1 -type f -size -64k -print0 | head -z -n 200 | xargs -0 -I{} cp {} "$corpus/" 2> /dev/null || true
  echo "== $t: ${seconds} s"
  "build-fuzz/fuzz/$t" -max_total_time="$seconds" -artifact_prefix="$findings/" -print_final_stats=1 \
    "$corpus" 2>&1 | grep -E "stat::number_of_executed_units|ERROR|SUMMARY|Done" || true
done
