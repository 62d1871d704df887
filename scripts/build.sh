#!/usr/bin/env bash
# Configures and builds Kelvaris in build/ (Release with debug information).
set -euo pipefail
cd "$(dirname "$0")/.."
"$(dirname "$0")/deps.sh"
cmake -S . -B build -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build build -j"$(nproc)"
