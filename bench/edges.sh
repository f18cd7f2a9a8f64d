#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# How far the edges of an export are from a picture with 64 samples a pixel, and how far they were
# before edges had samples: bench/edges.sh [ENVIRONMENT...]
set -euo pipefail
cd "$(dirname "$0")/.."
cmake --preset release > /dev/null
cmake --build build/release --target edges_bench > /dev/null
build/release/bench/edges_bench "$@"
