#!/usr/bin/env bash
# Builds the Debian package of Kelvaris in build-pkg/: kelvaris and
# kelvaris-cli in /usr/bin, the factory data in /usr/share/kelvaris/data,
# the desktop entry, the icon and the man page of the batch tool.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/deps.sh
cmake -S . -B build-pkg -DCMAKE_BUILD_TYPE=Release -DKELVARIS_BUILD_TESTS=OFF -DKELVARIS_BUILD_BENCH=OFF > /dev/null
cmake --build build-pkg -j"$(nproc)" --target kelvaris kelvaris-cli
(cd build-pkg && cpack -G DEB)
ls -1 build-pkg/*.deb
