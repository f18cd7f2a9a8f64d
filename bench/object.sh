#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# What an imported object costs an export: the same title of two seconds at 1920x1080 without it and with
# an object of 200,000 triangles that fills the middle of the picture. Tells the frames a second of both
# and their ratio; half is asked. Uses build/release.
set -euo pipefail
zelvo=$(cd "$(dirname "$0")/.." && pwd)/build/release/zelvo
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder"

# A ball with waves.
awk 'BEGIN {
    rows = 250; columns = 400; pi = atan2(0, -1)
    for (i = 0; i < (rows + 1) * columns; ++i) {
        height = pi * int(i / columns) / rows; around = 2 * pi * (i % columns) / columns
        radius = 1 + 0.05 * sin(20 * height) * sin(15 * around)
        printf "v %.6f %.6f %.6f\n", radius * sin(height) * cos(around), radius * cos(height),
            radius * sin(height) * sin(around)
    }
    for (i = 0; i < rows * columns; ++i) {
        right = (i % columns + 1 < columns) ? i + 1 : i + 1 - columns
        printf "f %d %d %d %d\n", i + 1, right + 1, right + columns + 1, i + columns + 1
    }
}' > ball.obj

title() { # NAME OBJECT
    cat > "$1.json" <<JSON
{"duration": 2, "scene": "Stage",
 "nodes": {"TX1": {"text": "NIGHT RUN", "material": "Iron", "position": [0, 44, 0]},
           "TX2": {"text": "A STORY", "position": [0, -58, 0]},
           "IMG": {"visible": false}, "OBJ": $2},
 "cues": [{"at": -1, "tab": "IN1", "press": "Left In"},
          {"at": 0, "tab": "ROT", "press": "Rotate Y 180", "speed": "slowest"}]}
JSON
}
title without '{"visible": false}'
title with '{"object": "ball.obj", "position": [0, 0, -60]}'

frames=121
seconds() { # NAME: for drawing and encoding, without the start of the program
    local begin middle
    begin=$(date +%s.%N)
    "$zelvo" frame "$1.json" --at 0 --out start.png > log 2>&1
    middle=$(date +%s.%N)
    "$zelvo" perform "$1.json" --movie "$1.mov" > log 2>&1
    echo "$begin $middle $(date +%s.%N)" | awk '{ print $3 - $2 - ($2 - $1) }'
}
a=$(seconds without)
b=$(seconds with)
echo "$a $b $frames" | awk '{ printf "without %.2f, with %.2f frames a second: %.2f\n", $3 / $1, $3 / $2, $1 / $2 }'
