#!/usr/bin/env bash
# Searches for inputs that break the parsers of foreign data: scripts/fuzz.sh [SECONDS [TARGET…]], by default 120 seconds
# for each target. Prints how many inputs each target tried, in all and per second of processor time. Inputs that broke a
# parser are in build/fuzz/found. Inputs that reached new code are in build/fuzz/learnt; the next search starts with them.
# Installs clang and its runtime if they are missing. The exit status is 1 if anything was found.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh
scripts/setup.sh scripts/packages-fuzz.txt

seconds=${1:-120}
targets=("${@:2}")
[ ${#targets[@]} -gt 0 ] || targets=(archive csv font image object performance scene sound svgpath tags technique usd video)

# The longest input in bytes: room for all parts of a file, but short inputs are tried more often.
declare -A longest=(
    [archive]=2048 [font]=2048 [image]=4096 [object]=2048 [performance]=2048 [scene]=8192 [sound]=10240 [video]=16384 [svgpath]=300 [tags]=4096 [technique]=4096
    [usd]=4096)

[ -f build/fuzz/build.ninja ] || cmake --preset fuzz
cmake --build --preset fuzz --target "${targets[@]/%/_fuzz}"

field() { sed -n "s/^stat::$2: *//p" "$1"; } # LOG NAME

found=0
for target in "${targets[@]}"; do
    learnt=build/fuzz/learnt/$target
    kept=build/fuzz/found/$target
    log=build/fuzz/$target.log
    mkdir -p "$learnt" "$kept"
    # The entropic schedule keeps a list of features for each input, which takes up to two fifths of the time.
    options=(-max_total_time="$seconds" -max_len="${longest[$target]}" -entropic=0 -timeout=60
             -print_final_stats=1 -artifact_prefix="$kept/")
    # Path data is plain text.
    [ "$target" != svgpath ] || options+=(-only_ascii=1)
    TIMEFORMAT='%U %S'
    state=0
    { time build/fuzz/fuzz/"${target}_fuzz" "${options[@]}" "$learnt" "fuzz/corpus/$target" 2>"$log" || state=$?; } \
        2>"$log.time"
    read -r user kernel <"$log.time"
    runs=$(field "$log" number_of_executed_units)
    awk -v target="$target" -v runs="$runs" -v user="$user" -v kernel="$kernel" 'BEGIN {
        printf "%s: %d inputs, %.0f a second of processor time\n", target, runs, runs / (user + kernel) }'
    if [ "$state" -ne 0 ]; then
        grep -E '^(SUMMARY|.*Test unit written)' "$log" || tail -5 "$log"
        found=1
    fi
done
exit "$found"
