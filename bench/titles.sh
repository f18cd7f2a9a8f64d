#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Draws the five titles by which the look is judged, at rest: bench/titles.sh FOLDER [SIZE]
set -euo pipefail
if [ $# -lt 1 ]; then
    echo "usage: $0 FOLDER [WIDTHxHEIGHT]" >&2
    exit 2
fi
mkdir -p "$1"
here=$(dirname "$0")
for title in "$here"/titles/*.json; do
    "$here/../build/release/zelvo" frame "$title" --at 4 --size "${2:-1920x1080}" \
        --out "$1/$(basename "$title" .json).png"
done
