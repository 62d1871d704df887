#!/usr/bin/env bash
# Installs the Debian packages Kelvaris builds and tests with, when missing.
set -euo pipefail

packages=(cmake g++ make pkg-config
  qt6-base-dev qt6-svg-dev
  libxlsxwriter-dev libfreexl-dev nlohmann-json3-dev poppler-utils
  libgtest-dev libgmock-dev libbenchmark-dev
  fonts-liberation fonts-wqy-microhei locales xvfb xauth)

missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done

as_root() { if [ "$(id -u)" -eq 0 ]; then "$@"; else sudo "$@"; fi; }

if [ ${#missing[@]} -gt 0 ]; then
  echo "Installing: ${missing[*]}"
  as_root apt-get update -qq
  as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq "${missing[@]}"
fi

# The test suite runs once more under a German locale.
if ! locale -a 2>/dev/null | grep -qi '^de_DE\.utf-\?8$'; then
  if [ -f /etc/locale.gen ]; then
    as_root sed -i 's/^# *de_DE.UTF-8 UTF-8/de_DE.UTF-8 UTF-8/' /etc/locale.gen
    grep -q '^de_DE.UTF-8 UTF-8' /etc/locale.gen || echo 'de_DE.UTF-8 UTF-8' | as_root tee -a /etc/locale.gen >/dev/null
    as_root locale-gen >/dev/null || true
  fi
fi
