#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Sets our exports beside a general engine on this machine, in one run: exports of 1920 x 1080 in
# each environment, and frames of a like title by Qt Quick 3D with 4x multisampling. The title flies
# in. Prints milliseconds a frame while all of its letters are in view and move, as the engine's do,
# how many times as fast that is, and milliseconds a frame of the whole export. Leave the machine
# alone meanwhile; the engine is measured before and after our exports.
set -euo pipefail
cd "$(dirname "$0")/.."

packages=()
for package in qt6-quick3d-dev qt6-shadertools-dev qml6-module-quick3d; do
    dpkg -s "$package" > /dev/null 2>&1 || packages+=("$package")
done
if [ ${#packages[@]} -gt 0 ]; then
    echo "Installing ${packages[*]} for the other engine."
    as_root=()
    [ "$(id -u)" = 0 ] || as_root=(sudo)
    "${as_root[@]}" apt-get install -y -q "${packages[@]}" > /dev/null
fi
cmake --preset release > /dev/null
cmake --build build/release --target environments_bench quickscene_bench zelvo > /dev/null

export LIBGL_ALWAYS_SOFTWARE=1 ZELVO_SOFTWARE=1
engine() {
    xvfb-run -a -s "-screen 0 1280x720x24" build/release/bench/quickscene_bench 20
}

before=$(engine)
ours=$(build/release/bench/environments_bench --benchmark_filter='^exportMovie' --benchmark_format=csv 2> /dev/null)
after=$(engine)
echo "$ours" | awk -F, -v before="$before" -v after="$after" '
    BEGIN {
        engine = (before + after) / 2
        printf "Qt Quick 3D: %.0f ms a frame before, %.0f ms after\n", before, after
        printf "%-12s %8s %8s %8s\n", "environment", "ms", "times", "whole ms"
    }
    /^"?name/ {
        for (i = 1; i <= NF; ++i) {
            gsub(/"/, "", $i)
            if ($i == "frames/s") whole = i
            if ($i == "moving/s") rate = i
            if ($i == "label") label = i
        }
    }
    /^"?exportMovie/ {
        gsub(/"/, "", $label)
        times[++count] = engine * $rate / 1000
        printf "%-12s %8.0f %8.2f %8.0f\n", $label, 1000 / $rate, times[count], 1000 / $whole
    }
    END {
        for (i = 1; i <= count; ++i)
            for (j = i + 1; j <= count; ++j)
                if (times[j] < times[i]) { swap = times[i]; times[i] = times[j]; times[j] = swap }
        printf "least %.2f, median %.2f\n", times[1], times[int((count + 1) / 2)]
    }'
