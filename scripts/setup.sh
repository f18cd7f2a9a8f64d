#!/usr/bin/env bash
# Installs the Debian 12 packages for building, testing and running Zelvo, and fetches the built-in fonts. Prints nothing
# if all is there. An argument names another list of packages.
set -euo pipefail
cd "$(dirname "$0")/.."

mapfile -t wanted < <(sed -e 's/#.*//' -e '/^[[:space:]]*$/d' "${1:-scripts/packages.txt}")
missing=()
for package in "${wanted[@]}"; do
    dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q ' installed$' || missing+=("$package")
done

if [ ${#missing[@]} -gt 0 ]; then
    as_root=()
    if [ "$(id -u)" -ne 0 ]; then
        if ! command -v sudo >/dev/null; then
            echo "These packages are missing: ${missing[*]}" >&2
            echo "Install them as root, or install sudo, then run this again." >&2
            exit 1
        fi
        as_root=(sudo)
    fi
    echo "Installing ${#missing[@]} packages: ${missing[*]}"
    export DEBIAN_FRONTEND=noninteractive
    "${as_root[@]}" apt-get -qq update
    "${as_root[@]}" apt-get -qq install -y --no-install-recommends "${missing[@]}" >/dev/null
fi

scripts/fetch-fonts.sh
